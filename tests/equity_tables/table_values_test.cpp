// The values of the built-in preflop table against equities known from elsewhere and against a plain
// enumeration with the standard evaluator.
#include <gtest/gtest.h>

#include <array>
#include <map>
#include <random>
#include <string>

#include "equity/lookup_tables.h"
#include "equity/matchup_key.h"
#include "tests/equity_tables/reference_equity.h"
#include "tests/support/card_text.h"
#include "tests/support/sanitizer.h"
#include "tests/support/test_seed.h"

namespace quillet {
namespace {

using testing::C;

const LookupTables& Table() {
  const TablesOrError& loaded = ProgramTables();
  EXPECT_TRUE(loaded.ok()) << loaded.error;
  static const LookupTables empty;
  return loaded.ok() ? *loaded.tables : empty;
}

double Stored(const char* p1, const char* p2, const char* q1, const char* q2) {
  const KeySearch s = FindKey(Table(), BuildMatchupKey(C(p1), C(p2), C(q1), C(q2)));
  EXPECT_TRUE(s.found) << p1 << p2 << " v " << q1 << q2;
  return s.found ? Table().values[s.index] : -1.0;
}

TEST(PreflopTable, AcesAgainstKingsOfFourDifferentSuitsWinEightyOnePointTwoFiveFive) {
  EXPECT_NEAR(Stored("Ah", "Ad", "Ks", "Kc"), 81.255, 0.01);
  EXPECT_NEAR(Stored("Ad", "Ah", "Kc", "Ks"), 81.255, 0.01);
  EXPECT_NEAR(Stored("Ks", "Kc", "Ah", "Ad"), 100 - 81.255, 0.01);
}

TEST(PreflopTable, SuitedAceKingAgainstQueensOfOtherSuitsWinsFortySixPointTwoOneFour) {
  EXPECT_NEAR(Stored("As", "Ks", "Qd", "Qc"), 46.214, 0.01);
  EXPECT_NEAR(Stored("Qd", "Qc", "As", "Ks"), 100 - 46.214, 0.01);
}

TEST(PreflopTable, SuitedSevenSixAgainstOffsuitAceKingWinsFortyTwoPointTwoFiveFour) {
  EXPECT_NEAR(Stored("7h", "6h", "Ac", "Kd"), 42.254, 0.01);
}

TEST(PreflopTable, AKeySharedByMatchupsOfDifferentEquityStoresTheMeanOverEveryOrderedMatchup) {
  // AhAd v KhKd (82.637, 24 ordered matchups build this key) and AhAd v KdKc (81.946, 48 of them).
  const int32_t key = BuildMatchupKey(C("Ah"), C("Ad"), C("Kh"), C("Kd"));
  EXPECT_EQ(key, BuildMatchupKey(C("Ah"), C("Ad"), C("Kd"), C("Kc")));
  EXPECT_NEAR((24 * 82.637 + 48 * 81.946) / 72, 82.176, 0.001);
  EXPECT_NEAR(Stored("Ah", "Ad", "Kh", "Kd"), 82.176, 0.01);
}

TEST(PreflopTable, TwoPairsOfAcesSplitEvenly) {
  // Renaming hearts to clubs and diamonds to spades turns either hand into the other.
  EXPECT_NEAR(Stored("Ah", "Ad", "Ac", "As"), 50.0, 1e-6);
}

// Every ordered tuple of four different cards with the key's ranks that builds the key.
std::vector<std::array<Card, 4>> TuplesOfKey(int32_t key) {
  std::vector<std::array<Card, 4>> tuples;
  const std::array<int32_t, 4> ranks = {KeyRankP1(key), KeyRankP2(key), KeyRankQ1(key), KeyRankQ2(key)};
  for (int suits = 0; suits < 256; ++suits) {
    std::array<Card, 4> t;
    for (int i = 0; i < 4; ++i) t[i] = {ranks[i], (suits >> (2 * i)) & 3};
    bool distinct = true;
    for (int i = 0; i < 4; ++i)
      for (int j = i + 1; j < 4; ++j) distinct = distinct && !(t[i] == t[j]);
    if (distinct && BuildMatchupKey(t[0], t[1], t[2], t[3]) == key) tuples.push_back(t);
  }
  return tuples;
}

// The suits renamed in order of first appearance: a matchup with the same equity, so one enumeration serves
// every tuple that reads the same after renaming.
std::string RenamedSuits(const std::array<Card, 4>& t) {
  std::array<int, 4> name = {-1, -1, -1, -1};
  int next = 0;
  std::string s;
  for (const Card& c : t) {
    if (name[c.suit] < 0) name[c.suit] = next++;
    s += std::to_string(c.rank) + ":" + std::to_string(name[c.suit]) + " ";
  }
  return s;
}

TEST(PreflopTable, RandomlyChosenKeysHoldTheMeanEquityOfTheirMatchupsByFullEnumeration) {
  const LookupTables& t = Table();
  ASSERT_GT(t.size(), 0);
  const uint64_t seed = quillet::testing::TestSeed(20261123);
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937_64 rng(seed);
  std::map<std::string, double> enumerated;
  // Ten keys, three under the sanitizer.
  for (int pick = 0; pick < quillet::testing::SweepRounds(10, 4); ++pick) {
    const int32_t index = static_cast<int32_t>(rng() % static_cast<uint64_t>(t.size()));
    const int32_t key = t.keys[index];
    const auto tuples = TuplesOfKey(key);
    ASSERT_FALSE(tuples.empty()) << "key " << key;
    double sum = 0.0;
    for (const auto& tuple : tuples) {
      const std::string name = RenamedSuits(tuple);
      auto it = enumerated.find(name);
      if (it == enumerated.end()) {
        it = enumerated.emplace(name, testing::ReferenceEquity(tuple[0], tuple[1], tuple[2], tuple[3])).first;
      }
      sum += it->second;
    }
    const double mean = sum / static_cast<double>(tuples.size());
    EXPECT_NEAR(t.values[index], mean, 1e-4) << "key " << key << " at " << index << ", " << tuples.size()
                                             << " ordered matchups, first " << RenamedSuits(tuples[0]);
  }
}

}  // namespace
}  // namespace quillet
