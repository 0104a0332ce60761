#include <gtest/gtest.h>

#include <QPushButton>

#include "AppWorld.h"
#include "app/AppInfo.h"
#include "app/Version.h"
#include "auxwindows/AlertPanelWindowController.h"
#include "simulation/ports/RecordingConsole.h"
#include "support/Encoded.h"

namespace tarvel {
namespace {

using Lines = std::vector<std::string>;

constexpr PackedVersion kNew = packedVersion(6, 3, 0);
constexpr PackedVersion kBeta = packedVersion(6, 4, 0, 1);
constexpr PackedDate kNoDay = kNoDate;

class UpdateAlertsTest : public AppWorld {
 protected:
  /// An index with one release and perhaps a beta, and the sample's files.
  void publish(PackedVersion minimum, PackedVersion beta, const std::string& releaseURL) {
    const auto release = [](PackedVersion version, const std::string& url) {
      return encoded(kNoDay, version, std::int64_t{0}, url);
    };
    const Bytes index =
        encoded(kNew, minimum, std::int64_t{0}, std::int64_t{0}, "https://web/", 2, "defs.b1",
                site_.defsDate.listed(), "rinks.b1", site_.rinksDate.listed(), 1, release(kNew, releaseURL),
                0, beta != 0, beta != 0 ? release(beta, "https://beta/") : Bytes{});
    sim_.http.serve(root_, index);
  }
  void refresh() {
    gDataModel->refreshNow();
    settle();
  }
  AlertPanelWindowController* panel() {
    for (const Window* window : Window::orderedWindows())
      if (auto* found = dynamic_cast<AlertPanelWindowController*>(window->delegate())) return found;
    return nullptr;
  }
  Lines titles() {
    Lines texts;
    for (const QPushButton* button : panel()->buttons()) texts.push_back(button->text().toStdString());
    return texts;
  }
  void click(std::size_t button) {
    panel()->buttons().at(button)->click();
    settle();
    EXPECT_EQ(panel(), nullptr) << "every button closes the panel";
  }

  const std::string root_ = site_.server + "/root.b1";
};

TEST_F(UpdateAlertsTest, ButtonsAndTheirResults) {
  const Lines inDays = {"Visit App Website", "Remind Me in 4 Days"};
  const Lines tomorrow = {"Visit App Website", "Remind Me Tomorrow"};
  const Lines ofBeta = {"Visit App Website", "Skip This Beta Cycle", "Remind Me in 4 Days"};
  const struct {
    PackedVersion minimum, beta;
    Lines buttons;
    std::size_t pressed;
    Lines opened;
    PackedVersion skipped;  ///< afterwards
  } cases[] = {{0, 0, inDays, 0, {"https://new/"}, 7}, {0, 0, inDays, 1, {}, 7},
               {kNew, 0, tomorrow, 1, {}, 7},          {0, kBeta, ofBeta, 0, {"https://beta/"}, 7},
               {0, kBeta, ofBeta, 2, {}, 0},           {0, kBeta, ofBeta, 1, {}, packedVersion(6, 4, 0)}};
  for (const auto& c : cases) {
    publish(c.minimum, c.beta, "https://new/");
    app_->skipBetaCycle = 7;
    workspace_.opened.clear();
    refresh();
    ASSERT_TRUE(panel());
    EXPECT_EQ(panel()->badge, AlertBadge::warning);
    EXPECT_EQ(titles(), c.buttons);
    click(c.pressed);
    EXPECT_EQ(workspace_.opened, c.opened);
    EXPECT_EQ(app_->skipBetaCycle, c.skipped);
  }
  refresh();
  ASSERT_TRUE(panel()) << "the beta is skipped, and the release told again to one who asks";
  EXPECT_EQ(panel()->message, "A new version is available");
  click(1);
  app_->masterRefresh();
  settle();
  EXPECT_EQ(panel(), nullptr) << "its reminder isn't due";
  sim_.world.stepWall(4 * 86'400.0);
  app_->masterRefresh();
  settle();
  EXPECT_NE(panel(), nullptr);
}

TEST_F(UpdateAlertsTest, ARequiredUpdateStopsTheDataUntilItIsNoLongerRequired) {
  site_.defsDate.publishAnew();
  publish(kNew, 0, "https://new/");
  sim_.http.clearRequests();
  refresh();
  EXPECT_EQ(sim_.http.requests().size(), 1U) << "the index alone";
  EXPECT_TRUE(gDataModel->applicationUpdateRequired);
  EXPECT_EQ(gDataModel->updateReminderDueDate, nextDay(todayDate(sim_.pretendTime)));
  EXPECT_TRUE(app_->isChanged);
  publish(0, 0, "https://new/");
  refresh();
  EXPECT_FALSE(gDataModel->applicationUpdateRequired);
  EXPECT_EQ(sim_.http.requestCount(site_.server + "/defs.b1"), 1U);
}

TEST_F(UpdateAlertsTest, AnAnswerHasOneButton) {
  for (int i = 0; i < 2; ++i) {
    app_->checkForAppUpdate();
    settle();
  }
  ASSERT_EQ(windowsOf("AlertPanelWindowController"), 1U) << "the same one takes the place of that before";
  EXPECT_EQ(panel()->badge, AlertBadge::none);
  EXPECT_EQ(panel()->message, "Tarvel\nPre-Release Version");
  EXPECT_EQ(titles(), Lines{"OK"});
  click(0);
}

using UpdateAlertsDeathTest = UpdateAlertsTest;

TEST_F(UpdateAlertsDeathTest, AReleaseWithoutAnAddressStopsTheProgramWhenItIsVisited) {
  publish(0, 0, "");
  refresh();
  EXPECT_DEATH(panel()->buttons()[0]->click(), "a release without a usable address");
}

// Whatever the user types as the server's address, the application goes on and says how it stands.
TEST_F(UpdateAlertsTest, AddressesThatLeadNowhere) {
  for (const char* address : {"", "no address", "ftp://files.test", "http://", "http://nobody.test"}) {
    sim_.http.fail(std::string(address) + "/root.b1", "no such host");
    gDataModel->setServerURL(address);
    settle();
    EXPECT_FALSE(gDataModel->refreshInProgress()) << address;
    EXPECT_EQ(gDataModel->errorKind(), DownloadErrorKind::connectionError) << address;
    EXPECT_NE(gDataModel->errorLog().find("no such host"), std::string::npos) << address;
    EXPECT_GT(gDataModel->secondsUntilRefresh(), 500.0) << "it waits before it tries again: " << address;
  }
}

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
