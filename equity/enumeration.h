// The machinery every exact enumeration of the boards still to come shares: the deck and known-card masks,
// the live-holding filter, the walk over the coming boards, the flush suit of a board, the cache of
// values by rank pattern of the coming cards, and the packed per-holding tally. The equity engines (the
// program's rules, the standard rules, range against range) and the per-category counts keep only their
// own comparison and bookkeeping.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <span>
#include <vector>

#include "cards/board_analysis.h"  // RankMaskBit
#include "cards/card.h"
#include "cards/holding.h"
#include "equity/deck.h"
#include "equity/rank_pair.h"

namespace quillet {

// A card's bit in a deck mask: bit DeckIndex(card). The card must be a card of the deck.
constexpr uint64_t DeckBit(Card card) {
  return uint64_t{1} << DeckIndex(card);
}
constexpr uint64_t DeckBits(Card a, Card b) {
  return DeckBit(a) | DeckBit(b);
}

// Known cards as a deck mask: `inDeck` false when one of them is not a card of the deck (its bit is then
// left out), `distinct` false when one is given twice.
struct KnownCards {
  uint64_t bits = 0;
  bool inDeck = true;
  bool distinct = true;

  constexpr bool valid() const { return inDeck && distinct; }
  constexpr void Add(Card card) {
    if (!IsDeckCard(card)) {
      inDeck = false;
      return;
    }
    const uint64_t bit = DeckBit(card);
    if ((bits & bit) != 0) distinct = false;
    bits |= bit;
  }
};

// The units of a count of showdowns against a weighted range. While the boards are walked every showdown
// counts its holding's weight in thousandths (a whole holding 1000), so one pass over the holdings both
// counts them and finds out whether any is below whole. At the end a range whose counted holdings are all
// whole gives plain counts, each divided by kFullWeight (exactly, every count being a multiple of it): the
// tallies of a range without weights are plain counts (scale 1). A weighted range keeps
// its thousandths (scale kFullWeight).
struct WeightUnits {
  bool partial = false;  // a holding counted has a weight below whole

  // The weight a holding counts with, noting one below whole (a list's weights are 0..kFullWeight).
  constexpr int32_t Take(const HandCombo& combo) {
    partial |= combo.weight != kFullWeight;
    return combo.weight;
  }
  // How many of the counts' units make one showdown.
  constexpr uint64_t Scale() const { return partial ? uint64_t{kFullWeight} : 1; }
  // A count in thousandths, in those units.
  constexpr int64_t Out(int64_t thousandths) const {
    return partial ? thousandths : thousandths / kFullWeight;
  }
};

// The board cards that exist on `street`.
constexpr KnownCards KnownBoardCards(const BoardCards& board, Street street) {
  KnownCards known;
  for (int i = 0; i < BoardCardCount(street); ++i) known.Add(board[i]);
  return known;
}
// My Hand's two cards and the board cards that exist on `street`.
constexpr KnownCards KnownCardsWithHand(const HandCards& myHand, const BoardCards& board, Street street) {
  KnownCards known;
  known.Add(myHand.card1());
  known.Add(myHand.card2());
  for (int i = 0; i < BoardCardCount(street); ++i) known.Add(board[i]);
  return known;
}

// A holding that can take part: two different cards of the deck, neither among `deadCards`.
constexpr bool IsLiveHolding(Card a, Card b, uint64_t deadCards) {
  return IsHolding(a, b) && (DeckBits(a, b) & deadCards) == 0;
}
// The same for a listed holding, whose flag must be set too.
constexpr bool IsLiveHolding(const HandCombo& combo, uint64_t deadCards) {
  return combo.flag && IsLiveHolding(combo.card1(), combo.card2(), deadCards);
}

// The ranks of a holding's cards in `suit` (compact mask, bit r - 2 for rank r).
constexpr uint32_t SuitRanksOf(Card a, Card b, int32_t suit) {
  return (a.suit == suit ? RankMaskBit(a.rank) : 0u) | (b.suit == suit ? RankMaskBit(b.rank) : 0u);
}

// A board's cards counted by suit: how many of each suit and their ranks.
struct SuitCounts {
  std::array<int32_t, 4> counts{};
  std::array<uint32_t, 4> ranks{};

  constexpr void Add(Card card) {
    ++counts[card.suit];
    ranks[card.suit] |= RankMaskBit(card.rank);
  }
  // The suit of three or more cards (a board of five has at most one), -1 when none.
  constexpr int32_t FlushSuit() const {
    int32_t suit = -1;
    for (int32_t s = 0; s < 4; ++s) {
      if (counts[s] >= 3) suit = s;
    }
    return suit;
  }
};

// How many cards are still to come on `street`: two on the flop, one on the turn, none on the river.
constexpr int ComingCardCount(Street street) {
  return street == kFlop ? 2 : street == kTurn ? 1 : 0;
}

// How many boards a holding of two remaining cards meets when `remaining` cards are left in the deck.
constexpr int64_t BoardsMet(Street street, int remaining) {
  const int64_t rest = remaining - 2;
  return street == kFlop ? rest * (rest - 1) / 2 : street == kTurn ? rest : 1;
}

// Hands each board that can still come on `street` (two cards on the flop, one on the turn, none on the
// river), drawn in deck order from the cards not in `deadCards`, to countBoard as a span of the coming
// cards. After each row of boards (each first card on the flop, each card on the turn) `rowDone` is told
// the share of the boards counted so far and stops the walk by returning false. Returns how many cards
// are left in the deck, or -1 when the walk was stopped.
template <class CountBoard, class RowDone>
int ForEachComingBoard(uint64_t deadCards, Street street, CountBoard&& countBoard, RowDone&& rowDone) {
  std::array<Card, kDeckSize> remaining{};
  int count = 0;
  for (int32_t index = 0; index < kDeckSize; ++index) {
    if ((deadCards >> index & 1) == 0) remaining[count++] = DeckCard(index);
  }
  if (street == kFlop) {
    for (int i = 0; i < count; ++i) {
      for (int j = i + 1; j < count; ++j) {
        const std::array<Card, 2> coming = {remaining[i], remaining[j]};
        countBoard(std::span<const Card>(coming));
      }
      // Rows of boards shrink: the share done is the boards counted so far.
      const int left = count - 1 - i;
      if (!rowDone(1.0 - static_cast<double>(left) * (left - 1) / (count * (count - 1.0)))) return -1;
    }
  } else if (street == kTurn) {
    for (int i = 0; i < count; ++i) {
      countBoard(std::span<const Card>(&remaining[i], 1));
      if (!rowDone(static_cast<double>(i + 1) / count)) return -1;
    }
  } else {
    countBoard(std::span<const Card>());
  }
  return count;
}
template <class CountBoard>
int ForEachComingBoard(uint64_t deadCards, Street street, CountBoard&& countBoard) {
  return ForEachComingBoard(deadCards, street, countBoard, [](double) { return true; });
}

// One table per rank pattern of the coming cards (91 patterns on the flop, 13 on the turn, one on the
// river), each filled the first time a board needs it: what a board's ranks decide is worked out once per
// pattern, not once per board.
template <class Table>
class RankPatternCache {
 public:
  explicit RankPatternCache(int comingCount)
      : tables_(comingCount == 2   ? kRankPairCount
                : comingCount == 1 ? 13
                                   : 1),
        filled_(tables_.size(), false) {}

  // The table of the coming cards' pattern; fill(table, coming) fills it the first time.
  template <class Fill>
  Table& For(std::span<const Card> coming, Fill&& fill) {
    std::size_t slot = 0;
    if (coming.size() == 1) slot = static_cast<std::size_t>(coming[0].rank - 2);
    if (coming.size() == 2)
      slot = static_cast<std::size_t>(CanonicalPairIndex(coming[0].rank, coming[1].rank));
    Table& table = tables_[slot];
    if (!filled_[slot]) {
      fill(table, coming);
      filled_[slot] = true;
    }
    return table;
  }

 private:
  std::vector<Table> tables_;
  std::vector<bool> filled_;
};

// Two counts per holding packed in one word, the first in the low 16 bits and the second in the high 16
// bits: a holding meets at most 990 boards, so neither overflows. The loop over the holdings adds both
// without a branch.
class PackedTally {
 public:
  static constexpr int kSecondShift = 16;

  void Assign(std::size_t count) { words_.assign(count, 0); }
  uint32_t* data() { return words_.data(); }
  static constexpr uint32_t Pack(int32_t first, int32_t second) {
    return static_cast<uint32_t>(first) | static_cast<uint32_t>(second) << kSecondShift;
  }
  uint32_t First(std::size_t i) const { return words_[i] & 0xFFFF; }
  uint32_t Second(std::size_t i) const { return words_[i] >> kSecondShift; }

 private:
  std::vector<uint32_t> words_;
};

}  // namespace quillet
