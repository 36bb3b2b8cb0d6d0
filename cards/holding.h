// Card places in the deck and the numbering of the 1,326 two-card holdings, shared by every part of the
// program that indexes holdings (range notation, the preflop class table, range against range).
//
// A card's place in the deck is suit x 13 + rank - 2 (0..51, the deck order). The holding of the cards at
// places a > b has number a x (a - 1) / 2 + b (0..1325), so the order of its two cards does not matter.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "cards/card.h"

namespace quillet {

inline constexpr int32_t kHoldingCount = 1326;  // C(52, 2)

// Place of a card in the deck (0..51); the card must be a real card.
constexpr int32_t DeckIndex(Card card) {
  return card.suit * 13 + card.rank - 2;
}
// The card at a place in the deck (0..51).
constexpr Card DeckCard(int32_t index) {
  return {index % 13 + 2, index / 13};
}

// Whether both cards are real cards and differ.
constexpr bool IsHolding(Card a, Card b) {
  return IsDeckCard(a) && IsDeckCard(b) && a != b;
}

// The number of the holding of two different real cards, in either order.
constexpr int32_t HoldingNumber(Card a, Card b) {
  const int32_t x = DeckIndex(a);
  const int32_t y = DeckIndex(b);
  return x > y ? x * (x - 1) / 2 + y : y * (y - 1) / 2 + x;
}

// The deck places of each holding's two cards, the higher first, by holding number.
using HoldingPlaceTable = std::array<std::array<uint8_t, 2>, kHoldingCount>;
const HoldingPlaceTable& HoldingPlaces();
// The two cards of holding 0..1325, the one at the higher deck place first.
std::array<Card, 2> CardsOfHolding(int32_t number);

// Whether one of the holding's two cards is `card`.
constexpr bool SharesCard(const HandCombo& holding, Card card) {
  return holding.card1() == card || holding.card2() == card;
}

// Clears the flag of every holding among the first `count` that shares a card (same rank and suit) with
// My Hand or with a board card of the street; returns how many of them keep their flag.
int32_t RemoveDeadCombos(std::vector<HandCombo>& list, int32_t count, const HandCards& hand,
                         const BoardCards& board, Street street);
inline int32_t RemoveDeadCombos(std::vector<HandCombo>& list, const HandCards& hand, const BoardCards& board,
                                Street street) {
  return RemoveDeadCombos(list, static_cast<int32_t>(list.size()), hand, board, street);
}

}  // namespace quillet
