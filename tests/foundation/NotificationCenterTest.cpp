#include "foundation/NotificationCenter.h"

#include <gtest/gtest.h>

#include "simulation/ports/SimWorld.h"

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

TEST_F(NotificationCenterTest, IdleQueueMergesEqualNameAndObject) {
  const auto updates = noting("updates", kPerformUpdates, &thing);
  const auto otherUpdates = noting("other's updates", kPerformUpdates, &otherThing);
  const auto scroll = noting("scroll", kPerformScroll, &thing);
  for (int i = 0; i < 10; ++i) {
    center->enqueueNotification({kPerformUpdates, &thing, {}});
    if (i == 0) center->enqueueNotification({kPerformScroll, &thing, {}});
    if (i == 5) center->enqueueNotification({kPerformUpdates, &otherThing, {}});
  }
  world.runUntilIdle();
  EXPECT_EQ(takeEvents(), (Events{"updates", "scroll", "other's updates"}));
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

TEST_F(NotificationCenterTest, PostsOfAnyThreadAreDeliveredLaterInOrderOfPostAndRegistration) {
  const auto updates = noting("updates", kPerformUpdates);
  const auto first = noting("notices 1", kNoticesChanged);
  const auto venues = noting("venues", kVenuesChanged);
  const auto second = noting("notices 2", kNoticesChanged);
  const auto thread = world.start(
      "other",
      [this](RunLoop&) {
        center->enqueueNotification({kPerformUpdates, &thing, {}});
        for (const NotificationName name : {kNoticesChanged, kVenuesChanged, kNoticesChanged})
          center->postNotification(name);
        EXPECT_EQ(takeEvents(), Events{});
      },
      [] { return true; });
  world.runUntilIdle();
  EXPECT_EQ(takeEvents(), (Events{"notices 1", "notices 2", "venues", "notices 1", "notices 2", "updates"}));
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

}  // namespace
}  // namespace tarvel
