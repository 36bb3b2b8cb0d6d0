// The percentage slider: position k puts the classes of the preflop order's entries 0..k into the On layer.
#include <algorithm>

#include "app/model/form1_model.h"
#include "cards/preflop_order.h"
#include "range/range_text.h"
#include "range/top_of_order.h"

namespace quillet {
namespace {

int SliderEntry(const SliderState& slider) {
  const int last = static_cast<int>(PreflopOrder().size()) - 1;
  return std::clamp(slider.value, 0, last);
}

}  // namespace

void Form1Model::Slider1_MouseMove(int button) {
  if (button != kLeftButton) return;  // only while dragging
  const RangeStep rangeStep(*this, true);
  SetRangeText(PercentText(PreflopOrder()[SliderEntry(Slider1)].percent));
  ApplySliderRange();
}

void Form1Model::Slider1_KeyDown() {
  tmrSliderMoving.Enable();
}

void Form1Model::Slider1_KeyUp() {
  tmrSliderMoving.Disable();
  rangeHistory.sliderStepOpen = false;  // the key's moves were one step
}

void Form1Model::tmrSliderMoving_Timer() {
  Slider1_MouseMove(kLeftButton);
}

void Form1Model::ApplySliderRange() {
  const RangeStep rangeStep(*this);
  PlayerProfile* profile = currentProfile();
  if (profile == nullptr) return;
  grid.selectedSeen.fill(false);
  grid.selectedOn.fill(false);
  for (const int c : ApplyTopOfOrder(profile->rangeLayer, SliderEntry(Slider1))) grid.selectedOn[c] = true;
  // The top of the order is whole: the weight box paints clicks, not the order's steps.
  profile->onWeights.fill(0);
  SetBlockColours();
  RefreshSuitMatrix(true);
}

}  // namespace quillet
