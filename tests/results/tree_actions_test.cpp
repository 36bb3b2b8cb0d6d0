#include "results/tree_actions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "categorise/categories.h"
#include "results/build_results_tree.h"
#include "tests/results/results_table.h"

namespace quillet {
namespace {

using testing::ResultsTable;

TEST(CleanNodeText, TakesOutBlanksMarksAndTheCountInParentheses) {
  EXPECT_EQ(CleanNodeText("Ah Kd"), "AhKd");
  EXPECT_EQ(CleanNodeText("Ah Kd *"), "AhKd");
  EXPECT_EQ(CleanNodeText("  Ah Kd"), "AhKd");
  EXPECT_EQ(CleanNodeText("~AKs (4)"), "AKs");
  EXPECT_EQ(CleanNodeText("~AKo (5) *"), "AK");
  EXPECT_EQ(CleanNodeText("\xE2\x80\xA2QQ  (6)"), "QQ");
  EXPECT_EQ(CleanNodeText("\xE2\x80\xA2"
                          "AKo (12)"),
            "AK");
  EXPECT_EQ(CleanNodeText("T pair (3) 25%"), "Tpair");
  EXPECT_EQ(CleanNodeText("One pair (3) 25%"), "Onepair");  // only the lower-case "o" goes
  EXPECT_EQ(CleanNodeText(""), "");
}

// A tree with grandchildren: "High cards" (0) holds "A high" (1), which holds group 2 (holdings 3, 4),
// group 5 (holdings 6, 7) and a single-holding line 8.
ResultsTree TreeWithGroups() {
  ResultsTable table;
  table.Add(kEntryAceHigh, {"AcKc", "AdKd", "AcQd", "AdQc", "AhJh"}).Finish(5);
  ResultsOptions options;
  options.hideEmptyCats = true;
  options.simplifyOutput = true;
  ResultsCards cards;
  return BuildResultsTree(table.categories, options, cards, nullptr).tree;
}

TEST(AddToRangeNodeRun, IsEmptyWithoutASelectedNode) {
  ResultsTree tree = TreeWithGroups();
  tree.selected = -1;
  EXPECT_TRUE(AddToRangeNodeRun(tree).empty());
  EXPECT_TRUE(AddToRangeNodeRun(ResultsTree{}).empty());
}

TEST(AddToRangeNodeRun, TakesALeafNodeAlone) {
  ResultsTree tree = TreeWithGroups();
  ASSERT_EQ(tree.nodes.size(), 9u);
  ASSERT_EQ(tree.nodes[4].text, "Ad Kd");
  tree.selected = 4;
  EXPECT_EQ(AddToRangeNodeRun(tree), (std::vector<int>{4}));
  ASSERT_EQ(tree.nodes[8].text, "  Ah Jh");
  tree.selected = 8;
  EXPECT_EQ(AddToRangeNodeRun(tree), (std::vector<int>{8}));
}

TEST(AddToRangeNodeRun, TakesAsManyNodesAfterTheSelectedOneAsItHasDirectChildren) {
  ResultsTree tree = TreeWithGroups();
  ASSERT_EQ(tree.nodes[2].text, "~AKs (2)");
  tree.selected = 2;
  EXPECT_EQ(AddToRangeNodeRun(tree), (std::vector<int>{3, 4}));
  // "A high" has three direct children (two groups and a single line), but the run over the flat order
  // takes the first group, its first holding and its second: grandchildren in, later children out.
  ASSERT_EQ(tree.nodes[1].text, "A high (5) 100%");
  tree.selected = 1;
  EXPECT_EQ(AddToRangeNodeRun(tree), (std::vector<int>{2, 3, 4}));
}

TEST(IsCheckableNode, TakesCategoryAndGroupNodesButNoHoldingsOwnNode) {
  const ResultsTree tree = TreeWithGroups();
  ASSERT_EQ(tree.nodes.size(), 9u);
  std::vector<int> checkable;
  for (int i = 0; i < 9; ++i) {
    if (IsCheckableNode(tree, i)) checkable.push_back(i);
  }
  // "High cards", "A high", the AKs group and the AQ group; not the holdings, not the single line "  Ah Jh".
  EXPECT_EQ(checkable, (std::vector<int>{0, 1, 2, 5}));
  EXPECT_FALSE(IsCheckableNode(tree, -1));
  EXPECT_FALSE(IsCheckableNode(tree, 9));
}

TEST(IsCheckableNode, InAPlainListingOnlyTheCategoriesAreCheckable) {
  ResultsTable table;
  table.Add(kEntryAceHigh, {"AcKc", "AdKd"}).Finish(2);
  const ResultsTree tree =
      BuildResultsTree(table.categories, testing::Options(true, false), ResultsCards{}, nullptr).tree;
  ASSERT_EQ(tree.nodes.size(), 4u);  // High cards, A high, two holdings
  EXPECT_TRUE(IsCheckableNode(tree, 0));
  EXPECT_TRUE(IsCheckableNode(tree, 1));
  EXPECT_FALSE(IsCheckableNode(tree, 2));
  EXPECT_FALSE(IsCheckableNode(tree, 3));
}

TEST(IsCheckableNode, ASpacerLineTakesNoBox) {
  ResultsTable table;
  table.Add(kEntryTopPair, {"KcQd"}).Add(kEntryTwoPair, {"Kc4c"}).Finish(2);
  const ResultsTree tree =
      BuildResultsTree(table.categories, testing::Options(true, true), ResultsCards{}, nullptr).tree;
  const int spacer = tree.find("14k");  // the blank line between "One pair" and "Two pair"
  ASSERT_GE(spacer, 0);
  ASSERT_EQ(tree.nodes[spacer].text, "");
  EXPECT_FALSE(IsCheckableNode(tree, spacer));
  EXPECT_TRUE(IsCheckableNode(tree, tree.find("15k")));
}

HoldingSet Set(std::initializer_list<const char*> holdings) {
  HoldingSet set;
  for (const char* h : holdings) {
    const HandCombo combo = testing::Holding(h);
    set.insert(combo.card1(), combo.card2());
  }
  return set;
}

TEST(HoldingsUnderNodes, AGroupGivesItsClassInItsCategory) {
  ResultsTable table;
  table.Add(kEntryAceHigh, {"AcKc", "AdKd", "AcQd", "AdQc", "AhJh"}).Finish(5);
  const ResultsTree tree = TreeWithGroups();
  EXPECT_EQ(HoldingsUnderNodes(tree, table.categories, std::vector<int>{2}), Set({"AcKc", "AdKd"}));
  EXPECT_EQ(HoldingsUnderNodes(tree, table.categories, std::vector<int>{5}), Set({"AcQd", "AdQc"}));
}

TEST(HoldingsUnderNodes, ACategoryGivesItsOwnHoldingsAndItsSubCategoriesAndAHoldingCountsOnce) {
  ResultsTable table;
  table.Add(kEntryOnePair, {"9c9d"})
      .Add(kEntryTopPair, {"KcQd", "KdQc"})
      .Add(kEntryBottomPair, {"4c5c"})
      .Add(kEntryTwoPair, {"Kc4c"})
      .Add(kEntryGutshotWithPair, {"KcQd"})
      .Add(kEntryBackdoorFlush, {"2h3h"})
      .Finish(7);
  const ResultsTree tree =
      BuildResultsTree(table.categories, testing::Options(true, true), ResultsCards{}, nullptr).tree;
  const int onePair = tree.find("6k");
  const int topPair = tree.find("8k");
  const int draws = tree.find("29k");
  ASSERT_GE(onePair, 0);
  ASSERT_GE(topPair, 0);
  ASSERT_GE(draws, 0);
  // "One pair" stops before the spacer and "Two pair" that follow it.
  EXPECT_EQ(HoldingsUnderNodes(tree, table.categories, std::vector<int>{onePair}),
            Set({"9c9d", "KcQd", "KdQc", "4c5c"}));
  const HoldingSet both = HoldingsUnderNodes(tree, table.categories, std::vector<int>{onePair, draws});
  EXPECT_EQ(both, Set({"9c9d", "KcQd", "KdQc", "4c5c", "2h3h"}));
  EXPECT_EQ(both.size(), 5);  // KcQd stands in both, counted once
  // A node inside another checked one adds nothing new.
  EXPECT_EQ(HoldingsUnderNodes(tree, table.categories, std::vector<int>{topPair, onePair}),
            HoldingsUnderNodes(tree, table.categories, std::vector<int>{onePair}));
}

TEST(HoldingsUnderNodes, HoldingsNodesAndNodesOutsideTheTreeAddNothing) {
  ResultsTable table;
  table.Add(kEntryAceHigh, {"AcKc", "AdKd", "AcQd", "AdQc", "AhJh"}).Finish(5);
  const ResultsTree tree = TreeWithGroups();
  EXPECT_TRUE(HoldingsUnderNodes(tree, table.categories, std::vector<int>{3, 8, -1, 40}).empty());
  EXPECT_TRUE(HoldingsUnderNodes(tree, table.categories, std::vector<int>{}).empty());
}

TEST(CardSearchMessage, WantsExactlyTwoCharactersAfterTrimming) {
  Categories categories;
  InitCategories(categories);
  EXPECT_EQ(CardSearchMessage("", categories), "Bad length.");
  EXPECT_EQ(CardSearchMessage("T", categories), "Bad length.");
  EXPECT_EQ(CardSearchMessage("Tcd", categories), "Bad length.");
  EXPECT_EQ(CardSearchMessage("   ", categories), "Bad length.");
  EXPECT_EQ(CardSearchMessage(" Tc ", categories), "Tc not found in categories.");
}

TEST(CardSearchMessage, WantsARankThenASuitInTheirOwnCase) {
  Categories categories;
  InitCategories(categories);
  EXPECT_EQ(CardSearchMessage("tc", categories), "Invalid Card");
  EXPECT_EQ(CardSearchMessage("TC", categories), "Invalid Card");
  EXPECT_EQ(CardSearchMessage("1c", categories), "Invalid Card");
  EXPECT_EQ(CardSearchMessage("cT", categories), "Invalid Card");
  EXPECT_EQ(CardSearchMessage("Tx", categories), "Invalid Card");
}

TEST(CardSearchMessage, NamesTheFirstCategoryInTableOrderWithItsStoredLabel) {
  ResultsTable table;
  table.Add(kEntryTopPair, {"KcQd", "TcTd"}).Add(kEntryOpenEnded, {"TcJd"}).Add(kEntryFlush, {"Ah2h"});
  table.Finish(4);
  EXPECT_EQ(CardSearchMessage("Tc", table.categories), "Found Tc in category >*T pair");
  EXPECT_EQ(CardSearchMessage("Ah", table.categories), "Found Ah in category *Flush");
  EXPECT_EQ(CardSearchMessage("Kc", table.categories), "Found Kc in category >*T pair");
}

TEST(CardSearchMessage, LooksAtTheFirstCardOfEachHoldingOnly) {
  ResultsTable table;
  table.Add(kEntryTopPair, {"KcQd"}).Finish(1);
  EXPECT_EQ(CardSearchMessage("Qd", table.categories), "Qd not found in categories.");
}

TEST(CardSearchMessage, ReadsTheTableWhateverTheTreeShows) {
  ResultsTable table;
  table.Add(kEntryTopPair, {"KcQd"}).Finish(1);
  table.categories.nodes[kEntryTopPair].nonEmpty = false;  // hidden or not, it is searched
  EXPECT_EQ(CardSearchMessage("Kc", table.categories), "Found Kc in category >*T pair");
}

}  // namespace
}  // namespace quillet
