#include "equity/deck.h"

#include <gtest/gtest.h>

#include "tests/support/card_text.h"

namespace quillet {
namespace {

using testing::C;

TEST(Deck, HoldsFiftyTwoCardsClubsFirstRanksTwoToAceWithinEachSuit) {
  const Deck deck = InitDeck();
  EXPECT_EQ(deck.size, 52);
  EXPECT_EQ(deck.cards[0], C("2c"));
  EXPECT_EQ(deck.cards[12], C("Ac"));
  EXPECT_EQ(deck.cards[13], C("2d"));
  EXPECT_EQ(deck.cards[26], C("2h"));
  EXPECT_EQ(deck.cards[51], C("As"));
}

TEST(Deck, PlaceIsSuitTimesThirteenPlusRankMinusTwoForEveryCard) {
  const Deck& deck = TheDeck();
  for (int32_t suit = 0; suit < 4; ++suit) {
    for (int32_t rank = 2; rank <= 14; ++rank) {
      const int32_t place = suit * 13 + rank - 2;
      EXPECT_EQ(deck.cards[place], (Card{rank, suit}));
      EXPECT_EQ(DeckIndex({rank, suit}), place);
      EXPECT_EQ(DeckCard(place), (Card{rank, suit}));
    }
  }
}

}  // namespace
}  // namespace quillet
