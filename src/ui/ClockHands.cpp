#include "ui/ClockHands.h"

namespace tarvel {
namespace {

constexpr double kDegreesPerHour = 30.0;
constexpr double kDegreesPerMark = 6.0;  // a minute of the minute hand, a second of the second hand
constexpr double kSixty = 60.0;
constexpr int kHoursOnFace = 12;

}  // namespace

ClockHands clockHandsAt(const LocalTime& time) {
  const double minutes = time.minute + time.second / kSixty;
  return {(time.hour % kHoursOnFace + minutes / kSixty) * kDegreesPerHour, minutes * kDegreesPerMark,
          time.second * kDegreesPerMark};
}

}  // namespace tarvel
