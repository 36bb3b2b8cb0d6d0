// The hand grid: selection, block colours, mouse handling, the suit matrix and the colour-scheme switch.
#include <algorithm>

#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "cards/holding.h"
#include "range/grid_colours.h"
#include "range/heat_colours.h"
#include "range/holding_set.h"

namespace quillet {
namespace {

bool IsBlockIndex(int index) {
  return index >= 0 && index < kClassCount;
}

int32_t KindOf(int index) {
  return HandClasses()[index].kind;
}

// The holding a block's record stands for by a suit pair, or -1 when the pair makes no two distinct cards.
int RecordHoldingNumber(const BlockRecord& record, int32_t suit1, int32_t suit2) {
  const Card a{record.rank1, suit1};
  const Card b{record.rank2, suit2};
  if (!IsDeckCard(a) || !IsDeckCard(b) || a == b) return -1;
  return HoldingNumber(a, b);
}

// The kept form of a weight: 0 for a whole one.
uint16_t KeptWeight(int32_t thousandths) {
  return static_cast<uint16_t>(thousandths >= kFullWeight ? 0 : thousandths);
}

// Sums the weights of the On record's holdings that `wanted` accepts (by suit pair) into `sum` and
// `count`; whether any of them is below 1.
template <typename Wanted>
bool AddRecordWeights(const BlockRecord& record, const PartialWeights& weights, Wanted wanted, int64_t& sum,
                      int& count) {
  bool partial = false;
  for (int k = 0; k < record.count && k < kSuitPairSlots; ++k) {
    const SuitPairEntry& entry = record.combos[k];
    if (!wanted(entry.suit1, entry.suit2)) continue;
    const int number = RecordHoldingNumber(record, entry.suit1, entry.suit2);
    if (number < 0) continue;
    partial = partial || weights[number] != 0;
    sum += OnHoldingWeight(weights, number);
    ++count;
  }
  return partial;
}

// The mean of `count` weights summing to `sum`, rounded to whole thousandths, as a part weight (0: whole).
int32_t MeanPartWeight(bool partial, int64_t sum, int count) {
  if (!partial || count == 0) return 0;
  const int32_t mean = static_cast<int32_t>((sum + count / 2) / count);
  return std::clamp(mean, 1, kFullWeight - 1);
}

}  // namespace

void Form1Model::PaintBlockWeight(PlayerProfile& profile, int index) {
  const uint16_t kept = KeptWeight(txtWeight);
  const ClassHoldings& holdings = HoldingsOfClass(index);
  for (int k = 0; k < holdings.count; ++k) profile.onWeights[holdings.holdings[k].number] = kept;
}

void Form1Model::PaintHoldingWeight(PlayerProfile& profile, int index, int32_t suit1, int32_t suit2) {
  const int number = RecordHoldingNumber(profile.rangeLayer[index], suit1, suit2);
  if (number >= 0) profile.onWeights[number] = KeptWeight(txtWeight);
}

void Form1Model::txtWeight_Change(int32_t thousandths) {
  txtWeight = std::clamp(thousandths, 1, kFullWeight);
}

void Form1Model::RefreshShownWeights() {
  grid.blockPartWeight.fill(0);
  grid.matrixCellPartWeight.fill(0);
  const PlayerProfile* profile = currentProfile();
  if (profile == nullptr) return;
  const PartialWeights& weights = profile->onWeights;
  // A range without weights (the usual case) costs one pass over the weights.
  if (!AnyWeightKept(weights)) return;
  for (int i = 0; i < kClassCount; ++i) {
    int64_t sum = 0;
    int count = 0;
    const bool partial = AddRecordWeights(
        profile->rangeLayer[i], weights, [](int32_t, int32_t) { return true; }, sum, count);
    grid.blockPartWeight[i] = MeanPartWeight(partial, sum, count);
  }
  const auto& cells = SuitMatrixCells();
  for (int k = 0; k < kSuitMatrixCells; ++k) {
    int64_t sum = 0;
    int count = 0;
    bool partial = false;
    const auto sameCell = [&cells, k](int32_t suit1, int32_t suit2) {
      // A pocket pair's (b, a) is the same holding as its (a, b).
      return (suit1 == cells[k].suit1 && suit2 == cells[k].suit2) ||
             (cells[k].pair && suit1 == cells[k].suit2 && suit2 == cells[k].suit1);
    };
    for (int i = 0; i < kClassCount; ++i) {
      if (!grid.selectedOn[i] || !CellFitsKind(k, KindOf(i))) continue;
      partial = AddRecordWeights(profile->rangeLayer[i], weights, sameCell, sum, count) || partial;
    }
    grid.matrixCellPartWeight[k] = MeanPartWeight(partial, sum, count);
  }
}

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
  RefreshShownWeights();
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
        PaintBlockWeight(*profile, index);
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

void Form1Model::SelectIntoOnLayer(PlayerProfile& profile, int i) {
  grid.selectedOn[i] = true;
  SetBlockWhole(profile.rangeLayer[i], KindOf(i) == kKindSuited);
  PaintBlockWeight(profile, i);
}

void Form1Model::SelectCross(int index) {
  const RangeStep rangeStep(*this);
  PlayerProfile* profile = currentProfile();
  if (profile == nullptr || !IsBlockIndex(index)) return;
  DeselectAllBlocks();
  for (int i = index; i >= 0; i -= 13) SelectIntoOnLayer(*profile, i);
  for (int i = index + 13; i < kClassCount; i += 13) SelectIntoOnLayer(*profile, i);
  const int rowStart = index - index % 13;
  for (int i = rowStart; i < rowStart + 13; ++i) SelectIntoOnLayer(*profile, i);
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
      for (int i = index; i >= 0 && KindOf(i) == kKindSuited; --i) SelectIntoOnLayer(*profile, i);
      break;
    case kKindOffsuit:
      for (int i = index; i >= 0 && KindOf(i) == kKindOffsuit; i -= 13) SelectIntoOnLayer(*profile, i);
      break;
    case kKindPair:  // every higher pair
      for (int i = index; i >= 0; i -= 14) SelectIntoOnLayer(*profile, i);
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
  RefreshShownWeights();
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
