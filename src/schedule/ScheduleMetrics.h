#pragma once
#include <cstdint>

#include "model/SessionKind.h"
#include "platform/Color.h"

namespace tarvel {

// Measures that all schedule views share, in logical pixels, y downwards, and in minutes after midnight.

/// Where the axis begins, below the top of a week whatever its margins are, and of a day.
inline constexpr double kAxisOrigin = 12.0;
inline constexpr double kDailyAxisOrigin = 15.0;
inline constexpr double kScheduleMargin = 12.0;
inline constexpr double kPrintedScheduleMargin = 5.0;
/// Of a schedule that scrolls.
inline constexpr double kScrollPointsPerMinute = 1.5;

/// The axis of a week without sessions; a week's own sessions can only widen it.
inline constexpr std::int64_t kDefaultStartOfDay = 300;
inline constexpr std::int64_t kDefaultEndOfDay = 1440;
inline constexpr std::int64_t kMinutesPerDay = 1440;
inline constexpr std::int64_t kMinutesPerHour = 60;
inline constexpr std::int64_t kMinutesPerHalfHour = 30;

/// A tick beside the axis, and the gap between a label's right end and the columns.
inline constexpr double kTickLength = 6.0;
inline constexpr double kTimeLabelGap = 10.0;

/// The fold in an item's upper right corner that tells of a note.
inline constexpr double kNoteCorner = 12.0;
inline constexpr double kItemTextInset = 2.0;
/// An item's text is lifted by this part of its font size.
inline constexpr double kItemTextLift = 0.1;
/// The line of start and end time at an item's bottom, and how much of it the name above may use.
inline constexpr double kTimeBand = 12.0;
inline constexpr double kPrintedTimeBand = 8.0;
inline constexpr double kTimeBandOverlap = 1.5;

inline constexpr double kDefaultItemFontSize = 9.0;
inline constexpr double kPrintedItemFontSize = 7.0;
/// The text of a resurfacing, as a part of the font size of the sessions.
inline constexpr double kResurfaceFontScale = 0.75;

inline constexpr double kTimeMarkerWidth = 13.0;
inline constexpr double kTimeMarkerHeight = 18.0;
inline constexpr double kTimeMarkerLine = 5.0;

/// An item's frame lies astride its edge; so much of it is outside.
inline constexpr double kItemFrameReach = 1.0;

inline constexpr Color kBlack = white(0.0);
inline constexpr Color kItemFrameColor = white(0.3);
inline constexpr Color kResurfaceFrameColor = white(0.3, 0.5);
inline constexpr Color kResurfaceTextColor = white(0.4);
inline constexpr Color kItemTimeColor = white(0.25);
inline constexpr Color kNoteCornerColor = white(0.3, 0.5);
inline constexpr Color kTimeMarkerColor{1.0, 0.0, 0.0, 0.7};

constexpr Color itemFrameColor(SessionKind kind) {
  return kind == SessionKind::resurface ? kResurfaceFrameColor : kItemFrameColor;
}

/// Minutes between the labels of an axis on screen.
constexpr std::int64_t labelStepFor(double pointsPerMinute) {
  if (pointsPerMinute >= 1.5) return 15;
  return pointsPerMinute >= 0.75 ? 30 : 60;
}
/// Minutes between the labels of an axis on a page.
inline constexpr std::int64_t kPrintedLabelStep = 30;

}  // namespace tarvel
