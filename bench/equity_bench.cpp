// bench-libs: quillet_equity
//
// The flop and turn paths of the equity engine for a full range: every holding that shares no card with
// My Hand (AhAd) or the board, plain and at mixed weights (Weighted). Run single-threaded, Release; the
// figure to watch is the median:
//   build/release/bench/equity_bench --benchmark_repetitions=15 --benchmark_report_aggregates_only=true
#include <benchmark/benchmark.h>

#include <vector>

#include "bench/mixed_weights.h"
#include "equity/board_record.h"
#include "equity/engine.h"
#include "tests/support/card_text.h"

namespace quillet {
namespace {

using testing::Board;
using testing::Hand;
using testing::LiveHoldings;

void BM_FullRangeFlopEquity(benchmark::State& state) {
  const HandCards hand = Hand("AhAd");
  const BoardCards board = Board("Tc8h3s");
  const std::vector<HandCombo> range = LiveHoldings(hand, board, kFlop);
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
  const HandCards hand = Hand("AhAd");
  const BoardCards board = Board("Tc8h3s2d");
  const std::vector<HandCombo> range = LiveHoldings(hand, board, kTurn);
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

void BM_WeightedRangeFlopEquity(benchmark::State& state) {
  const HandCards hand = Hand("AhAd");
  const BoardCards board = Board("Tc8h3s");
  const std::vector<HandCombo> range = bench::WithMixedWeights(LiveHoldings(hand, board, kFlop));
  for (auto _ : state) benchmark::DoNotOptimize(FlopEquity(hand, board, range));
}
BENCHMARK(BM_WeightedRangeFlopEquity)->Unit(benchmark::kMillisecond);

void BM_WeightedRangeTurnEquity(benchmark::State& state) {
  const HandCards hand = Hand("AhAd");
  const BoardCards board = Board("Tc8h3s2d");
  const std::vector<HandCombo> range = bench::WithMixedWeights(LiveHoldings(hand, board, kTurn));
  for (auto _ : state) benchmark::DoNotOptimize(TurnEquity(hand, board, range));
}
BENCHMARK(BM_WeightedRangeTurnEquity)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillet
