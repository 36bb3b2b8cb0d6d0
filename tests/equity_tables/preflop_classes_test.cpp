// The built-in matchup class table: exact tallies known from elsewhere, every ordered matchup mapped to a
// class, and randomly chosen classes recomputed board by board with the standard evaluator.
#include "equity/preflop_classes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "cards/hand_class.h"
#include "tests/equity_tables/reference_equity.h"
#include "tests/support/card_text.h"
#include "tests/support/sanitizer.h"

namespace quillet {
namespace {

using testing::C;

const PreflopClassTable& Classes() {
  const PreflopClassTableOrError& loaded = ProgramPreflopClassTable();
  if (!loaded.ok()) {
    ADD_FAILURE() << loaded.error;
    std::abort();
  }
  return *loaded.table;
}

double Equity(const char* h1, const char* h2, const char* o1, const char* o2) {
  return Classes().Matchup(C(h1), C(h2), C(o1), C(o2)).EquityPercent();
}

HandCombo Holding(Card a, Card b, bool flag = true) {
  return {flag, a.rank, a.suit, b.rank, b.suit};
}

// Every one of the 1,326 holdings, by starting-hand class.
std::vector<HandCombo> AllHoldings() {
  std::vector<HandCombo> all;
  for (const HandClass& c : HandClasses()) {
    for (const HandCombo& h : ExpandClassName(c.name)) all.push_back(h);
  }
  return all;
}

TEST(ProgramPreflopClassTable, IsTheBuiltInTableThatTheFullCheckFindsWhole) {
  // At start the checksum and the costly checks are left out; the full check runs here.
  const PreflopClassTableOrError checked = LoadPreflopClassTable();
  ASSERT_TRUE(checked.ok()) << checked.error;
  const PreflopClassTableOrError& program = ProgramPreflopClassTable();
  ASSERT_TRUE(program.ok()) << program.error;
  EXPECT_TRUE(std::ranges::equal(program.table->Records(), checked.table->Records()));
  for (int32_t a = 0; a < kHoldingCount; a += 7) {
    for (int32_t b = 0; b < kHoldingCount; b += 5) {
      ASSERT_EQ(program.table->Matchup(a, b), checked.table->Matchup(a, b)) << a << " v " << b;
    }
  }
}

TEST(HoldingNumber, NumbersTheHoldingsZeroToThirteenTwentyFiveEitherWayRound) {
  std::vector<bool> seen(kHoldingCount, false);
  for (int32_t x = 0; x < 52; ++x) {
    for (int32_t y = 0; y < x; ++y) {
      const int32_t h = HoldingNumber(DeckCard(x), DeckCard(y));
      ASSERT_GE(h, 0);
      ASSERT_LT(h, kHoldingCount);
      EXPECT_FALSE(seen[h]);
      seen[h] = true;
      EXPECT_EQ(HoldingNumber(DeckCard(y), DeckCard(x)), h);
      EXPECT_EQ(CardsOfHolding(h), (std::array<Card, 2>{DeckCard(x), DeckCard(y)}));
    }
  }
}

TEST(PreflopClasses, AcesAgainstKingsOfTheTwoOtherSuitsWinEightyOnePointTwoFiveFiveFourNineZero) {
  EXPECT_NEAR(Equity("Ah", "Ad", "Ks", "Kc"), 81.255490, 1e-6);
  EXPECT_NEAR(Equity("Ks", "Kc", "Ah", "Ad"), 100 - 81.255490, 1e-6);
}

TEST(PreflopClasses, AcesAgainstKingsOfTheSameTwoSuitsWinEightyTwoPointSixThreeSixSixOneOne) {
  EXPECT_NEAR(Equity("Ah", "Ad", "Kh", "Kd"), 82.636611, 1e-6);
}

TEST(PreflopClasses, AcesAgainstKingsSharingOneSuitWinEightyOnePointNineFourSixZeroFiveZero) {
  EXPECT_NEAR(Equity("Ah", "Ad", "Kh", "Kc"), 81.946050, 1e-6);
  EXPECT_NEAR(Equity("Ad", "Ah", "Kd", "Kc"), 81.946050, 1e-6);
}

TEST(PreflopClasses, TwoPairsOfAcesAreAnEvenMatchThatMostlyTies) {
  const ShowdownTally t = Classes().Matchup(C("As"), C("Ah"), C("Ad"), C("Ac"));
  EXPECT_NEAR(t.EquityPercent(), 50.000000, 1e-6);
  EXPECT_EQ(t.wins, t.losses);
  EXPECT_GT(t.ties, t.wins);
}

TEST(PreflopClasses, DeucesAgainstTreysOfTheOtherSuitsWinTwentyPointTwoFourSevenThreeNineEight) {
  EXPECT_NEAR(Equity("2s", "2h", "3c", "3d"), 20.247398, 1e-6);
}

TEST(PreflopClasses, AcesAgainstEveryLiveHoldingWinEightyFivePointTwoZeroThreeSevenOneThree) {
  const std::vector<HandCombo> all = AllHoldings();
  ASSERT_EQ(all.size(), 1326u);
  const ShowdownTally t = Classes().TallyAgainst(C("Ah"), C("Ad"), all);
  EXPECT_NEAR(t.EquityPercent(), 85.203713, 1e-6);
  EXPECT_EQ(t.Showdowns(),
            uint64_t{1225} * kPreflopBoardCount);  // the 101 holdings with an ace of ours are dead
}

TEST(PreflopClasses, HoldsOneRecordForEachOfTheFortySevenThousandAndEightClasses) {
  const std::vector<uint32_t> codes = AllMatchupClassCodes();
  EXPECT_EQ(codes.size(), 47008u);
  ASSERT_EQ(Classes().Records().size(), 47008u);
  for (std::size_t i = 0; i < codes.size(); ++i) ASSERT_EQ(Classes().Records()[i].code, codes[i]) << i;
}

TEST(PreflopClasses, MapsEveryOneOfTheOrderedMatchupsToItsClassAndEachClassIsUsed) {
  const PreflopClassTable& t = Classes();
  std::vector<int64_t> uses(t.Records().size(), 0);
  int64_t matchups = 0;
  for (int32_t a = 0; a < kHoldingCount; ++a) {
    for (int32_t b = 0; b < kHoldingCount; ++b) {
      const PreflopClassTable::ClassRef ref = t.ClassOf(a, b);
      if (a == b || HoldingsOverlap(a, b)) {
        ASSERT_EQ(ref.index, -1) << a << " " << b;
        ASSERT_EQ(t.Matchup(a, b), ShowdownTally{});
        continue;
      }
      ++matchups;
      ASSERT_GE(ref.index, 0) << a << " " << b;
      const MatchupClassRecord& r = t.Records()[ref.index];
      const MatchupClassCode code = ClassCodeOf(a, b);
      ASSERT_EQ(r.code, code.code);
      ++uses[ref.index];
      const ShowdownTally own{r.wins, r.ties, r.losses};
      ASSERT_EQ(t.Matchup(a, b), ref.reversed ? own.Reversed() : own);
      ASSERT_EQ(t.Matchup(b, a), t.Matchup(a, b).Reversed());
      ASSERT_EQ(t.Matchup(a, b).Showdowns(), kPreflopBoardCount);
    }
  }
  EXPECT_EQ(matchups, int64_t{1326} * 1225);
  for (std::size_t i = 0; i < uses.size(); ++i) EXPECT_GT(uses[i], 0) << "class " << i;
}

TEST(PreflopClasses, RenamingTheSuitsOfAMatchupLeavesItsTallyAlone) {
  const PreflopClassTable& t = Classes();
  // Clubs to hearts, hearts to spades, spades to clubs.
  const auto rename = [](Card c) {
    return Card{c.rank, c.suit == 0 ? 2 : c.suit == 2 ? 3 : c.suit == 3 ? 0 : 1};
  };
  for (const auto& [h1, h2, o1, o2] : {std::array{"Ah", "Kh", "Qh", "Jh"}, std::array{"7c", "6c", "7s", "6d"},
                                       std::array{"As", "2c", "5h", "4h"}}) {
    EXPECT_EQ(t.Matchup(C(h1), C(h2), C(o1), C(o2)),
              t.Matchup(rename(C(h1)), rename(C(h2)), rename(C(o1)), rename(C(o2))));
  }
}

// The seed of the random choice: QUILLET_TEST_SEED when set, else a fixed one.
uint64_t TestSeed() {
  if (const char* text = std::getenv("QUILLET_TEST_SEED")) return std::strtoull(text, nullptr, 10);
  return 20261123;
}

TEST(PreflopClasses, RandomlyChosenClassesHoldTheTallyAFullEnumerationOfEveryBoardGives) {
  const PreflopClassTable& t = Classes();
  const uint64_t seed = TestSeed();
  std::cout << "random classes from seed " << seed << " (set QUILLET_TEST_SEED to choose another)\n";
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937_64 rng(seed);
  // Ten classes, three under the sanitizer.
  for (int pick = 0; pick < quillet::testing::SweepRounds(10, 4); ++pick) {
    const std::size_t index = rng() % t.Records().size();
    const MatchupClassRecord& r = t.Records()[index];
    // A matchup of the class as a caller may meet it: suits renamed at random, holdings either way round.
    std::array<int32_t, 4> suits = {0, 1, 2, 3};
    std::shuffle(suits.begin(), suits.end(), rng);
    auto holdings = ClassCodeHoldings(r.code);
    const bool reversed = rng() % 2 == 1;
    if (reversed) std::swap(holdings[0], holdings[1]);
    std::array<Card, 4> cards;
    for (int h = 0; h < 2; ++h) {
      for (int c = 0; c < 2; ++c) {
        const Card card = CardsOfHolding(holdings[h])[c];
        cards[2 * h + c] = {card.rank, suits[card.suit]};
      }
    }
    const ShowdownTally enumerated = testing::ReferenceTally(cards[0], cards[1], cards[2], cards[3]);
    EXPECT_EQ(t.Matchup(cards[0], cards[1], cards[2], cards[3]), enumerated)
        << "class " << index << ": " << CardToText(cards[0]) << CardToText(cards[1]) << " v "
        << CardToText(cards[2]) << CardToText(cards[3]);
    const ShowdownTally own{r.wins, r.ties, r.losses};
    EXPECT_EQ(reversed ? own.Reversed() : own, enumerated) << "class " << index;
  }
}

TEST(PreflopClasses, AHandAgainstARangeSumsTheLiveHoldingsOnly) {
  const PreflopClassTable& t = Classes();
  const std::vector<HandCombo> range = {
      Holding(C("Ks"), C("Kc")), Holding(C("7h"), C("6h")), Holding(C("Qd"), C("Qc"), false),  // flagged off
      Holding(C("Ah"), C("Kd")),  // shares the ace of hearts
      Holding(C("Ks"), C("Ks")),  // not two different cards
      Holding(Card{}, C("2c")),   // no card
  };
  ShowdownTally expected = t.Matchup(C("Ah"), C("Ad"), C("Ks"), C("Kc"));
  expected += t.Matchup(C("Ah"), C("Ad"), C("7h"), C("6h"));
  EXPECT_EQ(t.TallyAgainst(C("Ah"), C("Ad"), range), expected);
  EXPECT_EQ(t.TallyAgainst(C("Ad"), C("Ah"), range), expected);
  EXPECT_EQ(StandardPreflopTally(HandCards{-1, 14, 2, 14, 1}, range), expected);
  EXPECT_EQ(expected.Showdowns(), 2u * kPreflopBoardCount);
}

TEST(PreflopClasses, AHandThatIsNotTwoDifferentCardsMeetsNoOne) {
  const std::vector<HandCombo> range = {Holding(C("Ks"), C("Kc"))};
  EXPECT_EQ(Classes().TallyAgainst(C("Ah"), C("Ah"), range), ShowdownTally{});
  EXPECT_EQ(Classes().TallyAgainst(Card{}, Card{}, range), ShowdownTally{});
  EXPECT_EQ(Classes().Matchup(C("Ah"), C("Ad"), C("Ad"), C("Kc")), ShowdownTally{});
}

}  // namespace
}  // namespace quillet
