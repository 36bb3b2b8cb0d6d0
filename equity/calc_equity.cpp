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

  const bool enumerates = cards.street == kFlop || cards.street == kTurn;
  // On the flop and the turn the classes' showdowns add up to the whole range's: one enumeration.
  std::optional<ShowdownTally> classSum;
  if (request.perClass) {
    if (enumerates && request.caption) request.caption(kCalculatingCaption);
    outcome.classes = ClassEquitiesOfHand(cards, request.range, request.rules);
    if (enumerates && request.caption) request.caption(kCalcEquityCaption);
    if (enumerates && outcome.classes) {
      classSum.emplace();
      for (const std::optional<ClassEquity>& c : *outcome.classes) {
        if (!c || !c->tally) continue;
        classSum->scale = c->tally->scale;  // every class counts at the whole range's scale
        *classSum += *c->tally;
      }
    }
  }

  switch (request.rules) {
    case ShowdownRules::Quillet:
      if (classSum) {
        ShowdownCounts counts;
        counts.scale = static_cast<int64_t>(classSum->scale);
        counts.total = static_cast<int64_t>(classSum->Showdowns());
        counts.myWins = static_cast<int64_t>(classSum->wins);
        counts.ties = static_cast<int64_t>(classSum->ties);
        counts.oppWins = static_cast<int64_t>(classSum->losses);
        outcome.values = EquityFromCounts(counts);
      } else {
        outcome.values = QuilletEquity(cards, live, request.caption, outcome.messages);
      }
      outcome.status = EquityStatus::Calculated;
      break;
    case ShowdownRules::Standard: {
      if (classSum) {
        outcome.tally = classSum;
      } else {
        if (enumerates && request.caption) request.caption(kCalculatingCaption);
        outcome.tally = StandardEquityTally(cards.hand, cards.board, cards.street, live);
        if (enumerates && request.caption) request.caption(kCalcEquityCaption);
      }
      outcome.values = outcome.tally ? EquityFromTally(*outcome.tally)
                                     : QuilletEquity(cards, live, request.caption, outcome.messages);
      outcome.status = EquityStatus::Calculated;
      break;
    }
  }
  return outcome;
}

}  // namespace quillet
