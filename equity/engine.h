// The flop and turn paths of the equity engine: every completion of the board is dealt out and My Hand
// meets each live opponent holding in a showdown. There is no sampling and no time limit.
//
// Holdings whose flag is false take no part; the engine does not check the others against My Hand or the
// board, it takes the list as the caller built it (the equity command removes dead holdings first). When a
// holding that takes part has a weight below whole, every showdown counts its holding's weight (the counts
// below are then in thousandths, ShowdownCounts::scale).
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string_view>

#include "cards/card.h"
#include "equity/equity_result.h"

namespace quillet {

// Showdowns counted from My Hand's side. In a range with a weight below whole each showdown counts its
// holding's weight in thousandths (scale kFullWeight units make one showdown); else they are plain
// counts (scale 1). The shares do not depend on the scale.
struct ShowdownCounts {
  int64_t total = 0;
  int64_t myWins = 0;
  int64_t oppWins = 0;
  int64_t ties = 0;
  int64_t scale = 1;
  friend constexpr bool operator==(const ShowdownCounts&, const ShowdownCounts&) = default;
};

// The Calc Equity command's caption while an enumeration runs, and at rest.
inline constexpr std::string_view kCalculatingCaption = "Calculating";
inline constexpr std::string_view kCalcEquityCaption = "Calc Equity";

// Told the command's caption: kCalculatingCaption before the showdowns start, kCalcEquityCaption once
// they are done. The window model sets the caption and repaints; an empty sink is allowed.
using CaptionSink = std::function<void(std::string_view caption)>;

// Counts every showdown of the flop (street 1: all pairs of turn and river cards) or the turn (street 2:
// every river card). A holding meets each completion that does not use one of its cards. Holdings with
// a card outside the deck, and a My Hand or board with such a card, take no part. Other streets count
// nothing. Each showdown compares the two players' keys (cards/showdown_key.h): read from tables built
// once per board, or card by card for a holding that shares a card with My Hand or the board.
ShowdownCounts CountShowdowns(const HandCards& myHand, const BoardCards& board, Street street,
                              std::span<const HandCombo> combos);

// The same showdowns as CountShowdowns, in the same one enumeration, but counted for each holding apart:
// `counts[k]` gets the showdowns of My Hand against `combos[k]` (all zero for a holding that takes no
// part; a holding's weight times its showdowns in a weighted range). Summed over the holdings they are
// CountShowdowns's counts. Unlike CountShowdowns it counts the river too: the board as it stands, one
// showdown per holding (the equities per category read it). `counts` must have an entry for every holding
// (else it is only cleared).
void CountShowdownsByHolding(const HandCards& myHand, const BoardCards& board, Street street,
                             std::span<const HandCombo> combos, std::span<ShowdownCounts> counts);

// The same showdowns on the flop or the turn summed per starting-hand class, in one enumeration counted by
// rank pair (class_board_counter.h): `counts[c]` for grid block c (cards/hand_class.h). Only the live
// holdings take part (flag set, two cards of the deck, none shared with My Hand or the board), as after
// the equity command has removed the dead ones. Other streets, or a My Hand or board with a card twice,
// count nothing. `counts` must have kClassCount entries (else it is only cleared).
void CountShowdownsByClass(const HandCards& myHand, const BoardCards& board, Street street,
                           std::span<const HandCombo> combos, std::span<ShowdownCounts> counts);

// Result R: ties are left out of the denominator, so the two shares add up to 100 before rounding; each
// is rounded half to even to two decimals from the exact fraction. 50 and 50 when every showdown tied,
// -1 and -1 when there was none.
EquityResult EquityFromCounts(const ShowdownCounts& counts);

// The flop path (board cards 1..3 known) and the turn path (1..4 known).
EquityResult FlopEquity(const HandCards& myHand, const BoardCards& board, std::span<const HandCombo> combos,
                        const CaptionSink& caption = {});
EquityResult TurnEquity(const HandCards& myHand, const BoardCards& board, std::span<const HandCombo> combos,
                        const CaptionSink& caption = {});

}  // namespace quillet
