#include "cards/holding.h"

namespace quillet {
namespace {

constexpr HoldingPlaceTable kHoldingPlaces = [] {
  HoldingPlaceTable places{};
  for (int32_t high = 1; high < 52; ++high) {
    for (int32_t low = 0; low < high; ++low) {
      places[high * (high - 1) / 2 + low] = {static_cast<uint8_t>(high), static_cast<uint8_t>(low)};
    }
  }
  return places;
}();

}  // namespace

const HoldingPlaceTable& HoldingPlaces() {
  return kHoldingPlaces;
}

std::array<Card, 2> CardsOfHolding(int32_t number) {
  const auto& places = kHoldingPlaces[static_cast<std::size_t>(number)];
  return {DeckCard(places[0]), DeckCard(places[1])};
}

}  // namespace quillet
