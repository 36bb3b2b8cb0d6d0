// bench-libs: quillet_model
// Calc Equity in the window with and without "Equity Heat Map": My Hand AhKd against the full range on the
// flop Tc8h3s and the turn Tc8h3s2d, under the program's rules and the standard ones, and preflop. With the
// heat map the showdowns are counted once more, holding by holding, and grouped by class. And the core's
// Calc Equity with the per-class count for a hand, the full range plain and at mixed weights.
#include <benchmark/benchmark.h>

#include <string>

#include "app/model/form1_model.h"
#include "bench/bench_support.h"
#include "bench/mixed_weights.h"
#include "categorise/cook.h"
#include "equity/calc_equity.h"

namespace quillet {
namespace {

using bench::FillWholeGrid;

const char* const kBoards[] = {"", "Tc8h3s", "Tc8h3s2d"};

// Argument 0: the heat map off (0) or on (1); argument 1: the street (0 preflop, 1 flop, 2 turn); argument
// 2: the program's rules (0) or the standard ones (1).
void BM_CalcEquityHeatMap(benchmark::State& state) {
  bench::GenericWindow window;
  Form1Model& model = window.model;
  FillWholeGrid(window.profile().rangeLayer);
  model.options.equityHeatMap = state.range(0) != 0;
  model.options.standardShowdownRules = state.range(2) != 0;
  model.txtMyHand.text = "AhKd";
  model.txtBoard.text = kBoards[state.range(1)];
  for (auto _ : state) {
    model.cmdCalcEquity_Click();
    benchmark::DoNotOptimize(model.results().myEquity);
    benchmark::ClobberMemory();
  }
  if (model.results().lblMyEquity.caption.empty()) state.SkipWithError("no equity shown");
  if (model.options.equityHeatMap && !model.results().heatMap) state.SkipWithError("no heat map");
  state.SetLabel(std::string(model.options.equityHeatMap ? "heat map" : "plain") + ", " +
                 (state.range(1) == 0   ? "preflop"
                  : state.range(1) == 1 ? "flop"
                                        : "turn") +
                 ", " + (model.options.standardShowdownRules ? "standard" : "quillet") + " rules");
}
BENCHMARK(BM_CalcEquityHeatMap)->ArgsProduct({{0, 1}, {0, 1, 2}, {0, 1}})->Unit(benchmark::kMillisecond);

// CalcEquity with the per-class count, AhKd against the full range. Argument 0: every weight whole (0) or
// mixed weights (1); argument 1: the street (0 preflop, 1 flop, 2 turn); argument 2: the program's rules
// (0) or the standard ones (1).
void BM_HandPerClassEquity(benchmark::State& state) {
  RangeLayer on = MakeEmptyLayer();
  FillWholeGrid(on);
  EquityRequest request;
  request.cards = CheckCardInputs("AhKd", kBoards[state.range(1)], CardsFor::Equity);
  request.range = CollectRangeCombos(on, MakeEmptyLayer());
  if (state.range(0) != 0) bench::GiveMixedWeights(request.range);
  request.rules = state.range(2) != 0 ? ShowdownRules::Standard : ShowdownRules::Quillet;
  request.perClass = true;
  for (auto _ : state) {
    const EquityOutcome outcome = CalcEquity(request);
    benchmark::DoNotOptimize(outcome.values);
  }
  if (!CalcEquity(request).classes) state.SkipWithError("no classes");
  state.SetLabel(std::string(state.range(0) != 0 ? "weighted" : "whole") + ", " +
                 (state.range(1) == 0   ? "preflop"
                  : state.range(1) == 1 ? "flop"
                                        : "turn") +
                 ", " + std::string(ShowdownRulesName(request.rules)) + " rules");
}
BENCHMARK(BM_HandPerClassEquity)->ArgsProduct({{0, 1}, {0, 1, 2}, {0, 1}})->Unit(benchmark::kMillisecond);

// My range against the full range under the standard rules, the heat map off (0) or on (1); argument 1 the
// street (1 flop, 2 turn); argument 2 my range: QQ+ and AK (0, 34 holdings) or a wide one (1, 22+, A2+,
// K9+, Q9+, J9+, T9, 98s).
void BM_CalcMyRangeEquityHeatMap(benchmark::State& state) {
  bench::GenericWindow window;
  Form1Model& model = window.model;
  FillWholeGrid(window.profile().rangeLayer);
  model.options.equityHeatMap = state.range(0) != 0;
  model.options.standardShowdownRules = true;
  model.txtMyHand.text = state.range(2) == 0 ? "QQ+,AK" : "22+,A2+,K9+,Q9+,J9+,T9,98s";
  model.txtBoard.text = kBoards[state.range(1)];
  for (auto _ : state) {
    model.cmdCalcEquity_Click();
    benchmark::DoNotOptimize(model.results().myEquity);
    benchmark::ClobberMemory();
  }
  if (model.results().lblMyEquity.caption.empty()) state.SkipWithError("no equity shown");
  if (model.options.equityHeatMap && !model.results().heatMap) state.SkipWithError("no heat map");
  state.SetLabel(std::string(model.options.equityHeatMap ? "heat map" : "plain") + ", my range " +
                 (state.range(2) == 0 ? "QQ+,AK" : "wide") + ", " + (state.range(1) == 1 ? "flop" : "turn"));
}
BENCHMARK(BM_CalcMyRangeEquityHeatMap)->ArgsProduct({{0, 1}, {1, 2}, {0, 1}})->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillet
