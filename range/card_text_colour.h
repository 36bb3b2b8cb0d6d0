// The colour of a card's two characters in the My Hand and Board boxes, by the card's suit.
#pragma once

#include <cstdint>

#include "range/colour.h"

namespace quillet {

// Clubs green, diamonds blue, hearts red, spades in the window-text colour, anything else black.
constexpr Colour SuitTextColour(int32_t suit) {
  switch (suit) {
    case 0:
      return 0x00C000;
    case 1:
      return 0xFF0000;
    case 2:
      return 0x0000FF;
    case 3:
      return kWindowTextColour;
    default:
      return 0x000000;
  }
}

}  // namespace quillet
