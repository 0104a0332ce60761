#include <benchmark/benchmark.h>

#include "support/PublishedSite.h"

namespace tarvel {
namespace {

/// A full week: 150 items, every fifth with texts.
Bytes fullWeek() {
  PublishedWeek week;
  week.weekOf = packedDate(2026, 3, 8);
  for (int i = 0; i < 150; ++i) {
    const bool texts = i % 5 == 0;
    week.items.push_back({static_cast<SessionKind>(i % 19), i % 7, 300 + 8 * i, 45,
                          texts ? "Learn to Skate, level 2" : "", texts ? "Bring gloves and a helmet." : ""});
  }
  return PublishedRink::week(week);
}

void decodeWeek(benchmark::State& state) {
  const Bytes file = fullWeek();
  for (auto _ : state) benchmark::DoNotOptimize(decodeWeekFile(file));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.size()));
}
BENCHMARK(decodeWeek)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tarvel
