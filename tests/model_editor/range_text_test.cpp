// The range percentage box on the window model.
#include "tests/model_editor/editor_fixture.h"

namespace quillet {
namespace {

using RangeText = EditorTest;

TEST_F(RangeText, TypingTenAndEnterShowsNinePointEightAndPutsRowsZeroToFourteenIntoTheOnLayer) {
  TypeRange("10");
  EXPECT_EQ(form.grid().txtRange.text, "9.8");
  EXPECT_EQ(form.grid().Slider1.value, 14);
  EXPECT_EQ(form.grid().txtRange.foreColour, kWindowTextColour);
  const std::set<int> rows = BlocksOfRows(14);
  // AA KK QQ JJ TT AKs 99 AQs AK KQs AJs ATs 88 AQ KJs QJs KTs AJ KQ QTs A9s
  EXPECT_EQ(rows.size(), 21u);
  EXPECT_EQ(BlocksIn(onLayer()), rows);
  EXPECT_EQ(SelectedOn(), rows);
  EXPECT_EQ(onLayer()[Block("AK")].count, 12);
  EXPECT_EQ(onLayer()[Block("A9s")].count, 4);
  EXPECT_EQ(form.profiles().list[0].rangeText, "9.8");
}

TEST_F(RangeText, AValueHalfwayBetweenTwoStepsPicksTheLowerStep) {
  TypeRange("1.6");  // 1.4 and 1.8 are both 0.2 away
  EXPECT_EQ(form.grid().txtRange.text, "1.4");
  EXPECT_EQ(form.grid().Slider1.value, 1);
  EXPECT_EQ(BlocksIn(onLayer()), Blocks({"AA", "KK", "QQ"}));
  TypeRange("2.2");  // 1.8 and 2.6 are both 0.4 away
  EXPECT_EQ(form.grid().txtRange.text, "1.8");
  EXPECT_EQ(BlocksIn(onLayer()), Blocks({"AA", "KK", "QQ", "JJ"}));
}

TEST_F(RangeText, TypingOneHundredMovesTheSliderToItsEndButLeavesTheGridAsItWas) {
  form.PFHand_MouseUp(Block("72"), kLeftButton, 0);
  const PlayerProfile before = form.profiles().list[0];
  const auto colours = form.grid().blockColour;
  TypeRange("100");
  EXPECT_EQ(form.grid().Slider1.value, 146);
  EXPECT_EQ(form.grid().txtRange.text, "100");
  EXPECT_EQ(form.profiles().list[0].rangeLayer, before.rangeLayer);
  EXPECT_EQ(SelectedOn(), Blocks({"72"}));
  EXPECT_EQ(form.grid().blockColour, colours);
  TypeRange("250.5");
  EXPECT_EQ(form.grid().txtRange.text, "100");
  EXPECT_EQ(form.profiles().list[0].rangeLayer, before.rangeLayer);
}

TEST_F(RangeText, AValueJustBelowOneHundredTakesTheLastStepAndAppliesIt) {
  TypeRange("99.8");
  EXPECT_EQ(form.grid().Slider1.value, 146);
  EXPECT_EQ(form.grid().txtRange.text, "100");
  EXPECT_EQ(BlocksIn(onLayer()).size(), 169u);
}

TEST_F(RangeText, AValueFarBelowTheFirstStepTakesTheFirstStep) {
  TypeRange("-100");
  EXPECT_EQ(form.grid().Slider1.value, 0);
  EXPECT_EQ(form.grid().txtRange.text, "0.5");
  EXPECT_EQ(BlocksIn(onLayer()), Blocks({"AA"}));
}

TEST_F(RangeText, ALoneMinusIsAcceptedAsZero) {
  TypeRange("-");
  EXPECT_EQ(form.grid().txtRange.foreColour, kWindowTextColour);
  EXPECT_EQ(form.grid().txtRange.text, "0.5");
  EXPECT_EQ(BlocksIn(onLayer()), Blocks({"AA"}));
}

TEST_F(RangeText, TypingTwelveAAndEnterTurnsRedAndChangesNothingUntilAValidEnter) {
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  form.grid().Slider1.value = 7;
  const PlayerProfile before = form.profiles().list[0];
  TypeRange("12a");
  EXPECT_EQ(form.grid().txtRange.foreColour, kRejectedTextColour);
  EXPECT_EQ(form.grid().txtRange.text, "12a");
  EXPECT_EQ(form.grid().Slider1.value, 7);
  EXPECT_EQ(form.profiles().list[0].rangeLayer, before.rangeLayer);
  EXPECT_TRUE(services.messages.empty());

  TypeRange("5");
  EXPECT_EQ(form.grid().txtRange.foreColour, kWindowTextColour);
  EXPECT_EQ(form.grid().txtRange.text, "4.8");  // 4.8 is 0.2 away, 5.6 is 0.6 away
}

TEST_F(RangeText, EveryKeyReleaseOtherThanEnterTurnsTheTextRedEvenWhenUnchanged) {
  TypeRange("10");
  ASSERT_EQ(form.grid().txtRange.foreColour, kWindowTextColour);
  for (int key : {kKeyLeft, kKeyRight, kKeyUp, kKeyDown, kKeyShift, int{'5'}}) {
    form.grid().txtRange.foreColour = kWindowTextColour;
    form.txtRange_KeyUp(key);
    EXPECT_EQ(form.grid().txtRange.foreColour, kRejectedTextColour) << key;
    EXPECT_EQ(form.grid().txtRange.text, "9.8");
  }
  EXPECT_EQ(form.grid().Slider1.value, 14);
}

TEST_F(RangeText, TheSteppedTextStandsWhileTheRangeHasOnlyWholeBlocks) {
  SetBlockWhole(seenLayer()[Block("72")], false);
  TypeRange("3");
  EXPECT_EQ(form.grid().txtRange.text, "3");
}

TEST_F(RangeText, EveryChangeOfTheTextIsStoredWithTheCurrentProfile) {
  form.grid().SetRangeText("abc");
  EXPECT_EQ(form.profiles().list[0].rangeText, "abc");
  form.PFHand_MouseUp(Block("AK"), kLeftButton, 0);
  EXPECT_EQ(form.profiles().list[0].rangeText, "~0.9");
}

TEST_F(RangeText, WithNoProfileCurrentTheTextIsStoredNowhere) {
  form.profiles().currentIndex = -1;
  form.grid().SetRangeText("12");
  EXPECT_EQ(form.grid().txtRange.text, "12");
  EXPECT_EQ(form.profiles().list[0].rangeText, "");
}

TEST_F(RangeText, AClickSelectsTheWholeText) {
  form.grid().SetRangeText("16.4");
  form.grid().txtRange.selStart = 2;
  form.txtRange_Click();
  EXPECT_EQ(form.grid().txtRange.selStart, 0);
  EXPECT_EQ(form.grid().txtRange.selLength, 4);
}

TEST_F(RangeText, TheComputedTextCountsTheUnionOfBothLayers) {
  SetBlockWhole(onLayer()[Block("AKs")], true);
  SetBlockWhole(seenLayer()[Block("AKs")], true);
  SetBlockWhole(seenLayer()[Block("AK")], false);
  form.grid().WriteRangePercent();
  EXPECT_EQ(form.grid().txtRange.text, "~1.2");  // 16 of 1326
}

TEST_F(RangeText, APocketPairInBothLayersWithReversedSuitsCountsOnce) {
  BlockRecord& on = onLayer()[Block("KK")];
  on.count = 1;
  on.combos[0] = {kFalse16, 0, 1};
  BlockRecord& seen = seenLayer()[Block("KK")];
  seen.count = 1;
  seen.combos[0] = {kFalse16, 1, 0};
  form.grid().WriteRangePercent();
  EXPECT_EQ(form.grid().txtRange.text, "~0.1");  // 1 of 1326, not 2 (which would show 0.2)
}

}  // namespace
}  // namespace quillet
