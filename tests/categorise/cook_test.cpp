#include "categorise/cook.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <utility>

#include "cards/hand_class.h"
#include "categorise/categories.h"
#include "range/block_record.h"
#include "tests/support/card_text.h"

namespace quillet {
namespace {

using testing::Holding;
using testing::WindowBoard;

// Both layers with every class whole, as clicking every block would leave them.
RangeLayer FullLayer() {
  RangeLayer layer = MakeEmptyLayer();
  for (int c = 0; c < kClassCount; ++c) SetBlockWhole(layer[c], HandClasses()[c].kind == kKindSuited);
  return layer;
}

HandCards Hand(const std::string& text) {
  HandCards hand{};
  if (text.empty()) {
    hand.rank1 = hand.suit1 = hand.rank2 = hand.suit2 = kNoCard;
  } else {
    EXPECT_TRUE(ParseHandText(text, hand));
  }
  return hand;
}

int TotalCount(const Categories& categories) {
  int total = 0;
  for (const CategoryNode& node : categories.nodes) total += node.count;
  return total;
}

// ---- collecting the range ----

TEST(CollectRangeCombos, AnEmptyGridGivesNoHoldings) {
  EXPECT_TRUE(CollectRangeCombos(MakeEmptyLayer(), MakeEmptyLayer()).empty());
}

TEST(CollectRangeCombos, TheWholeGridGivesAllHoldingsOnceEach) {
  const auto list = CollectRangeCombos(FullLayer(), MakeEmptyLayer());
  ASSERT_EQ(list.size(), 1326u);
  for (const HandCombo& h : list) EXPECT_TRUE(h.flag);
  // 1,326 different holdings: no card pair appears twice in either order.
  std::set<std::pair<int, int>> seen;
  for (const HandCombo& h : list) {
    const int a = h.rank1 * 4 + h.suit1;
    const int b = h.rank2 * 4 + h.suit2;
    EXPECT_TRUE(seen.insert({std::min(a, b), std::max(a, b)}).second) << ComboToText(h);
  }
}

TEST(CollectRangeCombos, ClassesComeInGridOrderWithTheirSuitPairsInRecordOrder) {
  RangeLayer on = MakeEmptyLayer();
  SetBlockWhole(on[13], false);  // AK offsuit
  SetBlockWhole(on[1], true);    // AKs
  SetBlockWhole(on[0], false);   // AA
  const auto list = CollectRangeCombos(on, MakeEmptyLayer());
  ASSERT_EQ(list.size(), 6u + 4u + 12u);
  EXPECT_EQ(ComboToText(list[0]), "AcAd");
  EXPECT_EQ(ComboToText(list[5]), "AhAs");
  EXPECT_EQ(ComboToText(list[6]), "AcKc");
  EXPECT_EQ(ComboToText(list[9]), "AsKs");
  EXPECT_EQ(ComboToText(list[10]), "AcKd");
  EXPECT_EQ(ComboToText(list[13]), "AdKc");
  EXPECT_EQ(ComboToText(list[21]), "AsKh");
}

TEST(CollectRangeCombos, TheSeenLayerAddsOnlyWhatTheOnLayerLacksRightAfterTheSameClass) {
  RangeLayer on = MakeEmptyLayer();
  RangeLayer seen = MakeEmptyLayer();
  SetBlockSuitPair(on[1], 0, 0, true, false);    // AcKc in the On layer
  SetBlockSuitPair(seen[1], 0, 0, true, false);  // again in the Seen layer: not an extra
  SetBlockSuitPair(seen[1], 3, 3, true, false);  // AsKs only in the Seen layer
  SetBlockSuitPair(on[14], 0, 1, true, false);   // KcKd
  const auto list = CollectRangeCombos(on, seen);
  ASSERT_EQ(list.size(), 3u);
  EXPECT_EQ(ComboToText(list[0]), "AcKc");
  EXPECT_EQ(ComboToText(list[1]), "AsKs");
  EXPECT_EQ(ComboToText(list[2]), "KcKd");
}

TEST(CollectRangeCombos, ForAPocketPairBothSuitOrdersAreOneHolding) {
  RangeLayer on = MakeEmptyLayer();
  RangeLayer seen = MakeEmptyLayer();
  on[0].combos[0] = SuitPairEntry{kFalse16, 0, 1};  // AcAd
  on[0].count = 1;
  seen[0].combos[0] = SuitPairEntry{kFalse16, 1, 0};  // AdAc: the same two cards
  seen[0].combos[1] = SuitPairEntry{kFalse16, 2, 3};  // AhAs: an extra
  seen[0].count = 2;
  const auto list = CollectRangeCombos(on, seen);
  ASSERT_EQ(list.size(), 2u);
  EXPECT_EQ(ComboToText(list[0]), "AcAd");
  EXPECT_EQ(ComboToText(list[1]), "AhAs");
}

TEST(CollectRangeCombos, ForOtherClassesTheSuitOrderMakesADifferentHolding) {
  RangeLayer on = MakeEmptyLayer();
  RangeLayer seen = MakeEmptyLayer();
  SetBlockSuitPair(on[13], 0, 1, true, false);    // AcKd
  SetBlockSuitPair(seen[13], 1, 0, true, false);  // AdKc
  const auto list = CollectRangeCombos(on, seen);
  ASSERT_EQ(list.size(), 2u);
  EXPECT_EQ(ComboToText(list[1]), "AdKc");
}

TEST(CollectRangeCombos, ADamagedRecordDoesNotMakeImpossibleHoldings) {
  RangeLayer on = MakeEmptyLayer();
  on[0].combos[0] = SuitPairEntry{kFalse16, 0, 0};  // AcAc
  on[0].combos[1] = SuitPairEntry{kFalse16, 7, 1};  // no such suit
  on[0].combos[2] = SuitPairEntry{kFalse16, 2, 3};
  on[0].count = 3;
  on[1].count = 99;  // more entries than a record has
  const auto list = CollectRangeCombos(on, MakeEmptyLayer());
  ASSERT_EQ(list.size(), 1u + 16u);
  EXPECT_EQ(ComboToText(list[0]), "AhAs");
}

// ---- dead holdings ----

TEST(RemoveDeadCombos, AHoldingThatUsesABoardCardIsDeadButStaysInTheList) {
  std::vector<HandCombo> list = {Holding("AcKc"), Holding("QhJh"), Holding("Td9d"), Holding("8s2s")};
  const auto b = WindowBoard("Kc5d2s");
  EXPECT_EQ(RemoveDeadCombos(list, Hand(""), b.cards, b.street), 2);
  ASSERT_EQ(list.size(), 4u);
  EXPECT_FALSE(list[0].flag);
  EXPECT_TRUE(list[1].flag);
  EXPECT_TRUE(list[2].flag);
  EXPECT_FALSE(list[3].flag);
}

TEST(RemoveDeadCombos, MyHandsCardsAreInUseToo) {
  std::vector<HandCombo> list = {Holding("AcAs"), Holding("AhKd"), Holding("KsQs")};
  EXPECT_EQ(RemoveDeadCombos(list, Hand("AhAd"), BoardCards{}, kNoBoard), 2);
  EXPECT_TRUE(list[0].flag);
  EXPECT_FALSE(list[1].flag);
}

TEST(RemoveDeadCombos, OnlyTheBoardCardsOfTheStreetCount) {
  // On the flop the turn and river fields carry card 1's rank (the ace) with no suit.
  std::vector<HandCombo> list = {Holding("AcKd"), Holding("AhQd")};
  const auto b = WindowBoard("AhKs4c");
  EXPECT_EQ(RemoveDeadCombos(list, Hand(""), b.cards, b.street), 1);
  EXPECT_TRUE(list[0].flag);
}

TEST(RemoveDeadCombos, AFullRangeBesideFiveCardsKeepsOneThousandAndEightyOne) {
  auto list = CollectRangeCombos(FullLayer(), MakeEmptyLayer());
  const auto b = WindowBoard("Tc8h3s");
  // 47 cards are left: 47 x 46 / 2 = 1,081 holdings.
  EXPECT_EQ(RemoveDeadCombos(list, Hand("AhAd"), b.cards, b.street), 1081);
  EXPECT_EQ(list.size(), 1326u);
}

// ---- classifying the range ----

TEST(ClassifyRange, WithoutBoardOrHandPairsGoToOnePairAndTheRestByTheirFirstRank) {
  auto list = CollectRangeCombos(FullLayer(), MakeEmptyLayer());
  const BoardCards noBoard{};
  EXPECT_EQ(RemoveDeadCombos(list, Hand(""), noBoard, kNoBoard), 1326);
  Categories categories;
  InitCategories(categories);
  ClassifyRange(categories, list, noBoard, kNoBoard);
  EXPECT_EQ(categories.categorisedCount, 1326);
  // 13 pairs x 6; each higher rank r has (r - 2) lower ranks, each a class of 4 suited and 12 offsuit.
  EXPECT_EQ(categories.nodes[6].count, 78);
  EXPECT_EQ(categories.nodes[1].count, 12 * 16);
  EXPECT_EQ(categories.nodes[2].count, 11 * 16);
  EXPECT_EQ(categories.nodes[3].count, 10 * 16);
  EXPECT_EQ(categories.nodes[4].count, (9 + 8 + 7 + 6 + 5 + 4 + 3 + 2 + 1) * 16);
  EXPECT_EQ(TotalCount(categories), 1326);
  for (const HandCombo& h : categories.nodes[6].combos) EXPECT_EQ(h.rank1, h.rank2);
  for (const HandCombo& h : categories.nodes[3].combos) EXPECT_EQ(h.rank1, 12);
}

TEST(ClassifyRange, AcesBesideMyAcesWithoutABoardLeaveOneHoldingInOnePair) {
  RangeLayer on = MakeEmptyLayer();
  SetBlockWhole(on[0], false);
  auto list = CollectRangeCombos(on, MakeEmptyLayer());
  ASSERT_EQ(list.size(), 6u);
  const BoardCards noBoard{};
  EXPECT_EQ(RemoveDeadCombos(list, Hand("AhAd"), noBoard, kNoBoard), 1);
  Categories categories;
  InitCategories(categories);
  ClassifyRange(categories, list, noBoard, kNoBoard);
  EXPECT_EQ(categories.categorisedCount, 1);
  ASSERT_EQ(categories.nodes[6].count, 1);
  EXPECT_EQ(ComboToText(categories.nodes[6].combos[0]), "AcAs");
  EXPECT_EQ(TotalCount(categories), 1);
}

TEST(ClassifyRange, AHoldingWithAMadeHandAndAFlushDrawIsCountedOnce) {
  std::vector<HandCombo> list = {Holding("AhQh")};
  const auto b = WindowBoard("Ac7h2h");  // a pair of aces and four hearts
  Categories categories;
  InitCategories(categories);
  ClassifyRange(categories, list, b.cards, b.street);
  EXPECT_EQ(categories.nodes[8].count, 1);
  EXPECT_EQ(categories.nodes[27].count, 1);
  EXPECT_EQ(categories.categorisedCount, 1);
}

TEST(ClassifyRange, DeadHoldingsAreNotClassified) {
  std::vector<HandCombo> list = {Holding("AhQh"), Holding("KsKd")};
  list[0].flag = false;
  const auto b = WindowBoard("Ac7h2h");
  Categories categories;
  InitCategories(categories);
  ClassifyRange(categories, list, b.cards, b.street);
  EXPECT_EQ(categories.categorisedCount, 1);
  EXPECT_EQ(TotalCount(categories), 1);
  EXPECT_EQ(categories.nodes[27].count, 0);  // the dead AhQh would have been a flush draw
  EXPECT_EQ(categories.nodes[9].count, 1);   // kings between the ace and the middle 7
}

TEST(ClassifyRange, ARunStartsFromEmptyEntriesAndFlagsOnlyTheFilledOnesAsNonEmpty) {
  Categories categories;
  InitCategories(categories);
  std::vector<HandCombo> list = {Holding("KsKd")};
  const auto flop = WindowBoard("Ac7h2d");
  ClassifyRange(categories, list, flop.cards, flop.street);

  const auto river = WindowBoard("2c3c4c5c9h");
  list = {Holding("QsQd")};
  ClassifyRange(categories, list, river.cards, river.street);
  EXPECT_EQ(categories.categorisedCount, 1);
  EXPECT_EQ(TotalCount(categories), 1);
  for (int i = 0; i < kCategoryCount; ++i) {
    const CategoryNode& node = categories.nodes[i];
    EXPECT_EQ(node.nonEmpty, node.count != 0) << i;
    EXPECT_EQ(static_cast<int>(node.combos.size()), node.count) << i;
  }
  EXPECT_EQ(categories.nodes[7].count, 1);  // queens above the river's top rank 9
}

TEST(ClassifyRange, AnEmptyRangeIsNoErrorAndLeavesEveryEntryEmpty) {
  Categories categories;
  InitCategories(categories);
  const auto b = WindowBoard("Tc8h3s");
  ClassifyRange(categories, {}, b.cards, b.street);
  EXPECT_EQ(categories.categorisedCount, 0);
  for (const CategoryNode& node : categories.nodes) EXPECT_FALSE(node.nonEmpty);
}

}  // namespace
}  // namespace quillet
