#include "ui/PopoverPlacement.h"

#include <algorithm>
#include <array>

namespace tarvel {
namespace {

constexpr int kArrowDepth = 9;
constexpr int kArrowHalfWidth = 10;
constexpr int kCornerRadius = 10;
constexpr int kGap = 1;           // between the arrow's tip and the anchor
constexpr int kScreenMargin = 4;  // kept free at the screen's borders

bool isBeside(PopoverEdge edge) {
  return edge == PopoverEdge::left || edge == PopoverEdge::right;
}

/// The edges in the order in which they are tried.
std::array<PopoverEdge, 4> candidates(PopoverEdge preferred) {
  using enum PopoverEdge;
  switch (preferred) {
    case left:
      return {left, right, below, above};
    case above:
      return {above, below, right, left};
    case below:
      return {below, above, right, left};
    case right:
      break;
  }
  return {right, left, below, above};
}

/// What the screen has free on that side of the anchor.
int roomAt(PopoverEdge edge, const QRect& anchor, const QRect& screen) {
  switch (edge) {
    case PopoverEdge::left:
      return anchor.left() - screen.left() - kGap;
    case PopoverEdge::above:
      return anchor.top() - screen.top() - kGap;
    case PopoverEdge::right:
      return screen.right() - anchor.right() - kGap;
    case PopoverEdge::below:
      break;
  }
  return screen.bottom() - anchor.bottom() - kGap;
}

QSize sizeWithArrow(PopoverEdge edge, const QSize& content) {
  return isBeside(edge) ? content + QSize(kArrowDepth, 0) : content + QSize(0, kArrowDepth);
}

PopoverEdge chooseEdge(const QRect& anchor, const QSize& content, const QRect& screen,
                       PopoverEdge preferred) {
  const auto room = [&](PopoverEdge edge) { return roomAt(edge, anchor, screen); };
  const auto edges = candidates(preferred);
  const auto fitting = std::find_if(edges.begin(), edges.end(), [&](PopoverEdge edge) {
    const QSize needed = sizeWithArrow(edge, content);
    return isBeside(edge) ? needed.width() <= room(edge) && needed.height() <= screen.height()
                          : needed.height() <= room(edge) && needed.width() <= screen.width();
  });
  if (fitting != edges.end()) return *fitting;
  return *std::max_element(edges.begin(), edges.end(),
                           [&](PopoverEdge a, PopoverEdge b) { return room(a) < room(b); });
}

QPoint cornerAt(PopoverEdge edge, const QRect& anchor, const QSize& size) {
  const QPoint middle = anchor.center() - QPoint(size.width() / 2, size.height() / 2);
  switch (edge) {
    case PopoverEdge::left:
      return {anchor.left() - kGap - size.width(), middle.y()};
    case PopoverEdge::above:
      return {middle.x(), anchor.top() - kGap - size.height()};
    case PopoverEdge::right:
      return {anchor.right() + 1 + kGap, middle.y()};
    case PopoverEdge::below:
      break;
  }
  return {middle.x(), anchor.bottom() + 1 + kGap};
}

QRect movedInto(QRect frame, const QRect& screen) {
  frame.moveLeft(std::clamp(frame.left(), screen.left(), screen.right() + 1 - frame.width()));
  frame.moveTop(std::clamp(frame.top(), screen.top(), screen.bottom() + 1 - frame.height()));
  return frame;
}

}  // namespace

PopoverPlacement placePopover(const QRect& anchor, const QSize& content, const QRect& screen,
                              PopoverEdge preferred) {
  const QRect area = screen.adjusted(kScreenMargin, kScreenMargin, -kScreenMargin, -kScreenMargin);
  PopoverPlacement placement;
  placement.edge = chooseEdge(anchor, content, area, preferred);
  const QSize size = sizeWithArrow(placement.edge, content).boundedTo(area.size());
  placement.frame = movedInto({cornerAt(placement.edge, anchor, size), size}, area);
  const bool beside = isBeside(placement.edge);
  const int length = beside ? size.height() : size.width();
  const int wanted =
      beside ? anchor.center().y() - placement.frame.top() : anchor.center().x() - placement.frame.left();
  const int nearest = std::min(kCornerRadius + kArrowHalfWidth, length / 2);
  placement.arrowAt = std::clamp(wanted, nearest, length - nearest);
  return placement;
}

QRect PopoverPlacement::body() const {
  QRect rect(QPoint(), frame.size());
  switch (edge) {
    case PopoverEdge::left:
      return rect.adjusted(0, 0, -kArrowDepth, 0);
    case PopoverEdge::above:
      return rect.adjusted(0, 0, 0, -kArrowDepth);
    case PopoverEdge::right:
      return rect.adjusted(kArrowDepth, 0, 0, 0);
    case PopoverEdge::below:
      break;
  }
  return rect.adjusted(0, kArrowDepth, 0, 0);
}

QPainterPath PopoverPlacement::outline(double inset) const {
  const QRectF box = QRectF(body()).adjusted(inset, inset, -inset, -inset);
  QPainterPath path;
  path.addRoundedRect(box, kCornerRadius - inset, kCornerRadius - inset);
  const double along = arrowAt;
  // From the tip to the foot, which reaches into the box so that the two become one outline.
  const double tip = inset;
  const double foot = kArrowDepth + inset + 1.0;
  const double half = kArrowHalfWidth;
  const double width = frame.width();
  const double height = frame.height();
  QPolygonF arrow;
  switch (edge) {
    case PopoverEdge::left:
      arrow << QPointF(width - tip, along) << QPointF(width - foot, along - half)
            << QPointF(width - foot, along + half);
      break;
    case PopoverEdge::above:
      arrow << QPointF(along, height - tip) << QPointF(along - half, height - foot)
            << QPointF(along + half, height - foot);
      break;
    case PopoverEdge::right:
      arrow << QPointF(tip, along) << QPointF(foot, along - half) << QPointF(foot, along + half);
      break;
    case PopoverEdge::below:
      arrow << QPointF(along, tip) << QPointF(along - half, foot) << QPointF(along + half, foot);
      break;
  }
  QPainterPath arrowPath;
  arrowPath.addPolygon(arrow);
  arrowPath.closeSubpath();
  return path.united(arrowPath);
}

}  // namespace tarvel
