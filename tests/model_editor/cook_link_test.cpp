// The range editor and the cook together: Enter and the picker run the cook, the cook colours the boxes,
// and every way of changing the range reaches the cook's count.
#include "tests/model_editor/editor_fixture.h"

namespace quillet {
namespace {

class CookLink : public EditorTest {
 protected:
  // The number of holdings the cook takes from the grid (no cards, so every holding is live).
  int32_t CookedRange() {
    form.txtMyHand.text.clear();
    form.txtBoard.text.clear();
    form.cmdCheckPossibleHands_Click();
    EXPECT_TRUE(services.messages.empty());
    return form.results().cookRangeCount;
  }
};

TEST_F(CookLink, EnterInMyHandRunsTheCook) {
  form.PFHand_MouseUp(Block("AKs"), kLeftButton, 0);
  form.txtMyHand.text = "AhAd";
  form.txtBoard.text = "Tc8h3s";
  form.txtMyHand_KeyDown(kKeyEnter);
  EXPECT_EQ(form.results().cookRangeCount, 4);
  EXPECT_EQ(form.results().cookLiveCount, 2);  // AhKh and AdKd share a card with My Hand
  EXPECT_EQ(form.results().lblCheckPossibleHands.substr(0, 27), "4 Hands in Opponent's Range");
}

TEST_F(CookLink, EnterInTheBoardRunsTheCookAndOtherKeysDoNot) {
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  form.txtMyHand.text = "KhKd";
  form.txtBoard.text = "Tc8h3s";
  form.txtBoard_KeyDown(int{'S'});
  form.txtBoard_KeyDown(kKeyShift);
  EXPECT_EQ(form.results().lblCheckPossibleHands, "");
  form.txtBoard_KeyDown(kKeyEnter);
  EXPECT_EQ(form.results().cookRangeCount, 6);
}

TEST_F(CookLink, ASuccessfulCardCheckColoursBothBoxesBySuit) {
  form.txtMyHand.text = "ahkd";
  form.txtBoard.text = "tc8h3S";
  form.cmdCheckPossibleHands_Click();
  EXPECT_EQ(form.txtMyHand.text, "AhKd");
  EXPECT_EQ(form.txtMyHand.charColours, (std::vector<Colour>{kRed, kRed, kBlue, kBlue}));
  EXPECT_EQ(form.txtBoard.text, "Tc8h3s");
  EXPECT_EQ(form.txtBoard.charColours,
            (std::vector<Colour>{kGreen, kGreen, kRed, kRed, kWindowTextColour, kWindowTextColour}));
}

TEST_F(CookLink, WithAutoCookTheOkOfThePickerRunsTheCook) {
  form.PFHand_MouseUp(Block("AKs"), kLeftButton, 0);
  form.txtBoard_Click();
  form.frmSelCards.chkAutoCook = true;
  for (int cell : {Cell(10, 0), Cell(8, 2), Cell(3, 3)}) form.frmSelCards.Card_MouseUp(cell, kLeftButton);
  form.frmSelCards.cmdOK_Click();
  EXPECT_EQ(form.txtBoard.text, "Tc8h3s");
  EXPECT_EQ(form.results().cookRangeCount, 4);
  EXPECT_TRUE(form.selCardsAutoCook);
}

TEST_F(CookLink, WithoutAutoCookTheOkOnlyWritesTheCards) {
  form.txtBoard_Click();
  for (int cell : {Cell(10, 0), Cell(8, 2), Cell(3, 3)}) form.frmSelCards.Card_MouseUp(cell, kLeftButton);
  form.frmSelCards.cmdOK_Click();
  EXPECT_EQ(form.results().lblCheckPossibleHands, "");
}

TEST_F(CookLink, TheCookSeesEveryChangeOfTheRange) {
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  EXPECT_EQ(CookedRange(), 6);
  form.PFHand_MouseUp(Block("99"), kLeftButton, kAltMask);  // AA to 99: six pairs
  EXPECT_EQ(CookedRange(), 36);
  // Row Q and column T (184 holdings), QQ and TT already counted.
  form.PFHand_MouseUp(Block("QTs"), kLeftButton, kCtrlMask);
  EXPECT_EQ(CookedRange(), 208);
  form.PFHand_MouseUp(Block("72"), kRightButton, 0);  // into the Seen layer
  EXPECT_EQ(CookedRange(), 220);
  form.txtBoard.text = "2c2d2h";  // no equity run from the matrix
  form.picSuit_Click(1);          // the seven of clubs with the deuce of diamonds out of the Seen layer
  EXPECT_EQ(CookedRange(), 219);
  form.cmdClearAllBlocks_Click();
  EXPECT_EQ(CookedRange(), 0);

  form.grid().Slider1.value = 0;
  form.Slider1_MouseMove(kLeftButton);
  EXPECT_EQ(CookedRange(), 6);
  TypeRange("10");  // 7 pairs, 10 suited and 4 offsuit classes
  EXPECT_EQ(CookedRange(), 130);
  form.cmdAnyPair_Click();  // 66 to 22 join
  EXPECT_EQ(CookedRange(), 166);
  form.cmdAnySuited_Click();  // 68 more suited classes
  EXPECT_EQ(CookedRange(), 438);
  form.cmdAnyBroadway_Click();  // AT, KJ, KT, QJ, QT and JT offsuit join
  EXPECT_EQ(CookedRange(), 510);
  form.cmdAll_Click();
  EXPECT_EQ(CookedRange(), 1326);

  form.PFHand_MouseUp(Block("72"), kRightButton, 0);
  form.cmdClearOnBlocks_Click();
  EXPECT_EQ(CookedRange(), 12);
  form.cmdClearSeenBlocks_Click();
  EXPECT_EQ(CookedRange(), 0);
}

TEST_F(CookLink, WithAutoPreflopEquityTheArmedTimerCalculatesAgainstTheChangedRange) {
  form.options.autoPFEquityCalc = true;
  form.txtMyHand.text = "KhKd";
  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);
  ASSERT_TRUE(form.tmrCalcEquity.enabled);
  form.tmrCalcEquity_Timer();
  EXPECT_FALSE(form.tmrCalcEquity.enabled);
  const double kingsAgainstAces = form.results().myEquity;
  EXPECT_LT(kingsAgainstAces, 50.0);
  ASSERT_FALSE(form.results().lblMyEquity.caption.empty());

  form.PFHand_MouseUp(Block("AA"), kLeftButton, 0);  // aces out, nothing left
  form.PFHand_MouseUp(Block("72"), kLeftButton, 0);
  form.tmrCalcEquity_Timer();
  EXPECT_GT(form.results().myEquity, 50.0);  // kings against seven-deuce offsuit
}

}  // namespace
}  // namespace quillet
