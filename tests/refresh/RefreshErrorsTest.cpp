#include "EngineFixture.h"

namespace tarvel {
namespace {

using Kind = DownloadErrorKind;
using Http = ScriptedHttpClient;

class RefreshErrorsTest : public EngineFixture {
 protected:
  /// What the URL answers from now on.
  void answer(const std::string& url, HttpResult result) {
    sim.http.handle(url, [result](const Http::Request&) { return result; });
  }
  const std::string root = site.server + "/root.b1", defs = site.server + "/defs.b1",
                    rinks = site.server + "/rinks.b1", master = site.rinks[0].url("master.b1");
};

struct Refusal {
  HttpResult result;
  Kind kind;
  std::string description;
  double retry;
};

const std::vector<Refusal> kRefusals = {
    {HttpFailure{HttpFailure::Kind::transport, "Host not found"}, Kind::connectionError, "Host not found",
     600},
    {HttpFailure{HttpFailure::Kind::notHttp, "not HTTP"}, Kind::serverError, "not HTTP", 14'400},
    {HttpResponse{404, {}}, Kind::serverError, "404 Not Found", 14'400},
    {HttpResponse{304, {}}, Kind::serverError, "304 Not Modified", 14'400},
    {HttpResponse{204, {}}, Kind::serverError, "204 No Content", 14'400},
    {HttpResponse{500, {}}, Kind::serverError, "500 Internal Server Error", 14'400},
    {HttpResponse{299, {}}, Kind::serverError, "299 Success", 14'400},
    {HttpResponse{-1002, {}}, Kind::serverError, "-1002 Unknown Status", 14'400},
    {HttpResponse{-1001, {}}, Kind::connectionError, "-1001 Unknown Status", 600},
    {HttpResponse{-1009, {}}, Kind::connectionError, "-1009 Unknown Status", 600},
    {HttpResponse{-1010, {}}, Kind::serverError, "-1010 Unknown Status", 14'400},
    {HttpResponse{200, {1, 2}}, Kind::invalidData, "Invalid data in root.b1 (the data ends early)", 14'400},
};

TEST_F(RefreshErrorsTest, EachRefusalInTheStateTheTextAndTheNextTime) {
  startWithCatalogue();
  RinkData& rink = show(7);
  const std::string_view kindTexts[] = {"", "Unable to contact server", "Server error", "Invalid data"};
  const auto expectRefused = [&](RefreshableProtocol& tried, RefreshState& state, const std::string& url,
                                 const Refusal& refusal) {
    const std::string invalid = "Invalid data in " + fileNameOf(url) + " (the data ends early)";
    const std::string description = refusal.kind == Kind::invalidData ? invalid : refusal.description;
    SCOPED_TRACE(url + ": " + description);
    const NotificationRecorder recorder(sim.notifications, sim.world, {kRefreshStatusChanged});
    const auto last = state.lastRefreshTimeStamp;
    answer(url, refusal.result);
    refresh(tried);
    sim.http.forget(url);
    EXPECT_EQ(state.errorKind, refusal.kind);
    EXPECT_EQ(state.errorTimeStamp, sim.world.now());
    const std::string kindText(kindTexts[static_cast<int>(refusal.kind)]);
    EXPECT_EQ(state.errorLog, "3/8/2026 12:00:05 pm  --  " + kindText + "\n" + description);
    EXPECT_EQ(state.lastRefreshTimeStamp, last);
    EXPECT_EQ(tried.secondsUntilRefresh(), refusal.retry);
    EXPECT_TRUE(sim.console.printed("download failed: " + url + " - " + kindText + " " + description));
    EXPECT_GE(recorder.deliveries().size(), 2U) << "the failure and the timer";
    refresh(tried);
    EXPECT_EQ(state.errorLog, "");
    EXPECT_EQ(state.errorKind, Kind::noError);
  };
  for (const Refusal& refusal : kRefusals) {
    expectRefused(model(), model().refreshState, root, refusal);
    expectRefused(rink, rink.refreshState, master, refusal);
  }
}

TEST_F(RefreshErrorsTest, AConnectionErrorIsNotOverwrittenAndAPartFailureIsNoRefresh) {
  startWithCatalogue();
  const auto last = model().lastRefreshTimeStamp();
  const auto refused = HttpFailure{HttpFailure::Kind::transport, "offline"};
  const std::tuple<HttpResult, HttpResult, Kind, double> cases[] = {
      {refused, HttpResponse{404, {}}, Kind::connectionError, 600},
      {HttpResponse{404, {}}, refused, Kind::connectionError, 600},
      {HttpResponse{404, {}}, HttpResponse{200, {1}}, Kind::invalidData, 14'400},
      {HttpResponse{404, {}}, HttpResponse{200, site.rinkList()}, Kind::serverError, 14'400}};
  for (const auto& [defsReply, rinksReply, told, again] : cases) {
    site.defsDate.publishAnew();
    site.rinksDate.publishAnew();
    answer(defs, defsReply);
    answer(rinks, rinksReply);
    refresh(model());
    EXPECT_EQ(model().errorKind(), told);
    EXPECT_EQ(model().lastRefreshTimeStamp(), last);
    EXPECT_EQ(model().secondsUntilRefresh(), again);
  }
}

TEST_F(RefreshErrorsTest, TheStatusShowsAtOnceWhileOtherFilesAreInFlight) {
  startWithCatalogue();
  site.defsDate.publishAnew();
  site.rinksDate.publishAnew();
  sim.http.serveStatus(defs, 404);
  sim.http.setLatency([&](const auto& request) { return request.url == rinks ? 30.0 : 0.0; });
  model().refreshNow();
  sim.world.runFor(10);
  EXPECT_TRUE(model().refreshInProgress());
  EXPECT_EQ(model().secondsUntilRefresh(), 14'390.0);
  sim.world.runFor(20);
  EXPECT_FALSE(model().refreshInProgress());
  EXPECT_EQ(model().secondsUntilRefresh(), 14'370.0) << "from the failure, not from the cycle's end";
}

TEST_F(RefreshErrorsTest, ARinkInErrorIsTriedAtOnceWhileTheCatalogueHasNoConnection) {
  startWithCatalogue();
  RinkData& rink = show(7);
  sim.http.fail(root, "offline");
  sim.http.fail(master, "offline");
  refresh(model());
  refresh(rink);
  EXPECT_EQ(rink.secondsUntilRefresh(), 2.0);
  sim.http.clearRequests();
  sim.world.runFor(10);
  EXPECT_EQ(sim.http.requestCount(master), 5U);
  sim.http.forget(master);
  sim.world.runFor(2);
  EXPECT_EQ(rink.secondsUntilRefresh(), 14'400.0);
}

TEST_F(RefreshErrorsTest, TheErrorLogLosesItsOldestEntryBeyond4000Characters) {
  const std::string entry = "3/8/2026 12:00:05 pm  --  Server error\n404 Not Found";
  const std::pair<std::size_t, bool> cases[] = {{4000, false}, {4001, true}};
  for (const auto& [characters, losesFirst] : cases) {
    const std::string rest = "\n\n" + std::string(characters - 12, 'b');
    std::string log = "first line" + rest;
    appendErrorEntry(log, entry);
    EXPECT_EQ(log, (losesFirst ? rest.substr(2) : "first line" + rest) + "\n\n" + entry);
  }
  std::string single(5000, 'x'), empty, wide;
  appendErrorEntry(single, "y");
  EXPECT_EQ(single, std::string(5000, 'x') + "\n\ny") << "no blank line to cut at";
  appendErrorEntry(empty, "y");
  EXPECT_EQ(empty, "y");
  for (int i = 0; i < 3000; ++i) wide += "\xC3\xA9";  // 3000 characters in 6000 bytes
  const std::string before = "a\n\n" + wide;
  std::string counted = before;
  appendErrorEntry(counted, "y");
  EXPECT_EQ(counted, before + "\n\ny");
}

}  // namespace
}  // namespace tarvel
