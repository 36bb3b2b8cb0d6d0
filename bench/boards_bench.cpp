// bench-libs: quillet_reports quillet_equity quillet_categorise quillet_range quillet_cards
//
// The boards report (quillet-cli boards): every flop, every turn card, every river card, on two worker
// threads; the figure to watch is the real time (the report's own wall clock):
//   build/release/bench/boards_bench --benchmark_repetitions=3 --benchmark_report_aggregates_only=true
#include <benchmark/benchmark.h>

#include <string>

#include "cards/holding.h"
#include "range/range_notation.h"
#include "reports/boards_report.h"

namespace quillet {
namespace {

constexpr int kThreads = 2;

std::vector<HandCombo> BenchRange(const std::string& text) {
  const ParsedWeightedRange parsed = ParseWeightedRangeNotation(text);
  std::vector<HandCombo> combos;
  for (int32_t number = 0; number < kHoldingCount; ++number) {
    const int weight = parsed.weights.Weight(number);
    if (weight == 0) continue;
    const auto cards = CardsOfHolding(number);
    combos.push_back(HandCombo{true, cards[0].rank, cards[0].suit, cards[1].rank, cards[1].suit, weight});
  }
  return combos;
}

// Every holding, weighted by class from 0.4 to 1.
constexpr const char* kWeightedFullRange = "random:0.75, 22+:0.5, A2s+:0.4, KTo+:0.9, 76s:1";

HandCards BenchHand(int32_t rank1, int32_t suit1, int32_t rank2, int32_t suit2) {
  return HandCards{0, rank1, suit1, rank2, suit2};
}

// Tc8h3s, with 2d on the turn.
BoardCards BenchBoard(Street street) {
  BoardCards board;
  board[0] = {10, 0};
  board[1] = {8, 2};
  board[2] = {3, 3};
  board[3] = street >= kTurn ? Card{2, 1} : Card{10, kNoCard};
  board[4] = {10, kNoCard};
  return board;
}

void RunReport(benchmark::State& state, const BoardsReportRequest& request) {
  MakeBoardsReport(request);  // the evaluator's and the preflop class tables, once
  for (auto _ : state) {
    BoardsReport report = MakeBoardsReport(request);
    benchmark::DoNotOptimize(report);
  }
}

BoardsReportRequest HandRequest(const std::string& range, Street street, ShowdownRules rules) {
  BoardsReportRequest request;
  request.hand = BenchHand(14, 2, 13, 1);  // AhKd
  request.oppRange = BenchRange(range);
  request.board = BenchBoard(street);
  request.street = street;
  request.rules = rules;
  request.threads = kThreads;
  return request;
}

void BM_EveryFlopAhKdFullRangeStandard(benchmark::State& state) {
  RunReport(state, HandRequest("random", kNoBoard, ShowdownRules::Standard));
}
BENCHMARK(BM_EveryFlopAhKdFullRangeStandard)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_EveryFlopAhKdWeightedFullRangeStandard(benchmark::State& state) {
  RunReport(state, HandRequest(kWeightedFullRange, kNoBoard, ShowdownRules::Standard));
}
BENCHMARK(BM_EveryFlopAhKdWeightedFullRangeStandard)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_EveryFlopAhKdFullRangeQuillet(benchmark::State& state) {
  RunReport(state, HandRequest("random", kNoBoard, ShowdownRules::Quillet));
}
BENCHMARK(BM_EveryFlopAhKdFullRangeQuillet)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void BM_EveryFlopTwentyAgainstTenPercent(benchmark::State& state) {
  BoardsReportRequest request;
  request.myRange = BenchRange("20%");
  request.oppRange = BenchRange("10%");
  request.rules = ShowdownRules::Standard;
  request.threads = kThreads;
  RunReport(state, request);
}
BENCHMARK(BM_EveryFlopTwentyAgainstTenPercent)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void BM_EveryTurnCardAhKdFullRange(benchmark::State& state) {
  const auto rules = state.range(0) == 0 ? ShowdownRules::Standard : ShowdownRules::Quillet;
  RunReport(state, HandRequest("random", kFlop, rules));
}
BENCHMARK(BM_EveryTurnCardAhKdFullRange)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_EveryRiverCardAhKdFullRange(benchmark::State& state) {
  const auto rules = state.range(0) == 0 ? ShowdownRules::Standard : ShowdownRules::Quillet;
  RunReport(state, HandRequest("random", kTurn, rules));
}
BENCHMARK(BM_EveryRiverCardAhKdFullRange)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_EveryTurnCardRangeAgainstRange(benchmark::State& state) {
  BoardsReportRequest request;
  request.myRange = BenchRange("20%");
  request.oppRange = BenchRange("random");
  request.board = BenchBoard(kFlop);
  request.street = kFlop;
  request.rules = ShowdownRules::Standard;
  request.threads = kThreads;
  RunReport(state, request);
}
BENCHMARK(BM_EveryTurnCardRangeAgainstRange)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace quillet
