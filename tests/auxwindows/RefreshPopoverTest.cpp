#include <QScrollBar>

#include "auxwindows/CautionPopoverViewController.h"
#include "auxwindows/RefreshPopoverOpener.h"
#include "auxwindows/RefreshPopoverViewController.h"
#include "schedule/ScheduleWorld.h"
#include "ui/Window.h"

namespace tarvel::test {
namespace {

struct Thing : RefreshableProtocol {
  std::string refreshName() const override { return "<b>North</b> & South"; }
  std::optional<Instant> lastRefreshTimeStamp() const override {
    ++looks;
    return stamp;
  }
  bool refreshInProgress() const override { return inProgress; }
  double secondsUntilRefresh() const override { return next; }
  DownloadErrorKind errorKind() const override { return kind; }
  std::string errorLog() const override { return log; }
  void refreshNow() override { ++refreshes; }

  std::optional<Instant> stamp;
  bool inProgress = false;
  double next = -1.0;
  DownloadErrorKind kind = DownloadErrorKind::noError;
  std::string log;
  int refreshes = 0;
  mutable int looks = 0;  ///< how often the popover has brought its texts up to date
};

class RefreshPopoverTest : public testing::Test {
 protected:
  RefreshPopoverTest() {
    button_ = new QPushButton(&window_);
    window_.setFrame({100, 100, 400, 300});
    window_.makeKeyAndOrderFront();
    world_.clockTimer.start();
    world_.runUntilIdle();
    QApplication::processEvents();
  }
  ~RefreshPopoverTest() override { settle(); }

  void open() { opener_.showPopover(thing_, *button_); }
  void announce(const std::shared_ptr<Thing>& about) {
    world_.sim.notifications.postNotification(kRefreshStatusChanged, about);
    world_.runUntilIdle();
  }
  void fail() {
    thing_->kind = DownloadErrorKind::connectionError;
    thing_->log = "An error.\n\nAnother one.";
    announce(thing_);
  }
  void settle() { QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
  StatusPopoverViewController& shown() { return *opener_.controller(); }
  bool showsCaution() { return dynamic_cast<CautionPopoverViewController*>(opener_.controller()) != nullptr; }
  QPlainTextEdit& message() { return dynamic_cast<CautionPopoverViewController&>(shown()).messageView(); }
  QString last() { return shown().lastRefreshTimeField().text(); }
  QString next() { return shown().nextRefreshTimeField().text(); }

  ScheduleWorld world_;
  std::shared_ptr<Thing> thing_ = std::make_shared<Thing>();
  std::shared_ptr<Thing> other_ = std::make_shared<Thing>();
  Window window_;
  QPushButton* button_;
  RefreshPopoverOpener opener_{world_.context};
};

TEST_F(RefreshPopoverTest, TextsTellHowTheThingStands) {
  const Instant now = world_.sim.world.now();
  const struct {
    double next;
    const char *lastText, *nextText;
    std::optional<Instant> stamp;
    bool inProgress, frequent;
  } cases[] = {
      {-1.0, "Never", "", {}, false, false},
      {301.0, "59 sec ago", "5 minutes", now - 59.5, false, true},
      {301.0, "60 sec ago", "5 minutes", now - 60.0, false, false},
      {300.0, "1 hr 5 min ago", "5:00", now - 3900.0, false, true},
      {14'400.0, "1 hour ago", "4 hours", now - 3580.0, false, false},
      {14'400.0, "1 hour ago", "In progress…", now - 3580.0, true, true},
      {-1.0, "0 sec ago", "", now + 100.0, false, true},
  };
  for (const auto& c : cases) {
    thing_->stamp = c.stamp;
    thing_->next = c.next;
    thing_->inProgress = c.inProgress;
    open();
    EXPECT_EQ(shown().nameField().text(), "<b>North</b> & South");
    EXPECT_EQ(last(), c.lastText);
    EXPECT_EQ(next(), c.nextText);
    EXPECT_EQ(shown().frequentUpdates(), c.frequent) << c.lastText;
    EXPECT_EQ(shown().refreshNowButton().isEnabled(), !c.inProgress);
    opener_.close();
  }
}

TEST_F(RefreshPopoverTest, CountsOnlyWhileThereIsSomethingToCount) {
  thing_->stamp = world_.sim.world.now() - 57.0;
  thing_->next = 301.0;
  open();
  world_.sim.world.runFor(2.0);
  EXPECT_EQ(last(), "59 sec ago");
  world_.sim.world.runFor(2.0);
  EXPECT_EQ(last(), "60 sec ago");
  const int looks = thing_->looks;
  world_.sim.world.runFor(30.0);
  EXPECT_EQ(thing_->looks, looks);
  thing_->next = 300.0;
  world_.sim.notifications.postNotification(kCurrentTimeOfDayChanged, other_);
  world_.runUntilIdle();
  EXPECT_EQ(next(), "5:00") << "once a minute all is brought up to date";
  thing_->next = 299.0;
  world_.sim.world.runFor(1.0);
  EXPECT_EQ(next(), "4:59");
}

TEST_F(RefreshPopoverTest, ChangesIntoCautionAndBackAtTheSameButton) {
  open();
  const Popover* first = opener_.openPopover();
  const int looks = thing_->looks;
  thing_->kind = DownloadErrorKind::connectionError;
  announce(other_);
  EXPECT_EQ(opener_.openPopover(), first) << "another's news";
  EXPECT_EQ(thing_->looks, looks);
  fail();
  ASSERT_TRUE(opener_.isOpen());
  EXPECT_TRUE(showsCaution());
  EXPECT_EQ(shown().button, button_);
  EXPECT_EQ(message().toPlainText(), "An error.\n\nAnother one.");
  settle();
  EXPECT_EQ(RefreshPopoverViewController::liveCount(), 0);
  thing_->kind = DownloadErrorKind::noError;
  announce(thing_);
  ASSERT_TRUE(opener_.isOpen());
  EXPECT_FALSE(showsCaution());
  settle();
  EXPECT_EQ(CautionPopoverViewController::liveCount(), 0);
}

TEST_F(RefreshPopoverTest, TheCatalogueIsKnownByItsNotifications) {
  opener_.showPopover(unowned(world_.dataModel), *button_);
  world_.dataModel.refreshState.errorKind = DownloadErrorKind::connectionError;
  world_.dataModel.postNotification(kRefreshStatusChanged);
  world_.runUntilIdle();
  EXPECT_TRUE(showsCaution());
}

TEST_F(RefreshPopoverTest, TheLogGoesToItsEndAndKeepsWhatIsSelected) {
  fail();
  for (int i = 0; i < 100; ++i) thing_->log += "\n\nError number " + std::to_string(i);
  open();
  QApplication::processEvents();
  const QScrollBar& bar = *message().verticalScrollBar();
  EXPECT_GT(bar.maximum(), 0);
  EXPECT_EQ(bar.value(), bar.maximum());
  message().moveCursor(QTextCursor::Start);
  message().moveCursor(QTextCursor::EndOfLine, QTextCursor::KeepAnchor);
  thing_->next = 200.0;
  world_.sim.notifications.postNotification(kCurrentTimeOfDayChanged, other_);
  world_.sim.world.runFor(5.0);
  EXPECT_EQ(message().textCursor().selectedText(), "An error.");
  thing_->log += "\n\nThe last one";
  announce(thing_);
  EXPECT_EQ(bar.value(), bar.maximum());
  EXPECT_TRUE(message().textCursor().atEnd());
}

TEST_F(RefreshPopoverTest, RefreshNowAsksOnceAndBeginsToCount) {
  open();
  shown().refreshNowButton().click();
  EXPECT_EQ(thing_->refreshes, 1);
  EXPECT_TRUE(world_.sim.console.printed("Begin refresh (user request)"));
  EXPECT_TRUE(shown().frequentUpdates());
  thing_->inProgress = true;
  shown().refreshNow();
  EXPECT_EQ(thing_->refreshes, 1);
}

TEST_F(RefreshPopoverTest, OneAtATimeUntilItCloses) {
  open();
  const Popover* first = opener_.openPopover();
  opener_.showPopover(other_, *button_);
  EXPECT_EQ(opener_.openPopover(), first);
  opener_.openPopover()->close();
  EXPECT_FALSE(opener_.isOpen());
  thing_->next = 10.0;
  const int looks = thing_->looks;
  announce(thing_);
  world_.sim.world.runFor(3.0);
  EXPECT_EQ(thing_->looks, looks) << "a closed popover hears nothing";
  settle();
  EXPECT_EQ(RefreshPopoverViewController::liveCount(), 0);
}

}  // namespace
}  // namespace tarvel::test
