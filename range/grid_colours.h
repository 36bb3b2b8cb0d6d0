// What a grid block shows, and the cells of the 16-cell suit matrix.
#pragma once

#include <array>
#include <cstdint>

#include "range/block_record.h"
#include "range/colour.h"
#include "range/colour_scheme.h"

namespace quillet {

// The colour rules of a block, in the order they are tried: the first that holds wins.
enum class BlockColourRule {
  SeenSelection,  // selected in the Seen layer
  OnSelection,    // selected in the On layer
  BothLayers,     // both records hold something
  OnWhole,        // only the On record holds something, put in whole
  OnPart,         // only the On record holds something, part of the block
  SeenWhole,      // only the Seen record holds something, put in whole
  SeenPart,       // only the Seen record holds something, part of the block
  Base,           // neither: the block's base colour
};

BlockColourRule ChooseBlockColourRule(bool selectedSeen, bool selectedOn, const BlockRecord& on,
                                      const BlockRecord& seen);
Colour BlockRuleColour(BlockColourRule rule, const ColourScheme& scheme, Colour baseColour);
// Whether a block shown under `rule` is only partly in a layer, or in both: the rules after which a typed
// percentage no longer describes the range.
constexpr bool IsMixedRule(BlockColourRule rule) {
  return rule == BlockColourRule::BothLayers || rule == BlockColourRule::OnPart ||
         rule == BlockColourRule::SeenPart;
}

// The suit matrix: cell 4 x a + b stands for the suit pair (a, b). The diagonal cells are the suited
// holdings, the cells below it (a > b) the pocket-pair holdings, every cell off the diagonal an offsuit one.
inline constexpr int kSuitMatrixCells = 16;
// The colour of a matrix cell that is not in the clicked block's record ("just to see").
inline constexpr Colour kMatrixCellOutColour = 0x404040;
// The matrix colours a grid click chooses, the same under both schemes.
inline constexpr Colour kClickMatrixOnColour = 0xFFFFC0;
inline constexpr Colour kClickMatrixSeenColour = 0xFF0000;

struct SuitMatrixCell {
  int32_t suit1;
  int32_t suit2;
  bool pair;
  bool suited;
  bool offsuit;
};

const std::array<SuitMatrixCell, kSuitMatrixCells>& SuitMatrixCells();
// Whether the cell is a holding of a block of the kind code (22 pair, 11 suited, 12 offsuit).
bool CellFitsKind(int cell, int32_t kind);

}  // namespace quillet
