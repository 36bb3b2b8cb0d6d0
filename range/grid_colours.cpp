#include "range/grid_colours.h"

#include "cards/card.h"

namespace quillet {

BlockColourRule ChooseBlockColourRule(bool selectedSeen, bool selectedOn, const BlockRecord& on,
                                      const BlockRecord& seen) {
  if (selectedSeen) return BlockColourRule::SeenSelection;
  if (selectedOn) return BlockColourRule::OnSelection;
  if (on.count != 0 && seen.count != 0) return BlockColourRule::BothLayers;
  if (on.count != 0) return on.whole != kFalse16 ? BlockColourRule::OnWhole : BlockColourRule::OnPart;
  if (seen.count != 0) return seen.whole != kFalse16 ? BlockColourRule::SeenWhole : BlockColourRule::SeenPart;
  return BlockColourRule::Base;
}

Colour BlockRuleColour(BlockColourRule rule, const ColourScheme& scheme, Colour baseColour) {
  switch (rule) {
    case BlockColourRule::SeenSelection:
      return scheme.seenSelection;
    case BlockColourRule::OnSelection:
      return scheme.onSelection;
    case BlockColourRule::BothLayers:
      return scheme.bothLayers;
    case BlockColourRule::OnWhole:
      return scheme.onWhole;
    case BlockColourRule::OnPart:
      return scheme.onPart;
    case BlockColourRule::SeenWhole:
      return scheme.seenWhole;
    case BlockColourRule::SeenPart:
      return scheme.seenPart;
    case BlockColourRule::Base:
      break;
  }
  return baseColour;
}

const std::array<SuitMatrixCell, kSuitMatrixCells>& SuitMatrixCells() {
  static const std::array<SuitMatrixCell, kSuitMatrixCells> cells = [] {
    std::array<SuitMatrixCell, kSuitMatrixCells> table{};
    for (int32_t a = 0; a < 4; ++a) {
      for (int32_t b = 0; b < 4; ++b) table[4 * a + b] = {a, b, a > b, a == b, a != b};
    }
    return table;
  }();
  return cells;
}

bool CellFitsKind(int cell, int32_t kind) {
  if (cell < 0 || cell >= kSuitMatrixCells) return false;
  const SuitMatrixCell& c = SuitMatrixCells()[cell];
  switch (kind) {
    case kKindPair:
      return c.pair;
    case kKindSuited:
      return c.suited;
    case kKindOffsuit:
      return c.offsuit;
    default:
      return false;
  }
}

}  // namespace quillet
