#include "demo/FaultRules.h"

#include <gtest/gtest.h>

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
  struct Case {
    const char* pattern;
    const char* path;
    bool matches;
  };
  for (const Case& each : {Case{"/root.b1", "/root.b1", true}, Case{"/root.b1", "/root.b1x", false},
                           Case{"/root.b1", "/x/root.b1", false}, Case{"/*", "/", true},
                           Case{"/*", "/a/b", true}, Case{"/rinks/*/main.b1", "/rinks/cedar/main.b1", true},
                           Case{"/rinks/*/main.b1", "/rinks/main.b1", false},
                           Case{"/*week*.b1", "/rinks/a/venue-1_week-2026-03-01.b1", true},
                           Case{"/*week*.b1", "/rinks/a/venue-1_schedules.b1", false}}) {
    EXPECT_EQ(matchesPattern(each.pattern, each.path), each.matches) << each.pattern << " " << each.path;
  }
}

TEST(FaultRules, RulesAddUpAndRunOut) {
  FaultRules rules;
  for (const char* text : {"latency=1:/*", "latency=0.5*1:/a", "status=503*2:/a", "cut=7:/b"}) {
    rules.add(*parseFaultRule(text));
  }
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

}  // namespace
}  // namespace tarvel::demo
