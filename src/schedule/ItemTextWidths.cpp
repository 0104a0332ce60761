#include "schedule/ItemTextWidths.h"

#include <algorithm>
#include <set>

#include "schedule/ScheduleItemText.h"
#include "ui/AttributedText.h"

namespace tarvel {
namespace {

constexpr double kMeasuringWidth = 500.0;

double widestOf(const std::set<std::string>& texts, const TextAttributes& attributes) {
  double widest = 0.0;
  for (const std::string& text : texts) {
    const AttributedText attributed(text, attributes);
    widest = std::max(widest, boundingRect(attributed, {kMeasuringWidth, 0.0}, TextFit::wrap).width);
  }
  return widest;
}

}  // namespace

ItemTextWidths measureItemTexts(const std::vector<ScheduleItems>& lists, const TextAttributes& attributes) {
  // A day repeats the same few texts.
  std::set<std::string> times;
  std::set<std::string> durations;
  for (const ScheduleItems& items : lists) {
    for (const auto& item : items) {
      times.insert(itemClockText(*item));
      if (item->kind != SessionKind::resurface) durations.insert(itemDurationText(*item));
    }
  }
  return {widestOf(times, attributes), widestOf(durations, attributes)};
}

}  // namespace tarvel
