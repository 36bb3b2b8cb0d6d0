// The cook's three steps after the card inputs are read: collect the range's holdings from a profile's
// two layers, mark the holdings that use a card already in play as dead, and classify the live ones into
// the category table. Free of any window: the window model, the equity command and the CLI share them.
#pragma once

#include <cstdint>
#include <vector>

#include "cards/card.h"
#include "cards/card_input.h"
#include "cards/holding.h"  // RemoveDeadCombos
#include "categorise/category_node.h"
#include "range/block_record.h"
#include "range/player_profile.h"  // PartialWeights

namespace quillet {

// The holdings of the range, flags set: classes in grid order (0 to 168), and for each class every suit
// pair of its On record, then every suit pair of its Seen record that the On record does not hold (for a
// pocket pair (a, b) and (b, a) are one holding). A record entry that does not make two valid, distinct
// cards (possible only in a damaged profile) is skipped. The On record's holdings carry their weight from
// `onWeights` (range/player_profile.h) when it is given, else a whole weight; the Seen layer's are whole.
std::vector<HandCombo> CollectRangeCombos(const RangeLayer& onLayer, const RangeLayer& seenLayer,
                                          const PartialWeights* onWeights = nullptr);

// Empties every entry (count and weight 0, run text and number cleared, both flags set), sets the
// categorised count and weight to 0, and classifies each live holding among the first `count`: with a
// board into its made-hand entry and its draw entries, without one a pair into "*One pair" and any other
// holding by its first rank into the high-card children. Each holding raises the categorised count once
// and the categorised weight by its weight. Last, each entry's non-empty flag tells whether it received
// anything.
void ClassifyRange(Categories& categories, const std::vector<HandCombo>& list, int32_t count,
                   const BoardCards& board, Street street);
inline void ClassifyRange(Categories& categories, const std::vector<HandCombo>& list, const BoardCards& board,
                          Street street) {
  ClassifyRange(categories, list, static_cast<int32_t>(list.size()), board, street);
}

// ---- The cook as one call ----

// What a cook finds: the three counts under the Cook label, the sums of the weights beside them (in
// thousandths: the combinations the holdings make), and the filled category table.
struct CookResult {
  int32_t rangeCount = 0;   // holdings in the range
  int32_t liveCount = 0;    // of those, the ones that use no card of My Hand or the board
  int64_t rangeWeight = 0;  // the weights of the range's holdings
  int64_t liveWeight = 0;   // the weights of the live ones
  Categories categories;    // each live holding in its entries; categorisedCount counts each holding once

  // Whether a holding of the range has a weight below 1: only then do the outputs say the weighted figures
  // beside the counts (with whole weights they are the counts themselves).
  bool weighted() const { return rangeWeight != int64_t{rangeCount} * kFullWeight; }
};

// Cooks `range` (holdings as CollectRangeCombos gives them, an empty range is no error) on accepted card
// inputs (CheckCardInputs(..., CardsFor::Cook).ok()): the dead holdings are dropped, the live ones
// classified. Refused inputs give an empty result.
CookResult Cook(const CardInputs& cards, std::vector<HandCombo> range);

}  // namespace quillet
