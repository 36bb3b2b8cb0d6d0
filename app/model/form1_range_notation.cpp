// The range notation box: the On layer written as players write ranges, and notation typed or pasted back
// into the On layer; the grid's Ctrl+C and Ctrl+V.
#include "app/model/form1_model.h"
#include "range/holding_set.h"
#include "range/range_notation.h"

namespace quillet {
namespace {

// Whether the text writes a weight anywhere: a token's ":" or a block's "[".
bool WritesWeights(const std::string& text) {
  return text.find_first_of(":[") != std::string::npos;
}

}  // namespace

void Form1Model::txtNotation_Change() {
  grid_.txtNotation.foreColour = kRejectedTextColour;
}

void Form1Model::txtNotation_KeyDown(int keyCode) {
  const RangeStep rangeStep(*this);
  if (keyCode == kKeyEnter) ApplyRangeNotation();
}

void Form1Model::PFHand_KeyDown(int keyCode, int shift) {
  if (shift != kCtrlMask) return;
  const RangeStep rangeStep(*this);
  if (keyCode == kKeyC) {
    services.SetClipboardText(grid_.OnLayerNotation());
  } else if (keyCode == kKeyV) {
    grid_.txtNotation.text = services.GetClipboardText();
    txtNotation_Change();
    ApplyRangeNotation(true);
  }
}

bool Form1Model::ApplyRangeNotation(bool paintUnweighted) {
  const RangeStep rangeStep(*this);
  ParsedWeightedRange parsed = ParseWeightedRangeNotation(grid_.txtNotation.text);
  if (!parsed.ok()) {
    grid_.txtNotation.foreColour = kRejectedTextColour;
    // Enter again on the same text does not raise the same box again.
    if (grid_.notationErrorShownFor != grid_.txtNotation.text) {
      grid_.notationErrorShownFor = grid_.txtNotation.text;
      services.MsgBox(parsed.error->message);
    }
    return false;
  }
  PlayerProfile* profile = profiles_.currentProfile();
  if (profile == nullptr) {
    // No profile, no grid to put the range on: the text stays unaccepted.
    grid_.txtNotation.foreColour = kRejectedTextColour;
    return false;
  }
  if (paintUnweighted && grid_.txtWeight < kFullWeight && !WritesWeights(grid_.txtNotation.text)) {
    const HoldingSet holdings = parsed.weights.Holdings();
    for (int number = 0; number < kHoldingCount; ++number) {
      if (holdings.contains(number)) parsed.weights.SetWeight(number, grid_.txtWeight);
    }
  }
  SetOnLayerWeights(*profile, parsed.weights);
  // The range shows in the layer colours, whole or in part, rather than as a selection.
  grid_.DeselectAllBlocks();
  SetBlockColours();  // ends by writing the box again, in its printed form
  grid_.RefreshSuitMatrix(true);
  grid_.WriteRangePercent();
  return true;
}

}  // namespace quillet
