#pragma once
#include <memory>

#include "model/Refreshable.h"

class QWidget;

namespace tarvel {

/// Opens the popover that tells how a refreshable thing stands: of refresh, or of caution while the thing has
/// an error. Main thread.
class RefreshDelegateProtocol {
 public:
  virtual ~RefreshDelegateProtocol() = default;
  /// Shows it beside the button, unless one is open already.
  virtual void showPopover(std::shared_ptr<RefreshableProtocol> thing, QWidget& button) = 0;
};

/// A thing that outlives every popover, such as the catalogue, in the form in which popovers hold theirs.
inline std::shared_ptr<RefreshableProtocol> unowned(RefreshableProtocol& thing) {
  return {std::shared_ptr<void>(), &thing};
}

}  // namespace tarvel
