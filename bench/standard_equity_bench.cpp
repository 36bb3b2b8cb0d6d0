// bench-libs: quillet_equity
//
// Exact equity under the standard rules for AhAd against every live holding (the full range less the
// holdings that share a card with My Hand or the board), on the flop Tc8h3s (every turn and river), the
// turn Tc8h3s2d (every river) and the river Tc8h3s2dKs, the range plain and at mixed weights (Weighted); and
// the seven-card reader on its own. Run
// single-threaded, Release; the figure to watch is the median:
//   build/release/bench/standard_equity_bench --benchmark_repetitions=5
//   --benchmark_report_aggregates_only=true
#include <benchmark/benchmark.h>

#include <random>
#include <vector>

#include "bench/mixed_weights.h"
#include "equity/deck.h"
#include "equity/standard_equity.h"
#include "equity/standard_evaluator.h"
#include "tests/support/card_text.h"

namespace quillet {
namespace {

using testing::Board;
using testing::Hand;
using testing::LiveHoldings;

void FullRangeTally(benchmark::State& state, Street street, bool weighted = false) {
  const HandCards hand = Hand("AhAd");
  const BoardCards board = Board(std::string_view("Tc8h3s2dKs").substr(0, 2 * BoardCardCount(street)));
  std::vector<HandCombo> range = LiveHoldings(hand, board, street);
  if (weighted) bench::GiveMixedWeights(range);
  StandardEvaluator::Get();  // built once, before the clock runs
  uint64_t showdowns = 0;
  for (auto _ : state) {
    const ShowdownTally tally = StandardShowdownTally(hand, board, street, range);
    benchmark::DoNotOptimize(tally);
    showdowns += tally.Showdowns() / tally.scale;
  }
  state.counters["showdowns/s"] =
      benchmark::Counter(static_cast<double>(showdowns), benchmark::Counter::kIsRate);
}

void BM_StandardFlopFullRange(benchmark::State& state) {
  FullRangeTally(state, kFlop);
}
BENCHMARK(BM_StandardFlopFullRange)->Unit(benchmark::kMicrosecond);

void BM_StandardTurnFullRange(benchmark::State& state) {
  FullRangeTally(state, kTurn);
}
BENCHMARK(BM_StandardTurnFullRange)->Unit(benchmark::kMicrosecond);

void BM_StandardRiverFullRange(benchmark::State& state) {
  FullRangeTally(state, kRiver);
}
BENCHMARK(BM_StandardRiverFullRange)->Unit(benchmark::kMicrosecond);

void BM_StandardFlopWeightedRange(benchmark::State& state) {
  FullRangeTally(state, kFlop, true);
}
BENCHMARK(BM_StandardFlopWeightedRange)->Unit(benchmark::kMicrosecond);

void BM_StandardTurnWeightedRange(benchmark::State& state) {
  FullRangeTally(state, kTurn, true);
}
BENCHMARK(BM_StandardTurnWeightedRange)->Unit(benchmark::kMicrosecond);

void BM_StandardRiverWeightedRange(benchmark::State& state) {
  FullRangeTally(state, kRiver, true);
}
BENCHMARK(BM_StandardRiverWeightedRange)->Unit(benchmark::kMicrosecond);

// The reader on random seven-card hands, one at a time (no state shared between hands).
void BM_StandardSevenCardReader(benchmark::State& state) {
  const StandardEvaluator& evaluator = StandardEvaluator::Get();
  std::mt19937_64 rng(52);
  std::vector<CardSet> hands(4096);
  std::array<int, 52> places;
  for (int i = 0; i < 52; ++i) places[i] = i;
  for (CardSet& cards : hands) {
    cards = 0;
    for (int i = 0; i < 7; ++i) {
      std::swap(places[i], places[i + static_cast<int>(rng() % (52 - i))]);
      cards |= CardSetBit(DeckCard(places[i]));
    }
  }
  for (auto _ : state) {
    for (CardSet cards : hands) benchmark::DoNotOptimize(evaluator.Evaluate(cards));
  }
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * hands.size()));
}
BENCHMARK(BM_StandardSevenCardReader);

}  // namespace
}  // namespace quillet
