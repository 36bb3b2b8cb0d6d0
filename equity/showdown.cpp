#include "equity/showdown.h"

#include <algorithm>

namespace quillet {
namespace {

constexpr bool IsRank(int32_t rank) {
  return rank >= 2 && rank <= 14;
}

// +1 when a is higher, -1 when b is, 0 when equal.
constexpr int CompareValues(int32_t a, int32_t b) {
  return a > b ? 1 : (a < b ? -1 : 0);
}

ShowdownResult FromOrder(int order) {
  return ShowdownResult{order > 0, order < 0};
}

}  // namespace

SevenCards PlayerCards(Card hole1, Card hole2, const BoardRecord& board) {
  return SevenCards{hole1,          hole2,          board.cards[0], board.cards[1],
                    board.cards[2], board.cards[3], board.cards[4]};
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
  if (quads != 0) return {kCategoryQuads, quads, 0};
  if (fullHouse) return {kCategoryFullHouse, trips, topPair};
  if (trips != 0) return {kCategoryTrips, trips, 0};
  if (secondPair != 0) return {kCategoryTwoPair, topPair, secondPair};
  if (topPair != 0) return {kCategoryOnePair, topPair, 0};
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
  if (hand.flush.flush && hand.category < kCategoryFlush) hand.category = kCategoryFlush;
  if (hand.straight.straight && hand.category < kCategoryStraight) hand.category = kCategoryStraight;
  if (hand.straight.straightFlush) {
    hand.category = hand.straight.highRank == 14 ? kCategoryRoyalFlush : kCategoryStraightFlush;
  }
  return hand;
}

ShowdownResult CompareShowdown(const HandCards& myHand, const HandCombo& opponent, const BoardRecord& board,
                               int32_t /*street*/) {
  return CompareShowdownHands(EvaluateShowdownHand(myHand.card1(), myHand.card2(), board),
                              EvaluateShowdownHand(opponent.card1(), opponent.card2(), board));
}

ShowdownResult CompareShowdownHands(const ShowdownHand& mine, const ShowdownHand& theirs) {
  // The early flush decision: a flush beats anything short of a full house at once. (Two flushes go on
  // to the flush-rank comparison.)
  if (mine.flush.flush && !theirs.flush.flush && theirs.pairType.category < kCategoryFlush)
    return {true, false};
  if (theirs.flush.flush && !mine.flush.flush && mine.pairType.category < kCategoryFlush)
    return {false, true};

  if (mine.category != theirs.category) return FromOrder(CompareValues(mine.category, theirs.category));

  // Worked out first, used only where the category's rule says so.
  int kicker = CompareValues(mine.highHole, theirs.highHole);
  if (kicker == 0) kicker = CompareValues(mine.lowHole, theirs.lowHole);

  switch (mine.category) {
    case kCategoryNoPair:
      return FromOrder(kicker);
    case kCategoryOnePair:
    case kCategoryTrips:
    case kCategoryQuads: {
      const int primary = CompareValues(mine.pairType.primary, theirs.pairType.primary);
      return FromOrder(primary != 0 ? primary : kicker);
    }
    case kCategoryTwoPair: {
      int order = CompareValues(mine.pairType.primary, theirs.pairType.primary);
      if (order == 0) order = CompareValues(mine.pairType.secondary, theirs.pairType.secondary);
      if (order == 0)
        order = CompareValues(mine.highHole, theirs.highHole);  // the lower hole rank never counts
      return FromOrder(order);
    }
    case kCategoryFullHouse: {
      int order = CompareValues(mine.pairType.primary, theirs.pairType.primary);
      if (order == 0) order = CompareValues(mine.pairType.secondary, theirs.pairType.secondary);
      return FromOrder(order);
    }
    case kCategoryStraight:
    case kCategoryStraightFlush:
      return FromOrder(CompareValues(mine.straight.highRank, theirs.straight.highRank));
    case kCategoryFlush:
      return FromOrder(CompareValues(mine.flush.flushRank, theirs.flush.flushRank));
    default:  // royal flush against royal flush
      return {};
  }
}

}  // namespace quillet
