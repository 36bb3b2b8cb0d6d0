// quillet-cli boards: the boards report, my hand or range against the opponent's range on every board the
// next street can bring, with the aggregate of the rows kept.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <ostream>
#include <string>

#include "cards/card_input.h"
#include "cli/commands.h"
#include "cli/options.h"
#include "equity/range_equity.h"  // WeightedCombos
#include "range/range_notation.h"
#include "reports/boards_report.h"
#include "reports/boards_report_csv.h"

namespace quillet::cli {
namespace {

constexpr const char* kBoardsUsage =
    "(--hand TEXT | --hand-range RANGE) --range RANGE [--board TEXT] [--standard-rules] [--filter WORDS] "
    "[--threads N] [--json | --csv]";
constexpr const char* kBoardsSummary =
    "my equity on every board the next street can bring (every flop, turn card or river card), with the "
    "opponent's range in groups and the aggregate of the rows kept (over all of them: the equity of the "
    "board so far)";

Json ShowdownsJson(uint64_t units, uint64_t scale) {
  if (units % scale == 0) return Json(units / scale);
  return Json(static_cast<double>(units) / static_cast<double>(scale));
}

std::string StreetWord(Street rowStreet) {
  return rowStreet == kFlop ? "flop" : rowStreet == kTurn ? "turn card" : "river card";
}

void WriteJson(const BoardsReport& report, const BoardsAggregate& aggregate, std::ostream& out) {
  Json rows = Json::array();
  for (const BoardsReportRow& row : report.rows) {
    if (!report.ok()) break;
    Json groups = Json::object();
    for (int g = 0; g < kRangeGroupCount; ++g)
      groups[std::string(RangeGroupName(g))] = JsonNumber(BoardsGroupShare(row, g));
    const std::optional<double> equity = EquityOfTally(row.tally, report.rules);
    rows.push_back(Json{{"board", BoardText(row.Board())},
                        {"weight", row.weight},
                        {"equity", equity ? JsonNumber(*equity) : Json(nullptr)},
                        {"win", JsonNumber(row.tally.WinPercent())},
                        {"tie", JsonNumber(row.tally.TiePercent())},
                        {"showdowns", ShowdownsJson(row.tally.Showdowns(), row.tally.scale)},
                        {"holdings", JsonNumber(static_cast<double>(row.oppCombos) / kFullWeight)},
                        {"groups", groups}});
  }
  const std::optional<double> equity = EquityOfAggregate(aggregate, report.rules);
  const Json result{{"rows", rows},
                    {"aggregate",
                     {{"equity", equity ? JsonNumber(*equity) : Json(nullptr)},
                      {"rows", aggregate.rows},
                      {"showdowns", JsonNumber(aggregate.Showdowns())}}}};
  out << JsonText(result) << "\n";
}

std::string Fixed(double value, int decimals) {
  char buffer[48];
  std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
  return buffer;
}

std::string Padded(const std::string& text, std::size_t width) {
  return text.size() >= width ? text : std::string(width - text.size(), ' ') + text;
}

void WriteText(const BoardsReport& report, const BoardsAggregate& aggregate, std::ostream& out) {
  out << "board       weight   equity      win      tie    showdowns  holdings";
  for (int g = 0; g < kRangeGroupCount; ++g) out << "  " << RangeGroupName(g);
  out << "\n";
  for (const BoardsReportRow& row : report.rows) {
    const std::optional<double> equity = EquityOfTally(row.tally, report.rules);
    std::string board = BoardText(row.Board());
    board.resize(std::max<std::size_t>(board.size(), 10), ' ');
    out << board << Padded(std::to_string(row.weight), 8) << Padded(equity ? Fixed(*equity, 2) + "%" : "-", 9)
        << Padded(Fixed(row.tally.WinPercent(), 2) + "%", 9)
        << Padded(Fixed(row.tally.TiePercent(), 2) + "%", 9)
        << Padded(BoardsShowdownsText(row.tally.Showdowns(), row.tally.scale), 13)
        << Padded(CombosText(row.oppCombos), 10);
    for (int g = 0; g < kRangeGroupCount; ++g)
      out << Padded(Fixed(BoardsGroupShare(row, g), 1) + "%", RangeGroupName(g).size() + 2);
    out << "\n";
  }
  const std::optional<double> equity = EquityOfAggregate(aggregate, report.rules);
  out << "Aggregate: " << (equity ? Fixed(*equity, 6) + "%" : std::string("no showdowns")) << " over "
      << aggregate.rows << (aggregate.rows == 1 ? " row" : " rows") << " (" << aggregate.boards << " "
      << StreetWord(report.rowStreet) << (aggregate.boards == 1 ? "" : "s") << "), "
      << BoardsNumberText(aggregate.Showdowns()) << " showdowns\n";
  if (report.boardSoFar) {
    const std::optional<double> now = EquityOfTally(*report.boardSoFar, report.rules);
    if (now) out << "Board so far: " << Fixed(*now, 6) << "%\n";
  }
}

int RunBoards(const std::vector<std::string>& words, std::ostream& out, std::ostream& err) {
  CLI::App app(kBoardsSummary, "quillet-cli boards");
  SetUpCommandParser(app);
  std::string hand;
  std::string handRange;
  std::string range;
  std::string board;
  std::string filterText;
  int threads = 0;
  bool standardRules = false;
  bool json = false;
  bool csv = false;
  app.add_option("--hand", hand, "my hand, two cards (\"AhKd\")");
  app.add_option("--hand-range", handRange,
                 "my range in range notation in place of --hand (counted under the standard rules: give "
                 "--standard-rules)");
  app.add_option("--range", range,
                 "the opponent's range in range notation, weights allowed (\"QQ+, AKs:0.5\")");
  app.add_option("--board", board,
                 "the board so far: none (every flop), a flop (every turn card) or a turn "
                 "(every river card)");
  app.add_flag("--standard-rules", standardRules,
               "the standard showdown rules: best five of seven, ties split (without it the program's own)");
  app.add_option("--filter", filterText,
                 "keep the boards of these textures, words separated by commas: monotone, two-tone, rainbow, "
                 "unpaired, paired, trips, connected, unconnected, high=A, high=T-K");
  app.add_option("--threads", threads, "worker threads (every core when absent)");
  app.add_flag("--json", json, "rows and aggregate as JSON");
  app.add_flag("--csv", csv, "rows and aggregate as comma-separated values");

  int status = kExitOk;
  const auto positional = ParseCommandWords(app, words, "boards", out, err, status);
  if (!positional) return status;
  if (!positional->empty()) {
    err << "boards: unexpected argument \"" << positional->front() << "\"\n";
    return kExitBadInput;
  }
  const bool byHand = Given(app, "--hand");
  if (byHand == Given(app, "--hand-range")) {
    err << "boards: give --hand TEXT or --hand-range RANGE (one of the two)\n";
    return kExitBadInput;
  }
  if (!Given(app, "--range")) {
    err << "boards: give the opponent's range with --range RANGE\n";
    return kExitBadInput;
  }
  if (json && csv) {
    err << "boards: give --json or --csv, not both\n";
    return kExitBadInput;
  }
  if (Given(app, "--threads") && threads < 1) {
    err << "boards: --threads takes a number of threads of 1 or more\n";
    return kExitBadInput;
  }
  if (!byHand && !standardRules) {
    err << "boards: --hand-range is counted under the standard rules only: give --standard-rules\n";
    return kExitBadInput;
  }
  const ParsedBoardFilter filter = ParseBoardFilter(filterText);
  if (!filter.ok()) {
    err << "boards: --filter: " << filter.error << "\n";
    return kExitBadInput;
  }

  BoardsReportRequest request;
  const ParsedWeightedRange theirs = ParseWeightedRangeNotation(range);
  if (!theirs.ok()) {
    err << "boards: --range: " << theirs.error->message << "\n";
    return kExitBadInput;
  }
  request.oppRange = WeightedCombos(theirs.weights);
  if (!byHand) {
    const ParsedWeightedRange mine = ParseWeightedRangeNotation(handRange);
    if (!mine.ok()) {
      err << "boards: --hand-range: " << mine.error->message << "\n";
      return kExitBadInput;
    }
    request.myRange = WeightedCombos(mine.weights);
  }
  // The cards as the window reads its two boxes, with its messages.
  const CardInputs cards = CheckCardInputs(byHand ? hand : std::string(), board, CardsFor::Equity);
  if (!cards.ok()) {
    for (const std::string& message : cards.messages) err << message << "\n";
    return kExitBadInput;
  }
  if (byHand && !cards.hasHand()) {
    err << "boards: My Hand is empty: give two cards with --hand\n";
    return kExitBadInput;
  }
  if (cards.street == kRiver) {
    err << "boards: the board is complete: give none, a flop or a turn\n";
    return kExitBadInput;
  }
  if (byHand) request.hand = cards.hand;
  request.board = cards.board;
  request.street = cards.street;
  request.rules = standardRules ? ShowdownRules::Standard : ShowdownRules::Quillet;
  request.filter = filter.filter;
  request.threads = threads;

  const BoardsReport report = MakeBoardsReport(request);
  if (!report.ok()) {
    err << "boards: " << report.error << "\n";
    return kExitBadInput;
  }
  const BoardsAggregate aggregate = AggregateRows(report.rows);
  if (json) {
    WriteJson(report, aggregate, out);
  } else if (csv) {
    out << BoardsReportCsv(report.rows, report.rules, aggregate);
  } else {
    WriteText(report, aggregate, out);
  }
  return kExitOk;
}

const CommandRegistrar kRegisterBoards{Command{"boards", kBoardsUsage, kBoardsSummary, 26, RunBoards}};

}  // namespace
}  // namespace quillet::cli
