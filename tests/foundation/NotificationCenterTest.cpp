#include "foundation/NotificationCenter.h"

#include <gtest/gtest.h>

#include "foundation/ObserverCensus.h"
#include "support/SimWorld.h"

namespace tarvel {
namespace {

using Events = std::vector<std::string>;

class NotificationCenterTest : public testing::Test {
 protected:
  /// An observation that notes its label at each delivery.
  Observation noting(std::string label, NotificationName name, const void* object = nullptr) {
    return center->observe(name, object, [this, label = std::move(label)](const Notification&) {
      EXPECT_TRUE(world.mainLoop().isCurrent());
      events.push_back(label);
    });
  }
  Events takeEvents() { return std::exchange(events, {}); }

  SimWorld world;
  std::unique_ptr<NotificationCenter> center = std::make_unique<NotificationCenter>(world.mainLoop());
  Events events;
  int thing = 0;
  int otherThing = 0;
};

TEST_F(NotificationCenterTest, EachPostIsDeliveredLaterInOrderOfPostAndRegistration) {
  const auto first = noting("notices 1", kNoticesChanged);
  const auto venues = noting("venues", kVenuesChanged);
  const auto second = noting("notices 2", kNoticesChanged);
  center->postNotification(kNoticesChanged, &thing);
  center->postNotification(kVenuesChanged, &thing);
  center->postNotification(kNoticesChanged, &thing);
  EXPECT_EQ(takeEvents(), Events{});
  world.runUntilIdle();
  EXPECT_EQ(takeEvents(), (Events{"notices 1", "notices 2", "venues", "notices 1", "notices 2"}));
}

TEST_F(NotificationCenterTest, CarriesObjectAndUserInfoAndKeepsTheObjectAlive) {
  auto object = std::make_shared<int>(7);
  const std::weak_ptr<int> watch = object;
  const auto observation = center->observe(kRinkInfoChanged, [&](const Notification& notification) {
    EXPECT_TRUE(notification.object.is(watch.lock().get()));
    EXPECT_EQ(notification.integer(kRinkIDKey), 41);
    EXPECT_EQ(notification.integer(kVenueIDKey), std::nullopt);
    events.push_back(notification.name == kRinkInfoChanged ? "rink info" : "other");
  });
  center->postNotification(kRinkInfoChanged, std::exchange(object, nullptr), {{std::string(kRinkIDKey), 41}});
  EXPECT_FALSE(watch.expired());
  world.runUntilIdle();
  EXPECT_EQ(takeEvents(), Events{"rink info"});
  EXPECT_TRUE(watch.expired());
}

TEST_F(NotificationCenterTest, AnObserverOfOneObjectHearsOfNoOther) {
  const auto observation = noting("mine", kPerformUpdates, &thing);
  center->postNotification(kPerformUpdates, &otherThing);
  center->postNotification(kPerformUpdates);
  world.runUntilIdle();
  EXPECT_EQ(takeEvents(), Events{});
  center->postNotification(kPerformUpdates, &thing);
  world.runUntilIdle();
  EXPECT_EQ(takeEvents(), Events{"mine"});
}

TEST_F(NotificationCenterTest, IdleQueueMergesEqualNameAndObject) {
  const auto updates = noting("updates", kPerformUpdates, &thing);
  const auto otherUpdates = noting("other's updates", kPerformUpdates, &otherThing);
  const auto scroll = noting("scroll", kPerformScroll, &thing);
  for (int i = 0; i < 10; ++i) {
    center->enqueueNotification({kPerformUpdates, &thing, {}});
    if (i == 0) center->enqueueNotification({kPerformScroll, &thing, {}});
  }
  world.runUntilIdle();
  EXPECT_EQ(takeEvents(), (Events{"updates", "scroll"}));
  center->enqueueNotification({kPerformUpdates, &otherThing, {}});
  center->enqueueNotification({kPerformUpdates, &thing, {}});
  world.runUntilIdle();
  EXPECT_EQ(takeEvents(), (Events{"other's updates", "updates"}));
}

TEST_F(NotificationCenterTest, IdleQueueWaitsForAllPostsAndForThoseMadeMeanwhile) {
  const auto updates = noting("updates", kPerformUpdates);
  const auto venues = noting("venues", kVenuesChanged);
  const auto notices = center->observe(kNoticesChanged, [this](const Notification&) {
    events.push_back("notices");
    center->enqueueNotification({kPerformUpdates, &thing, {}});
    center->postNotification(kVenuesChanged);
  });
  center->enqueueNotification({kPerformUpdates, &thing, {}});
  center->postNotification(kNoticesChanged);
  world.runUntilIdle();
  EXPECT_EQ(takeEvents(), (Events{"notices", "venues", "updates"}));
}

TEST_F(NotificationCenterTest, ARequestMadeDuringItsOwnDeliveryIsANewOne) {
  int passes = 0;
  const auto updates = center->observe(kPerformUpdates, &thing, [&](const Notification& notification) {
    if (++passes == 1) center->enqueueNotification(notification);
  });
  center->enqueueNotification({kPerformUpdates, &thing, {}});
  world.runUntilIdle();
  EXPECT_EQ(passes, 2);
}

TEST_F(NotificationCenterTest, OtherThreadsPostAndEnqueueWithoutDelivering) {
  const auto updates = noting("updates", kPerformUpdates);
  const auto notices = noting("notices", kNoticesChanged);
  const auto thread = world.start(
      "other",
      [this](RunLoop&) {
        EXPECT_FALSE(world.mainLoop().isCurrent());
        for (int i = 0; i < 3; ++i) center->enqueueNotification({kPerformUpdates, &thing, {}});
        for (int i = 0; i < 2; ++i) center->postNotification(kNoticesChanged);
        EXPECT_EQ(takeEvents(), Events{});
      },
      [] { return true; });
  world.runUntilIdle();
  EXPECT_EQ(takeEvents(), (Events{"notices", "notices", "updates"}));
}

TEST_F(NotificationCenterTest, ObserversMayComeAndGoDuringADelivery) {
  Observation own;
  Observation later;
  std::vector<Observation> added;
  const auto first = center->observe(kNoticesChanged, [&](const Notification&) {
    events.push_back("first");
    later = {};
    own = {};
    added.push_back(noting("added", kNoticesChanged));
  });
  own = noting("own", kNoticesChanged);
  later = noting("later", kNoticesChanged);
  const auto last = noting("last", kNoticesChanged);
  center->deliver({kNoticesChanged, {}, {}});
  EXPECT_EQ(takeEvents(), (Events{"first", "last"}));
  // A handler that ends its own observation keeps what it has captured until it returns.
  own = center->observe(kVenuesChanged, [&, big = std::string(100, 'x')](const Notification&) {
    own = {};
    events.push_back("own " + std::to_string(big.size()));
  });
  center->deliver({kVenuesChanged, {}, {}});
  center->deliver({kVenuesChanged, {}, {}});
  EXPECT_EQ(takeEvents(), Events{"own 100"});
}

TEST_F(NotificationCenterTest, AnObservationMovesWithItsHolder) {
  auto first = noting("first", kNoticesChanged);
  auto second = noting("second", kNoticesChanged);
  Observation moved = std::move(first);
  moved = std::move(second);  // ends the first
  center->deliver({kNoticesChanged, {}, {}});
  EXPECT_EQ(takeEvents(), Events{"second"});
}

TEST_F(NotificationCenterTest, NothingIsDeliveredOnceTheCenterIsGone) {
  const auto ending = center->observe(kNoticesChanged, [this](const Notification&) { center.reset(); });
  const auto notices = noting("notices", kNoticesChanged);
  const auto updates = noting("updates", kPerformUpdates);
  auto object = std::make_shared<int>(7);
  const std::weak_ptr<int> watch = object;
  center->enqueueNotification({kPerformUpdates, object, {}});
  center->postNotification(kNoticesChanged, object);
  center->postNotification(kNoticesChanged, std::exchange(object, nullptr));
  world.runUntilIdle();
  EXPECT_EQ(takeEvents(), Events{});
  EXPECT_TRUE(watch.expired());
}

TEST_F(NotificationCenterTest, TheCensusShowsItsHeadingsAndCollectsAnswersAfterwards) {
  ObserverCensus census;
  const auto answer =
      center->observe(kCheckObservers, [&](const Notification&) { census.checkObservers("RinkListView"); });
  const std::vector<ReportLine> headings{{"", ReportLine::Style::heading},
                                         {"Observers", ReportLine::Style::heading}};
  for (int report = 0; report < 2; ++report) {
    EXPECT_EQ(census.report(*center), headings);
    world.runUntilIdle();
    ASSERT_EQ(census.lines().size(), 3U);
    EXPECT_EQ(census.lines().back(), (ReportLine{"   RinkListView", ReportLine::Style::row}));
  }
}

}  // namespace
}  // namespace tarvel
