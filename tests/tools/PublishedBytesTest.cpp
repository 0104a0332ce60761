#include <gtest/gtest.h>

#include "SampleInput.h"
#include "publish/Encoders.h"
#include "support/Encoded.h"

namespace tarvel::publish {
namespace {

constexpr Instant kNow{800'000'000.0};
constexpr std::int64_t kVersion602 = 0x0006'0000'0002'0000;
constexpr std::int64_t kVersion610 = 0x0006'0001'0000'0000;
constexpr std::int64_t kSystem510 = 0x0005'000A'0000'0000;

/// Each kind of file, byte for byte. All files are new, so all dates are `kNow`.
class PublishedBytes : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(sample_.publish(kNow)); }

  /// A file that begins with its own date.
  template <class... Values>
  void expectDated(const std::string& path, const Values&... values) {
    EXPECT_EQ(sample_.published(path), encoded(kNow, values...)) << path;
    EXPECT_EQ(sample_.diskDate(path), kNow) << path;
  }
  static Bytes promise(const std::string& name) { return encoded(name, kNow); }
  Bytes image(double width, double height, const std::string& source) const {
    return encoded(width, height, sample_.raw.at("rinks/cedar/" + source).size(), kNow);
  }
  Bytes logo(const std::string& source) const {
    return encoded(true, kNow, sample_.raw.at("rinks/cedar/" + source).size());
  }
  Bytes frontPhoto() const {
    return encoded(31, "Front", "In winter", 2, image(320, 200, "front-small.jpg"),
                   image(1600, 1000, "front-large.jpg"));
  }

  SampleInput sample_;
};

TEST_F(PublishedBytes, OfTheRootWithAndWithoutItsTails) {
  const Bytes head = encoded(kVersion610, kVersion602, 0, 0, "https://app.example.org/", 2,
                             promise("defs.b1"), promise("rinks.b1"));
  const Bytes releases = encoded(2, packedDate(2025, 9, 1), kVersion602, std::int64_t{0x0004'0013'0000'0000},
                                 "https://app.example.org/602", packedDate(2026, 1, 15), kVersion610,
                                 kSystem510, "https://app.example.org/610", 0);
  const Bytes beta = encoded(true, packedDate(2026, 2, 20), std::int64_t{0x0006'0002'0000'0001}, kSystem510,
                             "https://app.example.org/beta");
  EXPECT_EQ(sample_.published("root.b1"), encoded(head, releases, beta));
  auto& application = sample_.json["catalogue.json"]["application"];
  application.erase("beta");
  ASSERT_TRUE(sample_.publish(kNow));
  EXPECT_EQ(sample_.published("root.b1"), encoded(head, releases));
  application.erase("releases");
  ASSERT_TRUE(sample_.publish(kNow));
  EXPECT_EQ(sample_.published("root.b1"), head);
}

TEST_F(PublishedBytes, OfTheCatalogueInTheOrderOfKindsAndIds) {
  Bytes sessions;
  for (int kind = 0; kind < 19; ++kind)
    sessions = encoded(sessions, 0.2, 0.4, 1.0, 128 / 255.0, "Name " + std::to_string(kind));
  expectDated("defs.b1", 19, sessions);
  expectDated("rinks.b1", 2,  //
              2, "Alder Pond", "", "", "", "", 0, 0.0, 0.0, "Europe/London", "",
              "http://alder.example.org:8080", "alder", false, false,  //
              7, "Cedar Ice", "1 Mill Lane", "Cedar", "MD", "21304", std::uint64_t{0xA000'0041'0555'0142},
              39.5, -76.25, "America/New_York", "https://cedar.example.org/", "https://data.example.org",
              "rinks/cedar", logo("logo.png"), logo("logo-dark.png"));
}

TEST_F(PublishedBytes, OfARinksHeader) {
  EXPECT_EQ(sample_.published("rinks/cedar/master.b1"), promise("main.b1"));
  const std::int8_t iceSheet = 1, artificialIce = 2, danceRoom = 4;
  expectDated("rinks/cedar/main.b1", packedDate(2026, 3, 1), packedDate(2026, 3, 8), 2,  //
              1, iceSheet, "Main Rink", "", 2,        // the second that is described
              3, danceRoom, "Studio", "Upstairs", 9,  //
              4, promise("notices.b1"), promise("photoCollection.b1"), promise("venue-1_schedules.b1"),
              promise("venue-3_schedules.b1"), "photos/cedar", "", frontPhoto());
  expectDated("alder/main.b1", packedDate(2026, 3, 1), packedDate(2026, 3, 1), 1,  //
              10, artificialIce, "", "", 1,                                        //
              3, promise("notices.b1"), promise("photoCollection.b1"), promise("venue-10_schedules.b1"), "",
              "", 0, "", "", 0);
}

TEST_F(PublishedBytes, OfSchedulesAndWeeks) {
  expectDated("rinks/cedar/venue-1_schedules.b1", 2, promise("venue-1_week-2026-03-01.b1"),
              promise("venue-1_week-2026-03-08.b1"));
  // One session a line: kind, day, time, duration, subtitle, note.
  const Bytes sessions = {1, 4,                           //
                          4, 1, 0x59, 0x01, 60, 0, 0, 0,  //
                          0, 1, 0x95, 0x01, 15, 0, 0, 0,  //
                          4, 3, 0x59, 0x01, 60, 0, 0, 0,  //
                          1, 6, 0xFA, 0x05, 90, 0, 1, 4, 'L', 'a', 't', 'e', 1, 5, 'C', 'a', 'f', 0xC3, 0xA9};
  expectDated("rinks/cedar/venue-1_week-2026-03-01.b1", sessions);
  expectDated("rinks/cedar/venue-3_week-2026-03-01.b1", 0);
}

TEST_F(PublishedBytes, OfNoticesAndPhotos) {
  expectDated("rinks/cedar/notices.b1", 2,                              //
              12, packedDate(2026, 2, 28), "Early closing", "At six.",  //
              4, packedDate(2026, 2, 10), "Sharpening is back", "");
  expectDated("rinks/cedar/photoCollection.b1", 2, frontPhoto(),  //
              44, "Hall", "", 1, image(640, 480, "hall.jpg"),     //
              1, 5, "Building", "Inside and out", 2, 44, 31);
}

TEST_F(PublishedBytes, OfPicturesAreThoseThatWereDescribed) {
  const std::pair<const char*, const char*> pictures[] = {{"logos/7.png", "logo.png"},
                                                          {"logos/7-dark.png", "logo-dark.png"},
                                                          {"photos/cedar/31-1.jpg", "front-small.jpg"},
                                                          {"photos/cedar/31-2.jpg", "front-large.jpg"}};
  for (const auto& [path, source] : pictures) {
    EXPECT_EQ(sample_.published(path), sample_.raw.at(std::string("rinks/cedar/") + source)) << path;
    EXPECT_EQ(sample_.diskDate(path), kNow) << path;
  }
}

}  // namespace
}  // namespace tarvel::publish
