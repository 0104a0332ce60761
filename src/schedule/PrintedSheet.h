#pragma once
#include <functional>
#include <string>

#include "foundation/CalendarDates.h"
#include "platform/Geometry.h"
#include "platform/Result.h"
#include "ui/AttributedText.h"

class QPagedPaintDevice;

namespace tarvel {

class RinkData;

// What all printed schedules share. Points of the paper, y downwards from its top.

inline constexpr double kSheetLeftMargin = 20.0;
inline constexpr double kSheetRightMargin = 30.0;
inline constexpr double kSheetTopMargin = 70.0;
inline constexpr double kSheetBottomMargin = 35.0;
/// The rink's name stands on a line this far above the sheet's contents.
inline constexpr double kSheetRinkNameRise = 26.0;
inline constexpr double kSheetRinkNameHeight = 24.0;
/// Paper is white, whatever the desktop's appearance.
inline constexpr Appearance kPaper = Appearance::light;

inline const TextAttributes kSheetRinkNameAttributes{14.0, FontWeight::regular, Color{}, kCentredStyle};
inline const TextAttributes kSheetHeadingAttributes{10.0, FontWeight::regular, Color{}, kCentredStyle};

/// Prints one sheet of the device's paper, upright. The device must not be painted on yet, and holds the
/// whole sheet when this returns. Fails if the device can't be painted on, as a file that can't be written.
Status printSheet(QPagedPaintDevice& device, const std::function<void(QPainter&, Size paper)>& paint);

/// A heading, kept within its rectangle.
void writeOnSheet(QPainter& painter, const Rect& rect, const std::string& text,
                  const TextAttributes& attributes);
/// Empty without a rink; "unknown rink" for one that has left the catalogue.
std::string printedRinkName(const RinkData* rink);
/// The date of printing, below the contents.
void paintSheetFooter(QPainter& painter, Size paper, PackedDate today);

}  // namespace tarvel
