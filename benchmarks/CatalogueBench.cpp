#include <benchmark/benchmark.h>

#include <cstdlib>

#include "model/DataModel.h"
#include "refresh/SimEngine.h"
#include "support/PublishedSite.h"

namespace tarvel {
namespace {

enum class Change { none, onePercent };

/// The catalogue of so many rinks; with a round other than 0, every hundredth has a new name.
Bytes catalogue(std::int64_t count, int round = 0) {
  PublishedSite site;
  site.rinksDate.actual = {791'000'000.0 + round};
  site.rinks.resize(static_cast<std::size_t>(count));
  for (std::int64_t i = 0; i < count; ++i) {
    RinkRecord& rink = site.rinks[static_cast<std::size_t>(i)].record;
    rink.rinkID = i + 1;
    rink.name = "Community Ice Arena " + std::to_string(i);
    if (i % 100 == 0) rink.name += " " + std::to_string(round);
    rink.street = std::to_string(i) + " Frozen Lake Drive";
    rink.city = "Springfield";
    rink.state = "CO";
    rink.zip = "80202";
    rink.phone = 0xA000003035550123;
    rink.latitude = 39.0 + static_cast<double>(i) * 1e-5;
    rink.longitude = -105.0;
    rink.timeZone = "America/Denver";
    rink.websiteUrl = "https://arena" + std::to_string(i) + ".test";
    rink.serverUrl = "https://rinks.test";
    rink.dataPath = "rinks/" + std::to_string(i);
    rink.logoFileDate = Instant{789'000'000.0 + static_cast<double>(i)};
    rink.logoFileSize = 12'345;
  }
  return site.rinkList();
}

void decodeCatalogue(benchmark::State& state) {
  const Bytes file = catalogue(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(decodeRinkList(file));
  state.SetComplexityN(state.range(0));
}

/// Decodes and merges a new catalogue into the present one. The turns of the main loop in between, which
/// deliver what was announced, aren't counted.
void mergeCatalogue(benchmark::State& state, Change change) {
  SimServices sim;
  SimEngine engine(sim);
  const std::int64_t count = state.range(0);
  const Bytes files[] = {catalogue(count), catalogue(count, change == Change::none ? 0 : 1)};
  engine.model.mergeRinkList(decodeRinkList(files[1]));
  sim.world.runUntilIdle();
  const NotificationRecorder recorder(sim.notifications, sim.world);
  std::size_t round = 0;
  for (auto _ : state) {
    engine.model.mergeRinkList(engine.model.rinkListUpdate(files[round++ % 2]));
    state.PauseTiming();
    sim.world.runUntilIdle();
    state.ResumeTiming();
  }
  const std::size_t changed = change == Change::none ? 0 : static_cast<std::size_t>(count) / 100;
  const std::size_t each = changed + (changed > 0 ? 1 : 0);
  if (recorder.deliveries().size() != round * each) {
    state.SkipWithError("the merge announced something else than what changed");
  }
  state.SetComplexityN(count);
}

void sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(25'000)->Arg(50'000)->Arg(100'000)->Complexity()->Unit(benchmark::kMillisecond);
}
BENCHMARK(decodeCatalogue)->Apply(sizes);
BENCHMARK_CAPTURE(mergeCatalogue, unchanged, Change::none)->Apply(sizes);
BENCHMARK_CAPTURE(mergeCatalogue, onePercentChanged, Change::onePercent)->Apply(sizes);

}  // namespace
}  // namespace tarvel
