// The 52-card deck in its fixed order: suit 0..3 outer, rank 2..14 inner, so a card's place is
// suit x 13 + rank - 2 (2c is 0, Ac is 12, 2d is 13, As is 51). Filled once and read-only afterwards.
#pragma once

#include <array>
#include <cstdint>

#include "cards/card.h"
#include "cards/holding.h"

namespace quillet {

inline constexpr int32_t kDeckSize = 52;

struct Deck {
  std::array<Card, kDeckSize> cards{};
  int32_t size = 0;
};

// Builds the deck: all 52 cards in deck order, size 52.
Deck InitDeck();
// The program's one deck, built on first use.
const Deck& TheDeck();

}  // namespace quillet
