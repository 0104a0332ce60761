#include <gtest/gtest.h>

#include <cmath>

#include "foundation/DecodeError.h"
#include "model/DefsFile.h"
#include "model/FileDate.h"
#include "support/Encoded.h"
#include "support/PublishedSite.h"

namespace tarvel {
namespace {

TEST(FileDecodersDeathTest, ANegativeCountStopsTheProgram) {
  const Bytes bad = encoded(1.0, -1), badMain = encoded(1.0, 0, 0, -1);
  EXPECT_DEATH(decodeDefsFile(bad), "negative count");
  EXPECT_DEATH(decodeRinkList(bad), "negative count");
  EXPECT_DEATH(decodeMainFile(badMain), "negative count");
  EXPECT_DEATH(decodeSchedulesFile(bad), "negative count");
  EXPECT_DEATH(decodeWeekFile(bad), "negative count");
}

TEST(FileDecodersDeathTest, AnUnknownSessionKindStopsTheProgram) {
  for (const int raw : {-1, 19, 127}) {
    PublishedWeek week;
    week.items.push_back({static_cast<SessionKind>(raw), 0, 0, 0, "", ""});
    EXPECT_DEATH(decodeWeekFile(PublishedRink::week(week)), "unknown session kind") << raw;
  }
}

TEST(FileDecodersTest, DatesThatNoDiskCanHoldAreDecodeErrors) {
  const auto read = [](double seconds) {
    const Bytes bytes = encoded(seconds);
    DataDecoder decoder(bytes);
    return getFileDate(decoder);
  };
  for (const double good : {-978'307'200.0, 0.0, 794'664'000.015625, 8.0e9})
    EXPECT_EQ(read(good).seconds, good);
  for (const double bad : {-978'307'201.0, 8.1e9, 1e300, double{INFINITY}, double{NAN}})
    EXPECT_THROW(read(bad), DecodeError) << bad;
}

TEST(FileDecodersTest, AWeekFieldByField) {
  PublishedWeek week;
  week.date.actual = {794'000'000.5};
  week.items = {{SessionKind::broomball, 6, 1500, 32'767, "sub\xC3\xA9", "note"},
                {SessionKind::resurface, -1, -5, 0, "", ""}};
  const WeekFile file = decodeWeekFile(PublishedRink::week(week));
  EXPECT_EQ(file.fileDate, week.date.actual);
  ASSERT_EQ(file.items.size(), 2U);
  for (std::size_t i = 0; i < 2; ++i) {
    const ScheduleItemRecord &got = file.items[i], &want = week.items[i];
    EXPECT_EQ(std::tie(got.kind, got.day, got.time, got.duration, got.subtitle, got.note),
              std::tie(want.kind, want.day, want.time, want.duration, want.subtitle, want.note));
  }
}

}  // namespace
}  // namespace tarvel
