#include "results/combo_groups.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/card_text.h"

namespace quillet {
namespace {

using testing::Holding;

std::vector<HandCombo> Holdings(const std::vector<std::string>& texts) {
  std::vector<HandCombo> out;
  for (const std::string& t : texts) out.push_back(Holding(t));
  return out;
}

ComboGroup OneGroup(const std::vector<std::string>& texts) {
  const std::vector<HandCombo> combos = Holdings(texts);
  const std::vector<ComboGroup> groups = GroupCombosByClass(combos);
  EXPECT_EQ(groups.size(), 1u);
  return groups.empty() ? ComboGroup{} : groups.front();
}

TEST(GroupCombosByClass, MakesOneGroupPerRankPairInOrderOfFirstAppearance) {
  const std::vector<HandCombo> combos = Holdings({"QcQd", "AcKd", "QhQs", "KdAc", "AhKh"});
  const std::vector<ComboGroup> groups = GroupCombosByClass(combos);
  ASSERT_EQ(groups.size(), 3u);
  EXPECT_EQ(groups[0].rank1, 12);
  EXPECT_EQ(groups[0].combos, Holdings({"QcQd", "QhQs"}));
  EXPECT_EQ(groups[1].rank1, 14);
  EXPECT_EQ(groups[1].rank2, 13);
  EXPECT_EQ(groups[1].combos, Holdings({"AcKd", "AhKh"}));
  // The first card's rank comes first, so K-A is a group of its own.
  EXPECT_EQ(groups[2].rank1, 13);
  EXPECT_EQ(groups[2].rank2, 14);
}

TEST(GroupCombosByClass, KeepsTheFlagsOfTheHoldings) {
  std::vector<HandCombo> combos = Holdings({"AcKc", "AdKd"});
  combos[1].flag = false;
  const std::vector<ComboGroup> groups = GroupCombosByClass(combos);
  ASSERT_EQ(groups.size(), 1u);
  EXPECT_TRUE(groups[0].combos[0].flag);
  EXPECT_FALSE(groups[0].combos[1].flag);
}

TEST(GroupCombosByClass, NothingGivesNoGroups) {
  EXPECT_TRUE(GroupCombosByClass({}).empty());
}

TEST(SetGroupFlags, APairIsWholeWithSixHoldingsOnly) {
  const ComboGroup whole = OneGroup({"QcQd", "QcQh", "QcQs", "QdQh", "QdQs", "QhQs"});
  EXPECT_TRUE(whole.whole);
  EXPECT_FALSE(whole.suited);
  EXPECT_FALSE(whole.offsuit);
  const ComboGroup part = OneGroup({"QcQd", "QcQh"});
  EXPECT_FALSE(part.whole);
  EXPECT_FALSE(part.suited);
  EXPECT_FALSE(part.offsuit);
}

TEST(SetGroupFlags, SuitedHoldingsAreSuitedAndWholeAtFour) {
  const ComboGroup two = OneGroup({"AcKc", "AdKd"});
  EXPECT_TRUE(two.suited);
  EXPECT_FALSE(two.whole);
  const ComboGroup four = OneGroup({"AcKc", "AdKd", "AhKh", "AsKs"});
  EXPECT_TRUE(four.suited);
  EXPECT_TRUE(four.whole);
}

TEST(SetGroupFlags, OffsuitHoldingsNeedFiveForTheMarkAndTwelveToBeWhole) {
  const ComboGroup four = OneGroup({"AcKd", "AcKh", "AcKs", "AdKc"});
  EXPECT_FALSE(four.offsuit);
  EXPECT_FALSE(four.suited);
  const ComboGroup five = OneGroup({"AcKd", "AcKh", "AcKs", "AdKc", "AdKh"});
  EXPECT_TRUE(five.offsuit);
  EXPECT_FALSE(five.whole);
  const ComboGroup twelve = OneGroup(
      {"AcKd", "AcKh", "AcKs", "AdKc", "AdKh", "AdKs", "AhKc", "AhKd", "AhKs", "AsKc", "AsKd", "AsKh"});
  EXPECT_TRUE(twelve.offsuit);
  EXPECT_TRUE(twelve.whole);
}

TEST(SetGroupFlags, AMixOfSuitedAndOffsuitCarriesNeitherMarkButAllSixteenAreWhole) {
  const ComboGroup mixed = OneGroup({"AcKc", "AcKd", "AdKd", "AhKh", "AsKs", "AhKs"});
  EXPECT_FALSE(mixed.suited);
  EXPECT_FALSE(mixed.offsuit);
  EXPECT_FALSE(mixed.whole);
  const ComboGroup all = OneGroup({"AcKc", "AdKd", "AhKh", "AsKs", "AcKd", "AcKh", "AcKs", "AdKc", "AdKh",
                                   "AdKs", "AhKc", "AhKd", "AhKs", "AsKc", "AsKd", "AsKh"});
  EXPECT_TRUE(all.whole);
  EXPECT_FALSE(all.suited);
  EXPECT_FALSE(all.offsuit);
}

}  // namespace
}  // namespace quillet
