#include "todaywindow/TodayPrinting.h"

#include <QPainter>

#include "model/DataModel.h"
#include "schedule/PrintedSheet.h"
#include "todaywindow/TodayPainter.h"

namespace tarvel {
namespace {

constexpr double kDateDrop = 30.0;

void paintHeadings(QPainter& painter, Size paper, const TodayToPrint& today) {
  Rect line{kSheetLeftMargin, kSheetTopMargin - kSheetRinkNameRise - kSheetRinkNameHeight,
            paper.width - kSheetLeftMargin - kSheetRightMargin, kSheetRinkNameHeight};
  writeOnSheet(painter, line, printedRinkName(today.rink.get()), kSheetRinkNameAttributes);
  line.y += kDateDrop;
  writeOnSheet(painter, line, fullDateText(today.date), kSheetHeadingAttributes);
}

}  // namespace

Status printToday(QPagedPaintDevice& device, DataModel& dataModel, const TodayToPrint& today) {
  return printSheet(device, [&](QPainter& painter, Size paper) {
    const Size contents{paper.width - kSheetLeftMargin - kSheetRightMargin,
                        paper.height - kSheetTopMargin - kSheetBottomMargin};
    const TodayStyles styles = TodayStyles::onPage();
    const TodayLayout layout({contents, VerticalFit::fit, 1.0, Medium::page,
                              todayRange(today.items, TodayLayout::kLeastRange),
                              measureToday(today.items, styles)});
    painter.save();
    painter.translate(kSheetLeftMargin, kSheetTopMargin);
    paintTodayOrMessage(painter, today.schedule.get(), {layout, today.items, styles, dataModel, 0, kPaper},
                        {0.0, 0.0, contents.width, contents.height});
    painter.restore();
    paintHeadings(painter, paper, today);
    paintSheetFooter(painter, paper, today.rink ? today.rink->dateNow() : kNoDate);
  });
}

}  // namespace tarvel
