#include "EngineFixture.h"
#include "refresh/NetworkReturn.h"
#include "refresh/NextRefresh.h"

namespace tarvel {
namespace {

using Kind = DownloadErrorKind;
constexpr Instant kNow{1'000'000.0}, kLast{900'000.0}, kFailed{950'000.0};

RefreshState state(Kind kind, bool mismatch = false, bool prevMismatch = false) {
  RefreshState made;
  made.errorKind = kind;
  made.mismatchError = mismatch;
  made.prevMismatchError = prevMismatch;
  made.lastRefreshTimeStamp = kLast;
  made.errorTimeStamp = kFailed;
  return made;
}

TEST(NextRefreshTest, TheCatalogues) {
  const struct {
    RefreshState state;
    bool updateRequired;
    AtLaunch atLaunch;
    std::optional<Instant> next;
  } cases[] = {
      {state(Kind::noError), false, AtLaunch::no, kLast + 172'800.0},
      {state(Kind::noError), false, AtLaunch::yes, kLast + 172'800.0},
      {state(Kind::noError), true, AtLaunch::no, kLast + 172'800.0},
      {state(Kind::noError), true, AtLaunch::yes, std::nullopt},
      {state(Kind::connectionError), false, AtLaunch::yes, std::nullopt},
      {state(Kind::connectionError, true), false, AtLaunch::no, kFailed + 600.0},
      {state(Kind::serverError, true), false, AtLaunch::yes, kFailed + 14'400.0},
      {state(Kind::invalidData), false, AtLaunch::no, kFailed + 14'400.0},
      {state(Kind::noError, true), false, AtLaunch::no, kNow + 1'800.0},
      {state(Kind::noError, true, true), false, AtLaunch::no, kLast + 172'800.0},
      {state(Kind::noError, false, true), false, AtLaunch::no, kLast + 172'800.0},
  };
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    const auto& c = cases[i];
    EXPECT_EQ(nextMasterRefresh(c.state, c.updateRequired, c.atLaunch, kNow), c.next) << i;
  }
  for (const Kind kind : {Kind::noError, Kind::connectionError, Kind::serverError}) {
    RefreshState bare;
    bare.errorKind = kind;
    EXPECT_EQ(nextMasterRefresh(bare, false, AtLaunch::no, kNow), std::nullopt);
    EXPECT_EQ(nextRinkRefresh(bare, Kind::noError, kNow), std::nullopt);
  }
}

TEST(NextRefreshTest, ARinks) {
  const struct {
    Kind master;
    RefreshState state;
    std::optional<Instant> next;
  } cases[] = {
      {Kind::connectionError, state(Kind::noError), kLast + 14'400.0},
      {Kind::connectionError, state(Kind::noError, false, true), kLast + 14'400.0},
      {Kind::connectionError, state(Kind::noError, true), std::nullopt},
      {Kind::connectionError, state(Kind::connectionError), std::nullopt},
      {Kind::connectionError, state(Kind::serverError), std::nullopt},
      {Kind::serverError, state(Kind::connectionError), kFailed + 600.0},
      {Kind::noError, state(Kind::serverError), kFailed + 14'400.0},
      {Kind::noError, state(Kind::invalidData), kFailed + 14'400.0},
      {Kind::invalidData, state(Kind::noError, true), kNow + 1'800.0},
      {Kind::noError, state(Kind::noError, true, true), kLast + 14'400.0},
      {Kind::noError, state(Kind::noError), kLast + 14'400.0},
  };
  for (std::size_t i = 0; i < std::size(cases); ++i)
    EXPECT_EQ(nextRinkRefresh(cases[i].state, cases[i].master, kNow), cases[i].next) << i;
}

TEST(NextRefreshTest, TheIntervalIsAtLeastTwoSecondsAndNeverBeyondTheOrdinaryOne) {
  const std::pair<std::optional<Instant>, double> cases[] = {
      {std::nullopt, 2.0},     {kNow - 5'000.0, 2.0},   {kNow + 1.9, 2.0},      {kNow + 2.5, 2.5},
      {kNow + 14'400, 14'400}, {kNow + 14'401, 14'400}, {kNow + 1e12, 14'400.0}};
  for (const auto& [due, seconds] : cases) EXPECT_EQ(secondsToRefresh(due, kNow, 14'400.0), seconds);
}

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
    for (const auto& request : sim.http.requests())
      if (request.url == site.server + "/root.b1") tries.push_back(request.seconds - start);
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
