#include "refresh/UpdateDecision.h"

#include <fmt/format.h>

#include <algorithm>

namespace tarvel {
namespace {

constexpr PackedVersion kCycleBits = 0x7FFF'FFFF'FFFF'0000;
constexpr std::int64_t kReminderDays = 4;

/// One decision at work: it fills in its result on the way.
class Decider {
 public:
  Decider(const RootFile& root, const UpdateFacts& facts) : root_(root), facts_(facts) {}

  UpdateDecision decide() {
    result_.updateRequired = facts_.runningVersion < root_.minimumVersion;
    if (!endsWithBeta() && !endsWithoutNewerRelease()) compareWithReleases();
    return std::move(result_);
  }

 private:
  std::string running() const { return "Running:  " + versionText(facts_.runningVersion); }
  std::string system() const { return versionText(facts_.systemVersion); }
  PackedVersion latest() const {
    return root_.releases.empty() ? root_.currentVersion : root_.releases.back().appVersion;
  }

  void log(std::string line) { result_.logLines.push_back(std::move(line)); }
  /// Answers an explicit check; nothing is said without one.
  void answer(std::string title, std::string text) {
    if (!facts_.isCheckForAppUpdate) return;
    result_.alert = UpdateAlert{UpdateAlert::Kind::info, std::move(title), std::move(text), {}, 0};
  }
  void answerOrLog(std::string title, std::string text, std::string logLine) {
    if (facts_.isCheckForAppUpdate) {
      answer(std::move(title), std::move(text));
    } else {
      log(std::move(logLine));
    }
  }
  void remindOfUpdate(std::string title, std::string text, const std::string& url) {
    result_.alert = UpdateAlert{UpdateAlert::Kind::update, std::move(title), std::move(text), url, 0};
    result_.reminderDueDate =
        result_.updateRequired ? nextDay(facts_.today) : addDays(facts_.today, kReminderDays);
  }

  /// Without a question of the user's, a reminder comes no sooner than it is due.
  bool isReminderTooSoon() const {
    return !facts_.isCheckForAppUpdate && !facts_.isManualRefresh && facts_.today < facts_.reminderDueDate;
  }

  bool isBetaSkipped(PackedVersion beta) const {
    return !facts_.isCheckForAppUpdate && facts_.skippedBetaCycle != 0 &&
           betaCycle(beta) <= facts_.skippedBetaCycle;
  }

  bool endsWithBeta() {
    if (!root_.beta) return false;
    const PackedVersion beta = root_.beta->appVersion;
    const std::string betaText = versionText(beta);
    if (beta == facts_.runningVersion) {
      answerOrLog("Tarvel\nUp to Date - Latest Beta Release\nVersion " + betaText, "",
                  "Tarvel  Up to Date - Latest Beta Release - Version " + betaText);
      return true;
    }
    if (beta < facts_.runningVersion || betaCycle(beta) == facts_.runningVersion) {
      answerOrLog("Tarvel\nAhead of Latest Beta Release", running() + "\nLatest Beta Release:  " + betaText,
                  fmt::format("Tarvel  Ahead of Latest Beta Release - {}  Latest Beta Release:  {}",
                              running(), betaText));
      return true;
    }
    if (isBetaSkipped(beta)) return false;
    result_.alert = UpdateAlert{UpdateAlert::Kind::beta, "Tarvel\nA new BETA release of Tarvel is available.",
                                running() + "\nAvailable:  " + betaText, root_.beta->url, beta};
    return true;
  }

  bool endsWithoutNewerRelease() {
    if (latest() > facts_.runningVersion) return false;
    result_.reminderDueDate = kNoDate;
    if (latest() == facts_.runningVersion) {
      log("App is up to date");
      answer("Tarvel\nUp to Date", "Version " + versionText(facts_.runningVersion));
    } else {
      log("App is pre-release version");
      answer("Tarvel\nPre-Release Version", running() + "\nCurrent Release:  " + versionText(latest()));
    }
    return true;
  }

  void compareWithReleases() {
    const auto best = std::find_if(
        root_.releases.rbegin(), root_.releases.rend(),
        [this](const Release& release) { return facts_.systemVersion >= release.osMinimumVersion; });
    if (best == root_.releases.rend()) {
      tellOfNone();
    } else if (best->appVersion <= facts_.runningVersion) {
      tellIfAsked("This is an older version.",
                  running() + "\nA newer version requires a more recent version of MacOS.\n" +
                      "Current MacOS version: " + system() + "\nVisit the app website for more info.");
    } else {
      tellOf(*best);
    }
  }

  void tellOfNone() {
    if (!result_.updateRequired) {
      tellIfAsked(
          "This is the best available version for your Mac.",
          running() +
              "\nA newer version has been released, but it requires a more recent version of MacOS.\n" +
              "Current MacOS version: " + system() + "\nVisit the app website for more info.");
      return;
    }
    tellWhenDue("This version is obsolete.",
                running() + "\nThe app is not compatible with the data currently being published.\n" +
                    "However, no version of the app is available for MacOS " + system() +
                    ".\nVisit the app website for more info.",
                facts_.applicationWebsiteURL);
  }

  void tellOf(const Release& release) {
    const char* const urgency = result_.updateRequired
                                    ? "This version is obsolete.\n"
                                      "You MUST update to the new version for compatibility with online data."
                                    : "Updating is recommended, but not required.";
    tellWhenDue("A new version is available",
                fmt::format("{}\nAvailable:  {}\n{}", running(), versionText(release.appVersion), urgency),
                release.url);
  }

  void tellIfAsked(std::string title, std::string text) {
    log(title);
    log(text);
    if (!facts_.isCheckForAppUpdate) return;
    remindOfUpdate(std::move(title), std::move(text), facts_.applicationWebsiteURL);
  }

  void tellWhenDue(std::string title, std::string text, const std::string& url) {
    log(title);
    log(text);
    if (isReminderTooSoon()) return;
    remindOfUpdate(std::move(title), std::move(text), url);
  }

  const RootFile& root_;
  const UpdateFacts& facts_;
  UpdateDecision result_;
};

}  // namespace

PackedVersion betaCycle(PackedVersion version) {
  return version & kCycleBits;
}

UpdateDecision decideUpdate(const RootFile& root, const UpdateFacts& facts) {
  return Decider(root, facts).decide();
}

}  // namespace tarvel
