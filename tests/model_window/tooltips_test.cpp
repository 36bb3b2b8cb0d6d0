#include <gtest/gtest.h>

#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "tests/model_window/window_test_fixture.h"

namespace quillet {
namespace {

class ToolTips : public testing::WindowModelTest {
 protected:
  int Block(const char* name) { return FindClassByName(name); }
  void Cook(const std::string& board) {
    model.txtBoard.text = board;
    model.ColourCodeRT(model.txtBoard);
    model.cmdCheckPossibleHands_Click();
  }
  // The flat index of the tree's node with `text` at its start, or -1.
  int NodeStartingWith(std::string_view text) const {
    for (std::size_t i = 0; i < model.results().TV.nodes.size(); ++i) {
      if (model.results().TV.nodes[i].text.starts_with(text)) return static_cast<int>(i);
    }
    return -1;
  }
};

TEST_F(ToolTips, ABlockNamesItsClassAndTheHoldingsOfItsOnLayer) {
  ASSERT_TRUE(Start());
  EXPECT_EQ(model.grid().BlockToolTip(Block("AKs")), "AKs: 0 of 4 in range");
  model.PFHand_MouseUp(Block("AKs"), kLeftButton, 0);
  EXPECT_EQ(model.grid().BlockToolTip(Block("AKs")), "AKs: 4 of 4 in range");
  model.PFHand_MouseUp(Block("QQ"), kLeftButton, 0);
  EXPECT_EQ(model.grid().BlockToolTip(Block("QQ")), "QQ: 6 of 6 in range");
  EXPECT_EQ(model.grid().BlockToolTip(FindClassByName("AK")), "AKo: 0 of 12 in range");
}

TEST_F(ToolTips, ABlockInTheSeenLayerSaysSoToo) {
  ASSERT_TRUE(Start());
  model.PFHand_MouseUp(Block("JTs"), kRightButton, 0);
  EXPECT_EQ(model.grid().BlockToolTip(Block("JTs")), "JTs: 0 of 4 in range; 4 of 4 in the Seen layer");
}

TEST_F(ToolTips, ASuitCellSaysWhatAClickDoesToTheSelectedBlocks) {
  ASSERT_TRUE(Start());
  EXPECT_EQ(model.grid().SuitCellToolTip(0), "");  // no block selected: no cell shown
  model.PFHand_MouseUp(Block("AKs"), kLeftButton, 0);
  // The suited cells lie on the diagonal: cell 10 is hearts and hearts.
  EXPECT_EQ(model.grid().SuitCellToolTip(10),
            "Both hearts: in the range for the selected blocks; a click takes these holdings out");
  model.picSuit_Click(10);
  EXPECT_EQ(model.grid().SuitCellToolTip(10),
            "Both hearts: out of the range for the selected blocks; a click puts these holdings back");
  EXPECT_EQ(model.grid().BlockToolTip(Block("AKs")), "AKs: 3 of 4 in range");
}

TEST_F(ToolTips, AnOffsuitCellNamesBothSuitsInOrder) {
  ASSERT_TRUE(Start());
  model.PFHand_MouseUp(FindClassByName("AK"), kRightButton, 0);
  EXPECT_EQ(model.grid().SuitCellToolTip(3),
            "First card clubs, second spades: in the Seen layer for the selected blocks; a click takes these "
            "holdings out");
}

TEST_F(ToolTips, EveryCommandLabelSaysWhatItDoesAndTheKeyedOnesTheirKey) {
  for (int i = 0; i < kCommandLabelCount; ++i) {
    EXPECT_FALSE(CommandLabelToolTip(static_cast<CommandLabel>(i)).empty()) << i;
  }
  EXPECT_NE(
      CommandLabelToolTip(CommandLabel::cmdCheckPossibleHands).find("(Enter in My Hand or Board Cards)"),
      std::string::npos);
  EXPECT_NE(CommandLabelToolTip(CommandLabel::lblSave).find("(Enter in the box)"), std::string::npos);
}

TEST_F(ToolTips, TheEquityReadOutsSayWhatTheyMeasureAndTheUnroundedValueAfterACalculation) {
  ASSERT_TRUE(Start());
  EXPECT_EQ(model.results().EquityToolTip(true),
            "My Hand's equity against the opponent's range (Calc Equity shows it here)");
  model.results().lblMyEquity.caption = "57.3%";
  model.results().lbloppEquity.caption = "42.7%";
  model.results().myEquity = 57.25;
  model.results().oppEquity = 42.75;
  model.results().equityStreet = kFlop;
  EXPECT_EQ(model.results().EquityToolTip(true).rfind(
                "My Hand's equity against the opponent's range: 57.25%, on the "
                "flop, every turn and river dealt out\n",
                0),
            0u)
      << model.results().EquityToolTip(true);
  EXPECT_EQ(model.results().EquityToolTip(false).rfind(
                "The opponent's range's equity against My Hand: 42.75%, on the "
                "flop, every turn and river dealt out\n",
                0),
            0u)
      << model.results().EquityToolTip(false);
}

TEST_F(ToolTips, UnderTheProgramsOwnRulesAReadOutNamesThemAndWhereToSwitch) {
  ASSERT_TRUE(Start());
  model.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  model.txtMyHand.text = "KhKd";
  model.txtBoard.text = "Tc8h3s9d2c";
  model.cmdCalcEquity_Click();
  ASSERT_EQ(model.results().lblMyEquity.caption, "0.0%");  // the river reads 0.0% under these rules
  for (const bool mine : {true, false}) {
    const std::string tip = model.results().EquityToolTip(mine);
    EXPECT_NE(tip.find("on the river, where no calculation runs\nShowdown rules: this program's own. "),
              std::string::npos)
        << tip;
    EXPECT_NE(tip.find("A flush needs exactly five cards of one suit"), std::string::npos) << tip;
    EXPECT_NE(tip.find("Options > Operation > Standard Showdown Rules"), std::string::npos) << tip;
  }
  // Ticked, the read-out gives the standard rules' tally and no word of the program's own.
  model.mnuStandardShowdownRules_Click();
  model.cmdCalcEquity_Click();
  const std::string standard = model.results().EquityToolTip(true);
  EXPECT_NE(standard.find(", standard rules: "), std::string::npos) << standard;
  EXPECT_EQ(standard.find("this program's own"), std::string::npos) << standard;
}

TEST_F(ToolTips, MyHandSaysARangeIsTakenOnlyUnderTheStandardRules) {
  ASSERT_TRUE(Start());
  // The box always says what it takes; the note on a range comes only while a range waits in it.
  const std::string plain = model.MyHandToolTip();
  EXPECT_NE(plain.find("AhKd"), std::string::npos) << plain;
  EXPECT_EQ(plain.find("reads as a range"), std::string::npos) << plain;
  model.txtMyHand.text = "QQ+, AKs";
  const std::string tip = model.MyHandToolTip();
  EXPECT_NE(tip.find("reads as a range"), std::string::npos) << tip;
  EXPECT_NE(tip.find("Options > Operation > Standard Showdown Rules"), std::string::npos) << tip;
  // Enter keeps the hand's two messages; the hint is the box's own.
  model.txtMyHand_KeyDown(kKeyEnter);
  EXPECT_EQ(services.messageTexts(),
            (std::vector<std::string>{"My hand is invalid. Valid Eg: AhAd", "Bad Input"}));
  for (const char* text : {"AhKd", "ah kd", "AhXd", "AKx"}) {
    model.txtMyHand.text = text;
    EXPECT_EQ(model.MyHandToolTip(), plain) << text;  // two cards, or no range either
  }
  model.txtMyHand.text = "QQ+, AKs";
  model.mnuStandardShowdownRules_Click();
  EXPECT_EQ(model.MyHandToolTip(), plain);  // ticked, the box takes it
}

TEST_F(ToolTips, TheSaveLabelSaysANewProfileStartsWithAFreshRangeAsItDoes) {
  ASSERT_TRUE(Start());
  const std::string tip = CommandLabelToolTip(CommandLabel::lblSave);
  EXPECT_EQ(tip.find("grid's range"), std::string::npos) << tip;
  EXPECT_NE(tip.find("a fresh, empty range"), std::string::npos) << tip;
  // What it says: a range on the grid, a new name saved, and the new profile holds nothing.
  model.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  model.PFHand_MouseUp(Block("JTs"), kRightButton, 0);
  TypePlayer("Villain", kKeyEnter);
  ASSERT_EQ(model.profiles().currentProfile()->name, "Villain");
  EXPECT_EQ(model.grid().BlockToolTip(Block("AA")), "AA: 0 of 6 in range");
  EXPECT_EQ(model.grid().BlockToolTip(Block("JTs")), "JTs: 0 of 4 in range");
}

TEST_F(ToolTips, ACategoryNodeOfTheTreeSaysWhatItsTerseCaptionMeansAndAHoldingHasNone) {
  ASSERT_TRUE(Start());
  model.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  Cook("Kc8h3s");
  const int overpair = NodeStartingWith("O pair");
  ASSERT_GE(overpair, 0);
  EXPECT_EQ(model.results().TreeNodeToolTip(overpair), "Overpair: a pocket pair above every board card.");
  const int holding = NodeStartingWith("Ac Ad");
  ASSERT_GE(holding, 0) << model.results().exportText;
  EXPECT_EQ(model.results().TreeNodeToolTip(holding), "");
  EXPECT_EQ(model.results().TreeNodeToolTip(model.results().TV.nodes[holding].parent),
            "");  // the group of all six aces
  EXPECT_EQ(model.results().TreeNodeToolTip(-1), "");
}

TEST_F(ToolTips, ADrawCategoryNodeSaysItsPercentageCanPassAHundred) {
  ASSERT_TRUE(Start());
  model.PFHand_MouseUp(Block("98s"), kLeftButton, 0);
  Cook("7h6h2c");
  const int openEnded = NodeStartingWith("Open ended straight draws");
  ASSERT_GE(openEnded, 0) << model.results().exportText;
  EXPECT_NE(model.results().TreeNodeToolTip(openEnded).find("can pass 100%"), std::string::npos);
}

}  // namespace
}  // namespace quillet
