// The Calc Equity command, its read-outs and the two options that run it automatically.
#include <string>
#include <string_view>

#include "app/model/form1_model.h"
#include "cards/card_input.h"
#include "equity/calc_equity.h"
#include "equity/equity_display.h"

namespace quillet {

void Form1Model::ClearEquityDisplay() {
  lblMyEquity.opaque = false;
  lblMyEquity.caption.clear();
  lbloppEquity.caption.clear();
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
  request.rules = ShowdownRules::Quillet;
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

}  // namespace quillet
