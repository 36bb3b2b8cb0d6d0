// bench-libs: quillet_equity quillet_cards
// Exact preflop tallies under standard rules through the matchup class table: My Hand AhAd against every
// holding (1,225 live), one table read each, plain and at mixed weights; a single matchup; and loading the
// table.
#include <benchmark/benchmark.h>

#include <vector>

#include "bench/mixed_weights.h"
#include "cards/card.h"
#include "cards/hand_class.h"
#include "equity/embedded_tables.h"
#include "equity/preflop_class_file.h"
#include "equity/preflop_classes.h"

namespace quillet {
namespace {

std::vector<HandCombo> AllHoldings() {
  std::vector<HandCombo> all;
  for (const HandClass& c : HandClasses()) {
    for (const HandCombo& h : ExpandClassName(c.name)) all.push_back(h);
  }
  return all;
}

const PreflopClassTable* TableOrSkip(benchmark::State& state) {
  const PreflopClassTableOrError& loaded = ProgramPreflopClassTable();
  if (!loaded.ok()) state.SkipWithError(loaded.error.c_str());
  return loaded.ok() ? &*loaded.table : nullptr;
}

void BM_StandardPreflopTallyFullRange(benchmark::State& state) {
  const PreflopClassTable* table = TableOrSkip(state);
  if (table == nullptr) return;
  const std::vector<HandCombo> range = AllHoldings();
  const Card ah{14, 2};
  const Card ad{14, 1};
  for (auto _ : state) {
    const ShowdownTally t = table->TallyAgainst(ah, ad, range);
    benchmark::DoNotOptimize(t);
  }
  state.counters["holdings"] = static_cast<double>(range.size());
}
BENCHMARK(BM_StandardPreflopTallyFullRange)->Unit(benchmark::kMicrosecond);

void BM_StandardPreflopTallyWeightedRange(benchmark::State& state) {
  const PreflopClassTable* table = TableOrSkip(state);
  if (table == nullptr) return;
  const std::vector<HandCombo> range = bench::WithMixedWeights(AllHoldings());
  for (auto _ : state) benchmark::DoNotOptimize(table->TallyAgainst(Card{14, 2}, Card{14, 1}, range));
}
BENCHMARK(BM_StandardPreflopTallyWeightedRange)->Unit(benchmark::kMicrosecond);

void BM_StandardPreflopMatchup(benchmark::State& state) {
  const PreflopClassTable* table = TableOrSkip(state);
  if (table == nullptr) return;
  const Card ah{14, 2}, ad{14, 1}, ks{13, 3}, kc{13, 0};
  for (auto _ : state) {
    const ShowdownTally t = table->Matchup(ah, ad, ks, kc);
    benchmark::DoNotOptimize(t);
  }
}
BENCHMARK(BM_StandardPreflopMatchup);

void BM_LoadPreflopClassTable(benchmark::State& state) {
  for (auto _ : state) {
    const PreflopClassTableOrError t = ParseClassTable(EmbeddedClassTableBytes());
    benchmark::DoNotOptimize(t.ok());
  }
}
BENCHMARK(BM_LoadPreflopClassTable)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillet
