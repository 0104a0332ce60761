// What the views draw, and when: no more than is needed, and nothing beside an item's own place.
#include <QPainter>
#include <limits>

#include "SchedulePageTest.h"
#include "schedule/DailyPainter.h"
#include "schedule/DailyScheduleView.h"
#include "schedule/WeeklyPainter.h"
#include "schedule/WeeklyScheduleView.h"
#include "ui/Painted.h"

namespace tarvel {
namespace {

using test::kWeekOf;

constexpr PackedDate kToday = packedDate(2026, 3, 18);  // a Wednesday
constexpr int kWidth = 760;                             // of a week: columns of 100 from x 48 on
constexpr int kHeight = 594;                            // half a pixel a minute from 5:00 on

/// A page and what it did.
template <class View>
struct Watched {
  Watched(const WindowContext& context, Window& window, const std::shared_ptr<RinkData>& rink)
      : view(context, owner, &window) {
    view.resize(kWidth, kHeight);
    view.setChosenRink(rink);
    if constexpr (std::is_same_v<View, DailyScheduleView>) {
      view.setShowingDate(kToday);
      view.setChosenVenues({7});
      view.move(0, kHeight);
    } else {
      view.setWeekContaining(kToday);
    }
    view.setCurrentDate(kToday, 600);
    view.installEventFilter(&repaints);
  }
  ~Watched() { view.close(); }
  void reset() {
    owner.loads = repaints.count = 0;
    repaints.region = {};
  }

  test::ScheduleTestOwner owner;
  test::Repaints repaints;
  View view;
};

class ScheduleRepaintTest : public test::SchedulePageTest {
 protected:
  ScheduleRepaintTest() {
    weekOf(7).adopt({{}, {{SessionKind::freestyle, 3, 900, 60, "", ""}}});
    window.resize(kWidth, 3 * kHeight);
    outOfSight.view.move(0, 2 * kHeight);
    outOfSight.view.setPresented(false);
    window.makeKeyAndOrderFront();
    settle();
  }
  void resetAll() {
    settle();
    week.reset();
    day.reset();
    outOfSight.reset();
  }
  static UserInfo about(std::int64_t venueID, PackedDate weekOf) {
    return {{std::string(kVenueIDKey), venueID}, {std::string(kWeekOfKey), weekOf}};
  }

  Watched<WeeklyScheduleView> week{world.context, window, rink};
  Watched<DailyScheduleView> day{world.context, window, rink};
  Watched<WeeklyScheduleView> outOfSight{world.context, window, rink};
};

TEST_F(ScheduleRepaintTest, aBurstOfChangesIsOneLoadAndOneRepaintAndNoneOutOfSight) {
  resetAll();
  const std::pair<NotificationName, UserInfo> changes[] = {{kWeeklyScheduleChanged, about(7, kWeekOf)},
                                                           {kScheduleColorsChanged, {}},
                                                           {kSchedulesChanged, {}},
                                                           {kVenuesChanged, {}}};
  for (int i = 0; i < 1'000; ++i) {
    const auto& [name, userInfo] = changes[i % 4];
    world.sim.notifications.postNotification(name, rink, userInfo);
  }
  settle();
  EXPECT_EQ(std::pair(week.owner.loads, week.repaints.count), std::pair(1, 1));
  EXPECT_EQ(std::pair(day.owner.loads, day.repaints.count), std::pair(1, 1));
  EXPECT_EQ(std::pair(outOfSight.owner.loads, outOfSight.repaints.count), std::pair(0, 0));
  outOfSight.view.setPresented(true);
  settle();
  EXPECT_EQ(outOfSight.owner.loads, 1) << "what was missed is made up for once";
}

TEST_F(ScheduleRepaintTest, aPageLoadsWhatConcernsItsRinkVenueAndWeek) {
  world.addRink(2, "Other");
  const auto other = world.openRink(2, {});
  // The change, of which rink, and how often the week and the day are read.
  const std::tuple<NotificationName, std::shared_ptr<RinkData>, UserInfo, int, int> cases[] = {
      {kVenuesChanged, rink, {}, 1, 1},
      {kSchedulesChanged, other, {}, 0, 0},
      {kWeeklyScheduleChanged, rink, about(7, kWeekOf), 1, 1},
      {kWeeklyScheduleChanged, rink, about(99, kWeekOf), 0, 1},  // a day's page reads all venues
      {kWeeklyScheduleChanged, rink, about(7, addDays(kWeekOf, 7)), 0, 0},
      {kWeeklyScheduleChanged, rink, about(7, subtractDays(kWeekOf, 7)), 0, 0},
      {kWeeklyScheduleChanged, other, about(7, kWeekOf), 0, 0}};
  for (const auto& [name, object, userInfo, weekLoads, dayLoads] : cases) {
    resetAll();
    world.sim.notifications.postNotification(name, object, userInfo);
    settle();
    EXPECT_EQ(week.owner.loads, weekLoads) << name.text;
    EXPECT_EQ(day.owner.loads, dayLoads) << name.text;
  }
  resetAll();
  world.workspace.wake();
  settle();
  EXPECT_EQ(week.owner.loads, 1) << "after sleep the files may be others";
}

TEST_F(ScheduleRepaintTest, aMinuteRepaintsTheMarkersStripAlone) {
  const auto stripOf = [this](auto& page) {
    resetAll();
    page.view.setCurrentDate(kToday, 601);
    settle();
    EXPECT_EQ(page.owner.loads, 0);
    return page.repaints.region.boundingRect();
  };
  const std::pair<QRect, QRect> cases[] = {{stripOf(week), {334, 152, 128, 21}},
                                           {stripOf(day), {33, 154, 728, 22}}};
  for (const auto& [strip, most] : cases) {
    EXPECT_FALSE(strip.isEmpty());
    EXPECT_TRUE(most.contains(strip)) << strip.x() << "," << strip.y() << " " << strip.bottom();
  }
}

/// A picture of three columns.
struct Painted {
  QImage image;
  QRegion places;  ///< of the middle column's items, frames included
};

QRegion regionOf(const std::vector<PlacedItem>& placed, const QRect& picture) {
  QRegion region;
  for (const auto& [item, rect] : placed) {
    const QRectF reach(rect.x - 1, rect.y - 1, rect.width + 2, rect.height + 2);
    region += reach.intersected(picture).toAlignedRect();
  }
  return region;
}

enum class Form { week, day };

/// Three columns: in a week Monday to Wednesday, in a day three venues.
Painted paintColumns(Form form, DataModel& model, const DailyColumns& columns, QSize size,
                     const std::optional<Rect>& dirty = {}) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  const Size frame{static_cast<double>(size.width()), static_cast<double>(size.height())};
  const Rect all{0.0, 0.0, frame.width, frame.height};
  const ItemStyles styles = ItemStyles::onScreen(9.0);
  QRegion places;
  if (form == Form::day) {
    const DailyLayout layout({{frame}, kToday, 3, measureDay(columns, styles)});
    paintDay(painter, {layout, columns, styles, model, kToday}, dirty.value_or(all));
    places = regionOf(layout.itemsMeeting({{}, columns[1], {}}, all), image.rect());
  } else {
    const WeeklyLayout layout({{frame}, kWeekOf});
    ScheduleItems items;
    for (const ScheduleItems& column : columns) items.insert(items.end(), column.begin(), column.end());
    paintWeek(painter, {layout, items, styles, model, SessionTimes::shown}, dirty.value_or(all));
    places = regionOf(layout.itemsMeeting(columns[1], all), image.rect());
  }
  return {image, places};
}

std::shared_ptr<const ScheduleItem> itemOf(const ScheduleItemRecord& record) {
  return std::make_shared<ScheduleItem>(record, std::weak_ptr<const WeeklySchedule>{}, kWeekOf);
}

ScheduleItems beside(std::int64_t day) {
  return {itemOf({SessionKind::publicSession, day, 600, 120, "Family", "note"})};
}

TEST_F(ScheduleRepaintTest, aSmallDirtyRectangleDrawsOnlyTheItemsThatMeetIt) {
  const ScheduleItems middle = {itemOf({SessionKind::rental, 2, 900, 60, "", ""}),
                                itemOf({SessionKind::rental, 2, 1200, 60, "", ""})};
  const DailyColumns columns = {beside(1), middle, beside(3)};
  for (const Form form : {Form::week, Form::day}) {
    // The columns' middles; 15:00 lies at y 312 or 315, 20:00 at 462 or 465.
    const double left = form == Form::week ? 148.0 : 47.0;
    const double width = form == Form::week ? 100.0 : (kWidth - 59.0) / 3;
    const auto at = [&](double column) { return static_cast<int>(left + width * column + width / 2); };
    const Rect dirty{static_cast<double>(at(1)), 335.0, 4.0, 4.0};
    const QImage image = paintColumns(form, world.dataModel, columns, {kWidth, kHeight}, dirty).image;
    test::expectColor(image, at(1) - 45, 336, test::builtColor(SessionKind::rental));
    test::expectColor(image, at(1) - 45, 486, Qt::white);
    test::expectColor(image, at(0) - 45, 190, Qt::white);
    test::expectColor(image, at(2) - 45, 190, Qt::white);
  }
}

TEST_F(ScheduleRepaintTest, badItemsLeaveWhatIsBesideThemAsItIs) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int16_t>::max();  // what a file can hold
  std::string stacked = "Z";
  for (int i = 0; i < 500; ++i) stacked += "\u0301\u0323";
  const auto one = [](std::int64_t time, std::int64_t duration, const std::string& text = "Text",
                      SessionKind kind = SessionKind::other) {
    return ScheduleItems{itemOf({kind, 2, time, duration, text, "note"})};
  };
  ScheduleItems many;
  for (int i = 0; i < 2'000; ++i) {
    many.push_back(itemOf({static_cast<SessionKind>(i % kSessionKindCount), 2, i % 1'700 - 100, i % 90 - 20,
                           i % 3 ? "Level " + std::to_string(i) : "", i % 5 ? "" : "note"}));
  }
  const std::pair<const char*, ScheduleItems> cases[] = {
      {"no length", one(600, 0)},
      {"negative length", one(600, -60)},
      {"huge", one(-kMost - 1, kMost)},
      {"beyond the day", one(kMost, kMost)},
      {"one minute", one(600, 1, "Text", SessionKind::publicSession)},
      {"overlapping", {one(600, 90)[0], one(610, 20)[0], one(500, 300)[0]}},
      {"2,000 items", many},
      {"a long word", one(600, 90, std::string(10'000, 'W'))},
      {"10,000 short words", one(600, 90,
                                 [] {
                                   std::string words;
                                   for (int i = 0; i < 5'000; ++i) words += "W ";
                                   return words;
                                 }())},
      {"right to left",
       one(600, 60, "\u05E9\u05DC\u05D5\u05DD \u0645\u0631\u062D\u0628\u0627 123 \u202Eabc")},
      {"stacked marks", one(600, 30, stacked)},
      {"lines", one(600, 60, "a\n\n\n\nb\r\nc\u2028d\t\te")},
      {"no text of any script", one(600, 60, "\xFF\xFE \xF0\x9F\x92")}};
  for (const Form form : {Form::week, Form::day}) {
    for (const QSize size : {QSize(kWidth, kHeight), QSize(140, 120), QSize(20, kHeight)}) {
      const QImage plain = paintColumns(form, world.dataModel, {beside(1), {}, beside(3)}, size).image;
      for (const auto& [name, items] : cases) {
        auto [image, places] = paintColumns(form, world.dataModel, {beside(1), items, beside(3)}, size);
        // Within the items' places anything may stand.
        QPainter painter(&image);
        painter.setClipRegion(places);
        painter.drawImage(0, 0, plain);
        painter.end();
        EXPECT_EQ(image, plain) << name << (form == Form::week ? " in a week" : " in a day") << " of width "
                                << size.width();
      }
    }
  }
}

}  // namespace
}  // namespace tarvel
