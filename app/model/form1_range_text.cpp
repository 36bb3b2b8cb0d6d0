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
  const std::optional<PreflopStep> step = keyCode == kKeyEnter ? TopOfOrderStep(txtRange.text) : std::nullopt;
  if (!step) {
    txtRange.foreColour = kRejectedTextColour;
    return;
  }
  txtRange.foreColour = kWindowTextColour;
  Slider1.value = step->entry;
  SetRangeText(TopOfOrderText(step->entry));
  // At or above the last step the grid deliberately keeps what it had.
  if (step->apply) ApplySliderRange();
}

void Form1Model::SetRangeText(const std::string& text) {
  txtRange.text = text;
  txtRange_Change();
}

void Form1Model::txtRange_Change() {
  if (PlayerProfile* profile = currentProfile()) profile->rangeText = txtRange.text;
}

void Form1Model::txtRange_Click() {
  txtRange.selStart = 0;
  txtRange.selLength = static_cast<int>(txtRange.text.size());
}

void Form1Model::WriteRangePercent() {
  const PlayerProfile* profile = currentProfile();
  if (profile == nullptr) return;
  SetRangeText(ComputedRangeText(UnionHoldingCount(profile->rangeLayer, profile->seenLayer)));
}

}  // namespace quillet
