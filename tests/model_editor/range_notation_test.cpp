// The range notation box ("Range:") and the grid's Ctrl+C / Ctrl+V on the window model.
#include "range/range_notation.h"

#include "range/holding_set.h"
#include "range/range_text.h"
#include "tests/model_editor/editor_fixture.h"

namespace quillet {
namespace {

class RangeNotationBox : public EditorTest {
 protected:
  void TypeNotation(const std::string& text) {
    form.grid().txtNotation.text = text;
    form.txtNotation_Change();
    form.txtNotation_KeyDown(kKeyEnter);
  }
  HoldingSet OnHoldings() { return HoldingsOfLayer(onLayer()); }
  static HoldingSet Read(const std::string& text) {
    const ParsedRange parsed = ParseRangeNotation(text);
    EXPECT_TRUE(parsed.ok()) << text;
    return parsed.holdings;
  }
};

TEST_F(RangeNotationBox, ClickingAAKKQQAKsAndAKoShowsQQPlusAndAK) {
  for (const char* name : {"AA", "KK", "QQ", "AKs", "AK"}) form.PFHand_MouseUp(Block(name), kLeftButton, 0);
  EXPECT_EQ(form.grid().txtNotation.text, "QQ+, AK");
  EXPECT_EQ(PrintRangeNotation(OnHoldings()), "QQ+, AK");
  EXPECT_EQ(form.grid().txtNotation.foreColour, kWindowTextColour);
}

TEST_F(RangeNotationBox, TheSlidersFirstFiveStepsShowTextsThatReadBackAsTheOnLayer) {
  const char* const expected[] = {"AA", "QQ+", "JJ+", "TT+, AKs", "99+, AKs"};
  for (int step = 0; step < 5; ++step) {
    form.grid().Slider1.value = step;
    form.Slider1_MouseMove(kLeftButton);
    EXPECT_EQ(form.grid().txtNotation.text, expected[step]);
    EXPECT_EQ(Read(form.grid().txtNotation.text), OnHoldings()) << "step " << step;
  }
}

TEST_F(RangeNotationBox, EveryKindOfRangeChangeRewritesTheBox) {
  form.cmdAnyPair_Click();
  EXPECT_EQ(form.grid().txtNotation.text, "22+");
  TypeRange("10");
  EXPECT_EQ(form.grid().txtNotation.text, "88+, A9s+, KTs+, QTs+, AJo+, KQo");
  form.cmdClearOnBlocks_Click();
  EXPECT_EQ(form.grid().txtNotation.text, "");
  form.cmdAll_Click();
  EXPECT_EQ(form.grid().txtNotation.text, "all");
  form.PFHand_MouseUp(Block("72"), kLeftButton, 0);  // takes 72 out again
  EXPECT_EQ(Read(form.grid().txtNotation.text).size(), 1326 - 12);
}

TEST_F(RangeNotationBox, TakingOneHoldingOutWithTheSuitMatrixShowsTheRestAsSingleHoldings) {
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  form.picSuit_Click(4);  // the pair cell of diamonds and clubs
  EXPECT_EQ(form.grid().txtNotation.text, "AcAh, AcAs, AdAh, AdAs, AhAs");
  EXPECT_EQ(Read(form.grid().txtNotation.text), OnHoldings());
}

TEST_F(RangeNotationBox, ShowsTheCurrentProfilesOnLayerAndNothingWithoutAProfile) {
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  form.profiles().list.resize(2);
  InitProfile(form.profiles().list[1]);
  form.profiles().list[1].name = "Bob";
  SetBlockWhole(form.profiles().list[1].rangeLayer[Block("KQs")], true);
  form.profiles().currentIndex = 1;
  form.ShowCurrentProfile();
  EXPECT_EQ(form.grid().txtNotation.text, "KQs");
  form.profiles().currentIndex = -1;
  form.ShowCurrentProfile();
  form.SetBlockColours();
  EXPECT_EQ(form.grid().txtNotation.text, "");
}

TEST_F(RangeNotationBox, EnterMakesTheOnLayerExactlyTheTypedRange) {
  form.PFHand_MouseUp(Block("72"), kLeftButton, 0);   // in the layer before: must go
  form.PFHand_MouseUp(Block("KK"), kRightButton, 0);  // the Seen layer: must stay
  const RangeLayer seenBefore = seenLayer();
  TypeNotation("qq+ , aks  AhQh");
  EXPECT_EQ(OnHoldings(), Read("QQ+, AKs, AhQh"));
  EXPECT_EQ(seenLayer(), seenBefore);
  EXPECT_EQ(form.grid().txtNotation.text, "QQ+, AKs, AhQh");  // the printed form
  EXPECT_EQ(form.grid().txtNotation.foreColour, kWindowTextColour);
  EXPECT_TRUE(services.messages.empty());
}

TEST_F(RangeNotationBox, EnterRunsTheRefreshChain) {
  form.options.autoPFEquityCalc = true;
  const uint64_t armed = form.tmrCalcEquity.armCount;
  TypeNotation("QQ+, AKs, AhQh");
  // Colours: whole blocks in the On layer colour, a block held in part in its own colour.
  EXPECT_EQ(form.grid().blockColour[Block("QQ")], form.scheme.onWhole);
  EXPECT_EQ(form.grid().blockColour[Block("AQs")], form.scheme.onPart);
  EXPECT_EQ(form.grid().blockColour[Block("72")], form.grid().baseColour[Block("72")]);
  EXPECT_TRUE(SelectedOn().empty());
  // The percentage text: 18 + 4 + 1 of 1,326 holdings.
  EXPECT_EQ(form.grid().txtRange.text, "~1.7");
  EXPECT_EQ(form.profiles().list[0].rangeText, "~1.7");
  // The equity timer is armed again, as after any range change with an empty board.
  EXPECT_TRUE(form.tmrCalcEquity.enabled);
  EXPECT_GT(form.tmrCalcEquity.armCount, armed);
}

TEST_F(RangeNotationBox, TypingTurnsTheTextRedUntilEnterAcceptsIt) {
  form.grid().txtNotation.text = "QQ";
  form.txtNotation_Change();
  EXPECT_EQ(form.grid().txtNotation.foreColour, kRejectedTextColour);
  form.txtNotation_KeyDown('Q');
  EXPECT_EQ(form.grid().txtNotation.foreColour, kRejectedTextColour);
  EXPECT_TRUE(OnHoldings().empty());
  form.txtNotation_KeyDown(kKeyEnter);
  EXPECT_EQ(form.grid().txtNotation.foreColour, kWindowTextColour);
  EXPECT_EQ(OnHoldings(), Read("QQ"));
}

TEST_F(RangeNotationBox, ABadTextTurnsRedShowsItsErrorOnceAndChangesNothing) {
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  const PlayerProfile before = form.profiles().list[0];
  const auto colours = form.grid().blockColour;
  const auto selected = form.grid().selectedOn;
  TypeNotation("QQ+, AKx");
  EXPECT_EQ(form.grid().txtNotation.text, "QQ+, AKx");
  EXPECT_EQ(form.grid().txtNotation.foreColour, kRejectedTextColour);
  EXPECT_EQ(services.messageTexts(), std::vector<std::string>{"unknown token 'AKx' at column 6"});
  EXPECT_EQ(form.profiles().list[0], before);
  EXPECT_EQ(form.grid().blockColour, colours);
  EXPECT_EQ(form.grid().selectedOn, selected);
  form.txtNotation_KeyDown(kKeyEnter);  // Enter again on the same text
  EXPECT_EQ(services.messages.size(), 1u);
  TypeNotation("AKs:1.5");  // a weight above 1
  ASSERT_EQ(services.messages.size(), 2u);
  EXPECT_EQ(services.messages[1].text, ParseWeightedRangeNotation("AKs:1.5").error->message);
  EXPECT_EQ(form.profiles().list[0], before);
}

TEST_F(RangeNotationBox, WithNoProfileCurrentAGoodTextChangesNothingAndStaysRed) {
  form.profiles().currentIndex = -1;
  TypeNotation("QQ+");
  EXPECT_EQ(form.grid().txtNotation.foreColour, kRejectedTextColour);
  EXPECT_TRUE(HoldingsOfLayer(form.profiles().list[0].rangeLayer).empty());
  EXPECT_TRUE(services.messages.empty());
}

TEST_F(RangeNotationBox, APercentageIsTheRangeThePercentageBoxGives) {
  for (int tenths = 1; tenths < 1000; tenths += 7) {
    const std::string value = FormatTenths(tenths);
    TypeRange(value);
    const HoldingSet fromBox = OnHoldings();
    form.cmdClearOnBlocks_Click();
    TypeNotation(value + "%");
    EXPECT_EQ(OnHoldings(), fromBox) << value;
  }
}

TEST_F(RangeNotationBox, CtrlCOnTheGridCopiesTheNotation) {
  for (const char* name : {"AA", "KK", "QQ", "AKs", "AK"}) form.PFHand_MouseUp(Block(name), kLeftButton, 0);
  form.PFHand_KeyDown(kKeyC, kCtrlMask);
  EXPECT_EQ(services.clipboard, std::vector<std::string>{"QQ+, AK"});
  form.PFHand_KeyDown(kKeyC, 0);  // C alone copies nothing
  form.PFHand_KeyDown(kKeyC, kCtrlMask | kShiftMask);
  EXPECT_EQ(services.clipboard.size(), 1u);
}

TEST_F(RangeNotationBox, CtrlVOnTheGridPastesANotation) {
  services.SetClipboardText("TT+, AQs+");
  form.PFHand_KeyDown(kKeyV, kCtrlMask);
  EXPECT_EQ(OnHoldings(), Read("TT+, AQs+"));
  EXPECT_EQ(form.grid().txtNotation.text, "TT+, AQs+");
  EXPECT_EQ(form.grid().txtRange.text, "~2.9");  // 30 + 8 of 1,326 holdings
  services.SetClipboardText("T+");
  const PlayerProfile before = form.profiles().list[0];
  form.PFHand_KeyDown(kKeyV, kCtrlMask);
  EXPECT_EQ(form.profiles().list[0], before);
  EXPECT_EQ(form.grid().txtNotation.text, "T+");
  EXPECT_EQ(form.grid().txtNotation.foreColour, kRejectedTextColour);
  EXPECT_EQ(services.messageTexts(), std::vector<std::string>{"unknown token 'T+' at column 1"});
}

TEST_F(RangeNotationBox, AMegabyteOnTheClipboardIsRefusedWithAShortMessageAndChangesNothing) {
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  const PlayerProfile before = form.profiles().list[0];
  std::string pasted;
  while (pasted.size() < (1u << 20)) pasted += "99%,";
  services.SetClipboardText(pasted);
  form.PFHand_KeyDown(kKeyV, kCtrlMask);
  EXPECT_EQ(form.profiles().list[0], before);
  EXPECT_EQ(form.grid().txtNotation.foreColour, kRejectedTextColour);
  EXPECT_EQ(services.messageTexts(),
            std::vector<std::string>{
                "the range is 1048576 bytes long, more than the 32767 bytes a range may have"});
}

TEST_F(RangeNotationBox, AHugeBadTokenIsQuotedByItsFirstFortyCharacters) {
  TypeNotation("AA " + std::string(30'000, 'Q'));
  ASSERT_EQ(services.messages.size(), 1u);
  EXPECT_EQ(services.messages[0].text, "unknown token '" + std::string(40, 'Q') + "...' at column 4");
}

}  // namespace
}  // namespace quillet
