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
#pragma once

#include <algorithm>
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
inline void BoardFlushSuit(BoardRecord& board) {
  std::array<int, 4> counts{};
  board.flushSuit = -1;
  for (int i = 0; i < board.count; ++i) {
    const int32_t suit = board.cards[i].suit;
    if (suit < 0 || suit > 3) continue;
    ++counts[suit];
    // Tested once the third, fourth and fifth cards are in; only one suit can reach three of five.
    if (i >= 2 && counts[suit] > 2) board.flushSuit = suit;
  }
}

// Sets firstWindow and lastWindow: a window is possible when the board misses fewer than three of its
// ranks (two hole cards cannot fill three). When none is possible both stay -1.
inline void BoardStraightWindows(BoardRecord& board) {
  int32_t boardMask = 0;
  for (int i = 0; i < board.count; ++i) {
    const Card& card = board.cards[i];
    if (card.rank >= 2 && card.rank <= 14) boardMask |= CardRankBits(card.rank);
  }
  board.firstWindow = -1;
  board.lastWindow = -1;
  for (int w = 0; w < kStraightWindowCount; ++w) {
    int missing = 0;
    for (int rank = kStraightWindows[w].lowRank; rank <= kStraightWindows[w].highRank && missing < 3;
         ++rank) {
      if ((boardMask & RankBit(rank)) == 0) ++missing;
    }
    if (missing < 3) {
      if (board.firstWindow == -1) board.firstWindow = w;
      board.lastWindow = w;
    }
  }
}

// A record of five cards with its flush suit and straight windows worked out.
inline BoardRecord MakeBoardRecord(const std::array<Card, 5>& cards) {
  BoardRecord board;
  board.cards = cards;
  BoardFlushSuit(board);
  BoardStraightWindows(board);
  return board;
}

// The record of the board cards that exist on `street`.
inline BoardRecord MakeBoardRecord(const BoardCards& cards, Street street) {
  BoardRecord board = MakeBoardRecord(cards.cards);
  board.count = BoardCardCount(street);
  BoardFlushSuit(board);
  BoardStraightWindows(board);
  return board;
}

// A player's cards: hole card 1, hole card 2, then the board cards.
struct SevenCards {
  std::array<Card, 7> cards{};
  int count = 0;

  const Card* begin() const { return cards.data(); }
  const Card* end() const { return cards.data() + count; }
  const Card& operator[](int i) const { return cards[i]; }
};

inline SevenCards PlayerCards(Card hole1, Card hole2, const BoardRecord& board) {
  SevenCards seven;
  seven.cards[0] = hole1;
  seven.cards[1] = hole2;
  for (int i = 0; i < board.count; ++i) seven.cards[2 + i] = board.cards[i];
  seven.count = 2 + board.count;
  return seven;
}

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

inline FlushTest TestFlush(const SevenCards& cards, int32_t suit) {
  FlushTest result;
  int count = 0;
  for (const Card& card : cards) count += card.suit == suit ? 1 : 0;
  result.flush = count == 5;  // six or seven of the suit make no flush, on purpose
  for (int i = 0; i < 2; ++i) {
    if (cards[i].suit == suit) result.flushRank = std::max(result.flushRank, cards[i].rank);
  }
  return result;
}

// The pair-type category over the seven ranks: quads (primary the quads rank), full house (primary
// trips, secondary top pair), trips, two pair (primary top pair, secondary second pair), one pair,
// nothing.
struct PairType {
  int32_t category = kMadeHighCard;
  int32_t primary = 0;
  int32_t secondary = 0;
};

inline PairType EvaluatePairType(const SevenCards& cards) {
  std::array<int, 16> counts{};
  for (const Card& card : cards) {
    if (IsRank(card.rank)) ++counts[card.rank];
  }
  int32_t topPair = 0;
  int32_t secondPair = 0;
  int32_t trips = 0;
  int32_t quads = 0;
  bool fullHouse = false;
  for (const Card& card : cards) {
    if (!IsRank(card.rank)) continue;
    const int32_t rank = card.rank;
    switch (counts[rank]) {
      case 2:
        if (rank > topPair) {
          secondPair = topPair;
          topPair = rank;
        } else if (secondPair < rank && rank < topPair) {
          secondPair = rank;
        }
        if (trips != 0) fullHouse = true;
        break;
      case 3:
        if (rank > trips) {
          if (trips > topPair) topPair = trips;
          trips = rank;
        } else if (rank < trips && rank > topPair) {
          topPair = rank;
        }
        if (topPair != 0) fullHouse = true;
        break;
      case 4:
        if (rank > quads) quads = rank;
        break;
      default:
        break;
    }
  }
  if (quads != 0) return {kMadeFourOfAKind, quads, 0};
  if (fullHouse) return {kMadeFullHouse, trips, topPair};
  if (trips != 0) return {kMadeThreeOfAKind, trips, 0};
  if (secondPair != 0) return {kMadeTwoPair, topPair, secondPair};
  if (topPair != 0) return {kMadePair, topPair, 0};
  return {};
}

// The straight test over the board's possible windows, first to last: a straight when a window's ranks
// are all present; with a flush, a straight flush when they are all present in `suit`. highRank is the
// highest window found, except that a plain straight never overwrites a straight flush found before it.
struct StraightTest {
  bool straight = false;
  bool straightFlush = false;
  int32_t highRank = 0;
};

inline StraightTest TestStraight(const SevenCards& cards, const BoardRecord& board, bool flush,
                                 int32_t suit) {
  StraightTest result;
  if (board.firstWindow < 0) return result;
  int32_t mask = 0;
  int32_t suitMask = 0;
  for (const Card& card : cards) {
    if (!IsRank(card.rank)) continue;
    mask |= CardRankBits(card.rank);
    if (card.suit == suit) suitMask |= CardRankBits(card.rank);
  }
  for (int w = board.firstWindow; w <= board.lastWindow && w < kStraightWindowCount; ++w) {
    const StraightWindow& window = kStraightWindows[w];
    if ((mask & window.mask) != window.mask) continue;
    result.straight = true;
    const bool straightFlush = flush && (suitMask & window.mask) == window.mask;
    if (straightFlush) {
      result.straightFlush = true;
      result.highRank = window.highRank;
    } else if (!result.straightFlush) {
      result.highRank = window.highRank;
    }
  }
  return result;
}

// One player's standing after the upgrades: the final category and what the tie-breaks read.
struct ShowdownHand {
  int32_t category = kMadeHighCard;
  PairType pairType;
  FlushTest flush;
  StraightTest straight;
  int32_t highHole = 0;  // the higher hole rank
  int32_t lowHole = 0;   // the lower hole rank
};

inline ShowdownHand EvaluateShowdownHand(Card hole1, Card hole2, const BoardRecord& board) {
  const SevenCards cards = PlayerCards(hole1, hole2, board);
  ShowdownHand hand;
  if (board.flushSuit != -1) hand.flush = TestFlush(cards, board.flushSuit);
  hand.pairType = EvaluatePairType(cards);
  hand.straight = TestStraight(cards, board, hand.flush.flush, board.flushSuit);
  hand.highHole = std::max(hole1.rank, hole2.rank);
  hand.lowHole = std::min(hole1.rank, hole2.rank);

  hand.category = hand.pairType.category;
  if (hand.flush.flush && hand.category < kMadeFlush) hand.category = kMadeFlush;
  if (hand.straight.straight && hand.category < kMadeStraight) hand.category = kMadeStraight;
  if (hand.straight.straightFlush) {
    hand.category = hand.straight.highRank == 14 ? kMadeRoyalFlush : kMadeStraightFlush;
  }
  return hand;
}

// The decision for two players already evaluated on one board. Both false is a tie.
inline ShowdownResult CompareShowdownHands(const ShowdownHand& mine, const ShowdownHand& theirs) {
  // The early flush decision: a flush beats anything short of a full house at once. (Two flushes go on
  // to the flush-rank comparison.)
  if (mine.flush.flush && !theirs.flush.flush && theirs.pairType.category < kMadeFlush) return {true, false};
  if (theirs.flush.flush && !mine.flush.flush && mine.pairType.category < kMadeFlush) return {false, true};

  if (mine.category != theirs.category) return FromOrder(CompareValues(mine.category, theirs.category));

  // Worked out first, used only where the category's rule says so.
  int kicker = CompareValues(mine.highHole, theirs.highHole);
  if (kicker == 0) kicker = CompareValues(mine.lowHole, theirs.lowHole);

  switch (mine.category) {
    case kMadeHighCard:
      return FromOrder(kicker);
    case kMadePair:
    case kMadeThreeOfAKind:
    case kMadeFourOfAKind: {
      const int primary = CompareValues(mine.pairType.primary, theirs.pairType.primary);
      return FromOrder(primary != 0 ? primary : kicker);
    }
    case kMadeTwoPair: {
      int order = CompareValues(mine.pairType.primary, theirs.pairType.primary);
      if (order == 0) order = CompareValues(mine.pairType.secondary, theirs.pairType.secondary);
      if (order == 0)
        order = CompareValues(mine.highHole, theirs.highHole);  // the lower hole rank never counts
      return FromOrder(order);
    }
    case kMadeFullHouse: {
      int order = CompareValues(mine.pairType.primary, theirs.pairType.primary);
      if (order == 0) order = CompareValues(mine.pairType.secondary, theirs.pairType.secondary);
      return FromOrder(order);
    }
    case kMadeStraight:
    case kMadeStraightFlush:
      return FromOrder(CompareValues(mine.straight.highRank, theirs.straight.highRank));
    case kMadeFlush:
      return FromOrder(CompareValues(mine.flush.flushRank, theirs.flush.flushRank));
    default:  // royal flush against royal flush
      return {};
  }
}

// My Hand against one opponent holding on the board of the record.
inline ShowdownResult CompareShowdown(const HandCards& myHand, const HandCombo& opponent,
                                      const BoardRecord& board) {
  return CompareShowdownHands(EvaluateShowdownHand(myHand.card1(), myHand.card2(), board),
                              EvaluateShowdownHand(opponent.card1(), opponent.card2(), board));
}

}  // namespace quillet::testing
