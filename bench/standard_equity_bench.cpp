// bench-libs: quillet_equity
//
// Exact equity under the standard rules for AhAd against every live holding (the full range less the
// holdings that share a card with My Hand or the board), on the flop Tc8h3s (every turn and river), the
// turn Tc8h3s2d (every river) and the river Tc8h3s2dKs; and the seven-card reader on its own. Run
// single-threaded, Release; the figure to watch is the median:
//   build/release/bench/standard_equity_bench --benchmark_repetitions=5
//   --benchmark_report_aggregates_only=true
#include <benchmark/benchmark.h>

#include <random>
#include <vector>

#include "equity/deck.h"
#include "equity/standard_equity.h"
#include "equity/standard_evaluator.h"

namespace quillet {
namespace {

HandCards AcesHeartsDiamonds() {
  HandCards hand;
  hand.rank1 = 14, hand.suit1 = 2, hand.rank2 = 14, hand.suit2 = 1;
  return hand;
}

// Tc 8h 3s, then 2d and Ks as far as the street goes.
BoardCards TenEightThree(int32_t street) {
  BoardCards board;
  board[0] = {10, 0};
  board[1] = {8, 2};
  board[2] = {3, 3};
  if (street >= kTurn) board[3] = {2, 1};
  if (street >= kRiver) board[4] = {13, 3};
  return board;
}

std::vector<HandCombo> FullRange(const HandCards& hand, const BoardCards& board, int known) {
  std::vector<HandCombo> range;
  for (int i = 0; i < 52; ++i) {
    for (int j = i + 1; j < 52; ++j) {
      const Card a = DeckCard(j);
      const Card b = DeckCard(i);
      bool dead = a == hand.card1() || a == hand.card2() || b == hand.card1() || b == hand.card2();
      for (int k = 0; k < known; ++k) dead = dead || a == board[k] || b == board[k];
      if (!dead) range.push_back(HandCombo{true, a.rank, a.suit, b.rank, b.suit});
    }
  }
  return range;
}

void FullRangeTally(benchmark::State& state, int32_t street) {
  const HandCards hand = AcesHeartsDiamonds();
  const BoardCards board = TenEightThree(street);
  const std::vector<HandCombo> range = FullRange(hand, board, BoardCardCount(street));
  StandardEvaluator::Get();  // built once, before the clock runs
  uint64_t showdowns = 0;
  for (auto _ : state) {
    const ShowdownTally tally = StandardShowdownTally(hand, board, street, range);
    benchmark::DoNotOptimize(tally);
    showdowns += tally.Showdowns();
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
