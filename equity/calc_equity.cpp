#include "equity/calc_equity.h"

#include "cards/holding.h"
#include "equity/preflop_equity.h"
#include "equity/standard_equity.h"

namespace quillet {
namespace {

// Quillet's own rules: the preflop tables without a board, the exact enumeration on the flop and the turn.
EquityResult QuilletEquity(const CardInputs& cards, const std::vector<HandCombo>& live,
                           const CaptionSink& caption, std::vector<std::string>& messages) {
  switch (cards.street) {
    case kNoBoard: {
      const MessageSink collect = [&messages](std::string_view text) { messages.emplace_back(text); };
      return PreflopEquity(cards.hand, live, static_cast<int>(live.size()), collect);
    }
    case kFlop:
      return FlopEquity(cards.hand, cards.board, live, caption);
    case kTurn:
      return TurnEquity(cards.hand, cards.board, live, caption);
    default:  // the river: no path runs
      return EquityResult{0.0, 0.0};
  }
}

}  // namespace

EquityOutcome CalcEquity(const EquityRequest& request) {
  EquityOutcome outcome;
  const CardInputs& cards = request.cards;
  outcome.street = cards.street;
  if (!cards.ok()) {
    outcome.messages = cards.messages;
    return outcome;
  }
  if (!cards.hasHand()) {
    outcome.status = EquityStatus::NoHand;
    return outcome;
  }
  std::vector<HandCombo> live = request.range;
  RemoveDeadCombos(live, cards.hand, cards.board, cards.street);

  switch (request.rules) {
    case ShowdownRules::Quillet:
      outcome.values = QuilletEquity(cards, live, request.caption, outcome.messages);
      outcome.status = EquityStatus::Calculated;
      break;
    case ShowdownRules::Standard: {
      const bool enumerates = cards.street == kFlop || cards.street == kTurn;
      if (enumerates && request.caption) request.caption(kCalculatingCaption);
      outcome.tally = StandardEquityTally(cards.hand, cards.board, cards.street, live);
      if (enumerates && request.caption) request.caption(kCalcEquityCaption);
      outcome.values = outcome.tally ? EquityFromTally(*outcome.tally)
                                     : QuilletEquity(cards, live, request.caption, outcome.messages);
      outcome.status = EquityStatus::Calculated;
      break;
    }
  }
  return outcome;
}

}  // namespace quillet
