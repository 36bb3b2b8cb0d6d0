#include "equity/board_record.h"

namespace quillet {

RemainingCardList RemainingCards(const HandCards& myHand, const BoardCards& board, Street street) {
  const int known = street <= kNoBoard ? 0 : BoardCardCount(street < kRiver ? street : kRiver);
  RemainingCardList list;
  const Deck& deck = TheDeck();
  for (int index = 0; index < deck.size; ++index) {
    const Card card = deck.cards[index];
    bool used = card == myHand.card1() || card == myHand.card2();
    for (int i = 0; i < known && !used; ++i) used = card == board[i];
    if (!used) list.cards[list.count++] = card;
  }
  return list;
}

}  // namespace quillet
