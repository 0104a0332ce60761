#include <gtest/gtest.h>

#include <functional>
#include <set>

#include "SampleInput.h"
#include "model/RinkRecord.h"
#include "model/ScheduleFiles.h"
#include "publish/Encoders.h"
#include "refresh/RootFile.h"

namespace tarvel::publish {
namespace {

constexpr Instant kFirst{800'000'000.0};
constexpr Instant kSecond{800'100'000.5};
constexpr Instant kSecondWhole{800'100'000.0};
using Paths = std::vector<std::string>;

/// Goes down the tree of promises as an application does, and collects what it finds of promises that the
/// files below don't keep.
class PromiseWalk {
 public:
  enum class Strictness { atLeastThere, exact };
  PromiseWalk(FileSystem& files, Strictness strictness) : files_(files), strictness_(strictness) {}

  Paths broken() {
    if (const auto root = read("root.b1")) {
      for (const MasterFileInfo& file : decodeRootFile(*root).files) expect(file.relPath, file.modDate);
    }
    if (const auto rinks = read("rinks.b1")) {
      for (const RinkRecord& rink : decodeRinkList(*rinks).rinks) walkRink(rink);
    }
    return broken_;
  }

 private:
  std::optional<Bytes> read(const std::string& path) {
    auto content = files_.read("/tree/" + path);
    return content ? std::optional(std::move(content).value()) : std::nullopt;
  }

  void expect(const std::string& path, Instant promised) {
    const auto info = files_.info("/tree/" + path);
    const Instant actual = info ? info->modificationDate : Instant{-1.0};
    const auto content = path.ends_with(".b1") ? read(path) : std::nullopt;
    const bool agrees = !content || dateOf(*content) == actual;
    // While a run is on, a file may be newer than was promised; older, or missing, it may never be.
    const bool kept =
        strictness_ == Strictness::exact ? actual == promised && agrees : actual.seconds >= promised.seconds;
    if (!kept) broken_.push_back(path);
  }

  void walkRink(const RinkRecord& rink) {
    const std::string logo = "logos/" + std::to_string(rink.rinkID);
    if (rink.logoFileDate) expect(logo + ".png", *rink.logoFileDate);
    if (rink.darkLogoFileDate) expect(logo + "-dark.png", *rink.darkLogoFileDate);
    const std::string folder = rink.dataPath + "/";
    const auto content = read(folder + "master.b1");
    if (!content) return broken_.push_back(folder + "master.b1");
    const MasterFile master = decodeMasterFile(*content);
    expect(folder + master.mainFileName, master.mainFileDate);
    const auto mainContent = read(folder + master.mainFileName);
    if (!mainContent) return;
    const MainFile main = decodeMainFile(*mainContent);
    for (const FileRecord& file : main.files) {
      expect(folder + file.name, file.date);
      const auto schedules = file.name.ends_with("_schedules.b1") ? read(folder + file.name) : std::nullopt;
      if (!schedules) continue;
      for (const FileRecord& week : decodeSchedulesFile(*schedules).weeks)
        expect(folder + week.name, week.date);
    }
    if (const auto photos = read(folder + "photoCollection.b1")) walkPhotos(*photos, main.photosFolder);
  }

  void walkPhotos(const Bytes& file, const std::string& folder) {
    DataDecoder in(file);
    in.getDouble();
    for (std::int64_t count = in.getInt(); count > 0; --count) {
      const std::string photo = folder + "/" + std::to_string(in.getInt()) + "-";
      in.getString();
      in.getString();
      int version = 0;
      for (const ImageVersion& image : decodeImageVersions(in))
        expect(photo + std::to_string(++version) + ".jpg", image.fileDate);
    }
  }

  FileSystem& files_;
  Strictness strictness_;
  Paths broken_;
};

Paths brokenPromises(SampleInput& sample) {
  return PromiseWalk(sample.disk, PromiseWalk::Strictness::exact).broken();
}

Paths sorted(Paths paths) {
  std::sort(paths.begin(), paths.end());
  return paths;
}

TEST(Publisher, AFirstRunKeepsAllItsPromisesAndTheNextTouchesNothing) {
  SampleInput sample;
  const auto first = sample.publish(kFirst + 0.75);
  ASSERT_TRUE(first);
  EXPECT_EQ(first->date, kFirst);  // whole seconds
  EXPECT_EQ(first->written.size(), 22U);
  EXPECT_EQ(first->written.back(), "root.b1");
  EXPECT_EQ(brokenPromises(sample), Paths());
  const auto before = sample.disk.snapshot();
  const auto second = sample.publish(kSecond);
  ASSERT_TRUE(second);
  EXPECT_EQ(second->written.size() + second->removed.size(), 0U);
  EXPECT_EQ(second->unchanged, 22U);
  for (const auto& [path, state] : sample.disk.snapshot())
    EXPECT_TRUE(!path.starts_with("/tree") || state == before.at(path)) << path;
}

const std::string kCatalogue = "catalogue.json", kCedar = "rinks/cedar/rink.json",
                  kFirstWeek = "rinks/cedar/weeks/2026-03-01.json",
                  kWeek = "rinks/cedar/weeks/2026-03-08.json",
                  kWeekFile = "rinks/cedar/venue-1_week-2026-03-08.b1";

/// What a change of the descriptions writes, in order, and removes.
struct Change {
  const char* name;
  std::vector<std::tuple<std::string, std::string, nlohmann::json>> puts;
  Paths written;
  Paths removed = {};

  void make(SampleInput& sample) const {
    for (const auto& [file, pointer, value] : puts) sample.put(file, pointer, value);
  }
};

/// With the rink's own indexes, up to which each change of its files goes.
Paths cedar(Paths paths) {
  for (std::string& path : paths) path = path.find('/') == std::string::npos ? "rinks/cedar/" + path : path;
  paths.insert(paths.end(), {"rinks/cedar/main.b1", "rinks/cedar/master.b1"});
  return paths;
}

const auto kHall = nlohmann::json::binary(jpegImage(640, 480, "repainted"));
const auto kLogo = nlohmann::json::binary(pngImage(192, 180, "LIGHT"));  // of the same size

const std::vector<Change> kChanges = {
    {"a session",
     {{kWeek, "/schedules/0/sessions/0/duration", 76}},
     cedar({kWeekFile, "venue-1_schedules.b1"})},
    {"a notice", {{"rinks/cedar/notices.json", "/notices/1/detail", "Go!"}}, cedar({"notices.b1"})},
    {"no cover",
     {{"rinks/cedar/hall.jpg", "", kHall}},
     cedar({"photos/cedar/44-1.jpg", "photoCollection.b1"})},
    {"the name of a venue", {{kCedar, "/venues/0/name", "S"}}, cedar({})},
    {"the rink's name", {{"rinks/alder/rink.json", "/name", "Alder Lake"}}, {"rinks.b1", "root.b1"}},
    {"a logo", {{"rinks/cedar/logo.png", "", kLogo}}, {"logos/7.png", "rinks.b1", "root.b1"}},
    {"a colour", {{kCatalogue, "/sessions/4/color", "#000000"}}, {"defs.b1", "root.b1"}},
    {"the current version", {{kCatalogue, "/application/currentVersion", "6.1.1"}}, {"root.b1"}},
    {"a week less", {{kWeek, "", {}}}, cedar({"venue-1_schedules.b1"}), {kWeekFile}},
    {"a venue less",
     {{kCedar, "/venues/0", {}}, {kFirstWeek, "/schedules/1", {}}},
     cedar({}),
     {"rinks/cedar/venue-3_schedules.b1", "rinks/cedar/venue-3_week-2026-03-01.b1"}},
    {"a rink less",
     {{kCatalogue, "/rinks/1", {}}},
     {"rinks.b1", "root.b1"},
     {"alder/main.b1", "alder/master.b1", "alder/notices.b1", "alder/photoCollection.b1",
      "alder/venue-10_schedules.b1"}},
};

TEST(Publisher, AChangeGoesUpToTheIndexAndNowhereElse) {
  for (const Change& change : kChanges) {
    SCOPED_TRACE(change.name);
    SampleInput sample;
    ASSERT_TRUE(sample.publish(kFirst));
    const auto before = sample.disk.snapshot();
    change.make(sample);
    const auto report = sample.publish(kSecond);
    ASSERT_TRUE(report);
    EXPECT_EQ(report->written, change.written);
    EXPECT_EQ(sorted(report->removed), change.removed);
    EXPECT_EQ(brokenPromises(sample), Paths());
    const std::set<std::string> written(change.written.begin(), change.written.end());
    for (const auto& [path, state] : sample.disk.snapshot()) {
      if (!path.starts_with("/tree/") || state.kind != FileKind::file || path.ends_with(".json")) continue;
      const bool isNew = written.contains(path.substr(6));
      EXPECT_EQ(state.modificationDate, isNew ? kSecondWhole : kFirst) << path;
      if (!isNew) {
        EXPECT_EQ(state, before.at(path)) << path;
      }
    }
  }
}

TEST(Publisher, AReaderNeverMeetsAPromiseOfWhatIsNotThere) {
  // Every change at once, broken off at each operation in turn.
  const auto changeAll = [](SampleInput& sample) {
    for (const Change& change : kChanges) change.make(sample);
    sample.json["rinks/alder/rink.json"]["venues"][0]["name"] = "New";
    sample.json["catalogue.json"]["rinks"] = {"cedar", "birch"};
    sample.json["rinks/birch/rink.json"] = sample.json["rinks/alder/rink.json"];
    sample.json["rinks/birch/rink.json"]["rinkID"] = 99;
    sample.json["rinks/birch/rink.json"]["dataPath"] = "birch";
  };
  bool completed = false;
  int stops = 0;
  for (int nth = 1; !completed; ++nth) {
    SampleInput sample;
    ASSERT_TRUE(sample.publish(kFirst));
    changeAll(sample);
    const PublishInput input = sample.read();
    ASSERT_TRUE(input.problems.errors.empty()) << describe(input.problems.errors.front());
    sample.disk.failOperation(nth, MemoryFileSystem::Repeat::forEver);
    completed = Publisher(sample.disk, "/tree").publish(input.catalogue, kSecond).ok();
    sample.disk.clearFailures();
    if (!completed) ++stops;
    EXPECT_EQ(PromiseWalk(sample.disk, PromiseWalk::Strictness::atLeastThere).broken(), Paths())
        << "stopped at " << nth;
    const auto report = Publisher(sample.disk, "/tree").publish(input.catalogue, kSecond + 1.0);
    ASSERT_TRUE(report) << report.error().description;
    EXPECT_EQ(brokenPromises(sample), Paths()) << "stopped at " << nth;
    for (const auto& [path, state] : sample.disk.snapshot()) {
      EXPECT_FALSE(path.starts_with("/tree/alder")) << "stopped at " << nth;
      EXPECT_FALSE(path.ends_with(".part")) << path << ", stopped at " << nth;
    }
  }
  EXPECT_GT(stops, 60);
}

TEST(Publisher, ADateIsNeverGivenTwice) {
  SampleInput sample;
  ASSERT_TRUE(sample.publish(kFirst));
  auto& duration = sample.json[kWeek]["schedules"][0]["sessions"][0]["duration"];
  const std::string& week = kWeekFile;
  std::set<double> dates = {sample.headerDate(week).seconds};
  // The clock stands, goes back a day, and forward again; the content goes there and back too.
  for (const double clock : {0.0, 0.0, -86400.0, -86400.0, 2.0, 100.0}) {
    duration = duration.get<int>() == 75 ? 80 : 75;
    ASSERT_TRUE(sample.publish(kFirst + clock));
    EXPECT_GT(sample.headerDate(week).seconds, *dates.rbegin()) << clock;
    dates.insert(sample.headerDate(week).seconds);
    EXPECT_EQ(brokenPromises(sample), Paths());
  }
  // A week that is taken away and comes back.
  const auto file = sample.json.at(kWeek);
  sample.json.erase(kWeek);
  ASSERT_TRUE(sample.publish(kFirst));
  sample.json[kWeek] = file;
  ASSERT_TRUE(sample.publish(kFirst));
  EXPECT_TRUE(dates.insert(sample.headerDate(week).seconds).second);
}

TEST(Publisher, WithoutItsManifestDatesOfDataStayAndNothingIsRemoved) {
  SampleInput sample;
  ASSERT_TRUE(sample.publish(kFirst));
  ASSERT_TRUE(sample.disk.remove("/tree/.tarvel-publish.json"));
  sample.json["catalogue.json"]["rinks"].erase(1);
  const auto report = sample.publish(kSecond);
  ASSERT_TRUE(report);
  EXPECT_EQ(report->removed, Paths());
  EXPECT_TRUE(sample.disk.info("/tree/alder/main.b1"));
  EXPECT_EQ(sample.headerDate("rinks/cedar/notices.b1"), kFirst);
  EXPECT_EQ(sample.headerDate("rinks/cedar/venue-1_schedules.b1"), kFirst);
  // An image carries no date, so it gets a new one, and so do the files that promise it.
  EXPECT_EQ(sample.diskDate("photos/cedar/44-1.jpg"), kSecondWhole);
  EXPECT_EQ(brokenPromises(sample), Paths());
}

TEST(Publisher, WhatItDidNotWriteStays) {
  SampleInput sample;
  ASSERT_TRUE(sample.publish(kFirst));
  const Paths foreign = {"/tree/index.html", "/tree/alder/old.b1", "/tree/logos/99.png", "/etc.b1"};
  for (const std::string& path : foreign) ASSERT_TRUE(sample.disk.write(path, Bytes{1}));
  // A manifest that has been tampered with names files outside the tree and files of other kinds.
  const auto manifest = sample.disk.read("/tree/.tarvel-publish.json");
  auto json = nlohmann::json::parse(*manifest);
  json["files"]["../etc.b1"] = 1.0;
  json["files"]["index.html"] = 1.0;
  const std::string text = json.dump();
  ASSERT_TRUE(sample.disk.write("/tree/.tarvel-publish.json", Bytes(text.begin(), text.end())));
  sample.json["catalogue.json"]["rinks"].erase(1);
  const auto report = sample.publish(kSecond);
  ASSERT_TRUE(report);
  EXPECT_EQ(report->removed.size(), 5U);
  for (const std::string& path : foreign) EXPECT_TRUE(sample.disk.info(path)) << path;
  EXPECT_FALSE(sample.disk.info("/tree/alder/main.b1"));
  sample.json["catalogue.json"]["rinks"] = {"alder"};
  ASSERT_TRUE(sample.publish(kSecond));
  EXPECT_FALSE(sample.disk.info("/tree/rinks") || sample.disk.info("/tree/photos")) << "empty folders go";
}

TEST(Publisher, ADamagedFileIsPublishedAnew) {
  for (const Bytes& damaged : {Bytes(), Bytes{1, 2, 3}, Bytes(40, 0xFF)}) {
    SampleInput sample;
    ASSERT_TRUE(sample.publish(kFirst));
    const Bytes good = sample.published("rinks/cedar/notices.b1");
    ASSERT_TRUE(sample.disk.write("/tree/rinks/cedar/notices.b1", damaged));
    ASSERT_TRUE(sample.publish(kSecond));
    EXPECT_EQ(sample.headerDate("rinks/cedar/notices.b1"), kSecondWhole);
    EXPECT_EQ(sample.published("rinks/cedar/notices.b1").size(), good.size());
    EXPECT_EQ(brokenPromises(sample), Paths());
  }
}

TEST(Publisher, APictureThatVanishedAfterReadingStopsItBeforeAnythingIsWritten) {
  SampleInput sample;
  const PublishInput input = sample.read();
  ASSERT_TRUE(sample.disk.remove("/input/rinks/cedar/hall.jpg"));
  const auto report = Publisher(sample.disk, "/tree").publish(input.catalogue, kFirst);
  ASSERT_FALSE(report);
  EXPECT_NE(report.error().description.find("hall.jpg"), std::string::npos) << report.error().description;
  EXPECT_FALSE(sample.disk.info("/tree"));
}

}  // namespace
}  // namespace tarvel::publish
