// bench-libs: quillet_equity quillet_cards
// The preflop lookup for a full range: every holding of the 169 classes against My Hand AhAd, one or two
// binary searches each over the built-in table.
#include <benchmark/benchmark.h>

#include <vector>

#include "cards/card.h"
#include "cards/hand_class.h"
#include "equity/preflop_equity.h"

namespace quillet {
namespace {

std::vector<HandCombo> FullRangeAgainst(const HandCards& me) {
  std::vector<HandCombo> range;
  for (const HandClass& c : HandClasses()) {
    for (HandCombo h : ExpandClassName(c.name)) {
      // Holdings that share a card with My Hand are dead: flagged off, as the cook leaves them.
      for (const Card mine : {me.card1(), me.card2()}) {
        if (h.card1() == mine || h.card2() == mine) h.flag = false;
      }
      range.push_back(h);
    }
  }
  return range;
}

void BM_PreflopEquityFullRange(benchmark::State& state) {
  const HandCards me{-1, 14, 2, 14, 1};  // AhAd
  const std::vector<HandCombo> range = FullRangeAgainst(me);
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
BENCHMARK(BM_PreflopEquityFullRange)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillet
