// bench-libs: quillet_equity
//
// The flop and turn paths of the equity engine for a full range: every holding that shares no card with
// My Hand (AhAd) or the board. Run single-threaded, Release; the figure to watch is the median:
//   build/rel/bench/equity_bench --benchmark_repetitions=15 --benchmark_report_aggregates_only=true
#include <benchmark/benchmark.h>

#include <vector>

#include "equity/board_record.h"
#include "equity/engine.h"

namespace quillet {
namespace {

HandCards AcesHeartsDiamonds() {
  HandCards hand;
  hand.rank1 = 14, hand.suit1 = 2, hand.rank2 = 14, hand.suit2 = 1;
  return hand;
}

BoardCards TenEightThreeRainbow(bool withTurn) {
  BoardCards board;
  board[0] = {10, 0};               // Tc
  board[1] = {8, 2};                // 8h
  board[2] = {3, 3};                // 3s
  if (withTurn) board[3] = {2, 1};  // 2d
  return board;
}

// All 1,326 holdings less those sharing a card with My Hand or the known board.
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

void BM_FullRangeFlopEquity(benchmark::State& state) {
  const HandCards hand = AcesHeartsDiamonds();
  const BoardCards board = TenEightThreeRainbow(false);
  const std::vector<HandCombo> range = FullRange(hand, board, 3);
  int64_t showdowns = 0;
  for (auto _ : state) {
    const EquityResult shares = FlopEquity(hand, board, range);
    benchmark::DoNotOptimize(shares);
    showdowns += static_cast<int64_t>(range.size()) * 990;
  }
  state.counters["showdowns/s"] =
      benchmark::Counter(static_cast<double>(showdowns), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_FullRangeFlopEquity)->Unit(benchmark::kMillisecond);

void BM_FullRangeTurnEquity(benchmark::State& state) {
  const HandCards hand = AcesHeartsDiamonds();
  const BoardCards board = TenEightThreeRainbow(true);
  const std::vector<HandCombo> range = FullRange(hand, board, 4);
  int64_t showdowns = 0;
  for (auto _ : state) {
    const EquityResult shares = TurnEquity(hand, board, range);
    benchmark::DoNotOptimize(shares);
    showdowns += static_cast<int64_t>(range.size()) * 44;
  }
  state.counters["showdowns/s"] =
      benchmark::Counter(static_cast<double>(showdowns), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_FullRangeTurnEquity)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillet
