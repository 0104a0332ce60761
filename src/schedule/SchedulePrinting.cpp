#include "schedule/SchedulePrinting.h"

#include <fmt/format.h>

#include <QPagedPaintDevice>
#include <QPainter>

#include "model/DataModel.h"
#include "schedule/DailyPainter.h"
#include "schedule/ScheduleContents.h"
#include "schedule/ScheduleMessage.h"
#include "schedule/WeeklyPainter.h"

namespace tarvel {
namespace {

// Points of the paper, y downwards from its top.
constexpr double kPointsPerInch = 72.0;
constexpr double kLeftMargin = 20.0;
constexpr double kRightMargin = 30.0;
constexpr double kTopMargin = 70.0;
constexpr double kBottomMargin = 35.0;
/// The rink's name stands on a line this far above the page's contents.
constexpr double kRinkNameRise = 26.0;
constexpr double kRinkNameHeight = 24.0;
constexpr double kWeekdayHeight = 30.0;
constexpr double kDailyHeadingHeight = 20.0;
constexpr double kDailyDateDrop = 20.0;
constexpr double kDailyVenueDrop = 16.0;
constexpr double kFooterWidth = 150.0;
constexpr double kFooterHeight = 15.0;
constexpr double kFooterDrop = 20.0;  ///< of its lower end, below the page's contents
constexpr double kFooterInset = 2.0;
constexpr double kSingleVenueFontSize = 11.0;
// Paper is white, whatever the desktop's appearance.
constexpr Appearance kPaper = Appearance::light;

const TextAttributes kRinkNameAttributes{14.0, FontWeight::regular, kBlack, kCentredStyle};
const TextAttributes kHeadingAttributes{10.0, FontWeight::regular, kBlack, kCentredStyle};
const TextAttributes kFooterAttributes{7.0, FontWeight::regular, kBlack, kRightStyle};

/// One page: what stands around the schedule, and the schedule itself.
class PrintedPage {
 public:
  PrintedPage(QPainter& painter, Size paper, DataModel& dataModel, const ScheduleToPrint& schedule)
      : painter_(painter), paper_(paper), dataModel_(dataModel), schedule_(schedule) {
    input_.frame = {paper.width - kLeftMargin - kRightMargin, paper.height - kTopMargin - kBottomMargin};
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
    painter_.translate(kLeftMargin, kTopMargin);
    // The ticks right of the columns reach a little beyond the contents.
    painter_.setClipRect(QRectF(0.0, 0.0, input_.frame.width + kTickLength, input_.frame.height));
    paint(Rect{0.0, 0.0, input_.frame.width, input_.frame.height});
    painter_.restore();
  }

  void write(const Rect& rect, const std::string& text, const TextAttributes& attributes) {
    const ItemClip clip(painter_, rect);
    draw(painter_, rect, AttributedText(text, attributes), TextFit::wrapAndTruncate, kPaper);
  }

  std::string rinkName() const {
    if (!schedule_.rink) return {};
    const auto info = schedule_.rink->rinkInfo();
    return info ? info->name : "unknown rink";
  }

  void paintWeekHeadings(const WeeklyLayout& layout, PackedDate weekOf) {
    const double line = kTopMargin - kRinkNameRise;
    write({kLeftMargin, line - kRinkNameHeight, paper_.width - kLeftMargin - kRightMargin, kRinkNameHeight},
          rinkName(), kRinkNameAttributes);
    PackedDate date = weekOf;
    for (int day = 0; day < WeeklyLayout::kDays; ++day, date = nextDay(date)) {
      const double x = kLeftMargin + WeeklyLayout::kLabelColumn + day * layout.columnWidth();
      write({x, line, layout.columnWidth(), kWeekdayHeight},
            fmt::format("{}\n{}/{}", shortWeekdayName(weekdayOf(date)), monthOf(date), dayOf(date)),
            kHeadingAttributes);
    }
  }

  void paintDayHeadings(const DailyLayout& layout, const Venues& venues) {
    Rect rect{kLeftMargin + DailyLayout::kLabelColumn, kTopMargin - kRinkNameRise - kDailyHeadingHeight,
              layout.columnWidth() * static_cast<double>(venues.size()), kDailyHeadingHeight};
    write(rect, rinkName(), kRinkNameAttributes);
    rect.y += kDailyDateDrop;
    write(rect, fullDateText(schedule_.date), kHeadingAttributes);
    rect.y += kDailyVenueDrop;
    rect.width = layout.columnWidth();
    for (const auto& venue : venues) {
      write(rect, venue->displayName(), kHeadingAttributes);
      rect.x += rect.width;
    }
  }

  void paintFooter() {
    const double bottom = paper_.height - kBottomMargin + kFooterDrop;
    const double right = paper_.width - kRightMargin - kFooterInset;
    write({right - kFooterWidth, bottom - kFooterHeight, kFooterWidth, kFooterHeight},
          "Printed " + shortDateText(today()), kFooterAttributes);
  }

  QPainter& painter_;
  Size paper_;
  DataModel& dataModel_;
  const ScheduleToPrint& schedule_;
  SchedulePageInput input_;
};

}  // namespace

Status printSchedule(QPagedPaintDevice& device, DataModel& dataModel, const ScheduleToPrint& schedule) {
  QPageLayout page = device.pageLayout();
  page.setOrientation(QPageLayout::Portrait);
  page.setMode(QPageLayout::FullPageMode);  // the margins are those of this page, not of the printer
  if (!device.setPageLayout(page)) return Error{"The printer doesn't take the page's layout"};
  QPainter painter;
  if (!painter.begin(&device)) return Error{"Unable to begin the page"};
  painter.scale(device.logicalDpiX() / kPointsPerInch, device.logicalDpiY() / kPointsPerInch);
  const QRectF paper = page.fullRect(QPageLayout::Point);
  PrintedPage printed(painter, {paper.width(), paper.height()}, dataModel, schedule);
  if (schedule.form == ScheduleViewOption::weekly) {
    printed.paintWeekPage();
  } else {
    printed.paintDayPage();
  }
  if (!painter.end()) return Error{"Unable to finish the page"};
  return Done{};
}

}  // namespace tarvel
