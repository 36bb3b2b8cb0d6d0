// Holdings, hands and boards written as card text, for the results tests.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "cards/card.h"
#include "cards/card_input.h"

namespace quillet::testing {

// "AhKd" as a holding, the first card first, flag set.
inline HandCombo Holding(const std::string& text) {
  EXPECT_EQ(text.size(), 4u) << text;
  HandCombo h;
  h.rank1 = RankFromChar(text.substr(0, 1));
  h.suit1 = SuitFromChar(text.substr(1, 1));
  h.rank2 = RankFromChar(text.substr(2, 1));
  h.suit2 = SuitFromChar(text.substr(3, 1));
  EXPECT_NE(h.rank1, kNoCard) << text;
  EXPECT_NE(h.suit1, kNoCard) << text;
  EXPECT_NE(h.rank2, kNoCard) << text;
  EXPECT_NE(h.suit2, kNoCard) << text;
  return h;
}

// The same holding with its flag cleared (a copy that also stands in a draw entry).
inline HandCombo Marked(const std::string& text) {
  HandCombo h = Holding(text);
  h.flag = false;
  return h;
}

inline HandCards Hand(const std::string& text) {
  const HandCombo h = Holding(text);
  return HandCards{0, h.rank1, h.suit1, h.rank2, h.suit2};
}

inline HandCards NoHand() {
  return HandCards{0, kNoCard, kNoCard, kNoCard, kNoCard};
}

struct TestBoard {
  BoardCards cards;
  int32_t street = kNoBoard;
};

// A board read as the window reads it (absent cards 4 and 5 carry card 1's rank).
inline TestBoard Board(const std::string& text) {
  std::string hand;
  std::string board = text;
  TestBoard b;
  HandCards handCards{};
  EXPECT_TRUE(ReadCardInputs(hand, board, nullptr, handCards, b.cards, b.street)) << text;
  return b;
}

}  // namespace quillet::testing
