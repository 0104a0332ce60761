#include "schedule/SchedulePrinting.h"

#include <fmt/format.h>

#include <QPainter>

#include "model/DataModel.h"
#include "schedule/DailyPainter.h"
#include "schedule/PrintedSheet.h"
#include "schedule/ScheduleContents.h"
#include "schedule/ScheduleMessage.h"
#include "schedule/WeeklyPainter.h"

namespace tarvel {
namespace {

// Points of the paper, y downwards from its top.
constexpr double kWeekdayHeight = 30.0;
constexpr double kDailyHeadingHeight = 20.0;
constexpr double kDailyDateDrop = 20.0;
constexpr double kDailyVenueDrop = 16.0;
constexpr double kSingleVenueFontSize = 11.0;

/// One page: what stands around the schedule, and the schedule itself.
class PrintedPage {
 public:
  PrintedPage(QPainter& painter, Size paper, DataModel& dataModel, const ScheduleToPrint& schedule)
      : painter_(painter), paper_(paper), dataModel_(dataModel), schedule_(schedule) {
    input_.frame = {paper.width - kSheetLeftMargin - kSheetRightMargin,
                    paper.height - kSheetTopMargin - kSheetBottomMargin};
    input_.medium = Medium::page;
    input_.dayRange = schedule.dayRange;
  }

  void paintWeekPage() {
    const RinkData* rink = schedule_.rink.get();
    const PackedDate weekOf = startOfWeek(schedule_.date);
    const auto first = rink && schedule_.weeklyVenueID == 0 ? firstVenue(*rink) : nullptr;
    const WeekContents contents =
        weekContents(rink, first ? first->venueID : schedule_.weeklyVenueID, weekOf);
    const WeeklyLayout layout({input_, weekOf});
    const ItemStyles styles = ItemStyles::onPage(kPrintedItemFontSize);
    const WeeklyPicture picture{layout, *contents.items, styles, dataModel_, schedule_.sessionTimes, today()};
    paintContents([&](const Rect& bounds) {
      paintWeekOrMessage(painter_, rink, contents.schedule.get(), picture, bounds);
    });
    paintWeekHeadings(layout, weekOf);
    paintFooter();
  }

  void paintDayPage() {
    const RinkData* rink = schedule_.rink.get();
    const Venues venues = venuesOf(rink, schedule_.dailyVenueIDs);
    const DayContents contents = dayContents(venues, schedule_.date);
    const ItemStyles styles =
        ItemStyles::onPage(venues.size() > 1 ? kPrintedItemFontSize : kSingleVenueFontSize);
    const DailyLayout layout({input_, schedule_.date, static_cast<std::int64_t>(venues.size()),
                              measureDay(contents.columns, styles)});
    paintContents([&](const Rect& bounds) {
      if (!rink) return paintScheduleMessage(painter_, kNoRinkSelected, input_.frame, kPaper);
      paintDay(painter_, {layout, contents.columns, styles, dataModel_, today(), kPaper}, bounds);
    });
    paintDayHeadings(layout, venues);
    paintFooter();
  }

 private:
  PackedDate today() const { return schedule_.rink ? schedule_.rink->dateNow() : kNoDate; }

  template <class Paint>
  void paintContents(Paint paint) {
    painter_.save();
    painter_.translate(kSheetLeftMargin, kSheetTopMargin);
    // The ticks right of the columns reach a little beyond the contents.
    painter_.setClipRect(QRectF(0.0, 0.0, input_.frame.width + kTickLength, input_.frame.height));
    paint(Rect{0.0, 0.0, input_.frame.width, input_.frame.height});
    painter_.restore();
  }

  void write(const Rect& rect, const std::string& text, const TextAttributes& attributes) {
    writeOnSheet(painter_, rect, text, attributes);
  }

  std::string rinkName() const { return printedRinkName(schedule_.rink.get()); }

  void paintWeekHeadings(const WeeklyLayout& layout, PackedDate weekOf) {
    const double line = kSheetTopMargin - kSheetRinkNameRise;
    write({kSheetLeftMargin, line - kSheetRinkNameHeight, paper_.width - kSheetLeftMargin - kSheetRightMargin,
           kSheetRinkNameHeight},
          rinkName(), kSheetRinkNameAttributes);
    PackedDate date = weekOf;
    for (int day = 0; day < WeeklyLayout::kDays; ++day, date = nextDay(date)) {
      const double x = kSheetLeftMargin + WeeklyLayout::kLabelColumn + day * layout.columnWidth();
      write({x, line, layout.columnWidth(), kWeekdayHeight},
            fmt::format("{}\n{}/{}", shortWeekdayName(weekdayOf(date)), monthOf(date), dayOf(date)),
            kSheetHeadingAttributes);
    }
  }

  /// Above the columns, which begin after the layout's own left margin as well.
  void paintDayHeadings(const DailyLayout& layout, const Venues& venues) {
    Rect rect{kSheetLeftMargin + layout.grid().left,
              kSheetTopMargin - kSheetRinkNameRise - kDailyHeadingHeight,
              layout.columnWidth() * static_cast<double>(venues.size()), kDailyHeadingHeight};
    write(rect, rinkName(), kSheetRinkNameAttributes);
    rect.y += kDailyDateDrop;
    write(rect, fullDateText(schedule_.date), kSheetHeadingAttributes);
    rect.y += kDailyVenueDrop;
    rect.width = layout.columnWidth();
    for (const auto& venue : venues) {
      write(rect, venue->displayName(), kSheetHeadingAttributes);
      rect.x += rect.width;
    }
  }

  void paintFooter() { paintSheetFooter(painter_, paper_, today()); }

  QPainter& painter_;
  Size paper_;
  DataModel& dataModel_;
  const ScheduleToPrint& schedule_;
  SchedulePageInput input_;
};

}  // namespace

Status printSchedule(QPagedPaintDevice& device, DataModel& dataModel, const ScheduleToPrint& schedule) {
  return printSheet(device, [&](QPainter& painter, Size paper) {
    PrintedPage printed(painter, paper, dataModel, schedule);
    if (schedule.form == ScheduleViewOption::weekly) {
      printed.paintWeekPage();
    } else {
      printed.paintDayPage();
    }
  });
}

}  // namespace tarvel
