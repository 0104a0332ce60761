#include "ui/AccessibleView.h"

#include "ui/AccessibleFactory.h"
#include "ui/AccessibleViewInterface.h"

namespace tarvel {

AccessibleView::AccessibleView() {
  installAccessibleFactory();
}

AccessibleView::~AccessibleView() {
  // The widget's base is yet to go, and may be asked about itself meanwhile.
  if (interface_) interface_->viewIsGone();
}

void AccessibleView::accessibleContentChanged() {
  if (interface_) interface_->contentChanged();
}

void AccessibleView::accessibleFocusChanged() {
  if (interface_) interface_->focusChanged();
}

void AccessibleView::accessibleSelectionChanged() {
  if (interface_) interface_->selectionChanged();
}

}  // namespace tarvel
