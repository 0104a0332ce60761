#include <gtest/gtest.h>

#include <cmath>

#include "foundation/DecodeError.h"
#include "model/DefsFile.h"
#include "model/FileDate.h"
#include "model/FileNames.h"
#include "model/NoticesFile.h"
#include "model/PhoneNumber.h"
#include "model/PhotoCollectionFile.h"
#include "support/PublishedPhotos.h"
#include "support/PublishedSite.h"

namespace tarvel {
namespace {

TEST(FileDecodersTest, ACutFileIsRefusedAndACountThatCannotBeToo) {
  const PublishedSite site = PublishedSite::sample();
  const PublishedRink& rink = site.rinks[0];
  const PublishedPhotos photos{{1.5}, {{9, {{{50, 40}, 12, {1.0}}}}}, {{2, {9, 4}}}};
  const Bytes notices = encoded(1.5, 1, 7, packedDate(2026, 3, 1), "Summary", "Detail");
  const Bytes date = encoded(1.5);
  // The file, what stands before its first count, and its decoder.
  const std::tuple<Bytes, Bytes, void (*)(ByteView)> files[] = {
      {site.defs(), date, [](ByteView bytes) { (void)decodeDefsFile(bytes); }},
      {site.rinkList(), date, [](ByteView bytes) { (void)decodeRinkList(bytes); }},
      {rink.main(), encoded(1.5, 0, 0), [](ByteView bytes) { (void)decodeMainFile(bytes); }},
      {PublishedRink::schedules(rink.venues[0]), date,
       [](ByteView bytes) { (void)decodeSchedulesFile(bytes); }},
      {PublishedRink::week(rink.venues[0].weeks[0]), date,
       [](ByteView bytes) { (void)decodeWeekFile(bytes); }},
      {notices, date, [](ByteView bytes) { (void)decodeNoticesFile(bytes); }},
      {photos.file(), date, [](ByteView bytes) { (void)decodePhotoCollectionFile(bytes); }},
      {photos.file(), encoded(1.5, 0), [](ByteView bytes) { (void)decodePhotoCollectionFile(bytes); }}};
  for (const auto& [whole, head, decode] : files) {
    SCOPED_TRACE(&head - &std::get<1>(files[0]));
    EXPECT_NO_THROW(decode(whole));
    for (std::size_t length = 0; length < whole.size(); ++length)
      EXPECT_THROW(decode(ByteView(whole).first(length)), DecodeError) << length;
    EXPECT_THROW(decode(encoded(head, std::int64_t{1} << 40)), DecodeError);
    EXPECT_DEATH(decode(encoded(head, -1)), "negative count");
  }
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

TEST(FileNamesTest, WeekNamesAreTakenApartToTheLetter) {
  EXPECT_EQ(weekFileName(7, packedDate(2025, 3, 2)), "venue-7_week-2025-03-02.b1");
  EXPECT_EQ(rinkFolderName(12), "rink-12");
  const WeekName week{7, packedDate(2025, 3, 2)};
  for (const char* name : {"venue-7_week-2025-03-02", "venue-+7_week-+2025-3-2"})
    EXPECT_EQ(parseWeekName(name), week) << name;
  EXPECT_EQ(parseWeekName("venue-7_week-2025-99-99"), (WeekName{7, packedDate(2025, 99, 99)}))
      << "no range is checked";
  for (const char* name : {"venue-7_week-2025-03-02.b1", "venue--7_week-2025-03-02", "venue-7_week-2025-03",
                           "venue-7_week-2025-03-02_1", "venue-7_weeks-2025-03-02",
                           "venue-7x_week-2025-03-02", "venue-7_week-2025-03-+-2",
                           "venue-99999999999999999999_week-2025-03-02", "../venue-7_week-2025-03-02"}) {
    EXPECT_FALSE(parseWeekName(name)) << name;
  }
}

TEST(FileNamesTest, SchedulesNamesNeedTheirExtension) {
  EXPECT_EQ(schedulesFileName(3), "venue-3_schedules.b1");
  for (const char* name : {"venue-3_schedules.b1", "venue-+3_schedules.b1"})
    EXPECT_EQ(parseSchedulesFileName(name), 3) << name;
  for (const char* name :
       {"venue-3_schedules", "venue-3_schedules.b2", "venue-3_schedule.b1", "venue-3_x_schedules.b1",
        "room-3_schedules.b1", "/venue-3_schedules.b1", "venue-3_schedules.b1.b1", ".b1"}) {
    EXPECT_FALSE(parseSchedulesFileName(name)) << name;
  }
}

TEST(PhoneNumberTest, TextsPackAndFormatBack) {
  const std::tuple<std::string, std::optional<std::uint64_t>, std::string> cases[] = {
      {"", 0, ""},
      {"555 1234", 0x7000000005551234, "555-1234"},
      {"(303) 555-0123", 0xA000003035550123, "(303) 555-0123"},
      {"0000000", 0x7000000000000000, "000-0000"},
      {"555123", std::nullopt, ""},
      {"1 303 555 0123", std::nullopt, ""},
      {"555.1234", std::nullopt, ""},
      {"- -", std::nullopt, ""}};
  for (const auto& [text, packed, shown] : cases) {
    EXPECT_EQ(parsePhone(text), packed) << text;
    EXPECT_EQ(formattedPhone(packed.value_or(0)), shown);
  }
  EXPECT_EQ(formattedPhone(0x3000000000000911), "911");
  EXPECT_EQ(formattedPhone(0xF123456789012345), "123456789012345");
}

}  // namespace
}  // namespace tarvel
