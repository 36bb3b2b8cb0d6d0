// The Calc Equity command, its read-outs and the two options that run it automatically.
#include <string_view>
#include <vector>

#include "app/model/form1_model.h"
#include "cards/card_input.h"
#include "categorise/cook.h"
#include "equity/engine.h"
#include "equity/equity_display.h"
#include "equity/preflop_equity.h"
#include "equity/standard_equity.h"
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
  // A fresh hand record for every run: the hand parse reads one old field, which must not carry over.
  HandCards hand{};
  BoardCards board{};
  int32_t street = kNoBoard;
  // A My Hand whose second rank did not read ("AhXd") passes the parse but cannot be dealt around.
  const bool inputOk = ReadCardInputs(hand, board, street);
  if (!inputOk || (hand.rank1 != kNoCard && hand.rank2 == kNoCard)) {
    services.MsgBox("Bad Input");
    return;
  }
  if (!HasNoDuplicateCards(hand, board, street, txtMyHand.text)) {
    services.MsgBox("Duplicate card exists");
    return;
  }
  if (hand.rank1 == kNoCard) return;

  LabelState& command = label(CommandLabel::cmdCalcEquity);
  command.backColour = kCalculatingBackColour;
  services.RepaintNow();

  std::vector<HandCombo> range;
  if (const PlayerProfile* profile = currentProfile()) {
    range = CollectRangeCombos(profile->rangeLayer, profile->seenLayer);
  }
  RemoveDeadCombos(range, hand, board, street);

  const CaptionSink showCaption = [this](std::string_view caption) {
    label(CommandLabel::cmdCalcEquity).caption = caption;
    services.RepaintNow();
  };
  double my = 0.0;
  double opp = 0.0;
  // Under the standard rules every street has a tally; preflop only once the exact class table is in.
  std::optional<ShowdownTally> tally;
  if (options.standardShowdownRules) {
    if (street != kNoBoard) showCaption(kCalculatingCaption);
    tally = StandardEquityTally(hand, board, street, range);
    if (street != kNoBoard) showCaption(kCalcEquityCaption);
  }
  if (tally) {
    const EquityResult result = EquityFromTally(*tally);
    my = result.my;
    opp = result.opp;
  } else {
    switch (street) {
      case kNoBoard: {
        // A matchup missing from the tables shows its message for that holding; the rest still count.
        const MessageSink showMessage = [this](std::string_view text) { services.MsgBox(text); };
        const EquityResult result = PreflopEquity(hand, range, static_cast<int>(range.size()), showMessage);
        my = result.my;
        opp = result.opp;
        break;
      }
      case kFlop:
      case kTurn: {
        const EquityResult result = street == kFlop ? FlopEquity(hand, board, range, showCaption)
                                                    : TurnEquity(hand, board, range, showCaption);
        my = result.my;
        opp = result.opp;
        break;
      }
      default:  // the river: no path runs
        break;
    }
  }

  command.backColour = label(CommandLabel::lblOptions).backColour;
  myEquity = my;
  oppEquity = opp;
  equityStreet = street;
  lblMyEquity.caption = FormatEquityReadOut(my);
  lbloppEquity.caption = FormatEquityReadOut(opp);
  lblMyEquity.opaque = true;
  lblMyEquity.backColour = EquityColour(EquityToInteger(my));
  if (tally) {
    lblMyEquity.toolTip = ShowdownTallyText(*tally);
    lbloppEquity.toolTip = ShowdownTallyText(tally->Reversed());
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
