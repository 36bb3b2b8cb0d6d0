// The quick-select and clear commands and the hover highlight on the window model.
#include "tests/model_editor/editor_fixture.h"

namespace quillet {
namespace {

using QuickSelect = EditorTest;

std::set<int> AllBlocks() {
  std::set<int> all;
  for (int i = 0; i < kClassCount; ++i) all.insert(i);
  return all;
}

TEST_F(QuickSelect, AllAddsEveryBlockWhole) {
  form.cmdAll_Click();
  EXPECT_EQ(BlocksIn(onLayer()), AllBlocks());
  EXPECT_EQ(SelectedOn(), AllBlocks());
  EXPECT_EQ(form.grid().txtRange.text, "~100");
  EXPECT_EQ(onLayer()[Block("AKs")].count, 4);
  EXPECT_EQ(onLayer()[Block("AK")].count, 12);
  EXPECT_EQ(onLayer()[Block("AA")].count, 6);
}

TEST_F(QuickSelect, AnyPairAddsTheThirteenPairs) {
  form.cmdAnyPair_Click();
  EXPECT_EQ(BlocksIn(onLayer()),
            Blocks({"AA", "KK", "QQ", "JJ", "TT", "99", "88", "77", "66", "55", "44", "33", "22"}));
  EXPECT_EQ(form.grid().txtRange.text, "~5.9");  // 78 of 1326
}

TEST_F(QuickSelect, AnyPairTwiceLeavesTheSameRangeAsOnce) {
  form.cmdAnyPair_Click();
  const PlayerProfile once = form.profiles().list[0];
  const std::string text = form.grid().txtRange.text;
  form.cmdAnyPair_Click();
  EXPECT_EQ(form.profiles().list[0], once);
  EXPECT_EQ(form.grid().txtRange.text, text);
}

TEST_F(QuickSelect, AnySuitedAddsTheSeventyEightSuitedClasses) {
  form.cmdAnySuited_Click();
  EXPECT_EQ(BlocksIn(onLayer()).size(), 78u);
  for (int i : BlocksIn(onLayer())) {
    EXPECT_EQ(HandClasses()[i].name.size(), 3u);
    EXPECT_EQ(onLayer()[i].count, 4);
    EXPECT_EQ(onLayer()[i].suited, kTrue16);
  }
  EXPECT_EQ(form.grid().txtRange.text, "~23.5");  // 312 of 1326
}

TEST_F(QuickSelect, AnyBroadwayAddsTheTwentyFiveClassesOfAceToTen) {
  form.cmdAnyBroadway_Click();
  const std::set<int> broadway = BlocksIn(onLayer());
  EXPECT_EQ(broadway.size(), 25u);
  for (int i : broadway) {
    for (char c : HandClasses()[i].name.substr(0, 2))
      EXPECT_NE(std::string("AKQJT").find(c), std::string::npos);
  }
  // 5 pairs, 10 suited and 10 offsuit classes: 30 + 40 + 120 = 190 holdings.
  EXPECT_EQ(form.grid().txtRange.text, "~14.3");
}

TEST_F(QuickSelect, AddingDoesNotDeselectFirst) {
  form.PFHand_MouseUp(Block("72"), kLeftButton, 0);
  form.cmdAnyPair_Click();
  EXPECT_TRUE(SelectedOn().count(Block("72")));
  EXPECT_EQ(SelectedOn().size(), 14u);
  EXPECT_EQ(onLayer()[Block("72")].count, 12);
}

TEST_F(QuickSelect, AllAfterASeenEditKeepsTheSeenLayerAndItsSelection) {
  form.PFHand_MouseUp(Block("72"), kRightButton, 0);
  form.PFHand_MouseUp(Block("AQs"), kRightButton, kShiftMask);
  const RangeLayer seenBefore = seenLayer();
  form.cmdAll_Click();
  EXPECT_EQ(seenLayer(), seenBefore);
  EXPECT_EQ(SelectedSeen(), Blocks({"72", "AQs"}));
  for (int i = 0; i < kClassCount; ++i) {
    const Colour expected = (i == Block("72") || i == Block("AQs")) ? 0xFF0000u : 0xFF80FFu;
    EXPECT_EQ(form.grid().blockColour[i], expected) << i;
  }
}

TEST_F(QuickSelect, ClearOnLeavesTheSeenBlocksInTheirColoursAndRemovesAllSelectionColours) {
  form.PFHand_MouseUp(Block("72"), kRightButton, 0);
  SetBlockSuitPair(seenLayer()[Block("AQs")], 2, 2, true, false);
  form.cmdAll_Click();
  form.cmdClearOnBlocks_Click();
  EXPECT_TRUE(BlocksIn(onLayer()).empty());
  EXPECT_EQ(BlocksIn(seenLayer()), Blocks({"72", "AQs"}));
  EXPECT_TRUE(SelectedOn().empty());
  EXPECT_TRUE(SelectedSeen().empty());
  EXPECT_EQ(form.grid().blockColour[Block("72")], 0xFFFF00u);   // Seen layer, whole block
  EXPECT_EQ(form.grid().blockColour[Block("AQs")], 0xC0C000u);  // Seen layer, part of the block
  EXPECT_EQ(form.grid().blockColour[Block("AA")], 0xC0FFC0u);   // pair base colour
}

TEST_F(QuickSelect, ClearSeenEmptiesOnlyTheSeenLayer) {
  form.PFHand_MouseUp(Block("72"), kRightButton, 0);
  form.cmdAnyPair_Click();
  form.cmdClearSeenBlocks_Click();
  EXPECT_TRUE(BlocksIn(seenLayer()).empty());
  EXPECT_EQ(BlocksIn(onLayer()).size(), 13u);
  EXPECT_EQ(form.grid().blockColour[Block("AA")], 0x00FFFFu);  // On layer, whole block
}

TEST_F(QuickSelect, ClearAllEmptiesBothLayersAndResetsOnlyTheCounts) {
  form.PFHand_MouseUp(Block("72"), kRightButton, 0);
  form.cmdAll_Click();
  form.cmdClearAllBlocks_Click();
  EXPECT_TRUE(BlocksIn(onLayer()).empty());
  EXPECT_TRUE(BlocksIn(seenLayer()).empty());
  EXPECT_EQ(onLayer()[Block("AK")].whole, kTrue16);  // flags and list stay; readers test the count
  for (int i = 0; i < kClassCount; ++i) EXPECT_EQ(form.grid().blockColour[i], form.grid().baseColour[i]);
}

TEST_F(QuickSelect, AClearingCommandClearsTheKindsAndTheMatrixShowsNoCells) {
  form.cmdAll_Click();
  ASSERT_EQ(ShownCells().size(), 16u);
  form.cmdClearOnBlocks_Click();
  EXPECT_FALSE(form.grid().pairPresent || form.grid().suitedPresent || form.grid().offsuitPresent);
  EXPECT_TRUE(ShownCells().empty());
}

TEST_F(QuickSelect, ClearAllAfterTypingAPercentLeavesTheTypedText) {
  TypeRange("16.4");
  form.cmdClearAllBlocks_Click();
  EXPECT_EQ(form.grid().txtRange.text, "16.4");
  EXPECT_TRUE(BlocksIn(onLayer()).empty());
}

TEST_F(QuickSelect, AnAddingCommandAlwaysWritesTheComputedText) {
  TypeRange("16.4");
  form.cmdAnyPair_Click();
  EXPECT_EQ(form.grid().txtRange.text.substr(0, 1), "~");
}

TEST_F(QuickSelect, ClearingAPartialRangeRewritesATypedText) {
  TypeRange("16.4");
  SetBlockSuitPair(seenLayer()[Block("AQs")], 2, 2, true, false);
  form.cmdClearOnBlocks_Click();
  EXPECT_EQ(form.grid().txtRange.text, "~0.1");
}

// ---- hover highlight ----

TEST_F(QuickSelect, HoveringALabelMakesItOpaque) {
  form.HighlightLabel(CommandLabel::cmdAll);
  EXPECT_TRUE(form.label(CommandLabel::cmdAll).opaque);
  EXPECT_EQ(form.highlightedLabel, CommandLabel::cmdAll);
}

TEST_F(QuickSelect, MovingFromOneLabelStraightOntoAnotherMovesTheHighlight) {
  form.HighlightLabel(CommandLabel::cmdAnyPair);
  form.HighlightLabel(CommandLabel::lblHelp);
  EXPECT_FALSE(form.label(CommandLabel::cmdAnyPair).opaque);
  EXPECT_TRUE(form.label(CommandLabel::lblHelp).opaque);
  int opaque = 0;
  for (const LabelState& l : form.commandLabels) opaque += l.opaque ? 1 : 0;
  EXPECT_EQ(opaque, 1);
}

TEST_F(QuickSelect, HoveringTheSameLabelAgainChangesNothing) {
  form.HighlightLabel(CommandLabel::cmdCalcEquity);
  form.HighlightLabel(CommandLabel::cmdCalcEquity);
  EXPECT_TRUE(form.label(CommandLabel::cmdCalcEquity).opaque);
}

TEST_F(QuickSelect, TheBareWindowForgetsTheHighlight) {
  form.HighlightLabel(CommandLabel::cmdClearAllBlocks);
  form.Form_MouseMove();
  EXPECT_FALSE(form.label(CommandLabel::cmdClearAllBlocks).opaque);
  EXPECT_FALSE(form.highlightedLabel.has_value());
  form.Form_MouseMove();  // nothing highlighted: nothing to do
  EXPECT_FALSE(form.highlightedLabel.has_value());
}

}  // namespace
}  // namespace quillet
