#pragma once
#include <cstdint>

#include "mainwindow/MainWindowPane.h"
#include "mainwindow/ScheduleFontSizes.h"
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
  ScheduleFontSizes fontSizes;

  PropertyList::Dictionary dictionary() const;
  /// A key that is missing or of another type leaves its member as it is.
  void readFrom(const PropertyList::Dictionary& dictionary);

  friend bool operator==(const MainWindowSettings&, const MainWindowSettings&) = default;
};

}  // namespace tarvel
