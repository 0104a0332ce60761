#pragma once
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvel::sim {

/// What must hold after every event, and at the end of a run. Named by what rang.
enum class Alarm {
  tornFile,           ///< a stored file is no whole version that a server gave out
  undecodableFile,    ///< a file whose date vouches for it can't be decoded
  vanished,           ///< what was shown has gone through a failure
  stateFile,          ///< the state file is neither the last one saved nor one that a crash may bring back
  outsideTheStore,    ///< something was changed outside the store, or a file in it not by way of a temporary
                      ///< one
  temporaryOutlives,  ///< a temporary file has outlived a start
  interval,           ///< a refresh came before its time
  twoFlights,         ///< a URL was asked for while it was in flight
  timers,             ///< a refresh that waits has no timer, or there are timers of nobody
  busyLoop,
  memory,
  openFiles,
  datesAtEnd,  ///< with all in order again, the store isn't what the servers publish
  stopped,     ///< the program ended itself, and no damaged file was the reason
  count
};

inline constexpr std::array<std::string_view, static_cast<std::size_t>(Alarm::count)> kAlarmNames = {
    "torn file",
    "undecodable file",
    "vanished",
    "state file",
    "outside the store",
    "temporary outlives a start",
    "interval",
    "two flights",
    "timers",
    "busy loop",
    "memory",
    "open files",
    "dates at end",
    "stopped"};

struct RungAlarm {
  Alarm alarm;
  std::string detail;
  double seconds;      ///< simulated, since the start
  std::uint64_t step;  ///< of the trace
};

/// Keeps the first alarm, which ends the run; what follows from it is of no interest.
class Alarms {
 public:
  void ring(Alarm alarm, std::string detail) {
    if (!first_) first_ = RungAlarm{alarm, std::move(detail), 0.0, 0};
  }
  bool rang() const { return first_.has_value(); }
  std::optional<RungAlarm>& first() { return first_; }

 private:
  std::optional<RungAlarm> first_;
};

}  // namespace tarvel::sim
