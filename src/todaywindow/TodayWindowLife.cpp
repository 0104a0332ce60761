// The part of `TodayWindowController` that concerns the window's coming and going, its settings, and the
// model's changes.
#include "schedule/ScheduleContents.h"
#include "todaywindow/TodayOptionsPopoverViewController.h"
#include "todaywindow/TodayWindowController.h"

namespace tarvel {
namespace {

constexpr const char* kRinkID = "rinkID";
constexpr const char* kVenueID = "venueID";
constexpr const char* kFitHeight = "fitHeight";
constexpr const char* kHeightScaleFactor = "heightScaleFactor";
constexpr const char* kFontSizeFit = "scheduleFontSizeFit";
constexpr const char* kFontSizeScroll = "scheduleFontSizeScroll";
constexpr const char* kChimeOption = "chimeOption";
constexpr const char* kColorMode = "colorMode";

ColorMode colorModeOf(std::optional<std::int64_t> value) {
  const auto last = static_cast<std::int64_t>(ColorMode::useSystemPref);
  return value && *value >= 0 && *value <= last ? static_cast<ColorMode>(*value) : ColorMode::useSystemPref;
}

}  // namespace

// The settings.

PropertyList::Dictionary TodayWindowController::windowSettings() const {
  const auto rink = chosenRink();
  const auto venue = chosenVenue();
  const TodayScheduleView& view = todayScheduleView();
  PropertyList::Dictionary settings;
  settings[kRinkID] = rink ? rink->rinkID : awaitedRinkID_;
  const std::int64_t awaitedVenueID = awaitedRinkID_ != 0 ? awaitedVenueID_ : 0;
  settings[kVenueID] = venue ? venue->venueID : awaitedVenueID;
  settings[kFitHeight] = view.fitHeight() == VerticalFit::fit;
  settings[kHeightScaleFactor] = view.heightScaleFactor();
  settings[kFontSizeFit] = view.fontSize(VerticalFit::fit);
  settings[kFontSizeScroll] = view.fontSize(VerticalFit::scroll);
  settings[kChimeOption] = chimeOption;
  settings[kColorMode] = static_cast<std::int64_t>(colorMode_);
  return settings;
}

void TodayWindowController::restoreSettings(const PropertyList::Dictionary& settings, FromAnotherDocument) {
  awaitedVenueID_ = 0;
  if (const auto rinkID = integerAt(settings, kRinkID)) chooseRinkOfSettings(*rinkID);
  if (const auto venueID = integerAt(settings, kVenueID)) chooseVenueOfSettings(*venueID);
  TodayScheduleView& view = todayScheduleView();
  if (const auto fit = booleanAt(settings, kFitHeight))
    view.setFitHeight(*fit ? VerticalFit::fit : VerticalFit::scroll);
  if (const auto factor = realAt(settings, kHeightScaleFactor)) view.setHeightScaleFactor(*factor);
  if (const auto size = realAt(settings, kFontSizeFit)) view.setFontSize(VerticalFit::fit, *size);
  if (const auto size = realAt(settings, kFontSizeScroll)) view.setFontSize(VerticalFit::scroll, *size);
  if (const auto chimes = booleanAt(settings, kChimeOption)) chimeOption = *chimes;
  setColorMode(colorModeOf(integerAt(settings, kColorMode)));
}

void TodayWindowController::chooseRinkOfSettings(std::int64_t rinkID) {
  const bool isKnown = context_.dataModel.rinkInfo(rinkID) != nullptr;
  setChosenRink(isKnown ? context_.dataModel.rinkData(rinkID) : nullptr);
  // A catalogue that was lost comes back from the server, and a display on a wall has nobody to choose again.
  if (!isKnown) awaitedRinkID_ = rinkID;
}

void TodayWindowController::chooseVenueOfSettings(std::int64_t venueID) {
  awaitedVenueID_ = venueID;
  const auto rink = chosenRink();
  // A venue that has gone leaves the rink's first.
  if (const auto venue = rink ? rink->venue(venueID) : nullptr) setChosenVenue(venue);
}

void TodayWindowController::defaultSettings() {
  const auto& recent = context_.dataModel.recentRinks;
  setChosenRink(recent.empty() ? nullptr : recent.front());
  todayScheduleView().setFitHeight(VerticalFit::fit);
  chimeOption = true;
  setColorMode(ColorMode::useSystemPref);
}

// The model.

void TodayWindowController::observeModel() {
  const auto on = [this](NotificationName name, NotificationCenter::Handler handler) {
    observations_.push_back(notifications().observe(name, std::move(handler)));
  };
  const auto onMyRink = [&](NotificationName name, std::function<void()> action) {
    on(name, [this, action = std::move(action)](const Notification& notification) {
      if (isChosenRink(notification)) action();
    });
  };
  on(kRinkListChanged, [this](const Notification&) {
    if (awaitedRinkID_ == 0 || !context_.dataModel.rinkInfo(awaitedRinkID_)) return;
    chooseRinkOfSettings(awaitedRinkID_);
    chooseVenueOfSettings(awaitedVenueID_);
  });
  onMyRink(kVenuesChanged, [this] { venuesChanged(); });
  onMyRink(kSchedulesChanged, [this] { needsData(); });
  on(kWeeklyScheduleChanged,
     [this](const Notification& notification) { weeklyScheduleChanged(notification); });
  onMyRink(kCurrentTimeOfDayChanged, [this] { timeChanged(); });
  onMyRink(kCurrentDateChanged, [this] { timeChanged(); });
  onMyRink(kTimeZoneChanged, [this] { timeChanged(); });
  on(kRinkInfoChanged, [this](const Notification& notification) {
    if (isChosenRinkID(notification)) updateInfoText();
  });
  on(kRinkLogoChanged, [this](const Notification& notification) {
    if (isChosenRinkID(notification)) updateLogo();
  });
  onMyRink(kRinkDataRemoved, [this] { setChosenRink(nullptr); });
  onMyRink(kRefreshStatusChanged, [this] { updateRefreshButton(); });
  on(kCheckObservers, [this](const Notification&) { context_.observerCensus.checkObservers(className()); });
}

bool TodayWindowController::isChosenRink(const Notification& notification) const {
  const auto rink = chosenRink();
  return rink && notification.object.is(rink.get());
}

bool TodayWindowController::isChosenRinkID(const Notification& notification) const {
  const auto rink = chosenRink();
  return rink && notification.integer(kRinkIDKey) == rink->rinkID;
}

void TodayWindowController::weeklyScheduleChanged(const Notification& notification) {
  const auto weekOf = notification.integer(kWeekOfKey);
  if (!weekOf || !isChosenRink(notification)) return;
  const auto sunday = static_cast<PackedDate>(*weekOf);
  if (currentDate_ >= sunday && currentDate_ <= endOfWeek(sunday)) needsData();
}

void TodayWindowController::venuesChanged() {
  const auto rink = chosenRink();
  if (!chosenVenue() && rink) chosenVenue_ = firstVenue(*rink);
  needsData();
}

// The window.

void TodayWindowController::windowDidBecomeMain() {
  if (context_.application.kioskMode() && !isClosing) context_.application.setCursorHiding(CursorHiding::on);
}

void TodayWindowController::windowDidResignMain() {
  context_.application.setCursorHiding(CursorHiding::off);
}

Rect TodayWindowController::windowWillUseStandardFrame(const Rect&) {
  Rect frame = window()->frame();
  frame.height = kMaxSize;
  return frame;
}

bool TodayWindowController::windowShouldClose() {
  return !popovers_.isOpen() && !optionsPopover_;
}

void TodayWindowController::windowWillClose() {
  isClosing = true;
  context_.application.setCursorHiding(CursorHiding::off);
  closeParts();
  // The frame of a kiosk window is its screen's, which is none to come back to.
  context_.application.removeWindowController(*this, isKioskWindow_ ? SaveFrame::no : SaveFrame::yes);
}

void TodayWindowController::closeParts() {
  observations_.clear();
  popovers_.close();
  if (optionsPopover_) optionsPopover_->close();
  todayScheduleView().close();
  views_->logoView().setImageProvider({});
  views_->appearanceChanged = nullptr;
}

}  // namespace tarvel
