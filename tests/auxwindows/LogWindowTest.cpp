#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

#include "auxwindows/LogWindowController.h"
#include "schedule/ScheduleWorld.h"

namespace tarvel::test {
namespace {

TEST(LogRowTest, TabsLineUpAndWhatIsTooWideIsCut) {
  const QFontMetricsF metrics(systemFont(12.0));
  const auto width = [&](const char* text) { return metrics.horizontalAdvance(QString::fromUtf8(text)); };
  const auto pieces = layoutLogRow("\t12\tname\tvalue\tmore", 2000, metrics);
  ASSERT_EQ(pieces.size(), 4U);
  EXPECT_NEAR(pieces[0].x + width("12"), 85.0, 0.01) << "right";
  EXPECT_EQ(pieces[1].x, 100.0);
  EXPECT_EQ(pieces[2].x, 350.0);
  EXPECT_NEAR(pieces[3].x, 350.0 + width("value") + width(" "), 0.01) << "beyond the last stop";

  for (const char* text :
       {"a line that is much too long for the room it has", "two\nlines", "\t\twide enough?"}) {
    const auto cut = layoutLogRow(QString::fromUtf8(text), 120, metrics);
    ASSERT_FALSE(cut.empty());
    EXPECT_TRUE(cut.back().text.endsWith(u'…')) << text;
    EXPECT_LE(cut.back().x + metrics.horizontalAdvance(cut.back().text), 120.5) << text;
  }
  EXPECT_TRUE(layoutLogRow("", 100, metrics).empty());
}

class LogWindowTest : public testing::Test {
 protected:
  void add(int count) {
    for (int i = 0; i < count; ++i) world_.errorLog->addMessage("message " + std::to_string(++added_));
    world_.runUntilIdle();
  }
  LogView& view() { return window_->logView(); }
  void open() {
    window_ = std::make_unique<LogWindowController>(world_.context, *world_.errorLog, "Error Log");
    EXPECT_EQ(window_->countField().text(), "");
    window_->showWindow();
    world_.runUntilIdle();
  }

  ScheduleWorld world_;
  int added_ = 0;
  std::unique_ptr<LogWindowController> window_;
};

TEST_F(LogWindowTest, FollowsItsLog) {
  open();
  EXPECT_EQ(window_->countField().text(), "No messages");
  EXPECT_FALSE(window_->clearButton().isEnabled() || window_->copyButton().isEnabled());
  EXPECT_FALSE(window_->validateMenuItem({"copyAsText:"})->enabled);
  add(1);
  EXPECT_EQ(window_->countField().text(), "1 message");
  EXPECT_EQ(view().messages()[0].text, "3/18/2026 10:00:00 am message 1");
  EXPECT_TRUE(window_->clearButton().isEnabled() && window_->copyButton().isEnabled());
  add(2);
  window_->copyButton().click();
  EXPECT_EQ(QGuiApplication::clipboard()->text(),
            "3/18/2026 10:00:00 am message 1\n3/18/2026 10:00:00 am message 2\n"
            "3/18/2026 10:00:00 am message 3\n");
  add(497);
  EXPECT_EQ(window_->countField().text(), "500 messages");
  EXPECT_EQ(view().height(), 500 * 18 + 6);
  setTextScale(1.5);
  QGuiApplication::processEvents();
  EXPECT_EQ(view().height(), 500 * 27 + 6);
  setTextScale(1.0);
  window_->clearButton().click();
  world_.runUntilIdle();
  EXPECT_EQ(window_->countField().text(), "No messages");
  EXPECT_EQ(view().height(), view().scrollArea().viewport()->height());
  EXPECT_TRUE(world_.errorLog->logMessages().empty());
}

TEST_F(LogWindowTest, NewRowsComeIntoSightAndWindowsThatHaveClosedHearNothing) {
  open();
  add(300);
  QScrollBar& bar = *view().scrollArea().verticalScrollBar();
  // The animation runs on the toolkit's clock: what is jumped over at once tells that it is on its way.
  EXPECT_GT(bar.value(), bar.maximum() / 2);
  view().scrollsToBottom = false;
  add(1);
  EXPECT_EQ(bar.value(), 0);
  window_->window()->close();
  add(1);
  EXPECT_EQ(view().messages().size(), 301U);
  EXPECT_EQ(world_.application.removed.size(), 1U);
}

}  // namespace
}  // namespace tarvel::test
