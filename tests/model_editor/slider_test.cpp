// The percentage slider on the window model.
#include "tests/model_editor/editor_fixture.h"

namespace quillet {
namespace {

using Slider = EditorTest;

TEST_F(Slider, PositionZeroGivesAcesOnlyAndTheTextZeroPointFive) {
  form.grid().Slider1.value = 0;
  form.Slider1_MouseMove(kLeftButton);
  EXPECT_EQ(form.grid().txtRange.text, "0.5");
  EXPECT_EQ(BlocksIn(onLayer()), Blocks({"AA"}));
  EXPECT_EQ(SelectedOn(), Blocks({"AA"}));
  EXPECT_EQ(form.grid().blockColour[Block("AA")], 0xFF80FFu);
}

TEST_F(Slider, ADragPutsTheTopOfTheOrderUpToThePositionIntoTheOnLayer) {
  form.grid().Slider1.value = 3;  // AA; KK, QQ; JJ; TT, AKs
  form.Slider1_MouseMove(kLeftButton);
  EXPECT_EQ(form.grid().txtRange.text, "2.6");
  EXPECT_EQ(BlocksIn(onLayer()), Blocks({"AA", "KK", "QQ", "JJ", "TT", "AKs"}));
  EXPECT_EQ(onLayer()[Block("AKs")].suited, kTrue16);
  EXPECT_EQ(onLayer()[Block("AKs")].count, 4);
}

TEST_F(Slider, TheLastPositionTakesEveryClass) {
  form.grid().Slider1.value = 146;
  form.Slider1_MouseMove(kLeftButton);
  EXPECT_EQ(form.grid().txtRange.text, "100");
  EXPECT_EQ(BlocksIn(onLayer()).size(), 169u);
  EXPECT_EQ(onLayer()[Block("32")].count, 12);
}

TEST_F(Slider, MovingDownTakesOutWhatTheHigherPositionAdded) {
  form.PFHand_MouseUp(Block("72"), kLeftButton, 0);
  form.grid().Slider1.value = 10;
  form.Slider1_MouseMove(kLeftButton);
  form.grid().Slider1.value = 1;
  form.Slider1_MouseMove(kLeftButton);
  EXPECT_EQ(BlocksIn(onLayer()), Blocks({"AA", "KK", "QQ"}));
}

TEST_F(Slider, MovingKeepsEverySeenRecordAndTheSelectionColourWinsOnBlocksInBothLayers) {
  form.PFHand_MouseUp(Block("KK"), kRightButton, 0);
  form.PFHand_MouseUp(Block("72"), kRightButton, kShiftMask);
  const RangeLayer seenBefore = seenLayer();
  form.grid().Slider1.value = 1;
  form.Slider1_MouseMove(kLeftButton);
  EXPECT_EQ(seenLayer(), seenBefore);
  EXPECT_TRUE(SelectedSeen().empty());
  EXPECT_EQ(form.grid().blockColour[Block("KK")], 0xFF80FFu);  // On selection, though also in the Seen layer
  EXPECT_EQ(form.grid().blockColour[Block("72")], 0xFFFF00u);  // Seen layer, whole block
}

TEST_F(Slider, WithNoProfileCurrentDraggingChangesTheTextButNotTheGrid) {
  form.PFHand_MouseUp(Block("72"), kLeftButton, 0);
  const auto colours = form.grid().blockColour;
  const auto selected = form.grid().selectedOn;
  const PlayerProfile before = form.profiles().list[0];
  form.profiles().currentIndex = -1;
  form.grid().Slider1.value = 5;
  form.Slider1_MouseMove(kLeftButton);
  EXPECT_EQ(form.grid().txtRange.text, "3.3");
  EXPECT_EQ(form.grid().blockColour, colours);
  EXPECT_EQ(form.grid().selectedOn, selected);
  EXPECT_EQ(form.profiles().list[0], before);
}

TEST_F(Slider, AMoveWithoutTheLeftButtonDoesNothing) {
  form.grid().Slider1.value = 5;
  form.Slider1_MouseMove(0);
  form.Slider1_MouseMove(kRightButton);
  EXPECT_TRUE(form.grid().txtRange.text.empty());
  EXPECT_TRUE(BlocksIn(onLayer()).empty());
}

TEST_F(Slider, AHeldKeyRunsTheTimerThatReappliesThePosition) {
  form.Slider1_KeyDown();
  EXPECT_TRUE(form.tmrSliderMoving.enabled);
  EXPECT_EQ(form.tmrSliderMoving.intervalMs, 10);
  form.grid().Slider1.value = 2;
  form.tmrSliderMoving_Timer();
  EXPECT_EQ(form.grid().txtRange.text, "1.8");
  EXPECT_EQ(BlocksIn(onLayer()), Blocks({"AA", "KK", "QQ", "JJ"}));
  form.grid().Slider1.value = 4;
  form.tmrSliderMoving_Timer();
  EXPECT_EQ(form.grid().txtRange.text, "3");
  form.Slider1_KeyUp();
  EXPECT_FALSE(form.tmrSliderMoving.enabled);
}

TEST_F(Slider, APositionOutsideTheOrderIsHeldToItsEnds) {
  form.grid().Slider1.value = 500;
  form.Slider1_MouseMove(kLeftButton);
  EXPECT_EQ(form.grid().txtRange.text, "100");
  form.grid().Slider1.value = -3;
  form.Slider1_MouseMove(kLeftButton);
  EXPECT_EQ(form.grid().txtRange.text, "0.5");
}

TEST_F(Slider, ApplyingWithNoProfileCurrentDoesNothing) {
  form.profiles().currentIndex = -1;
  form.grid().Slider1.value = 20;
  form.ApplySliderRange();
  EXPECT_TRUE(SelectedOn().empty());
  EXPECT_TRUE(BlocksIn(onLayer()).empty());
}

}  // namespace
}  // namespace quillet
