#include "mainwindow/NoticeLayout.h"

#include <algorithm>

namespace tarvel {

double NoticeLayout::textWidth(double width) {
  return std::max(1.0, width - 2 * kTextInset);
}

NoticeLayout::NoticeLayout(const std::vector<NoticeHeights>& rows) : rows_(rows) {
  offsets_.reserve(rows.size() + 1);
  double y = 0.0;
  for (const NoticeHeights& row : rows) {
    offsets_.push_back(y);
    y += kRowMargin;
    if (row.summary) y += *row.summary + kTextGap;
    if (row.detail) y += *row.detail + kTextGap;
    y += row.dateLine + kRowMargin;
  }
  offsets_.push_back(y);
}

double NoticeLayout::viewHeight(double roomHeight) const {
  return std::max(offsets_.back() + kRowMargin, roomHeight);
}

Rect NoticeLayout::rowRect(std::size_t row, double width) const {
  return {0.0, offsets_[row], width, offsets_[row + 1] - offsets_[row]};
}

std::optional<std::size_t> NoticeLayout::rowAt(double y) const {
  auto low = std::ptrdiff_t{0};
  auto high = static_cast<std::ptrdiff_t>(offsets_.size()) - 2;
  while (low <= high) {
    const std::ptrdiff_t middle = (low + high) / 2;
    const auto row = static_cast<std::size_t>(middle);
    if (offsets_[row] > y) {
      high = middle - 1;
    } else if (offsets_[row + 1] >= y) {
      return row;
    } else {
      low = middle + 1;
    }
  }
  return std::nullopt;
}

NoticeLayout::Texts NoticeLayout::textsOf(std::size_t row, double width) const {
  double y = offsets_[row] + kRowMargin;
  const auto place = [&](double height) {
    const Rect rect{kTextInset, y, textWidth(width), height};
    y += height + kTextGap;
    return rect;
  };
  Texts texts;
  if (rows_[row].summary) texts.summary = place(*rows_[row].summary);
  if (rows_[row].detail) texts.detail = place(*rows_[row].detail);
  texts.dateLine = place(rows_[row].dateLine);
  return texts;
}

}  // namespace tarvel
