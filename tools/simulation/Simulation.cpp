#include "simulation/Simulation.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "simulation/ProgramStopped.h"
#include "simulation/StoredFiles.h"

/// The course of a run; what happens on the way stands in SimulationSources.cpp.
namespace tarvel::sim {

namespace {

constexpr double kDay = 86'400.0, kYear = 365.25 * kDay;
constexpr double kTick = 900.0;
constexpr double kLongestRefreshInterval = 2 * kDay, kRinkInterval = 14'400.0, kSlack = 1'800.0;
constexpr Instant kEarliestStart{725'846'400.0};  // 2024-01-01
constexpr int kStartYears = 8;

std::ptrdiff_t openFiles() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

class SilentConsole : public Console {
 public:
  void printLine(std::string_view) override {}
};

}  // namespace

Simulation::Simulation(const SimulationOptions& options)
    : options_(options),
      rates_(stream(Stream::rates), options.off),
      world_(startDate()),
      content_(stream(Stream::content), world_.now()),
      network_(world_, servers_, stream(Stream::network), rates_, counters_, alarms_, trace_),
      disk_(memory_, memory_, servers_, world_, counters_, alarms_, trace_),
      plantedDisk_(options.plant && options.plant->disk ? options.plant->disk(disk_) : nullptr),
      plantedNetwork_(options.plant && options.plant->network ? options.plant->network(network_) : nullptr),
      console_(std::make_unique<SilentConsole>()),
      services_{world_.mainLoop(),
                world_.clock(),
                pretendTime_,
                plantedDisk_ ? *plantedDisk_ : static_cast<FileSystem&>(disk_),
                plantedNetwork_ ? *plantedNetwork_ : static_cast<HttpClient&>(network_),
                images_,
                world_,
                *console_,
                notifications_},
      userRandom_(stream(Stream::user)),
      crashRandom_(stream(Stream::crash)) {
  openFiles_ = openFiles();
  (void)memory_.createFolders(parentOf(kStore));
  memory_.syncAll();
  memory_.stopLogging();
  servers_.publish(content_.evolve(world_.now()));
  network_.requested = [this](const std::string& url) {
    ++requests_;
    dirty_ = true;
    if (refreshes_) refreshes_->requested(url);
  };
  network_.delivered = [this](const std::string& key, Delivery delivery) {
    dirty_ = true;
    lookAgain_ = lookAgain_ || (delivery != Delivery::failed && !isIndex(key));
    if (shown_) shown_->delivered(key, delivery);
  };
  addServerSources();
  addDiskSources();
  addMachineSources();
  addUserSources();
  addNetworkSources();
}

Simulation::~Simulation() {
  endProgram(End::kill);
}

SeededRandom Simulation::stream(Stream which, std::uint64_t index) const {
  SeededRandom mixed(options_.seed * 1'000 + static_cast<std::uint64_t>(which) + index);
  return SeededRandom(mixed.next());
}

Instant Simulation::startDate() const {
  SeededRandom random = stream(Stream::start);
  const Instant date = kEarliestStart + std::floor(random.fraction() * kStartYears * 365) * kDay;
  const bool nearChange =
      random.chance(0.5) && !options_.off.test(static_cast<std::size_t>(FaultClass::summerTime));
  if (!nearChange) return date + random.fraction() * kDay;
  // In most zones the clocks change in March and in October or November.
  const int year = TimeZone::utc().local(date).year;
  const int days =
      random.chance(0.5) ? 60 + static_cast<int>(random.below(30)) : 295 + static_cast<int>(random.below(14));
  return kEarliestStart + (std::floor((year - 2024) * 365.25) + days + random.fraction()) * kDay;
}

SimulationResult Simulation::run() {
  const double calm = kLongestRefreshInterval + kRinkInterval + kSlack;
  const double stormy = std::max(kDay, options_.years * kYear - calm);
  runFor(stormy);
  if (!alarms_.rang()) setRight();
  if (!alarms_.rang()) runFor(calm);
  if (!alarms_.rang()) checkEnd();
  if (auto& alarm = alarms_.first()) {
    alarm->seconds = world_.seconds();
    alarm->step = trace_.steps();
  }
  return {alarms_.first(), trace_.hash(), trace_.steps(), world_.seconds() / kYear, requests_, counters_};
}

void Simulation::runFor(double seconds) {
  const double end = world_.seconds() + seconds;
  while (!alarms_.rang() && world_.seconds() < end) {
    Source* next = nullptr;
    for (Source& source : sources_) {
      if (!isRight_ && (!next || source.next < next->next)) next = &source;
    }
    const double sourceAt = next ? next->next : end;
    const double at = std::min({end, sourceAt, nextTick_, program_ ? end : startAt_});
    runWorldTo(at);
    if (alarms_.rang()) return;
    servers_.advanceTo(world_.seconds());
    if (!program_ && startAt_ <= at) startProgram();
    if (nextTick_ <= at) tick();
    if (next && sourceAt <= at) {
      trace_.add('e', {}, world_.seconds(), static_cast<std::uint64_t>(next - sources_.data()));
      guarded([&] { next->happen(next->random); });
      draw(*next);
    }
    check();
  }
}

void Simulation::runWorldTo(double seconds) {
  if (seconds <= world_.seconds()) return;
  guarded([&] {
    world_.runUntil(
        [this] {
          afterTask();
          return alarms_.rang();
        },
        seconds - world_.seconds());
  });
}

void Simulation::guarded(const std::function<void()>& action) {
  const StopCatcher catcher;
  try {
    action();
  } catch (const ProgramStopped& stopped) {
    programStopped(stopped.what());
  } catch (const std::runtime_error& error) {
    alarms_.ring(Alarm::busyLoop, error.what());
  }
}

void Simulation::programStopped(const char* reason) {
  if (!network_.inDamagedReply()) return alarms_.ring(Alarm::stopped, reason);
  counters_.add(FaultClass::stopped);
  endProgram(End::kill);
}

void Simulation::afterTask() {
  if (!dirty_ || !program_) return;
  dirty_ = false;
  if (lookAgain_) {
    lookAgain_ = false;
    user_->lookAgain();
  }
  check();
}

void Simulation::check() {
  if (!program_) return;
  refreshes_->check(network_.flights());
  if (world_.mainLoop().queuedTasks() > 10'000) alarms_.ring(Alarm::busyLoop, "tasks pile up");
}

void Simulation::tick() {
  nextTick_ = world_.seconds() + kTick;
  if (!isRight_ && driftPerTick_ != 0.0) {
    world_.stepWall(driftPerTick_);
    wallOffset_ += driftPerTick_;
  }
  const Instant now = world_.now();
  const LocalTime local = world_.clock().machineZone().local(now), utc = TimeZone::utc().local(now);
  const int zoneOffset = (local.hour - utc.hour) * 60 + local.minute - utc.minute;
  if (std::abs(zoneOffset - lastZoneOffset_) == 60) counters_.add(FaultClass::summerTime);
  lastZoneOffset_ = zoneOffset;
  applyEpisodes();
  if (!program_) return;
  program_->clock.tick();
  const double day = std::fmod(world_.seconds(), kDay);
  if (day >= kTick) return;
  shown_->checkMemory(network_.flights());
  if (options_.plant && options_.plant->daily) guarded([&] { options_.plant->daily(*program_, world_); });
}

void Simulation::startProgram() {
  trace_.add('s', {}, world_.seconds(), 0);
  disk_.checkStateFile();
  const std::uint64_t failuresBefore = disk_.failures();
  guarded([&] {
    program_ = std::make_unique<SimProgram>(services_);
    refreshes_ = std::make_unique<RefreshWatch>(*program_, world_, alarms_);
    shown_ = std::make_unique<ShownWatch>(*program_, alarms_);
    user_ = std::make_unique<SimUser>(*program_, services_, *shown_, userRandom_);
    refreshes_->expectAnytime();
    program_->start();
    shown_->begin();
    if (disk_.failures() == failuresBefore) disk_.checkNoTemporaries();
    refreshes_->check(network_.flights());
    const auto& recent = program_->model.recentRinks;
    const auto again = std::find_if(recent.begin(), recent.end(),
                                    [&](const auto& rink) { return rink->rinkID == lastInView_; });
    if (again == recent.end()) return;
    // Looking at it may drop others, and move it in the list.
    const std::shared_ptr<RinkData> rink = program_->model.rinkData(*lastInView_);
    user_->look(rink->rinkID);
    const auto missing = ShownWatch::missing(*rink, memory_, startOfWeek(rink->dateNow()));
    if (missing && disk_.failures() == failuresBefore) alarms_.ring(Alarm::vanished, *missing);
  });
  if (refreshes_) refreshes_->asked();
}

void Simulation::endProgram(End end) {
  if (!program_) return;
  trace_.add('x', {}, world_.seconds(), static_cast<std::uint64_t>(end));
  lastInView_ = user_->inView() ? user_->inView() : lastInView_;
  user_.reset();
  if (end == End::quit) guarded([&] { program_->quit(); });
  shown_.reset();
  refreshes_.reset();
  network_.abandonAll();
  world_.dropTasks();
  program_.reset();
  world_.dropTasks();
  if (world_.pendingTimers() != 0) alarms_.ring(Alarm::timers, "timers outlive the program");
  if (openFiles() != openFiles_) alarms_.ring(Alarm::openFiles, "files stay open");
  startAt_ = world_.seconds() + 60.0 + 6'000.0 * userRandom_.fraction();
}

void Simulation::crash() {
  endProgram(End::kill);
  memory_.crash(crashRandom_);
  disk_.checkStateFileAfterCrash();
  disk_.checkAllFiles();
}

void Simulation::asUser(const std::function<void(SimUser&)>& action) {
  if (!program_) return;
  refreshes_->expectAnytime();
  guarded([&] {
    action(*user_);
    refreshes_->check(network_.flights());
  });
  if (refreshes_) refreshes_->asked();
}

void Simulation::setRight() {
  isRight_ = true;
  network_.mend();
  episodes_.clear();
  applyEpisodes();
  world_.stepWall(-wallOffset_);
  wallOffset_ = 0.0;
  servers_.publish(content_.requireUpdate(false, world_.now()));
  // A damage without a sign is seen by no program: whoever publishes puts it right.
  servers_.publish(content_.touch(servers_.alteredKeys(), world_.now()));
  if (!program_) startProgram();
  asUser([](SimUser& user) { user.lookAround(); });
}

void Simulation::checkEnd() {
  disk_.checkAllFiles();
  checkAllIsRight(*program_, servers_, memory_, user_->inView(), alarms_);
  if (alarms_.rang()) return;
  // And from the store alone.
  endProgram(End::quit);
  startProgram();
}

}  // namespace tarvel::sim
