// The range notation box: the On layer written as players write ranges, and notation typed or pasted back
// into the On layer; the grid's Ctrl+C and Ctrl+V.
#include "app/model/form1_model.h"
#include "range/holding_set.h"
#include "range/range_notation.h"

namespace quillet {

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
    services.SetClipboardText(profile ? PrintRangeNotation(HoldingsOfLayer(profile->rangeLayer)) : "");
  } else if (keyCode == kKeyV) {
    txtNotation.text = services.GetClipboardText();
    txtNotation_Change();
    ApplyRangeNotation();
  }
}

void Form1Model::WriteRangeNotation() {
  const PlayerProfile* profile = currentProfile();
  txtNotation.text = profile ? PrintRangeNotation(HoldingsOfLayer(profile->rangeLayer)) : "";
  txtNotation.foreColour = kWindowTextColour;
  notationErrorShownFor.clear();
}

bool Form1Model::ApplyRangeNotation() {
  const RangeStep rangeStep(*this);
  const ParsedRange parsed = ParseRangeNotation(txtNotation.text);
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
  PutHoldingsInLayer(parsed.holdings, profile->rangeLayer);
  // The range shows in the layer colours, whole or in part, rather than as a selection.
  DeselectAllBlocks();
  SetBlockColours();  // ends by writing the box again, in its printed form
  RefreshSuitMatrix(true);
  WriteRangePercent();
  return true;
}

}  // namespace quillet
