#include "NoticesWorld.h"
#include "mainwindow/NoticeBannerView.h"
#include "mainwindow/NoticesView.h"
#include "mainwindow/RinkListView.h"

namespace tarvel {
namespace {

using test::notice;

/// The main window's lists, as a screen reader and the keyboard find them.
class AccessibleViewsTest : public test::NoticesWorld {
 protected:
  static std::vector<std::string> names(const AccessibleView& view) {
    std::vector<std::string> names;
    for (const AccessibleNode& node : view.accessibleTree().children)
      names.push_back(node.name.toStdString());
    return names;
  }
  static QString selected(const AccessibleView& view) {
    QString ids;
    for (const AccessibleNode& node : view.accessibleTree().children)
      ids += node.selected ? node.id : QString();
    return ids;
  }
};

TEST_F(AccessibleViewsTest, aRinkIsChosenByItsRow) {
  world.addRink(9, "Boreal");
  RinkListView list(world.context, &window);
  settle();
  list.pressAccessible("9");
  EXPECT_EQ(list.selectedRink(), nullptr) << "a closed list";
  list.enabled = true;
  EXPECT_EQ(names(list), (std::vector<std::string>{"Arctic", "Boreal"}));
  list.pressAccessible("9");
  EXPECT_EQ(selected(list), "9");
  EXPECT_EQ(list.accessibleFocus(), "9");
  EXPECT_EQ(world.application.changes, 1) << "as by a click";
  list.focusAccessible("7");
  list.focusAccessible("gone");
  EXPECT_EQ(selected(list), "7");
  EXPECT_EQ(world.application.changes, 1) << "as by a key";
  list.close();
  EXPECT_TRUE(names(list).empty());
}

TEST_F(AccessibleViewsTest, theArrowsSelectNotices) {
  NoticesView view(world.context, &window);
  view.setRinkData(rink);
  publish({notice(1), notice(2, "", ""), notice(3)});
  EXPECT_EQ(names(view)[0], "Closed\nAll day.\nPosted 3/1/26");
  const std::tuple<const char*, Qt::Key, const char*> cases[] = {
      {"", Qt::Key_Down, "1"},  {"", Qt::Key_Up, "3"},  {"1", Qt::Key_Down, "2"},
      {"3", Qt::Key_Down, "3"}, {"2", Qt::Key_Up, "1"}, {"1", Qt::Key_Up, "1"}};
  for (const auto& [before, key, after] : cases) {
    view.selectNotice(nullptr);
    view.focusAccessible(before);
    QTest::keyClick(&view, key);
    EXPECT_EQ(selected(view), after) << before << " " << key;
  }
  view.close();
}

TEST_F(AccessibleViewsTest, theBannersNoticeIsChosenByReturn) {
  NoticeBannerView banner(world.context, &window);
  std::vector<std::int64_t> chosen;
  banner.noticeChosen = [&](const auto& notice) { chosen.push_back(notice->noticeID); };
  banner.resize(400, 120);
  banner.show();
  banner.setRinkData(rink);
  publish({notice(1), notice(2)});
  EXPECT_EQ(names(banner).size(), 1U);
  QTest::keyClick(&banner, Qt::Key_Return);
  EXPECT_TRUE(chosen.empty()) << "nobody has gone to it";
  window.setAttribute(Qt::WA_KeyboardFocusChange);
  banner.setFocus(Qt::TabFocusReason);
  QTest::keyClick(&banner, Qt::Key_Return);
  banner.nextNotice();
  banner.pressAccessible("1");
  banner.pressAccessible("2");
  EXPECT_EQ(chosen, (std::vector<std::int64_t>{1, 2}));
  banner.closeBanner();
  EXPECT_TRUE(names(banner).empty());
  banner.close();
}

}  // namespace
}  // namespace tarvel
