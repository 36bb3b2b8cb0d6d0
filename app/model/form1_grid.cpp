// The hand grid: selection, block colours, mouse handling, the suit matrix and the colour-scheme switch.
#include <algorithm>

#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "cards/holding.h"
#include "range/grid_colours.h"
#include "range/holding_set.h"

namespace quillet {
void Form1Model::txtWeight_Change(int32_t thousandths) {
  grid_.txtWeight = std::clamp(thousandths, 1, kFullWeight);
}

void Form1Model::SetBlockColours() {
  const bool metMixed = grid_.PaintBlockColours();
  // A typed or stepped percentage stands until part of a block (or a block in both layers) shows.
  if (metMixed && !grid_.txtRange.text.starts_with("~")) grid_.WriteRangePercent();
  if (options.autoPFEquityCalc && txtBoard.text.empty()) {
    // Restarting the delay turns a burst of range changes into one calculation.
    tmrCalcEquity.Disable();
    tmrCalcEquity.Enable();
    // The heat map of the old range would colour blocks it no longer has: it comes back with the result.
    results_.heatMap.reset();
  } else {
    results_.ClearEquityDisplay();
  }
  grid_.RefreshShownWeights();
  grid_.WriteRangeNotation();
}

void Form1Model::PFHand_MouseUp(int index, int button, int shift) {
  const RangeStep rangeStep(*this);
  PlayerProfile* profile = profiles_.currentProfile();
  if (profile == nullptr || !IsBlockIndex(index)) return;
  const bool wasOn = grid_.selectedOn[index];
  const bool wasSeen = grid_.selectedSeen[index];

  // Only Shift with the button of the layer being edited adds to the selection; anything else starts anew.
  const bool keep = shift == kShiftMask && ((button == kLeftButton && grid_.editingOn) ||
                                            (button == kRightButton && !grid_.editingOn));
  if (!keep) grid_.DeselectAllBlocks();

  const bool justToSee = shift == (kCtrlMask | kAltMask);
  if (button == kLeftButton) {
    if (shift == kCtrlMask || shift == kAltMask) {
      if (shift == kCtrlMask ? grid_.SelectCross(index) : grid_.SelectUpward(index)) {
        SetBlockColours();
        grid_.RefreshSuitMatrix(true);
        grid_.WriteRangePercent();
      }
      return;
    }
    if (justToSee) {
      grid_.DeselectAllBlocks();
      grid_.selectedOn[index] = true;
    } else {
      grid_.selectedOn[index] = !wasOn;
      if (grid_.selectedOn[index]) {
        SetBlockWhole(profile->rangeLayer[index], KindOfBlock(index) == kKindSuited);
        grid_.PaintBlockWeight(*profile, index);
      } else {
        ClearBlockRecord(profile->rangeLayer[index]);
      }
    }
    grid_.editingOn = true;
    grid_.lblSeenVisible = false;
    grid_.matrixColour = kClickMatrixOnColour;
  } else if (button == kRightButton) {
    if (justToSee) {
      grid_.DeselectAllBlocks();
      grid_.selectedSeen[index] = true;
    } else {
      grid_.selectedSeen[index] = !wasSeen;
      if (grid_.selectedSeen[index]) {
        SetBlockWhole(profile->seenLayer[index], KindOfBlock(index) == kKindSuited);
      } else {
        ClearBlockRecord(profile->seenLayer[index]);
      }
    }
    grid_.editingOn = false;
    grid_.lblSeenVisible = true;
    grid_.matrixColour = kClickMatrixSeenColour;
  }

  SetBlockColours();
  grid_.RefreshSuitMatrix(true);

  if (justToSee && (button == kLeftButton || button == kRightButton)) {
    // Show which holdings of the clicked block the edited layer has, without changing anything.
    BlockRecord& record = grid_.editingOn ? profile->rangeLayer[index] : profile->seenLayer[index];
    const auto& cells = SuitMatrixCells();
    for (int k = 0; k < kSuitMatrixCells; ++k) {
      grid_.comboShown[k] = SetBlockSuitPair(record, cells[k].suit1, cells[k].suit2, true, true);
      grid_.matrixCellColour[k] = grid_.comboShown[k] ? grid_.matrixColour : kMatrixCellOutColour;
    }
  }

  grid_.WriteRangePercent();
  services.SetFocus(ControlId::txtBoard);
}

void Form1Model::mnuSwitchColourScheme_Click() {
  if (colourSchemeDefault) {
    scheme = kNewColourScheme;
    mnuSwitchColourSchemeCaption = "Switch to Default Colour Scheme";
  } else {
    scheme = kDefaultColourScheme;
    mnuSwitchColourSchemeCaption = "Switch to New Colour Scheme";
  }
  colourSchemeDefault = !colourSchemeDefault;
  grid_.InitHandGrid();
  grid_.DeselectAllBlocks();
  SetBlockColours();
}

}  // namespace quillet
