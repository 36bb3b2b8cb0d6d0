#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>

#include "cards/showdown_key.h"
#include "equity/deck.h"
#include "tests/support/reference_showdown.h"
#include "tests/support/test_seed.h"

namespace quillet {
namespace {

// Deals distinct cards from a shuffled deck.
std::array<Card, 52> ShuffledDeck(std::mt19937& random) {
  std::array<Card, 52> deck;
  for (int i = 0; i < 52; ++i) deck[i] = DeckCard(i);
  std::shuffle(deck.begin(), deck.end(), random);
  return deck;
}

// The icons compare the program's keys on the cards of the street; the reference comparator (test code)
// reads the same cards by the written rules, so both must give the same answer for every showdown: here
// My Hand against every holding of the 45 cards left, on 300 random boards of each street (297,000
// showdowns a street).
void ExpectAgreementOnRandomBoards(Street street, uint64_t fixedSeed) {
  SCOPED_TRACE("street " + std::to_string(street));
  std::mt19937 random(static_cast<std::mt19937::result_type>(quillet::testing::TestSeed(fixedSeed)));
  int showdowns = 0;
  int wins = 0;
  int losses = 0;
  int ties = 0;
  for (int deal = 0; deal < 300; ++deal) {
    const std::array<Card, 52> deck = ShuffledDeck(random);
    const HandCards mine{0, deck[0].rank, deck[0].suit, deck[1].rank, deck[1].suit};
    BoardCards board;
    for (int i = 0; i < BoardCardCount(street); ++i) board[i] = deck[2 + i];
    // As read from the board box, absent cards 4 and 5 carry card 1's rank; no reader may count them.
    if (street != kNoBoard) {
      for (int i = BoardCardCount(street); i < 5; ++i) board[i].rank = board[0].rank;
    }
    const testing::BoardRecord record = testing::MakeBoardRecord(board, street);
    for (int a = 7; a < 52; ++a) {
      for (int b = a + 1; b < 52; ++b) {
        const HandCombo theirs{true, deck[a].rank, deck[a].suit, deck[b].rank, deck[b].suit};
        const ShowdownResult expected = testing::CompareShowdown(mine, theirs, record);
        const ShowdownResult icons = ComparePartialBoardShowdown(mine, theirs, board, street);
        ASSERT_EQ(icons.myWin, expected.myWin) << deal << " " << a << " " << b;
        ASSERT_EQ(icons.oppWin, expected.oppWin) << deal << " " << a << " " << b;
        ++showdowns;
        wins += icons.myWin ? 1 : 0;
        losses += icons.oppWin ? 1 : 0;
        ties += !icons.myWin && !icons.oppWin ? 1 : 0;
      }
    }
  }
  EXPECT_EQ(showdowns, 300 * 990);
  // The deals reach every outcome.
  EXPECT_GT(wins, 0);
  EXPECT_GT(losses, 0);
  EXPECT_GT(ties, 0);
}

TEST(PartialBoardShowdown, OnARiverAgreesWithTheReferenceComparatorOnEveryShowdown) {
  ExpectAgreementOnRandomBoards(kRiver, 20240611);
}

TEST(PartialBoardShowdown, OnATurnAgreesWithTheReferenceComparatorOnEveryShowdown) {
  ExpectAgreementOnRandomBoards(kTurn, 20240612);
}

TEST(PartialBoardShowdown, OnAFlopAgreesWithTheReferenceComparatorOnEveryShowdown) {
  ExpectAgreementOnRandomBoards(kFlop, 20240613);
}

TEST(PartialBoardShowdown, WithoutABoardAgreesWithTheReferenceComparatorOnEveryShowdown) {
  ExpectAgreementOnRandomBoards(kNoBoard, 20240614);
}

}  // namespace
}  // namespace quillet
