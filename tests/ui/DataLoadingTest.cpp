#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QScreen>
#include <vector>

#include "LoopSupport.h"
#include "ui/DataLoadingView.h"
#include "ui/DataLoadingWindowController.h"

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
  EXPECT_FALSE(view_->isAwaitingUpdates || view_->isAwaitingData);
  settle();
  EXPECT_EQ(view_->loads, 1);
  view_->needsData();
  settle();
  EXPECT_EQ(view_->loads, 2);
}

TEST_F(DataLoadingViewTest, OnlyAPresentedViewThatIsNotClosingLoads) {
  view_->setPresented(false);
  view_->setPresented(true);
  EXPECT_FALSE(view_->isAwaitingUpdates) << "nothing to load";
  view_->setPresented(false);
  view_->needsData();
  EXPECT_TRUE(view_->isAwaitingData);
  settle();
  EXPECT_EQ(view_->loads, 0);
  view_->setPresented(true);
  view_->setPresented(true);
  settle();
  EXPECT_EQ(view_->loads, 1);
  view_->needsData();
  view_->setPresented(false);
  view_->setPresented(true);
  settle();
  EXPECT_EQ(view_->loads, 2) << "the pass stays in the queue";
  view_->draws = 0;
  view_->needsData();
  view_->isClosing = true;
  view_->setPresented(false);
  view_->setPresented(true);
  settle();
  EXPECT_EQ(view_->loads, 2);
  EXPECT_EQ(view_->draws, 0);
}

TEST_F(DataLoadingViewTest, RedrawsAreGrantedByTheFlags) {
  const struct {
    const char* name;
    bool CountingView::*flag;
    bool granted;
  } cases[] = {
      {"fresh", nullptr, true},
      {"data awaited", &CountingView::isAwaitingData, false},
      {"second data awaited", &CountingView::isAwaitingData2, false},
      {"filter awaited", &CountingView::isAwaitingFilter, false},
      {"layout awaited", &CountingView::isAwaitingLayout, false},
      {"status awaited", &CountingView::isAwaitingStatusUpdate, false},
      {"a pass awaited for nothing", &CountingView::isAwaitingUpdates, true},
      {"closing", &CountingView::isClosing, false},
  };
  for (const auto& c : cases) {
    CountingView view(center_);
    view.show();
    settle();
    view.draws = 0;
    if (c.flag) view.*c.flag = true;
    view.setNeedsDisplay(true);
    settle();
    EXPECT_EQ(view.draws, c.granted ? 1 : 0) << c.name;
    view.setNeedsDisplay(false);
    view.setPresented(false);
    view.setNeedsDisplay(true);
    settle();
    EXPECT_EQ(view.draws, c.granted ? 1 : 0) << c.name << ", and no more when it isn't presented";
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
  EXPECT_EQ(shown(), QColor(Qt::gray));
  EXPECT_EQ(shown(65, 20), QColor(Qt::gray));
  window_.hide();
  window_.show();
  QApplication::processEvents();
  EXPECT_EQ(view_->draws, 0);
  EXPECT_EQ(shown(), QColor(Qt::gray)) << "nothing is kept of a view that comes up stale";
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

class BareController : public DataLoadingWindowController {
 public:
  explicit BareController(NotificationCenter& center)
      : DataLoadingWindowController(std::make_unique<Window>(), center) {}
  std::string className() const override { return "BareController"; }
};

class CountingController final : public BareController {
 public:
  using BareController::BareController;
  void loadData() override {
    isAwaitingData = false;
    if (isClosing) return;
    ++loads;
  }
  int loads = 0;
};

TEST(DataLoadingWindowController, LoadsOnceForManyChangesHoweverTheWindowStands) {
  QtRunLoop loop;
  NotificationCenter center(loop);
  CountingController controller(center);
  controller.needsData();
  controller.needsData();
  EXPECT_EQ(controller.loads, 0);
  test::runUntilIdle(loop);
  EXPECT_EQ(controller.loads, 1);
  controller.needsData();
  controller.isClosing = true;
  test::runUntilIdle(loop);
  EXPECT_EQ(controller.loads, 1);
  controller.needsData();
  EXPECT_FALSE(controller.isAwaitingData);
  EXPECT_FALSE(controller.isAwaitingUpdates);
}

TEST(DataLoadingWindowController, OwnsItsWindowAndIsItsDelegate) {
  QtRunLoop loop;
  NotificationCenter center(loop);
  const auto before = Window::liveCount();
  auto controller = std::make_unique<CountingController>(center);
  EXPECT_EQ(controller->window()->delegate(), controller.get());
  EXPECT_EQ(Window::liveCount(), before + 1);
  controller->showWindow();
  EXPECT_EQ(Window::orderedWindows().front(), controller->window());
  bool heard = false;
  QObject::connect(controller->window(), &Window::resignedMain, [&] { heard = true; });
  controller->needsData();
  controller.reset();
  EXPECT_FALSE(heard) << "the controller's handlers may hold what is gone by now";
  EXPECT_EQ(Window::liveCount(), before);
  EXPECT_TRUE(Window::orderedWindows().empty());
  test::runUntilIdle(loop);
}

template <class Loading>
void expectDeathAt(Loading& loading, std::initializer_list<bool Loading::*> stages) {
  for (bool Loading::*stage : stages) {
    loading.*stage = true;
    EXPECT_DEATH(loading.performUpdates(), "Fatal error");
    loading.*stage = false;
  }
}

TEST(DataLoadingDeathTest, StagesThatNobodySuppliesStopTheProgram) {
  QtRunLoop loop;
  NotificationCenter center(loop);
  CountingView view(center);
  BareView bareView(center);
  CountingController controller(center);
  BareController bareController(center);
  using View = CountingView;
  expectDeathAt<BareView>(bareView, {&BareView::isAwaitingData});
  expectDeathAt<View>(view, {&View::isAwaitingData2, &View::isAwaitingFilter, &View::isAwaitingLayout,
                             &View::isAwaitingStatusUpdate});
  expectDeathAt<BareController>(bareController, {&BareController::isAwaitingData});
  expectDeathAt<CountingController>(
      controller, {&CountingController::isAwaitingData2, &CountingController::isAwaitingFilter});
}

}  // namespace
}  // namespace tarvel
