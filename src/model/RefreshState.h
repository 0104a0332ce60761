#pragma once
#include <optional>
#include <string>
#include <vector>

#include "foundation/CalendarDates.h"
#include "model/DownloadErrorKind.h"
#include "platform/Instant.h"
#include "platform/PropertyList.h"

namespace tarvel {

/// How the refreshes of the catalogue, or of one rink, stand. All but the last two members is kept from one
/// run of the application to the next.
struct RefreshState {
  DownloadErrorKind errorKind = DownloadErrorKind::noError;
  bool mismatchError = false;      ///< a file came with another date than was promised
  bool prevMismatchError = false;  ///< the same of the refresh before
  std::string errorLog;
  std::optional<Instant> lastRefreshTimeStamp;  ///< end of the last refresh without error
  std::optional<Instant> errorTimeStamp;        ///< time of the last failure

  bool refreshInProgress = false;
  std::vector<std::string> requestedFiles;  ///< URLs in flight

  void addTo(PropertyList::Dictionary& dictionary) const;
  /// A key that is missing or of another type leaves its member's default.
  void readFrom(const PropertyList::Dictionary& dictionary);
};

/// A day that the state keeps; `kNoDate` if the key is missing, or its value of another type or beyond 32
/// bits.
PackedDate packedDateAt(const PropertyList::Dictionary& dictionary, const std::string& key);

}  // namespace tarvel
