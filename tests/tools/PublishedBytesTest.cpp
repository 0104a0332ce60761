#include <gtest/gtest.h>

#include "SampleInput.h"
#include "publish/Encoders.h"

namespace tarvel::publish {
namespace {

constexpr Instant kNow{800'000'000.0};
constexpr std::int64_t kVersion610 = 0x0006'0001'0000'0000;

/// Each file kind, read back field by field as an application reads it. All files are new, so all dates are
/// `kNow`.
class PublishedBytes : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(sample_.publish(kNow)); }

  DataDecoder open(const std::string& path) { return DataDecoder(sample_.published(path)); }
  DataDecoder openDated(const std::string& path) {
    DataDecoder in = open(path);
    EXPECT_EQ(in.getDouble(), kNow.seconds) << path;
    EXPECT_EQ(sample_.diskDate(path), kNow) << path;
    return in;
  }
  static void expectPromise(DataDecoder& in, const std::string& name) {
    EXPECT_EQ(in.getString(), name);
    EXPECT_EQ(in.getDouble(), kNow.seconds) << name;
  }
  static void expectRelease(DataDecoder& in, PackedDate date, std::int64_t version, std::int64_t os,
                            const std::string& url) {
    EXPECT_EQ(in.getUInt32(), date);
    EXPECT_EQ(in.getInt64(), version);
    EXPECT_EQ(in.getInt64(), os);
    EXPECT_EQ(in.getString(), url);
  }
  void expectImage(DataDecoder& in, double width, double height, const std::string& source) {
    EXPECT_EQ(in.getDouble(), width);
    EXPECT_EQ(in.getDouble(), height);
    EXPECT_EQ(in.getInt(), static_cast<std::int64_t>(sample_.raw.at(source).size()));
    EXPECT_EQ(in.getDouble(), kNow.seconds);
  }

  SampleInput sample_;
};

TEST_F(PublishedBytes, Root) {
  DataDecoder in = open("root.b1");
  EXPECT_EQ(in.getInt64(), kVersion610);
  EXPECT_EQ(in.getInt64(), 0x0006'0000'0002'0000);
  EXPECT_EQ(in.getInt64(), 0);
  EXPECT_EQ(in.getInt64(), 0);
  EXPECT_EQ(in.getString(), "https://app.example.org/");
  ASSERT_EQ(in.getInt(), 2);
  expectPromise(in, "defs.b1");
  expectPromise(in, "rinks.b1");
  ASSERT_EQ(in.getInt(), 2);
  expectRelease(in, packedDate(2025, 9, 1), 0x0006'0000'0002'0000, 0x0004'0013'0000'0000,
                "https://app.example.org/602");
  expectRelease(in, packedDate(2026, 1, 15), kVersion610, 0x0005'000A'0000'0000,
                "https://app.example.org/610");
  EXPECT_EQ(in.getInt(), 0);
  ASSERT_TRUE(in.getBool());
  expectRelease(in, packedDate(2026, 2, 20), 0x0006'0002'0000'0001, 0x0005'000A'0000'0000,
                "https://app.example.org/beta");
  EXPECT_EQ(in.remaining(), 0U);
}

TEST_F(PublishedBytes, RootWithoutItsTails) {
  auto& application = sample_.json["catalogue.json"]["application"];
  const std::uint64_t full = sample_.published("root.b1").size();
  application.erase("beta");
  ASSERT_TRUE(sample_.publish(kNow));
  const std::uint64_t withReleases = sample_.published("root.b1").size();
  application.erase("releases");
  ASSERT_TRUE(sample_.publish(kNow));
  const std::uint64_t bare = sample_.published("root.b1").size();
  EXPECT_LT(withReleases, full);
  EXPECT_LT(bare, withReleases);
  DataDecoder in = open("root.b1");
  for (int i = 0; i < 4; ++i) in.getInt64();
  in.getString();
  EXPECT_EQ(in.getInt(), 2);
  in.getString();
  in.getDouble();
  in.getString();
  in.getDouble();
  EXPECT_EQ(in.remaining(), 0U);
}

TEST_F(PublishedBytes, DefsStandInTheOrderOfTheKinds) {
  DataDecoder in = openDated("defs.b1");
  ASSERT_EQ(in.getInt(), 19);
  for (int kind = 0; kind < 19; ++kind) {
    EXPECT_EQ(in.getDouble(), 0.2);
    EXPECT_EQ(in.getDouble(), 0.4);
    EXPECT_EQ(in.getDouble(), 1.0);
    EXPECT_EQ(in.getDouble(), 128 / 255.0);
    EXPECT_EQ(in.getString(), "Name " + std::to_string(kind));
  }
  EXPECT_EQ(in.remaining(), 0U);
}

TEST_F(PublishedBytes, RinksStandInTheOrderOfTheirIds) {
  DataDecoder in = openDated("rinks.b1");
  ASSERT_EQ(in.getInt(), 2);
  EXPECT_EQ(in.getInt(), 2);
  for (const char* text : {"Alder Pond", "", "", "", ""}) EXPECT_EQ(in.getString(), text);
  EXPECT_EQ(in.getUInt64(), 0U);
  in.getDouble();
  in.getDouble();
  for (const char* text : {"Europe/London", "", "http://alder.example.org:8080", "alder"}) {
    EXPECT_EQ(in.getString(), text);
  }
  EXPECT_FALSE(in.getBool());
  EXPECT_FALSE(in.getBool());

  EXPECT_EQ(in.getInt(), 7);
  for (const char* text : {"Cedar Ice", "1 Mill Lane", "Cedar", "MD", "21304"})
    EXPECT_EQ(in.getString(), text);
  EXPECT_EQ(in.getUInt64(), 0xA000'0041'0555'0142U);
  EXPECT_EQ(in.getDouble(), 39.5);
  EXPECT_EQ(in.getDouble(), -76.25);
  for (const char* text :
       {"America/New_York", "https://cedar.example.org/", "https://data.example.org", "rinks/cedar"}) {
    EXPECT_EQ(in.getString(), text);
  }
  for (const char* logo : {"logo.png", "logo-dark.png"}) {
    const Bytes& source = sample_.raw.at(std::string("rinks/cedar/") + logo);
    EXPECT_TRUE(in.getBool());
    EXPECT_EQ(in.getDouble(), kNow.seconds);
    EXPECT_EQ(in.getInt(), static_cast<std::int64_t>(source.size()));
    EXPECT_EQ(sample_.published(logo == std::string("logo.png") ? "logos/7.png" : "logos/7-dark.png"),
              source);
  }
  EXPECT_EQ(in.remaining(), 0U);
}

TEST_F(PublishedBytes, MasterAndMain) {
  DataDecoder master = open("rinks/cedar/master.b1");
  expectPromise(master, "main.b1");
  EXPECT_EQ(master.remaining(), 0U);

  DataDecoder in = openDated("rinks/cedar/main.b1");
  EXPECT_EQ(in.getUInt32(), packedDate(2026, 3, 1));
  EXPECT_EQ(in.getUInt32(), packedDate(2026, 3, 8));
  ASSERT_EQ(in.getInt(), 2);
  EXPECT_EQ(in.getInt(), 1);
  EXPECT_EQ(in.getInt8(), 1);
  EXPECT_EQ(in.getString(), "Main Rink");
  EXPECT_EQ(in.getString(), "");
  EXPECT_EQ(in.getInt(), 2);  // the second that is described
  EXPECT_EQ(in.getInt(), 3);
  EXPECT_EQ(in.getInt8(), 4);
  EXPECT_EQ(in.getString(), "Studio");
  EXPECT_EQ(in.getString(), "Upstairs");
  EXPECT_EQ(in.getInt(), 9);
  ASSERT_EQ(in.getInt(), 4);
  for (const char* name :
       {"notices.b1", "photoCollection.b1", "venue-1_schedules.b1", "venue-3_schedules.b1"}) {
    expectPromise(in, name);
  }
  EXPECT_EQ(in.getString(), "photos/cedar");
  EXPECT_EQ(in.getString(), "");
  EXPECT_EQ(in.getInt(), 31);
  EXPECT_EQ(in.getString(), "Front");
  EXPECT_EQ(in.getString(), "In winter");
  ASSERT_EQ(in.getInt(), 2);
  expectImage(in, 320, 200, "rinks/cedar/front-small.jpg");
  expectImage(in, 1600, 1000, "rinks/cedar/front-large.jpg");
  EXPECT_EQ(in.remaining(), 0U);
}

TEST_F(PublishedBytes, MainOfARinkWithoutPhotos) {
  DataDecoder in = openDated("alder/main.b1");
  EXPECT_EQ(in.getUInt32(), packedDate(2026, 3, 1));
  EXPECT_EQ(in.getUInt32(), packedDate(2026, 3, 1));
  ASSERT_EQ(in.getInt(), 1);
  EXPECT_EQ(in.getInt(), 10);
  EXPECT_EQ(in.getInt8(), 2);
  in.getString();
  in.getString();
  in.getInt();
  ASSERT_EQ(in.getInt(), 3);
  for (const char* name : {"notices.b1", "photoCollection.b1", "venue-10_schedules.b1"})
    expectPromise(in, name);
  for (int i = 0; i < 2; ++i) EXPECT_EQ(in.getString(), "");
  EXPECT_EQ(in.getInt(), 0);
  for (int i = 0; i < 2; ++i) EXPECT_EQ(in.getString(), "");
  EXPECT_EQ(in.getInt(), 0);
  EXPECT_EQ(in.remaining(), 0U);
}

TEST_F(PublishedBytes, SchedulesAndWeeks) {
  DataDecoder schedules = openDated("rinks/cedar/venue-1_schedules.b1");
  ASSERT_EQ(schedules.getInt(), 2);
  expectPromise(schedules, "venue-1_week-2026-03-01.b1");
  expectPromise(schedules, "venue-1_week-2026-03-08.b1");
  EXPECT_EQ(schedules.remaining(), 0U);

  // One session a line: kind, day, time, duration, subtitle, note.
  Bytes week = sample_.published("rinks/cedar/venue-1_week-2026-03-01.b1");
  week.erase(week.begin(), week.begin() + kDateSize);
  const Bytes expected = {1, 4,                           //
                          4, 1, 0x59, 0x01, 60, 0, 0, 0,  //
                          0, 1, 0x95, 0x01, 15, 0, 0, 0,  //
                          4, 3, 0x59, 0x01, 60, 0, 0, 0,  //
                          1, 6, 0xFA, 0x05, 90, 0, 1, 4, 'L', 'a', 't', 'e', 1, 5, 'C', 'a', 'f', 0xC3, 0xA9};
  EXPECT_EQ(week, expected);

  DataDecoder empty = openDated("rinks/cedar/venue-3_week-2026-03-01.b1");
  EXPECT_EQ(empty.getInt(), 0);
}

TEST_F(PublishedBytes, Notices) {
  DataDecoder in = openDated("rinks/cedar/notices.b1");
  ASSERT_EQ(in.getInt(), 2);
  EXPECT_EQ(in.getInt(), 12);
  EXPECT_EQ(in.getUInt32(), packedDate(2026, 2, 28));
  EXPECT_EQ(in.getString(), "Early closing");
  EXPECT_EQ(in.getString(), "At six.");
  EXPECT_EQ(in.getInt(), 4);
  EXPECT_EQ(in.getUInt32(), packedDate(2026, 2, 10));
  EXPECT_EQ(in.getString(), "Sharpening is back");
  EXPECT_EQ(in.getString(), "");
  EXPECT_EQ(in.remaining(), 0U);
}

TEST_F(PublishedBytes, PhotoCollection) {
  DataDecoder in = openDated("rinks/cedar/photoCollection.b1");
  ASSERT_EQ(in.getInt(), 2);
  EXPECT_EQ(in.getInt(), 31);
  EXPECT_EQ(in.getString(), "Front");
  EXPECT_EQ(in.getString(), "In winter");
  ASSERT_EQ(in.getInt(), 2);
  expectImage(in, 320, 200, "rinks/cedar/front-small.jpg");
  expectImage(in, 1600, 1000, "rinks/cedar/front-large.jpg");
  EXPECT_EQ(in.getInt(), 44);
  EXPECT_EQ(in.getString(), "Hall");
  EXPECT_EQ(in.getString(), "");
  ASSERT_EQ(in.getInt(), 1);
  expectImage(in, 640, 480, "rinks/cedar/hall.jpg");
  ASSERT_EQ(in.getInt(), 1);
  EXPECT_EQ(in.getInt(), 5);
  EXPECT_EQ(in.getString(), "Building");
  EXPECT_EQ(in.getString(), "Inside and out");
  ASSERT_EQ(in.getInt(), 2);
  EXPECT_EQ(in.getInt(), 44);
  EXPECT_EQ(in.getInt(), 31);
  EXPECT_EQ(in.remaining(), 0U);
  EXPECT_EQ(sample_.published("photos/cedar/31-1.jpg"), sample_.raw.at("rinks/cedar/front-small.jpg"));
  EXPECT_EQ(sample_.published("photos/cedar/31-2.jpg"), sample_.raw.at("rinks/cedar/front-large.jpg"));
  EXPECT_EQ(sample_.diskDate("photos/cedar/31-2.jpg"), kNow);
}

}  // namespace
}  // namespace tarvel::publish
