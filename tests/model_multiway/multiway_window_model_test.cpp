// The "Multiway Equity" window's model: its rows, the checks before a run, the run on its own thread, Stop,
// the results table and the text it copies.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "app/model/form1_model.h"
#include "app/model/multiway_model.h"
#include "cards/hand_class.h"
#include "equity/hand_evaluator.h"
#include "range/colour.h"
#include "range/player_profile.h"
#include "range/range_notation.h"
#include "tests/support/card_text.h"
#include "tests/support/model_in_folder.h"
#include "tests/support/recording_services.h"

namespace quillet {
namespace {

using testing::C;
using testing::Cards;
using testing::MakeProfile;

// Polls the run as the window's timer does until it has ended (a minute at most, so that a run that never
// ends fails the test rather than hanging it).
void WaitForRun(MultiwayModel& window) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  while (window.Running() && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(std::chrono::milliseconds(kMultiwayPollMs));
    window.tmrProgress_Timer();
  }
}

std::string TwoPlaces(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.2f%%", value);
  return text;
}

// Every completion of the board dealt to single hands, each showdown by the best five of seven, a tie
// splitting the pot: each hand's equity, wins alone and ties, in per cent.
struct BruteRow {
  double equity = 0;
  double win = 0;
  double tie = 0;
};
std::vector<BruteRow> BruteForceHands(const std::vector<std::string>& hands, const std::string& boardText) {
  std::vector<Card> known = Cards(boardText);
  for (const std::string& hand : hands) {
    for (const Card& card : Cards(hand)) known.push_back(card);
  }
  std::vector<Card> deck;
  for (int suit = 0; suit < 4; ++suit) {
    for (int rank = 2; rank <= 14; ++rank) {
      const Card card{rank, suit};
      if (std::find(known.begin(), known.end(), card) == known.end()) deck.push_back(card);
    }
  }
  const std::vector<Card> board = Cards(boardText);
  const std::size_t coming = 5 - board.size();
  std::vector<BruteRow> rows(hands.size());
  double deals = 0;
  std::vector<std::size_t> pick(coming);
  const auto settle = [&](const std::vector<Card>& full) {
    std::vector<HandValue> values;
    HandValue best = 0;
    for (const std::string& hand : hands) {
      std::vector<Card> seven = full;
      for (const Card& card : Cards(hand)) seven.push_back(card);
      values.push_back(EvaluateCards(seven));
      best = std::max(best, values.back());
    }
    const auto winners = static_cast<double>(std::count(values.begin(), values.end(), best));
    for (std::size_t p = 0; p < hands.size(); ++p) {
      if (values[p] != best) continue;
      rows[p].equity += 1 / winners;
      (winners == 1 ? rows[p].win : rows[p].tie) += 1;
    }
    deals += 1;
  };
  // The turn and river (or as many cards as are still to come, at most two here).
  if (coming == 0) {
    settle(board);
  } else if (coming == 1) {
    for (const Card& a : deck) {
      std::vector<Card> full = board;
      full.push_back(a);
      settle(full);
    }
  } else {
    for (std::size_t i = 0; i < deck.size(); ++i) {
      for (std::size_t j = i + 1; j < deck.size(); ++j) {
        std::vector<Card> full = board;
        full.push_back(deck[i]);
        full.push_back(deck[j]);
        settle(full);
      }
    }
  }
  for (BruteRow& row : rows) {
    row.equity *= 100 / deals;
    row.win *= 100 / deals;
    row.tie *= 100 / deals;
  }
  return rows;
}

class MultiwayWindowModel : public ::testing::Test {
 protected:
  MultiwayWindowModel() : model(services) {}

  // The main window with My Hand, the Board and a current profile whose On layer holds `classes`.
  void MainWindow(const std::string& myHand, const std::string& board,
                  const std::vector<std::string>& classes) {
    model.txtMyHand.text = myHand;
    model.txtBoard.text = board;
    model.profiles().list.push_back(MakeProfile("Villain", classes, ""));
    model.profiles().currentIndex = 0;
  }

  // Opens the window and types the texts into its rows (as many rows as texts) and the board.
  void Type(const std::vector<std::string>& players, const std::string& board) {
    window.Form_Open();
    while (window.txtPlayer.size() < players.size()) window.cmdAddPlayer_Click();
    while (window.txtPlayer.size() > players.size()) window.cmdRemovePlayer_Click(0);
    for (std::size_t r = 0; r < players.size(); ++r) {
      window.txtPlayer[r].text = players[r];
      window.txtPlayer_Change(static_cast<int>(r));
    }
    window.txtBoard.text = board;
    window.txtBoard_Change();
  }

  RecordingServices services;
  Form1Model model;
  MultiwayModel& window = model.frmMultiway;
};

TEST_F(MultiwayWindowModel, OpensWithThreeRowsFromMyHandTheOpponentsRangeAndTheBoard) {
  MainWindow("ah kd", "Tc8h3s", {"QQ", "JJ"});
  model.mnuMultiwayEquity_Click();
  EXPECT_TRUE(window.visible);
  ASSERT_EQ(window.txtPlayer.size(), 3u);
  EXPECT_EQ(window.txtPlayer[0].text, "AhKd");
  const ParsedWeightedRange range = ParseWeightedRangeNotation(window.txtPlayer[1].text);
  ASSERT_TRUE(range.ok());
  EXPECT_EQ(range.weights, OnLayerWeights(model.profiles().list[0]));
  EXPECT_EQ(range.weights.Count(), 12);
  EXPECT_EQ(window.txtPlayer[2].text, "");
  EXPECT_EQ(window.txtBoard.text, "Tc8h3s");
}

TEST_F(MultiwayWindowModel, TheOpponentsRangeKeepsItsWeights) {
  MainWindow("AhAd", "", {"KK"});
  WeightedHoldingSet weights = OnLayerWeights(model.profiles().list[0]);
  weights.SetWeight(C("Ks"), C("Kc"), 500);
  SetOnLayerWeights(model.profiles().list[0], weights);
  model.mnuMultiwayEquity_Click();
  const ParsedWeightedRange row = ParseWeightedRangeNotation(window.txtPlayer[1].text);
  ASSERT_TRUE(row.ok());
  EXPECT_EQ(row.weights, weights);
}

TEST_F(MultiwayWindowModel, OpenedAgainItShowsWhatItWasLeftWith) {
  MainWindow("AhAd", "", {"KK"});
  model.mnuMultiwayEquity_Click();
  window.txtPlayer[2].text = "QQ";
  window.Form_KeyDown(kKeyEscape);
  EXPECT_FALSE(window.visible);
  model.txtMyHand.text = "2c2d";
  model.mnuMultiwayEquity_Click();
  EXPECT_EQ(window.txtPlayer[0].text, "AhAd");
  EXPECT_EQ(window.txtPlayer[2].text, "QQ");
  window.cmdFromMainWindow_Click();
  EXPECT_EQ(window.txtPlayer[0].text, "2c2d");
  EXPECT_EQ(window.txtPlayer[2].text, "QQ");
}

TEST_F(MultiwayWindowModel, AddPlayerStopsAtTenRows) {
  model.mnuMultiwayEquity_Click();
  for (int i = 0; i < 12; ++i) window.cmdAddPlayer_Click();
  EXPECT_EQ(window.txtPlayer.size(), 10u);
}

TEST_F(MultiwayWindowModel, RemoveTakesThatRowAndStopsAtTwoRows) {
  model.mnuMultiwayEquity_Click();
  window.txtPlayer[0].text = "AA";
  window.txtPlayer[1].text = "KK";
  window.txtPlayer[2].text = "QQ";
  window.cmdRemovePlayer_Click(1);
  ASSERT_EQ(window.txtPlayer.size(), 2u);
  EXPECT_EQ(window.txtPlayer[0].text, "AA");
  EXPECT_EQ(window.txtPlayer[1].text, "QQ");
  window.cmdRemovePlayer_Click(0);
  EXPECT_EQ(window.txtPlayer.size(), 2u);
}

TEST_F(MultiwayWindowModel, ABadTokenIsNamedTurnsRedAndNothingRuns) {
  Type({"AhAd", "QQ+, AKx", "JJ"}, "");
  window.cmdCalculate_Click();
  ASSERT_EQ(services.messages.size(), 1u);
  EXPECT_EQ(services.messages[0].text,
            "Player 2 is invalid: unknown token 'AKx' at column 6. Valid Eg: AhAd or QQ+, AKs");
  EXPECT_FALSE(window.Running());
  EXPECT_TRUE(window.results.empty());
  const std::vector<Colour>& colours = window.txtPlayer[1].charColours;
  ASSERT_EQ(colours.size(), 8u);
  EXPECT_EQ(colours[0], kWindowTextColour);
  EXPECT_EQ(colours[5], kRejectedTextColour);
  EXPECT_EQ(colours[7], kRejectedTextColour);
}

TEST_F(MultiwayWindowModel, AnEmptyRowIsNamedAndNothingRuns) {
  Type({"AhAd", "KK", "  "}, "");
  window.cmdCalculate_Click();
  ASSERT_EQ(services.messages.size(), 1u);
  EXPECT_EQ(services.messages[0].text, "Player 3 is empty. Valid Eg: AhAd or QQ+, AKs");
  EXPECT_FALSE(window.Running());
}

TEST_F(MultiwayWindowModel, ABadBoardIsNamedAndNothingRuns) {
  Type({"AhAd", "KK"}, "Tc8x3s");
  window.cmdCalculate_Click();
  ASSERT_EQ(services.messages.size(), 1u);
  EXPECT_EQ(services.messages[0].text, "Board invalid: '8x' is not a card. Valid Eg: ThKc4d");
  EXPECT_FALSE(window.Running());

  window.txtBoard.text = "Tc8h";
  window.cmdCalculate_Click();
  EXPECT_EQ(services.messages.back().text, "Board invalid: it holds none, 3, 4 or 5 cards. Valid Eg: ThKc4d");
  window.txtBoard.text = "Tc8hTc";
  window.cmdCalculate_Click();
  EXPECT_EQ(services.messages.back().text, "Board invalid: Tc is there twice");
  EXPECT_FALSE(window.Running());
}

TEST_F(MultiwayWindowModel, AHandOnTheBoardLeavesItsPlayerNothingAndNothingRuns) {
  Type({"AhAd", "KK"}, "Ah8c3s");
  window.cmdCalculate_Click();
  ASSERT_EQ(services.messages.size(), 1u);
  EXPECT_EQ(services.messages[0].text,
            "Player 1 has no hand left: each of its hands holds a card of the board");
  EXPECT_FALSE(window.Running());
}

TEST_F(MultiwayWindowModel, TwoCardsAreWrittenAsMyHandWritesThemAndColouredBySuit) {
  Type({"ah kd", "KK"}, "tc 8H 3s");
  EXPECT_EQ(window.txtPlayer[0].charColours[0], window.txtPlayer[0].charColours[1]);
  EXPECT_NE(window.txtPlayer[0].charColours[0], window.txtPlayer[0].charColours[3]);
  window.cmdCalculate_Click();
  EXPECT_EQ(window.txtPlayer[0].text, "AhKd");
  WaitForRun(window);
  EXPECT_TRUE(services.messages.empty());
  EXPECT_FALSE(window.results.empty());
}

TEST_F(MultiwayWindowModel, ThreeHandsOnTheFlopMatchTheBruteForceInTheTableAndTheCopiedText) {
  // Two of them often split the pot.
  const std::vector<std::string> hands = {"AhKd", "AsKc", "9h9d"};
  Type(hands, "Tc8h3s");
  window.cmdCalculate_Click();
  EXPECT_TRUE(window.Running());
  WaitForRun(window);
  ASSERT_FALSE(window.Running());
  ASSERT_TRUE(services.messages.empty());
  const std::vector<BruteRow> brute = BruteForceHands(hands, "Tc8h3s");
  ASSERT_EQ(window.results.size(), 3u);
  for (std::size_t p = 0; p < hands.size(); ++p) {
    const MultiwayTableRow& row = window.results[p];
    EXPECT_EQ(row.player, "Player " + std::to_string(p + 1));
    EXPECT_EQ(row.text, hands[p]);
    EXPECT_EQ(row.equity, TwoPlaces(brute[p].equity) + " exact");
    EXPECT_EQ(row.win, TwoPlaces(brute[p].win));
    EXPECT_EQ(row.tie, TwoPlaces(brute[p].tie));
    EXPECT_EQ(row.liveCombos, "1");
  }
  EXPECT_EQ(window.progressValue, kMultiwayProgressMax);

  window.cmdCopy_Click();
  ASSERT_EQ(services.clipboard.size(), 1u);
  std::string expected =
      "Multiway equity, board Tc8h3s\r\nPlayer\tEquity\tWin\tTie\tLive combos\tHand or range\r\n";
  for (std::size_t p = 0; p < hands.size(); ++p) {
    expected += "Player " + std::to_string(p + 1) + "\t" + TwoPlaces(brute[p].equity) + " exact\t" +
                TwoPlaces(brute[p].win) + "\t" + TwoPlaces(brute[p].tie) + "\t1\t" + hands[p] + "\r\n";
  }
  // 43 cards left for the turn and the river: C(43, 2) deals.
  expected += "Exact: 903 deals\r\n";
  EXPECT_EQ(services.clipboard[0], expected);
}

TEST_F(MultiwayWindowModel, LiveCombosLeaveOutTheBoardsCardsAndCountWeights) {
  Type({"AhAd", "KK", "QsQc:0.5, QhQd"}, "Ks8c3d");
  window.cmdCalculate_Click();
  WaitForRun(window);
  ASSERT_EQ(window.results.size(), 3u);
  EXPECT_EQ(window.results[1].liveCombos, "3");
  EXPECT_EQ(window.results[2].liveCombos, "1.5");
}

TEST_F(MultiwayWindowModel, AWeightedRangeCountsEachHoldingByItsWeight) {
  // Against KsKc at half weight, QsQc whole and JhTh at a quarter, AhAd on Tc8h3s has 88.311688 %.
  Type({"AhAd", "KsKc:0.5, QsQc, JhTh:0.25"}, "Tc8h3s");
  window.cmdCalculate_Click();
  WaitForRun(window);
  ASSERT_EQ(window.results.size(), 2u);
  EXPECT_EQ(window.results[0].equity, "88.31% exact");
  EXPECT_EQ(window.results[1].equity, "11.69% exact");
  EXPECT_EQ(window.results[1].liveCombos, "1.75");
}

TEST_F(MultiwayWindowModel, ASampledRunShowsItsStandardErrorBesideEachEquity) {
  Type({"AhAd", "random", "random"}, "");
  window.options.method = MultiwayMethod::MonteCarlo;
  window.options.targetError = 1.0;
  window.options.seconds = 0;
  window.cmdCalculate_Click();
  WaitForRun(window);
  ASSERT_EQ(window.results.size(), 3u);
  for (const MultiwayTableRow& row : window.results) {
    EXPECT_NE(row.equity.find("% \u00B1 0."), std::string::npos) << row.equity;
  }
  EXPECT_EQ(window.CopyText().find("Monte Carlo: "),
            window.CopyText().rfind("\r\n", window.CopyText().size() - 3) + 2);
}

TEST_F(MultiwayWindowModel, NothingIsCopiedWithoutResults) {
  model.mnuMultiwayEquity_Click();
  window.cmdCopy_Click();
  EXPECT_TRUE(services.clipboard.empty());
}

TEST_F(MultiwayWindowModel, StopAnswersAtOnceAndTheStoppedRunEnds) {
  // AhAd against two whole ranges preflop, counted exactly: minutes of work.
  Type({"AhAd", "random", "random"}, "");
  window.options.method = MultiwayMethod::Exact;
  window.cmdCalculate_Click();
  ASSERT_TRUE(window.Running());
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  window.tmrProgress_Timer();
  EXPECT_TRUE(window.Running());
  window.cmdStop_Click();
  EXPECT_FALSE(window.Running());
  EXPECT_EQ(window.lblStatus, "Stopped.");
  EXPECT_EQ(window.progressValue, 0);
  EXPECT_EQ(window.RunsWindingDown(), 1u);
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  while (window.RunsWindingDown() > 0 && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(std::chrono::milliseconds(kMultiwayPollMs));
    window.tmrProgress_Timer();
  }
  EXPECT_EQ(window.RunsWindingDown(), 0u);
  EXPECT_TRUE(window.results.empty());
  EXPECT_TRUE(services.messages.empty());
}

TEST_F(MultiwayWindowModel, EscDuringARunStopsIt) {
  Type({"AhAd", "random", "random"}, "");
  window.options.method = MultiwayMethod::Exact;
  window.cmdCalculate_Click();
  window.Form_KeyDown(kKeyEscape);
  EXPECT_FALSE(window.visible);
  EXPECT_FALSE(window.Running());
}

TEST_F(MultiwayWindowModel, EnterCalculates) {
  Type({"AhAd", "KsKc"}, "Tc8h3s2d4c");
  window.Form_KeyDown(kKeyEnter);
  EXPECT_TRUE(window.Running());
  WaitForRun(window);
  ASSERT_EQ(window.results.size(), 2u);
  EXPECT_EQ(window.results[0].equity, "100.00% exact");
}

TEST_F(MultiwayWindowModel, TheProgressBarMovesDuringALongExactCount) {
  // Counted exactly preflop, in many slices of boards: nearly a billion deals of four players.
  Type({"AhAd", "QQ+", "AK, AQ", "JJ"}, "");
  window.options.method = MultiwayMethod::Exact;
  window.cmdCalculate_Click();
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  while (window.progressValue == 0 && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(std::chrono::milliseconds(kMultiwayPollMs));
    window.tmrProgress_Timer();
  }
  EXPECT_GT(window.progressValue, 0);
  EXPECT_LT(window.progressValue, kMultiwayProgressMax);
  window.cmdStop_Click();
}

TEST_F(MultiwayWindowModel, EveryControlHasATooltip) {
  for (const char* control : {"txtPlayer", "txtBoard", "cmdRemovePlayer", "cmdAddPlayer", "cmdFromMainWindow",
                              "cmdCalculate", "cmdStop", "cmdCopy", "prgProgress", "grdResults"}) {
    EXPECT_FALSE(MultiwayModel::ToolTip(control).empty()) << control;
  }
}

}  // namespace
}  // namespace quillet
