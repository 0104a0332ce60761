#include "mainwindow/ScheduleController.h"

#include <QTest>

#include "MainWindowFixture.h"
#include "ui/SegmentedControl.h"

namespace tarvel {
namespace {

using test::ScheduleWorld;
using Form = ScheduleForm;

TEST(ScheduleFontSizes, looksForTheSizeOfTheFormMostLikeIt) {
  constexpr auto kWeekly = ScheduleViewOption::weekly;
  constexpr auto kDaily = ScheduleViewOption::daily;
  const std::optional<double> no;
  // The sizes are those of the weekly form that fits and scrolls, the daily one of one venue, and of several.
  const std::tuple<Form, ScheduleFontSizes, double> cases[] = {
      {{kWeekly, 0, true}, {no, no, no, no, no, no}, 9.0},
      {{kWeekly, 0, true}, {10, 11, 12, 13, 14, 15}, 10.0},
      {{kWeekly, 0, true}, {no, 11, 12, 13, 14, 15}, 11.0},
      {{kWeekly, 0, true}, {no, no, 12, 13, 14, 15}, 14.0},
      {{kWeekly, 0, true}, {no, no, 12, 13, no, 15}, 12.0},
      {{kWeekly, 0, false}, {10, no, 12, 13, 14, 15}, 10.0},
      {{kWeekly, 0, false}, {no, no, 12, 13, 14, no}, 13.0},
      {{kDaily, 1, true}, {10, 11, no, 13, 14, 15}, 14.0},
      {{kDaily, 0, true}, {10, 11, no, 13, no, 15}, 10.0},
      {{kDaily, 1, false}, {10, 11, 12, no, 14, no}, 11.0},
      {{kDaily, 2, true}, {10, 11, 12, 13, no, 15}, 12.0},
      {{kDaily, 2, true}, {10, 11, no, 13, no, 15}, 9.0},
      {{kDaily, 2, false}, {10, 11, 12, no, 14, no}, 11.0},
  };
  for (const auto& [form, sizes, expected] : cases)
    EXPECT_EQ(sizes.sizeFor(form), expected) << testing::PrintToString(expected);
}

using ScheduleControllerTest = test::MainWindowFixture;

TEST_F(ScheduleControllerTest, theDailyFormShowsAColumnForEachChosenVenue) {
  openWithRink();
  controller->schedule().setScheduleViewOption(ScheduleViewOption::daily);
  settle();
  EXPECT_EQ(description(), "March 18, 2026   (Today)");
  EXPECT_EQ(day().chosenVenues().size(), 1U);
  emit sidebar().venueToggled(4, true);
  settle();
  EXPECT_EQ(day().chosenVenues().size(), 2U);
  EXPECT_EQ(rink->dailyVenueIDs, (std::vector<std::int64_t>{7, 4})) << "in the order of clicking";
  emit sidebar().venueToggled(7, false);
  emit sidebar().venueToggled(4, false);
  EXPECT_TRUE(rink->dailyVenueIDs.empty()) << "the last one may go";
  rink->postNotification(kVenuesChanged);
  settle();
  EXPECT_EQ(day().chosenVenues().size(), 1U) << "until the venues are looked at anew";
  controller->next();
  endGlide();
  EXPECT_EQ(description(), "March 19, 2026   (Tomorrow)");
  controller->schedule().setScheduleViewOption(ScheduleViewOption::weekly);
  settle();
  EXPECT_EQ(week().selectedDate(), packedDate(2026, 3, 19)) << "the day that was looked at is marked";
}

TEST_F(ScheduleControllerTest, aDoubleClickInTheWeekOpensTheDay) {
  openWithRink();
  emit sidebar().fitToggled(false);
  settle();
  const ScheduleGrid& grid = week().layout().grid();
  const QPoint friday(static_cast<int>(grid.columnX(5) + 5), static_cast<int>(grid.axis.y(1200)));
  QTest::mouseDClick(&week(), Qt::LeftButton, {}, friday);
  settle();
  EXPECT_EQ(day().showingDate(), packedDate(2026, 3, 20));
  EXPECT_EQ(pane().calendarView().currentDate(), packedDate(2026, 3, 20));
  EXPECT_EQ(pane().calendarView().periodOption(), PeriodViewOption::day);
}

TEST_F(ScheduleControllerTest, theCalendarLeadsToItsDate) {
  openWithRink();
  CalendarView& calendar = pane().calendarView();
  EXPECT_EQ(calendar.minimumDate(), packedDate(2026, 3, 8));
  EXPECT_EQ(calendar.maximumDate(), packedDate(2026, 4, 4));
  calendar.setDate(packedDate(2026, 3, 22), Animate::no);  // the next week: its page is turned to
  settle();
  EXPECT_TRUE(pane().schedulePagingView().isTurning());
  endGlide();
  EXPECT_EQ(week().weekOf(), packedDate(2026, 3, 22));
  calendar.setDate(packedDate(2026, 3, 10), Animate::no);
  settle();
  EXPECT_FALSE(pane().schedulePagingView().isTurning());
  EXPECT_EQ(week().weekOf(), packedDate(2026, 3, 8));
  controller->next();  // a choice in the middle of a turn isn't lost
  calendar.setDate(packedDate(2026, 3, 31), Animate::no);
  settle();
  endGlide();
  EXPECT_EQ(week().weekOf(), packedDate(2026, 3, 29));
  EXPECT_EQ(calendar.currentDate(), packedDate(2026, 3, 31));
}

TEST_F(ScheduleControllerTest, textSizesAreKeptForEachForm) {
  openWithRink();
  for (int i = 0; i < 4; ++i) controller->schedule().increaseTextSize();
  emit sidebar().fitToggled(false);
  EXPECT_EQ(controller->windowSettings().count("weeklyFontSizeScroll"), 0U);
  controller->schedule().decreaseTextSize();
  const auto settings = controller->windowSettings();
  EXPECT_TRUE(settings.at("weeklyFontSizeFit") == PropertyList(11.0));
  EXPECT_TRUE(settings.at("weeklyFontSizeScroll") == PropertyList(10.5)) << "began with the other form's";
  for (int i = 0; i < 60; ++i) controller->schedule().increaseTextSize();
  EXPECT_TRUE(controller->windowSettings().at("weeklyFontSizeScroll") == PropertyList(24.0));
}

/// Near has a public session from 10:05 to 10:30, resurfacing to 10:45, and nothing until 11:00.
class ScheduleChimeTest : public test::MainWindowFixture {
 protected:
  ScheduleChimeTest() {
    addRinks();
    rink->venue(7)
        ->weeklySchedule(packedDate(2026, 3, 15))
        ->adopt({{},
                 {{SessionKind::publicSession, 3, 605, 25, "", ""},
                  {SessionKind::resurface, 3, 630, 15, "", ""},
                  {SessionKind::freestyle, 3, 660, 60, "", ""}}});
    open();
    choose(1);
    emit sidebar().chimeChosen(7);
    settle();
  }
  std::size_t chimesAfter(double minutes) {
    const std::size_t before = world.sounds.played.size();
    pass(minutes * 60.0);
    return world.sounds.played.size() - before;
  }
};

TEST_F(ScheduleChimeTest, soundsWhenASessionBeginsOrEndsAsTheMinutePasses) {
  const std::tuple<double, std::size_t, const char*> steps[] = {{4, 0, "10:04"},
                                                                {1, 1, "10:05, the session begins"},
                                                                {1, 0, "10:06"},
                                                                {23, 0, "10:29, a jump"},
                                                                {1, 1, "10:30, it ends"},
                                                                {14, 0, "10:44"},
                                                                {1, 0, "10:45, only the resurfacing ends"},
                                                                {20, 0, "11:05, a jump over a beginning"}};
  for (const auto& [minutes, chimes, why] : steps) EXPECT_EQ(chimesAfter(minutes), chimes) << why;
  emit sidebar().chimeChosen(0);
  settle();
  pass(54 * 60.0);
  EXPECT_EQ(chimesAfter(1), 0U) << "12:00, switched off";
}

TEST_F(ScheduleChimeTest, ofTwoWindowsTheFrontOneSpeaks) {
  const auto second = MainWindowController::create(world.context);
  second->restoreSettings(controller->windowSettings(), FromAnotherDocument::yes);
  second->showWindow();
  settle();
  EXPECT_TRUE(second->wantsChime()) << "the rink keeps its chime for every window";
  pass(4 * 60.0);
  EXPECT_EQ(chimesAfter(1), 1U);
  second->window()->close();
}

TEST_F(ScheduleControllerTest, theNightBelongsToTheDayBeforeWhileItsSessionsLast) {
  addRinks();
  rink->venue(7)
      ->weeklySchedule(packedDate(2026, 3, 15))
      ->adopt({{}, {{SessionKind::party, 3, 1410, 90, "", ""}}});
  open();
  choose(1);
  pass(14.5 * 3600.0);  // 0:30 on Thursday
  EXPECT_EQ(controller->schedule().currentDate(), packedDate(2026, 3, 18));
  choose(2);
  choose(1);
  EXPECT_EQ(controller->schedule().currentDate(), packedDate(2026, 3, 18))
      << "by night also without a minute's wait";
  pass(3600.0);
  EXPECT_EQ(controller->schedule().currentDate(), packedDate(2026, 3, 19));
}

TEST_F(ScheduleControllerTest, aPaneThatDoesNotShowDoesNoWork) {
  openWithRink();
  controller->selectPane(MainWindowPane::info);
  settle();
  rink->postNotification(kSchedulesChanged);
  settle();
  EXPECT_TRUE(week().isAwaitingData);
  controller->selectPane(MainWindowPane::schedule);
  settle();
  EXPECT_FALSE(week().isAwaitingData);
  EXPECT_EQ(world.application.changes, 2);
}

TEST_F(ScheduleControllerTest, keysThatMeanNothingAreHeard) {
  open();
  QTest::keyClick(controller->window(), Qt::Key_X);
  EXPECT_EQ(world.sounds.played, std::vector<std::string>{"Tink"});
  QTest::keyClick(controller->window(), Qt::Key_Escape);
  QTest::keyClick(controller->window(), Qt::Key_Left);
  QTest::keyClick(controller->window(), Qt::Key_F7);
  EXPECT_EQ(world.sounds.played.size(), 1U);
  QTest::keyClick(controller->window(), Qt::Key_Return);
  EXPECT_EQ(world.sounds.played.size(), 2U);
}

}  // namespace
}  // namespace tarvel
