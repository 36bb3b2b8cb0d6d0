// The range notation box: the On layer written as players write ranges, and notation typed or pasted back
// into the On layer; the grid's Ctrl+C and Ctrl+V.
#include "app/model/form1_model.h"
#include "range/holding_set.h"
#include "range/range_notation.h"

namespace quillet {
namespace {

// The On layer in notation: with its weights when some holding of it has one below 1, else exactly as a
// range without weights is written.
std::string OnLayerNotation(const PlayerProfile& profile) {
  const HoldingSet holdings = HoldingsOfLayer(profile.rangeLayer);
  // A range without weights (the usual case) costs one pass over the weights.
  if (!AnyWeightKept(profile.onWeights)) return PrintRangeNotation(holdings);
  bool weighted = false;
  for (int number = 0; number < kHoldingCount && !weighted; ++number) {
    weighted = profile.onWeights[number] != 0 && holdings.contains(number);
  }
  if (!weighted) return PrintRangeNotation(holdings);
  WeightedHoldingSet weights;
  for (int number = 0; number < kHoldingCount; ++number) {
    if (holdings.contains(number)) weights.SetWeight(number, OnHoldingWeight(profile.onWeights, number));
  }
  return PrintWeightedRangeNotation(weights);
}

// Whether the text writes a weight anywhere: a token's ":" or a block's "[".
bool WritesWeights(const std::string& text) {
  return text.find_first_of(":[") != std::string::npos;
}

}  // namespace

void Form1Model::txtNotation_Change() {
  txtNotation.foreColour = kRejectedTextColour;
}

void Form1Model::txtNotation_KeyDown(int keyCode) {
  const RangeStep rangeStep(*this);
  if (keyCode == kKeyEnter) ApplyRangeNotation();
}

void Form1Model::PFHand_KeyDown(int keyCode, int shift) {
  if (shift != kCtrlMask) return;
  const RangeStep rangeStep(*this);
  if (keyCode == kKeyC) {
    const PlayerProfile* profile = currentProfile();
    services.SetClipboardText(profile ? OnLayerNotation(*profile) : "");
  } else if (keyCode == kKeyV) {
    txtNotation.text = services.GetClipboardText();
    txtNotation_Change();
    ApplyRangeNotation(true);
  }
}

void Form1Model::WriteRangeNotation() {
  const PlayerProfile* profile = currentProfile();
  txtNotation.text = profile ? OnLayerNotation(*profile) : "";
  txtNotation.foreColour = kWindowTextColour;
  notationErrorShownFor.clear();
}

bool Form1Model::ApplyRangeNotation(bool paintUnweighted) {
  const RangeStep rangeStep(*this);
  ParsedWeightedRange parsed = ParseWeightedRangeNotation(txtNotation.text);
  if (!parsed.ok()) {
    txtNotation.foreColour = kRejectedTextColour;
    // Enter again on the same text does not raise the same box again.
    if (notationErrorShownFor != txtNotation.text) {
      notationErrorShownFor = txtNotation.text;
      services.MsgBox(parsed.error->message);
    }
    return false;
  }
  PlayerProfile* profile = currentProfile();
  if (profile == nullptr) {
    // No profile, no grid to put the range on: the text stays unaccepted.
    txtNotation.foreColour = kRejectedTextColour;
    return false;
  }
  if (paintUnweighted && txtWeight < kFullWeight && !WritesWeights(txtNotation.text)) {
    const HoldingSet holdings = parsed.weights.Holdings();
    for (int number = 0; number < kHoldingCount; ++number) {
      if (holdings.contains(number)) parsed.weights.SetWeight(number, txtWeight);
    }
  }
  SetOnLayerWeights(*profile, parsed.weights);
  // The range shows in the layer colours, whole or in part, rather than as a selection.
  DeselectAllBlocks();
  SetBlockColours();  // ends by writing the box again, in its printed form
  RefreshSuitMatrix(true);
  WriteRangePercent();
  return true;
}

}  // namespace quillet
