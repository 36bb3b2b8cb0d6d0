#include "equity/deck.h"

namespace quillet {

Deck InitDeck() {
  Deck deck;
  for (int32_t suit = 0; suit < 4; ++suit) {
    for (int32_t rank = 2; rank <= 14; ++rank) deck.cards[suit * 13 + rank - 2] = {rank, suit};
  }
  deck.size = kDeckSize;
  return deck;
}

const Deck& TheDeck() {
  static const Deck deck = InitDeck();
  return deck;
}

}  // namespace quillet
