// Exact equity under the standard rules (showdown_rules.h): My Hand meets every live holding of a range on
// every completion of the board, each showdown decided by the best five of the seven cards, and the tally
// counts wins, ties and losses (EquityPercent splits ties half).
//
// Which holdings take part: those whose flag is set, whose two cards are different cards of the deck and
// share none with My Hand or the known board. A holding meets each completion that uses neither of its
// cards, so on the flop every holding meets 990 boards and on the turn 44; on the river the board as it
// stands decides one showdown per holding. A holding listed twice counts twice.
//
// Weighted ranges: when a live holding has a weight below whole, each showdown counts the holding's weight
// in thousandths and the tallies say so (scale kFullWeight); with every weight whole they are plain counts
// (scale 1). Every tally below follows this, preflop included.
//
// How it counts: a holding's hand is worth the same on one board as that of every other holding with
// the same two ranks, unless a flush is possible for it. So per completion the engine reads the value
// of each of the 91 rank pairs once (cached per rank pattern of the coming cards), compares My Hand's
// value with it and weighs the answer by the number (or the weight) of live holdings of that rank pair,
// taking off those that hold a card of the completion (card removal by inclusion and exclusion). Only the
// holdings that can make a flush on a board with three or more cards of one suit are read one by one.
// Everything is allocated before the first completion.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "cards/card.h"
#include "cards/showdown_key.h"
#include "equity/equity_result.h"
#include "equity/showdown_rules.h"

namespace quillet {

// Every showdown of My Hand against the live holdings on the flop (street 1: every turn and river), the
// turn (street 2: every river) or the river (street 3: the board itself). Nothing is counted preflop, for
// a My Hand or board with a card twice or outside the deck, or with no live holding.
ShowdownTally StandardShowdownTally(const HandCards& myHand, const BoardCards& board, Street street,
                                    std::span<const HandCombo> combos);

// The same showdowns as StandardShowdownTally, in one enumeration, counted for each holding apart:
// `tallies[k]` gets My Hand's wins, ties and losses against `combos[k]` (all zero for a holding that takes
// no part). Summed over the holdings they are StandardShowdownTally's tally. `tallies` must have an entry
// for every holding (else it is only cleared).
void StandardShowdownTallyByHolding(const HandCards& myHand, const BoardCards& board, Street street,
                                    std::span<const HandCombo> combos, std::span<ShowdownTally> tallies);

// The same showdowns on the flop or the turn summed per starting-hand class, in one enumeration counted by
// rank pair (class_board_counter.h): `tallies[c]` for grid block c (cards/hand_class.h). Summed over the
// classes they are StandardShowdownTally's tally. Other streets count nothing. `tallies` must have
// kClassCount entries (else it is only cleared).
void StandardShowdownTallyByClass(const HandCards& myHand, const BoardCards& board, Street street,
                                  std::span<const HandCombo> combos, std::span<ShowdownTally> tallies);

// Every showdown preflop (every five-card board), read from the exact preflop table of matchup classes.
// No value while the program has no such table (or it failed to load): callers then fall back to the
// preflop path of the program's own rules. This is the one place the standard preflop tally is taken from;
// it is where the exact class table's own reader is to be called.
std::optional<ShowdownTally> PreflopTallyForStandardRules(const HandCards& myHand,
                                                          std::span<const HandCombo> combos);

// The tally on any street: PreflopTallyForStandardRules without a board, StandardShowdownTally with one.
std::optional<ShowdownTally> StandardEquityTally(const HandCards& myHand, const BoardCards& board,
                                                 Street street, std::span<const HandCombo> combos);

// The read-outs of a tally: My Equity with ties split half, Opp Equity the rest of 100; -1 and -1 when
// nothing was counted (as for an empty range under the program's own rules).
EquityResult EquityFromTally(const ShowdownTally& tally);

// My Hand against one holding on the board cards known on `street` (three to five; both flags false is a
// tie), under the standard rules. Used for the win/tie/lose icons. No board, or cards given twice, give
// a tie.
ShowdownResult CompareStandardShowdown(const HandCards& myHand, const HandCombo& opponent,
                                       const BoardCards& board, Street street);

}  // namespace quillet
