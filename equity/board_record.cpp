#include "equity/board_record.h"

namespace quillet {

void BoardFlushSuit(BoardRecord& board) {
  std::array<int, 4> counts{};
  board.flushSuit = -1;
  for (int i = 0; i < 5; ++i) {
    const int32_t suit = board.cards[i].suit;
    if (suit < 0 || suit > 3) continue;
    ++counts[suit];
    // Tested once the third, fourth and fifth cards are in; only one suit can reach three of five.
    if (i >= 2 && counts[suit] > 2) board.flushSuit = suit;
  }
}

void BoardStraightWindows(BoardRecord& board) {
  int32_t boardMask = 0;
  for (const Card& card : board.cards) {
    if (card.rank >= 2 && card.rank <= 14) boardMask |= CardRankBits(card.rank);
  }
  board.firstWindow = -1;
  board.lastWindow = -1;
  for (int w = 0; w < kStraightWindowCount; ++w) {
    int missing = 0;
    for (int rank = kStraightWindows[w].lowRank; rank <= kStraightWindows[w].highRank && missing < 3;
         ++rank) {
      if ((boardMask & RankBit(rank)) == 0) ++missing;
    }
    if (missing < 3) {
      if (board.firstWindow == -1) board.firstWindow = w;
      board.lastWindow = w;
    }
  }
}

BoardRecord MakeBoardRecord(const std::array<Card, 5>& cards) {
  BoardRecord board;
  board.cards = cards;
  BoardFlushSuit(board);
  BoardStraightWindows(board);
  return board;
}

RemainingCardList RemainingCards(const HandCards& myHand, const BoardCards& board, int32_t street) {
  const int known = street <= kNoBoard ? 0 : BoardCardCount(street < kRiver ? street : kRiver);
  RemainingCardList list;
  const Deck& deck = TheDeck();
  for (int index = 0; index < deck.size; ++index) {
    const Card card = deck.cards[index];
    bool used = card == myHand.card1() || card == myHand.card2();
    for (int i = 0; i < known && !used; ++i) used = card == board[i];
    if (!used) list.cards[list.count++] = card;
  }
  return list;
}

}  // namespace quillet
