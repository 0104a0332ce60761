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
  constexpr double kHuge = 60'000.0, kInfinite = HUGE_VAL;
  const struct {
    const char* what;
    CellFlowLayout::Metrics metrics;
    Sizes sizes;
    double caption;
    Rows rows;
    double widthOfLast;
  } cases[] = {
      {"pictures twice their height, captioned",
       {510, 120, 5},
       {{{480, 240}}, {{240, 120}}},
       20,
       {{5, 125, 0}, {159, 0, 2}},
       250},
      {"no captions at 100",
       {500, 100, 1},
       {{{200, 100}}, {{200, 100}}, {{200, 100}}},
       20,
       {{5, 101, 0}, {107, 101, 2}, {209, 0, 3}},
       202},
      {"just wide enough", {414, 100, 1}, {{{200, 100}}, {{200, 100}}}, 0, {{5, 101, 0}, {107, 0, 2}}, 202},
      {"just too narrow",
       {413, 100, 1},
       {{{200, 100}}, {{200, 100}}},
       0,
       {{5, 101, 0}, {107, 101, 1}, {209, 0, 2}},
       202},
      {"small ones aren't enlarged",
       {500, 100, 2},
       {{{50, 40}}, {{30, 60}}},
       0,
       {{5, 62, 0}, {69, 0, 2}},
       34},
      {"wider than the view, alone in its row",
       {500, 100, 2},
       {{{50, 100}}, {{kHuge, 100}}, {{50, 100}}},
       0,
       {{5, 102, 0}, {109, 102, 1}, {213, 102, 2}, {317, 0, 3}},
       54},
      {"without a picture", {500, 200, 5}, {std::nullopt}, 0, {{5, 205, 0}, {215, 0, 1}}, 160},
      {"sizes that are none",
       {500, 200, 5},
       {{{0, 100}}, {{kInfinite, 1}}, {{-5, NAN}}},
       0,
       {{5, 205, 0}, {215, 0, 3}},
       160},
      {"no cells", {500, 200, 5}, {}, 0, {{5, 0, 0}}, 0},
  };
  for (const auto& c : cases) {
    const CellFlowLayout layout = layoutOf(c.metrics, c.sizes, c.caption);
    EXPECT_EQ(layout.rows(), c.rows) << c.what;
    EXPECT_EQ(c.sizes.empty() ? 0.0 : layout.rects().back().width, c.widthOfLast) << c.what;
    EXPECT_EQ(layout.viewHeight(10.0), c.rows.back().yOffset + 5.0) << c.what;
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
  const struct {
    Point point;
    Cell cell;
  } hits[] = {{{4, 50}, {}},  {{5, 50}, 0},    {{206, 50}, 0}, {{208, 50}, 1}, {{310, 50}, {}},
              {{50, 4}, {}},  {{50, 5}, 0},    {{50, 107}, 0}, {{50, 108}, 2}, {{300, 150}, {}},
              {{50, 209}, 2}, {{50, 210}, {}}, {{-1, -1}, {}}};
  for (const auto& hit : hits)
    EXPECT_EQ(layout.cellAt(hit.point), hit.cell) << hit.point.x << " " << hit.point.y;
  EXPECT_FALSE(CellFlowLayout().cellAt({10, 10}));

  const struct {
    double top, bottom;
    std::pair<std::size_t, std::size_t> rows;
  } bands[] = {{0, 5, {0, 0}}, {0, 6, {0, 1}}, {50, 107, {0, 1}}, {50, 108, {0, 2}}, {108, 999, {1, 2}}};
  for (const auto& band : bands)
    EXPECT_EQ(layout.rowsBetween(band.top, band.bottom), band.rows) << band.bottom;
  EXPECT_EQ(CellFlowLayout().rowsBetween(0, 99), std::make_pair(std::size_t{0}, std::size_t{0}));
}

TEST(CellFlowLayoutTest, KeysGoFromCellToCell) {
  const CellFlowLayout layout = layoutOf({500, 50, 1}, {{{9, 9}}, {{9, 9}}, {{9, 9}}});
  using Way = CellFlowLayout::Way;
  const struct {
    Cell selected;
    Way way;
    Cell neighbour;
  } cases[] = {{{}, Way::previous, 2}, {{}, Way::next, 0}, {0, Way::previous, {}},
               {1, Way::previous, 0},  {1, Way::next, 2},  {2, Way::next, {}}};
  for (const auto& c : cases) EXPECT_EQ(layout.neighbour(c.selected, c.way), c.neighbour);
  EXPECT_FALSE(CellFlowLayout().neighbour({}, Way::next));
}

}  // namespace
}  // namespace tarvel
