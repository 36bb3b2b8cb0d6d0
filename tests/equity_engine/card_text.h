// Cards written as poker players write them, for the equity tests: Cards("AhKd") -> {Ah, Kd}.
#pragma once

#include <array>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "cards/card.h"
#include "equity/board_record.h"
#include "tests/support/reference_showdown.h"

namespace quillet::testing {

inline Card C(std::string_view text) {
  const Card card{RankFromChar(text.substr(0, 1)), SuitFromChar(text.substr(1, 1))};
  if (text.size() != 2 || !IsDeckCard(card)) throw std::invalid_argument("bad card text");
  return card;
}

inline std::vector<Card> Cards(std::string_view text) {
  std::vector<Card> cards;
  for (std::size_t i = 0; i + 1 < text.size(); i += 2) cards.push_back(C(text.substr(i, 2)));
  return cards;
}

inline HandCards Hand(std::string_view text) {
  const auto cards = Cards(text);
  HandCards hand;
  hand.rank1 = cards.at(0).rank;
  hand.suit1 = cards.at(0).suit;
  hand.rank2 = cards.at(1).rank;
  hand.suit2 = cards.at(1).suit;
  return hand;
}

inline HandCombo Combo(std::string_view text) {
  const auto cards = Cards(text);
  return HandCombo{true, cards.at(0).rank, cards.at(0).suit, cards.at(1).rank, cards.at(1).suit};
}

// Board cards of a street (absent cards stay -1).
inline BoardCards Board(std::string_view text) {
  const auto cards = Cards(text);
  BoardCards board;
  for (std::size_t i = 0; i < cards.size() && i < 5; ++i) board[static_cast<int>(i)] = cards[i];
  return board;
}

// A completed five-card board record of the reference comparator.
inline BoardRecord Record(std::string_view text) {
  const auto cards = Cards(text);
  std::array<Card, 5> five{};
  for (int i = 0; i < 5; ++i) five[i] = cards.at(i);
  return MakeBoardRecord(five);
}

}  // namespace quillet::testing
