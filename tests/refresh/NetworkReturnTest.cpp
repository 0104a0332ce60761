#include "EngineFixture.h"
#include "refresh/NetworkReturn.h"

namespace tarvel {
namespace {

class NetworkReturnTest : public EngineFixture {
 protected:
  NetworkReturnTest() {
    startWithCatalogue();
    show(7);
    network = std::make_unique<NetworkReturn>(sim.services, model());
  }
  ~NetworkReturnTest() override { network.reset(); }
  void goOffline() {
    sim.http.handlePrefix("http://", [](const auto& request) {
      return HttpFailure{HttpFailure::Kind::transport, "no route to " + request.url};
    });
    refresh(model());
    refresh(*model().recentRinks[0]);
    sim.http.clearRequests();
  }
  /// Seconds from the network's return to each request of the catalogue's index, within the 10 minutes after
  /// which the ordinary turn comes.
  std::vector<double> triesAfter(const std::vector<double>& returns) {
    const double start = sim.world.seconds();
    for (const double at : returns) {
      sim.world.runFor(start + at - sim.world.seconds());
      network->networkCameBack();
    }
    sim.world.runFor(start + 300 - sim.world.seconds());
    std::vector<double> tries;
    for (const auto& request : sim.http.requests()) {
      if (request.url == site.server + "/root.b1") tries.push_back(request.seconds - start);
    }
    return tries;
  }

  std::unique_ptr<NetworkReturn> network;
};

TEST_F(NetworkReturnTest, WhatFoundNoConnectionIsTriedAgainAtMostEveryThirtySeconds) {
  struct Case {
    std::vector<double> returns, tries;
  };
  for (const Case& c : {Case{{0}, {2}}, {{0, 1}, {2}}, {{0, 5, 10}, {2, 32}}, {{0, 50}, {2, 52}}}) {
    goOffline();
    EXPECT_EQ(triesAfter(c.returns), c.tries) << c.returns.size();
  }
}

TEST_F(NetworkReturnTest, WhatIsInOrderIsLeftAlone) {
  sim.http.clearRequests();
  EXPECT_EQ(triesAfter({0}), std::vector<double>{});
  EXPECT_TRUE(sim.http.requests().empty());
}

TEST_F(NetworkReturnTest, TheRinkIsTriedTooAndHeals) {
  goOffline();
  site.serveOn(sim.http);
  EXPECT_EQ(triesAfter({0}), std::vector<double>{2});
  EXPECT_EQ(model().errorKind(), DownloadErrorKind::noError);
  EXPECT_EQ(model().recentRinks[0]->errorKind(), DownloadErrorKind::noError);
}

}  // namespace
}  // namespace tarvel
