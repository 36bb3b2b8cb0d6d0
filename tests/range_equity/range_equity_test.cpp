#include "equity/range_equity.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "equity/deck.h"
#include "equity/hand_evaluator.h"
#include "equity/preflop_classes.h"
#include "equity/standard_equity.h"
#include "equity/standard_evaluator.h"
#include "range/weighted_holding_set.h"
#include "tests/support/card_text.h"
#include "tests/support/sanitizer.h"

namespace quillet {
namespace {

using testing::Board;
using testing::C;
using testing::Holding;

// Holdings a side in the preflop cases, where each pair meets 1,712,304 boards: one under the sanitizer.
constexpr int32_t kPreflopHoldings = quillet::testing::kUnderSanitizer ? 1 : 2;

Street StreetOf(const std::string& board) {
  return board.empty() ? kNoBoard : static_cast<Street>(board.size() / 2 - 2);
}

CardSet ComboSet(const HandCombo& combo) {
  return CardSetBit(combo.card1()) | CardSetBit(combo.card2());
}

// The tally the long way: every pair of listed holdings that share no card with each other or the board,
// every completion of the board from the other cards, both hands valued from scratch. Preflop, where a
// pair meets 1,712,304 boards, the hands are valued by the fast reader; on the flop, turn and river by the
// step-by-step reference evaluator.
ShowdownTally ReferenceTally(const std::vector<HandCombo>& mine, const std::vector<HandCombo>& theirs,
                             const std::string& boardText) {
  const int32_t known = BoardCardCount(StreetOf(boardText));
  const BoardCards board = Board(boardText);
  CardSet boardSet = 0;
  for (int32_t i = 0; i < known; ++i) boardSet |= CardSetBit(board[i]);
  const int32_t coming = 5 - known;
  ShowdownTally tally;
  for (const HandCombo& a : mine) {
    for (const HandCombo& b : theirs) {
      const CardSet sa = ComboSet(a);
      const CardSet sb = ComboSet(b);
      if ((sa & boardSet) != 0 || (sb & boardSet) != 0 || (sa & sb) != 0) continue;
      std::vector<CardSet> rest;
      for (int32_t i = 0; i < kDeckSize; ++i) {
        const CardSet bit = CardSetBit(DeckCard(i));
        if (((boardSet | sa | sb) & bit) == 0) rest.push_back(bit);
      }
      const int32_t n = static_cast<int32_t>(rest.size());
      std::vector<int32_t> pick(static_cast<std::size_t>(coming));
      for (int32_t i = 0; i < coming; ++i) pick[i] = i;
      while (true) {
        CardSet full = boardSet;
        for (int32_t i : pick) full |= rest[i];
        const HandValue va = known == 0 ? StandardHandValue(sa | full) : EvaluateCards(sa | full);
        const HandValue vb = known == 0 ? StandardHandValue(sb | full) : EvaluateCards(sb | full);
        tally.wins += va > vb;
        tally.ties += va == vb;
        tally.losses += va < vb;
        // Next combination of `coming` places out of n, in lexicographic order.
        int32_t i = coming - 1;
        while (i >= 0 && pick[i] == n - coming + i) --i;
        if (i < 0) break;
        ++pick[i];
        for (int32_t j = i + 1; j < coming; ++j) pick[j] = pick[j - 1] + 1;
      }
    }
  }
  return tally;
}

std::vector<HandCombo> Combos(std::initializer_list<const char*> texts) {
  std::vector<HandCombo> combos;
  for (const char* text : texts) combos.push_back(Holding(text));
  return combos;
}

std::vector<HandCombo> EveryHolding() {
  std::vector<HandCombo> combos;
  for (int32_t h = 0; h < kHoldingCount; ++h) {
    const auto cards = CardsOfHolding(h);
    combos.push_back(HandCombo{true, cards[0].rank, cards[0].suit, cards[1].rank, cards[1].suit});
  }
  return combos;
}

std::vector<HandCombo> RandomRange(std::mt19937_64& rng, int32_t count) {
  std::vector<HandCombo> all = EveryHolding();
  std::shuffle(all.begin(), all.end(), rng);
  all.resize(static_cast<std::size_t>(count));
  return all;
}

std::string RandomBoard(std::mt19937_64& rng, int32_t cards) {
  std::vector<int32_t> places(kDeckSize);
  for (int32_t i = 0; i < kDeckSize; ++i) places[i] = i;
  std::shuffle(places.begin(), places.end(), rng);
  std::string text;
  for (int32_t i = 0; i < cards; ++i) text += CardToText(DeckCard(places[i]));
  return text;
}

// The seed of the random choices: QUILLET_TEST_SEED when set, else a fixed one.
uint64_t TestSeed() {
  if (const char* text = std::getenv("QUILLET_TEST_SEED")) return std::strtoull(text, nullptr, 10);
  return 1717;
}

RangeEquityResult Equity(const std::vector<HandCombo>& mine, const std::vector<HandCombo>& theirs,
                         const std::string& board) {
  return StandardRangeEquity(mine, theirs, Board(board), StreetOf(board));
}

TEST(RangeEquity, SmallRangesOnBoardsThatMakeFlushesAndFullHousesCountWhatPlayingEveryPairCounts) {
  std::mt19937_64 rng(TestSeed() + 1);
  // Flush draws, made flushes of three, four and five board cards, paired and trips boards, straights.
  for (const std::string board :
       {"Tc8h3s", "Qs7s2s", "9h9d4h", "5c4c3d", "AsKsQs", "Tc8h3s2d", "Qs7s2s5s", "9h9d4h4s", "KdKhKs2c",
        "Tc8h3s2d7c", "Qs7s2s5s9s", "9h9d4h4s4d", "Ah5h3h2h9c", "6c7c8c9cTc"}) {
    SCOPED_TRACE(board);
    const std::vector<HandCombo> mine = RandomRange(rng, board.size() == 6 ? 18 : 40);
    const std::vector<HandCombo> theirs = RandomRange(rng, board.size() == 6 ? 18 : 40);
    const RangeEquityResult result = Equity(mine, theirs, board);
    ASSERT_TRUE(result.ok()) << result.error;
    EXPECT_EQ(result.tally, ReferenceTally(mine, theirs, board));
  }
}

TEST(RangeEquity, SuitedRangesOnEveryStreetCountWhatPlayingEveryPairCounts) {
  const uint64_t seed = TestSeed();
  std::cout << "ranges and boards from seed " << seed << " (set QUILLET_TEST_SEED to choose another)\n";
  std::mt19937_64 rng(seed);
  // Holdings mostly of two suits, on boards mostly of those suits, so flushes are common.
  std::vector<HandCombo> twoSuits;
  for (const HandCombo& combo : EveryHolding()) {
    if (combo.suit1 >= 2 && combo.suit2 >= 2) twoSuits.push_back(combo);
  }
  for (int32_t cards : {3, 3, 4, 4, 5, 5}) {
    std::shuffle(twoSuits.begin(), twoSuits.end(), rng);
    const std::vector<HandCombo> mine(twoSuits.begin(), twoSuits.begin() + 20);
    const std::vector<HandCombo> theirs(twoSuits.begin() + 20, twoSuits.begin() + 40);
    std::string board;
    while (board.empty()) {
      board = RandomBoard(rng, cards);
      int32_t red = 0;
      for (std::size_t i = 1; i < board.size(); i += 2) red += board[i] == 'h' || board[i] == 's';
      if (red < cards - 1) board.clear();
    }
    SCOPED_TRACE(board);
    EXPECT_EQ(Equity(mine, theirs, board).tally, ReferenceTally(mine, theirs, board));
  }
}

TEST(RangeEquity, SmallRangesPreflopCountWhatEveryBoardOfEveryPairGives) {
  // Three pairs, one of them sharing the ace of hearts: two meet, 1,712,304 boards each.
  const std::vector<HandCombo> mine = Combos({"AhKh"});
  const std::vector<HandCombo> theirs = Combos({"QsQd", "Ah2c", "7c7d"});
  const RangeEquityResult result = Equity(mine, theirs, "");
  ASSERT_TRUE(result.ok()) << result.error;
  EXPECT_EQ(result.matchups, 2u);
  EXPECT_EQ(result.tally.Showdowns(), 2u * kPreflopBoardCount);
  EXPECT_EQ(result.tally, ReferenceTally(mine, theirs, ""));
}

TEST(RangeEquity, PreflopARangeAgainstARangeIsTheSumOfEachOfItsHandsAgainstTheRange) {
  std::mt19937_64 rng(TestSeed() + 2);
  // Ranges apart (read pair by pair in order) and ranges that mostly overlap, with a holding listed
  // twice (each unordered pair read once).
  const std::vector<HandCombo> first = RandomRange(rng, 150);
  const std::vector<HandCombo> second = RandomRange(rng, 400);
  std::vector<HandCombo> overlapping(second.begin(), second.begin() + 350);
  overlapping.push_back(second[0]);
  overlapping.push_back(first[0]);
  for (const auto& [mine, theirs] : {std::pair(first, second), std::pair(second, overlapping)}) {
    ShowdownTally sum;
    for (const HandCombo& combo : mine) {
      HandCards hand;
      hand.rank1 = combo.rank1, hand.suit1 = combo.suit1, hand.rank2 = combo.rank2, hand.suit2 = combo.suit2;
      sum += StandardPreflopTally(hand, theirs);
    }
    EXPECT_EQ(Equity(mine, theirs, "").tally, sum);
  }
}

TEST(RangeEquity, OneHoldingAgainstARangeCountsWhatMyHandAgainstTheRangeCountsOnEveryStreet) {
  std::mt19937_64 rng(TestSeed() + 5);
  const std::vector<HandCombo> theirs = RandomRange(rng, 500);
  HandCards hand;
  hand.rank1 = 14, hand.suit1 = 3, hand.rank2 = 13, hand.suit2 = 3;  // AsKs
  for (const std::string board : {"", "Qs7s2d", "Qs7s2d5s", "Qs7s2d5s9h"}) {
    SCOPED_TRACE(board);
    const std::optional<ShowdownTally> handTally =
        StandardEquityTally(hand, Board(board), StreetOf(board), theirs);
    ASSERT_TRUE(handTally.has_value());
    EXPECT_EQ(Equity(Combos({"AsKs"}), theirs, board).tally, *handTally);
  }
}

TEST(RangeEquity, SwappingTheRangesTurnsEveryWinIntoALossOnEveryStreet) {
  std::mt19937_64 rng(TestSeed() + 3);
  for (const std::string board : {"", "Jd9d2c", "Jd9d2c2s", "Jd9d2c2s8d"}) {
    SCOPED_TRACE(board);
    const std::vector<HandCombo> mine = RandomRange(rng, 300);
    const std::vector<HandCombo> theirs = RandomRange(rng, 200);
    const RangeEquityResult forward = Equity(mine, theirs, board);
    const RangeEquityResult backward = Equity(theirs, mine, board);
    EXPECT_EQ(backward.tally, forward.tally.Reversed());
    EXPECT_EQ(backward.matchups, forward.matchups);
    EXPECT_NEAR(forward.MyEquity() + backward.MyEquity(), 100.0, 1e-9);
    EXPECT_GT(forward.tally.Showdowns(), 0u);
  }
}

TEST(RangeEquity, AcesAgainstAcesMeetOnlyWhereTheyShareNoAce) {
  // AhAd meets AcAs alone: the other two pairs of aces hold the ace of hearts or of diamonds.
  const RangeEquityResult one = Equity(Combos({"AhAd"}), Combos({"AhAs", "AcAs", "AdAc"}), "");
  EXPECT_EQ(one.matchups, 1u);
  EXPECT_EQ(one.tally.Showdowns(), kPreflopBoardCount);
  EXPECT_EQ(one.tally.wins, one.tally.losses);
  EXPECT_NEAR(one.MyEquity(), 50.0, 1e-12);

  // Each of the six pairs of aces meets exactly one other.
  std::vector<HandCombo> aces;
  for (const char* text : {"AcAd", "AcAh", "AcAs", "AdAh", "AdAs", "AhAs"}) aces.push_back(Holding(text));
  const RangeEquityResult all = Equity(aces, aces, "");
  EXPECT_EQ(all.matchups, 6u);
  EXPECT_EQ(all.tally.Showdowns(), 6u * kPreflopBoardCount);
  EXPECT_EQ(all.tally, Equity(aces, aces, "").tally.Reversed());

  // With an ace on the flop the three live pairs of aces each hold one of the same three aces.
  const RangeEquityResult flop = Equity(aces, aces, "As7c2d");
  EXPECT_EQ(flop.myHoldings, 3);
  EXPECT_EQ(flop.matchups, 0u);
  EXPECT_EQ(flop.tally.Showdowns(), 0u);
}

TEST(RangeEquity, HoldingsThatShareACardWithTheBoardAreLeftOut) {
  const std::vector<HandCombo> mine = Combos({"AhKh", "Tc9c", "8d8s"});
  const std::vector<HandCombo> theirs = Combos({"QdQc", "Th2h", "7h6h"});
  const RangeEquityResult result = Equity(mine, theirs, "Tc8h3s");
  EXPECT_EQ(result.myHoldings, 2);   // Tc9c holds the board's ten of clubs
  EXPECT_EQ(result.oppHoldings, 3);  // Th is not on the board
  EXPECT_EQ(result.matchups, 6u);
  EXPECT_EQ(result.tally.Showdowns(), 6u * 990);
  EXPECT_EQ(result.tally, ReferenceTally(mine, theirs, "Tc8h3s"));
}

TEST(RangeEquity, AHoldingListedTwiceCountsTwice) {
  const std::vector<HandCombo> once = Combos({"AhKh", "9c9d"});
  const std::vector<HandCombo> twice = Combos({"AhKh", "9c9d", "9c9d"});
  const std::vector<HandCombo> theirs = Combos({"QdQc", "JhTh"});
  for (const std::string board : {"", "Tc8h3s", "Tc8h3s2h"}) {
    const ShowdownTally single = Equity(once, theirs, board).tally;
    const ShowdownTally nines = Equity(Combos({"9c9d"}), theirs, board).tally;
    ShowdownTally expected = single;
    expected += nines;
    EXPECT_EQ(Equity(twice, theirs, board).tally, expected);
  }
}

TEST(RangeEquity, RandomAgainstRandomIsAnEvenMatchOnEveryStreet) {
  std::mt19937_64 rng(TestSeed() + 4);
  const std::vector<HandCombo> all = EveryHolding();
  for (int32_t cards : {0, 3, 4, 5}) {
    const std::string board = RandomBoard(rng, cards);
    SCOPED_TRACE(board);
    const RangeEquityResult result = Equity(all, all, board);
    const auto live = static_cast<uint64_t>((kDeckSize - cards) * (kDeckSize - cards - 1) / 2);
    const auto others = static_cast<uint64_t>((kDeckSize - cards - 2) * (kDeckSize - cards - 3) / 2);
    EXPECT_EQ(result.matchups, live * others);
    EXPECT_EQ(result.tally.wins, result.tally.losses);
    EXPECT_DOUBLE_EQ(result.MyEquity(), 50.0);
  }
}

TEST(RangeEquity, ABoardWithACardTwiceIsRefused) {
  const RangeEquityResult result = Equity(Combos({"AhKh"}), Combos({"QdQc"}), "Tc8hTc");
  EXPECT_FALSE(result.ok());
  EXPECT_EQ(result.error, "the board holds a card twice");
  EXPECT_EQ(result.tally.Showdowns(), 0u);
}

TEST(RangeEquity, TheProgressCallbackSeesTheWorkGrowAndCanStopIt) {
  const std::vector<HandCombo> all = EveryHolding();
  for (const std::string board : {"", "Tc8h3s", "Tc8h3s2d"}) {
    SCOPED_TRACE(board);
    std::vector<double> seen;
    const RangeEquityResult finished =
        StandardRangeEquity(all, all, Board(board), StreetOf(board), [&](double done) {
          seen.push_back(done);
          return true;
        });
    EXPECT_TRUE(finished.ok());
    ASSERT_FALSE(seen.empty());
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
    EXPECT_DOUBLE_EQ(seen.back(), 1.0);

    int32_t calls = 0;
    const RangeEquityResult stopped =
        StandardRangeEquity(all, all, Board(board), StreetOf(board), [&](double) { return ++calls < 3; });
    EXPECT_TRUE(stopped.cancelled);
    EXPECT_FALSE(stopped.ok());
    EXPECT_EQ(calls, 3);
    EXPECT_EQ(stopped.tally.Showdowns(), 0u);
  }
}

// Per holding of the opponent's range: my range against that holding alone (every copy of it listed),
// counted by the whole-range calculation; ranges that overlap, with holdings listed twice and holdings on
// the board, on boards of every flush shape.
TEST(RangeEquity, ByHoldingEachOpponentHoldingGetsWhatMyRangeAgainstItAloneCounts) {
  std::mt19937_64 rng(TestSeed() + 5);
  for (const std::string board :
       {"", "Tc8h3s", "Qs7s2s", "9h9d4h", "AsKsQs", "Tc8h3s2d", "Qs7s2s5s", "KdKhKs2c", "Tc8h3s2d7c",
        "Qs7s2s5s9s", "9h9d4h4s4d", "Ah5h3h2h9c", "6c7c8c9cTc"}) {
    SCOPED_TRACE(board);
    const int32_t count = board.empty() ? 12 : 60;
    std::vector<HandCombo> mine = RandomRange(rng, count);
    std::vector<HandCombo> theirs = RandomRange(rng, count);
    // Some holdings in both ranges, some listed twice.
    theirs.insert(theirs.end(), mine.begin(), mine.begin() + count / 4);
    theirs.insert(theirs.end(), theirs.begin(), theirs.begin() + count / 6);
    mine.insert(mine.end(), mine.begin() + count / 2, mine.begin() + count / 2 + count / 6);
    std::vector<ShowdownTally> against(kHoldingCount);
    const RangeEquityResult result =
        StandardRangeEquityByHolding(mine, theirs, Board(board), StreetOf(board), against);
    ASSERT_TRUE(result.ok()) << result.error;
    const RangeEquityResult whole = Equity(mine, theirs, board);
    EXPECT_EQ(result.tally, whole.tally);
    EXPECT_EQ(result.matchups, whole.matchups);
    ShowdownTally sum;
    for (int32_t h = 0; h < kHoldingCount; ++h) {
      std::vector<HandCombo> copies;
      for (const HandCombo& combo : theirs) {
        if (HoldingNumber(combo.card1(), combo.card2()) == h) copies.push_back(combo);
      }
      const ShowdownTally alone = copies.empty() ? ShowdownTally{} : Equity(mine, copies, board).tally;
      EXPECT_EQ(against[h], alone) << h;
      sum += against[h];
    }
    EXPECT_EQ(sum, whole.tally);
  }
}

TEST(RangeEquity, ByHoldingStoppedOrRefusedLeavesEveryHoldingEmpty) {
  const std::vector<HandCombo> all = EveryHolding();
  std::vector<ShowdownTally> against(kHoldingCount, ShowdownTally{1, 1, 1});
  int32_t calls = 0;
  const RangeEquityResult stopped = StandardRangeEquityByHolding(all, all, Board("Tc8h3s"), kFlop, against,
                                                                 [&](double) { return ++calls < 3; });
  EXPECT_TRUE(stopped.cancelled);
  EXPECT_EQ(stopped.tally.Showdowns(), 0u);
  EXPECT_TRUE(
      std::all_of(against.begin(), against.end(), [](const ShowdownTally& t) { return t.Showdowns() == 0; }));

  std::fill(against.begin(), against.end(), ShowdownTally{1, 1, 1});
  const RangeEquityResult refused =
      StandardRangeEquityByHolding(Combos({"AhKh"}), Combos({"QdQc"}), Board("Tc8hTc"), kFlop, against);
  EXPECT_EQ(refused.error, "the board holds a card twice");
  EXPECT_TRUE(
      std::all_of(against.begin(), against.end(), [](const ShowdownTally& t) { return t.Showdowns() == 0; }));
}

// Weighted ranges. The long way again: every pair of listed holdings, each pair's showdowns counted as
// ReferenceTally counts them and weighted by the product of the two holdings' weights (thousandths each), so
// the sums are in millionths of a showdown.
ShowdownTally WeightedReferenceTally(const std::vector<HandCombo>& mine, const std::vector<HandCombo>& theirs,
                                     const std::string& board) {
  ShowdownTally sum{0, 0, 0, 1'000'000};
  for (const HandCombo& a : mine) {
    for (const HandCombo& b : theirs) {
      const ShowdownTally pair = ReferenceTally({a}, {b}, board);
      const auto weight = static_cast<uint64_t>(a.weight) * static_cast<uint64_t>(b.weight);
      sum.wins += weight * pair.wins;
      sum.ties += weight * pair.ties;
      sum.losses += weight * pair.losses;
    }
  }
  return sum;
}

// A tally in millionths of a showdown, whatever its scale.
ShowdownTally InMillionths(const ShowdownTally& tally) {
  const uint64_t factor = 1'000'000 / tally.scale;
  return {tally.wins * factor, tally.ties * factor, tally.losses * factor, 1'000'000};
}

// Every holding of the list at a random weight from 0.001 to 1, a few of them whole.
std::vector<HandCombo> Weighed(std::vector<HandCombo> range, std::mt19937_64& rng) {
  std::uniform_int_distribution<int32_t> weight(1, kFullWeight);
  for (HandCombo& combo : range) combo.weight = rng() % 5 == 0 ? kFullWeight : weight(rng);
  return range;
}

std::vector<HandCombo> AtWeight(std::vector<HandCombo> range, int32_t weight) {
  for (HandCombo& combo : range) combo.weight = weight;
  return range;
}

TEST(WeightedRangeEquity, EachPairCountsTheProductOfItsWeightsOnEveryStreet) {
  std::mt19937_64 rng(TestSeed() + 11);
  for (const std::string board : {"", "Tc8h3s", "Qs7s2s", "9h9d4h", "AsKsQs", "Tc8h3s2d", "Qs7s2s5s",
                                  "KdKhKs2c", "Tc8h3s2d7c", "Qs7s2s5s9s", "Ah5h3h2h9c", "6c7c8c9cTc"}) {
    SCOPED_TRACE(board);
    // Preflop every pair meets 1,712,304 boards: a few holdings a side.
    const int32_t count = board.empty() ? kPreflopHoldings : board.size() == 6 ? 14 : 36;
    std::vector<HandCombo> mine = Weighed(RandomRange(rng, count), rng);
    const std::vector<HandCombo> theirs = Weighed(RandomRange(rng, count), rng);
    mine.push_back(theirs.front());  // a holding in both ranges, at another weight
    mine.back().weight = 333;
    const RangeEquityResult result = Equity(mine, theirs, board);
    ASSERT_TRUE(result.ok()) << result.error;
    EXPECT_EQ(result.tally.scale, 1'000'000u);
    const ShowdownTally expected = WeightedReferenceTally(mine, theirs, board);
    EXPECT_EQ(result.tally, expected);
    const double brute = 100.0 *
                         (static_cast<double>(expected.wins) + 0.5 * static_cast<double>(expected.ties)) /
                         static_cast<double>(expected.Showdowns());
    EXPECT_NEAR(result.MyEquity(), brute, 1e-9);
  }
}

TEST(WeightedRangeEquity, OneWeightedRangeCountsInThousandthsFromEitherSide) {
  std::mt19937_64 rng(TestSeed() + 12);
  for (const std::string board : {"", "Jd9d2c", "Jd9d2c2s", "Jd9d2c2s8d"}) {
    SCOPED_TRACE(board);
    const int32_t count = board.empty() ? kPreflopHoldings : 24;
    const std::vector<HandCombo> whole = RandomRange(rng, count);
    const std::vector<HandCombo> weighted = Weighed(RandomRange(rng, count), rng);
    const RangeEquityResult forward = Equity(whole, weighted, board);
    const RangeEquityResult backward = Equity(weighted, whole, board);
    EXPECT_EQ(forward.tally.scale, 1000u);
    EXPECT_EQ(backward.tally.scale, 1000u);
    EXPECT_EQ(InMillionths(forward.tally), WeightedReferenceTally(whole, weighted, board));
    EXPECT_EQ(backward.tally, forward.tally.Reversed());
    // The pairs are counted once each, whatever their weights.
    const RangeEquityResult unweighted = Equity(whole, AtWeight(weighted, kFullWeight), board);
    EXPECT_EQ(forward.matchups, unweighted.matchups);
    EXPECT_EQ(backward.matchups, unweighted.matchups);
  }
}

// Whole holdings are read one copy each until the first holding below whole; the copies read before it
// must count in thousandths like the rest, and as copies too.
TEST(WeightedRangeEquity, AWeightBelowWholeOnlyAtTheEndOfTheListWeighsTheWholeHoldingsBeforeIt) {
  std::mt19937_64 rng(TestSeed() + 16);
  for (const std::string board : {"Tc8h3s", "Tc8h3s2d", "Tc8h3s2d7c"}) {
    SCOPED_TRACE(board);
    std::vector<HandCombo> mine = AtWeight(RandomRange(rng, 20), kFullWeight);
    const std::vector<HandCombo> theirs = AtWeight(RandomRange(rng, 20), kFullWeight);
    mine.push_back(mine.front());  // listed twice: a whole copy first, one at 0.25 last
    mine.back().weight = 250;
    const RangeEquityResult result = Equity(mine, theirs, board);
    ASSERT_TRUE(result.ok()) << result.error;
    EXPECT_EQ(result.tally.scale, 1000u);
    EXPECT_EQ(InMillionths(result.tally), WeightedReferenceTally(mine, theirs, board));
    EXPECT_EQ(result.tally.Reversed(), Equity(theirs, mine, board).tally);
  }
}

TEST(WeightedRangeEquity, WholeWeightsCountWhatTheyCountedBeforeWeightsAtScaleOne) {
  std::mt19937_64 rng(TestSeed() + 13);
  for (const std::string board : {"", "Tc8h3s", "Tc8h3s2d", "Tc8h3s2d7c"}) {
    SCOPED_TRACE(board);
    const int32_t count = board.empty() ? kPreflopHoldings : 20;
    const std::vector<HandCombo> mine = AtWeight(RandomRange(rng, count), kFullWeight);
    const std::vector<HandCombo> theirs = AtWeight(RandomRange(rng, count), kFullWeight);
    const RangeEquityResult result = Equity(mine, theirs, board);
    EXPECT_EQ(result.tally.scale, 1u);
    EXPECT_EQ(result.tally, ReferenceTally(mine, theirs, board));
    EXPECT_EQ(result.myWeightSum, int64_t{kFullWeight} * result.myHoldings);
  }
}

TEST(WeightedRangeEquity, EveryWeightHalvedLeavesTheEquityAndCountsAQuarterOfEachShowdown) {
  std::mt19937_64 rng(TestSeed() + 14);
  for (const std::string board : {"", "Qs7s2s", "Qs7s2s5s", "Qs7s2s5s9h"}) {
    SCOPED_TRACE(board);
    const std::vector<HandCombo> mine = RandomRange(rng, board.empty() ? 200 : 500);
    const std::vector<HandCombo> theirs = RandomRange(rng, board.empty() ? 200 : 500);
    const RangeEquityResult whole = Equity(mine, theirs, board);
    const RangeEquityResult halved = Equity(AtWeight(mine, 500), AtWeight(theirs, 500), board);
    EXPECT_EQ(halved.tally.scale, 1'000'000u);
    EXPECT_EQ(halved.tally.wins, whole.tally.wins * 250'000);
    EXPECT_EQ(halved.tally.ties, whole.tally.ties * 250'000);
    EXPECT_EQ(halved.tally.losses, whole.tally.losses * 250'000);
    EXPECT_EQ(halved.MyEquity(), whole.MyEquity());
    EXPECT_EQ(halved.matchups, whole.matchups);
    EXPECT_EQ(halved.myHoldings, whole.myHoldings);
    EXPECT_EQ(halved.myWeightSum, 500 * int64_t{whole.myHoldings});
  }
}

TEST(WeightedRangeEquity, AcesAgainstKingsAtAHalfQueensAndJackTenAtAQuarterOnTenEightThree) {
  std::vector<HandCombo> theirs = Combos({"KsKc", "QsQc", "JhTh"});
  theirs[0].weight = 500;
  theirs[2].weight = 250;
  const RangeEquityResult result = Equity(Combos({"AhAd"}), theirs, "Tc8h3s");
  ASSERT_TRUE(result.ok());
  EXPECT_NEAR(result.MyEquity(), 88.311688, 1e-6);
  EXPECT_EQ(result.tally.scale, 1000u);
  EXPECT_EQ(result.tally.Showdowns(), 1750u * 990);  // 1.75 pairs, 990 boards each
  EXPECT_EQ(result.oppWeightSum, 1750);
}

TEST(WeightedRangeEquity, WeightedSetsCountWhatTheirListsCount) {
  std::mt19937_64 rng(TestSeed() + 15);
  WeightedHoldingSet mine;
  WeightedHoldingSet theirs;
  for (const HandCombo& combo : Weighed(RandomRange(rng, 300), rng))
    mine.SetWeight(combo.card1(), combo.card2(), combo.weight);
  for (const HandCombo& combo : Weighed(RandomRange(rng, 300), rng))
    theirs.SetWeight(combo.card1(), combo.card2(), combo.weight);
  for (const std::string board : {"", "Tc8h3s", "Tc8h3s2d"}) {
    SCOPED_TRACE(board);
    const RangeEquityResult fromSets = StandardRangeEquity(mine, theirs, Board(board), StreetOf(board));
    const RangeEquityResult fromLists = Equity(WeightedCombos(mine), WeightedCombos(theirs), board);
    EXPECT_EQ(fromSets.tally, fromLists.tally);
    EXPECT_EQ(fromSets.tally.scale, 1'000'000u);
    EXPECT_EQ(fromSets.myWeightSum, fromLists.myWeightSum);
    if (board.empty()) {
      EXPECT_EQ(fromSets.myWeightSum, mine.WeightSum());
    }
  }
  EXPECT_EQ(WeightedCombos(mine).size(), 300u);
}

// Per holding of the opponent's range on weighted ranges: each holding's tally is my range against it
// alone, weighted, and the holdings' tallies add up to the whole.
TEST(WeightedRangeEquity, ByHoldingEachOpponentHoldingGetsItsWeightedShowdowns) {
  std::mt19937_64 rng(TestSeed() + 16);
  for (const std::string board :
       {"", "Tc8h3s", "Qs7s2s", "AsKsQs", "Tc8h3s2d", "Qs7s2s5s", "Tc8h3s2d7c", "6c7c8c9cTc"}) {
    SCOPED_TRACE(board);
    const int32_t count = board.empty() ? kPreflopHoldings : board.size() == 6 ? 12 : 30;
    std::vector<HandCombo> mine = Weighed(RandomRange(rng, count), rng);
    std::vector<HandCombo> theirs = Weighed(RandomRange(rng, count), rng);
    theirs.push_back(mine.front());
    theirs.back().weight = 700;
    std::vector<ShowdownTally> against(kHoldingCount);
    const RangeEquityResult result =
        StandardRangeEquityByHolding(mine, theirs, Board(board), StreetOf(board), against);
    ASSERT_TRUE(result.ok()) << result.error;
    EXPECT_EQ(result.tally, WeightedReferenceTally(mine, theirs, board));
    ShowdownTally sum{0, 0, 0, result.tally.scale};
    for (const HandCombo& combo : theirs) {
      const ShowdownTally& mineAgainst = against[HoldingNumber(combo.card1(), combo.card2())];
      EXPECT_EQ(mineAgainst, WeightedReferenceTally(mine, {combo}, board)) << ComboToText(combo);
      sum += mineAgainst;
    }
    EXPECT_EQ(sum, result.tally);
  }
}

}  // namespace
}  // namespace quillet
