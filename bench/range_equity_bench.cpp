// bench-libs: quillet_equity quillet_range
//
// Range against range under the standard rules, exact, one thread. The figure to watch is the median:
//   build/release/bench/range_equity_bench --benchmark_repetitions=5 --benchmark_report_aggregates_only=true
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "bench/mixed_weights.h"
#include "equity/range_equity.h"
#include "range/range_notation.h"
#include "range/weighted_holding_set.h"

namespace quillet {
namespace {

using bench::MixedWeights;

constexpr const char* kWide = "22+,A2s+,K9s+,QTs+,JTs,ATo+,KJo+";  // about 23 % of the holdings
constexpr const char* kTight = "22+,A7s+,KTs+,QJs,AJo+,KQo";       // about 10 %

HoldingSet Range(const char* text) {
  return ParseRangeNotation(text).holdings;
}

BoardCards TenEightThreeRainbow(Street street) {
  BoardCards board;
  board[0] = {10, 0};                       // Tc
  board[1] = {8, 2};                        // 8h
  board[2] = {3, 3};                        // 3s
  if (street >= kTurn) board[3] = {2, 1};   // 2d
  if (street >= kRiver) board[4] = {7, 0};  // 7c
  return board;
}

// Three spades and a pair: Ks9s9d, and on the turn a fourth spade.
BoardCards MonotonePaired(Street street) {
  BoardCards board;
  board[0] = {13, 3};                       // Ks
  board[1] = {9, 3};                        // 9s
  board[2] = {9, 1};                        // 9d
  if (street >= kTurn) board[3] = {4, 3};   // 4s
  if (street >= kRiver) board[4] = {2, 3};  // 2s
  return board;
}

void RunRangeEquity(benchmark::State& state, const char* mine, const char* theirs, Street street,
                    bool flushy = false) {
  const HoldingSet myRange = Range(mine);
  const HoldingSet oppRange = Range(theirs);
  const BoardCards board = flushy ? MonotonePaired(street) : TenEightThreeRainbow(street);
  StandardRangeEquity(myRange, oppRange, board, street);  // builds the evaluator and the class table
  for (auto _ : state) {
    RangeEquityResult result = StandardRangeEquity(myRange, oppRange, board, street);
    benchmark::DoNotOptimize(result);
  }
}

void BM_RandomVsRandomPreflop(benchmark::State& state) {
  RunRangeEquity(state, "random", "random", kNoBoard);
}
void BM_RandomVsRandomFlop(benchmark::State& state) {
  RunRangeEquity(state, "random", "random", kFlop);
}
void BM_RandomVsRandomTurn(benchmark::State& state) {
  RunRangeEquity(state, "random", "random", kTurn);
}
void BM_RandomVsRandomRiver(benchmark::State& state) {
  RunRangeEquity(state, "random", "random", kRiver);
}
void BM_RandomVsRandomSpadesFlop(benchmark::State& state) {
  RunRangeEquity(state, "random", "random", kFlop, true);
}
void BM_RandomVsRandomSpadesTurn(benchmark::State& state) {
  RunRangeEquity(state, "random", "random", kTurn, true);
}
void BM_RandomVsRandomSpadesRiver(benchmark::State& state) {
  RunRangeEquity(state, "random", "random", kRiver, true);
}
void BM_WideVsTightPreflop(benchmark::State& state) {
  RunRangeEquity(state, kWide, kTight, kNoBoard);
}
void BM_WideVsTightFlop(benchmark::State& state) {
  RunRangeEquity(state, kWide, kTight, kFlop);
}
void BM_QueensPlusAceKingVsRandomPreflop(benchmark::State& state) {
  RunRangeEquity(state, "QQ+,AKs,AKo", "random", kNoBoard);
}

// Both ranges full at mixed weights (bench/mixed_weights.h): the tally counts in millionths. The weighted
// cases must cost at most 1.5 times the whole ones.
void RunWeightedRangeEquity(benchmark::State& state, Street street, bool flushy = false) {
  const WeightedHoldingSet myRange = MixedWeights(1);
  const WeightedHoldingSet oppRange = MixedWeights(2);
  const BoardCards board = flushy ? MonotonePaired(street) : TenEightThreeRainbow(street);
  StandardRangeEquity(myRange, oppRange, board, street);
  for (auto _ : state) {
    RangeEquityResult result = StandardRangeEquity(myRange, oppRange, board, street);
    benchmark::DoNotOptimize(result);
  }
}

void BM_WeightedRandomVsWeightedRandomPreflop(benchmark::State& state) {
  RunWeightedRangeEquity(state, kNoBoard);
}
void BM_WeightedRandomVsWeightedRandomFlop(benchmark::State& state) {
  RunWeightedRangeEquity(state, kFlop);
}
void BM_WeightedRandomVsWeightedRandomTurn(benchmark::State& state) {
  RunWeightedRangeEquity(state, kTurn);
}
void BM_WeightedRandomVsWeightedRandomRiver(benchmark::State& state) {
  RunWeightedRangeEquity(state, kRiver);
}
void BM_WeightedRandomVsWeightedRandomSpadesFlop(benchmark::State& state) {
  RunWeightedRangeEquity(state, kFlop, true);
}
void BM_WeightedRandomVsWeightedRandomSpadesTurn(benchmark::State& state) {
  RunWeightedRangeEquity(state, kTurn, true);
}
void BM_WeightedRandomVsWeightedRandomSpadesRiver(benchmark::State& state) {
  RunWeightedRangeEquity(state, kRiver, true);
}

// The heat map's walk, per holding of the opponent's range: the full range against the full range, whole
// (argument 0) or weighted (1), on the flop (1), the turn (2) or preflop (0).
void BM_ByHoldingRandomVsRandom(benchmark::State& state) {
  const bool weighted = state.range(0) != 0;
  const auto street = static_cast<Street>(state.range(1));
  const std::vector<HandCombo> mine =
      WeightedCombos(weighted ? MixedWeights(1) : WeightedHoldingSet::FromHoldings(Range("random")));
  const std::vector<HandCombo> theirs =
      WeightedCombos(weighted ? MixedWeights(2) : WeightedHoldingSet::FromHoldings(Range("random")));
  const BoardCards board = TenEightThreeRainbow(street);
  std::vector<ShowdownTally> against(kHoldingCount);
  StandardRangeEquityByHolding(mine, theirs, board, street, against);
  for (auto _ : state) {
    RangeEquityResult result = StandardRangeEquityByHolding(mine, theirs, board, street, against);
    benchmark::DoNotOptimize(result);
    benchmark::DoNotOptimize(against.data());
  }
  state.SetLabel(std::string(weighted ? "weighted" : "whole") + ", " +
                 (street == kNoBoard ? "preflop"
                  : street == kFlop  ? "flop"
                                     : "turn"));
}

BENCHMARK(BM_RandomVsRandomPreflop)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RandomVsRandomFlop)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RandomVsRandomTurn)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RandomVsRandomRiver)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RandomVsRandomSpadesFlop)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RandomVsRandomSpadesTurn)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RandomVsRandomSpadesRiver)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_WideVsTightPreflop)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WideVsTightFlop)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_QueensPlusAceKingVsRandomPreflop)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WeightedRandomVsWeightedRandomPreflop)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WeightedRandomVsWeightedRandomFlop)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WeightedRandomVsWeightedRandomTurn)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WeightedRandomVsWeightedRandomRiver)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_WeightedRandomVsWeightedRandomSpadesFlop)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WeightedRandomVsWeightedRandomSpadesTurn)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WeightedRandomVsWeightedRandomSpadesRiver)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ByHoldingRandomVsRandom)->ArgsProduct({{0, 1}, {0, 1, 2}})->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillet
