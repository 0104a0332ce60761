#include "ui/DataLoadingView.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QScreen>
#include <vector>

#include "LoopSupport.h"

namespace tarvel {
namespace {

class CountingView final : public DataLoadingView {
 public:
  using DataLoadingView::DataLoadingView;

  void loadData() override {
    isAwaitingData = false;
    if (isClosing) return;
    ++loads;
    if (redrawsAfterLoad) setNeedsDisplay(true);
  }
  void draw(QPainter& painter, const Rect& dirty) override {
    ++draws;
    lastDirty = dirty;
    painter.fillRect(rect(), fill);
  }
  QColor backgroundColor() const override { return Qt::gray; }

  int loads = 0;
  int draws = 0;
  bool redrawsAfterLoad = true;
  Rect lastDirty;
  QColor fill = Qt::blue;
};

class DataLoadingViewTest : public testing::Test {
 protected:
  DataLoadingViewTest() {
    window_.resize(100, 80);
    view_ = new CountingView(center_, &window_);
    view_->setGeometry(10, 10, 60, 40);
    window_.show();
    settle();
    view_->draws = 0;
  }
  void settle() {
    test::runUntilIdle(loop_);
    QApplication::processEvents();  // the painting that the idle tasks asked for
  }
  /// What the window's surface shows at the place of the view.
  QColor shown(int x = 30, int y = 20) {
    return window_.screen()->grabWindow(window_.winId(), 10 + x, 10 + y, 1, 1).toImage().pixelColor(0, 0);
  }

  QtRunLoop loop_;
  NotificationCenter center_{loop_};
  QWidget window_;
  CountingView* view_;
};

TEST_F(DataLoadingViewTest, ManyChangesMakeOneLoadAtTheIdlePoint) {
  for (int i = 0; i < 10; ++i) view_->needsData();
  EXPECT_TRUE(view_->isAwaitingUpdates);
  EXPECT_EQ(view_->loads, 0);
  settle();
  EXPECT_EQ(view_->loads, 1);
  EXPECT_FALSE(view_->isAwaitingUpdates);
  EXPECT_FALSE(view_->isAwaitingData);
  settle();
  EXPECT_EQ(view_->loads, 1);
  view_->needsData();
  settle();
  EXPECT_EQ(view_->loads, 2);
}

TEST_F(DataLoadingViewTest, APassIsForItsOwnViewAlone) {
  CountingView other(center_);
  view_->needsData();
  other.isAwaitingData = true;  // stale, but no pass of its own
  settle();
  EXPECT_EQ(view_->loads, 1);
  EXPECT_EQ(other.loads, 0);
}

TEST_F(DataLoadingViewTest, AViewThatIsNotPresentedWaitsUntilItIs) {
  view_->setPresented(false);
  view_->needsData();
  EXPECT_TRUE(view_->isAwaitingData);
  EXPECT_FALSE(view_->isAwaitingUpdates);
  settle();
  EXPECT_EQ(view_->loads, 0);
  view_->setPresented(true);
  EXPECT_TRUE(view_->isAwaitingUpdates);
  view_->setPresented(true);
  settle();
  EXPECT_EQ(view_->loads, 1);
}

TEST_F(DataLoadingViewTest, PresentingAFreshOrAClosingViewQueuesNothing) {
  view_->setPresented(false);
  view_->setPresented(true);
  EXPECT_FALSE(view_->isAwaitingUpdates);
  view_->setPresented(false);
  view_->needsData();
  view_->isClosing = true;
  view_->setPresented(true);
  EXPECT_FALSE(view_->isAwaitingUpdates);
}

TEST_F(DataLoadingViewTest, HidingAfterTheRequestKeepsThePassInTheQueue) {
  view_->needsData();
  view_->setPresented(false);
  view_->setPresented(true);
  settle();
  EXPECT_EQ(view_->loads, 1);
}

TEST_F(DataLoadingViewTest, AViewThatClosedMeanwhileLoadsNothing) {
  view_->needsData();
  view_->isClosing = true;
  settle();
  EXPECT_EQ(view_->loads, 0);
  EXPECT_EQ(view_->draws, 0);
}

TEST_F(DataLoadingViewTest, RedrawsAreGrantedByTheFlags) {
  const struct {
    const char* name;
    void (*prepare)(CountingView&);
    bool granted;
  } cases[] = {
      {"fresh", [](CountingView&) {}, true},
      {"data awaited", [](CountingView& v) { v.isAwaitingData = true; }, false},
      {"second data awaited", [](CountingView& v) { v.isAwaitingData2 = true; }, false},
      {"filter awaited", [](CountingView& v) { v.isAwaitingFilter = true; }, false},
      {"layout awaited", [](CountingView& v) { v.isAwaitingLayout = true; }, false},
      {"status awaited", [](CountingView& v) { v.isAwaitingStatusUpdate = true; }, false},
      {"a pass awaited for nothing", [](CountingView& v) { v.isAwaitingUpdates = true; }, true},
      {"not presented", [](CountingView& v) { v.setPresented(false); }, false},
      {"closing", [](CountingView& v) { v.isClosing = true; }, false},
  };
  for (const auto& c : cases) {
    CountingView view(center_);
    view.show();
    settle();
    view.draws = 0;
    c.prepare(view);
    view.setNeedsDisplay(true);
    settle();
    EXPECT_EQ(view.draws, c.granted ? 1 : 0) << c.name;
    view.setNeedsDisplay(false);
    settle();
    EXPECT_EQ(view.draws, c.granted ? 1 : 0) << c.name;
  }
}

TEST_F(DataLoadingViewTest, APendingRedrawOfStaleDataIsDropped) {
  view_->redrawsAfterLoad = false;
  view_->setNeedsDisplay(true);
  view_->needsData();
  view_->setNeedsDisplay(true);
  QApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest);
  EXPECT_EQ(view_->draws, 0);
  EXPECT_EQ(shown(), QColor(Qt::blue)) << "what stood there before goes on standing there";
  // The one that was dropped comes after the load, although the subclass asks for none.
  settle();
  EXPECT_EQ(view_->loads, 1);
  EXPECT_EQ(view_->draws, 1);
}

TEST_F(DataLoadingViewTest, AreasLostWhileStaleShowTheBackground) {
  view_->isAwaitingData = true;
  view_->resize(70, 40);
  QApplication::sendPostedEvents();
  QApplication::processEvents();
  EXPECT_EQ(view_->draws, 0);
  EXPECT_EQ(shown(), QColor(Qt::gray));
  EXPECT_EQ(shown(65, 20), QColor(Qt::gray));
}

TEST_F(DataLoadingViewTest, NothingIsKeptOfAViewThatCameUpStale) {
  view_->isAwaitingData = true;
  window_.hide();
  window_.show();
  QApplication::processEvents();
  EXPECT_EQ(view_->draws, 0);
  EXPECT_EQ(shown(), QColor(Qt::gray));
}

TEST_F(DataLoadingViewTest, DrawsTheDirtyPartOverTheBackground) {
  view_->fill = Qt::transparent;
  view_->update(5, 6, 7, 8);
  settle();
  EXPECT_EQ(view_->lastDirty, (Rect{5, 6, 7, 8}));
  EXPECT_EQ(shown(8, 9), QColor(Qt::gray));
  EXPECT_EQ(shown(30, 20), QColor(Qt::blue));
}

class BareView final : public DataLoadingView {
 public:
  using DataLoadingView::DataLoadingView;
  void draw(QPainter&, const Rect&) override {}
};

TEST(DataLoadingViewDeathTest, StagesThatNobodySuppliesStopTheProgram) {
  QtRunLoop loop;
  NotificationCenter center(loop);
  CountingView view(center);
  BareView bare(center);
  bare.isAwaitingData = true;
  EXPECT_DEATH(bare.performUpdates(), "Fatal error");
  for (bool CountingView::*stage : {&CountingView::isAwaitingData2, &CountingView::isAwaitingFilter,
                                    &CountingView::isAwaitingLayout, &CountingView::isAwaitingStatusUpdate}) {
    view.*stage = true;
    EXPECT_DEATH(view.performUpdates(), "Fatal error");
    view.*stage = false;
  }
}

}  // namespace
}  // namespace tarvel
