#include <gtest/gtest.h>

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVariantAnimation>

#include "LoopSupport.h"
#include "ui/ScrollTarget.h"
#include "ui/ScrollableView.h"

namespace tarvel {
namespace {

TEST(ScrollTarget, BringsTheBandIntoSight) {
  const struct {
    const char* name;
    Band visible;
    double viewHeight;
    Band band;
    std::optional<double> target;
  } cases[] = {
      {"wholly in sight", {100, 200}, 1000, {150, 50}, {}},
      {"just in sight at the bottom", {100, 200}, 1000, {250, 50}, {}},
      {"just in sight at the top", {100, 200}, 1000, {100, 50}, {}},
      {"as high as what is visible, in place", {100, 200}, 1000, {100, 200}, {}},
      {"below: bottoms align", {100, 200}, 1000, {290, 50}, 140},
      {"above: tops align", {100, 200}, 1000, {40, 50}, 40},
      {"partly above: tops align", {100, 200}, 1000, {90, 50}, 90},
      {"taller and below: its top", {100, 200}, 1000, {150, 300}, 150},
      {"as tall and below: its top", {100, 200}, 1000, {150, 200}, 150},
      {"taller and above: its top, the bottom stays out", {400, 200}, 1000, {300, 500}, 300},
      {"taller around what is visible: its top", {400, 200}, 1000, {350, 300}, 350},
      {"above the view's beginning", {100, 200}, 1000, {-30, 50}, 0},
      {"beyond the view's end", {100, 200}, 1000, {990, 50}, 800},
      {"beyond the end and there already", {800, 200}, 1000, {990, 50}, {}},
      {"above the beginning and there already", {0, 200}, 1000, {-30, 50}, {}},
      {"taller at the end of the view", {0, 200}, 1000, {900, 400}, 800},
      {"all of the view is visible", {0, 200}, 200, {150, 100}, {}},
  };
  for (const auto& c : cases) EXPECT_EQ(scrollTarget(c.visible, c.viewHeight, c.band), c.target) << c.name;
}

TEST(ScrollTarget, JumpsWhatIsMoreThanOneAndAHalfScreens) {
  const std::tuple<double, double, double> cases[] = {{0, 100, 0},       {150, 100, 0},   {-150, 100, 0},
                                                      {151, 100, 1},     {300, 100, 150}, {-300, 100, -150},
                                                      {-1000, 100, -850}};
  for (const auto& [delta, screen, jump] : cases) EXPECT_EQ(scrollJump(delta, screen), jump) << delta;
}

class ScrollableViewTest : public testing::Test {
 protected:
  static constexpr int kVisible = 200;
  static constexpr int kHeight = 2000;

  ScrollableViewTest() {
    area_.setFrameShape(QFrame::NoFrame);
    area_.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    area_.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area_.resize(300, kVisible);
    view_ = new ScrollableView(center_);
    view_->resize(280, kHeight);
    area_.setWidget(view_);
    area_.show();
  }
  int top() const { return area_.verticalScrollBar()->value(); }
  QVariantAnimation& animation() { return *view_->findChild<QVariantAnimation*>(); }
  bool animates() { return animation().state() == QVariantAnimation::Running; }

  QtRunLoop loop_;
  NotificationCenter center_{loop_};
  QScrollArea area_;
  ScrollableView* view_;
};

TEST_F(ScrollableViewTest, ScrollsAtOnceWithoutAnimation) {
  view_->scrollTo(Animate::no, 1500, 100);
  EXPECT_EQ(top(), 1400);
  view_->scrollTo(Animate::no, 1450, 100);
  EXPECT_EQ(top(), 1400);
  view_->scrollTo(Animate::no, 0, 5000);
  EXPECT_EQ(top(), 0);
  EXPECT_FALSE(animates());
}

TEST_F(ScrollableViewTest, AnimatesAtMostOneAndAHalfScreensInOneSecond) {
  view_->scrollTo(Animate::yes, 780, 20);  // by three screens
  EXPECT_EQ(top(), 300);
  ASSERT_TRUE(animates());
  EXPECT_EQ(animation().duration(), 1000);
  animation().setCurrentTime(500);
  EXPECT_EQ(top(), 450);
  animation().setCurrentTime(1000);
  EXPECT_EQ(top(), 600);
  EXPECT_FALSE(animates());
  view_->scrollTo(Animate::yes, 500, 20);
  EXPECT_EQ(top(), 600);
  animation().setCurrentTime(1000);
  EXPECT_EQ(top(), 500);
}

TEST_F(ScrollableViewTest, OfSeveralRequestsBeforeIdleTheLastCounts) {
  view_->scrollTo(1900, 50);
  view_->scrollTo(250, 50);
  EXPECT_EQ(top(), 0);
  EXPECT_FALSE(animates());
  test::runUntilIdle(loop_);
  ASSERT_TRUE(animates());
  EXPECT_EQ(animation().endValue().toInt(), 100);
}

TEST_F(ScrollableViewTest, TheUserAndANewScrollEndTheAnimation) {
  view_->scrollTo(Animate::yes, 350, 50);
  area_.verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
  EXPECT_FALSE(animates());
  view_->scrollTo(Animate::yes, 450, 50);
  view_->scrollTo(Animate::no, 0, 50);
  EXPECT_FALSE(animates());
  EXPECT_EQ(top(), 0);
}

TEST_F(ScrollableViewTest, AViewWithinTheScrolledOneScrollsByItsOwnPlace) {
  auto* inner = new ScrollableView(center_, view_);
  inner->setGeometry(0, 1000, 280, 800);
  inner->show();
  view_->scrollTo(Animate::no, 1000, 200);
  inner->scrollTo(Animate::no, 300, 50);
  EXPECT_EQ(top(), 1000 + 350 - kVisible);
}

TEST_F(ScrollableViewTest, TheKeyboardLeavesItWhereItIs) {
  QWidget window;
  window.setLayout(new QHBoxLayout);
  auto* neighbour = new QPushButton;
  window.layout()->addWidget(&area_);
  window.layout()->addWidget(neighbour);
  view_->setFocusPolicy(Qt::StrongFocus);
  window.show();
  view_->setFocus();
  view_->scrollTo(Animate::no, 0, 10);
  QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
  QApplication::sendEvent(view_, &tab);
  EXPECT_EQ(window.focusWidget(), neighbour);
  EXPECT_EQ(top(), 0);
  area_.setParent(nullptr);  // which the fixture owns
}

TEST_F(ScrollableViewTest, AViewWithoutAScrollAreaOrGoneMeanwhileIsNotScrolled) {
  auto gone = std::make_unique<ScrollableView>(center_);
  gone->scrollTo(Animate::no, 100, 100);
  gone->scrollTo(100, 100);
  gone.reset();
  test::runUntilIdle(loop_);
}

}  // namespace
}  // namespace tarvel
