#include "equity/range_equity.h"

#include <algorithm>
#include <array>
#include <bit>
#include <vector>

#include "cards/board_analysis.h"  // RankMaskBit
#include "equity/deck.h"
#include "equity/enumeration.h"
#include "equity/preflop_classes.h"
#include "equity/rank_pair.h"
#include "equity/standard_evaluator.h"

namespace quillet {
namespace {

// The two cards of every holding number (preflop_classes.h), read once.
const std::array<std::array<Card, 2>, kHoldingCount>& CardsOfHoldings() {
  static const auto cards = [] {
    std::array<std::array<Card, 2>, kHoldingCount> table{};
    for (int32_t h = 0; h < kHoldingCount; ++h) table[h] = CardsOfHolding(h);
    return table;
  }();
  return cards;
}

// Per holding number, the weight of a range's live copies in the units its tally counts (see
// LiveRangeWeights).
using HoldingWeights = std::array<int32_t, kHoldingCount>;

// A range's live holdings by holding number. A range whose listed holdings are all whole counts one unit a
// copy, any other its weights in thousandths: `unit` units make one whole holding.
struct LiveRangeWeights {
  HoldingWeights weights{};
  HoldingWeights copies{};  // live copies, whatever their weight, when weighted (see Copies)
  int32_t holdings = 0;
  int64_t weightSum = 0;  // thousandths
  int32_t unit = 1;       // 1 or kFullWeight

  // Live copies per holding number: `weights` themselves for a whole range.
  const HoldingWeights& Copies() const { return unit == 1 ? weights : copies; }
};

// A holding of weight 0 (or below) is not in its range. A range counts as weighted when any holding it
// lists, live or not, is below whole.
LiveRangeWeights ReadLiveRange(std::span<const HandCombo> range, uint64_t boardCards) {
  LiveRangeWeights live;
  // Whole holdings count one copy each until the first holding below whole turns up, so that a whole
  // range is read as cheaply as if weights did not exist.
  std::size_t i = 0;
  for (; i < range.size(); ++i) {
    const HandCombo& combo = range[i];
    if (combo.weight != kFullWeight) {
      if (combo.weight <= 0) continue;
      break;
    }
    if (!IsLiveHolding(combo, boardCards)) continue;
    ++live.weights[HoldingNumber(combo.card1(), combo.card2())];
    ++live.holdings;
  }
  live.weightSum = int64_t{live.holdings} * kFullWeight;
  if (i == range.size()) return live;
  // From here on in thousandths; the copies counted so far were whole.
  live.unit = kFullWeight;
  live.copies = live.weights;
  for (int32_t& weight : live.weights) weight *= kFullWeight;
  for (; i < range.size(); ++i) {
    const HandCombo& combo = range[i];
    if (combo.weight <= 0 || !IsLiveHolding(combo, boardCards)) continue;
    const int32_t h = HoldingNumber(combo.card1(), combo.card2());
    live.weights[h] += combo.weight;
    ++live.copies[h];
    ++live.holdings;
    live.weightSum += combo.weight;
  }
  return live;
}

// Pairs of live holdings without a common card, by inclusion and exclusion over the cards: all pairs,
// less those that share a card, plus those that share both (a holding met by itself, counted twice above).
// Given weights, the pairs' products of weights summed.
uint64_t CountMatchups(const HoldingWeights& mine, const HoldingWeights& theirs) {
  int64_t myTotal = 0;
  int64_t theirTotal = 0;
  int64_t same = 0;
  std::array<int64_t, kDeckSize> myWith{};
  std::array<int64_t, kDeckSize> theirWith{};
  for (int32_t h = 0; h < kHoldingCount; ++h) {
    if (mine[h] == 0 && theirs[h] == 0) continue;
    const auto& cards = CardsOfHoldings()[h];
    for (const Card card : cards) {
      myWith[DeckIndex(card)] += mine[h];
      theirWith[DeckIndex(card)] += theirs[h];
    }
    myTotal += mine[h];
    theirTotal += theirs[h];
    same += int64_t{mine[h]} * theirs[h];
  }
  int64_t sharing = 0;
  for (int32_t card = 0; card < kDeckSize; ++card) sharing += myWith[card] * theirWith[card];
  return static_cast<uint64_t>(myTotal * theirTotal - sharing + same);
}

// n choose k for the small numbers of boards.
uint64_t Choose(int32_t n, int32_t k) {
  uint64_t result = 1;
  for (int32_t i = 1; i <= k; ++i)
    result = result * static_cast<uint64_t>(n - k + i) / static_cast<uint64_t>(i);
  return result;
}

// Preflop: every pair reads the exact tally of its matchup class.
//
// When the two ranges overlap much, each unordered pair of holdings of either range is read once: the
// holding a against b is b against a reversed, so the pair adds mine[a] x theirs[b] times its tally and
// mine[b] x theirs[a] times the reversed one. That halves the reads for a range against itself; when one
// range is small the ordered pairs of the two ranges are fewer and read as they are.
bool CountPreflop(const PreflopClassTable& table, const HoldingWeights& mine, const HoldingWeights& theirs,
                  const RangeEquityProgress& progress, ShowdownTally& tally) {
  struct Listed {
    int32_t holding;
    uint64_t myWeight;
    uint64_t theirWeight;
  };
  std::vector<Listed> either;
  uint64_t myCount = 0;
  uint64_t theirCount = 0;
  for (int32_t h = 0; h < kHoldingCount; ++h) {
    if (mine[h] == 0 && theirs[h] == 0) continue;
    either.push_back({h, static_cast<uint64_t>(mine[h]), static_cast<uint64_t>(theirs[h])});
    myCount += mine[h] != 0;
    theirCount += theirs[h] != 0;
  }
  const std::size_t n = either.size();
  uint64_t wins = 0;
  uint64_t ties = 0;
  uint64_t losses = 0;
  if (n * (n - 1) / 2 < myCount * theirCount) {
    for (std::size_t i = 0; i < n; ++i) {
      const Listed a = either[i];
      for (std::size_t j = i + 1; j < n; ++j) {
        const Listed& b = either[j];
        const ShowdownTally t = table.Matchup(a.holding, b.holding);  // all zero for a common card
        const uint64_t forward = a.myWeight * b.theirWeight;
        const uint64_t backward = b.myWeight * a.theirWeight;
        wins += forward * t.wins + backward * t.losses;
        ties += (forward + backward) * t.ties;
        losses += forward * t.losses + backward * t.wins;
      }
      // Row i reads n - 1 - i pairs: the share done is the pairs read so far.
      const double left = static_cast<double>(n - 1 - i);
      if (progress && !progress(1.0 - left * (left + 1) / (static_cast<double>(n) * (n - 1)))) return false;
    }
  } else {
    std::vector<Listed> opponents;
    for (const Listed& b : either) {
      if (b.theirWeight != 0) opponents.push_back(b);
    }
    for (std::size_t i = 0; i < n; ++i) {
      const Listed a = either[i];
      if (a.myWeight == 0) continue;
      for (const Listed& b : opponents) {
        const ShowdownTally t = table.Matchup(a.holding, b.holding);
        const uint64_t weight = a.myWeight * b.theirWeight;
        wins += weight * t.wins;
        ties += weight * t.ties;
        losses += weight * t.losses;
      }
      if (progress && !progress(static_cast<double>(i + 1) / static_cast<double>(n))) return false;
    }
  }
  tally = {wins, ties, losses};
  return true;
}

// One live holding in the list of its rank pair, for one range.
struct RankPairEntry {
  uint64_t cards = 0;       // deck bits of its two cards
  int32_t weight = 0;       // its weight in this range (all its live copies, in the range's units)
  int32_t otherWeight = 0;  // its weight in the other range
  uint16_t number = 0;      // holding number
  uint8_t card1 = 0;        // deck places of its cards
  uint8_t card2 = 0;
};

// A live holding of either range that can make a flush in one suit, with its weight in each range.
struct WeightedFlushCandidate {
  uint64_t cards = 0;
  int32_t myWeight = 0;
  int32_t theirWeight = 0;
  uint16_t number = 0;
  uint16_t rankPair = 0;
  uint16_t suitRanks = 0;  // its cards' ranks in the suit (none for a holding without a card of it)
  uint8_t card1 = 0;
  uint8_t card2 = 0;
};

// The live holdings of both ranges on one board, and the counting of one completion.
class CompletionCounter {
 public:
  CompletionCounter(const BoardCards& board, int32_t known, const HoldingWeights& mine,
                    const HoldingWeights& theirs)
      : evaluator_(StandardEvaluator::Get()), myWeights_(mine), theirWeights_(theirs), patterns_(5 - known) {
    for (int32_t i = 0; i < known; ++i) {
      boardRanks_ = evaluator_.AddRank(boardRanks_, board[i].rank);
      boardSuits_.Add(board[i]);
    }
    ListHoldings(mine, theirs, mine_, myStart_);
    ListHoldings(theirs, mine, theirs_, theirStart_);
    std::array<bool, kRankPairCount> present{};
    for (int32_t h = 0; h < kHoldingCount; ++h) {
      if (mine[h] == 0 && theirs[h] == 0) continue;
      const auto& cards = CardsOfHoldings()[h];
      present[CanonicalPairIndex(cards[0].rank, cards[1].rank)] = true;
      holdings_.push_back(static_cast<uint16_t>(h));
    }
    for (int32_t pair = 0; pair < kRankPairCount; ++pair) {
      if (present[pair]) presentPairs_.push_back(static_cast<uint16_t>(pair));
    }
    flush_.reserve(kHoldingCount);
  }

  // Adds the wins and the ties of my range on the board completed by `coming` (none to two cards); with
  // kByOpponent instead what each holding of the opponent's range meets on it (Above, Level).
  template <bool kByOpponent>
  void Count(std::span<const Card> coming, int64_t& wins, int64_t& ties) {
    SuitCounts suits = boardSuits_;
    uint64_t comingCards = 0;
    for (const Card& card : coming) {
      suits.Add(card);
      comingCards |= DeckBit(card);
    }
    const Pattern& pattern =
        patterns_.For(coming, [&](Pattern& p, std::span<const Card> c) { FillPattern(p, c); });
    const int32_t flushSuit = suits.FlushSuit();
    const std::array<int32_t, 4>& suitCounts = suits.counts;
    const std::array<uint32_t, 4>& suitRanks = suits.ranks;
    const std::vector<WeightedFlushCandidate>* candidates = nullptr;
    flush_.clear();
    if (flushSuit >= 0) {
      candidates = &Candidates(flushSuit, suitCounts[flushSuit] - 3);
    }
    // Five board cards of one suit: every holding has a flush and is valued one by one.
    const bool allFlushes = flushSuit >= 0 && suitCounts[flushSuit] == 5;
    if (candidates != nullptr)
      CollectFlushes(pattern, suitRanks[flushSuit], *candidates, comingCards, allFlushes);
    const Walk walk{pattern, allFlushes ? 0 : pattern.order.size(), candidates, comingCards};
    if constexpr (kByOpponent) {
      SweepByOpponent(walk);
    } else {
      Sweep(walk, wins, ties);
    }
    for (const uint64_t item : flush_) moved_[(*candidates)[item & 0xFFFF].number] = false;
  }

 private:
  // The values without a flush of the rank pairs present, on one rank pattern of the coming cards, and the
  // present pairs in ascending order of value.
  struct Pattern {
    std::array<HandValue, kRankPairCount> values{};
    std::vector<uint16_t> order;
  };

  static void ListHoldings(const HoldingWeights& range, const HoldingWeights& other,
                           std::vector<RankPairEntry>& entries,
                           std::array<uint32_t, kRankPairCount + 1>& start) {
    std::array<uint32_t, kRankPairCount> perPair{};
    for (int32_t h = 0; h < kHoldingCount; ++h) {
      if (range[h] == 0) continue;
      const auto& cards = CardsOfHoldings()[h];
      ++perPair[CanonicalPairIndex(cards[0].rank, cards[1].rank)];
    }
    start[0] = 0;
    for (int32_t pair = 0; pair < kRankPairCount; ++pair) start[pair + 1] = start[pair] + perPair[pair];
    entries.assign(start[kRankPairCount], {});
    std::array<uint32_t, kRankPairCount> next{};
    std::copy(start.begin(), start.end() - 1, next.begin());
    for (int32_t h = 0; h < kHoldingCount; ++h) {
      if (range[h] == 0) continue;
      const auto& cards = CardsOfHoldings()[h];
      const int32_t a = DeckIndex(cards[0]);
      const int32_t b = DeckIndex(cards[1]);
      entries[next[CanonicalPairIndex(cards[0].rank, cards[1].rank)]++] = {
          DeckBits(cards[0], cards[1]), range[h], other[h], static_cast<uint16_t>(h), static_cast<uint8_t>(a),
          static_cast<uint8_t>(b)};
    }
  }

  // The candidates for a flush in `suit` with three (kind 0), four (1) or five (2) board cards of it: the
  // holdings suited in it, those with a card of it, every holding. Listed when first needed.
  const std::vector<WeightedFlushCandidate>& Candidates(int32_t suit, int32_t kind) {
    std::vector<WeightedFlushCandidate>& list = candidates_[suit][kind];
    if (candidatesListed_[suit][kind]) return list;
    for (const uint16_t h : holdings_) {
      const auto& cards = CardsOfHoldings()[h];
      const uint32_t suitRanks = (cards[0].suit == suit ? RankMaskBit(cards[0].rank) : 0u) |
                                 (cards[1].suit == suit ? RankMaskBit(cards[1].rank) : 0u);
      if (kind == 0 && (cards[0].suit != suit || cards[1].suit != suit)) continue;
      if (kind == 1 && suitRanks == 0) continue;
      list.push_back({DeckBits(cards[0], cards[1]), myWeights_[h], theirWeights_[h], h,
                      static_cast<uint16_t>(CanonicalPairIndex(cards[0].rank, cards[1].rank)),
                      static_cast<uint16_t>(suitRanks), static_cast<uint8_t>(DeckIndex(cards[0])),
                      static_cast<uint8_t>(DeckIndex(cards[1]))});
    }
    candidatesListed_[suit][kind] = true;
    return list;
  }

  void FillPattern(Pattern& pattern, std::span<const Card> coming) const {
    RankState ranks = boardRanks_;
    for (const Card& card : coming) ranks = evaluator_.AddRank(ranks, card.rank);
    for (const uint16_t pair : presentPairs_) {
      const int32_t low = pair / 13 + 2;
      const int32_t high = pair % 13 + 2;
      pattern.values[pair] = evaluator_.RankValue(evaluator_.AddRank(evaluator_.AddRank(ranks, low), high));
    }
    pattern.order = presentPairs_;
    std::sort(pattern.order.begin(), pattern.order.end(),
              [&](uint16_t x, uint16_t y) { return pattern.values[x] < pattern.values[y]; });
  }

  // The live candidates whose flush beats their rank pair's value (all of them when `all`): marked as moved
  // out of their pair's list, and listed by value (value << 32 | place in the candidate list).
  void CollectFlushes(const Pattern& pattern, uint32_t boardSuitRanks,
                      const std::vector<WeightedFlushCandidate>& candidates, uint64_t comingCards, bool all) {
    for (std::size_t i = 0; i < candidates.size(); ++i) {
      const WeightedFlushCandidate& c = candidates[i];
      if ((c.cards & comingCards) != 0) continue;
      const HandValue plain = pattern.values[c.rankPair];
      const HandValue flush = evaluator_.FlushValue(boardSuitRanks | c.suitRanks);
      if (flush <= plain && !all) continue;
      moved_[c.number] = true;
      flush_.push_back(uint64_t{std::max(flush, plain)} << 32 | i);
    }
    std::sort(flush_.begin(), flush_.end());
  }

  // One board's walk: the rank pairs' order, how many of them are walked (none when every holding makes a
  // flush), the flush candidates and the coming cards.
  struct Walk {
    const Pattern& pattern;
    std::size_t pairCount;
    const std::vector<WeightedFlushCandidate>* candidates;
    uint64_t comingCards;
  };
  // The holdings of one value: the rank pairs pattern.order[pairBegin, pairEnd) and the flush holdings
  // flush_[flushBegin, flushEnd).
  struct ValueGroup {
    std::size_t pairBegin;
    std::size_t pairEnd;
    std::size_t flushBegin;
    std::size_t flushEnd;
  };

  // Calls `visit` with each group of equal value, the lowest value first.
  template <class Visit>
  void ForEachValueGroup(const Walk& walk, Visit&& visit) const {
    const Pattern& pattern = walk.pattern;
    std::size_t p = 0;
    std::size_t f = 0;
    const std::size_t flushCount = flush_.size();
    while (p < walk.pairCount || f < flushCount) {
      HandValue value = UINT32_MAX;
      if (p < walk.pairCount) value = pattern.values[pattern.order[p]];
      if (f < flushCount) value = std::min(value, static_cast<HandValue>(flush_[f] >> 32));
      std::size_t pairEnd = p;
      while (pairEnd < walk.pairCount && pattern.values[pattern.order[pairEnd]] == value) ++pairEnd;
      std::size_t flushEnd = f;
      while (flushEnd < flushCount && static_cast<HandValue>(flush_[flushEnd] >> 32) == value) ++flushEnd;
      visit(ValueGroup{p, pairEnd, f, flushEnd});
      p = pairEnd;
      f = flushEnd;
    }
  }

  // Calls fn(number, card1, card2, weight, otherWeight) for each live holding of one range (kMine: my range,
  // else the opponent's) in the group: its weight in that range and in the other one.
  template <bool kMine, class Fn>
  void ForEachHolding(const Walk& walk, const ValueGroup& group, Fn&& fn) const {
    const std::vector<RankPairEntry>& entries = kMine ? mine_ : theirs_;
    const std::array<uint32_t, kRankPairCount + 1>& start = kMine ? myStart_ : theirStart_;
    for (std::size_t i = group.pairBegin; i < group.pairEnd; ++i) {
      const uint16_t pair = walk.pattern.order[i];
      for (uint32_t k = start[pair]; k < start[pair + 1]; ++k) {
        const RankPairEntry& e = entries[k];
        if ((e.cards & walk.comingCards) == 0 && !moved_[e.number])
          fn(e.number, e.card1, e.card2, e.weight, e.otherWeight);
      }
    }
    for (std::size_t i = group.flushBegin; i < group.flushEnd; ++i) {
      const WeightedFlushCandidate& c = (*walk.candidates)[flush_[i] & 0xFFFF];
      const int32_t weight = kMine ? c.myWeight : c.theirWeight;
      if (weight != 0) fn(c.number, c.card1, c.card2, weight, kMine ? c.theirWeight : c.myWeight);
    }
  }

  // Whether my range has a live holding in the group.
  bool MineInGroup(const Walk& walk, const ValueGroup& group) const {
    for (std::size_t i = group.pairBegin; i < group.pairEnd; ++i) {
      const uint16_t pair = walk.pattern.order[i];
      for (uint32_t k = myStart_[pair]; k < myStart_[pair + 1]; ++k) {
        const RankPairEntry& e = mine_[k];
        if ((e.cards & walk.comingCards) == 0 && !moved_[e.number]) return true;
      }
    }
    for (std::size_t i = group.flushBegin; i < group.flushEnd; ++i) {
      if ((*walk.candidates)[flush_[i] & 0xFFFF].myWeight != 0) return true;
    }
    return false;
  }

  // The weights of the holdings passed so far, in total and per card.
  struct Passed {
    int64_t total = 0;
    std::array<int64_t, kDeckSize> with{};

    void Add(uint8_t card1, uint8_t card2, int32_t weight) {
      total += weight;
      with[card1] += weight;
      with[card2] += weight;
    }
    // Those sharing no card with a holding of these two cards.
    int64_t Apart(uint8_t card1, uint8_t card2) const { return total - with[card1] - with[card2]; }
  };

  // My wins and ties on one board: walking up the values, my holdings of a value beat the opponent's
  // passed before it and tie those of the same value.
  void Sweep(const Walk& walk, int64_t& wins, int64_t& ties) {
    Passed passed;
    int64_t less = 0;
    int64_t lessOrEqual = 0;
    ForEachValueGroup(walk, [&](const ValueGroup& group) {
      // My holdings of this value beat the opponent's passed so far.
      ForEachHolding<true>(walk, group, [&](uint16_t, uint8_t card1, uint8_t card2, int32_t weight, int32_t) {
        less += weight * passed.Apart(card1, card2);
      });
      // The opponent's holdings of this value are passed.
      ForEachHolding<false>(walk, group,
                            [&](uint16_t, uint8_t card1, uint8_t card2, int32_t weight, int32_t) {
                              passed.Add(card1, card2, weight);
                            });
      // My holdings of this value meet those passed now at a tie or better; the opponent's copy of the
      // holding itself was taken off twice, once per card.
      ForEachHolding<true>(walk, group,
                           [&](uint16_t, uint8_t card1, uint8_t card2, int32_t weight, int32_t theirWeight) {
                             lessOrEqual += weight * (passed.Apart(card1, card2) + theirWeight);
                           });
    });
    wins += less;
    ties += lessOrEqual - less;
  }

  // The same walk from the opponent's side: per holding of the opponent's range (by holding number, one
  // copy), the weights of my holdings of a lower value (Above) and of an equal one (Level) that share no
  // card with it.
  void SweepByOpponent(const Walk& walk) {
    Passed passed;  // my holdings of a lower value
    Passed before;  // the same before this value's holdings
    ForEachValueGroup(walk, [&](const ValueGroup& group) {
      // My holdings of this value, passed now; without any, the opponent's of this value tie none.
      const bool mineHere = MineInGroup(walk, group);
      if (mineHere) {
        before = passed;
        ForEachHolding<true>(walk, group,
                             [&](uint16_t, uint8_t card1, uint8_t card2, int32_t weight, int32_t) {
                               passed.Add(card1, card2, weight);
                             });
      }
      // The opponent's holdings of this value beat my holdings passed before it and tie those passed now;
      // my copy of the holding itself was taken off twice, once per card.
      ForEachHolding<false>(walk, group,
                            [&](uint16_t number, uint8_t card1, uint8_t card2, int32_t, int32_t myWeight) {
                              if (!mineHere) {
                                above_[number] += passed.Apart(card1, card2);
                                return;
                              }
                              const int64_t below = before.Apart(card1, card2);
                              above_[number] += below;
                              level_[number] += passed.Apart(card1, card2) + myWeight - below;
                            });
    });
  }

 public:
  // Over the boards counted, per holding number of the opponent's range (kByOpponent).
  int64_t Above(int32_t holding) const { return above_[holding]; }
  int64_t Level(int32_t holding) const { return level_[holding]; }

 private:
  const StandardEvaluator& evaluator_;
  const HoldingWeights& myWeights_;
  const HoldingWeights& theirWeights_;
  RankState boardRanks_ = StandardEvaluator::kNoRanks;
  SuitCounts boardSuits_;
  std::vector<RankPairEntry> mine_;
  std::vector<RankPairEntry> theirs_;
  std::array<uint32_t, kRankPairCount + 1> myStart_{};
  std::array<uint32_t, kRankPairCount + 1> theirStart_{};
  std::vector<uint16_t> presentPairs_;
  std::vector<uint16_t> holdings_;  // the live holdings of either range
  // [suit][board cards of the suit - 3]: the suited holdings, those with a card of the suit, every holding.
  std::array<std::array<std::vector<WeightedFlushCandidate>, 3>, 4> candidates_;
  std::array<std::array<bool, 3>, 4> candidatesListed_{};
  RankPatternCache<Pattern> patterns_;
  std::vector<uint64_t> flush_;
  std::array<bool, kHoldingCount> moved_{};
  std::array<int64_t, kHoldingCount> above_{};
  std::array<int64_t, kHoldingCount> level_{};
};

// Every completion of the board: wins and ties counted, losses the rest of the showdowns.
bool CountOnBoard(const BoardCards& board, int32_t known, uint64_t boardCards, const HoldingWeights& mine,
                  const HoldingWeights& theirs, const RangeEquityProgress& progress, ShowdownTally& tally,
                  uint64_t showdowns) {
  CompletionCounter counter(board, known, mine, theirs);
  int64_t wins = 0;
  int64_t ties = 0;
  const Street street = known == 5 ? kRiver : known == 4 ? kTurn : kFlop;
  const int walked = ForEachComingBoard(
      boardCards, street, [&](std::span<const Card> coming) { counter.Count<false>(coming, wins, ties); },
      [&](double done) { return !progress || progress(done); });
  if (walked < 0) return false;
  tally.wins = static_cast<uint64_t>(wins);
  tally.ties = static_cast<uint64_t>(ties);
  tally.losses = showdowns - tally.wins - tally.ties;
  return true;
}

// The same walk counted per holding of the opponent's range: `against[h]` gets my wins, ties and losses
// against all copies of holding h, and the whole tally is their sum. Every pair without a common card
// meets `boardsPerMatchup` boards, so my wins against h are the showdowns it meets less those in which my
// holding was worth no more than h.
bool CountOnBoardByOpponent(const BoardCards& board, int32_t known, uint64_t boardCards,
                            const HoldingWeights& mine, const HoldingWeights& theirs,
                            const RangeEquityProgress& progress, uint64_t boardsPerMatchup,
                            std::span<ShowdownTally> against, ShowdownTally& tally) {
  CompletionCounter counter(board, known, mine, theirs);
  int64_t unused = 0;
  const Street street = known == 5 ? kRiver : known == 4 ? kTurn : kFlop;
  const int walked = ForEachComingBoard(
      boardCards, street, [&](std::span<const Card> coming) { counter.Count<true>(coming, unused, unused); },
      [&](double done) { return !progress || progress(done); });
  if (walked < 0) return false;
  // My holdings without a common card with h: all of them, less those with one of its cards, plus my
  // copies of h itself (taken off twice).
  int64_t myTotal = 0;
  std::array<int64_t, kDeckSize> myWith{};
  for (int32_t h = 0; h < kHoldingCount; ++h) {
    if (mine[h] == 0) continue;
    myTotal += mine[h];
    for (const Card card : CardsOfHoldings()[h]) myWith[DeckIndex(card)] += mine[h];
  }
  tally = {};
  for (int32_t h = 0; h < kHoldingCount; ++h) {
    if (theirs[h] == 0) continue;
    const auto& cards = CardsOfHoldings()[h];
    const int64_t met = (myTotal - myWith[DeckIndex(cards[0])] - myWith[DeckIndex(cards[1])] + mine[h]) *
                        static_cast<int64_t>(boardsPerMatchup);
    const auto weight = static_cast<uint64_t>(theirs[h]);
    ShowdownTally& t = against[h];
    t.losses = weight * static_cast<uint64_t>(counter.Above(h));
    t.ties = weight * static_cast<uint64_t>(counter.Level(h));
    t.wins = weight * static_cast<uint64_t>(met - counter.Above(h) - counter.Level(h));
    tally += t;
  }
  return true;
}

// Preflop per holding of the opponent's range: every ordered pair reads its tally from the table.
bool CountPreflopByOpponent(const PreflopClassTable& table, const HoldingWeights& mine,
                            const HoldingWeights& theirs, const RangeEquityProgress& progress,
                            std::span<ShowdownTally> against, ShowdownTally& tally) {
  std::vector<int32_t> opponents;
  std::vector<int32_t> myHoldings;
  for (int32_t h = 0; h < kHoldingCount; ++h) {
    if (theirs[h] != 0) opponents.push_back(h);
    if (mine[h] != 0) myHoldings.push_back(h);
  }
  for (std::size_t i = 0; i < myHoldings.size(); ++i) {
    const int32_t a = myHoldings[i];
    for (const int32_t b : opponents) {
      const ShowdownTally t = table.Matchup(a, b);  // all zero for a common card
      const auto weight = static_cast<uint64_t>(mine[a]) * static_cast<uint64_t>(theirs[b]);
      against[b] += ShowdownTally{weight * t.wins, weight * t.ties, weight * t.losses};
    }
    if (progress && !progress(static_cast<double>(i + 1) / static_cast<double>(myHoldings.size())))
      return false;
  }
  tally = {};
  for (const int32_t b : opponents) tally += against[b];
  return true;
}

// StandardRangeEquity, and with `against` (kHoldingCount entries) the tally per holding of the opponent's
// range as well.
RangeEquityResult Calculate(std::span<const HandCombo> myRange, std::span<const HandCombo> oppRange,
                            const BoardCards& board, Street street, const RangeEquityProgress& progress,
                            std::span<ShowdownTally> against) {
  RangeEquityResult result;
  if (street != kNoBoard && street != kFlop && street != kTurn && street != kRiver) {
    result.error = "the street is not one of preflop, flop, turn and river";
    return result;
  }
  const int32_t known = BoardCardCount(street);
  const KnownCards boardKnown = KnownBoardCards(board, street);
  const uint64_t boardCards = boardKnown.bits;
  if (!boardKnown.inDeck) {
    result.error = "the board holds a card outside the deck";
    return result;
  }
  if (!boardKnown.distinct) {
    result.error = "the board holds a card twice";
    return result;
  }
  const LiveRangeWeights myLive = ReadLiveRange(myRange, boardCards);
  const LiveRangeWeights theirLive = ReadLiveRange(oppRange, boardCards);
  const HoldingWeights& mine = myLive.weights;
  const HoldingWeights& theirs = theirLive.weights;
  result.myHoldings = myLive.holdings;
  result.oppHoldings = theirLive.holdings;
  result.myWeightSum = myLive.weightSum;
  result.oppWeightSum = theirLive.weightSum;
  const uint64_t scale = static_cast<uint64_t>(myLive.unit) * static_cast<uint64_t>(theirLive.unit);
  result.tally.scale = scale;
  for (ShowdownTally& t : against) t.scale = scale;
  // The pairs weighted by the product of their weights, in the tally's units.
  const uint64_t weightedMatchups = CountMatchups(mine, theirs);
  result.matchups = scale == 1 ? weightedMatchups : CountMatchups(myLive.Copies(), theirLive.Copies());
  if (weightedMatchups == 0) return result;

  bool finished = false;
  if (street == kNoBoard) {
    const PreflopClassTableOrError& loaded = ProgramPreflopClassTable();
    if (!loaded.ok()) {
      result.error = loaded.error;
      return result;
    }
    finished = against.empty()
                   ? CountPreflop(*loaded.table, mine, theirs, progress, result.tally)
                   : CountPreflopByOpponent(*loaded.table, mine, theirs, progress, against, result.tally);
  } else if (against.empty()) {
    const uint64_t showdowns = weightedMatchups * Choose(kDeckSize - known - 4, 5 - known);
    finished = CountOnBoard(board, known, boardCards, mine, theirs, progress, result.tally, showdowns);
  } else {
    finished = CountOnBoardByOpponent(board, known, boardCards, mine, theirs, progress,
                                      Choose(kDeckSize - known - 4, 5 - known), against, result.tally);
  }
  result.tally.scale = scale;
  if (!finished) {
    result.tally = {};
    std::fill(against.begin(), against.end(), ShowdownTally{});
    result.cancelled = true;
  }
  return result;
}

}  // namespace

RangeEquityResult StandardRangeEquity(std::span<const HandCombo> myRange, std::span<const HandCombo> oppRange,
                                      const BoardCards& board, Street street,
                                      const RangeEquityProgress& progress) {
  return Calculate(myRange, oppRange, board, street, progress, {});
}

RangeEquityResult StandardRangeEquityByHolding(std::span<const HandCombo> myRange,
                                               std::span<const HandCombo> oppRange, const BoardCards& board,
                                               Street street, std::span<ShowdownTally> against,
                                               const RangeEquityProgress& progress) {
  std::fill(against.begin(), against.end(), ShowdownTally{});
  if (against.size() < static_cast<std::size_t>(kHoldingCount)) {
    RangeEquityResult result;
    result.error = "no room for a tally per holding";
    return result;
  }
  return Calculate(myRange, oppRange, board, street, progress, against.first(kHoldingCount));
}

}  // namespace quillet
