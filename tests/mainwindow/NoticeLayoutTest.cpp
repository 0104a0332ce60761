#include "mainwindow/NoticeLayout.h"

#include <gtest/gtest.h>

namespace tarvel {
namespace {

TEST(NoticeLayout, RowsAreAsHighAsTheirTexts) {
  const struct {
    NoticeHeights heights;
    double height;
  } cases[] = {{{17.0, 45.0, 11.0}, 10 + 17 + 6 + 45 + 6 + 11 + 10},
               {{17.0, std::nullopt, 11.0}, 10 + 17 + 6 + 11 + 10},
               {{std::nullopt, 45.0, 11.0}, 10 + 45 + 6 + 11 + 10},
               {{std::nullopt, std::nullopt, 11.0}, 10 + 11 + 10}};
  std::vector<NoticeHeights> rows;
  double y = 0.0;
  for (const auto& c : cases) {
    rows.push_back(c.heights);
    const NoticeLayout layout(rows);
    EXPECT_EQ(layout.rowRect(rows.size() - 1, 300.0), (Rect{0.0, y, 300.0, c.height}));
    const NoticeLayout::Texts texts = layout.textsOf(rows.size() - 1, 300.0);
    EXPECT_EQ(texts.dateLine, (Rect{20.0, y + c.height - 21.0, 260.0, 11.0}));
    const double detailY = texts.summary ? y + 33.0 : y + 10.0;
    EXPECT_EQ(texts.detail.value_or(Rect{0.0, detailY}).y, detailY);
    y += c.height;
    EXPECT_EQ(layout.viewHeight(0.0), y + 10.0);
    EXPECT_EQ(layout.viewHeight(5000.0), 5000.0);
  }
  EXPECT_EQ(NoticeLayout().offsets(), std::vector<double>{0.0});
  EXPECT_EQ(NoticeLayout().viewHeight(8.0), 10.0);
}

TEST(NoticeLayout, TheRowAtAHeight) {
  const NoticeLayout none, three(std::vector<NoticeHeights>(3, {std::nullopt, std::nullopt, 10.0}));
  const struct {
    double y;
    std::optional<std::size_t> row;
  } cases[] = {{-1.0, {}}, {0.0, 0}, {29.9, 0}, {30.1, 1}, {60.0, 1}, {60.1, 2}, {90.0, 2}, {90.1, {}}};
  for (const auto& c : cases) {
    EXPECT_EQ(three.rowAt(c.y), c.row) << c.y;
    EXPECT_EQ(none.rowAt(c.y), std::nullopt);
  }
}

}  // namespace
}  // namespace tarvel
