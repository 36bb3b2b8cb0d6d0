// The groups of the opponent's range: the fast reader against the cook's own classification of every
// holding, on random boards of every street and on boards where the suits decide.
#include "reports/range_groups.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "cards/holding.h"
#include "categorise/categories.h"
#include "tests/support/card_text.h"
#include "tests/support/test_seed.h"

namespace quillet {
namespace {

using quillet::testing::Board;
using quillet::testing::Holding;

// Every holding without a card of the board: the reader's group against the cook's entries.
void ExpectReaderMatchesTheCook(const BoardCards& board, Street street) {
  const RangeGroupReader reader(board, street);
  const BoardContext context = PrepareBoard(board, street);
  uint64_t boardBits = 0;
  for (int i = 0; i < BoardCardCount(street); ++i) boardBits |= uint64_t{1} << DeckIndex(board[i]);
  for (int32_t number = 0; number < kHoldingCount; ++number) {
    const auto cards = CardsOfHolding(number);
    if ((boardBits >> DeckIndex(cards[0]) & 1) || (boardBits >> DeckIndex(cards[1]) & 1)) continue;
    const HandCombo holding{true, cards[0].rank, cards[0].suit, cards[1].rank, cards[1].suit};
    const int32_t cook = RangeGroupOf(ClassifyCombo(context, holding));
    ASSERT_EQ(reader.GroupOf(cards[0], cards[1]), cook)
        << ComboToText(holding) << " on " << CardToText(board[0]) << CardToText(board[1])
        << CardToText(board[2]) << " street " << street;
  }
}

TEST(RangeGroups, TheGroupsFollowTheCooksEntries) {
  ComboClassification c;
  c.madeEntry = kEntryTopPair;
  c.flushEntry = kEntryFlushDraw;
  EXPECT_EQ(RangeGroupOf(c), kGroupOnePair);  // a pair first, whatever it draws to
  c.madeEntry = kEntryAceHigh;
  EXPECT_EQ(RangeGroupOf(c), kGroupFlushDraw);
  c.flushEntry = kEntryBackdoorFlush;
  c.straightEntry = kEntryGutshotNoPair;
  EXPECT_EQ(RangeGroupOf(c), kGroupStraightDraw);
  c.straightEntry = kEntryBackdoorStraight;
  EXPECT_EQ(RangeGroupOf(c), kGroupNothing);
  c.madeEntry = kEntryOwnTopBottom;
  EXPECT_EQ(RangeGroupOf(c), kGroupTwoPairOrBetter);
  c.madeEntry = kEntryFlush;
  EXPECT_EQ(RangeGroupOf(c), kGroupTwoPairOrBetter);
  EXPECT_EQ(RangeGroupName(kGroupTwoPairOrBetter), "two pair or better");
  EXPECT_EQ(RangeGroupName(kGroupNothing), "nothing");
}

TEST(RangeGroups, ReaderMatchesTheCookOnBoardsWhereSuitsDecide) {
  ExpectReaderMatchesTheCook(Board("9s8s2s"), kFlop);    // made flushes, flush draws
  ExpectReaderMatchesTheCook(Board("9s8s2d"), kFlop);    // flush draws with two hole cards
  ExpectReaderMatchesTheCook(Board("9s8s2s5s"), kTurn);  // six of a suit make no flush
  ExpectReaderMatchesTheCook(Board("9s8s2sKh"), kTurn);
  ExpectReaderMatchesTheCook(Board("9s8s2s5sKs"), kRiver);  // a flush on the board
  ExpectReaderMatchesTheCook(Board("AsKsQsJsTs"), kRiver);  // a royal flush on the board
  ExpectReaderMatchesTheCook(Board("KdKhQs"), kFlop);       // the hand that plays the board
  ExpectReaderMatchesTheCook(Board("QsKd5c"), kFlop);       // the middle rank lies on card 1 only
  ExpectReaderMatchesTheCook(Board("7c7d7h7s2c"), kRiver);
}

TEST(RangeGroups, ReaderMatchesTheCookOnRandomBoards) {
  std::mt19937_64 random(quillet::testing::TestSeed(24));
  std::array<int32_t, kDeckSize> deck{};
  for (int32_t i = 0; i < kDeckSize; ++i) deck[i] = i;
  for (Street street : {kFlop, kTurn, kRiver}) {
    for (int round = 0; round < 60; ++round) {
      std::shuffle(deck.begin(), deck.end(), random);
      BoardCards board;
      for (int i = 0; i < BoardCardCount(street); ++i) board[i] = DeckCard(deck[i]);
      for (int i = BoardCardCount(street); i < 5; ++i) board[i] = Card{board[0].rank, kNoCard};
      ExpectReaderMatchesTheCook(board, street);
    }
  }
}

}  // namespace
}  // namespace quillet
