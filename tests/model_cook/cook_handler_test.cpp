#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "range/block_record.h"
#include "range/player_profile.h"
#include "range/range_notation.h"
#include "tests/support/generic_profile_window.h"
#include "tests/support/recording_services.h"

namespace quillet {
namespace {

struct CookWindow : testing::GenericProfileWindow<> {
  void ClickAll() {
    for (int c = 0; c < kClassCount; ++c)
      SetBlockWhole(profile().rangeLayer[c], HandClasses()[c].kind == kKindSuited);
  }

  int Count(int entry) const { return model.results().categories.nodes[entry].count; }
};

// What a run leaves behind, to check that a refused run changes none of it.
struct CookResult {
  std::vector<std::vector<HandCombo>> combos;
  std::vector<int32_t> counts;
  std::vector<bool> nonEmpty;
  int32_t categorised;
  std::string caption;
  int32_t rangeCount;
  int32_t liveCount;

  explicit CookResult(const Form1Model& m)
      : categorised(m.results().categories.categorisedCount),
        caption(m.results().lblCheckPossibleHands),
        rangeCount(m.results().cookRangeCount),
        liveCount(m.results().cookLiveCount) {
    for (const CategoryNode& node : m.results().categories.nodes) {
      combos.push_back(node.combos);
      counts.push_back(node.count);
      nonEmpty.push_back(node.nonEmpty);
    }
  }
  bool operator==(const CookResult&) const = default;
};

TEST(CookHandler, ANewWindowIsReadyToCookWithAllFiftyFiveCategories) {
  RecordingServices services;
  Form1Model model(services);
  ASSERT_EQ(model.results().categories.nodes.size(), 55u);
  EXPECT_EQ(model.results().categories.nodes[54].label, "*Royal Flush");
}

TEST(CookHandler, TheCaptionIsThreeLinesSeparatedByCarriageReturnLineFeed) {
  CookWindow w;
  w.Click("AA");
  w.Cook("AhAd", "");
  EXPECT_TRUE(w.services.messages.empty());
  EXPECT_EQ(w.model.results().lblCheckPossibleHands,
            "6 Hands in Opponent's Range\r\n1 Possible Hands\r\n1 Hands in categories");
  EXPECT_EQ(w.Count(6), 1);
  EXPECT_EQ(ComboToText(w.model.results().categories.nodes[6].combos[0]), "AcAs");
}

TEST(CookHandler, AWrongBoardLengthShowsItsMessageAndThenBadInput) {
  CookWindow w;
  w.Cook("AhKd", "AhKd");
  EXPECT_EQ(w.services.messageTexts(),
            (std::vector<std::string>{"Board invalid. Valid Eg: ThKc4d", "Bad Input"}));
}

TEST(CookHandler, AWrongHandLengthShowsItsMessageAndThenBadInput) {
  CookWindow w;
  w.Cook("AhKd5", "");
  EXPECT_EQ(w.services.messageTexts(),
            (std::vector<std::string>{"My hand is invalid. Valid Eg: AhAd", "Bad Input"}));
}

TEST(CookHandler, ABadCardCharacterShowsOnlyBadInput) {
  CookWindow w;
  w.Cook("AhKd", "AxKd4c");
  EXPECT_EQ(w.services.messageTexts(), (std::vector<std::string>{"Bad Input"}));
  CookWindow hand;
  hand.Cook("AhK1", "");  // an unknown suit in the last place of My Hand
  EXPECT_EQ(hand.services.messageTexts(), (std::vector<std::string>{"Bad Input"}));
}

TEST(CookHandler, ACardUsedTwiceShowsDuplicateCardExists) {
  for (const auto& [hand, board] :
       std::vector<std::pair<std::string, std::string>>{{"AhAh", ""}, {"", "AhAh4c"}, {"AhKd", "QsAh4c"}}) {
    CookWindow w;
    w.Cook(hand, board);
    EXPECT_EQ(w.services.messageTexts(), (std::vector<std::string>{"Duplicate card exists"}))
        << hand << "/" << board;
  }
}

TEST(CookHandler, ARefusedRunLeavesTheLastResultsAsTheyWere) {
  CookWindow w;
  w.ClickAll();
  w.Cook("AhAd", "Tc8h3s");
  ASSERT_TRUE(w.services.messages.empty());
  const CookResult before(w.model);
  ASSERT_EQ(before.categorised, 1081);

  w.Click("72");  // a different range would give different results, had the run gone on
  w.Cook("AhAd", "Tc8");
  EXPECT_EQ(CookResult(w.model), before);
  w.Cook("AhAd", "Tc8hXs");
  EXPECT_EQ(CookResult(w.model), before);
  w.Cook("AhAd", "Tc8hAh");
  EXPECT_EQ(CookResult(w.model), before);
  EXPECT_EQ(w.services.messages.size(), 2u + 1u + 1u);
}

TEST(CookHandler, EachRunReadsMyHandIntoAFreshRecord) {
  // A run with My Hand empty leaves -1 in every hand field; were that record reused, the hand parse
  // would refuse "AhKd" on the old rank-2 value.
  CookWindow w;
  w.Click("QQ");
  w.Cook("", "Tc8h3s");
  w.Cook("AhKd", "Tc8h3s");
  EXPECT_TRUE(w.services.messages.empty());
  EXPECT_EQ(w.model.results().lblCheckPossibleHands,
            "6 Hands in Opponent's Range\r\n6 Possible Hands\r\n6 Hands in categories");
}

TEST(CookHandler, WithNoProfileSelectedTheRangeIsEmptyWithoutAnError) {
  RecordingServices services;
  Form1Model model(services);
  model.txtMyHand.text = "AhAd";
  model.txtBoard.text = "Tc8h3s";
  model.cmdCheckPossibleHands_Click();
  EXPECT_TRUE(services.messages.empty());
  EXPECT_EQ(model.results().lblCheckPossibleHands,
            "0 Hands in Opponent's Range\r\n0 Possible Hands\r\n0 Hands in categories");
  for (const CategoryNode& node : model.results().categories.nodes) EXPECT_EQ(node.count, 0);
}

TEST(CookHandler, AnEmptyGridIsARangeOfZero) {
  CookWindow w;
  w.Cook("", "");
  EXPECT_TRUE(w.services.messages.empty());
  EXPECT_EQ(w.model.results().lblCheckPossibleHands,
            "0 Hands in Opponent's Range\r\n0 Possible Hands\r\n0 Hands in categories");
}

TEST(CookHandler, TheCardBoxesAreGivenBackNormalised) {
  CookWindow w;
  w.Click("KK");
  w.Cook(" ah ad", "tc 8H 3s");
  EXPECT_TRUE(w.services.messages.empty());
  EXPECT_EQ(w.model.txtMyHand.text, "AhAd");
  EXPECT_EQ(w.model.txtBoard.text, "Tc8h3s");
  EXPECT_EQ(w.Count(7), 6);  // kings over the ten
}

TEST(CookHandler, AHoldingThatUsesABoardCardCountsInTheRangeButIsNotPossible) {
  CookWindow w;
  w.Click("AKs");
  w.Cook("", "Ah7c2d");
  // AhKh uses the board's ace; the other three suited holdings are live pairs of aces.
  EXPECT_EQ(w.model.results().lblCheckPossibleHands,
            "4 Hands in Opponent's Range\r\n3 Possible Hands\r\n3 Hands in categories");
  EXPECT_EQ(w.model.results().cookRangeCount, 4);
  EXPECT_EQ(w.model.results().cookLiveCount, 3);
  EXPECT_EQ(w.Count(8), 3);
}

TEST(CookHandler, HoldingsOfTheSeenLayerAreCookedToo) {
  CookWindow w;
  const int kk = FindClassByName("KK");
  SetBlockWhole(w.profile().seenLayer[kk], false);
  w.Click("AA");
  w.Cook("", "");
  EXPECT_EQ(w.model.results().cookRangeCount, 12);
  EXPECT_EQ(w.Count(6), 12);
}

TEST(CookHandler, AMadeHandWithAFlushDrawIsCountedOnceInTheCaption) {
  CookWindow w;
  w.Click("AQs");
  w.Cook("", "Ac7h2h");
  // AhQh: a pair of aces and four hearts; AdQd and AsQs: a pair of aces; AcQc is dead.
  EXPECT_EQ(w.model.results().lblCheckPossibleHands,
            "4 Hands in Opponent's Range\r\n3 Possible Hands\r\n3 Hands in categories");
  EXPECT_EQ(w.Count(8), 3);
  EXPECT_EQ(w.Count(27), 1);
}

TEST(CookHandler, TheFullRangeAgainstAcesOnTenEightThreeMakesTheKnownCounts) {
  CookWindow w;
  w.ClickAll();
  w.Cook("AhAd", "Tc8h3s");
  ASSERT_TRUE(w.services.messages.empty());
  EXPECT_EQ(w.model.results().lblCheckPossibleHands,
            "1326 Hands in Opponent's Range\r\n1081 Possible Hands\r\n1081 Hands in categories");

  // Worked out by counting cards. Left beside AhAd and Tc8h3s: two aces, three each of T, 8 and 3, and
  // four each of K, Q, J, 9, 7, 6, 5, 4, 2 (36 cards); 38 cards carry no board rank.
  const int made[] = {1,  2,  3,  4,  7,  8,  9,  10, 11, 12, 13, 16, 17, 18, 19, 20,
                      21, 22, 23, 35, 38, 39, 40, 41, 42, 44, 46, 48, 50, 52, 54};
  const std::pair<int, int> expected[] = {
      {1, 2 * 36},  // an ace with any of the 36 lower cards without a board rank
      {2, 4 * 32},  // a king with Q, J, 9, 7, 6, 5, 4, 2
      {3, 4 * 28},  // a queen with J, 9, 7, 6, 5, 4, 2
      {4,
       703 - 55 - 72 - 128 - 112},  // the rest of the 703 pairs of those 38 cards, less their 55 pocket pairs
      {7, 1 + 6 + 6 + 6},           // AcAs, KK, QQ, JJ above the ten
      {8, 3 * 38},                  // a ten with a card of no board rank
      {9, 6},                       // nines between the ten and the eight
      {10, 3 * 38},                 // an eight with a card of no board rank
      {11, 4 * 6},                  // sevens to fours between the eight and the three
      {12, 3 * 38},                 // a three with a card of no board rank
      {13, 6},                      // deuces below the three
      {16, 3 * 3},                  // ten and eight
      {17, 3 * 3},                  // ten and three
      {18, 3 * 3},                  // eight and three
      {38, 3},                      // TT
      {40, 3},                      // 88
      {42, 3},                      // 33
  };
  int madeTotal = 0;
  for (int e : made) madeTotal += w.Count(e);
  EXPECT_EQ(madeTotal, 1081);
  for (const auto& [entry, count] : expected) EXPECT_EQ(w.Count(entry), count) << "entry " << entry;
  for (int e : {19, 20, 21, 22, 23, 35, 39, 41, 44, 46, 48, 50, 52, 54}) EXPECT_EQ(w.Count(e), 0) << e;

  // A rainbow flop: no flush draws; two cards of clubs, hearts or spades are backdoor flush draws
  // (12, 11 and 12 cards of those suits left: 66 + 55 + 66).
  EXPECT_EQ(w.Count(27), 0);
  EXPECT_EQ(w.Count(32), 187);
  int draws = 0;
  for (int e : {26, 27, 30, 31, 32, 33}) draws += w.Count(e);
  int total = 0;
  for (const CategoryNode& node : w.model.results().categories.nodes) total += node.count;
  EXPECT_EQ(total, 1081 + draws);
  EXPECT_GT(w.Count(26), 0);
  EXPECT_GT(w.Count(33), 0);
}

// The current profile's On-layer weights count: KK at 0.5 (3 combinations), QQ whole (6), AKs at 0.25 with
// two of its holdings dead beside AhAd. The caption and the export text say the weighted figures.
TEST(CookHandler, AWeightedProfileGivesTheCaptionAndTheTreeItsCombinations) {
  CookWindow w;
  const ParsedWeightedRange parsed = ParseWeightedRangeNotation("KK:0.5, QQ, AKs:0.25");
  ASSERT_TRUE(parsed.ok());
  SetOnLayerWeights(w.profile(), parsed.weights);
  w.Cook("AhAd", "");
  EXPECT_TRUE(w.services.messages.empty());
  EXPECT_EQ(w.model.results().lblCheckPossibleHands,
            "10 Hands in Opponent's Range\r\n9.5 Possible Hands\r\n9.5 Hands in categories");
  EXPECT_EQ(w.model.results().cookRangeCount, 16);
  EXPECT_EQ(w.model.results().cookLiveCount, 14);
  EXPECT_NE(
      w.model.results().exportText.find("\r\nHigh cards (0.5) 5%\r\n  A high (0.5) 5%\r\n    ~AKs (0.5)\r\n"),
      std::string::npos)
      << w.model.results().exportText;
  EXPECT_NE(w.model.results().exportText.find("\r\nOne pair (9) 94%\r\n"), std::string::npos)
      << w.model.results().exportText;
}

}  // namespace
}  // namespace quillet
