#include <gtest/gtest.h>
#include <httplib.h>

#include <memory>
#include <nlohmann/json.hpp>

#include "demo/DemoServer.h"
#include "demo/FaultRules.h"
#include "publish/Encoders.h"
#include "simulation/ports/MemoryFileSystem.h"
#include "simulation/ports/SimWorld.h"

namespace tarvel::demo {
namespace {

TEST(FaultRules, ReadsAndDescribesEachKind) {
  for (const char* text : {"latency=2:/root.b1", "latency=0.5*3:/a", "cut=100:/rinks/*/main.b1",
                           "status=503*1:/*", "stale:/root.b1", "shift=-60:/a.b1", "down:/a", "reset*2:/a"}) {
    const auto rule = parseFaultRule(text);
    ASSERT_TRUE(rule) << text;
    EXPECT_EQ(describe(*rule), text);
  }
}

TEST(FaultRules, RefusesWhatMakesNoSense) {
  for (const char* text : {"", "latency=2", "latency:/a", "latency=x:/a", "latency=-1:/a", "latency=2*0:/a",
                           "latency=2*1.5:/a", "latency=2*:/a", "stale=1:/a", "status=99:/a", "status=600:/a",
                           "status=nan:/a", "slow=1:/a", "cut=5:a", "=5:/a", ":/a"}) {
    EXPECT_FALSE(parseFaultRule(text)) << text;
  }
}

TEST(FaultRules, PatternsMatchWholePaths) {
  const std::tuple<const char*, const char*, bool> cases[] = {
      {"/root.b1", "/root.b1", true},
      {"/root.b1", "/root.b1x", false},
      {"/root.b1", "/x/root.b1", false},
      {"/*", "/", true},
      {"/*", "/a/b", true},
      {"/rinks/*/main.b1", "/rinks/cedar/main.b1", true},
      {"/rinks/*/main.b1", "/rinks/main.b1", false},
      {"/*week*.b1", "/rinks/a/venue-1_week-2026-03-01.b1", true},
      {"/*week*.b1", "/rinks/a/venue-1_schedules.b1", false}};
  for (const auto& [pattern, path, matches] : cases)
    EXPECT_EQ(matchesPattern(pattern, path), matches) << pattern << " " << path;
}

TEST(FaultRules, RulesAddUpAndRunOut) {
  FaultRules rules;
  for (const char* text : {"latency=1:/*", "latency=0.5*1:/a", "status=503*2:/a", "cut=7:/b"})
    rules.add(*parseFaultRule(text));
  const Misbehaviour first = rules.apply("/a");
  EXPECT_EQ(first.latency, 1.5);
  EXPECT_EQ(first.status, 503);
  EXPECT_FALSE(first.cutAfter);
  EXPECT_EQ(rules.apply("/b").cutAfter, 7U);
  const Misbehaviour second = rules.apply("/a");
  EXPECT_EQ(second.latency, 1.0);
  EXPECT_EQ(second.status, 503);
  EXPECT_EQ(rules.apply("/a").status, 0);
  EXPECT_EQ(rules.descriptions(), (std::vector<std::string>{"latency=1:/*", "cut=7:/b"}));
  rules.clear();
  EXPECT_EQ(rules.apply("/a").latency, 0.0);
}

using nlohmann::json;

constexpr time_t kPatience = 120;  // seconds; publishing takes long on a machine that is busy

/// The demo, published on a disk in memory and served on a free port; one for all tests here, as drawing its
/// pictures takes a while. Each test leaves no rules behind.
struct Demo {
  Demo() {
    const auto bound = server.bind(0);
    if (!bound || !site.publish(content)) return;
    port = *bound;
    server.start(control);
  }

  SimWorld world;  // its time stands
  const Clock& clock = world.clock();
  MemoryFileSystem disk{clock};
  FaultRules faults;
  RequestLog log{clock};
  DemoSite site{disk, clock, "/tree"};
  DemoContent content{20, packedDate(2026, 5, 9), "http://127.0.0.1"};
  DemoControl control{content, site, faults, log};
  DemoServer server{site, faults, log};
  int port = 0;
};

class DemoServerTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { demo_ = std::make_unique<Demo>(); }
  static void TearDownTestSuite() { demo_.reset(); }
  void SetUp() override {
    ASSERT_NE(demo_->port, 0);
    demo_->faults.clear();
    demo_->log.clear();
  }

  httplib::Result get(const std::string& path) {
    httplib::Client client("127.0.0.1", demo_->port);
    client.set_read_timeout(kPatience);
    return client.Get(path);
  }
  int statusOf(const std::string& path) {
    const auto reply = get(path);
    return reply ? reply->status : 0;
  }
  Bytes bodyOf(const std::string& path) {
    const auto reply = get(path);
    return reply ? Bytes(reply->body.begin(), reply->body.end()) : Bytes();
  }
  json control(const std::string& query) {
    const auto reply = get("/control?" + query);
    return reply ? json::parse(reply->body) : json();
  }
  void fault(const std::string& rule) { demo_->faults.add(*parseFaultRule(rule)); }

  static std::unique_ptr<Demo> demo_;
};

std::unique_ptr<Demo> DemoServerTest::demo_;

TEST_F(DemoServerTest, ServesThePublishedFilesAndNothingElse) {
  const auto logo = get("/logos/11.png");
  ASSERT_TRUE(logo);
  EXPECT_EQ(logo->get_header_value("Content-Type"), "image/png");
  EXPECT_EQ(logo->get_header_value("Content-Length"), std::to_string(logo->body.size()));
  EXPECT_EQ(bodyOf("/rinks/cedar-hollow/main.b1"), *demo_->site.file("/rinks/cedar-hollow/main.b1"));
  ASSERT_TRUE(demo_->disk.write("/outside.b1", Bytes{1}));
  for (const char* path : {"/", "/none.b1", "/rinks", "/rinks/", "/../outside.b1", "/%2e%2e/outside.b1",
                           "/rinks/../../outside.b1", "/.tarvel-publish.json", "/.input/catalogue.json"}) {
    EXPECT_EQ(statusOf(path), 404) << path;
  }
}

TEST_F(DemoServerTest, MisbehavesAsTold) {
  const Bytes root = bodyOf("/root.b1");
  fault("status=503*1:/root.b1");
  EXPECT_EQ(statusOf("/root.b1"), 503);
  EXPECT_EQ(bodyOf("/root.b1"), root);
  for (const char* rule : {"cut=20:/root.b1", "cut=0:/root.b1", "down:/root.b1", "reset:/root.b1"}) {
    demo_->faults.clear();
    fault(rule);
    EXPECT_FALSE(get("/root.b1")) << rule;
    EXPECT_EQ(statusOf("/rinks.b1"), 200) << rule;
  }
  demo_->faults.clear();
  fault("shift=60:/rinks.b1");
  const Bytes shifted = bodyOf("/rinks.b1");
  const Bytes plain = *demo_->site.file("/rinks.b1");
  EXPECT_EQ(*publish::dateOf(shifted) - *publish::dateOf(plain), 60.0);
  EXPECT_TRUE(std::equal(shifted.begin() + 8, shifted.end(), plain.begin() + 8, plain.end()));
}

TEST_F(DemoServerTest, ARenamedRinkIsPublishedAndTheOldListStaysAtHand) {
  const Bytes before = bodyOf("/root.b1");
  const Bytes defs = bodyOf("/defs.b1");
  const json reply = control("do=rename-rink&rink=14&name=Lantern%20Ice");
  EXPECT_EQ(reply["written"], json({"rinks.b1", "root.b1"}));
  EXPECT_NE(bodyOf("/root.b1"), before);
  const Bytes rinks = bodyOf("/rinks.b1");
  const std::string text(rinks.begin(), rinks.end());
  EXPECT_NE(text.find("Lantern Ice"), std::string::npos);
  fault("stale:/*.b1");
  EXPECT_EQ(bodyOf("/root.b1"), before);
  EXPECT_EQ(bodyOf("/defs.b1"), defs);
}

TEST_F(DemoServerTest, ContentCanBeAddedAndTakenAway) {
  EXPECT_EQ(control("do=replace-week&rink=17&venue=1&week=2026-05-10")["written"].size(), 4U);
  EXPECT_EQ(control("do=drop-venue&rink=17&venue=2")["removed"].size(), 8U);
  EXPECT_EQ(statusOf("/rinks/juniper-ridge/venue-2_schedules.b1"), 404);
  const json added = control("do=add-rink");
  EXPECT_EQ(statusOf("/logos/" + std::to_string(added["rink"].get<int>()) + ".png"), 200);
  control("do=remove-rink&rink=28");
  EXPECT_EQ(statusOf("/rinks/saguaro/master.b1"), 404);
  for (const char* query :
       {"do=remove-rink&rink=28", "do=nonsense", "rink=1", "do=fault&rule=x", "do=down&seconds=-1",
        "do=replace-week&rink=17&venue=1&week=2020-01-05", "do=mismatch&rink=28"}) {
    EXPECT_TRUE(control(query).contains("error")) << query;
  }
}

TEST_F(DemoServerTest, ComesBackOnTheSamePortAfterBeingDown) {
  EXPECT_EQ(control("do=down&seconds=0.01")["done"], "down");
  int status = 0;
  for (int attempt = 0; attempt < 100'000 && status != 200; ++attempt) status = statusOf("/root.b1");
  EXPECT_EQ(status, 200);
}

TEST_F(DemoServerTest, TellsWhatWasAsked) {
  fault("status=500:/defs.b1");
  statusOf("/root.b1");
  statusOf("/defs.b1");
  statusOf("/control/state");
  const json log = json::parse(get("/control/requests?clear=1")->body);
  ASSERT_EQ(log.size(), 2U);
  EXPECT_EQ(
      log[0],
      (json{{"method", "GET"}, {"path", "/root.b1"}, {"status", 200}, {"time", demo_->clock.now().seconds}}));
  EXPECT_EQ(log[1]["status"], 500);
  EXPECT_EQ(json::parse(get("/control/requests")->body), json::array());
}

}  // namespace
}  // namespace tarvel::demo
