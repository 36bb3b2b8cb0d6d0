// Two hole ranks as an index into a table of 13 x 13 entries: (rank1 - 2) x 13 + rank2 - 2. A table filled
// in both orders has a row for every pair with one given rank; the lower rank first gives the one index
// each holding is counted under.
#pragma once

#include <cstdint>

namespace quillet {

inline constexpr int kRankPairCount = 169;

// The pair in the order given.
constexpr int RankPairIndex(int32_t rank1, int32_t rank2) {
  return (rank1 - 2) * 13 + (rank2 - 2);
}

// The same pair with the lower rank first.
constexpr int CanonicalPairIndex(int32_t rank1, int32_t rank2) {
  return rank1 <= rank2 ? RankPairIndex(rank1, rank2) : RankPairIndex(rank2, rank1);
}

}  // namespace quillet
