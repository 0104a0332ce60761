#pragma once
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/Geometry.h"

namespace tarvel {

// Where windows stand, in numbers alone. Window places count from the bottom left of the primary screen, y
// upwards; the toolkit's count y downwards in a space in which the primary screen may lie anywhere.

/// A rectangle of the toolkit's as a window place, and back: the way is the same in both directions but for
/// the primary screen's left edge.
Rect windowPlace(const Rect& toolkitRect, const Rect& toolkitPrimaryScreen);
Rect toolkitRect(const Rect& windowPlace, const Rect& toolkitPrimaryScreen);

/// What a window manager puts around a window's content.
struct FrameMargins {
  double left = 0.0;
  double top = 0.0;
  double right = 0.0;
  double bottom = 0.0;
  friend constexpr bool operator==(const FrameMargins&, const FrameMargins&) = default;
};

/// The frame around a content, and the content within a frame; y upwards.
Rect frameAround(const Rect& content, const FrameMargins& margins);
Rect contentWithin(const Rect& frame, const FrameMargins& margins);

struct ScreenArea {
  Rect frame;
  Rect visible;  ///< less the desktop's panels
};

/// Where a window's content stood, and the screen it stood on if that is known.
struct SavedFrame {
  Rect content;
  std::optional<Rect> screen;
};

/// "x y width height" of the content and then of the screen, in whole pixels.
std::string savedFrameText(const SavedFrame& saved);
/// Reads such a text, with or without the screen. None for a text that has no four sensible numbers at its
/// beginning.
std::optional<SavedFrame> parseSavedFrame(std::string_view text);

/// What to save of a window whose content has that size, where windows aren't told their place: the top left
/// corner it was saved at last, with the screen of that time; without one, the middle of its screen.
SavedFrame frameOfUntoldPlace(Size content, const std::optional<SavedFrame>& last, const Rect& screen);

/// Where the saved content is to stand on the screens that exist now, the primary first. It stays as it was,
/// to the pixel, if its screen is still there and enough of its upper edge can be seen to take hold of;
/// otherwise it is moved, and made smaller if need be, to lie with its margins wholly within the screen it
/// overlaps most.
Rect placeOnScreens(const SavedFrame& saved, const FrameMargins& margins,
                    std::span<const ScreenArea> screens);

/// The top left point for the next window of a cascade that follows one at `topLeft`; when a window of that
/// size would not lie within the visible area there, the cascade begins anew at the area's top left.
Point nextCascadePoint(Point topLeft, Size window, const Rect& visible);

}  // namespace tarvel
