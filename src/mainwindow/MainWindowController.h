#pragma once
#include <memory>
#include <vector>

#include "auxwindows/WindowContext.h"
#include "mainwindow/MainWindowSettings.h"
#include "mainwindow/RinkSidebar.h"
#include "mainwindow/SchedulePane.h"
#include "mainwindow/TitleRow.h"
#include "ui/DataLoadingWindowController.h"
#include "ui/WindowSettingsProtocol.h"

namespace tarvel {

/// Runs one main window: the rinks at the left, and the chosen rink's schedule with its controls. It chooses
/// the rink, keeps the window's limits and settings, and passes the model's changes on to its parts. The
/// application owns it.
class MainWindowController : public DataLoadingWindowController,
                             public WindowSettingsProtocol,
                             Counted<MainWindowController> {
 public:
  using Counted<MainWindowController>::liveCount;

  /// A window with nothing chosen yet; `defaultSettings` or `restoreSettings` is to follow, and then
  /// `showWindow`.
  static std::unique_ptr<MainWindowController> create(const WindowContext& context);
  ~MainWindowController() override;

  std::string className() const override { return "MainWindowController"; }

  /// Selects that rink in this window; null for none.
  void chooseRink(const std::shared_ptr<RinkInfo>& rinkInfo);
  std::shared_ptr<RinkData> currentRinkData() const { return currentRinkData_.lock(); }
  /// Puts the window's choices of venues into the rink, which keeps them.
  void storeChosenVenues() const { schedulePane_->storeChosenVenues(); }

  void toggleShowRinks();
  bool showRinks() const { return showRinks_; }
  void prev() { schedulePane_->goToPreviousPage(); }
  void next() { schedulePane_->goToNextPage(); }
  void gotoNow() { schedulePane_->gotoNow(); }
  /// Refreshes the chosen rink, or the catalogue while none is chosen.
  void refreshNow();

  PropertyList::Dictionary windowSettings() const override;
  void restoreSettings(const PropertyList::Dictionary& settings,
                       FromAnotherDocument fromAnotherDocument) override;
  /// The window opens as tall as the screen allows.
  void defaultSettings() override;

  void loadData() override;
  void windowWillClose() override;
  Rect windowWillUseStandardFrame(const Rect& defaultFrame) override;
  /// Zooming changes the height alone.
  bool windowShouldZoom(const Rect& newFrame) override;

  RinkSidebar& rinkSidebar() const { return *rinkSidebar_; }
  SchedulePane& schedulePane() const { return *schedulePane_; }
  TitleRow& titleRow() const { return *titleRow_; }

 private:
  enum class Present { no, yes };

  explicit MainWindowController(const WindowContext& context);
  void makeViews();
  void connectControls();
  void observeModel();
  void addShortcut(const QKeySequence& keys, std::function<void()> action);

  /// For handlers that concern the chosen rink alone.
  bool isCurrentRink(const Notification& notification) const;
  void rinkInfoChanged(const Notification& notification);
  void selectionChanged(const Notification& notification);

  MainWindowSettings currentSettings() const;
  void openRinkList();
  void closeRinkList();
  void showRinkList(Present present);
  void updateKeyViewLoop();
  void updateRinkContent();
  void updateControls();
  /// Enforces the window's limits and returns the frame that results.
  Rect applyWindowFrame(const Rect& frame);
  void closeParts();

  WindowContext context_;
  std::weak_ptr<RinkInfo> currentRinkInfo_;
  std::weak_ptr<RinkData> currentRinkData_;
  MainWindowSettings
      settings_;              ///< as they came; what the window's parts hold themselves is put in on saving
  bool showRinks_ = true;     ///< the user wants the list
  bool rinksVisible_ = true;  ///< the list is shown
  /// How far the window grew and moved when the list was opened.
  double showRinksDeltaX_ = 0.0;
  double showRinksDeltaWidth_ = 0.0;
  // Children of the window:
  RinkSidebar* rinkSidebar_ = nullptr;
  TitleRow* titleRow_ = nullptr;
  SchedulePane* schedulePane_ = nullptr;
  std::vector<Observation> observations_;
};

}  // namespace tarvel
