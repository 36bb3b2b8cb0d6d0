// Exact equity of one range against another under the standard rules (showdown_rules.h): every pair of
// live holdings that share no card meets every completion of the board, each showdown is decided by the
// best five of the seven cards, and the tally counts wins, ties and losses from my range's side
// (EquityPercent splits ties half).
//
// Which holdings take part: those whose flag is set, whose two cards are different cards of the deck and
// share none with the board. A holding listed twice counts twice. A pair of holdings with a common card
// never meets; every other pair meets C(48 - known, 5 - known) boards (1,712,304 preflop, 990 on the flop,
// 44 on the turn, one on the river), so every pair and every board is counted once.
//
// Weights. A holding's weight (HandCombo::weight, in thousandths) says how much of it the range holds, and a
// pair's showdowns count the product of the two holdings' weights. A range counts in whole holdings when
// every holding it lists has weight 1, else in thousandths, and the tally's scale is the product of the two
// ranges' units: 1 for two whole ranges (the plain counts), kFullWeight (1,000) when one of them has a weight
// below 1, and 1,000,000 when both have. Whether a range is whole is read from every holding it lists,
// live or not, so the scale does not change with the board. A holding listed twice counts its weights twice.
//
// How it counts:
// - Preflop, each pair reads its exact tally from the matchup class table (preflop_classes.h), times the
//   product of the two holdings' weights.
// - On a board, per completion every live holding is valued once: a holding's hand is worth the same as
//   that of every other holding of its two ranks unless it makes a flush, so the rank pairs are valued and
//   put in order once per rank pattern of the coming cards, and only the holdings that make a flush are
//   valued one by one. Walking up the values in groups of equal value, the weights of the holdings of the
//   other range already passed are summed in total and per card; a holding of my range beats the passed
//   ones less those that hold one of its two cards (inclusion and exclusion: the holding with both of its
//   cards is itself, which is never passed before it), times its own weight. Ties are the holdings of equal
//   value, counted the same way.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "cards/card.h"
#include "equity/showdown_rules.h"

namespace quillet {

class HoldingSet;          // range/holding_set.h
class WeightedHoldingSet;  // range/weighted_holding_set.h

// Called now and then with the share of the work done (0 to 1); returning false stops the calculation.
using RangeEquityProgress = std::function<bool(double done)>;

struct RangeEquityResult {
  ShowdownTally tally;      // from my range's side, weighted (see its scale)
  int32_t myHoldings = 0;   // live holdings of my range (a holding listed twice counts twice)
  int32_t oppHoldings = 0;  // live holdings of the opponent's range
  int64_t myWeightSum = 0;  // the live holdings' weights summed, in thousandths (kFullWeight a whole one)
  int64_t oppWeightSum = 0;
  uint64_t matchups =
      0;  // pairs of live holdings without a common card, each counted once whatever its weight
  bool cancelled = false;  // the progress callback stopped the calculation; the tally is partial
  std::string error;       // why nothing was counted ("" when the calculation ran)

  bool ok() const { return error.empty() && !cancelled; }
  // My range's equity in percent, ties split half; 0 when nothing was counted.
  double MyEquity() const { return tally.EquityPercent(); }
};

// My range against the opponent's range on `street` (kNoBoard, kFlop, kTurn, kRiver; the board's first
// BoardCardCount(street) cards are known). Refused, with an error, for a board with a card twice or
// outside the deck, and preflop when the program has no matchup class table.
RangeEquityResult StandardRangeEquity(std::span<const HandCombo> myRange, std::span<const HandCombo> oppRange,
                                      const BoardCards& board, Street street,
                                      const RangeEquityProgress& progress = {});
// The same for two sets of holdings, each holding listed once.
RangeEquityResult StandardRangeEquity(const HoldingSet& myRange, const HoldingSet& oppRange,
                                      const BoardCards& board, Street street,
                                      const RangeEquityProgress& progress = {});
// The same for two weighted sets, each holding listed once with its weight.
RangeEquityResult StandardRangeEquity(const WeightedHoldingSet& myRange, const WeightedHoldingSet& oppRange,
                                      const BoardCards& board, Street street,
                                      const RangeEquityProgress& progress = {});

// The holdings of a weighted set as a list, in holding-number order, each once with its weight and its
// flag set: what the list forms above and RangeEquityWithClasses take.
std::vector<HandCombo> WeightedCombos(const WeightedHoldingSet& weights);

// StandardRangeEquity, and in the same enumeration my range's tally against each holding of the
// opponent's range apart: `against[h]` for holding number h (preflop_classes.h) sums the showdowns of all
// its live copies, weighted as the whole tally is and at its scale, all zero for a holding not in the range.
// Summed over the holdings they are the result's tally. On a board the walk is made from the opponent's side,
// each of its holdings counting the holdings of my range below it and level with it, at about the cost of the
// whole tally. `against` must have kHoldingCount entries (else it is only cleared and an error returned); it
// is cleared when the calculation is refused or stopped.
RangeEquityResult StandardRangeEquityByHolding(std::span<const HandCombo> myRange,
                                               std::span<const HandCombo> oppRange, const BoardCards& board,
                                               Street street, std::span<ShowdownTally> against,
                                               const RangeEquityProgress& progress = {});

}  // namespace quillet
