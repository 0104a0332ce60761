#pragma once
#include <memory>
#include <vector>

#include "auxwindows/ChimingWindow.h"
#include "auxwindows/RefreshPopoverOpener.h"
#include "schedule/ScheduleChime.h"
#include "schedule/ScheduleMoment.h"
#include "todaywindow/ColorMode.h"
#include "todaywindow/TodayWindowViews.h"
#include "ui/CommandTarget.h"
#include "ui/DataLoadingWindowController.h"
#include "ui/WindowObjectProtocol.h"
#include "ui/WindowSettingsProtocol.h"

namespace tarvel {

class KioskWindow;
class TodayOptionsPopoverViewController;

/// Runs one Today window: the sessions of one venue today, large, with logo, names and clock. It follows the
/// rink's time, also past midnight while the night still belongs to the day before, sounds the chime between
/// sessions, and keeps the window's settings. The application owns it. Main thread.
class TodayWindowController : public DataLoadingWindowController,
                              public WindowSettingsProtocol,
                              public WindowObjectProtocol,
                              public ChimingWindow,
                              public CommandTarget,
                              Counted<TodayWindowController> {
 public:
  using Counted<TodayWindowController>::liveCount;
  static constexpr double kMaxSize = 10'000.0;

  /// A window with nothing chosen yet; `defaultSettings` or `restoreSettings` is to follow, and then
  /// `showWindow`.
  static std::unique_ptr<TodayWindowController> create(const WindowContext& context);
  ~TodayWindowController() override;

  std::string className() const override { return "TodayWindowController"; }

  /// With its first venue by display order; null leaves the window open and empty.
  void setChosenRink(const std::shared_ptr<RinkData>& rink);
  std::shared_ptr<RinkData> chosenRink() const { return chosenRink_.lock(); }
  /// One of the chosen rink's.
  void setChosenVenue(const std::shared_ptr<Venue>& venue);
  std::shared_ptr<Venue> chosenVenue() const;
  void setColorMode(ColorMode mode);
  ColorMode colorMode() const { return colorMode_; }

  bool chimeOption = false;  ///< whether the window chimes between sessions
  bool wantsChime() const override { return chimeOption; }

  // The user's commands:
  void showRefreshRinkStatus();
  /// Opens the options beside the gear button.
  void changeSettings();
  void refreshNow();
  bool canPrint() const { return chosenRink() != nullptr; }
  /// Opens the desktop's print dialog over the window.
  void printWindow();

  std::optional<CommandState> validateMenuItem(const Command& command) const override;
  void performCommand(const Command& command) override;

  PropertyList::Dictionary windowSettings() const override;
  void restoreSettings(const PropertyList::Dictionary& settings,
                       FromAnotherDocument fromAnotherDocument) override;
  void defaultSettings() override;
  /// The chosen venue.
  const void* windowObject() const override { return chosenVenue().get(); }

  void loadData() override;
  bool windowShouldClose() override;
  void windowWillClose() override;
  /// Zooming changes the height alone.
  Rect windowWillUseStandardFrame(const Rect& defaultFrame) override;

  PackedDate currentDate() const { return currentDate_; }
  std::int64_t currentTime() const { return currentTime_; }
  const ScheduleChime& chime() const { return chime_; }
  TodayWindowViews& views() const { return *views_; }
  TodayScheduleView& todayScheduleView() const { return views_->todayScheduleView(); }
  const RefreshPopoverOpener& popovers() const { return popovers_; }
  /// Null while the options aren't open.
  TodayOptionsPopoverViewController* options() const { return options_; }

 private:
  explicit TodayWindowController(const WindowContext& context);
  void connectControls();
  void observeModel();
  bool isChosenRink(const Notification& notification) const;
  bool isChosenRinkID(const Notification& notification) const;
  void weeklyScheduleChanged(const Notification& notification);
  void venuesChanged();
  /// Choose what the settings name; a rink that the catalogue doesn't have is waited for.
  void chooseRinkOfSettings(std::int64_t rinkID);
  void chooseVenueOfSettings(std::int64_t venueID);
  void windowDidBecomeMain();
  void windowDidResignMain();

  void timeChanged();
  ScheduleMoment moment(const RinkData& rink) const;
  void followTime(std::int64_t time);
  void updateInfoText();
  void updateLogo();
  void updateRefreshButton();
  std::shared_ptr<const Image> logo() const;
  void optionsDidClose();
  void closeParts();

  WindowContext context_;
  bool isKioskWindow_;
  /// Of a window whose rink the catalogue didn't have when its settings came; 0 for none.
  std::int64_t awaitedRinkID_ = 0;
  std::int64_t awaitedVenueID_ = 0;
  std::weak_ptr<RinkData> chosenRink_;
  std::weak_ptr<Venue> chosenVenue_;
  PackedDate currentDate_ = kNoDate;
  std::int64_t currentTime_ = 0;
  ScheduleChime chime_;
  ColorMode colorMode_ = ColorMode::useSystemPref;
  RefreshPopoverOpener popovers_;
  Popover* optionsPopover_ = nullptr;                     ///< null if it isn't open
  TodayOptionsPopoverViewController* options_ = nullptr;  ///< its content
  TodayWindowViews* views_;                               ///< a child of the window
  std::unique_ptr<QObject> keys_;
  std::vector<Observation> observations_;
};

}  // namespace tarvel
