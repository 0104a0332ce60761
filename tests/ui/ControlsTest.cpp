#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMouseEvent>

#include "ui/AnalogClockFace.h"
#include "ui/NamedColors.h"
#include "ui/SegmentedControl.h"

namespace tarvel {
namespace {

class SegmentedControlTest : public testing::Test {
 protected:
  SegmentedControlTest() : before(&window), control(&window) {
    control.setSegments({"Info", "A longer title", "C"});
    control.setSelectedSegment(0);
    control.sizeToFit();
    before.setFocusPolicy(Qt::StrongFocus);
    QObject::connect(&control, &SegmentedControl::segmentChosen, [this](int index) {
      EXPECT_EQ(control.selectedSegment(), index);
      chosen.push_back(index);
    });
    window.resize(control.width(), 100);
    window.show();
    QApplication::setActiveWindow(&window);
    before.setFocus();
    QApplication::processEvents();
  }
  QWidget* segment(int index) {
    return control.childAt((2 * index + 1) * control.width() / 6, control.height() / 2);
  }
  static void mouse(QWidget* target, QEvent::Type type, QPoint place) {
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, place, target->mapToGlobal(QPointF(place)), button, held, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
  }
  void click(int index) {
    QWidget* target = segment(index);
    mouse(target, QEvent::MouseButtonPress, {5, 5});
    mouse(target, QEvent::MouseButtonRelease, {5, 5});
  }
  static void key(int code) {
    QWidget* target = QApplication::focusWidget();
    ASSERT_TRUE(target);
    QKeyEvent press(QEvent::KeyPress, code, Qt::NoModifier);
    QApplication::sendEvent(target, &press);
    QKeyEvent release(QEvent::KeyRelease, code, Qt::NoModifier);
    QApplication::sendEvent(target, &release);
  }

  QWidget window;
  QWidget before;
  SegmentedControl control;
  std::vector<int> chosen;
};

TEST_F(SegmentedControlTest, clicksChooseAndLeaveTheKeyboardAlone) {
  click(2);
  click(2);
  mouse(segment(1), QEvent::MouseButtonPress, {5, 5});
  mouse(segment(1), QEvent::MouseMove, {5, 60});
  mouse(segment(1), QEvent::MouseButtonRelease, {5, 60});
  EXPECT_EQ(chosen, (std::vector<int>{2})) << "once for a change, and not for a press that is taken back";
  control.setEnabled(false);
  click(1);
  EXPECT_EQ(chosen.size(), 1u);
  EXPECT_TRUE(before.hasFocus());
}

TEST_F(SegmentedControlTest, tabReachesTheChosenSegmentAndArrowsGoOn) {
  control.setSelectedSegment(1);
  key(Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), segment(1));
  key(Qt::Key_Right);
  key(Qt::Key_Left);
  key(Qt::Key_Left);
  EXPECT_EQ(chosen, (std::vector<int>{2, 1, 0}));
  EXPECT_EQ(QApplication::focusWidget(), segment(0));
  control.setSelectedSegment(2);
  EXPECT_EQ(QApplication::focusWidget(), segment(2)) << "the keyboard stays with the choice";
  key(Qt::Key_Tab);
  EXPECT_TRUE(before.hasFocus()) << "one stop for the whole control";
  EXPECT_EQ(chosen.size(), 3u);
}

TEST_F(SegmentedControlTest, indexOfNoSegmentChoosesNone) {
  for (const int index : {-1, 3}) {
    control.setSelectedSegment(1);
    control.setSelectedSegment(index);
    EXPECT_EQ(control.selectedSegment(), SegmentedControl::kNone);
    for (int i = 0; i < 3; ++i) EXPECT_FALSE(qobject_cast<QAbstractButton*>(segment(i))->isChecked());
  }
  click(1);
  EXPECT_EQ(chosen, (std::vector<int>{1}));
}

TEST_F(SegmentedControlTest, segmentsShareTheWidthAndThePillIsSeen) {
  control.resize(100, 28);
  EXPECT_EQ(segment(0)->x(), control.width() - segment(2)->geometry().right() - 1);
  EXPECT_EQ(segment(0)->geometry().right() + 1, segment(1)->x());
  for (const double ratio : {1.0, 2.0}) {
    QImage image(control.size() * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    control.render(&image);
    const auto at = [&](int index) {
      return image.pixelColor((segment(index)->geometry().topLeft() + QPoint(4, 4)) * ratio);
    };
    EXPECT_EQ(at(0), color(kContentBackground, &control));
    EXPECT_EQ(at(1), color(kInactiveSelectedContentFill, &control));
  }
}

constexpr Instant kTenPastTen{794'657'430.0};  // 2026-03-08 10:10:30 UTC

TEST(ClockHandsTest, StandWhereTheTimeIs) {
  const std::pair<LocalTime, ClockHands> cases[] = {
      {{2026, 3, 8, 0, 0, 0}, {0.0, 0.0, 0.0}},
      {{2026, 3, 8, 12, 30, 0}, {15.0, 180.0, 0.0}},
      {{2026, 3, 8, 18, 45, 30}, {202.75, 273.0, 180.0}},
      {{2026, 3, 8, 23, 59, 59}, {359.99166666666667, 359.9, 354.0}},
  };
  for (const auto& [time, expected] : cases) {
    const ClockHands hands = clockHandsAt(time);
    EXPECT_NEAR(hands.hour, expected.hour, 1e-9) << time.hour << ":" << time.minute;
    EXPECT_NEAR(hands.minute, expected.minute, 1e-9);
    EXPECT_NEAR(hands.second, expected.second, 1e-9);
  }
}

class CountingFace : public AnalogClockFace {
 public:
  /// Of whatever was asked for until now.
  int paints() {
    QApplication::processEvents();
    return paints_;
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    ++paints_;
    AnalogClockFace::paintEvent(event);
  }

 private:
  int paints_ = 0;
};

TEST(AnalogClockFaceTest, RepaintsOnceASecondAndNotWhileHidden) {
  CountingFace face;
  face.setDateValue(kTenPastTen);
  EXPECT_NE(face.shownTime().minute, 10) << "it can't be seen yet";
  face.show();
  EXPECT_EQ(face.shownTime(), (LocalTime{2026, 3, 8, 10, 10, 30}));
  EXPECT_EQ(face.accessibleName(), "Clock, 10:10 am");
  const int atFirst = face.paints();
  face.setDateValue(kTenPastTen + 0.4);
  EXPECT_EQ(face.paints(), atFirst);
  face.setDateValue(kTenPastTen + 1.0);
  face.setDateValue(kTenPastTen + 1.0);
  EXPECT_EQ(face.paints(), atFirst + 1);
  face.hide();
  face.setDateValue(kTenPastTen + 60.0);
  EXPECT_EQ(face.accessibleName(), "Clock, 10:10 am");
  EXPECT_EQ(face.paints(), atFirst + 1);
  face.show();
  EXPECT_EQ(face.accessibleName(), "Clock, 10:11 am");
  face.setTimeZone(TimeZone::named("Asia/Kolkata").value());
  EXPECT_EQ(face.shownTime(), (LocalTime{2026, 3, 8, 15, 41, 30}));
}

}  // namespace
}  // namespace tarvel
