// Equity of 2 to 10 players under the standard rules (showdown_rules.h): each player holds one of the
// holdings of its range (a single hand is a range of one holding), the board is completed to five cards,
// and each showdown is decided by the best five of the seven cards. A deal where two players' holdings, a
// holding and the board or a holding and a dead card share a card is not dealt; every other deal counts
// with the product of the players' weights (a holding's weight in its range, 0.001 to 1; a whole range has
// every weight 1, and a player at one weight throughout counts as if whole). A k-way tie gives each of the k
// players 1/k of the pot.
//
// How it counts:
// - Exact: every completion of the board is walked once (boards that hold a card every holding of some
//   player needs are passed over: they have no deal). On each board each live holding of each player is
//   valued once (the fast evaluator: the board's rank state, two steps per holding, the flush table when the
//   board has three of a suit). The player with the most live holdings is put last. The others' holdings
//   are combined by a nested walk that skips a holding sharing a card with those already chosen; the last
//   player's holdings are not walked but counted: they are put in value order once per board, in groups of
//   equal value, with running totals (count and weight) over all of them and per card, so how many of them
//   lose to, tie with or beat the best of the others, less those sharing a card with the chosen holdings,
//   is read from the totals with one correction per chosen card and one back per pair of chosen cards that
//   is itself a live holding. When the last player has few holdings every deal is walked instead. Three
//   players are counted without walking any of them (equity/multiway_three_way.h): all their holdings in
//   value order, each against the pairs of the other two read from running totals. Boards that a
//   permutation of the suits keeping every player's weights, the board and the dead cards maps onto each
//   other are counted once, times their number (equity/board_symmetry.h). Exact results do not depend on
//   the number of threads: the boards are cut into fixed slices, each slice is counted on its own and the
//   slices are added in their order.
// - Monte Carlo (multiway_sampling.h): each sample draws a deal of holdings by weight (a deal where two
//   players share a card is thrown away) and values it on a few boards from the cards left; what it adds
//   to each player is the player's expected pot share over every way of handing the same holdings to the
//   players (from the permanents of the players' weights), averaged over those boards. Players of one
//   range thus get equal equity, and when all share one range each has 1/n with no error at all. The
//   standard error of each player's equity is that estimator's sd / sqrt(samples); the run stops when the
//   largest is at most the target, at the time limit, or when cancelled. Each thread draws from its own
//   generator (seeded from the seed and the thread's number) in rounds of fixed size, so a given seed and
//   thread count repeat the same samples (unless the time limit cuts a run short).
// - Automatic choice: exact when the cost estimate (boards x the product of the players' live holdings) is
//   at most kMultiwayExactBudget, else Monte Carlo.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "cards/card.h"
#include "range/weighted_holding_set.h"

namespace quillet {

inline constexpr int kMultiwayMinPlayers = 2;
inline constexpr int kMultiwayMaxPlayers = 10;
// The largest cost estimate (boards x product of the players' live holdings) counted exactly when neither
// method is asked for.
inline constexpr double kMultiwayExactBudget = 2e9;

enum class MultiwayMethod { Automatic, Exact, MonteCarlo };

struct MultiwayOptions {
  MultiwayMethod method = MultiwayMethod::Automatic;
  double targetError = 0.1;  // percentage points, the largest standard error of a player's equity
  double seconds = 30.0;     // Monte Carlo's time limit (0: none)
  uint64_t seed = 1;
  int threads = 0;  // 0: every core
};

// Both callbacks are called on the calling thread. `progress` gets the deals counted so far (exact: boards
// done x deals per board are not known in advance, so the count of deals dealt) and the standard error
// reached so far (0 for exact); `cancel` returning true stops the calculation.
struct MultiwayCallbacks {
  std::function<void(uint64_t deals, double standardError)> progress;
  std::function<bool()> cancel;
};

struct MultiwayPlayerResult {
  double equity = 0;  // percent: the pot shares won, ties split
  double win = 0;     // percent of the deals won alone
  double tie = 0;     // percent of the deals shared with others
  int liveHoldings = 0;
};

struct MultiwayResult {
  std::vector<MultiwayPlayerResult> players;
  bool exact = false;
  double standardError = 0;  // percentage points, the largest of the players' (0 when exact)
  uint64_t deals = 0;        // deals counted (exact: every non-colliding deal; Monte Carlo: samples kept)
  int threads = 0;
  double costEstimate = 0;  // boards x product of the players' live holdings
  bool cancelled = false;
  std::string error;  // why nothing was counted ("" when the calculation ran)

  bool ok() const { return error.empty() && !cancelled; }
};

// The equity of each player. `board` holds 0, 3, 4 or 5 cards; `dead` cards are out of the deck. Refused,
// with an error, for fewer than 2 or more than 10 players, a board of another size, a card twice among the
// board and dead cards or outside the deck, a player with no live holding, and when no deal is possible.
MultiwayResult MultiwayEquity(std::span<const WeightedHoldingSet> players, std::span<const Card> board,
                              std::span<const Card> dead, const MultiwayOptions& options = {},
                              const MultiwayCallbacks& callbacks = {});

}  // namespace quillet
