#include "mainwindow/ScheduleSidebar.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QScrollBar>
#include <QTest>

#include "mainwindow/CalendarSidebar.h"
#include "mainwindow/MainTitleRow.h"
#include "mainwindow/TextLabel.h"
#include "schedule/CalendarView.h"
#include "schedule/ScheduleWorld.h"
#include "ui/SegmentedControl.h"

namespace tarvel {
namespace {

using Said = std::vector<std::string>;

QAbstractButton* buttonNamed(const QWidget& view, const QString& name) {
  for (auto* button : view.findChildren<QAbstractButton*>()) {
    if (button->isHidden()) continue;
    if (button->accessibleName() == name || button->text() == name) return button;
  }
  ADD_FAILURE() << "no button " << name.toStdString();
  return nullptr;
}

void click(const QWidget& view, const QString& name) {
  if (auto* button = buttonNamed(view, name)) QTest::mouseClick(button, Qt::LeftButton, {}, {8, 8});
}

class ScheduleSidebarTest : public testing::Test {
 protected:
  /// Notes a signal, with its values as numbers.
  auto says(const std::string& what) {
    return [this, what](auto... values) {
      said.push_back(what);
      ((said.back() += " " + std::to_string(static_cast<std::int64_t>(values))), ...);
    };
  }
  ScheduleSidebarTest() : sidebar(nullptr) {
    using Bar = ScheduleSidebar;
    QObject::connect(&sidebar, &Bar::viewOptionChosen, says("option"));
    QObject::connect(&sidebar, &Bar::venueToggled, says("venue"));
    QObject::connect(&sidebar, &Bar::chimeChosen, says("chime"));
    QObject::connect(&sidebar, &Bar::fitToggled, says("fit"));
    QObject::connect(&sidebar, &Bar::showTimesToggled, says("times"));
    QObject::connect(&sidebar, &Bar::decreaseTextSize, says("smaller"));
    QObject::connect(&sidebar, &Bar::increaseTextSize, says("larger"));
    sidebar.resize(200, 700);
    sidebar.show();
    QApplication::setActiveWindow(&sidebar);
    QApplication::processEvents();
  }
  static std::vector<VenueChoice> venues(int count, std::int64_t chosen) {
    std::vector<VenueChoice> result;
    for (int i = 1; i <= count; ++i)
      result.push_back({"Sheet " + std::to_string(i), 10 * i, 10 * i == chosen});
    return result;
  }
  Said taken() { return std::exchange(said, {}); }

  ScheduleSidebar sidebar;
  Said said;
};

TEST_F(ScheduleSidebarTest, saysWhatTheUserDidAndNothingOfWhatItIsTold) {
  sidebar.setVenues(venues(3, 10), VenueButtonKind::radio);
  sidebar.setChimeItems({{"Sheet 1", 10}, {"Sheet 2", 20}});
  sidebar.selectChime(20);
  sidebar.setOption(ScheduleViewOption::daily);
  sidebar.setFit(true);
  sidebar.setShowTimes(true);
  EXPECT_EQ(taken(), Said{});
  const QWidget* focus = QApplication::focusWidget();
  for (const char* name : {"Weekly", "Sheet 2", "Fit", "Times", "Smaller text", "Larger text"})
    click(sidebar, name);
  EXPECT_EQ(taken(), (Said{"option 0", "venue 20 1", "fit 0", "times 0", "smaller", "larger"}));
  EXPECT_FALSE(buttonNamed(sidebar, "Sheet 1")->isChecked());
  EXPECT_EQ(QApplication::focusWidget(), focus) << "clicks leave the keyboard where it is";
  auto* chime = sidebar.findChild<ChimePopUpButton*>();
  QTest::keyClick(chime, Qt::Key_Up);
  QTest::keyClick(chime, Qt::Key_Up);
  EXPECT_EQ(taken(), (Said{"chime 10", "chime 0"}));
}

TEST_F(ScheduleSidebarTest, venueButtonsFollowChoiceAndKind) {
  sidebar.setVenues(venues(2, 10), VenueButtonKind::checkBox);
  click(sidebar, "Sheet 2");
  click(sidebar, "Sheet 1");
  EXPECT_EQ(taken(), (Said{"venue 20 1", "venue 10 0"}));
  // The answer to a click may be other venues; the button that was clicked is still at work.
  QObject::connect(&sidebar, &ScheduleSidebar::venueToggled, &sidebar,
                   [this] { sidebar.setVenues(venues(2, 0), VenueButtonKind::radio); });
  click(sidebar, "Sheet 2");
  for (const char* name : {"Sheet 1", "Sheet 2"}) EXPECT_FALSE(buttonNamed(sidebar, name)->isChecked());
  const auto* kept = buttonNamed(sidebar, "Sheet 2");
  sidebar.setVenues(venues(2, 20), VenueButtonKind::radio);
  EXPECT_EQ(buttonNamed(sidebar, "Sheet 2"), kept);
  EXPECT_TRUE(kept->isChecked());
  sidebar.setVenues(venues(2, 0), VenueButtonKind::radio);
  EXPECT_FALSE(kept->isChecked()) << "none may be chosen";
}

TEST_F(ScheduleSidebarTest, longTitlesAreCutAndManyVenuesScroll) {
  const std::string title = "Sheet & hall of a name that no sidebar of this width can show";
  sidebar.setVenues({{title, 1, true}}, VenueButtonKind::radio);
  auto* button = buttonNamed(sidebar, QString::fromStdString(title));
  EXPECT_TRUE(button->text().startsWith("Sheet && ha"));
  EXPECT_TRUE(button->text().endsWith(QChar(0x2026)));
  EXPECT_TRUE(button->toolTip().contains("can show"));
  const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(button);
  EXPECT_EQ(spoken->text(QAccessible::Name).toStdString(), title);
  EXPECT_EQ(spoken->text(QAccessible::Description), "") << "the tip says the same, in markup";
  EXPECT_LT(button->mapTo(&sidebar, button->rect().topRight()).x(), 200);

  sidebar.resize(200, 400);
  sidebar.setVenues(venues(20, 10), VenueButtonKind::checkBox);
  auto* area = sidebar.findChild<VenueButtons*>();
  EXPECT_GT(area->verticalScrollBar()->maximum(), 0);
  auto* last = buttonNamed(sidebar, "Sheet 20");
  EXPECT_TRUE(last->visibleRegion().isEmpty());
  last->setFocus(Qt::TabFocusReason);
  EXPECT_EQ(last->visibleRegion().boundingRect(), last->rect());
  EXPECT_FALSE(sidebar.showsItemInfo());
}

TEST_F(ScheduleSidebarTest, chimeItemsAreRetitledAndTheFirstStays) {
  auto* chime = sidebar.findChild<ChimePopUpButton*>();
  const auto labels = QAccessible::queryAccessibleInterface(chime)->relations(QAccessible::Label);
  ASSERT_EQ(labels.size(), 1);
  EXPECT_EQ(labels[0].first->text(QAccessible::Name), "Chime");
  sidebar.setChimeItems({{"A", 1}, {"B", 2}, {"C", 3}});
  sidebar.selectChime(2);
  sidebar.selectChime(99);
  EXPECT_EQ(chime->currentText(), "B");
  sidebar.setChimeItems({{"D", 4}});
  EXPECT_EQ(chime->count(), 2);
  EXPECT_EQ(chime->itemText(0), "None");
  EXPECT_EQ(chime->itemText(1), "D");
  sidebar.selectChime(0);
  EXPECT_EQ(chime->currentIndex(), 0);
  EXPECT_EQ(taken(), Said{});
}

TEST_F(ScheduleSidebarTest, tabGoesFromTopToBottom) {
  sidebar.setVenues(venues(2, 10), VenueButtonKind::checkBox);
  buttonNamed(sidebar, "Weekly")->setFocus();
  Said names;
  for (int i = 0; i < 8; ++i) {
    const QWidget* at = QApplication::focusWidget();
    const auto* button = qobject_cast<const QAbstractButton*>(at);
    const QString name = at->accessibleName();
    names.push_back((name.isEmpty() && button ? button->text() : name).toStdString());
    QTest::keyClick(&sidebar, Qt::Key_Tab);
  }
  EXPECT_EQ(names,
            (Said{"Weekly", "Sheet 1", "Sheet 2", "Chime", "Fit", "Times", "Smaller text", "Larger text"}));
}

TEST(MainTitleRow, saysWhatWasClickedAndPagesOnPressing) {
  MainTitleRow row(nullptr);
  Said said;
  const auto say = [&said](const char* what) { return [&said, what] { said.push_back(what); }; };
  QObject::connect(&row, &MainTitleRow::toggleShowRinks, say("rinks"));
  QObject::connect(&row, &MainTitleRow::back, say("back"));
  QObject::connect(&row, &MainTitleRow::gotoNow, say("now"));
  QObject::connect(&row, &MainTitleRow::prev, say("prev"));
  QObject::connect(&row, &MainTitleRow::next, say("next"));
  QObject::connect(&row, &MainTitleRow::toggleShowCalendar, say("calendar"));
  QObject::connect(&row, &MainTitleRow::paneChosen,
                   [&](int pane) { said.push_back("pane " + std::to_string(pane)); });
  QObject::connect(&row, &MainTitleRow::showRefreshStatus,
                   [&](const QWidget* at) { said.push_back(at->accessibleName().toStdString()); });
  row.resize(900, MainTitleRow::kHeight);
  row.setPane(MainWindowPane::schedule);
  row.show();
  for (const char* name : {"Show or hide the rinks", "Back", "Photos", "How current the rink is", "Now",
                           "Show or hide the calendar"}) {
    click(row, name);
  }
  QTest::mousePress(buttonNamed(row, "Previous"), Qt::LeftButton);
  QTest::mousePress(buttonNamed(row, "Next"), Qt::LeftButton);
  for (auto* label : row.findChildren<TextLabel*>()) QTest::mouseClick(label, Qt::LeftButton);
  EXPECT_EQ(said, (Said{"rinks", "back", "pane 3", "How current the rink is", "now", "calendar", "prev",
                        "next", "calendar"}));
  row.setControlVisible(TitleRowControl::showCalendar, false);
  for (auto* label : row.findChildren<TextLabel*>()) EXPECT_TRUE(label->isHidden());
}

TEST(CalendarSidebar, widthHasRoomForWideColumnsBesideTheBar) {
  test::ScheduleWorld world;
  CalendarSidebar sidebar(world.context, nullptr);
  sidebar.calendarView().setRange(packedDate(2026, 1, 1), packedDate(2026, 12, 31));
  sidebar.resize(CalendarSidebar::kWidth, 500);
  sidebar.show();
  QApplication::processEvents();
  EXPECT_EQ(sidebar.width(), CalendarSidebar::kWidth);
  EXPECT_EQ(sidebar.calendarView().layout().colWidth(), CalendarLayout::kWideColumnWidth);
  sidebar.close();
}

}  // namespace
}  // namespace tarvel
