// The hand grid on the window model: clicks with every button and modifier, colours, the suit matrix.
#include "tests/model_editor/editor_fixture.h"

namespace quillet {
namespace {

constexpr int kCtrlAlt = kCtrlMask | kAltMask;

using Grid = EditorTest;

// ---- plain clicks ----

TEST_F(Grid, APlainLeftClickPutsTheBlockWholeIntoTheOnLayerAndSelectsIt) {
  form.PFHand_MouseUp(Block("AKs"), kLeftButton, 0);
  EXPECT_EQ(SelectedOn(), Blocks({"AKs"}));
  EXPECT_EQ(onLayer()[Block("AKs")].count, 4);
  EXPECT_EQ(onLayer()[Block("AKs")].whole, kTrue16);
  EXPECT_EQ(onLayer()[Block("AKs")].suited, kTrue16);
  EXPECT_TRUE(form.grid().editingOn);
  EXPECT_FALSE(form.grid().lblSeenVisible);
}

TEST_F(Grid, APlainClickOnEachKindOfBlockShowsItsShareOfAllHoldings) {
  form.PFHand_MouseUp(Block("QQ"), kLeftButton, 0);
  EXPECT_EQ(form.grid().txtRange.text, "~0.5");      // 6 of 1326
  form.PFHand_MouseUp(Block("QQ"), kLeftButton, 0);  // out again
  form.PFHand_MouseUp(Block("T9s"), kLeftButton, 0);
  EXPECT_EQ(form.grid().txtRange.text, "~0.3");  // 4 of 1326
  form.PFHand_MouseUp(Block("T9s"), kLeftButton, 0);
  form.PFHand_MouseUp(Block("T9"), kLeftButton, 0);
  EXPECT_EQ(form.grid().txtRange.text, "~0.9");  // 12 of 1326
}

TEST_F(Grid, APlainLeftClickOnABlockAlreadySelectedDeselectsAllAndTakesItOut) {
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  form.PFHand_MouseUp(Block("KK"), kLeftButton, kShiftMask);
  ASSERT_EQ(SelectedOn(), Blocks({"AA", "KK"}));
  form.PFHand_MouseUp(Block("KK"), kLeftButton, 0);
  EXPECT_TRUE(SelectedOn().empty());
  EXPECT_EQ(onLayer()[Block("KK")].count, 0);
  EXPECT_EQ(onLayer()[Block("AA")].count, 6);  // the record stays; only the selection is dropped
}

TEST_F(Grid, APlainClickStartsANewSelectionButKeepsTheRecords) {
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  form.PFHand_MouseUp(Block("KK"), kLeftButton, 0);
  EXPECT_EQ(SelectedOn(), Blocks({"KK"}));
  EXPECT_EQ(BlocksIn(onLayer()), Blocks({"AA", "KK"}));
  EXPECT_EQ(form.grid().blockColour[Block("AA")], 0x00FFFFu);  // On layer, whole block
  EXPECT_EQ(form.grid().blockColour[Block("KK")], 0xFF80FFu);  // On selection
}

TEST_F(Grid, ShiftLeftClickWhileTheOnLayerIsEditedAddsToTheSelection) {
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  form.PFHand_MouseUp(Block("AKs"), kLeftButton, kShiftMask);
  EXPECT_EQ(SelectedOn(), Blocks({"AA", "AKs"}));
  form.PFHand_MouseUp(Block("AA"), kLeftButton, kShiftMask);  // and takes out again
  EXPECT_EQ(SelectedOn(), Blocks({"AKs"}));
  EXPECT_EQ(onLayer()[Block("AA")].count, 0);
}

TEST_F(Grid, ShiftLeftClickWhileTheSeenLayerIsEditedBehavesLikeAPlainClick) {
  form.PFHand_MouseUp(Block("AA"), kRightButton, 0);
  ASSERT_FALSE(form.grid().editingOn);
  form.PFHand_MouseUp(Block("KK"), kLeftButton, kShiftMask);
  EXPECT_TRUE(SelectedSeen().empty());
  EXPECT_EQ(SelectedOn(), Blocks({"KK"}));
  EXPECT_TRUE(form.grid().editingOn);
  EXPECT_EQ(seenLayer()[Block("AA")].count, 6);
}

TEST_F(Grid, ShiftRightClickWhileTheSeenLayerIsEditedAddsToTheSeenSelection) {
  form.PFHand_MouseUp(Block("AA"), kRightButton, 0);
  form.PFHand_MouseUp(Block("KK"), kRightButton, kShiftMask);
  EXPECT_EQ(SelectedSeen(), Blocks({"AA", "KK"}));
  EXPECT_EQ(BlocksIn(seenLayer()), Blocks({"AA", "KK"}));
}

TEST_F(Grid, ShiftRightClickWhileTheOnLayerIsEditedStartsANewSelection) {
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  form.PFHand_MouseUp(Block("KK"), kRightButton, kShiftMask);
  EXPECT_TRUE(SelectedOn().empty());
  EXPECT_EQ(SelectedSeen(), Blocks({"KK"}));
}

TEST_F(Grid, ARightClickEditsTheSeenLayerAndShowsItsLabel) {
  form.PFHand_MouseUp(Block("AK"), kRightButton, 0);
  EXPECT_EQ(SelectedSeen(), Blocks({"AK"}));
  EXPECT_EQ(seenLayer()[Block("AK")].count, 12);
  EXPECT_EQ(seenLayer()[Block("AK")].offsuit, kTrue16);
  EXPECT_TRUE(BlocksIn(onLayer()).empty());
  EXPECT_FALSE(form.grid().editingOn);
  EXPECT_TRUE(form.grid().lblSeenVisible);
  EXPECT_EQ(form.grid().matrixColour, 0xFF0000u);
  form.PFHand_MouseUp(Block("AK"), kRightButton, 0);
  EXPECT_EQ(seenLayer()[Block("AK")].count, 0);
}

TEST_F(Grid, CtrlOrAltAloneWithTheRightButtonToggleLikeAPlainClick) {
  form.PFHand_MouseUp(Block("KQs"), kRightButton, kCtrlMask);
  EXPECT_EQ(SelectedSeen(), Blocks({"KQs"}));
  EXPECT_EQ(seenLayer()[Block("KQs")].count, 4);
  form.PFHand_MouseUp(Block("KQs"), kRightButton, kAltMask);
  EXPECT_TRUE(SelectedSeen().empty());
  EXPECT_EQ(seenLayer()[Block("KQs")].count, 0);
}

TEST_F(Grid, ShiftWithCtrlOnTheLeftButtonTogglesLikeAPlainClick) {
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  form.PFHand_MouseUp(Block("QJs"), kLeftButton, kShiftMask | kCtrlMask);
  EXPECT_EQ(SelectedOn(), Blocks({"QJs"}));
  EXPECT_EQ(BlocksIn(onLayer()), Blocks({"AA", "QJs"}));
}

TEST_F(Grid, TheMiddleButtonDropsTheSelectionAndChangesNoRecord) {
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  const PlayerProfile before = form.profiles().list[0];
  form.PFHand_MouseUp(Block("KK"), kMiddleButton, 0);
  EXPECT_TRUE(SelectedOn().empty());
  EXPECT_EQ(form.profiles().list[0].rangeLayer, before.rangeLayer);
  EXPECT_EQ(form.profiles().list[0].seenLayer, before.seenLayer);
}

TEST_F(Grid, AClickMovesTheFocusToTheBoardBox) {
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  ASSERT_FALSE(services.focus.empty());
  EXPECT_EQ(services.focus.back(), ControlId::txtBoard);
}

TEST_F(Grid, AClickOutsideTheGridIsIgnored) {
  form.PFHand_MouseUp(-1, kLeftButton, 0);
  form.PFHand_MouseUp(169, kLeftButton, 0);
  EXPECT_TRUE(BlocksIn(onLayer()).empty());
  EXPECT_TRUE(form.grid().txtRange.text.empty());
}

// ---- Ctrl: the cross ----

TEST_F(Grid, CtrlClickSelectsTheBlocksRowAndColumn) {
  const int qts = Block("QTs");  // row 2, column 4
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  form.PFHand_MouseUp(qts, kLeftButton, kCtrlMask);
  std::set<int> expected;
  for (int c = 0; c < 13; ++c) expected.insert(2 * 13 + c);
  for (int r = 0; r < 13; ++r) expected.insert(r * 13 + 4);
  EXPECT_EQ(expected.size(), 25u);
  EXPECT_EQ(SelectedOn(), expected);
  std::set<int> inLayer = expected;
  inLayer.insert(Block("AA"));
  EXPECT_EQ(BlocksIn(onLayer()), inLayer);
  EXPECT_EQ(onLayer()[Block("T9")].count, 12);
  EXPECT_EQ(onLayer()[Block("QT")].count, 0);  // the mirror block is in neither line
  // Row Q: AQo, KQo, QQ and ten suited Qxs = 70 holdings; column T without QTs: ATs, KTs, JTs, TT and
  // eight offsuit T9o..T2o = 114; with AA 190 of 1326 = 14.33 %.
  EXPECT_EQ(form.grid().txtRange.text, "~14.3");
}

TEST_F(Grid, CtrlClickOnACornerBlockStaysInsideTheGrid) {
  form.PFHand_MouseUp(Block("22"), kLeftButton, kCtrlMask);
  std::set<int> expected;
  for (int c = 0; c < 13; ++c) expected.insert(12 * 13 + c);
  for (int r = 0; r < 13; ++r) expected.insert(r * 13 + 12);
  EXPECT_EQ(SelectedOn(), expected);
}

// ---- Alt: upward ----

TEST_F(Grid, AltClickOnAPairSelectsThatPairAndEveryHigherPair) {
  form.PFHand_MouseUp(Block("99"), kLeftButton, kAltMask);
  const std::set<int> expected = Blocks({"AA", "KK", "QQ", "JJ", "TT", "99"});
  EXPECT_EQ(SelectedOn(), expected);
  EXPECT_EQ(BlocksIn(onLayer()), expected);
  EXPECT_EQ(form.grid().txtRange.text, "~2.7");  // 36 of 1326
}

TEST_F(Grid, AltClickOnASuitedBlockSelectsItUpToTheDiagonal) {
  form.PFHand_MouseUp(Block("A5s"), kLeftButton, kAltMask);
  EXPECT_EQ(SelectedOn(), Blocks({"A5s", "A6s", "A7s", "A8s", "A9s", "ATs", "AJs", "AQs", "AKs"}));
  form.PFHand_MouseUp(Block("76s"), kLeftButton, kAltMask);
  EXPECT_EQ(SelectedOn(), Blocks({"76s"}));
}

TEST_F(Grid, AltClickOnAnOffsuitBlockSelectsItUpToTheDiagonal) {
  form.PFHand_MouseUp(Block("A5"), kLeftButton, kAltMask);
  EXPECT_EQ(SelectedOn(), Blocks({"A5", "A6", "A7", "A8", "A9", "AT", "AJ", "AQ", "AK"}));
  for (int i : SelectedOn()) EXPECT_EQ(onLayer()[i].count, 12);
  form.PFHand_MouseUp(Block("QJ"), kLeftButton, kAltMask);
  EXPECT_EQ(SelectedOn(), Blocks({"QJ"}));
}

TEST_F(Grid, AltClickStartsANewSelection) {
  form.PFHand_MouseUp(Block("72"), kLeftButton, 0);
  form.PFHand_MouseUp(Block("KK"), kLeftButton, kAltMask);
  EXPECT_EQ(SelectedOn(), Blocks({"AA", "KK"}));
  EXPECT_EQ(BlocksIn(onLayer()), Blocks({"AA", "KK", "72"}));
}

// ---- Ctrl+Alt: just to see ----

TEST_F(Grid, CtrlAltClickChangesNoRecordAndShowsWhichHoldingsTheLayerHas) {
  const int aa = Block("AA");
  SetBlockWhole(onLayer()[aa], false);
  SetBlockSuitPair(onLayer()[aa], 0, 1, false, false);  // the clubs-diamonds aces out
  SetBlockWhole(seenLayer()[Block("KK")], false);
  const PlayerProfile before = form.profiles().list[0];

  form.PFHand_MouseUp(aa, kLeftButton, kCtrlAlt);

  EXPECT_EQ(form.profiles().list[0].rangeLayer, before.rangeLayer);
  EXPECT_EQ(form.profiles().list[0].seenLayer, before.seenLayer);
  EXPECT_EQ(SelectedOn(), Blocks({"AA"}));
  // The record holds (0,2) (0,3) (1,2) (1,3) (2,3); a pair's reversed suits are the same holding.
  const std::set<int> held = {2, 3, 6, 7, 11, 8, 12, 9, 13, 14};
  EXPECT_EQ(ShownCells(), held);
  for (int k = 0; k < 16; ++k) {
    EXPECT_EQ(form.grid().matrixCellColour[k], held.count(k) ? 0xFFFFC0u : 0x404040u) << k;
  }
}

TEST_F(Grid, CtrlAltRightClickLooksAtTheSeenLayer) {
  const int ak = Block("AK");
  SetBlockSuitPair(seenLayer()[ak], 3, 0, true, false);
  form.PFHand_MouseUp(ak, kRightButton, kCtrlAlt);
  EXPECT_EQ(SelectedSeen(), Blocks({"AK"}));
  EXPECT_TRUE(SelectedOn().empty());
  EXPECT_EQ(seenLayer()[ak].count, 1);
  EXPECT_EQ(ShownCells(), (std::set<int>{12}));  // the ace of spades with the king of clubs only
  EXPECT_EQ(form.grid().matrixCellColour[12], 0xFF0000u);
  EXPECT_EQ(form.grid().matrixCellColour[3], 0x404040u);
  EXPECT_TRUE(form.grid().lblSeenVisible);
}

TEST_F(Grid, TheClickMatrixColoursAreTheDefaultValuesUnderTheNewSchemeUntilTheNextRefresh) {
  form.mnuSwitchColourScheme_Click();
  ASSERT_FALSE(form.colourSchemeDefault);
  const int aks = Block("AKs");
  SetBlockWhole(onLayer()[aks], true);
  SetBlockWhole(seenLayer()[aks], true);

  form.PFHand_MouseUp(aks, kLeftButton, kCtrlAlt);
  EXPECT_EQ(form.grid().matrixColour, 0xFFFFC0u);
  EXPECT_EQ(form.grid().matrixCellColour[0], 0xFFFFC0u);
  form.grid().RefreshSuitMatrix(true);
  EXPECT_EQ(form.grid().matrixCellColour[0], 0xFF633Cu);  // the new scheme's On matrix colour

  form.PFHand_MouseUp(aks, kRightButton, kCtrlAlt);
  EXPECT_EQ(form.grid().matrixColour, 0xFF0000u);
  EXPECT_EQ(form.grid().matrixCellColour[5], 0xFF0000u);
  form.grid().RefreshSuitMatrix(true);
  EXPECT_EQ(form.grid().matrixCellColour[5], 0xC0C000u);  // the new scheme's Seen matrix colour
}

TEST_F(Grid, APlainClickRepaintsTheMatrixInTheSchemesColour) {
  form.mnuSwitchColourScheme_Click();
  form.PFHand_MouseUp(Block("AKs"), kLeftButton, 0);
  EXPECT_EQ(form.grid().matrixColour, 0xFFFFC0u);
  for (Colour c : form.grid().matrixCellColour) EXPECT_EQ(c, 0xFF633Cu);
  form.PFHand_MouseUp(Block("AKs"), kRightButton, 0);
  for (Colour c : form.grid().matrixCellColour) EXPECT_EQ(c, 0xC0C000u);
}

// ---- colours ----

// Puts one block into each state that a colour rule describes and returns the blocks used.
struct RuleBlocks {
  int seenSelected, onSelected, both, onWhole, onPart, seenWhole, seenPart, base;
};

RuleBlocks PaintEveryRule(Form1Model& form) {
  RuleBlocks b{Block("AA"),  Block("KK"), Block("QQ"),  Block("JJ"),
               Block("AKs"), Block("TT"), Block("AQs"), Block("72")};
  PlayerProfile& p = form.profiles().list[0];
  SetBlockWhole(p.seenLayer[b.seenSelected], false);
  form.grid().selectedSeen[b.seenSelected] = true;
  SetBlockWhole(p.rangeLayer[b.onSelected], false);
  form.grid().selectedOn[b.onSelected] = true;
  SetBlockSuitPair(p.rangeLayer[b.both], 0, 1, true, false);
  SetBlockSuitPair(p.seenLayer[b.both], 2, 3, true, false);
  SetBlockWhole(p.rangeLayer[b.onWhole], false);
  SetBlockWhole(p.rangeLayer[b.onPart], true);
  SetBlockSuitPair(p.rangeLayer[b.onPart], 1, 1, false, false);
  SetBlockWhole(p.seenLayer[b.seenWhole], false);
  SetBlockSuitPair(p.seenLayer[b.seenPart], 3, 3, true, false);
  form.SetBlockColours();
  return b;
}

TEST_F(Grid, EveryColourRuleShowsItsDefaultSchemeColour) {
  const RuleBlocks b = PaintEveryRule(form);
  EXPECT_EQ(form.grid().blockColour[b.seenSelected], 0xFF0000u);
  EXPECT_EQ(form.grid().blockColour[b.onSelected], 0xFF80FFu);
  EXPECT_EQ(form.grid().blockColour[b.both], 0xFF8080u);
  EXPECT_EQ(form.grid().blockColour[b.onWhole], 0x00FFFFu);
  EXPECT_EQ(form.grid().blockColour[b.onPart], 0xC0FFFFu);
  EXPECT_EQ(form.grid().blockColour[b.seenWhole], 0xFFFF00u);
  EXPECT_EQ(form.grid().blockColour[b.seenPart], 0xC0C000u);
  EXPECT_EQ(form.grid().blockColour[b.base], 0xD5DBA8u);        // offsuit base
  EXPECT_EQ(form.grid().blockColour[Block("22")], 0xC0FFC0u);   // pair base
  EXPECT_EQ(form.grid().blockColour[Block("32s")], 0x8080FFu);  // suited base
}

TEST_F(Grid, EveryColourRuleShowsItsNewSchemeColour) {
  form.mnuSwitchColourScheme_Click();
  const RuleBlocks b = PaintEveryRule(form);
  EXPECT_EQ(form.grid().blockColour[b.seenSelected], 0xC0C000u);
  EXPECT_EQ(form.grid().blockColour[b.onSelected], 0xFF0000u);
  EXPECT_EQ(form.grid().blockColour[b.both], 0xFFFFFFu);
  EXPECT_EQ(form.grid().blockColour[b.onWhole], 0xFF6F55u);
  EXPECT_EQ(form.grid().blockColour[b.onPart], 0xFFA595u);
  EXPECT_EQ(form.grid().blockColour[b.seenWhole], 0xFFFF80u);
  EXPECT_EQ(form.grid().blockColour[b.seenPart], 0xFFFFC0u);
  EXPECT_EQ(form.grid().blockColour[b.base], 0x808080u);
  EXPECT_EQ(form.grid().blockColour[Block("22")], 0xC0C0C0u);
  EXPECT_EQ(form.grid().blockColour[Block("32s")], 0xA2A2A2u);
}

TEST_F(Grid, TheSeenSelectionColourWinsOverTheOnSelection) {
  form.grid().selectedOn[Block("AA")] = true;
  form.grid().selectedSeen[Block("AA")] = true;
  form.SetBlockColours();
  EXPECT_EQ(form.grid().blockColour[Block("AA")], 0xFF0000u);
}

TEST_F(Grid, ABlockInBothLayersShowsTheBothColourEvenWhenOnlyPartlyInEither) {
  const int aks = Block("AKs");
  SetBlockSuitPair(onLayer()[aks], 0, 0, true, false);
  SetBlockSuitPair(seenLayer()[aks], 1, 1, true, false);
  form.SetBlockColours();
  EXPECT_EQ(form.grid().blockColour[aks], 0xFF8080u);
}

// ---- when the colouring rewrites the range text ----

TEST_F(Grid, ColouringRewritesATypedPercentOnceABlockIsOnlyPartlyIn) {
  form.grid().SetRangeText("16.4");
  SetBlockWhole(onLayer()[Block("AA")], false);
  form.SetBlockColours();
  EXPECT_EQ(form.grid().txtRange.text, "16.4");  // whole blocks keep the typed value
  SetBlockSuitPair(onLayer()[Block("AA")], 0, 1, false, false);
  form.SetBlockColours();
  EXPECT_EQ(form.grid().txtRange.text, "~0.4");  // 5 of 1326
}

TEST_F(Grid, ColouringRewritesATypedPercentWhenABlockIsInBothLayers) {
  form.grid().SetRangeText("5");
  SetBlockWhole(onLayer()[Block("AA")], false);
  SetBlockWhole(seenLayer()[Block("AA")], false);
  form.SetBlockColours();
  EXPECT_EQ(form.grid().txtRange.text, "~0.5");
}

TEST_F(Grid, ColouringRewritesATypedPercentForAPartialSeenBlock) {
  form.grid().SetRangeText("5");
  SetBlockSuitPair(seenLayer()[Block("AKs")], 0, 0, true, false);
  form.SetBlockColours();
  EXPECT_EQ(form.grid().txtRange.text, "~0.1");  // 1 of 1326
}

TEST_F(Grid, ColouringLeavesAComputedTextAlone) {
  form.grid().SetRangeText("~42");
  SetBlockSuitPair(onLayer()[Block("AKs")], 0, 0, true, false);
  form.SetBlockColours();
  EXPECT_EQ(form.grid().txtRange.text, "~42");
}

TEST_F(Grid, ASelectedPartialBlockDoesNotCountAsPartial) {
  form.grid().SetRangeText("5");
  SetBlockSuitPair(onLayer()[Block("AKs")], 0, 0, true, false);
  form.grid().selectedOn[Block("AKs")] = true;
  form.SetBlockColours();
  EXPECT_EQ(form.grid().txtRange.text, "5");
}

// ---- the automatic preflop equity ----

TEST_F(Grid, WithAutoPreflopEquityAndNoBoardARangeChangeRestartsTheEquityTimer) {
  form.options.autoPFEquityCalc = true;
  form.results().lblMyEquity.caption = "57.3%";
  form.results().lblMyEquity.opaque = true;
  const uint64_t armed = form.tmrCalcEquity.armCount;
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  EXPECT_TRUE(form.tmrCalcEquity.enabled);
  EXPECT_GT(form.tmrCalcEquity.armCount, armed);
  EXPECT_EQ(form.results().lblMyEquity.caption, "57.3%");
}

TEST_F(Grid, WithAutoPreflopEquityAndABoardARangeChangeClearsTheReadouts) {
  form.options.autoPFEquityCalc = true;
  form.txtBoard.text = "Tc8h3s";
  form.results().lblMyEquity.caption = "57.3%";
  form.results().lblMyEquity.opaque = true;
  form.results().lbloppEquity.caption = "42.7%";
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  EXPECT_FALSE(form.tmrCalcEquity.enabled);
  EXPECT_EQ(form.tmrCalcEquity.armCount, 0u);
  EXPECT_EQ(form.results().lblMyEquity.caption, "");
  EXPECT_FALSE(form.results().lblMyEquity.opaque);
  EXPECT_EQ(form.results().lbloppEquity.caption, "");
}

TEST_F(Grid, WithoutAutoPreflopEquityARangeChangeClearsTheReadouts) {
  form.results().lblMyEquity.caption = "57.3%";
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  EXPECT_FALSE(form.tmrCalcEquity.enabled);
  EXPECT_EQ(form.results().lblMyEquity.caption, "");
}

TEST_F(Grid, ABoardOfBlanksCountsAsABoard) {
  form.options.autoPFEquityCalc = true;
  form.txtBoard.text = " ";
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  EXPECT_FALSE(form.tmrCalcEquity.enabled);
}

// ---- deselecting and the suit matrix ----

TEST_F(Grid, DeselectingDropsTheSelectionButKeepsTheLayers) {
  form.PFHand_MouseUp(Block("AA"), kRightButton, 0);
  form.PFHand_MouseUp(Block("KK"), kRightButton, kShiftMask);
  form.grid().DeselectAllBlocks();
  EXPECT_TRUE(SelectedSeen().empty());
  EXPECT_TRUE(form.grid().editingOn);
  EXPECT_FALSE(form.grid().lblSeenVisible);
  EXPECT_FALSE(form.grid().pairPresent || form.grid().suitedPresent || form.grid().offsuitPresent);
  EXPECT_EQ(BlocksIn(seenLayer()), Blocks({"AA", "KK"}));
}

TEST_F(Grid, TheMatrixShowsTheCellsOfEveryKindSelected) {
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  EXPECT_EQ(ShownCells(), (std::set<int>{4, 8, 9, 12, 13, 14}));
  form.PFHand_MouseUp(Block("AKs"), kLeftButton, kShiftMask);
  EXPECT_EQ(ShownCells(), (std::set<int>{0, 4, 5, 8, 9, 10, 12, 13, 14, 15}));
  form.PFHand_MouseUp(Block("AK"), kLeftButton, kShiftMask);
  EXPECT_EQ(ShownCells().size(), 16u);
  EXPECT_TRUE(form.grid().pairPresent && form.grid().suitedPresent && form.grid().offsuitPresent);
}

TEST_F(Grid, TheMatrixCountsSeenSelectionsToo) {
  form.PFHand_MouseUp(Block("AK"), kRightButton, 0);
  EXPECT_TRUE(form.grid().offsuitPresent);
  EXPECT_EQ(ShownCells(), (std::set<int>{1, 2, 3, 4, 6, 7, 8, 9, 11, 12, 13, 14}));
}

TEST_F(Grid, RefreshingWithoutTheScanKeepsTheKindsShown) {
  form.PFHand_MouseUp(Block("AKs"), kLeftButton, 0);
  form.grid().selectedOn.fill(false);
  form.grid().RefreshSuitMatrix(false);
  EXPECT_EQ(ShownCells(), (std::set<int>{0, 5, 10, 15}));
  form.grid().RefreshSuitMatrix(true);
  EXPECT_TRUE(ShownCells().empty());
}

// ---- the colour-scheme switch ----

TEST_F(Grid, SwitchingTheSchemeChangesColoursCaptionAndFlagAndDropsTheSelection) {
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  form.mnuSwitchColourScheme_Click();
  EXPECT_FALSE(form.colourSchemeDefault);
  EXPECT_EQ(form.mnuSwitchColourSchemeCaption, "Switch to Default Colour Scheme");
  EXPECT_EQ(form.scheme.onSelection, 0xFF0000u);
  EXPECT_EQ(form.grid().baseColour[Block("KK")], 0xC0C0C0u);
  EXPECT_TRUE(SelectedOn().empty());
  EXPECT_EQ(form.grid().blockColour[Block("AA")], 0xFF6F55u);  // still in the On layer, whole

  form.mnuSwitchColourScheme_Click();
  EXPECT_TRUE(form.colourSchemeDefault);
  EXPECT_EQ(form.mnuSwitchColourSchemeCaption, "Switch to New Colour Scheme");
  EXPECT_EQ(form.grid().baseColour[Block("KK")], 0xC0FFC0u);
  EXPECT_EQ(form.grid().blockColour[Block("AA")], 0x00FFFFu);
}

TEST_F(Grid, SwitchingTheSchemeWorksWithNoProfileCurrent) {
  form.profiles().currentIndex = -1;
  form.mnuSwitchColourScheme_Click();
  EXPECT_FALSE(form.colourSchemeDefault);
  EXPECT_EQ(form.grid().blockColour[Block("AK")], 0x808080u);
}

}  // namespace
}  // namespace quillet
