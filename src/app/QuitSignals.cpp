#include "app/QuitSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace tarvel {

namespace {

constexpr std::array kSignals = {SIGTERM, SIGINT, SIGHUP};

/// Where the handler writes; a handler may do little more than that.
volatile std::sig_atomic_t writeNumber = -1;

void noteSignal(int) {
  const int savedError = errno;
  const char byte = 0;
  // A full pipe means that a call is on its way already.
  [[maybe_unused]] const auto written = ::write(writeNumber, &byte, 1);
  errno = savedError;
}

void setHandlers(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigemptyset(&action.sa_mask);
  for (const int signal : kSignals) sigaction(signal, &action, nullptr);
}

}  // namespace

QuitSignals::QuitSignals(std::function<void()> quit) {
  int ends[2] = {-1, -1};
  // With no pipe to be had the signals end the program at once, as they do by default.
  if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
  readEnd_ = FileDescriptor(ends[0]);
  writeEnd_ = FileDescriptor(ends[1]);
  notifier_ = std::make_unique<QSocketNotifier>(readEnd_.number(), QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [number = readEnd_.number(), quit = std::move(quit)] {
                     char byte = 0;
                     if (::read(number, &byte, 1) == 1) quit();
                   });
  writeNumber = writeEnd_.number();
  setHandlers(noteSignal);
}

QuitSignals::~QuitSignals() {
  if (!writeEnd_.valid()) return;
  setHandlers(SIG_DFL);
  writeNumber = -1;
}

}  // namespace tarvel
