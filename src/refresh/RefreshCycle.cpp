#include "refresh/RefreshCycle.h"

#include <algorithm>

#include "foundation/DecodeError.h"
#include "foundation/TextFormats.h"

namespace tarvel {

namespace {
constexpr std::size_t kErrorLogCharacters = 4000;
constexpr std::string_view kBlankLine = "\n\n";
}  // namespace

RefreshCycle::RefreshCycle(const Services& services, DownloadManager& downloads, MessageLog& messageLog,
                           RefreshState& state, ArmOnTrouble armOnTrouble)
    : services_(services),
      state_(state),
      downloads_(downloads),
      messageLog_(messageLog),
      armOnTrouble_(armOnTrouble),
      self_(std::make_shared<RefreshCycle*>(this)) {}

RefreshCycle::~RefreshCycle() {
  *self_ = nullptr;
}

bool RefreshCycle::begin(const std::string& progressLine) {
  if (state_.refreshInProgress) return false;
  services_.console.printLine(progressLine);
  state_.prevMismatchError = state_.mismatchError;
  state_.mismatchError = false;
  state_.errorKind = DownloadErrorKind::noError;
  state_.errorTimeStamp.reset();
  state_.refreshInProgress = true;
  return true;
}

bool RefreshCycle::addRequest(const std::string& url) {
  auto& urls = state_.requestedFiles;
  if (std::find(urls.begin(), urls.end(), url) != urls.end()) return false;
  services_.console.printLine("Requesting file from server: " + url);
  urls.push_back(url);
  return true;
}

bool RefreshCycle::request(const std::string& url, Handler handler, FailureHandler onFailure) {
  if (!addRequest(url)) return false;
  downloads_.fetch(url, [self = self_, url, handler = std::move(handler),
                         onFailure = std::move(onFailure)](DownloadResult result) {
    if (*self) (*self)->received(url, std::move(result), handler, onFailure);
  });
  return true;
}

void RefreshCycle::received(const std::string& url, DownloadResult result, const Handler& handler,
                            const FailureHandler& onFailure) {
  const std::shared_ptr<const void> kept = keepAlive();
  if (const auto* refused = std::get_if<DownloadError>(&result)) {
    const DownloadManager::ErrorInfo info = downloads_.errorInfo(*refused);
    fail(url, info.kind, info.text, onFailure);
  } else {
    try {
      handler(std::get<Bytes>(result));
    } catch (const DecodeError& error) {
      // A reply that can't be decoded is never stored: the local copy stays in use.
      const std::string description = "Invalid data in " + fileNameOf(url) + " (" + error.what() + ")";
      messageLog_.addMessage(description + "\n    " + url);
      fail(url, DownloadErrorKind::invalidData, description, onFailure);
    }
  }
  finishRequest(url);
}

void RefreshCycle::fail(const std::string& url, DownloadErrorKind kind, const std::string& description,
                        const FailureHandler& onFailure) {
  if (onFailure) onFailure(description);
  logError(kind, description);
  services_.console.printLine("download failed: " + url + " - " + std::string(textOf(kind)) + " " +
                              description);
}

void RefreshCycle::finishRequest(const std::string& url) {
  const auto found = std::find(state_.requestedFiles.begin(), state_.requestedFiles.end(), url);
  if (found == state_.requestedFiles.end()) return;
  state_.requestedFiles.erase(found);
  if (state_.refreshInProgress && state_.requestedFiles.empty()) {
    state_.refreshInProgress = false;
    if (state_.errorKind == DownloadErrorKind::noError) {
      state_.lastRefreshTimeStamp = services_.clock.now();
      state_.errorLog.clear();
    }
    noteStateChanged();
    armNextRefresh();
    return;
  }
  const bool trouble = state_.errorKind != DownloadErrorKind::noError || state_.mismatchError;
  if (armOnTrouble_ == ArmOnTrouble::yes && trouble) armNextRefresh();
}

void RefreshCycle::endIfNothingRequested() {
  if (state_.requestedFiles.empty()) state_.refreshInProgress = false;
}

void RefreshCycle::logError(DownloadErrorKind kind, const std::string& description) {
  const std::string kindText(textOf(kind));
  services_.console.printLine("logError: " + kindText + " descr: " + description);
  if (state_.errorKind != DownloadErrorKind::connectionError) state_.errorKind = kind;
  state_.errorTimeStamp = services_.clock.now();
  std::string entry = dateText(state_.errorTimeStamp);
  if (!kindText.empty()) entry += "  --  " + kindText;
  if (!description.empty()) entry += "\n" + description;
  appendErrorEntry(state_.errorLog, entry);
  noteStateChanged();
  announceStatus();
}

void RefreshCycle::reportMismatch(const std::string& message) {
  messageLog_.addMessage(message);
  state_.mismatchError = true;
}

std::string RefreshCycle::dateText(std::optional<Instant> instant) const {
  return dateAndTimeText(instant, services_.clock.machineZone());
}

void RefreshCycle::armTimer(double seconds, Task fire) {
  timer_ = services_.mainLoop.after(seconds, [this, fire = std::move(fire)] {
    const Task action = fire;  // dropping the timer drops the task that runs now
    timer_ = nullptr;
    action();
  });
}

void appendErrorEntry(std::string& errorLog, const std::string& entry) {
  if (!errorLog.empty()) {
    if (characterCount(errorLog) > kErrorLogCharacters) {
      const std::size_t end = errorLog.find(kBlankLine);
      if (end != std::string::npos) errorLog.erase(0, end + kBlankLine.size());
    }
    errorLog += kBlankLine;
  }
  errorLog += entry;
}

}  // namespace tarvel
