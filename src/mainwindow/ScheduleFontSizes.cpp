#include "mainwindow/ScheduleFontSizes.h"

#include <vector>

#include "schedule/ScheduleMetrics.h"

namespace tarvel {
namespace {

using Sizes = ScheduleFontSizes;
using Member = std::optional<double> Sizes::*;

/// Where the size of a form is looked for: its own first, then those of the forms that are like it.
std::vector<Member> placesFor(const ScheduleForm& form) {
  const bool fit = form.fitVertically;
  if (form.option == ScheduleViewOption::weekly) {
    if (fit) {
      return {&Sizes::weeklyFontSizeFit, &Sizes::weeklyFontSizeScroll, &Sizes::dailyFontSizeMultiFit,
              &Sizes::dailyFontSizeSingleFit};
    }
    return {&Sizes::weeklyFontSizeScroll, &Sizes::weeklyFontSizeFit, &Sizes::dailyFontSizeMultiScroll,
            &Sizes::dailyFontSizeSingleScroll};
  }
  if (form.venueCount < 2) {
    if (fit) {
      return {&Sizes::dailyFontSizeSingleFit, &Sizes::dailyFontSizeMultiFit, &Sizes::weeklyFontSizeFit};
    }
    return {&Sizes::dailyFontSizeSingleScroll, &Sizes::dailyFontSizeMultiScroll,
            &Sizes::weeklyFontSizeScroll};
  }
  // Several venues that fit don't fall back on the week's size, the only form that doesn't; it stands.
  if (fit) return {&Sizes::dailyFontSizeMultiFit, &Sizes::dailyFontSizeSingleFit};
  return {&Sizes::dailyFontSizeMultiScroll, &Sizes::dailyFontSizeSingleScroll, &Sizes::weeklyFontSizeScroll};
}

}  // namespace

double ScheduleFontSizes::sizeFor(const ScheduleForm& form) const {
  for (const Member place : placesFor(form)) {
    if (this->*place) return *(this->*place);
  }
  return kDefaultItemFontSize;
}

void ScheduleFontSizes::setSizeFor(const ScheduleForm& form, double size) {
  this->*placesFor(form).front() = size;
}

}  // namespace tarvel
