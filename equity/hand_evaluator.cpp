#include "equity/hand_evaluator.h"

#include <bit>

namespace quillet {
namespace {

// Rank of the highest bit of a non-empty rank mask.
int32_t HighestRank(uint32_t rankMask) {
  return 2 + std::bit_width(rankMask) - 1;
}

uint32_t RankBit(int32_t rank) {
  return 1u << (rank - 2);
}

// Packs the category and up to `n` of the highest ranks of `rankMask` after the given leading ranks.
HandValue Pack(MadeCode category, std::initializer_list<int32_t> leading, uint32_t rankMask, int n) {
  auto value = static_cast<HandValue>(category);
  int fields = 0;
  for (int32_t rank : leading) {
    value = value << 4 | static_cast<uint32_t>(rank);
    ++fields;
  }
  for (int i = 0; i < n && rankMask != 0; ++i) {
    const int32_t rank = HighestRank(rankMask);
    rankMask &= ~RankBit(rank);
    value = value << 4 | static_cast<uint32_t>(rank);
    ++fields;
  }
  return value << (4 * (5 - fields));
}

// The non-flush hands from rank layers: `once` holds the ranks present, `twice` those present at least
// twice, `thrice` at least three times, `four` four times.
HandValue EvaluateLayers(uint32_t once, uint32_t twice, uint32_t thrice, uint32_t four) {
  if (four != 0) {
    const int32_t quads = HighestRank(four);
    return Pack(kMadeFourOfAKind, {quads}, once & ~RankBit(quads), 1);
  }
  if (thrice != 0) {
    const int32_t trips = HighestRank(thrice);
    const uint32_t otherPairs = twice & ~RankBit(trips);  // a second trips counts as the pair
    if (otherPairs != 0) return Pack(kMadeFullHouse, {trips, HighestRank(otherPairs)}, 0, 0);
  }
  if (const int32_t high = StraightHighRank(once); high != 0) return Pack(kMadeStraight, {high}, 0, 0);
  if (thrice != 0) {
    const int32_t trips = HighestRank(thrice);
    return Pack(kMadeThreeOfAKind, {trips}, once & ~RankBit(trips), 2);
  }
  if (twice != 0) {
    const int32_t top = HighestRank(twice);
    const uint32_t rest = twice & ~RankBit(top);
    if (rest != 0) {
      const int32_t second = HighestRank(rest);
      return Pack(kMadeTwoPair, {top, second}, once & ~RankBit(top) & ~RankBit(second), 1);
    }
    return Pack(kMadePair, {top}, once & ~RankBit(top), 3);
  }
  return Pack(kMadeHighCard, {}, once, 5);
}

}  // namespace

int32_t StraightHighRank(uint32_t rankMask) {
  // Bit 0 of `m` is the ace playing low, bit j rank j + 1.
  const uint32_t m = (rankMask << 1) | ((rankMask >> 12) & 1);
  const uint32_t runs = m & (m >> 1) & (m >> 2) & (m >> 3) & (m >> 4);
  if (runs == 0) return 0;
  return std::bit_width(runs) - 1 + 5;  // a run starting at bit j ends at rank j + 5
}

HandValue EvaluateFlush(uint32_t rankMask) {
  if (const int32_t high = StraightHighRank(rankMask); high != 0)
    return Pack(kMadeStraightFlush, {high}, 0, 0);
  return Pack(kMadeFlush, {}, rankMask, 5);
}

HandValue EvaluateRanks(const std::array<uint8_t, 13>& counts) {
  uint32_t layers[4] = {0, 0, 0, 0};
  for (int i = 0; i < 13; ++i) {
    for (int k = 0; k < counts[i] && k < 4; ++k) layers[k] |= 1u << i;
  }
  return EvaluateLayers(layers[0], layers[1], layers[2], layers[3]);
}

HandValue EvaluateCards(CardSet cards) {
  const uint32_t c = CardSetSuitRanks(cards, 0);
  const uint32_t d = CardSetSuitRanks(cards, 1);
  const uint32_t h = CardSetSuitRanks(cards, 2);
  const uint32_t s = CardSetSuitRanks(cards, 3);
  // With seven cards or fewer a flush rules out quads and a full house, so it can be decided first.
  for (uint32_t suit : {c, d, h, s}) {
    if (std::popcount(suit) >= 5) return EvaluateFlush(suit);
  }
  const uint32_t once = c | d | h | s;
  const uint32_t twice = (c & d) | (c & h) | (c & s) | (d & h) | (d & s) | (h & s);
  const uint32_t thrice = (c & d & (h | s)) | (h & s & (c | d));
  const uint32_t four = c & d & h & s;
  return EvaluateLayers(once, twice, thrice, four);
}

HandValue EvaluateCards(std::span<const Card> cards) {
  CardSet set = 0;
  for (const Card& card : cards) set |= CardSetBit(card);
  return EvaluateCards(set);
}

}  // namespace quillet
