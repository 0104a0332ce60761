#include "model/RefreshState.h"

#include <utility>

namespace tarvel {

void RefreshState::addTo(PropertyList::Dictionary& dictionary) const {
  dictionary["errorKind"] = static_cast<std::int64_t>(errorKind);
  dictionary["errorLog"] = errorLog;
  dictionary["mismatchError"] = mismatchError;
  dictionary["prevMismatchError"] = prevMismatchError;
  if (lastRefreshTimeStamp) dictionary["lastRefreshTimeStamp"] = *lastRefreshTimeStamp;
  if (errorTimeStamp) dictionary["errorTimeStamp"] = *errorTimeStamp;
}

void RefreshState::readFrom(const PropertyList::Dictionary& dictionary) {
  errorKind = downloadErrorKindOf(integerAt(dictionary, "errorKind").value_or(0));
  errorLog = textAt(dictionary, "errorLog").value_or("");
  mismatchError = booleanAt(dictionary, "mismatchError").value_or(false);
  prevMismatchError = booleanAt(dictionary, "prevMismatchError").value_or(false);
  lastRefreshTimeStamp = dateAt(dictionary, "lastRefreshTimeStamp");
  errorTimeStamp = dateAt(dictionary, "errorTimeStamp");
}

PackedDate packedDateAt(const PropertyList::Dictionary& dictionary, const std::string& key) {
  const std::int64_t value = integerAt(dictionary, key).value_or(0);
  return std::in_range<PackedDate>(value) ? static_cast<PackedDate>(value) : kNoDate;
}

}  // namespace tarvel
