#include <gtest/gtest.h>

#include <set>

#include "support/MemoryFileSystem.h"
#include "support/ScriptedHttpClient.h"
#include "support/SimWorld.h"

namespace tarvel {
namespace {

// The other rooms' tests stand on these twins, so a few cases hold them to their word.

TEST(SimWorld, RunsReadyThenIdleThenTheNextTimer) {
  SimWorld world;
  RunLoop& loop = world.mainLoop();
  EXPECT_TRUE(loop.isCurrent());
  std::string order;
  const auto note = [&](const char* text) { return [&order, text] { order += text; }; };
  const auto b = loop.after(5.0, note("b")), a = loop.after(4.0, note("a")), c = loop.after(5.0, note("c"));
  std::unique_ptr<Timer> other;
  const auto thread = world.start(
      "other", [&](RunLoop& own) { other = own.after(4.5, note("t")); }, [] { return true; });
  loop.postWhenIdle(note("i"));
  loop.post(note("1"));
  thread->post([&] {
    order += "2";
    EXPECT_FALSE(loop.isCurrent());
    loop.post(note("4"));
  });
  loop.post(note("3"));
  world.runUntilIdle();
  EXPECT_EQ(order, "1234i");
  const Instant before = world.now();
  world.runFor(4.5);
  EXPECT_EQ(order, "1234iat");
  EXPECT_TRUE(thread->ended()) << "its only timer has fired";
  world.runUntil(before + 10.0);
  EXPECT_EQ(order, "1234iatbc");
  EXPECT_EQ(world.now(), before + 10.0);
  EXPECT_EQ(world.pendingTimers(), 0u);
}

TEST(SimWorld, WallClockAndSleep) {
  SimWorld world;
  int ticks = 0;
  const auto timer = world.mainLoop().every(1.0, 1.0, [&] { ++ticks; });
  const Instant start = world.now();
  world.stepWall(-3600.0);
  world.runFor(3.0);
  EXPECT_EQ(ticks, 3);
  EXPECT_EQ(world.now(), start - 3597.0);
  world.sleepMachine(100.5);
  EXPECT_EQ(ticks, 3);
  world.runUntilIdle();
  EXPECT_EQ(ticks, 4) << "missed firings are made up by one";
  EXPECT_EQ(timer->secondsUntilFire(), 0.5);
  EXPECT_TRUE(world.runUntil([&] { return ticks == 10; }, 60.0));
  EXPECT_FALSE(world.runUntil([&] { return ticks == 100; }, 60.0));
}

TEST(SimWorld, SeesALoopThatNeverRests) {
  SimWorld world;
  std::function<void()> again = [&] { world.mainLoop().post(again); };
  again();
  EXPECT_THROW(world.runFor(1.0), std::runtime_error);
}

TEST(MemoryFileSystem, ACrashKeepsWhatWasSyncedAlone) {
  SimWorld world;
  MemoryFileSystem disk(world.clock());
  ASSERT_TRUE(disk.createFolders("/s"));
  ASSERT_TRUE(disk.write("/s/a", Bytes{1}));
  disk.syncAll();
  const auto safe = disk.snapshot();
  ASSERT_TRUE(disk.write("/s/a", Bytes{2, 2}));
  ASSERT_TRUE(disk.write("/s/b", Bytes{3}));
  ASSERT_TRUE(disk.sync("/s/b"));  // its content, not its name
  ASSERT_TRUE(disk.remove("/s/a"));
  disk.crash();
  EXPECT_EQ(disk.snapshot(), safe);

  std::set<std::string> contents;
  bool bothNames = false, none = false;
  for (std::uint64_t seed = 0; seed < 200; ++seed) {
    MemoryFileSystem torn(world.clock());
    ASSERT_TRUE(torn.write("/a", Bytes{1, 1, 1}));
    torn.syncAll();
    ASSERT_TRUE(torn.write("/a", Bytes{2, 2}));
    ASSERT_TRUE(torn.rename("/a", "/b"));
    SeededRandom random(seed);
    torn.crash(random);
    const auto left = torn.snapshot();
    bothNames |= left.size() > 1;
    none |= left.empty();
    for (const auto& [path, file] : left) contents.emplace(file.content.begin(), file.content.end());
  }
  EXPECT_EQ(contents, (std::set<std::string>{"", "\2", "\2\2", "\1\1\1"}));
  EXPECT_FALSE(bothNames || none) << "a rename is one step";
}

TEST(MemoryFileSystem, FailsAsItIsTold) {
  using Operation = MemoryFileSystem::Operation;
  SimWorld world;
  MemoryFileSystem disk(world.clock());
  disk.failOperation(2, MemoryFileSystem::Repeat::once, {Operation::write, "f"}, "broken");
  EXPECT_TRUE(disk.write("/f", Bytes{1}));
  EXPECT_TRUE(disk.write("/g", Bytes{1}));
  EXPECT_EQ(disk.write("/f", Bytes{1, 2}).error().description, "broken");
  EXPECT_EQ(*disk.read("/f"), Bytes{1}) << "half of it";
  EXPECT_TRUE(disk.write("/f", Bytes{1, 2}));
  disk.failOperation(1, MemoryFileSystem::Repeat::forEver, {Operation::read, {}});
  EXPECT_FALSE(disk.read("/f").ok() || disk.read("/g").ok());
  disk.clearFailures();
  disk.setReadOnly(true);
  EXPECT_FALSE(disk.write("/f", {}).ok() || disk.remove("/f").ok() || disk.createFolders("/x").ok());
  disk.setReadOnly(false);
  disk.setDateGranularity(2'000'000'000);
  ASSERT_TRUE(disk.setAttributes("/f", {Instant{101.75}, {}}));
  EXPECT_EQ(disk.info("/f")->modificationDate, Instant{100.0});
  EXPECT_TRUE(disk.log().back().operation == Operation::setAttributes && disk.log().back().path == "/f");
}

TEST(ScriptedHttpClient, AnswersAsItIsTold) {
  SimWorld world;
  auto http = std::make_unique<ScriptedHttpClient>(world);
  http->serve("http://a/page", {1, 2});
  http->fail("http://a/down", "no route");
  http->hang("http://a/hangs");
  http->handlePrefix("http://a/", [](const auto&) { return HttpResponse{500, {}}; });
  http->handlePrefix("http://a/deep/", [](const auto&) { return HttpResponse{403, {}}; });
  std::map<std::string, std::pair<std::string, double>> outcomes;
  const auto get = [&](const std::string& url) {
    http->get(url, [&, url](HttpResult result) {
      EXPECT_TRUE(world.mainLoop().isCurrent());
      const auto* response = std::get_if<HttpResponse>(&result);
      outcomes[url] = {
          response ? std::to_string(response->status) : std::get<HttpFailure>(result).description,
          world.seconds()};
    });
  };
  http->setLatency(0.25);
  for (const char* url : {"http://a/page", "http://a/page", "http://a/down", "http://a/hangs",
                          "http://a/other", "http://a/deep/x", "http://b"}) {
    get(url);
  }
  EXPECT_TRUE(outcomes.empty());
  world.runFor(100.0);
  const decltype(outcomes) expected{{"http://a/page", {"200", 0.25}},
                                    {"http://a/down", {"no route", 0.25}},
                                    {"http://a/hangs", {"The request timed out.", 60.0}},
                                    {"http://a/other", {"500", 0.25}},
                                    {"http://a/deep/x", {"403", 0.25}},
                                    {"http://b", {"404", 0.25}}};
  EXPECT_EQ(outcomes, expected);
  EXPECT_EQ(http->maxInFlight(), 7u);
  EXPECT_EQ(http->maxInFlightOfOneUrl(), 2);
  EXPECT_EQ(http->requestCount("http://a/page"), 2u);

  outcomes.clear();
  get("http://a/page");
  http.reset();
  world.runFor(100.0);
  EXPECT_TRUE(outcomes.empty()) << "abandoned with the client";
}

}  // namespace
}  // namespace tarvel
