#include <benchmark/benchmark.h>

#include "refresh/SimEngine.h"
#include "support/PublishedSite.h"

namespace tarvel {
namespace {

/// One refresh of a rink whose server has nothing new, from the timer's call to the end of the cycle, with
/// the simulated network and disk in the figure.
void unchangedRefresh(benchmark::State& state) {
  SimServices sim;
  const PublishedSite site = PublishedSite::sample();
  for (const auto& [url, bytes] : site.files()) sim.http.serve(url, bytes);
  SimEngine engine(sim);
  engine.start();
  sim.world.runFor(5);
  const auto rink = engine.model.rinkData(7);
  const auto refresh = [&] {
    rink->refreshNow();
    sim.world.runUntilIdle();
  };
  rink->readMainFile();
  refresh();
  for (const auto& venue : rink->venues) venue->weeklySchedule(packedDate(2026, 3, 8));
  sim.world.runUntilIdle();

  const auto restOfTurn = [&] {
    const bool oneRequest = sim.http.requests().size() == 1 && !rink->refreshInProgress() &&
                            rink->errorKind() == DownloadErrorKind::noError;
    sim.http.clearRequests();
    sim.console.clear();
    sim.disk.clearLog();
    return oneRequest;
  };
  restOfTurn();
  refresh();
  if (!restOfTurn()) state.SkipWithError("an unchanged refresh is one request");
  int turn = 0;
  for (auto _ : state) {
    refresh();
    if (++turn % 64 != 0) continue;
    state.PauseTiming();  // what the simulation writes down must not pile up
    sim.http.clearRequests();
    sim.console.clear();
    sim.disk.clearLog();
    state.ResumeTiming();
  }
}
BENCHMARK(unchangedRefresh)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tarvel
