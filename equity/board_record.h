// The cards of the deck, and the list of cards still in the deck once My Hand and the known board cards are
// out.
#pragma once

#include <array>
#include <cstdint>

#include "cards/card.h"
#include "equity/deck.h"

namespace quillet {

// The cards still to come, in deck order: the deck less the two My Hand cards and the board cards known
// on `street` (three on the flop, four on the turn, five on the river).
struct RemainingCardList {
  std::array<Card, 52> cards{};
  int count = 0;
};
RemainingCardList RemainingCards(const HandCards& myHand, const BoardCards& board, Street street);

}  // namespace quillet
