#include "mainwindow/CellFlowLayout.h"

#include <algorithm>

namespace tarvel {

CellFlowLayout::CellFlowLayout() : rows_{{kInset, 0.0, 0}} {}

CellFlowLayout::CellFlowLayout(const Metrics& metrics, std::size_t cellCount, const PictureSize& pictureSize,
                               const CaptionHeight& captionHeight)
    : metrics_(metrics) {
  rects_.reserve(cellCount);
  double x = kInset;
  double pictures = 0.0;  // of the open row: the highest picture, and the highest caption
  double caption = 0.0;
  for (std::size_t cell = 0; cell < cellCount; ++cell) {
    double height = 0.0;
    const double width = pictureWidth(pictureSize(cell), height);
    const double cellWidth = 2 * metrics_.margin + width;
    if (cell == 0 || metrics_.width - kInset < x + cellWidth) {
      if (cell > 0) closeRow(pictures, caption);
      rows_.push_back({y_, 0.0, cell});
      x = kInset;
      pictures = caption = 0.0;
    }
    pictures = std::max(pictures, height);
    if (hasCaptions()) caption = std::max(caption, captionHeight(cell, width));
    rects_.push_back({x, y_, cellWidth, 0.0});
    x += cellWidth;
  }
  if (cellCount > 0) closeRow(pictures, caption);
  rows_.push_back({y_, 0.0, cellCount});
}

bool CellFlowLayout::isUsable(Size pixels) {
  const auto inRange = [](double side) { return side >= 1.0 && side <= kLargestSide; };
  return inRange(pixels.width) && inRange(pixels.height);
}

double CellFlowLayout::pictureWidth(std::optional<Size> pixels, double& height) const {
  if (!pixels || !isUsable(*pixels)) {
    height = metrics_.photoHeight;
    return metrics_.photoHeight * kEmptyProportions;
  }
  const double scale = std::min(metrics_.photoHeight / pixels->height, 1.0);
  height = scale * pixels->height;
  return scale * pixels->width;
}

void CellFlowLayout::closeRow(double pictures, double caption) {
  Row& row = rows_.back();
  row.captionBoundary = metrics_.margin + pictures;
  double height = 2 * metrics_.margin + pictures;
  if (caption > 0.0) height += caption + kCaptionGap;
  for (std::size_t cell = row.startIndex; cell < rects_.size(); ++cell) rects_[cell].height = height;
  y_ += height;
}

double CellFlowLayout::viewHeight(double roomHeight) const {
  return std::max(rows_.back().yOffset + kInset, roomHeight);
}

std::optional<std::size_t> CellFlowLayout::rowAt(double y) const {
  auto low = std::ptrdiff_t{0};
  auto high = static_cast<std::ptrdiff_t>(rows_.size()) - 2;
  while (low <= high) {
    const std::ptrdiff_t middle = (low + high) / 2;
    const auto row = static_cast<std::size_t>(middle);
    if (rows_[row].yOffset > y) {
      high = middle - 1;
    } else if (rows_[row + 1].yOffset >= y) {
      return row;
    } else {
      low = middle + 1;
    }
  }
  return std::nullopt;
}

std::optional<std::size_t> CellFlowLayout::cellAt(Point point) const {
  const std::optional<std::size_t> row = rowAt(point.y);
  if (!row) return std::nullopt;
  auto low = static_cast<std::ptrdiff_t>(rows_[*row].startIndex);
  auto high = static_cast<std::ptrdiff_t>(rows_[*row + 1].startIndex) - 1;
  while (low <= high) {
    const std::ptrdiff_t middle = (low + high) / 2;
    const auto cell = static_cast<std::size_t>(middle);
    if (rects_[cell].x > point.x) {
      high = middle - 1;
    } else if (rects_[cell].maxX() >= point.x) {
      return cell;
    } else {
      low = middle + 1;
    }
  }
  return std::nullopt;
}

std::pair<std::size_t, std::size_t> CellFlowLayout::rowsBetween(double top, double bottom) const {
  const auto last = rows_.end() - 1;
  // The row that begins at or above the top may reach into the band.
  auto first =
      std::upper_bound(rows_.begin(), last, top, [](double y, const Row& row) { return y < row.yOffset; });
  if (first != rows_.begin()) --first;
  const auto end =
      std::lower_bound(first, last, bottom, [](const Row& row, double y) { return row.yOffset < y; });
  return {static_cast<std::size_t>(first - rows_.begin()), static_cast<std::size_t>(end - rows_.begin())};
}

const CellFlowLayout::Row& CellFlowLayout::rowOf(std::size_t cell) const {
  return *(std::upper_bound(rows_.begin(), rows_.end() - 1, cell,
                            [](std::size_t index, const Row& row) { return index < row.startIndex; }) -
           1);
}

Rect CellFlowLayout::pictureBox(std::size_t cell) const {
  const Rect& rect = rects_[cell];
  return {rect.x + metrics_.margin, rect.y + metrics_.margin, rect.width - 2 * metrics_.margin,
          rowOf(cell).captionBoundary - metrics_.margin};
}

double CellFlowLayout::captionTop(std::size_t cell) const {
  return rects_[cell].y + rowOf(cell).captionBoundary + kCaptionGap;
}

std::optional<std::size_t> CellFlowLayout::neighbour(std::optional<std::size_t> selected, Way way) const {
  if (rects_.empty()) return std::nullopt;
  const std::size_t last = rects_.size() - 1;
  if (way == Way::previous) {
    if (!selected) return last;
    return *selected > 0 ? std::optional(*selected - 1) : std::nullopt;
  }
  if (!selected) return 0;
  return *selected < last ? std::optional(*selected + 1) : std::nullopt;
}

}  // namespace tarvel
