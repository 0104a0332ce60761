#pragma once
#include <string>

#include "simulation/Simulation.h"

namespace tarvel::sim {

/// The same options with every fault class switched off without which the alarm rings all the same.
SimulationOptions shrunk(SimulationOptions options, Alarm alarm);
/// Seed, step, moment and alarm of a run that failed.
std::string describe(const SimulationOptions& options, const SimulationResult& result);
/// The arguments that repeat a run.
std::string commandFor(const SimulationOptions& options);

}  // namespace tarvel::sim
