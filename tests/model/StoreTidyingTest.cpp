#include "ModelFixture.h"

namespace tarvel {
namespace {

constexpr double kDay = 86'400.0;

class StoreTidyingTest : public ModelFixture {
 protected:
  StoreTidyingTest() {
    for (const int id : {20, 30}) {
      site.rinks.push_back(site.rinks[1]);
      site.rinks.back().record.rinkID = id;
    }
    model.mergeRinkList(decodeRinkList(site.rinkList()));
  }
};

TEST_F(StoreTidyingTest, RinksNotViewedForFourWeeksAreDroppedAtQuit) {
  const struct {
    std::int64_t rinkID;
    std::optional<double> daysAgo;
    bool stays;
  } cases[] = {
      {7, 27.0, true}, {12, 28.0, true}, {20, 29.0, false}, {30, std::nullopt, false}, {99, 1.0, false}};
  for (const auto& c : cases) {
    const auto rink = model.rinkData(c.rinkID);
    if (c.daysAgo) rink->lastViewed = sim.world.now() - *c.daysAgo * kDay;
    store("rink-" + std::to_string(c.rinkID) + "/main.b1", {});
  }
  announced();
  taken();
  model.prepareToQuit();
  EXPECT_EQ(taken(),
            (Texts{"invalidate", "7: invalidate", "12: invalidate", "20: invalidate", "30: invalidate",
                   "99: invalidate", "20: invalidate", "30: invalidate", "99: invalidate"}));
  EXPECT_EQ(announced(), Texts{});
  for (const auto& c : cases) {
    EXPECT_EQ(exists("rink-" + std::to_string(c.rinkID)), c.stays) << c.rinkID;
  }
  EXPECT_EQ(model.recentRinks.size(), 2U);
}

TEST_F(StoreTidyingTest, OnlyLeftoversGoFromTheFolders) {
  model.rinkData(7)->lastViewed = sim.world.now();
  const Texts stay = {"rinks.b1",
                      "rink-7/main.b1",
                      "rink-x/a",
                      "rink-5-1/a",
                      "rink--5/a",
                      "rinks-5/a",
                      "logos/7.png",
                      ".hidden.json",
                      "rink-6",
                      "notes.json/a",
                      "rink-7/Photos/1-1.jpg",
                      "rink-7/notices.b1",
                      "rink-7/a.pdf/b",
                      "rink-/a",
                      ".rink-5/a"};
  const Texts go = {"rinks2.json",  "rink-5/main.b1", "rink-+8/a",
                    "rink-7/a.jpg", "rink-7/b.png",   "rink-7/c.pdf"};
  for (const Texts* names : {&stay, &go}) {
    for (const std::string& name : *names) store(name, {1});
  }
  model.prepareToQuit();
  for (const std::string& name : stay) EXPECT_TRUE(exists(name)) << name;
  for (const std::string& name : go) EXPECT_FALSE(exists(name)) << name;
  for (const char* line :
       {"removed file: /home/u/Tarvel/rinks2.json", "removed folder: /home/u/Tarvel/rink-5",
        "removing file: /home/u/Tarvel/rink-7/a.jpg"}) {
    EXPECT_TRUE(sim.console.printed(line)) << line;
  }
}

TEST_F(StoreTidyingTest, TheFirstFailureEndsTheTidying) {
  for (const char* name : {"rink-1/a", "rink-2/a", "rink-3/a"}) store(name, {});
  sim.disk.failOperation(2, MemoryFileSystem::Repeat::once, {MemoryFileSystem::Operation::remove, ""});
  model.tidyApplicationFolder();
  EXPECT_FALSE(exists("rink-1"));
  EXPECT_TRUE(exists("rink-2") && exists("rink-3"));
  EXPECT_TRUE(log->logMessages().empty());
  model.tidyApplicationFolder();
  EXPECT_FALSE(exists("rink-2") || exists("rink-3"));
}

TEST_F(StoreTidyingTest, AnOldVersionsStateFileGoesAfterTwoWeeks) {
  for (const double days : {13.0, 14.0, 15.0}) {
    store("application-state", {}, sim.world.now() - days * kDay);
    model.prepareToQuit();
    EXPECT_EQ(exists("application-state"), days <= 14.0) << days;
  }
  EXPECT_TRUE(sim.console.printed("Deleting /home/u/Tarvel/application-state"));
}

}  // namespace
}  // namespace tarvel
