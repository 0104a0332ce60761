#include "ui/WindowPlacement.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace tarvel {

namespace {

constexpr double kCascadeStep = 24.0;
/// Of a window's upper edge this much must be in sight.
constexpr double kHandleWidth = 80.0;
constexpr double kHandleHeight = 24.0;
/// No screen reaches further; a number beyond is a damaged text.
constexpr double kFarthest = 100'000.0;
constexpr double kSmallestSide = 1.0;

Rect intersection(const Rect& a, const Rect& b) {
  const double x = std::max(a.x, b.x);
  const double y = std::max(a.y, b.y);
  return {x, y, std::max(0.0, std::min(a.maxX(), b.maxX()) - x),
          std::max(0.0, std::min(a.maxY(), b.maxY()) - y)};
}

bool canBeGrasped(const Rect& frame, std::span<const ScreenArea> screens) {
  const double height = std::min(kHandleHeight, frame.height);
  const Rect handle{frame.x, frame.maxY() - height, frame.width, height};
  return std::any_of(screens.begin(), screens.end(), [&](const ScreenArea& screen) {
    const Rect seen = intersection(handle, screen.frame);
    return seen.height >= height && seen.width >= std::min(kHandleWidth, frame.width);
  });
}

Rect movedInto(Rect frame, const Rect& area) {
  frame.width = std::min(frame.width, area.width);
  frame.height = std::min(frame.height, area.height);
  frame.x = std::clamp(frame.x, area.x, area.maxX() - frame.width);
  frame.y = std::clamp(frame.y, area.y, area.maxY() - frame.height);
  return frame;
}

std::optional<Rect> sensibleRect(const double* numbers) {
  const Rect rect{numbers[0], numbers[1], numbers[2], numbers[3]};
  for (int i = 0; i < 4; ++i) {
    if (!(std::abs(numbers[i]) <= kFarthest)) return std::nullopt;
  }
  if (rect.width < kSmallestSide || rect.height < kSmallestSide) return std::nullopt;
  return rect;
}

std::string rectText(const Rect& rect) {
  return fmt::format("{:.0f} {:.0f} {:.0f} {:.0f}", rect.x, rect.y, rect.width, rect.height);
}

}  // namespace

Rect windowPlace(const Rect& toolkitRect, const Rect& primary) {
  return {toolkitRect.x - primary.x, primary.maxY() - toolkitRect.maxY(), toolkitRect.width,
          toolkitRect.height};
}

Rect toolkitRect(const Rect& windowPlace, const Rect& primary) {
  return {windowPlace.x + primary.x, primary.maxY() - windowPlace.maxY(), windowPlace.width,
          windowPlace.height};
}

Rect frameAround(const Rect& content, const FrameMargins& margins) {
  return {content.x - margins.left, content.y - margins.bottom, content.width + margins.left + margins.right,
          content.height + margins.top + margins.bottom};
}

Rect contentWithin(const Rect& frame, const FrameMargins& margins) {
  return frameAround(frame, {-margins.left, -margins.top, -margins.right, -margins.bottom});
}

std::string savedFrameText(const SavedFrame& saved) {
  std::string text = rectText(saved.content);
  if (saved.screen) text += " " + rectText(*saved.screen);
  return text;
}

std::optional<SavedFrame> parseSavedFrame(std::string_view text) {
  std::array<double, 8> numbers{};
  std::size_t count = 0;
  const char* next = text.data();
  const char* const end = next + text.size();
  while (count < numbers.size()) {
    while (next != end && (*next == ' ' || *next == '\t' || *next == '\n')) ++next;
    const auto [rest, error] = std::from_chars(next, end, numbers[count]);
    if (error != std::errc()) break;
    next = rest;
    ++count;
  }
  constexpr std::size_t kOfRect = 4;
  if (count < kOfRect) return std::nullopt;
  const auto content = sensibleRect(numbers.data());
  if (!content) return std::nullopt;
  SavedFrame saved{*content, {}};
  if (count == numbers.size()) saved.screen = sensibleRect(numbers.data() + kOfRect);
  return saved;
}

SavedFrame frameOfUntoldPlace(Size content, const std::optional<SavedFrame>& last, const Rect& screen) {
  if (last) {
    const Rect& place = last->content;
    return {{place.x, place.maxY() - content.height, content.width, content.height}, last->screen};
  }
  return {{std::round(screen.x + (screen.width - content.width) / 2),
           std::round(screen.y + (screen.height - content.height) / 2), content.width, content.height},
          screen};
}

Rect placeOnScreens(const SavedFrame& saved, const FrameMargins& margins,
                    std::span<const ScreenArea> screens) {
  if (screens.empty()) return saved.content;
  const Rect frame = frameAround(saved.content, margins);
  const bool screenStands = std::any_of(screens.begin(), screens.end(), [&](const ScreenArea& screen) {
    return saved.screen && screen.frame == *saved.screen;
  });
  if (screenStands && canBeGrasped(frame, screens)) return saved.content;
  const auto overlap = [&](const ScreenArea& screen) {
    const Rect common = intersection(frame, screen.frame);
    return common.width * common.height;
  };
  const auto best =
      std::max_element(screens.begin(), screens.end(),
                       [&](const ScreenArea& a, const ScreenArea& b) { return overlap(a) < overlap(b); });
  return contentWithin(movedInto(frame, best->visible), margins);
}

Point nextCascadePoint(Point topLeft, Size window, const Rect& visible) {
  const Point next{topLeft.x + kCascadeStep, topLeft.y - kCascadeStep};
  const bool fits = next.x + window.width <= visible.maxX() && next.y - window.height >= visible.y;
  return fits ? next : Point{visible.x, visible.maxY()};
}

}  // namespace tarvel
