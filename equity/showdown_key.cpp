#include "equity/showdown_key.h"

#include "equity/showdown.h"

namespace quillet {

ShowdownKey RankPartKey(const RankMultiset& ranks, int32_t highHole, int32_t lowHole) {
  const uint32_t quads = ranks.atLeast[3];
  const uint32_t trips = ranks.atLeast[2] & ~ranks.atLeast[3];
  const uint32_t pairs = ranks.atLeast[1] & ~ranks.atLeast[2];

  if (quads != 0) return MakeShowdownKey(kCategoryQuads, TopRankOf(quads), highHole, lowHole);
  if (trips != 0) {
    const int32_t top = TopRankOf(trips);
    // The pair of a full house is the best other pair or other trips.
    const uint32_t rest = (pairs | trips) & ~RankMaskBit(top);
    if (rest != 0) return MakeShowdownKey(kCategoryFullHouse, top, TopRankOf(rest));
  }
  if (const int32_t high = detail::kStraightHigh[ranks.atLeast[0]]; high != 0) {
    return MakeShowdownKey(kCategoryStraight, high);
  }
  if (trips != 0) return MakeShowdownKey(kCategoryTrips, TopRankOf(trips), highHole, lowHole);
  if (pairs != 0) {
    const int32_t top = TopRankOf(pairs);
    const uint32_t rest = pairs & ~RankMaskBit(top);
    if (rest != 0) return MakeShowdownKey(kCategoryTwoPair, top, TopRankOf(rest), highHole);
    return MakeShowdownKey(kCategoryOnePair, top, highHole, lowHole);
  }
  return MakeShowdownKey(kCategoryNoPair, highHole, lowHole);
}

ShowdownKey ShowdownKeyOf(Card hole1, Card hole2, const std::array<Card, 5>& board) {
  std::array<int, 4> suitCounts{};
  for (const Card& card : board) ++suitCounts[card.suit];
  int32_t flushSuit = -1;
  for (int suit = 0; suit < 4; ++suit) {
    if (suitCounts[suit] > 2) flushSuit = suit;
  }

  RankMultiset ranks;
  uint32_t boardSuitRanks = 0;
  for (const Card& card : board) {
    ranks.Add(card.rank);
    if (card.suit == flushSuit) boardSuitRanks |= RankMaskBit(card.rank);
  }
  ranks.Add(hole1.rank);
  ranks.Add(hole2.rank);
  uint32_t holeSuitRanks = 0;
  if (hole1.suit == flushSuit) holeSuitRanks |= RankMaskBit(hole1.rank);
  if (hole2.suit == flushSuit) holeSuitRanks |= RankMaskBit(hole2.rank);

  const ShowdownKey rankPart = RankPartKey(ranks, hole1.rank > hole2.rank ? hole1.rank : hole2.rank,
                                           hole1.rank < hole2.rank ? hole1.rank : hole2.rank);
  const ShowdownKey flushPart = FlushPartKey(boardSuitRanks | holeSuitRanks, holeSuitRanks);
  return flushPart > rankPart ? flushPart : rankPart;
}

}  // namespace quillet
