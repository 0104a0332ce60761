#include <gtest/gtest.h>

#include <functional>
#include <set>

#include "Rules.h"

namespace tarvel::house {
namespace {

constexpr std::size_t kLongestFile = 400;
constexpr std::size_t kLongestFunction = 80;

const std::vector<SourceFile>& tree() {
  static const std::vector<SourceFile> files =
      readSourceTree(TARVEL_SOURCE_DIR, {"src", "tools", "tests", "benchmarks"});
  return files;
}

using Rule = std::function<Findings(const SourceFile&)>;

std::string report(const Findings& findings) {
  std::string text;
  for (const std::string& finding : findings) text += "\n  " + finding;
  return text;
}

void expectClean(const Rule& rule) {
  ASSERT_GT(tree().size(), 50U) << "the source tree wasn't found";
  for (const SourceFile& file : tree()) {
    const Findings findings = rule(file);
    EXPECT_TRUE(findings.empty()) << report(findings);
  }
}

TEST(HouseTest, IncludesGoWithTheArrows) {
  expectClean(includesAgainstTheArrows);
}
TEST(HouseTest, TheCoreKnowsNoToolkit) {
  expectClean(toolkitInTheCore);
}
TEST(HouseTest, TheOutsideComesThroughPorts) {
  expectClean(bypassedPorts);
}
TEST(HouseTest, HeadersAreGuarded) {
  expectClean(headerWithoutGuard);
}
TEST(HouseTest, NoNotesAreLeftOver) {
  expectClean(leftoverNotes);
}

TEST(HouseTest, FilesFitTheirRoom) {
  expectClean([](const SourceFile& file) { return longFile(file, kLongestFile); });
}

TEST(HouseTest, FunctionsFitTheirRoom) {
  expectClean([](const SourceFile& file) { return longFunctions(file, kLongestFunction); });
}

// The rules themselves: each finds what it is for, on the line where it stands, and nothing else.

struct RuleCase {
  const char* name;
  Rule rule;
  const char* path;
  const char* text;
  std::vector<std::string> places;
};

class RulesTest : public testing::TestWithParam<RuleCase> {};

TEST_P(RulesTest, Finds) {
  const RuleCase& c = GetParam();
  std::vector<std::string> places;
  for (const std::string& finding : c.rule(fileOf(c.path, c.text))) {
    places.push_back(finding.substr(0, finding.find(": ")));
  }
  EXPECT_EQ(places, c.places);
}

Rule longerThan(std::size_t most) {
  return [most](const SourceFile& file) { return longFunctions(file, most); };
}

INSTANTIATE_TEST_SUITE_P(
    All, RulesTest,
    testing::Values(
        RuleCase{"upwards",
                 includesAgainstTheArrows,
                 "src/model/A.h",
                 "#pragma once\n#include <string>\n#include \"platform/Clock.h\"\n#include \"ui/Window.h\"\n",
                 {"src/model/A.h:4"}},
        RuleCase{"sideways",
                 includesAgainstTheArrows,
                 "src/platform/posix/A.cpp",
                 "#include \"platform/posix/A.h\"\n#include \"platform/qt/B.h\"\n",
                 {"src/platform/posix/A.cpp:2"}},
        RuleCase{"downwards",
                 includesAgainstTheArrows,
                 "src/app/A.cpp",
                 "#include \"ui_A.h\"\n#include \"mainwindow/B.h\"\n#include \"platform/qt/C.h\"\n",
                 {}},
        RuleCase{"unknownRoom", includesAgainstTheArrows, "src/attic/A.cpp", "", {"src/attic/A.cpp:1"}},
        RuleCase{"toolkit",
                 toolkitInTheCore,
                 "src/refresh/A.cpp",
                 "#include <QString>\n#include <QtCore/QObject>\n",
                 {"src/refresh/A.cpp:1", "src/refresh/A.cpp:2"}},
        RuleCase{
            "toolkitWhereItBelongs", toolkitInTheCore, "src/platform/qt/A.cpp", "#include <QString>\n", {}},
        RuleCase{
            "clock",
            bypassedPorts,
            "src/model/A.cpp",
            "auto a = std::chrono::system_clock::now();\nauto b = time(nullptr);\nauto c = clock.time(b);\n"
            "auto d = realTime();\n",
            {"src/model/A.cpp:1", "src/model/A.cpp:2"}},
        RuleCase{"disk",
                 bypassedPorts,
                 "src/foundation/A.cpp",
                 "std::ifstream a(path);\nauto b = fopen(path, mode);\nreopen();\n",
                 {"src/foundation/A.cpp:1", "src/foundation/A.cpp:2"}},
        RuleCase{"viewClock",
                 bypassedPorts,
                 "src/schedule/A.cpp",
                 "auto a = QDate::currentDate();\nauto b = view.currentDate();\n",
                 {"src/schedule/A.cpp:1"}},
        RuleCase{"portsMayCall", bypassedPorts, "src/platform/posix/A.cpp", "clock_gettime(id, &t);\n", {}},
        RuleCase{"guard", headerWithoutGuard, "src/ui/A.h", "#include <string>\n", {"src/ui/A.h:1"}},
        RuleCase{"guarded", headerWithoutGuard, "src/ui/A.h", "#pragma once\n", {}},
        RuleCase{"function",
                 longerThan(3),
                 "src/ui/A.cpp",
                 "namespace a {\nint f() {\n  if (x) {\n  }\n}\nint g() {\n  return 1;\n}\n}\n",
                 {"src/ui/A.cpp:2"}},
        RuleCase{
            "member",
            longerThan(3),
            "src/ui/A.h",
            "class A {\n public:\n  int f() {\n    g();\n    h();\n  }\n  int i() {\n    j();\n  }\n};\n",
            {"src/ui/A.h:3"}},
        RuleCase{"brokenHeads",
                 longerThan(3),
                 "src/ui/A.h",
                 "class A : public B,\n          public C {\n  A()\n      : b(1),\n        c(2) {}\n  int "
                 "f(int a,\n        int b) {\n    return 1;\n"
                 "  }\n};\n",
                 {"src/ui/A.h:6"}},
        RuleCase{"table", longerThan(3), "src/ui/A.cpp", "const int kA[] = {\n  1,\n  2,\n  3,\n};\n", {}}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace tarvel::house
