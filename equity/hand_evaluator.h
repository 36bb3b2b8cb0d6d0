// A standard poker hand evaluator: the best five-card hand among five to seven cards, under the usual
// rules (any five cards of a suit are a flush, the ace plays high or in the five-high straight, kickers
// come from all the cards). The preflop tables are generated and checked with it. The equity engine's
// showdown comparator has rules of its own and does not use it.
//
// A HandValue compares directly: a higher value is a better hand, equal values split the pot.
//
//   bits 20-23  category (MadeCode, cards/board_analysis.h)
//   bits 16-19, 12-15, 8-11, 4-7, 0-3   the ranks (2..14) that decide within the category, most
//               significant first, 0 where a category has fewer (a full house: trips rank, pair rank)
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "cards/board_analysis.h"
#include "cards/card.h"

namespace quillet {

using HandValue = uint32_t;

// The category, a made-hand code (cards/board_analysis.h): the standard rules read no royal flush of their
// own, an ace-high straight flush is kMadeStraightFlush.
constexpr MadeCode HandCategoryOf(HandValue value) {
  return static_cast<MadeCode>(value >> 20);
}
// The rank in the value's first rank field: the top card, the pair, the trips, the straight's high card.
constexpr int32_t HandTopRank(HandValue value) {
  return static_cast<int32_t>((value >> 16) & 15);
}

// A set of cards: bit 16 x suit + rank - 2, so each suit's ranks form one 13-bit field.
using CardSet = uint64_t;
constexpr CardSet CardSetBit(Card card) {
  return CardSet{1} << (16 * card.suit + card.rank - 2);
}
constexpr uint32_t CardSetSuitRanks(CardSet cards, int32_t suit) {
  return (cards >> (16 * suit)) & 0x1FFF;
}

// The value of the best five-card hand in `cards` (five to seven cards).
HandValue EvaluateCards(CardSet cards);
HandValue EvaluateCards(std::span<const Card> cards);

// The best hand five or more cards of one suit make (a straight flush or a flush); bit r - 2 of
// `rankMask` stands for rank r.
HandValue EvaluateFlush(uint32_t rankMask);
// The best hand among cards whose ranks occur `counts[r - 2]` times each, five to seven cards, when they
// hold no flush.
HandValue EvaluateRanks(const std::array<uint8_t, 13>& counts);

// The high rank of the best straight among the ranks of `rankMask` (5 for five-high), 0 when none.
int32_t StraightHighRank(uint32_t rankMask);

}  // namespace quillet
