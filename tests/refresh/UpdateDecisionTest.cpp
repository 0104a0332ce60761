#include "refresh/UpdateDecision.h"

#include <gtest/gtest.h>

namespace tarvel {
namespace {

constexpr PackedVersion v(std::uint16_t major, std::uint16_t minor, std::uint16_t beta = 0) {
  return packedVersion(major, minor, 0, beta);
}

constexpr PackedDate kToday = packedDate(2026, 2, 27);
constexpr PackedDate kTomorrow = packedDate(2026, 2, 28);
constexpr PackedDate kInFourDays = packedDate(2026, 3, 3);
constexpr PackedVersion kRunning = v(6, 1);
constexpr PackedVersion kSystem = v(6, 1);
constexpr const char* kWebsite = "https://app.example/";
constexpr const char* kNoAddress = "";

/// What the user is told, or would be.
struct Told {
  UpdateAlert::Kind kind;
  std::string title;
  std::string text;
  std::string url;
  std::string log;  ///< where it isn't the title and the text
};

constexpr auto kInfo = UpdateAlert::Kind::info;
constexpr auto kUpdate = UpdateAlert::Kind::update;

const Told kCurrent{kInfo, "Tarvel\nUp to Date", "Version 6.1.0", kNoAddress, "App is up to date"};
const Told kAhead{kInfo, "Tarvel\nPre-Release Version", "Running:  6.1.0\nCurrent Release:  6.0.0",
                  kNoAddress, "App is pre-release version"};
const std::string kNeedsSystem =
    "a more recent version of MacOS.\nCurrent MacOS version: 6.1.0\nVisit the app website for more info.";
const Told kOlder{kUpdate, "This is an older version.",
                  "Running:  6.1.0\nA newer version requires " + kNeedsSystem, kWebsite, ""};
const Told kBest{kUpdate, "This is the best available version for your Mac.",
                 "Running:  6.1.0\nA newer version has been released, but it requires " + kNeedsSystem,
                 kWebsite, ""};
const Told kObsolete{kUpdate, "This version is obsolete.",
                     "Running:  6.1.0\nThe app is not compatible with the data currently being published.\n"
                     "However, no version of the app is available for MacOS 6.1.0.\n"
                     "Visit the app website for more info.",
                     kWebsite, ""};
const Told kNew{kUpdate, "A new version is available",
                "Running:  6.1.0\nAvailable:  6.3.0\nUpdating is recommended, but not required.",
                "https://r/6.3.0", ""};
const Told kMust{kUpdate, "A new version is available",
                 "Running:  6.1.0\nAvailable:  6.3.0\nThis version is obsolete.\n"
                 "You MUST update to the new version for compatibility with online data.",
                 "https://r/6.3.0", ""};
const Told kBeta{UpdateAlert::Kind::beta, "Tarvel\nA new BETA release of Tarvel is available.",
                 "Running:  6.1.0\nAvailable:  6.2.0 Beta 1", "https://beta/", ""};
const Told kPastBeta{
    kInfo, "Tarvel\nAhead of Latest Beta Release", "Running:  6.1.0\nLatest Beta Release:  6.1.0 Beta 3",
    kNoAddress, "Tarvel  Ahead of Latest Beta Release - Running:  6.1.0  Latest Beta Release:  6.1.0 Beta 3"};
const Told kThisBeta{kInfo, "Tarvel\nUp to Date - Latest Beta Release\nVersion 6.1.0", "", kNoAddress,
                     "Tarvel  Up to Date - Latest Beta Release - Version 6.1.0"};

enum class Asked { no, manually, explicitly };

/// The versions of the releases and of the systems that they need.
using Releases = std::vector<std::pair<PackedVersion, PackedVersion>>;
const Releases kNone;
const Releases kNewer{{v(6, 1), 0}, {v(6, 3), v(6, 1)}, {v(7, 0), v(6, 2)}};
const Releases kOlderRuns{{v(6, 0), 0}, {v(7, 0), v(6, 2)}};
const Releases kUnfit{{v(7, 0), v(6, 2)}};
const Releases kBefore{{v(6, 0), 0}};
const std::optional<PackedDate> kSame;

struct Case {
  PackedVersion minimum;
  Releases releases;
  PackedVersion beta;
  Asked asked;
  PackedDate dueDate;
  PackedVersion skipped;
  const Told& told;
  bool shown;
  std::optional<PackedDate> newDueDate;
};

const Case kCases[] = {
    {0, kNone, 0, Asked::manually, kTomorrow, 0, kCurrent, false, kNoDate},
    {0, kNone, 0, Asked::explicitly, 0, 0, kCurrent, true, kNoDate},
    {0, kBefore, 0, Asked::no, kTomorrow, 0, kAhead, false, kNoDate},
    {0, kBefore, 0, Asked::explicitly, 0, 0, kAhead, true, kNoDate},
    // A newer release that runs here, reminded of by dates:
    {0, kNewer, 0, Asked::no, 0, 0, kNew, true, kInFourDays},
    {0, kNewer, 0, Asked::no, kToday, 0, kNew, true, kInFourDays},
    {0, kNewer, 0, Asked::no, kTomorrow, 0, kNew, false, kSame},
    {0, kNewer, 0, Asked::manually, kTomorrow, 0, kNew, true, kInFourDays},
    {v(6, 2), kNewer, 0, Asked::no, 0, 0, kMust, true, kTomorrow},
    // Newer ones that need another system:
    {0, kOlderRuns, 0, Asked::manually, 0, 0, kOlder, false, kSame},
    {0, kOlderRuns, 0, Asked::explicitly, kTomorrow, 0, kOlder, true, kInFourDays},
    {0, kUnfit, 0, Asked::manually, 0, 0, kBest, false, kSame},
    {0, kUnfit, 0, Asked::explicitly, 0, 0, kBest, true, kInFourDays},
    {v(6, 2), kUnfit, 0, Asked::no, kToday, 0, kObsolete, true, kTomorrow},
    {v(6, 2), kUnfit, 0, Asked::no, kTomorrow, 0, kObsolete, false, kSame},
    // Betas come before releases, unless they are skipped:
    {0, kNewer, v(6, 1, 3), Asked::no, 0, 0, kPastBeta, false, kSame},
    {0, kNewer, v(6, 1, 3), Asked::explicitly, 0, 0, kPastBeta, true, kSame},
    {0, kNewer, v(6, 1), Asked::no, 0, 0, kThisBeta, false, kSame},
    {0, kNewer, v(6, 1), Asked::explicitly, 0, 0, kThisBeta, true, kSame},
    {v(6, 2), kNewer, v(6, 2, 1), Asked::no, kTomorrow, v(6, 1), kBeta, true, kSame},
    {0, kNewer, v(6, 2, 1), Asked::no, 0, v(6, 2), kNew, true, kInFourDays},
    {0, kNewer, v(6, 2, 1), Asked::explicitly, 0, v(6, 2), kBeta, true, kSame},
};

/// Betas are only told of, and what one asked for about them isn't logged as well.
std::vector<std::string> expectedLog(const Case& c) {
  if (c.told.kind == kUpdate) return {c.told.title, c.told.text};
  const bool isOfBeta = &c.told == &kBeta || &c.told == &kPastBeta || &c.told == &kThisBeta;
  if (isOfBeta && c.shown) return {};
  return {c.told.log};
}

TEST(UpdateDecisionTest, EveryPath) {
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.told.title + " " + std::to_string(&c - kCases));
    RootFile root;
    root.currentVersion = kRunning;
    root.minimumVersion = c.minimum;
    for (const auto& [version, system] : c.releases)
      root.releases.push_back({kNoDate, version, system, "https://r/" + versionText(version)});
    if (c.beta != 0) root.beta = Release{kNoDate, c.beta, 0, "https://beta/"};
    const UpdateDecision decision =
        decideUpdate(root, {kRunning, kSystem, kToday, c.dueDate, c.skipped, c.asked != Asked::no,
                            c.asked == Asked::explicitly, kWebsite});
    EXPECT_EQ(decision.logLines, expectedLog(c));
    EXPECT_EQ(decision.reminderDueDate, c.newDueDate);
    EXPECT_EQ(decision.updateRequired, kRunning < c.minimum);
    ASSERT_EQ(decision.alert.has_value(), c.shown);
    if (!c.shown) continue;
    EXPECT_EQ(decision.alert->kind, c.told.kind);
    EXPECT_EQ(decision.alert->title, c.told.title);
    EXPECT_EQ(decision.alert->text, c.told.text);
    EXPECT_EQ(decision.alert->url, c.told.url);
  }
}

}  // namespace
}  // namespace tarvel
