// Card entry on the window model: suit colours of the card text, the key handlers, the card picker and the
// suit-matrix clicks.
#include "tests/model_editor/editor_fixture.h"

namespace quillet {
namespace {

constexpr Colour kYellow = 0x00FFFF;

using CardEntry = EditorTest;

// ---- suit colours ----

TEST_F(CardEntry, EachCardsTwoCharactersTakeTheColourOfItsSuit) {
  form.txtBoard.text = "Tc8d3h2s";
  form.ColourCodeRT(form.txtBoard);
  const std::vector<Colour> expected = {kGreen, kGreen, kBlue, kBlue, kRed, kRed, 0x80000008, 0x80000008};
  EXPECT_EQ(form.txtBoard.charColours, expected);
  EXPECT_EQ(form.txtBoard.selStart, 8);  // the caret after the text
  EXPECT_EQ(form.txtBoard.selLength, 0);
}

TEST_F(CardEntry, AnUnknownSuitIsPaintedBlack) {
  form.txtMyHand.text = "AHkx";
  form.ColourCodeRT(form.txtMyHand);
  EXPECT_EQ(form.txtMyHand.charColours, (std::vector<Colour>{0, 0, 0, 0}));
}

TEST_F(CardEntry, ATrailingOddCharacterKeepsItsColour) {
  form.txtMyHand.text = "AhK";
  form.txtMyHand.charColours = {1, 2, 3};
  form.ColourCodeRT(form.txtMyHand);
  EXPECT_EQ(form.txtMyHand.charColours, (std::vector<Colour>{kRed, kRed, 3}));
  form.txtMyHand.text = "";
  form.ColourCodeRT(form.txtMyHand);
  EXPECT_TRUE(form.txtMyHand.charColours.empty());
}

// ---- keys ----

TEST_F(CardEntry, AnyKeyInMyHandClearsTheEquityModifiersIncluded) {
  for (int key : {int{'A'}, kKeyShift, kKeyControl, kKeyAlt}) {
    form.results().lblMyEquity.caption = "57.3%";
    form.results().lblMyEquity.opaque = true;
    form.results().lbloppEquity.caption = "42.7%";
    form.txtMyHand_KeyDown(key);
    EXPECT_EQ(form.results().lblMyEquity.caption, "") << key;
    EXPECT_FALSE(form.results().lblMyEquity.opaque) << key;
    EXPECT_EQ(form.results().lbloppEquity.caption, "") << key;
  }
}

TEST_F(CardEntry, AModifierAloneInTheBoardKeepsTheEquityShown) {
  for (int key : {kKeyShift, kKeyControl, kKeyAlt}) {
    form.results().lblMyEquity.caption = "57.3%";
    form.txtBoard_KeyDown(key);
    EXPECT_EQ(form.results().lblMyEquity.caption, "57.3%") << key;
  }
  form.txtBoard_KeyDown(int{'T'});
  EXPECT_EQ(form.results().lblMyEquity.caption, "");
}

// ---- opening the picker ----

TEST_F(CardEntry, OpeningTheMyHandPickerWithAhKdShowsThoseTwoChosen) {
  form.txtMyHand.text = "AhKd";
  form.txtMyHand_Click();
  const SelCardsModel& picker = form.frmSelCards;
  EXPECT_TRUE(picker.visible);
  EXPECT_EQ(picker.minimum, 2);
  EXPECT_EQ(picker.maximum, 2);
  EXPECT_TRUE(picker.targetMyHand);
  for (int i = 0; i < 52; ++i) {
    const bool chosen = i == Cell(14, 2) || i == Cell(13, 1);
    EXPECT_EQ(picker.cellColour[i] == kYellow, chosen) << i;
  }
}

TEST_F(CardEntry, TheSameTextInLowerCaseShowsNothingChosen) {
  form.txtMyHand.text = "ahkd";
  form.txtMyHand_Click();
  for (Colour c : form.frmSelCards.cellColour) EXPECT_NE(c, kYellow);
}

TEST_F(CardEntry, TheCellsCarryTheirCaptionsAndSuitColours) {
  form.txtBoard_Click();
  const SelCardsModel& picker = form.frmSelCards;
  EXPECT_EQ(picker.captions[0], "Ac");
  EXPECT_EQ(picker.captions[12], "2c");
  EXPECT_EQ(picker.captions[13], "Ad");
  EXPECT_EQ(picker.captions[38], "2h");
  EXPECT_EQ(picker.captions[51], "2s");
  EXPECT_EQ(picker.cellColour[0], 0x80FF80u);
  EXPECT_EQ(picker.cellColour[20], 0xFF8080u);
  EXPECT_EQ(picker.cellColour[30], 0x8080FFu);
  EXPECT_EQ(picker.cellColour[45], 0xC0C0C0u);
}

TEST_F(CardEntry, ThePickerOpensJustRightOfTheBoxItFills) {
  form.txtMyHand.width = 80;
  form.txtBoard.width = 120;
  form.txtMyHand_Click();
  EXPECT_EQ(form.frmSelCards.anchor, ControlId::txtMyHand);
  EXPECT_EQ(form.frmSelCards.offsetX, 85);
  EXPECT_EQ(form.frmSelCards.offsetY, 24);
  form.frmSelCards.cmdCancel_Click();
  form.txtBoard_Click();
  EXPECT_EQ(form.frmSelCards.anchor, ControlId::txtBoard);
  EXPECT_EQ(form.frmSelCards.offsetX, 125);
  EXPECT_EQ(form.frmSelCards.offsetY, 24);
  EXPECT_EQ(form.frmSelCards.minimum, 3);
  EXPECT_EQ(form.frmSelCards.maximum, 5);
  EXPECT_FALSE(form.frmSelCards.targetMyHand);
}

TEST_F(CardEntry, ThePickerTicksItsBoxesFromTheApplicationWideChoices) {
  form.selCardsAutoOK = true;
  form.selCardsAutoCook = false;
  form.txtMyHand_Click();
  EXPECT_TRUE(form.frmSelCards.chkAutoOK);
  EXPECT_FALSE(form.frmSelCards.chkAutoCook);
}

// ---- choosing ----

TEST_F(CardEntry, WithAutoOkTheSecondClickInTheMyHandPickerClosesItAndWritesTheHand) {
  form.selCardsAutoOK = true;
  form.txtMyHand_Click();
  form.frmSelCards.Card_MouseUp(Cell(14, 2), kLeftButton);
  EXPECT_TRUE(form.frmSelCards.visible);
  form.frmSelCards.Card_MouseUp(Cell(14, 3), kLeftButton);
  EXPECT_FALSE(form.frmSelCards.visible);
  EXPECT_EQ(form.txtMyHand.text, "AhAs");
  EXPECT_EQ(form.txtMyHand.charColours, (std::vector<Colour>{kRed, kRed, 0x80000008, 0x80000008}));
}

TEST_F(CardEntry, WithAutoOkTheFifthClickInTheBoardPickerClosesIt) {
  form.selCardsAutoOK = true;
  form.txtBoard_Click();
  const int cells[] = {Cell(10, 0), Cell(8, 2), Cell(3, 3), Cell(2, 1), Cell(13, 0)};
  for (int n = 0; n < 4; ++n) {
    form.frmSelCards.Card_MouseUp(cells[n], kLeftButton);
    EXPECT_TRUE(form.frmSelCards.visible) << n;
  }
  EXPECT_EQ(form.txtBoard.text, "");
  form.frmSelCards.Card_MouseUp(cells[4], kLeftButton);
  EXPECT_FALSE(form.frmSelCards.visible);
  EXPECT_EQ(form.txtBoard.text, "KcTc2d8h3s");
}

TEST_F(CardEntry, WithoutAutoOkTheFinalClickOnlyChoosesTheCard) {
  form.txtMyHand_Click();
  form.frmSelCards.Card_MouseUp(Cell(14, 2), kLeftButton);
  form.frmSelCards.Card_MouseUp(Cell(14, 3), kLeftButton);
  EXPECT_TRUE(form.frmSelCards.visible);
  EXPECT_EQ(form.txtMyHand.text, "");
}

TEST_F(CardEntry, ChoosingFourBoardCardsAndOkWritesFourCards) {
  form.txtBoard_Click();
  for (int cell : {Cell(10, 0), Cell(8, 2), Cell(3, 3), Cell(2, 1)})
    form.frmSelCards.Card_MouseUp(cell, kLeftButton);
  form.frmSelCards.cmdOK_Click();
  EXPECT_FALSE(form.frmSelCards.visible);
  EXPECT_EQ(form.txtBoard.text, "Tc2d8h3s");
  EXPECT_TRUE(services.messages.empty());
}

TEST_F(CardEntry, ARightClickAnywhereOnTheCellsClearsTheChoice) {
  form.txtBoard.text = "Tc8h3s";
  form.txtBoard_Click();
  form.frmSelCards.Card_MouseUp(Cell(2, 0), kRightButton);
  for (int i = 0; i < 52; ++i) EXPECT_EQ(form.frmSelCards.cellColour[i], PickerCellColour(i)) << i;
  EXPECT_TRUE(form.frmSelCards.visible);
}

TEST_F(CardEntry, TheWrittenHandIsInCellOrderWhicheverOrderTheCardsWereClicked) {
  form.txtMyHand_Click();
  form.frmSelCards.Card_MouseUp(Cell(14, 2), kLeftButton);  // Ah
  form.frmSelCards.Card_MouseUp(Cell(13, 1), kLeftButton);  // Kd
  form.frmSelCards.cmdOK_Click();
  EXPECT_EQ(form.txtMyHand.text, "KdAh");  // diamonds come before hearts

  form.txtMyHand.text.clear();
  form.txtMyHand_Click();
  form.frmSelCards.Card_MouseUp(Cell(13, 1), kLeftButton);
  form.frmSelCards.Card_MouseUp(Cell(14, 2), kLeftButton);
  form.frmSelCards.cmdOK_Click();
  EXPECT_EQ(form.txtMyHand.text, "KdAh");
}

TEST_F(CardEntry, CardsTypedWhileThePickerIsOpenBecomeItsChoiceAndOkKeepsThem) {
  form.txtBoard.text = "Ks7d2c";
  form.txtBoard_Click();
  ASSERT_TRUE(form.frmSelCards.IsChosen(Cell(13, 3)));
  // The user types another flop into the box while the picker is open.
  form.txtBoard.text = "Qh9h4c";
  form.txtBoard_Change();
  std::vector<int> chosen;
  for (int i = 0; i < 52; ++i) {
    if (form.frmSelCards.IsChosen(i)) chosen.push_back(i);
  }
  EXPECT_EQ(chosen, (std::vector<int>{Cell(4, 0), Cell(12, 2), Cell(9, 2)}));
  form.frmSelCards.cmdOK_Click();
  EXPECT_FALSE(form.frmSelCards.visible);
  EXPECT_EQ(form.txtBoard.text, "4cQh9h");  // the typed cards, in cell order as every OK writes them
  EXPECT_TRUE(services.messages.empty());
}

TEST_F(CardEntry, WhicheverHandActedLastDecidesWhatOkWrites) {
  form.txtMyHand_Click();
  form.frmSelCards.Card_MouseUp(Cell(14, 2), kLeftButton);  // Ah clicked
  form.txtMyHand.text = "Qs";
  form.txtMyHand_Change();  // half a hand typed: nothing else is chosen
  EXPECT_EQ(form.frmSelCards.ChosenCount(false), 1);
  EXPECT_TRUE(form.frmSelCards.IsChosen(Cell(12, 3)));
  form.frmSelCards.Card_MouseUp(Cell(2, 0), kLeftButton);  // then 2c clicked
  form.frmSelCards.cmdOK_Click();
  EXPECT_EQ(form.txtMyHand.text, "2cQs");
}

TEST_F(CardEntry, TypingInTheOtherBoxLeavesThePickersChoiceAlone) {
  form.txtBoard.text = "Ks7d2c";
  form.txtBoard_Click();
  form.txtMyHand.text = "AhAd";
  form.txtMyHand_Change();
  EXPECT_EQ(form.frmSelCards.ChosenCount(false), 3);
  EXPECT_FALSE(form.frmSelCards.IsChosen(Cell(14, 2)));
  // With the picker closed, typing changes nothing of it.
  form.frmSelCards.cmdCancel_Click();
  form.txtBoard.text = "Ah";
  form.txtBoard_Change();
  EXPECT_EQ(form.frmSelCards.ChosenCount(false), 3);
}

TEST_F(CardEntry, AChosenCellClickedAgainIsUnchosen) {
  form.txtMyHand_Click();
  form.frmSelCards.Card_MouseUp(5, kLeftButton);
  form.frmSelCards.Card_MouseUp(5, kLeftButton);
  EXPECT_EQ(form.frmSelCards.cellColour[5], PickerCellColour(5));
}

TEST_F(CardEntry, AClickBeyondTheMaximumDoesNothing) {
  form.txtMyHand.text = "AhKd";
  form.txtMyHand_Click();
  form.frmSelCards.Card_MouseUp(Cell(2, 0), kLeftButton);
  EXPECT_EQ(form.frmSelCards.cellColour[Cell(2, 0)], PickerCellColour(Cell(2, 0)));
  EXPECT_EQ(form.frmSelCards.ChosenCount(false), 2);
}

TEST_F(CardEntry, TheMiddleButtonAndCellsOutsideThePickerDoNothing) {
  form.txtMyHand_Click();
  form.frmSelCards.Card_MouseUp(3, kMiddleButton);
  form.frmSelCards.Card_MouseUp(-1, kLeftButton);
  form.frmSelCards.Card_MouseUp(52, kLeftButton);
  EXPECT_EQ(form.frmSelCards.ChosenCount(false), 0);
}

TEST_F(CardEntry, OkWithTooFewCardsShowsTheMessageAndStaysOpen) {
  form.txtBoard.text = "Ah";
  form.txtBoard_Click();
  form.frmSelCards.Card_MouseUp(Cell(5, 3), kLeftButton);
  form.frmSelCards.cmdOK_Click();
  ASSERT_EQ(services.messages.size(), 1u);
  EXPECT_EQ(services.messages[0].text, "You have not selected enough cards");
  EXPECT_EQ(services.messages[0].icon, MessageIcon::Information);
  EXPECT_TRUE(form.frmSelCards.visible);
  EXPECT_EQ(form.frmSelCards.ChosenCount(false), 2);  // the choice stays
  EXPECT_EQ(form.txtBoard.text, "Ah");
}

TEST_F(CardEntry, OkWithTooManyCardsBroughtInFromTheBoxShowsTheMessageAndWritesNothing) {
  form.txtBoard.text = "AhKhQhJhTh9h";
  form.txtBoard_Click();
  EXPECT_EQ(form.frmSelCards.ChosenCount(false), 6);
  form.frmSelCards.cmdOK_Click();
  ASSERT_EQ(services.messageTexts(), (std::vector<std::string>{"You have not selected enough cards"}));
  EXPECT_EQ(form.txtBoard.text, "AhKhQhJhTh9h");
  EXPECT_TRUE(form.frmSelCards.visible);
}

TEST_F(CardEntry, OkKeepsTheCheckBoxesApplicationWide) {
  form.txtMyHand_Click();
  form.frmSelCards.chkAutoOK = true;
  form.frmSelCards.chkAutoCook = true;
  form.frmSelCards.Card_MouseUp(Cell(14, 2), kLeftButton);
  form.frmSelCards.Card_MouseUp(Cell(14, 3), kLeftButton);  // auto-OK
  EXPECT_TRUE(form.selCardsAutoOK);
  EXPECT_TRUE(form.selCardsAutoCook);
  form.txtBoard_Click();
  EXPECT_TRUE(form.frmSelCards.chkAutoOK);
  EXPECT_TRUE(form.frmSelCards.chkAutoCook);
}

TEST_F(CardEntry, CancelClosesThePickerAndWritesNothing) {
  form.txtMyHand.text = "AhKd";
  form.txtMyHand_Click();
  form.frmSelCards.chkAutoOK = true;
  form.frmSelCards.Card_MouseUp(Cell(13, 1), kLeftButton);
  form.frmSelCards.cmdCancel_Click();
  EXPECT_FALSE(form.frmSelCards.visible);
  EXPECT_EQ(form.txtMyHand.text, "AhKd");
  EXPECT_FALSE(form.selCardsAutoOK);  // only OK keeps the boxes
}

TEST_F(CardEntry, AnOddTrailingCharacterInTheBoxChoosesNoCell) {
  form.txtBoard.text = "TcA";
  form.txtBoard_Click();
  EXPECT_EQ(form.frmSelCards.ChosenCount(false), 1);
}

// ---- the suit matrix ----

TEST_F(CardEntry, TakingOneSuitPairOutOfASelectedPairBlockLeavesFiveHoldingsAndTheTextFollows) {
  form.txtBoard.text = "Tc8h3s";  // no equity run in this test
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  ASSERT_EQ(form.grid().txtRange.text, "~0.5");
  ASSERT_EQ(ShownCells(), (std::set<int>{4, 8, 9, 12, 13, 14}));
  form.picSuit_Click(4);  // the ace of diamonds with the ace of clubs
  const BlockRecord& aa = onLayer()[Block("AA")];
  EXPECT_EQ(aa.count, 5);
  EXPECT_FALSE(SetBlockSuitPair(onLayer()[Block("AA")], 0, 1, true, true));
  EXPECT_EQ(aa.whole, kFalse16);
  EXPECT_EQ(form.grid().txtRange.text, "~0.4");  // 5 of 1326
  EXPECT_FALSE(form.grid().comboShown[4]);
  EXPECT_EQ(form.grid().matrixCellColour[4], 0x404040u);
  EXPECT_TRUE(form.grid().matrixCellVisible[4]);  // still there to be clicked back
  EXPECT_EQ(SelectedOn(), Blocks({"AA"}));

  form.picSuit_Click(4);  // and back in
  EXPECT_EQ(aa.count, 6);
  EXPECT_EQ(aa.whole, kTrue16);
  EXPECT_EQ(form.grid().matrixCellColour[4], 0xFFFFC0u);
  EXPECT_EQ(form.grid().txtRange.text, "~0.5");
}

TEST_F(CardEntry, ACellChangesEverySelectedBlockOfItsKindInBothLayers) {
  form.txtBoard.text = "Tc8h3s";
  form.grid().selectedOn[Block("AKs")] = true;
  form.grid().selectedOn[Block("AK")] = true;
  form.grid().selectedSeen[Block("KQs")] = true;
  SetBlockWhole(onLayer()[Block("AKs")], true);
  SetBlockWhole(onLayer()[Block("AK")], false);
  SetBlockWhole(seenLayer()[Block("KQs")], true);
  SetBlockWhole(onLayer()[Block("QJs")], true);  // not selected
  form.grid().RefreshSuitMatrix(true);
  form.picSuit_Click(5);  // diamonds-diamonds: a suited cell
  EXPECT_EQ(onLayer()[Block("AKs")].count, 3);
  EXPECT_EQ(seenLayer()[Block("KQs")].count, 3);
  EXPECT_EQ(onLayer()[Block("AK")].count, 12);
  EXPECT_EQ(onLayer()[Block("QJs")].count, 4);
  form.picSuit_Click(6);  // diamonds-hearts: an offsuit cell
  EXPECT_EQ(onLayer()[Block("AK")].count, 11);
  EXPECT_EQ(onLayer()[Block("AKs")].count, 3);
}

TEST_F(CardEntry, TakingOutTheLastShownCellOfTheSelectedKindEndsTheSelection) {
  form.txtBoard.text = "Tc8h3s";
  form.PFHand_MouseUp(Block("AKs"), kLeftButton, 0);
  for (int cell : {0, 5, 10}) form.picSuit_Click(cell);
  EXPECT_EQ(SelectedOn(), Blocks({"AKs"}));
  form.picSuit_Click(15);
  EXPECT_TRUE(SelectedOn().empty());
  EXPECT_EQ(onLayer()[Block("AKs")].count, 0);
  EXPECT_FALSE(form.grid().suitedPresent);
  EXPECT_TRUE(ShownCells().empty());
  EXPECT_EQ(form.grid().blockColour[Block("AKs")], 0x8080FFu);  // back to its base colour
  EXPECT_EQ(form.grid().txtRange.text, "~0");
}

TEST_F(CardEntry, WithMixedKindsEverySixteenCellsMustBeHiddenToEndTheSelection) {
  form.txtBoard.text = "Tc8h3s";
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  form.PFHand_MouseUp(Block("AKs"), kLeftButton, kShiftMask);
  for (int cell : {4, 8, 9, 12, 13, 14, 0, 5, 10, 15}) form.picSuit_Click(cell);
  EXPECT_TRUE(SelectedOn().empty());  // every shown cell is out
  EXPECT_EQ(onLayer()[Block("AA")].count, 0);
  EXPECT_EQ(onLayer()[Block("AKs")].count, 0);
}

TEST_F(CardEntry, ClickingASuitCellWithABoardPresentChangesTheRangeButRunsNoEquity) {
  form.options.autoPFEquityCalc = true;
  form.txtMyHand.text = "AhAd";
  form.txtBoard.text = "Tc8h3s";
  form.PFHand_MouseUp(Block("KK"), kLeftButton, 0);
  form.results().lblMyEquity.caption = "57.3%";
  form.picSuit_Click(4);
  EXPECT_EQ(onLayer()[Block("KK")].count, 5);
  EXPECT_EQ(form.results().lblMyEquity.caption, "");  // cleared, not recalculated
  EXPECT_FALSE(form.tmrCalcEquity.enabled);
}

TEST_F(CardEntry, ClickingASuitCellWithoutABoardRunsTheEquityAtOnceWhateverTheOptions) {
  ASSERT_FALSE(form.options.autoPFEquityCalc);
  form.txtMyHand.text = "AhAd";
  form.PFHand_MouseUp(Block("KK"), kLeftButton, 0);
  ASSERT_EQ(form.results().lblMyEquity.caption, "");
  form.picSuit_Click(4);
  EXPECT_EQ(onLayer()[Block("KK")].count, 5);
  ASSERT_FALSE(form.results().lblMyEquity.caption.empty());
  EXPECT_EQ(form.results().lblMyEquity.caption.back(), '%');
  EXPECT_TRUE(form.results().lblMyEquity.opaque);
  EXPECT_GT(form.results().myEquity, 50.0);  // aces against kings
}

TEST_F(CardEntry, AClickOutsideTheMatrixOrWithNoProfileChangesNothing) {
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  const PlayerProfile before = form.profiles().list[0];
  const GridState grid = form.grid();
  form.picSuit_Click(-1);
  form.picSuit_Click(16);
  form.profiles().currentIndex = -1;
  form.picSuit_Click(4);
  EXPECT_EQ(form.profiles().list[0], before);
  EXPECT_EQ(form.grid().comboShown, grid.comboShown);
  EXPECT_EQ(form.grid().matrixCellColour, grid.matrixCellColour);
}

}  // namespace
}  // namespace quillet
