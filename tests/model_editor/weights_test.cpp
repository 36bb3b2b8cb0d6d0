// Weights in the range editor: the weight box ("Weight:") that grid clicks, suit-cell clicks, the
// quick-select commands and pasted notation paint with; what a weighted block and suit cell show; the Range
// box and the grid's clipboard in weighted notation; weights in the undo steps.
#include <random>
#include <string>

#include "cards/holding.h"
#include "range/grid_colours.h"
#include "range/holding_set.h"
#include "range/player_profile.h"
#include "range/range_notation.h"
#include "tests/model_editor/editor_fixture.h"

namespace quillet {
namespace {

class WeightsInTheEditor : public EditorTest {
 protected:
  void TypeNotation(const std::string& text) {
    form.grid().txtNotation.text = text;
    form.txtNotation_Change();
    form.txtNotation_KeyDown(kKeyEnter);
  }
  static WeightedHoldingSet Read(const std::string& text) {
    const ParsedWeightedRange parsed = ParseWeightedRangeNotation(text);
    EXPECT_TRUE(parsed.ok()) << text;
    return parsed.weights;
  }
  WeightedHoldingSet OnWeights() const { return OnLayerWeights(form.profiles().list[0]); }
  // The weight of one holding of the On layer, 0 when the layer does not hold it ("AhKh").
  int WeightOf(const std::string& holding) const {
    const Card a{RankFromChar(holding.substr(0, 1)), SuitFromChar(holding.substr(1, 1))};
    const Card b{RankFromChar(holding.substr(2, 1)), SuitFromChar(holding.substr(3, 1))};
    return OnWeights().Weight(a, b);
  }
  // Every holding of a class at one weight (a class name as the grid names it: "AKs", "AK", "QQ").
  WeightedHoldingSet ClassAt(const std::string& name, int thousandths) const {
    WeightedHoldingSet set;
    const ClassHoldings& holdings = HoldingsOfClass(Block(name.c_str()));
    for (int k = 0; k < holdings.count; ++k) set.SetWeight(holdings.holdings[k].number, thousandths);
    return set;
  }
  // The suit-matrix cell of a suit pair (clubs 0, diamonds 1, hearts 2, spades 3).
  static int CellOf(int suit1, int suit2) { return 4 * suit1 + suit2; }
};

TEST_F(WeightsInTheEditor, TheWeightBoxStartsWholeAndStaysBetweenAThousandthAndWhole) {
  EXPECT_EQ(form.grid().txtWeight, kFullWeight);
  form.txtWeight_Change(500);
  EXPECT_EQ(form.grid().txtWeight, 500);
  form.txtWeight_Change(0);  // 0 is no weight to paint with: the box's least value instead
  EXPECT_EQ(form.grid().txtWeight, 1);
  form.txtWeight_Change(1500);
  EXPECT_EQ(form.grid().txtWeight, kFullWeight);
}

TEST_F(WeightsInTheEditor, AGridClickPaintsTheBlockAtTheBoxWeight) {
  form.txtWeight_Change(500);
  form.PFHand_MouseUp(Block("AQs"), kLeftButton, 0);
  EXPECT_EQ(OnWeights(), ClassAt("AQs", 500));
  EXPECT_EQ(form.grid().blockPartWeight[Block("AQs")], 500);
  EXPECT_EQ(form.grid().BlockToolTip(Block("AQs")), "AQs: 4 of 4 in range at 50 %");
  EXPECT_EQ(form.grid().txtNotation.text, "AQs:0.5");
  // Every other block shows as before.
  for (int i = 0; i < kClassCount; ++i) {
    if (i != Block("AQs")) {
      EXPECT_EQ(form.grid().blockPartWeight[i], 0) << i;
    }
  }
}

TEST_F(WeightsInTheEditor, AtAWholeWeightABlockLooksAndReadsAsBefore) {
  form.PFHand_MouseUp(Block("AQs"), kLeftButton, 0);
  EXPECT_EQ(OnWeights(), ClassAt("AQs", kFullWeight));
  EXPECT_EQ(form.grid().blockPartWeight[Block("AQs")], 0);
  EXPECT_EQ(form.grid().BlockToolTip(Block("AQs")), "AQs: 4 of 4 in range");
  EXPECT_EQ(form.grid().txtNotation.text, "AQs");
  EXPECT_FALSE(HasPartialWeights(form.profiles().list[0]));
}

TEST_F(WeightsInTheEditor, ClickingAWeightedBlockAgainAtAnotherWeightRepaintsIt) {
  form.txtWeight_Change(250);
  form.PFHand_MouseUp(Block("KK"), kLeftButton, 0);
  form.grid().DeselectAllBlocks();  // as a click elsewhere would
  form.txtWeight_Change(750);
  form.PFHand_MouseUp(Block("KK"), kLeftButton, 0);
  EXPECT_EQ(OnWeights(), ClassAt("KK", 750));
  EXPECT_EQ(form.grid().txtNotation.text, "KK:0.75");
}

TEST_F(WeightsInTheEditor, AHoldingTakenOutForgetsItsWeightSoTheSliderPutsItBackWhole) {
  form.txtWeight_Change(500);
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);  // the second click takes it out
  EXPECT_TRUE(OnWeights().Empty());
  form.grid().Slider1.value = 0;  // the first step of the order: AA
  form.Slider1_MouseMove(kLeftButton);
  EXPECT_EQ(OnWeights(), ClassAt("AA", kFullWeight));
  EXPECT_EQ(form.grid().txtNotation.text, "AA");
}

TEST_F(WeightsInTheEditor, TheSliderPutsTheTopOfTheOrderInWhole) {
  form.txtWeight_Change(500);
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  form.grid().Slider1.value = 1;
  form.Slider1_MouseMove(kLeftButton);
  EXPECT_FALSE(HasPartialWeights(form.profiles().list[0]));
  EXPECT_EQ(form.grid().blockPartWeight[Block("AA")], 0);
}

TEST_F(WeightsInTheEditor, CtrlClickAndAltClickPaintAtTheBoxWeight) {
  form.txtWeight_Change(300);
  form.PFHand_MouseUp(Block("AA"), kLeftButton, kCtrlMask);  // the ace row and column
  for (const char* name : {"AA", "AKs", "A2s", "AK", "A2"}) {
    EXPECT_EQ(form.grid().blockPartWeight[Block(name)], 300) << name;
  }
  form.txtWeight_Change(600);
  form.PFHand_MouseUp(Block("TT"), kLeftButton, kAltMask);  // TT and every higher pair
  for (const char* name : {"AA", "KK", "QQ", "JJ", "TT"}) {
    EXPECT_EQ(form.grid().blockPartWeight[Block(name)], 600) << name;
  }
  // Alt+click starts a new selection but leaves the layer: the ace row and column keep their weight.
  EXPECT_EQ(OnWeights().HoldingsOfWeight(600), Read("TT+").Holdings());
  EXPECT_EQ(form.grid().blockPartWeight[Block("AKs")], 300);
  EXPECT_EQ(form.grid().blockPartWeight[Block("A2")], 300);
}

TEST_F(WeightsInTheEditor, QuickSelectCommandsPaintAtTheBoxWeight) {
  form.txtWeight_Change(250);
  form.cmdAnyPair_Click();
  EXPECT_EQ(OnWeights().Count(), 13 * 6);
  EXPECT_EQ(OnWeights().HoldingsOfWeight(250), OnWeights().Holdings());
  form.txtWeight_Change(kFullWeight);
  form.cmdAnyBroadway_Click();
  // The broadway pairs are painted whole again, the lower pairs keep their weight.
  EXPECT_EQ(WeightOf("AhAd"), kFullWeight);
  EXPECT_EQ(WeightOf("Th9h"), 0);
  EXPECT_EQ(WeightOf("9h9d"), 250);
  form.txtWeight_Change(100);
  form.cmdAll_Click();
  EXPECT_EQ(OnWeights().Count(), kHoldingCount);
  EXPECT_EQ(OnWeights().WeightSum(), int64_t{kHoldingCount} * 100);
  EXPECT_EQ(form.grid().txtNotation.text, "all:0.1");
}

TEST_F(WeightsInTheEditor, ASuitCellPutsItsHoldingBackAtTheBoxWeight) {
  form.PFHand_MouseUp(Block("AKs"), kLeftButton, 0);  // whole
  const int hearts = CellOf(2, 2);
  form.picSuit_Click(hearts);  // AhKh out
  EXPECT_EQ(WeightOf("AhKh"), 0);
  form.txtWeight_Change(500);
  form.picSuit_Click(hearts);  // and back in at 50 %
  EXPECT_EQ(WeightOf("AhKh"), 500);
  EXPECT_EQ(WeightOf("AsKs"), kFullWeight);
  // The block's mean: (3 x 100 % + 50 %) / 4.
  EXPECT_EQ(form.grid().blockPartWeight[Block("AKs")], 875);
  EXPECT_EQ(form.grid().BlockToolTip(Block("AKs")), "AKs: 4 of 4 in range at 87.5 % on average");
  // The cell shows its holding's weight; the others are whole.
  EXPECT_EQ(form.grid().matrixCellPartWeight[hearts], 500);
  EXPECT_EQ(form.grid().matrixCellPartWeight[CellOf(3, 3)], 0);
  EXPECT_EQ(form.grid().SuitCellToolTip(hearts),
            "Both hearts: in the range at 50 % for the selected blocks; a click takes these holdings out");
  EXPECT_EQ(form.grid().SuitCellToolTip(CellOf(3, 3)),
            "Both spades: in the range for the selected blocks; a click takes these holdings out");
}

TEST_F(WeightsInTheEditor, ASuitCellOverSeveralBlocksShowsTheMeanOfItsHoldings) {
  form.txtWeight_Change(200);
  form.PFHand_MouseUp(Block("AKs"), kLeftButton, 0);
  form.txtWeight_Change(600);
  form.PFHand_MouseUp(Block("KQs"), kLeftButton, kShiftMask);  // Shift keeps AKs selected
  EXPECT_EQ(form.grid().matrixCellPartWeight[CellOf(0, 0)], 400);
}

TEST_F(WeightsInTheEditor, TheSeenLayerIsUnweighted) {
  form.txtWeight_Change(500);
  form.PFHand_MouseUp(Block("QQ"), kRightButton, 0);
  EXPECT_EQ(seenLayer()[Block("QQ")].count, 6);
  EXPECT_FALSE(AnyWeightKept(form.profiles().list[0].onWeights));
  EXPECT_EQ(form.grid().blockPartWeight[Block("QQ")], 0);
  EXPECT_EQ(form.grid().BlockToolTip(Block("QQ")), "QQ: 0 of 6 in range; 6 of 6 in the Seen layer");
  for (int k = 0; k < 16; ++k) EXPECT_EQ(form.grid().matrixCellPartWeight[k], 0) << k;
}

TEST_F(WeightsInTheEditor, TheRangeBoxTakesAndShowsWeightedNotation) {
  const std::string typed = "KsKc:0.5, QsQc, JhTh:0.25";
  TypeNotation(typed);
  EXPECT_EQ(OnWeights(), Read(typed));
  EXPECT_EQ(form.grid().txtNotation.foreColour, kWindowTextColour);
  EXPECT_EQ(Read(form.grid().txtNotation.text), Read(typed));  // the box writes it back in its own words
  EXPECT_EQ(form.grid().BlockToolTip(Block("KK")), "KK: 1 of 6 in range at 50 %");
  EXPECT_EQ(form.grid().BlockToolTip(Block("QQ")), "QQ: 1 of 6 in range");
  EXPECT_EQ(form.grid().blockPartWeight[Block("JTs")], 250);
}

TEST_F(WeightsInTheEditor, TypedNotationWithoutWeightsIsWholeWhateverTheBox) {
  form.txtWeight_Change(500);
  TypeNotation("AKs, QQ");
  EXPECT_EQ(OnWeights(), Read("AKs, QQ"));
  EXPECT_EQ(form.grid().txtNotation.text, "QQ, AKs");
}

TEST_F(WeightsInTheEditor, ABadWeightIsRefusedAndChangesNothing) {
  TypeNotation("AKs:0.5");
  const PlayerProfile before = form.profiles().list[0];
  TypeNotation("AKs:1.5, QQ");
  EXPECT_EQ(form.profiles().list[0], before);
  EXPECT_EQ(form.grid().txtNotation.foreColour, kRejectedTextColour);
  ASSERT_EQ(services.messages.size(), 1u);
  EXPECT_EQ(services.messages[0].text, ParseWeightedRangeNotation("AKs:1.5, QQ").error->message);
}

TEST_F(WeightsInTheEditor, CtrlCCopiesTheWeightsAndCtrlVPastesThem) {
  TypeNotation("[50]AQs, AJs[/50], KK:0.3, 72o");
  form.PFHand_KeyDown(kKeyC, kCtrlMask);
  ASSERT_EQ(services.clipboard.size(), 1u);
  EXPECT_EQ(Read(services.clipboard[0]), Read("[50]AQs, AJs[/50], KK:0.3, 72o"));
  form.cmdClearOnBlocks_Click();
  EXPECT_TRUE(OnWeights().Empty());
  form.PFHand_KeyDown(kKeyV, kCtrlMask);
  EXPECT_EQ(OnWeights(), Read("[50]AQs, AJs[/50], KK:0.3, 72o"));
}

TEST_F(WeightsInTheEditor, APasteWithoutWeightsPaintsAtTheBoxWeight) {
  form.txtWeight_Change(400);
  services.SetClipboardText("QQ+, AKs");
  form.PFHand_KeyDown(kKeyV, kCtrlMask);
  EXPECT_EQ(OnWeights().Count(), 3 * 6 + 4);
  EXPECT_EQ(OnWeights().HoldingsOfWeight(400), OnWeights().Holdings());
  EXPECT_EQ(form.grid().txtNotation.text, "QQ+:0.4, AKs:0.4");
  // A paste that writes any weight is taken as written: its other tokens are whole.
  services.SetClipboardText("QQ+, AKs:0.5");
  form.PFHand_KeyDown(kKeyV, kCtrlMask);
  EXPECT_EQ(OnWeights(), Read("QQ+, AKs:0.5"));
}

TEST_F(WeightsInTheEditor, UndoAndRedoTakeAChangeOfWeightsOnlyBackAndForth) {
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  const PlayerProfile whole = form.profiles().list[0];
  TypeNotation("AA:0.5");  // the same records, only the weights differ
  EXPECT_EQ(onLayer(), whole.rangeLayer);
  const PlayerProfile half = form.profiles().list[0];
  form.Form_KeyDown(kKeyZ, kCtrlMask);
  EXPECT_EQ(form.profiles().list[0].onWeights, whole.onWeights);
  EXPECT_EQ(form.grid().txtNotation.text, "AA");
  EXPECT_EQ(form.grid().blockPartWeight[Block("AA")], 0);
  form.Form_KeyDown(kKeyY, kCtrlMask);
  EXPECT_EQ(form.profiles().list[0].onWeights, half.onWeights);
  EXPECT_EQ(form.grid().txtNotation.text, "AA:0.5");
  EXPECT_EQ(form.grid().blockPartWeight[Block("AA")], 500);
}

TEST_F(WeightsInTheEditor, UndoRestoresTheWeightsAClearTookAway) {
  form.txtWeight_Change(700);
  form.cmdAnySuited_Click();
  const PartialWeights painted = form.profiles().list[0].onWeights;
  form.cmdClearAllBlocks_Click();
  EXPECT_FALSE(AnyWeightKept(form.profiles().list[0].onWeights));
  form.Form_KeyDown(kKeyZ, kCtrlMask);
  EXPECT_EQ(form.profiles().list[0].onWeights, painted);
  EXPECT_EQ(form.grid().blockPartWeight[Block("AKs")], 700);
}

// Random weighted ranges through the Range box: the On layer holds exactly the weights typed, and the box
// and Ctrl+C write text that reads back to them.
TEST_F(WeightsInTheEditor, RandomWeightedRangesGoInAndComeBackOutUnchanged) {
  std::mt19937 random(22);
  std::uniform_int_distribution<int> holding(0, kHoldingCount - 1);
  std::uniform_int_distribution<int> weight(1, kFullWeight);
  for (int round = 0; round < 20; ++round) {
    WeightedHoldingSet wanted;
    for (int k = 0; k < 60; ++k) wanted.SetWeight(holding(random), weight(random));
    std::string text;
    for (int number = 0; number < kHoldingCount; ++number) {
      if (wanted.Weight(number) == 0) continue;
      const auto cards = CardsOfHolding(number);
      // As a percentage with one decimal: 505 thousandths is "50.5%".
      const int w = wanted.Weight(number);
      text += CardToText(cards[0]) + CardToText(cards[1]) + ":" + std::to_string(w / 10) + "." +
              std::to_string(w % 10) + "%, ";
    }
    TypeNotation(text);
    ASSERT_EQ(OnWeights(), wanted) << text;
    EXPECT_EQ(Read(form.grid().txtNotation.text), wanted);
    form.PFHand_KeyDown(kKeyC, kCtrlMask);
    EXPECT_EQ(Read(services.clipboard.back()), wanted);
  }
}

}  // namespace
}  // namespace quillet
