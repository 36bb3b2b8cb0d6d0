// The hand grid: selection, block colours, weights, the suit matrix, the range percentage and the range
// notation of the On layer.
#include "app/model/grid_model.h"

#include <algorithm>
#include <cstdio>

#include "cards/hand_class.h"
#include "cards/holding.h"
#include "cards/preflop_order.h"
#include "range/grid_colours.h"
#include "range/heat_colours.h"
#include "range/holding_set.h"
#include "range/range_notation.h"
#include "range/range_text.h"
#include "range/top_of_order.h"

namespace quillet {
namespace {

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

constexpr std::string_view kSuitNames[4] = {"clubs", "diamonds", "hearts", "spades"};

int HoldingsOfKind(int32_t kind) {
  switch (kind) {
    case kKindPair:
      return 6;
    case kKindSuited:
      return 4;
    default:
      return 12;
  }
}

// " at 50 %" for the On-layer holdings of a block's record under `weights`: their mean weight, rounded to
// a tenth of a per cent, when it is below 1, with " on average" when they differ; empty when all are whole.
std::string BlockWeightText(const BlockRecord& record, int classNumber, const PartialWeights& weights) {
  BlockRecord probe = record;
  const ClassHoldings& holdings = HoldingsOfClass(classNumber);
  int64_t sum = 0;
  int count = 0;
  bool partial = false;
  bool mixed = false;
  int first = -1;
  for (int k = 0; k < holdings.count; ++k) {
    const ClassHolding& h = holdings.holdings[k];
    if (!SetBlockSuitPair(probe, h.suit1, h.suit2, true, true)) continue;
    const int w = OnHoldingWeight(weights, h.number);
    partial = partial || w < kFullWeight;
    mixed = mixed || (first >= 0 && w != first);
    if (first < 0) first = w;
    sum += w;
    ++count;
  }
  if (!partial || count == 0) return {};
  // Thousandths of a whole are tenths of a per cent.
  return " at " + FormatTenths((sum + count / 2) / count) + " %" + (mixed ? " on average" : "");
}

}  // namespace

void GridModel::InitHandGrid() {
  const auto& classes = HandClasses();
  for (int i = 0; i < kClassCount; ++i) {
    switch (classes[i].kind) {
      case kKindPair:
        baseColour[i] = scheme_.pairBase;
        break;
      case kKindSuited:
        baseColour[i] = scheme_.suitedBase;
        break;
      default:
        baseColour[i] = scheme_.offsuitBase;
        break;
    }
  }
}

void GridModel::PaintBlockWeight(PlayerProfile& profile, int index) {
  const uint16_t kept = KeptWeight(txtWeight);
  const ClassHoldings& holdings = HoldingsOfClass(index);
  for (int k = 0; k < holdings.count; ++k) profile.onWeights[holdings.holdings[k].number] = kept;
}

void GridModel::PaintHoldingWeight(PlayerProfile& profile, int index, int32_t suit1, int32_t suit2) {
  const int number = RecordHoldingNumber(profile.rangeLayer[index], suit1, suit2);
  if (number >= 0) profile.onWeights[number] = KeptWeight(txtWeight);
}

void GridModel::RefreshShownWeights() {
  blockPartWeight.fill(0);
  matrixCellPartWeight.fill(0);
  const PlayerProfile* profile = profiles_.currentProfile();
  if (profile == nullptr) return;
  const PartialWeights& weights = profile->onWeights;
  // A range without weights (the usual case) costs one pass over the weights.
  if (!AnyWeightKept(weights)) return;
  for (int i = 0; i < kClassCount; ++i) {
    int64_t sum = 0;
    int count = 0;
    const bool partial = AddRecordWeights(
        profile->rangeLayer[i], weights, [](int32_t, int32_t) { return true; }, sum, count);
    blockPartWeight[i] = MeanPartWeight(partial, sum, count);
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
      if (!selectedOn[i] || !CellFitsKind(k, KindOfBlock(i))) continue;
      partial = AddRecordWeights(profile->rangeLayer[i], weights, sameCell, sum, count) || partial;
    }
    matrixCellPartWeight[k] = MeanPartWeight(partial, sum, count);
  }
}

void GridModel::DeselectAllBlocks() {
  editingOn = true;
  lblSeenVisible = false;
  selectedOn.fill(false);
  selectedSeen.fill(false);
  pairPresent = false;
  suitedPresent = false;
  offsuitPresent = false;
}

bool GridModel::PaintBlockColours() {
  static const BlockRecord kEmptyRecord{};
  const PlayerProfile* profile = profiles_.currentProfile();
  bool metMixed = false;
  for (int i = 0; i < kClassCount; ++i) {
    const BlockRecord& on = profile ? profile->rangeLayer[i] : kEmptyRecord;
    const BlockRecord& seen = profile ? profile->seenLayer[i] : kEmptyRecord;
    const BlockColourRule rule = ChooseBlockColourRule(selectedSeen[i], selectedOn[i], on, seen);
    metMixed = metMixed || IsMixedRule(rule);
    blockColour[i] = BlockRuleColour(rule, scheme_, baseColour[i]);
  }
  return metMixed;
}

void GridModel::SelectIntoOnLayer(PlayerProfile& profile, int i) {
  selectedOn[i] = true;
  SetBlockWhole(profile.rangeLayer[i], KindOfBlock(i) == kKindSuited);
  PaintBlockWeight(profile, i);
}

bool GridModel::SelectCross(int index) {
  PlayerProfile* profile = profiles_.currentProfile();
  if (profile == nullptr || !IsBlockIndex(index)) return false;
  DeselectAllBlocks();
  for (int i = index; i >= 0; i -= 13) SelectIntoOnLayer(*profile, i);
  for (int i = index + 13; i < kClassCount; i += 13) SelectIntoOnLayer(*profile, i);
  const int rowStart = index - index % 13;
  for (int i = rowStart; i < rowStart + 13; ++i) SelectIntoOnLayer(*profile, i);
  return true;
}

bool GridModel::SelectUpward(int index) {
  PlayerProfile* profile = profiles_.currentProfile();
  if (profile == nullptr || !IsBlockIndex(index)) return false;
  DeselectAllBlocks();
  switch (KindOfBlock(index)) {
    case kKindSuited:  // the same high card with every higher kicker, as far as the diagonal
      for (int i = index; i >= 0 && KindOfBlock(i) == kKindSuited; --i) SelectIntoOnLayer(*profile, i);
      break;
    case kKindOffsuit:
      for (int i = index; i >= 0 && KindOfBlock(i) == kKindOffsuit; i -= 13) SelectIntoOnLayer(*profile, i);
      break;
    case kKindPair:  // every higher pair
      for (int i = index; i >= 0; i -= 14) SelectIntoOnLayer(*profile, i);
      break;
    default:
      break;
  }
  return true;
}

void GridModel::RefreshSuitMatrix(bool scan) {
  if (scan) {
    pairPresent = suitedPresent = offsuitPresent = false;
    for (int i = 0; i < kClassCount; ++i) {
      if (!selectedOn[i] && !selectedSeen[i]) continue;
      switch (KindOfBlock(i)) {
        case kKindPair:
          pairPresent = true;
          break;
        case kKindSuited:
          suitedPresent = true;
          break;
        case kKindOffsuit:
          offsuitPresent = true;
          break;
        default:
          break;
      }
      if (pairPresent && suitedPresent && offsuitPresent) break;
    }
  }
  matrixCellColour.fill(editingOn ? scheme_.matrixOn : scheme_.seenSelection);
  const auto& cells = SuitMatrixCells();
  for (int k = 0; k < kSuitMatrixCells; ++k) {
    comboShown[k] = (pairPresent && cells[k].pair) || (suitedPresent && cells[k].suited) ||
                    (offsuitPresent && cells[k].offsuit);
  }
  // Cells stay on screen when a click takes their holding out, so that a second click can put it back.
  matrixCellVisible = comboShown;
  RefreshShownWeights();
}

bool GridModel::SelectTopOfOrder() {
  PlayerProfile* profile = profiles_.currentProfile();
  if (profile == nullptr) return false;
  selectedSeen.fill(false);
  selectedOn.fill(false);
  for (const int c : ApplyTopOfOrder(profile->rangeLayer, SliderEntry())) selectedOn[c] = true;
  // The top of the order is whole: the weight box paints clicks, not the order's steps.
  profile->onWeights.fill(0);
  return true;
}

bool GridModel::ClearLayers(bool on, bool seen) {
  PlayerProfile* profile = profiles_.currentProfile();
  if (profile == nullptr) return false;
  // Only the count: every reader tests it first, so the stale flags and list do no harm.
  for (int i = 0; i < kClassCount; ++i) {
    if (on) profile->rangeLayer[i].count = 0;
    if (seen) profile->seenLayer[i].count = 0;
  }
  DeselectAllBlocks();
  return true;
}

Colour GridModel::ShownBlockColour(int index) const {
  if (!IsBlockIndex(index)) return 0;
  if (heatMap_ && (*heatMap_)[index]) return HeatMapColour((*heatMap_)[index]->equity);
  return blockColour[index];
}

std::string GridModel::BlockToolTip(int index) const {
  if (index < 0 || index >= kClassCount) return {};
  const HandClass& block = HandClasses()[static_cast<std::size_t>(index)];
  const int holdings = HoldingsOfKind(block.kind);
  const PlayerProfile* profile = profiles_.currentProfile();
  const int on = profile != nullptr ? profile->rangeLayer[static_cast<std::size_t>(index)].count : 0;
  const int seen = profile != nullptr ? profile->seenLayer[static_cast<std::size_t>(index)].count : 0;
  std::string text =
      block.caption + ": " + std::to_string(on) + " of " + std::to_string(holdings) + " in range";
  if (on > 0)
    text += BlockWeightText(profile->rangeLayer[static_cast<std::size_t>(index)], index, profile->onWeights);
  if (seen > 0)
    text += "; " + std::to_string(seen) + " of " + std::to_string(holdings) + " in the Seen layer";
  if (heatMap_ && (*heatMap_)[static_cast<std::size_t>(index)]) {
    const ClassEquity& heat = *(*heatMap_)[static_cast<std::size_t>(index)];
    char equity[32];
    std::snprintf(equity, sizeof equity, "%.1f", heat.equity);
    text += "; my equity " + std::string(equity) + " % against its " + std::to_string(heat.holdings) +
            (heat.holdings == 1 ? " live holding" : " live holdings");
  }
  return text;
}

std::string GridModel::SuitCellToolTip(int cell) const {
  if (cell < 0 || cell >= kSuitMatrixCells || !matrixCellVisible[static_cast<std::size_t>(cell)]) return {};
  const SuitMatrixCell& suits = SuitMatrixCells()[static_cast<std::size_t>(cell)];
  const std::string pair = suits.suit1 == suits.suit2
                               ? "Both " + std::string(kSuitNames[suits.suit1])
                               : "First card " + std::string(kSuitNames[suits.suit1]) + ", second " +
                                     std::string(kSuitNames[suits.suit2]);
  std::string layer = editingOn ? "the range" : "the Seen layer";
  const int32_t weight = matrixCellPartWeight[static_cast<std::size_t>(cell)];
  if (editingOn && weight > 0 && comboShown[static_cast<std::size_t>(cell)])
    layer += " at " + FormatTenths(weight) + " %";
  return comboShown[static_cast<std::size_t>(cell)]
             ? pair + ": in " + layer + " for the selected blocks; a click takes these holdings out"
             : pair + ": out of " + layer + " for the selected blocks; a click puts these holdings back";
}

int GridModel::SliderEntry() const {
  const int last = static_cast<int>(PreflopOrder().size()) - 1;
  return std::clamp(Slider1.value, 0, last);
}

void GridModel::SetRangeText(const std::string& text) {
  txtRange.text = text;
  StoreRangeText();
}

void GridModel::StoreRangeText() {
  if (PlayerProfile* profile = profiles_.currentProfile()) profile->rangeText = txtRange.text;
}

void GridModel::WriteRangePercent() {
  const PlayerProfile* profile = profiles_.currentProfile();
  if (profile == nullptr) return;
  SetRangeText(ComputedRangeText(UnionHoldingCount(profile->rangeLayer, profile->seenLayer)));
}

std::string GridModel::OnLayerNotation() const {
  const PlayerProfile* current = profiles_.currentProfile();
  if (current == nullptr) return {};
  const PlayerProfile& profile = *current;
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

void GridModel::WriteRangeNotation() {
  txtNotation.text = OnLayerNotation();
  txtNotation.foreColour = kWindowTextColour;
  notationErrorShownFor.clear();
}

}  // namespace quillet
