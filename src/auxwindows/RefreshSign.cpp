#include "auxwindows/RefreshSign.h"

#include "ui/IconButton.h"

namespace tarvel {

void showRefreshSign(IconButton& button, RefreshSign sign) {
  const bool failed = sign == RefreshSign::caution;
  button.setSymbol(failed ? "caution" : "refresh", failed ? kSystemYellow : kLabel);
  button.setAccessibleDescription(failed ? QStringLiteral("The last refresh has failed") : QString());
}

}  // namespace tarvel
