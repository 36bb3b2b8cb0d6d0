// The fast form of the showdown comparator: each player's seven cards become one integer key, and the
// higher key wins the showdown (equal keys tie) exactly where CompareShowdown (showdown.h) says so.
//
// Key layout (20 bits): category << 16 | f1 << 12 | f2 << 8 | f3 << 4 | f4, the fields holding ranks
// 2..14 in the order the tie-breaks read them:
//
//   category            f1            f2             f3
//   0 no pair           high hole     low hole       -
//   1 one pair          pair          high hole      low hole
//   2 two pair          top pair      second pair    high hole   (the low hole card never counts)
//   3 trips             trips         high hole      low hole
//   4 straight          high rank     -              -
//   5 flush             flush rank    -              -           (highest hole card of the suit, or 0)
//   6 full house        trips         pair           -
//   7 quads             quads         high hole      low hole
//   8 straight flush    high rank     -              -
//   9 royal flush       -             -              -
//
// The early flush decision needs no field of its own: a flush (5 and up) always outranks what the other
// player can make without a full house (4 at most), so the plain key order reproduces it.
//
// The key splits into a rank part (pairs, trips, quads, full house, straight, kickers: a function of the
// seven ranks and the two hole ranks) and a flush part (a function of the player's ranks in the board's
// flush suit). Whenever the flush part is not 0 it is the larger, so a player's key is the maximum of
// the two. Both parts come from tables here; the enumeration tabulates the rank part once per board.
#pragma once

#include <array>
#include <bit>
#include <cstdint>

#include "cards/card.h"

namespace quillet {

using ShowdownKey = uint32_t;

// 13-bit rank masks: rank r (2..14) is bit r - 2.
constexpr uint32_t RankMaskBit(int32_t rank) {
  return uint32_t{1} << (rank - 2);
}
// The highest rank in a mask, 0 for an empty mask.
constexpr int32_t TopRankOf(uint32_t mask) {
  return mask == 0 ? 0 : static_cast<int32_t>(std::bit_width(mask)) + 1;
}

constexpr ShowdownKey MakeShowdownKey(int32_t category, int32_t f1 = 0, int32_t f2 = 0, int32_t f3 = 0) {
  return static_cast<ShowdownKey>(category << 16 | f1 << 12 | f2 << 8 | f3 << 4);
}
constexpr int32_t KeyCategory(ShowdownKey key) {
  return static_cast<int32_t>(key >> 16);
}

// The ranks of up to seven cards as nested masks: bit r - 2 of atLeast[k] is set when rank r occurs more
// than k times.
struct RankMultiset {
  std::array<uint32_t, 4> atLeast{};

  constexpr void Add(int32_t rank) {
    const uint32_t bit = RankMaskBit(rank);
    atLeast[3] |= atLeast[2] & bit;
    atLeast[2] |= atLeast[1] & bit;
    atLeast[1] |= atLeast[0] & bit;
    atLeast[0] |= bit;
  }
};

namespace detail {

// The high rank of the best five-rank run in a 13-bit mask (the ace also plays low), 0 when none.
inline constexpr std::array<uint8_t, 8192> kStraightHigh = [] {
  std::array<uint8_t, 8192> table{};
  for (uint32_t mask = 0; mask < 8192; ++mask) {
    const uint32_t withLowAce = (mask << 1) | (mask >> 12);  // bit 0 = ace as rank 1, bit r-1 = rank r
    for (int high = 14; high >= 5; --high) {
      const uint32_t run = 31u << (high - 5);
      if ((withLowAce & run) == run) {
        table[mask] = static_cast<uint8_t>(high);
        break;
      }
    }
  }
  return table;
}();

// Bit 31 of a flush entry: the entry is a plain flush, whose f1 field still takes the flush rank.
inline constexpr uint32_t kFlushRankFlag = 0x80000000u;

// For a player's ranks in the board's flush suit: 0 unless exactly five; then the straight-flush or
// royal-flush key, or the flush key flagged to take the flush rank.
inline constexpr std::array<uint32_t, 8192> kFlushEntry = [] {
  std::array<uint32_t, 8192> table{};
  for (uint32_t mask = 0; mask < 8192; ++mask) {
    if (std::popcount(mask) != 5) continue;
    const int high = kStraightHigh[mask];
    if (high == 14) {
      table[mask] = MakeShowdownKey(9);
    } else if (high != 0) {
      table[mask] = MakeShowdownKey(8, high);
    } else {
      table[mask] = MakeShowdownKey(5) | kFlushRankFlag;
    }
  }
  return table;
}();

}  // namespace detail

// The rank part of a key: seven ranks (board and hole) and the two hole ranks for the kickers.
ShowdownKey RankPartKey(const RankMultiset& ranks, int32_t highHole, int32_t lowHole);

// The flush part of a key: `suitRanks` are the player's ranks in the board's flush suit (board and hole
// cards), `holeSuitRanks` the hole cards' ranks in that suit. 0 unless exactly five.
constexpr ShowdownKey FlushPartKey(uint32_t suitRanks, uint32_t holeSuitRanks) {
  const uint32_t entry = detail::kFlushEntry[suitRanks & 8191u];
  const uint32_t rankField = static_cast<uint32_t>(TopRankOf(holeSuitRanks)) << 12;
  return (entry & ~detail::kFlushRankFlag) | (rankField & (0u - (entry >> 31)));
}

// The whole key of one player: two hole cards and five board cards, all different. (Cards shared between
// the hand and the board are the reference comparator's business.)
ShowdownKey ShowdownKeyOf(Card hole1, Card hole2, const std::array<Card, 5>& board);

}  // namespace quillet
