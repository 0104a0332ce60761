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

TEST(HouseTest, TheTreeKeepsTheRules) {
  const Rule rules[] = {includesAgainstTheArrows,
                        toolkitInTheCore,
                        bypassedPorts,
                        headerWithoutGuard,
                        leftoverNotes,
                        [](const SourceFile& file) { return longFile(file, kLongestFile); },
                        [](const SourceFile& file) { return longFunctions(file, kLongestFunction); }};
  ASSERT_GT(tree().size(), 50U) << "the source tree wasn't found";
  for (const Rule& rule : rules) {
    for (const SourceFile& file : tree()) {
      const Findings findings = rule(file);
      EXPECT_TRUE(findings.empty()) << report(findings);
    }
  }
}

// The rules themselves: each finds what it is for, on the line where it stands, and nothing else.

struct RuleCase {
  const char* name;
  Rule rule;
  const char* path;
  const char* text;
  std::vector<int> lines;
};

Rule longerThan(std::size_t most) {
  return [most](const SourceFile& file) { return longFunctions(file, most); };
}

const RuleCase kCases[] = {
    {"upwards",
     includesAgainstTheArrows,
     "src/model/A.h",
     "#pragma once\n#include <string>\n#include \"platform/Clock.h\"\n#include \"ui/Window.h\"\n",
     {4}},
    {"sideways",
     includesAgainstTheArrows,
     "src/platform/posix/A.cpp",
     "#include \"platform/posix/A.h\"\n#include \"platform/qt/B.h\"\n",
     {2}},
    {"downwards",
     includesAgainstTheArrows,
     "src/app/A.cpp",
     "#include \"ui_A.h\"\n#include \"mainwindow/B.h\"\n#include \"platform/qt/C.h\"\n",
     {}},
    {"a room that is unknown", includesAgainstTheArrows, "src/attic/A.cpp", "", {1}},
    {"toolkit",
     toolkitInTheCore,
     "src/refresh/A.cpp",
     "#include <QString>\n#include <QtCore/QObject>\n",
     {1, 2}},
    {"toolkit where it belongs", toolkitInTheCore, "src/platform/qt/A.cpp", "#include <QString>\n", {}},
    {"clock",
     bypassedPorts,
     "src/model/A.cpp",
     "auto a = std::chrono::system_clock::now();\nauto b = time(nullptr);\nauto c = clock.time(b);\n"
     "auto d = realTime();\n",
     {1, 2}},
    {"disk",
     bypassedPorts,
     "src/foundation/A.cpp",
     "std::ifstream a(path);\nauto b = fopen(path, mode);\nreopen();\n",
     {1, 2}},
    {"a view's clock",
     bypassedPorts,
     "src/schedule/A.cpp",
     "auto a = QDate::currentDate();\nauto b = view.currentDate();\n",
     {1}},
    {"ports may call", bypassedPorts, "src/platform/posix/A.cpp", "clock_gettime(id, &t);\n", {}},
    {"no guard", headerWithoutGuard, "src/ui/A.h", "#include <string>\n", {1}},
    {"guarded", headerWithoutGuard, "src/ui/A.h", "#pragma once\n", {}},
    {"function",
     longerThan(3),
     "src/ui/A.cpp",
     "namespace a {\nint f() {\n  if (x) {\n  }\n}\nint g() {\n  return 1;\n}\n}\n",
     {2}},
    {"member",
     longerThan(3),
     "src/ui/A.h",
     "class A {\n public:\n  int f() {\n    g();\n    h();\n  }\n  int i() {\n    j();\n  }\n};\n",
     {3}},
    {"broken heads",
     longerThan(3),
     "src/ui/A.h",
     "class A : public B,\n          public C {\n  A()\n      : b(1),\n        c(2) {}\n  int f(int a,\n"
     "        int b) {\n    return 1;\n  }\n};\n",
     {6}},
    {"table", longerThan(3), "src/ui/A.cpp", "const int kA[] = {\n  1,\n  2,\n  3,\n};\n", {}}};

TEST(RulesTest, EachFindsWhatItIsForOnTheLineWhereItStands) {
  for (const auto& [name, rule, path, text, lines] : kCases) {
    std::vector<std::string> places, wanted;
    for (const int line : lines) wanted.push_back(path + (":" + std::to_string(line)));
    for (const std::string& finding : rule(fileOf(path, text)))
      places.push_back(finding.substr(0, finding.find(": ")));
    EXPECT_EQ(places, wanted) << name;
  }
}

}  // namespace
}  // namespace tarvel::house
