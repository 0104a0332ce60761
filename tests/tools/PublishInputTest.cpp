#include "publish/PublishInput.h"

#include <gtest/gtest.h>

#include <functional>

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
  std::string field;
  std::string reason;  ///< part of it
};

void put(json& document, const std::string& pointer, const json& value) {
  const json::json_pointer at(pointer);
  if (!value.is_null()) {
    document[at] = value;
    return;
  }
  json& parent = document[at.parent_pointer()];
  if (parent.is_object()) parent.erase(at.back());
}

const std::vector<BadValue> kBadValues = {
    {kCatalogue, "/application", nullptr, "application", "is missing"},
    {kCatalogue, "/application/website", "ftp://x", "application.website", "not an http or https address"},
    {kCatalogue, "/application/currentVersion", "6.1", "application.currentVersion",
     "\"6.1\" is not a version"},
    {kCatalogue, "/application/minimumVersion", "6.2.0", "application.minimumVersion",
     "newer than currentVersion"},
    {kCatalogue, "/application/releases/0/date", "2026-02-30", "application.releases[0].date",
     "is not a date"},
    {kCatalogue, "/application/releases/1/version", "5.0.0", "application.releases[1]", "from the oldest"},
    {kCatalogue, "/application/releases/1/osMinimumVersion", 5, "application.releases[1].osMinimumVersion",
     "expected"},
    {kCatalogue, "/application/releases", nullptr, "application.beta", "needs \"releases\""},
    {kCatalogue, "/application/beta/url", "x", "application.beta.url", "address"},
    {kCatalogue, "/aplication", 1, "aplication", "not a key that is known here"},
    {kCatalogue, "/serverUrl", "data.example.org", "serverUrl", "address"},
    {kCatalogue, "/sessions/3/kind", "publicsession", "sessions[3].kind",
     "is not one of resurface, publicSession"},
    {kCatalogue, "/sessions/3/color", "red", "sessions[3].color", "colour"},
    {kCatalogue, "/sessions/3/name", "", "sessions[3].name", "must not be empty"},
    {kCatalogue, "/rinks/1", "../alder", "rinks[1]", "the name of a folder"},
    {kCatalogue, "/rinks/1", "oak", "", "can't be read"},
    {kCedar, "/rinkID", nullptr, "rinkID", "is missing"},
    {kCedar, "/rinkID", -7, "rinkID", "-7 is not a whole number from 1"},
    {kCedar, "/rinkID", 7.5, "rinkID", "7.5 is not a whole number"},
    {kCedar, "/rinkID", 18446744073709551615ULL, "rinkID", "is not a whole number"},
    {kCedar, "/rinkID", "7", "rinkID", "expected a whole number"},
    {kCedar, "/name", nullptr, "name", "is missing"},
    {kCedar, "/city", 5, "city", "expected a text"},
    {kCedar, "/phone", "(410) 555-01423", "phone", "phone number of 7 or 10 digits"},
    {kCedar, "/latitude", 90.5, "latitude", "90.5 is not a number from -90 to 90"},
    {kCedar, "/longitude", "west", "longitude", "expected a number from -180 to 180"},
    {kCedar, "/timeZone", "America/Cedar", "timeZone", "known time zone"},
    {kCedar, "/website", "cedar.example.org", "website", "address"},
    {kCedar, "/serverUrl", "https://data.example.org/", "serverUrl", "must not end in \"/\""},
    {kCedar, "/dataPath", "../cedar", "dataPath", "is not a path"},
    {kCedar, "/dataPath", "logos", "dataPath", "outside of \"logos\""},
    {kCedar, "/photosFolder", nullptr, "photosFolder", "the rink has photos"},
    {kCedar, "/logo", "none.png", "logo", "\"none.png\" can't be read"},
    {kCedar, "/logo", "hall.jpg", "logo", "\"hall.jpg\" is no PNG image"},
    {kCedar, "/darkLogo", "/etc/passwd", "darkLogo", "below the rink's folder"},
    {kCedar, "/coverPhoto", 45, "coverPhoto", "there is no photo 45"},
    {kCedar, "/venues/0/venueID", 0, "venues[0].venueID", "0 is not a whole number from 1"},
    {kCedar, "/venues/0/kind", "pool", "venues[0].kind", "is not one of other, iceSheet"},
    {kCedar, "/venues/0/colour", "red", "venues[0].colour", "not a key that is known here"},
    {"rinks/alder/rink.json", "/venues", json::object(), "venues", "expected a list"},
    {kCedar, "/firstWeek", "2026-03-02", "firstWeek", "a Sunday"},
    {kCedar, "/lastWeek", "2026-02-22", "lastWeek", "before the first week"},
    {kWeek, "/weekOf", "2026-03-02", "weekOf", "\"2026-03-02\" is not the date of a Sunday"},
    {kWeek, "/schedules/1/venueID", 2, "schedules[1].venueID", "there is no venue 2"},
    {kWeek, "/schedules/1/venueID", 1, "schedules[1]", "a second time"},
    {kWeek, "/schedules/0/sessions/0/kind", "hockey", "schedules[0].sessions[0].kind",
     "\"hockey\" is not one of"},
    {kWeek, "/schedules/0/sessions/0/day", "Caturday", "schedules[0].sessions[0].day", "weekday"},
    {kWeek, "/schedules/0/sessions/0/day", 7, "schedules[0].sessions[0].day", "7 is not a weekday"},
    {kWeek, "/schedules/0/sessions/1/day/1", "", "schedules[0].sessions[1].day[1]", "weekday"},
    {kWeek, "/schedules/0/sessions/1/day", json::array(), "schedules[0].sessions[1].day", "empty list"},
    {kWeek, "/schedules/0/sessions/2/time", "6:60", "schedules[0].sessions[2].time",
     "\"6:60\" is not a time"},
    {kWeek, "/schedules/0/sessions/2/time", 2880, "schedules[0].sessions[2].time", "2880 is not a time"},
    {kWeek, "/schedules/0/sessions/2/time", -1, "schedules[0].sessions[2].time", "-1 is not a time"},
    {kWeek, "/schedules/0/sessions/2/duration", 0, "schedules[0].sessions[2].duration", "from 1 to 32767"},
    {kWeek, "/schedules/0/sessions/2/duration", 32768, "schedules[0].sessions[2].duration",
     "from 1 to 32767"},
    {kWeek, "/schedules/0/sessions/2", "skate", "schedules[0].sessions[2]", "expected an object"},
    {kNotices, "/notices/1/noticeID", 12, "notices[1].noticeID", "12 stands here twice"},
    {kNotices, "/notices/0/date", "28.2.2026", "notices[0].date", "is not a date"},
    {kNotices, "/notices/0/summary", nullptr, "notices[0].summary", "is missing"},
    {kPhotos, "/photos/0/photoID", 31, "photos[1].photoID", "31 stands here twice"},
    {kPhotos, "/photos/0/versions/0", "logo.png", "photos[0].versions[0]", "is no JPEG image"},
    {kPhotos, "/photos/0/versions", json::array(), "photos[0].versions", "one image or more"},
    {kPhotos, "/photos/1/versions/0", "front-small.jpg", "photos[1].versions", "rising sizes"},
    {kPhotos, "/albums/0/photos/1", 32, "albums[0].photos[1]", "there is no photo 32"},
    {kPhotos, "/albums/0/albumID", nullptr, "albums[0].albumID", "is missing"},
};

bool holds(const std::vector<Problem>& errors, const BadValue& bad, const std::string& file) {
  return std::any_of(errors.begin(), errors.end(), [&](const Problem& problem) {
    return problem.file == file && problem.field == bad.field &&
           problem.reason.find(bad.reason) != std::string::npos;
  });
}

TEST(PublishInput, TheSampleHasNoProblems) {
  SampleInput sample;
  const PublishInput input = sample.read();
  for (const Problem& problem : input.problems.errors) ADD_FAILURE() << describe(problem);
  for (const Problem& problem : input.problems.warnings) ADD_FAILURE() << describe(problem);
}

TEST(PublishInput, ABadValueIsToldWithFileFieldAndReason) {
  for (const BadValue& bad : kBadValues) {
    SampleInput sample;
    put(sample.json[bad.file], bad.pointer, bad.value);
    const PublishInput input = sample.read();
    std::string all;
    for (const Problem& problem : input.problems.errors) all += "\n  " + describe(problem);
    const std::string file = bad.value == json("oak") ? "rinks/oak/rink.json" : bad.file;
    EXPECT_TRUE(holds(input.problems.errors, bad, file)) << bad.file << " " << bad.pointer << " gave" << all;
    EXPECT_LE(input.problems.errors.size(), 2U) << bad.file << " " << bad.pointer << " gave" << all;
  }
}

TEST(PublishInput, AllFaultsAreToldAtOnce) {
  SampleInput sample;
  put(sample.json[kCedar], "/latitude", 91);
  put(sample.json[kWeek], "/schedules/0/sessions/0/time", "noon");
  put(sample.json["rinks/alder/rink.json"], "/name", "");
  EXPECT_EQ(sample.read().problems.errors.size(), 3U);
}

TEST(PublishInput, WhatIsNoJsonIsToldWithItsPlace) {
  struct Case {
    const char* text;
    const char* reason;
  };
  for (const Case& each :
       {Case{"{\n  \"weekOf\": 2026-03-01\n}", "line 2, column"}, Case{"[]", "expected an object"},
        Case{"", "line 1, column 1"}, Case{"{\"weekOf\": \"\xFF\"}", "line 1, column"}}) {
    SampleInput sample;
    const std::string text = each.text;
    sample.raw[kWeek] = Bytes(text.begin(), text.end());
    const auto errors = sample.read().problems.errors;
    ASSERT_EQ(errors.size(), 1U) << text;
    EXPECT_EQ(errors[0].file, kWeek);
    EXPECT_NE(errors[0].reason.find(each.reason), std::string::npos) << errors[0].reason;
  }
}

TEST(PublishInput, TwoRinksShareNothing) {
  struct Case {
    const char* key;
    json value;
  };
  for (const Case& each :
       {Case{"rinkID", 7}, Case{"dataPath", "rinks/cedar"}, Case{"photosFolder", "photos/cedar"}}) {
    SampleInput sample;
    sample.json["rinks/alder/rink.json"][each.key] = each.value;
    const auto errors = sample.read().problems.errors;
    ASSERT_EQ(errors.size(), 1U) << each.key;
    EXPECT_EQ(errors[0].field, "rinks[1]");
    EXPECT_NE(errors[0].reason.find(each.key), std::string::npos) << errors[0].reason;
    EXPECT_NE(errors[0].reason.find("\"cedar\""), std::string::npos) << errors[0].reason;
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
  auto& sessions = sample.json[kWeek]["schedules"][0]["sessions"];
  // The night after Saturday runs into the next week's Sunday, which another file describes.
  sample.json["rinks/cedar/weeks/2026-03-08.json"]["schedules"][0]["sessions"][0]["time"] = "2:45";
  sessions[2]["time"] = "6:30";
  const PublishInput input = sample.read();
  EXPECT_TRUE(input.problems.errors.empty());
  ASSERT_EQ(input.problems.warnings.size(), 2U);
  EXPECT_EQ(input.problems.warnings[0].field, "schedules[0].sessions[2]");
  EXPECT_EQ(input.problems.warnings[1].file, "rinks/cedar/weeks/2026-03-08.json");
  sessions[2]["time"] = "6:45";
  sample.json["rinks/cedar/weeks/2026-03-08.json"]["schedules"][0]["sessions"][0]["time"] = "3:00";
  EXPECT_TRUE(sample.read().problems.warnings.empty());
}

TEST(PublishInput, WeeksOutsideTheRangeAreLeftOut) {
  SampleInput sample;
  sample.json[kCedar]["firstWeek"] = "2026-03-08";
  sample.json[kCedar]["lastWeek"] = "2026-04-05";
  const PublishInput input = sample.read();
  ASSERT_TRUE(input.problems.errors.empty());
  const Rink& cedar = input.catalogue.rinks[1];
  ASSERT_EQ(cedar.weeks.size(), 1U);
  EXPECT_EQ(cedar.weeks[0].weekOf, packedDate(2026, 3, 8));
  EXPECT_EQ(cedar.lastWeek, packedDate(2026, 4, 5));
}

TEST(PublishInput, CommentsAreAllowed) {
  SampleInput sample;
  const std::string text = "// closed all week\n{\"weekOf\": \"2026-03-15\", \"schedules\": [] /* none */}";
  sample.raw["rinks/cedar/weeks/later.json"] = Bytes(text.begin(), text.end());
  EXPECT_TRUE(sample.read().problems.errors.empty());
}

}  // namespace
}  // namespace tarvel::publish
