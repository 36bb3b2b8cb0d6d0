// The Calc Equity command, its read-outs and the two options that run it automatically.
#include <string>
#include <string_view>

#include "app/model/form1_model.h"
#include "cards/card_input.h"
#include "equity/calc_equity.h"
#include "equity/equity_display.h"
#include "equity/tally_text.h"

namespace quillet {

void Form1Model::ClearEquityDisplay() {
  lblMyEquity.opaque = false;
  lblMyEquity.caption.clear();
  lbloppEquity.caption.clear();
  lblMyEquity.toolTip.clear();
  lbloppEquity.toolTip.clear();
}

void Form1Model::cmdCalcEquity_Click() {
  ClearEquityDisplay();
  EquityRequest request;
  request.cards = ReadCardBoxes(CardsFor::Equity);
  if (!request.cards.ok() || !request.cards.hasHand()) return;

  LabelState& command = label(CommandLabel::cmdCalcEquity);
  command.backColour = kCalculatingBackColour;
  services.RepaintNow();

  request.range = CurrentRangeCombos();
  request.rules = options.standardShowdownRules ? ShowdownRules::Standard : ShowdownRules::Quillet;
  request.caption = [this](std::string_view caption) {
    label(CommandLabel::cmdCalcEquity).caption = caption;
    services.RepaintNow();
  };
  const EquityOutcome outcome = CalcEquity(request);
  // A matchup missing from the tables shows its message for that holding; the rest still count.
  for (const std::string& message : outcome.messages) services.MsgBox(message);

  command.backColour = label(CommandLabel::lblOptions).backColour;
  myEquity = outcome.values.my;
  oppEquity = outcome.values.opp;
  equityStreet = outcome.street;
  lblMyEquity.caption = FormatEquityReadOut(myEquity);
  lbloppEquity.caption = FormatEquityReadOut(oppEquity);
  lblMyEquity.opaque = true;
  lblMyEquity.backColour = EquityColour(EquityToInteger(myEquity));
  if (outcome.tally) {
    lblMyEquity.toolTip = ShowdownTallyText(*outcome.tally);
    lbloppEquity.toolTip = ShowdownTallyText(outcome.tally->Reversed());
  }
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

void Form1Model::mnuStandardShowdownRules_Click() {
  ToggleMenuCheck(options.standardShowdownRules);
  // A result shown under the other rules would read as one of the new rules: the read-outs go blank.
  ClearEquityDisplay();
}

}  // namespace quillet
