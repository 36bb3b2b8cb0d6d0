// The showdown under the program's own rules: each player's cards become one integer key, the higher key
// wins the showdown and equal keys tie. The engine counts its showdowns with these keys and the results
// tree's win/tie/lose icons compare the same keys on the cards of the street.
//
// The rules are this program's own, kept on purpose:
// - a flush needs exactly five cards of the board's flush suit: six or seven of them make no flush;
// - a flush beats anything short of a full house;
// - kickers come from the two hole cards only, whether or not they play;
// - equal two pair is decided by the higher hole rank alone, the lower one is never consulted;
// - a flush is ranked by the player's highest hole card of the suit alone (0 when none).
//
// Key layout (20 bits): category << 16 | f1 << 12 | f2 << 8 | f3 << 4, the category a made-hand code
// (board_analysis.h) and the fields ranks 2..14 in the order the tie-breaks read them:
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
// ShowdownKeyOf(Multiplicity, ...) is where the order of the categories and the tie-breaks are written.
// The engine's fast path splits a key into a rank part (pairs, trips, quads, full house, straight,
// kickers: a function of the seven ranks and the two hole ranks) and a flush part (a function of the
// player's ranks in the board's flush suit), both made by that function. A flush part that is not 0 beats
// every rank part short of a full house, a full house or quads beat a plain flush, and a straight flush
// beats them all, so a player's key is the larger of the two parts. The engine tabulates the rank part
// once per board.
#pragma once

#include <array>
#include <bit>
#include <cstdint>

#include "cards/board_analysis.h"
#include "cards/card.h"

namespace quillet {

using ShowdownKey = uint32_t;

constexpr ShowdownKey MakeShowdownKey(int32_t category, int32_t f1 = 0, int32_t f2 = 0, int32_t f3 = 0) {
  return static_cast<ShowdownKey>(category << 16 | f1 << 12 | f2 << 8 | f3 << 4);
}
constexpr int32_t KeyCategory(ShowdownKey key) {
  return static_cast<int32_t>(key >> 16);
}

// The key of a flush: a royal flush or straight flush when the ranks in the suit hold a straight (its
// high rank given, 0 for none), else a flush ranked by the highest hole card of the suit.
constexpr ShowdownKey MadeFlushKey(int32_t straightFlushHigh, int32_t flushRank) {
  if (straightFlushHigh == 14) return MakeShowdownKey(kMadeRoyalFlush);
  if (straightFlushHigh != 0) return MakeShowdownKey(kMadeStraightFlush, straightFlushHigh);
  return MakeShowdownKey(kMadeFlush, flushRank);
}
// The same from the player's ranks in the flush suit and its hole ranks in it (compact masks).
constexpr ShowdownKey FlushKeyOf(uint32_t suitRanks, uint32_t holeSuitRanks) {
  return MadeFlushKey(StraightHighOf(suitRanks), TopRankOf(holeSuitRanks));
}

// One player's key from what the hand makes: its rank groups, the high rank of its best straight (0 for
// none) and, with a flush, the flush's key (0 for none). The category is the best of the three: a
// straight flush or royal flush first, then a flush short of a full house, then a straight short of a
// full house; otherwise the rank groups.
constexpr ShowdownKey ShowdownKeyOf(const Multiplicity& m, int32_t straightHigh, ShowdownKey flushKey,
                                    int32_t highHole, int32_t lowHole) {
  if (KeyCategory(flushKey) >= kMadeStraightFlush) return flushKey;
  if (flushKey != 0 && m.code < kMadeFullHouse) return flushKey;
  if (straightHigh != 0 && m.code < kMadeStraight) return MakeShowdownKey(kMadeStraight, straightHigh);
  switch (m.code) {
    case kMadeFourOfAKind:
      return MakeShowdownKey(kMadeFourOfAKind, m.quads, highHole, lowHole);
    case kMadeFullHouse:
      return MakeShowdownKey(kMadeFullHouse, m.trips, m.highPair);
    case kMadeThreeOfAKind:
      return MakeShowdownKey(kMadeThreeOfAKind, m.trips, highHole, lowHole);
    case kMadeTwoPair:
      return MakeShowdownKey(kMadeTwoPair, m.highPair, m.lowPair, highHole);
    case kMadePair:
      return MakeShowdownKey(kMadePair, m.highPair, highHole, lowHole);
    default:
      return MakeShowdownKey(kMadeHighCard, highHole, lowHole);
  }
}

namespace detail {

// Bit 31 of a flush entry: the entry is a plain flush, whose f1 field still takes the flush rank.
inline constexpr uint32_t kFlushRankFlag = 0x80000000u;

// For a player's ranks in the board's flush suit: 0 unless they make a flush; then the straight-flush
// or royal-flush key, or the flush key flagged to take the flush rank.
inline constexpr std::array<uint32_t, 8192> kFlushEntry = [] {
  std::array<uint32_t, 8192> table{};
  for (uint32_t mask = 0; mask < 8192; ++mask) {
    if (!MakesFlush(std::popcount(mask))) continue;
    const ShowdownKey key = FlushKeyOf(mask, 0);
    table[mask] = KeyCategory(key) == kMadeFlush ? key | kFlushRankFlag : key;
  }
  return table;
}();

}  // namespace detail

// The rank part of a key: seven ranks (board and hole) and the two hole ranks for the kickers.
constexpr ShowdownKey RankPartKey(const RankMultiset& ranks, int32_t highHole, int32_t lowHole) {
  return ShowdownKeyOf(MultiplicityOf(ranks), StraightHighOf(ranks.Present()), 0, highHole, lowHole);
}

// The flush part of a key: `suitRanks` are the player's ranks in the board's flush suit (board and hole
// cards, different cards), `holeSuitRanks` the hole cards' ranks in that suit. 0 unless they make a flush.
constexpr ShowdownKey FlushPartKey(uint32_t suitRanks, uint32_t holeSuitRanks) {
  const uint32_t entry = detail::kFlushEntry[suitRanks & 8191u];
  const uint32_t rankField = static_cast<uint32_t>(TopRankOf(holeSuitRanks)) << 12;
  return (entry & ~detail::kFlushRankFlag) | (rankField & (0u - (entry >> 31)));
}

// The key from the hand reader's three analyses of one hand.
ShowdownKey ShowdownKeyOf(const Multiplicity& m, const FlushAnalysis& flush, const StraightAnalysis& straight,
                          int32_t highHole, int32_t lowHole);
// The key of the cards one hand plays with (the holding first, then the board cards of the street): what
// the hand reader makes of them. Any number of cards up to seven; a card given twice counts twice.
ShowdownKey ShowdownKeyOf(const PlayedCards& played);
// The whole key of one player: two hole cards and five board cards.
ShowdownKey ShowdownKeyOf(Card hole1, Card hole2, const std::array<Card, 5>& board);
// A holding's key on the board cards that exist on `street` (none without a board).
ShowdownKey StreetShowdownKey(const HandCombo& holding, const BoardCards& board, Street street);

// Both false is a tie.
struct ShowdownResult {
  bool myWin = false;
  bool oppWin = false;
  friend constexpr bool operator==(const ShowdownResult&, const ShowdownResult&) = default;
};

constexpr ShowdownResult CompareShowdownKeys(ShowdownKey mine, ShowdownKey theirs) {
  return ShowdownResult{mine > theirs, mine < theirs};
}

// My Hand against `opponent` on the board cards that exist on `street` (three on the flop, four on the
// turn, five on the river, none without a board): the results tree's win/tie/lose icons.
ShowdownResult ComparePartialBoardShowdown(const HandCards& myHand, const HandCombo& opponent,
                                           const BoardCards& board, Street street);

}  // namespace quillet
