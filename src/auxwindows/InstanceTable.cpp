#include "auxwindows/InstanceTable.h"

#include <fmt/format.h>

#include "foundation/InstanceCounter.h"
#include "foundation/TextFormats.h"

namespace tarvel {

// The names of classes in all rooms: a counter needs no more of its class.
class DataModel;
class RinkInfo;
class RinkData;
class Venue;
class WeeklySchedule;
class ScheduleItem;
class Notice;
class PhotoAlbum;
class Photo;
class Window;
class KioskWindow;
class MainWindowController;
class TodayWindowController;
class LogWindowController;
class DebugWindowController;
class ClockWindowController;
class TarvelURLWindowController;
class AlertPanelWindowController;
class RinkListView;
class ScheduleHeaderView;
class WeeklyScheduleView;
class DailyScheduleView;
class NoticesView;
class NoticeBannerView;
class GalleryView;
class PhotoView;
class TimeMarkerView;
class TodayScheduleView;
class WindowPane;
class LogView;
class BoxView;
class InfoView;
class CalendarView;
class PagingView;
class AlbumView;
class ImageDisplayView;
class AlertMessageView;
class RefreshPopoverViewController;
class CautionPopoverViewController;
class SwipeGestureController;
class AutoSaveController;
class MessageLog;

namespace {

constexpr double kHeadingSize = 12.0;
constexpr double kDataSize = 13.0;

template <class T>
CountedClass counted(std::string_view name) {
  return {name, &Counted<T>::liveCount};
}

#define COUNTED(Class) counted<Class>(#Class)

std::vector<CountedGroup> makeInstanceTable() {
  return {
      {"Model",
       {COUNTED(DataModel), COUNTED(RinkInfo), COUNTED(RinkData), COUNTED(Venue), COUNTED(WeeklySchedule),
        COUNTED(ScheduleItem), COUNTED(Notice), COUNTED(PhotoAlbum), COUNTED(Photo)}},
      {"Windows", {COUNTED(Window), COUNTED(KioskWindow)}},
      {"Window Controllers",
       {COUNTED(MainWindowController), COUNTED(TodayWindowController), COUNTED(LogWindowController),
        COUNTED(DebugWindowController), COUNTED(ClockWindowController), COUNTED(TarvelURLWindowController),
        COUNTED(AlertPanelWindowController)}},
      {"Views",
       {COUNTED(RinkListView), COUNTED(ScheduleHeaderView), COUNTED(WeeklyScheduleView),
        COUNTED(DailyScheduleView), COUNTED(NoticesView), COUNTED(NoticeBannerView), COUNTED(GalleryView),
        COUNTED(PhotoView), COUNTED(TimeMarkerView), COUNTED(TodayScheduleView), COUNTED(WindowPane),
        COUNTED(LogView), COUNTED(BoxView), COUNTED(InfoView), COUNTED(CalendarView), COUNTED(PagingView),
        COUNTED(AlbumView), COUNTED(ImageDisplayView), COUNTED(AlertMessageView)}},
      {"Sheet Controllers", {}},
      {"Other Controllers",
       {COUNTED(RefreshPopoverViewController), COUNTED(CautionPopoverViewController),
        // Known to its readers: these options have no counter of their own, and show that of the row above.
        counted<CautionPopoverViewController>("TodayOptionsPopoverViewController"),
        COUNTED(SwipeGestureController), COUNTED(AutoSaveController)}},
      {"Other", {COUNTED(MessageLog)}},
  };
}

#undef COUNTED

}  // namespace

std::span<const CountedGroup> instanceTable() {
  static const std::vector<CountedGroup> table = makeInstanceTable();
  return table;
}

Message headingRow(const QString& text) {
  return {text, TextAttributes{kHeadingSize, FontWeight::regular, kLabel, kLeftStyle}};
}

Message dataRow(const QString& text) {
  return {text, TextAttributes{kDataSize, FontWeight::regular, kLabel, kLeftStyle, FontDesign::fixedWidth}};
}

std::vector<Message> memoryRows(std::span<const CountedGroup> groups) {
  std::vector<Message> rows;
  for (const CountedGroup& group : groups) {
    rows.push_back(headingRow({}));
    rows.push_back(headingRow(QString::fromStdString(std::string(group.heading))));
    for (const CountedClass& counted : group.classes) {
      const std::int64_t count = counted.liveCount();
      if (count < 1) continue;
      const std::string row = fmt::format("{:>10}  {}", groupedNumber(count), counted.name);
      rows.push_back(dataRow(QString::fromStdString(row)));
    }
  }
  return rows;
}

}  // namespace tarvel
