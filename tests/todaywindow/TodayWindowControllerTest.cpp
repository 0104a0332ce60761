#include "todaywindow/TodayWindowController.h"

#include <QTest>

#include "TodayFixture.h"
#include "todaywindow/TodayOptionsPopoverViewController.h"

namespace tarvel {
namespace {

class TodayWindowControllerTest : public test::TodayFixture {
 protected:
  std::size_t chimes() const { return world.sounds.played.size(); }
};

constexpr PackedDate kWednesday = packedDate(2026, 3, 18);

TEST_F(TodayWindowControllerTest, ChimesBetweenSessionsMinuteByMinute) {
  const auto controller = open({{"chimeOption", true}});
  // from: jumped to, in silence
  const std::tuple<const char*, std::int64_t, std::size_t> cases[] = {
      {"from a session to a resurfacing", 719, 1},
      {"from a resurfacing to a session", 734, 1},
      {"from a session to nothing", 779, 1},
      {"from nothing to a session", 1319, 1},
      {"within a session", 1330, 0},
      {"past midnight", 1439, 0},
      {"a late session ends", 1529, 1},
  };
  for (const auto& [name, from, heard] : cases) {
    jumpTo(from);
    EXPECT_EQ(chimes(), 0U) << name << ": the jump";
    passMinutes(1);
    EXPECT_EQ(chimes(), heard) << name;
    world.sounds.played.clear();
  }
}

TEST_F(TodayWindowControllerTest, NothingToResurfacingIsSilent) {
  week(4)->adopt({{}, {{SessionKind::resurface, 3, 601, 10, "", ""}}});
  week(4)->postChanged();
  const auto controller = open({{"chimeOption", true}});
  passMinutes(12);
  EXPECT_EQ(chimes(), 0U);
}

TEST_F(TodayWindowControllerTest, OfSeveralWindowsTheFrontOneSpeaks) {
  struct MainWindow : WindowController, ChimingWindow {
    MainWindow() : WindowController(std::make_unique<Window>()) {}
    std::string className() const override { return "MainWindowController"; }
    bool wantsChime() const override { return chimes; }
    bool chimes = true;
  };
  const auto back = open({{"chimeOption", true}});
  const auto front = open({{"chimeOption", true}});
  const std::int64_t changes[] = {719, 734, 779, 1319};
  const auto ringAt = [&](std::int64_t minute) {
    world.sounds.played.clear();
    jumpTo(minute);
    passMinutes(1);
    return chimes();
  };
  EXPECT_EQ(ringAt(changes[0]), 1U) << "two windows, one chime";
  front->chimeOption = false;
  EXPECT_EQ(ringAt(changes[1]), 1U) << "the one behind, as the front one doesn't";
  MainWindow main;
  main.window()->makeKeyAndOrderFront();
  EXPECT_EQ(ringAt(changes[2]), 0U) << "the main window in front chimes itself";
  main.chimes = false;
  EXPECT_EQ(ringAt(changes[3]), 1U);
}

TEST_F(TodayWindowControllerTest, ALateNightBelongsToTheDayBefore) {
  const auto opened = [&] { return open(); };
  auto controller = opened();
  const std::tuple<std::int64_t, PackedDate, std::int64_t, const char*> cases[] = {
      {1439, kWednesday, 1439, "11:59 pm"},        {1470, kWednesday, 1470, "12:30 am"},
      {1530, kWednesday, 1530, "1:30 am"},         {1531, nextDay(kWednesday), 91, "1:31 am"},
      {1900, nextDay(kWednesday), 460, "7:40 am"},
  };
  for (const auto& [moment, date, time, clock] : cases) {
    jumpTo(moment);
    // A window that opens then sees the same as one that has stood there since the evening.
    for (int i = 0; i < 2; ++i, controller = opened()) {
      const TodayScheduleView& view = controller->todayScheduleView();
      EXPECT_EQ(view.currentDate(), date) << clock;
      EXPECT_EQ(view.currentTime(), time) << clock;
      EXPECT_EQ(controller->currentDate(), date) << clock;
      EXPECT_EQ(controller->views().timeField().text(), clock);
      const PackedDate real = moment < 1440 ? kWednesday : nextDay(kWednesday);
      EXPECT_EQ(controller->views().dateField().text(), fullDateText(real));
      const auto marker = view.layout().timeMarkerRect(time);
      EXPECT_EQ(marker.has_value(), view.timeMarkerView() && !view.timeMarkerView()->isHidden());
    }
  }
}

TEST_F(TodayWindowControllerTest, SettingsComeBackAndStrangeOnesDont) {
  const PropertyList::Dictionary settings{{"rinkID", 1},
                                          {"venueID", 7},
                                          {"fitHeight", false},
                                          {"heightScaleFactor", 2.5},
                                          {"scheduleFontSizeFit", 12.0},
                                          {"scheduleFontSizeScroll", 24.5},
                                          {"chimeOption", true},
                                          {"colorMode", 1}};
  auto controller = open(settings);
  EXPECT_EQ(controller->windowSettings(), settings);
  EXPECT_EQ(controller->windowObject(), rink->venue(7).get());
  EXPECT_EQ(controller->window()->chosenAppearance(), Appearance::dark);
  controller->restoreSettings({}, FromAnotherDocument::no);
  PropertyList::Dictionary expected = settings;
  expected["colorMode"] = 2;
  EXPECT_EQ(controller->windowSettings(), expected);
  EXPECT_EQ(controller->window()->chosenAppearance(), std::nullopt);
  controller->restoreSettings({{"rinkID", 1},
                               {"venueID", 99},
                               {"colorMode", 3},
                               {"heightScaleFactor", 1e9},
                               {"scheduleFontSizeFit", -4.0},
                               {"scheduleFontSizeScroll", 1e300}},
                              FromAnotherDocument::no);
  expected["venueID"] = 4;
  expected["heightScaleFactor"] = TodayScheduleView::kLargestScale;
  expected["scheduleFontSizeFit"] = 0.0;
  expected["scheduleFontSizeScroll"] = 36.0;
  EXPECT_EQ(controller->windowSettings(), expected);
  controller->restoreSettings({{"rinkID", 77}, {"venueID", 5}}, FromAnotherDocument::no);
  EXPECT_EQ(controller->chosenRink(), nullptr);
  expected["rinkID"] = 77;
  expected["venueID"] = 5;
  EXPECT_EQ(controller->windowSettings(), expected) << "the catalogue was lost: its rink is waited for";
  world.addRink(77, "Late");
  settle();
  ASSERT_NE(controller->chosenRink(), nullptr);
  EXPECT_EQ(controller->chosenRink()->rinkID, 77);

  const auto fresh = TodayWindowController::create(context);
  fresh->defaultSettings();
  EXPECT_EQ(fresh->chosenRink(), rink);
  EXPECT_EQ(fresh->chosenVenue()->venueID, 4);
  EXPECT_TRUE(fresh->chimeOption);
}

TEST_F(TodayWindowControllerTest, FollowsItsRinkAndOutlivesIt) {
  const auto controller = open();
  const InfoView& info = controller->views().infoView();
  EXPECT_EQ(info.text()->plainText(), "North\nNear Schedule");
  controller->views().setNames("The Memorial Ice Pavilion of the Northern Lakes", "Near Schedule");
  EXPECT_LE(boundingRect(*info.text(), {}, TextFit::wrap).width, info.width() - 2 * InfoView::kSideMargin)
      << "a long name is smaller and leaves the second line its room";
  rink->mergeVenues({test::ScheduleWorld::venue(7, "Far", 2)});
  rink->postNotification(kVenuesChanged);
  settle();
  EXPECT_EQ(controller->chosenVenue()->venueID, 7) << "the chosen one has gone";
  EXPECT_FALSE(info.text()) << "a rink of one venue";
  rink->refreshState.errorKind = DownloadErrorKind::connectionError;
  rink->postNotification(kRefreshStatusChanged);
  settle();
  controller->showRefreshRinkStatus();
  EXPECT_TRUE(controller->popovers().isOpen());
  EXPECT_FALSE(controller->windowShouldClose());

  world.dataModel.mergeRinkList(RinkListFile{});
  rink.reset();
  settle();
  EXPECT_EQ(controller->chosenRink(), nullptr);
  EXPECT_EQ(controller->views().timeField().text(), "");
  EXPECT_TRUE(controller->todayScheduleView().scheduleItems().empty());
  EXPECT_TRUE(controller->todayScheduleView().timeMarkerView()->isHidden()) << "no rink, no time";
  EXPECT_TRUE(controller->windowShouldClose()) << "the popover went with the rink";
  EXPECT_TRUE(controller->window()->isVisible());
}

TEST_F(TodayWindowControllerTest, ARinkThatIsGoneAtOnceLeavesNoSessionsBehind) {
  const auto controller = open();
  ASSERT_FALSE(controller->todayScheduleView().scheduleItems().empty());
  world.dataModel.mergeRinkList(RinkListFile{});
  rink.reset();
  settle();
  EXPECT_TRUE(controller->todayScheduleView().scheduleItems().empty());
}

TEST_F(TodayWindowControllerTest, OptionsTakeEffectAtOnceAndAreSaved) {
  const auto controller = open();
  controller->changeSettings();
  settle();
  TodayOptionsPopoverViewController& options = *controller->options();
  EXPECT_EQ(options.venuePopupButton().currentText(), "Near");
  EXPECT_FALSE(options.scaleHeightSlider().isEnabled());
  const auto expectChange = [&](const char* what, auto act) {
    application.changes = 0;
    act();
    EXPECT_GE(application.changes, 1) << what;
  };
  expectChange("fit", [&] { options.fitHeightCheckbox().click(); });
  expectChange("scale", [&] { options.scaleHeightSlider().setValue(350); });
  expectChange("larger", [&] { QTest::mousePress(&options.scheduleIncreaseButton(), Qt::LeftButton); });
  QTest::mouseRelease(&options.scheduleIncreaseButton(), Qt::LeftButton);
  expectChange("chime", [&] { options.chimeCheckbox().click(); });
  expectChange("dark", [&] { options.colorModeButton(1).click(); });
  expectChange("venue", [&] { emit options.venuePopupButton().activated(1); });
  settle();
  EXPECT_TRUE(options.scaleHeightSlider().isEnabled());
  const PropertyList::Dictionary expected{{"rinkID", 1},
                                          {"venueID", 7},
                                          {"fitHeight", false},
                                          {"heightScaleFactor", 3.5},
                                          {"scheduleFontSizeFit", 0.0},
                                          {"scheduleFontSizeScroll", 9.5},
                                          {"chimeOption", true},
                                          {"colorMode", 1}};
  EXPECT_EQ(controller->windowSettings(), expected);
  EXPECT_FALSE(controller->windowShouldClose());
}

TEST_F(TodayWindowControllerTest, ClosingLetsGoOfEverything) {
  auto controller = open();
  for (const auto key : {Qt::Key_Shift, Qt::Key_Tab, Qt::Key_VolumeUp}) {
    QTest::keyClick(controller->window(), key);
    EXPECT_TRUE(world.sounds.played.empty()) << key;
  }
  for (const auto key : {Qt::Key_X, Qt::Key_Escape, Qt::Key_Left, Qt::Key_F5}) {
    world.sounds.played.clear();
    QTest::keyClick(controller->window(), key);
    EXPECT_EQ(world.sounds.played, std::vector<std::string>{"Tink"}) << key;
  }
  controller->window()->performClose();
  ASSERT_EQ(application.removed.size(), 1U);
  EXPECT_EQ(application.removed[0].second, SaveFrame::yes);
  world.sounds.played.clear();
  jumpTo(719);
  passMinutes(1);
  EXPECT_EQ(chimes(), 0U);
}

}  // namespace
}  // namespace tarvel
