#include <fmt/format.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <QApplication>
#include <QPdfWriter>
#include <QSocketNotifier>
#include <cstdio>

#include "schedule/SchedulePrinting.h"
#include "ui/Icons.h"
#include "ui/SystemAppearance.h"
#include "viewer/ScheduleStage.h"
#include "viewer/ViewerModel.h"

namespace {

using namespace tarvel;
using namespace tarvel::viewer;

enum ExitCode { kDone = 0, kFailed = 1, kBadOptions = 2 };

int fail(ExitCode code, const std::string& reason) {
  fmt::print(stderr, "tarvel-viewer: {}\n", reason);
  return code;
}

int print(ViewerModel& model, const ScheduleStage& stage, const std::shared_ptr<RinkData>& rink,
          const ViewerOptions& options) {
  QPdfWriter writer(QString::fromStdString(options.pdf));
  writer.setPageSize(QPageSize(options.paper));
  ScheduleToPrint schedule;
  schedule.form = options.isDaily() ? ScheduleViewOption::daily : ScheduleViewOption::weekly;
  schedule.rink = rink;
  schedule.date = options.shownDate;
  schedule.weeklyVenueID = options.venueIDs.empty() ? 0 : options.venueIDs.front();
  schedule.dailyVenueIDs = options.venueIDs;
  if (schedule.dailyVenueIDs.empty()) {
    for (const auto& venue : rink->venues) schedule.dailyVenueIDs.push_back(venue->venueID);
  }
  schedule.dayRange = stage.dayRange();
  schedule.sessionTimes = options.times;
  const Status printed = printSchedule(writer, model.context().dataModel, schedule);
  return printed ? kDone : fail(kFailed, options.pdf + ": " + printed.error().description);
}

sigset_t endingSignals() {
  sigset_t ending;
  ::sigemptyset(&ending);
  ::sigaddset(&ending, SIGINT);
  ::sigaddset(&ending, SIGTERM);
  return ending;
}

/// Runs until the window is closed, or the terminal ends the program: that too takes the temporary store
/// away. The ending signals are blocked in all threads.
int runWindow() {
  const sigset_t ending = endingSignals();
  const int descriptor = ::signalfd(-1, &ending, SFD_CLOEXEC);
  if (descriptor < 0) return fail(kFailed, "no descriptor for signals");
  QSocketNotifier notifier(descriptor, QSocketNotifier::Read);
  QObject::connect(&notifier, &QSocketNotifier::activated, qApp, &QCoreApplication::quit);
  const int code = QApplication::exec();
  ::close(descriptor);
  return code;
}

int show(const ViewerOptions& options) {
  ViewerModel model(options);
  const auto rink = model.openRink();
  if (!rink) return fail(kBadOptions, rink.error().description);
  ScheduleStage stage(model.context(), *rink, options);
  // What goes to a file is taken from a window that is laid out and on no screen.
  if (!options.opensWindow()) stage.setAttribute(Qt::WA_DontShowOnScreen);
  stage.show();
  model.settle();
  stage.scrollToMoment();
  model.settle();
  if (!options.pdf.empty()) return print(model, stage, *rink, options);
  if (options.opensWindow()) return runWindow();
  if (stage.picture().save(QString::fromStdString(options.png), "PNG")) return kDone;
  return fail(kFailed, options.png + ": the picture can't be written");
}

}  // namespace

int main(int argc, char** argv) {
  const auto options = parseViewerOptions({argv + 1, argv + argc});
  if (!options) return fail(kBadOptions, options.error().description);
  if (!options->help.empty()) {
    fmt::print("{}", options->help);
    return kDone;
  }
  // Both are read by the toolkit when the application object is made. What goes to a file needs no display.
  qputenv("QT_SCALE_FACTOR", QByteArray::number(options->scale));
  if (!options->opensWindow() && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  if (options->opensWindow()) {
    // Threads that the toolkit makes inherit it.
    const sigset_t ending = endingSignals();
    ::pthread_sigmask(SIG_BLOCK, &ending, nullptr);
  }
  int nameAlone = 1;
  const QApplication application(nameAlone, argv);
  initAssets();
  SystemAppearance appearance;
  appearance.setOverride(options->appearance);
  return show(*options);
}
