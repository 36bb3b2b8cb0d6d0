// bench-libs: quillet_equity quillet_cards
// The preflop lookup for a full range: every holding of the 169 classes against My Hand AhAd, one or two
// binary searches each over the built-in table; plain and at mixed weights (a weighted mean).
#include <benchmark/benchmark.h>

#include <vector>

#include "bench/mixed_weights.h"
#include "cards/card.h"
#include "cards/hand_class.h"
#include "equity/preflop_equity.h"
#include "tests/support/card_text.h"

namespace quillet {
namespace {

using testing::ClassHoldingsBeside;

void PreflopFullRange(benchmark::State& state, bool weighted) {
  const HandCards me{-1, 14, 2, 14, 1};  // AhAd
  std::vector<HandCombo> range = ClassHoldingsBeside(me);
  if (weighted) bench::GiveMixedWeights(range);
  const TablesOrError& loaded = ProgramTables();
  if (!loaded.ok()) {
    state.SkipWithError(loaded.error.c_str());
    return;
  }
  const MessageSink ignore = nullptr;
  for (auto _ : state) {
    const EquityResult r = PreflopEquity(*loaded.tables, me, range, static_cast<int>(range.size()), ignore);
    benchmark::DoNotOptimize(r);
  }
  state.counters["holdings"] = static_cast<double>(range.size());
}

void BM_PreflopEquityFullRange(benchmark::State& state) {
  PreflopFullRange(state, false);
}
BENCHMARK(BM_PreflopEquityFullRange)->Unit(benchmark::kMicrosecond);

void BM_PreflopEquityWeightedRange(benchmark::State& state) {
  PreflopFullRange(state, true);
}
BENCHMARK(BM_PreflopEquityWeightedRange)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillet
