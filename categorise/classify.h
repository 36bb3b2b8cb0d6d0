// Classification of one live holding on a board of three, four or five cards: its one made-hand entry of
// the category table, at most one straight-draw entry and at most one flush-draw entry, and the flags of
// the three copies.
#pragma once

#include <cstdint>

#include "cards/board_analysis.h"
#include "cards/card.h"
#include "categorise/category_node.h"

namespace quillet {

// The board's side of every classification, worked out once per cook.
struct BoardContext {
  BoardCards board;
  Street street = kNoBoard;
  PlayedCards cards;  // the board alone
  Multiplicity own;   // the board's own code and group ranks (multiplicity only: a straight or flush
                      // lying on the board is not part of it)
  BoardRanks ranks;
};

BoardContext PrepareBoard(const BoardCards& board, Street street);

inline constexpr int32_t kNoEntry = -1;

struct ComboClassification {
  int32_t code = kMadeHighCard;  // after the flush and straight upgrades and the playing-the-board rule
  int32_t madeEntry = 0;
  int32_t straightEntry = kNoEntry;  // 26, 30, 31 or 33
  int32_t flushEntry = kNoEntry;     // 27 or 32
  // The flags the three copies carry; false marks a copy whose holding also stands in a stronger draw
  // entry: the made-hand copy with 26, 30, 31 or 27, the straight-draw copy with 27, the copy in 27 with
  // 26, 30 or 31. Backdoor draws (32, 33) never clear another copy's flag.
  bool madeFlag = true;
  bool straightFlag = true;
  bool flushFlag = true;
};

// Classifies one holding (street 1 to 3). Draws are looked for on the flop and the turn only, backdoor
// draws on the flop only.
ComboClassification ClassifyCombo(const BoardContext& board, const HandCombo& holding);

// Adds the holding to its made-hand entry, then its straight-draw entry, then its flush-draw entry, each
// copy with its flag. The categorised count is left to the caller.
void AddClassifiedCombo(Categories& categories, const HandCombo& holding, const ComboClassification& c);

}  // namespace quillet
