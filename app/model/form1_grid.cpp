// The hand grid: selection, block colours, mouse handling, the suit matrix and the colour-scheme switch.
#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "range/grid_colours.h"
#include "range/heat_colours.h"

namespace quillet {
namespace {

bool IsBlockIndex(int index) {
  return index >= 0 && index < kClassCount;
}

int32_t KindOf(int index) {
  return HandClasses()[index].kind;
}

// Puts block i into the On selection and its On record in whole, as a left click does.
void SelectIntoOnLayer(Form1Model& form, PlayerProfile& profile, int i) {
  form.grid.selectedOn[i] = true;
  SetBlockWhole(profile.rangeLayer[i], KindOf(i) == kKindSuited);
}

}  // namespace

void Form1Model::DeselectAllBlocks() {
  grid.editingOn = true;
  lblSeenVisible = false;
  grid.selectedOn.fill(false);
  grid.selectedSeen.fill(false);
  grid.pairPresent = false;
  grid.suitedPresent = false;
  grid.offsuitPresent = false;
}

void Form1Model::SetBlockColours() {
  static const BlockRecord kEmptyRecord{};
  const PlayerProfile* profile = currentProfile();
  bool metMixed = false;
  for (int i = 0; i < kClassCount; ++i) {
    const BlockRecord& on = profile ? profile->rangeLayer[i] : kEmptyRecord;
    const BlockRecord& seen = profile ? profile->seenLayer[i] : kEmptyRecord;
    const BlockColourRule rule = ChooseBlockColourRule(grid.selectedSeen[i], grid.selectedOn[i], on, seen);
    metMixed = metMixed || IsMixedRule(rule);
    grid.blockColour[i] = BlockRuleColour(rule, scheme, grid.baseColour[i]);
  }
  // A typed or stepped percentage stands until part of a block (or a block in both layers) shows.
  if (metMixed && !txtRange.text.starts_with("~")) WriteRangePercent();
  if (options.autoPFEquityCalc && txtBoard.text.empty()) {
    // Restarting the delay turns a burst of range changes into one calculation.
    tmrCalcEquity.Disable();
    tmrCalcEquity.Enable();
    // The heat map of the old range would colour blocks it no longer has: it comes back with the result.
    heatMap.reset();
  } else {
    ClearEquityDisplay();
  }
  WriteRangeNotation();
}

Colour Form1Model::ShownBlockColour(int index) const {
  if (!IsBlockIndex(index)) return 0;
  if (heatMap && (*heatMap)[index]) return HeatMapColour((*heatMap)[index]->equity);
  return grid.blockColour[index];
}

void Form1Model::PFHand_MouseUp(int index, int button, int shift) {
  const RangeStep rangeStep(*this);
  PlayerProfile* profile = currentProfile();
  if (profile == nullptr || !IsBlockIndex(index)) return;
  const bool wasOn = grid.selectedOn[index];
  const bool wasSeen = grid.selectedSeen[index];

  // Only Shift with the button of the layer being edited adds to the selection; anything else starts anew.
  const bool keep = shift == kShiftMask && ((button == kLeftButton && grid.editingOn) ||
                                            (button == kRightButton && !grid.editingOn));
  if (!keep) DeselectAllBlocks();

  const bool justToSee = shift == (kCtrlMask | kAltMask);
  if (button == kLeftButton) {
    if (shift == kCtrlMask) {
      SelectCross(index);
      return;
    }
    if (shift == kAltMask) {
      SelectUpward(index);
      return;
    }
    if (justToSee) {
      DeselectAllBlocks();
      grid.selectedOn[index] = true;
    } else {
      grid.selectedOn[index] = !wasOn;
      if (grid.selectedOn[index]) {
        SetBlockWhole(profile->rangeLayer[index], KindOf(index) == kKindSuited);
      } else {
        ClearBlockRecord(profile->rangeLayer[index]);
      }
    }
    grid.editingOn = true;
    lblSeenVisible = false;
    grid.matrixColour = kClickMatrixOnColour;
  } else if (button == kRightButton) {
    if (justToSee) {
      DeselectAllBlocks();
      grid.selectedSeen[index] = true;
    } else {
      grid.selectedSeen[index] = !wasSeen;
      if (grid.selectedSeen[index]) {
        SetBlockWhole(profile->seenLayer[index], KindOf(index) == kKindSuited);
      } else {
        ClearBlockRecord(profile->seenLayer[index]);
      }
    }
    grid.editingOn = false;
    lblSeenVisible = true;
    grid.matrixColour = kClickMatrixSeenColour;
  }

  SetBlockColours();
  RefreshSuitMatrix(true);

  if (justToSee && (button == kLeftButton || button == kRightButton)) {
    // Show which holdings of the clicked block the edited layer has, without changing anything.
    BlockRecord& record = grid.editingOn ? profile->rangeLayer[index] : profile->seenLayer[index];
    const auto& cells = SuitMatrixCells();
    for (int k = 0; k < kSuitMatrixCells; ++k) {
      grid.comboShown[k] = SetBlockSuitPair(record, cells[k].suit1, cells[k].suit2, true, true);
      grid.matrixCellColour[k] = grid.comboShown[k] ? grid.matrixColour : kMatrixCellOutColour;
    }
  }

  WriteRangePercent();
  services.SetFocus(ControlId::txtBoard);
}

void Form1Model::SelectCross(int index) {
  const RangeStep rangeStep(*this);
  PlayerProfile* profile = currentProfile();
  if (profile == nullptr || !IsBlockIndex(index)) return;
  DeselectAllBlocks();
  for (int i = index; i >= 0; i -= 13) SelectIntoOnLayer(*this, *profile, i);
  for (int i = index + 13; i < kClassCount; i += 13) SelectIntoOnLayer(*this, *profile, i);
  const int rowStart = index - index % 13;
  for (int i = rowStart; i < rowStart + 13; ++i) SelectIntoOnLayer(*this, *profile, i);
  SetBlockColours();
  RefreshSuitMatrix(true);
  WriteRangePercent();
}

void Form1Model::SelectUpward(int index) {
  const RangeStep rangeStep(*this);
  PlayerProfile* profile = currentProfile();
  if (profile == nullptr || !IsBlockIndex(index)) return;
  DeselectAllBlocks();
  switch (KindOf(index)) {
    case kKindSuited:  // the same high card with every higher kicker, as far as the diagonal
      for (int i = index; i >= 0 && KindOf(i) == kKindSuited; --i) SelectIntoOnLayer(*this, *profile, i);
      break;
    case kKindOffsuit:
      for (int i = index; i >= 0 && KindOf(i) == kKindOffsuit; i -= 13) SelectIntoOnLayer(*this, *profile, i);
      break;
    case kKindPair:  // every higher pair
      for (int i = index; i >= 0; i -= 14) SelectIntoOnLayer(*this, *profile, i);
      break;
    default:
      break;
  }
  SetBlockColours();
  RefreshSuitMatrix(true);
  WriteRangePercent();
}

void Form1Model::RefreshSuitMatrix(bool scan) {
  if (scan) {
    grid.pairPresent = grid.suitedPresent = grid.offsuitPresent = false;
    for (int i = 0; i < kClassCount; ++i) {
      if (!grid.selectedOn[i] && !grid.selectedSeen[i]) continue;
      switch (KindOf(i)) {
        case kKindPair:
          grid.pairPresent = true;
          break;
        case kKindSuited:
          grid.suitedPresent = true;
          break;
        case kKindOffsuit:
          grid.offsuitPresent = true;
          break;
        default:
          break;
      }
      if (grid.pairPresent && grid.suitedPresent && grid.offsuitPresent) break;
    }
  }
  grid.matrixCellColour.fill(grid.editingOn ? scheme.matrixOn : scheme.seenSelection);
  const auto& cells = SuitMatrixCells();
  for (int k = 0; k < kSuitMatrixCells; ++k) {
    grid.comboShown[k] = (grid.pairPresent && cells[k].pair) || (grid.suitedPresent && cells[k].suited) ||
                         (grid.offsuitPresent && cells[k].offsuit);
  }
  // Cells stay on screen when a click takes their holding out, so that a second click can put it back.
  grid.matrixCellVisible = grid.comboShown;
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
  InitHandGrid();
  DeselectAllBlocks();
  SetBlockColours();
}

}  // namespace quillet
