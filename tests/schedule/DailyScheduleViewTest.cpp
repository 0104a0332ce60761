#include "schedule/DailyScheduleView.h"

#include <QScrollArea>
#include <QScrollBar>

#include "SchedulePageTest.h"
#include "schedule/ScheduleHeaderView.h"

namespace tarvel {
namespace {

using test::blended;
using test::builtColor;
using test::expectColor;

constexpr int kWidth = 859;   // three columns of 266 and two thirds from x 47 on
constexpr int kHeight = 597;  // half a pixel a minute from 5:00 at y 15 on

/// Wednesday of three venues: 7 holds a public session from 10:00 to 12:00 and one after midnight, 9 nothing,
/// 4 a freestyle with a note from 15:00 to 16:00 and a resurfacing at 17:00.
class DailyScheduleViewTest : public test::SchedulePageTest {
 protected:
  DailyScheduleViewTest() {
    weekOf(7).adopt({{},
                     {{SessionKind::publicSession, 3, 600, 120, "", ""},
                      {SessionKind::rental, 2, 600, 120, "", ""},
                      {SessionKind::rental, 3, 1455, 60, "", ""}}});
    weekOf(4).adopt({{},
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
    view->setChosenRink(rink);
    view->setShowingDate(kWednesday);
    view->setChosenVenues({4, 5, 7, 9});
    view->setCurrentDate(kWednesday, 600);
    settle();
  }
  ~DailyScheduleViewTest() override { view->close(); }

  QScrollArea scroller{&window};
  DailyScheduleView* view = nullptr;
};

TEST_F(DailyScheduleViewTest, paintsTheVenuesByDisplayOrderAndVeilsAPastDay) {
  const QColor background = color(kScheduleBackground, Appearance::light);
  const QColor past = color(kPastBlend, Appearance::light);
  QImage image = picture(*view);
  expectColor(image, 200, 218, builtColor(SessionKind::publicSession));
  expectColor(image, 650, 336, builtColor(SessionKind::freestyle));
  expectColor(image, 843, 317, blended(builtColor(SessionKind::freestyle), toQColor(kNoteCornerColor)));
  expectColor(image, 450, 250, background);
  expectColor(image, 450, 163, blended(background, toQColor(kTimeMarkerColor)));
  ASSERT_TRUE(view->timeMarkerView());
  EXPECT_EQ(view->timeMarkerView()->markerRect(), (Rect{34.0, 156.0, 826.0, 18.0}));
  view->setCurrentDate(nextDay(kWednesday), 30);
  EXPECT_TRUE(view->timeMarkerView()->isHidden());
  image = picture(*view);
  expectColor(image, 200, 218, blended(builtColor(SessionKind::publicSession), past));
  expectColor(image, 20, 400, background);
}

TEST_F(DailyScheduleViewTest, loadsItsDayOfTheChosenVenues) {
  ASSERT_EQ(view->columns().size(), 3U);
  EXPECT_EQ(view->columns()[0].size(), 2U) << "one after midnight stays with the day it is filed on";
  EXPECT_TRUE(view->columns()[1].empty());
  EXPECT_EQ(view->dayRange(), (DayRange{300, 1530}));
  owner.loads = 0;
  view->setChosenVenues({9, 7, 4});
  settle();
  EXPECT_EQ(owner.loads, 0) << "the same venues by display order";
  view->setChosenVenues({});
  settle();
  EXPECT_EQ(owner.loads, 1);
  EXPECT_EQ(view->layout().grid().columns, 0);
  expectColor(picture(*view), 47, 300, Qt::black);
}

TEST_F(DailyScheduleViewTest, tellsWhatIsUnderTheMouseAndWhatIsClicked) {
  ASSERT_TRUE(window.isMain());
  EXPECT_EQ(infoAt(*view, 200, 190), "Wednesday\n3/18/26\n10:00 am - 12:00 pm\n(2 hr)\n\nPublic Session");
  EXPECT_EQ(infoAt(*view, 200, 300), "Wednesday\n3/18/26\n12:00 pm - 12:15 am\n(12 hr 15 min)\n\n-- Gap --");
  EXPECT_EQ(infoAt(*view, 700, 360), "Wednesday\n3/18/26\n4:00 pm - 5:00 pm\n(1 hr)\n\n-- Gap --");
  EXPECT_EQ(view->mouseItem(), nullptr);
  EXPECT_EQ(infoAt(*view, 450, 300), "") << "an empty column";
  view->setDayRange({300, 1530});
  EXPECT_EQ(view->layout().grid().axis.endOfDay, 1530) << "laid out anew in the same size";
  for (QWidget* widget : std::initializer_list<QWidget*>{&window, &scroller, view})
    widget->resize(kWidth, 642);
  EXPECT_EQ(infoAt(*view, 200, 600), "Thursday\n3/19/26\n12:15 am - 1:15 am\n(1 hr)\n\nRental");
  owner.current = false;
  owner.info = "another page's";
  EXPECT_EQ(infoAt(*view, 700, 330), "another page's");

  QTest::mouseClick(view, Qt::LeftButton, {}, {700, 330});
  EXPECT_EQ(owner.selected, kWednesday);
  QTest::mouseClick(view, Qt::LeftButton, {}, {20, 100});
  EXPECT_EQ(owner.selected, kNoDate) << "beside the grid";
  QTest::mouseDClick(view, Qt::LeftButton, {}, {700, 330});
  EXPECT_EQ(owner.gone, std::make_tuple(4, kWednesday, 930));
}

TEST_F(DailyScheduleViewTest, scrollingLooksAgainUnderTheMouse) {
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
  const AccessibleNode spoken = header.accessibleTree();
  ASSERT_EQ(spoken.children.size(), 3U);
  EXPECT_EQ(spoken.children[1].name, "Ice Sheet");
  EXPECT_EQ(spoken.children[1].rect.left(), 90.0);
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

}  // namespace
}  // namespace tarvel
