#include "ui/AnalogClockFace.h"

#include <gtest/gtest.h>

#include <QApplication>

namespace tarvel {
namespace {

constexpr Instant kTenPastTen{794'657'430.0};  // 2026-03-08 10:10:30 UTC

TEST(ClockHandsTest, StandWhereTheTimeIs) {
  const struct {
    LocalTime time;
    ClockHands hands;
  } cases[] = {
      {{2026, 3, 8, 0, 0, 0}, {0.0, 0.0, 0.0}},
      {{2026, 3, 8, 12, 30, 0}, {15.0, 180.0, 0.0}},
      {{2026, 3, 8, 18, 45, 30}, {202.75, 273.0, 180.0}},
      {{2026, 3, 8, 23, 59, 59}, {359.99166666666667, 359.9, 354.0}},
  };
  for (const auto& c : cases) {
    const ClockHands hands = clockHandsAt(c.time);
    EXPECT_NEAR(hands.hour, c.hands.hour, 1e-9) << c.time.hour << ":" << c.time.minute;
    EXPECT_NEAR(hands.minute, c.hands.minute, 1e-9);
    EXPECT_NEAR(hands.second, c.hands.second, 1e-9);
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
