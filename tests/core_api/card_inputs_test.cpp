#include <gtest/gtest.h>

#include "cards/card_input.h"

namespace quillet {
namespace {

using Messages = std::vector<std::string>;

TEST(CheckCardInputs, AcceptsAHandAndAFlopAndNormalisesBothTexts) {
  const CardInputs cards = CheckCardInputs("ah kd", "tc8H3s", CardsFor::Cook);
  EXPECT_TRUE(cards.ok());
  EXPECT_TRUE(cards.textsRead);
  EXPECT_TRUE(cards.hasHand());
  EXPECT_EQ(cards.myHandText, "AhKd");
  EXPECT_EQ(cards.boardText, "Tc8h3s");
  EXPECT_EQ(cards.street, kFlop);
  EXPECT_EQ(cards.hand.card1(), (Card{14, SuitFromChar("h")}));
  EXPECT_EQ(cards.board[2], (Card{3, SuitFromChar("s")}));
}

TEST(CheckCardInputs, ABoardOfTheWrongLengthGivesItsMessageThenBadInputAndKeepsTheTexts) {
  const CardInputs cards = CheckCardInputs("ah kd", "Tc8h", CardsFor::Cook);
  EXPECT_FALSE(cards.ok());
  EXPECT_FALSE(cards.textsRead);
  EXPECT_EQ(cards.messages, (Messages{"Board invalid. Valid Eg: ThKc4d", "Bad Input"}));
  EXPECT_EQ(cards.myHandText, "ah kd");
}

TEST(CheckCardInputs, ABadCharacterIsBadInputAfterTheTextsWereNormalised) {
  const CardInputs cards = CheckCardInputs("ahkd", "Xc8h3s", CardsFor::Cook);
  EXPECT_EQ(cards.messages, (Messages{"Bad Input"}));
  EXPECT_EQ(cards.myHandText, "AhKd");
  EXPECT_EQ(cards.boardText, "Xc8h3s");
}

TEST(CheckCardInputs, AHandWhoseSecondRankDidNotReadIsRefusedOnlyForEquity) {
  EXPECT_TRUE(CheckCardInputs("AhXd", "", CardsFor::Cook).ok());
  EXPECT_EQ(CheckCardInputs("AhXd", "", CardsFor::Equity).messages, (Messages{"Bad Input"}));
}

TEST(CheckCardInputs, ACardTwiceIsADuplicate) {
  EXPECT_EQ(CheckCardInputs("AhKd", "Ah8h3s", CardsFor::Equity).messages,
            (Messages{"Duplicate card exists"}));
  EXPECT_EQ(CheckCardInputs("AhAh", "", CardsFor::Cook).messages, (Messages{"Duplicate card exists"}));
}

TEST(CheckCardInputs, AnEmptyHandIsAcceptedWithoutCards) {
  const CardInputs cards = CheckCardInputs("", "Tc8h3s", CardsFor::Equity);
  EXPECT_TRUE(cards.ok());
  EXPECT_FALSE(cards.hasHand());
}

}  // namespace
}  // namespace quillet
