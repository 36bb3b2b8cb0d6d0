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

void BM_RefuseAMegabyte(benchmark::State& state) {
  const std::string text(1 << 20, 'Q');
  for (auto _ : state) benchmark::DoNotOptimize(ParseRangeNotation(text));
}
BENCHMARK(BM_RefuseAMegabyte);

}  // namespace
}  // namespace quillet
