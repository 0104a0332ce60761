#include "simulation/Shrink.h"

#include <fmt/format.h>

namespace tarvel::sim {

SimulationOptions shrunk(SimulationOptions options, Alarm alarm) {
  for (std::size_t i = 0; i < kFaultClassCount; ++i) {
    SimulationOptions without = options;
    without.off.set(i);
    const auto result = Simulation(without).run();
    if (result.alarm && result.alarm->alarm == alarm) options = without;
  }
  return options;
}

std::string describe(const SimulationOptions& options, const SimulationResult& result) {
  if (!result.alarm) return fmt::format("seed {}: no alarm", options.seed);
  const RungAlarm& alarm = *result.alarm;
  return fmt::format("seed {}, step {}, day {:.2f}: {} -- {}", options.seed, alarm.step,
                     alarm.seconds / 86'400.0, kAlarmNames[static_cast<std::size_t>(alarm.alarm)],
                     alarm.detail);
}

std::string commandFor(const SimulationOptions& options) {
  std::string command = fmt::format("--seed {} --years {}", options.seed, options.years);
  std::string separator = " --off ";
  for (std::size_t i = 0; i < kFaultClassCount; ++i) {
    if (!options.off.test(i)) continue;
    command += separator;
    command += nameOf(static_cast<FaultClass>(i));
    separator = ",";
  }
  return command;
}

}  // namespace tarvel::sim
