#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <chrono>
#include <fstream>

#include "simulation/Shrink.h"
#include "simulation/Simulation.h"

namespace {

using namespace tarvel::sim;

struct Arguments {
  std::uint64_t firstSeed = 1, lastSeed = 1;
  double years = 1.0;
  FaultSet off;
  bool shrink = true;
  bool quiet = false;
};

struct Totals {
  FaultCounters faults;
  double years = 0.0;
  std::uint64_t requests = 0;
  int failures = 0;
};

void report(const Totals& totals, double cpuSeconds) {
  fmt::print("{:.1f} simulated years in {:.1f} s of CPU time: {:.1f} years a CPU minute\n", totals.years,
             cpuSeconds, totals.years * 60.0 / std::max(cpuSeconds, 1e-9));
  fmt::print("{} requests, {} faults, {:.0f} a simulated year\n", totals.requests, totals.faults.total(),
             static_cast<double>(totals.faults.total()) / std::max(totals.years, 1e-9));
  for (std::size_t i = 0; i < kFaultClassCount; ++i) {
    const auto faultClass = static_cast<FaultClass>(i);
    fmt::print("  {:<20} {:>9}\n", nameOf(faultClass), totals.faults.of(faultClass));
  }
}

void runSeed(std::uint64_t seed, const Arguments& arguments, Totals& totals) {
  const SimulationOptions options{seed, arguments.years, arguments.off, nullptr};
  const SimulationResult result = Simulation(options).run();
  totals.faults.add(result.faults);
  totals.years += result.years;
  totals.requests += result.requests;
  if (!arguments.quiet)
    fmt::print("seed {} {:016x} {} steps {} faults\n", seed, result.hash, result.steps,
               result.faults.total());
  if (!result.alarm) return;
  ++totals.failures;
  fmt::print("FAILED: {}\n", describe(options, result));
  std::fflush(stdout);  // whoever stops a long run wants to know so far
  if (!arguments.shrink) return;
  const SimulationOptions least = shrunk(options, result.alarm->alarm);
  fmt::print("  least: {}\n  tarvel-simulate {}\n", describe(least, Simulation(least).run()),
             commandFor(least));
}

Arguments parse(CLI::App& app, int argc, char** argv) {
  Arguments arguments;
  std::string seeds;
  std::vector<std::string> off;
  bool noShrink = false;
  app.add_option("--seed", arguments.firstSeed, "The seed to run");
  app.add_option("--seeds", seeds, "The seeds to run, such as 1-300");
  app.add_option("--years", arguments.years, "Simulated years of each seed");
  app.add_option("--off", off, "Fault classes to switch off")->delimiter(',');
  app.add_flag("--no-shrink", noShrink, "Don't look for the fault classes that a failure needs");
  app.add_flag("--quiet", arguments.quiet, "Print no line for each seed");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    std::exit(app.exit(error));
  }
  arguments.shrink = !noShrink;
  arguments.lastSeed = arguments.firstSeed;
  if (!seeds.empty()) {
    const std::size_t dash = seeds.find('-');
    arguments.firstSeed = std::stoull(seeds.substr(0, dash));
    arguments.lastSeed =
        dash == std::string::npos ? arguments.firstSeed : std::stoull(seeds.substr(dash + 1));
  }
  for (const std::string& name : off) {
    const auto faultClass = faultClassNamed(name);
    if (!faultClass) throw std::invalid_argument("no such fault class: " + name);
    arguments.off.set(static_cast<std::size_t>(*faultClass));
  }
  return arguments;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Runs the engine for simulated years in worlds that go wrong, and looks after every event");
  try {
    const Arguments arguments = parse(app, argc, argv);
    Totals totals;
    const std::clock_t start = std::clock();
    for (std::uint64_t seed = arguments.firstSeed; seed <= arguments.lastSeed; ++seed)
      runSeed(seed, arguments, totals);
    report(totals, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    return totals.failures == 0 ? 0 : 1;
  } catch (const std::exception& error) {
    fmt::print(stderr, "{}\n", error.what());
    return 2;
  }
}
