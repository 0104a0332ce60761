#include "app/Version.h"

#include <gtest/gtest.h>

#include "app/AppInfo.h"
#include "simulation/ports/RecordingConsole.h"

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
  const std::pair<const char*, const char*> cases[] = {{"6.1.0-18-amd64", "6.1.0"},
                                                       {"5.15.153.1-generic", "5.15.153"},
                                                       {"6.8", "6.8.0"},
                                                       {"6.8-rc1", "6.8.0"},
                                                       {"", "0.0.0"},
                                                       {"linux", "0.0.0"},
                                                       {"6.99999.1", "6.65535.1"},
                                                       {"99999999999999999999.1", "65535.1.0"}};
  for (const auto& [release, text] : cases)
    EXPECT_EQ(versionText(packedSystemVersion(release)), text) << release;
  EXPECT_GT(systemVersion(), packedVersion(2, 0, 0));
}

TEST(AppInfoTest, OnlyADisagreementIsTold) {
  for (const AppInfo& info : {kAppInfo, AppInfo{"Tarvel", "6.1.1", "Tarvel", "6.1.1"},
                              AppInfo{"Tarvel", "6.1.0", "Tarvel", "6.0.9"}}) {
    RecordingConsole console;
    const bool agree = info.localizedVersion == "6.1.0";
    EXPECT_EQ(versionsAgree(info, kAppVersion, console), agree);
    const std::vector<std::string> told = {
        "version mismatch", "   version           = " + std::string(info.version),
        "   localized version = " + std::string(info.localizedVersion), "   kAppVersion       = 6.1.0"};
    EXPECT_EQ(console.lines(), agree ? std::vector<std::string>{} : told);
  }
}

}  // namespace
}  // namespace tarvel
