// The compact seven-card showdown comparator, written step by step as the rules read. It is the reference
// that the fast key path (showdown_key.h) must agree with, and the enumeration uses it for holdings that
// the fast path cannot take (a card shared with My Hand or the board, a card given twice).
//
// The rules are this program's own, kept on purpose:
// - a flush needs exactly five cards of the board's flush suit: six or seven of them make no flush;
// - kickers come from the two hole cards only, whether or not they play;
// - equal two pair is decided by the higher hole rank alone, the lower one is never consulted;
// - a flush is ranked by the player's highest hole card of the suit alone (0 when none).
//
// Categories: 0 no pair, 1 one pair, 2 two pair, 3 trips, 4 straight, 5 flush, 6 full house, 7 quads,
// 8 straight flush, 9 royal flush.
#pragma once

#include <array>
#include <cstdint>

#include "cards/card.h"
#include "equity/board_record.h"

namespace quillet {

inline constexpr int32_t kCategoryNoPair = 0;
inline constexpr int32_t kCategoryOnePair = 1;
inline constexpr int32_t kCategoryTwoPair = 2;
inline constexpr int32_t kCategoryTrips = 3;
inline constexpr int32_t kCategoryStraight = 4;
inline constexpr int32_t kCategoryFlush = 5;
inline constexpr int32_t kCategoryFullHouse = 6;
inline constexpr int32_t kCategoryQuads = 7;
inline constexpr int32_t kCategoryStraightFlush = 8;
inline constexpr int32_t kCategoryRoyalFlush = 9;

// A player's seven cards: hole card 1, hole card 2, board cards 1..5.
using SevenCards = std::array<Card, 7>;
SevenCards PlayerCards(Card hole1, Card hole2, const BoardRecord& board);

// The flush test: the player has a flush exactly when five of the seven cards are of `suit`; the flush
// rank is the higher rank of the player's hole cards of that suit (0 when neither is).
struct FlushTest {
  bool flush = false;
  int32_t flushRank = 0;
};
FlushTest TestFlush(const SevenCards& cards, int32_t suit);

// The pair-type category over the seven ranks: 7 quads (primary the quads rank), 6 full house (primary
// trips, secondary top pair), 3 trips, 2 two pair (primary top pair, secondary second pair), 1 one pair,
// 0 nothing.
struct PairType {
  int32_t category = kCategoryNoPair;
  int32_t primary = 0;
  int32_t secondary = 0;
};
PairType EvaluatePairType(const SevenCards& cards);

// The straight test over the board's possible windows, first to last: a straight when a window's ranks
// are all present; with a flush, a straight flush when they are all present in `suit`. highRank is the
// highest window found, except that a plain straight never overwrites a straight flush found before it.
struct StraightTest {
  bool straight = false;
  bool straightFlush = false;
  int32_t highRank = 0;
};
StraightTest TestStraight(const SevenCards& cards, const BoardRecord& board, bool flush, int32_t suit);

// One player's standing after the upgrades: the final category and what the tie-breaks read.
struct ShowdownHand {
  int32_t category = kCategoryNoPair;
  PairType pairType;
  FlushTest flush;
  StraightTest straight;
  int32_t highHole = 0;  // the higher hole rank
  int32_t lowHole = 0;   // the lower hole rank
};
ShowdownHand EvaluateShowdownHand(Card hole1, Card hole2, const BoardRecord& board);

// Both false is a tie.
struct ShowdownResult {
  bool myWin = false;
  bool oppWin = false;
  friend constexpr bool operator==(const ShowdownResult&, const ShowdownResult&) = default;
};

// My Hand against one opponent holding on a completed board. `street` is the board's street (3 for
// every call the enumeration makes); the comparison reads all five cards of the record.
ShowdownResult CompareShowdown(const HandCards& myHand, const HandCombo& opponent, const BoardRecord& board,
                               int32_t street);
// The same decision for two players already evaluated on one board.
ShowdownResult CompareShowdownHands(const ShowdownHand& mine, const ShowdownHand& theirs);

}  // namespace quillet
