// The hand reader: what two hole cards make with a board, piece by piece: the rank multiplicity (pairs up
// to quads), the flush count, straights and straight flushes over the ten spans of five ranks, the best
// straight-draw span, and the board's top, middle and bottom ranks. Small value types over a list of at
// most seven cards; the only tables are the spans and the straight table built from them at compile time.
//
// The cook's classification and the showdown key (showdown_key.h) are both built from these, so a hand is
// read the same way wherever it is read. Each rule of a hand is written here once: the made-hand codes,
// the flush count, the spans of a straight, the ladder of pairs, trips, full house and quads.
#pragma once

#include <array>
#include <bit>
#include <cstdint>

#include "cards/card.h"

namespace quillet {

// Made-hand codes, weakest first: the one list of a hand's categories. The cook files a holding by its
// code and the showdown key (showdown_key.h) carries it in its top field.
enum MadeCode : int32_t {
  kMadeHighCard = 0,
  kMadePair = 1,
  kMadeTwoPair = 2,
  kMadeThreeOfAKind = 3,
  kMadeStraight = 4,
  kMadeFlush = 5,
  kMadeFullHouse = 6,
  kMadeFourOfAKind = 7,
  kMadeStraightFlush = 8,
  kMadeRoyalFlush = 9,
};

// A flush needs exactly five cards of one suit: six or seven cards of the suit make no flush.
inline constexpr int32_t kFlushCards = 5;
constexpr bool MakesFlush(int32_t cardsOfSuit) {
  return cardsOfSuit == kFlushCards;
}

// A set of ranks as bits: bit r for rank r. An ace sets bit 14 and, for straights, bit 1 as well.
using RankSet = uint32_t;

struct StraightSpan {
  int32_t low = 0;   // 1 (the ace, for the wheel) to 10
  int32_t high = 0;  // low + 4
  RankSet mask = 0;  // the five rank bits
};

struct StraightTableSet {
  std::array<RankSet, 15> rankBit{};     // indexed 1..14: 2 to the power of the rank; entry 0 is 0
  std::array<StraightSpan, 10> spans{};  // span k runs from rank k + 1 to k + 5; span 0 is the wheel
};

// The rank bits and the ten spans of a straight, the only place they are written.
constexpr StraightTableSet InitStraightTables() {
  StraightTableSet t;
  t.rankBit[0] = 0;
  for (int32_t rank = 1; rank <= 14; ++rank) t.rankBit[rank] = RankSet{1} << rank;
  for (int32_t k = 0; k < 10; ++k) {
    // 62 holds the bits of ranks 1 to 5.
    t.spans[k] = StraightSpan{k + 1, k + 5, RankSet{62} << k};
  }
  return t;
}
inline constexpr StraightTableSet kStraightTables = InitStraightTables();
constexpr const StraightTableSet& StraightTables() {
  return kStraightTables;
}

// Compact rank masks for tables: 13 bits, rank r (2..14) is bit r - 2, the ace only high.
constexpr uint32_t RankMaskBit(int32_t rank) {
  return uint32_t{1} << (rank - 2);
}
// The highest rank in a compact mask, 0 for an empty mask.
constexpr int32_t TopRankOf(uint32_t mask) {
  return mask == 0 ? 0 : static_cast<int32_t>(std::bit_width(mask)) + 1;
}
// A rank set as a compact mask, and back (the ace also low).
constexpr uint32_t CompactRanks(RankSet ranks) {
  return (ranks >> 2) & 8191u;
}
constexpr RankSet RankSetOfMask(uint32_t mask) {
  return (mask << 2) | ((mask >> 12) & 1u) << 1;
}

namespace detail {

// The high rank of the highest span whose ranks all lie in a compact mask, 0 when none.
inline constexpr std::array<uint8_t, 8192> kStraightHigh = [] {
  std::array<uint8_t, 8192> table{};
  for (uint32_t mask = 0; mask < 8192; ++mask) {
    const RankSet ranks = RankSetOfMask(mask);
    for (const StraightSpan& span : kStraightTables.spans) {
      if ((ranks & span.mask) == span.mask) table[mask] = static_cast<uint8_t>(span.high);
    }
  }
  return table;
}();

}  // namespace detail

// The high rank of the best straight among the ranks of a compact mask, 0 when there is none.
constexpr int32_t StraightHighOf(uint32_t mask) {
  return detail::kStraightHigh[mask & 8191u];
}

// The ranks of up to seven cards by how often they occur, as nested compact masks: rank r's bit is set in
// atLeast[k] when r occurs more than k times.
struct RankMultiset {
  std::array<uint32_t, 5> atLeast{};

  constexpr void Add(int32_t rank) {
    const uint32_t bit = RankMaskBit(rank);
    atLeast[4] |= atLeast[3] & bit;
    atLeast[3] |= atLeast[2] & bit;
    atLeast[2] |= atLeast[1] & bit;
    atLeast[1] |= atLeast[0] & bit;
    atLeast[0] |= bit;
  }
  constexpr uint32_t Present() const { return atLeast[0]; }
  // The ranks that occur exactly `times` times (2, 3 or 4).
  constexpr uint32_t Exactly(int times) const { return atLeast[times - 1] & ~atLeast[times]; }
};

// The cards one hand plays with: the holding's two cards first (when there is a holding), then the board
// cards that exist on the street, in board order. The analyses visit the cards in this order.
struct PlayedCards {
  std::array<Card, 7> cards{};
  int count = 0;
  int holdingCount = 0;  // 2 with a holding, 0 for the board alone
};

PlayedCards HoldingWithBoard(const HandCombo& holding, const BoardCards& board, Street street);
PlayedCards BoardAlone(const BoardCards& board, Street street);

// The ranks of the cards as bits, with the ace also counted low. Cards without a rank add nothing.
RankSet RankSetOf(const PlayedCards& played);

// Rank multiplicity: the largest four-of-a-kind and three-of-a-kind ranks, the two highest pair ranks
// (a second three of a kind counts as the high pair), whether a full house is there, and the code that
// follows from them: 7, 6, 3, 2, 1 or 0. Ranks are 0 where there is none. A rank held five times or more
// (only a card given twice can do that) makes no group.
struct Multiplicity {
  int32_t code = kMadeHighCard;
  int32_t quads = 0;
  int32_t trips = 0;
  int32_t highPair = 0;
  int32_t lowPair = 0;
  bool fullHouse = false;
};
constexpr Multiplicity MultiplicityOf(const RankMultiset& ranks) {
  const uint32_t quads = ranks.Exactly(4);
  const uint32_t trips = ranks.Exactly(3);
  const uint32_t pairs = ranks.Exactly(2);
  Multiplicity m;
  m.quads = TopRankOf(quads);
  m.trips = TopRankOf(trips);
  m.highPair = TopRankOf(m.trips != 0 ? (pairs | trips) & ~RankMaskBit(m.trips) : pairs);
  m.lowPair = m.highPair != 0 ? TopRankOf(pairs & ~RankMaskBit(m.highPair)) : 0;
  m.fullHouse = m.trips != 0 && m.highPair != 0;
  if (m.quads != 0) {
    m.code = kMadeFourOfAKind;
  } else if (m.fullHouse) {
    m.code = kMadeFullHouse;
  } else if (m.trips != 0) {
    m.code = kMadeThreeOfAKind;
  } else if (m.lowPair != 0) {
    m.code = kMadeTwoPair;
  } else if (m.highPair != 0) {
    m.code = kMadePair;
  } else {
    m.code = kMadeHighCard;
  }
  return m;
}
// The ranks of the cards that have one (cards without a rank add nothing).
RankMultiset RankMultisetOf(const PlayedCards& played);
Multiplicity AnalyseMultiplicity(const PlayedCards& played);

// Whether two analyses show the same group for the same code: the one rank of a pair, a three of a kind
// or a four of a kind, both ranks of two pair or a full house. Other codes never match.
bool SameGroupRanks(const Multiplicity& a, const Multiplicity& b);

// The suit with the most cards, looked for in the order clubs, diamonds, hearts, spades, where a suit
// must have more cards than the best so far and the search ends once the best has three or more. A flush
// is MakesFlush of the best suit's count.
struct FlushAnalysis {
  bool flush = false;
  int32_t cardsNeeded = 5;  // 5 - the best suit's count; 0 or less once five or more are there
  int32_t topRank = 0;      // the holding's higher rank in the best suit, 0 when it has none
  int32_t suit = kNoCard;   // the best suit, -1 when there are no cards
};
FlushAnalysis AnalyseFlush(const PlayedCards& played);

// Straights over the spans. A straight flush needs every rank of a straight span in the flush suit, which
// the flush analysis only names when that suit has exactly five cards. The high rank is that of the
// highest straight-flush span when there is one, else that of the highest straight span.
struct StraightAnalysis {
  bool straight = false;
  bool straightFlush = false;
  int32_t highRank = 0;
};
StraightAnalysis AnalyseStraight(const PlayedCards& played, const FlushAnalysis& flush);

// The span with the most ranks present. On a tie a higher span replaces the best unless the best is a
// true draw (open-ended or made) and the higher one is a gutshot. With four ranks present, a missing low
// end below an ace-high span is open-ended, a hole with the high end present (or any four of the wheel)
// is a gutshot, and a missing high end elsewhere is open-ended.
struct StraightDrawAnalysis {
  int32_t cardsNeeded = 5;
  int32_t highRank = 0;
  bool gutshot = true;
};
StraightDrawAnalysis AnalyseStraightDraw(RankSet ranks);

// Top and bottom are the highest and lowest rank on the board. The middle starts at the bottom and is
// raised by board cards 2, 3, 4, 5 (as far as the street goes) that lie below the top and above the
// middle so far; card 1 is never looked at, so Q-K-5 has the middle 5. All 0 without a board.
struct BoardRanks {
  int32_t top = 0;
  int32_t middle = 0;
  int32_t bottom = 0;
};
BoardRanks TopMiddleBottom(const BoardCards& board, Street street);

}  // namespace quillet
