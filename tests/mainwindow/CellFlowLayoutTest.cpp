#include "mainwindow/CellFlowLayout.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tarvel {

static void PrintTo(const CellFlowLayout::Row& row, std::ostream* out) {
  *out << row.yOffset << " " << row.captionBoundary << " " << row.startIndex;
}

namespace {

using Rows = std::vector<CellFlowLayout::Row>;
using Sizes = std::vector<std::optional<Size>>;
using Cell = std::optional<std::size_t>;

CellFlowLayout layoutOf(const CellFlowLayout::Metrics& metrics, const Sizes& sizes, double caption = 0.0) {
  return {metrics, sizes.size(), [&](std::size_t cell) { return sizes[cell]; },
          [=](std::size_t cell, double) { return cell == 0 ? caption : 0.0; }};
}

TEST(CellFlowLayoutTest, RowsAreFilledFromTheLeft) {
  const Size wide{200, 100}, narrow{50, 100}, huge{60'000, 100}, endless{HUGE_VAL, 1}, none{-5, NAN};
  using Metrics = CellFlowLayout::Metrics;
  // What it is about, the metrics, the pictures, the first one's caption, the rows and the last cell's width.
  const std::tuple<const char*, Metrics, Sizes, double, Rows, double> cases[] = {
      {"captioned", {510, 120, 5}, {{{480, 240}}, {{240, 120}}}, 20, {{5, 125, 0}, {159, 0, 2}}, 250},
      {"no captions at 100",
       {500, 100, 1},
       {wide, wide, wide},
       20,
       {{5, 101, 0}, {107, 101, 2}, {209, 0, 3}},
       202},
      {"just wide enough", {414, 100, 1}, {wide, wide}, 0, {{5, 101, 0}, {107, 0, 2}}, 202},
      {"just too narrow", {413, 100, 1}, {wide, wide}, 0, {{5, 101, 0}, {107, 101, 1}, {209, 0, 2}}, 202},
      {"not enlarged", {500, 100, 2}, {{{50, 40}}, {{30, 60}}}, 0, {{5, 62, 0}, {69, 0, 2}}, 34},
      {"too wide",
       {500, 100, 2},
       {narrow, huge, narrow},
       0,
       {{5, 102, 0}, {109, 102, 1}, {213, 102, 2}, {317, 0, 3}},
       54},
      {"without a picture", {500, 200, 5}, {std::nullopt}, 0, {{5, 205, 0}, {215, 0, 1}}, 160},
      {"sizes that are none", {500, 200, 5}, {{{0, 100}}, endless, none}, 0, {{5, 205, 0}, {215, 0, 3}}, 160},
      {"no cells", {500, 200, 5}, {}, 0, {{5, 0, 0}}, 0}};
  for (const auto& [what, metrics, sizes, caption, rows, widthOfLast] : cases) {
    const CellFlowLayout layout = layoutOf(metrics, sizes, caption);
    EXPECT_EQ(layout.rows(), rows) << what;
    EXPECT_EQ(sizes.empty() ? 0.0 : layout.rects().back().width, widthOfLast) << what;
    EXPECT_EQ(layout.viewHeight(10.0), rows.back().yOffset + 5.0) << what;
    EXPECT_EQ(layout.viewHeight(9'999.0), 9'999.0);
  }
  EXPECT_EQ(CellFlowLayout().rows(), Rows({{5, 0, 0}}));
}

TEST(CellFlowLayoutTest, CellsShareTheirRowsHeightAndHoldPictureAndCaption) {
  const CellFlowLayout layout = layoutOf({500, 120, 5}, {{{120, 120}}, {{60, 60}}}, 20);
  EXPECT_EQ(layout.rects(), std::vector<Rect>({{5, 5, 130, 154}, {135, 5, 70, 154}}));
  EXPECT_EQ(layout.pictureBox(1), Rect({140, 10, 60, 120}));
  EXPECT_EQ(layout.captionTop(1), 134);
}

TEST(CellFlowLayoutTest, HitsAndRowsInSight) {
  // Two cells in the first row, one in the second.
  const CellFlowLayout layout = layoutOf({413, 100, 1}, {{{200, 100}}, {{100, 100}}, {{200, 100}}});
  const std::pair<Point, Cell> hits[] = {{{4, 50}, {}},   {{5, 50}, 0},     {{206, 50}, 0}, {{208, 50}, 1},
                                         {{310, 50}, {}}, {{50, 4}, {}},    {{50, 5}, 0},   {{50, 107}, 0},
                                         {{50, 108}, 2},  {{300, 150}, {}}, {{50, 209}, 2}, {{50, 210}, {}},
                                         {{-1, -1}, {}}};
  for (const auto& [point, hit] : hits) EXPECT_EQ(layout.cellAt(point), hit) << point.x << " " << point.y;
  EXPECT_FALSE(CellFlowLayout().cellAt({10, 10}));

  const std::tuple<double, double, std::pair<std::size_t, std::size_t>> bands[] = {
      {0, 5, {0, 0}}, {0, 6, {0, 1}}, {50, 107, {0, 1}}, {50, 108, {0, 2}}, {108, 999, {1, 2}}};
  for (const auto& [top, bottom, met] : bands) EXPECT_EQ(layout.rowsBetween(top, bottom), met) << bottom;
  EXPECT_EQ(CellFlowLayout().rowsBetween(0, 99), std::make_pair(std::size_t{0}, std::size_t{0}));
}

TEST(CellFlowLayoutTest, KeysGoFromCellToCell) {
  const CellFlowLayout layout = layoutOf({500, 50, 1}, {{{9, 9}}, {{9, 9}}, {{9, 9}}});
  using Way = CellFlowLayout::Way;
  const std::tuple<Cell, Way, Cell> cases[] = {{{}, Way::previous, 2}, {{}, Way::next, 0},
                                               {0, Way::previous, {}}, {1, Way::previous, 0},
                                               {1, Way::next, 2},      {2, Way::next, {}}};
  for (const auto& [selected, way, next] : cases) EXPECT_EQ(layout.neighbour(selected, way), next);
  EXPECT_FALSE(CellFlowLayout().neighbour({}, Way::next));
}

}  // namespace
}  // namespace tarvel
