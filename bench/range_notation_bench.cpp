// bench-libs: quillet_range
// Reading range notation as it is typed or pasted: a usual range, the longest text read, made of
// percentage tokens (each walks the preflop order on from where the one before it stopped), and one long
// bad token.
#include <benchmark/benchmark.h>

#include <string>

#include "range/range_notation.h"

namespace quillet {
namespace {

std::string LongestTextOf(const std::string& token) {
  std::string text;
  while (text.size() + token.size() <= kLongestRangeNotation) text += token;
  return text;
}

void BM_ParseUsualRange(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(ParseRangeNotation("22+, A2s+, KTs+, QJs, ATo+, KQo"));
}
BENCHMARK(BM_ParseUsualRange);

void BM_ParseLongestTextOfPercentages(benchmark::State& state) {
  const std::string text = LongestTextOf("99%,");
  for (auto _ : state) benchmark::DoNotOptimize(ParseRangeNotation(text));
}
BENCHMARK(BM_ParseLongestTextOfPercentages)->Unit(benchmark::kMillisecond);

void BM_ParseLongestBadToken(benchmark::State& state) {
  const std::string text(kLongestRangeNotation, 'Q');
  for (auto _ : state) benchmark::DoNotOptimize(ParseRangeNotation(text));
}
BENCHMARK(BM_ParseLongestBadToken)->Unit(benchmark::kMillisecond);

void BM_ParseUsualWeightedRange(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(ParseWeightedRangeNotation("22+, A2s+:0.5, KTs+, QJs:0.25, [75]ATo+, KQo[/75]"));
  }
}
BENCHMARK(BM_ParseUsualWeightedRange);

// Percentages of two weights in turn: each walks the preflop order from its start again, since the one
// before gave its holdings another weight.
void BM_ParseLongestTextOfPercentagesOfTwoWeights(benchmark::State& state) {
  const std::string text = LongestTextOf("99%:0.5,99%,");
  for (auto _ : state) benchmark::DoNotOptimize(ParseWeightedRangeNotation(text));
}
BENCHMARK(BM_ParseLongestTextOfPercentagesOfTwoWeights)->Unit(benchmark::kMillisecond);

void BM_PrintWeightedRange(benchmark::State& state) {
  const WeightedHoldingSet weights =
      ParseWeightedRangeNotation("22+, A2s+:0.5, KTs+, QJs:0.25, [75]ATo+, KQo[/75], AhKh:0.125").weights;
  for (auto _ : state) benchmark::DoNotOptimize(PrintWeightedRangeNotation(weights));
}
BENCHMARK(BM_PrintWeightedRange);

void BM_RefuseAMegabyte(benchmark::State& state) {
  const std::string text(1 << 20, 'Q');
  for (auto _ : state) benchmark::DoNotOptimize(ParseRangeNotation(text));
}
BENCHMARK(BM_RefuseAMegabyte);

}  // namespace
}  // namespace quillet
