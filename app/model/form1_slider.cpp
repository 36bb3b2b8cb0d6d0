// The percentage slider: position k puts the classes of the preflop order's entries 0..k into the On layer.
#include <algorithm>

#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "cards/preflop_order.h"
#include "range/range_text.h"

namespace quillet {
namespace {

int SliderEntry(const SliderState& slider) {
  const int last = static_cast<int>(PreflopOrder().size()) - 1;
  return std::clamp(slider.value, 0, last);
}

}  // namespace

void Form1Model::Slider1_MouseMove(int button, int /*shift*/) {
  if (button != kLeftButton) return;  // only while dragging
  SetRangeText(PercentText(PreflopOrder()[SliderEntry(Slider1)].percent));
  ApplySliderRange();
}

void Form1Model::Slider1_KeyDown(int /*keyCode*/, int /*shift*/) {
  tmrSliderMoving.Enable();
}

void Form1Model::Slider1_KeyUp(int /*keyCode*/, int /*shift*/) {
  tmrSliderMoving.Disable();
}

void Form1Model::tmrSliderMoving_Timer() {
  Slider1_MouseMove(kLeftButton, 0);
}

void Form1Model::ApplySliderRange() {
  const int k = SliderEntry(Slider1);
  PlayerProfile* profile = currentProfile();
  if (profile == nullptr) return;
  grid.selectedSeen.fill(false);
  grid.selectedOn.fill(false);
  for (BlockRecord& record : profile->rangeLayer) ClearBlockRecord(record);
  const auto& order = PreflopOrder();
  const auto& classes = HandClasses();
  for (int j = 0; j <= k; ++j) {
    for (const std::string& name : SplitClassList(order[j].classes)) {
      for (int i = 0; i < kClassCount; ++i) {
        if (classes[i].name != name) continue;
        SetBlockWhole(profile->rangeLayer[i], name.size() == 3);
        grid.selectedOn[i] = true;
      }
    }
  }
  SetBlockColours();
  RefreshSuitMatrix(true);
}

}  // namespace quillet
