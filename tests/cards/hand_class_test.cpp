#include "cards/hand_class.h"

#include <gtest/gtest.h>

#include <set>

namespace quillet {
namespace {

TEST(HandClasses, NumbersFollowTheGrid) {
  const auto& c = HandClasses();
  EXPECT_EQ(c[0].name, "AA");
  EXPECT_EQ(c[1].name, "AKs");
  EXPECT_EQ(c[12].name, "A2s");
  EXPECT_EQ(c[13].name, "AK");
  EXPECT_EQ(c[14].name, "KK");
  EXPECT_EQ(c[168].name, "22");
  EXPECT_EQ(c[2 * 13 + 5].name, "Q9s");  // row Q, column 9
  EXPECT_EQ(c[5 * 13 + 2].name, "Q9");   // row 9, column Q
}

TEST(HandClasses, BlockThirteenIsOffsuitAkWithAnOInItsCaptionOnly) {
  const auto& c = HandClasses();
  EXPECT_EQ(c[13].name, "AK");
  EXPECT_EQ(c[13].kind, 12);
  EXPECT_EQ(c[13].caption, "AKo");
  EXPECT_EQ(c[1].name, "AKs");
  EXPECT_EQ(c[1].kind, 11);
  EXPECT_EQ(c[1].caption, "AKs");
  EXPECT_EQ(c[0].name, "AA");
  EXPECT_EQ(c[0].kind, 22);
  EXPECT_EQ(c[0].caption, "AA");
}

TEST(HandClasses, KindsAndNamesHoldForEveryBlock) {
  int pairs = 0, suited = 0, offsuit = 0;
  std::set<std::string> names;
  for (int i = 0; i < kClassCount; ++i) {
    const HandClass& c = HandClasses()[i];
    EXPECT_EQ(i, 13 * c.row + c.column);
    names.insert(c.name);
    EXPECT_EQ(FindClassByName(c.name), i);
    if (c.row == c.column) {
      ++pairs;
      EXPECT_EQ(c.kind, kKindPair);
      EXPECT_EQ(c.name.size(), 2u);
    } else if (c.column > c.row) {
      ++suited;
      EXPECT_EQ(c.kind, kKindSuited);
      EXPECT_EQ(c.name.size(), 3u);
      EXPECT_EQ(c.caption, c.name);
    } else {
      ++offsuit;
      EXPECT_EQ(c.kind, kKindOffsuit);
      EXPECT_EQ(c.name.size(), 2u);
      EXPECT_EQ(c.caption, c.name + "o");
    }
    EXPECT_GT(c.rank1, c.kind == kKindPair ? c.rank2 - 1 : c.rank2);
  }
  EXPECT_EQ(pairs, 13);
  EXPECT_EQ(suited, 78);
  EXPECT_EQ(offsuit, 78);
  EXPECT_EQ(names.size(), 169u);
  EXPECT_EQ(FindClassByName("AKo"), -1);
}

TEST(ClassOfCombo, FindsTheBlockOfAHoldingInEitherCardOrder) {
  EXPECT_EQ(ClassOfCombo(HandCombo{true, 14, 0, 14, 1}), 0);
  EXPECT_EQ(ClassOfCombo(HandCombo{true, 14, 2, 13, 2}), 1);
  EXPECT_EQ(ClassOfCombo(HandCombo{true, 13, 2, 14, 2}), 1);
  EXPECT_EQ(ClassOfCombo(HandCombo{true, 14, 2, 13, 1}), 13);
  EXPECT_EQ(ClassOfCombo(HandCombo{true, 13, 1, 14, 2}), 13);
  EXPECT_EQ(ClassOfCombo(HandCombo{true, 2, 0, 2, 3}), 168);
  EXPECT_EQ(ClassOfCombo(HandCombo{true, -1, 0, 2, 3}), -1);
}

TEST(ExpandClassName, GivesFourTwelveOrSixHoldingsInTheFixedSuitOrder) {
  const auto suited = ExpandClassName("AKs");
  ASSERT_EQ(suited.size(), 4u);
  EXPECT_EQ(ComboToText(suited[0]), "AcKc");
  EXPECT_EQ(ComboToText(suited[3]), "AsKs");

  const auto offsuit = ExpandClassName("AK");
  ASSERT_EQ(offsuit.size(), 12u);
  const char* expected[] = {"AcKd", "AcKh", "AcKs", "AdKc", "AdKh", "AdKs",
                            "AhKc", "AhKd", "AhKs", "AsKc", "AsKd", "AsKh"};
  for (int i = 0; i < 12; ++i) EXPECT_EQ(ComboToText(offsuit[i]), expected[i]);

  const auto pair = ExpandClassName("AA");
  ASSERT_EQ(pair.size(), 6u);
  const char* pairs[] = {"AcAd", "AcAh", "AcAs", "AdAh", "AdAs", "AhAs"};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(ComboToText(pair[i]), pairs[i]);
  for (const auto& c : pair) EXPECT_TRUE(c.flag);
}

TEST(ExpandClassName, TestsTheLengthAloneSoAkoCountsAsSuited) {
  const auto combos = ExpandClassName("AKo");
  ASSERT_EQ(combos.size(), 4u);
  for (int s = 0; s < 4; ++s) {
    EXPECT_EQ(combos[s].rank1, 14);
    EXPECT_EQ(combos[s].rank2, 13);
    EXPECT_EQ(combos[s].suit1, s);
    EXPECT_EQ(combos[s].suit2, s);
  }
}

TEST(ExpandClassName, AllClassesTogetherMake1326DistinctHoldings) {
  std::set<std::string> all;
  std::size_t count = 0;
  for (const auto& c : HandClasses()) {
    for (const auto& combo : ExpandClassName(c.name)) {
      all.insert(ComboToText(combo));
      ++count;
    }
  }
  EXPECT_EQ(count, 1326u);
  EXPECT_EQ(all.size(), 1326u);
}

}  // namespace
}  // namespace quillet
