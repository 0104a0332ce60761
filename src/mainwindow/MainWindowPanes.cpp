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
  switch (kind) {
    case MainWindowPane::info:
      break;
    case MainWindowPane::schedule:
      shown ? schedule_->paneShown() : schedule_->paneHidden();
      break;
    case MainWindowPane::notices:
      noticesPane_->noticesView().setPresented(shown);
      break;
    case MainWindowPane::photos:
      shown ? photos_->paneShown() : photos_->paneHidden();
      break;
  }
}

void MainWindowController::updateKeyViewLoop() {
  RinkListView& list = rinkSidebar_->rinkListView();
  list.enabled = sidebars_->showRinks;
  QWidget* keyView = onPhotos() ? photos_->keyView() : nullptr;
  if (keyView && list.enabled) QWidget::setTabOrder(&list, keyView);
  if (list.enabled) {
    list.setFocus();
  } else if (keyView) {
    keyView->setFocus();
  } else if (QWidget* focused = window()->focusWidget()) {
    focused->clearFocus();
  }
}

void MainWindowController::updateControls() {
  // The parts speak up while the window is being made.
  if (!photos_ || !sidebars_) return;
  const bool hasRink = !currentRinkData_.expired();
  using Control = TitleRowControl;
  titleRow_->setControlVisible(Control::refreshRink, hasRink);
  titleRow_->setControlVisible(Control::gotoNow, onSchedule() && hasRink);
  titleRow_->setControlVisible(Control::showCalendar, onSchedule());
  if (onSchedule()) updateScheduleControls();
  if (onPhotos()) updatePhotosControls();
  if (onSchedule() || onPhotos()) return;
  for (const Control control : {Control::back, Control::gotoPrev, Control::gotoNext}) {
    titleRow_->setControlVisible(control, false);
  }
}

void MainWindowController::updateScheduleControls() {
  using Control = TitleRowControl;
  const bool hasRink = !currentRinkData_.expired();
  const ScheduleControls controls = schedule_->controls();
  schedule_->updateHeader();
  titleRow_->setControlVisible(Control::back, false);
  titleRow_->setControlVisible(Control::gotoPrev, hasRink);
  titleRow_->setControlVisible(Control::gotoNext, hasRink);
  titleRow_->setControlEnabled(Control::gotoPrev, controls.canGoBack);
  titleRow_->setControlEnabled(Control::gotoNow, controls.canGoToNow);
  titleRow_->setControlEnabled(Control::gotoNext, controls.canGoForward);
}

void MainWindowController::updatePhotosControls() {
  using Control = TitleRowControl;
  const PhotosControls controls = photos_->controls();
  photos_->updatePane();
  titleRow_->setControlVisible(Control::back, !controls.backTitle.empty());
  if (!controls.backTitle.empty()) titleRow_->setBackTitle(QString::fromStdString(controls.backTitle));
  titleRow_->setControlVisible(Control::gotoPrev, controls.showsArrows);
  titleRow_->setControlVisible(Control::gotoNext, controls.showsArrows);
  titleRow_->setControlEnabled(Control::gotoPrev, controls.canGoBack);
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
  onMyRinkID(kRinkLogoChanged, [this] {
    schedule_->logoChanged();
    if (currentPaneKind_ == MainWindowPane::info) infoPane_->logoChanged();
  });
  onMyRink(kVenuesChanged, [this] {
    context_.services.console.printLine("MainWindowController venuesChanged");
    schedule_->venuesChanged();
  });
  onMyRink(kCurrentTimeOfDayChanged, [this] { schedule_->timeTick(); });
  onMyRink(kCurrentDateChanged, [this] { schedule_->currentDateChanged(); });
  onMyRink(kTimeZoneChanged, [this] { schedule_->timeZoneChanged(); });
  onMyRink(kDateRangeChanged, [this] { schedule_->dateRangeChanged(); });
  onMyRink(kSchedulesChanged, [this] { needsData(); });
  on(kNoticesChanged, [this](const Notification& notification) { noticesChanged(notification); });
  onMyRink(kCoverPhotoChanged, [this] {
    if (currentPaneKind_ == MainWindowPane::info) updateRinkContent();
  });
  onMyRink(kPhotoCollectionChanged, [this] {
    photos_->photoCollectionChanged();
    if (currentPaneKind_ == MainWindowPane::info) updateRinkContent();
  });
  on(kPhotoChanged, [this](const Notification& notification) { photoChanged(notification); });
  on(kPhotoImageChanged, [this](const Notification& notification) { photoChanged(notification); });
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

// A change of another rink's notices takes the banner away, whatever it shows; windows have always done so.
void MainWindowController::noticesChanged(const Notification& notification) {
  if (isCurrentRink(notification)) {
    noticeBanner_->applyRule(currentRinkData());
  } else {
    noticeBanner_->hideNoticeBanner();
  }
}

void MainWindowController::photoChanged(const Notification& notification) {
  const auto& photo = infoPane_->coverPhoto();
  const bool shown = currentPaneKind_ == MainWindowPane::info && photo && isCurrentRink(notification);
  if (shown && notification.integer(kPhotoIDKey) == photo->photoID) updateRinkContent();
}

void MainWindowController::selectNotice(const std::shared_ptr<const Notice>& notice) {
  selectPaneKind(MainWindowPane::notices);
  noticesPane_->noticesView().selectNotice(notice);
  noticesPane_->noticesView().setFocus();
}

void MainWindowController::updateRefreshIcon() {
  const auto rink = currentRinkData();
  titleRow_->setRefreshIcon(rink && rink->errorKind() != DownloadErrorKind::noError);
}

}  // namespace tarvel
