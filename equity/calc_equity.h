// The Calc Equity command as one call: My Hand against every live holding of a range on the board that is
// known, dispatched by street (the preflop tables without a board, every completion on the flop and the
// turn, nothing on the river), under the showdown rules asked for.
//
// Values in, values out: the window model and quillet-cli both fill an EquityRequest and read the
// EquityOutcome; neither repeats any of the steps.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cards/card.h"
#include "cards/card_input.h"
#include "equity/class_equity.h"
#include "equity/engine.h"
#include "equity/equity_result.h"
#include "equity/showdown_rules.h"

namespace quillet {

struct EquityRequest {
  CardInputs cards;              // as CheckCardInputs(..., CardsFor::Equity) read them
  std::vector<HandCombo> range;  // holdings as CollectRangeCombos gives them; the dead ones are dropped here
  ShowdownRules rules = ShowdownRules::Quillet;
  CaptionSink caption;  // told "Calculating" and "Calc Equity" around a flop or turn enumeration
  // My Hand's equity against each class of the range too (the heat map). On the flop and the turn the one
  // enumeration by class then gives the read-outs as well (the same showdowns, summed over the classes).
  bool perClass = false;
};

enum class EquityStatus {
  Calculated,  // `values` holds the read-outs
  NoHand,      // My Hand is empty: nothing to calculate, the read-outs stay blank
  Refused,     // the card inputs were refused, or the rules cannot be used; `messages` says why
};

struct EquityOutcome {
  EquityStatus status = EquityStatus::Refused;
  // My and Opp equity in percent: the tables' mean preflop, the showdown shares on the flop and the turn;
  // -1 and -1 when nothing could be counted, 50 and 50 when every showdown tied, 0 and 0 on the river.
  EquityResult values{0.0, 0.0};
  Street street = kNoBoard;
  // Refused: the messages of the refusal, as the window shows them. Calculated: "Error calculating equity
  // GS0" once for each holding whose preflop matchup is missing from the tables (the rest still count),
  // or the tables' load error.
  std::vector<std::string> messages;
  // Under the standard rules: the wins, ties and losses behind `values` (My Hand's side). None under the
  // program's own rules, and preflop while no exact preflop table is loaded (the matchup tables' mean
  // stands then).
  std::optional<ShowdownTally> tally;
  // With `perClass`: the equity against each class (class_equity.h); none where the read-outs show nothing.
  std::optional<ClassEquities> classes;
};

EquityOutcome CalcEquity(const EquityRequest& request);

}  // namespace quillet
