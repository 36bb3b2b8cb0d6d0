#include "results/build_results_tree.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "categorise/categories.h"
#include "quillet/version.h"
#include "tests/results/results_table.h"

namespace quillet {
namespace {

using testing::Cards;
using testing::ExportFromNodes;
using testing::ExportLines;
using testing::Holding;
using testing::Marked;
using testing::Options;
using testing::ResultsTable;

using Lines = std::vector<std::string>;

ResultsBuild Build(const ResultsTable& table, const ResultsOptions& options, const ResultsCards& cards) {
  return BuildResultsTree(table.categories, options, cards, nullptr);
}

const ResultNode& NodeWithKey(const ResultsTree& tree, const std::string& key) {
  const int index = tree.find(key);
  EXPECT_GE(index, 0) << key;
  static const ResultNode kMissing;
  return index >= 0 ? tree.nodes[index] : kMissing;
}

// ---- the export header ----

TEST(ExportHeader, NamesTheVersionThenMyHandAndTheBoardWithCarriageReturnLineFeeds) {
  const std::string version = std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." +
                              std::to_string(kVersionRevision);
  EXPECT_EQ(ExportHeader("AhKd", "Tc8h3s"),
            "Poker Quillet V" + version + " Clipboard Export\r\nMy Hand: AhKd   Board: Tc8h3s\r\n\r\n");
  EXPECT_EQ(ExportHeader("", ""),
            "Poker Quillet V" + version + " Clipboard Export\r\nMy Hand:    Board: \r\n\r\n");
}

TEST(BuildResultsTree, EveryBuildStartsTheExportTextWithTheHeader) {
  ResultsTable table;
  table.Finish(0);
  const ResultsCards cards = Cards("AhKd", "Tc8h3s");
  const ResultsBuild build = Build(table, Options(true, true), cards);
  EXPECT_EQ(build.exportText, ExportHeader("AhKd", "Tc8h3s"));
  EXPECT_TRUE(build.tree.empty());
}

// ---- categories: depth, counts, hidden empty categories and spacers ----

TEST(BuildResultsTree, WithHideEmptyOffAnEmptyCategoryShowsItsNameAndZeroPercent) {
  ResultsTable table;
  table.Add(kEntryAceHigh, {"AcKd"}).Finish(1);
  const ResultsCards cards = Cards("", "");
  const ResultsBuild build = Build(table, Options(false, false), cards);
  const Lines lines = ExportLines(build, cards);
  ASSERT_EQ(lines.size(), 56u);  // all 55 categories and the one holding
  EXPECT_EQ(lines[0], "High cards (1) 100%");
  EXPECT_EQ(lines[1], "  A high (1) 100%");
  EXPECT_EQ(lines[2], "    Ac Kd");
  EXPECT_EQ(lines[3], "  K high (0) 0%");
  EXPECT_EQ(lines[5], "  etc high (0) 0%");
  EXPECT_EQ(lines[6], "");  // the spacer: no text and no count
  EXPECT_EQ(lines[7], "One pair (0) 0%");
  EXPECT_EQ(lines[55], "Royal Flush (0) 0%");
}

TEST(BuildResultsTree, AnEmptyRangeShownWithHideEmptyOffGivesZeroPercentRatherThanDividingByZero) {
  ResultsTable table;
  table.Finish(0);
  const ResultsCards cards = Cards("", "");
  const ResultsBuild build = Build(table, Options(false, true), cards);
  const Lines lines = ExportLines(build, cards);
  ASSERT_EQ(lines.size(), 55u);
  EXPECT_EQ(lines[0], "High cards (0) 0%");
  EXPECT_EQ(lines[54], "Royal Flush (0) 0%");
}

TEST(BuildResultsTree, PercentagesAreTruncatedNotRounded) {
  ResultsTable table;
  // Two of three holdings: 66.7 per cent shows as 66; one of three as 33.
  table.Add(kEntryAceHigh, {"AcKd", "AdKc"}).Add(kEntryKingHigh, {"KcQd"}).Finish(3);
  const ResultsCards cards = Cards("", "");
  const Lines lines = ExportLines(Build(table, Options(true, false), cards), cards);
  EXPECT_EQ(lines, (Lines{"High cards (3) 100%", "  A high (2) 66%", "    Ac Kd", "    Ad Kc",
                          "  K high (1) 33%", "    Kc Qd"}));
}

TEST(BuildResultsTree, AGroupCategoryCountsTheHoldingsOfItsChildren) {
  ResultsTable table;
  table.Add(kEntryOverPair, {"AcAd", "AcAh"}).Add(kEntryTopPair, {"KcKd"}).Finish(4);
  const ResultsBuild build = Build(table, Options(true, false), Cards("", ""));
  EXPECT_EQ(NodeWithKey(build.tree, "6k").text, "One pair (3) 75%");
  EXPECT_EQ(build.descendantCounts[kEntryOnePair], 3);
  EXPECT_EQ(build.descendantCounts[kEntryOverPair], 0);
}

TEST(BuildResultsTree, HiddenEmptyCategoriesLeaveOutTheirSpacersExceptBeforeAShownCategory) {
  ResultsTable table;
  table.Add(kEntryTopSet, {"KcKd"}).Finish(1);
  const ResultsCards cards = Cards("", "");
  const ResultsBuild build = Build(table, Options(true, false), cards);
  // Only the spacer in front of "Sets" (entry 36) is shown; the one in front of "Trips" (34) is not.
  EXPECT_EQ(ExportLines(build, cards), (Lines{"", "Sets (1) 100%", "  T set (1) 100%", "    Kc Kd"}));
  ASSERT_EQ(build.tree.nodes.size(), 4u);
  EXPECT_EQ(build.tree.nodes[0].key, "36k");
  EXPECT_EQ(build.tree.nodes[0].text, "");
  EXPECT_EQ(build.tree.nodes[0].parent, -1);
  EXPECT_EQ(build.tree.nodes[1].key, "37k");
}

TEST(BuildResultsTree, TheFirstCategoryHasNoSpacerInFrontAndTheLastNoneBehind) {
  ResultsTable table;
  table.Add(kEntryAceHigh, {"AcKd"}).Add(kEntryRoyalFlush, {"AhKh"}).Finish(2);
  const ResultsCards cards = Cards("", "");
  EXPECT_EQ(
      ExportLines(Build(table, Options(true, false), cards), cards),
      (Lines{"High cards (1) 50%", "  A high (1) 50%", "    Ac Kd", "", "Royal Flush (1) 50%", "  Ah Kh"}));
}

TEST(BuildResultsTree, CategoryNodesAreKeyedByIndexAndHangUnderTheLastCategoryOneLevelUp) {
  ResultsTable table;
  table.Add(kEntryTopPair, {"KcQd"}).Add(kEntryBottomPair, {"3c3d"}).Finish(2);
  const ResultsBuild build = Build(table, Options(true, false), Cards("", ""));
  const ResultNode& group = NodeWithKey(build.tree, "6k");
  const ResultNode& top = NodeWithKey(build.tree, "8k");
  const ResultNode& bottom = NodeWithKey(build.tree, "12k");
  EXPECT_EQ(group.parentKey, "");
  EXPECT_EQ(group.level, 0);
  EXPECT_EQ(top.parentKey, "6k");
  EXPECT_EQ(bottom.parentKey, "6k");
  EXPECT_EQ(top.level, 1);
  EXPECT_EQ(group.children, (std::vector<int>{build.tree.find("8k"), build.tree.find("12k")}));
}

TEST(BuildResultsTree, ARootLineHasNoBlanksADepthTwoCategoryFourItsHoldingsSixOrEightUnderAGroup) {
  ResultsTable table({"*Top", ">*Middle", ">>*Deep"});
  table.Add(2, {"AcKc", "AdKd"}).Finish(2);
  const ResultsCards cards = Cards("", "");
  EXPECT_EQ(ExportLines(Build(table, Options(true, false), cards), cards),
            (Lines{"Top (2) 100%", "  Middle (2) 100%", "    Deep (2) 100%", "      Ac Kc", "      Ad Kd"}));
  EXPECT_EQ(ExportLines(Build(table, Options(true, true), cards), cards),
            (Lines{"Top (2) 100%", "  Middle (2) 100%", "    Deep (2) 100%", "      ~AKs (2)",
                   "        Ac Kc", "        Ad Kd"}));
  const ResultsBuild build = Build(table, Options(true, false), cards);
  EXPECT_EQ(NodeWithKey(build.tree, "2k").parentKey, "1k");
  EXPECT_EQ(NodeWithKey(build.tree, "2k").level, 2);
}

TEST(BuildResultsTree, ALabelWithoutAStarIsReportedAndTheBuildGoesOnAtTheDepthBefore) {
  ResultsTable table({"*Top", ">*Child", "Oops", ">*Last"});
  table.Add(2, {"AcKc"}).Add(3, {"QcJc"}).Finish(2);
  std::vector<std::string> messages;
  const ResultsCards cards = Cards("", "");
  const ResultsBuild build = BuildResultsTree(table.categories, Options(false, false), cards,
                                              [&](std::string_view text) { messages.emplace_back(text); });
  // The walks over the deeper followers of "Top" and of "Child" meet "Oops" and report it in the words of
  // the category being summed, taking it at the depth met last; "Oops" itself is reported in its turn.
  EXPECT_EQ(messages, (std::vector<std::string>{"Category error: 0 *Top", "Category error: 1 >*Child",
                                                "Category error: 2 Oops"}));
  EXPECT_EQ(ExportLines(build, cards), (Lines{"Top (2) 100%", "  Child (0) 0%", "  Oops (1) 50%", "    Ac Kc",
                                              "  Last (1) 50%", "    Qc Jc"}));
  EXPECT_EQ(NodeWithKey(build.tree, "2k").parentKey, "0k");
}

TEST(BuildResultsTree, TheCategoryTableIsLeftAsItWas) {
  ResultsTable table;
  table.Add(kEntryTopPair, {"KcQd", "KdQc"}).Finish(2);
  const Categories before = table.categories;
  Build(table, Options(true, false), Cards("", ""));
  ASSERT_EQ(table.categories.nodes.size(), before.nodes.size());
  for (std::size_t i = 0; i < before.nodes.size(); ++i) {
    EXPECT_EQ(table.categories.nodes[i].nonEmpty, before.nodes[i].nonEmpty) << i;
    EXPECT_EQ(table.categories.nodes[i].combos, before.nodes[i].combos) << i;
  }
}

// ---- plain mode ----

TEST(BuildResultsTree, PlainModeListsHoldingsInDisplayOrderMarkingClearedFlags) {
  ResultsTable table;
  // Keys: AhKd 14, AsKs 13, AcKc 10, AdQd 21.
  table.AddHolding(kEntryAceHigh, Holding("AhKd")).AddHolding(kEntryAceHigh, Holding("AsKs"));
  table.AddHolding(kEntryAceHigh, Holding("AcKc")).AddHolding(kEntryAceHigh, Marked("AdQd")).Finish(4);
  const ResultsCards cards = Cards("", "");
  const ResultsBuild build = Build(table, Options(true, false), cards);
  EXPECT_EQ(ExportLines(build, cards), (Lines{"High cards (4) 100%", "  A high (4) 100%", "    Ac Kc",
                                              "    As Ks", "    Ah Kd", "    Ad Qd *"}));
  for (int k = 0; k < 4; ++k) {
    const ResultNode& node = NodeWithKey(build.tree, std::to_string(k) + "-1k");
    EXPECT_EQ(node.parentKey, "1k");
    EXPECT_EQ(node.level, 2);
    EXPECT_TRUE(node.exportLine);
  }
}

TEST(BuildResultsTree, HoldingNodesAreColouredBySuitAndCategoriesAreNot) {
  ResultsTable table;
  table.Add(kEntryAceHigh, {"AcKc", "AdKd", "AhKh", "AsKs", "AhKd"}).Finish(5);
  const ResultsBuild build = Build(table, Options(true, false), Cards("", ""));
  EXPECT_EQ(NodeWithKey(build.tree, "0-1k").foreColour, Rgb(0, 192, 0));
  EXPECT_EQ(NodeWithKey(build.tree, "1-1k").foreColour, Rgb(0, 0, 255));
  EXPECT_EQ(NodeWithKey(build.tree, "2-1k").foreColour, Rgb(255, 0, 0));
  EXPECT_EQ(NodeWithKey(build.tree, "3-1k").foreColour, kWindowTextColour);
  EXPECT_EQ(NodeWithKey(build.tree, "4-1k").foreColour, Rgb(128, 64, 0));
  EXPECT_FALSE(NodeWithKey(build.tree, "1k").foreColour.has_value());
}

TEST(ResultNodeColour, FollowsTheSuitsOfTheHolding) {
  EXPECT_EQ(ResultNodeColour(0, 0), 0x00C000u);
  EXPECT_EQ(ResultNodeColour(1, 1), 0xFF0000u);
  EXPECT_EQ(ResultNodeColour(2, 2), 0x0000FFu);
  EXPECT_EQ(ResultNodeColour(3, 3), kWindowTextColour);
  EXPECT_EQ(ResultNodeColour(0, 1), 0x004080u);
  EXPECT_EQ(ResultNodeColour(3, 2), 0x004080u);
}

TEST(ColourResultNode, SetsTheColourOfTheNodeWithTheKey) {
  ResultsTree tree;
  std::string text;
  AddResultNode(tree, text, 0, "", kRootNode, "1k", "A high", "", true);
  AddResultNode(tree, text, 1, "1k", kChildNode, "0-1k", "Ah Kh", "", true);
  ColourResultNode(tree, "0-1k", 2, 2);
  EXPECT_EQ(tree.nodes[1].foreColour, Rgb(255, 0, 0));
  EXPECT_FALSE(tree.nodes[0].foreColour.has_value());
  ColourResultNode(tree, "nothing", 2, 2);  // no such node: nothing happens
}

// ---- Simplify Output ----

std::vector<std::string> SimplifiedLines(const std::vector<std::string>& holdings) {
  ResultsTable table;
  table.Add(kEntryAceHigh, holdings).Finish(static_cast<int32_t>(holdings.size()));
  const ResultsCards cards = Cards("", "");
  Lines lines = ExportLines(Build(table, Options(true, true), cards), cards);
  lines.erase(lines.begin(), lines.begin() + 2);  // the two category lines
  return lines;
}

TEST(SimplifyOutput, TwoHoldingsOfAClassGiveOnePartGroupAndOneGivesAPlainLineWithTwoBlanks) {
  EXPECT_EQ(SimplifiedLines({"AcKc", "AdKd"}), (Lines{"    ~AKs (2)", "      Ac Kc", "      Ad Kd"}));
  EXPECT_EQ(SimplifiedLines({"AcKc"}), (Lines{"      Ac Kc"}));
}

TEST(SimplifyOutput, AWholeClassGetsTheBullet) {
  EXPECT_EQ(SimplifiedLines({"AcKc", "AdKd", "AhKh", "AsKs"})[0],
            "    \xE2\x80\xA2"
            "AKs (4)");
  EXPECT_EQ(SimplifiedLines({"AcKd", "AcKh", "AcKs", "AdKc", "AdKh", "AdKs", "AhKc", "AhKd", "AhKs", "AsKc",
                             "AsKd", "AsKh"})[0],
            "    \xE2\x80\xA2"
            "AKo (12)");
  EXPECT_EQ(SimplifiedLines({"QcQd", "QcQh", "QcQs", "QdQh", "QdQs", "QhQs"})[0],
            "    \xE2\x80\xA2"
            "QQ  (6)");
}

TEST(SimplifyOutput, ThreeOffsuitHoldingsCarryNeitherMarkSinceTheOffsuitMarkNeedsFive) {
  EXPECT_EQ(SimplifiedLines({"AcKd", "AcKh", "AcKs"})[0], "    ~AK  (3)");
  EXPECT_EQ(SimplifiedLines({"AcKd", "AcKh", "AcKs", "AdKc", "AdKh"})[0], "    ~AKo (5)");
}

TEST(SimplifyOutput, SuitedAndOffsuitHoldingsOfTheSameRanksShareOneGroup) {
  EXPECT_EQ(SimplifiedLines({"AcKc", "AcKd"})[0], "    ~AK  (2)");
}

TEST(SimplifyOutput, AGroupIsMarkedWhenAnyOfItsHoldingsIsButASingleLineNeverIs) {
  ResultsTable table;
  table.AddHolding(kEntryAceHigh, Holding("AcKc")).AddHolding(kEntryAceHigh, Marked("AdKd"));
  table.AddHolding(kEntryAceHigh, Marked("AcQd")).Finish(3);
  const ResultsCards cards = Cards("", "");
  EXPECT_EQ(ExportLines(Build(table, Options(true, true), cards), cards),
            (Lines{"High cards (3) 100%", "  A high (3) 100%", "    ~AKs (2) *", "      Ac Kc",
                   "      Ad Kd *", "      Ac Qd"}));
}

TEST(SimplifyOutput, GroupsComeInOrderOfFirstAppearanceWithTheirHoldingsInStoredOrder) {
  ResultsTable table;
  table.Add(kEntryAceHigh, {"AsQs", "AdKh", "AcQc", "AhKd"}).Finish(4);
  const ResultsBuild build = Build(table, Options(true, true), Cards("", ""));
  EXPECT_EQ(NodeWithKey(build.tree, "0-1k").text, "~AQs (2)");
  EXPECT_EQ(NodeWithKey(build.tree, "0-0-1k").text, "As Qs");
  EXPECT_EQ(NodeWithKey(build.tree, "1-0-1k").text, "Ac Qc");
  EXPECT_EQ(NodeWithKey(build.tree, "1-1k").text, "~AK  (2)");
  EXPECT_EQ(NodeWithKey(build.tree, "0-1-1k").text, "Ad Kh");
  EXPECT_EQ(NodeWithKey(build.tree, "0-1-1k").parentKey, "1-1k");
  EXPECT_EQ(NodeWithKey(build.tree, "0-1-1k").level, 3);
  EXPECT_EQ(NodeWithKey(build.tree, "1-1k").level, 2);
  EXPECT_FALSE(NodeWithKey(build.tree, "1-1k").foreColour.has_value());
  EXPECT_EQ(NodeWithKey(build.tree, "0-1-1k").foreColour, Rgb(128, 64, 0));
}

TEST(SimplifyOutput, ASingleHoldingLineHangsUnderTheCategoryWithTheGroupKey) {
  ResultsTable table;
  table.Add(kEntryAceHigh, {"AcKc", "AdKd", "AhQh"}).Finish(3);
  const ResultsBuild build = Build(table, Options(true, true), Cards("", ""));
  const ResultNode& single = NodeWithKey(build.tree, "1-1k");
  EXPECT_EQ(single.text, "  Ah Qh");
  EXPECT_EQ(single.parentKey, "1k");
  EXPECT_EQ(single.level, 2);
  EXPECT_TRUE(single.children.empty());
  EXPECT_EQ(single.foreColour, Rgb(255, 0, 0));
}

TEST(SimplifyFurther, LeavesTheHoldingsUnderAGroupOutOfTheTextButInTheTree) {
  ResultsTable table;
  table.Add(kEntryAceHigh, {"AcKc", "AdKd", "AhQh"}).Finish(3);
  const ResultsCards cards = Cards("", "");
  const ResultsBuild build = Build(table, Options(true, true, true), cards);
  EXPECT_EQ(ExportLines(build, cards),
            (Lines{"High cards (3) 100%", "  A high (3) 100%", "    ~AKs (2)", "      Ah Qh"}));
  EXPECT_EQ(build.tree.nodes.size(), 6u);
  EXPECT_FALSE(NodeWithKey(build.tree, "0-0-1k").exportLine);
}

TEST(SimplifyFurther, HasNoEffectWhileSimplifyOutputIsOff) {
  ResultsTable table;
  table.Add(kEntryAceHigh, {"AcKc", "AdKd", "AhQh"}).Finish(3);
  const ResultsCards cards = Cards("", "");
  EXPECT_EQ(Build(table, Options(true, false, true), cards).exportText,
            Build(table, Options(true, false, false), cards).exportText);
}

TEST(BuildResultsTree, TheTextHasExactlyOneLinePerNodeAddedWithALineInTheOrderAdded) {
  ResultsTable table;
  table.Add(kEntryAceHigh, {"AcKc", "AdKd", "AhQh"}).Add(kEntryOverPair, {"AcAd"});
  table.AddHolding(kEntryFlushDraw, Marked("AhQh")).Finish(4);
  const ResultsCards cards = Cards("", "");
  for (const bool hide : {true, false}) {
    for (const bool simplify : {true, false}) {
      for (const bool further : {true, false}) {
        const ResultsBuild build = Build(table, Options(hide, simplify, further), cards);
        EXPECT_EQ(build.exportText, ExportHeader("", "") + ExportFromNodes(build.tree));
      }
    }
  }
}

// ---- icons ----

TEST(BuildResultsTree, CategoryIconsShowTheCategoryKeysAndAttachTheImageList) {
  ResultsTable table;
  table.Add(kEntryAceHigh, {"AcKd"}).Add(kEntryTopSet, {"KcKd"}).Finish(2);
  ResultsOptions options = Options(true, false);
  options.categoryIcons = true;
  const ResultsBuild build = Build(table, options, Cards("", ""));
  EXPECT_TRUE(build.tree.imageListAttached);
  EXPECT_EQ(NodeWithKey(build.tree, "0k").image, "highcard");
  EXPECT_EQ(NodeWithKey(build.tree, "1k").image, "");  // the high-card children have no key
  EXPECT_EQ(NodeWithKey(build.tree, "36k").image, "");
  EXPECT_EQ(NodeWithKey(build.tree, "37k").image, "setm");
  EXPECT_EQ(NodeWithKey(build.tree, "38k").image, "sett");

  const ResultsBuild plain = Build(table, Options(true, false), Cards("", ""));
  EXPECT_FALSE(plain.tree.imageListAttached);
  EXPECT_EQ(NodeWithKey(plain.tree, "0k").image, "");
}

ResultsOptions WinLose(bool simplify) {
  ResultsOptions o = Options(true, simplify);
  o.winLoseIcons = true;
  return o;
}

// On Tc9c2c My Hand AhKd is ace high: it ties with AsKs, beats QhJh, and loses to AcKc and QcJc (flushes).
TEST(WinLoseIcons, PlainModeGivesEachHoldingItsOwnIcon) {
  ResultsTable table;
  table.Add(kEntryAceHigh, {"AsKs", "AcKc"}).Add(kEntryQueenHigh, {"QhJh", "QcJc"}).Finish(4);
  const ResultsBuild build = Build(table, WinLose(false), Cards("AhKd", "Tc9c2c"));
  EXPECT_TRUE(build.tree.imageListAttached);
  // Sorted: AcKc (key 10) before AsKs (13), QcJc (50) before QhJh (52).
  EXPECT_EQ(NodeWithKey(build.tree, "0-1k").text, "Ac Kc");
  EXPECT_EQ(NodeWithKey(build.tree, "0-1k").image, "lose");
  EXPECT_EQ(NodeWithKey(build.tree, "1-1k").image, "tie");
  EXPECT_EQ(NodeWithKey(build.tree, "0-3k").image, "lose");
  EXPECT_EQ(NodeWithKey(build.tree, "1-3k").image, "win");
  EXPECT_EQ(NodeWithKey(build.tree, "1k").image, "");  // categories show their own icons only
}

TEST(WinLoseIcons, AGroupWhoseFirstHoldingWinsShowsWinEvenIfALaterOneLoses) {
  ResultsTable table;
  table.Add(kEntryQueenHigh, {"QhJh", "QcJc"}).Finish(2);
  const ResultsBuild build = Build(table, WinLose(true), Cards("AhKd", "Tc9c2c"));
  EXPECT_EQ(NodeWithKey(build.tree, "0-3k").image, "win");
  EXPECT_EQ(NodeWithKey(build.tree, "0-0-3k").image, "");
  EXPECT_EQ(NodeWithKey(build.tree, "1-0-3k").image, "");
}

TEST(WinLoseIcons, AGroupWhoseFirstHoldingLosesShowsLoseAndItsHoldingsNothing) {
  ResultsTable table;
  table.Add(kEntryAceHigh, {"AcKc", "AsKs"}).Finish(2);
  const ResultsBuild build = Build(table, WinLose(true), Cards("AhKd", "Tc9c2c"));
  EXPECT_EQ(NodeWithKey(build.tree, "0-1k").image, "lose");
  EXPECT_EQ(NodeWithKey(build.tree, "0-0-1k").image, "");
  EXPECT_EQ(NodeWithKey(build.tree, "1-0-1k").image, "");
}

TEST(WinLoseIcons, AGroupWhoseFirstHoldingTiesShowsTieAndEachHoldingItsOwn) {
  ResultsTable table;
  table.Add(kEntryAceHigh, {"AsKs", "AcKc"}).Finish(2);
  const ResultsBuild build = Build(table, WinLose(true), Cards("AhKd", "Tc9c2c"));
  EXPECT_EQ(NodeWithKey(build.tree, "0-1k").image, "tie");
  EXPECT_EQ(NodeWithKey(build.tree, "0-0-1k").image, "tie");
  EXPECT_EQ(NodeWithKey(build.tree, "1-0-1k").image, "lose");
}

TEST(WinLoseIcons, ASingleHoldingLineShowsItsOwnIcon) {
  ResultsTable table;
  table.Add(kEntryQueenHigh, {"QcJc"}).Finish(1);
  const ResultsBuild build = Build(table, WinLose(true), Cards("AhKd", "Tc9c2c"));
  EXPECT_EQ(NodeWithKey(build.tree, "0-3k").text, "  Qc Jc");
  EXPECT_EQ(NodeWithKey(build.tree, "0-3k").image, "lose");
}

TEST(WinLoseIcons, NoBoardOrNoHandGivesNoImageAtAll) {
  ResultsTable table;
  table.Add(kEntryAceHigh, {"AsKs", "AcKc"}).Add(kEntryQueenHigh, {"QhJh"}).Finish(3);
  for (const ResultsCards& cards : {Cards("AhKd", ""), Cards("", "Tc9c2c")}) {
    for (const bool simplify : {true, false}) {
      const ResultsBuild build = Build(table, WinLose(simplify), cards);
      EXPECT_TRUE(build.tree.imageListAttached);
      for (const ResultNode& node : build.tree.nodes) EXPECT_EQ(node.image, "") << node.text;
    }
  }
}

TEST(WinTieLoseIcon, IsEmptyAndNotDecisiveWhenTheOptionIsOff) {
  const ResultsCards cards = Cards("AhKd", "Tc9c2c");
  const WinTieLose off = WinTieLoseIcon(false, cards.hand, Holding("QcJc"), cards.board, cards.OnStreet());
  EXPECT_EQ(off.imageKey, "");
  EXPECT_FALSE(off.decisive);
  const WinTieLose lose = WinTieLoseIcon(true, cards.hand, Holding("QcJc"), cards.board, cards.OnStreet());
  EXPECT_EQ(lose.imageKey, "lose");
  EXPECT_TRUE(lose.decisive);
  const WinTieLose win = WinTieLoseIcon(true, cards.hand, Holding("QhJh"), cards.board, cards.OnStreet());
  EXPECT_EQ(win.imageKey, "win");
  EXPECT_TRUE(win.decisive);
  const WinTieLose tie = WinTieLoseIcon(true, cards.hand, Holding("AsKs"), cards.board, cards.OnStreet());
  EXPECT_EQ(tie.imageKey, "tie");
  EXPECT_FALSE(tie.decisive);
}

TEST(WinTieLoseIcon, UnderTheStandardRulesTheNutFlushBeatsAJackHighFlush) {
  // AsKs holds six spades on Qs7s2s5s: no flush by the program's own exactly-five rule, the nut flush by
  // the standard rules.
  const ResultsCards cards = Cards("AsKs", "Qs7s2s5s");
  EXPECT_EQ(WinTieLoseIcon(true, cards.hand, Holding("Js3c"), cards.board, cards.OnStreet()).imageKey,
            "lose");
  EXPECT_EQ(WinTieLoseIcon(true, cards.hand, Holding("Js3c"), cards.board, cards.OnStreet(),
                           ShowdownRules::Standard)
                .imageKey,
            "win");
  // A board that plays for both splits under the standard rules, whatever the hole cards.
  const ResultsCards straight = Cards("2c3d", "TsJhQcKdAh");
  EXPECT_EQ(WinTieLoseIcon(true, straight.hand, Holding("4h2s"), straight.board, straight.OnStreet(),
                           ShowdownRules::Standard)
                .imageKey,
            "tie");
}

TEST(WinLoseIcons, TheBuildMarksTheIconsByTheRulesItsOptionsName) {
  ResultsTable table;
  table.Add(kEntryQueenHigh, {"Js3c"}).Finish(1);
  ResultsOptions options = WinLose(true);
  EXPECT_EQ(NodeWithKey(Build(table, options, Cards("AsKs", "Qs7s2s5s")).tree, "0-3k").image, "lose");
  options.showdownRules = ShowdownRules::Standard;
  EXPECT_EQ(NodeWithKey(Build(table, options, Cards("AsKs", "Qs7s2s5s")).tree, "0-3k").image, "win");
}

// ---- AddResultNode ----

TEST(AddResultNode, ARootNodeGivesItsTextAndAChildItsTextIndentedTwoBlanksPerLevel) {
  ResultsTree tree;
  std::string text;
  EXPECT_EQ(AddResultNode(tree, text, 0, "", kRootNode, "0k", "Root", "", true), 0);
  EXPECT_EQ(AddResultNode(tree, text, 3, "0k", kChildNode, "0-0k", "Deep", "win", true), 1);
  EXPECT_EQ(AddResultNode(tree, text, 1, "0k", kChildNode, "1-0k", "Quiet", "", false), 2);
  EXPECT_EQ(text, "Root\r\n      Deep\r\n");
  EXPECT_EQ(tree.nodes[1].image, "win");
  EXPECT_EQ(tree.nodes[1].parent, 0);
  EXPECT_EQ(tree.nodes[0].children, (std::vector<int>{1, 2}));
  // A relationship of -1 or an empty parent key puts the node at the root, whatever its level.
  AddResultNode(tree, text, 2, "0k", kRootNode, "x", "Top again", "", true);
  AddResultNode(tree, text, 2, "", kChildNode, "y", "And again", "", true);
  EXPECT_EQ(tree.nodes[3].parent, -1);
  EXPECT_EQ(tree.nodes[4].parent, -1);
  EXPECT_EQ(text, "Root\r\n      Deep\r\nTop again\r\nAnd again\r\n");
}

TEST(CategoryDepth, CountsTheCharactersBeforeTheFirstStar) {
  EXPECT_EQ(CategoryDepth("*One pair"), 0);
  EXPECT_EQ(CategoryDepth(">*T pair"), 1);
  EXPECT_EQ(CategoryDepth(">>*x*y"), 2);
  EXPECT_EQ(CategoryDepth("*"), 0);
  EXPECT_EQ(CategoryDepth("none"), -1);
}

}  // namespace
}  // namespace quillet
