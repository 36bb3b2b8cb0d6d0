// quillet-cli equity --hand-range: my range against the opponent's range under the standard rules, exact on
// every street.
#pragma once

#include <iosfwd>
#include <string>

namespace quillet::cli {

struct EquityRangesRequest {
  std::string handRange;  // my range, in range notation (weights taken)
  std::string range;      // the opponent's range, in range notation (weights taken)
  std::string board;      // "" or three to five cards, as the Board box takes them
  bool json = false;
  bool perClass = false;  // my range's equity against each class of the opponent's too
};

// Reads the two ranges (weights taken: each pair of holdings counts the product of their weights) and the
// board, counts every showdown and writes the result: the two equities as the read-outs show them and the
// tally's line, or with `json` one object with my, opp, win, tie and lose (percentages of the weighted
// showdowns, unrounded), showdowns (their weighted sum, a whole number for whole ranges), street and rules.
// No pair of live holdings gives -1 for both equities, as an empty range does. Refused input is written to
// `err`; returns the exit status.
int RunEquityRanges(const EquityRangesRequest& request, std::ostream& out, std::ostream& err);

}  // namespace quillet::cli
