#include "SampleInput.h"

#include <gtest/gtest.h>

#include "publish/Encoders.h"
#include "publish/Kinds.h"

namespace tarvel::publish {
namespace {

using nlohmann::json;

const char* kCatalogue = R"({
  "application": {
    "website": "https://app.example.org/",
    "currentVersion": "6.1.0",
    "minimumVersion": "6.0.2",
    "releases": [
      {"date": "2025-09-01", "version": "6.0.2", "osMinimumVersion": "4.19.0", "url": "https://app.example.org/602"},
      {"date": "2026-01-15", "version": "6.1.0", "osMinimumVersion": "5.10.0", "url": "https://app.example.org/610"}
    ],
    "beta": {"date": "2026-02-20", "version": "6.2.0 Beta 1", "osMinimumVersion": "5.10.0",
             "url": "https://app.example.org/beta"}
  },
  "serverUrl": "https://data.example.org",
  "sessions": [],
  "rinks": ["cedar", "alder"]
})";

const char* kCedar = R"({
  "rinkID": 7, "name": "Cedar Ice", "street": "1 Mill Lane", "city": "Cedar", "state": "MD", "zip": "21304",
  "phone": "(410) 555-0142", "latitude": 39.5, "longitude": -76.25, "timeZone": "America/New_York",
  "website": "https://cedar.example.org/", "dataPath": "rinks/cedar", "photosFolder": "photos/cedar",
  "logo": "logo.png", "darkLogo": "logo-dark.png", "coverPhoto": 31,
  "venues": [
    {"venueID": 3, "kind": "danceRoom", "name": "Studio", "note": "Upstairs", "displayOrder": 9},
    {"venueID": 1, "kind": "iceSheet", "name": "Main Rink"}
  ]
})";

const char* kWeek1 = R"({
  "weekOf": "2026-03-01",
  "schedules": [
    {"venueID": 1, "sessions": [
      {"kind": "publicSession", "day": "Saturday", "time": "25:30", "duration": 90, "subtitle": "Late", "note": "Café"},
      {"kind": "freestyle", "day": ["Mon", 3], "time": 345, "duration": 60},
      {"kind": "resurface", "day": "monday", "time": "6:45", "duration": 15}
    ]},
    {"venueID": 3, "sessions": []}
  ]
})";

const char* kWeek2 = R"({
  "weekOf": "2026-03-08",
  "schedules": [{"venueID": 1, "sessions": [{"kind": "broomball", "day": 0, "time": "20:00", "duration": 75}]}]
})";

const char* kNotices = R"({
  "notices": [
    {"noticeID": 12, "date": "2026-02-28", "summary": "Early closing", "detail": "At six."},
    {"noticeID": 4, "date": "2026-02-10", "summary": "Sharpening is back"}
  ]
})";

const char* kPhotos = R"({
  "photos": [
    {"photoID": 44, "title": "Hall", "versions": ["hall.jpg"]},
    {"photoID": 31, "title": "Front", "description": "In winter", "versions": ["front-large.jpg", "front-small.jpg"]}
  ],
  "albums": [{"albumID": 5, "title": "Building", "description": "Inside and out", "photos": [44, 31]}]
})";

const char* kAlder = R"({
  "rinkID": 2, "name": "Alder Pond", "latitude": 0, "longitude": 0, "timeZone": "Europe/London",
  "serverUrl": "http://alder.example.org:8080", "dataPath": "alder", "firstWeek": "2026-03-01",
  "venues": [{"venueID": 10, "kind": "artificialIce"}]
})";

Bytes bytesOf(const std::string& text) {
  return {text.begin(), text.end()};
}

void putBigEndian(Bytes& bytes, int value, int count) {
  for (int shift = 8 * (count - 1); shift >= 0; shift -= 8)
    bytes.push_back(static_cast<std::uint8_t>(value >> shift));
}

}  // namespace

Bytes pngImage(int width, int height, const std::string& label) {
  Bytes bytes = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n', 0, 0, 0, 13, 'I', 'H', 'D', 'R'};
  putBigEndian(bytes, width, 4);
  putBigEndian(bytes, height, 4);
  for (const char c : label) bytes.push_back(static_cast<std::uint8_t>(c));
  return bytes;
}

Bytes jpegImage(int width, int height, const std::string& label) {
  // An application segment of 4 bytes, a fill byte, then a progressive frame header.
  Bytes bytes = {0xFF, 0xD8, 0xFF, 0xE0, 0, 4, 'X', 'Y', 0xFF, 0xFF, 0xC2, 0, 8, 8};
  putBigEndian(bytes, height, 2);
  putBigEndian(bytes, width, 2);
  bytes.push_back(3);
  for (const char c : label) bytes.push_back(static_cast<std::uint8_t>(c));
  return bytes;
}

SampleInput::SampleInput() {
  json["catalogue.json"] = json::parse(kCatalogue);
  for (int kind = 0; kind < kSessionKinds; ++kind) {
    json["catalogue.json"]["sessions"].push_back(
        {{"kind", sessionKindName(kSessionKinds - 1 - kind)},
         {"name", "Name " + std::to_string(kSessionKinds - 1 - kind)},
         {"color", "#3366FF80"}});
  }
  json["rinks/cedar/rink.json"] = json::parse(kCedar);
  json["rinks/cedar/weeks/2026-03-01.json"] = json::parse(kWeek1);
  json["rinks/cedar/weeks/2026-03-08.json"] = json::parse(kWeek2);
  json["rinks/cedar/notices.json"] = json::parse(kNotices);
  json["rinks/cedar/photos.json"] = json::parse(kPhotos);
  json["rinks/alder/rink.json"] = json::parse(kAlder);
  raw["rinks/cedar/logo.png"] = pngImage(192, 180, "light");
  raw["rinks/cedar/logo-dark.png"] = pngImage(192, 180, "dark one");
  raw["rinks/cedar/hall.jpg"] = jpegImage(640, 480);
  raw["rinks/cedar/front-small.jpg"] = jpegImage(320, 200, "small");
  raw["rinks/cedar/front-large.jpg"] = jpegImage(1600, 1000, "large one");
}

void SampleInput::put(const std::string& file, const std::string& pointer, const nlohmann::json& value) {
  const json::json_pointer at(pointer);
  if (value.is_binary()) {
    raw[file] = value.get_binary();
  } else if (pointer.empty()) {
    json.erase(file);
  } else if (!value.is_null()) {
    json[file][at] = value;
  } else {
    auto& parent = json[file][at.parent_pointer()];
    parent.is_array() ? (void)parent.erase(std::stoul(at.back())) : (void)parent.erase(at.back());
  }
}

PublishInput SampleInput::read() {
  if (disk.info("/input")) {
    EXPECT_TRUE(disk.remove("/input"));
  }
  std::map<std::string, Bytes> all = raw;
  for (const auto& [path, value] : json) all.emplace(path, bytesOf(value.dump(1)));
  for (const auto& [path, content] : all) {
    EXPECT_TRUE(disk.createFolders(parentOf("/input/" + path)));
    EXPECT_TRUE(disk.write("/input/" + path, content));
  }
  return readPublishInput(disk, "/input");
}

Result<PublishReport> SampleInput::publish(Instant now) {
  const PublishInput input = read();
  for (const Problem& problem : input.problems.errors) ADD_FAILURE() << describe(problem);
  return Publisher(disk, "/tree").publish(input.catalogue, now);
}

Bytes SampleInput::published(const std::string& path) {
  auto content = disk.read("/tree/" + path);
  if (content) return std::move(content).value();
  ADD_FAILURE() << path << ": " << content.error().description;
  return {};
}

Instant SampleInput::headerDate(const std::string& path) {
  return dateOf(published(path)).value_or(Instant{-1.0});
}

Instant SampleInput::diskDate(const std::string& path) {
  const auto info = disk.info("/tree/" + path);
  return info ? info->modificationDate : Instant{-1.0};
}

}  // namespace tarvel::publish
