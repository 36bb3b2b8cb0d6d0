// My Hand against every live holding of a range on every board still to come, counted by rank pattern:
// the one counter both showdown rules run, each giving only how it values a hand (`Rules` below). The
// higher value wins the showdown and equal values tie, under either rules.
//
// How it counts: without a flush a holding's hand is worth the same as that of every other holding with
// the same two ranks, so per board the counter reads the value of each rank pair once (one table per
// rank pattern of the coming cards), compares My Hand's value with it and weighs the answer by the number
// of live holdings of that rank pair, taking off those that hold a card of the board (card removal by
// inclusion and exclusion). Only the holdings with a card of a suit the board holds three or more cards
// of are read one by one, and their rank-pair answer replaced by the one their flush gives. Everything
// is allocated before the first board.
//
// Weighted ranges: "the number of holdings" is the sum of their weights in thousandths everywhere above,
// per rank pair, per card and per pair of cards, so a weighted range costs what a plain one does; the
// counts come out in thousandths of a showdown, which WeightUnits (enumeration.h) turns back into plain
// counts when every weight is whole.
//
// Rules has:
//   using Value = uint32_t-like;  a higher value is a better hand
//   void Fill(std::span<const Card> coming, Value* table) const;  the values without a flush of every
//       pair of hole ranks (both orders, RankPairIndex) on the known board ranks and the coming ranks
//   Value FlushValue(uint32_t suitRanks, uint32_t holeSuitRanks) const;  the flush part of a hand whose
//       cards of the board's flush suit have the ranks `suitRanks`, its hole cards `holeSuitRanks` of them;
//       0 when they make no flush. A hand's value is the larger of its rank value and its flush part.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "cards/card.h"
#include "equity/enumeration.h"
#include "equity/rank_pair.h"

namespace quillet {

// Wins and ties from My Hand's side; the losses follow from the number of live holdings.
struct WinsAndTies {
  int64_t wins = 0;
  int64_t ties = 0;

  // `weight` holdings whose hand is worth `theirs`.
  void Add(uint32_t mine, uint32_t theirs, int64_t weight) {
    wins += weight * static_cast<int64_t>(mine > theirs);
    ties += weight * static_cast<int64_t>(mine == theirs);
  }
};

// A live holding with a card of a suit that can end with three or more board cards, read one by one.
struct FlushCandidate {
  uint64_t cards = 0;
  uint16_t rankPair = 0;   // canonical index
  uint16_t suitRanks = 0;  // the hole cards' ranks in the suit
  uint16_t weight = 1;     // what the holding counts with
};

// The live holdings of a range, counted every way the boards need them: while every holding is whole
// each counts one, else each counts its weight in thousandths (Unit() says which), so every count below
// is a number of holdings or a sum of weights.
struct LiveRange {
  int64_t total = 0;
  bool anyPartial = false;  // a holding below whole
  // Holdings per canonical rank pair, listed compactly for the loop over pairs.
  std::vector<uint16_t> pairs;
  std::vector<int32_t> pairCounts;
  // [card][rank - 2]: holdings holding the card whose other card has the rank.
  std::array<std::array<int32_t, 13>, 52> withCard{};
  std::array<int32_t, 52> cardCount{};  // holdings holding the card
  // [card1 x 52 + card2]: holdings of exactly these two cards; kept only when two cards are to come.
  std::vector<int32_t> exactCount;
  // Per suit: the holdings suited in it, and those with at least one card of it.
  std::array<std::vector<FlushCandidate>, 4> suited;
  std::array<std::vector<FlushCandidate>, 4> touching;

  // The holdings of `combos` that pass `take` (live ones), before the boards of `street`; the flush
  // candidates are listed for the suits the known board leaves open to three or more cards only. Each
  // holding's weight is taken through `units`.
  template <class Take>
  LiveRange(std::span<const HandCombo> combos, const BoardCards& board, Street street, Take&& take,
            WeightUnits& units) {
    const int known = BoardCardCount(street);
    const int comingCount = ComingCardCount(street);
    std::array<bool, 4> flushSuits{};
    std::array<int, 4> knownSuitCounts{};
    for (int i = 0; i < known; ++i) ++knownSuitCounts[board[i].suit];
    for (int32_t suit = 0; suit < 4; ++suit) flushSuits[suit] = knownSuitCounts[suit] + comingCount >= 3;
    if (comingCount == 2) exactCount.assign(52 * 52, 0);
    for (int32_t suit = 0; suit < 4; ++suit) {
      if (!flushSuits[suit]) continue;
      suited[suit].reserve(combos.size() / 4);
      touching[suit].reserve(combos.size() / 2);
    }
    std::array<int32_t, kRankPairCount> perPair{};
    // Whole holdings count one each until the first live holding below whole; from there on every count
    // is in thousandths (those already counted are scaled up once), so a range without weights is
    // counted as cheaply as if weights did not exist.
    const std::size_t partialFrom =
        exactCount.empty() ? AddHoldings<true, false>(combos, 0, take, flushSuits, perPair, units)
                           : AddHoldings<true, true>(combos, 0, take, flushSuits, perPair, units);
    if (partialFrom < combos.size()) {
      anyPartial = true;
      ScaleToThousandths(perPair);
      if (exactCount.empty()) {
        AddHoldings<false, false>(combos, partialFrom, take, flushSuits, perPair, units);
      } else {
        AddHoldings<false, true>(combos, partialFrom, take, flushSuits, perPair, units);
      }
    }
    // The totals, per card and overall, from the finer counts.
    for (int card = 0; card < 52; ++card) {
      for (const int32_t count : withCard[card]) cardCount[card] += count;
    }
    for (const int32_t count : perPair) total += count;
    for (int pair = 0; pair < kRankPairCount; ++pair) {
      if (perPair[pair] == 0) continue;
      pairs.push_back(static_cast<uint16_t>(pair));
      pairCounts.push_back(perPair[pair]);
    }
  }

  // How many of the counts make one holding: kFullWeight while every holding is whole (counts are
  // holdings), 1 once one is not (counts are in thousandths).
  int64_t Unit() const { return anyPartial ? 1 : kFullWeight; }

 private:
  // Adds the live holdings of `combos` from `from` on, each counting one (kWhole) or its weight, with the
  // counts by pair of cards (kExact). kWhole stops at the first live holding below whole and gives its
  // place; otherwise the end.
  template <bool kWhole, bool kExact, class Take>
  [[gnu::flatten]] std::size_t AddHoldings(std::span<const HandCombo> combos, std::size_t from, Take&& take,
                                           const std::array<bool, 4>& flushSuits,
                                           std::array<int32_t, kRankPairCount>& perPair, WeightUnits& units) {
    for (std::size_t i = from; i < combos.size(); ++i) {
      const HandCombo& combo = combos[i];
      if (!take(combo)) continue;
      if (kWhole && combo.weight != kFullWeight) return i;
      const int32_t w = kWhole ? 1 : units.Take(combo);
      const Card a = combo.card1();
      const Card b = combo.card2();
      const uint64_t cards = DeckBits(a, b);
      const int ia = DeckIndex(a);
      const int ib = DeckIndex(b);
      const auto pair = static_cast<uint16_t>(CanonicalPairIndex(a.rank, b.rank));
      const auto w16 = static_cast<uint16_t>(w);
      perPair[pair] += w;
      withCard[ia][b.rank - 2] += w;
      withCard[ib][a.rank - 2] += w;
      if constexpr (kExact) {
        exactCount[ia * 52 + ib] += w;
        exactCount[ib * 52 + ia] += w;
      }
      if (a.suit == b.suit) {
        if (flushSuits[a.suit]) {
          const auto suitRanks = static_cast<uint16_t>(RankMaskBit(a.rank) | RankMaskBit(b.rank));
          touching[a.suit].push_back({cards, pair, suitRanks, w16});
          suited[a.suit].push_back({cards, pair, suitRanks, w16});
        }
      } else {
        if (flushSuits[a.suit])
          touching[a.suit].push_back({cards, pair, static_cast<uint16_t>(RankMaskBit(a.rank)), w16});
        if (flushSuits[b.suit])
          touching[b.suit].push_back({cards, pair, static_cast<uint16_t>(RankMaskBit(b.rank)), w16});
      }
    }
    return combos.size();
  }

  // The counts so far, each holding counted one, put in thousandths (every one of them was whole).
  void ScaleToThousandths(std::array<int32_t, kRankPairCount>& perPair) {
    for (int32_t& count : perPair) count *= kFullWeight;
    for (auto& row : withCard)
      for (int32_t& count : row) count *= kFullWeight;
    for (int32_t& count : exactCount) count *= kFullWeight;
    for (auto& list : suited)
      for (FlushCandidate& candidate : list) candidate.weight = kFullWeight;
    for (auto& list : touching)
      for (FlushCandidate& candidate : list) candidate.weight = kFullWeight;
  }
};

// The values of the rank pairs on one rank pattern of the coming cards.
using RankPairValues = std::array<uint32_t, kRankPairCount>;

// What one board makes of the suits: the flush suit (-1 for none), its cards' ranks and count, the cards
// of the board still to come, and the values of the rank pairs.
template <class Rules>
class ComingBoards {
 public:
  ComingBoards(const Rules& rules, const HandCards& myHand, const BoardCards& board, Street street)
      : rules_(rules), values_(ComingCardCount(street)), myPair_(RankPairIndex(myHand.rank1, myHand.rank2)) {
    for (int i = 0; i < BoardCardCount(street); ++i) knownSuits_.Add(board[i]);
    mySuitRanks_[myHand.suit1] |= RankMaskBit(myHand.rank1);
    mySuitRanks_[myHand.suit2] |= RankMaskBit(myHand.rank2);
  }

  struct Board {
    SuitCounts suits;
    uint64_t comingCards = 0;
    int32_t flushSuit = -1;
    const uint32_t* values = nullptr;
    uint32_t mine = 0;   // My Hand's value
    uint32_t floor = 0;  // the flush part of a holding without a card of the flush suit
  };

  Board Read(std::span<const Card> coming) {
    Board b;
    b.suits = knownSuits_;
    for (const Card& card : coming) {
      b.suits.Add(card);
      b.comingCards |= DeckBit(card);
    }
    b.values = values_
                   .For(coming, [&](RankPairValues& table,
                                    std::span<const Card> pattern) { rules_.Fill(pattern, table.data()); })
                   .data();
    b.flushSuit = b.suits.FlushSuit();
    b.mine = b.values[myPair_];
    if (b.flushSuit >= 0) {
      const uint32_t mine = mySuitRanks_[b.flushSuit];
      b.mine =
          std::max(b.mine, static_cast<uint32_t>(rules_.FlushValue(b.suits.ranks[b.flushSuit] | mine, mine)));
      b.floor = rules_.FlushValue(b.suits.ranks[b.flushSuit], 0);
    }
    return b;
  }

  const Rules& rules() const { return rules_; }

  // The holdings among `candidates` (each with `cards`, `rankPair` and `suitRanks`, its hole cards' ranks in
  // the flush suit) that are live on board `b` and whose own flush part changes what their rank pair (and
  // the board's own flush) makes of them: `change(candidate, best, counted)` gets the value they have and
  // the one counted for them.
  template <class Candidate, class Change>
  void ForEachFlushChange(const Board& b, const std::vector<Candidate>& candidates, Change&& change) const {
    const uint32_t boardSuitRanks = b.suits.ranks[b.flushSuit];
    for (const Candidate& candidate : candidates) {
      if ((candidate.cards & b.comingCards) != 0) continue;
      const uint32_t ranksOnly = b.values[candidate.rankPair];
      const uint32_t counted = std::max(ranksOnly, b.floor);
      const uint32_t best = std::max<uint32_t>(
          ranksOnly, rules_.FlushValue(boardSuitRanks | candidate.suitRanks, candidate.suitRanks));
      if (best != counted) change(candidate, best, counted);
    }
  }

 private:
  const Rules& rules_;
  RankPatternCache<RankPairValues> values_;
  int myPair_;
  SuitCounts knownSuits_;
  std::array<uint32_t, 4> mySuitRanks_{};
};

// My Hand against the whole range, board by board.
template <class Rules>
class RangeBoardCounter {
 public:
  RangeBoardCounter(const Rules& rules, const HandCards& myHand, const BoardCards& board, Street street,
                    const LiveRange& live)
      : boards_(rules, myHand, board, street), live_(live) {}

  // Adds every board still to come (the deck less `knownCards`), as Count does board by board; a function
  // of its own, so that Count is inlined into the walk.
  [[gnu::noinline, gnu::flatten]] void CountAll(uint64_t knownCards, Street street, int64_t& wins,
                                                int64_t& ties, int64_t& met) {
    ForEachComingBoard(knownCards, street,
                       [&](std::span<const Card> coming) { Count(coming, wins, ties, met); });
  }

  // Adds the board completed by `coming`: My Hand's wins and ties, and the live holdings that met it, in
  // the live range's units (LiveRange::Unit() of them make one holding).
  void Count(std::span<const Card> coming, int64_t& wins, int64_t& ties, int64_t& met) {
    int64_t liveCount = live_.total;
    for (const Card& card : coming) liveCount -= live_.cardCount[DeckIndex(card)];
    int32_t exact = 0;  // holdings of exactly the two coming cards, taken off twice above
    if (coming.size() == 2) exact = live_.exactCount[DeckIndex(coming[0]) * 52 + DeckIndex(coming[1])];
    liveCount += exact;

    const typename ComingBoards<Rules>::Board b = boards_.Read(coming);
    WinsAndTies count;
    if (b.floor == 0) {
      CountByRankPair<false>(b, coming, exact, count);
    } else {
      CountByRankPair<true>(b, coming, exact, count);
    }
    if (b.flushSuit >= 0) {
      const auto& candidates =
          b.suits.counts[b.flushSuit] == 3 ? live_.suited[b.flushSuit] : live_.touching[b.flushSuit];
      if (live_.anyPartial) {
        CorrectForFlushes<true>(b, candidates, count);
      } else {
        CorrectForFlushes<false>(b, candidates, count);
      }
    }
    wins += count.wins;
    ties += count.ties;
    met += liveCount;
  }

 private:
  // Every live holding valued by its rank pair alone (and the board's own flush, kFloor).
  template <bool kFloor>
  void CountByRankPair(const typename ComingBoards<Rules>::Board& b, std::span<const Card> coming,
                       int32_t exact, WinsAndTies& count) const {
    const auto value = [&](int pair) {
      if constexpr (kFloor) return std::max(b.values[pair], b.floor);
      return b.values[pair];
    };
    const std::size_t pairCount = live_.pairs.size();
    for (std::size_t i = 0; i < pairCount; ++i) count.Add(b.mine, value(live_.pairs[i]), live_.pairCounts[i]);
    // Holdings with a coming card are dead on this board: per coming card, one row of rank pairs.
    for (const Card& card : coming) {
      const std::array<int32_t, 13>& withCard = live_.withCard[DeckIndex(card)];
      const int row = RankPairIndex(card.rank, 2);
      for (int other = 0; other < 13; ++other) count.Add(b.mine, value(row + other), -withCard[other]);
    }
    if (exact != 0) count.Add(b.mine, value(RankPairIndex(coming[0].rank, coming[1].rank)), exact);
  }

  // The live holdings with a card of the flush suit: their rank-pair answer is replaced by the one their
  // own flush part gives.
  // Without a weight below whole in the range every candidate counts one, as every count does.
  template <bool kAnyPartial>
  void CorrectForFlushes(const typename ComingBoards<Rules>::Board& b,
                         const std::vector<FlushCandidate>& candidates, WinsAndTies& count) const {
    boards_.ForEachFlushChange(b, candidates,
                               [&](const FlushCandidate& candidate, uint32_t best, uint32_t counted) {
                                 const int64_t weight = kAnyPartial ? candidate.weight : 1;
                                 count.Add(b.mine, best, weight);
                                 count.Add(b.mine, counted, -weight);
                               });
  }

  ComingBoards<Rules> boards_;
  const LiveRange& live_;
};

// The river: one board, so each holding that passes `take` is valued and compared as it stands (kFlush:
// the board has a flush suit). Adds My Hand's wins and ties and the holdings that met it, each counting
// its weight in thousandths (noted in `units`). Whole holdings are counted one each and weighed once at
// the end; from the first live holding below whole on, each holding counts its own weight.
template <bool kFlush, class Rules, class Take>
void CountOneBoardOf(const Rules& rules, const typename ComingBoards<Rules>::Board& b,
                     std::span<const HandCombo> combos, Take&& take, WeightUnits& units, int64_t& wins,
                     int64_t& ties, int64_t& met) {
  const uint32_t boardSuitRanks = kFlush ? b.suits.ranks[b.flushSuit] : 0;
  const auto theirValue = [&](const HandCombo& combo) {
    const Card x = combo.card1();
    const Card y = combo.card2();
    uint32_t theirs = b.values[RankPairIndex(x.rank, y.rank)];
    if constexpr (kFlush) {
      const uint32_t hole = SuitRanksOf(x, y, b.flushSuit);
      theirs = std::max<uint32_t>(theirs, rules.FlushValue(boardSuitRanks | hole, hole));
    }
    return theirs;
  };
  int64_t wholeMet = 0;
  int64_t wholeWins = 0;
  int64_t wholeTies = 0;
  std::size_t i = 0;
  for (; i < combos.size(); ++i) {
    const HandCombo& combo = combos[i];
    if (!take(combo)) continue;
    if (combo.weight != kFullWeight) break;
    const uint32_t theirs = theirValue(combo);
    ++wholeMet;
    wholeWins += b.mine > theirs;
    wholeTies += b.mine == theirs;
  }
  for (; i < combos.size(); ++i) {
    const HandCombo& combo = combos[i];
    if (!take(combo)) continue;
    const int64_t w = units.Take(combo);
    const uint32_t theirs = theirValue(combo);
    met += w;
    wins += w * static_cast<int64_t>(b.mine > theirs);
    ties += w * static_cast<int64_t>(b.mine == theirs);
  }
  met += wholeMet * kFullWeight;
  wins += wholeWins * kFullWeight;
  ties += wholeTies * kFullWeight;
}

template <class Rules, class Take>
[[gnu::noinline, gnu::flatten]] void CountOneBoard(const Rules& rules, const HandCards& myHand,
                                                   const BoardCards& board, std::span<const HandCombo> combos,
                                                   Take&& take, WeightUnits& units, int64_t& wins,
                                                   int64_t& ties, int64_t& met) {
  ComingBoards<Rules> boards(rules, myHand, board, kRiver);
  const typename ComingBoards<Rules>::Board b = boards.Read({});
  if (b.flushSuit >= 0) {
    CountOneBoardOf<true, Rules>(rules, b, combos, take, units, wins, ties, met);
  } else {
    CountOneBoardOf<false, Rules>(rules, b, combos, take, units, wins, ties, met);
  }
}

// My Hand against each holding apart, board by board: per holding its wins (first) and ties (second) in
// a packed tally, boards counted one each (the caller weighs a holding's boards by its weight). The
// holdings are kept as parallel arrays for the loop over them.
template <class Rules>
class HoldingBoardCounter {
 public:
  HoldingBoardCounter(const Rules& rules, const HandCards& myHand, const BoardCards& board, Street street)
      : boards_(rules, myHand, board, street) {}

  void Add(const HandCombo& combo) {
    const Card a = combo.card1();
    const Card b = combo.card2();
    cards_.push_back(DeckBits(a, b));
    rankPair_.push_back(static_cast<uint16_t>(RankPairIndex(a.rank, b.rank)));
    for (int32_t suit = 0; suit < 4; ++suit)
      suitRanks_[suit].push_back(static_cast<uint16_t>(SuitRanksOf(a, b, suit)));
  }
  std::size_t size() const { return cards_.size(); }
  void Start() { tally_.Assign(cards_.size()); }
  const PackedTally& tally() const { return tally_; }

  void Count(std::span<const Card> coming) {
    const typename ComingBoards<Rules>::Board b = boards_.Read(coming);
    if (b.flushSuit < 0) {
      CountApart<false>(b, nullptr);
    } else {
      CountApart<true>(b, suitRanks_[b.flushSuit].data());
    }
  }

 private:
  template <bool kFlushSuit>
  void CountApart(const typename ComingBoards<Rules>::Board& b, const uint16_t* holeSuitRanks) {
    const std::size_t count = cards_.size();
    const uint64_t* cards = cards_.data();
    const uint16_t* rankPair = rankPair_.data();
    uint32_t* words = tally_.data();
    const uint32_t boardSuitRanks = kFlushSuit ? b.suits.ranks[b.flushSuit] : 0;
    for (std::size_t i = 0; i < count; ++i) {
      uint32_t theirs = b.values[rankPair[i]];
      if constexpr (kFlushSuit)
        theirs = std::max<uint32_t>(
            theirs, boards_.rules().FlushValue(boardSuitRanks | holeSuitRanks[i], holeSuitRanks[i]));
      const int32_t live = (cards[i] & b.comingCards) == 0;
      words[i] += PackedTally::Pack(live & static_cast<int32_t>(b.mine > theirs),
                                    live & static_cast<int32_t>(b.mine == theirs));
    }
  }

  ComingBoards<Rules> boards_;
  std::vector<uint64_t> cards_;
  std::vector<uint16_t> rankPair_;
  std::array<std::vector<uint16_t>, 4> suitRanks_;
  PackedTally tally_;
};

}  // namespace quillet
