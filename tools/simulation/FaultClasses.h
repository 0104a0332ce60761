#pragma once
#include <array>
#include <bitset>
#include <cstdint>
#include <optional>
#include <string_view>

#include "simulation/ports/SeededRandom.h"

namespace tarvel::sim {

/// What can go wrong or change under the program. Each can be switched off by itself.
enum class FaultClass {
  // The network; each is drawn for every request.
  refused,
  reset,
  cut,
  slow,
  silent,
  endless,
  redirectRing,
  wrongStatus,
  portalPage,
  flipped,
  padded,
  staleIndex,  ///< a cache gives an older index beside newer files
  staleFiles,  ///< and the other way round
  // The servers.
  outage,     ///< a group of servers can't be reached for a while
  piecemeal,  ///< files of one publication appear one by one
  updateRequired,
  // The disk.
  failsOnce,
  failsForEver,
  full,
  readOnly,
  datesRefused,
  coarseDates,  ///< the disk keeps dates to 1 or 2 seconds
  // The machine and its user.
  crash,
  kill,
  quit,
  clockStep,
  clockDrift,
  zoneChange,
  sleep,
  summerTime,  ///< the seed begins shortly before a change to or from summer time
  serverMove,
  // A damaged file met a check behind which the program may not go on; nothing draws it.
  stopped,
  count
};

inline constexpr std::size_t kFaultClassCount = static_cast<std::size_t>(FaultClass::count);
using FaultSet = std::bitset<kFaultClassCount>;

std::string_view nameOf(FaultClass faultClass);
std::optional<FaultClass> faultClassNamed(std::string_view name);

/// How often each class fired.
class FaultCounters {
 public:
  void add(FaultClass faultClass, std::uint64_t times = 1) {
    counts_[static_cast<std::size_t>(faultClass)] += times;
  }
  void add(const FaultCounters& other);
  std::uint64_t of(FaultClass faultClass) const { return counts_[static_cast<std::size_t>(faultClass)]; }
  std::uint64_t total() const;

 private:
  std::array<std::uint64_t, kFaultClassCount> counts_{};
};

/// How often each class is to fire in one seed: a chance for each request or publication, or a number of
/// times a day. A seed does without some classes altogether.
class FaultRates {
 public:
  /// The draws of a class stay where they are when others are switched off.
  FaultRates(SeededRandom random, const FaultSet& off);
  double of(FaultClass faultClass) const { return rates_[static_cast<std::size_t>(faultClass)]; }

 private:
  std::array<double, kFaultClassCount> rates_{};
};

}  // namespace tarvel::sim
