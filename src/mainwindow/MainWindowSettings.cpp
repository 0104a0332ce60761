#include "mainwindow/MainWindowSettings.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tarvel {
namespace {

constexpr const char* kRinkID = "rinkID";
constexpr const char* kCurrentPaneKind = "currentPaneKind";
constexpr const char* kScheduleViewOption = "scheduleViewOption";
// Older keys of the weekly sizes, from when there was no daily schedule.
constexpr const char* kOldFontSizeFit = "fontSizeFit";
constexpr const char* kOldFontSizeScroll = "fontSizeScroll";
constexpr std::int64_t kPaneCount = 4;

template <class Member, class Record = MainWindowSettings>
struct Key {
  const char* name;
  Member Record::*member;
};

constexpr std::array<Key<bool>, 4> kBooleans{{
    {"fitVertically", &MainWindowSettings::fitVertically},
    {"showSessionTimes", &MainWindowSettings::showSessionTimes},
    {"showRinks", &MainWindowSettings::showRinks},
    {"showCalendar", &MainWindowSettings::showCalendar},
}};

constexpr std::array<Key<double>, 2> kPhotoHeights{{
    {"galleryViewPhotoHeight", &MainWindowSettings::galleryViewPhotoHeight},
    {"albumViewPhotoHeight", &MainWindowSettings::albumViewPhotoHeight},
}};

constexpr std::array<Key<std::optional<double>, ScheduleFontSizes>, 6> kFontSizes{{
    {"weeklyFontSizeFit", &ScheduleFontSizes::weeklyFontSizeFit},
    {"weeklyFontSizeScroll", &ScheduleFontSizes::weeklyFontSizeScroll},
    {"dailyFontSizeSingleFit", &ScheduleFontSizes::dailyFontSizeSingleFit},
    {"dailyFontSizeSingleScroll", &ScheduleFontSizes::dailyFontSizeSingleScroll},
    {"dailyFontSizeMultiFit", &ScheduleFontSizes::dailyFontSizeMultiFit},
    {"dailyFontSizeMultiScroll", &ScheduleFontSizes::dailyFontSizeMultiScroll},
}};

/// A size that the user can have set; steps from an odd size lead past the limits by less than one step. What
/// a damaged file holds could not be set right by the buttons.
std::optional<double> fontSizeAt(const PropertyList::Dictionary& dictionary, const char* key) {
  constexpr double kStep = ScheduleFontSizes::kStep;
  const auto size = realAt(dictionary, key);
  if (!size || std::isnan(*size)) return std::nullopt;
  return std::clamp(*size, ScheduleFontSizes::kSmallest - kStep, ScheduleFontSizes::kLargest + kStep);
}

}  // namespace

PropertyList::Dictionary MainWindowSettings::dictionary() const {
  PropertyList::Dictionary result;
  result[kRinkID] = rinkID;
  result[kCurrentPaneKind] = static_cast<std::int64_t>(currentPaneKind);
  result[kScheduleViewOption] = static_cast<std::int64_t>(scheduleViewOption);
  for (const auto& key : kBooleans) result[key.name] = this->*key.member;
  for (const auto& key : kPhotoHeights) result[key.name] = this->*key.member;
  for (const auto& key : kFontSizes) {
    if (const auto size = fontSizes.*key.member) result[key.name] = *size;
  }
  return result;
}

void MainWindowSettings::readFrom(const PropertyList::Dictionary& dictionary) {
  if (const auto id = integerAt(dictionary, kRinkID)) rinkID = *id;
  if (const auto pane = integerAt(dictionary, kCurrentPaneKind)) {
    const bool known = *pane >= 0 && *pane < kPaneCount;
    currentPaneKind = known ? static_cast<MainWindowPane>(*pane) : MainWindowPane::info;
  }
  if (const auto option = integerAt(dictionary, kScheduleViewOption); option == 0 || option == 1) {
    scheduleViewOption = static_cast<ScheduleViewOption>(*option);
  }
  // The older keys first, so that the present ones win.
  if (const auto size = fontSizeAt(dictionary, kOldFontSizeFit)) fontSizes.weeklyFontSizeFit = *size;
  if (const auto size = fontSizeAt(dictionary, kOldFontSizeScroll)) fontSizes.weeklyFontSizeScroll = *size;
  for (const auto& key : kBooleans) {
    if (const auto value = booleanAt(dictionary, key.name)) this->*key.member = *value;
  }
  for (const auto& key : kPhotoHeights) {
    if (const auto value = realAt(dictionary, key.name)) this->*key.member = *value;
  }
  for (const auto& key : kFontSizes) {
    if (const auto value = fontSizeAt(dictionary, key.name)) fontSizes.*key.member = *value;
  }
}

}  // namespace tarvel
