#include "equity/board_record.h"

#include <gtest/gtest.h>

#include "tests/support/card_text.h"
#include "tests/support/reference_showdown.h"

namespace quillet {
namespace {

using testing::Board;
using testing::BoardRecord;
using testing::C;
using testing::CardRankBits;
using testing::Hand;
using testing::kStraightWindowCount;
using testing::kStraightWindows;
using testing::Record;

// ---- the reference comparator's board record ----

TEST(StraightWindows, RunFromTheAceLowRunToTenToAceWithDoublingMasks) {
  EXPECT_EQ(kStraightWindows[0].mask, 62);  // ranks 1..5, the ace as 1
  EXPECT_EQ(kStraightWindows[0].lowRank, 1);
  EXPECT_EQ(kStraightWindows[0].highRank, 5);
  EXPECT_EQ(kStraightWindows[9].mask, 31744);  // ranks 10..14
  EXPECT_EQ(kStraightWindows[9].lowRank, 10);
  EXPECT_EQ(kStraightWindows[9].highRank, 14);
  for (int w = 1; w < kStraightWindowCount; ++w)
    EXPECT_EQ(kStraightWindows[w].mask, 2 * kStraightWindows[w - 1].mask);
}

TEST(CardRankBits, AnAceAlsoSetsTheBitOfRankOne) {
  EXPECT_EQ(CardRankBits(14), (1 << 14) | 2);
  EXPECT_EQ(CardRankBits(2), 1 << 2);
}

TEST(BoardFlushSuit, IsTheSuitOfThreeOrMoreBoardCards) {
  EXPECT_EQ(Record("Tc8h3s2d5c").flushSuit, -1);
  EXPECT_EQ(Record("Tc8h3c2d5c").flushSuit, 0);
  EXPECT_EQ(Record("Th8h3h2h5h").flushSuit, 2);
  EXPECT_EQ(Record("2d3s4s5d6s").flushSuit, 3);
}

TEST(BoardStraightWindows, KeepTheFirstAndLastWindowMissingFewerThanThreeRanks) {
  // T 8 3 2 5: A2345 misses A and 4, 23456 misses 4 and 6; every higher run misses three or more.
  const BoardRecord low = Record("Tc8h3s2d5c");
  EXPECT_EQ(low.firstWindow, 0);
  EXPECT_EQ(low.lastWindow, 1);
  // K Q J 9 2: 8-Q misses 8 and T, 9-K misses T, T-A misses T and A; 7-J misses three.
  const BoardRecord high = Record("KhQdJc9s2h");
  EXPECT_EQ(high.firstWindow, 7);
  EXPECT_EQ(high.lastWindow, 9);
}

TEST(BoardStraightWindows, StayMinusOneWhenNoRunIsPossible) {
  const BoardRecord board = Record("2c2d7h7sKc");
  EXPECT_EQ(board.firstWindow, -1);
  EXPECT_EQ(board.lastWindow, -1);
}

TEST(BoardStraightWindows, CountTheAceAsRankOneForTheWheel) {
  // A 3 4 K K: only A2345 has three of its ranks (A, 3, 4).
  const BoardRecord board = Record("Ac3d4hKsKc");
  EXPECT_EQ(board.firstWindow, 0);
  EXPECT_EQ(board.lastWindow, 0);
}

// ---- the cards to come ----

TEST(RemainingCards, OnTheFlopHoldFortySevenCardsInDeckOrder) {
  const RemainingCardList list = RemainingCards(Hand("AhAd"), Board("Tc8h3s"), kFlop);
  ASSERT_EQ(list.count, 47);
  EXPECT_EQ(list.cards[0], C("2c"));
  EXPECT_EQ(list.cards[7], C("9c"));  // Tc is skipped
  EXPECT_EQ(list.cards[8], C("Jc"));
  EXPECT_EQ(list.cards[46], C("As"));
  for (int i = 0; i < list.count; ++i) {
    EXPECT_NE(list.cards[i], C("Ah"));
    EXPECT_NE(list.cards[i], C("Ad"));
    EXPECT_NE(list.cards[i], C("8h"));
    EXPECT_NE(list.cards[i], C("3s"));
    if (i > 0) {
      EXPECT_LT(DeckIndex(list.cards[i - 1]), DeckIndex(list.cards[i]));
    }
  }
}

TEST(RemainingCards, OnTheTurnHoldFortySixCards) {
  const RemainingCardList list = RemainingCards(Hand("AhAd"), Board("Tc8h3s2d"), kTurn);
  EXPECT_EQ(list.count, 46);
  for (int i = 0; i < list.count; ++i) EXPECT_NE(list.cards[i], C("2d"));
}

TEST(RemainingCards, IgnoreTheCopiedRanksOfAbsentBoardCards) {
  // After reading a flop, cards 4 and 5 carry card 1's rank with suit -1; they are not cards.
  BoardCards board = Board("Tc8h3s");
  board[3].rank = 10;
  board[4].rank = 10;
  EXPECT_EQ(RemainingCards(Hand("AhAd"), board, kFlop).count, 47);
}

}  // namespace
}  // namespace quillet
