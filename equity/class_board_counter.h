// My Hand against the live holdings of a range, counted per starting-hand class (cards/hand_class.h) on
// every board still to come: the heat map's count. It counts as RangeBoardCounter does
// (hand_against_range.h), by rank pair with card removal by inclusion and exclusion and the flush holdings
// read one by one, but keeps the wins and ties of each class apart (a rank pair's holdings are one class, or
// two: suited and offsuit). So one enumeration gives all 169 classes at about the cost of the whole range's
// count. Every count of holdings is a sum of their weights in thousandths, as there.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "cards/card.h"
#include "cards/hand_class.h"
#include "equity/enumeration.h"
#include "equity/hand_against_range.h"
#include "equity/rank_pair.h"

namespace quillet {

// The class of two ranks, suited or not (a pocket pair's class either way), by grid index.
constexpr int ClassOfRanks(int32_t rank1, int32_t rank2, bool suited) {
  const int32_t high = rank1 > rank2 ? rank1 : rank2;
  const int32_t low = rank1 > rank2 ? rank2 : rank1;
  if (high == low) return ClassIndex(high, high);
  return suited ? ClassIndex(high, low) : ClassIndex(low, high);
}

// Wins and ties per class, My Hand's side, in units of which `scale` make one showdown.
struct ClassWinsAndTies {
  std::array<int64_t, kClassCount> wins{};
  std::array<int64_t, kClassCount> ties{};
  std::array<int64_t, kClassCount> holdings{};  // live holdings per class (the sum of their weights)
  uint64_t scale = 1;

  void Add(int cls, uint32_t mine, uint32_t theirs, int64_t weight) {
    wins[cls] += weight * static_cast<int64_t>(mine > theirs);
    ties[cls] += weight * static_cast<int64_t>(mine == theirs);
  }
};

template <class Rules>
class ClassBoardCounter {
 public:
  // The holdings of `combos` that pass `take` (live ones: two different cards of the deck, none among the
  // known cards) before the boards of `street` (the flop or the turn), each counting its weight in
  // thousandths.
  template <class Take>
  ClassBoardCounter(const Rules& rules, const HandCards& myHand, const BoardCards& board, Street street,
                    std::span<const HandCombo> combos, Take&& take)
      : boards_(rules, myHand, board, street) {
    const int known = BoardCardCount(street);
    const int comingCount = ComingCardCount(street);
    std::array<int, 4> knownSuitCounts{};
    for (int i = 0; i < known; ++i) ++knownSuitCounts[board[i].suit];
    std::array<bool, 4> flushSuits{};
    for (int32_t suit = 0; suit < 4; ++suit) flushSuits[suit] = knownSuitCounts[suit] + comingCount >= 3;
    if (comingCount == 2) exactCount_.assign(52 * 52, 0);
    std::array<int32_t, kClassCount> perClass{};
    for (const HandCombo& combo : combos) {
      if (!take(combo)) continue;
      const Card a = combo.card1();
      const Card b = combo.card2();
      const bool suited = a.suit == b.suit;
      const int cls = ClassOfRanks(a.rank, b.rank, suited);
      const uint64_t cards = DeckBits(a, b);
      const int ia = DeckIndex(a);
      const int ib = DeckIndex(b);
      const auto pair = static_cast<uint16_t>(CanonicalPairIndex(a.rank, b.rank));
      const int32_t w = units_.Take(combo);
      perClass[cls] += w;
      withCard_[ia][suited][b.rank - 2] += w;
      withCard_[ib][suited][a.rank - 2] += w;
      if (!exactCount_.empty()) {
        exactCount_[ia * 52 + ib] += w;
        exactCount_[ib * 52 + ia] += w;
      }
      const auto candidate = [&](uint32_t suitRanks) {
        return Candidate{cards, pair, static_cast<uint16_t>(suitRanks), static_cast<uint16_t>(cls),
                         static_cast<uint16_t>(w)};
      };
      if (suited) {
        if (flushSuits[a.suit]) {
          const uint32_t suitRanks = RankMaskBit(a.rank) | RankMaskBit(b.rank);
          touching_[a.suit].push_back(candidate(suitRanks));
          suited_[a.suit].push_back(candidate(suitRanks));
        }
      } else {
        if (flushSuits[a.suit]) touching_[a.suit].push_back(candidate(RankMaskBit(a.rank)));
        if (flushSuits[b.suit]) touching_[b.suit].push_back(candidate(RankMaskBit(b.rank)));
      }
    }
    for (int32_t low = 2; low <= 14; ++low) {
      for (int32_t high = low; high <= 14; ++high) {
        for (const bool suited : {false, true}) {
          if (low == high && suited) continue;
          const int cls = ClassOfRanks(low, high, suited);
          if (perClass[cls] == 0) continue;
          const auto pair = static_cast<uint16_t>(RankPairIndex(low, high));
          if (pairs_.empty() || pairs_.back() != pair) pairs_.push_back(pair);
          slots_.push_back({pair, static_cast<uint16_t>(cls), perClass[cls]});
          count_.holdings[cls] = perClass[cls];
        }
      }
    }
  }

  bool empty() const { return slots_.empty(); }

  // Adds the board completed by `coming`.
  void Count(std::span<const Card> coming) {
    const typename ComingBoards<Rules>::Board b = boards_.Read(coming);
    if (b.floor == 0) {
      CountByRankPair<false>(b, coming);
    } else {
      CountByRankPair<true>(b, coming);
    }
    if (b.flushSuit >= 0) {
      const auto& candidates =
          b.suits.counts[b.flushSuit] == 3 ? suited_[b.flushSuit] : touching_[b.flushSuit];
      CorrectForFlushes(b, candidates);
    }
  }

  // The wins and ties of every class, once every board has been counted: plain counts when every weight is
  // whole, else thousandths (WeightUnits).
  const ClassWinsAndTies& Finish() {
    // The flush corrections of a range without weights were counted one each.
    const int64_t correctionUnit = units_.partial ? 1 : kFullWeight;
    for (int cls = 0; cls < kClassCount; ++cls) {
      count_.wins[cls] += corrections_.wins[cls] * correctionUnit;
      count_.ties[cls] += corrections_.ties[cls] * correctionUnit;
    }
    for (const Slot& slot : slots_) {
      count_.wins[slot.cls] += int64_t{slot.count} * pairWins_[slot.pair];
      count_.ties[slot.cls] += int64_t{slot.count} * pairTies_[slot.pair];
    }
    for (int index = 0; index < kDeckSize; ++index) {
      const Card card = DeckCard(index);
      for (int other = 0; other < 13; ++other) {
        for (const bool suited : {false, true}) {
          const int32_t holdings = withCard_[index][suited][other];
          if (holdings == 0) continue;
          const int cls = ClassOfRanks(card.rank, other + 2, suited);
          count_.wins[cls] -= int64_t{holdings} * removedWins_[index][other];
          count_.ties[cls] -= int64_t{holdings} * removedTies_[index][other];
        }
      }
    }
    for (int cls = 0; cls < kClassCount; ++cls) {
      count_.wins[cls] = units_.Out(count_.wins[cls]);
      count_.ties[cls] = units_.Out(count_.ties[cls]);
      count_.holdings[cls] = units_.Out(count_.holdings[cls]);
    }
    count_.scale = units_.Scale();
    return count_;
  }

 private:
  struct Slot {
    uint16_t pair;  // rank pair index
    uint16_t cls;
    int32_t count;
  };
  struct Candidate {
    uint64_t cards = 0;
    uint16_t rankPair = 0;
    uint16_t suitRanks = 0;
    uint16_t cls = 0;
    uint16_t weight = 1;
  };

  // Per board only how each rank pair and each removed row fares is counted (boards won and tied);
  // Finish weighs them by the classes' holdings.
  template <bool kFloor>
  void CountByRankPair(const typename ComingBoards<Rules>::Board& b, std::span<const Card> coming) {
    const auto value = [&](int pair) {
      if constexpr (kFloor) return std::max(b.values[pair], b.floor);
      return b.values[pair];
    };
    const uint32_t mine = b.mine;
    for (const uint16_t pair : pairs_) {
      const uint32_t theirs = value(pair);
      pairWins_[pair] += static_cast<int32_t>(mine > theirs);
      pairTies_[pair] += static_cast<int32_t>(mine == theirs);
    }
    // Holdings with a coming card are dead on this board: per coming card, one row of rank pairs.
    for (const Card& card : coming) {
      const int index = DeckIndex(card);
      const int row = RankPairIndex(card.rank, 2);
      for (int other = 0; other < 13; ++other) {
        const uint32_t theirs = value(row + other);
        removedWins_[index][other] += static_cast<int32_t>(mine > theirs);
        removedTies_[index][other] += static_cast<int32_t>(mine == theirs);
      }
    }
    if (coming.size() == 2) {
      // Holdings of exactly the two coming cards were taken off twice above.
      const int32_t exact = exactCount_[DeckIndex(coming[0]) * 52 + DeckIndex(coming[1])];
      if (exact != 0) {
        count_.Add(ClassOfRanks(coming[0].rank, coming[1].rank, coming[0].suit == coming[1].suit), mine,
                   value(RankPairIndex(coming[0].rank, coming[1].rank)), exact);
      }
    }
  }

  // The live holdings with a card of the flush suit: their rank-pair answer is replaced by their own. Each
  // counts its weight, or one when no weight in the range is below whole.
  void CorrectForFlushes(const typename ComingBoards<Rules>::Board& b,
                         const std::vector<Candidate>& candidates) {
    const bool anyPartial = units_.partial;
    boards_.ForEachFlushChange(b, candidates,
                               [&](const Candidate& candidate, uint32_t best, uint32_t counted) {
                                 const int64_t weight = anyPartial ? candidate.weight : 1;
                                 corrections_.Add(candidate.cls, b.mine, best, weight);
                                 corrections_.Add(candidate.cls, b.mine, counted, -weight);
                               });
  }

  ComingBoards<Rules> boards_;
  std::vector<Slot> slots_;
  std::vector<uint16_t> pairs_;  // the rank pairs of the slots, each once
  // Boards on which My Hand beat or tied each rank pair, and each removed row [card][other rank - 2].
  std::array<int32_t, kRankPairCount> pairWins_{};
  std::array<int32_t, kRankPairCount> pairTies_{};
  std::array<std::array<int32_t, 13>, 52> removedWins_{};
  std::array<std::array<int32_t, 13>, 52> removedTies_{};
  // [card][suited][other rank - 2]: live holdings holding the card whose other card has the rank, apart
  // by whether the two cards share the suit (sums of weights, as every count of holdings here).
  std::array<std::array<std::array<int32_t, 13>, 2>, 52> withCard_{};
  std::vector<int32_t> exactCount_;
  std::array<std::vector<Candidate>, 4> suited_;
  std::array<std::vector<Candidate>, 4> touching_;
  WeightUnits units_;
  ClassWinsAndTies corrections_;  // the flush holdings' corrections
  ClassWinsAndTies count_;
};

// My Hand against each class of `combos` on every board still to come, under `Rules` (made from the board
// and the street): each class's wins and ties into `out`, and the showdowns each live holding meets into
// `meets`. False where nothing is counted: not the flop or the turn, a card given twice, no live holding.
// When a live holding has a weight below whole, every holding counts its weight in thousandths (out.scale
// kFullWeight).
template <class Rules>
bool CountByClass(const HandCards& myHand, const BoardCards& board, Street street,
                  std::span<const HandCombo> combos, ClassWinsAndTies& out, int64_t& meets) {
  if (street != kFlop && street != kTurn) return false;
  const KnownCards known = KnownCardsWithHand(myHand, board, street);
  if (!known.valid()) return false;
  const Rules rules(board, street);
  const auto take = [&](const HandCombo& combo) { return IsLiveHolding(combo, known.bits); };
  ClassBoardCounter<Rules> counter(rules, myHand, board, street, combos, take);
  if (counter.empty()) return false;
  const int remaining =
      ForEachComingBoard(known.bits, street, [&](std::span<const Card> coming) { counter.Count(coming); });
  meets = BoardsMet(street, remaining);
  out = counter.Finish();
  return true;
}

}  // namespace quillet
