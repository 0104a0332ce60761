#include "simulation/FaultClasses.h"

#include <cmath>

namespace tarvel::sim {

namespace {

struct ClassRow {
  std::string_view name;
  double typicalRate;  ///< in the middle of what seeds draw
};

constexpr std::array<ClassRow, kFaultClassCount> kClasses = {{
    {"refused", 0.03},
    {"reset", 0.02},
    {"cut", 0.02},
    {"slow", 0.03},
    {"silent", 0.01},
    {"endless", 0.005},
    {"redirect-ring", 0.005},
    {"wrong-status", 0.02},
    {"portal-page", 0.01},
    {"flipped", 0.01},
    {"padded", 0.005},
    {"stale-index", 0.04},
    {"stale-files", 0.04},
    {"outage", 0.1},
    {"piecemeal", 0.4},
    {"update-required", 0.01},
    {"disk-fails-once", 2.0},
    {"disk-fails-for-ever", 0.05},
    {"disk-full", 0.05},
    {"disk-read-only", 0.03},
    {"dates-refused", 0.04},
    {"coarse-dates", 0.3},
    {"crash", 0.15},
    {"kill", 0.15},
    {"quit", 0.25},
    {"clock-step", 0.1},
    {"clock-drift", 1.0},
    {"zone-change", 0.05},
    {"sleep", 0.03},
    {"summer-time", 0.5},
    {"server-move", 0.02},
    {"stopped", 0.0},
}};

constexpr double kChanceOfNone = 0.3;
constexpr double kWidestFactor = 4.0;  ///< a rate lies at most this factor off the typical one

const ClassRow& rowOf(std::size_t index) {
  return kClasses[index];
}

}  // namespace

std::string_view nameOf(FaultClass faultClass) {
  return rowOf(static_cast<std::size_t>(faultClass)).name;
}

std::optional<FaultClass> faultClassNamed(std::string_view name) {
  for (std::size_t i = 0; i < kFaultClassCount; ++i) {
    if (rowOf(i).name == name) return static_cast<FaultClass>(i);
  }
  return std::nullopt;
}

void FaultCounters::add(const FaultCounters& other) {
  for (std::size_t i = 0; i < kFaultClassCount; ++i) counts_[i] += other.counts_[i];
}

std::uint64_t FaultCounters::total() const {
  std::uint64_t total = 0;
  for (const std::uint64_t count : counts_) total += count;
  return total;
}

FaultRates::FaultRates(SeededRandom random, const FaultSet& off) {
  for (std::size_t i = 0; i < kFaultClassCount; ++i) {
    const bool none = random.chance(kChanceOfNone);
    const double factor = std::pow(kWidestFactor, 2.0 * random.fraction() - 1.0);
    rates_[i] = none || off.test(i) ? 0.0 : rowOf(i).typicalRate * factor;
  }
}

}  // namespace tarvel::sim
