// The boards report: my side (a hand or a range) against the opponent's range on each board the next
// street can bring, one row per board, and the aggregate of the rows kept by a filter.
//
// The rows, from the board so far:
// - no board: every flop. Where both sides are ranges that every change of suits leaves as they are (each
//   holding weighs what every holding of its suits' pattern weighs), the 1,755 flops that differ by more
//   than a change of suits, each with its weight: how many of the 22,100 flops it stands for (4, 12 or 24,
//   fewer for a paired flop). Otherwise every live flop (none of my hand's cards), each of weight 1;
// - a flop: every live turn card; a turn: every live river card.
// Each row holds its board, its weight, the showdowns of my side against the opponent's range on that
// board (every completion of it, ties counted apart), the opponent's live holdings on it (weighted) and
// their split into the groups of reports/range_groups.h (weighted), and the board's texture.
//
// The aggregate of a set of rows adds each row's showdowns times its weight. Over every row of a street it
// is the equity of the board so far, exactly: every completion of the board so far is counted the same
// number of times (ten times preflop, twice from a flop, once from a turn), so the shares are those of
// the board so far (BoardsReport::boardSoFar, from the engines, is the built-in check of it).
//
// How it counts: the equity engines' own calls, one per board (StandardShowdownTally, CountShowdowns, or
// StandardRangeEquity for a range of mine). Boards that a change of suits turns into each other, where
// that change leaves my side, the opponent's range and the board so far as they are, have the same
// showdowns and groups, so only one board of each such family is counted and the others copy it (the
// rows are still every live board unless the 1,755 are shown). The boards are shared out to worker
// threads; the calling thread reports progress and asks whether to stop.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "cards/card.h"
#include "equity/showdown_rules.h"
#include "reports/board_texture.h"
#include "reports/range_groups.h"

namespace quillet {

struct BoardsReportRequest {
  // My side: my hand, or when there is none (`hand` empty) my range.
  std::optional<HandCards> hand;
  std::vector<HandCombo> myRange;
  std::vector<HandCombo> oppRange;  // holdings with their weights; flags cleared take no part
  BoardCards board;                 // the board so far: none, a flop or a turn
  Street street = kNoBoard;
  // Quillet's own rules need my hand: the program counts a range of mine under the standard rules only.
  ShowdownRules rules = ShowdownRules::Quillet;
  // Boards the filter does not keep are not counted (and give no row).
  BoardFilter filter;
  // Count boards that a change of suits turns into each other once (see above). Off, every board is
  // counted on its own and the rows are every live board: the same rows, slower.
  bool groupBySuits = true;
  int threads = 0;  // 0: every core
};

struct BoardsReportRow {
  std::array<Card, 5> cards{};  // the row's board, its first `cardCount` cards
  int32_t cardCount = 0;
  int64_t weight = 1;     // boards of the street it stands for
  ShowdownTally tally;    // my side's showdowns on this board (every completion of it)
  int64_t oppCombos = 0;  // the opponent's live holdings, weighted, in thousandths
  std::array<int64_t, kRangeGroupCount> groups{};  // the same split by group, in thousandths
  BoardTexture texture;

  std::span<const Card> Board() const { return {cards.data(), static_cast<std::size_t>(cardCount)}; }
};

// The sums over a set of rows, each row's showdowns times its weight. Kept as doubles: the sums of a
// weighted range against a weighted range over every flop go beyond 64 bits.
struct BoardsAggregate {
  int32_t rows = 0;
  int64_t boards = 0;  // the rows' weights added
  double wins = 0;
  double ties = 0;
  double losses = 0;
  uint64_t scale = 1;  // units of one showdown (the finest of the rows' tallies' scales)

  double Showdowns() const { return (wins + ties + losses) / static_cast<double>(scale); }
};

struct BoardsReport {
  std::vector<BoardsReportRow> rows;
  ShowdownRules rules = ShowdownRules::Quillet;
  Street rowStreet = kFlop;  // the street of the rows' boards
  bool suitClasses = false;  // the rows are the 1,755 flops, each with its weight
  // The equity of the board so far as the engines give it: the check of the aggregate over every row.
  // None under the program's own rules without a board (the preflop read-out is the tables' mean).
  std::optional<ShowdownTally> boardSoFar;
  int32_t countedBoards = 0;  // boards whose showdowns were counted (the others copied them)
  bool cancelled = false;
  std::string error;  // why nothing was counted ("" when the report ran)

  bool ok() const { return error.empty() && !cancelled; }
};

// Both are called on the calling thread: `progress` with the work done so far and in all (the boards
// counted; my hand on every flop under the standard rules first sweeps every five-card board, which counts
// as much again), last with both equal; `cancel` returning true stops the report (its rows are then
// incomplete).
struct BoardsReportCallbacks {
  std::function<void(int32_t done, int32_t total)> progress;
  std::function<bool()> cancel;
};

BoardsReport MakeBoardsReport(const BoardsReportRequest& request,
                              const BoardsReportCallbacks& callbacks = {});

// The rows the filter keeps, added up.
BoardsAggregate AggregateRows(std::span<const BoardsReportRow> rows, const BoardFilter& filter = {});

// My equity in percent from showdowns: under the standard rules ties split half; under the program's own
// rules ties count for neither side (wins over wins and losses, 50 when every showdown tied). nullopt
// when nothing was counted.
std::optional<double> EquityOfShowdowns(double wins, double ties, double losses, ShowdownRules rules);
inline std::optional<double> EquityOfTally(const ShowdownTally& tally, ShowdownRules rules) {
  return EquityOfShowdowns(static_cast<double>(tally.wins), static_cast<double>(tally.ties),
                           static_cast<double>(tally.losses), rules);
}
inline std::optional<double> EquityOfAggregate(const BoardsAggregate& a, ShowdownRules rules) {
  return EquityOfShowdowns(a.wins, a.ties, a.losses, rules);
}

// A flop that stands for every flop a change of suits turns it into, and how many of the 22,100 they are.
struct FlopFamily {
  std::array<Card, 3> cards{};  // the family's first flop in the report's order
  int32_t weight = 0;
};
// The 1,755 families, in the report's order (ranks high to low; spades, hearts, diamonds, clubs).
std::vector<FlopFamily> SuitDistinctFlops();

// A board as text, its cards run together ("AsKhQd").
std::string BoardText(std::span<const Card> board);

}  // namespace quillet
