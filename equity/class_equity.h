// My equity against each of the 169 starting-hand classes of the opponent's range: the heat map of the
// grid and quillet-cli's --per-class.
//
// The showdowns are counted once for every holding apart, in one enumeration of the board's completions
// (CountShowdownsByHolding, StandardShowdownTallyByHolding), or preflop read from the tables holding by
// holding; a class's equity is then the sum over its live holdings, put through the formula the read-outs
// use for the rules in force. So each class's equity is what Calc Equity shows against that class alone:
// - the program's own rules: preflop the mean of the matchup tables' values of the class's holdings
//   (weighted by their weights), on the flop and the turn wins over decided showdowns (ties left out,
//   rounded half to even to two decimals); nothing on the river, where the read-outs show nothing either;
// - the standard rules: wins plus half the ties over all showdowns, on every street (preflop from the
//   exact class table; while it is missing, the program's preflop tables as the read-outs fall back to).
// A class without a live holding, or whose holdings met in no showdown, has no equity. In a weighted range
// each showdown counts the holding's weight (the tallies at scale kFullWeight, as the whole range's).
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>

#include "cards/card.h"
#include "cards/card_input.h"
#include "cards/hand_class.h"
#include "equity/range_equity.h"
#include "equity/showdown_rules.h"

namespace quillet {

class HoldingSet;  // range/holding_set.h

struct ClassEquity {
  double equity = 0.0;   // my equity in percent against the class's live holdings
  int32_t holdings = 0;  // the class's live holdings in the range (a holding listed twice counts twice)
  // The showdowns behind `equity`, my side; none preflop under the program's own rules (a mean of the
  // tables' values, no count of showdowns).
  std::optional<ShowdownTally> tally;
};

// Indexed like the grid blocks (cards/hand_class.h).
using ClassEquities = std::array<std::optional<ClassEquity>, kClassCount>;

// My Hand (a hand) against each class of `range` (holdings as CollectRangeCombos gives them; those whose
// flag is clear or that share a card with My Hand or the board are left out) on the street of `cards`.
// None when the read-outs would show nothing: the inputs refused, no My Hand, the program's own rules on
// the river, or a preflop without any table.
std::optional<ClassEquities> ClassEquitiesOfHand(const CardInputs& cards, std::span<const HandCombo> range,
                                                 ShowdownRules rules);

// My range against each class of the opponent's range under the standard rules: every pair of live
// holdings without a common card meets every completion of the board, as StandardRangeEquity counts them;
// a class's tally is the sum of its holdings' tallies, so the classes' tallies add up to the whole
// range's. None for a board with a card twice or outside the deck, and preflop without the exact class
// table.
std::optional<ClassEquities> ClassEquitiesOfRange(std::span<const HandCombo> myRange,
                                                  std::span<const HandCombo> oppRange,
                                                  const BoardCards& board, Street street);

// The same for two sets of holdings, each holding listed once.
std::optional<ClassEquities> ClassEquitiesOfRange(const HoldingSet& myRange, const HoldingSet& oppRange,
                                                  const BoardCards& board, Street street);

// StandardRangeEquity's result, and in the same enumeration ClassEquitiesOfRange's classes (the whole
// tally is the classes' tallies summed): what Calc Equity with a range in My Hand and the heat map needs,
// at about the cost of the whole tally alone. `classes` is set as ClassEquitiesOfRange gives them when the
// result is ok(), else left empty.
RangeEquityResult RangeEquityWithClasses(std::span<const HandCombo> myRange,
                                         std::span<const HandCombo> oppRange, const BoardCards& board,
                                         Street street, std::optional<ClassEquities>& classes);
RangeEquityResult RangeEquityWithClasses(const HoldingSet& myRange, const HoldingSet& oppRange,
                                         const BoardCards& board, Street street,
                                         std::optional<ClassEquities>& classes);

// The holding-weighted mean of the classes' equities: with every holding meeting the same number of
// boards (one hand in My Hand) and every weight whole, the equity against the whole range under the
// standard rules. None when no class has an equity.
std::optional<double> HoldingWeightedMean(const ClassEquities& classes);

}  // namespace quillet
