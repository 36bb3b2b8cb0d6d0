// bench-libs: quillet_results
// Building the results tree and the export text after a full-range cook (all 169 classes whole, My Hand
// AhAd) on a flop, a turn and a river, plain and simplified, with and without the win/tie/lose icons; and
// one call of the street showdown comparator behind the icons.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "cards/card_input.h"
#include "cards/hand_class.h"
#include "cards/showdown_key.h"
#include "categorise/categories.h"
#include "categorise/cook.h"
#include "range/player_profile.h"
#include "results/build_results_tree.h"

namespace quillet {
namespace {

const char* const kBoards[] = {"Tc8h3s", "Tc8h3s9h", "Tc8h3s9h2d"};

struct CookedRange {
  Categories categories;
  ResultsCards cards;
};

CookedRange CookFullRange(const char* boardText) {
  CookedRange c;
  c.cards.myHandText = "AhAd";
  c.cards.boardText = boardText;
  HandCards hand{};
  ReadCardInputs(c.cards.myHandText, c.cards.boardText, nullptr, hand, c.cards.board, c.cards.street);
  c.cards.hand = hand;
  RangeLayer on = MakeEmptyLayer();
  for (int k = 0; k < kClassCount; ++k) SetBlockWhole(on[k], HandClasses()[k].kind == kKindSuited);
  std::vector<HandCombo> list = CollectRangeCombos(on, MakeEmptyLayer());
  RemoveDeadCombos(list, c.cards.hand, c.cards.board, c.cards.OnStreet());
  InitCategories(c.categories);
  ClassifyRange(c.categories, list, c.cards.board, c.cards.OnStreet());
  return c;
}

// Arguments: board (0 flop, 1 turn, 2 river), Simplify Output, Win Lose Icons.
void BM_BuildResultsTree(benchmark::State& state) {
  const CookedRange cooked = CookFullRange(kBoards[state.range(0)]);
  ResultsOptions options;
  options.simplifyOutput = state.range(1) != 0;
  options.winLoseIcons = state.range(2) != 0;
  for (auto _ : state) {
    ResultsBuild build = BuildResultsTree(cooked.categories, options, cooked.cards, nullptr);
    benchmark::DoNotOptimize(build.exportText.data());
    benchmark::DoNotOptimize(build.tree.nodes.data());
  }
}
BENCHMARK(BM_BuildResultsTree)
    ->ArgsProduct({{0, 1, 2}, {0, 1}, {0, 1}})
    ->ArgNames({"street", "simplify", "icons"})
    ->Unit(benchmark::kMillisecond);

void BM_PartialBoardShowdown(benchmark::State& state) {
  const CookedRange cooked = CookFullRange(kBoards[state.range(0)]);
  const HandCombo opponent{true, 13, 0, 12, 0};  // KcQc
  for (auto _ : state) {
    benchmark::DoNotOptimize(ComparePartialBoardShowdown(cooked.cards.hand, opponent, cooked.cards.board,
                                                         cooked.cards.OnStreet()));
  }
}
BENCHMARK(BM_PartialBoardShowdown)->DenseRange(0, 2)->ArgName("street");

}  // namespace
}  // namespace quillet
