#pragma once
#include <memory>
#include <vector>

#include "auxwindows/RefreshPopoverOpener.h"
#include "mainwindow/InfoPane.h"
#include "mainwindow/MainTitleRow.h"
#include "mainwindow/NoticeBanner.h"
#include "mainwindow/NoticesPane.h"
#include "mainwindow/PhotosController.h"
#include "mainwindow/PhotosHost.h"
#include "mainwindow/RinkSidebar.h"
#include "mainwindow/ScheduleController.h"
#include "mainwindow/WindowKeys.h"
#include "mainwindow/WindowSidebars.h"
#include "ui/CommandTarget.h"
#include "ui/DataLoadingWindowController.h"
#include "ui/WindowSettingsProtocol.h"

class QStackedLayout;

namespace tarvel {

/// Runs one main window: the banner of notices, the rinks at the left, the title row, and one of four panes
/// on the chosen rink. It chooses the rink, switches the panes, keeps the window's settings, and passes the
/// model's changes on to its parts, which do the work. The application owns it.
class MainWindowController : public DataLoadingWindowController,
                             public WindowSettingsProtocol,
                             public ScheduleHost,
                             public PhotosHost,
                             public CommandTarget,
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
  std::shared_ptr<RinkInfo> currentRinkInfo() const { return currentRinkInfo_.lock(); }
  std::shared_ptr<RinkData> currentRinkData() const { return currentRinkData_.lock(); }
  /// Puts the window's choices of venues into the rink, which keeps them.
  void storeChosenVenues() const { schedule_->storeChosenVenues(); }

  /// Switches the pane, and leaves it to the caller to say that this is to be saved.
  void selectPaneKind(MainWindowPane kind);
  MainWindowPane currentPaneKind() const { return currentPaneKind_; }

  // The user's commands:
  void selectPane(MainWindowPane kind);
  void toggleShowRinks();
  void toggleShowCalendar();
  void prev();
  void next();
  void gotoNow();
  /// From a photo to its album, from an album to the gallery.
  void back();
  /// Refreshes the chosen rink, or the catalogue while none is chosen.
  void refreshNow();
  void showRefreshRinkStatus(QWidget& button);
  void showRefreshMainStatus(QWidget& button);
  bool canPrint() const { return schedule_->canPrint(); }
  void printWindow() { schedule_->print(); }

  PropertyList::Dictionary windowSettings() const override;
  void restoreSettings(const PropertyList::Dictionary& settings,
                       FromAnotherDocument fromAnotherDocument) override;
  /// The window opens as tall as the screen allows.
  void defaultSettings() override;

  void loadData() override;
  bool windowShouldClose() override { return !popovers_.isOpen(); }
  void windowWillClose() override;
  void windowDidResize() override { titleRow_->layoutTitleBar(); }
  Rect windowWillUseStandardFrame(const Rect& defaultFrame) override;
  /// Zooming changes the height alone.
  bool windowShouldZoom(const Rect& newFrame) override;

  // CommandTarget:
  std::optional<CommandState> validateMenuItem(const Command& command) const override;
  void performCommand(const Command& command) override;

  // ScheduleHost and PhotosHost:
  void updateControls() override;
  void markChanged() override { context_.application.markChanged(); }
  void requestDataPass() override { needsData(); }
  bool wantsChime() const override { return schedule_->wantsChime(); }

  RinkSidebar& rinkSidebar() const { return *rinkSidebar_; }
  ScheduleController& schedule() const { return *schedule_; }
  PhotosController& photos() const { return *photos_; }
  NoticeBanner& noticeBanner() const { return *noticeBanner_; }
  InfoPane& infoPane() const { return *infoPane_; }
  NoticesPane& noticesPane() const { return *noticesPane_; }
  MainTitleRow& titleRow() const { return *titleRow_; }
  const WindowSidebars& sidebars() const { return *sidebars_; }
  const RefreshPopoverOpener& popovers() const { return popovers_; }

 private:
  explicit MainWindowController(const WindowContext& context);
  void makeViews();
  void connectControls();
  void observeModel();

  /// For handlers that concern the chosen rink alone.
  bool isCurrentRink(const Notification& notification) const;
  bool isCurrentRinkID(const Notification& notification) const;
  void selectionChanged(const Notification& notification);
  void noticesChanged(const Notification& notification);
  void photoChanged(const Notification& notification);
  void selectNotice(const std::shared_ptr<const Notice>& notice);

  WindowPane& pane(MainWindowPane kind) const { return *panes_[static_cast<std::size_t>(kind)]; }
  bool onSchedule() const { return currentPaneKind_ == MainWindowPane::schedule; }
  bool onPhotos() const { return currentPaneKind_ == MainWindowPane::photos; }
  void tellPane(MainWindowPane kind, bool shown);
  void updateRinkContent();
  void updateScheduleControls();
  void updatePhotosControls();
  void updateRefreshIcon();
  void updateKeyViewLoop();
  MainWindowSettings currentSettings() const;
  void closeParts();

  WindowContext context_;
  std::weak_ptr<RinkInfo> currentRinkInfo_;
  std::weak_ptr<RinkData> currentRinkData_;
  MainWindowPane currentPaneKind_ = MainWindowPane::info;
  MainWindowSettings settings_;  ///< as they came; what the window's parts hold is put in on saving
  RefreshPopoverOpener popovers_;
  // Children of the window:
  NoticeBanner* noticeBanner_ = nullptr;
  RinkSidebar* rinkSidebar_ = nullptr;
  MainTitleRow* titleRow_ = nullptr;
  QStackedLayout* containerView_ = nullptr;
  InfoPane* infoPane_ = nullptr;
  NoticesPane* noticesPane_ = nullptr;
  std::vector<WindowPane*> panes_;  ///< by their kind
  std::unique_ptr<ScheduleController> schedule_;
  std::unique_ptr<PhotosController> photos_;
  std::unique_ptr<WindowSidebars> sidebars_;
  std::unique_ptr<WindowKeys> keys_;
  std::vector<Observation> observations_;
};

}  // namespace tarvel
