// The Calc Equity command, its read-outs and the two options that run it automatically.
#include <string>
#include <string_view>
#include <vector>

#include "app/model/form1_model.h"
#include "cards/card_input.h"
#include "equity/calc_equity.h"
#include "equity/class_equity.h"
#include "equity/engine.h"
#include "equity/equity_display.h"
#include "equity/range_equity.h"
#include "equity/standard_equity.h"
#include "equity/tally_text.h"
#include "range/holding_set.h"
#include "range/weighted_holding_set.h"

namespace quillet {
namespace {

// Why a range against a range found no showdown to count (the read-outs show -1.0% then).
std::string NoShowdownReason(const RangeEquityResult& result, const HoldingSet& mine,
                             const HoldingSet& theirs) {
  if (mine.empty()) return "My Hand's range is empty";
  if (result.myHoldings == 0) return "every holding of My Hand's range shares a card with the board";
  if (theirs.empty()) return "the opponent's range is empty";
  if (result.oppHoldings == 0) return "every holding of the opponent's range shares a card with the board";
  return "every holding of My Hand's range shares a card with every holding of the opponent's";
}
}  // namespace

void Form1Model::cmdCalcEquity_Click() {
  results_.ClearEquityDisplay();
  if (MyHandIsRange()) {
    CalcMyRangeEquity();
    return;
  }
  EquityRequest request;
  request.cards = ReadCardBoxes(CardsFor::Equity);
  if (!request.cards.ok() || !request.cards.hasHand()) return;

  LabelState& command = label(CommandLabel::cmdCalcEquity);
  command.backColour = kCalculatingBackColour;
  services.RepaintNow();

  request.range = profiles_.CurrentRangeCombos();
  request.rules = options.standardShowdownRules ? ShowdownRules::Standard : ShowdownRules::Quillet;
  request.perClass = options.equityHeatMap;
  request.caption = [this](std::string_view caption) {
    label(CommandLabel::cmdCalcEquity).caption = caption;
    services.RepaintNow();
  };
  const EquityOutcome outcome = CalcEquity(request);
  // A matchup missing from the tables shows its message for that holding; the rest still count.
  for (const std::string& message : outcome.messages) services.MsgBox(message);

  command.backColour = label(CommandLabel::lblOptions).backColour;
  results_.ShowEquityReadOuts(outcome.values, outcome.street, false);
  if (outcome.tally) {
    results_.lblMyEquity.toolTip = ShowdownTallyText(*outcome.tally);
    results_.lbloppEquity.toolTip = ShowdownTallyText(outcome.tally->Reversed());
  }
  results_.heatMap = outcome.classes;
}

void Form1Model::CalcMyRangeEquity() {
  CardInputs cards;
  HoldingSet mine;
  if (!ReadMyRangeBoxes(cards, mine)) return;

  LabelState& command = label(CommandLabel::cmdCalcEquity);
  command.backColour = kCalculatingBackColour;
  const bool enumerates = cards.street == kFlop || cards.street == kTurn;
  if (enumerates) command.caption = kCalculatingCaption;
  services.RepaintNow();

  // The opponent's holdings keep their weights: each pair counts the product of its holdings' weights.
  const std::vector<HandCombo> theirCombos = profiles_.CurrentRangeCombos();
  const std::vector<HandCombo> myCombos = WeightedCombos(WeightedHoldingSet::FromHoldings(mine));
  HoldingSet theirs;
  for (const HandCombo& holding : theirCombos) theirs.insert(holding.card1(), holding.card2());
  // With the heat map the classes come from the same enumeration as the whole tally.
  std::optional<ClassEquities> classes;
  const RangeEquityResult result =
      options.equityHeatMap
          ? RangeEquityWithClasses(myCombos, theirCombos, cards.board, cards.street, classes)
          : StandardRangeEquity(myCombos, theirCombos, cards.board, cards.street);

  if (enumerates) command.caption = kCalcEquityCaption;
  command.backColour = label(CommandLabel::lblOptions).backColour;
  if (!result.ok()) {
    // Preflop without the exact class table: nothing was counted.
    services.MsgBox(result.error);
    return;
  }
  const EquityResult values = EquityFromTally(result.tally);  // -1 and -1 without a showdown
  results_.ShowEquityReadOuts(values, cards.street, true);
  if (result.tally.Showdowns() == 0) {
    results_.lblMyEquity.toolTip =
        ShowdownTallyText(result.tally) + ": " + NoShowdownReason(result, mine, theirs);
    results_.lbloppEquity.toolTip = results_.lblMyEquity.toolTip;
  } else {
    results_.lblMyEquity.toolTip = ShowdownTallyText(result.tally);
    results_.lbloppEquity.toolTip = ShowdownTallyText(result.tally.Reversed());
  }
  if (options.equityHeatMap) results_.heatMap = classes;
}

void Form1Model::tmrCalcEquity_Timer() {
  tmrCalcEquity.Disable();  // one shot
  cmdCalcEquity_Click();
}

void Form1Model::mnuCalcEquityOnCook_Click() {
  ToggleMenuCheck(options.calcEquityOnCook);
}

void Form1Model::mnuAutoPFEquityCalc_Click() {
  ToggleMenuCheck(options.autoPFEquityCalc);
}

void Form1Model::lblMyEquity_MouseUp(int button) {
  if (button != kRightButton || results_.lblMyEquity.caption.empty()) return;
  results_.equityMenuOfMine = true;
  services.PopUpMenu(PopupMenuId::EquityReadOut);
}

void Form1Model::lbloppEquity_MouseUp(int button) {
  if (button != kRightButton || results_.lbloppEquity.caption.empty()) return;
  results_.equityMenuOfMine = false;
  services.PopUpMenu(PopupMenuId::EquityReadOut);
}

void Form1Model::mnuCopyEquity_Click() {
  const std::string& shown =
      results_.equityMenuOfMine ? results_.lblMyEquity.caption : results_.lbloppEquity.caption;
  if (!shown.empty()) services.SetClipboardText(shown);
}

void Form1Model::mnuStandardShowdownRules_Click() {
  ToggleMenuCheck(options.standardShowdownRules);
  // A result shown under the other rules would read as one of the new rules: the read-outs go blank.
  results_.ClearEquityDisplay();
  // My Hand's text may now be read the other way (a range only under the standard rules).
  ColourMyHand();
}

}  // namespace quillet
