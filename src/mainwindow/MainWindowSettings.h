#pragma once
#include <cstdint>
#include <optional>

#include "mainwindow/MainWindowPane.h"
#include "platform/PropertyList.h"
#include "schedule/ScheduleViewOption.h"

namespace tarvel {

/// What a main window keeps from run to run, and hands on to a further window. A plain record; the defaults
/// are those of a first window.
struct MainWindowSettings {
  std::int64_t rinkID = 0;  ///< 0 for no rink
  MainWindowPane currentPaneKind = MainWindowPane::info;
  ScheduleViewOption scheduleViewOption = ScheduleViewOption::weekly;
  bool fitVertically = true;
  bool showSessionTimes = false;
  double galleryViewPhotoHeight = 200.0;
  double albumViewPhotoHeight = 200.0;
  bool showRinks = true;
  bool showCalendar = true;
  /// The font sizes that the user has set, one for each form of the schedule.
  std::optional<double> weeklyFontSizeFit;
  std::optional<double> weeklyFontSizeScroll;
  std::optional<double> dailyFontSizeSingleFit;
  std::optional<double> dailyFontSizeSingleScroll;
  std::optional<double> dailyFontSizeMultiFit;
  std::optional<double> dailyFontSizeMultiScroll;

  /// The weekly view's size for the present fit: the one set for it, else the one set for the form that is
  /// most like it, else the application's default.
  double weeklyFontSize() const;

  PropertyList::Dictionary dictionary() const;
  /// A key that is missing or of another type leaves its member as it is.
  void readFrom(const PropertyList::Dictionary& dictionary);

  friend bool operator==(const MainWindowSettings&, const MainWindowSettings&) = default;
};

}  // namespace tarvel
