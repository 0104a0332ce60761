// The part of `MainWindowController` that switches the panes, and its observers of the model.
#include <QStackedLayout>

#include "mainwindow/MainWindowController.h"

namespace tarvel {

void MainWindowController::selectPaneKind(MainWindowPane kind) {
  const bool toSchedule = kind == MainWindowPane::schedule;
  sidebars_->schedulePaneShows = toSchedule;
  if (toSchedule) {
    sidebars_->updateCalendar();
    schedule_->prepareForShow();
  }
  tellPane(currentPaneKind_, false);
  currentPaneKind_ = kind;
  containerView_->setCurrentWidget(&pane(kind));
  tellPane(kind, true);
  titleRow_->setPane(kind);
  updateRinkContent();
  updateKeyViewLoop();
  if (toSchedule) schedule_->timeTick();
  titleRow_->layoutTitleBar();
}

void MainWindowController::tellPane(MainWindowPane kind, bool shown) {
  if (kind != MainWindowPane::schedule) return;
  shown ? schedule_->paneShown() : schedule_->paneHidden();
}

void MainWindowController::updateKeyViewLoop() {
  RinkListView& list = rinkSidebar_->rinkListView();
  list.enabled = sidebars_->showRinks;
  if (list.enabled) {
    list.setFocus();
  } else if (QWidget* focused = window()->focusWidget()) {
    focused->clearFocus();
  }
}

void MainWindowController::updateControls() {
  // The schedule's parts speak up while the window is being made.
  if (!schedule_ || !sidebars_) return;
  const bool hasRink = !currentRinkData_.expired();
  const bool turns = onSchedule() && hasRink;
  using Control = TitleRowControl;
  for (const Control control : {Control::gotoPrev, Control::gotoNow, Control::gotoNext}) {
    titleRow_->setControlVisible(control, turns);
  }
  titleRow_->setControlVisible(Control::refreshRink, hasRink);
  titleRow_->setControlVisible(Control::back, false);
  titleRow_->setControlVisible(Control::showCalendar, onSchedule());
  if (!onSchedule()) return;
  schedule_->updateHeader();
  const ScheduleControls controls = schedule_->controls();
  titleRow_->setControlEnabled(Control::gotoPrev, controls.canGoBack);
  titleRow_->setControlEnabled(Control::gotoNow, controls.canGoToNow);
  titleRow_->setControlEnabled(Control::gotoNext, controls.canGoForward);
}

void MainWindowController::observeModel() {
  const auto on = [this](NotificationName name, NotificationCenter::Handler handler) {
    observations_.push_back(notifications().observe(name, std::move(handler)));
  };
  const auto onMyRink = [&](NotificationName name, std::function<void()> action) {
    on(name, [this, action = std::move(action)](const Notification& notification) {
      if (isCurrentRink(notification)) action();
    });
  };
  const auto onMyRinkID = [&](NotificationName name, std::function<void()> action) {
    on(name, [this, action = std::move(action)](const Notification& notification) {
      if (isCurrentRinkID(notification)) action();
    });
  };
  on(kRinkListChanged, [this](const Notification&) { updateRinkContent(); });
  onMyRinkID(kRinkInfoChanged, [this] { updateRinkContent(); });
  onMyRinkID(kRinkLogoChanged, [this] { schedule_->logoChanged(); });
  onMyRink(kVenuesChanged, [this] {
    context_.services.console.printLine("MainWindowController venuesChanged");
    schedule_->venuesChanged();
  });
  onMyRink(kCurrentTimeOfDayChanged, [this] { schedule_->timeTick(); });
  onMyRink(kCurrentDateChanged, [this] { schedule_->currentDateChanged(); });
  onMyRink(kTimeZoneChanged, [this] { schedule_->timeZoneChanged(); });
  onMyRink(kDateRangeChanged, [this] { schedule_->dateRangeChanged(); });
  onMyRink(kSchedulesChanged, [this] { needsData(); });
  on(kWeeklyScheduleChanged, [this](const Notification& notification) {
    if (!isCurrentRink(notification)) return;
    if (const auto weekOf = notification.integer(kWeekOfKey)) {
      schedule_->weeklyScheduleChanged(static_cast<PackedDate>(*weekOf));
    }
  });
  on(kSelectionChanged, [this](const Notification& notification) { selectionChanged(notification); });
  on(kCalendarSelectionChanged, [this](const Notification& notification) {
    if (notification.object.is(&schedule_->pane().calendarView())) schedule_->changeCalendarDate();
  });
  on(kRefreshStatusChanged, [this](const Notification& notification) {
    if (isCurrentRink(notification)) updateRefreshIcon();
  });
  on(kCheckObservers, [this](const Notification&) { context_.observerCensus.checkObservers(className()); });
}

bool MainWindowController::isCurrentRink(const Notification& notification) const {
  const auto rink = currentRinkData();
  return rink && notification.object.is(rink.get());
}

bool MainWindowController::isCurrentRinkID(const Notification& notification) const {
  const auto info = currentRinkInfo_.lock();
  return info && notification.integer(kRinkIDKey) == info->rinkID;
}

void MainWindowController::selectionChanged(const Notification& notification) {
  const RinkListView& list = rinkSidebar_->rinkListView();
  if (notification.object.is(&list)) chooseRink(list.selectedRink());
}

void MainWindowController::updateRefreshIcon() {
  const auto rink = currentRinkData();
  titleRow_->setRefreshIcon(rink && rink->errorKind() != DownloadErrorKind::noError);
}

}  // namespace tarvel
