// The "Boards Report" window: the report's inputs from the main window, the report on a worker thread,
// the filter's check boxes, the sorted table, the aggregate, the chart, Copy and Export CSV.
#include "app/model/boards_report_model.h"

#include <algorithm>
#include <atomic>
#include <cctype>
#include <cstdio>
#include <fstream>
#include <stop_token>
#include <thread>

#include "app/model/form1_model.h"
#include "cards/card_input.h"
#include "cards/holding.h"
#include "categorise/cook.h"
#include "equity/range_equity.h"  // WeightedCombos
#include "range/my_hand_range.h"
#include "range/player_profile.h"
#include "range/range_notation.h"
#include "reports/boards_report_csv.h"
#include "storage/preferences_file.h"

namespace quillet {

// What the worker thread and the window share: the progress so far and, once `done`, the report.
struct BoardsReportShared {
  std::atomic<int32_t> done{0};
  std::atomic<int32_t> total{0};
  std::atomic<bool> finished{false};
  BoardsReport report;  // written by the worker before `finished`, read by the window after it
};

struct BoardsReportModel::Run {
  std::shared_ptr<BoardsReportShared> shared = std::make_shared<BoardsReportShared>();
  std::jthread thread;  // last: joined first
};

namespace {

constexpr std::string_view kBoardsLineEnd = "\r\n";
constexpr std::string_view kBoardsWindowKey = "BoardsReportWindow";

std::string BoardsFixed(double value, int places) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", places, value);
  return text;
}

std::string BoardsStreetWord(int32_t rowStreet, bool plural) {
  std::string word = rowStreet == kFlop ? "flop" : rowStreet == kTurn ? "turn card" : "river card";
  if (plural) word += "s";
  return word;
}

// 1,234,567
std::string BoardsGrouped(int64_t value) {
  std::string digits = std::to_string(value);
  for (int i = static_cast<int>(digits.size()) - 3; i > 0; i -= 3) digits.insert(i, ",");
  return digits;
}

double SortKey(const BoardsReportRow& row, int32_t index, int column, ShowdownRules rules) {
  switch (static_cast<BoardsColumn>(std::min(column, static_cast<int>(BoardsColumn::FirstGroup)))) {
    case BoardsColumn::Board:
      return index;
    case BoardsColumn::Weight:
      return static_cast<double>(row.weight);
    case BoardsColumn::Equity:
      return EquityOfTally(row.tally, rules).value_or(-1.0);
    case BoardsColumn::Win:
      return row.tally.WinPercent();
    case BoardsColumn::Tie:
      return row.tally.TiePercent();
    case BoardsColumn::Showdowns:
      return static_cast<double>(row.tally.Showdowns()) / static_cast<double>(row.tally.scale);
    case BoardsColumn::Holdings:
      return static_cast<double>(row.oppCombos);
    case BoardsColumn::FirstGroup:
      break;
  }
  return BoardsGroupShare(row, column - static_cast<int>(BoardsColumn::FirstGroup));
}

}  // namespace

BoardsReportModel::BoardsReportModel(Form1Model* ownerForm, WindowServices& windowServices)
    : owner(ownerForm), services(&windowServices) {}

BoardsReportModel::~BoardsReportModel() = default;

void BoardsReportModel::Form_Open() {
  const bool wasVisible = visible;
  visible = true;
  used = true;
  if (!wasVisible && !Running()) cmdRun_Click();
}

void BoardsReportModel::Form_Unload() {
  if (Running()) cmdStop_Click();
  visible = false;
}

void BoardsReportModel::cmdRun_Click() {
  if (Running() || owner == nullptr) return;
  BoardsReportRequest request;
  const std::string myText = owner->txtMyHand.text;
  std::string mine;
  CardInputs cards;
  if (IsTwoCardText(myText)) {
    cards = CheckCardInputs(myText, owner->txtBoard.text, CardsFor::Equity);
    for (const std::string& message : cards.messages) services->MsgBox(message);
    if (!cards.ok()) return;
    if (!cards.hasHand()) {
      services->MsgBox("My Hand is empty: give two cards, or my range in notation");
      return;
    }
    request.hand = cards.hand;
    mine = cards.myHandText;
  } else {
    cards = CheckCardInputs("", owner->txtBoard.text, CardsFor::Equity);
    for (const std::string& message : cards.messages) services->MsgBox(message);
    if (!cards.ok()) return;
    const ParsedWeightedRange parsed = ParseWeightedRangeNotation(myText);
    if (!parsed.ok()) {
      services->MsgBox(MyHandRangeMessage(*parsed.error));
      return;
    }
    request.myRange = WeightedCombos(parsed.weights);
    mine = myText;
  }
  if (cards.street == kRiver) {
    services->MsgBox("The board is complete: the report needs no board, a flop or a turn");
    return;
  }
  const PlayerProfile* profile = owner->profiles().currentProfile();
  if (profile != nullptr) {
    request.oppRange = CollectRangeCombos(profile->rangeLayer, profile->seenLayer, &profile->onWeights);
  }
  if (request.oppRange.empty()) {
    services->MsgBox("The opponent's range is empty: select a profile with a range");
    return;
  }
  request.board = cards.board;
  request.street = cards.street;
  request.rules = owner->options.standardShowdownRules ? ShowdownRules::Standard : ShowdownRules::Quillet;

  lblInputs = mine + " v " + profile->name + (cards.boardText.empty() ? "" : " on " + cards.boardText);
  report.reset();
  Reshow();
  progressValue = 0;
  lblStatus = "Counting every board...";
  auto run = std::make_unique<Run>();
  run->thread = std::jthread([shared = run->shared, request = std::move(request)](std::stop_token stop) {
    BoardsReportCallbacks callbacks;
    callbacks.progress = [&shared](int32_t done, int32_t total) {
      shared->done.store(done);
      shared->total.store(total);
    };
    callbacks.cancel = [&stop] { return stop.stop_requested(); };
    shared->report = MakeBoardsReport(request, callbacks);
    shared->finished.store(true, std::memory_order_release);
  });
  runs_.Start(std::move(run));
}

void BoardsReportModel::cmdStop_Click() {
  if (!runs_.Stop()) return;
  progressValue = 0;
  lblStatus = "Stopped.";
}

void BoardsReportModel::tmrProgress_Timer() {
  if (std::unique_ptr<Run> finished = runs_.TakeFinished()) {
    EndRun(*finished);
    return;
  }
  if (!Running()) return;
  const BoardsReportShared& shared = *runs_.Current().shared;
  const int32_t done = shared.done.load();
  const int32_t total = shared.total.load();
  if (total > 0) {
    progressValue =
        std::clamp(static_cast<int>(int64_t{done} * kBoardsProgressMax / total), 0, kBoardsProgressMax - 1);
    lblStatus = "Counting every board... " + BoardsGrouped(done) + " of " + BoardsGrouped(total);
  }
}

void BoardsReportModel::EndRun(Run& run) {
  BoardsReport& result = run.shared->report;
  progressValue = 0;
  lblStatus.clear();
  if (result.cancelled) return;
  if (!result.error.empty()) {
    std::string text = result.error;
    text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
    services->MsgBox(text);
    return;
  }
  report = std::move(result);
  progressValue = kBoardsProgressMax;
  lblStatus = BoardsGrouped(static_cast<int64_t>(report->rows.size())) + " " +
              BoardsStreetWord(report->rowStreet, report->rows.size() != 1);
  if (report->boardSoFar) {
    if (const auto now = EquityOfTally(*report->boardSoFar, report->rules)) {
      lblStatus += "; board so far: " + BoardsFixed(*now, 2) + "%";
    }
  }
  Reshow();
}

BoardFilter BoardsReportModel::Filter() const {
  const auto bits = [this](std::initializer_list<BoardsCheck> checks, uint32_t all) {
    uint32_t mask = 0;
    int bit = 0;
    for (const BoardsCheck check : checks) {
      if (chkFilter[static_cast<int>(check)]) mask |= 1u << bit;
      ++bit;
    }
    return mask == 0 ? all : mask;
  };
  BoardFilter filter;
  filter.suitPatterns = static_cast<uint8_t>(bits(
      {BoardsCheck::Monotone, BoardsCheck::TwoTone, BoardsCheck::Rainbow}, BoardFilter::kAllSuitPatterns));
  filter.pairings = static_cast<uint8_t>(
      bits({BoardsCheck::Unpaired, BoardsCheck::Paired, BoardsCheck::Trips}, BoardFilter::kAllPairings));
  filter.connections = static_cast<uint8_t>(
      bits({BoardsCheck::Unconnected, BoardsCheck::Connected}, BoardFilter::kAllConnections));
  if (cmbHighCard >= 2 && cmbHighCard <= 14)
    filter.highRanks = static_cast<uint16_t>(1u << (cmbHighCard - 2));
  return filter;
}

void BoardsReportModel::cmbHighCard_Click(int rank) {
  cmbHighCard = rank >= 2 && rank <= 14 ? rank : 0;
  Reshow();
}

void BoardsReportModel::Reshow() {
  ++tableVersion;
  shown_.clear();
  if (!report) return;
  const BoardFilter filter = Filter();
  for (int32_t i = 0; i < static_cast<int32_t>(report->rows.size()); ++i) {
    if (filter.Keeps(report->rows[i].texture)) shown_.push_back(i);
  }
  if (sortColumn < 0) return;
  const ShowdownRules rules = report->rules;
  const auto& rows = report->rows;
  std::stable_sort(shown_.begin(), shown_.end(), [&](int32_t a, int32_t b) {
    const double ka = SortKey(rows[a], a, sortColumn, rules);
    const double kb = SortKey(rows[b], b, sortColumn, rules);
    return sortDescending ? ka > kb : ka < kb;
  });
}

void BoardsReportModel::chkFilter_Click(BoardsCheck check) {
  bool& ticked = chkFilter[static_cast<int>(check)];
  ticked = !ticked;
  Reshow();
}

void BoardsReportModel::grdRows_HeaderClick(int column) {
  if (column < 0 || column >= kBoardsColumnCount) return;
  if (column == sortColumn) {
    sortDescending = !sortDescending;
  } else {
    sortColumn = column;
    sortDescending = column != static_cast<int>(BoardsColumn::Board);
  }
  Reshow();
}

void BoardsReportModel::grdRows_DblClick(int shownRow) {
  if (!report || shownRow < 0 || shownRow >= static_cast<int>(shown_.size()) || owner == nullptr) return;
  const BoardsReportRow& row = report->rows[shown_[shownRow]];
  owner->txtBoard.text = BoardText(row.Board());
  owner->txtBoard_Change();
  owner->cmdCheckPossibleHands_Click();
}

std::string BoardsReportModel::ColumnTitle(int column) {
  static constexpr const char* kTitles[] = {"Board", "Weight",    "Equity",  "Win",
                                            "Tie",   "Showdowns", "Holdings"};
  if (column < 0 || column >= kBoardsColumnCount) return {};
  if (column < static_cast<int>(BoardsColumn::FirstGroup)) return kTitles[column];
  return std::string(RangeGroupName(column - static_cast<int>(BoardsColumn::FirstGroup)));
}

std::string BoardsReportModel::CellText(int shownRow, int column) const {
  if (!report || shownRow < 0 || shownRow >= static_cast<int>(shown_.size())) return {};
  const BoardsReportRow& row = report->rows[shown_[shownRow]];
  switch (static_cast<BoardsColumn>(std::min(column, static_cast<int>(BoardsColumn::FirstGroup)))) {
    case BoardsColumn::Board:
      return BoardText(row.Board());
    case BoardsColumn::Weight:
      return std::to_string(row.weight);
    case BoardsColumn::Equity: {
      const std::optional<double> equity = EquityOfTally(row.tally, report->rules);
      return equity ? BoardsFixed(*equity, 2) + "%" : "-";
    }
    case BoardsColumn::Win:
      return BoardsFixed(row.tally.WinPercent(), 2) + "%";
    case BoardsColumn::Tie:
      return BoardsFixed(row.tally.TiePercent(), 2) + "%";
    case BoardsColumn::Showdowns:
      return BoardsShowdownsText(row.tally.Showdowns(), row.tally.scale);
    case BoardsColumn::Holdings:
      return CombosText(row.oppCombos);
    case BoardsColumn::FirstGroup:
      break;
  }
  return BoardsFixed(BoardsGroupShare(row, column - static_cast<int>(BoardsColumn::FirstGroup)), 1) + "%";
}

BoardsAggregate BoardsReportModel::Aggregate() const {
  if (!report) return {};
  std::vector<BoardsReportRow> rows;
  rows.reserve(shown_.size());
  for (const int32_t i : shown_) rows.push_back(report->rows[i]);
  return AggregateRows(rows);
}

std::string BoardsReportModel::AggregateText() const {
  if (!report) return {};
  const BoardsAggregate aggregate = Aggregate();
  const std::optional<double> equity = EquityOfAggregate(aggregate, report->rules);
  return "Aggregate: " + (equity ? BoardsFixed(*equity, 6) + "%" : std::string("no showdowns")) + " over " +
         BoardsGrouped(aggregate.rows) + (aggregate.rows == 1 ? " row" : " rows") + " (" +
         BoardsGrouped(aggregate.boards) + " " + BoardsStreetWord(report->rowStreet, aggregate.boards != 1) +
         "), " + BoardsNumberText(aggregate.Showdowns()) + " showdowns";
}

std::optional<double> BoardsReportModel::MidpointEquity() const {
  if (!report) return std::nullopt;
  if (report->boardSoFar) {
    if (const auto now = EquityOfTally(*report->boardSoFar, report->rules)) return now;
  }
  return EquityOfAggregate(AggregateRows(report->rows), report->rules);
}

BoardsChartKind BoardsReportModel::ChartKind() const {
  if (!report) return BoardsChartKind::None;
  return report->rowStreet == kFlop ? BoardsChartKind::Histogram : BoardsChartKind::CardGrid;
}

std::array<double, kBoardsHistogramBins> BoardsReportModel::Histogram() const {
  std::array<double, kBoardsHistogramBins> bins{};
  if (!report) return bins;
  for (const int32_t i : shown_) {
    const BoardsReportRow& row = report->rows[i];
    const std::optional<double> equity = EquityOfTally(row.tally, report->rules);
    if (!equity) continue;
    const int bin =
        std::clamp(static_cast<int>(*equity * kBoardsHistogramBins / 100.0), 0, kBoardsHistogramBins - 1);
    bins[bin] += static_cast<double>(row.weight);
  }
  return bins;
}

Colour BoardsReportModel::EquityColour(double equity, double midpoint) {
  // Red at 0, a pale yellow at the midpoint, green at 100.
  constexpr double kLow[3] = {215, 48, 39};
  constexpr double kMid[3] = {255, 255, 191};
  constexpr double kHigh[3] = {26, 152, 80};
  const double* from = kMid;
  const double* to = kMid;
  double t = 0;
  if (equity < midpoint) {
    from = kLow;
    to = kMid;
    t = midpoint > 0 ? std::clamp(equity / midpoint, 0.0, 1.0) : 1.0;
  } else {
    from = kMid;
    to = kHigh;
    t = midpoint < 100 ? std::clamp((equity - midpoint) / (100 - midpoint), 0.0, 1.0) : 0.0;
  }
  const auto mix = [&](int c) { return static_cast<uint32_t>(from[c] + (to[c] - from[c]) * t + 0.5); };
  return Rgb(mix(0), mix(1), mix(2));
}

std::vector<BoardsGridCell> BoardsReportModel::CardGrid() const {
  std::vector<BoardsGridCell> cells;
  const double midpoint = MidpointEquity().value_or(50.0);
  std::array<std::optional<double>, 64> equities{};
  if (report) {
    for (const int32_t i : shown_) {
      const BoardsReportRow& row = report->rows[i];
      const Card card = row.cards[row.cardCount - 1];
      equities[card.rank * 4 + card.suit] = EquityOfTally(row.tally, report->rules);
    }
  }
  for (int rank = 14; rank >= 2; --rank) {
    for (int suit = 3; suit >= 0; --suit) {
      BoardsGridCell cell;
      cell.card = Card{rank, suit};
      cell.equity = equities[rank * 4 + suit];
      cell.colour = cell.equity ? EquityColour(*cell.equity, midpoint) : Rgb(224, 224, 224);
      cell.toolTip =
          CardToText(cell.card) + ": " + (cell.equity ? BoardsFixed(*cell.equity, 2) + "%" : "no row");
      cells.push_back(std::move(cell));
    }
  }
  return cells;
}

std::string BoardsReportModel::CopyText() const {
  if (!report || shown_.empty()) return {};
  std::string text;
  for (int c = 0; c < kBoardsColumnCount; ++c) {
    if (c > 0) text += "\t";
    text += ColumnTitle(c);
  }
  text += kBoardsLineEnd;
  for (int r = 0; r < static_cast<int>(shown_.size()); ++r) {
    for (int c = 0; c < kBoardsColumnCount; ++c) {
      if (c > 0) text += "\t";
      text += CellText(r, c);
    }
    text += kBoardsLineEnd;
  }
  text += AggregateText();
  text += kBoardsLineEnd;
  return text;
}

std::string BoardsReportModel::CsvText() const {
  if (!report) return {};
  std::vector<BoardsReportRow> rows;
  rows.reserve(shown_.size());
  for (const int32_t i : shown_) rows.push_back(report->rows[i]);
  return BoardsReportCsv(rows, report->rules, AggregateRows(rows));
}

void BoardsReportModel::cmdCopy_Click() {
  const std::string text = CopyText();
  if (text.empty()) return;
  services->SetClipboardText(text);
}

void BoardsReportModel::cmdExportCsv_Click() {
  if (!report || shown_.empty()) return;
  const std::string path = services->AskSaveFileName("Export CSV", "boards.csv", "CSV files (*.csv)");
  if (path.empty()) return;
  const std::string text = CsvText();
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file << text;
  file.close();
  if (!file) services->MsgBox("The CSV could not be written to " + path, MessageIcon::Warning);
}

std::vector<PreferenceRecord> BoardsReportModel::PreferenceRecords() const {
  std::vector<PreferenceRecord> records;
  if (!used || !place) return records;
  records.push_back({std::string(kBoardsWindowKey),
                     std::to_string(place->left) + "," + std::to_string(place->top) + "," +
                         std::to_string(place->width) + "," + std::to_string(place->height)});
  return records;
}

bool BoardsReportModel::ApplyPreference(const std::string& key, const std::string& value) {
  if (key != kBoardsWindowKey) return false;
  used = true;
  BoardsReportPlace where;
  if (std::sscanf(value.c_str(), "%d,%d,%d,%d", &where.left, &where.top, &where.width, &where.height) == 4 &&
      where.width > 0 && where.height > 0) {
    place = where;
  }
  return true;
}

std::string_view BoardsReportModel::CheckCaption(BoardsCheck check) {
  static constexpr std::string_view kCaptions[kBoardsCheckCount] = {
      "Monotone", "Two-tone", "Rainbow", "Unpaired", "Paired", "Trips", "Connected", "Unconnected"};
  return kCaptions[static_cast<int>(check)];
}

std::string BoardsReportModel::ToolTip(std::string_view control) {
  if (control == "cmdRun") {
    return "Run the report again from My Hand (or my range), the opponent's range and the Board Cards";
  }
  if (control == "cmdStop") return "Stop the report at once";
  if (control == "cmdCopy") return "Copy the table as tab-separated text";
  if (control == "cmdExportCsv")
    return "Save the table as comma-separated values (the columns of quillet-cli boards --csv)";
  if (control == "chkFilter") {
    return "Keep only the boards of the textures ticked; none ticked of a kind keeps every board of that "
           "kind";
  }
  if (control == "cmbHighCard") return "Keep only the boards whose highest card is of this rank";
  if (control == "grdRows") {
    return "One row per board; click a heading to sort by it, double-click a row to cook its board in the "
           "main window";
  }
  if (control == "picChart") {
    return "Flops: how many flops give each equity; turn and river cards: each card coloured by my equity";
  }
  if (control == "prgProgress") return "How far the report has come";
  return {};
}

}  // namespace quillet

namespace quillet {

void Form1Model::mnuBoardsReport_Click() {
  frmBoardsReport.Form_Open();
}

}  // namespace quillet
