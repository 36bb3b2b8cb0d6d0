#include "cards/holding.h"

#include <algorithm>

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

int32_t RemoveDeadCombos(std::vector<HandCombo>& list, int32_t count, const HandCards& hand,
                         const BoardCards& board, Street street) {
  std::array<Card, 7> inUse{};
  int inUseCount = 0;
  inUse[inUseCount++] = hand.card1();
  inUse[inUseCount++] = hand.card2();
  const int boardCount = std::clamp(BoardCardCount(street), 0, 5);
  for (int i = 0; i < boardCount; ++i) inUse[inUseCount++] = board[i];

  count = std::clamp(count, 0, static_cast<int32_t>(list.size()));
  int32_t live = 0;
  for (int32_t i = 0; i < count; ++i) {
    bool shares = false;
    for (int k = 0; k < inUseCount; ++k) shares = shares || SharesCard(list[i], inUse[k]);
    if (shares) list[i].flag = false;
    if (list[i].flag) ++live;
  }
  return live;
}

}  // namespace quillet
