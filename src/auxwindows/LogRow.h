#pragma once
#include <QFontMetricsF>
#include <QString>
#include <optional>
#include <vector>

#include "ui/AttributedText.h"

namespace tarvel {

/// A row of a log view: one line of text, and its look if that isn't the view's own.
struct Message {
  QString text;
  std::optional<TextAttributes> attr;
  friend bool operator==(const Message&, const Message&) = default;
};

/// A piece of a row between two tabs, from `x` on. Logical pixels from the row's left side.
struct LogRowPiece {
  QString text;
  double x = 0.0;
  friend bool operator==(const LogRowPiece&, const LogRowPiece&) = default;
};

/// The row's text at its tab stops, cut with an ellipsis where it would leave the width. A line end within
/// the text counts as such an end of the room: one row is one line.
std::vector<LogRowPiece> layoutLogRow(const QString& text, double width, const QFontMetricsF& metrics);

}  // namespace tarvel
