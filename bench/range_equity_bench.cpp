// bench-libs: quillet_equity quillet_range
//
// Range against range under the standard rules, exact, one thread. The figure to watch is the median:
//   build/release/bench/range_equity_bench --benchmark_repetitions=5 --benchmark_report_aggregates_only=true
#include <benchmark/benchmark.h>

#include <string>

#include "equity/range_equity.h"
#include "range/range_notation.h"

namespace quillet {
namespace {

constexpr const char* kWide = "22+,A2s+,K9s+,QTs+,JTs,ATo+,KJo+";  // about 23 % of the holdings
constexpr const char* kTight = "22+,A7s+,KTs+,QJs,AJo+,KQo";       // about 10 %

HoldingSet Range(const char* text) {
  return ParseRangeNotation(text).holdings;
}

BoardCards TenEightThreeRainbow(int32_t street) {
  BoardCards board;
  board[0] = {10, 0};                       // Tc
  board[1] = {8, 2};                        // 8h
  board[2] = {3, 3};                        // 3s
  if (street >= kTurn) board[3] = {2, 1};   // 2d
  if (street >= kRiver) board[4] = {7, 0};  // 7c
  return board;
}

void RunRangeEquity(benchmark::State& state, const char* mine, const char* theirs, int32_t street) {
  const HoldingSet myRange = Range(mine);
  const HoldingSet oppRange = Range(theirs);
  const BoardCards board = TenEightThreeRainbow(street);
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
void BM_WideVsTightPreflop(benchmark::State& state) {
  RunRangeEquity(state, kWide, kTight, kNoBoard);
}
void BM_WideVsTightFlop(benchmark::State& state) {
  RunRangeEquity(state, kWide, kTight, kFlop);
}
void BM_QueensPlusAceKingVsRandomPreflop(benchmark::State& state) {
  RunRangeEquity(state, "QQ+,AKs,AKo", "random", kNoBoard);
}

BENCHMARK(BM_RandomVsRandomPreflop)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RandomVsRandomFlop)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RandomVsRandomTurn)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RandomVsRandomRiver)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_WideVsTightPreflop)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WideVsTightFlop)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_QueensPlusAceKingVsRandomPreflop)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillet
