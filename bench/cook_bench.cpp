// bench-libs: quillet_model
// The cook of the full range (all 169 classes whole) with My Hand AhAd on a flop, a turn and a river:
// the three steps on their own (collect, remove dead, classify) and the window's whole command (reading
// the card boxes and writing the caption included).
#include <benchmark/benchmark.h>

#include <string>

#include "app/model/form1_model.h"
#include "bench/bench_support.h"
#include "cards/card_input.h"
#include "cards/hand_class.h"
#include "cards/holding.h"
#include "categorise/categories.h"
#include "categorise/cook.h"
#include "range/player_profile.h"

namespace quillet {
namespace {

const char* const kBoards[] = {"Tc8h3s", "Tc8h3s9h", "Tc8h3s9h2d"};

using bench::FillWholeGrid;

void BM_CookFullRange(benchmark::State& state) {
  PlayerProfile profile;
  InitProfile(profile);
  FillWholeGrid(profile.rangeLayer);
  std::string handText = "AhAd";
  std::string boardText = kBoards[state.range(0)];
  HandCards hand{};
  BoardCards board{};
  Street street = kNoBoard;
  if (!ReadCardInputs(handText, boardText, nullptr, hand, board, street)) state.SkipWithError("bad board");
  Categories categories;
  InitCategories(categories);
  for (auto _ : state) {
    std::vector<HandCombo> range = CollectRangeCombos(profile.rangeLayer, profile.seenLayer);
    const int32_t live = RemoveDeadCombos(range, hand, board, street);
    ClassifyRange(categories, range, board, street);
    benchmark::DoNotOptimize(live);
    benchmark::DoNotOptimize(categories.categorisedCount);
    benchmark::ClobberMemory();
  }
  state.SetLabel(std::string(kBoards[state.range(0)]) + ", " + std::to_string(categories.categorisedCount) +
                 " holdings classified");
}
BENCHMARK(BM_CookFullRange)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);

// The same cook with every holding of the range at a weight below 1 (1 to 999 thousandths, spread over
// the holdings): the weights are summed beside the counts.
void BM_CookFullRangeWeighted(benchmark::State& state) {
  PlayerProfile profile;
  InitProfile(profile);
  FillWholeGrid(profile.rangeLayer);
  for (int h = 0; h < kHoldingCount; ++h) profile.onWeights[h] = static_cast<uint16_t>(1 + (h * 37) % 999);
  std::string handText = "AhAd";
  std::string boardText = kBoards[state.range(0)];
  HandCards hand{};
  BoardCards board{};
  Street street = kNoBoard;
  if (!ReadCardInputs(handText, boardText, nullptr, hand, board, street)) state.SkipWithError("bad board");
  Categories categories;
  InitCategories(categories);
  for (auto _ : state) {
    std::vector<HandCombo> range =
        CollectRangeCombos(profile.rangeLayer, profile.seenLayer, &profile.onWeights);
    const int32_t live = RemoveDeadCombos(range, hand, board, street);
    ClassifyRange(categories, range, board, street);
    benchmark::DoNotOptimize(live);
    benchmark::DoNotOptimize(categories.categorisedWeight);
    benchmark::ClobberMemory();
  }
  state.SetLabel(std::string(kBoards[state.range(0)]) + ", " + std::to_string(categories.categorisedCount) +
                 " holdings classified, weighted");
}
BENCHMARK(BM_CookFullRangeWeighted)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);

void BM_CookHandler(benchmark::State& state) {
  bench::GenericWindow window;
  Form1Model& model = window.model;
  FillWholeGrid(window.profile().rangeLayer);
  for (auto _ : state) {
    model.txtMyHand.text = "AhAd";
    model.txtBoard.text = kBoards[state.range(0)];
    model.cmdCheckPossibleHands_Click();
    benchmark::DoNotOptimize(model.results().lblCheckPossibleHands.data());
    benchmark::ClobberMemory();
  }
  if (!window.services.messages.empty()) state.SkipWithError("the cook refused its input");
  state.SetLabel(kBoards[state.range(0)]);
}
BENCHMARK(BM_CookHandler)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillet
