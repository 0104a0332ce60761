#pragma once
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "foundation/MessageLog.h"
#include "foundation/Services.h"
#include "model/RefreshState.h"
#include "refresh/DownloadManager.h"

namespace tarvel {

/// The shape that the refreshes of the catalogue and of each rink share. A cycle has no fixed steps: it
/// begins with one tiny index file, every handler may request what it finds stale, and the cycle ends with
/// the last file in flight. What was asked for between the cycles goes through the same list of URLs, of
/// which each is in flight at most once. The deriving class tells what differs: whose state it is, the next
/// time, whom it announces. Main thread.
class RefreshCycle {
 public:
  using Handler = std::function<void(ByteView body)>;
  using FailureHandler = std::function<void(const std::string& description)>;

  RefreshCycle(const RefreshCycle&) = delete;
  RefreshCycle& operator=(const RefreshCycle&) = delete;

 protected:
  enum class ArmOnTrouble { no, yes };
  /// With `ArmOnTrouble::yes` a failure arms the timer at once, so that the status shows it while other files
  /// are still in flight; the end of the cycle arms it anew.
  RefreshCycle(const Services& services, DownloadManager& downloads, MessageLog& messageLog,
               RefreshState& state, ArmOnTrouble armOnTrouble);
  virtual ~RefreshCycle();

  /// Arms the timer of the next refresh by the state; the end of a cycle comes here.
  virtual void armNextRefresh() = 0;
  /// Posts "refresh status changed".
  virtual void announceStatus() = 0;
  virtual void noteStateChanged() = 0;
  /// What must live while a reply is dealt with; none if that is certain anyway.
  virtual std::shared_ptr<const void> keepAlive() { return nullptr; }

  /// Turns a new leaf in the state; false, with nothing done, while a cycle runs.
  bool begin(const std::string& progressLine);
  /// Registers the URL and starts its download; false, with nothing done, if it is in flight already. The
  /// handler gets the body; it throws `DecodeError`, before it changes anything, if it can't be decoded.
  /// `onFailure` runs first when the download fails, with the description for the user.
  bool request(const std::string& url, Handler handler, FailureHandler onFailure = {});
  /// Ends a cycle for which nothing could be requested.
  void endIfNothingRequested();

  /// Notes a failure in the state: the latest one is told, but a connection error is never overwritten by
  /// another download's failure.
  void logError(DownloadErrorKind kind, const std::string& description);
  /// Notes that a file came with another date than was promised.
  void reportMismatch(const std::string& message);
  /// For log lines and texts of the user: month, day, year and time by the machine's zone.
  std::string dateText(std::optional<Instant> instant) const;

  void armTimer(double seconds, Task fire);
  void dropTimer() { timer_ = nullptr; }
  double secondsUntilTimer() const { return timer_ ? timer_->secondsUntilFire() : -1.0; }

  Services services_;
  RefreshState& state_;

 private:
  bool addRequest(const std::string& url);
  void received(const std::string& url, DownloadResult result, const Handler& handler,
                const FailureHandler& onFailure);
  void fail(const std::string& url, DownloadErrorKind kind, const std::string& description,
            const FailureHandler& onFailure);
  void finishRequest(const std::string& url);

  DownloadManager& downloads_;
  MessageLog& messageLog_;
  ArmOnTrouble armOnTrouble_;
  std::unique_ptr<Timer> timer_;
  std::shared_ptr<RefreshCycle*> self_;  ///< emptied when the cycle goes: replies under way then do nothing
};

/// Adds an entry to an error log of the user: entries are divided by a blank line, and once there are more
/// than 4000 characters the oldest one goes.
void appendErrorEntry(std::string& errorLog, const std::string& entry);

}  // namespace tarvel
