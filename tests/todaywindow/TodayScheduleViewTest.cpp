#include "todaywindow/TodayScheduleView.h"

#include <QScrollBar>
#include <QVariantAnimation>
#include <set>

#include "TodayFixture.h"
#include "schedule/ScheduleTestOwner.h"
#include "ui/Painted.h"

namespace tarvel {
namespace {

using test::builtColor;
using test::expectColor;

class TodayScheduleViewTest : public test::TodayFixture {
 protected:
  TodayScheduleView& show(PropertyList::Dictionary settings = {}) {
    controller = open(std::move(settings));
    return controller->todayScheduleView();
  }
  QScrollBar& bar() { return *controller->views().todayScheduleScrollView().verticalScrollBar(); }
  QImage picture() {
    settle();
    return controller->todayScheduleView().grab().toImage().convertToFormat(QImage::Format_RGB32);
  }
  static int y(const TodayScheduleView& view, std::int64_t minute) {
    return static_cast<int>(view.layout().axis().y(minute));
  }

  std::unique_ptr<TodayWindowController> controller;
};

TEST_F(TodayScheduleViewTest, PaintsBarsAndFramesTheSessionThatIsOn) {
  TodayScheduleView& view = show();
  EXPECT_EQ(view.layout().input().dayRange, (DayRange{480, 1530}));
  const int x = 500;
  expectColor(picture(), x, y(view, 630), builtColor(SessionKind::publicSession));
  expectColor(picture(), x, y(view, 720) - 1, Qt::black);
  expectColor(picture(), x, y(view, 1400), builtColor(SessionKind::rental));
  expectColor(picture(), x, y(view, 900), color(kTodayBackground, Appearance::light));
  jumpTo(900);
  EXPECT_EQ(view.currentSession()->kind, SessionKind::publicSession) << "the last one found stays";
  expectColor(picture(), x, y(view, 600) - 2, color(kTodayBackground, Appearance::light));
}

TEST_F(TodayScheduleViewTest, NoLetterIsCutByALowBar) {
  TodayScheduleView& view = show({{"scheduleFontSizeFit", 36.0}});
  const QImage shown = picture();
  const auto isPlain = [&](int row) {
    std::set<QRgb> colors;
    for (int x = 320; x < 800; ++x) colors.insert(shown.pixel(x, row));
    return colors.size() == 1;
  };
  const int top = y(view, 735);
  const int bottom = y(view, 780);
  EXPECT_TRUE(isPlain(top + 2) && isPlain(bottom - 1)) << "also of the letters that reach below the line";
  EXPECT_FALSE(isPlain((top + bottom) / 2)) << "smaller, but written";
  EXPECT_TRUE(isPlain((y(view, 720) + top) / 2)) << "a bar too low for any letter";
}

TEST_F(TodayScheduleViewTest, AMinuteRepaintsTheMarkersStripAlone) {
  test::Repaints repaints;
  TodayScheduleView& view = show();
  view.installEventFilter(&repaints);
  passMinutes(1);
  ASSERT_FALSE(repaints.region.isEmpty());
  EXPECT_LE(repaints.region.boundingRect().height(), TodayLayout::kMarkerHeight + 3);
}

TEST_F(TodayScheduleViewTest, AfterAScrollTheViewRestsForHalfAMinute) {
  TodayScheduleView& view = show({{"fitHeight", false}, {"heightScaleFactor", 4.0}});
  const auto offset = [&](std::int64_t time) {
    return static_cast<int>(
        view.layout().scrollOffset(time, controller->views().todayScheduleScrollView().viewport()->height()));
  };
  EXPECT_EQ(bar().value(), offset(600)) << "a new window begins at the present moment";
  world.sim.world.runFor(31.0);
  bar().setValue(0);
  world.sim.world.runFor(29.0);
  tick();
  EXPECT_EQ(view.scrollAnimation().state(), QAbstractAnimation::Stopped) << "29 seconds after the scroll";
  passMinutes(1);
  EXPECT_EQ(view.scrollAnimation().state(), QAbstractAnimation::Running);
  EXPECT_EQ(view.scrollAnimation().duration(), 2000);
  view.scrollAnimation().setCurrentTime(2000);
  EXPECT_EQ(bar().value(), offset(602));
  passMinutes(1);
  view.scrollAnimation().setCurrentTime(2000);
  EXPECT_EQ(bar().value(), offset(603)) << "its own scrolling holds it up for less than a minute";

  world.sim.pretendTime.setOffset(7 * 86'400.0);
  bar().setValue(0);
  world.sim.pretendTime.setOffset(0.0);
  passMinutes(1);
  EXPECT_EQ(view.scrollAnimation().endValue(), offset(604)) << "a clock set back doesn't hold it for days";
}

TEST_F(TodayScheduleViewTest, SizesOfFontsByTheRoadTaken) {
  TodayScheduleView& view = show();
  EXPECT_EQ(view.styles().name.fontSize, 9.0);
  EXPECT_EQ(view.styles().resurfaceTime.paragraph, view.styles().resurface.paragraph) << "not centred";
  view.decreaseFontSize();
  EXPECT_EQ(view.styles().name.fontSize, 9.0);
  for (int i = 0; i < 22; ++i) view.increaseFontSize();
  EXPECT_EQ(view.fontSize(VerticalFit::fit), 20.0);
  const auto sizes = [&view] {
    const TodayStyles& s = view.styles();
    return std::make_tuple(s.name.fontSize, s.time.fontSize, s.note.fontSize, s.resurface.fontSize,
                           s.resurfaceTime.fontSize);
  };
  EXPECT_EQ(sizes(), std::make_tuple(20.0, 18.0, 14.0, 10.0, 10.0));
  view.setFontSize(VerticalFit::scroll, 30.0);
  EXPECT_EQ(sizes(), std::make_tuple(20.0, 18.0, 14.0, 10.0, 10.0)) << "of the other mode";
  view.setFitHeight(VerticalFit::scroll);
  EXPECT_EQ(sizes(), std::make_tuple(30.0, 27.0, 21.0, 18.0, 10.0));
  for (int i = 0; i < 30; ++i) view.increaseFontSize();
  EXPECT_EQ(view.styles().name.fontSize, 36.0);
}

TEST_F(TodayScheduleViewTest, LoadsWhatConcernsItsWeek) {
  TodayScheduleView& view = show();
  const auto changed = [this](std::shared_ptr<const void> object, PackedDate weekOf) {
    world.sim.notifications.postNotification(kWeeklyScheduleChanged, object,
                                             {{std::string(kWeekOfKey), weekOf}});
    settle();
  };
  const auto before = view.scheduleItems();
  ASSERT_EQ(before.size(), 4U);
  rink->venue(4)->schedulesCache->clear();
  changed(rink, packedDate(2026, 3, 22));
  EXPECT_EQ(view.scheduleItems(), before) << "another week";
  changed(nullptr, packedDate(2026, 3, 15));
  EXPECT_EQ(view.scheduleItems(), before) << "another rink";
  changed(rink, packedDate(2026, 3, 15));
  EXPECT_TRUE(view.scheduleItems().empty());
  EXPECT_EQ(view.layout().input().dayRange, TodayLayout::kLeastRange);
}

}  // namespace
}  // namespace tarvel
