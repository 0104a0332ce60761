#include "todaywindow/TodayWindowController.h"

#include <QVBoxLayout>

#include "auxwindows/RefreshSign.h"
#include "foundation/TextFormats.h"
#include "schedule/ScheduleContents.h"
#include "schedule/SchedulePrintDialog.h"
#include "todaywindow/KioskWindow.h"
#include "todaywindow/TodayOptionsPopoverViewController.h"
#include "todaywindow/TodayPrinting.h"
#include "todaywindow/UnusedKeys.h"

namespace tarvel {
namespace {

const QString kTitle = QStringLiteral("Today");
constexpr Size kFirstSize{1000.0, 760.0};
/// What belongs to a day at the least, and so doesn't to the night before it.
constexpr DayRange kLeastDay{kDefaultStartOfDay, kDefaultEndOfDay};

}  // namespace

std::unique_ptr<TodayWindowController> TodayWindowController::create(const WindowContext& context) {
  return std::unique_ptr<TodayWindowController>(new TodayWindowController(context));
}

TodayWindowController::TodayWindowController(const WindowContext& context)
    : DataLoadingWindowController(std::make_unique<KioskWindow>(context.application),
                                  context.services.notifications),
      context_(context),
      isKioskWindow_(dynamic_cast<KioskWindow&>(*window()).kioskScreen().has_value()),
      popovers_(context) {
  views_ = new TodayWindowViews(context, window());
  views_->setBgColor(kContentBackground2);
  views_->closeWindowButton().setVisible(context.application.kioskMode());
  auto* column = new QVBoxLayout(window());
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(views_);
  keys_ = std::make_unique<UnusedKeys>(*window(), context.sounds);
  window()->setWindowTitle(kTitle);
  window()->setFrameLimits(TodayWindowLayout::kSmallestWindow, {kMaxSize, kMaxSize});
  const Rect visible = window()->visibleFrame();
  window()->setFrame({visible.x + (visible.width - kFirstSize.width) / 2, visible.maxY() - kFirstSize.height,
                      kFirstSize.width, kFirstSize.height});
  connectControls();
  observeModel();
  setColorMode(colorMode_);
}

TodayWindowController::~TodayWindowController() {
  // The views go after this, and must not turn to it any more; at a quit no window is closed before.
  closeParts();
}

void TodayWindowController::connectControls() {
  views_->logoView().setImageProvider([this] { return logo(); });
  // A rink may have a logo for one appearance alone.
  views_->appearanceChanged = [this] { updateLogo(); };
  const auto on = [this](const IconButton& button, auto action) {
    QObject::connect(&button, &QPushButton::clicked, window(), std::move(action));
  };
  on(views_->refreshButton(), [this] { showRefreshRinkStatus(); });
  on(views_->gearButton(), [this] { changeSettings(); });
  on(views_->closeWindowButton(), [this] { window()->performClose(); });
  QObject::connect(window(), &Window::becameMain, window(), [this] { windowDidBecomeMain(); });
  QObject::connect(window(), &Window::resignedMain, window(), [this] { windowDidResignMain(); });
}

// What is shown.

void TodayWindowController::setChosenRink(const std::shared_ptr<RinkData>& rink) {
  if (rink != chosenRink()) popovers_.close();
  awaitedRinkID_ = 0;
  chosenRink_ = rink;
  chosenVenue_.reset();
  if (rink) {
    rink->readMainFile();
    rink->lastViewed = context_.services.clock.now();
    rink->refresher().refreshIfDue();
    chosenVenue_ = firstVenue(*rink);
  } else {
    views_->timeField().setText({});
    views_->dateField().setText({});
  }
  updateLogo();
  updateInfoText();
  updateRefreshButton();
  needsData();
}

void TodayWindowController::setChosenVenue(const std::shared_ptr<Venue>& venue) {
  chosenVenue_ = venue;
  needsData();
}

std::shared_ptr<Venue> TodayWindowController::chosenVenue() const {
  // A venue refers to its rink, and may be kept beyond it by a notification under way.
  const auto rink = chosenRink();
  const auto venue = rink ? chosenVenue_.lock() : nullptr;
  return venue && rink->venue(venue->venueID) == venue ? venue : nullptr;
}

void TodayWindowController::loadData() {
  if (isClosing) return;
  isAwaitingData = false;
  const auto rink = chosenRink();
  const auto venue = chosenVenue();
  chime_.loadData(rink.get(), venue ? venue->venueID : 0, currentDate_, currentTime_);
  todayScheduleView().setChosen(rink, venue);
  updateInfoText();
  if (rink) timeChanged();
}

void TodayWindowController::setColorMode(ColorMode mode) {
  colorMode_ = mode;
  std::optional<Appearance> chosen;
  if (mode == ColorMode::light) chosen = Appearance::light;
  if (mode == ColorMode::dark) chosen = Appearance::dark;
  window()->setChosenAppearance(chosen);
  views_->setBgColor(kTodayBackground);
  todayScheduleView().setBackgroundColor(kTodayBackground);
  updateLogo();
  updateInfoText();
  updateRefreshButton();
}

std::shared_ptr<const Image> TodayWindowController::logo() const {
  const auto rink = chosenRink();
  const auto info = rink ? rink->rinkInfo() : nullptr;
  if (!info) return nullptr;
  return appearanceOf(views_) == Appearance::dark ? info->darkLogoImage() : info->logoImage();
}

void TodayWindowController::updateLogo() {
  const auto image = logo();
  views_->setLogoSize(image ? image->pixelSize() : Size{});
  views_->logoView().update();
}

void TodayWindowController::updateInfoText() {
  const auto rink = chosenRink();
  const auto info = rink ? rink->rinkInfo() : nullptr;
  const auto venue = chosenVenue();
  const QString name = info ? QString::fromStdString(info->name) : QString();
  window()->setWindowTitle(name.isEmpty() ? kTitle : name + QStringLiteral(" — ") + kTitle);
  if (!rink || rink->venues.size() < 2) return views_->setNames({}, {});
  views_->setNames(info ? info->name : std::string(), venue ? venue->displayName() + " Schedule" : "");
}

void TodayWindowController::updateRefreshButton() {
  const auto rink = chosenRink();
  const bool failed = rink && rink->errorKind() != DownloadErrorKind::noError;
  showRefreshSign(views_->refreshButton(), failed ? RefreshSign::caution : RefreshSign::refresh);
}

// The clock.

ScheduleMoment TodayWindowController::moment(const RinkData& rink) const {
  DayRange night = kLeastDay;
  // How far the night reaches is the day before's to say, also for a window that opens in it.
  const auto venue = chosenVenue();
  if (venue && rink.timeNow() < kLeastDay.startOfDay) {
    const PackedDate yesterday = previousDay(rink.dateNow());
    const DayContents contents = dayContents({venue}, yesterday);
    night = todayRange(contents.columns.front(), kLeastDay);
  }
  return scheduleMoment(rink.dateNow(), rink.timeNow(), night.startOfDay, night.endOfDay);
}

void TodayWindowController::timeChanged() {
  const auto rink = chosenRink();
  if (!rink || isClosing) return;
  views_->timeField().setText(timeText(rink->timeNow()));
  views_->dateField().setText(fullDateText(rink->dateNow()));
  const auto [date, time] = moment(*rink);
  todayScheduleView().setCurrent(date, time);
  if (time != currentTime_) followTime(time);
  if (date == currentDate_) return;
  currentDate_ = date;
  // A display that runs for months looks at its rink every day.
  rink->lastViewed = context_.services.clock.now();
  needsData();
}

void TodayWindowController::followTime(std::int64_t time) {
  const bool isDue = chime_.advance(currentTime_, time);
  currentTime_ = time;
  if (isDue && chimeOption && isFrontmostChime(*this)) context_.sounds.playSound(kGlassChimeSound);
}

// The user's commands.

void TodayWindowController::showRefreshRinkStatus() {
  if (const auto rink = chosenRink()) popovers_.showPopover(rink, views_->refreshButton());
}

void TodayWindowController::refreshNow() {
  if (const auto rink = chosenRink()) rink->refreshNow();
}

void TodayWindowController::changeSettings() {
  if (optionsPopover_) return;
  options_ = new TodayOptionsPopoverViewController(context_, *this);
  optionsPopover_ = new Popover(options_);
  optionsPopover_->closed = [this] { optionsDidClose(); };
  QWidget& gear = views_->gearButton();
  optionsPopover_->showRelativeTo(gear, gear.rect(), PopoverEdge::below);
}

void TodayWindowController::optionsDidClose() {
  std::exchange(options_, nullptr)->close();
  std::exchange(optionsPopover_, nullptr)->deleteLater();
}

void TodayWindowController::printWindow() {
  if (!canPrint()) return;
  TodayScheduleView& view = todayScheduleView();
  openPrintDialog(view, [&view, &dataModel = context_.dataModel](QPagedPaintDevice& device) {
    return printToday(device, dataModel,
                      {view.chosenRink(), view.weeklySchedule(), view.scheduleItems(), view.currentDate()});
  });
}

}  // namespace tarvel
