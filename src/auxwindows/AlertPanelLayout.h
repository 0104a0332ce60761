#pragma once
#include <optional>

#include "platform/Geometry.h"

namespace tarvel {

// An alert panel's sizes, in logical pixels.

inline constexpr double kAlertTextLimit = 600.0;  ///< a line that is wider wraps

/// The room of the message: that of the measured text, but never narrower than a short panel's. None for no
/// text.
Size alertMessageSize(std::optional<Size> textSize);

/// The size of the panel with that message. `oldWidth` is the panel's before, and `lastButtonLeft` the left
/// side in it of the button added last; none without buttons.
Size alertPanelSize(Size message, double oldWidth, std::optional<double> lastButtonLeft);

/// The panel's place on a screen: centred, and somewhat above the middle.
Rect alertPanelFrame(Size panel, const Rect& screen);

}  // namespace tarvel
