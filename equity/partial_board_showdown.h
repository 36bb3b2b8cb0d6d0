// The showdown comparator for a board that may still be incomplete: My Hand against one holding on the
// cards of the street only (three on the flop, four on the turn, five on the river; none without a board).
// The results tree uses it to show whether each holding of the range beats My Hand right now.
//
// It reads each hand with the cook's board analysers (rank multiplicity, the flush count with its
// exactly-five rule, the straight and straight-flush test), so a hand is read here exactly as the cook
// classifies it, and it decides with the same category order and tie-breaks as the enumeration's
// seven-card comparator:
// - a flush needs exactly five cards of one suit; six or seven make none;
// - a flush beats any hand short of a full house at once (the early flush decision), before categories
//   are compared;
// - kickers come from the two hole cards only, whether or not they play;
// - equal two pair is decided by the higher hole rank alone, the lower one is never consulted;
// - a flush is ranked by the player's highest hole card of the suit alone (0 when none).
// On a river it gives the same answer as the enumeration's comparator on the same five cards.
#pragma once

#include <cstdint>

#include "cards/card.h"
#include "categorise/board_analysis.h"
#include "equity/showdown.h"

namespace quillet {

// One player's hand on the street: the cook's three analyses and the category they add up to (0 no
// pair ... 9 royal flush, the made-hand codes of board_analysis.h).
struct StreetHand {
  int32_t category = kMadeHighCard;
  Multiplicity pairType;  // code before the flush and straight upgrades: the early flush decision reads it
  FlushAnalysis flush;
  StraightAnalysis straight;
  int32_t highHole = 0;  // the higher hole rank
  int32_t lowHole = 0;   // the lower hole rank
};

StreetHand EvaluateStreetHand(const HandCombo& holding, const BoardCards& board, int32_t street);

ShowdownResult CompareStreetHands(const StreetHand& mine, const StreetHand& theirs);

// My Hand against `opponent` on the board cards that exist on `street`; both flags false is a tie.
ShowdownResult ComparePartialBoardShowdown(const HandCards& myHand, const HandCombo& opponent,
                                           const BoardCards& board, int32_t street);

}  // namespace quillet
