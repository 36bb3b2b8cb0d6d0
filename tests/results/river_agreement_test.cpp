#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

#include "equity/board_record.h"
#include "equity/deck.h"
#include "equity/partial_board_showdown.h"
#include "equity/showdown.h"
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

// On a river both comparators read the same seven cards of each player by the same rules, so they must
// give the same answer for every showdown: here My Hand against every holding of the 45 cards left, on
// 300 random boards (297,000 showdowns).
TEST(PartialBoardShowdown, OnARiverAgreesWithTheEnumerationsComparatorOnEveryShowdown) {
  std::mt19937 random(static_cast<std::mt19937::result_type>(quillet::testing::TestSeed(20240611)));
  int showdowns = 0;
  int wins = 0;
  int losses = 0;
  int ties = 0;
  for (int deal = 0; deal < 300; ++deal) {
    const std::array<Card, 52> deck = ShuffledDeck(random);
    const HandCards mine{0, deck[0].rank, deck[0].suit, deck[1].rank, deck[1].suit};
    BoardCards board;
    std::array<Card, 5> five;
    for (int i = 0; i < 5; ++i) five[i] = board[i] = deck[2 + i];
    const BoardRecord record = MakeBoardRecord(five);
    for (int a = 7; a < 52; ++a) {
      for (int b = a + 1; b < 52; ++b) {
        const HandCombo theirs{true, deck[a].rank, deck[a].suit, deck[b].rank, deck[b].suit};
        const ShowdownResult engine = CompareShowdown(mine, theirs, record, kRiver);
        const ShowdownResult street = ComparePartialBoardShowdown(mine, theirs, board, kRiver);
        ASSERT_EQ(street.myWin, engine.myWin) << deal << " " << a << " " << b;
        ASSERT_EQ(street.oppWin, engine.oppWin) << deal << " " << a << " " << b;
        ++showdowns;
        wins += street.myWin ? 1 : 0;
        losses += street.oppWin ? 1 : 0;
        ties += !street.myWin && !street.oppWin ? 1 : 0;
      }
    }
  }
  EXPECT_EQ(showdowns, 300 * 990);
  // The deals reach every outcome.
  EXPECT_GT(wins, 0);
  EXPECT_GT(losses, 0);
  EXPECT_GT(ties, 0);
}

}  // namespace
}  // namespace quillet
