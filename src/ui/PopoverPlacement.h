#pragma once
#include <QPainterPath>
#include <QRect>

namespace tarvel {

/// The side of its anchor on which a popover stands, in the order of the sides' maximum and minimum x and y.
enum class PopoverEdge { left, above, right, below };

/// Where a popover stands, and where its arrow points out of it. Logical pixels, y downwards.
struct PopoverPlacement {
  PopoverEdge edge = PopoverEdge::right;
  QRect frame;  ///< body and arrow
  int arrowAt =
      0;  ///< the tip's distance from the frame's left or upper end, along the side that it stands on
  /// The part that holds the content, within the frame.
  QRect body() const;
  /// The outline of body and arrow within the frame, drawn in by so much on all sides.
  QPainterPath outline(double inset) const;
};

/// Places a popover whose content needs that room beside the anchor. The preferred edge is taken if the
/// screen has the room there, else the one opposite, else one of the two others; if none has it, the one with
/// the most room, and the popover then covers a part of the anchor. It never leaves the screen, and is made
/// smaller where the screen is. The arrow points at the middle of the anchor as far as the corners let it.
PopoverPlacement placePopover(const QRect& anchor, const QSize& content, const QRect& screen,
                              PopoverEdge preferred);

}  // namespace tarvel
