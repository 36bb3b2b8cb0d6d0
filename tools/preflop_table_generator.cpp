#include "tools/preflop_table_generator.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <chrono>
#include <thread>
#include <unordered_map>
#include <vector>

#include "equity/deck.h"
#include "equity/hand_evaluator.h"
#include "equity/matchup_key.h"

namespace quillet {
namespace {

// ---- Fast evaluation for the board enumeration ----
//
// A player's hand is a flush or it is not. Without a flush its value depends only on the ranks: the two
// hole ranks and the multiset of the five board ranks. Boards are enumerated from the remaining cards in
// rank order, so the board ranks come out sorted and their multiset's index grows one term per card. With
// a flush (five or more of one suit among the seven cards; then no quads or full house is possible) the
// value is that suit's best five. Both are table look-ups, built from the standard evaluator.

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

constexpr int RankPairIndex(int32_t i, int32_t j) {
  return i <= j ? j * (j + 1) / 2 + i : i * (i + 1) / 2 + j;
}

struct FastTables {
  std::vector<uint16_t> nonFlush;  // [rank pair][board rank multiset]
  std::vector<uint16_t> flush;     // [13-bit rank mask of one suit]
};

FastTables BuildFastTables() {
  std::vector<HandValue> nonFlushValues(kRankPairs * kBoardRankMultisets, 0);
  std::vector<HandValue> flushValues(8192, 0);
  for (int32_t hi = 0; hi < 13; ++hi) {
    for (int32_t lo = 0; lo <= hi; ++lo) {
      for (int32_t r1 = 0; r1 < 13; ++r1)
        for (int32_t r2 = r1; r2 < 13; ++r2)
          for (int32_t r3 = r2; r3 < 13; ++r3)
            for (int32_t r4 = r3; r4 < 13; ++r4)
              for (int32_t r5 = r4; r5 < 13; ++r5) {
                std::array<uint8_t, 13> counts{};
                for (int32_t r : {hi, lo, r1, r2, r3, r4, r5}) ++counts[r];
                if (*std::max_element(counts.begin(), counts.end()) > 4) continue;  // no such cards
                const int32_t board = MultisetTerm(r1, 0) + MultisetTerm(r2, 1) + MultisetTerm(r3, 2) +
                                      MultisetTerm(r4, 3) + MultisetTerm(r5, 4);
                nonFlushValues[RankPairIndex(hi, lo) * kBoardRankMultisets + board] = EvaluateRanks(counts);
              }
    }
  }
  for (uint32_t mask = 0; mask < 8192; ++mask) {
    if (std::popcount(mask) >= 5) flushValues[mask] = EvaluateFlush(mask);
  }
  // Rank the values densely so that both tables fit in 16 bits (7,462 different five-card hands).
  std::vector<HandValue> distinct(nonFlushValues);
  distinct.insert(distinct.end(), flushValues.begin(), flushValues.end());
  std::sort(distinct.begin(), distinct.end());
  distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());
  const auto dense = [&](HandValue v) {
    return static_cast<uint16_t>(std::lower_bound(distinct.begin(), distinct.end(), v) - distinct.begin());
  };
  FastTables t;
  t.nonFlush.reserve(nonFlushValues.size());
  for (HandValue v : nonFlushValues) t.nonFlush.push_back(dense(v));
  for (HandValue v : flushValues) t.flush.push_back(dense(v));
  return t;
}

const FastTables& Fast() {
  static const FastTables tables = BuildFastTables();
  return tables;
}

// Per-suit card counts, 8 bits per suit. A player's count plus this bias sets bit 7 of a suit's lane
// exactly when the suit holds five or more of the player's seven cards.
constexpr uint32_t kFlushBias = 0x7B7B7B7Bu;
constexpr uint32_t kFlushBits = 0x80808080u;
constexpr uint32_t SuitCount(int32_t suit) {
  return 1u << (8 * suit);
}

struct Player {
  const uint16_t* nonFlushRow;
  uint32_t biasedSuitCounts;
  CardSet holeCards;
};

Player MakePlayer(const FastTables& t, Card c1, Card c2) {
  return {t.nonFlush.data() + RankPairIndex(c1.rank - 2, c2.rank - 2) * kBoardRankMultisets,
          kFlushBias + SuitCount(c1.suit) + SuitCount(c2.suit), CardSetBit(c1) | CardSetBit(c2)};
}

inline uint32_t Value(const FastTables& t, const Player& p, int32_t boardIndex, uint32_t boardSuits,
                      CardSet board) {
  const uint32_t flush = (boardSuits + p.biasedSuitCounts) & kFlushBits;
  if (flush == 0) return p.nonFlushRow[boardIndex];
  const int shift = 2 * (std::countr_zero(flush) - 7);  // lane 8s + 7 -> 16s
  return t.flush[((board | p.holeCards) >> shift) & 0x1FFF];
}

// ---- Matchup classes under suit renaming ----

using Hand = std::array<int32_t, 2>;  // two deck places, the higher first

constexpr int kHands = 1326;

constexpr int HandIndex(int32_t high, int32_t low) {
  return high * (high - 1) / 2 + low;
}

std::vector<Hand> AllHands() {
  std::vector<Hand> hands(kHands);
  for (int32_t high = 1; high < 52; ++high)
    for (int32_t low = 0; low < high; ++low) hands[HandIndex(high, low)] = {high, low};
  return hands;
}

std::array<std::array<int32_t, 4>, 24> SuitPermutations() {
  std::array<std::array<int32_t, 4>, 24> perms{};
  std::array<int32_t, 4> p = {0, 1, 2, 3};
  int n = 0;
  do perms[n++] = p;
  while (std::next_permutation(p.begin(), p.end()));
  return perms;
}

int32_t Rename(int32_t place, const std::array<int32_t, 4>& perm) {
  return perm[place / 13] * 13 + place % 13;
}

uint32_t EncodeHand(int32_t x, int32_t y) {
  return x > y ? uint32_t(x) << 6 | uint32_t(y) : uint32_t(y) << 6 | uint32_t(x);
}

struct ClassRef {
  int32_t id;
  bool swapped;  // the class's matchup is this one with the hands exchanged: equity = 100 - class equity
};

struct MatchupClasses {
  std::vector<uint32_t> codes;    // per class: first hand << 12 | second hand, each as high << 6 | low
  std::vector<ClassRef> ofHands;  // [hand index A x 1326 + hand index B], for disjoint A and B
};

MatchupClasses ClassifyMatchups() {
  const std::vector<Hand> hands = AllHands();
  const auto perms = SuitPermutations();
  MatchupClasses m;
  m.ofHands.assign(kHands * kHands, ClassRef{-1, false});
  std::unordered_map<uint32_t, int32_t> idOfCode;
  for (int a = 0; a < kHands; ++a) {
    for (int b = a + 1; b < kHands; ++b) {
      const Hand& ha = hands[a];
      const Hand& hb = hands[b];
      if (ha[0] == hb[0] || ha[0] == hb[1] || ha[1] == hb[0] || ha[1] == hb[1]) continue;
      uint32_t best = UINT32_MAX;
      bool bestSwapped = false;
      for (const auto& perm : perms) {
        const uint32_t ea = EncodeHand(Rename(ha[0], perm), Rename(ha[1], perm));
        const uint32_t eb = EncodeHand(Rename(hb[0], perm), Rename(hb[1], perm));
        if ((ea << 12 | eb) < best) best = ea << 12 | eb, bestSwapped = false;
        if ((eb << 12 | ea) < best) best = eb << 12 | ea, bestSwapped = true;
      }
      auto [it, inserted] = idOfCode.try_emplace(best, static_cast<int32_t>(m.codes.size()));
      if (inserted) m.codes.push_back(best);
      m.ofHands[a * kHands + b] = {it->second, bestSwapped};
      m.ofHands[b * kHands + a] = {it->second, !bestSwapped};
    }
  }
  return m;
}

double PercentOfWinsTwice(int64_t winsTwice) {
  return 100.0 * static_cast<double>(winsTwice) / (2.0 * kBoardCount);
}

}  // namespace

int64_t CountWinsTwice(Card a1, Card a2, Card b1, Card b2) {
  const FastTables& t = Fast();
  const Player pa = MakePlayer(t, a1, a2);
  const Player pb = MakePlayer(t, b1, b2);
  const CardSet used = pa.holeCards | pb.holeCards;

  // The 48 other cards in rank order, with what each adds at each board position.
  struct Remaining {
    std::array<int32_t, 5> term;
    uint32_t suitCount;
    CardSet bit;
  };
  std::array<Remaining, 48> cards{};
  int n = 0;
  for (int32_t rank = 2; rank <= 14; ++rank) {
    for (int32_t suit = 0; suit < 4; ++suit) {
      const Card c{rank, suit};
      if (used & CardSetBit(c)) continue;
      Remaining& r = cards[n++];
      for (int pos = 0; pos < 5; ++pos) r.term[pos] = MultisetTerm(rank - 2, pos);
      r.suitCount = SuitCount(suit);
      r.bit = CardSetBit(c);
    }
  }

  int64_t winsTwice = 0;
  for (int i1 = 0; i1 < 44; ++i1) {
    const Remaining& c1 = cards[i1];
    for (int i2 = i1 + 1; i2 < 45; ++i2) {
      const Remaining& c2 = cards[i2];
      const int32_t x2 = c1.term[0] + c2.term[1];
      const uint32_t s2 = c1.suitCount + c2.suitCount;
      const CardSet m2 = c1.bit | c2.bit;
      for (int i3 = i2 + 1; i3 < 46; ++i3) {
        const Remaining& c3 = cards[i3];
        const int32_t x3 = x2 + c3.term[2];
        const uint32_t s3 = s2 + c3.suitCount;
        const CardSet m3 = m2 | c3.bit;
        for (int i4 = i3 + 1; i4 < 47; ++i4) {
          const Remaining& c4 = cards[i4];
          const int32_t x4 = x3 + c4.term[3];
          const uint32_t s4 = s3 + c4.suitCount;
          const CardSet m4 = m3 | c4.bit;
          int32_t counted = 0;
          for (int i5 = i4 + 1; i5 < 48; ++i5) {
            const Remaining& c5 = cards[i5];
            const int32_t x5 = x4 + c5.term[4];
            const uint32_t s5 = s4 + c5.suitCount;
            const CardSet m5 = m4 | c5.bit;
            const uint32_t va = Value(t, pa, x5, s5, m5);
            const uint32_t vb = Value(t, pb, x5, s5, m5);
            counted += (va > vb) * 2 + (va == vb);
          }
          winsTwice += counted;
        }
      }
    }
  }
  return winsTwice;
}

double EnumeratedEquity(Card a1, Card a2, Card b1, Card b2) {
  return PercentOfWinsTwice(CountWinsTwice(a1, a2, b1, b2));
}

GeneratedTables GeneratePreflopTables(int threads, const GeneratorProgress& progress,
                                      double progressSeconds) {
  Fast();  // built once, before the workers share it
  const MatchupClasses classes = ClassifyMatchups();
  const int64_t total = static_cast<int64_t>(classes.codes.size());

  std::vector<double> equity(classes.codes.size(), 0.0);
  std::atomic<int64_t> next{0};
  std::atomic<int64_t> done{0};
  const auto work = [&] {
    for (int64_t i = next++; i < total; i = next++) {
      const uint32_t code = classes.codes[i];
      const Card a1 = DeckCard((code >> 18) & 63), a2 = DeckCard((code >> 12) & 63);
      const Card b1 = DeckCard((code >> 6) & 63), b2 = DeckCard(code & 63);
      equity[i] = EnumeratedEquity(a1, a2, b1, b2);
      ++done;
    }
  };
  if (threads <= 0) threads = static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
  std::vector<std::thread> workers;
  for (int i = 0; i < threads; ++i) workers.emplace_back(work);
  const auto step = std::chrono::duration<double>(progressSeconds);
  auto last = std::chrono::steady_clock::now();
  while (done.load() < total) {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    if (std::chrono::steady_clock::now() - last >= step) {
      last = std::chrono::steady_clock::now();
      if (progress) progress(done.load(), total);
    }
  }
  for (std::thread& w : workers) w.join();
  if (progress) progress(total, total);

  // Every ordered tuple adds its equity to its key once.
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
      const int a = p1 > p2 ? HandIndex(p1, p2) : HandIndex(p2, p1);
      for (int32_t q1 = 0; q1 < 52; ++q1) {
        if (q1 == p1 || q1 == p2) continue;
        for (int32_t q2 = 0; q2 < 52; ++q2) {
          if (q2 == p1 || q2 == p2 || q2 == q1) continue;
          const int b = q1 > q2 ? HandIndex(q1, q2) : HandIndex(q2, q1);
          const ClassRef ref = classes.ofHands[a * kHands + b];
          const double e = ref.swapped ? 100.0 - equity[ref.id] : equity[ref.id];
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
  out.tables.keys = keys;
  out.tables.values.reserve(keys.size());
  for (int32_t key : keys) {
    const Sum& s = sums[key];
    out.tables.values.push_back(static_cast<float>(s.equity / s.tuples));
  }
  return out;
}

}  // namespace quillet
