#pragma once
#include "auxwindows/StatusPopoverViewController.h"

namespace tarvel {

/// The popover of a thing without an error.
class RefreshPopoverViewController : public StatusPopoverViewController,
                                     private Counted<RefreshPopoverViewController> {
  Q_OBJECT
 public:
  using Counted<RefreshPopoverViewController>::liveCount;

  explicit RefreshPopoverViewController(const WindowContext& context);

 protected:
  bool isFor(DownloadErrorKind errorKind) const override { return errorKind == DownloadErrorKind::noError; }
};

}  // namespace tarvel
