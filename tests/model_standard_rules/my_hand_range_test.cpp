// A range in My Hand with "Standard Showdown Rules" ticked: Calc Equity gives my range against the
// opponent's, the cook classifies the opponent's range on the board alone, and a text that is neither two
// cards nor a range is refused with the notation's error. Unticked, My Hand reads as it always has.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "app/model/form1_model.h"
#include "app/model/window_services.h"
#include "cards/hand_class.h"
#include "equity/range_equity.h"
#include "equity/tally_text.h"
#include "range/block_record.h"
#include "range/card_text_colour.h"
#include "range/colour.h"
#include "range/player_profile.h"
#include "range/range_notation.h"
#include "tests/support/card_text.h"
#include "tests/support/recording_services.h"
#include "tests/support/tree_nodes.h"

namespace quillet {
namespace {

constexpr const char* kWide = "22+,A2s+,K9s+,QTs+,JTs,ATo+,KJo+";
constexpr const char* kTight = "22+,A7s+,KTs+,QJs,AJo+,KQo";

// A window model with one selected profile, "Generic", whose layers start empty.
struct RangeWindow {
  RecordingServices services;
  Form1Model model{services};

  explicit RangeWindow(bool standard = true) {
    PlayerProfile& p = model.profiles().list.emplace_back();
    InitProfile(p);
    p.name = "Generic";
    model.profiles().currentIndex = 0;
    model.options.standardShowdownRules = standard;
  }

  // The opponent's range, typed into the "Range:" box and entered.
  void Opponent(const std::string& notation) {
    model.grid().txtNotation.text = notation;
    model.txtNotation_Change();
    ASSERT_TRUE(model.ApplyRangeNotation()) << notation;
  }
  void Type(const std::string& hand, const std::string& board) {
    model.txtMyHand.text = hand;
    model.txtBoard.text = board;
  }
  void Calc(const std::string& hand, const std::string& board) {
    Type(hand, board);
    model.cmdCalcEquity_Click();
  }
  void Cook(const std::string& hand, const std::string& board) {
    Type(hand, board);
    model.cmdCheckPossibleHands_Click();
  }

  const std::string& my() const { return model.results().lblMyEquity.caption; }
  const std::string& opp() const { return model.results().lbloppEquity.caption; }
  std::vector<std::string> messages() const {
    std::vector<std::string> texts;
    for (const auto& m : services.messages) texts.push_back(m.text);
    return texts;
  }
};

TEST(MyHandRange, TheOpponentsWeightsCountInTheRangeAgainstRange) {
  // The opponent's holdings keep their weights: each pair counts the product of the two weights.
  const char* weighted = "KsKc:0.5, QsQc, JhTh:0.25";
  RangeWindow w;
  w.Opponent(weighted);
  w.Calc("AhAd, AsAc", "Tc8h3s");
  EXPECT_TRUE(w.services.messages.empty());
  const ParsedWeightedRange mine = ParseWeightedRangeNotation("AhAd, AsAc");
  const ParsedWeightedRange theirs = ParseWeightedRangeNotation(weighted);
  const BoardCards board = testing::Board("Tc8h3s");
  const RangeEquityResult direct = StandardRangeEquity(mine.weights, theirs.weights, board, kFlop);
  ASSERT_TRUE(direct.ok());
  EXPECT_EQ(direct.tally.scale, 1000u);
  EXPECT_DOUBLE_EQ(w.model.results().myEquity, direct.MyEquity());
  // Read without the weights the opponent's range gives another equity.
  const RangeEquityResult whole = StandardRangeEquity(
      mine.weights, WeightedHoldingSet::FromHoldings(theirs.weights.Holdings()), board, kFlop);
  EXPECT_GT(std::abs(w.model.results().myEquity - whole.MyEquity()), 0.1);
}

TEST(MyHandRange, TheWideRangeAgainstTheTightOneOnTheFlopIsExact) {
  RangeWindow w;
  w.Opponent(kTight);
  w.Calc(kWide, "Tc8h3s");
  EXPECT_TRUE(w.services.messages.empty());
  EXPECT_NEAR(w.model.results().myEquity, 47.425292, 1e-5);
  EXPECT_NEAR(w.model.results().myEquity + w.model.results().oppEquity, 100.0, 1e-9);
  EXPECT_EQ(w.my(), "47.4%");
  EXPECT_EQ(w.opp(), "52.6%");
  EXPECT_EQ(w.model.results().lblMyEquity.backColour, Rgb(234, 196, 45));  // 41 to 50
  // The tooltips carry the tally of the calculation, from each side.
  const RangeEquityResult direct = StandardRangeEquity(
      ParseRangeNotation(kWide).holdings, ParseRangeNotation(kTight).holdings,
      [] {
        BoardCards board;
        board[0] = {10, 0};
        board[1] = {8, 2};
        board[2] = {3, 3};
        return board;
      }(),
      kFlop);
  EXPECT_EQ(w.model.results().lblMyEquity.toolTip, ShowdownTallyText(direct.tally));
  EXPECT_EQ(w.model.results().lbloppEquity.toolTip, ShowdownTallyText(direct.tally.Reversed()));
  EXPECT_EQ(w.model.results().lblMyEquity.toolTip.rfind("Win ", 0), 0u);
  EXPECT_EQ(w.model.results().EquityToolTip(true).rfind(
                "My Hand's range's equity against the opponent's range: 47.43%, "
                "standard rules: Win ",
                0),
            0u)
      << w.model.results().EquityToolTip(true);
  // The box's text is kept as typed.
  EXPECT_EQ(w.model.txtMyHand.text, kWide);
}

TEST(MyHandRange, PreflopReadsTheExactClassTable) {
  RangeWindow w;
  w.Opponent(kTight);
  w.Calc(kWide, "");
  EXPECT_TRUE(w.services.messages.empty());
  EXPECT_NEAR(w.model.results().myEquity, 47.307824, 1e-5);
  EXPECT_EQ(w.my(), "47.3%");
}

TEST(MyHandRange, TopPairsAndBigSlickAgainstEveryHoldingPreflop) {
  RangeWindow w;
  w.model.cmdAll_Click();
  w.Calc("QQ+,AKs,AKo", "");
  EXPECT_NEAR(w.model.results().myEquity, 74.622551, 1e-5);
  EXPECT_EQ(w.my(), "74.6%");
  EXPECT_EQ(w.opp(), "25.4%");
}

TEST(MyHandRange, EveryHoldingAgainstEveryHoldingIsEvenOnEveryStreet) {
  for (const char* board : {"", "Tc8h3s", "Tc8h3s2d", "Tc8h3s2d7c"}) {
    RangeWindow w;
    w.model.cmdAll_Click();
    w.Calc("random", board);
    EXPECT_NEAR(w.model.results().myEquity, 50.0, 1e-9) << board;
    EXPECT_EQ(w.my(), "50.0%") << board;
    EXPECT_EQ(w.opp(), "50.0%") << board;
  }
}

TEST(MyHandRange, TheRiverShowsTheShowdownsOfBothRanges) {
  // QQ against AK on Ks7s2d5c9h: each of the six queens loses to each live AK holding (three kings left).
  RangeWindow w;
  w.Opponent("AKo");
  w.Calc("QQ", "Ks7s2d5c9h");
  EXPECT_EQ(w.my(), "0.0%");
  EXPECT_EQ(w.opp(), "100.0%");
  // 6 queens x 9 live AKo holdings.
  EXPECT_EQ(w.model.results().lblMyEquity.toolTip, "Win 0.00%, tie 0.00%, 54 showdowns");
}

TEST(MyHandRange, UntickedMyHandReadsAsItAlwaysHas) {
  RangeWindow w(/*standard=*/false);
  w.model.cmdAll_Click();
  w.Calc("QQ+, AKs", "Tc8h3s");
  EXPECT_EQ(w.messages(), (std::vector<std::string>{"My hand is invalid. Valid Eg: AhAd", "Bad Input"}));
  EXPECT_EQ(w.my(), "");
  EXPECT_EQ(w.opp(), "");
  w.services.messages.clear();
  w.Cook("QQ+, AKs", "Tc8h3s");
  EXPECT_EQ(w.messages(), (std::vector<std::string>{"My hand is invalid. Valid Eg: AhAd", "Bad Input"}));
  EXPECT_TRUE(w.model.results().TV.empty());
  EXPECT_FALSE(w.model.MyHandIsRange());
}

TEST(MyHandRange, TwoCardsTickedAreStillAHand) {
  RangeWindow w;
  w.model.cmdAll_Click();
  w.Calc("ahad", "Tc8h3s");
  EXPECT_TRUE(w.services.messages.empty());
  // AhAd against every holding, as the hand is calculated: normalised text, exact value.
  EXPECT_EQ(w.model.txtMyHand.text, "AhAd");
  EXPECT_NEAR(w.model.results().myEquity, 85.371289, 1e-6);
  EXPECT_EQ(w.model.results().EquityToolTip(true).rfind("My Hand's equity against", 0), 0u);
  w.Calc("AhAh", "Tc8h3s");
  EXPECT_EQ(w.messages(), (std::vector<std::string>{"Duplicate card exists"}));
}

TEST(MyHandRange, ABadRangeNamesItsErrorAndColoursTheTokenRed) {
  RangeWindow w;
  w.model.cmdAll_Click();
  w.Calc("QQ+, AKx", "Tc8h3s");
  EXPECT_EQ(w.messages(),
            (std::vector<std::string>{
                "My hand is invalid: unknown token 'AKx' at column 6. Valid Eg: AhAd or QQ+, AKs"}));
  EXPECT_EQ(w.my(), "");
  EXPECT_EQ(w.model.label(CommandLabel::cmdCalcEquity).backColour, kOptionsBackColour);
  const std::vector<Colour>& colours = w.model.txtMyHand.charColours;
  ASSERT_EQ(colours.size(), 8u);
  for (size_t i = 0; i < colours.size(); ++i) {
    EXPECT_EQ(colours[i], i >= 5 ? kRejectedTextColour : kWindowTextColour) << i;
  }
  // The cook refuses it the same way and leaves the tree as it was.
  w.services.messages.clear();
  w.Cook("QQ+, AKx", "Tc8h3s");
  EXPECT_EQ(w.messages().size(), 1u);
  EXPECT_TRUE(w.model.results().TV.empty());
}

TEST(MyHandRange, TheBoardIsCheckedFirstAsWithAHand) {
  RangeWindow w;
  w.Calc("QQ+, AKx", "Tc8h");
  EXPECT_EQ(w.messages(), (std::vector<std::string>{"Board invalid. Valid Eg: ThKc4d", "Bad Input"}));
  w.services.messages.clear();
  w.Calc("QQ+", "TcTc3s");
  EXPECT_EQ(w.messages(), (std::vector<std::string>{"Duplicate card exists"}));
  EXPECT_EQ(w.my(), "");
}

TEST(MyHandRange, ARangeThatTheBoardKillsShowsMinusOneAndSaysWhy) {
  RangeWindow w;
  w.model.cmdAll_Click();
  w.Calc("AA", "AhAdAc");  // every holding of aces holds one of the three
  EXPECT_TRUE(w.services.messages.empty());
  EXPECT_EQ(w.my(), "-1.0%");
  EXPECT_EQ(w.opp(), "-1.0%");
  EXPECT_EQ(w.model.results().lblMyEquity.toolTip,
            "No showdowns: every holding of My Hand's range shares a card with the board");
  RangeWindow empty;
  empty.Calc("QQ+", "Tc8h3s");
  EXPECT_EQ(empty.model.results().lblMyEquity.toolTip, "No showdowns: the opponent's range is empty");
  RangeWindow blocked;
  blocked.Opponent("AhKh");
  blocked.Calc("AhQh, AhJh", "");
  EXPECT_EQ(blocked.my(), "-1.0%");
  EXPECT_EQ(
      blocked.model.results().lblMyEquity.toolTip,
      "No showdowns: every holding of My Hand's range shares a card with every holding of the opponent's");
}

using testing::HoldingNode;

TEST(MyHandRange, TheCookClassifiesTheOpponentsRangeOnTheBoardAloneWithoutIcons) {
  RangeWindow w;
  w.model.options.winLoseIcons = true;
  w.model.options.simplifyOutput = false;
  w.Opponent("TT, 99");
  // My range holds tens and nines too, but only the board's Tc is a dead card.
  w.Cook("TT+, 99, AKs", "Tc8h3s");
  EXPECT_TRUE(w.services.messages.empty());
  EXPECT_EQ(w.model.results().cookRangeCount, 12);
  EXPECT_EQ(w.model.results().cookLiveCount, 9);  // three tens hold the Tc
  EXPECT_EQ(w.model.results().lblCheckPossibleHands,
            "12 Hands in Opponent's Range\r\n9 Possible Hands\r\n9 Hands in categories");
  const ResultNode* tens = HoldingNode(w.model.results().TV, "Td Th");
  const ResultNode* nines = HoldingNode(w.model.results().TV, "9d 9h");
  ASSERT_NE(tens, nullptr);
  ASSERT_NE(nines, nullptr);
  for (const ResultNode& node : w.model.results().TV.nodes) {
    EXPECT_TRUE(node.image != "win" && node.image != "tie" && node.image != "lose") << node.text;
  }
  // The same cook with a hand in My Hand marks the holdings.
  w.Cook("AhAd", "Tc8h3s");
  ASSERT_NE(HoldingNode(w.model.results().TV, "Td Th"), nullptr);
  EXPECT_EQ(HoldingNode(w.model.results().TV, "Td Th")->image, "lose");
}

TEST(MyHandRange, TheCooksAutomaticEquityGivesTheRangesEquity) {
  RangeWindow w;
  w.model.options.calcEquityOnCook = true;
  w.Opponent(kTight);
  w.Cook(kWide, "Tc8h3s");
  EXPECT_TRUE(w.services.messages.empty());
  EXPECT_NEAR(w.model.results().myEquity, 47.425292, 1e-5);
}

TEST(MyHandRange, AValidRangeShowsItsHoldingsBySuitAndTheRestPlain) {
  RangeWindow w;
  w.model.cmdAll_Click();
  w.Calc("QQ+, AhKh", "");
  const std::vector<Colour>& colours = w.model.txtMyHand.charColours;
  ASSERT_EQ(colours.size(), 9u);
  for (size_t i = 0; i < 9; ++i) EXPECT_EQ(colours[i], i >= 5 ? SuitTextColour(2) : kWindowTextColour) << i;
}

TEST(MyHandRange, UntickingReadsTheTextAsCardsAgain) {
  RangeWindow w;
  w.model.txtMyHand.text = "QQ+, AKx";
  w.model.ColourMyHand();
  EXPECT_EQ(w.model.txtMyHand.charColours[5], kRejectedTextColour);
  w.model.mnuStandardShowdownRules_Click();
  EXPECT_FALSE(w.model.options.standardShowdownRules);
  // Card colouring: pairs of characters by the suit letter of each pair.
  Form1Model& m = w.model;
  std::vector<Colour> cards = m.txtMyHand.charColours;
  m.ColourCodeRT(m.txtMyHand);
  EXPECT_EQ(cards, m.txtMyHand.charColours);
}

TEST(MyHandRange, AClickInTheBoxLeavesThePickerShutWhileTheLabelOpensItEmpty) {
  RangeWindow w;
  w.model.txtMyHand.text = "QQ+, AKs";
  w.model.txtMyHand_Click();
  EXPECT_FALSE(w.model.frmSelCards.visible);
  w.model.lblMyHand_Click();
  ASSERT_TRUE(w.model.frmSelCards.visible);
  // "AKs" holds the piece "Ks", which names no card here.
  EXPECT_EQ(w.model.frmSelCards.ChosenCount(false), 0);
  // Two cards picked and OK: they take the range's place.
  SelCardsModel& picker = w.model.frmSelCards;
  for (int cell = 0; cell < 52; ++cell) {
    if (picker.captions[cell] == "Ah" || picker.captions[cell] == "Kd") picker.Card_MouseUp(cell, 1);
  }
  picker.cmdOK_Click();
  EXPECT_FALSE(w.model.MyHandIsRange());
  EXPECT_EQ(w.model.txtMyHand.text.size(), 4u);
  // With two cards in the box a click in it opens the picker again, with both chosen.
  w.model.txtMyHand_Click();
  EXPECT_TRUE(w.model.frmSelCards.visible);
  EXPECT_EQ(w.model.frmSelCards.ChosenCount(false), 2);
}

TEST(MyHandRange, UntickedAClickInTheBoxOpensThePickerWhateverTheText) {
  RangeWindow w(/*standard=*/false);
  w.model.txtMyHand.text = "QQ+, AKs";
  w.model.txtMyHand_Click();
  EXPECT_TRUE(w.model.frmSelCards.visible);
  EXPECT_EQ(w.model.frmSelCards.ChosenCount(false), 1);  // the piece "Ks", as the picker always read it
}

}  // namespace
}  // namespace quillet
