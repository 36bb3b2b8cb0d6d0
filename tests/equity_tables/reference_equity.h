// Equity by plain enumeration with the standard evaluator: every board of five of the 48 other cards,
// each hand's best five of seven, a split pot counted as half a win. Slow and simple on purpose: it is the
// yardstick for the generated tables.
#pragma once

#include <cstdint>

#include "cards/card.h"
#include "equity/deck.h"
#include "equity/hand_evaluator.h"
#include "equity/showdown_rules.h"

namespace quillet::testing {

// Wins, ties and losses of the first hand.
inline ShowdownTally ReferenceTally(Card a1, Card a2, Card b1, Card b2) {
  const CardSet a = CardSetBit(a1) | CardSetBit(a2);
  const CardSet b = CardSetBit(b1) | CardSetBit(b2);
  CardSet rest[48];
  int n = 0;
  for (int32_t i = 0; i < kDeckSize; ++i) {
    const CardSet bit = CardSetBit(DeckCard(i));
    if (!((a | b) & bit)) rest[n++] = bit;
  }
  ShowdownTally tally;
  for (int i1 = 0; i1 < n; ++i1)
    for (int i2 = i1 + 1; i2 < n; ++i2)
      for (int i3 = i2 + 1; i3 < n; ++i3)
        for (int i4 = i3 + 1; i4 < n; ++i4)
          for (int i5 = i4 + 1; i5 < n; ++i5) {
            const CardSet board = rest[i1] | rest[i2] | rest[i3] | rest[i4] | rest[i5];
            const HandValue va = EvaluateCards(a | board);
            const HandValue vb = EvaluateCards(b | board);
            tally.wins += va > vb;
            tally.ties += va == vb;
            tally.losses += va < vb;
          }
  return tally;
}

// 2 x wins + ties of the first hand.
inline int64_t ReferenceWinsTwice(Card a1, Card a2, Card b1, Card b2) {
  const ShowdownTally t = ReferenceTally(a1, a2, b1, b2);
  return static_cast<int64_t>(2 * t.wins + t.ties);
}

inline double ReferenceEquity(Card a1, Card a2, Card b1, Card b2) {
  return 100.0 * static_cast<double>(ReferenceWinsTwice(a1, a2, b1, b2)) / (2.0 * 1712304);
}

}  // namespace quillet::testing
