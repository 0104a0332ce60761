#include <gtest/gtest.h>

#include <sstream>

#include "SampleInput.h"

namespace tarvel::publish {
namespace {

using nlohmann::json;

const std::string kCatalogue = "catalogue.json";
const std::string kCedar = "rinks/cedar/rink.json";
const std::string kWeek = "rinks/cedar/weeks/2026-03-01.json";
const std::string kNotices = "rinks/cedar/notices.json";
const std::string kPhotos = "rinks/cedar/photos.json";

/// A value put into (or, `null` given, a key taken out of) a file of the sample, and the one error that has
/// to follow.
struct BadValue {
  std::string file;
  std::string pointer;
  json value;
  std::string reason;                     ///< part of it
  std::optional<std::string> field = {};  ///< where it isn't the one that was changed
};

/// "/venues/0/kind" as the messages have it: "venues[0].kind".
std::string fieldOf(const std::string& pointer) {
  std::string field;
  std::istringstream parts(pointer.substr(1));
  for (std::string part; std::getline(parts, part, '/');) {
    const bool index = part.find_first_not_of("0123456789") == std::string::npos;
    field += index ? "[" + part + "]" : (field.empty() ? "" : ".") + part;
  }
  return field;
}

const std::vector<BadValue> kBadValues = {
    {kCatalogue, "/application", nullptr, "is missing"},
    {kCatalogue, "/application/website", "ftp://x", "not an http or https address"},
    {kCatalogue, "/application/currentVersion", "6.1", "\"6.1\" is not a version"},
    {kCatalogue, "/application/minimumVersion", "6.2.0", "newer than currentVersion"},
    {kCatalogue, "/application/releases/0/date", "2026-02-30", "is not a date"},
    {kCatalogue, "/application/releases/1/version", "5.0.0", "from the oldest", "application.releases[1]"},
    {kCatalogue, "/application/releases/1/osMinimumVersion", 5, "expected"},
    {kCatalogue, "/application/releases", nullptr, "needs \"releases\"", "application.beta"},
    {kCatalogue, "/aplication", 1, "not a key that is known here"},
    {kCatalogue, "/serverUrl", "data.example.org", "address"},
    {kCatalogue, "/sessions/3/kind", "publicsession", "is not one of resurface, publicSession"},
    {kCatalogue, "/sessions/3/color", "red", "colour"},
    {kCatalogue, "/sessions/3/name", "", "must not be empty"},
    {kCatalogue, "/rinks/1", "../alder", "the name of a folder"},
    {kCatalogue, "/rinks/1", "oak", "can't be read", ""},
    {kCedar, "/rinkID", nullptr, "is missing"},
    {kCedar, "/rinkID", 7.5, "7.5 is not a whole number"},
    {kCedar, "/rinkID", 18446744073709551615ULL, "is not a whole number"},
    {kCedar, "/name", nullptr, "is missing"},
    {kCedar, "/city", 5, "expected a text"},
    {kCedar, "/phone", "(410) 555-01423", "phone number of 7 or 10 digits"},
    {kCedar, "/latitude", 90.5, "90.5 is not a number from -90 to 90"},
    {kCedar, "/longitude", "west", "expected a number from -180 to 180"},
    {kCedar, "/timeZone", "America/Cedar", "known time zone"},
    {kCedar, "/website", "cedar.example.org", "address"},
    {kCedar, "/serverUrl", "https://data.example.org/", "must not end in \"/\""},
    {kCedar, "/dataPath", "../cedar", "is not a path"},
    {kCedar, "/dataPath", "logos", "outside of \"logos\""},
    {kCedar, "/photosFolder", nullptr, "the rink has photos"},
    {kCedar, "/logo", "none.png", "\"none.png\" can't be read"},
    {kCedar, "/logo", "hall.jpg", "\"hall.jpg\" is no PNG image"},
    {kCedar, "/darkLogo", "/etc/passwd", "below the rink's folder"},
    {kCedar, "/coverPhoto", 45, "there is no photo 45"},
    {kCedar, "/venues/0/venueID", 0, "0 is not a whole number from 1"},
    {kCedar, "/venues/0/kind", "pool", "is not one of other, iceSheet"},
    {kCedar, "/venues/0/colour", "red", "not a key that is known here"},
    {"rinks/alder/rink.json", "/venues", json::object(), "expected a list"},
    {kCedar, "/firstWeek", "2026-03-02", "a Sunday"},
    {kCedar, "/lastWeek", "2026-02-22", "before the first week"},
    {kWeek, "/weekOf", "2026-03-02", "\"2026-03-02\" is not the date of a Sunday"},
    {kWeek, "/schedules/1/venueID", 2, "there is no venue 2"},
    {kWeek, "/schedules/1/venueID", 1, "a second time", "schedules[1]"},
    {kWeek, "/schedules/0/sessions/0/kind", "hockey", "\"hockey\" is not one of"},
    {kWeek, "/schedules/0/sessions/0/day", "Caturday", "weekday"},
    {kWeek, "/schedules/0/sessions/1/day", json::array(), "empty list"},
    {kWeek, "/schedules/0/sessions/2/time", "6:60", "\"6:60\" is not a time"},
    {kWeek, "/schedules/0/sessions/2/time", 2880, "2880 is not a time"},
    {kWeek, "/schedules/0/sessions/2/duration", 0, "from 1 to 32767"},
    {kWeek, "/schedules/0/sessions/2/duration", 32768, "from 1 to 32767"},
    {kWeek, "/schedules/0/sessions/2", "skate", "expected an object"},
    {kNotices, "/notices/1/noticeID", 12, "12 stands here twice"},
    {kNotices, "/notices/0/summary", nullptr, "is missing"},
    {kPhotos, "/photos/0/photoID", 31, "31 stands here twice", "photos[1].photoID"},
    {kPhotos, "/photos/0/versions/0", "logo.png", "is no JPEG image"},
    {kPhotos, "/photos/0/versions", json::array(), "one image or more"},
    {kPhotos, "/photos/1/versions/0", "front-small.jpg", "rising sizes", "photos[1].versions"},
    {kPhotos, "/albums/0/photos/1", 32, "there is no photo 32"},
};

bool holds(const std::vector<Problem>& errors, const BadValue& bad, const std::string& file) {
  return std::any_of(errors.begin(), errors.end(), [&](const Problem& problem) {
    return problem.file == file && problem.field == bad.field.value_or(fieldOf(bad.pointer)) &&
           problem.reason.find(bad.reason) != std::string::npos;
  });
}

TEST(PublishInput, ABadValueIsToldWithFileFieldAndReason) {
  for (const BadValue& bad : kBadValues) {
    SampleInput sample;
    sample.put(bad.file, bad.pointer, bad.value);
    const auto errors = sample.read().problems.errors;
    std::string all = bad.file + " " + bad.pointer + " gave";
    for (const Problem& problem : errors) all += "\n  " + describe(problem);
    const std::string file = bad.value == json("oak") ? "rinks/oak/rink.json" : bad.file;
    EXPECT_TRUE(holds(errors, bad, file)) << all;
    EXPECT_LE(errors.size(), 2U) << all;
  }
  SampleInput sample;
  sample.put(kCedar, "/latitude", 91);
  sample.put(kWeek, "/schedules/0/sessions/0/time", "noon");
  sample.put("rinks/alder/rink.json", "/name", "");
  EXPECT_EQ(sample.read().problems.errors.size(), 3U) << "all faults are told at once";
}

TEST(PublishInput, WhatIsNoJsonIsToldWithItsPlace) {
  const std::pair<std::string, const char*> cases[] = {{"{\n  \"weekOf\": 2026-03-01\n}", "line 2, column"},
                                                       {"[]", "expected an object"},
                                                       {"", "line 1, column 1"},
                                                       {"{\"weekOf\": \"\xFF\"}", "line 1, column"}};
  for (const auto& [text, reason] : cases) {
    SampleInput sample;
    sample.raw[kWeek] = Bytes(text.begin(), text.end());
    const auto errors = sample.read().problems.errors;
    ASSERT_EQ(errors.size(), 1U) << text;
    EXPECT_EQ(errors[0].file, kWeek);
    EXPECT_NE(errors[0].reason.find(reason), std::string::npos) << errors[0].reason;
  }
}

TEST(PublishInput, TwoRinksShareNothing) {
  const std::pair<const char*, json> cases[] = {
      {"rinkID", 7}, {"dataPath", "rinks/cedar"}, {"photosFolder", "photos/cedar"}};
  for (const auto& [key, value] : cases) {
    SampleInput sample;
    sample.json["rinks/alder/rink.json"][key] = value;
    const auto errors = sample.read().problems.errors;
    ASSERT_EQ(errors.size(), 1U) << key;
    EXPECT_EQ(errors[0].field, "rinks[1]");
    for (const char* part : {key, "\"cedar\""})
      EXPECT_NE(errors[0].reason.find(part), std::string::npos) << errors[0].reason;
  }
}

TEST(PublishInput, EverySessionKindNeedsItsDefinition) {
  SampleInput sample;
  sample.json[kCatalogue]["sessions"].erase(0);
  sample.json[kCatalogue]["sessions"].push_back(sample.json[kCatalogue]["sessions"][0]);
  const auto errors = sample.read().problems.errors;
  ASSERT_EQ(errors.size(), 2U);
  EXPECT_NE(errors[0].reason.find("twice"), std::string::npos);
  EXPECT_EQ(errors[1].reason, "has no entry for \"broomball\"");
}

TEST(PublishInput, OverlapsInAVenueAreWarnings) {
  SampleInput sample;
  const std::string nextWeek = "rinks/cedar/weeks/2026-03-08.json";
  auto& monday = sample.json[kWeek]["schedules"][0]["sessions"][2]["time"];
  // The night after Saturday runs into the next week's Sunday, which another file describes.
  auto& sunday = sample.json[nextWeek]["schedules"][0]["sessions"][0]["time"];
  monday = "6:30";
  sunday = "2:45";
  const PublishInput input = sample.read();
  EXPECT_TRUE(input.problems.errors.empty());
  ASSERT_EQ(input.problems.warnings.size(), 2U);
  EXPECT_EQ(input.problems.warnings[0].field, "schedules[0].sessions[2]");
  EXPECT_EQ(input.problems.warnings[1].file, nextWeek);
  monday = "6:45";
  sunday = "3:00";
  EXPECT_TRUE(sample.read().problems.warnings.empty());
}

TEST(PublishInput, WeeksOutsideTheRangeAreLeftOutAndCommentsAreAllowed) {
  SampleInput sample;
  sample.json[kCedar]["firstWeek"] = "2026-03-08";
  sample.json[kCedar]["lastWeek"] = "2026-04-05";
  const std::string text = "// closed all week\n{\"weekOf\": \"2026-04-12\", \"schedules\": [] /* none */}";
  sample.raw["rinks/cedar/weeks/later.json"] = Bytes(text.begin(), text.end());
  const PublishInput input = sample.read();
  ASSERT_TRUE(input.problems.errors.empty());
  const Rink& cedar = input.catalogue.rinks[1];
  ASSERT_EQ(cedar.weeks.size(), 1U);
  EXPECT_EQ(cedar.weeks[0].weekOf, packedDate(2026, 3, 8));
  EXPECT_EQ(cedar.lastWeek, packedDate(2026, 4, 5));
}

}  // namespace
}  // namespace tarvel::publish
