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
};

/// Draws one item in its rectangle: its block, frame, name, times and the fold that tells of a note. The
/// painter smooths edges or doesn't as it comes; it is left as it was.
void paintItem(QPainter& painter, const ScheduleItem& item, const Rect& rect, const Color& sessionColor,
               const ItemStyles& styles, SessionTimes sessionTimes);

}  // namespace tarvel
