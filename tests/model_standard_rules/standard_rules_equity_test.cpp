// Calc Equity, the cook's automatic equity and the win/tie/lose icons with "Standard Showdown Rules" ticked.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/model/form1_model.h"
#include "app/model/window_services.h"
#include "cards/hand_class.h"
#include "equity/standard_equity.h"
#include "equity/tally_text.h"
#include "range/block_record.h"
#include "range/player_profile.h"
#include "tests/support/generic_profile_window.h"
#include "tests/support/recording_services.h"
#include "tests/support/tree_nodes.h"

namespace quillet {
namespace {

// The Generic profile's window, with the standard rules ticked unless told otherwise.
struct RulesWindow : testing::GenericProfileWindow<> {
  explicit RulesWindow(bool standard = true) { model.options.standardShowdownRules = standard; }

  // The range box's percentage, typed and entered.
  void TopPercent(const std::string& percent) {
    model.grid().SetRangeText(percent);
    model.txtRange_KeyUp(kKeyEnter);
  }
};

TEST(StandardRulesEquity, AcesAgainstEveryHoldingOnTheFlopShowTheExactEquityAndTheSplitInTheTooltips) {
  RulesWindow w;
  w.model.cmdAll_Click();
  w.Calc("AhAd", "Tc8h3s");
  EXPECT_TRUE(w.services.messages.empty());
  EXPECT_NEAR(w.model.results().myEquity, 85.371289, 1e-6);
  EXPECT_DOUBLE_EQ(w.model.results().myEquity + w.model.results().oppEquity, 100.0);
  EXPECT_EQ(w.my(), "85.4%");
  EXPECT_EQ(w.opp(), "14.6%");
  EXPECT_EQ(w.model.results().lblMyEquity.backColour, Rgb(0, 255, 0));
  // 1,081 live holdings, 990 boards each.
  EXPECT_NE(w.model.results().lblMyEquity.toolTip.find(", 1,070,190 showdowns"), std::string::npos)
      << w.model.results().lblMyEquity.toolTip;
  EXPECT_EQ(w.model.results().lblMyEquity.toolTip.rfind("Win ", 0), 0u);
  EXPECT_NE(w.model.results().lbloppEquity.toolTip, w.model.results().lblMyEquity.toolTip);
}

TEST(StandardRulesEquity, TheTurnCountsEveryRiverWithTiesSplit) {
  RulesWindow w;
  w.model.cmdAll_Click();
  w.Calc("AhAd", "Tc8h3s2d");
  EXPECT_NEAR(w.model.results().myEquity, 88.146684, 1e-6);
  EXPECT_EQ(w.my(), "88.1%");
  EXPECT_EQ(w.opp(), "11.9%");
}

TEST(StandardRulesEquity, TheRiverShowsTheRealResultOfTheShowdowns) {
  // AhKh on Ks7s2d5c9h beats each of the six queens holdings and ties with each of the six live AK.
  RulesWindow w;
  w.Click("QQ");
  w.Click("AK");
  w.Click("AKs");
  w.Calc("AhKh", "Ks7s2d5c9h");
  EXPECT_EQ(w.my(), "75.0%");
  EXPECT_EQ(w.opp(), "25.0%");
  EXPECT_EQ(w.model.results().lblMyEquity.toolTip, "Win 50.00%, tie 50.00%, 12 showdowns");
  EXPECT_EQ(w.model.results().lbloppEquity.toolTip, "Win 0.00%, tie 50.00%, 12 showdowns");
}

TEST(StandardRulesEquity, TheNutFlushAgainstTheTopTwentyPercentWinsAlmostEverything) {
  // AsKs holds six spades on Qs7s2s5s: the nut flush by the standard rules, no flush at all by the
  // program's own. Only the full houses and quads the 201 holdings make on the river beat it: 8,784 of
  // 8,844 showdowns are mine.
  RulesWindow standard;
  standard.TopPercent("20");
  standard.Calc("AsKs", "Qs7s2s5s");
  EXPECT_EQ(standard.my(), "99.3%");
  EXPECT_EQ(standard.model.results().lblMyEquity.toolTip, "Win 99.32%, tie 0.00%, 8,844 showdowns");
  RulesWindow own(/*standard=*/false);
  own.TopPercent("20");
  own.Calc("AsKs", "Qs7s2s5s");
  EXPECT_EQ(own.my(), "36.6%");
  EXPECT_EQ(own.model.results().lblMyEquity.toolTip, "");
}

TEST(StandardRulesEquity, PreflopGivesAcesAgainstTheOtherAcesFiftyFifty) {
  RulesWindow w;
  w.Click("AA");
  w.Calc("AhAd", "");
  EXPECT_TRUE(w.services.messages.empty());
  EXPECT_EQ(w.my(), "50.0%");
  EXPECT_EQ(w.opp(), "50.0%");
}

TEST(StandardRulesEquity, PreflopAcesAgainstEveryHoldingReadTheExactClassTable) {
  RulesWindow w;
  w.model.cmdAll_Click();
  w.Calc("AhAd", "");
  EXPECT_TRUE(w.services.messages.empty());
  EXPECT_NEAR(w.model.results().myEquity, 85.203713, 1e-6);
  EXPECT_EQ(w.my(), "85.2%");
  // 1,225 live holdings, 1,712,304 boards each.
  EXPECT_NE(w.model.results().lblMyEquity.toolTip.find(", 2,097,572,400 showdowns"), std::string::npos)
      << w.model.results().lblMyEquity.toolTip;
}

TEST(StandardRulesEquity, AnEmptyRangeShowsMinusOneOnBothSides) {
  RulesWindow w;
  w.Calc("AhAd", "Tc8h3s");
  EXPECT_EQ(w.my(), "-1.0%");
  EXPECT_EQ(w.opp(), "-1.0%");
  EXPECT_EQ(w.model.results().lblMyEquity.toolTip, "No showdowns");
}

TEST(StandardRulesEquity, TheCooksAutomaticEquityFollowsTheRules) {
  RulesWindow w;
  w.model.cmdAll_Click();
  w.model.options.calcEquityOnCook = true;
  w.model.txtMyHand.text = "AhAd";
  w.model.txtBoard.text = "Tc8h3s2d";
  w.model.cmdCheckPossibleHands_Click();
  EXPECT_EQ(w.my(), "88.1%");
}

using testing::HoldingNode;

TEST(StandardRulesEquity, TheIconsMarkTheNutFlushAsBeatingAJackHighFlush) {
  for (const bool standard : {false, true}) {
    RulesWindow w(standard);
    w.model.options.winLoseIcons = true;
    w.model.options.simplifyOutput = false;
    w.Click("JT");
    w.model.txtMyHand.text = "AsKs";
    w.model.txtBoard.text = "Qs7s2s5s";
    w.model.cmdCheckPossibleHands_Click();
    const ResultNode* node = HoldingNode(w.model.results().TV, "Js Tc");
    ASSERT_NE(node, nullptr);
    // By the program's own rules AsKs holds six spades and no flush.
    EXPECT_EQ(node->image, standard ? "win" : "lose");
  }
}

}  // namespace
}  // namespace quillet
