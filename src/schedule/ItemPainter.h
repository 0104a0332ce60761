#pragma once
#include "model/ScheduleItem.h"
#include "platform/Color.h"
#include "schedule/ScheduleMetrics.h"
#include "ui/AttributedText.h"

class QPainter;

namespace tarvel {

enum class SessionTimes { hidden, shown };

/// How the items of a schedule are written.
struct ItemStyles {
  TextAttributes name;
  TextAttributes resurface;
  TextAttributes time;
  double timeBand = kTimeBand;

  static ItemStyles onScreen(double fontSize);
  static ItemStyles onPage(double fontSize);
  const TextAttributes& nameOf(const ScheduleItem& item) const {
    return item.kind == SessionKind::resurface ? resurface : name;
  }
};

/// Keeps what is drawn of an item within its rectangle, until it goes out of scope: texts of any length and
/// script stand beside other items.
class ItemClip {
 public:
  ItemClip(QPainter& painter, const Rect& rect);
  ~ItemClip();
  ItemClip(const ItemClip&) = delete;
  ItemClip& operator=(const ItemClip&) = delete;

 private:
  QPainter& painter_;
};

/// An item's coloured block and its frame.
void paintItemBlock(QPainter& painter, const Rect& rect, const Color& sessionColor, const Color& frameColor);
/// The fold in the upper right corner that tells of a note.
void paintNoteCorner(QPainter& painter, const Rect& rect);
/// A text of an item, wrapped and cut to the rectangle and in the middle of its height, `lift` above. The
/// first line shows whatever the height.
void paintItemText(QPainter& painter, const Rect& rect, const AttributedText& text, double lift = 0.0);

/// Draws one item of a week in its rectangle: its block, frame, name, times and the fold that tells of a
/// note. The painter smooths edges or doesn't as it comes; it is left as it was.
void paintItem(QPainter& painter, const ScheduleItem& item, const Rect& rect, const Color& sessionColor,
               const ItemStyles& styles, SessionTimes sessionTimes);

}  // namespace tarvel
