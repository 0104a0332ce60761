#include <QScrollArea>
#include <QScrollBar>
#include <QVariantAnimation>

#include "NoticesWorld.h"
#include "mainwindow/NoticeBanner.h"
#include "mainwindow/NoticesPane.h"
#include "mainwindow/NoticesView.h"
#include "ui/Painted.h"

namespace tarvel {
namespace {

using test::notice;

class NoticesViewTest : public test::NoticesWorld {
 protected:
  NoticesViewTest() {
    pane->resize(window.size());
    pane->show();
    view.setRinkData(rink);
    settle();
  }
  ~NoticesViewTest() override { pane->close(); }

  void clickAt(double y) {
    QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(100, static_cast<int>(y)));
    settle();
  }
  void clickRow(std::size_t row) { clickAt(view.offsets()[row] + 5); }
  int selected() const {
    return view.selectedNotice() ? static_cast<int>(view.selectedNotice()->noticeID) : 0;
  }

  NoticesPane* pane = new NoticesPane(world.context, &window);
  NoticesView& view = pane->noticesView();
};

TEST_F(NoticesViewTest, ClicksSelectAndTheSelectionOutlivesAReload) {
  const NoticeList list = {notice(1), notice(2, ""), notice(3, "", ""),
                           notice(4, "Long", std::string(10'000, 'x'))};
  NoticesView narrow(world.context);
  narrow.resize(0, 0);
  narrow.setRinkData(rink);
  publish(list);
  EXPECT_EQ(narrow.offsets().size(), 5U) << "also while there is no room";
  ASSERT_EQ(view.offsets().size(), 5U);
  EXPECT_GT(view.height(), 2'000) << "a long text shows in full";
  for (const std::size_t row : {0U, 2U, 1U}) {
    clickRow(row);
    EXPECT_EQ(selected(), static_cast<int>(row) + 1);
  }
  publish({list[1], notice(5)});
  EXPECT_EQ(selected(), 2);
  const QColor frame = color(kSelectedContentBackground, &view);
  const QRect ink = test::inkOf(test::painted(view), [&](const QColor& pixel) { return pixel == frame; });
  EXPECT_EQ(ink, QRect(0, 0, view.width(), static_cast<int>(view.offsets()[1])));
  clickAt(view.offsets().back() + 4);
  EXPECT_EQ(selected(), 0) << "below the last row";
  clickRow(0);
  publish({notice(2)});
  EXPECT_EQ(selected(), 0) << "the same id, but another notice";
}

TEST_F(NoticesViewTest, ASelectionWaitsForTheListAndScrollsToItsRow) {
  NoticeList list;
  for (int id = 1; id <= 30; ++id) list.push_back(notice(id));
  rink->adoptNotices({test::ScheduleWorld::kFileDate, list});
  view.needsData();
  view.selectNotice(list[25]);
  EXPECT_EQ(selected(), 0);
  settle();
  EXPECT_EQ(selected(), 26);
  view.findChild<QVariantAnimation*>()->setCurrentTime(ScrollableView::kScrollMilliseconds);
  EXPECT_EQ(pane->scroller().verticalScrollBar()->value() + pane->scroller().viewport()->height(),
            view.offsets()[26]);
  view.selectNotice(notice(26));
  EXPECT_EQ(selected(), 0) << "not in the list";
}

TEST_F(NoticesViewTest, FollowsTheWidthAndTheWindowsState) {
  publish({notice(1, "A summary that needs two lines in a narrow view")});
  const double wide = view.offsets()[1];
  pane->resize(240, 400);
  settle();
  EXPECT_GT(view.offsets()[1], wide);
  EXPECT_EQ(view.width(), pane->scroller().viewport()->width());

  clickRow(0);
  EXPECT_TRUE(view.isActive());
  Window other;
  other.resize(100, 100);
  other.makeKeyAndOrderFront();
  settle();
  EXPECT_FALSE(view.isActive());
}

using Ids = std::vector<std::int64_t>;

class NoticeBannerTest : public test::NoticesWorld {
 protected:
  NoticeBannerTest() {
    banner->resize(window.width(), NoticeBanner::kHeight);
    view.noticeChosen = [this](const auto& chosen) { chosenIDs.push_back(chosen->noticeID); };
  }
  ~NoticeBannerTest() override { banner->close(); }

  void show(const NoticeList& notices) {
    publish(notices);
    banner->applyRule(rink);
    settle();
  }
  void click(QWidget& button) {
    QTest::mouseClick(&button, Qt::LeftButton);
    settle();
  }

  NoticeBanner* banner = new NoticeBanner(world.context, &window);
  NoticeBannerView& view = banner->view();
  Ids chosenIDs;
};

TEST_F(NoticeBannerTest, TheRuleOfTheBanner) {
  EXPECT_FALSE(bannerWanted(nullptr));
  EXPECT_FALSE(bannerWanted(rink.get())) << "nothing read yet";
  const std::tuple<NoticeList, Ids, bool> cases[] = {{{}, {}, false},
                                                     {{notice(1)}, {}, true},
                                                     {{notice(1), notice(2)}, {1}, true},
                                                     {{notice(1), notice(2)}, {2, 1}, false}};
  for (const auto& [published, dismissed, wanted] : cases) {
    rink->adoptNotices({{}, published});
    rink->dismissedNotices = dismissed;
    EXPECT_EQ(bannerWanted(rink.get()), wanted);
    banner->applyRule(rink);
    EXPECT_EQ(banner->bannerVisible(), wanted);
    EXPECT_EQ(banner->isVisible(), wanted);
  }
}

TEST_F(NoticeBannerTest, ArrowsGoThroughTheNoticesAndDismissWhatTheyLeave) {
  show({notice(1), notice(2), notice(3)});
  const auto state = [&] { return std::make_pair(view.countField().text(), rink->dismissedNotices); };
  EXPECT_EQ(state(), std::make_pair(QString("1 of 3"), Ids{}));
  click(view.nextButton());
  EXPECT_EQ(state(), std::make_pair(QString("2 of 3"), Ids{1}));
  QTest::keyClick(&view.prevButton(), Qt::Key_Space);
  EXPECT_EQ(state(), std::make_pair(QString("1 of 3"), (Ids{1, 2})));
  EXPECT_EQ(world.application.changes, 2);
  for (int i = 0; i < 3; ++i) click(view.nextButton());
  EXPECT_EQ(state(), std::make_pair(QString("3 of 3"), (Ids{1, 2})));
  EXPECT_TRUE(view.prevButton().isEnabled() && !view.nextButton().isEnabled());
  view.needsData();
  settle();
  EXPECT_EQ(view.noticeList().size(), 1U) << "the next reading drops those seen";
  EXPECT_EQ(view.currentIndex(), 0U);
  EXPECT_FALSE(view.countField().isVisible() || view.prevButton().isVisible());
}

TEST_F(NoticeBannerTest, DismissingTakesTheNoticeOnShowAloneAndTheBannerComesBackForTheOthers) {
  const NoticeList list = {notice(1), notice(2), notice(3)};
  publish(list);
  banner->applyRule(rink);
  banner->hideNoticeBanner();
  settle();
  banner->hideNoticeBanner();
  EXPECT_EQ(rink->dismissedNotices, Ids{}) << "gone before it could show any";
  show(list);
  click(banner->dismissButton());
  EXPECT_FALSE(banner->bannerVisible());
  EXPECT_EQ(rink->dismissedNotices, Ids{1});
  show(list);
  EXPECT_TRUE(banner->bannerVisible());
  EXPECT_EQ(view.countField().text(), "1 of 2");
  show({notice(2)});
  EXPECT_EQ(view.currentIndex(), 0U);
  const auto other = world.dataModel.rinkData(8);
  other->adoptNotices({{}, {notice(9)}});
  banner->showNoticeBanner(other);
  settle();
  EXPECT_EQ(view.rinkData(), rink) << "a banner on show keeps its rink";
  view.setRinkData(nullptr);
  banner->showNoticeBanner(rink);
  settle();
  EXPECT_EQ(view.noticeList().size(), 1U) << "its rink had gone";
  banner->close();
  EXPECT_EQ(rink->dismissedNotices, Ids{2}) << "closing the window counts as having seen it";
}

TEST_F(NoticeBannerTest, AClickOnTheTextChoosesTheNotice) {
  show({notice(4), notice(5)});
  click(view.nextButton());
  const auto clickAt = [&](int x) { QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(x, 60)); };
  clickAt(10);
  clickAt(view.width() - 81);
  clickAt(view.width() - 78);
  EXPECT_EQ(chosenIDs, (Ids{5, 5}));
  view.setRinkData(nullptr);
  clickAt(10);
  EXPECT_EQ(chosenIDs.size(), 2U) << "out of date";
  settle();
  clickAt(10);
  EXPECT_EQ(chosenIDs.size(), 2U) << "an empty banner";
}

TEST_F(NoticeBannerTest, TextsOfAnyLengthStayInTheirPlace) {
  const QColor blue(26, 26, 179);
  const std::string longText(10'000, 'x'), rightToLeft = "\xD8\xA5\xD8\xBA\xD9\x84\xD8\xA7\xD9\x82";
  const std::pair<std::string, std::string> cases[] = {
      {"", ""}, {longText, longText}, {"Short", longText}, {"", rightToLeft}, {"<b>x</b>", "&amp;"}};
  for (const auto& [summary, detail] : cases) {
    show({});
    show({notice(1, summary, detail)});
    const QImage image = test::painted(view);
    const QRect ink = test::inkOf(image, [&](const QColor& pixel) { return pixel != blue; });
    EXPECT_EQ(ink.isEmpty(), summary.empty() && detail.empty());
    EXPECT_TRUE(QRect(20, 6, view.width() - 100, 110).contains(ink) || ink.isEmpty()) << summary.size();
  }
}

}  // namespace
}  // namespace tarvel
