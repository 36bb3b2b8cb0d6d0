// One completed five-card board as the showdown comparator reads it, the ten straight windows, and the
// list of cards still in the deck once My Hand and the known board cards are out.
#pragma once

#include <array>
#include <cstdint>

#include "cards/card.h"
#include "equity/deck.h"

namespace quillet {

// Rank bits: rank r (1..14) is bit r; an ace also sets bit 1 so that it can start the ace-low run.
constexpr int32_t RankBit(int32_t rank) {
  return int32_t{1} << rank;
}
constexpr int32_t CardRankBits(int32_t rank) {
  return RankBit(rank) | (rank == 14 ? RankBit(1) : 0);
}

// A five-rank run: window w covers ranks w+1 .. w+5 (window 0 is the ace-low run A2345 with the ace as
// rank 1, window 9 is TJQKA). Its mask is 62 x 2^w.
struct StraightWindow {
  int32_t mask = 0;
  int32_t lowRank = 0;
  int32_t highRank = 0;
};

inline constexpr int kStraightWindowCount = 10;

inline constexpr std::array<StraightWindow, kStraightWindowCount> kStraightWindows = [] {
  std::array<StraightWindow, kStraightWindowCount> windows{};
  for (int w = 0; w < kStraightWindowCount; ++w) windows[w] = {62 << w, w + 1, w + 5};
  return windows;
}();

// The board record: the first and last straight windows the board leaves possible (-1 when none), the
// suit with three or more board cards (-1 when none), then board cards 1..5 (flop, turn, river).
struct BoardRecord {
  int32_t firstWindow = -1;
  int32_t lastWindow = -1;
  int32_t flushSuit = -1;
  std::array<Card, 5> cards{};
};

// Sets flushSuit: the suit that more than two of the five board cards share, else -1.
void BoardFlushSuit(BoardRecord& board);
// Sets firstWindow and lastWindow: a window is possible when the board misses fewer than three of its
// ranks. When none is possible both stay -1.
void BoardStraightWindows(BoardRecord& board);
// A record of five cards with its flush suit and straight windows worked out.
BoardRecord MakeBoardRecord(const std::array<Card, 5>& cards);

// A card of the deck: rank 2..14 and suit 0..3.
constexpr bool IsDeckCard(Card card) {
  return card.rank >= 2 && card.rank <= 14 && card.suit >= 0 && card.suit <= 3;
}

// The cards still to come, in deck order: the deck less the two My Hand cards and the board cards known
// on `street` (three on the flop, four on the turn, five on the river).
struct RemainingCardList {
  std::array<Card, 52> cards{};
  int count = 0;
};
RemainingCardList RemainingCards(const HandCards& myHand, const BoardCards& board, int32_t street);

}  // namespace quillet
