#pragma once
#include <QSocketNotifier>
#include <functional>
#include <memory>

#include "platform/posix/FileDescriptor.h"

namespace tarvel {

/// Turns the signals that ask a program to end (SIGTERM, SIGINT, SIGHUP) into a call on the main thread, so
/// that it quits in order. Ends with its holder, which gives the signals back their default effect. One at a
/// time, main thread.
class QuitSignals {
 public:
  /// Calls the handler from the event loop, once for each signal; a signal that came before the loop ran is
  /// not lost.
  explicit QuitSignals(std::function<void()> quit);
  ~QuitSignals();
  QuitSignals(const QuitSignals&) = delete;
  QuitSignals& operator=(const QuitSignals&) = delete;

 private:
  FileDescriptor readEnd_;
  FileDescriptor writeEnd_;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace tarvel
