#include "app/Version.h"

#include <gtest/gtest.h>

#include "app/AppInfo.h"
#include "support/RecordingConsole.h"

namespace tarvel {
namespace {

TEST(VersionTest, TextsAndOrder) {
  struct Case {
    PackedVersion version;
    const char* text;
  };
  // Ascending: a version compares as an integer, and a beta stands behind the final release of its numbers.
  const std::vector<Case> cases = {
      {packedVersion(0, 0, 0), "0.0.0"},   {packedVersion(6, 0, 65535), "6.0.65535"},
      {packedVersion(6, 1, 0), "6.1.0"},   {packedVersion(6, 1, 0, 2), "6.1.0 Beta 2"},
      {packedVersion(6, 1, 1), "6.1.1"},   {packedVersion(6, 12, 0), "6.12.0"},
      {packedVersion(10, 0, 0), "10.0.0"},
  };
  for (std::size_t i = 0; i < cases.size(); ++i) {
    EXPECT_EQ(versionText(cases[i].version), cases[i].text);
    if (i > 0) {
      EXPECT_LT(cases[i - 1].version, cases[i].version) << cases[i].text;
    }
  }
}

TEST(VersionTest, KernelReleases) {
  struct Case {
    const char* release;
    const char* text;
  };
  const std::vector<Case> cases = {
      {"6.1.0-18-amd64", "6.1.0"},
      {"5.15.153.1-generic", "5.15.153"},
      {"6.8", "6.8.0"},
      {"6.8-rc1", "6.8.0"},
      {"", "0.0.0"},
      {"linux", "0.0.0"},
      {"6.99999.1", "6.65535.1"},
      {"99999999999999999999.1", "65535.1.0"},
  };
  for (const Case& c : cases) EXPECT_EQ(versionText(packedSystemVersion(c.release)), c.text) << c.release;
  EXPECT_GT(systemVersion(), packedVersion(2, 0, 0));
}

TEST(AppInfoTest, TheBuildsOwnNumbersAgree) {
  RecordingConsole console;
  EXPECT_TRUE(versionsAgree(kAppInfo, kAppVersion, console));
  EXPECT_TRUE(console.lines().empty());
  EXPECT_EQ(kAppInfo.localizedName, "Tarvel");
}

TEST(AppInfoTest, AnyDisagreementIsTold) {
  struct Case {
    AppInfo info;
    std::vector<std::string> lines;
  };
  const std::vector<Case> cases = {
      {{"Tarvel", "6.1.1", "Tarvel", "6.1.1"},
       {"version mismatch", "   version           = 6.1.1", "   localized version = 6.1.1",
        "   kAppVersion       = 6.1.0"}},
      {{"Tarvel", "6.1.0", "Tarvel", "6.0.9"},
       {"version mismatch", "   version           = 6.1.0", "   localized version = 6.0.9",
        "   kAppVersion       = 6.1.0"}},
  };
  for (const Case& c : cases) {
    RecordingConsole console;
    EXPECT_FALSE(versionsAgree(c.info, packedVersion(6, 1, 0), console));
    EXPECT_EQ(console.lines(), c.lines);
  }
}

}  // namespace
}  // namespace tarvel
