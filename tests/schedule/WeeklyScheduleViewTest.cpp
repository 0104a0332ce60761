#include "schedule/WeeklyScheduleView.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <tuple>

#include "Items.h"
#include "ScheduleTestOwner.h"
#include "ScheduleWorld.h"
#include "schedule/WeeklyPainter.h"
#include "ui/Window.h"

namespace tarvel {
namespace {

using test::blended;
using test::builtColor;
using test::expectColor;
using test::kWeekOf;
using test::ScheduleTestOwner;
using test::ScheduleWorld;

constexpr int kWidth = 760;   // columns of 100 from x 48 on
constexpr int kHeight = 594;  // half a pixel a minute from 5:00 at y 12 on

/// A week in which Wednesday is today. Tuesday holds a public session from 10:00 to 12:00, Wednesday a
/// freestyle from 15:00 to 16:00 and one from 17:00 on.
class WeeklyScheduleViewTest : public testing::Test {
 protected:
  WeeklyScheduleViewTest() {
    world.addRink(1, "Rink");
    rink = world.openRink(1, {ScheduleWorld::venue(4, "Far", 2), ScheduleWorld::venue(7, "Near", 1)});
    schedule()->adopt({{},
                       {{SessionKind::publicSession, 2, 600, 120, "", ""},
                        {SessionKind::freestyle, 3, 900, 60, "", ""},
                        {SessionKind::freestyle, 3, 1020, 60, "", "bring gloves"}}});
    window.resize(kWidth, kHeight);
    view = new WeeklyScheduleView(world.context, owner, &window);
    view->resize(kWidth, kHeight);
    window.makeKeyAndOrderFront();
    settle();
  }
  ~WeeklyScheduleViewTest() override { view->close(); }

  std::shared_ptr<WeeklySchedule> schedule() { return rink->venue(7)->weeklySchedule(kWeekOf); }
  void showWeek() {
    view->setChosenRink(rink);
    view->setWeekContaining(packedDate(2026, 3, 18));
    settle();
  }
  void settle() {
    world.runUntilIdle();
    QApplication::processEvents();
  }
  QImage picture() {
    settle();
    return view->grab().toImage().convertToFormat(QImage::Format_RGB32);
  }

  ScheduleWorld world;
  std::shared_ptr<RinkData> rink;
  ScheduleTestOwner owner;
  Window window;
  WeeklyScheduleView* view = nullptr;
};

TEST_F(WeeklyScheduleViewTest, paintsSessionsPastDaysTodayTheMomentAndTheSelection) {
  showWeek();
  view->setSelectedDate(packedDate(2026, 3, 20));
  const QImage image = picture();
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

TEST_F(WeeklyScheduleViewTest, loadsOnceForABurstAndOnlyForItsRinkVenueAndWeekInSight) {
  view->setPresented(false);
  owner.loads = 0;
  showWeek();
  EXPECT_EQ(owner.loads, 0) << "a page out of sight waits";
  view->setPresented(true);
  settle();
  EXPECT_EQ(owner.loads, 1);
  EXPECT_EQ(view->scheduleItems().size(), 3U);
  world.addRink(2, "Other");
  const auto other = world.openRink(2, {});
  const auto week = [](std::int64_t venueID, PackedDate weekOf) {
    return UserInfo{{std::string(kVenueIDKey), venueID}, {std::string(kWeekOfKey), weekOf}};
  };
  const std::tuple<NotificationName, std::shared_ptr<RinkData>, UserInfo, int> cases[] = {
      {kVenuesChanged, rink, {}, 1},
      {kSchedulesChanged, other, {}, 0},
      {kWeeklyScheduleChanged, rink, week(7, kWeekOf), 1},
      {kWeeklyScheduleChanged, rink, week(4, kWeekOf), 0},
      {kWeeklyScheduleChanged, rink, week(7, addDays(kWeekOf, 7)), 0},
      {kWeeklyScheduleChanged, other, week(7, kWeekOf), 0}};
  for (const auto& [name, object, userInfo, loads] : cases) {
    settle();
    owner.loads = 0;
    for (int i = 0; i < 100; ++i) world.sim.notifications.postNotification(name, object, userInfo);
    settle();
    EXPECT_EQ(owner.loads, loads) << name.text;
  }
  owner.loads = 0;
  world.workspace.wake();
  settle();
  EXPECT_EQ(owner.loads, 1) << "after sleep the files may be others";
}

TEST_F(WeeklyScheduleViewTest, clicksSelectAndGoToTheMoment) {
  showWeek();
  const QPoint tuesdayAtNoon(260, 372);
  QTest::mouseClick(view, Qt::LeftButton, {}, tuesdayAtNoon);
  EXPECT_EQ(owner.selected, packedDate(2026, 3, 17));
  QTest::mouseClick(view, Qt::LeftButton, {}, {20, 100});
  EXPECT_EQ(owner.selected, kNoDate) << "beside the grid";
  QTest::mouseDClick(view, Qt::LeftButton, {}, tuesdayAtNoon);
  EXPECT_EQ(owner.gone, std::make_tuple(7, packedDate(2026, 3, 17), 1020));
}

TEST_F(WeeklyScheduleViewTest, tellsWhatIsUnderTheMouse) {
  showWeek();
  ASSERT_TRUE(window.isMain());
  const auto infoAt = [&](int x, int y) {
    QTest::mouseMove(view, {x, y});
    QApplication::processEvents();
    return owner.info;
  };
  EXPECT_EQ(infoAt(400, 320), "Wednesday\n3/18/26\n3:00 pm - 4:00 pm\n(1 hr)\n\nFreestyle");
  ASSERT_TRUE(view->mouseItem());
  EXPECT_EQ(view->mouseItem()->time, 900);
  EXPECT_EQ(infoAt(400, 350), "Wednesday\n3/18/26\n4:00 pm - 5:00 pm\n(1 hr)\n\n-- Idle --");
  EXPECT_EQ(view->mouseItem(), nullptr);
  EXPECT_EQ(infoAt(400, 100), "") << "before the first item";
  owner.infoShown = false;
  EXPECT_EQ(infoAt(400, 320), "");
}

}  // namespace
}  // namespace tarvel
