#pragma once
#include "auxwindows/StatusPopoverViewController.h"
#include "ui/Popover.h"

namespace tarvel {

/// Opens the popovers of refresh and caution for a window, one at a time, and lets go of each when it closes.
/// A window controller holds one, calls `showPopover` from its refresh buttons, and doesn't let its window
/// close while `isOpen`. When this goes, an open popover goes with it. Main thread.
class RefreshPopoverOpener : public RefreshDelegateProtocol {
 public:
  /// What the context holds outlives this.
  explicit RefreshPopoverOpener(const WindowContext& context);
  ~RefreshPopoverOpener() override;
  RefreshPopoverOpener(const RefreshPopoverOpener&) = delete;
  RefreshPopoverOpener& operator=(const RefreshPopoverOpener&) = delete;

  void showPopover(std::shared_ptr<RefreshableProtocol> thing, QWidget& button) override;
  /// Closes the open popover; does nothing if there is none. For a thing that goes.
  void close();

  bool isOpen() const { return openPopover_ != nullptr; }
  /// The content of the open popover; null if there is none.
  StatusPopoverViewController* controller() const { return controller_; }
  Popover* openPopover() const { return openPopover_; }

 private:
  std::unique_ptr<StatusPopoverViewController> makeController(DownloadErrorKind errorKind) const;
  void popoverDidClose();

  WindowContext context_;
  Popover* openPopover_ = nullptr;                     ///< null if none is open
  StatusPopoverViewController* controller_ = nullptr;  ///< its content
};

}  // namespace tarvel
