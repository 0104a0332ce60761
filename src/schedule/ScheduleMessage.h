#pragma once
#include <string>

#include "platform/Geometry.h"
#include "ui/Appearance.h"

class QPainter;

namespace tarvel {

/// What every schedule page says without a rink.
inline constexpr const char* kNoRinkSelected = "No Rink Selected";

/// A line in the middle of the view, in place of a schedule.
void paintScheduleMessage(QPainter& painter, const std::string& message, Size size, Appearance appearance);
/// Several lines that say what failed, in the middle of the view.
void paintScheduleFailure(QPainter& painter, const std::string& message, Size size, Appearance appearance);

}  // namespace tarvel
