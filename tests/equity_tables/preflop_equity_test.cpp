#include "equity/preflop_equity.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "cards/hand_class.h"
#include "equity/matchup_key.h"
#include "tests/support/card_text.h"

namespace quillet {
namespace {

using testing::C;
using testing::ClassHoldingsBeside;

HandCards Hand(const char* c1, const char* c2) {
  const Card a = C(c1), b = C(c2);
  return {-1, a.rank, a.suit, b.rank, b.suit};
}

HandCombo Combo(const char* c1, const char* c2, bool flag = true) {
  const Card a = C(c1), b = C(c2);
  return {flag, a.rank, a.suit, b.rank, b.suit};
}

int32_t Key(const HandCards& h, const HandCombo& c) {
  return BuildMatchupKey(h.card1(), h.card2(), c.card1(), c.card2());
}
int32_t SwappedKey(const HandCards& h, const HandCombo& c) {
  return BuildMatchupKey(c.card1(), c.card2(), h.card1(), h.card2());
}

// A hand-made table of (key, value) pairs, sorted here.
LookupTables Table(std::vector<std::pair<int32_t, float>> entries) {
  std::sort(entries.begin(), entries.end());
  std::vector<int32_t> keys;
  std::vector<float> values;
  for (auto [k, v] : entries) keys.push_back(k), values.push_back(v);
  return {std::move(keys), std::move(values)};
}

struct Messages {
  std::vector<std::string> seen;
  MessageSink sink() {
    return [this](std::string_view m) { seen.emplace_back(m); };
  }
};

TEST(PreflopEquity, TakesTheValueOfTheMatchupKeyWhenItIsStored) {
  const HandCards me = Hand("Ah", "Ad");
  const std::vector<HandCombo> range = {Combo("Ks", "Kc")};
  Messages m;
  const EquityResult r = PreflopEquity(Table({{Key(me, range[0]), 81.25f}}), me, range, 1, m.sink());
  EXPECT_DOUBLE_EQ(r.my, 81.25);
  EXPECT_DOUBLE_EQ(r.opp, 100 - 81.25);
  EXPECT_TRUE(m.seen.empty());
}

TEST(PreflopEquity, FallsBackToTheSwappedKeyAndTakesOneHundredMinusItsValue) {
  const HandCards me = Hand("Ah", "Ad");
  const std::vector<HandCombo> range = {Combo("Ks", "Kc")};
  Messages m;
  const EquityResult r = PreflopEquity(Table({{SwappedKey(me, range[0]), 18.75f}}), me, range, 1, m.sink());
  EXPECT_DOUBLE_EQ(r.my, 81.25);
  EXPECT_DOUBLE_EQ(r.opp, 18.75);
  EXPECT_TRUE(m.seen.empty());
}

TEST(PreflopEquity, PrefersTheDirectKeyWhenBothAreStored) {
  const HandCards me = Hand("Ah", "Ad");
  const std::vector<HandCombo> range = {Combo("Ks", "Kc")};
  const EquityResult r = PreflopEquity(Table({{Key(me, range[0]), 80.0f}, {SwappedKey(me, range[0]), 10.0f}}),
                                       me, range, 1, nullptr);
  EXPECT_DOUBLE_EQ(r.my, 80.0);
}

TEST(PreflopEquity, ReportsGsZeroOnceForEachHoldingFoundInNeitherOrderAndLeavesItOut) {
  const HandCards me = Hand("Ah", "Ad");
  const std::vector<HandCombo> range = {Combo("Ks", "Kc"), Combo("Qs", "Qc"), Combo("Js", "Jc"),
                                        Combo("Ts", "Tc")};
  // Only KK and TT are in the table.
  const LookupTables t = Table({{Key(me, range[0]), 80.0f}, {SwappedKey(me, range[3]), 30.0f}});
  Messages m;
  const EquityResult r = PreflopEquity(t, me, range, 4, m.sink());
  ASSERT_EQ(m.seen.size(), 2u);
  EXPECT_EQ(m.seen[0], "Error calculating equity GS0");
  EXPECT_EQ(m.seen[1], "Error calculating equity GS0");
  EXPECT_DOUBLE_EQ(r.my, (80.0 + 70.0) / 2);
  EXPECT_DOUBLE_EQ(r.opp, 100 - 75.0);
}

TEST(PreflopEquity, GivesMinusOneForBothWhenNoHoldingIsFound) {
  const HandCards me = Hand("Ah", "Ad");
  const std::vector<HandCombo> range = {Combo("Ks", "Kc"), Combo("Qs", "Qc")};
  Messages m;
  const EquityResult r = PreflopEquity(LookupTables{}, me, range, 2, m.sink());
  EXPECT_EQ(r.my, -1.0);
  EXPECT_EQ(r.opp, -1.0);
  EXPECT_EQ(m.seen.size(), 2u);
}

TEST(PreflopEquity, GivesMinusOneForBothWithoutAnyFlaggedHolding) {
  const HandCards me = Hand("Ah", "Ad");
  const std::vector<HandCombo> range = {Combo("Ks", "Kc", false)};
  Messages m;
  const EquityResult r = PreflopEquity(Table({{Key(me, range[0]), 80.0f}}), me, range, 1, m.sink());
  EXPECT_EQ(r.my, -1.0);
  EXPECT_EQ(r.opp, -1.0);
  EXPECT_TRUE(m.seen.empty());
  EXPECT_EQ(PreflopEquity(Table({}), me, {}, 0, m.sink()).my, -1.0);
}

TEST(PreflopEquity, SkipsUnflaggedHoldingsAndLooksOnlyAtTheFirstCountOfTheList) {
  const HandCards me = Hand("Ah", "Ad");
  const std::vector<HandCombo> range = {Combo("Ks", "Kc"), Combo("Qs", "Qc", false), Combo("Js", "Jc"),
                                        Combo("Ts", "Tc")};
  const LookupTables t = Table({{Key(me, range[0]), 80.0f},
                                {Key(me, range[1]), 1.0f},
                                {Key(me, range[2]), 60.0f},
                                {Key(me, range[3]), 2.0f}});
  Messages m;
  const EquityResult r = PreflopEquity(t, me, range, 3, m.sink());
  EXPECT_DOUBLE_EQ(r.my, 70.0);
  EXPECT_TRUE(m.seen.empty());
}

TEST(PreflopEquity, IsThePlainUnroundedMeanEveryHoldingWeighingTheSame) {
  const HandCards me = Hand("Ah", "Ad");
  const std::vector<HandCombo> range = {Combo("Ks", "Kc"), Combo("Qs", "Qc"), Combo("Js", "Jc")};
  const LookupTables t =
      Table({{Key(me, range[0]), 10.0f}, {Key(me, range[1]), 20.0f}, {Key(me, range[2]), 25.0f}});
  const EquityResult r = PreflopEquity(t, me, range, 3, nullptr);
  EXPECT_DOUBLE_EQ(r.my, 55.0 / 3);  // 18.333..., not 18.33
  EXPECT_DOUBLE_EQ(r.opp, 100.0 - 55.0 / 3);
}

TEST(PreflopEquity, ReportsTablesThatFailedToLoadOnceAndGivesMinusOneForBoth) {
  const HandCards me = Hand("Ah", "Ad");
  const std::vector<HandCombo> range = {Combo("Ks", "Kc"), Combo("Qs", "Qc")};
  const TablesOrError failed{std::nullopt,
                             "The preflop table is damaged: its checksum does not match its contents"};
  Messages m;
  const EquityResult r = PreflopEquity(failed, me, range, 2, m.sink());
  EXPECT_EQ(r.my, -1.0);
  EXPECT_EQ(r.opp, -1.0);
  ASSERT_EQ(m.seen.size(), 1u);
  EXPECT_EQ(m.seen[0], failed.error);
}

TEST(PreflopEquity, OfAcesAgainstEveryOtherHoldingIsTheirKnownEquityAgainstARandomHand) {
  const HandCards me = Hand("Ah", "Ad");
  const std::vector<HandCombo> range = ClassHoldingsBeside(me);
  ASSERT_EQ(range.size(), 1326u);
  Messages m;
  const EquityResult r = PreflopEquity(me, range, static_cast<int>(range.size()), m.sink());
  EXPECT_TRUE(m.seen.empty()) << m.seen.front();
  // Aces win 85.20% against a random hand; the few shared keys move the mean by far less than 0.05.
  EXPECT_NEAR(r.my, 85.20, 0.05);
  EXPECT_DOUBLE_EQ(r.my + r.opp, 100.0);
}

TEST(PreflopEquity, OverTheFullRangeIsTheMeanOfTheStoredValuesOfAllFlaggedHoldings) {
  const HandCards me = Hand("7h", "2c");
  const std::vector<HandCombo> range = ClassHoldingsBeside(me);
  const LookupTables& t = *ProgramTables().tables;
  double sum = 0.0;
  int found = 0;
  for (const HandCombo& c : range) {
    if (!c.flag) continue;
    const KeySearch s = FindKey(t, Key(me, c));
    ASSERT_TRUE(s.found);
    sum += t.values[s.index];
    ++found;
  }
  EXPECT_EQ(found, 1225);
  const EquityResult r = PreflopEquity(me, range, static_cast<int>(range.size()), nullptr);
  EXPECT_DOUBLE_EQ(r.my, sum / found);
}

}  // namespace
}  // namespace quillet
