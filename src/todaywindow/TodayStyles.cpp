#include "todaywindow/TodayStyles.h"

namespace tarvel {
namespace {

constexpr double kTimePart = 0.9;
constexpr double kNotePart = 0.7;
constexpr double kSwitchedResurfacePart = 0.6;
constexpr double kResurfacePart = 0.5;

}  // namespace

void TodayStyles::switchTo(double baseSize) {
  name.fontSize = baseSize;
  time.fontSize = kTimePart * baseSize;
  note.fontSize = kNotePart * baseSize;
  resurface.fontSize = kSwitchedResurfacePart * baseSize;
}

void TodayStyles::apply(double baseSize) {
  switchTo(baseSize);
  resurface.fontSize = resurfaceTime.fontSize = kResurfacePart * baseSize;
}

TodayStyles TodayStyles::onPage() {
  TodayStyles styles;
  styles.name.fontSize = 8.0;
  styles.time.fontSize = 7.2;
  styles.note.fontSize = 5.6;
  styles.resurface.fontSize = styles.resurfaceTime.fontSize = 4.8;
  return styles;
}

}  // namespace tarvel
