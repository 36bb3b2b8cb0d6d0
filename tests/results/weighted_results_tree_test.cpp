// The results tree of a weighted cook: counts are the combinations the holdings make ("12.5"), and every
// percentage is a share of the weighted total.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "cards/holding.h"
#include "categorise/categories.h"
#include "results/build_results_tree.h"
#include "tests/results/results_table.h"

namespace quillet {
namespace {

using testing::Cards;
using testing::ExportFromNodes;
using testing::ExportLines;
using testing::Holding;
using testing::Options;
using testing::ResultsTable;

using Lines = std::vector<std::string>;

HandCombo Weighted(const std::string& text, int32_t thousandths) {
  HandCombo combo = Holding(text);
  combo.weight = thousandths;
  return combo;
}

std::string NodeText(const ResultsBuild& build, const std::string& key) {
  const int index = build.tree.find(key);
  EXPECT_GE(index, 0) << key;
  return index >= 0 ? build.tree.nodes[index].text : std::string();
}

// Pairs hold 1.75 combinations in three holdings, sets 0.75 in one: of the 2.5 categorised they are 70 and
// 30 per cent (by the holdings alone it would be 75 and 25).
TEST(WeightedResultsTree, CountsAreCombinationsAndPercentagesSharesOfTheWeightedTotal) {
  ResultsTable table({"*Made", ">*Pairs", ">*Sets"});
  table.AddHolding(1, Weighted("AcAd", 500))
      .AddHolding(1, Weighted("KcKd", 1000))
      .AddHolding(1, Weighted("QcQd", 250))
      .AddHolding(2, Weighted("7c7d", 750))
      .Finish(4, 2500);
  const ResultsCards cards = Cards("", "");
  const ResultsBuild build = BuildResultsTree(table.categories, Options(true, false), cards, nullptr);
  EXPECT_EQ(ExportLines(build, cards), (Lines{"Made (2.5) 100%", "  Pairs (1.75) 70%", "    Ac Ad",
                                              "    Kc Kd", "    Qc Qd", "  Sets (0.75) 30%", "    7c 7d"}));
  EXPECT_EQ(build.exportText, ExportHeader("", "") + ExportFromNodes(build.tree));
}

TEST(WeightedResultsTree, FractionsAreWrittenWithoutTrailingZerosAndWholeSumsAsIntegers) {
  ResultsTable table({"*Half", "*Pair of halves", "*Least", "*Tenths"});
  for (int h = 0; h < 25; ++h) {
    const std::array<Card, 2> c = CardsOfHolding(h);
    table.AddHolding(0, HandCombo{true, c[0].rank, c[0].suit, c[1].rank, c[1].suit, 500});
  }
  table.AddHolding(1, Weighted("AhKh", 500)).AddHolding(1, Weighted("AsKs", 500));
  table.AddHolding(2, Weighted("QhJh", 1));
  table.AddHolding(3, Weighted("9h8h", 100)).AddHolding(3, Weighted("9s8s", 200));
  table.Finish(30, 12500 + 1000 + 1 + 300);
  const ResultsBuild build = BuildResultsTree(table.categories, Options(true, false), Cards("", ""), nullptr);
  // 12.5, 1, 0.001 and 0.3 of 13.801: 90.6, 7.2, 0.007 and 2.2 per cent, truncated.
  EXPECT_EQ(NodeText(build, "0k"), "Half (12.5) 90%");
  EXPECT_EQ(NodeText(build, "1k"), "Pair of halves (1) 7%");
  EXPECT_EQ(NodeText(build, "2k"), "Least (0.001) 0%");
  EXPECT_EQ(NodeText(build, "3k"), "Tenths (0.3) 2%");
}

TEST(WeightedResultsTree, AGroupCountsTheCombinationsOfItsHoldings) {
  ResultsTable table({"*Suited"});
  for (const char* h : {"AcKc", "AdKd", "AhKh", "AsKs"}) table.AddHolding(0, Weighted(h, 500));
  table.AddHolding(0, Weighted("AcQc", 500)).AddHolding(0, Weighted("AdQd", 250));
  table.AddHolding(0, Weighted("JhTh", 125));
  table.Finish(7, 2000 + 750 + 125);
  const ResultsCards cards = Cards("", "");
  const ResultsBuild build = BuildResultsTree(table.categories, Options(true, true), cards, nullptr);
  const std::string bullet = "\xE2\x80\xA2";
  EXPECT_EQ(ExportLines(build, cards),
            (Lines{"Suited (2.875) 100%", "  " + bullet + "AKs (2)", "    Ac Kc", "    Ad Kd", "    Ah Kh",
                   "    As Ks", "  ~AQs (0.75)", "    Ac Qc", "    Ad Qd", "    Jh Th"}));
}

TEST(WeightedResultsTree, WholeWeightsGiveTheCountsAsBefore) {
  ResultsTable weighted({"*Made", ">*Pairs"});
  weighted.Add(1, {"AcAd", "KcKd", "QcQd"}).Finish(3);
  const ResultsBuild build =
      BuildResultsTree(weighted.categories, Options(true, false), Cards("", ""), nullptr);
  EXPECT_EQ(NodeText(build, "0k"), "Made (3) 100%");
  EXPECT_EQ(NodeText(build, "1k"), "Pairs (3) 100%");
}

}  // namespace
}  // namespace quillet
