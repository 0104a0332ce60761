#include "mainwindow/MainWindowController.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "mainwindow/WindowLimits.h"

namespace tarvel {
namespace {

const QString kApplicationName = QStringLiteral("Tarvel");
constexpr Size kFirstSize{1240.0, 800.0};
/// What the open list adds to the window's least width: its own width and a margin.
constexpr double kRinksSidebarDelta = RinkSidebar::kWidth + 8.0;

}  // namespace

std::unique_ptr<MainWindowController> MainWindowController::create(const WindowContext& context) {
  return std::unique_ptr<MainWindowController>(new MainWindowController(context));
}

MainWindowController::MainWindowController(const WindowContext& context)
    : DataLoadingWindowController(std::make_unique<Window>(), context.services.notifications),
      context_(context) {
  makeViews();
  connectControls();
  observeModel();
  const Rect visible = window()->visibleFrame();
  applyWindowFrame({visible.x + (visible.width - kFirstSize.width) / 2, visible.maxY() - kFirstSize.height,
                    kFirstSize.width, kFirstSize.height});
  titleRow_->setShowRinks(showRinks_);
  rinkSidebar_->rinkListView().enabled = true;
  updateControls();
}

MainWindowController::~MainWindowController() {
  // The views go after this, and must not turn to it any more; at a quit no window is closed before.
  closeParts();
}

void MainWindowController::makeViews() {
  rinkSidebar_ = new RinkSidebar(context_, window());
  titleRow_ = new TitleRow(context_.services, window());
  schedulePane_ = new SchedulePane(context_, window());
  auto* column = new QVBoxLayout;
  column->setSpacing(0);
  column->addWidget(titleRow_);
  column->addWidget(schedulePane_, 1);
  auto* row = new QHBoxLayout(window());
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  row->addWidget(rinkSidebar_);
  row->addLayout(column, 1);
}

void MainWindowController::connectControls() {
  schedulePane_->controlsChanged = [this] { updateControls(); };
  QObject::connect(titleRow_, &TitleRow::toggleShowRinks, window(), [this] { toggleShowRinks(); });
  QObject::connect(titleRow_, &TitleRow::prev, window(), [this] { prev(); });
  QObject::connect(titleRow_, &TitleRow::gotoNow, window(), [this] { gotoNow(); });
  QObject::connect(titleRow_, &TitleRow::next, window(), [this] { next(); });
  addShortcut(Qt::Key_Left, [this] { titleRow_->clickPrevious(); });
  addShortcut(Qt::Key_Right, [this] { titleRow_->clickNext(); });
  addShortcut(QKeySequence::Refresh, [this] { refreshNow(); });
  addShortcut(QKeySequence(Qt::CTRL | Qt::Key_W), [this] { window()->performClose(); });
  addShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q), [] { QApplication::quit(); });
}

void MainWindowController::addShortcut(const QKeySequence& keys, std::function<void()> action) {
  auto* shortcut = new QShortcut(keys, window());
  QObject::connect(shortcut, &QShortcut::activated, window(), std::move(action));
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
  on(kRinkListChanged, [this](const Notification&) { updateRinkContent(); });
  on(kRinkInfoChanged, [this](const Notification& notification) { rinkInfoChanged(notification); });
  onMyRink(kVenuesChanged, [this] {
    context_.services.console.printLine("MainWindowController venuesChanged");
    schedulePane_->venuesChanged();
  });
  onMyRink(kCurrentTimeOfDayChanged, [this] { schedulePane_->timeTick(); });
  onMyRink(kCurrentDateChanged, [this] { schedulePane_->currentDateChanged(); });
  onMyRink(kTimeZoneChanged, [this] { schedulePane_->currentDateChanged(); });
  onMyRink(kDateRangeChanged, [this] { schedulePane_->dateRangeChanged(); });
  onMyRink(kSchedulesChanged, [this] { needsData(); });
  on(kSelectionChanged, [this](const Notification& notification) { selectionChanged(notification); });
  on(kCheckObservers, [this](const Notification&) { context_.observerCensus.checkObservers(className()); });
}

bool MainWindowController::isCurrentRink(const Notification& notification) const {
  const auto rink = currentRinkData();
  return rink && notification.object.is(rink.get());
}

void MainWindowController::rinkInfoChanged(const Notification& notification) {
  const auto info = currentRinkInfo_.lock();
  if (info && notification.integer(kRinkIDKey) == info->rinkID) updateRinkContent();
}

void MainWindowController::selectionChanged(const Notification& notification) {
  const RinkListView& list = rinkSidebar_->rinkListView();
  if (notification.object.is(&list)) chooseRink(list.selectedRink());
}

void MainWindowController::chooseRink(const std::shared_ptr<RinkInfo>& rinkInfo) {
  if (rinkInfo == currentRinkInfo_.lock()) return;
  storeChosenVenues();
  currentRinkInfo_ = rinkInfo;
  const auto rink = rinkInfo ? context_.dataModel.rinkData(rinkInfo->rinkID) : nullptr;
  currentRinkData_ = rink;
  if (rink) rink->readMainFile();
  schedulePane_->setRink(rink);
  if (rink) {
    rink->lastViewed = context_.services.clock.now();
    rink->refresher().refreshIfDue();
  }
  titleRow_->refreshStatus().watch(
      rink.get(), [held = currentRinkData_]() -> RefreshableProtocol* { return held.lock().get(); });
  schedulePane_->fillForRink();
  needsData();
  updateControls();
}

void MainWindowController::loadData() {
  isAwaitingData = false;
  if (isClosing) return;
  updateControls();
}

void MainWindowController::updateRinkContent() {
  schedulePane_->updateRinkContent();
  updateControls();
}

void MainWindowController::updateControls() {
  const auto info = currentRinkInfo_.lock();
  const std::string name = info ? info->name : std::string();
  titleRow_->setRinkName(name);
  window()->setWindowTitle(name.empty()
                               ? kApplicationName
                               : QString::fromStdString(name) + QStringLiteral(" — ") + kApplicationName);
  titleRow_->setControls(!currentRinkData_.expired(), schedulePane_->controls());
}

void MainWindowController::refreshNow() {
  RefreshStatusView& status =
      currentRinkData_.expired() ? rinkSidebar_->refreshStatus() : titleRow_->refreshStatus();
  status.refreshNow();
}

void MainWindowController::toggleShowRinks() {
  showRinks_ = !showRinks_;
  if (showRinks_) {
    openRinkList();
  } else {
    closeRinkList();
  }
  context_.application.markChanged();
}

// A window that has to grow to make room for the list shrinks back by just that when the list is closed; one
// with room to spare keeps its size.
void MainWindowController::closeRinkList() {
  if (!rinksVisible_) return;
  rinksVisible_ = false;
  Rect frame = window()->frame();
  frame.x -= std::exchange(showRinksDeltaX_, 0.0);
  frame.width -= std::exchange(showRinksDeltaWidth_, 0.0);
  showRinkList(Present::no);
  applyWindowFrame(frame);
  updateKeyViewLoop();
}

void MainWindowController::openRinkList() {
  if (rinksVisible_) return;
  rinksVisible_ = true;
  const Rect before = window()->frame();
  const Rect after = applyWindowFrame(before);
  showRinksDeltaX_ = after.x - before.x;
  showRinksDeltaWidth_ = after.width - before.width;
  showRinkList(Present::yes);
  updateKeyViewLoop();
}

void MainWindowController::showRinkList(Present present) {
  const bool shown = present == Present::yes;
  rinkSidebar_->setVisible(shown);
  titleRow_->setShowRinks(showRinks_);
  rinkSidebar_->rinkListView().enabled = shown;
}

void MainWindowController::updateKeyViewLoop() {
  rinkSidebar_->rinkListView().enabled = showRinks_;
  if (showRinks_) {
    rinkSidebar_->rinkListView().setFocus();
  } else if (QWidget* focused = window()->focusWidget()) {
    focused->clearFocus();
  }
}

Rect MainWindowController::applyWindowFrame(const Rect& frame) {
  const Rect visible = window()->visibleFrame();
  const WindowLimits limits = WindowLimits::of({showRinks_, kRinksSidebarDelta, false, 0.0});
  // A screen too small for the limits has the last word; the toolkit would hold on to a least size against
  // it.
  window()->setFrameLimits(
      {std::min(limits.minWidth, visible.width), std::min(WindowLimits::kMinHeight, visible.height)},
      {WindowLimits::kMaxSize, WindowLimits::kMaxSize});
  const Rect result = limits.apply(frame, visible);
  window()->setFrame(result);
  return result;
}

MainWindowSettings MainWindowController::currentSettings() const {
  MainWindowSettings settings = settings_;
  const auto info = currentRinkInfo_.lock();
  settings.rinkID = info ? info->rinkID : 0;
  settings.showRinks = showRinks_;
  schedulePane_->addToSettings(settings);
  return settings;
}

PropertyList::Dictionary MainWindowController::windowSettings() const {
  return currentSettings().dictionary();
}

void MainWindowController::restoreSettings(const PropertyList::Dictionary& dictionary, FromAnotherDocument) {
  settings_ = currentSettings();
  settings_.rinkID = 0;  // the one setting of which a missing key says something
  settings_.readFrom(dictionary);
  schedulePane_->restoreSettings(settings_);
  const auto rink = settings_.rinkID != 0 ? context_.dataModel.rinkInfo(settings_.rinkID) : nullptr;
  if (rink) rinkSidebar_->rinkListView().selectRink(rink);
  // A window without a rink always shows the list.
  showRinks_ = !rink || settings_.showRinks;
  if (showRinks_) {
    openRinkList();
  } else {
    closeRinkList();
  }
  updateControls();
  applyWindowFrame(window()->frame());
  updateKeyViewLoop();
}

void MainWindowController::defaultSettings() {
  schedulePane_->restoreSettings(settings_);
  updateControls();
  Rect frame = window()->frame();
  frame.height = WindowLimits::kMaxSize;
  applyWindowFrame(frame);
  updateKeyViewLoop();
}

Rect MainWindowController::windowWillUseStandardFrame(const Rect&) {
  Rect frame = window()->frame();
  frame.height = WindowLimits::kMaxSize;
  return frame;
}

bool MainWindowController::windowShouldZoom(const Rect& newFrame) {
  return newFrame.width == window()->frame().width;
}

void MainWindowController::windowWillClose() {
  isClosing = true;
  storeChosenVenues();
  if (QWidget* focused = window()->focusWidget()) focused->clearFocus();
  closeParts();
  context_.application.removeWindowController(*this, SaveFrame::yes);
}

void MainWindowController::closeParts() {
  observations_.clear();
  titleRow_->refreshStatus().close();
  schedulePane_->close();
  rinkSidebar_->close();
}

}  // namespace tarvel
