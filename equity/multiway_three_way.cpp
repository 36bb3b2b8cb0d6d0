#include "equity/multiway_three_way.h"

#include <algorithm>
#include <bit>

#include "equity/complete_board.h"
#include "equity/enumeration.h"
#include "equity/standard_evaluator.h"

namespace quillet {
namespace {

// A side with at most this many holdings is walked, not read from its per-card totals.
constexpr int32_t kThreeWayWalkAtMost = 12;

// Boards alike are looked for when at least this many cards are held by no holding.
constexpr int kThreeWayRememberFromFree = 12;
constexpr uint64_t kThreeWaySuitCards = 0x1FFF;
// The most words of board orders a counter keeps (8 MB).
constexpr std::size_t kThreeWayMostOrderWords = std::size_t{1} << 22;

// The other two players of player i, and the place of that pair among the pairs 01, 02, 12.
constexpr std::array<std::array<int, 2>, 3> kThreeWayOthers = {{{1, 2}, {0, 2}, {0, 1}}};
constexpr int ThreeWayPairOf(int i) {
  return 2 - i;
}

}  // namespace

void ThreeWayCounter::Side::Fill() {
  if (full) return;
  for (const Member& m : members) {
    card[m.c1] += m.weight;
    card[m.c2] += m.weight;
    holding[m.c1][m.c2] = m.weight;
    holding[m.c2][m.c1] = m.weight;
  }
  full = true;
}

void ThreeWayCounter::Side::Clear() {
  if (full) {
    for (const Member& m : members) {
      card[m.c1] = 0;
      card[m.c2] = 0;
      holding[m.c1][m.c2] = 0;
      holding[m.c2][m.c1] = 0;
    }
  }
  members.clear();
  total = 0;
  count = 0;
  full = false;
}

void ThreeWayCounter::Common::Clear() {
  for (const uint8_t place : touched) card[place] = 0;
  touched.clear();
  total = 0;
}

ThreeWayCounter::ThreeWayCounter(std::span<const std::vector<ThreeWayHolding>, 3> players,
                                 std::size_t boards) {
  // A holding that shares a card every holding of another player holds is never dealt: left out.
  std::array<uint64_t, 3> needed{};
  for (int p = 0; p < 3; ++p) {
    needed[p] = ~uint64_t{0};
    for (const ThreeWayHolding& h : players[p]) {
      const auto cards = CardsOfHolding(h.number);
      needed[p] &= DeckBits(cards[0], cards[1]);
    }
  }
  std::array<std::array<int32_t, 3>, kHoldingCount> weights{};
  std::array<std::vector<ThreeWayHolding>, 3> kept;
  for (int p = 0; p < 3; ++p) {
    const uint64_t othersNeed = needed[kThreeWayOthers[p][0]] | needed[kThreeWayOthers[p][1]];
    for (const ThreeWayHolding& h : players[p]) {
      const auto cards = CardsOfHolding(h.number);
      if ((DeckBits(cards[0], cards[1]) & othersNeed) != 0) continue;
      weights[static_cast<std::size_t>(h.number)][p] = h.weight;
      kept[p].push_back(h);
      whole_ = whole_ && h.weight == kFullWeight;
    }
  }
  for (int number = 0; number < kHoldingCount; ++number) {
    const auto& w = weights[static_cast<std::size_t>(number)];
    if (w[0] == 0 && w[1] == 0 && w[2] == 0) continue;
    const auto cards = CardsOfHolding(number);
    const auto& places = HoldingPlaces()[static_cast<std::size_t>(number)];
    const auto index = static_cast<int32_t>(entries_.size());
    entries_.push_back({DeckBits(cards[0], cards[1]), cards[0], cards[1], number, places[0], places[1], w});
    const int32_t high = std::max(cards[0].rank, cards[1].rank);
    const int32_t low = std::min(cards[0].rank, cards[1].rank);
    auto slot = std::find_if(slots_.begin(), slots_.end(),
                             [&](const RankSlot& s) { return s.high == high && s.low == low; });
    if (slot == slots_.end()) slot = slots_.insert(slots_.end(), {high, low, {}});
    slot->entries.push_back(index);
    for (int suit = 0; suit < 4; ++suit) {
      if (cards[0].suit == suit && cards[1].suit == suit) suited_[suit].push_back(index);
      if (cards[0].suit == suit || cards[1].suit == suit) ofSuit_[suit].push_back(index);
    }
  }
  flushMark_.assign(entries_.size(), 0);
  for (const Entry& e : entries_) held_ |= e.bits;
  // Boards alike are remembered when enough cards are held by no holding for boards to be alike.
  if (std::popcount(~held_ & ((uint64_t{1} << kDeckSize) - 1)) >= kThreeWayRememberFromFree)
    remembered_.resize(std::min(kMostRemembered, std::bit_ceil(boards)));
  if (remembered_.size() < 64) remembered_.clear();
  if (!remembered_.empty()) {
    rememberedOrders_.resize(remembered_.size());
    orders_.reserve(std::min(kThreeWayMostOrderWords, remembered_.size() * entries_.size()));
    signature_.reserve(entries_.size());
  }
  slotOrder_.reserve(slots_.size());
  flushOrder_.reserve(entries_.size());
  for (int p = 0; p < 3; ++p) {
    representative_[p] = p;
    for (int q = 0; q < p; ++q) {
      if (representative_[q] == q && std::ranges::equal(kept[p], kept[q], [](const auto& x, const auto& y) {
            return x.number == y.number && x.weight == y.weight;
          })) {
        representative_[p] = q;
        break;
      }
    }
  }
  // Every player holding every pair of one set of cards: the deals are counted by a product.
  {
    uint64_t cards = 0;
    for (const ThreeWayHolding& h : kept[0]) {
      const auto both = CardsOfHolding(h.number);
      cards |= DeckBits(both[0], both[1]);
    }
    const auto sameAsFirst = [&](const std::vector<ThreeWayHolding>& other) {
      return std::ranges::equal(kept[0], other,
                                [](const auto& x, const auto& y) { return x.number == y.number; });
    };
    const auto n = static_cast<std::size_t>(std::popcount(cards));
    if (sameAsFirst(kept[1]) && sameAsFirst(kept[2]) && kept[0].size() == n * (n - 1) / 2)
      everyPairOf_ = cards;
  }
  sameHoldings12_ =
      std::ranges::equal(kept[1], kept[2], [](const auto& x, const auto& y) { return x.number == y.number; });
  for (int i = 0; i < 3; ++i) {
    const int j = kThreeWayOthers[i][0];
    const int k = kThreeWayOthers[i][1];
    const int q = ThreeWayPairOf(i);
    const bool oneWeight = !kept[j].empty() && std::ranges::all_of(kept[j], [&](const auto& h) {
      return h.weight == kept[j][0].weight;
    });
    if (representative_[j] == representative_[k] && oneWeight) {
      pairSelfWeight_[q] = kept[j][0].weight;
    } else {
      pairKept_[q] = representative_[i] == i || i == 0;
    }
  }
  for (Entry& e : entries_) {
    for (int p = 0; p < 3; ++p) {
      if (representative_[p] == p && e.weight[p] > 0) e.sides |= static_cast<uint8_t>(1 << p);
    }
    for (int i = 0; i < 3; ++i) {
      const int q = ThreeWayPairOf(i);
      if (pairKept_[q] && e.weight[kThreeWayOthers[i][0]] > 0 && e.weight[kThreeWayOthers[i][1]] > 0)
        e.pairs |= static_cast<uint8_t>(1 << q);
    }
  }
  order_.reserve(entries_.size());
  for (int p = 0; p < 3; ++p) {
    below_[p].members.reserve(entries_.size());
    group_[p].members.reserve(entries_.size());
    belowBoth_[p].touched.reserve(2 * entries_.size());
    groupBoth_[p].touched.reserve(2 * entries_.size());
  }
}

int64_t ThreeWayCounter::WalkPairs(const Side& small, const Side& other, int c1, int c2) {
  const auto& row1 = other.holding[static_cast<std::size_t>(c1)];
  const auto& row2 = other.holding[static_cast<std::size_t>(c2)];
  const double base = other.total - other.card[c1] - other.card[c2] + row1[c2];
  const uint64_t held = uint64_t{1} << c1 | uint64_t{1} << c2;
  double sum = 0;
  for (const Member& m : small.members) {
    if ((m.bits & held) != 0) continue;
    const int a1 = m.c1;
    const int a2 = m.c2;
    // Inclusion and exclusion over the four cards: a holding of two of them was taken away twice.
    const double free = base - other.card[a1] - other.card[a2] + other.holding[a1][a2] + row1[a1] + row1[a2] +
                        row2[a1] + row2[a2];
    sum += m.weight * free;
  }
  return static_cast<int64_t>(sum);
}

int64_t ThreeWayCounter::ListPairs(const Side& x, const Side& y, int c1, int c2) {
  const uint64_t held = uint64_t{1} << c1 | uint64_t{1} << c2;
  double sum = 0;
  for (const Member& a : x.members) {
    if ((a.bits & held) != 0) continue;
    for (const Member& b : y.members) {
      if ((b.bits & (held | a.bits)) == 0) sum += a.weight * b.weight;
    }
  }
  return static_cast<int64_t>(sum);
}

int64_t ThreeWayCounter::Pairs(const Side& x, const Side& y, const Common* both, int64_t selfWeight, int c1,
                               int c2) {
  if (x.count == 0 || y.count == 0) return 0;
  if (!x.full || !y.full) {
    if (!x.full && !y.full) return ListPairs(x, y, c1, c2);
    return x.full ? WalkPairs(y, x, c1, c2) : WalkPairs(x, y, c1, c2);
  }
  if (x.count <= kThreeWayWalkAtMost && x.count <= y.count) return WalkPairs(x, y, c1, c2);
  if (y.count <= kThreeWayWalkAtMost) return WalkPairs(y, x, c1, c2);
  const auto& x1 = x.holding[static_cast<std::size_t>(c1)];
  const auto& x2 = x.holding[static_cast<std::size_t>(c2)];
  const auto& y1 = y.holding[static_cast<std::size_t>(c1)];
  const auto& y2 = y.holding[static_cast<std::size_t>(c2)];
  const double xHeld = x1[c2];
  const double yHeld = y1[c2];
  const double xFree = x.total - x.card[c1] - x.card[c2] + xHeld;
  const double yFree = y.total - y.card[c1] - y.card[c2] + yHeld;
  // Pairs sharing a card c: the weight of x's free holdings with c times y's, over every card (in four
  // running sums: whole numbers, so any order gives the same), then c1 and c2 themselves taken back out.
  std::array<double, 4> partial{};
  for (int c = 0; c < kDeckSize; c += 4) {
    for (int lane = 0; lane < 4; ++lane) {
      const int d = c + lane;
      partial[lane] += (x.card[d] - x1[d] - x2[d]) * (y.card[d] - y1[d] - y2[d]);
    }
  }
  const double shared = partial[0] + partial[1] + partial[2] + partial[3] -
                        (x.card[c1] - xHeld) * (y.card[c1] - yHeld) -
                        (x.card[c2] - xHeld) * (y.card[c2] - yHeld);
  // A pair of one holding twice shares two cards: taken away twice above, given back once.
  const double same = both != nullptr
                          ? static_cast<double>(both->total - both->card[c1] - both->card[c2]) + xHeld * yHeld
                          : static_cast<double>(selfWeight) * xFree;
  return static_cast<int64_t>(xFree * yFree - shared + same);
}

void ThreeWayCounter::Order(uint64_t boardBits) {
  boardBits_ = boardBits;
  CompleteBoard reader;
  reader.Set(boardBits);
  const StandardEvaluator& evaluator = StandardEvaluator::Get();
  ++boardMark_;
  // The holdings that make a flush have values of their own; every other holding is worth what its
  // pair of ranks is worth on this board.
  flushOrder_.clear();
  const int32_t suit = reader.flushSuit;
  if (suit >= 0) {
    const int32_t onBoard = reader.suits.counts[suit];
    const std::vector<int32_t>* candidates = onBoard == 3 ? &suited_[suit] : &ofSuit_[suit];
    if (onBoard == 5) candidates = nullptr;  // every holding
    const auto consider = [&](int32_t index) {
      const Entry& e = entries_[static_cast<std::size_t>(index)];
      if ((e.bits & boardBits) != 0) return;
      if (onBoard + (e.a.suit == suit) + (e.b.suit == suit) < 5) return;
      const HandValue value = evaluator.FlushValue(reader.suits.ranks[suit] | SuitRanksOf(e.a, e.b, suit));
      flushOrder_.push_back(uint64_t{value} << 11 | static_cast<uint64_t>(index));
      flushMark_[static_cast<std::size_t>(index)] = boardMark_;
    };
    if (candidates != nullptr) {
      for (const int32_t index : *candidates) consider(index);
    } else {
      for (std::size_t index = 0; index < entries_.size(); ++index) consider(static_cast<int32_t>(index));
    }
    std::sort(flushOrder_.begin(), flushOrder_.end());
  }
  slotOrder_.clear();
  for (std::size_t s = 0; s < slots_.size(); ++s) {
    const HandValue value = evaluator.RankValue(
        evaluator.AddRank(evaluator.AddRank(reader.state, slots_[s].high), slots_[s].low));
    slotOrder_.push_back(uint64_t{value} << 8 | s);
  }
  std::sort(slotOrder_.begin(), slotOrder_.end());
  order_.clear();
  std::size_t flush = 0;
  for (const uint64_t key : slotOrder_) {
    const uint64_t value = key >> 8;
    while (flush < flushOrder_.size() && flushOrder_[flush] >> 11 < value)
      order_.push_back(flushOrder_[flush++]);
    for (const int32_t index : slots_[key & 0xFF].entries) {
      const Entry& e = entries_[static_cast<std::size_t>(index)];
      if ((e.bits & boardBits) != 0 || flushMark_[static_cast<std::size_t>(index)] == boardMark_) continue;
      order_.push_back(value << 11 | static_cast<uint64_t>(index));
    }
  }
  while (flush < flushOrder_.size()) order_.push_back(flushOrder_[flush++]);
}

void ThreeWayCounter::Take(const Entry& e, std::array<Side, 3>& sides, std::array<Common, 3>& both,
                           bool list) const {
  for (unsigned bits = e.sides; bits != 0; bits &= bits - 1) {
    const int p = std::countr_zero(bits);
    if (list) {
      sides[p].Note(e.bits, e.place1, e.place2, e.weight[p]);
    } else {
      sides[p].Take(e.bits, e.place1, e.place2, e.weight[p]);
    }
  }
  for (unsigned bits = e.pairs; bits != 0; bits &= bits - 1) {
    const int q = std::countr_zero(bits);
    const int i = 2 - q;
    both[q].Take(e.place1, e.place2,
                 int64_t{e.weight[kThreeWayOthers[i][0]]} * e.weight[kThreeWayOthers[i][1]]);
  }
}

ThreeWayCounter::BoardKey ThreeWayCounter::KeyOf(uint64_t boardBits) const {
  // A suit of three or more board cards keeps its cards exact.
  uint64_t exact = boardBits & held_;
  for (int suit = 0; suit < 4; ++suit) {
    const uint64_t suitCards = boardBits & kThreeWaySuitCards << (13 * suit);
    if (std::popcount(suitCards) >= 3) exact |= suitCards;
  }
  BoardKey key{exact, 0};
  for (uint64_t bits = boardBits & ~exact; bits != 0; bits &= bits - 1) {
    key.ranks += uint64_t{1} << (3 * (std::countr_zero(bits) % 13));
  }
  return key;
}

void ThreeWayCounter::CountBoard(uint64_t boardBits, ThreeWayBoardSums& sums) {
  ++boardsCounted_;
  if (remembered_.empty()) {
    Order(boardBits);
    Sweep(sums);
    return;
  }
  const BoardKey key = KeyOf(boardBits);
  const uint64_t hash = (key.exact * 0x9E3779B97F4A7C15ull) ^ (key.ranks * 0xC2B2AE3D27D4EB4Full);
  const std::size_t mask = remembered_.size() - 1;
  std::size_t slot = static_cast<std::size_t>(hash >> 40) & mask;
  while (remembered_[slot].used) {
    if (remembered_[slot].key == key) {
      sums = remembered_[slot].sums;
      ++boardsRecalled_;
      return;
    }
    slot = (slot + 1) & mask;
  }
  Order(boardBits);
  CountOrdered(sums);
  // Three quarters full: no more are kept.
  if (rememberedCount_ < remembered_.size() / 4 * 3) {
    remembered_[slot] = {key, true, sums};
    ++rememberedCount_;
  }
}

void ThreeWayCounter::CountOrdered(ThreeWayBoardSums& sums) {
  signature_.clear();
  uint64_t hash = 0x9E3779B97F4A7C15ull;
  for (std::size_t place = 0; place < order_.size(); ++place) {
    const bool starts = place > 0 && order_[place] >> 11 != order_[place - 1] >> 11;
    const auto word = static_cast<uint16_t>((order_[place] & 0x7FF) | (starts ? 0x8000u : 0u));
    signature_.push_back(word);
    hash = (hash ^ word) * 0x100000001B3ull;
    hash ^= hash >> 29;
  }
  const std::size_t mask = rememberedOrders_.size() - 1;
  std::size_t slot = static_cast<std::size_t>(hash >> 40) & mask;
  while (rememberedOrders_[slot].used) {
    const RememberedOrder& kept = rememberedOrders_[slot];
    if (kept.hash == hash && kept.length == signature_.size() &&
        std::equal(signature_.begin(), signature_.end(), orders_.begin() + kept.start)) {
      sums = kept.sums;
      ++ordersRecalled_;
      return;
    }
    slot = (slot + 1) & mask;
  }
  Sweep(sums);
  if (rememberedOrderCount_ < rememberedOrders_.size() / 4 * 3 &&
      orders_.size() + signature_.size() <= orders_.capacity()) {
    rememberedOrders_[slot] = {hash, static_cast<uint32_t>(orders_.size()),
                               static_cast<uint32_t>(signature_.size()), true, sums};
    orders_.insert(orders_.end(), signature_.begin(), signature_.end());
    ++rememberedOrderCount_;
  }
}

void ThreeWayCounter::Sweep(ThreeWayBoardSums& sums) {
  sums = {};
  // Whole numbers per representative (pots in sixths), so that the sums do not depend on the order the
  // holdings are met in.
  std::array<__int128, 3> won{};
  std::array<__int128, 3> tied{};
  std::array<__int128, 3> sixths{};
  const std::size_t live = order_.size();
  // A player's running totals are its representative's.
  const auto sideOf = [&](const std::array<Side, 3>& sides, int p) -> const Side& {
    return sides[static_cast<std::size_t>(representative_[p])];
  };
  for (std::size_t g0 = 0; g0 < live;) {
    const uint64_t value = order_[g0] >> 11;
    std::size_t g1 = g0 + 1;
    while (g1 < live && order_[g1] >> 11 == value) ++g1;
    const auto entryAt = [&](std::size_t place) -> const Entry& { return entries_[order_[place] & 0x7FF]; };
    // The group's sides are lists; a large one gets its totals too.
    for (std::size_t g = g0; g < g1; ++g) Take(entryAt(g), group_, groupBoth_, true);
    for (Side& side : group_) {
      if (side.count > kThreeWayWalkAtMost) side.Fill();
    }
    // Each holding of the group against the pairs of the other two: both below (the totals before the
    // group joins them), one below and one of the group (no holding is in both: the same-holding term is
    // 0), both of the group.
    for (std::size_t g = g0; g < g1; ++g) {
      const Entry& e = entryAt(g);
      const int c1 = e.place1;
      const int c2 = e.place2;
      for (int i = 0; i < 3; ++i) {
        if (representative_[i] != i || e.weight[i] == 0) continue;
        const int j = kThreeWayOthers[i][0];
        const int k = kThreeWayOthers[i][1];
        const Side& belowJ = sideOf(below_, j);
        const Side& belowK = sideOf(below_, k);
        const Side& groupJ = sideOf(group_, j);
        const Side& groupK = sideOf(group_, k);
        const int q = ThreeWayPairOf(i);
        const bool kept = pairKept_[q];
        const int64_t self = pairSelfWeight_[q];
        const int64_t lower = Pairs(belowJ, belowK, kept ? &belowBoth_[q] : nullptr, self, c1, c2);
        const int64_t mixed =
            Pairs(belowJ, groupK, &none_, 0, c1, c2) + Pairs(groupJ, belowK, &none_, 0, c1, c2);
        const int64_t equal = Pairs(groupJ, groupK, kept ? &groupBoth_[q] : nullptr, self, c1, c2);
        // Both below: won alone; one below and one equal: a pot in two; both equal: in three.
        const __int128 weight = e.weight[i];
        won[i] += weight * lower;
        tied[i] += weight * (mixed + equal);
        sixths[i] += weight * (6 * lower + 3 * mixed + 2 * equal);
      }
    }
    for (std::size_t g = g0; g < g1; ++g) Take(entryAt(g), below_, belowBoth_, false);
    for (int p = 0; p < 3; ++p) {
      group_[p].Clear();
      groupBoth_[p].Clear();
    }
    g0 = g1;
  }
  for (int p = 0; p < 3; ++p) {
    const int i = representative_[p];
    sums.equity[p] = static_cast<double>(sixths[i]) / 6.0;
    sums.win[p] = static_cast<double>(won[i]);
    sums.tie[p] = static_cast<double>(tied[i]);
  }
  // Every deal shares its pot out whole: six sixths of its weight in all.
  __int128 allSixths = 0;
  for (int p = 0; p < 3; ++p) allSixths += sixths[representative_[p]];
  const auto weight = static_cast<int64_t>(allSixths / 6);
  sums.weight = static_cast<double>(weight);
  if (whole_) {
    sums.deals = static_cast<uint64_t>(weight / (int64_t{kFullWeight} * kFullWeight * kFullWeight));
  } else if (everyPairOf_ != 0) {
    // Every player holds every pair of the cards left of one set: the ways to deal three pairs of them.
    const int64_t k = std::popcount(everyPairOf_ & ~boardBits_);
    sums.deals =
        k < 6 ? 0
              : static_cast<uint64_t>(k * (k - 1) / 2 * ((k - 2) * (k - 3) / 2) * ((k - 4) * (k - 5) / 2));
  } else {
    // The same count at weight 1 each: each holding of the first player against the pairs of the other
    // two (one side when they hold the same holdings).
    Side& second = group_[1];
    Side& third = sameHoldings12_ ? group_[1] : group_[2];
    for (std::size_t place = 0; place < live; ++place) {
      const Entry& e = entries_[order_[place] & 0x7FF];
      if (e.weight[1] > 0) second.Take(e.bits, e.place1, e.place2, 1);
      if (sameHoldings12_) continue;
      if (e.weight[2] > 0) third.Take(e.bits, e.place1, e.place2, 1);
      if (e.weight[1] > 0 && e.weight[2] > 0) groupBoth_[2].Take(e.place1, e.place2, 1);
    }
    int64_t deals = 0;
    for (std::size_t place = 0; place < live; ++place) {
      const Entry& e = entries_[order_[place] & 0x7FF];
      if (e.weight[0] == 0) continue;
      deals += Pairs(second, third, sameHoldings12_ ? nullptr : &groupBoth_[2], 1, e.place1, e.place2);
    }
    sums.deals = static_cast<uint64_t>(deals);
    group_[1].Clear();
    group_[2].Clear();
    groupBoth_[2].Clear();
  }
  for (int p = 0; p < 3; ++p) {
    below_[p].Clear();
    belowBoth_[p].Clear();
  }
}

}  // namespace quillet
