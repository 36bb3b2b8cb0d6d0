// The range percentage box: typed percentages snap to a step of the preflop order; grid changes write the
// computed "~" percentage.
#include <optional>

#include "app/model/form1_model.h"
#include "range/range_text.h"
#include "range/top_of_order.h"

namespace quillet {

void Form1Model::txtRange_KeyUp(int keyCode) {
  const RangeStep rangeStep(*this);
  // Input stays red until Enter accepts it.
  const std::optional<PreflopStep> step =
      keyCode == kKeyEnter ? TopOfOrderStep(grid_.txtRange.text) : std::nullopt;
  if (!step) {
    grid_.txtRange.foreColour = kRejectedTextColour;
    return;
  }
  grid_.txtRange.foreColour = kWindowTextColour;
  grid_.Slider1.value = step->entry;
  grid_.SetRangeText(TopOfOrderText(step->entry));
  // At or above the last step the grid deliberately keeps what it had.
  if (step->apply) ApplySliderRange();
}

void Form1Model::txtRange_Change() {
  grid_.StoreRangeText();
}

void Form1Model::txtRange_Click() {
  grid_.txtRange.selStart = 0;
  grid_.txtRange.selLength = static_cast<int>(grid_.txtRange.text.size());
}

}  // namespace quillet
