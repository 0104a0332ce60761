#include <fmt/format.h>

#include <QPainter>
#include <QScrollArea>
#include <QTest>
#include <QVariantAnimation>
#include <QWheelEvent>

#include "ScheduleWorld.h"
#include "schedule/PagingView.h"
#include "schedule/SwipeGestureController.h"
#include "ui/Window.h"

namespace tarvel {
namespace {

constexpr int kWidth = 200;
constexpr int kHeight = 100;

TEST(PagePlaces, FollowTheAmountOfASwipe) {
  const PagePlaces rest = pagesAtRest(kWidth);
  // The swipe's amount, whether there are pages before and after, and what follows.
  const std::tuple<const char*, double, bool, bool, GestureStep> cases[] = {
      {"at rest", 0.0, true, true, {rest, PageTurn::none}},
      {"uncovers the next", -0.25, true, true, {{{-200, 1}, {-50, 1}, {0, 0.25}}, PageTurn::none}},
      {"next", -1.0, true, true, {rest, PageTurn::toNext}},
      {"the previous slides in", 0.25, true, true, {{{-150, 1}, {0, 0.75}, {0, 0}}, PageTurn::none}},
      {"previous", 1.0, true, true, {rest, PageTurn::toPrevious}},
      {"no page after", -1.0, true, false, {{{-200, 1}, {-200, 1}, {0, 0}}, PageTurn::none}},
      {"no page before", 0.5, false, true, {{{-200, 1}, {100, 1}, {0, 0}}, PageTurn::none}},
  };
  for (const auto& [name, amount, before, after, expected] : cases) {
    const GestureStep step = gestureStep(amount, kWidth, before, after);
    EXPECT_EQ(step.places, expected.places) << name;
    EXPECT_EQ(step.turn, expected.turn) << name;
  }
}

TEST(SwipeTracker, ClampsDampensAndDecides) {
  struct Case {
    const char* name;
    double least, most;
    std::vector<QPointF> moves;
    double seconds;  ///< between two moves
    double amount, target;
  };
  const Case cases[] = {
      {"half a page", -1, 1, {{-100, 0}}, 1.0, -0.5, -1.0},
      {"a little, slowly", -1, 1, {{-20, 0}, {-20, 3}}, 1.0, -0.2, 0.0},
      {"a flick", -1, 1, {{20, 0}, {20, 0}}, 0.02, 0.2, 1.0},
      {"a flick back", -1, 1, {{90, 0}, {-40, 0}}, 0.02, 0.25, 0.0},
      {"never across to the other side", -1, 1, {{-40, 0}, {90, 0}}, 1.0, 0.0, 0.0},
      {"never further than a page", -1, 1, {{-900, 0}}, 1.0, -1.0, -1.0},
      {"dampened without a page there", 0, 1, {{-200, 0}}, 0.01, -1.0 / 3.0, 0.0},
      {"up and down turns nothing", -1, 1, {{3, 40}, {-150, 0}}, 1.0, 0.0, 0.0},
  };
  for (const Case& c : cases) {
    SwipeTracker tracker;
    tracker.begin(kWidth, c.least, c.most);
    double amount = 0.0;
    for (const QPointF& move : c.moves) amount = tracker.move(move.x(), move.y(), c.seconds).value_or(0.0);
    EXPECT_DOUBLE_EQ(amount, c.amount) << c.name;
    EXPECT_DOUBLE_EQ(tracker.end(), c.target) << c.name;
  }
}

class Page : public PagedView {
 public:
  Page(NotificationCenter& notifications, int& live) : PagedView(notifications), live_(live) {
    ++live_;
    setFocusPolicy(Qt::StrongFocus);
  }
  ~Page() override { --live_; }
  double heightForAvailableHeight(double height) const override { return std::max(height, wanted); }
  void adjustSize() override {}
  void pageDidChangeSettings() override {}
  void pageDidBecomeCurrent() override { ++timesCurrent; }
  void close() override { isClosing = true; }
  void loadData() override {
    isAwaitingData = false;
    if (resizesPages) pagingView()->adjustSize();
  }

  int number = 0;
  double wanted = 0;
  bool resizesPages = false;  ///< what it has read needs another size
  int timesCurrent = 0;

 protected:
  void draw(QPainter& painter, const Rect&) override { painter.fillRect(rect(), QColor(number * 20, 0, 0)); }

 private:
  int& live_;
};

/// Pages 0 to 9 of which one is in view.
class PagingTest : public testing::Test, public PagingViewDelegateProtocol {
 protected:
  PagingTest() {
    scroller.setFrameShape(QFrame::NoFrame);
    scroller.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroller.setWidget(view);
    view->setDelegate(this);
    view->setPresented(true);
    scroller.resize(kWidth, kHeight);
    scroller.show();
    view->buildPages();
    view->adjustSize();
    log.clear();
  }

  PagedView* newPagedViewForPagingView(PagingView&) override {
    return new Page(world.sim.notifications, livePages);
  }
  void loadView(PagedView& page, PagingView&, int offset) override {
    static_cast<Page&>(page).number = number + offset;
    log.push_back(fmt::format("load {}", offset));
  }
  void reloadView(PagedView& page, PagingView&, int offset) override {
    static_cast<Page&>(page).number = number + offset;
    log.push_back(fmt::format("reload {}", offset));
  }
  bool pagesBeforeCurrent(PagingView&) override { return number > 0; }
  bool pagesAfterCurrent(PagingView&) override { return number < 9; }
  void pagingViewDidGotoNextPage(PagingView&) override { ++number; }
  void pagingViewDidGotoPrevPage(PagingView&) override { --number; }

  std::vector<int> numbers() const {
    std::vector<int> result;
    for (PagedView* page : {view->prevView(), view->currView(), view->nextView()})
      result.push_back(static_cast<Page*>(page)->number);
    return result;
  }
  void wheel(QPoint pixels, QPoint units, Qt::ScrollPhase phase, Qt::KeyboardModifiers modifiers = {}) {
    QWheelEvent event({50, 50}, scroller.viewport()->mapToGlobal(QPointF(50, 50)), pixels, units,
                      Qt::NoButton, modifiers, phase, false);
    QApplication::sendEvent(scroller.viewport(), &event);
  }
  QVariantAnimation& animation() { return *view->findChild<QVariantAnimation*>(); }
  QColor pixel(int x) { return scroller.grab().toImage().pixelColor(x, 50); }

  test::ScheduleWorld world;
  int livePages = 0;
  int number = 5;
  std::vector<std::string> log;
  QScrollArea scroller;
  PagingView* view = new PagingView(world.context);
  SwipeGestureController* swipes = new SwipeGestureController(world.context, *view, scroller);
};

TEST_F(PagingTest, TurnsRecycleThreePagesAndRefillOnlyTheOneThatComesRound) {
  PagedView* const oldNext = view->nextView();
  PagedView* const oldPrevious = view->prevView();
  view->gotoNext();
  EXPECT_EQ(numbers(), (std::vector<int>{5, 6, 7}));
  EXPECT_EQ(log, std::vector<std::string>{"reload 1"});
  EXPECT_EQ(view->currView(), oldNext);
  EXPECT_EQ(view->nextView(), oldPrevious);
  EXPECT_EQ(static_cast<Page*>(oldNext)->timesCurrent, 1);
  EXPECT_EQ(view->nextView()->stackingOrder, 0);
  EXPECT_EQ(pixel(50), QColor(6 * 20, 0, 0));
  log.clear();
  view->gotoPrev();
  EXPECT_EQ(numbers(), (std::vector<int>{4, 5, 6}));
  EXPECT_EQ(log, std::vector<std::string>{"reload -1"});
  number = 9;
  view->reloadAll();
  log.clear();
  view->gotoNext();
  EXPECT_TRUE(log.empty()) << "there is no page after the last one";
}

TEST_F(PagingTest, KeepsTheKeyboardWithThePageInView) {
  for (const bool focused : {true, false}) {
    focused ? view->currView()->setFocus() : view->currView()->clearFocus();
    view->gotoNext();
    EXPECT_EQ(scroller.focusWidget() == view->currView(), focused);
  }
}

TEST_F(PagingTest, IsAsTallAsThePageInViewWantsItToBe) {
  static_cast<Page*>(view->currView())->wanted = 300;
  view->adjustSize();
  EXPECT_EQ(view->size(), QSize(kWidth, 300));
  EXPECT_EQ(view->prevView()->geometry(), QRect(-kWidth, 0, kWidth, 300));
  scroller.resize(kWidth + 50, kHeight);
  EXPECT_EQ(view->currView()->size(), QSize(kWidth + 50, 300)) << "follows the window";
}

TEST_F(PagingTest, GlidesAndLosesNoTurn) {
  view->glideToNext();
  animation().setCurrentTime(100);
  EXPECT_TRUE(view->isTurning());
  EXPECT_LT(view->places().current.x, 0.0);
  EXPECT_EQ(pixel(2), QColor(5 * 20, 0, 0)) << "the page slides off";
  EXPECT_NE(pixel(kWidth - 3), QColor(5 * 20, 0, 0)) << "and uncovers the next";
  EXPECT_EQ(number, 5);
  view->glideToNext();  // ends the first one at once
  EXPECT_EQ(number, 6);
  view->glideToNext();
  animation().setCurrentTime(PagingView::kGlideMilliseconds);
  EXPECT_EQ(number, 8);
  EXPECT_FALSE(view->isTurning());
  EXPECT_EQ(pixel(50), QColor(8 * 20, 0, 0));
}

TEST_F(PagingTest, APageThatIsReadDuringAGlideMayEndIt) {
  static_cast<Page*>(view->currView())->resizesPages = true;
  view->glideToNext();
  view->currView()->needsData();
  animation().setCurrentTime(100);
  EXPECT_EQ(number, 6);
  EXPECT_FALSE(view->isTurning()) << "no picture stays in front of the pages";
}

TEST_F(PagingTest, ATrackpadDragsThePageAndLettingGoDecides) {
  struct Case {
    const char* name;
    int first;
    QPoint pixels;
    double place;  ///< of the current page, while the fingers are down
    int last;
  };
  const Case cases[] = {{"far enough", 5, {-100, 2}, -100.0, 6},
                        {"not far enough", 5, {-40, 0}, -40.0, 5},
                        {"at the last page", 9, {-200, 0}, -kWidth / 3.0, 9},
                        {"scrolls up and down", 5, {0, 90}, 0.0, 5}};
  for (const Case& c : cases) {
    number = c.first;
    wheel({}, {}, Qt::ScrollBegin);
    world.sim.world.runFor(1.0);
    wheel(c.pixels, {}, Qt::ScrollUpdate);
    EXPECT_NEAR(view->places().current.x, c.place, 0.01) << c.name;
    EXPECT_TRUE(swipes->swipeInProgress());
    wheel({}, {}, Qt::ScrollEnd);
    view->finishGlide();
    EXPECT_EQ(number, c.last) << c.name;
    EXPECT_FALSE(view->isTurning()) << c.name;
  }
}

TEST_F(PagingTest, WheelsTurnByNotchesAndTrackpadsWithoutAnEndBySilence) {
  wheel({}, {0, -120}, Qt::NoScrollPhase, Qt::ShiftModifier);
  wheel({}, {-120, 0}, Qt::NoScrollPhase);
  view->finishGlide();
  EXPECT_EQ(number, 7);
  wheel({}, {0, -120}, Qt::NoScrollPhase);
  EXPECT_FALSE(view->isTurning()) << "without Shift the wheel scrolls";
  for (int part = 0; part < 2; ++part) wheel({}, {0, -15}, Qt::NoScrollPhase, Qt::ShiftModifier);
  world.sim.world.runFor(0.2);
  view->finishGlide();
  EXPECT_EQ(number, 7) << "parts of a notch are no pages";
  wheel({}, {-250, 0}, Qt::NoScrollPhase);
  EXPECT_TRUE(swipes->swipeInProgress());
  world.sim.world.runFor(0.2);
  view->finishGlide();
  EXPECT_EQ(number, 8);
}

TEST_F(PagingTest, ClosingLetsGoOfAllPages) {
  view->glideToNext();
  animation().setCurrentTime(100);
  view->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(livePages, 0);
  EXPECT_EQ(view->delegate(), nullptr);
  wheel({}, {-120, 0}, Qt::NoScrollPhase);
  EXPECT_DEATH(view->gotoNext(), "the pages have not been built");
}

}  // namespace
}  // namespace tarvel
