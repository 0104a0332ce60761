#include "auxwindows/RefreshPopoverOpener.h"

#include <utility>

#include "auxwindows/CautionPopoverViewController.h"
#include "auxwindows/RefreshPopoverViewController.h"

namespace tarvel {

RefreshPopoverOpener::RefreshPopoverOpener(const WindowContext& context) : context_(context) {}

RefreshPopoverOpener::~RefreshPopoverOpener() {
  close();
}

std::unique_ptr<StatusPopoverViewController> RefreshPopoverOpener::makeController(
    DownloadErrorKind errorKind) const {
  if (errorKind == DownloadErrorKind::noError)
    return std::make_unique<RefreshPopoverViewController>(context_);
  return std::make_unique<CautionPopoverViewController>(context_);
}

void RefreshPopoverOpener::showPopover(std::shared_ptr<RefreshableProtocol> thing, QWidget& button) {
  if (isOpen()) return;
  controller_ = makeController(thing->errorKind()).release();  // the popover's, from the next line on
  openPopover_ = new Popover(controller_);
  openPopover_->closed = [this] { popoverDidClose(); };
  controller_->dataSource = std::move(thing);
  controller_->button = &button;
  controller_->popover = openPopover_;
  controller_->delegate = this;
  controller_->awakeFromNib();
  openPopover_->showRelativeTo(button, button.rect(), PopoverEdge::right);
}

void RefreshPopoverOpener::close() {
  if (openPopover_) openPopover_->close();
}

void RefreshPopoverOpener::popoverDidClose() {
  std::exchange(controller_, nullptr)->close();
  // It is still at work: closing is what it is doing.
  std::exchange(openPopover_, nullptr)->deleteLater();
}

}  // namespace tarvel
