// Generates both preflop tables by exact enumeration, in one run: the matchup class table
// (data/preflop_classes.bin: the exact wins, ties and losses of each of the 47,008 classes of heads-up
// matchups, see equity/preflop_classes.h) and, from its counts, the matchup key table
// (data/preflop_matchups.bin).
//
// Every class's matchup is counted over all 1,712,304 boards of the 48 other cards under standard rules
// (equity/hand_evaluator.h). The key table then follows from the counts: every ordered tuple of four
// different cards (P1, P2, Q1, Q2), 52 x 51 x 50 x 49 of them, is a matchup as a caller can present it (My
// Hand typed in either order against a holding in the order its range layer holds it, or the same reversed
// by the swapped lookup). Its key is BuildMatchupKey(P1, P2, Q1, Q2) and its equity the first player's share
// in percent, a split pot counting as half a win. Where several tuples build the same key the table stores
// the mean of their equities, each tuple counted once: a key can stand for matchups of different equity
// (AhAd v KhKd 82.637 and AhAd v KdKc 81.946 share one; its value 82.176 weighs the 24 tuples of the first
// kind and the 48 of the second).
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "cards/card.h"
#include "equity/lookup_tables.h"
#include "equity/preflop_classes.h"
#include "equity/showdown_rules.h"

namespace quillet {

inline constexpr int64_t kBoardCount = kPreflopBoardCount;  // C(48, 5)

// Reports how many of the matchup classes are done.
using GeneratorProgress = std::function<void(int64_t done, int64_t total)>;

struct GeneratedTables {
  LookupTables tables;                      // the matchup key table
  std::vector<MatchupClassRecord> classes;  // the class table, codes ascending
  int64_t matchupClasses = 0;               // matchups enumerated
  int64_t orderedTuples = 0;                // tuples mapped to keys
};

// Runs on `threads` threads (0: one per core); `progress` is called from the calling thread about every
// `progressSeconds` and once at the end.
GeneratedTables GeneratePreflopTables(int threads, const GeneratorProgress& progress,
                                      double progressSeconds = 2.0);

// The exact tally of hand a1 a2 against b1 b2 over all boards (four different cards), from a1 a2's side.
ShowdownTally CountMatchupShowdowns(Card a1, Card a2, Card b1, Card b2);
// 2 x wins + ties of hand a1 a2 against b1 b2 over all boards.
int64_t CountWinsTwice(Card a1, Card a2, Card b1, Card b2);
// The first hand's equity in percent, ties counted half.
double EnumeratedEquity(Card a1, Card a2, Card b1, Card b2);

}  // namespace quillet
