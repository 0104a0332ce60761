#include "auxwindows/LogRow.h"

#include <algorithm>

#include "ui/Fonts.h"

namespace tarvel {
namespace {

struct TabStop {
  double place;
  TextAlignment alignment;
};

constexpr TabStop kTabStops[] = {
    {85.0, TextAlignment::right}, {100.0, TextAlignment::left}, {350.0, TextAlignment::left}};

const QString kEllipsis = QStringLiteral("…");

/// Where the piece begins that follows a tab at `at`. Beyond the last stop a tab is as good as a blank.
double placeAfterTab(double at, double pieceWidth, double blankWidth) {
  const double scale = textScale();
  const auto* const stop =
      std::find_if(std::begin(kTabStops), std::end(kTabStops),
                   [&](const TabStop& candidate) { return candidate.place * scale > at; });
  if (stop == std::end(kTabStops)) return at + blankWidth;
  const double place = stop->place * scale;
  return stop->alignment == TextAlignment::right ? std::max(at, place - pieceWidth) : place;
}

}  // namespace

std::vector<LogRowPiece> layoutLogRow(const QString& text, double width, const QFontMetricsF& metrics) {
  const auto lineEnd = text.indexOf(u'\n');
  QString line = lineEnd < 0 ? text : text.left(lineEnd) + kEllipsis;
  line.remove(u'\r');
  std::vector<LogRowPiece> pieces;
  double at = 0.0;
  bool isFirst = true;
  for (QString& piece : line.split(u'\t')) {
    const double pieceWidth = metrics.horizontalAdvance(piece);
    if (!isFirst) at = placeAfterTab(at, pieceWidth, metrics.horizontalAdvance(u' '));
    isFirst = false;
    const bool fits = at + pieceWidth <= width;
    if (!fits) piece = metrics.elidedText(piece, Qt::ElideRight, std::max(0.0, width - at));
    if (!piece.isEmpty()) pieces.push_back({piece, at});
    if (!fits) break;
    at += pieceWidth;
  }
  return pieces;
}

}  // namespace tarvel
