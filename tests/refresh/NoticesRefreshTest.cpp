#include "EngineFixture.h"
#include "support/Encoded.h"

namespace tarvel {
namespace {

class NoticesRefreshTest : public EngineFixture {
 protected:
  using Ids = std::vector<std::int64_t>;

  NoticesRefreshTest() {
    publish({1, 2}, 0.0);
    startWithCatalogue();
    rink = &show(7);
    sim.http.clearRequests();
  }
  /// A new version of the notices, which the index promises with a date that is so much off.
  void publish(const Ids& ids, double off) {
    date = date + 100.0;
    file = encoded(date, ids.size());
    for (const std::int64_t id : ids) {
      const Bytes notice = encoded(id, packedDate(2026, 3, 1), std::string("Closed"), std::string());
      file.insert(file.end(), notice.begin(), notice.end());
    }
    sim.http.serve(url, file);
    site.rinks[0].otherFiles = {{"notices.b1", date + off}};
    site.rinks[0].mainDate.publishAnew();
  }
  Ids shown() {
    Ids ids;
    for (const auto& notice : rink->noticeList().value_or(NoticeList())) ids.push_back(notice->noticeID);
    return ids;
  }
  std::size_t fetched() {
    const std::size_t count = sim.http.requestCount(url);
    sim.http.clearRequests();
    return count;
  }

  const std::string url = site.rinks[0].url("notices.b1");
  Instant date{793'000'000.5};
  Bytes file;
  RinkData* rink = nullptr;
};

TEST_F(NoticesRefreshTest, NoticesAreFetchedAtTheFirstLookAndKeptCurrentFromThenOn) {
  NotificationRecorder recorder(sim.notifications, sim.world, {kNoticesChanged});
  refresh(*rink);
  EXPECT_EQ(fetched(), 0U) << "nobody has looked";
  EXPECT_EQ(shown(), shown()) << "two looks, one request";
  sim.world.runFor(1);
  EXPECT_EQ(fetched(), 1U);
  EXPECT_EQ(shown(), Ids({1, 2}));
  EXPECT_EQ(stored("rink-7/notices.b1"), file);
  EXPECT_EQ(storedDateOf("rink-7/notices.b1"), date);
  EXPECT_EQ(recorder.count(kNoticesChanged, rink), 1U);

  refresh(*rink);
  EXPECT_EQ(fetched(), 0U) << "nothing is new";
  ASSERT_TRUE(sim.disk.setAttributes(kStore + "/rink-7/notices.b1", {Instant{1.0}, std::nullopt}).ok());
  refresh(*rink);
  EXPECT_EQ(fetched(), 1U) << "the stored file fell behind, though the header stands";
  publish({2, 3}, 0.0);
  refresh(*rink);
  EXPECT_EQ(fetched(), 1U);
  EXPECT_EQ(shown(), Ids({2, 3}));
}

TEST_F(NoticesRefreshTest, AMismatchIsLoggedAndADamagedFileChangesNothing) {
  shown();
  sim.world.runFor(1);
  publish({5}, 60.0);
  refresh(*rink);
  EXPECT_EQ(shown(), Ids{5}) << "used all the same";
  ASSERT_EQ(engine->log->logMessages().size(), 1U);
  EXPECT_EQ(engine->log->logMessages()[0].msg,
            "date mismatch for notices.b1 - Arctic\n    modified  2/17/2026 5:50:00 am\n"
            "    expected  2/17/2026 5:51:00 am");
  EXPECT_EQ(rink->secondsUntilRefresh(), 1'800.0);

  const Bytes whole = file;
  publish({6}, 0.0);
  file.pop_back();
  sim.http.serve(url, file);
  refresh(*rink);
  EXPECT_EQ(rink->errorKind(), DownloadErrorKind::invalidData);
  EXPECT_EQ(shown(), Ids{5});
  EXPECT_EQ(stored("rink-7/notices.b1"), whole);
}

}  // namespace
}  // namespace tarvel
