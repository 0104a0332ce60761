#pragma once
#include <optional>
#include <string>

#include "model/DownloadErrorKind.h"
#include "platform/Instant.h"

namespace tarvel {

/// What a thing that keeps itself current shows of its refreshes: the catalogue, or one rink.
class RefreshableProtocol {
 public:
  virtual ~RefreshableProtocol() = default;
  virtual std::string refreshName() const = 0;
  /// End of the last refresh without an error.
  virtual std::optional<Instant> lastRefreshTimeStamp() const = 0;
  virtual bool refreshInProgress() const = 0;
  /// Seconds to the next refresh; -1.0 when none is waiting.
  virtual double secondsUntilRefresh() const = 0;
  virtual DownloadErrorKind errorKind() const = 0;
  /// What failed since the last good refresh, oldest first, entries divided by a blank line.
  virtual std::string errorLog() const = 0;
  /// Refreshes at once, unless a refresh is running.
  virtual void refreshNow() = 0;
};

}  // namespace tarvel
