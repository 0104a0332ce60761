#include <algorithm>
#include <cmath>

#include "simulation/Simulation.h"
#include "simulation/StoredFiles.h"

/// What happens in a run, each thing at its own rate.
namespace tarvel::sim {

namespace {

constexpr double kHour = 3'600.0, kDay = 86'400.0;
constexpr double kContentChangesPerDay = 2.0, kLooksPerDay = 3.0, kActionsPerDay = 0.5;
constexpr const char* kMachineZones[] = {"UTC",
                                         "America/Denver",
                                         "Europe/Oslo",
                                         "Australia/Lord_Howe",
                                         "Asia/Kathmandu",
                                         "America/Sao_Paulo",
                                         "Europe/London"};

double between(SeededRandom& random, double least, double most) {
  return least + (most - least) * random.fraction();
}

}  // namespace

void Simulation::addSource(double perDay, std::function<void(SeededRandom&)> happen) {
  sources_.push_back({perDay, std::move(happen), stream(Stream::firstSource, sources_.size())});
  draw(sources_.back());
}

void Simulation::draw(Source& source) {
  if (source.perDay <= 0.0) return;
  source.next = world_.seconds() - std::log(1.0 - source.random.fraction()) * kDay / source.perDay;
}

void Simulation::publish(const Changes& changes, SeededRandom& random) {
  const bool piecemeal = random.chance(rate(FaultClass::piecemeal));
  if (!piecemeal) return servers_.publish(changes);
  counters_.add(FaultClass::piecemeal);
  const bool ordered = random.chance(0.5);
  double at = world_.seconds();
  servers_.publish({});
  for (const Change& change : changes) {
    at += between(random, 0.0, 240.0);
    servers_.publishLater(change, ordered ? at : world_.seconds() + between(random, 0.0, kHour));
  }
}

void Simulation::addServerSources() {
  addSource(kContentChangesPerDay,
            [this](SeededRandom& random) { publish(content_.evolve(world_.now() - wallOffset_), random); });
  addSource(rate(FaultClass::outage), [this](SeededRandom& random) {
    const double length =
        random.chance(0.1) ? between(random, 0.2, 2.0) * kDay : between(random, 60.0, 3 * kHour);
    network_.failGroup(random.below(SimNetwork::kGroups), world_.seconds() + length);
  });
  addSource(rate(FaultClass::updateRequired), [this](SeededRandom& random) {
    counters_.add(FaultClass::updateRequired);
    publish(content_.requireUpdate(random.chance(0.4), world_.now() - wallOffset_), random);
  });
  addSource(rate(FaultClass::serverMove), [this](SeededRandom&) {
    if (program_) counters_.add(FaultClass::serverMove);
    asUser([](SimUser& user) { user.moveServer(); });
  });
}

void Simulation::addDiskSources() {
  using Operation = MemoryFileSystem::Operation;
  using Repeat = MemoryFileSystem::Repeat;
  addSource(rate(FaultClass::failsOnce), [this](SeededRandom& random) {
    const int nth = 1 + static_cast<int>(random.below(30));
    const bool read = random.chance(0.2);
    const auto operation = read ? std::optional(Operation::read) : std::nullopt;
    memory_.failOperation(nth, Repeat::once, {operation, "Tarvel"}, kFailsOnce);
  });
  for (const FaultClass faultClass :
       {FaultClass::failsForEver, FaultClass::full, FaultClass::readOnly, FaultClass::datesRefused}) {
    addSource(rate(faultClass), [this, faultClass](SeededRandom& random) {
      beginEpisode(faultClass, between(random, kHour, 2 * kDay));
    });
  }
  SeededRandom random = stream(Stream::machine);
  if (random.chance(rate(FaultClass::coarseDates))) {
    memory_.setDateGranularity(1 + static_cast<std::int64_t>(random.below(2)));
    counters_.add(FaultClass::coarseDates);
  }
}

void Simulation::beginEpisode(FaultClass faultClass, double seconds) {
  episodes_.push_back({faultClass, world_.seconds() + seconds});
  applyEpisodes();
}

void Simulation::applyEpisodes() {
  const std::size_t before = episodes_.size();
  std::erase_if(episodes_, [&](const Episode& episode) { return episode.until <= world_.seconds(); });
  if (before == 0 && !isRight_) return;
  memory_.clearFailures();
  memory_.setReadOnly(false);
  memory_.setCapacity(std::nullopt);
  using Operation = MemoryFileSystem::Operation;
  using Repeat = MemoryFileSystem::Repeat;
  for (const Episode& episode : episodes_) {
    if (episode.faultClass == FaultClass::failsForEver)
      memory_.failOperation(1, Repeat::forEver, {std::nullopt, "Tarvel"}, kFailsForEver);
    if (episode.faultClass == FaultClass::datesRefused)
      memory_.failOperation(1, Repeat::forEver, {Operation::setAttributes, "Tarvel"}, kDatesRefused);
    if (episode.faultClass == FaultClass::full) memory_.setCapacity(1);
    if (episode.faultClass == FaultClass::readOnly) memory_.setReadOnly(true);
  }
}

void Simulation::stepClock(SeededRandom& random) {
  counters_.add(FaultClass::clockStep);
  double step = -wallOffset_;
  switch (random.below(6)) {
    case 0:
      step = between(random, -10.0, 10.0);
      break;
    case 1:
      step = between(random, -2 * kHour, 2 * kHour);
      break;
    case 2:
      step = between(random, -20 * kDay, 20 * kDay);
      break;
    case 3:
      if (random.chance(0.2)) step = between(random, -300 * kDay, 300 * kDay);
      break;
    default:
      break;  // someone sets it right
  }
  constexpr double kFurthest = 400 * kDay;
  if (std::abs(wallOffset_ + step) > kFurthest) step = -wallOffset_;
  world_.stepWall(step);
  wallOffset_ += step;
}

void Simulation::addMachineSources() {
  addSource(rate(FaultClass::crash), [this](SeededRandom&) {
    counters_.add(FaultClass::crash);
    crash();
  });
  addSource(rate(FaultClass::clockStep), [this](SeededRandom& random) { stepClock(random); });
  addSource(rate(FaultClass::clockDrift), [this](SeededRandom& random) {
    counters_.add(FaultClass::clockDrift);
    driftPerTick_ = random.chance(0.5) ? 0.0 : between(random, -0.05, 0.05);
  });
  addSource(rate(FaultClass::zoneChange), [this](SeededRandom& random) {
    counters_.add(FaultClass::zoneChange);
    world_.setMachineZone(*TimeZone::named(kMachineZones[random.below(std::size(kMachineZones))]));
    lastZoneOffset_ = 0;
  });
  addSource(rate(FaultClass::sleep), [this](SeededRandom& random) {
    counters_.add(FaultClass::sleep);
    world_.sleepMachine(between(random, kHour, random.chance(0.2) ? 21 * kDay : 2 * kDay));
  });
}

/// The machine itself is cut off now and then, and is told when it no longer is; a bad connection comes and
/// goes.
void Simulation::addNetworkSources() {
  addSource(rate(FaultClass::outage), [this](SeededRandom& random) {
    const double until = world_.seconds() + between(random, 10.0, 3 * kHour);
    for (std::size_t group = 0; group < SimNetwork::kGroups; ++group) network_.failGroup(group, until);
    sources_.back().next = until;
  });
  addSource(0.0, [this](SeededRandom& random) {
    constexpr double kNever = std::numeric_limits<double>::infinity();
    sources_.back().next = random.chance(0.5) ? kNever : world_.seconds() + between(random, 0.0, 60.0);
    if (!program_) return;
    refreshes_->networkCameBack();
    program_->networkReturn.networkCameBack();
  });
}

void Simulation::addUserSources() {
  addSource(kLooksPerDay, [this](SeededRandom&) { asUser([](SimUser& user) { user.lookAround(); }); });
  addSource(kActionsPerDay, [this](SeededRandom&) { asUser([](SimUser& user) { user.act(); }); });
  addSource(rate(FaultClass::kill), [this](SeededRandom&) {
    counters_.add(FaultClass::kill);
    endProgram(End::kill);
  });
  addSource(rate(FaultClass::quit), [this](SeededRandom&) {
    counters_.add(FaultClass::quit);
    endProgram(End::quit);
  });
}

}  // namespace tarvel::sim
