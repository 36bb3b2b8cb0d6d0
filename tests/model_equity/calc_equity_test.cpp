#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "range/block_record.h"
#include "range/player_profile.h"
#include "tests/support/generic_profile_window.h"
#include "tests/support/recording_services.h"

namespace quillet {
namespace {

// Records what the Calc Equity command looks like each time the window is repainted.
class WatchingServices : public RecordingServices {
 public:
  struct Look {
    Colour backColour;
    std::string caption;
  };
  const Form1Model* model = nullptr;
  std::vector<Look> looks;

  void RepaintNow() override {
    RecordingServices::RepaintNow();
    const LabelState& command = model->label(CommandLabel::cmdCalcEquity);
    looks.push_back({command.backColour, command.caption});
  }
};

struct EquityWindow : testing::GenericProfileWindow<WatchingServices> {
  EquityWindow() { services.model = &model; }

  // A previous result on show, to see what a run clears.
  void ShowOldResult() {
    model.results().lblMyEquity.caption = "12.3%";
    model.results().lblMyEquity.opaque = true;
    model.results().lblMyEquity.backColour = Rgb(1, 2, 3);
    model.results().lbloppEquity.caption = "87.7%";
  }

  Colour commandColour() const { return model.label(CommandLabel::cmdCalcEquity).backColour; }
};

// ---- checks before the run ----

TEST(CalcEquity, WithNoMyHandAndAnEmptyBoardOnlyClearsTheReadOuts) {
  EquityWindow w;
  w.Click("AA");
  w.ShowOldResult();
  w.Calc("", "");
  EXPECT_EQ(w.my(), "");
  EXPECT_EQ(w.opp(), "");
  EXPECT_FALSE(w.model.results().lblMyEquity.opaque);
  EXPECT_TRUE(w.services.messages.empty());
  EXPECT_EQ(w.services.repaints, 0);
  EXPECT_EQ(w.commandColour(), kOptionsBackColour);
}

TEST(CalcEquity, BadCardTextShowsBadInputBeforeAnyColourChange) {
  EquityWindow w;
  w.Click("AA");
  w.ShowOldResult();
  w.Calc("AhKd", "AxKd4c");
  EXPECT_EQ(w.services.messageTexts(), std::vector<std::string>{"Bad Input"});
  EXPECT_EQ(w.my(), "");
  EXPECT_EQ(w.opp(), "");
  EXPECT_FALSE(w.model.results().lblMyEquity.opaque);
  EXPECT_EQ(w.services.repaints, 0);
  EXPECT_EQ(w.commandColour(), kOptionsBackColour);
}

TEST(CalcEquity, AWrongLengthShowsItsOwnMessageAndThenBadInput) {
  EquityWindow w;
  w.Calc("AhKd", "AhKd");
  EXPECT_EQ(w.services.messageTexts(),
            (std::vector<std::string>{"Board invalid. Valid Eg: ThKc4d", "Bad Input"}));
}

TEST(CalcEquity, AMyHandWithoutItsSecondRankIsRefusedWithBadInput) {
  // "AhXd" gets through the hand parse with no second rank; it cannot be dealt around, so it is refused
  // before the colour changes.
  EquityWindow w;
  w.Click("KK");
  w.Calc("AhXd", "Tc8h3s");
  EXPECT_EQ(w.services.messageTexts(), std::vector<std::string>{"Bad Input"});
  EXPECT_EQ(w.my(), "");
  EXPECT_EQ(w.services.repaints, 0);
  EXPECT_EQ(w.commandColour(), kOptionsBackColour);
  w.services.messages.clear();
  w.Calc("AhXd", "");
  EXPECT_EQ(w.services.messageTexts(), std::vector<std::string>{"Bad Input"});
}

TEST(CalcEquity, ADuplicateCardShowsItsMessageBeforeAnyColourChange) {
  EquityWindow w;
  w.Click("KK");
  w.Calc("AhKd", "QsAh4c");
  EXPECT_EQ(w.services.messageTexts(), std::vector<std::string>{"Duplicate card exists"});
  EXPECT_EQ(w.my(), "");
  EXPECT_EQ(w.services.repaints, 0);
  EXPECT_EQ(w.commandColour(), kOptionsBackColour);
}

// ---- the run ----

TEST(CalcEquity, ShowsTheBusyColourDuringTheRunAndTheOptionsColourAfterIt) {
  EquityWindow w;
  w.Click("KK");
  w.Calc("AhAd", "Tc8h3s2d");
  ASSERT_GE(w.services.looks.size(), 2u);
  // The first repaint comes straight after the colour change, before the caption changes.
  EXPECT_EQ(w.services.looks[0].backColour, kCalculatingBackColour);
  EXPECT_EQ(w.services.looks[0].caption, "Calc Equity");
  bool sawCalculating = false;
  for (const auto& look : w.services.looks) {
    EXPECT_EQ(look.backColour, kCalculatingBackColour);
    sawCalculating = sawCalculating || look.caption == "Calculating";
  }
  EXPECT_TRUE(sawCalculating);
  EXPECT_EQ(w.commandColour(), w.model.label(CommandLabel::lblOptions).backColour);
  EXPECT_EQ(w.commandColour(), kOptionsBackColour);
  EXPECT_EQ(w.model.label(CommandLabel::cmdCalcEquity).caption, "Calc Equity");
}

TEST(CalcEquity, PreflopLeavesTheCaptionAlone) {
  EquityWindow w;
  w.Click("AA");
  w.Calc("AhAd", "");
  for (const auto& look : w.services.looks) EXPECT_EQ(look.caption, "Calc Equity");
  EXPECT_EQ(w.commandColour(), kOptionsBackColour);
}

TEST(CalcEquity, OnTheTurnShowsBothReadOutsRoundedAsTheyRead) {
  // Each of the six kings holdings wins 2 of its 44 rivers (the other two kings) and loses the rest:
  // 252 of 264 showdowns are mine, 95.45 and 4.55 after rounding, shown 95.5% and 4.6%.
  EquityWindow w;
  w.Click("KK");
  w.Calc("AhAd", "Tc8h3s2d");
  EXPECT_TRUE(w.services.messages.empty());
  EXPECT_EQ(w.my(), "95.5%");
  EXPECT_EQ(w.opp(), "4.6%");
  EXPECT_TRUE(w.model.results().lblMyEquity.opaque);
  EXPECT_EQ(w.model.results().lblMyEquity.backColour, Rgb(0, 255, 0));
}

TEST(CalcEquity, OnTheFlopCountsTheCooksRangeWithDeadHoldingsRemoved) {
  // Twos: the deuce of hearts is on the board, so (c,d), (c,s) and (d,s) are live. Each is a set of twos
  // against my flush, 411 of 990 showdowns mine (worked out in the engine's tests): 41.52 and 58.48.
  EquityWindow w;
  w.Click("22");
  w.Calc("AhKh", "9h5h2h");
  EXPECT_EQ(w.my(), "41.5%");
  EXPECT_EQ(w.opp(), "58.5%");
  EXPECT_EQ(w.model.results().lblMyEquity.backColour, Rgb(234, 196, 45));  // 41.52 counts as 42
}

TEST(CalcEquity, TheSeenLayerAddsItsHoldingsToTheRange) {
  EquityWindow w;
  w.Click("22", /*seenLayer=*/true);
  w.Calc("AhKh", "9h5h2h");
  EXPECT_EQ(w.my(), "41.5%");
  EXPECT_EQ(w.opp(), "58.5%");
}

TEST(CalcEquity, PreflopAcesAgainstTheOtherTwoAcesIsFiftyFifty) {
  // With AhAd the only live aces holding is AcAs, which shares no suit: each side's chances mirror the
  // other's, so the table gives exactly 50.
  EquityWindow w;
  w.Click("AA");
  w.Calc("AhAd", "");
  EXPECT_TRUE(w.services.messages.empty());
  EXPECT_EQ(w.my(), "50.0%");
  EXPECT_EQ(w.opp(), "50.0%");
  EXPECT_EQ(w.model.results().lblMyEquity.backColour, Rgb(234, 196, 45));
}

TEST(CalcEquity, PreflopShowsThePlainAverageOfTheTableValuesUnrounded) {
  // AhAd against KsKc is 81.255 (no suit shared); against KhKd the table holds 82.176, the mean of the
  // matchups its key stands for. Each holding weighs the same: (81.255 + 82.176) / 2.
  EquityWindow w;
  const int kings = FindClassByName("KK");
  ASSERT_GE(kings, 0);
  ASSERT_TRUE(SetBlockSuitPair(w.profile().rangeLayer[kings], /*suit1=*/3, /*suit2=*/0, true, false));
  ASSERT_TRUE(SetBlockSuitPair(w.profile().rangeLayer[kings], /*suit1=*/2, /*suit2=*/1, true, false));
  w.Calc("AhAd", "");
  EXPECT_TRUE(w.services.messages.empty());
  EXPECT_NEAR(w.model.results().myEquity, (81.255 + 82.176) / 2, 0.01);
  EXPECT_DOUBLE_EQ(w.model.results().oppEquity, 100.0 - w.model.results().myEquity);
  EXPECT_EQ(w.my(), "81.7%");
  EXPECT_EQ(w.opp(), "18.3%");
  EXPECT_EQ(w.model.results().lblMyEquity.backColour, Rgb(0, 255, 0));
}

TEST(CalcEquity, WithAFiveCardBoardBothReadOutsShowZeroAndMyEquityTurnsRed) {
  EquityWindow w;
  w.Click("KK");
  w.Calc("AhAd", "Tc8h3s2d5c");
  EXPECT_EQ(w.my(), "0.0%");
  EXPECT_EQ(w.opp(), "0.0%");
  EXPECT_TRUE(w.model.results().lblMyEquity.opaque);
  EXPECT_EQ(w.model.results().lblMyEquity.backColour, Rgb(255, 0, 0));
  EXPECT_EQ(w.commandColour(), kOptionsBackColour);
}

TEST(CalcEquity, AnEmptyRangeShowsMinusOneOnBothSides) {
  EquityWindow w;
  w.Calc("AhAd", "Tc8h3s");
  EXPECT_EQ(w.my(), "-1.0%");
  EXPECT_EQ(w.opp(), "-1.0%");
  EXPECT_EQ(w.model.results().lblMyEquity.backColour, Rgb(255, 0, 0));
  w.Calc("AhAd", "");
  EXPECT_EQ(w.my(), "-1.0%");
  EXPECT_EQ(w.opp(), "-1.0%");
}

TEST(CalcEquity, EveryShowdownTiedShowsFiftyOnBothSides) {
  // 2c3d against 3c2d on a flop of hearts: the same ranks, and neither side can hold a heart, so every
  // one of the 990 showdowns ties.
  EquityWindow w;
  const int c = FindClassByName("32");
  ASSERT_GE(c, 0);
  ASSERT_TRUE(SetBlockSuitPair(w.profile().rangeLayer[c], /*suit1=*/0, /*suit2=*/1, true, false));
  w.Calc("2c3d", "AhKhQh");
  EXPECT_EQ(w.my(), "50.0%");
  EXPECT_EQ(w.opp(), "50.0%");
}

// ---- the timer and the options ----

TEST(CalcEquityTimer, FiresOnceAndRunsTheCommand) {
  EquityWindow w;
  w.Click("KK");
  w.model.txtMyHand.text = "AhAd";
  w.model.txtBoard.text = "Tc8h3s2d";
  w.model.tmrCalcEquity.Enable();
  w.model.tmrCalcEquity_Timer();
  EXPECT_FALSE(w.model.tmrCalcEquity.enabled);
  EXPECT_EQ(w.my(), "95.5%");
}

TEST(CalcEquityTimer, IsAOneMillisecondTimerDisabledAtStart) {
  EquityWindow w;
  EXPECT_EQ(w.model.tmrCalcEquity.intervalMs, 1);
  EXPECT_FALSE(w.model.tmrCalcEquity.enabled);
}

TEST(EquityOptions, EachMenuItemFlipsItsOwnTick) {
  EquityWindow w;
  EXPECT_FALSE(w.model.options.calcEquityOnCook);
  EXPECT_FALSE(w.model.options.autoPFEquityCalc);
  w.model.mnuCalcEquityOnCook_Click();
  EXPECT_TRUE(w.model.options.calcEquityOnCook);
  EXPECT_FALSE(w.model.options.autoPFEquityCalc);
  w.model.mnuAutoPFEquityCalc_Click();
  EXPECT_TRUE(w.model.options.autoPFEquityCalc);
  w.model.mnuCalcEquityOnCook_Click();
  EXPECT_FALSE(w.model.options.calcEquityOnCook);
  EXPECT_TRUE(w.model.options.autoPFEquityCalc);
}

TEST(EquityOptions, TheAutoPreflopOptionArmsTheTimerOnARangeChangeWithAnEmptyBoard) {
  EquityWindow w;
  w.model.options.autoPFEquityCalc = true;
  w.model.txtBoard.text = "";
  const uint64_t before = w.model.tmrCalcEquity.armCount;
  w.Click("KK");
  w.model.SetBlockColours();
  EXPECT_TRUE(w.model.tmrCalcEquity.enabled);
  EXPECT_GT(w.model.tmrCalcEquity.armCount, before);
}

TEST(EquityOptions, TheAutoPreflopOptionClearsTheReadOutsWhenTheBoardIsNotEmpty) {
  EquityWindow w;
  w.model.options.autoPFEquityCalc = true;
  w.model.txtBoard.text = "Tc8h3s";
  w.ShowOldResult();
  w.Click("KK");
  w.model.SetBlockColours();
  EXPECT_FALSE(w.model.tmrCalcEquity.enabled);
  EXPECT_EQ(w.my(), "");
  EXPECT_EQ(w.opp(), "");
  EXPECT_FALSE(w.model.results().lblMyEquity.opaque);
}

TEST(EquityOptions, TheCookRunsTheEquityCommandWhenItsOptionIsTicked) {
  EquityWindow w;
  w.Click("KK");
  w.model.txtMyHand.text = "AhAd";
  w.model.txtBoard.text = "Tc8h3s2d";
  w.model.cmdCheckPossibleHands_Click();
  EXPECT_EQ(w.my(), "100%");  // the read-out as designed: the cook alone leaves it as it was
  w.model.mnuCalcEquityOnCook_Click();
  w.model.cmdCheckPossibleHands_Click();
  EXPECT_EQ(w.my(), "95.5%");
  EXPECT_EQ(w.opp(), "4.6%");
}

TEST(EquityOptions, TheCooksEquityShowsItsOwnMessages) {
  // The cook accepts a My Hand without a second rank; the equity command it then runs refuses it.
  EquityWindow w;
  w.Click("KK");
  w.model.options.calcEquityOnCook = true;
  w.model.txtMyHand.text = "AhXd";
  w.model.txtBoard.text = "Tc8h3s";
  w.model.cmdCheckPossibleHands_Click();
  EXPECT_EQ(w.services.messageTexts(), std::vector<std::string>{"Bad Input"});
  EXPECT_EQ(w.my(), "");
}

}  // namespace
}  // namespace quillet
