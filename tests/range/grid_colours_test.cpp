#include "range/grid_colours.h"

#include <gtest/gtest.h>

#include <set>

#include "cards/hand_class.h"

namespace quillet {
namespace {

class BlockColourRules : public ::testing::Test {
 protected:
  RangeLayer on = MakeEmptyLayer();
  RangeLayer seen = MakeEmptyLayer();
  const int aks = FindClassByName("AKs");
};

TEST_F(BlockColourRules, TheSeenSelectionWinsOverEverything) {
  SetBlockWhole(on[aks], true);
  SetBlockWhole(seen[aks], true);
  EXPECT_EQ(ChooseBlockColourRule(true, true, on[aks], seen[aks]), BlockColourRule::SeenSelection);
}

TEST_F(BlockColourRules, TheOnSelectionWinsOverTheLayers) {
  SetBlockWhole(seen[aks], true);
  EXPECT_EQ(ChooseBlockColourRule(false, true, on[aks], seen[aks]), BlockColourRule::OnSelection);
}

TEST_F(BlockColourRules, ABlockInBothLayersShowsBothEvenWhenOnlyPartlyInEither) {
  SetBlockSuitPair(on[aks], 0, 0, true, false);
  SetBlockSuitPair(seen[aks], 1, 1, true, false);
  EXPECT_EQ(ChooseBlockColourRule(false, false, on[aks], seen[aks]), BlockColourRule::BothLayers);
}

TEST_F(BlockColourRules, TheOnLayerAloneShowsWholeOrPart) {
  SetBlockWhole(on[aks], true);
  EXPECT_EQ(ChooseBlockColourRule(false, false, on[aks], seen[aks]), BlockColourRule::OnWhole);
  SetBlockSuitPair(on[aks], 2, 2, false, false);
  EXPECT_EQ(ChooseBlockColourRule(false, false, on[aks], seen[aks]), BlockColourRule::OnPart);
}

TEST_F(BlockColourRules, TheSeenLayerAloneShowsWholeOrPart) {
  SetBlockWhole(seen[aks], true);
  EXPECT_EQ(ChooseBlockColourRule(false, false, on[aks], seen[aks]), BlockColourRule::SeenWhole);
  SetBlockSuitPair(seen[aks], 3, 3, false, false);
  EXPECT_EQ(ChooseBlockColourRule(false, false, on[aks], seen[aks]), BlockColourRule::SeenPart);
}

TEST_F(BlockColourRules, ABlockOutOfBothLayersShowsItsBaseColour) {
  EXPECT_EQ(ChooseBlockColourRule(false, false, on[aks], seen[aks]), BlockColourRule::Base);
  // A cleared count takes the block out even where the stale list and flags remain.
  SetBlockWhole(on[aks], true);
  on[aks].count = 0;
  EXPECT_EQ(ChooseBlockColourRule(false, false, on[aks], seen[aks]), BlockColourRule::Base);
}

TEST(BlockRuleColour, GivesTheDefaultSchemesValues) {
  const ColourScheme& s = kDefaultColourScheme;
  EXPECT_EQ(BlockRuleColour(BlockColourRule::SeenSelection, s, 1), 0xFF0000u);
  EXPECT_EQ(BlockRuleColour(BlockColourRule::OnSelection, s, 1), 0xFF80FFu);
  EXPECT_EQ(BlockRuleColour(BlockColourRule::BothLayers, s, 1), 0xFF8080u);
  EXPECT_EQ(BlockRuleColour(BlockColourRule::OnWhole, s, 1), 0x00FFFFu);
  EXPECT_EQ(BlockRuleColour(BlockColourRule::OnPart, s, 1), 0xC0FFFFu);
  EXPECT_EQ(BlockRuleColour(BlockColourRule::SeenWhole, s, 1), 0xFFFF00u);
  EXPECT_EQ(BlockRuleColour(BlockColourRule::SeenPart, s, 1), 0xC0C000u);
  EXPECT_EQ(BlockRuleColour(BlockColourRule::Base, s, 0x123456), 0x123456u);
}

TEST(BlockRuleColour, GivesTheNewSchemesValues) {
  const ColourScheme& s = kNewColourScheme;
  EXPECT_EQ(BlockRuleColour(BlockColourRule::SeenSelection, s, 1), 0xC0C000u);
  EXPECT_EQ(BlockRuleColour(BlockColourRule::OnSelection, s, 1), 0xFF0000u);
  EXPECT_EQ(BlockRuleColour(BlockColourRule::BothLayers, s, 1), 0xFFFFFFu);
  EXPECT_EQ(BlockRuleColour(BlockColourRule::OnWhole, s, 1), 0xFF6F55u);
  EXPECT_EQ(BlockRuleColour(BlockColourRule::OnPart, s, 1), 0xFFA595u);
  EXPECT_EQ(BlockRuleColour(BlockColourRule::SeenWhole, s, 1), 0xFFFF80u);
  EXPECT_EQ(BlockRuleColour(BlockColourRule::SeenPart, s, 1), 0xFFFFC0u);
  EXPECT_EQ(BlockRuleColour(BlockColourRule::Base, s, 0x654321), 0x654321u);
}

TEST(BlockColourRule, OnlyBothLayersAndPartialBlocksCountAsMixed) {
  EXPECT_TRUE(IsMixedRule(BlockColourRule::BothLayers));
  EXPECT_TRUE(IsMixedRule(BlockColourRule::OnPart));
  EXPECT_TRUE(IsMixedRule(BlockColourRule::SeenPart));
  EXPECT_FALSE(IsMixedRule(BlockColourRule::SeenSelection));
  EXPECT_FALSE(IsMixedRule(BlockColourRule::OnSelection));
  EXPECT_FALSE(IsMixedRule(BlockColourRule::OnWhole));
  EXPECT_FALSE(IsMixedRule(BlockColourRule::SeenWhole));
  EXPECT_FALSE(IsMixedRule(BlockColourRule::Base));
}

std::set<int> CellsOfKind(int32_t kind) {
  std::set<int> cells;
  for (int k = 0; k < kSuitMatrixCells; ++k) {
    if (CellFitsKind(k, kind)) cells.insert(k);
  }
  return cells;
}

TEST(SuitMatrix, TheDiagonalHoldsTheSuitedCells) {
  EXPECT_EQ(CellsOfKind(11), (std::set<int>{0, 5, 10, 15}));
}

TEST(SuitMatrix, TheCellsBelowTheDiagonalHoldThePairCells) {
  EXPECT_EQ(CellsOfKind(22), (std::set<int>{4, 8, 9, 12, 13, 14}));
}

TEST(SuitMatrix, EveryCellOffTheDiagonalIsAnOffsuitCell) {
  EXPECT_EQ(CellsOfKind(12), (std::set<int>{1, 2, 3, 4, 6, 7, 8, 9, 11, 12, 13, 14}));
}

TEST(SuitMatrix, CellFourTimesAPlusBStandsForSuitsAAndB) {
  const auto& cells = SuitMatrixCells();
  EXPECT_EQ(cells[6].suit1, 1);
  EXPECT_EQ(cells[6].suit2, 2);
  EXPECT_EQ(cells[12].suit1, 3);
  EXPECT_EQ(cells[12].suit2, 0);
}

TEST(SuitMatrix, UnknownKindsAndCellsFitNothing) {
  EXPECT_TRUE(CellsOfKind(0).empty());
  EXPECT_FALSE(CellFitsKind(-1, 12));
  EXPECT_FALSE(CellFitsKind(16, 12));
}

}  // namespace
}  // namespace quillet
