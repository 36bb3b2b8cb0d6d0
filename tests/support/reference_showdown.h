// The reference showdown comparator, written step by step as the rules read. The program decides its
// showdowns by keys (cards/showdown_key.h): the engine through its tables, the win/tie/lose icons through
// the hand reader. The tests check both against this comparator, which shares nothing with them but the
// card types and the made-hand codes.
//
// The rules are this program's own, kept on purpose:
// - a flush needs exactly five cards of the board's flush suit: six or seven of them make no flush;
// - kickers come from the two hole cards only, whether or not they play;
// - equal two pair is decided by the higher hole rank alone, the lower one is never consulted;
// - a flush is ranked by the player's highest hole card of the suit alone (0 when none).
//
// A board here holds the cards of one street: five on the river (what the enumeration compares), four
// on the turn, three on the flop, none before it.
//
// The steps are compiled once, in reference_showdown.cpp, into the library the test programs share.
#pragma once

#include <array>
#include <cstdint>

#include "cards/board_analysis.h"  // the made-hand codes
#include "cards/card.h"
#include "cards/showdown_key.h"  // ShowdownResult

namespace quillet::testing {

// Rank bits: rank r (1..14) is bit r; an ace also sets bit 1 so that it can start the ace-low run.
constexpr int32_t RankBit(int32_t rank) {
  return int32_t{1} << rank;
}
constexpr int32_t CardRankBits(int32_t rank) {
  return RankBit(rank) | (rank == 14 ? RankBit(1) : 0);
}

// A five-rank run: window w covers ranks w+1 .. w+5 (window 0 is the ace-low run A2345 with the ace as
// rank 1, window 9 is TJQKA). Its mask is 62 x 2^w.
struct StraightWindow {
  int32_t mask = 0;
  int32_t lowRank = 0;
  int32_t highRank = 0;
};

inline constexpr int kStraightWindowCount = 10;

inline constexpr std::array<StraightWindow, kStraightWindowCount> kStraightWindows = [] {
  std::array<StraightWindow, kStraightWindowCount> windows{};
  for (int w = 0; w < kStraightWindowCount; ++w) windows[w] = {62 << w, w + 1, w + 5};
  return windows;
}();

// The board record: the first and last straight windows the board leaves possible (-1 when none), the
// suit with three or more board cards (-1 when none), then the board cards (flop, turn, river).
struct BoardRecord {
  int32_t firstWindow = -1;
  int32_t lastWindow = -1;
  int32_t flushSuit = -1;
  std::array<Card, 5> cards{};
  int count = 5;  // the board cards that exist
};

// Sets flushSuit: the suit that more than two of the board cards share, else -1.
void BoardFlushSuit(BoardRecord& board);

// Sets firstWindow and lastWindow: a window is possible when the board misses fewer than three of its
// ranks (two hole cards cannot fill three). When none is possible both stay -1.
void BoardStraightWindows(BoardRecord& board);

// A record of five cards with its flush suit and straight windows worked out.
BoardRecord MakeBoardRecord(const std::array<Card, 5>& cards);

// The record of the board cards that exist on `street`.
BoardRecord MakeBoardRecord(const BoardCards& cards, Street street);

// A player's cards: hole card 1, hole card 2, then the board cards.
struct SevenCards {
  std::array<Card, 7> cards{};
  int count = 0;

  const Card* begin() const { return cards.data(); }
  const Card* end() const { return cards.data() + count; }
  const Card& operator[](int i) const { return cards[i]; }
};

SevenCards PlayerCards(Card hole1, Card hole2, const BoardRecord& board);

inline constexpr bool IsRank(int32_t rank) {
  return rank >= 2 && rank <= 14;
}

// +1 when a is higher, -1 when b is, 0 when equal.
inline constexpr int CompareValues(int32_t a, int32_t b) {
  return a > b ? 1 : (a < b ? -1 : 0);
}

inline constexpr ShowdownResult FromOrder(int order) {
  return ShowdownResult{order > 0, order < 0};
}

// The flush test: the player has a flush exactly when five of the seven cards are of `suit`; the flush
// rank is the higher rank of the player's hole cards of that suit (0 when neither is).
struct FlushTest {
  bool flush = false;
  int32_t flushRank = 0;
};

FlushTest TestFlush(const SevenCards& cards, int32_t suit);

// The pair-type category over the seven ranks: quads (primary the quads rank), full house (primary
// trips, secondary top pair), trips, two pair (primary top pair, secondary second pair), one pair,
// nothing.
struct PairType {
  int32_t category = kMadeHighCard;
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
  int32_t category = kMadeHighCard;
  PairType pairType;
  FlushTest flush;
  StraightTest straight;
  int32_t highHole = 0;  // the higher hole rank
  int32_t lowHole = 0;   // the lower hole rank
};

ShowdownHand EvaluateShowdownHand(Card hole1, Card hole2, const BoardRecord& board);

// The decision for two players already evaluated on one board. Both false is a tie.
ShowdownResult CompareShowdownHands(const ShowdownHand& mine, const ShowdownHand& theirs);

// My Hand against one opponent holding on the board of the record.
ShowdownResult CompareShowdown(const HandCards& myHand, const HandCombo& opponent, const BoardRecord& board);

}  // namespace quillet::testing
