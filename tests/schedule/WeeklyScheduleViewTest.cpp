#include "schedule/WeeklyScheduleView.h"

#include "SchedulePageTest.h"
#include "schedule/WeeklyPainter.h"

namespace tarvel {
namespace {

using test::blended;
using test::builtColor;
using test::expectColor;

constexpr int kWidth = 760;   // columns of 100 from x 48 on
constexpr int kHeight = 594;  // half a pixel a minute from 5:00 at y 12 on

/// In venue 7 Tuesday holds a public session from 10:00 to 12:00, Wednesday a freestyle from 15:00 to 16:00
/// and one from 17:00 on.
class WeeklyScheduleViewTest : public test::SchedulePageTest {
 protected:
  WeeklyScheduleViewTest() {
    weekOf(7).adopt({{},
                     {{SessionKind::publicSession, 2, 600, 120, "", ""},
                      {SessionKind::freestyle, 3, 900, 60, "", ""},
                      {SessionKind::freestyle, 3, 1020, 60, "", "bring gloves"}}});
    window.resize(kWidth, kHeight);
    view = new WeeklyScheduleView(world.context, owner, &window);
    view->resize(kWidth, kHeight);
    window.makeKeyAndOrderFront();
    settle();
    view->setChosenRink(rink);
    view->setWeekContaining(kWednesday);
    settle();
  }
  ~WeeklyScheduleViewTest() override { view->close(); }

  WeeklyScheduleView* view = nullptr;
};

TEST_F(WeeklyScheduleViewTest, paintsSessionsPastDaysTodayTheMomentAndTheSelection) {
  view->setSelectedDate(packedDate(2026, 3, 20));
  const QImage image = picture(*view);
  const QColor past = color(kPastBlend, Appearance::light);
  expectColor(image, 260, 165, blended(builtColor(SessionKind::publicSession), past));
  expectColor(image, 360, 315, builtColor(SessionKind::freestyle));
  expectColor(image, 442, 374, blended(builtColor(SessionKind::freestyle), toQColor(kNoteCornerColor)));
  expectColor(image, 100, 400, blended(color(kScheduleBackground, Appearance::light), past));
  expectColor(image, 500, 390, color(kScheduleBackground, Appearance::light));
  for (int x = 345; x <= 351; ++x) expectColor(image, x, 450, Qt::black);  // today's frame is 7 wide
  expectColor(image, 344, 450, color(kScheduleBackground, Appearance::light));
  expectColor(image, 450, 450, Qt::black);
  expectColor(image, 400, 161, blended(Qt::white, toQColor(kTimeMarkerColor)));  // 10:00
  expectColor(image, 548, 430, color(kSelectedContentBackground, Appearance::light));
  ASSERT_TRUE(view->timeMarkerView());
  EXPECT_EQ(view->timeMarkerView()->markerRect(), (Rect{335.0, 153.0, 126.0, 18.0}));
}

TEST_F(WeeklyScheduleViewTest, clicksSelectAndGoToTheMoment) {
  const QPoint tuesdayAtNoon(260, 372);
  QTest::mouseClick(view, Qt::LeftButton, {}, tuesdayAtNoon);
  EXPECT_EQ(owner.selected, packedDate(2026, 3, 17));
  QTest::mouseClick(view, Qt::LeftButton, {}, {20, 100});
  EXPECT_EQ(owner.selected, kNoDate) << "beside the grid";
  QTest::mouseDClick(view, Qt::LeftButton, {}, tuesdayAtNoon);
  EXPECT_EQ(owner.gone, std::make_tuple(7, packedDate(2026, 3, 17), 1020));
}

TEST_F(WeeklyScheduleViewTest, tellsWhatIsUnderTheMouse) {
  ASSERT_TRUE(window.isMain());
  EXPECT_EQ(infoAt(*view, 400, 320), "Wednesday\n3/18/26\n3:00 pm - 4:00 pm\n(1 hr)\n\nFreestyle");
  ASSERT_TRUE(view->mouseItem());
  EXPECT_EQ(view->mouseItem()->time, 900);
  EXPECT_EQ(infoAt(*view, 400, 350), "Wednesday\n3/18/26\n4:00 pm - 5:00 pm\n(1 hr)\n\n-- Idle --");
  EXPECT_EQ(view->mouseItem(), nullptr);
  EXPECT_EQ(infoAt(*view, 400, 100), "") << "before the first item";
  owner.infoShown = false;
  EXPECT_EQ(infoAt(*view, 400, 320), "");
}

}  // namespace
}  // namespace tarvel
