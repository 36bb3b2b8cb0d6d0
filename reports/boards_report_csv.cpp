#include "reports/boards_report_csv.h"

#include <charconv>
#include <optional>
#include <string_view>

#include "range/range_notation.h"

namespace quillet {

std::string BoardsNumberText(double value) {
  char buffer[32];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  return std::string(buffer, result.ptr);
}

std::string BoardsShowdownsText(uint64_t units, uint64_t scale) {
  if (units % scale == 0) return std::to_string(units / scale);
  return BoardsNumberText(static_cast<double>(units) / static_cast<double>(scale));
}

double BoardsGroupShare(const BoardsReportRow& row, int group) {
  return row.oppCombos == 0
             ? 0.0
             : 100.0 * static_cast<double>(row.groups[group]) / static_cast<double>(row.oppCombos);
}

std::string BoardsReportCsv(std::span<const BoardsReportRow> rows, ShowdownRules rules,
                            const BoardsAggregate& aggregate) {
  std::string out = "board,weight,equity,win,tie,showdowns,holdings";
  // Each cell after the first of its line, with its comma.
  const auto cell = [&out](std::string_view text) {
    out.push_back(',');
    out.append(text);
  };
  for (int g = 0; g < kRangeGroupCount; ++g) cell(RangeGroupName(g));
  out.push_back('\n');
  for (const BoardsReportRow& row : rows) {
    const std::optional<double> equity = EquityOfTally(row.tally, rules);
    out.append(BoardText(row.Board()));
    cell(std::to_string(row.weight));
    cell(equity ? BoardsNumberText(*equity) : std::string());
    cell(BoardsNumberText(row.tally.WinPercent()));
    cell(BoardsNumberText(row.tally.TiePercent()));
    cell(BoardsShowdownsText(row.tally.Showdowns(), row.tally.scale));
    cell(CombosText(row.oppCombos));
    for (int g = 0; g < kRangeGroupCount; ++g) cell(BoardsNumberText(BoardsGroupShare(row, g)));
    out.push_back('\n');
  }
  const std::optional<double> equity = EquityOfAggregate(aggregate, rules);
  const double total = aggregate.wins + aggregate.ties + aggregate.losses;
  out.append("aggregate");
  cell(std::to_string(aggregate.boards));
  cell(equity ? BoardsNumberText(*equity) : std::string());
  cell(BoardsNumberText(total > 0 ? 100.0 * aggregate.wins / total : 0.0));
  cell(BoardsNumberText(total > 0 ? 100.0 * aggregate.ties / total : 0.0));
  cell(BoardsNumberText(aggregate.Showdowns()));
  cell("");
  for (int g = 0; g < kRangeGroupCount; ++g) cell("");
  out.push_back('\n');
  return out;
}

}  // namespace quillet
