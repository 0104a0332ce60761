#include "schedule/DailyScheduleView.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <tuple>

#include "Items.h"
#include "ScheduleTestOwner.h"
#include "ScheduleWorld.h"
#include "schedule/ScheduleHeaderView.h"
#include "ui/Window.h"

namespace tarvel {
namespace {

using test::blended;
using test::builtColor;
using test::expectColor;
using test::kWeekOf;
using test::ScheduleTestOwner;
using test::ScheduleWorld;

constexpr PackedDate kWednesday = packedDate(2026, 3, 18);
constexpr int kWidth = 859;   // three columns of 266 and two thirds from x 47 on
constexpr int kHeight = 597;  // half a pixel a minute from 5:00 at y 15 on

/// Wednesday, today, of three venues. They stand 7, 9, 4: 7 holds a public session from 10:00 to 12:00 and
/// one after midnight, 9 nothing, 4 a freestyle with a note from 15:00 to 16:00 and a resurfacing at 17:00.
class DailyScheduleViewTest : public testing::Test {
 protected:
  DailyScheduleViewTest() {
    world.addRink(1, "Rink");
    rink = world.openRink(1, {ScheduleWorld::venue(4, "Far", 3), ScheduleWorld::venue(7, "Near", 1),
                              ScheduleWorld::venue(9, "", 2)});
    week(7)->adopt({{},
                    {{SessionKind::publicSession, 3, 600, 120, "", ""},
                     {SessionKind::rental, 2, 600, 120, "", ""},
                     {SessionKind::rental, 3, 1455, 60, "", ""}}});
    week(4)->adopt({{},
                    {{SessionKind::freestyle, 3, 900, 60, "", "bring gloves"},
                     {SessionKind::resurface, 3, 1020, 20, "", ""}}});
    window.resize(kWidth, kHeight);
    scroller.setFrameShape(QFrame::NoFrame);
    scroller.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroller.resize(kWidth, kHeight);
    view = new DailyScheduleView(world.context, owner);
    view->resize(kWidth, kHeight);
    scroller.setWidget(view);
    window.makeKeyAndOrderFront();
    settle();
  }
  ~DailyScheduleViewTest() override { view->close(); }

  std::shared_ptr<WeeklySchedule> week(std::int64_t venueID) {
    return rink->venue(venueID)->weeklySchedule(kWeekOf);
  }
  void showDay() {
    view->setChosenRink(rink);
    view->setShowingDate(kWednesday);
    view->setChosenVenues({4, 5, 7, 9});
    view->setCurrentDate(kWednesday, 600);
    settle();
  }
  void settle() {
    world.runUntilIdle();
    QApplication::processEvents();
  }
  std::string infoAt(int x, int y) {
    QTest::mouseMove(view, {x, y});
    QApplication::processEvents();
    return owner.info;
  }
  QImage picture() {
    settle();
    return view->grab().toImage().convertToFormat(QImage::Format_RGB32);
  }

  ScheduleWorld world;
  std::shared_ptr<RinkData> rink;
  ScheduleTestOwner owner;
  Window window;
  QScrollArea scroller{&window};
  DailyScheduleView* view = nullptr;
};

TEST_F(DailyScheduleViewTest, paintsTheVenuesByDisplayOrderAndVeilsAPastDay) {
  showDay();
  const QColor background = color(kScheduleBackground, Appearance::light);
  const QColor past = color(kPastBlend, Appearance::light);
  QImage image = picture();
  expectColor(image, 200, 218, builtColor(SessionKind::publicSession));
  expectColor(image, 650, 336, builtColor(SessionKind::freestyle));
  expectColor(image, 843, 317, blended(builtColor(SessionKind::freestyle), toQColor(kNoteCornerColor)));
  expectColor(image, 450, 250, background);
  expectColor(image, 450, 163, blended(background, toQColor(kTimeMarkerColor)));
  ASSERT_TRUE(view->timeMarkerView());
  EXPECT_EQ(view->timeMarkerView()->markerRect(), (Rect{34.0, 156.0, 826.0, 18.0}));
  view->setCurrentDate(nextDay(kWednesday), 30);
  EXPECT_TRUE(view->timeMarkerView()->isHidden());
  image = picture();
  expectColor(image, 200, 218, blended(builtColor(SessionKind::publicSession), past));
  expectColor(image, 20, 400, background);
}

TEST_F(DailyScheduleViewTest, aMinuteRepaintsTheMarkersStripAlone) {
  struct Repaints : QObject {
    QRegion region;
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::Paint) region += static_cast<QPaintEvent*>(event)->region();
      return false;
    }
  } repaints;
  showDay();
  view->installEventFilter(&repaints);
  view->setCurrentDate(kWednesday, 601);
  settle();
  const QRect strip = repaints.region.boundingRect();
  EXPECT_FALSE(strip.isEmpty());
  EXPECT_GE(strip.top(), 155);
  EXPECT_LE(strip.bottom(), 176);
}

TEST_F(DailyScheduleViewTest, loadsItsDayAndWhatConcernsIt) {
  showDay();
  ASSERT_EQ(view->columns().size(), 3U);
  EXPECT_EQ(view->columns()[0].size(), 2U) << "one after midnight stays with the day it is filed on";
  EXPECT_TRUE(view->columns()[1].empty());
  EXPECT_EQ(view->dayRange(), (DayRange{300, 1530}));
  world.addRink(2, "Other");
  const auto other = world.openRink(2, {});
  const auto weekInfo = [](std::int64_t venueID, PackedDate weekOf) {
    return UserInfo{{std::string(kVenueIDKey), venueID}, {std::string(kWeekOfKey), weekOf}};
  };
  const std::tuple<NotificationName, std::shared_ptr<RinkData>, UserInfo, int> cases[] = {
      {kVenuesChanged, rink, {}, 1},
      {kSchedulesChanged, other, {}, 0},
      {kWeeklyScheduleChanged, rink, weekInfo(99, kWeekOf), 1},  // whichever the venue
      {kWeeklyScheduleChanged, rink, weekInfo(7, addDays(kWeekOf, 7)), 0},
      {kWeeklyScheduleChanged, rink, weekInfo(7, subtractDays(kWeekOf, 7)), 0},
      {kWeeklyScheduleChanged, other, weekInfo(7, kWeekOf), 0}};
  for (const auto& [name, object, userInfo, loads] : cases) {
    settle();
    owner.loads = 0;
    for (int i = 0; i < 100; ++i) world.sim.notifications.postNotification(name, object, userInfo);
    settle();
    EXPECT_EQ(owner.loads, loads) << name.text;
  }
  owner.loads = 0;
  view->setChosenVenues({9, 7, 4});
  settle();
  EXPECT_EQ(owner.loads, 0) << "the same venues by display order";
  view->setChosenVenues({});
  settle();
  EXPECT_EQ(owner.loads, 1);
  EXPECT_EQ(view->layout().grid().columns, 0);
  expectColor(picture(), 47, 300, Qt::black);
}

TEST_F(DailyScheduleViewTest, tellsWhatIsUnderTheMouseAndWhatIsClicked) {
  showDay();
  ASSERT_TRUE(window.isMain());
  EXPECT_EQ(infoAt(200, 190), "Wednesday\n3/18/26\n10:00 am - 12:00 pm\n(2 hr)\n\nPublic Session");
  EXPECT_EQ(infoAt(200, 300), "Wednesday\n3/18/26\n12:00 pm - 12:15 am\n(12 hr 15 min)\n\n-- Gap --");
  EXPECT_EQ(infoAt(700, 360), "Wednesday\n3/18/26\n4:00 pm - 5:00 pm\n(1 hr)\n\n-- Gap --");
  EXPECT_EQ(view->mouseItem(), nullptr);
  EXPECT_EQ(infoAt(450, 300), "") << "an empty column";
  view->setDayRange({300, 1530});
  EXPECT_EQ(view->layout().grid().axis.endOfDay, 1530) << "laid out anew in the same size";
  for (QWidget* widget : std::initializer_list<QWidget*>{&window, &scroller, view})
    widget->resize(kWidth, 642);
  EXPECT_EQ(infoAt(200, 600), "Thursday\n3/19/26\n12:15 am - 1:15 am\n(1 hr)\n\nRental");
  owner.current = false;
  owner.info = "another page's";
  EXPECT_EQ(infoAt(700, 330), "another page's");

  QTest::mouseClick(view, Qt::LeftButton, {}, {700, 330});
  EXPECT_EQ(owner.selected, kWednesday);
  QTest::mouseClick(view, Qt::LeftButton, {}, {20, 100});
  EXPECT_EQ(owner.selected, kNoDate) << "beside the grid";
  QTest::mouseDClick(view, Qt::LeftButton, {}, {700, 330});
  EXPECT_EQ(owner.gone, std::make_tuple(4, kWednesday, 930));
}

TEST_F(DailyScheduleViewTest, scrollingLooksAgainUnderTheMouse) {
  showDay();
  scroller.resize(kWidth, 200);
  settle();
  view->scrollTo(900);
  EXPECT_EQ(scroller.verticalScrollBar()->value(), 300 + 27 - 50);
  owner.info = "old";
  scroller.verticalScrollBar()->setValue(100);
  EXPECT_NE(owner.info, "old");
}

TEST_F(DailyScheduleViewTest, headerNamesTheVenuesWithoutGapsAndWithinTheirColumns) {
  owner.rink = rink;
  owner.venueIDs = {4, 5, 9, 7};
  owner.geometry = {30.0, 60.0};
  ScheduleHeaderView header(world.context, owner, nullptr);
  header.setDate(kWednesday);
  header.setScheduleViewOption(ScheduleViewOption::daily);
  EXPECT_EQ(header.columnTitles(), (std::vector<std::string>{"Near", "Ice Sheet", "Far"}));
  rink->venue(9)->name.assign(10'000, 'W');
  rink->venue(7)->name = rink->venue(4)->name = " ";
  header.resize(300, ScheduleHeaderView::kHeight);
  const QImage image = header.grab().toImage().convertToFormat(QImage::Format_RGB32);
  int inked = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixelColor(x, y).lightness() > 128) continue;
      ++inked;
      EXPECT_TRUE(x >= 90 && x < 150) << "the name spills over at " << x;
    }
  }
  EXPECT_GT(inked, 0);
  header.close();
}

TEST_F(DailyScheduleViewTest, anyItemIsDrawnWithinItsRectangle) {
  // What stands beside the items, in the second column, must stay as it is.
  const std::string texts[] = {std::string(10'000, 'W'), "\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC\u05DD",
                               "\n\n\n", "\xFF\xFE broken"};
  std::string stacked = "Z";
  for (int i = 0; i < 500; ++i) stacked += "\u0301\u0323";
  std::vector<ScheduleItemRecord> items;
  for (int i = 0; i < 2'000; ++i) {
    const std::string& text = i % 5 == 4 ? stacked : texts[i % 5];
    const std::int64_t time = i % 7 == 0 ? -32'768 + i : 600 + i % 60;
    items.push_back({SessionKind::other, 3, time, i % 50 - 10, text, i % 2 ? text : ""});
  }
  week(7)->adopt({{}, items});
  showDay();
  for (const int width : {kWidth, 300, 60, 20}) {
    view->resize(width, kHeight);
    const QImage image = picture();
    if (width != kWidth) continue;
    const QColor background = color(kScheduleBackground, Appearance::light);
    for (int y = 196; y < 225; ++y) expectColor(image, 450, y, background);  // between two lines of the grid
    for (int x = 60; x < 300; ++x) expectColor(image, x, 300, background);
  }
}

}  // namespace
}  // namespace tarvel
