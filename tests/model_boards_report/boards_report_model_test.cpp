// The "Boards Report" window's model: its inputs from the main window, the run on its own thread, Stop,
// the filter's check boxes, sorting, the aggregate, the chart, Copy, Export CSV and the double click that
// cooks a board in the main window.
#include "app/model/boards_report_model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "app/model/form1_model.h"
#include "tests/cli/cli_run.h"
#include "tests/storage/temp_folder.h"
#include "tests/support/card_text.h"
#include "tests/support/model_in_folder.h"
#include "tests/support/recording_services.h"

namespace quillet {
namespace {

using testing::MakeProfile;

// Polls the run as the window's timer does until it has ended (a minute at most).
void WaitForRun(BoardsReportModel& window) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  while (window.Running() && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(std::chrono::milliseconds(kBoardsPollMs));
    window.tmrProgress_Timer();
  }
}

std::vector<std::string> Lines(const std::string& text, const std::string& end) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  for (std::size_t at = text.find(end); at != std::string::npos; at = text.find(end, start)) {
    lines.push_back(text.substr(start, at - start));
    start = at + end.size();
  }
  EXPECT_EQ(start, text.size()) << "the text does not end with a line end";
  return lines;
}

std::vector<std::string> Cells(const std::string& line) {
  std::vector<std::string> cells;
  std::stringstream in(line);
  for (std::string cell; std::getline(in, cell, '\t');) cells.push_back(cell);
  return cells;
}

class BoardsReportWindowModel : public ::testing::Test {
 protected:
  BoardsReportWindowModel() : model(services) {}

  // The main window with My Hand, the Board and a current profile whose On layer holds `classes`, under the
  // standard showdown rules; then the window opened and its report waited for.
  void OpenOn(const std::string& myHand, const std::string& board, const std::vector<std::string>& classes) {
    model.txtMyHand.text = myHand;
    model.txtBoard.text = board;
    model.profiles().list.push_back(MakeProfile("Villain", classes, ""));
    model.profiles().currentIndex = 0;
    model.options.standardShowdownRules = true;
    model.mnuBoardsReport_Click();
    WaitForRun(window);
  }

  // The equity of a row from its own showdowns: ties split half.
  double RowEquity(int32_t index) const {
    const ShowdownTally& t = window.report->rows[index].tally;
    return 100.0 * (static_cast<double>(t.wins) + 0.5 * static_cast<double>(t.ties)) /
           static_cast<double>(t.wins + t.ties + t.losses);
  }

  RecordingServices services;
  Form1Model model;
  BoardsReportModel& window = model.frmBoardsReport;
};

TEST_F(BoardsReportWindowModel, OpensFromMyHandTheOpponentsRangeAndTheBoardAndShowsEveryTurnCard) {
  OpenOn("ah kd", "Tc8h3s", {"QQ", "JJ"});
  EXPECT_TRUE(window.visible);
  ASSERT_TRUE(window.report.has_value());
  EXPECT_TRUE(services.messages.empty());
  EXPECT_EQ(window.lblInputs, "AhKd v Villain on Tc8h3s");
  // 52 cards less my two and the flop's three.
  EXPECT_EQ(window.ShownRows().size(), 47u);
  EXPECT_EQ(window.ChartKind(), BoardsChartKind::CardGrid);
  EXPECT_EQ(window.progressValue, kBoardsProgressMax);
}

TEST_F(BoardsReportWindowModel, ACompleteBoardIsRefusedAndNothingRuns) {
  OpenOn("AhKd", "Tc8h3s2d5c", {"QQ"});
  EXPECT_FALSE(window.Running());
  EXPECT_FALSE(window.report.has_value());
  ASSERT_EQ(services.messages.size(), 1u);
  EXPECT_NE(services.messages[0].text.find("complete"), std::string::npos);
}

TEST_F(BoardsReportWindowModel, MyRangeIsCountedUnderTheStandardRules) {
  OpenOn("QQ+, AKs", "Tc8h3s", {"JJ", "TT"});
  ASSERT_TRUE(window.report.has_value());
  EXPECT_EQ(window.lblInputs, "QQ+, AKs v Villain on Tc8h3s");
  EXPECT_TRUE(services.messages.empty());
  EXPECT_EQ(window.ShownRows().size(), 49u);
}

TEST_F(BoardsReportWindowModel, MyRangeUnderTheProgramsOwnRulesIsRefusedWithTheReportsReason) {
  model.txtMyHand.text = "QQ+";
  model.txtBoard.text = "Tc8h3s";
  model.profiles().list.push_back(MakeProfile("Villain", {"JJ"}, ""));
  model.profiles().currentIndex = 0;
  model.mnuBoardsReport_Click();
  WaitForRun(window);
  EXPECT_FALSE(window.report.has_value());
  ASSERT_EQ(services.messages.size(), 1u);
  EXPECT_EQ(services.messages[0].text, "A range of mine is counted under the standard rules only");
}

TEST_F(BoardsReportWindowModel, ClosingTheWindowStopsItsReport) {
  model.txtMyHand.text = "AhKd";
  model.profiles().list.push_back(MakeProfile("Villain", {"22", "AK"}, ""));
  model.profiles().currentIndex = 0;
  model.options.standardShowdownRules = true;
  model.mnuBoardsReport_Click();
  ASSERT_TRUE(window.Running());
  window.Form_Unload();
  EXPECT_FALSE(window.visible);
  EXPECT_FALSE(window.Running());
  EXPECT_EQ(window.lblStatus, "Stopped.");
}

TEST_F(BoardsReportWindowModel, TheFilterBoxesKeepTheRowsOfTheirTexturesAndTheAggregateFollows) {
  OpenOn("AhKd", "Tc8c3s", {"QQ", "JJ", "AK"});
  const std::size_t all = window.ShownRows().size();
  ASSERT_EQ(all, 47u);
  window.chkPaired_Click();
  // The turn pairs the board: three tens, three eights, three treys are left.
  ASSERT_EQ(window.ShownRows().size(), 9u);
  double wins = 0, ties = 0, losses = 0;
  for (const int32_t i : window.ShownRows()) {
    const BoardsReportRow& row = window.report->rows[i];
    const Card turn = row.cards[3];
    EXPECT_TRUE(turn.rank == 10 || turn.rank == 8 || turn.rank == 3) << BoardText(row.Board());
    wins += static_cast<double>(row.tally.wins) * static_cast<double>(row.weight);
    ties += static_cast<double>(row.tally.ties) * static_cast<double>(row.weight);
    losses += static_cast<double>(row.tally.losses) * static_cast<double>(row.weight);
  }
  const double equity = 100.0 * (wins + ties / 2) / (wins + ties + losses);
  char expected[64];
  std::snprintf(expected, sizeof expected, "Aggregate: %.6f%% over 9 rows (9 turn cards)", equity);
  EXPECT_TRUE(window.AggregateText().starts_with(expected)) << window.AggregateText();
  // Two-tone too: the properties combine, paired and two-tone.
  window.chkTwoTone_Click();
  for (const int32_t i : window.ShownRows()) {
    EXPECT_EQ(window.report->rows[i].texture.suits, SuitPattern::TwoTone);
    EXPECT_NE(window.report->rows[i].texture.pairing, Pairing::Unpaired);
  }
  // Ts, 8s and 3c: two-tone with the flop's clubs and spade.
  EXPECT_EQ(window.ShownRows().size(), 3u);
  window.chkTwoTone_Click();
  window.chkPaired_Click();
  EXPECT_EQ(window.ShownRows().size(), all);
}

TEST_F(BoardsReportWindowModel, AHeadingSortsByItsColumnAndAgainTurnsTheOrderRound) {
  OpenOn("AhKd", "Tc8h3s", {"QQ", "JJ", "AK", "T9s"});
  window.grdRows_HeaderClick(static_cast<int>(BoardsColumn::Equity));
  const std::vector<int32_t> down = window.ShownRows();
  for (std::size_t k = 1; k < down.size(); ++k) EXPECT_GE(RowEquity(down[k - 1]), RowEquity(down[k]));
  EXPECT_GT(RowEquity(down.front()), RowEquity(down.back()));
  window.grdRows_HeaderClick(static_cast<int>(BoardsColumn::Equity));
  const std::vector<int32_t> up = window.ShownRows();
  for (std::size_t k = 1; k < up.size(); ++k) EXPECT_LE(RowEquity(up[k - 1]), RowEquity(up[k]));
  // The board column gives the report's order back.
  window.grdRows_HeaderClick(static_cast<int>(BoardsColumn::Board));
  const std::vector<int32_t> board = window.ShownRows();
  EXPECT_TRUE(std::is_sorted(board.begin(), board.end()));
  EXPECT_EQ(window.CellText(0, 0), BoardText(window.report->rows[board[0]].Board()));
}

TEST_F(BoardsReportWindowModel, CopyPutsTheShownRowsOnTheClipboardTabSeparated) {
  OpenOn("AhKd", "Tc8h3s", {"QQ", "JJ"});
  window.chkPaired_Click();
  window.grdRows_HeaderClick(static_cast<int>(BoardsColumn::Equity));
  window.cmdCopy_Click();
  ASSERT_EQ(services.clipboard.size(), 1u);
  const std::vector<std::string> lines = Lines(services.clipboard[0], "\r\n");
  ASSERT_EQ(lines.size(), 2 + window.ShownRows().size());
  const std::vector<std::string> heading = Cells(lines[0]);
  ASSERT_EQ(heading.size(), static_cast<std::size_t>(kBoardsColumnCount));
  EXPECT_EQ(heading[0], "Board");
  EXPECT_EQ(heading[2], "Equity");
  for (std::size_t r = 0; r < window.ShownRows().size(); ++r) {
    const std::vector<std::string> cells = Cells(lines[r + 1]);
    ASSERT_EQ(cells.size(), static_cast<std::size_t>(kBoardsColumnCount));
    const int32_t index = window.ShownRows()[r];
    EXPECT_EQ(cells[0], BoardText(window.report->rows[index].Board()));
    char equity[32];
    std::snprintf(equity, sizeof equity, "%.2f%%", RowEquity(index));
    EXPECT_EQ(cells[2], equity);
  }
  EXPECT_TRUE(lines.back().starts_with("Aggregate: ")) << lines.back();
}

TEST_F(BoardsReportWindowModel, TheCsvIsQuilletCliBoardsCsvForTheSameInputsAndFilter) {
  OpenOn("AhKd", "Tc8h3s", {"QQ", "JJ"});
  const cli::CliRun all = cli::RunCommandLine(
      {"boards", "--hand", "AhKd", "--range", "QQ,JJ", "--board", "Tc8h3s", "--standard-rules", "--csv"});
  ASSERT_EQ(all.status, 0) << all.err;
  EXPECT_EQ(window.CsvText(), all.out);
  window.chkPaired_Click();
  const cli::CliRun paired =
      cli::RunCommandLine({"boards", "--hand", "AhKd", "--range", "QQ,JJ", "--board", "Tc8h3s",
                           "--standard-rules", "--filter", "paired", "--csv"});
  ASSERT_EQ(paired.status, 0) << paired.err;
  EXPECT_EQ(window.CsvText(), paired.out);
}

TEST_F(BoardsReportWindowModel, TheHighCardBoxKeepsTheBoardsOfThatHighestRank) {
  OpenOn("AhKd", "", {"QQ", "JJ"});
  window.cmbHighCard_Click(12);
  ASSERT_FALSE(window.ShownRows().empty());
  for (const int32_t i : window.ShownRows()) {
    const BoardsReportRow& row = window.report->rows[i];
    EXPECT_EQ(std::max({row.cards[0].rank, row.cards[1].rank, row.cards[2].rank}), 12)
        << BoardText(row.Board());
  }
  // The same rows as the command's own filter gives.
  const cli::CliRun queens = cli::RunCommandLine(
      {"boards", "--hand", "AhKd", "--range", "QQ,JJ", "--standard-rules", "--filter", "high=Q", "--csv"});
  ASSERT_EQ(queens.status, 0) << queens.err;
  EXPECT_EQ(window.CsvText(), queens.out);
  window.cmbHighCard_Click(0);
  EXPECT_EQ(window.ShownRows().size(), 19600u);
}

TEST_F(BoardsReportWindowModel, ExportCsvAsksWhereAndWritesTheCsvThere) {
  OpenOn("AhKd", "Tc8h3s", {"QQ", "JJ"});
  testing::TempFolder folder;
  const std::string path = (folder / "out.csv").string();
  window.cmdExportCsv_Click();  // cancelled: nothing is written
  EXPECT_EQ(services.saveQuestions.size(), 1u);
  EXPECT_TRUE(folder.Entries().empty());
  services.saveAnswers.push_back(path);
  window.cmdExportCsv_Click();
  std::ifstream file(path, std::ios::binary);
  const std::string written((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  EXPECT_EQ(written, window.CsvText());
  EXPECT_TRUE(written.starts_with("board,weight,equity,win,tie,showdowns,holdings")) << written;
  EXPECT_TRUE(services.messages.empty());
}

TEST_F(BoardsReportWindowModel, ADoubleClickPutsTheRowsBoardInTheMainWindowAndCooks) {
  OpenOn("AhKd", "Tc8h3s", {"QQ", "JJ"});
  window.grdRows_HeaderClick(static_cast<int>(BoardsColumn::Equity));
  const std::string board = BoardText(window.report->rows[window.ShownRows()[2]].Board());
  EXPECT_TRUE(model.results().lblCheckPossibleHands.empty());
  window.grdRows_DblClick(2);
  EXPECT_EQ(model.txtBoard.text, board);
  EXPECT_FALSE(model.results().lblCheckPossibleHands.empty());
  EXPECT_TRUE(services.messages.empty());
}

TEST_F(BoardsReportWindowModel, StopEndsTheRunAtOnceAndShowsNoRows) {
  model.txtMyHand.text = "AhKd";
  model.profiles().list.push_back(MakeProfile("Villain", {"22", "AK", "KQ", "QJs"}, ""));
  model.profiles().currentIndex = 0;
  model.options.standardShowdownRules = true;
  model.mnuBoardsReport_Click();  // every flop
  ASSERT_TRUE(window.Running());
  window.cmdStop_Click();
  EXPECT_FALSE(window.Running());
  EXPECT_EQ(window.lblStatus, "Stopped.");
  EXPECT_EQ(window.progressValue, 0);
  for (int i = 0; i < 5; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(kBoardsPollMs));
    window.tmrProgress_Timer();
  }
  EXPECT_FALSE(window.report.has_value());
  EXPECT_TRUE(window.ShownRows().empty());
  window.cmdCopy_Click();
  EXPECT_TRUE(services.clipboard.empty());
}

TEST_F(BoardsReportWindowModel, FlopsGiveAHistogramOfTheFlopsKeptByEquity) {
  OpenOn("AhAd", "", {"KK"});
  ASSERT_TRUE(window.report.has_value());
  EXPECT_EQ(window.ChartKind(), BoardsChartKind::Histogram);
  const auto bins = window.Histogram();
  double boards = 0;
  for (const double b : bins) boards += b;
  double expected = 0;
  // Every flop kept but those where the opponent has no holding left (three kings: no showdown).
  for (const int32_t i : window.ShownRows()) {
    const BoardsReportRow& row = window.report->rows[i];
    if (row.tally.Showdowns() > 0) expected += static_cast<double>(row.weight);
  }
  EXPECT_EQ(expected, 19600 - 4);
  EXPECT_EQ(boards, expected);
  // AA against KK: most flops leave the aces far ahead.
  EXPECT_GT(bins[kBoardsHistogramBins - 2] + bins[kBoardsHistogramBins - 1], boards / 2);
  window.chkMonotone_Click();
  double monotone = 0;
  for (const double b : window.Histogram()) monotone += b;
  EXPECT_LT(monotone, boards);
  EXPECT_GT(monotone, 0);
}

TEST_F(BoardsReportWindowModel, TurnCardsGiveACardGridColouredAroundTheCurrentEquity) {
  OpenOn("AhKd", "Tc8h3s", {"QQ", "JJ"});
  const std::vector<BoardsGridCell> cells = window.CardGrid();
  ASSERT_EQ(cells.size(), 52u);
  EXPECT_EQ(cells[0].card, (Card{14, 3}));  // the ace of spades first
  int withEquity = 0;
  for (const BoardsGridCell& cell : cells) {
    const bool out = cell.card == Card{14, 2} || cell.card == Card{13, 1} || cell.card == Card{10, 0} ||
                     cell.card == Card{8, 2} || cell.card == Card{3, 3};
    EXPECT_EQ(cell.equity.has_value(), !out) << CardToText(cell.card);
    if (!cell.equity) continue;
    ++withEquity;
    char tip[32];
    std::snprintf(tip, sizeof tip, ": %.2f%%", *cell.equity);
    EXPECT_EQ(cell.toolTip, CardToText(cell.card) + tip);
  }
  EXPECT_EQ(withEquity, 47);
  const double mid = *window.MidpointEquity();
  // Red below the midpoint, green above it.
  const Colour low = BoardsReportModel::EquityColour(0, mid);
  const Colour high = BoardsReportModel::EquityColour(100, mid);
  EXPECT_GT(RedOf(low), GreenOf(low));
  EXPECT_GT(GreenOf(high), RedOf(high));
  EXPECT_EQ(BoardsReportModel::EquityColour(mid, mid), Rgb(255, 255, 191));
}

}  // namespace
}  // namespace quillet
