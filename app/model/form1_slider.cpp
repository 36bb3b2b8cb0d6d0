// The percentage slider: position k puts the classes of the preflop order's entries 0..k into the On layer.
#include "app/model/form1_model.h"
#include "cards/preflop_order.h"
#include "range/range_text.h"
#include "range/top_of_order.h"

namespace quillet {

void Form1Model::Slider1_MouseMove(int button) {
  if (button != kLeftButton) return;  // only while dragging
  const RangeStep rangeStep(*this, true);
  grid_.SetRangeText(PercentText(PreflopOrder()[grid_.SliderEntry()].percent));
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
  if (!grid_.SelectTopOfOrder()) return;
  SetBlockColours();
  grid_.RefreshSuitMatrix(true);
}

}  // namespace quillet
