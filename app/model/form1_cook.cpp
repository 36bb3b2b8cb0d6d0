// The cook command: from My Hand, the Board and the current profile's range to the category table and
// the three counts under the Cook label.
#include <string>

#include "app/model/form1_model.h"
#include "cards/card_input.h"
#include "categorise/cook.h"

namespace quillet {

bool Form1Model::ReadCardInputs(HandCards& hand, BoardCards& board, int32_t& street) {
  const MessageSink showMessage = [this](std::string_view text) { services.MsgBox(text); };
  if (!quillet::ReadCardInputs(txtMyHand.text, txtBoard.text, showMessage, hand, board, street)) return false;
  // The boxes were given back their normalised text: colour it by suit again.
  ColourCodeRT(txtMyHand);
  ColourCodeRT(txtBoard);
  return true;
}

void Form1Model::cmdCheckPossibleHands_Click() {
  // A fresh hand record for every run: the hand parse reads one old field, which must not carry over.
  HandCards hand{};
  BoardCards board{};
  int32_t street = kNoBoard;
  if (!ReadCardInputs(hand, board, street)) {
    services.MsgBox("Bad Input");
    return;
  }
  if (!HasNoDuplicateCards(hand, board, street, txtMyHand.text)) {
    services.MsgBox("Duplicate card exists");
    return;
  }

  // With no profile selected there is no grid to read: the range is empty, which is no error.
  std::vector<HandCombo> range;
  if (const PlayerProfile* profile = currentProfile()) {
    range = CollectRangeCombos(profile->rangeLayer, profile->seenLayer);
  }
  const auto rangeCount = static_cast<int32_t>(range.size());
  const int32_t liveCount = RemoveDeadCombos(range, rangeCount, hand, board, street);
  ClassifyRange(categories, range, rangeCount, board, street);

  // The results tree is rebuilt from `categories` here, once it exists.

  cookRangeCount = rangeCount;
  cookLiveCount = liveCount;
  lblCheckPossibleHands = std::to_string(rangeCount) + " Hands in Opponent's Range\r\n" +
                          std::to_string(liveCount) + " Possible Hands\r\n" +
                          std::to_string(categories.categorisedCount) + " Hands in categories";

  // "Auto Calc Equity on Cook": the equity command runs with all its own checks and messages.
  if (options.calcEquityOnCook) cmdCalcEquity_Click();
}

}  // namespace quillet
