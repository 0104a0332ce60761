#include "schedule/PrintedSheet.h"

#include <QPagedPaintDevice>
#include <QPainter>

#include "model/RinkData.h"
#include "schedule/ItemPainter.h"

namespace tarvel {
namespace {

constexpr double kPointsPerInch = 72.0;
constexpr double kFooterWidth = 150.0;
constexpr double kFooterHeight = 15.0;
constexpr double kFooterDrop = 20.0;  ///< of its lower end, below the sheet's contents
constexpr double kFooterInset = 2.0;

const TextAttributes kFooterAttributes{7.0, FontWeight::regular, kBlack, kRightStyle};

}  // namespace

Status printSheet(QPagedPaintDevice& device, const std::function<void(QPainter&, Size)>& paint) {
  QPageLayout page = device.pageLayout();
  page.setOrientation(QPageLayout::Portrait);
  page.setMode(QPageLayout::FullPageMode);  // the margins are those of this sheet, not of the printer
  if (!device.setPageLayout(page)) return Error{"The printer doesn't take the page's layout"};
  const FixedTextScale paperIsNoScreen;
  QPainter painter;
  if (!painter.begin(&device)) return Error{"Unable to begin the page"};
  painter.scale(device.logicalDpiX() / kPointsPerInch, device.logicalDpiY() / kPointsPerInch);
  const QRectF paper = page.fullRect(QPageLayout::Point);
  paint(painter, {paper.width(), paper.height()});
  if (!painter.end()) return Error{"Unable to finish the page"};
  return Done{};
}

void writeOnSheet(QPainter& painter, const Rect& rect, const std::string& text,
                  const TextAttributes& attributes) {
  const ItemClip clip(painter, rect);
  draw(painter, rect, AttributedText(text, attributes), TextFit::wrapAndTruncate, kPaper);
}

std::string printedRinkName(const RinkData* rink) {
  if (!rink) return {};
  const auto info = rink->rinkInfo();
  return info ? info->name : "unknown rink";
}

void paintSheetFooter(QPainter& painter, Size paper, PackedDate today) {
  const double bottom = paper.height - kSheetBottomMargin + kFooterDrop;
  const double right = paper.width - kSheetRightMargin - kFooterInset;
  writeOnSheet(painter, {right - kFooterWidth, bottom - kFooterHeight, kFooterWidth, kFooterHeight},
               "Printed " + shortDateText(today), kFooterAttributes);
}

}  // namespace tarvel
