// Holdings and boards written as card text, for the categorisation tests.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cards/card.h"
#include "cards/card_input.h"

namespace quillet::testing {

// "AhKd" as a holding, the first card first.
inline HandCombo Holding(const std::string& text) {
  EXPECT_EQ(text.size(), 4u) << text;
  HandCombo h;
  h.rank1 = RankFromChar(text.substr(0, 1));
  h.suit1 = SuitFromChar(text.substr(1, 1));
  h.rank2 = RankFromChar(text.substr(2, 1));
  h.suit2 = SuitFromChar(text.substr(3, 1));
  EXPECT_NE(h.rank1, kNoCard) << text;
  EXPECT_NE(h.suit2, kNoCard) << text;
  return h;
}

struct TestBoard {
  BoardCards cards;
  int32_t street = kNoBoard;
};

// A board read the way the window reads it (so absent cards 4 and 5 carry card 1's rank).
inline TestBoard Board(const std::string& text) {
  std::string hand;
  std::string board = text;
  TestBoard b;
  HandCards handCards{};
  const bool ok = ReadCardInputs(hand, board, nullptr, handCards, b.cards, b.street);
  EXPECT_TRUE(ok) << text;
  return b;
}

// Every holding of the 52-card deck that uses none of the board's cards, higher rank first.
inline std::vector<HandCombo> AllHoldingsBeside(const TestBoard& board) {
  std::vector<HandCombo> out;
  auto onBoard = [&](Card c) {
    for (int i = 0; i < BoardCardCount(board.street); ++i) {
      if (board.cards[i] == c) return true;
    }
    return false;
  };
  for (int r1 = 14; r1 >= 2; --r1) {
    for (int s1 = 0; s1 < 4; ++s1) {
      for (int r2 = r1; r2 >= 2; --r2) {
        for (int s2 = 0; s2 < 4; ++s2) {
          if (r2 == r1 && s2 <= s1) continue;
          const HandCombo h{true, r1, s1, r2, s2};
          if (!onBoard(h.card1()) && !onBoard(h.card2())) out.push_back(h);
        }
      }
    }
  }
  return out;
}

}  // namespace quillet::testing
