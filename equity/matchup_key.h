// The matchup key: one 32-bit number naming a head-to-head matchup of two two-card hands, the first
// player's cards P1, P2 against the second player's Q1, Q2, in the order the caller gives them.
//
//   bits  0-2   shape of the first hand:  1 pair, 2 suited, 4 offsuit
//   bits  3-5   shape of the second hand: 8 pair, 16 suited, 32 offsuit
//   bits  6-8   suit-relation code 0..7 between the hands (its rule depends on the two shapes)
//   bits  9-10  0
//   bits 11-14  rank of P1     bits 15-18  rank of P2
//   bits 19-22  rank of Q1     bits 23-26  rank of Q2
//   bits 27-31  0
//
// Neither hand is sorted: the order of the cards is part of the key, and several suit-relation rules
// look at which card of a hand shares a suit, so swapping the two cards of a hand gives another key.
// Some codes stand for more than one suit relation (pair against pair: "both suits shared" and "only the
// second card's suit shared" are both 1), so one key can name matchups of different equity.
#pragma once

#include <cstdint>

#include "cards/card.h"

namespace quillet {

inline constexpr int32_t kFirstPair = 1;
inline constexpr int32_t kFirstSuited = 2;
inline constexpr int32_t kFirstOffsuit = 4;
inline constexpr int32_t kSecondPair = 8;
inline constexpr int32_t kSecondSuited = 16;
inline constexpr int32_t kSecondOffsuit = 32;

int32_t BuildMatchupKey(Card p1, Card p2, Card q1, Card q2);

// The fields of a key, for tests and tools.
constexpr int32_t KeyShapes(int32_t key) {
  return key & 63;
}
constexpr int32_t KeySuitCode(int32_t key) {
  return (key >> 6) & 7;
}
constexpr int32_t KeyRankP1(int32_t key) {
  return (key >> 11) & 15;
}
constexpr int32_t KeyRankP2(int32_t key) {
  return (key >> 15) & 15;
}
constexpr int32_t KeyRankQ1(int32_t key) {
  return (key >> 19) & 15;
}
constexpr int32_t KeyRankQ2(int32_t key) {
  return (key >> 23) & 15;
}

}  // namespace quillet
