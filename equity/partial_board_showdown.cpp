#include "equity/partial_board_showdown.h"

#include <algorithm>

namespace quillet {
namespace {

// +1 when a is higher, -1 when b is, 0 when equal.
constexpr int CompareValues(int32_t a, int32_t b) {
  return a > b ? 1 : (a < b ? -1 : 0);
}

constexpr ShowdownResult FromOrder(int order) {
  return ShowdownResult{order > 0, order < 0};
}

// The rank a category is first decided by, and the one after it.
int32_t Primary(const Multiplicity& m) {
  switch (m.code) {
    case kMadeFourOfAKind:
      return m.quads;
    case kMadeFullHouse:
    case kMadeThreeOfAKind:
      return m.trips;
    default:
      return m.highPair;
  }
}

int32_t Secondary(const Multiplicity& m) {
  switch (m.code) {
    case kMadeFullHouse:
      return m.highPair;
    case kMadeTwoPair:
      return m.lowPair;
    default:
      return 0;
  }
}

}  // namespace

StreetHand EvaluateStreetHand(const HandCombo& holding, const BoardCards& board, int32_t street) {
  const PlayedCards played = HoldingWithBoard(holding, board, street);
  StreetHand hand;
  hand.pairType = AnalyseMultiplicity(played);
  hand.flush = AnalyseFlush(played);
  hand.straight = AnalyseStraight(played, hand.flush);
  hand.highHole = std::max(holding.rank1, holding.rank2);
  hand.lowHole = std::min(holding.rank1, holding.rank2);

  hand.category = hand.pairType.code;
  if (hand.flush.flush && hand.category < kMadeFlush) hand.category = kMadeFlush;
  if (hand.straight.straight && hand.category < kMadeStraight) hand.category = kMadeStraight;
  if (hand.straight.straightFlush) {
    hand.category = hand.straight.highRank == 14 ? kMadeRoyalFlush : kMadeStraightFlush;
  }
  return hand;
}

ShowdownResult CompareStreetHands(const StreetHand& mine, const StreetHand& theirs) {
  // A flush beats anything short of a full house at once; two flushes go on to the flush ranks.
  if (mine.flush.flush && !theirs.flush.flush && theirs.pairType.code < kMadeFlush) return {true, false};
  if (theirs.flush.flush && !mine.flush.flush && mine.pairType.code < kMadeFlush) return {false, true};

  if (mine.category != theirs.category) return FromOrder(CompareValues(mine.category, theirs.category));

  int kicker = CompareValues(mine.highHole, theirs.highHole);
  if (kicker == 0) kicker = CompareValues(mine.lowHole, theirs.lowHole);

  switch (mine.category) {
    case kMadeHighCard:
      return FromOrder(kicker);
    case kMadePair:
    case kMadeThreeOfAKind:
    case kMadeFourOfAKind: {
      const int primary = CompareValues(Primary(mine.pairType), Primary(theirs.pairType));
      return FromOrder(primary != 0 ? primary : kicker);
    }
    case kMadeTwoPair: {
      int order = CompareValues(Primary(mine.pairType), Primary(theirs.pairType));
      if (order == 0) order = CompareValues(Secondary(mine.pairType), Secondary(theirs.pairType));
      // Equal two pair: the higher hole rank alone, the lower one never counts.
      if (order == 0) order = CompareValues(mine.highHole, theirs.highHole);
      return FromOrder(order);
    }
    case kMadeFullHouse: {
      int order = CompareValues(Primary(mine.pairType), Primary(theirs.pairType));
      if (order == 0) order = CompareValues(Secondary(mine.pairType), Secondary(theirs.pairType));
      return FromOrder(order);
    }
    case kMadeStraight:
    case kMadeStraightFlush:
      return FromOrder(CompareValues(mine.straight.highRank, theirs.straight.highRank));
    case kMadeFlush:
      return FromOrder(CompareValues(mine.flush.topRank, theirs.flush.topRank));
    default:  // royal flush against royal flush
      return {};
  }
}

ShowdownResult ComparePartialBoardShowdown(const HandCards& myHand, const HandCombo& opponent,
                                           const BoardCards& board, int32_t street) {
  const HandCombo mine{true, myHand.rank1, myHand.suit1, myHand.rank2, myHand.suit2};
  return CompareStreetHands(EvaluateStreetHand(mine, board, street),
                            EvaluateStreetHand(opponent, board, street));
}

}  // namespace quillet
