#include "simulation/Simulation.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "simulation/ProgramStopped.h"
#include "simulation/Shrink.h"
#include "simulation/StoredFiles.h"

namespace tarvel::sim {
namespace {

TEST(SimulationTest, ASeedTakesTheSameCourseEachTimeAndAnotherSeedAnother) {
  const auto run = [](std::uint64_t seed) { return Simulation({seed, 0.05, {}, nullptr}).run(); };
  const SimulationResult first = run(7);
  EXPECT_GT(first.steps, 500U);
  EXPECT_EQ(run(7).hash, first.hash);
  EXPECT_NE(run(8).hash, first.hash);
}

TEST(SimulationTest, SeedsThatOnceFailedPass) {
  std::ifstream corpus(TARVEL_CORPUS);
  int seeds = 0;
  for (std::string line; std::getline(corpus, line);) {
    std::istringstream words(line);
    SimulationOptions options;
    if (!(words >> options.seed >> options.years)) continue;
    ++seeds;
    const SimulationResult result = Simulation(options).run();
    EXPECT_FALSE(result.alarm) << describe(options, result);
  }
  EXPECT_GT(seeds, 0);
}

TEST(SimulationTest, EachClassOfFaultFires) {
  FaultCounters total;
  for (std::uint64_t seed = 1; seed <= 12; ++seed)
    total.add(Simulation({seed, 0.2, {}, nullptr}).run().faults);
  for (std::size_t i = 0; i < kFaultClassCount; ++i)
    EXPECT_GT(total.of(static_cast<FaultClass>(i)), 0U) << nameOf(static_cast<FaultClass>(i));
}

/// Passes everything on; what deviates is the planted fault.
class PassingDisk : public FileSystem {
 public:
  explicit PassingDisk(FileSystem& below) : disk(below) {}
  Result<Bytes> read(const Path& path) override { return disk.read(path); }
  Status write(const Path& path, ByteView content) override { return disk.write(path, content); }
  std::optional<FileInfo> info(const Path& path) override { return disk.info(path); }
  Status setAttributes(const Path& path, const FileAttributes& a) override {
    return disk.setAttributes(path, a);
  }
  Status sync(const Path& path) override { return disk.sync(path); }
  Status rename(const Path& from, const Path& to) override { return disk.rename(from, to); }
  Status remove(const Path& path) override { return disk.remove(path); }
  Result<std::vector<FolderEntry>> list(const Path& folder) override { return disk.list(folder); }
  Status createFolders(const Path& folder) override { return disk.createFolders(folder); }
  FileSystem& disk;
};

struct StrayWriter : PassingDisk {
  using PassingDisk::PassingDisk;
  Status write(const Path& path, ByteView content) override {
    (void)disk.write("/u/stray", content);
    return disk.write(path, content);
  }
};
struct ByteDropper : PassingDisk {
  using PassingDisk::PassingDisk;
  Status write(const Path& path, ByteView content) override {
    return disk.write(path, content.first(content.size() - 1));
  }
};
struct Unsynced : PassingDisk {
  using PassingDisk::PassingDisk;
  Status sync(const Path& path) override {
    return path.ends_with(".b1.part") ? Status(Done{}) : disk.sync(path);
  }
};
struct DateForgetter : PassingDisk {
  using PassingDisk::PassingDisk;
  Status setAttributes(const Path&, const FileAttributes&) override { return Done{}; }
};
struct TemporaryKeeper : PassingDisk {
  using PassingDisk::PassingDisk;
  Status rename(const Path& from, const Path& to) override {
    const Status renamed = disk.rename(from, to);
    (void)disk.write(parentOf(to) + "/.kept.b1.part", Bytes{1});
    return renamed;
  }
  Status remove(const Path& path) override {
    return path.ends_with(".part") ? Status(Done{}) : disk.remove(path);
  }
};
struct StateLoser : PassingDisk {
  using PassingDisk::PassingDisk;
  Status rename(const Path& from, const Path& to) override {
    const Status renamed = disk.rename(from, to);
    if (to.ends_with(kStateFileName)) (void)disk.remove(to);
    return renamed;
  }
};
/// Headers never change again, though each write is said to have gone well.
struct Freezer : PassingDisk {
  using PassingDisk::PassingDisk;
  Status rename(const Path& from, const Path& to) override {
    const bool frozen = to.ends_with("/main.b1") && disk.info(to);
    return frozen ? disk.remove(from) : disk.rename(from, to);
  }
};

class DoublingClient : public HttpClient {
 public:
  explicit DoublingClient(HttpClient& below) : below_(below) {}
  void get(const std::string& url, Completion completion) override {
    below_.get(url, [](const HttpResult&) {});
    below_.get(url, std::move(completion));
  }

 private:
  HttpClient& below_;
};

/// The replies that no decoder takes, by their keys.
std::map<std::string, Bytes>& badReplies() {
  static std::map<std::string, Bytes> replies;
  return replies;
}
class BadReplyKeeper : public HttpClient {
 public:
  explicit BadReplyKeeper(HttpClient& below) : below_(below) {}
  void get(const std::string& url, Completion completion) override {
    below_.get(url, [key = keyOfUrl(url), completion = std::move(completion)](HttpResult result) {
      const auto* response = std::get_if<HttpResponse>(&result);
      const bool bad = response && response->status == 200 && readingOf(key, response->body) == Reading::bad;
      if (bad) badReplies()[key] = response->body;
      completion(std::move(result));
    });
  }

 private:
  HttpClient& below_;
};
struct BadReplyStorer : PassingDisk {
  using PassingDisk::PassingDisk;
  Status write(const Path& path, ByteView content) override {
    const std::string name = fileNameOf(path).substr(1);
    const Path place = join(parentOf(path), name.substr(0, name.size() - 5));
    const auto bad = badReplies().find(keyOfPath(place).value_or(""));
    return disk.write(path, bad == badReplies().end() ? content : ByteView(bad->second));
  }
};

template <class Disk>
Plant onDisk() {
  return {[](FileSystem& below) { return std::make_unique<Disk>(below); }, {}, {}};
}
Plant daily(std::function<void(SimProgram&, SimWorld&)> action) {
  return {{}, {}, std::move(action)};
}

void postForEver(SimWorld& world) {
  world.mainLoop().post([&world] { postForEver(world); });
}

std::vector<std::unique_ptr<Timer>>& leakedTimers() {
  static std::vector<std::unique_ptr<Timer>> timers;
  return timers;
}
std::vector<std::ifstream>& leakedFiles() {
  static std::vector<std::ifstream> files;
  return files;
}
PhotoList& leakedPhotos() {
  static PhotoList photos;
  return photos;
}

struct PlantedFault {
  const char* name;
  Alarm alarm;
  Plant plant;
};
void PrintTo(const PlantedFault& fault, std::ostream* out) {
  *out << fault.name;
}

class PlantedFaultTest : public testing::TestWithParam<PlantedFault> {
 protected:
  ~PlantedFaultTest() override {
    badReplies().clear();
    leakedFiles().clear();
    leakedTimers().clear();
    leakedPhotos().clear();
  }
};

TEST_P(PlantedFaultTest, RingsItsAlarm) {
  constexpr std::uint64_t kSeeds = 8;
  for (std::uint64_t seed = 1; seed <= kSeeds; ++seed) {
    const SimulationResult result = Simulation({seed, 0.1, {}, &GetParam().plant}).run();
    if (!result.alarm) continue;
    EXPECT_EQ(kAlarmNames[static_cast<std::size_t>(result.alarm->alarm)],
              kAlarmNames[static_cast<std::size_t>(GetParam().alarm)])
        << result.alarm->detail;
    return;
  }
  FAIL() << "no seed has found it";
}

INSTANTIATE_TEST_SUITE_P(
    All, PlantedFaultTest,
    testing::Values(
        PlantedFault{"aByteIsLost", Alarm::tornFile, onDisk<ByteDropper>()},
        PlantedFault{"aFileIsNotSynced", Alarm::tornFile, onDisk<Unsynced>()},
        PlantedFault{"aDateIsNotSet", Alarm::tornFile, onDisk<DateForgetter>()},
        PlantedFault{"aBadReplyIsStored", Alarm::undecodableFile,
                     Plant{onDisk<BadReplyStorer>().disk,
                           [](HttpClient& below) { return std::make_unique<BadReplyKeeper>(below); },
                           {}}},
        PlantedFault{"theStateIsLost", Alarm::stateFile, onDisk<StateLoser>()},
        PlantedFault{"aFileIsFrozen", Alarm::datesAtEnd, onDisk<Freezer>()},
        PlantedFault{"aFileStaysOpen", Alarm::openFiles,
                     daily([](SimProgram&, SimWorld&) { leakedFiles().emplace_back("/dev/null"); })},
        PlantedFault{"aWriteGoesAstray", Alarm::outsideTheStore, onDisk<StrayWriter>()},
        PlantedFault{"aTemporaryStays", Alarm::temporaryOutlives, onDisk<TemporaryKeeper>()},
        PlantedFault{
            "aRequestIsDoubled", Alarm::twoFlights,
            Plant{{}, [](HttpClient& below) { return std::make_unique<DoublingClient>(below); }, {}}},
        PlantedFault{"aRefreshComesEarly", Alarm::interval, daily([](SimProgram& program, SimWorld&) {
                       program.model.refresher().performRefresh();
                     })},
        PlantedFault{"aReturnIsMadeUp", Alarm::interval,
                     daily([](SimProgram& program, SimWorld&) { program.networkReturn.networkCameBack(); })},
        PlantedFault{"aTimerIsDropped", Alarm::timers, daily([](SimProgram& program, SimWorld&) {
                       program.model.refresher().invalidateTimer();
                     })},
        PlantedFault{"aTimerLeaks", Alarm::timers, daily([](SimProgram&, SimWorld& world) {
                       leakedTimers().push_back(world.mainLoop().after(1e9, [] {}));
                     })},
        PlantedFault{"aTaskPostsItself", Alarm::busyLoop,
                     daily([](SimProgram&, SimWorld& world) { postForEver(world); })},
        PlantedFault{"photosLeak", Alarm::memory, daily([](SimProgram&, SimWorld&) {
                       for (int i = 0; i < 200; ++i) leakedPhotos().push_back(std::make_shared<Photo>());
                     })},
        PlantedFault{"aViewLosesItsWeeks", Alarm::vanished, daily([](SimProgram& program, SimWorld&) {
                       for (const auto& rink : program.model.recentRinks) rink->venues.clear();
                     })},
        PlantedFault{"theProgramEndsItself", Alarm::stopped,
                     daily([](SimProgram&, SimWorld&) { fatalError("planted"); })}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace tarvel::sim
