#pragma once
#include <functional>
#include <limits>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "simulation/CheckedDisk.h"
#include "simulation/RefreshWatch.h"
#include "simulation/ShownWatch.h"
#include "simulation/SimNetwork.h"
#include "simulation/SimUser.h"
#include "simulation/ports/FakeImageDecoder.h"

namespace tarvel::sim {

/// A fault put between the program and its surroundings, to see its alarm ring. Each part may be empty.
struct Plant {
  std::function<std::unique_ptr<FileSystem>(FileSystem&)> disk;
  std::function<std::unique_ptr<HttpClient>(HttpClient&)> network;
  std::function<void(SimProgram&, SimWorld&)> daily;
};

struct SimulationOptions {
  std::uint64_t seed = 1;
  double years = 1.0;
  FaultSet off;
  const Plant* plant = nullptr;
};

struct SimulationResult {
  std::optional<RungAlarm> alarm;
  std::uint64_t hash = 0;
  std::uint64_t steps = 0;
  double years = 0.0;
  std::uint64_t requests = 0;
  FaultCounters faults;
};

/// Years of the program's life in one world that goes wrong as its seed says, and after that the days in
/// which everything has to come right. Single-threaded, in virtual time; the same options give the same
/// course to the last bit.
class Simulation {
 public:
  explicit Simulation(const SimulationOptions& options);
  ~Simulation();
  SimulationResult run();

 private:
  enum class Stream { start, rates, content, network, user, machine, crash, firstSource };
  /// Something that happens now and then, on a stream of its own.
  struct Source {
    double perDay;
    std::function<void(SeededRandom&)> happen;
    SeededRandom random;
    double next = std::numeric_limits<double>::infinity();
  };
  /// A state of the disk that lasts a while.
  struct Episode {
    FaultClass faultClass;
    double until = 0.0;
  };
  enum class End { quit, kill };

  SeededRandom stream(Stream which, std::uint64_t index = 0) const;
  Instant startDate() const;
  void addSource(double perDay, std::function<void(SeededRandom&)> happen);
  void addServerSources();
  void addDiskSources();
  void addMachineSources();
  void addUserSources();
  void addNetworkSources();
  void draw(Source& source);
  double rate(FaultClass faultClass) const { return rates_.of(faultClass); }

  void runFor(double seconds);
  void runWorldTo(double seconds);
  void guarded(const std::function<void()>& action);
  void programStopped(const char* reason);
  void afterTask();
  void check();
  void tick();

  void publish(const Changes& changes, SeededRandom& random);
  void beginEpisode(FaultClass faultClass, double seconds);
  void applyEpisodes();
  void stepClock(SeededRandom& random);
  void startProgram();
  void endProgram(End end);
  void crash();
  void asUser(const std::function<void(SimUser&)>& action);
  void setRight();
  void checkEnd();

  SimulationOptions options_;
  FaultRates rates_;
  FaultCounters counters_;
  Alarms alarms_;
  Trace trace_;
  SimWorld world_;
  PretendTime pretendTime_{world_.clock()};
  MemoryFileSystem memory_{world_.clock()};
  SimServers servers_;
  SiteContent content_;
  SimNetwork network_;
  CheckedDisk disk_;
  std::unique_ptr<FileSystem> plantedDisk_;
  std::unique_ptr<HttpClient> plantedNetwork_;
  FakeImageDecoder images_;
  NotificationCenter notifications_{world_.mainLoop()};
  std::unique_ptr<Console> console_;
  Services services_;

  SeededRandom userRandom_, crashRandom_;
  std::vector<Source> sources_;
  std::vector<Episode> episodes_;
  double nextTick_ = 0.0;
  double startAt_ = 0.0;  ///< when the user starts the program again
  double driftPerTick_ = 0.0;
  double wallOffset_ = 0.0;
  int lastZoneOffset_ = 0;
  std::uint64_t requests_ = 0;
  std::ptrdiff_t openFiles_ = 0;
  bool dirty_ = false;
  bool lookAgain_ = false;
  bool isRight_ = false;  ///< the faults are over
  std::optional<std::int64_t> lastInView_;

  std::unique_ptr<SimProgram> program_;
  std::unique_ptr<RefreshWatch> refreshes_;
  std::unique_ptr<ShownWatch> shown_;
  std::unique_ptr<SimUser> user_;
};

/// With all in order for long enough: the store is what the servers publish, and the program shows it.
void checkAllIsRight(SimProgram& program, const SimServers& servers, FileSystem& disk,
                     std::optional<std::int64_t> inView, Alarms& alarms);

}  // namespace tarvel::sim
