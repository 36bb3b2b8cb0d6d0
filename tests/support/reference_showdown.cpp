// The reference showdown comparator's steps (tests/support/reference_showdown.h). They are compiled once,
// like the core, into a library the test programs share: the exhaustive comparisons call them millions of
// times.
#include "tests/support/reference_showdown.h"

#include <algorithm>
#include <array>

namespace quillet::testing {

void BoardFlushSuit(BoardRecord& board) {
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

void BoardStraightWindows(BoardRecord& board) {
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

BoardRecord MakeBoardRecord(const std::array<Card, 5>& cards) {
  BoardRecord board;
  board.cards = cards;
  BoardFlushSuit(board);
  BoardStraightWindows(board);
  return board;
}

BoardRecord MakeBoardRecord(const BoardCards& cards, Street street) {
  BoardRecord board = MakeBoardRecord(cards.cards);
  board.count = BoardCardCount(street);
  BoardFlushSuit(board);
  BoardStraightWindows(board);
  return board;
}

SevenCards PlayerCards(Card hole1, Card hole2, const BoardRecord& board) {
  SevenCards seven;
  seven.cards[0] = hole1;
  seven.cards[1] = hole2;
  for (int i = 0; i < board.count; ++i) seven.cards[2 + i] = board.cards[i];
  seven.count = 2 + board.count;
  return seven;
}

FlushTest TestFlush(const SevenCards& cards, int32_t suit) {
  FlushTest result;
  int count = 0;
  for (const Card& card : cards) count += card.suit == suit ? 1 : 0;
  result.flush = count == 5;  // six or seven of the suit make no flush, on purpose
  for (int i = 0; i < 2; ++i) {
    if (cards[i].suit == suit) result.flushRank = std::max(result.flushRank, cards[i].rank);
  }
  return result;
}

PairType EvaluatePairType(const SevenCards& cards) {
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

StraightTest TestStraight(const SevenCards& cards, const BoardRecord& board, bool flush, int32_t suit) {
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

ShowdownHand EvaluateShowdownHand(Card hole1, Card hole2, const BoardRecord& board) {
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

ShowdownResult CompareShowdownHands(const ShowdownHand& mine, const ShowdownHand& theirs) {
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

ShowdownResult CompareShowdown(const HandCards& myHand, const HandCombo& opponent, const BoardRecord& board) {
  return CompareShowdownHands(EvaluateShowdownHand(myHand.card1(), myHand.card2(), board),
                              EvaluateShowdownHand(opponent.card1(), opponent.card2(), board));
}
}  // namespace quillet::testing
