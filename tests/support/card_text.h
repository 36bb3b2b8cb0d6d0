// Cards written as players write them, for tests: C("Ah"), Cards("AhKd"), Holding("AhKd"), Board("Tc8h3s").
// A text that is not a card throws std::invalid_argument, which fails the test that wrote it.
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "cards/card.h"
#include "cards/card_input.h"
#include "cards/hand_class.h"
#include "equity/board_record.h"
#include "equity/deck.h"
#include "tests/support/reference_showdown.h"

namespace quillet::testing {

inline Card C(std::string_view text) {
  const Card card{RankFromChar(text.substr(0, 1)), SuitFromChar(text.substr(1, 1))};
  if (text.size() != 2 || card.rank == kNoCard || card.suit == kNoCard) {
    throw std::invalid_argument("bad card text \"" + std::string(text) + "\"");
  }
  return card;
}

// Two characters a card: "AhKd" -> {Ah, Kd}.
inline std::vector<Card> Cards(std::string_view text) {
  if (text.size() % 2 != 0) throw std::invalid_argument("bad card text \"" + std::string(text) + "\"");
  std::vector<Card> cards;
  for (std::size_t i = 0; i < text.size(); i += 2) cards.push_back(C(text.substr(i, 2)));
  return cards;
}

// "AhKd" as a holding, the first card first, flag set.
inline HandCombo Holding(std::string_view text) {
  if (text.size() != 4) throw std::invalid_argument("a holding is two cards: \"" + std::string(text) + "\"");
  const Card a = C(text.substr(0, 2));
  const Card b = C(text.substr(2, 2));
  return HandCombo{true, a.rank, a.suit, b.rank, b.suit};
}

// The same holding with its flag cleared (a copy that also stands in a draw entry).
inline HandCombo Marked(std::string_view text) {
  HandCombo h = Holding(text);
  h.flag = false;
  return h;
}

// "AhKd" as My Hand.
inline HandCards Hand(std::string_view text) {
  const HandCombo h = Holding(text);
  return HandCards{0, h.rank1, h.suit1, h.rank2, h.suit2};
}

inline HandCards NoHand() {
  return HandCards{0, kNoCard, kNoCard, kNoCard, kNoCard};
}

// The board cards of a street, absent cards left at -1.
inline BoardCards Board(std::string_view text) {
  const auto cards = Cards(text);
  if (cards.size() > 5) throw std::invalid_argument("a board has at most five cards");
  BoardCards board;
  for (std::size_t i = 0; i < cards.size(); ++i) board[static_cast<int>(i)] = cards[i];
  return board;
}

// A completed five-card board record.
inline BoardRecord Record(std::string_view text) {
  const auto cards = Cards(text);
  if (cards.size() != 5) throw std::invalid_argument("a board record has five cards");
  std::array<Card, 5> five{};
  for (int i = 0; i < 5; ++i) five[i] = cards[i];
  return MakeBoardRecord(five);
}

// Every holding of the deck, flag set, in deck order (the higher deck place first).
inline std::vector<HandCombo> AllHoldings() {
  std::vector<HandCombo> combos;
  for (int i = 0; i < 52; ++i) {
    for (int j = i + 1; j < 52; ++j) {
      const Card a = DeckCard(j);
      const Card b = DeckCard(i);
      combos.push_back(HandCombo{true, a.rank, a.suit, b.rank, b.suit});
    }
  }
  return combos;
}

// My Hand and a board as written, with the board's street: one spot a table of cases runs through.
struct Spot {
  std::string hand;
  std::string board;
  Street street;
};

// The holdings, in deck order, that share no card with My Hand or the board of the street (what the equity
// command passes on).
inline std::vector<HandCombo> LiveHoldings(const HandCards& hand, const BoardCards& board, Street street) {
  std::vector<HandCombo> live;
  for (const HandCombo& combo : AllHoldings()) {
    bool dead = false;
    for (Card card : {hand.card1(), hand.card2()})
      dead = dead || combo.card1() == card || combo.card2() == card;
    for (int i = 0; i < BoardCardCount(street); ++i)
      dead = dead || combo.card1() == board[i] || combo.card2() == board[i];
    if (!dead) live.push_back(combo);
  }
  return live;
}

// Every holding of the 169 classes, class by class in the order of the class lists; those that share a card
// with My Hand are flagged off, as the cook leaves them.
inline std::vector<HandCombo> ClassHoldingsBeside(const HandCards& me) {
  std::vector<HandCombo> range;
  for (const HandClass& c : HandClasses()) {
    for (HandCombo h : ExpandClassName(c.name)) {
      for (const Card mine : {me.card1(), me.card2()}) {
        if (h.card1() == mine || h.card2() == mine) h.flag = false;
      }
      range.push_back(h);
    }
  }
  return range;
}

struct TestBoard {
  BoardCards cards;
  Street street = kNoBoard;
};

// A board read the way the window reads it, with its street (absent cards 4 and 5 carry card 1's rank).
inline TestBoard WindowBoard(const std::string& text) {
  std::string hand;
  std::string board = text;
  TestBoard b;
  HandCards handCards{};
  if (!ReadCardInputs(hand, board, nullptr, handCards, b.cards, b.street)) {
    throw std::invalid_argument("the window refuses the board \"" + text + "\"");
  }
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
