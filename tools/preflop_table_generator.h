// Generates the preflop matchup tables (data/preflop_matchups.bin) by exact enumeration.
//
// Every ordered tuple of four different cards (P1, P2, Q1, Q2), 52 x 51 x 50 x 49 of them, is a matchup
// as a caller can present it: My Hand typed in either order against a holding in the order its range layer
// holds it, or the same reversed by the swapped lookup. Its key is BuildMatchupKey(P1, P2, Q1, Q2) and its
// equity the first player's share, in percent, of all 1,712,304 boards of the 48 other cards under standard
// rules (hand_evaluator.h), a split pot counting as half a win. Where several tuples build the same key the
// table stores the mean of their equities, each tuple counted once: a key can stand for matchups of
// different equity (AhAd v KhKd 82.637 and AhAd v KdKc 81.946 share one; its value 82.176 weighs the 24
// tuples of the first kind and the 48 of the second).
//
// Equity does not change when the four suits are renamed, and equity(B v A) = 100 - equity(A v B), so only
// one matchup of each such class is enumerated: about 47,000 of them.
#pragma once

#include <cstdint>
#include <functional>

#include "cards/card.h"
#include "equity/lookup_tables.h"

namespace quillet {

inline constexpr int64_t kBoardCount = 1712304;  // C(48, 5)

// Reports how many of the matchup classes are done.
using GeneratorProgress = std::function<void(int64_t done, int64_t total)>;

struct GeneratedTables {
  LookupTables tables;
  int64_t matchupClasses = 0;  // matchups enumerated
  int64_t orderedTuples = 0;   // tuples mapped to keys
};

// Runs on `threads` threads (0: one per core); `progress` is called from the calling thread about every
// `progressSeconds` and once at the end.
GeneratedTables GeneratePreflopTables(int threads, const GeneratorProgress& progress,
                                      double progressSeconds = 2.0);

// 2 x wins + ties of hand a1 a2 against b1 b2 over all boards (four different cards).
int64_t CountWinsTwice(Card a1, Card a2, Card b1, Card b2);
// The first hand's equity in percent, ties counted half.
double EnumeratedEquity(Card a1, Card a2, Card b1, Card b2);

}  // namespace quillet
