#include "equity/multiway_sampling.h"

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <cmath>
#include <thread>
#include <utility>
#include <vector>

#include "cards/holding.h"
#include "equity/deck.h"
#include "equity/standard_evaluator.h"

namespace quillet {
namespace multiway_sampling {
namespace {

constexpr int kRoundSamples = 16384;  // samples per thread per round
constexpr int kMinSamples = 4096;     // no stop on the standard error before this many samples
constexpr int kMaxPlayers = kMultiwayMaxPlayers;
constexpr uint64_t kDeckBits = (uint64_t{1} << kDeckSize) - 1;
constexpr int kBatch = 24;         // boards valued together
constexpr int kBoardsPerDeal = 6;  // boards dealt to each deal of holdings (a divisor of kBatch)

// The rank of each deck place, and the two places and the deck bits of each holding.
struct CardTables {
  std::array<int8_t, kDeckSize> rank{};
  std::array<std::array<uint8_t, 2>, kHoldingCount> places{};
  std::array<uint64_t, kHoldingCount> bits{};

  CardTables() {
    for (int index = 0; index < kDeckSize; ++index) {
      const Card card = DeckCard(index);
      rank[index] = static_cast<int8_t>(card.rank);
    }
    places = HoldingPlaces();
    for (int number = 0; number < kHoldingCount; ++number) {
      bits[number] = uint64_t{1} << places[number][0] | uint64_t{1} << places[number][1];
    }
  }
};

const CardTables& Tables() {
  static const CardTables tables;
  return tables;
}

uint64_t NextRandom(uint64_t& state) {
  uint64_t z = (state += 0x9E3779B97F4A7C15ull);
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
  return z ^ (z >> 31);
}

// How a player's holding is drawn: from the cards left (a player who may hold any holding the deck still
// allows, at one weight), evenly among its live holdings (one weight), or by weight.
enum class Draw { FromDeck, ByPlace, ByWeight };

// Walker's alias method: a place drawn evenly keeps its own holding with the chance keep / 2^64, else
// gives its alias.
struct AliasPlace {
  uint64_t keep = 0;
  uint16_t own = 0;
  uint16_t other = 0;
};

struct SampledPlayer {
  Draw draw = Draw::ByPlace;
  std::vector<uint16_t> numbers;  // live holdings (holding numbers)
  std::vector<AliasPlace> alias;  // ByWeight
};

// The alias table of live holdings whose weights (thousandths) sum to `weightSum` (Vose's construction, in
// whole numbers): each place is a column of height weightSum shared by its own holding and one other, so
// that a place drawn evenly and a height drawn evenly pick each holding in proportion to its weight. The
// heights kept are then put on the scale of 2^64.
std::vector<AliasPlace> BuildAliasTable(const std::vector<uint16_t>& numbers, const WeightedHoldingSet& range,
                                        int64_t weightSum) {
  const std::size_t n = numbers.size();
  std::vector<int64_t> scaled(n);
  std::vector<uint32_t> small;
  std::vector<uint32_t> large;
  for (std::size_t i = 0; i < n; ++i) {
    scaled[i] = int64_t{range.Weight(numbers[i])} * static_cast<int64_t>(n);
    (scaled[i] < weightSum ? small : large).push_back(static_cast<uint32_t>(i));
  }
  std::vector<int64_t> keep(n, weightSum);
  std::vector<uint32_t> other(n);
  for (std::size_t i = 0; i < n; ++i) other[i] = static_cast<uint32_t>(i);
  while (!small.empty() && !large.empty()) {
    const uint32_t low = small.back();
    small.pop_back();
    const uint32_t high = large.back();
    keep[low] = scaled[low];
    other[low] = high;
    scaled[high] -= weightSum - scaled[low];
    if (scaled[high] < weightSum) {
      large.pop_back();
      small.push_back(high);
    }
  }
  std::vector<AliasPlace> alias(n);
  for (std::size_t i = 0; i < n; ++i) {
    // A whole column is kept always; else keep / weightSum of 2^64, rounded down.
    alias[i].keep = keep[i] >= weightSum
                        ? UINT64_MAX
                        : static_cast<uint64_t>((static_cast<unsigned __int128>(keep[i]) << 64) /
                                                static_cast<unsigned __int128>(weightSum));
    alias[i].own = numbers[i];
    alias[i].other = numbers[other[i]];
  }
  return alias;
}

// A player's holding drawn in proportion to its weight (one number gives both the place, from the high
// half of its product with the places, and the chance of keeping it, from the low half). Lemire's multiply
// for the place: its bias is below 2^-50 for at most 1,326 places.
inline uint16_t DrawHolding(const SampledPlayer& player, uint64_t& rng) {
  const auto product = static_cast<unsigned __int128>(NextRandom(rng)) * player.numbers.size();
  const auto place = static_cast<std::size_t>(product >> 64);
  if (player.draw == Draw::ByPlace) return player.numbers[place];
  const AliasPlace& slot = player.alias[place];
  return static_cast<uint64_t>(product) < slot.keep ? slot.own : slot.other;
}

// How a sample shares a deal's pot among the players (see the header).
enum class Sharing {
  Own,     // no holding is in two ranges: each player's own share
  Equal,   // every player has the same range: 1/n each
  Chances  // P(j, i) from the permanents of the weights
};

// Sums over the samples of each player's x_j (equity and its square, in pots) and of its win and tie
// counts.
struct SampleSums {
  std::array<double, kMaxPlayers> equity{};
  std::array<double, kMaxPlayers> square{};
  std::array<double, kMaxPlayers> win{};
  std::array<double, kMaxPlayers> tie{};
  uint64_t samples = 0;  // deals of holdings, each on its boards

  void Add(const SampleSums& other, int count) {
    for (int i = 0; i < count; ++i) {
      equity[i] += other.equity[i];
      square[i] += other.square[i];
      win[i] += other.win[i];
      tie[i] += other.tie[i];
    }
    samples += other.samples;
  }
};

// Two numbers side by side, multiplied and added as one: the forward and the backward sweep of the
// minors (see Sampler::ColumnChances) go together.
using SweepPair = double __attribute__((vector_size(16)));

// How many cards of one suit 13 bits hold.
constexpr std::array<uint8_t, 8192> kSetSizes13 = [] {
  std::array<uint8_t, 8192> sizes{};
  for (uint32_t set = 0; set < sizes.size(); ++set) sizes[set] = static_cast<uint8_t>(std::popcount(set));
  return sizes;
}();

// How many columns each subset of up to nine columns holds.
constexpr std::array<uint8_t, 1 << (kMaxPlayers - 1)> kSetSizes = [] {
  std::array<uint8_t, 1 << (kMaxPlayers - 1)> sizes{};
  for (uint32_t set = 0; set < sizes.size(); ++set) sizes[set] = static_cast<uint8_t>(std::popcount(set));
  return sizes;
}();

// The sweeps for N players written out in full by the compiler: subset S of the N - 1 columns, each column
// t of it in turn the one taken by the last of the first |S| players (forward) and by the first of the last
// |S| players (backward); pairs[(|S| - 1) x (N - 1) + t] holds both weights.
template <int N, uint32_t Set, int... T>
inline void SweepSubset(const SweepPair* pairs, SweepPair* sweep,
                        std::integer_sequence<int, T...> /*columns*/) {
  constexpr int m = N - 1;
  constexpr int size = std::popcount(Set);
  SweepPair sum = {0.0, 0.0};
  (((Set >> T & 1u) != 0 ? (void)(sum += sweep[Set & ~(1u << T)] * pairs[(size - 1) * m + T]) : void()), ...);
  sweep[Set] = sum;
}

template <int N, uint32_t... S>
inline void SweepAll(const SweepPair* pairs, SweepPair* sweep,
                     std::integer_sequence<uint32_t, S...> /*subsets*/) {
  (SweepSubset<N, S + 1>(pairs, sweep, std::make_integer_sequence<int, N - 1>{}), ...);
}

template <int N, uint32_t... S>
inline void AddMinors(const SweepPair* sweep, double* minors,
                      std::integer_sequence<uint32_t, S...> /*subsets*/) {
  constexpr uint32_t all = (uint32_t{1} << (N - 1)) - 1;
  ((minors[std::popcount(S)] += sweep[S][0] * sweep[all & ~S][1]), ...);
}

// minors[j]: the permanent of the N rows of N - 1 columns that `pairs` is made from, without row j.
template <int N>
void Minors(const SweepPair* pairs, SweepPair* sweep, double* minors) {
  constexpr uint32_t subsets = uint32_t{1} << (N - 1);
  sweep[0] = SweepPair{1.0, 1.0};
  SweepAll<N>(pairs, sweep, std::make_integer_sequence<uint32_t, subsets - 1>{});
  AddMinors<N>(sweep, minors, std::make_integer_sequence<uint32_t, subsets>{});
}

class Sampler {
 public:
  Sampler(std::span<const WeightedHoldingSet> ranges, uint64_t boardBits, uint64_t deadBits)
      : count_(static_cast<int>(ranges.size())),
        board_(boardBits),
        known_(boardBits | deadBits),
        coming_(5 - std::popcount(boardBits)),
        players_(ranges.size()) {
    const int left = kDeckSize - std::popcount(known_);
    const CardTables& tables = Tables();
    const StandardEvaluator& evaluator = StandardEvaluator::Get();
    for (uint64_t bits = board_; bits != 0; bits &= bits - 1) {
      const int index = std::countr_zero(bits);
      knownState_ = evaluator.AddRank(knownState_, tables.rank[index]);
    }
    std::array<int, kMaxPlayers> maxWeight{};
    for (int p = 0; p < count_; ++p) {
      SampledPlayer& player = players_[p];
      ranges_[p] = &ranges[p];
      int64_t sum = 0;
      bool uniform = true;
      for (int number = 0; number < kHoldingCount; ++number) {
        const int weight = ranges[p].Weight(number);
        if (weight <= 0 || (tables.bits[number] & known_) != 0) continue;
        if (!player.numbers.empty() && weight != ranges[p].Weight(player.numbers.front())) uniform = false;
        player.numbers.push_back(static_cast<uint16_t>(number));
        sum += weight;
        maxWeight[p] = std::max(maxWeight[p], weight);
      }
      const bool everyHolding = static_cast<int>(player.numbers.size()) == left * (left - 1) / 2;
      if (uniform && everyHolding) {
        player.draw = Draw::FromDeck;
      } else if (uniform) {
        player.draw = Draw::ByPlace;
      } else {
        player.draw = Draw::ByWeight;
        player.alias = BuildAliasTable(player.numbers, ranges[p], sum);
      }
    }
    // Players drawn from their ranges first, the narrowest first (the likeliest to meet a card already
    // taken, which ends the draw soonest); then those dealt from the cards left.
    const auto fromDeck = [&](int p) { return players_[p].draw == Draw::FromDeck; };
    for (int p = 0; p < count_; ++p) order_[p] = p;
    std::stable_sort(order_.begin(), order_.begin() + count_, [&](int x, int y) {
      if (fromDeck(x) != fromDeck(y)) return fromDeck(y);
      return players_[x].numbers.size() < players_[y].numbers.size();
    });
    drawn_ = 0;
    for (int p = 0; p < count_; ++p) drawn_ += fromDeck(p) ? 0 : 1;

    // Groups of players with the same range: the same live holdings at weights in the same proportion.
    const auto sameRange = [&](int x, int y) {
      for (int number = 0; number < kHoldingCount; ++number) {
        if ((tables.bits[number] & known_) != 0) continue;
        if (int64_t{ranges[x].Weight(number)} * maxWeight[y] !=
            int64_t{ranges[y].Weight(number)} * maxWeight[x])
          return false;
      }
      return true;
    };
    int groups = 0;
    for (int p = 0; p < count_; ++p) {
      group_[p] = -1;
      for (int q = 0; q < p && group_[p] < 0; ++q) {
        if (sameRange(p, q)) group_[p] = group_[q];
      }
      if (group_[p] < 0) group_[p] = groups++;
    }
    groupCount_ = groups;
    for (int g = 0; g < groups; ++g) {
      groupSize_[g] = static_cast<int>(std::count(group_.begin(), group_.begin() + count_, g));
    }
    bool shared = false;  // some live holding is in two players' ranges
    for (int number = 0; number < kHoldingCount && !shared; ++number) {
      if ((tables.bits[number] & known_) != 0) continue;
      int holders = 0;
      for (int p = 0; p < count_; ++p) holders += ranges[p].Weight(number) > 0;
      shared = holders > 1;
    }
    sharing_ = groups == 1 ? Sharing::Equal : shared ? Sharing::Chances : Sharing::Own;
    // Most of a sample's variance comes from its board, while drawing the holdings and finding the chances
    // costs the most: each deal is valued on several boards (the mean of its shares over them estimates its
    // shares over every board no worse). One board when the board is whole, and when the players share one
    // range (their equity has no error; win and tie are not worth the cost).
    boards_ = coming_ == 0 || sharing_ == Sharing::Equal ? 1 : kBoardsPerDeal;

    // For eight to ten players, the steps of ColumnChances' sweeps over the subsets of the n - 1 other
    // columns, in rising order (every subset after the subsets it is made from).
    const int m = count_ - 1;
    for (uint32_t set = 1; count_ >= 8 && set < (uint32_t{1} << m); ++set) {
      const int size = std::popcount(set);
      for (uint32_t rest = set; rest != 0; rest &= rest - 1) {
        const int t = std::countr_zero(rest);
        steps_.push_back(
            {static_cast<uint16_t>(set & ~(uint32_t{1} << t)), static_cast<uint8_t>((size - 1) * m + t)});
      }
      stepsEnd_.push_back(static_cast<uint16_t>(steps_.size()));
    }
  }

  // One thread's round: `samples` deals (fewer when a round of draws all but never finds one).
  void Round(int samples, uint64_t& rng, SampleSums& sums) const {
    const StandardEvaluator& evaluator = StandardEvaluator::Get();
    const CardTables& tables = Tables();
    // Deals are drawn a batch of kBatch boards at a time and then valued together: the reads of the
    // evaluator's tables for one board do not wait for another's. A deal's boards take boards_ places in a
    // row; deal d's holdings are held[d].
    std::array<std::array<uint16_t, kMaxPlayers>, kBatch> held{};
    std::array<std::array<uint8_t, 5>, kBatch> coming{};
    std::array<std::array<HandValue, kMaxPlayers>, kBatch> values{};
    std::array<RankState, kBatch> states{};
    std::array<uint64_t, kBatch> boardBits{};
    std::array<double, kMaxPlayers> x{};
    std::array<double, kMaxPlayers> win{};
    std::array<double, kMaxPlayers> tie{};
    const int dealsPerBatch = kBatch / boards_;
    // Numbers below a bound, exactly evenly: 32 bits of a random number at a time, Lemire's multiply
    // with its rejection of the few values that would favour some results.
    uint64_t pool = 0;
    bool halfLeft = false;
    const auto below = [&](uint32_t bound) {
      const auto next = [&] {
        halfLeft = !halfLeft;
        if (halfLeft) {
          pool = NextRandom(rng);
          return static_cast<uint32_t>(pool);
        }
        return static_cast<uint32_t>(pool >> 32);
      };
      uint64_t product = uint64_t{next()} * bound;
      if (static_cast<uint32_t>(product) < bound) {
        const uint32_t threshold = (0u - bound) % bound;
        while (static_cast<uint32_t>(product) < threshold) product = uint64_t{next()} * bound;
      }
      return static_cast<int>(product >> 32);
    };
    std::array<uint8_t, kDeckSize> deck{};
    // The players with a range drawn by weight, the deal thrown away when two share a card (so every deal
    // that counts comes with a chance in proportion to its weight); then the players who may hold anything,
    // dealt from the cards left (as many ways for every outcome of the first, so the draw stays fair), then
    // each board. The cards left are listed once; each card dealt is picked evenly from those not yet taken
    // and swapped to the front (each board starts again after the players' cards). False when the deal was
    // thrown away.
    const auto drawDeal = [&](std::array<uint16_t, kMaxPlayers>& deal, std::array<uint8_t, 5>* cards) {
      uint64_t used = known_;
      for (int d = 0; d < drawn_; ++d) {
        const int p = order_[d];
        const uint16_t number = DrawHolding(players_[p], rng);
        const uint64_t bits = tables.bits[number];
        if ((bits & used) != 0) return false;
        used |= bits;
        deal[p] = number;
      }
      int left = 0;
      for (uint64_t bits = ~used & kDeckBits; bits != 0; bits &= bits - 1) {
        deck[left++] = static_cast<uint8_t>(std::countr_zero(bits));
      }
      int taken = 0;
      const auto take = [&] {
        const int pick = taken + below(static_cast<uint32_t>(left - taken));
        std::swap(deck[taken], deck[pick]);
        return static_cast<int>(deck[taken++]);
      };
      for (int d = drawn_; d < count_; ++d) {
        const int first = take();
        const int second = take();
        const int high = std::max(first, second);
        const int low = std::min(first, second);
        deal[order_[d]] = static_cast<uint16_t>(high * (high - 1) / 2 + low);
      }
      const int held = taken;
      for (int b = 0; b < boards_; ++b) {
        taken = held;
        for (int c = 0; c < coming_; ++c) cards[b][c] = static_cast<uint8_t>(take());
      }
      return true;
    };
    // Where the players' holdings nearly always collide, a round gives up after so many draws, so that the
    // caller's time limit and cancel are still looked at between rounds.
    const int64_t maxDraws = int64_t{samples} * 4096;
    int64_t draws = 0;
    int kept = 0;
    while (kept < samples && draws < maxDraws) {
      int dealt = 0;
      while (dealt < dealsPerBatch && kept + dealt < samples && draws++ < maxDraws) {
        if (drawDeal(held[dealt], &coming[static_cast<std::size_t>(dealt * boards_)])) ++dealt;
      }
      const int size = dealt * boards_;
      // The showdowns: each board's rank state once, two steps per player. Every value first, with no
      // branch on a value read, then the best. With three or more of a suit on the board a player with
      // five of it holds a flush, which beats whatever its ranks make (FlushValue is 0 for fewer than five);
      // a suit's ranks are its 13 bits of the deck bits.
      for (int k = 0; k < size; ++k) {
        states[k] = knownState_;
        boardBits[k] = board_;
      }
      for (int c = 0; c < coming_; ++c) {
        for (int k = 0; k < size; ++k) {
          const int index = coming[k][c];
          states[k] = evaluator.AddRank(states[k], tables.rank[index]);
          boardBits[k] |= uint64_t{1} << index;
        }
      }
      for (int k = 0; k < size; ++k) {
        for (int p = 0; p < count_; ++p) {
          const auto& cards = tables.places[held[k / boards_][p]];
          values[k][p] = evaluator.RankValue(
              evaluator.AddRank(evaluator.AddRank(states[k], tables.rank[cards[0]]), tables.rank[cards[1]]));
        }
      }
      for (int k = 0; k < size; ++k) {
        int flushSuit = -1;
        for (int suit = 0; suit < 4; ++suit) {
          if (kSetSizes13[boardBits[k] >> (13 * suit) & 0x1FFF] >= 3) flushSuit = suit;
        }
        if (flushSuit < 0) continue;
        for (int p = 0; p < count_; ++p) {
          const uint64_t cards = boardBits[k] | tables.bits[held[k / boards_][p]];
          values[k][p] =
              std::max(values[k][p], evaluator.FlushValue(static_cast<uint32_t>(cards >> (13 * flushSuit))));
        }
      }
      for (int d = 0; d < dealt; ++d) {
        // Per holding dealt (by the player it was dealt to), its pot shares, wins and ties over the boards.
        std::array<double, kMaxPlayers> shares{};
        std::array<double, kMaxPlayers> wins{};
        std::array<double, kMaxPlayers> ties{};
        for (int k = d * boards_; k < (d + 1) * boards_; ++k) {
          const std::array<HandValue, kMaxPlayers>& board = values[k];
          HandValue best = 0;
          for (int p = 0; p < count_; ++p) best = std::max(best, board[p]);
          int winners = 0;
          for (int p = 0; p < count_; ++p) winners += board[p] == best ? 1 : 0;
          const double share = 1.0 / winners;
          std::array<double, kMaxPlayers>& split = winners == 1 ? wins : ties;
          for (int p = 0; p < count_; ++p) {
            if (board[p] != best) continue;
            shares[p] += share;
            split[p] += 1.0;
          }
        }
        Share(held[d], shares, wins, ties, x, win, tie);
        for (int p = 0; p < count_; ++p) {
          sums.equity[p] += x[p];
          sums.square[p] += x[p] * x[p];
          sums.win[p] += win[p];
          sums.tie[p] += tie[p];
        }
      }
      sums.samples += static_cast<uint64_t>(dealt);
      kept += dealt;
    }
  }

  int Count() const { return count_; }
  int BoardsPerDeal() const { return boards_; }

 private:
  // Each player's x_j for a deal whose holdings won `shares` of the pots of its boards_ boards, `wins`
  // of them alone and had part in `ties` (per holding, by the player it was dealt to): the mean over the
  // boards of sum over the holdings i of P(j, i) x the share of i; and win and tie the same way.
  void Share(const std::array<uint16_t, kMaxPlayers>& held, const std::array<double, kMaxPlayers>& shares,
             const std::array<double, kMaxPlayers>& wins, const std::array<double, kMaxPlayers>& ties,
             std::array<double, kMaxPlayers>& x, std::array<double, kMaxPlayers>& win,
             std::array<double, kMaxPlayers>& tie) const {
    const double perBoard = 1.0 / boards_;
    if (sharing_ == Sharing::Own) {
      for (int p = 0; p < count_; ++p) {
        x[p] = shares[p] * perBoard;
        win[p] = wins[p] * perBoard;
        tie[p] = ties[p] * perBoard;
      }
      return;
    }
    if (sharing_ == Sharing::Equal) {
      double allWins = 0;
      double allTies = 0;
      for (int p = 0; p < count_; ++p) {
        allWins += wins[p];
        allTies += ties[p];
      }
      x.fill(1.0 / count_);
      win.fill(allWins * perBoard / count_);
      tie.fill(allTies * perBoard / count_);
      return;
    }
    x.fill(0.0);
    win.fill(0.0);
    tie.fill(0.0);
    std::array<double, kMaxPlayers> chances{};
    for (int c = 0; c < count_; ++c) {
      if (shares[c] == 0) continue;
      ColumnChances(held, c, chances);
      for (int j = 0; j < count_; ++j) {
        x[j] += chances[j] * shares[c] * perBoard;
        win[j] += chances[j] * wins[c] * perBoard;
        tie[j] += chances[j] * ties[c] * perBoard;
      }
    }
    if (groupCount_ < count_) {
      // Players of one group have equal chances; their mean says so to the last bit.
      for (std::array<double, kMaxPlayers>* sums : {&x, &win, &tie}) {
        std::array<double, kMaxPlayers> groupSum{};
        for (int p = 0; p < count_; ++p) groupSum[group_[p]] += (*sums)[p];
        for (int p = 0; p < count_; ++p) (*sums)[p] = groupSum[group_[p]] / groupSize_[group_[p]];
      }
    }
  }

  // P(j, c) for every player j: w_j(c) x perm(weights without row j and column c) / perm(weights), the
  // permanent expanded along column c. The minors come from two sweeps over the subsets of the other
  // columns: forward[S] assigns the first |S| players to the columns S, backward[T] the last |T| players to
  // the columns T, and the minor without row j is the sum over |S| = j of forward[S] x backward[the rest].
  void ColumnChances(const std::array<uint16_t, kMaxPlayers>& held, int c,
                     std::array<double, kMaxPlayers>& chances) const {
    switch (count_) {
      case 2:
        return ColumnChancesOf<2>(held, c, chances);
      case 3:
        return ColumnChancesOf<3>(held, c, chances);
      case 4:
        return ColumnChancesOf<4>(held, c, chances);
      case 5:
        return ColumnChancesOf<5>(held, c, chances);
      case 6:
        return ColumnChancesOf<6>(held, c, chances);
      case 7:
        return ColumnChancesOf<7>(held, c, chances);
      default:
        return ColumnChancesOf<0>(held, c, chances);
    }
  }

  // N players, or any number (N = 0: eight to ten, the sweeps from the list of steps).
  template <int N>
  void ColumnChancesOf(const std::array<uint16_t, kMaxPlayers>& held, int c,
                       std::array<double, kMaxPlayers>& chances) const {
    const int n = N > 0 ? N : count_;
    const int m = n - 1;
    std::array<uint16_t, kMaxPlayers> columns{};  // the holdings but c's
    for (int t = 0; t < m; ++t) columns[t] = held[t + (t >= c ? 1 : 0)];
    std::array<std::array<double, kMaxPlayers>, kMaxPlayers> weights;  // [player][column t]
    std::array<double, kMaxPlayers> own{};                             // [player]: w_j(c)
    for (int j = 0; j < n; ++j) {
      const WeightedHoldingSet& range = *ranges_[j];
      for (int t = 0; t < m; ++t) weights[j][t] = range.Weight(columns[t]);
      own[j] = range.Weight(held[c]);
    }
    std::array<SweepPair, kMaxPlayers * kMaxPlayers> pairs;
    for (int size = 1; size <= m; ++size) {
      for (int t = 0; t < m; ++t) {
        pairs[(size - 1) * m + t] = SweepPair{weights[size - 1][t], weights[n - size][t]};
      }
    }
    std::array<SweepPair, 1 << (kMaxPlayers - 1)> sweep;
    std::array<double, kMaxPlayers> minors{};
    if constexpr (N > 0) {
      Minors<N>(pairs.data(), sweep.data(), minors.data());
    } else {
      sweep[0] = SweepPair{1.0, 1.0};
      std::size_t k = 0;
      for (uint32_t set = 1; set < (uint32_t{1} << m); ++set) {
        SweepPair sum = {0.0, 0.0};
        for (const std::size_t end = stepsEnd_[set - 1]; k < end; ++k) {
          sum += sweep[steps_[k].without] * pairs[steps_[k].pairAt];
        }
        sweep[set] = sum;
      }
      const uint32_t all = (uint32_t{1} << m) - 1;
      for (uint32_t set = 0; set <= all; ++set)
        minors[kSetSizes[set]] += sweep[set][0] * sweep[all & ~set][1];
    }
    double total = 0;
    for (int j = 0; j < n; ++j) {
      chances[j] = own[j] * minors[j];
      total += chances[j];
    }
    const double inverse = 1.0 / total;
    for (int j = 0; j < n; ++j) chances[j] *= inverse;
  }

  struct Step {
    uint16_t without;  // the subset less one column t
    uint8_t pairAt;    // (size of the subset - 1) x (n - 1) + t
  };

  int count_;
  uint64_t board_;
  uint64_t known_;
  int coming_;
  RankState knownState_ = StandardEvaluator::kNoRanks;  // of the board cards given
  std::vector<SampledPlayer> players_;
  std::array<const WeightedHoldingSet*, kMaxPlayers> ranges_{};
  std::array<int, kMaxPlayers> order_{};  // the order of the draw
  int drawn_ = 0;                         // how many come first, drawn from their ranges
  int boards_ = 1;                        // boards dealt to each deal of holdings
  std::array<int, kMaxPlayers> group_{};
  std::array<int, kMaxPlayers> groupSize_{};
  int groupCount_ = 0;
  Sharing sharing_ = Sharing::Own;
  std::vector<Step> steps_;
  std::vector<uint16_t> stepsEnd_;  // per subset 1..2^(n-1) - 1: where its steps end
};

// The largest standard error of the players' equity, in points: the standard deviation of x_j over the
// samples / sqrt(samples - 1).
double LargestError(const SampleSums& sums, int count) {
  if (sums.samples < 2) return 100.0;
  const double n = static_cast<double>(sums.samples);
  double largest = 0;
  for (int i = 0; i < count; ++i) {
    const double mean = sums.equity[i] / n;
    const double variance = std::max(0.0, sums.square[i] / n - mean * mean);
    largest = std::max(largest, 100.0 * std::sqrt(variance / (n - 1)));
  }
  return largest;
}

}  // namespace
}  // namespace multiway_sampling

void SampleMultiwayEquity(std::span<const WeightedHoldingSet> ranges, uint64_t boardBits, uint64_t deadBits,
                          const MultiwayOptions& options, const MultiwayCallbacks& callbacks, int threads,
                          MultiwayResult& result) {
  using namespace multiway_sampling;
  const Sampler sampler(ranges, boardBits, deadBits);
  const int count = sampler.Count();
  const auto start = std::chrono::steady_clock::now();
  std::vector<uint64_t> generators(static_cast<std::size_t>(threads));
  for (int t = 0; t < threads; ++t) {
    uint64_t state = options.seed ^ (0xD1B54A32D192ED03ull * static_cast<uint64_t>(t + 1));
    generators[t] = NextRandom(state);
  }
  // Rounds: every thread draws kRoundSamples, the rounds are added in thread order.
  SampleSums total;
  for (;;) {
    std::vector<SampleSums> roundSums(static_cast<std::size_t>(threads));
    {
      std::vector<std::jthread> workers;
      for (int t = 1; t < threads; ++t) {
        workers.emplace_back([&, t] { sampler.Round(kRoundSamples, generators[t], roundSums[t]); });
      }
      sampler.Round(kRoundSamples, generators[0], roundSums[0]);
    }
    const uint64_t before = total.samples;
    for (const SampleSums& sums : roundSums) total.Add(sums, count);
    // A whole round of draws without one deal: the holdings all but always collide; sampling cannot answer.
    if (total.samples == before) break;
    result.standardError = LargestError(total, count);
    // Deals counted: each deal of holdings on each of its boards.
    const uint64_t deals = total.samples * static_cast<uint64_t>(sampler.BoardsPerDeal());
    if (callbacks.progress) callbacks.progress(deals, result.standardError);
    if (total.samples >= kMinSamples && result.standardError <= options.targetError) break;
    const double elapsed = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    if (options.seconds > 0 && elapsed >= options.seconds) break;
    if (callbacks.cancel && callbacks.cancel()) {
      result.cancelled = true;
      break;
    }
  }
  result.deals = total.samples * static_cast<uint64_t>(sampler.BoardsPerDeal());
  if (total.samples > 0) {
    for (int p = 0; p < count; ++p) {
      MultiwayPlayerResult& player = result.players[p];
      player.equity = 100.0 * total.equity[p] / static_cast<double>(total.samples);
      player.win = 100.0 * total.win[p] / static_cast<double>(total.samples);
      player.tie = 100.0 * total.tie[p] / static_cast<double>(total.samples);
    }
  } else if (!result.cancelled) {
    // A deal exists (the caller checked), but the weights make one so rare that a whole round drew none.
    result.error =
        "sampling found no deal: the players' holdings all but always share a card (an exact count "
        "can answer)";
  }
}

}  // namespace quillet
