#include "equity/multiway_equity.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <chrono>
#include <cmath>
#include <memory>
#include <thread>

#include "cards/holding.h"
#include "equity/board_symmetry.h"
#include "equity/complete_board.h"
#include "equity/enumeration.h"
#include "equity/multiway_sampling.h"
#include "equity/multiway_three_way.h"
#include "equity/standard_evaluator.h"
#include "equity/worker_threads.h"

namespace quillet {
namespace {

constexpr int kSliceBoards = 2048;  // boards per slice of the exact walk
// The last player's holdings are counted from running totals when it has at least this many; with fewer
// every deal is walked.
constexpr std::size_t kCountLastFrom = 24;

struct Holding {
  uint64_t bits = 0;  // deck bits of its two cards
  Card a;
  Card b;
  int weight = 0;  // thousandths
  int number = 0;  // cards/holding.h's number
};

struct Player {
  std::vector<Holding> holdings;  // live: no card on the board or among the dead cards
  uint64_t needed = 0;            // cards every live holding holds
};

// The value of a holding on a complete board whose rank state, suit counts and flush suit are given.
struct BoardReader : CompleteBoard {
  HandValue Value(const Holding& h) const {
    const StandardEvaluator& evaluator = StandardEvaluator::Get();
    if (flushSuit >= 0) {
      const int32_t count = suits.counts[flushSuit] + (h.a.suit == flushSuit) + (h.b.suit == flushSuit);
      if (count >= 5) return evaluator.FlushValue(suits.ranks[flushSuit] | SuitRanksOf(h.a, h.b, flushSuit));
    }
    return evaluator.RankValue(evaluator.AddRank(evaluator.AddRank(state, h.a.rank), h.b.rank));
  }
};

// Sums of one player's pot shares; equity and squares in pots, win and tie in deals (weighted).
struct PlayerSums {
  double equity = 0;
  double square = 0;
  double win = 0;
  double tie = 0;
};

struct Sums {
  std::array<PlayerSums, kMultiwayMaxPlayers> players{};
  double weight = 0;
  uint64_t deals = 0;

  void Add(const Sums& other, int count) {
    for (int i = 0; i < count; ++i) {
      players[i].equity += other.players[i].equity;
      players[i].square += other.players[i].square;
      players[i].win += other.players[i].win;
      players[i].tie += other.players[i].tie;
    }
    weight += other.weight;
    deals += other.deals;
  }
  // Adds `times` copies of one board's sums.
  void AddTimes(const Sums& other, int count, uint32_t times) {
    const double factor = times;
    for (int i = 0; i < count; ++i) {
      players[i].equity += other.players[i].equity * factor;
      players[i].square += other.players[i].square * factor;
      players[i].win += other.players[i].win * factor;
      players[i].tie += other.players[i].tie * factor;
    }
    weight += other.weight * factor;
    deals += other.deals * times;
  }
  // Adds `times` copies of a board's three-player sums (weights in thousandths of each of the three).
  void AddThreeWay(const ThreeWayBoardSums& board, uint32_t times) {
    const double factor = times / (static_cast<double>(kFullWeight) * kFullWeight * kFullWeight);
    for (int i = 0; i < 3; ++i) {
      players[i].equity += board.equity[i] * factor;
      players[i].win += board.win[i] * factor;
      players[i].tie += board.tie[i] * factor;
    }
    weight += board.weight * factor;
    deals += board.deals * times;
  }
};

// Settles one deal: the values and weight of the chosen holdings.
inline void Settle(const std::array<HandValue, kMultiwayMaxPlayers>& values, int count, double weight,
                   Sums& sums) {
  HandValue best = 0;
  int winners = 0;
  for (int i = 0; i < count; ++i) {
    if (values[i] > best) {
      best = values[i];
      winners = 1;
    } else if (values[i] == best) {
      ++winners;
    }
  }
  const double share = 1.0 / winners;
  for (int i = 0; i < count; ++i) {
    if (values[i] != best) continue;
    PlayerSums& p = sums.players[i];
    p.equity += weight * share;
    p.square += weight * share * share;
    (winners == 1 ? p.win : p.tie) += weight;
  }
  sums.weight += weight;
  ++sums.deals;
}

// A live holding of one of the first players on one board: its value and where that value falls in the
// last player's order (the last player's holdings below it are [0, below), equal to it [below, upTo)).
struct Valued {
  uint64_t bits;
  HandValue value;
  double weight;
  int32_t below;
  int32_t upTo;
};

// The last player's live holdings on one board in value order, with running totals (count and weight in
// thousandths) over all of them and per card: how many of them, of those before a place, share a card with
// the holdings chosen for the other players is read from the totals, not walked.
struct LastPlayerTable {
  struct Entry {
    HandValue value;
    int32_t number;
    int32_t weight;
  };
  struct Running {
    int32_t count;
    int32_t weight;
  };
  // The holdings in value order form groups of equal value; a boundary g (0..groups) stands before group g.
  std::vector<Entry> entries;
  std::vector<int32_t> groupOf;        // [entry]
  std::vector<HandValue> groupValues;  // [group], rising
  std::vector<Running> total;          // [boundary]
  std::vector<Running> perCard;        // [boundary x 52 + card]: the totals of one boundary together
  std::array<int16_t, kHoldingCount> placeOf{};  // entry of a holding, -1 when not live

  void Build(const Player& player, uint64_t boardBits, const BoardReader& reader) {
    for (const Entry& entry : entries) placeOf[entry.number] = -1;
    entries.clear();
    for (const Holding& h : player.holdings) {
      if ((h.bits & boardBits) == 0) entries.push_back({reader.Value(h), h.number, h.weight});
    }
    std::sort(entries.begin(), entries.end(),
              [](const Entry& x, const Entry& y) { return x.value < y.value; });
    groupOf.resize(entries.size());
    groupValues.clear();
    total.clear();
    perCard.clear();
    std::array<Running, kDeckSize> cards{};
    Running all{0, 0};
    const auto closeBoundary = [&] {
      total.push_back(all);
      perCard.insert(perCard.end(), cards.begin(), cards.end());
    };
    const HoldingPlaceTable& places = HoldingPlaces();
    for (std::size_t i = 0; i < entries.size(); ++i) {
      const Entry& entry = entries[i];
      if (i == 0 || entry.value != entries[i - 1].value) {
        closeBoundary();
        groupValues.push_back(entry.value);
      }
      placeOf[entry.number] = static_cast<int16_t>(i);
      groupOf[i] = static_cast<int32_t>(groupValues.size()) - 1;
      ++all.count;
      all.weight += entry.weight;
      for (const uint8_t card : places[entry.number]) {
        ++cards[card].count;
        cards[card].weight += entry.weight;
      }
    }
    closeBoundary();
  }
  int32_t Groups() const { return static_cast<int32_t>(groupValues.size()); }
  // Where `value` falls: the groups before `below` are worth less, those from `upTo` on more, and the group
  // between (when below < upTo) is worth the same.
  void Place(HandValue value, int32_t& below, int32_t& upTo) const {
    const auto low = std::lower_bound(groupValues.begin(), groupValues.end(), value);
    below = static_cast<int32_t>(low - groupValues.begin());
    upTo = below + (low != groupValues.end() && *low == value ? 1 : 0);
  }
  // The entries of the holdings made of two of `cards` (deck places in rising order): each shares two
  // cards with the chosen ones, so the per-card totals take it away twice. Returns how many.
  int PairPlaces(std::span<const uint8_t> cards, int32_t* out) const {
    int n = 0;
    for (std::size_t j = 1; j < cards.size(); ++j) {
      const int32_t high = cards[j];
      for (std::size_t i = 0; i < j; ++i) {
        const int32_t both = placeOf[static_cast<std::size_t>(high * (high - 1) / 2 + cards[i])];
        if (both >= 0) out[n++] = both;
      }
    }
    return n;
  }
  // The holdings before `boundary` that share no card with `cards` (deck places of the chosen holdings);
  // `pairs` from PairPlaces.
  Running Free(int32_t boundary, std::span<const uint8_t> cards, std::span<const int32_t> pairs) const {
    Running free = total[boundary];
    const Running* row = &perCard[static_cast<std::size_t>(boundary) * kDeckSize];
    for (const uint8_t card : cards) {
      const Running& taken = row[card];
      free.count -= taken.count;
      free.weight -= taken.weight;
    }
    for (const int32_t both : pairs) {
      if (groupOf[both] < boundary) {
        ++free.count;
        free.weight += entries[both].weight;
      }
    }
    return free;
  }
};

class ExactWalk {
 public:
  explicit ExactWalk(const std::vector<Player>& players)
      : players_(players), valued_(players.size()), plain_(players.back().holdings.size() < kCountLastFrom) {
    for (std::size_t i = 0; i < players.size(); ++i) valued_[i].reserve(players[i].holdings.size());
    last_.placeOf.fill(-1);
  }

  void CountBoard(uint64_t boardBits, Sums& sums) {
    reader_.Set(boardBits);
    if (plain_) {
      for (std::size_t p = 0; p < players_.size(); ++p) {
        std::vector<Valued>& list = valued_[p];
        list.clear();
        for (const Holding& h : players_[p].holdings) {
          if ((h.bits & boardBits) != 0) continue;
          list.push_back({h.bits, reader_.Value(h), h.weight / static_cast<double>(kFullWeight), 0, 0});
        }
        if (list.empty()) return;
      }
      WalkAll(0, 0, 1.0, sums);
      return;
    }
    last_.Build(players_.back(), boardBits, reader_);
    if (last_.entries.empty()) return;
    for (std::size_t p = 0; p + 1 < players_.size(); ++p) {
      std::vector<Valued>& list = valued_[p];
      list.clear();
      for (const Holding& h : players_[p].holdings) {
        if ((h.bits & boardBits) != 0) continue;
        Valued v{h.bits, reader_.Value(h), h.weight / static_cast<double>(kFullWeight), 0, 0};
        last_.Place(v.value, v.below, v.upTo);
        list.push_back(v);
      }
      if (list.empty()) return;
    }
    Walk(0, 0, 1.0, sums);
  }

 private:
  // Every deal walked and settled one by one: cheaper when the last player has few holdings.
  void WalkAll(std::size_t p, uint64_t used, double weight, Sums& sums) {
    const int count = static_cast<int>(players_.size());
    for (const Valued& v : valued_[p]) {
      if ((v.bits & used) != 0) continue;
      values_[p] = v.value;
      if (p + 1 == players_.size()) {
        Settle(values_, count, weight * v.weight, sums);
      } else {
        WalkAll(p + 1, used | v.bits, weight * v.weight, sums);
      }
    }
  }

  void Walk(std::size_t p, uint64_t used, double weight, Sums& sums) {
    for (const Valued& v : valued_[p]) {
      if ((v.bits & used) != 0) continue;
      chosen_[p] = &v;
      if (p + 2 == players_.size()) {
        SettleAgainstLast(used | v.bits, weight * v.weight, sums);
      } else {
        Walk(p + 1, used | v.bits, weight * v.weight, sums);
      }
    }
  }

  // The first players' holdings are chosen: the last player's free holdings below, equal to and above
  // their best value settle the pot three ways.
  void SettleAgainstLast(uint64_t used, double weight, Sums& sums) {
    const int firsts = static_cast<int>(players_.size()) - 1;
    const Valued* best = chosen_[0];
    int winners = 1;
    for (int i = 1; i < firsts; ++i) {
      if (chosen_[i]->value > best->value) {
        best = chosen_[i];
        winners = 1;
      } else if (chosen_[i]->value == best->value) {
        ++winners;
      }
    }
    std::array<uint8_t, 2 * kMultiwayMaxPlayers> cards{};
    int cardCount = 0;
    for (uint64_t bits = used; bits != 0; bits &= bits - 1)
      cards[cardCount++] = static_cast<uint8_t>(std::countr_zero(bits));
    const std::span<const uint8_t> taken(cards.data(), static_cast<std::size_t>(cardCount));
    std::array<int32_t, kMultiwayMaxPlayers*(2 * kMultiwayMaxPlayers - 1)> pairPlaces{};
    const std::span<const int32_t> pairs(
        pairPlaces.data(), static_cast<std::size_t>(last_.PairPlaces(taken, pairPlaces.data())));
    const auto below = last_.Free(best->below, taken, pairs);
    const auto upTo = last_.Free(best->upTo, taken, pairs);
    const auto all = last_.Free(last_.Groups(), taken, pairs);
    const double unit = weight / kFullWeight;
    const double lose = unit * below.weight;                 // the last player loses
    const double tie = unit * (upTo.weight - below.weight);  // the last player ties with the winners
    const double win = unit * (all.weight - upTo.weight);    // the last player wins alone
    PlayerSums& last = sums.players[firsts];
    last.equity += win + tie / (winners + 1);
    last.win += win;
    last.tie += tie;
    for (int i = 0; i < firsts; ++i) {
      if (chosen_[i]->value != best->value) continue;
      PlayerSums& player = sums.players[i];
      player.equity += lose / winners + tie / (winners + 1);
      (winners == 1 ? player.win : player.tie) += lose;
      player.tie += tie;
    }
    sums.weight += unit * all.weight;
    sums.deals += static_cast<uint64_t>(all.count);
  }

  const std::vector<Player>& players_;
  std::vector<std::vector<Valued>> valued_;
  bool plain_;
  LastPlayerTable last_;
  BoardReader reader_;
  std::array<const Valued*, kMultiwayMaxPlayers> chosen_{};
  std::array<HandValue, kMultiwayMaxPlayers> values_{};
};

// Whether the players can be dealt holdings that share no card (a bounded search: after many steps without
// an answer a deal is taken to exist, and the count finds out).
bool SomeDealExists(const std::vector<Player>& players, std::size_t p, uint64_t used, int64_t& steps) {
  if (p == players.size()) return true;
  for (const Holding& h : players[p].holdings) {
    if (--steps < 0) return true;
    if ((h.bits & used) == 0 && SomeDealExists(players, p + 1, used | h.bits, steps)) return true;
  }
  return false;
}

// Sums of place i belong to player order[i].
void FillResult(const Sums& sums, const std::vector<int>& order, MultiwayResult& result) {
  const int count = static_cast<int>(result.players.size());
  result.deals = sums.deals;
  if (sums.weight <= 0) return;
  for (int i = 0; i < count; ++i) {
    MultiwayPlayerResult& player = result.players[order[i]];
    player.equity = 100.0 * sums.players[i].equity / sums.weight;
    player.win = 100.0 * sums.players[i].win / sums.weight;
    player.tie = 100.0 * sums.players[i].tie / sums.weight;
  }
}

}  // namespace

MultiwayResult MultiwayEquity(std::span<const WeightedHoldingSet> ranges, std::span<const Card> board,
                              std::span<const Card> dead, const MultiwayOptions& options,
                              const MultiwayCallbacks& callbacks) {
  MultiwayResult result;
  const int count = static_cast<int>(ranges.size());
  if (count < kMultiwayMinPlayers || count > kMultiwayMaxPlayers) {
    result.error = "multiway equity takes 2 to 10 players, not " + std::to_string(count);
    return result;
  }
  if (board.size() != 0 && board.size() != 3 && board.size() != 4 && board.size() != 5) {
    result.error = "the board holds 0, 3, 4 or 5 cards, not " + std::to_string(board.size());
    return result;
  }
  KnownCards known;
  for (const Card& card : board) known.Add(card);
  const uint64_t boardBits = known.bits;
  for (const Card& card : dead) known.Add(card);
  if (!known.valid()) {
    result.error = "a board or dead card is given twice or is not a card";
    return result;
  }
  const uint64_t knownBits = known.bits;
  const uint64_t deadBits = knownBits & ~boardBits;

  std::vector<Player> players(static_cast<std::size_t>(count));
  result.players.resize(static_cast<std::size_t>(count));
  double product = 1;
  uint64_t needed = 0;
  for (int p = 0; p < count; ++p) {
    Player& player = players[p];
    player.needed = ~uint64_t{0};
    for (int number = 0; number < kHoldingCount; ++number) {
      const int weight = ranges[p].Weight(number);
      if (weight <= 0) continue;
      const auto cards = CardsOfHolding(number);
      const uint64_t bits = DeckBits(cards[0], cards[1]);
      if ((bits & knownBits) != 0) continue;
      player.holdings.push_back({bits, cards[0], cards[1], weight, number});
      player.needed &= bits;
    }
    if (player.holdings.empty()) {
      result.error = "player " + std::to_string(p + 1) + " has no live holding";
      return result;
    }
    needed |= player.needed;
    result.players[p].liveHoldings = static_cast<int>(player.holdings.size());
    product *= static_cast<double>(player.holdings.size());
  }
  const int coming = 5 - static_cast<int>(board.size());
  int64_t steps = 2'000'000;
  if (kDeckSize - std::popcount(knownBits) - 2 * count < coming ||
      !SomeDealExists(players, 0, knownBits, steps)) {
    result.error = "no deal is possible: the players' holdings always share a card";
    return result;
  }

  std::vector<int> deck;
  for (int index = 0; index < kDeckSize; ++index) {
    if (((knownBits | needed) >> index & 1) == 0) deck.push_back(index);
  }
  double boards = 1;
  for (int i = 0; i < coming; ++i) boards = boards * (static_cast<double>(deck.size()) - i) / (i + 1);
  result.costEstimate = boards * product;

  const bool exact =
      options.method == MultiwayMethod::Exact ||
      (options.method == MultiwayMethod::Automatic && result.costEstimate <= kMultiwayExactBudget);
  const int threads = options.threads > 0
                          ? options.threads
                          : static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
  result.threads = threads;
  result.exact = exact;

  std::atomic<bool> stop{false};
  const auto cancelled = [&] { return callbacks.cancel && callbacks.cancel(); };

  std::vector<int> order(static_cast<std::size_t>(count));
  for (int p = 0; p < count; ++p) order[p] = p;
  if (exact) {
    // The player with the most live holdings goes last: its holdings are counted, not walked.
    const auto widest = std::max_element(
        players.begin(), players.end(),
        [](const Player& x, const Player& y) { return x.holdings.size() < y.holdings.size(); });
    std::rotate(order.begin() + (widest - players.begin()), order.begin() + (widest - players.begin()) + 1,
                order.end());
    std::vector<Player> ordered;
    for (int p : order) ordered.push_back(players[p]);
    // One board of each class that a suit symmetry of the players, the board and the dead cards maps onto
    // each other, counted times its class.
    const std::vector<SuitPermutation> symmetries = SuitSymmetries(ranges, boardBits, deadBits);
    uint64_t deckBits = 0;
    for (const int index : deck) deckBits |= uint64_t{1} << index;
    std::vector<uint64_t> boardList;
    std::vector<uint32_t> boardTimes;
    ListSymmetricBoards(deckBits, coming, boardBits, symmetries, boardList, boardTimes);
    // Three players are counted from running totals over their holdings in value order.
    std::array<std::vector<ThreeWayHolding>, 3> threeWay;
    if (count == 3) {
      for (int p = 0; p < 3; ++p) {
        for (const Holding& h : ordered[p].holdings) threeWay[p].push_back({h.number, h.weight});
      }
    }
    const std::size_t slices = (boardList.size() + kSliceBoards - 1) / kSliceBoards;
    std::vector<Sums> sliceSums(slices);
    std::atomic<std::size_t> next{0};
    std::atomic<uint64_t> dealsDone{0};
    RunOnWorkerThreads(
        threads,
        [&](int) {
          ExactWalk walk(ordered);
          std::unique_ptr<ThreeWayCounter> threeWayCounter;
          if (count == 3)
            threeWayCounter = std::make_unique<ThreeWayCounter>(threeWay, boardList.size() / threads + 1);
          Sums boardSums;
          ThreeWayBoardSums threeWaySums;
          for (;;) {
            const std::size_t slice = next.fetch_add(1);
            if (slice >= slices || stop.load()) break;
            Sums& sums = sliceSums[slice];
            const std::size_t end = std::min(boardList.size(), (slice + 1) * kSliceBoards);
            // Asked to stop, a slice ends at the next board (its count is not used).
            for (std::size_t b = slice * kSliceBoards; b < end && !stop.load(std::memory_order_relaxed);
                 ++b) {
              if (threeWayCounter) {
                threeWayCounter->CountBoard(boardList[b], threeWaySums);
                sums.AddThreeWay(threeWaySums, boardTimes[b]);
              } else if (boardTimes[b] == 1) {
                walk.CountBoard(boardList[b], sums);
              } else {
                boardSums = {};
                walk.CountBoard(boardList[b], boardSums);
                sums.AddTimes(boardSums, count, boardTimes[b]);
              }
            }
            dealsDone += sums.deals;
          }
        },
        [&] {
          if (callbacks.progress) callbacks.progress(dealsDone.load(), 0.0);
          if (!cancelled()) return true;
          stop = true;
          result.cancelled = true;
          return false;
        });
    Sums total;
    for (const Sums& sums : sliceSums) total.Add(sums, count);
    FillResult(total, order, result);
    if (!result.cancelled && total.deals == 0) {
      result.error = "no deal is possible: the players' holdings always share a card";
    }
    if (callbacks.progress && !result.cancelled) callbacks.progress(total.deals, 0.0);
    return result;
  }

  SampleMultiwayEquity(ranges, boardBits, deadBits, options, callbacks, threads, result);
  return result;
}

}  // namespace quillet
