#include "auxwindows/AlertPanelLayout.h"

#include <algorithm>

namespace tarvel {
namespace {

constexpr double kLeastTextWidth = 250.0;
constexpr double kNoTextHeight = 50.0;
constexpr double kWidthBesideText = 150.0;
constexpr double kHeightBesideText = 105.0;
constexpr double kLeftOfButtons = 50.0;
constexpr double kAboveMiddle = 150.0;

}  // namespace

Size alertMessageSize(std::optional<Size> textSize) {
  if (!textSize) return {kLeastTextWidth, kNoTextHeight};
  return {std::max(textSize->width, kLeastTextWidth), textSize->height};
}

Size alertPanelSize(Size message, double oldWidth, std::optional<double> lastButtonLeft) {
  double width = message.width + kWidthBesideText;
  if (lastButtonLeft) width = std::max(width, oldWidth - *lastButtonLeft + kLeftOfButtons);
  return {width, message.height + kHeightBesideText};
}

Rect alertPanelFrame(Size panel, const Rect& screen) {
  return {screen.x + screen.width / 2 - panel.width / 2,
          screen.y + screen.height / 2 - panel.height / 2 + kAboveMiddle, panel.width, panel.height};
}

}  // namespace tarvel
