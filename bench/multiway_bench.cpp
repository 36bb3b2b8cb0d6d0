// bench-libs: quillet_equity quillet_range
//
// Multiway equity, the cases of the multiway issue. Exact cases on one thread unless named otherwise:
//   build/release/bench/multiway_bench --benchmark_filter=<case>
// The heavier exact cases take minutes with the present walk; run them one at a time.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "bench/mixed_weights.h"
#include "equity/multiway_equity.h"
#include "range/range_notation.h"

namespace quillet {
namespace {

std::vector<WeightedHoldingSet> BenchPlayers(const std::vector<std::string>& texts) {
  std::vector<WeightedHoldingSet> players;
  for (const std::string& text : texts) players.push_back(ParseWeightedRangeNotation(text).weights);
  return players;
}

std::vector<Card> BenchCards(const std::string& text) {
  std::vector<Card> cards;
  for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
    const int32_t rank = static_cast<int32_t>(kRankText.find(text[i])) + 1;
    const int32_t suit = static_cast<int32_t>(kSuitText.find(text[i + 1]));
    cards.push_back({rank, suit});
  }
  return cards;
}

void RunRanges(benchmark::State& state, const std::vector<WeightedHoldingSet>& ranges,
               const std::string& board, MultiwayMethod method, int threads, double error = 0.1) {
  const auto cards = BenchCards(board);
  MultiwayOptions options;
  options.method = method;
  options.threads = threads;
  options.targetError = error;
  options.seconds = 0;
  MultiwayResult result;
  for (auto _ : state) {
    result = MultiwayEquity(ranges, cards, {}, options);
    benchmark::DoNotOptimize(result);
  }
  state.counters["deals"] = static_cast<double>(result.deals);
  state.counters["p1_equity"] = result.players.empty() ? 0 : result.players[0].equity;
  state.counters["std_error"] = result.standardError;
}

void RunCase(benchmark::State& state, const std::vector<std::string>& players, const std::string& board,
             MultiwayMethod method, int threads, double error = 0.1) {
  RunRanges(state, BenchPlayers(players), board, method, threads, error);
}

// Six hands preflop, exact (1.7 million boards).
void BM_SixHandsPreflopExact(benchmark::State& state) {
  RunCase(state, {"AhAd", "KsKc", "QsQc", "JhTh", "9s9c", "8d7d"}, "", MultiwayMethod::Exact, 1);
}
BENCHMARK(BM_SixHandsPreflopExact)->Unit(benchmark::kMillisecond)->UseRealTime();

// TT+,AQs+,AQo+ v QQ+,AKs,AKo v TT preflop, exact; target 0.1 s.
void BM_RangesPreflopExact(benchmark::State& state) {
  RunCase(state, {"TT+,AQs+,AQo+", "QQ+,AKs,AKo", "TT"}, "", MultiwayMethod::Exact, 1);
}
BENCHMARK(BM_RangesPreflopExact)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

// AhAd v random v random on Tc8h3s, exact; target 0.1 s.
void BM_AcesTwoRandomFlopExact(benchmark::State& state) {
  RunCase(state, {"AhAd", "random", "random"}, "Tc8h3s", MultiwayMethod::Exact, 1);
}
BENCHMARK(BM_AcesTwoRandomFlopExact)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

// random v random v random on Tc8h3s2d, exact; target 2 s.
void BM_ThreeRandomTurnExact(benchmark::State& state) {
  RunCase(state, {"random", "random", "random"}, "Tc8h3s2d", MultiwayMethod::Exact, 1);
}
BENCHMARK(BM_ThreeRandomTurnExact)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

// AhAd v random v random preflop, exact, two threads; target 10 s.
void BM_AcesTwoRandomPreflopExactTwoThreads(benchmark::State& state) {
  RunCase(state, {"AhAd", "random", "random"}, "", MultiwayMethod::Exact, 2);
}
BENCHMARK(BM_AcesTwoRandomPreflopExactTwoThreads)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->UseRealTime();

// Six random players preflop, Monte Carlo to 0.01 points standard error; target 0.3 s.
void BM_SixRandomMonteCarlo(benchmark::State& state) {
  RunCase(state, {"random", "random", "random", "random", "random", "random"}, "", MultiwayMethod::MonteCarlo,
          1, 0.01);
}
BENCHMARK(BM_SixRandomMonteCarlo)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

// AhAd v random v random preflop, Monte Carlo to 0.01 points: two players of one range beside a third.
void BM_AcesTwoRandomPreflopMonteCarlo(benchmark::State& state) {
  RunCase(state, {"AhAd", "random", "random"}, "", MultiwayMethod::MonteCarlo, 1, 0.01);
}
BENCHMARK(BM_AcesTwoRandomPreflopMonteCarlo)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

// Six different ranges preflop, Monte Carlo to 0.02 points: no two players of one range.
void BM_SixRangesMonteCarlo(benchmark::State& state) {
  RunCase(state,
          {"random", "22+,A2s+,K9s+,ATo+,KJo+", "QQ+,AK", "JJ-22,AJs-A2s,KQs", "random:0.5,AA",
           "T9s,98s,87s,76s,AK"},
          "", MultiwayMethod::MonteCarlo, 1, 0.02);
}
BENCHMARK(BM_SixRangesMonteCarlo)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

// The weighted cases: each "random" above at mixed weights (bench/mixed_weights.h), to set beside the whole
// ones; a weighted full range must cost at most 1.5 times a whole one.
void BM_WeightedAcesTwoRandomFlopExact(benchmark::State& state) {
  RunRanges(state, {BenchPlayers({"AhAd"})[0], bench::MixedWeights(1), bench::MixedWeights(2)}, "Tc8h3s",
            MultiwayMethod::Exact, 1);
}
BENCHMARK(BM_WeightedAcesTwoRandomFlopExact)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

void BM_WeightedThreeRandomTurnExact(benchmark::State& state) {
  RunRanges(state, {bench::MixedWeights(1), bench::MixedWeights(2), bench::MixedWeights(3)}, "Tc8h3s2d",
            MultiwayMethod::Exact, 1);
}
BENCHMARK(BM_WeightedThreeRandomTurnExact)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

void BM_WeightedSixRandomMonteCarlo(benchmark::State& state) {
  std::vector<WeightedHoldingSet> players;
  for (int p = 1; p <= 6; ++p) players.push_back(bench::MixedWeights(p));
  RunRanges(state, players, "", MultiwayMethod::MonteCarlo, 1, 0.01);
}
BENCHMARK(BM_WeightedSixRandomMonteCarlo)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

}  // namespace
}  // namespace quillet
