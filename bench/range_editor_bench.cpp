// bench-libs: quillet_model
// The range editor's work per user action: a slider step to the end of the order (every class into the On
// layer, recolouring, the suit matrix), the recolouring of the grid alone (whole and weighted), the "~"
// percentage over two full layers, and a typed percentage snapped and applied.
#include <benchmark/benchmark.h>

#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "range/player_profile.h"
#include "range/range_text.h"
#include "tests/support/recording_services.h"

namespace quillet {
namespace {

struct Editor {
  RecordingServices services;
  Form1Model form{services};
  Editor() {
    form.profiles().list.resize(1);
    InitProfile(form.profiles().list[0]);
    form.profiles().list[0].name = "Generic";
    form.profiles().currentIndex = 0;
  }
};

void BM_SliderStepToTheLastPosition(benchmark::State& state) {
  Editor editor;
  editor.form.grid().Slider1.value = 146;
  for (auto _ : state) {
    editor.form.Slider1_MouseMove(kLeftButton);
    benchmark::DoNotOptimize(editor.form.profiles().list[0].rangeLayer[168].count);
  }
}
BENCHMARK(BM_SliderStepToTheLastPosition);

void BM_SetBlockColoursFullGrid(benchmark::State& state) {
  Editor editor;
  editor.form.cmdAll_Click();
  editor.form.grid().DeselectAllBlocks();
  for (auto _ : state) {
    editor.form.SetBlockColours();
    benchmark::DoNotOptimize(editor.form.grid().blockColour[168]);
  }
}
BENCHMARK(BM_SetBlockColoursFullGrid);

// The same with every block weighted, half of them at 50 % and the rest at 25 % (the mean weight of each
// block and the weighted notation are worked out with the colours).
void BM_SetBlockColoursFullGridWeighted(benchmark::State& state) {
  Editor editor;
  editor.form.txtWeight_Change(500);
  editor.form.cmdAll_Click();
  editor.form.txtWeight_Change(250);
  editor.form.cmdAnySuited_Click();
  editor.form.grid().DeselectAllBlocks();
  for (auto _ : state) {
    editor.form.SetBlockColours();
    benchmark::DoNotOptimize(editor.form.grid().blockColour[168]);
  }
}
BENCHMARK(BM_SetBlockColoursFullGridWeighted);

void BM_UnionCountOfTwoFullLayers(benchmark::State& state) {
  RangeLayer on = MakeEmptyLayer();
  RangeLayer seen = MakeEmptyLayer();
  for (int c = 0; c < kClassCount; ++c) {
    SetBlockWhole(on[c], HandClasses()[c].kind == kKindSuited);
    SetBlockWhole(seen[c], HandClasses()[c].kind == kKindSuited);
  }
  for (auto _ : state) {
    benchmark::DoNotOptimize(on);
    benchmark::DoNotOptimize(UnionHoldingCount(on, seen));
  }
}
BENCHMARK(BM_UnionCountOfTwoFullLayers);

void BM_TypedPercentSnappedAndApplied(benchmark::State& state) {
  Editor editor;
  for (auto _ : state) {
    editor.form.grid().SetRangeText("50");
    editor.form.txtRange_KeyUp(kKeyEnter);
    benchmark::DoNotOptimize(editor.form.grid().Slider1.value);
  }
}
BENCHMARK(BM_TypedPercentSnappedAndApplied);

}  // namespace
}  // namespace quillet
