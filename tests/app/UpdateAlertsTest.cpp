#include <QPushButton>

#include "AppWorld.h"
#include "auxwindows/AlertPanelWindowController.h"
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
    for (const Window* window : Window::orderedWindows()) {
      if (auto* found = dynamic_cast<AlertPanelWindowController*>(window->delegate())) return found;
    }
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
  const struct {
    PackedVersion minimum;
    PackedVersion beta;
    Lines buttons;
    std::size_t pressed;
    Lines opened;
    PackedVersion skipped;  ///< afterwards
  } cases[] = {
      {0, 0, {"Visit App Website", "Remind Me in 4 Days"}, 0, {"https://new/"}, 7},
      {0, 0, {"Visit App Website", "Remind Me in 4 Days"}, 1, {}, 7},
      {kNew, 0, {"Visit App Website", "Remind Me Tomorrow"}, 1, {}, 7},
      {0,
       kBeta,
       {"Visit App Website", "Skip This Beta Cycle", "Remind Me in 4 Days"},
       0,
       {"https://beta/"},
       7},
      {0, kBeta, {"Visit App Website", "Skip This Beta Cycle", "Remind Me in 4 Days"}, 2, {}, 0},
      {0,
       kBeta,
       {"Visit App Website", "Skip This Beta Cycle", "Remind Me in 4 Days"},
       1,
       {},
       packedVersion(6, 4, 0)},
  };
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

}  // namespace
}  // namespace tarvel
