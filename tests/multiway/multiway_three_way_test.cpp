// The three-player counter on single boards against every deal walked one by one with the step-by-step
// evaluator, and the suit symmetry of boards: which permutations keep the players, and one board listed for
// each class of boards they map onto each other.
#include "equity/multiway_three_way.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <random>
#include <set>
#include <vector>

#include "cards/holding.h"
#include "equity/board_symmetry.h"
#include "equity/enumeration.h"
#include "equity/hand_evaluator.h"
#include "range/range_notation.h"
#include "tests/support/card_text.h"

namespace quillet {
namespace {

using quillet::testing::C;
using quillet::testing::Cards;
using Sets = std::array<std::vector<ThreeWayHolding>, 3>;

// Every deal of the three players on the board, each settled by EvaluateCards.
ThreeWayBoardSums WalkEveryDeal(const Sets& players, uint64_t boardBits) {
  std::vector<Card> board;
  for (uint64_t bits = boardBits; bits != 0; bits &= bits - 1)
    board.push_back(DeckCard(std::countr_zero(bits)));
  std::array<std::vector<std::pair<uint64_t, HandValue>>, 3> valued;
  for (int p = 0; p < 3; ++p) {
    for (const ThreeWayHolding& h : players[p]) {
      const auto cards = CardsOfHolding(h.number);
      std::vector<Card> seven = board;
      seven.push_back(cards[0]);
      seven.push_back(cards[1]);
      valued[p].push_back({DeckBits(cards[0], cards[1]), EvaluateCards(std::span<const Card>(seven))});
    }
  }
  ThreeWayBoardSums sums;
  for (std::size_t x = 0; x < players[0].size(); ++x) {
    if ((valued[0][x].first & boardBits) != 0) continue;
    for (std::size_t y = 0; y < players[1].size(); ++y) {
      if ((valued[1][y].first & (boardBits | valued[0][x].first)) != 0) continue;
      for (std::size_t z = 0; z < players[2].size(); ++z) {
        if ((valued[2][z].first & (boardBits | valued[0][x].first | valued[1][y].first)) != 0) continue;
        const double weight = 1.0 * players[0][x].weight * players[1][y].weight * players[2][z].weight;
        const std::array<HandValue, 3> values = {valued[0][x].second, valued[1][y].second,
                                                 valued[2][z].second};
        const HandValue best = std::max({values[0], values[1], values[2]});
        const auto winners = static_cast<double>(std::count(values.begin(), values.end(), best));
        for (int p = 0; p < 3; ++p) {
          if (values[p] != best) continue;
          sums.equity[p] += weight / winners;
          (winners == 1 ? sums.win[p] : sums.tie[p]) += weight;
        }
        sums.weight += weight;
        ++sums.deals;
      }
    }
  }
  return sums;
}

// `size` holdings drawn at random, none on the board, each whole or of a random weight.
std::vector<ThreeWayHolding> RandomSet(std::mt19937& random, int size, uint64_t boardBits, bool weighted) {
  std::vector<int> numbers;
  for (int number = 0; number < kHoldingCount; ++number) {
    const auto cards = CardsOfHolding(number);
    if ((DeckBits(cards[0], cards[1]) & boardBits) == 0) numbers.push_back(number);
  }
  std::shuffle(numbers.begin(), numbers.end(), random);
  numbers.resize(static_cast<std::size_t>(size));
  std::sort(numbers.begin(), numbers.end());
  std::vector<ThreeWayHolding> set;
  for (const int number : numbers) {
    set.push_back({number, weighted ? static_cast<int32_t>(random() % kFullWeight) + 1 : kFullWeight});
  }
  return set;
}

uint64_t RandomBoard(std::mt19937& random) {
  uint64_t bits = 0;
  while (std::popcount(bits) < 5) bits |= uint64_t{1} << (random() % kDeckSize);
  return bits;
}

void ExpectSameSums(const ThreeWayBoardSums& counted, const ThreeWayBoardSums& walked) {
  for (int p = 0; p < 3; ++p) {
    EXPECT_NEAR(counted.equity[p], walked.equity[p], 1e-9 * std::max(1.0, walked.weight)) << "player " << p;
    EXPECT_EQ(counted.win[p], walked.win[p]) << "player " << p;
    EXPECT_EQ(counted.tie[p], walked.tie[p]) << "player " << p;
  }
  EXPECT_EQ(counted.weight, walked.weight);
  EXPECT_EQ(counted.deals, walked.deals);
}

TEST(ThreeWayCounter, CountsEveryDealOfRandomSetsOnRandomBoards) {
  std::mt19937 random(23);
  // Small sets are walked, large ones read from their totals; sizes mixed on purpose.
  const std::array<std::array<int, 3>, 6> sizes = {
      {{1, 40, 60}, {3, 5, 120}, {90, 2, 70}, {150, 150, 12}, {25, 25, 25}, {200, 1, 1}}};
  for (const bool weighted : {false, true}) {
    for (const auto& size : sizes) {
      const uint64_t board = RandomBoard(random);
      Sets players;
      for (int p = 0; p < 3; ++p) players[p] = RandomSet(random, size[p], board, weighted);
      ThreeWayCounter counter{std::span<const std::vector<ThreeWayHolding>, 3>(players), 1024};
      ThreeWayBoardSums counted;
      counter.CountBoard(board, counted);
      SCOPED_TRACE(::testing::Message() << "sizes " << size[0] << "/" << size[1] << "/" << size[2]
                                        << (weighted ? " weighted" : " whole"));
      ExpectSameSums(counted, WalkEveryDeal(players, board));
    }
  }
}

TEST(ThreeWayCounter, PlayersWithTheSameSetShareTheWorkAndStillCountEveryDeal) {
  std::mt19937 random(7);
  for (const bool weighted : {false, true}) {
    for (int shape = 0; shape < 4; ++shape) {
      const uint64_t board = RandomBoard(random);
      const std::vector<ThreeWayHolding> shared = RandomSet(random, 80, board, weighted);
      Sets players = {shared, shared, shared};
      // The same set for two players, the first and the last, or two after a different first.
      if (shape == 1) players[2] = RandomSet(random, 30, board, weighted);
      if (shape == 2) players[1] = RandomSet(random, 1, board, weighted);
      if (shape == 3) players[0] = RandomSet(random, 3, board, weighted);
      ThreeWayCounter counter{std::span<const std::vector<ThreeWayHolding>, 3>(players), 1024};
      ThreeWayBoardSums counted;
      counter.CountBoard(board, counted);
      SCOPED_TRACE(::testing::Message() << "shape " << shape << (weighted ? " weighted" : " whole"));
      ExpectSameSums(counted, WalkEveryDeal(players, board));
    }
  }
}

TEST(ThreeWayCounter, BoardsThatTieManyHoldingsAndFlushBoardsCountEveryDeal) {
  // A board that plays for most holdings (large groups of equal value), a four-flush board and a
  // straight-flush board, with sets holding the board's own cards (never dealt) and the same holding in
  // two sets.
  std::mt19937 random(11);
  for (const char* text : {"AsAhAdKsKh", "2h5h9hJhKc", "9s8s7s6s5s"}) {
    uint64_t board = 0;
    for (const Card card : Cards(text)) board |= DeckBit(card);
    Sets players;
    for (int p = 0; p < 3; ++p) players[p] = RandomSet(random, 150, 0, p == 1);
    ThreeWayCounter counter{std::span<const std::vector<ThreeWayHolding>, 3>(players), 1024};
    ThreeWayBoardSums counted;
    counter.CountBoard(board, counted);
    SCOPED_TRACE(text);
    // The counter takes live holdings only.
    Sets live;
    for (int p = 0; p < 3; ++p) {
      for (const ThreeWayHolding& h : players[p]) {
        const auto cards = CardsOfHolding(h.number);
        if ((DeckBits(cards[0], cards[1]) & board) == 0) live[p].push_back(h);
      }
    }
    ExpectSameSums(counted, WalkEveryDeal(live, board));
  }
}

TEST(ThreeWayCounter, BoardsAlikeInTheCardsNoHoldingHoldsAreRecalledWithTheSameSums) {
  // Holdings of tens to aces only: boards that differ in the suits of their low cards (no three of a
  // suit) give the same sums, and are answered from the first of them.
  std::mt19937 random(5);
  std::vector<int> high;
  for (int number = 0; number < kHoldingCount; ++number) {
    const auto cards = CardsOfHolding(number);
    if (cards[0].rank >= 10 && cards[1].rank >= 10) high.push_back(number);
  }
  Sets players;
  for (int p = 0; p < 3; ++p) {
    std::shuffle(high.begin(), high.end(), random);
    for (int i = 0; i < 25 + 10 * p; ++i)
      players[p].push_back({high[static_cast<std::size_t>(i)], p == 2 ? 400 + i : kFullWeight});
    std::sort(players[p].begin(), players[p].end(),
              [](const ThreeWayHolding& x, const ThreeWayHolding& y) { return x.number < y.number; });
  }
  ThreeWayCounter counter{std::span<const std::vector<ThreeWayHolding>, 3>(players), 1024};
  // Boards of low cards in every suit pattern, some with a high card or three of a suit.
  const std::vector<std::string> boards = {"2c5d9h3s7c", "2d5c9s3h7d", "2h5s9c3d7h", "2c5c9c3s7d",
                                           "2d5d9d3h7c", "2c5d9hTs7c", "2d5c9sTs7d", "2c5d9hTh7c",
                                           "Ah5d9h3s7h", "Ah5s9h3h7h", "2s5h9d3c7s"};
  for (const std::string& text : boards) {
    uint64_t board = 0;
    for (const Card card : Cards(text)) board |= DeckBit(card);
    ThreeWayBoardSums counted;
    counter.CountBoard(board, counted);
    Sets live;
    for (int p = 0; p < 3; ++p) {
      for (const ThreeWayHolding& h : players[p]) {
        const auto cards = CardsOfHolding(h.number);
        if ((DeckBits(cards[0], cards[1]) & board) == 0) live[p].push_back(h);
      }
    }
    SCOPED_TRACE(text);
    ExpectSameSums(counted, WalkEveryDeal(live, board));
  }
  EXPECT_EQ(counter.BoardsCounted(), boards.size());
  // Recalled: the second, the third and the last (like the first) and the seventh (like the sixth, whose
  // ten is held by holdings and stays exact, so the eighth, with another ten, is not); three of a suit keeps
  // that suit's cards exact.
  EXPECT_EQ(counter.BoardsRecalled(), 4u);
}

TEST(ThreeWayCounter, BoardsThatPutTheHoldingsInTheSameOrderShareTheirSums) {
  // Holdings of tens to aces: a three on the board instead of a four changes no holding's place, nor which
  // are level, so the second board is answered from the first; the third (a ten on the board) is not.
  std::mt19937 random(9);
  std::vector<int> high;
  for (int number = 0; number < kHoldingCount; ++number) {
    const auto cards = CardsOfHolding(number);
    if (cards[0].rank >= 10 && cards[1].rank >= 10) high.push_back(number);
  }
  Sets players;
  for (int p = 0; p < 3; ++p) {
    std::shuffle(high.begin(), high.end(), random);
    for (int i = 0; i < 20 + 15 * p; ++i)
      players[p].push_back({high[static_cast<std::size_t>(i)], 100 + 30 * i});
    std::sort(players[p].begin(), players[p].end(),
              [](const ThreeWayHolding& x, const ThreeWayHolding& y) { return x.number < y.number; });
  }
  ThreeWayCounter counter{std::span<const std::vector<ThreeWayHolding>, 3>(players), 1024};
  for (const char* text : {"2c5d9h3s7c", "2c5d9h4s7c", "2c5d9hTs7c"}) {
    uint64_t board = 0;
    for (const Card card : Cards(text)) board |= DeckBit(card);
    ThreeWayBoardSums counted;
    counter.CountBoard(board, counted);
    Sets live;
    for (int p = 0; p < 3; ++p) {
      for (const ThreeWayHolding& h : players[p]) {
        const auto cards = CardsOfHolding(h.number);
        if ((DeckBits(cards[0], cards[1]) & board) == 0) live[p].push_back(h);
      }
    }
    SCOPED_TRACE(text);
    ExpectSameSums(counted, WalkEveryDeal(live, board));
  }
  EXPECT_EQ(counter.BoardsRecalled(), 0u);
  EXPECT_EQ(counter.OrdersRecalled(), 1u);
}

TEST(ThreeWayCounter, PlayersOfEveryPairOfOneSetOfCardsAtMixedWeightsCountEveryDeal) {
  // Every pair of fourteen cards for each player, at weights of its own: the deals are counted from the
  // cards left, the pots from the weights.
  std::mt19937 random(3);
  std::vector<int> places;
  for (int place = 0; place < kDeckSize; ++place) places.push_back(place);
  std::shuffle(places.begin(), places.end(), random);
  places.resize(14);
  std::sort(places.begin(), places.end());
  Sets players;
  for (int p = 0; p < 3; ++p) {
    for (std::size_t j = 1; j < places.size(); ++j) {
      for (std::size_t i = 0; i < j; ++i) {
        players[p].push_back(
            {places[j] * (places[j] - 1) / 2 + places[i], static_cast<int32_t>(1 + random() % 1000)});
      }
    }
    std::sort(players[p].begin(), players[p].end(),
              [](const ThreeWayHolding& x, const ThreeWayHolding& y) { return x.number < y.number; });
  }
  ThreeWayCounter counter{std::span<const std::vector<ThreeWayHolding>, 3>(players), 1024};
  for (int b = 0; b < 4; ++b) {
    // Boards that take none, one or two of the fourteen cards.
    uint64_t board = 0;
    for (int i = 0; i < b && i < 2; ++i) board |= uint64_t{1} << places[static_cast<std::size_t>(i)];
    while (std::popcount(board) < 5) {
      const int place = static_cast<int>(random() % kDeckSize);
      if (std::find(places.begin(), places.end(), place) == places.end()) board |= uint64_t{1} << place;
    }
    ThreeWayBoardSums counted;
    counter.CountBoard(board, counted);
    Sets live;
    for (int p = 0; p < 3; ++p) {
      for (const ThreeWayHolding& h : players[p]) {
        const auto cards = CardsOfHolding(h.number);
        if ((DeckBits(cards[0], cards[1]) & board) == 0) live[p].push_back(h);
      }
    }
    SCOPED_TRACE(b);
    ExpectSameSums(counted, WalkEveryDeal(live, board));
  }
}

WeightedHoldingSet Range(const char* text) {
  return ParseWeightedRangeNotation(text).weights;
}

TEST(BoardSymmetry, SuitPermutationsThatKeepThePlayersTheBoardAndTheDeadCards) {
  const std::vector<WeightedHoldingSet> wide = {Range("TT+,AQs+,AQo+"), Range("QQ+,AKs,AKo"), Range("TT")};
  EXPECT_EQ(SuitSymmetries(wide, 0, 0).size(), 24u);
  // Aces of hearts and diamonds: the two may swap, and so may spades and clubs.
  const std::vector<WeightedHoldingSet> aces = {Range("AhAd"), Range("random"), Range("random")};
  EXPECT_EQ(SuitSymmetries(aces, 0, 0).size(), 4u);
  // A board of three suits keeps each of them.
  const uint64_t flop = DeckBit(C("Tc")) | DeckBit(C("8h")) | DeckBit(C("3s"));
  EXPECT_EQ(SuitSymmetries(aces, flop, 0).size(), 1u);
  // A dead card in one suit keeps only the permutations of the other three.
  EXPECT_EQ(SuitSymmetries(wide, 0, DeckBit(C("2s"))).size(), 6u);
  // A weight that breaks the symmetry: one combo of tens at half weight.
  std::vector<WeightedHoldingSet> broken = wide;
  broken[2].SetWeight(C("Th"), C("Ts"), 500);
  const auto kept = SuitSymmetries(broken, 0, 0);
  EXPECT_EQ(kept.size(), 4u);  // the permutations that keep {hearts, spades}
  EXPECT_EQ(kept.front(), (SuitPermutation{0, 1, 2, 3}));
}

TEST(BoardSymmetry, OneBoardOfEachClassCountedTimesItsClass) {
  const std::vector<WeightedHoldingSet> aces = {Range("AhAd"), Range("KK"), Range("random")};
  const std::vector<WeightedHoldingSet> wide = {Range("TT+,AQs+,AQo+"), Range("QQ+,AKs,AKo"), Range("TT")};
  for (const auto* players : {&aces, &wide}) {
    const auto symmetries = SuitSymmetries(*players, 0, 0);
    // A deck of three ranks in every suit, so that every set can be looked at.
    uint64_t deck = 0;
    for (int suit = 0; suit < 4; ++suit) {
      for (int rank : {5, 9, 13}) deck |= DeckBit(Card{rank, suit});
    }
    for (int take : {1, 2, 3}) {
      std::vector<uint64_t> boards;
      std::vector<uint32_t> counts;
      ListSymmetricBoards(deck, take, 0, symmetries, boards, counts);
      // The classes found by applying every symmetry to every set of the deck.
      std::set<uint64_t> least;
      uint64_t all = 0;
      std::vector<int> places;
      for (uint64_t bits = deck; bits != 0; bits &= bits - 1) places.push_back(std::countr_zero(bits));
      std::vector<uint64_t> sets;
      for (uint32_t mask = 0; mask < (1u << places.size()); ++mask) {
        if (std::popcount(mask) != take) continue;
        uint64_t set = 0;
        for (std::size_t i = 0; i < places.size(); ++i) {
          if ((mask >> i & 1) != 0) set |= uint64_t{1} << places[i];
        }
        ++all;
        uint64_t smallest = set;
        for (const SuitPermutation& g : symmetries) smallest = std::min(smallest, PermuteDeckBits(set, g));
        least.insert(smallest);
        sets.push_back(set);
      }
      ASSERT_EQ(boards.size(), least.size()) << "take " << take;
      uint64_t counted = 0;
      for (std::size_t b = 0; b < boards.size(); ++b) {
        EXPECT_TRUE(least.count(boards[b]) == 1);
        std::set<uint64_t> orbit;
        for (const SuitPermutation& g : symmetries) orbit.insert(PermuteDeckBits(boards[b], g));
        EXPECT_EQ(counts[b], orbit.size());
        counted += counts[b];
      }
      EXPECT_EQ(counted, all);
    }
  }
}

TEST(BoardSymmetry, WithOnlyTheIdentityEverySetIsListedOnce) {
  std::vector<uint64_t> boards;
  std::vector<uint32_t> counts;
  const std::vector<SuitPermutation> identity = {SuitPermutation{0, 1, 2, 3}};
  const uint64_t known = DeckBit(C("Ah"));
  ListSymmetricBoards((uint64_t{1} << 52) - 1 - known, 2, known, identity, boards, counts);
  EXPECT_EQ(boards.size(), 51u * 50u / 2u);
  EXPECT_TRUE(std::all_of(counts.begin(), counts.end(), [](uint32_t c) { return c == 1; }));
  EXPECT_TRUE(std::all_of(boards.begin(), boards.end(), [&](uint64_t b) { return (b & known) != 0; }));
}

}  // namespace
}  // namespace quillet
