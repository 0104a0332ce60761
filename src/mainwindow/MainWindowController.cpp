#include "mainwindow/MainWindowController.h"

#include <QHBoxLayout>
#include <QStackedLayout>
#include <QVBoxLayout>

#include "platform/FatalError.h"

namespace tarvel {
namespace {

const QString kApplicationName = QStringLiteral("Tarvel");
constexpr Size kFirstSize{1240.0, 800.0};

}  // namespace

std::unique_ptr<MainWindowController> MainWindowController::create(const WindowContext& context) {
  return std::unique_ptr<MainWindowController>(new MainWindowController(context));
}

MainWindowController::MainWindowController(const WindowContext& context)
    : DataLoadingWindowController(std::make_unique<Window>(), context.services.notifications),
      context_(context),
      popovers_(context) {
  makeViews();
  connectControls();
  observeModel();
  const Rect visible = window()->visibleFrame();
  sidebars_->applyWindowFrame({visible.x + (visible.width - kFirstSize.width) / 2,
                               visible.maxY() - kFirstSize.height, kFirstSize.width, kFirstSize.height});
  MainWindowController::updateControls();
}

MainWindowController::~MainWindowController() {
  // The views go after this, and must not turn to it any more; at a quit no window is closed before.
  closeParts();
}

void MainWindowController::makeViews() {
  noticeBanner_ = new NoticeBanner(context_, window());
  rinkSidebar_ = new RinkSidebar(context_, window());
  rinkSidebar_->rinkListView().enabled = true;
  titleRow_ = new MainTitleRow(window());
  schedule_ = std::make_unique<ScheduleController>(context_, *this, window());
  photos_ = std::make_unique<PhotosController>(context_, *this, window());
  infoPane_ = new InfoPane(context_, window());
  noticesPane_ = new NoticesPane(context_, window());
  noticesPane_->noticesView().setPresented(false);
  containerView_ = new QStackedLayout;
  panes_ = {infoPane_, &schedule_->pane(), noticesPane_, &photos_->pane()};
  for (WindowPane* pane : panes_) containerView_->addWidget(pane);
  auto* column = new QVBoxLayout;
  column->setSpacing(0);
  column->addWidget(titleRow_);
  column->addLayout(containerView_, 1);
  auto* row = new QHBoxLayout;
  row->setSpacing(0);
  row->addWidget(rinkSidebar_);
  row->addLayout(column, 1);
  auto* whole = new QVBoxLayout(window());
  whole->setContentsMargins(0, 0, 0, 0);
  whole->setSpacing(0);
  whole->addWidget(noticeBanner_);
  whole->addLayout(row, 1);
  sidebars_ = std::make_unique<WindowSidebars>(
      WindowSidebars::Views{*window(), *rinkSidebar_, schedule_->pane(), *titleRow_});
}

void MainWindowController::connectControls() {
  const auto on = [this](auto signal, auto action) {
    QObject::connect(titleRow_, signal, window(), std::move(action));
  };
  on(&MainTitleRow::toggleShowRinks, [this] { toggleShowRinks(); });
  on(&MainTitleRow::toggleShowCalendar, [this] { toggleShowCalendar(); });
  on(&MainTitleRow::paneChosen, [this](int kind) { selectPane(static_cast<MainWindowPane>(kind)); });
  on(&MainTitleRow::prev, [this] { prev(); });
  on(&MainTitleRow::gotoNow, [this] { gotoNow(); });
  on(&MainTitleRow::next, [this] { next(); });
  on(&MainTitleRow::back, [this] { back(); });
  on(&MainTitleRow::showRefreshStatus, [this](QWidget* button) { showRefreshRinkStatus(*button); });
  rinkSidebar_->refreshStatus().clicked = [this](QWidget& button) { showRefreshMainStatus(button); };
  keys_ = std::make_unique<WindowKeys>(*window(), context_.sounds);
  keys_->left = [this] { prev(); };
  keys_->right = [this] { next(); };
  keys_->escape = [this] { back(); };
  noticeBanner_->view().noticeChosen = [this](const std::shared_ptr<const Notice>& notice) {
    selectNotice(notice);
  };
}

void MainWindowController::chooseRink(const std::shared_ptr<RinkInfo>& rinkInfo) {
  if (rinkInfo == currentRinkInfo_.lock()) return;
  storeChosenVenues();
  currentRinkInfo_ = rinkInfo;
  infoPane_->setRinkInfo(rinkInfo);
  const auto rink = rinkInfo ? context_.dataModel.rinkData(rinkInfo->rinkID) : nullptr;
  currentRinkData_ = rink;
  if (rink) rink->readMainFile();
  noticeBanner_->applyRule(rink);
  schedule_->chooseRink(rink);
  if (rink) {
    rink->lastViewed = context_.services.clock.now();
    rink->refresher().refreshIfDue();
  }
  updateRefreshIcon();
  photos_->chooseRink(rink);
  updateRinkContent();
  needsData();
  updateControls();
}

void MainWindowController::loadData() {
  isAwaitingData = false;
  if (isClosing) return;
  schedule_->loadData();
}

void MainWindowController::updateRinkContent() {
  const auto info = currentRinkInfo_.lock();
  const QString name = info ? QString::fromStdString(info->name) : QString();
  window()->setWindowTitle(name.isEmpty() ? kApplicationName
                                          : name + QStringLiteral(" — ") + kApplicationName);
  switch (currentPaneKind_) {
    case MainWindowPane::info:
      infoPane_->setRink(info, currentRinkData());
      break;
    case MainWindowPane::schedule:
      schedule_->updateRinkContent();
      break;
    case MainWindowPane::notices:
      noticesPane_->noticesView().setRinkData(currentRinkData());
      break;
    case MainWindowPane::photos:
      photos_->updateRinkContent();
      break;
  }
  updateControls();
}

// The user's commands.

void MainWindowController::selectPane(MainWindowPane kind) {
  if (static_cast<std::size_t>(kind) >= panes_.size()) fatalError("no such pane");
  if (kind == currentPaneKind_) return;
  selectPaneKind(kind);
  context_.application.markChanged();
}

void MainWindowController::prev() {
  if (onSchedule()) schedule_->prev();
  if (onPhotos()) photos_->prev();
}

void MainWindowController::next() {
  if (onSchedule()) schedule_->next();
  if (onPhotos()) photos_->next();
}

void MainWindowController::gotoNow() {
  if (onSchedule()) schedule_->gotoNow();
}

void MainWindowController::back() {
  if (onPhotos()) photos_->back();
}

void MainWindowController::refreshNow() {
  if (const auto rink = currentRinkData()) {
    rink->refreshNow();
  } else {
    context_.dataModel.refreshNow();
  }
}

void MainWindowController::showRefreshRinkStatus(QWidget& button) {
  if (const auto rink = currentRinkData()) popovers_.showPopover(rink, button);
}

void MainWindowController::showRefreshMainStatus(QWidget& button) {
  popovers_.showPopover(unowned(context_.dataModel), button);
}

void MainWindowController::toggleShowRinks() {
  sidebars_->showRinks = !sidebars_->showRinks;
  sidebars_->updateRinks();
  updateKeyViewLoop();
  context_.application.markChanged();
}

void MainWindowController::toggleShowCalendar() {
  if (onSchedule()) {
    sidebars_->showCalendar = !sidebars_->showCalendar;
    sidebars_->updateCalendar();
  }
  context_.application.markChanged();
}

// The window.

MainWindowSettings MainWindowController::currentSettings() const {
  MainWindowSettings settings = settings_;
  const auto info = currentRinkInfo_.lock();
  settings.rinkID = info ? info->rinkID : 0;
  settings.currentPaneKind = currentPaneKind_;
  settings.showRinks = sidebars_->showRinks;
  settings.showCalendar = sidebars_->showCalendar;
  schedule_->addToSettings(settings);
  photos_->addToSettings(settings);
  return settings;
}

PropertyList::Dictionary MainWindowController::windowSettings() const {
  return currentSettings().dictionary();
}

void MainWindowController::restoreSettings(const PropertyList::Dictionary& dictionary, FromAnotherDocument) {
  settings_ = currentSettings();
  settings_.rinkID = 0;  // the one setting of which a missing key says something
  settings_.readFrom(dictionary);
  schedule_->restoreSettings(settings_);
  photos_->restoreSettings(settings_);
  selectPaneKind(settings_.currentPaneKind);
  const auto rink = settings_.rinkID != 0 ? context_.dataModel.rinkInfo(settings_.rinkID) : nullptr;
  if (rink) {
    rinkSidebar_->rinkListView().selectRink(rink);
    // At once, rather than when the list's word of it comes round: a quit before that would forget the rink.
    chooseRink(rink);
  }
  // A window without a rink always shows the list.
  sidebars_->showRinks = !rink || settings_.showRinks;
  sidebars_->updateRinks();
  sidebars_->showCalendar = settings_.showCalendar;
  sidebars_->updateCalendar();
  schedule_->resetCalendar();
  updateControls();
  sidebars_->applyWindowFrame(window()->frame());
  updateKeyViewLoop();
  titleRow_->layoutTitleBar();
}

void MainWindowController::defaultSettings() {
  selectPaneKind(currentPaneKind_);
  schedule_->resetCalendar();
  updateControls();
  Rect frame = window()->frame();
  frame.height = WindowLimits::kMaxSize;
  sidebars_->applyWindowFrame(frame);
  updateKeyViewLoop();
  titleRow_->layoutTitleBar();
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
  popovers_.close();
  noticeBanner_->close();
  schedule_->close();
  photos_->close();
  infoPane_->close();
  noticesPane_->close();
  rinkSidebar_->close();
}

}  // namespace tarvel
