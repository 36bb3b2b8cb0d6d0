#include "reports/flop_sweep.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>

#include "cards/holding.h"
#include "equity/deck.h"
#include "equity/rank_pair.h"
#include "equity/standard_evaluator.h"
#include "equity/worker_threads.h"

namespace quillet {
namespace {

constexpr int32_t kFiveRankKeys = 13 * 13 * 13 * 13 * 13;

// The values of every rank pair (CanonicalPairIndex) on each set of five board ranks, without a flush.
class FiveRankTables {
 public:
  FiveRankTables() : slot_(kFiveRankKeys, -1) {
    const StandardEvaluator& evaluator = StandardEvaluator::Get();
    std::array<int32_t, 5> r{};
    for (r[0] = 2; r[0] <= 14; ++r[0]) {
      for (r[1] = r[0]; r[1] <= 14; ++r[1]) {
        for (r[2] = r[1]; r[2] <= 14; ++r[2]) {
          for (r[3] = r[2]; r[3] <= 14; ++r[3]) {
            for (r[4] = r[3]; r[4] <= 14; ++r[4]) {
              if (r[0] == r[4]) continue;  // five of one rank
              RankState board = StandardEvaluator::kNoRanks;
              for (int32_t rank : r) board = evaluator.AddRank(board, rank);
              std::array<uint32_t, kRankPairCount> values{};
              for (int32_t a = 2; a <= 14; ++a) {
                const RankState one = evaluator.AddRank(board, a);
                for (int32_t b = a; b <= 14; ++b) {
                  values[CanonicalPairIndex(a, b)] = evaluator.RankValue(evaluator.AddRank(one, b));
                }
              }
              slot_[Key(r[0], r[1], r[2], r[3], r[4])] = static_cast<int32_t>(tables_.size());
              tables_.push_back(values);
            }
          }
        }
      }
    }
  }

  static constexpr int32_t Key(int32_t a, int32_t b, int32_t c, int32_t d, int32_t e) {
    return (((((a - 2) * 13 + b - 2) * 13 + c - 2) * 13 + d - 2) * 13) + e - 2;
  }
  // The ranks in order, lowest first.
  const uint32_t* For(int32_t key) const { return tables_[slot_[key]].data(); }

 private:
  std::vector<int32_t> slot_;
  std::vector<std::array<uint32_t, kRankPairCount>> tables_;
};

// A live holding a flush suit can change: its cards, rank pair, and its hole cards in the suit.
struct SweepFlushHolding {
  uint64_t cards = 0;
  int32_t pair = 0;
  uint32_t holeRanks = 0;
  int32_t holeCount = 0;
  int64_t weight = 0;
};

// The live holdings counted every way a board needs them (weights in thousandths).
struct SweepRange {
  int64_t total = 0;
  std::vector<int32_t> pairs;
  std::vector<int64_t> pairWeights;
  std::array<std::array<int64_t, 13>, kDeckSize> withCard{};  // [card][other card's rank - 2]
  std::array<int64_t, kDeckSize> cardWeight{};
  std::vector<int64_t> exact;  // [card x 52 + card]
  // Per suit: the holdings with both cards of it (a board of three of the suit changes only these), and
  // those with one card of it (a board of four or five).
  std::array<std::vector<SweepFlushHolding>, 4> suited;
  std::array<std::vector<SweepFlushHolding>, 4> single;
};

// The deck mask with each suit's 13 bits moved to the suit the change gives it.
uint64_t ChangedSuits(uint64_t cards, const SuitChange& change) {
  uint64_t moved = 0;
  for (int32_t suit = 0; suit < 4; ++suit) moved |= ((cards >> (13 * suit)) & 0x1FFF) << (13 * change[suit]);
  return moved;
}

struct SweepSums {
  int64_t wins = 0;
  int64_t ties = 0;
  int64_t met = 0;
};

}  // namespace

std::vector<ShowdownTally> StandardTallyOfEveryFlop(const HandCards& hand, std::span<const HandCombo> range,
                                                    std::span<const SuitChange> suitChanges, int threads,
                                                    const std::function<void(int64_t)>& boardsDone,
                                                    const std::function<bool()>& stop) {
  static const FiveRankTables tables;
  const StandardEvaluator& evaluator = StandardEvaluator::Get();
  const uint64_t handBits =
      (uint64_t{1} << DeckIndex(hand.card1())) | (uint64_t{1} << DeckIndex(hand.card2()));

  SweepRange live;
  live.exact.assign(kDeckSize * kDeckSize, 0);
  std::array<int64_t, kRankPairCount> perPair{};
  bool whole = true;
  for (const HandCombo& combo : range) {
    const Card a = combo.card1();
    const Card b = combo.card2();
    if (!combo.flag || !IsHolding(a, b)) continue;
    const int32_t ia = DeckIndex(a);
    const int32_t ib = DeckIndex(b);
    const uint64_t cards = (uint64_t{1} << ia) | (uint64_t{1} << ib);
    if ((cards & handBits) != 0) continue;
    const int64_t w = combo.weight;
    whole = whole && w == kFullWeight;
    const int32_t pair = CanonicalPairIndex(a.rank, b.rank);
    live.total += w;
    perPair[pair] += w;
    live.withCard[ia][b.rank - 2] += w;
    live.withCard[ib][a.rank - 2] += w;
    live.cardWeight[ia] += w;
    live.cardWeight[ib] += w;
    live.exact[ia * kDeckSize + ib] += w;
    live.exact[ib * kDeckSize + ia] += w;
    for (int32_t suit = 0; suit < 4; ++suit) {
      SweepFlushHolding h{cards, pair, 0, 0, w};
      if (a.suit == suit) {
        h.holeRanks |= uint32_t{1} << (a.rank - 2);
        ++h.holeCount;
      }
      if (b.suit == suit) {
        h.holeRanks |= uint32_t{1} << (b.rank - 2);
        ++h.holeCount;
      }
      if (h.holeCount == 2) live.suited[suit].push_back(h);
      if (h.holeCount == 1) live.single[suit].push_back(h);
    }
  }
  for (int32_t pair = 0; pair < kRankPairCount; ++pair) {
    if (perPair[pair] == 0) continue;
    live.pairs.push_back(pair);
    live.pairWeights.push_back(perPair[pair]);
  }

  // The cards left, lowest rank first, so that every board's ranks come in order.
  std::vector<Card> left;
  for (int32_t rank = 2; rank <= 14; ++rank) {
    for (int32_t suit = 0; suit < 4; ++suit) {
      const Card card{rank, suit};
      if ((handBits >> DeckIndex(card) & 1) == 0) left.push_back(card);
    }
  }
  const int n = static_cast<int>(left.size());
  std::vector<int32_t> place(n);
  for (int i = 0; i < n; ++i) place[i] = DeckIndex(left[i]);
  const int32_t myPair = CanonicalPairIndex(hand.rank1, hand.rank2);

  threads = std::max(1, threads);
  std::vector<std::vector<SweepSums>> sums(static_cast<std::size_t>(threads),
                                           std::vector<SweepSums>(kFlopCount));
  std::atomic<int> next{0};
  std::atomic<int64_t> done{0};
  std::atomic<bool> halt{false};
  const auto count = [&](std::vector<SweepSums>& flops) {
    for (;;) {
      if (halt.load(std::memory_order_relaxed)) return;
      const int i = next.fetch_add(1);
      if (i >= n - 4) return;
      int64_t boards = 0;
      for (int j = i + 1; j < n; ++j) {
        for (int k = j + 1; k < n; ++k) {
          for (int l = k + 1; l < n; ++l) {
            for (int m = l + 1; m < n; ++m) {
              const std::array<int, 5> at = {i, j, k, l, m};
              uint64_t boardBits = 0;
              std::array<int32_t, 4> suitCount{};
              std::array<uint32_t, 4> suitRanks{};
              for (int p : at) boardBits |= uint64_t{1} << place[p];
              // Counted once for all the boards a change of suits makes of it: at the smallest of them.
              std::array<uint64_t, 24> orbit{};
              int members = 0;
              bool first = true;
              for (const SuitChange& change : suitChanges) {
                const uint64_t moved = ChangedSuits(boardBits, change);
                if (moved < boardBits) {
                  first = false;
                  break;
                }
                if (std::find(orbit.begin(), orbit.begin() + members, moved) == orbit.begin() + members)
                  orbit[members++] = moved;
              }
              if (!first) continue;
              if (members == 0) orbit[members++] = boardBits;
              for (int p : at) {
                const Card card = left[p];
                ++suitCount[card.suit];
                suitRanks[card.suit] |= uint32_t{1} << (card.rank - 2);
              }
              const uint32_t* values = tables.For(
                  FiveRankTables::Key(left[i].rank, left[j].rank, left[k].rank, left[l].rank, left[m].rank));
              int32_t flushSuit = -1;
              for (int32_t s = 0; s < 4; ++s) {
                if (suitCount[s] >= 3) flushSuit = s;
              }
              uint32_t mine = values[myPair];
              uint32_t floor = 0;
              if (flushSuit >= 0) {
                uint32_t myRanks = suitRanks[flushSuit];
                int32_t myCount = suitCount[flushSuit];
                if (hand.suit1 == flushSuit) {
                  myRanks |= uint32_t{1} << (hand.rank1 - 2);
                  ++myCount;
                }
                if (hand.suit2 == flushSuit) {
                  myRanks |= uint32_t{1} << (hand.rank2 - 2);
                  ++myCount;
                }
                if (myCount >= 5) mine = std::max(mine, evaluator.FlushValue(myRanks));
                if (suitCount[flushSuit] == 5) floor = evaluator.FlushValue(suitRanks[flushSuit]);
              }
              int64_t wins = 0;
              int64_t ties = 0;
              for (std::size_t x = 0; x < live.pairs.size(); ++x) {
                const uint32_t v = std::max(values[live.pairs[x]], floor);
                wins += live.pairWeights[x] * (mine > v);
                ties += live.pairWeights[x] * (mine == v);
              }
              int64_t met = live.total;
              // The holdings with a card of the board are not dealt: taken off once per board card they
              // hold, and those holding two board cards given back once.
              for (int a = 0; a < 5; ++a) {
                const int32_t da = place[at[a]];
                const int32_t ra = left[at[a]].rank;
                met -= live.cardWeight[da];
                for (int32_t r = 2; r <= 14; ++r) {
                  const int64_t w = live.withCard[da][r - 2];
                  if (w == 0) continue;
                  const uint32_t v = std::max(values[CanonicalPairIndex(ra, r)], floor);
                  wins -= w * (mine > v);
                  ties -= w * (mine == v);
                }
                for (int b = a + 1; b < 5; ++b) {
                  const int32_t db = place[at[b]];
                  const int64_t w = live.exact[da * kDeckSize + db];
                  if (w == 0) continue;
                  met += w;
                  const uint32_t v = std::max(values[CanonicalPairIndex(ra, left[at[b]].rank)], floor);
                  wins += w * (mine > v);
                  ties += w * (mine == v);
                }
              }
              // The holdings the flush suit changes, one by one.
              const auto correct = [&](const std::vector<SweepFlushHolding>& holdings) {
                for (const SweepFlushHolding& h : holdings) {
                  if ((h.cards & boardBits) != 0) continue;
                  const uint32_t before = std::max(values[h.pair], floor);
                  const uint32_t after =
                      std::max(values[h.pair], evaluator.FlushValue(suitRanks[flushSuit] | h.holeRanks));
                  if (before == after) continue;
                  wins += h.weight * ((mine > after) - (mine > before));
                  ties += h.weight * ((mine == after) - (mine == before));
                }
              };
              if (flushSuit >= 0) {
                correct(live.suited[flushSuit]);
                if (suitCount[flushSuit] >= 4) correct(live.single[flushSuit]);
              }
              // The ten flops of the board and of every board a change of suits makes of it.
              for (int o = 0; o < members; ++o) {
                std::array<int32_t, 5> d{};
                uint64_t rest = orbit[o];
                for (int32_t& x : d) {
                  x = std::countr_zero(rest);
                  rest &= rest - 1;
                }
                for (int a = 0; a < 5; ++a) {
                  for (int b = a + 1; b < 5; ++b) {
                    for (int c = b + 1; c < 5; ++c) {
                      SweepSums& f = flops[FlopNumber(d[a], d[b], d[c])];
                      f.wins += wins;
                      f.ties += ties;
                      f.met += met;
                    }
                  }
                }
              }
              ++boards;
            }
          }
        }
      }
      done += boards;
    }
  };
  RunOnWorkerThreads(
      threads, [&](int t) { count(sums[t]); },
      [&] {
        if (boardsDone) boardsDone(done.load());
        if (!(stop && stop())) return true;
        halt = true;
        return false;
      });
  if (halt.load()) return {};

  std::vector<ShowdownTally> tallies(kFlopCount);
  const int64_t unit = whole ? kFullWeight : 1;
  for (int32_t f = 0; f < kFlopCount; ++f) {
    SweepSums total;
    for (const auto& part : sums) {
      total.wins += part[f].wins;
      total.ties += part[f].ties;
      total.met += part[f].met;
    }
    ShowdownTally& t = tallies[f];
    t.wins = static_cast<uint64_t>(total.wins / unit);
    t.ties = static_cast<uint64_t>(total.ties / unit);
    t.losses = static_cast<uint64_t>((total.met - total.wins - total.ties) / unit);
    t.scale = whole ? 1 : kFullWeight;
  }
  return tallies;
}

}  // namespace quillet
