#include "model/RefreshState.h"

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

}  // namespace tarvel
