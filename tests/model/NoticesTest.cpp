#include "ModelFixture.h"
#include "support/Encoded.h"

namespace tarvel {
namespace {

using Ids = std::vector<std::int64_t>;

const Instant kDate{794'000'000.25};

Bytes noticesFile(const Ids& ids) {
  Bytes file = encoded(kDate);
  const Bytes list = encodedList(ids, [](std::int64_t id) {
    return encoded(id, packedDate(2026, 3, 1), "Summary " + std::to_string(id), std::string());
  });
  file.insert(file.end(), list.begin(), list.end());
  return file;
}

TEST(NoticesFileTest, FieldByField) {
  const std::string longText(10'000, 'x'), arabic = "\xD8\xA5\xD8\xBA\xD9\x84\xD8\xA7\xD9\x82";
  const Bytes bytes = encoded(kDate, 2, std::int64_t{-5}, packedDate(2026, 2, 28), arabic, longText,
                              std::int64_t{1} << 53, 0U, std::string(), std::string());
  const NoticesFile file = decodeNoticesFile(bytes);
  EXPECT_EQ(file.fileDate, kDate);
  ASSERT_EQ(file.notices.size(), 2U);
  const Notice& notice = *file.notices[0];
  EXPECT_EQ(std::tie(notice.noticeID, notice.date, notice.summary, notice.detail),
            std::make_tuple(-5, packedDate(2026, 2, 28), arabic, longText));
  EXPECT_EQ(file.notices[1]->noticeID, std::int64_t{1} << 53);
}

class NoticesTest : public ModelFixture {
 protected:
  NoticesTest() {
    model.mergeRinkList(decodeRinkList(site.rinkList()));
    rink = model.rinkData(7);
    rink->noticesFileDate = kDate;
    taken();
  }
  Ids shown() {
    Ids ids;
    for (const auto& notice : rink->noticeList().value_or(NoticeList())) ids.push_back(notice->noticeID);
    return ids;
  }

  std::shared_ptr<RinkData> rink;
};

TEST_F(NoticesTest, TheFirstLookReadsThePromisedFileOrRequestsIt) {
  const Bytes whole = noticesFile({4, 2});
  const std::tuple<std::optional<Bytes>, Instant, bool> cases[] = {
      {std::nullopt, kDate, false},
      {whole, {kDate.seconds + 0.25}, false},
      {Bytes(whole.begin(), whole.end() - 1), kDate, false},
      {whole, kDate, true}};
  for (const auto& [content, date, read] : cases) {
    if (content) store("rink-7/notices.b1", *content, date);
    EXPECT_EQ(shown(), read ? Ids({4, 2}) : Ids{});
    EXPECT_EQ(rink->noticesCache.has_value(), read) << "none is not an empty list";
    EXPECT_EQ(taken(), read ? Texts{} : Texts{"7: /notices.b1"});
    sim.world.runUntilIdle();
    EXPECT_EQ(recorder.count(kNoticesChanged, rink.get()), read ? 1U : 0U);
  }
}

TEST_F(NoticesTest, DismissalIsKeptForTheNoticesThatAreStillThere) {
  const std::tuple<Ids, Ids, Ids> cases[] = {
      {{2, 9}, {1, 2, 3}, {2}}, {{3, 1}, {1, 2, 3}, {1, 3}}, {{1, 2}, {}, {}}, {{}, {1}, {}}};
  for (const auto& [dismissed, published, kept] : cases) {
    rink->dismissedNotices = dismissed;
    rink->adoptNotices(decodeNoticesFile(noticesFile(published)));
    EXPECT_EQ(rink->dismissedNotices, kept);
    EXPECT_EQ(shown(), published);
  }
}

}  // namespace
}  // namespace tarvel
