#pragma once
#include "schedule/ScheduleGrid.h"
#include "ui/Appearance.h"

class QPainter;

namespace tarvel {

/// Whether an axis has a faint line across the columns at each label.
enum class AxisLines { across, none };

/// The axis of a schedule page: its labelled lines in that step. A page on paper has no lines across its
/// columns. Draws what the dirty rectangle meets.
struct AxisPicture {
  const ScheduleGrid& grid;
  std::int64_t labelStep;
  AxisLabels labels;
  Appearance appearance;
  AxisLines lines = AxisLines::across;
};
void paintAxis(QPainter& painter, const AxisPicture& picture, const Rect& dirty);

/// The lines between the columns, and on both sides of them.
void paintColumnLines(QPainter& painter, const ScheduleGrid& grid, Appearance appearance);

}  // namespace tarvel
