#include "equity/preflop_table_generator.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <chrono>
#include <stdexcept>
#include <thread>
#include <unordered_map>
#include <vector>

#include "equity/deck.h"
#include "equity/hand_evaluator.h"
#include "equity/matchup_key.h"

namespace quillet {
namespace {

// ---- Hand values as table look-ups ----
//
// A player's hand is a flush or it is not. Without a flush its value depends only on the ranks: the two
// hole ranks and the multiset of the five board ranks. With a flush (five or more of one suit among the
// seven cards; then no quads or full house is possible) the value is that suit's best five. Both are
// tables built from the standard evaluator, its values ranked densely so that they fit in 16 bits.

constexpr int kRankPairs = 91;             // hole rank pairs i <= j of 13 ranks
constexpr int kBoardRankMultisets = 6188;  // C(17, 5): five ranks of 13 with repetition

constexpr std::array<std::array<int32_t, 6>, 18> kBinomial = [] {
  std::array<std::array<int32_t, 6>, 18> c{};
  for (int n = 0; n < 18; ++n) {
    c[n][0] = 1;
    for (int k = 1; k < 6; ++k) c[n][k] = n == 0 ? 0 : c[n - 1][k - 1] + c[n - 1][k];
  }
  return c;
}();

// Index of the multiset of ranks r1 <= r2 <= ... (0..12): the strictly rising r_i + i - 1 read in the
// combinatorial number system, sum of C(r_i + i - 1, i).
constexpr int32_t MultisetTerm(int32_t rankIndex, int position) {
  return kBinomial[rankIndex + position][position + 1];
}

constexpr int TrianglePairIndex(int32_t i, int32_t j) {
  return i <= j ? j * (j + 1) / 2 + i : i * (i + 1) / 2 + j;
}

// Five board ranks with repetition, as their multiset index and as ranks with how often each occurs.
struct FiveBoardRanks {
  int32_t index = 0;
  int32_t groups = 0;
  std::array<uint8_t, 5> rank{};
  std::array<uint8_t, 5> times{};
};

struct FastTables {
  std::vector<uint16_t> nonFlush;          // [rank pair][board rank multiset]
  std::vector<uint16_t> flush;             // [13-bit rank mask of one suit], five or more ranks
  std::vector<FiveBoardRanks> boardRanks;  // every multiset of five ranks no rank more than four times
  std::array<std::vector<uint16_t>, 6> suitSubsets;  // [k]: the 13-bit rank masks of k ranks
  // [n], n = 0..2: OtherRankSets(n).
  std::array<std::vector<std::array<int32_t, 2>>, 3> otherRankSets;
  // [k], k = 3..5: the board rank multiset of suitSubsets[k][s] with the other ranks otherRankSets[5 - k][o],
  // at s x otherRankSets[5 - k].size() + o.
  std::array<std::vector<uint16_t>, 6> mergedIndex;
};

// The multisets of n = 0..2 ranks (0..12) of the board cards outside a flush suit, in a fixed order.
std::vector<std::array<int32_t, 2>> OtherRankSets(int n) {
  std::vector<std::array<int32_t, 2>> sets;
  if (n == 0) sets.push_back({});
  if (n == 1)
    for (int32_t r = 0; r < 13; ++r) sets.push_back({r, 0});
  if (n == 2)
    for (int32_t r = 0; r < 13; ++r)
      for (int32_t q = r; q < 13; ++q) sets.push_back({r, q});
  return sets;
}

FastTables BuildFastTables() {
  FastTables t;
  std::vector<HandValue> nonFlushValues(kRankPairs * kBoardRankMultisets, 0);
  std::vector<HandValue> flushValues(8192, 0);
  for (int32_t r1 = 0; r1 < 13; ++r1)
    for (int32_t r2 = r1; r2 < 13; ++r2)
      for (int32_t r3 = r2; r3 < 13; ++r3)
        for (int32_t r4 = r3; r4 < 13; ++r4)
          for (int32_t r5 = r4; r5 < 13; ++r5) {
            const int32_t board = MultisetTerm(r1, 0) + MultisetTerm(r2, 1) + MultisetTerm(r3, 2) +
                                  MultisetTerm(r4, 3) + MultisetTerm(r5, 4);
            if (r1 != r5) {  // five of one rank: no such board
              FiveBoardRanks b;
              b.index = board;
              for (int32_t r : {r1, r2, r3, r4, r5}) {
                if (b.groups > 0 && b.rank[b.groups - 1] == r) {
                  ++b.times[b.groups - 1];
                } else {
                  b.rank[b.groups] = static_cast<uint8_t>(r);
                  b.times[b.groups++] = 1;
                }
              }
              t.boardRanks.push_back(b);
            }
            for (int32_t hi = 0; hi < 13; ++hi) {
              for (int32_t lo = 0; lo <= hi; ++lo) {
                std::array<uint8_t, 13> counts{};
                for (int32_t r : {hi, lo, r1, r2, r3, r4, r5}) ++counts[r];
                if (*std::max_element(counts.begin(), counts.end()) > 4) continue;  // no such cards
                nonFlushValues[TrianglePairIndex(hi, lo) * kBoardRankMultisets + board] =
                    EvaluateRanks(counts);
              }
            }
          }
  for (uint32_t mask = 0; mask < 8192; ++mask) {
    if (std::popcount(mask) >= 5) flushValues[mask] = EvaluateFlush(mask);
    if (std::popcount(mask) <= 5) t.suitSubsets[std::popcount(mask)].push_back(static_cast<uint16_t>(mask));
  }
  for (int n = 0; n <= 2; ++n) t.otherRankSets[n] = OtherRankSets(n);
  for (int k = 3; k <= 5; ++k) {
    const auto& others = t.otherRankSets[5 - k];
    for (const uint16_t mask : t.suitSubsets[k]) {
      for (const auto& other : others) {
        std::vector<int32_t> ranks(other.begin(), other.begin() + (5 - k));
        for (uint32_t m = mask; m != 0; m &= m - 1) ranks.push_back(std::countr_zero(m));
        std::sort(ranks.begin(), ranks.end());
        int32_t index = 0;
        for (int pos = 0; pos < 5; ++pos) index += MultisetTerm(ranks[pos], pos);
        t.mergedIndex[k].push_back(static_cast<uint16_t>(index));
      }
    }
  }
  std::vector<HandValue> distinct(nonFlushValues);
  distinct.insert(distinct.end(), flushValues.begin(), flushValues.end());
  std::sort(distinct.begin(), distinct.end());
  distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());
  const auto dense = [&](HandValue v) {
    return static_cast<uint16_t>(std::lower_bound(distinct.begin(), distinct.end(), v) - distinct.begin());
  };
  t.nonFlush.reserve(nonFlushValues.size());
  for (HandValue v : nonFlushValues) t.nonFlush.push_back(dense(v));
  for (HandValue v : flushValues) t.flush.push_back(dense(v));
  return t;
}

const FastTables& Fast() {
  static const FastTables tables = BuildFastTables();
  return tables;
}

// C(n, k) for the n <= 4 cards left of one rank.
constexpr std::array<std::array<int64_t, 6>, 5> kChooseOfRank = {{
    {1, 0, 0, 0, 0, 0},
    {1, 1, 0, 0, 0, 0},
    {1, 2, 1, 0, 0, 0},
    {1, 3, 3, 1, 0, 0},
    {1, 4, 6, 4, 1, 0},
}};

// Wins, ties and losses from the first player's side, each board weighing `n` (negative takes boards out).
struct Tally {
  int64_t wins = 0;
  int64_t ties = 0;
  int64_t losses = 0;

  void Add(uint32_t first, uint32_t second, int64_t n) {
    wins += first > second ? n : 0;
    ties += first == second ? n : 0;
    losses += first < second ? n : 0;
  }
};

// Adds, for the boards with exactly k cards of one suit on which a player holds a flush, what the flush
// changes (`suitFree`: the suit's ranks no player holds; `holeA`, `holeB`: the players' ranks of it): each
// board's outcome replaces the outcome its ranks alone gave. The boards are taken by the ranks of their k
// suited cards and the rank multiset of the 5 - k others, each multiset weighing the number of sets of cards
// that show it.
void CorrectForFlushes(const FastTables& t, const uint16_t* rowA, const uint16_t* rowB, uint32_t holeA,
                       uint32_t holeB, uint32_t suitFree, const std::array<int32_t, 13>& left, int k,
                       Tally& tally) {
  const bool flushA = std::popcount(holeA) + k >= 5;
  const bool flushB = std::popcount(holeB) + k >= 5;

  // Cards of the other suits left per rank, and the multisets of other ranks that some cards show.
  std::array<int32_t, 13> otherLeft{};
  for (int r = 0; r < 13; ++r) otherLeft[r] = left[r] - static_cast<int32_t>((suitFree >> r) & 1);
  struct Other {
    int32_t position;  // in OtherRankSets(5 - k)
    int64_t ways;
  };
  std::array<Other, 91> others{};
  int otherCount = 0;
  const auto& otherSets = t.otherRankSets[5 - k];
  for (int32_t o = 0; o < static_cast<int32_t>(otherSets.size()); ++o) {
    const auto [r, q] = otherSets[o];
    const int64_t ways = k == 5   ? 1
                         : k == 4 ? otherLeft[r]
                         : r == q ? kChooseOfRank[otherLeft[r]][2]
                                  : int64_t{otherLeft[r]} * otherLeft[q];
    if (ways > 0) others[otherCount++] = {o, ways};
  }

  const std::vector<uint16_t>& subsets = t.suitSubsets[k];
  for (std::size_t s = 0; s < subsets.size(); ++s) {
    const uint32_t suitRanks = subsets[s];
    if ((suitRanks & ~suitFree) != 0) continue;
    const uint32_t valueA = flushA ? t.flush[suitRanks | holeA] : 0;
    const uint32_t valueB = flushB ? t.flush[suitRanks | holeB] : 0;
    const uint16_t* merged = t.mergedIndex[k].data() + s * otherSets.size();
    for (int o = 0; o < otherCount; ++o) {
      const int32_t index = merged[others[o].position];
      const uint32_t plainA = rowA[index];
      const uint32_t plainB = rowB[index];
      tally.Add(flushA ? valueA : plainA, flushB ? valueB : plainB, others[o].ways);
      tally.Add(plainA, plainB, -others[o].ways);
    }
  }
}

double PercentOfWinsTwice(int64_t winsTwice) {
  return 100.0 * static_cast<double>(winsTwice) / (2.0 * kBoardCount);
}

}  // namespace

// Every board is first counted by its five ranks as if no one held a flush: for each multiset of board
// ranks, the number of boards of the remaining cards that show it, times the outcome of the two players'
// rank-only values. Then the boards on which a player holds a flush are visited one suit at a time: with
// seven cards a flush needs three or more of its suit on the board, so only one suit can make one, and
// only a suit in which a player holds h cards with at least 5 - h of them on the board. Those boards
// take back their rank-only outcome and count the real one. Far fewer boards than all 1,712,304 are
// visited, and every value still comes from the standard evaluator's tables.
ShowdownTally CountMatchupShowdowns(Card a1, Card a2, Card b1, Card b2) {
  const FastTables& t = Fast();
  const uint16_t* rowA =
      t.nonFlush.data() + TrianglePairIndex(a1.rank - 2, a2.rank - 2) * kBoardRankMultisets;
  const uint16_t* rowB =
      t.nonFlush.data() + TrianglePairIndex(b1.rank - 2, b2.rank - 2) * kBoardRankMultisets;
  std::array<int32_t, 13> left;
  left.fill(4);
  std::array<uint32_t, 4> dead{};
  std::array<uint32_t, 4> holeA{};
  std::array<uint32_t, 4> holeB{};
  for (const Card c : {a1, a2, b1, b2}) {
    --left[c.rank - 2];
    dead[c.suit] |= 1u << (c.rank - 2);
  }
  for (const Card c : {a1, a2}) holeA[c.suit] |= 1u << (c.rank - 2);
  for (const Card c : {b1, b2}) holeB[c.suit] |= 1u << (c.rank - 2);

  Tally tally;
  for (const FiveBoardRanks& b : t.boardRanks) {
    int64_t ways = 1;
    for (int g = 0; g < b.groups; ++g) ways *= kChooseOfRank[left[b.rank[g]]][b.times[g]];
    if (ways != 0) tally.Add(rowA[b.index], rowB[b.index], ways);
  }
  for (int suit = 0; suit < 4; ++suit) {
    const int most = std::max(std::popcount(holeA[suit]), std::popcount(holeB[suit]));
    for (int k = 5 - most; k <= 5; ++k) {
      CorrectForFlushes(t, rowA, rowB, holeA[suit], holeB[suit], 0x1FFFu & ~dead[suit], left, k, tally);
    }
  }
  return {static_cast<uint64_t>(tally.wins), static_cast<uint64_t>(tally.ties),
          static_cast<uint64_t>(tally.losses)};
}

int64_t CountWinsTwice(Card a1, Card a2, Card b1, Card b2) {
  const ShowdownTally t = CountMatchupShowdowns(a1, a2, b1, b2);
  return static_cast<int64_t>(2 * t.wins + t.ties);
}

double EnumeratedEquity(Card a1, Card a2, Card b1, Card b2) {
  return PercentOfWinsTwice(CountWinsTwice(a1, a2, b1, b2));
}

GeneratedTables GeneratePreflopTables(int threads, const GeneratorProgress& progress,
                                      double progressSeconds) {
  Fast();  // built once, before the workers share it
  const std::vector<uint32_t> codes = AllMatchupClassCodes();
  const int64_t total = static_cast<int64_t>(codes.size());

  std::vector<MatchupClassRecord> records(codes.size());
  std::atomic<int64_t> next{0};
  std::atomic<int64_t> done{0};
  const auto work = [&] {
    for (int64_t i = next++; i < total; i = next++) {
      const auto holdings = ClassCodeHoldings(codes[i]);
      const auto a = CardsOfHolding(holdings[0]);
      const auto b = CardsOfHolding(holdings[1]);
      const ShowdownTally tally = CountMatchupShowdowns(a[0], a[1], b[0], b[1]);
      records[i] = {codes[i], static_cast<uint32_t>(tally.wins), static_cast<uint32_t>(tally.ties),
                    static_cast<uint32_t>(tally.losses)};
      ++done;
    }
  };
  if (threads <= 0) threads = static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
  std::vector<std::thread> workers;
  for (int i = 0; i < threads; ++i) workers.emplace_back(work);
  const auto step = std::chrono::duration<double>(progressSeconds);
  auto last = std::chrono::steady_clock::now();
  while (done.load() < total) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    if (std::chrono::steady_clock::now() - last >= step) {
      last = std::chrono::steady_clock::now();
      if (progress) progress(done.load(), total);
    }
  }
  for (std::thread& w : workers) w.join();
  if (progress) progress(total, total);

  PreflopClassTableOrError built = PreflopClassTable::Build(records);
  if (!built.ok()) throw std::logic_error("the generated class table is wrong: " + built.error);
  const PreflopClassTable& classes = *built.table;

  // The key table: every ordered tuple adds its equity to its key once. A class's equity is taken from its
  // own matchup's side and turned round for the reversed matchups, in this order of operations, so that the
  // table reads exactly as it always has.
  std::vector<double> equity(codes.size());
  for (std::size_t i = 0; i < records.size(); ++i) {
    equity[i] = PercentOfWinsTwice(int64_t{2} * records[i].wins + records[i].ties);
  }
  struct Sum {
    double equity = 0.0;
    int32_t tuples = 0;
  };
  std::unordered_map<int32_t, Sum> sums;
  sums.reserve(400000);
  int64_t tuples = 0;
  for (int32_t p1 = 0; p1 < 52; ++p1)
    for (int32_t p2 = 0; p2 < 52; ++p2) {
      if (p2 == p1) continue;
      const int32_t a = HoldingNumber(DeckCard(p1), DeckCard(p2));
      for (int32_t q1 = 0; q1 < 52; ++q1) {
        if (q1 == p1 || q1 == p2) continue;
        for (int32_t q2 = 0; q2 < 52; ++q2) {
          if (q2 == p1 || q2 == p2 || q2 == q1) continue;
          const PreflopClassTable::ClassRef ref =
              classes.ClassOf(a, HoldingNumber(DeckCard(q1), DeckCard(q2)));
          const double e = ref.reversed ? 100.0 - equity[ref.index] : equity[ref.index];
          Sum& s = sums[BuildMatchupKey(DeckCard(p1), DeckCard(p2), DeckCard(q1), DeckCard(q2))];
          s.equity += e;
          ++s.tuples;
          ++tuples;
        }
      }
    }

  GeneratedTables out;
  out.matchupClasses = total;
  out.orderedTuples = tuples;
  std::vector<int32_t> keys;
  keys.reserve(sums.size());
  for (const auto& [key, sum] : sums) keys.push_back(key);
  std::sort(keys.begin(), keys.end());
  std::vector<float> values;
  values.reserve(keys.size());
  for (int32_t key : keys) {
    const Sum& s = sums[key];
    values.push_back(static_cast<float>(s.equity / s.tuples));
  }
  out.tables = LookupTables(std::move(keys), std::move(values));
  out.classes = std::move(records);
  return out;
}

}  // namespace quillet
