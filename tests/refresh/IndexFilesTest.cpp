#include <gtest/gtest.h>

#include "foundation/DecodeError.h"
#include "refresh/RootFile.h"
#include "simulation/ports/CorruptBytes.h"
#include "support/Encoded.h"
#include "support/PublishedSite.h"

namespace tarvel {
namespace {

auto fieldsOf(const Release& release) {
  return std::tie(release.date, release.appVersion, release.osMinimumVersion, release.url);
}

const Release kFirst{packedDate(2025, 1, 2), 5LL << 48, 1LL << 48, "https://a"};
const Release kSecond{packedDate(2026, 1, 2), 6LL << 48, 2LL << 48, "https://b"};

Bytes entry(const Release& release) {
  return encoded(release.date, release.appVersion, release.osMinimumVersion, release.url);
}

Bytes operator+(const Bytes& a, const Bytes& b) {
  return encoded(a, b);
}

Bytes releaseTables() {
  return encoded(2, entry(kFirst), entry(kSecond), 1, entry(kFirst));
}

Bytes beta() {
  return encoded(true, entry(kSecond));
}

TEST(RootFileTest, TheTailsAreOptional) {
  PublishedSite site = PublishedSite::sample();
  site.minimumVersion = 3;
  const Bytes head = site.root();
  const struct {
    Bytes file;
    std::size_t releases;
    bool hasBeta;
  } cases[] = {{head, 0, false},
               {head + releaseTables(), 2, false},
               {head + releaseTables() + Bytes{0}, 2, false},
               {head + releaseTables() + beta(), 2, true}};
  for (const auto& c : cases) {
    const RootFile root = decodeRootFile(c.file);
    EXPECT_EQ(root.currentVersion, 6LL << 48);
    EXPECT_EQ(root.minimumVersion, 3);
    EXPECT_EQ(root.applicationWebsiteURL, "https://tarvel.test");
    ASSERT_EQ(root.files.size(), 3U);
    EXPECT_EQ(root.files[2].relPath, "rinks.b1");
    EXPECT_EQ(root.files[2].modDate, site.rinksDate.actual);
    ASSERT_EQ(root.releases.size(), c.releases);
    if (c.releases > 0) {
      EXPECT_EQ(fieldsOf(root.releases[0]), fieldsOf(kFirst));
      EXPECT_EQ(fieldsOf(root.releases[1]), fieldsOf(kSecond));
    }
    ASSERT_EQ(root.beta.has_value(), c.hasBeta);
    EXPECT_EQ(fieldsOf(root.beta.value_or(kSecond)), fieldsOf(kSecond));
  }
}

TEST(RootFileTest, AFileThatEndsWithinATailIsADecodeError) {
  const Bytes head = PublishedSite::sample().root();
  const Bytes tables = head + releaseTables();
  const Bytes whole = tables + beta();
  for (std::size_t length = 0; length < whole.size(); ++length) {
    if (length == head.size() || length == tables.size()) continue;
    EXPECT_THROW(decodeRootFile(cutAt(whole, length)), DecodeError) << length;
  }
  EXPECT_THROW(decodeRootFile(head + Bytes{4, 0xFF, 0xFF, 0xFF, 0x7F}), DecodeError);
  EXPECT_THROW(decodeRootFile(head + Bytes{0, 4, 0xFF, 0xFF, 0xFF, 0x7F}), DecodeError);
}

TEST(RootFileDeathTest, ANegativeCountStopsTheProgram) {
  const Bytes head = PublishedSite::sample().root();
  EXPECT_DEATH(decodeRootFile(head + Bytes{0xFF, 0xFF}), "negative count");
  EXPECT_DEATH(decodeRootFile(head + Bytes{0, 0xFF, 0xFF}), "negative count");
  EXPECT_DEATH(decodeRootFile(encoded(0, 0, 0, 0, "", -2)), "negative count");
}

}  // namespace
}  // namespace tarvel
