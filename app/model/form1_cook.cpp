// The cook command: from My Hand, the Board and the current profile's range to the category table and
// the three counts under the Cook label.
#include <string>

#include "app/model/form1_model.h"
#include "cards/card_input.h"
#include "categorise/cook.h"
#include "range/holding_set.h"
#include "range/my_hand_range.h"
#include "range/range_notation.h"

namespace quillet {

bool Form1Model::ReadCardInputs(HandCards& hand, BoardCards& board, int32_t& street) {
  const MessageSink showMessage = [this](std::string_view text) { services.MsgBox(text); };
  if (!quillet::ReadCardInputs(txtMyHand.text, txtBoard.text, showMessage, hand, board, street)) return false;
  // The boxes were given back their normalised text: colour it by suit again.
  ColourCodeRT(txtMyHand);
  ColourCodeRT(txtBoard);
  return true;
}

CardInputs Form1Model::ReadCardBoxes(CardsFor use) {
  CardInputs cards = CheckCardInputs(txtMyHand.text, txtBoard.text, use);
  txtMyHand.text = cards.myHandText;
  txtBoard.text = cards.boardText;
  if (cards.textsRead) {
    ColourCodeRT(txtMyHand);
    ColourCodeRT(txtBoard);
  }
  for (const std::string& message : cards.messages) services.MsgBox(message);
  return cards;
}

bool Form1Model::ReadMyRangeBoxes(CardInputs& cards, HoldingSet& myRange) {
  cards = CheckCardInputs("", txtBoard.text, CardsFor::Cook);
  txtBoard.text = cards.boardText;
  if (cards.textsRead) ColourCodeRT(txtBoard);
  for (const std::string& message : cards.messages) services.MsgBox(message);
  if (!cards.ok()) return false;
  const ParsedRange mine = ParseRangeNotation(txtMyHand.text);
  ColourMyHand();
  if (!mine.ok()) {
    services.MsgBox(MyHandRangeMessage(*mine.error));
    return false;
  }
  myRange = mine.holdings;
  return true;
}

void Form1Model::cmdCheckPossibleHands_Click() {
  CardInputs cards;
  if (MyHandIsRange()) {
    // The opponent's range is cooked on the board alone: my range's cards are not known.
    HoldingSet myRange;
    if (!ReadMyRangeBoxes(cards, myRange)) return;
  } else {
    cards = ReadCardBoxes(CardsFor::Cook);
    if (!cards.ok()) return;
  }
  CookResult cooked = Cook(cards, profiles_.CurrentRangeCombos());
  results_.categories = std::move(cooked.categories);

  BuildResultsTree();

  results_.cookRangeCount = cooked.rangeCount;
  results_.cookLiveCount = cooked.liveCount;
  // The combinations the holdings make: with whole weights the counts themselves, else "12.5".
  results_.lblCheckPossibleHands = CombosText(cooked.rangeWeight) + " Hands in Opponent's Range\r\n" +
                                   CombosText(cooked.liveWeight) + " Possible Hands\r\n" +
                                   CombosText(results_.categories.categorisedWeight) + " Hands in categories";

  // "Auto Calc Equity on Cook": the equity command runs with all its own checks and messages.
  if (options.calcEquityOnCook) cmdCalcEquity_Click();
}

}  // namespace quillet
