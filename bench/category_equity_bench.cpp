// bench-libs: quillet_model
// The cook of the full range with My Hand AhKd on the flop Tc8h3s, with and without "Equity per Category":
// the core's cook and tree build (the one enumeration by holding is the difference), under the program's
// rules and the standard ones (the range plain, and at mixed weights: Weighted), and the window's whole
// command.
#include <benchmark/benchmark.h>

#include <string>

#include "app/model/form1_model.h"
#include "bench/bench_support.h"
#include "bench/mixed_weights.h"
#include "cards/card_input.h"
#include "cards/hand_class.h"
#include "categorise/cook.h"
#include "range/player_profile.h"
#include "results/build_results_tree.h"

namespace quillet {
namespace {

using bench::FillWholeGrid;

// Argument 0: the option off (0) or on (1); argument 1: the program's rules (0) or the standard ones (1).
void CookAndTree(benchmark::State& state, bool weighted) {
  RangeLayer on = MakeEmptyLayer();
  FillWholeGrid(on);
  const RangeLayer seen = MakeEmptyLayer();
  const CardInputs cards = CheckCardInputs("AhKd", "Tc8h3s", CardsFor::Cook);
  if (!cards.ok()) state.SkipWithError("bad cards");
  ResultsOptions options;
  options.categoryEquity = state.range(0) != 0;
  options.showdownRules = state.range(1) != 0 ? ShowdownRules::Standard : ShowdownRules::Quillet;
  ResultsCards resultsCards;
  resultsCards.myHandText = cards.myHandText;
  resultsCards.boardText = cards.boardText;
  resultsCards.hand = cards.hand;
  resultsCards.board = cards.board;
  resultsCards.street = cards.street;
  std::size_t exportSize = 0;
  for (auto _ : state) {
    std::vector<HandCombo> range = CollectRangeCombos(on, seen);
    if (weighted) bench::GiveMixedWeights(range);
    const CookResult cooked = Cook(cards, std::move(range));
    const ResultsBuild built = BuildResultsTree(cooked.categories, options, resultsCards, nullptr);
    exportSize = built.exportText.size();
    benchmark::DoNotOptimize(exportSize);
  }
  state.SetLabel(std::string(options.categoryEquity ? "equity per category" : "plain") + ", " +
                 std::string(ShowdownRulesName(options.showdownRules)) + " rules, " +
                 std::to_string(exportSize) + " bytes exported");
}
void BM_CookAndTree(benchmark::State& state) {
  CookAndTree(state, false);
}
BENCHMARK(BM_CookAndTree)->ArgsProduct({{0, 1}, {0, 1}})->Unit(benchmark::kMillisecond);

void BM_CookAndTreeWeighted(benchmark::State& state) {
  CookAndTree(state, true);
}
BENCHMARK(BM_CookAndTreeWeighted)->ArgsProduct({{0, 1}, {0, 1}})->Unit(benchmark::kMillisecond);

// The window's cook command with the option off (0) or on (1).
void BM_CookHandlerEquityPerCategory(benchmark::State& state) {
  bench::GenericWindow window;
  Form1Model& model = window.model;
  FillWholeGrid(window.profile().rangeLayer);
  model.options.equityPerCategory = state.range(0) != 0;
  for (auto _ : state) {
    model.txtMyHand.text = "AhKd";
    model.txtBoard.text = "Tc8h3s";
    model.cmdCheckPossibleHands_Click();
    benchmark::DoNotOptimize(model.results().exportText.data());
    benchmark::ClobberMemory();
  }
  if (!window.services.messages.empty()) state.SkipWithError("the cook refused its input");
  state.SetLabel(model.options.equityPerCategory ? "equity per category" : "plain");
}
BENCHMARK(BM_CookHandlerEquityPerCategory)->DenseRange(0, 1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillet
