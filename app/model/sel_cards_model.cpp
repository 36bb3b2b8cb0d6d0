#include "app/model/sel_cards_model.h"

#include "app/model/form1_model.h"
#include "cards/card.h"

namespace quillet {

Colour PickerCellColour(int cell) {
  static constexpr Colour kSuitColours[4] = {0x80FF80, 0xFF8080, 0x8080FF, 0xC0C0C0};
  return kSuitColours[(cell / 13) % 4];
}

std::string PickerCellCaption(int cell) {
  return CardToText({14 - cell % 13, cell / 13});
}

SelCardsModel::SelCardsModel(Form1Model* ownerForm) : owner(ownerForm) {
  for (int i = 0; i < kPickerCells; ++i) {
    captions[i] = PickerCellCaption(i);
    cellColour[i] = PickerCellColour(i);
  }
}

void SelCardsModel::Form_Load() {
  if (owner != nullptr) {
    chkAutoOK = owner->selCardsAutoOK;
    chkAutoCook = owner->selCardsAutoCook;
  }
  for (int i = 0; i < kPickerCells; ++i) captions[i] = PickerCellCaption(i);
}

void SelCardsModel::Init(int minimumCards, int maximumCards, bool forMyHand, std::string_view text) {
  minimum = minimumCards;
  maximum = maximumCards;
  targetMyHand = forMyHand;
  for (int i = 0; i < kPickerCells; ++i) cellColour[i] = PickerCellColour(i);
  // A trailing odd character is a piece of its own, which no caption equals.
  for (size_t start = 0; start < text.size(); start += 2) {
    const std::string_view piece = text.substr(start, 2);
    for (int i = 0; i < kPickerCells; ++i) {
      if (captions[i] == piece) cellColour[i] = kChosenCellColour;
    }
  }
}

int SelCardsModel::ChosenCount(bool cap) const {
  int count = 0;
  for (int i = 0; i < kPickerCells; ++i) {
    if (cap && count >= maximum) break;
    if (IsChosen(i)) ++count;
  }
  return count;
}

void SelCardsModel::Card_MouseUp(int index, int button) {
  if (index < 0 || index >= kPickerCells) return;
  if (button == 1) {
    const int count = ChosenCount(true);
    if (IsChosen(index)) {
      cellColour[index] = PickerCellColour(index);
    } else if (count < maximum) {
      cellColour[index] = kChosenCellColour;
      if (chkAutoOK && count + 1 == maximum) cmdOK_Click();
    }
  } else if (button == 2) {
    for (int i = 0; i < kPickerCells; ++i) cellColour[i] = PickerCellColour(i);
  }
}

void SelCardsModel::cmdOK_Click() {
  // Every chosen cell counts here, so too many cards brought in by Init are refused as well.
  const int count = ChosenCount(false);
  if (count < minimum || count > maximum) {
    if (owner != nullptr) owner->services.MsgBox(kNotEnoughCardsMessage, MessageIcon::Information);
    return;
  }
  std::string text;
  for (int i = 0; i < kPickerCells; ++i) {
    if (IsChosen(i)) text += captions[i];
  }
  if (owner != nullptr) {
    owner->selCardsAutoOK = chkAutoOK;
    owner->selCardsAutoCook = chkAutoCook;
    owner->WritePickedCards(targetMyHand, text);
    if (chkAutoCook) owner->cmdCheckPossibleHands_Click();
  }
  visible = false;
}

void SelCardsModel::cmdCancel_Click() {
  visible = false;
}

}  // namespace quillet
