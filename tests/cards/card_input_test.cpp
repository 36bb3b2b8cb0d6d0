#include "cards/card_input.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillet {
namespace {

// Runs ReadCardInputs on two texts and records what it says.
struct InputRun {
  std::string hand;
  std::string board;
  std::vector<std::string> messages;
  HandCards handCards;
  BoardCards boardCards;
  int32_t street = -99;  // read through the overload that keeps the street as a number, as the window does
  bool ok = false;

  InputRun(std::string h, std::string b) : hand(std::move(h)), board(std::move(b)) {
    ok = ReadCardInputs(
        hand, board, [this](std::string_view m) { messages.emplace_back(m); }, handCards, boardCards, street);
  }
};

TEST(ReadCardInputs, AcceptsBlanksAndLowerCaseAndGivesBackTheNormalisedText) {
  InputRun run(" ah kd ", "");
  EXPECT_TRUE(run.ok);
  EXPECT_TRUE(run.messages.empty());
  EXPECT_EQ(run.hand, "AhKd");
  EXPECT_EQ(run.handCards.rank1, 14);
  EXPECT_EQ(run.handCards.suit1, 2);
  EXPECT_EQ(run.handCards.rank2, 13);
  EXPECT_EQ(run.handCards.suit2, 1);
  EXPECT_EQ(run.street, kNoBoard);
}

TEST(ReadCardInputs, RefusesAHandOfFiveCharacters) {
  InputRun run("AhKd5", "");
  EXPECT_FALSE(run.ok);
  ASSERT_EQ(run.messages.size(), 1u);
  EXPECT_EQ(run.messages[0], "My hand is invalid. Valid Eg: AhAd");
  EXPECT_EQ(run.hand, "AhKd5");  // a length failure leaves the text as typed
}

TEST(ReadCardInputs, ChecksTheBoardBeforeTheHand) {
  for (const char* board : {"AhKd", "Ah", "AhKdQcJ"}) {
    InputRun run("AhKd5", board);
    EXPECT_FALSE(run.ok) << board;
    ASSERT_EQ(run.messages.size(), 1u) << board;
    EXPECT_EQ(run.messages[0], "Board invalid. Valid Eg: ThKc4d") << board;
  }
}

TEST(ReadCardInputs, AcceptsBoardsOfZeroThreeFourAndFiveCards) {
  EXPECT_EQ(InputRun("", "").street, kNoBoard);
  EXPECT_EQ(InputRun("", "ThKc4d").street, kFlop);
  EXPECT_EQ(InputRun("", "ThKc4d2s").street, kTurn);
  EXPECT_EQ(InputRun("", "ThKc4d2s9h").street, kRiver);
}

TEST(ReadCardInputs, ABadCharacterFailsWithoutAMessageOfItsOwn) {
  for (const char* board : {"AxKd4c", "1hKd4c", "AhKd4x", "AhKd4c2", "AhKd4cQ1"}) {
    InputRun run("", board);
    EXPECT_FALSE(run.ok) << board;
    if (std::string(board).size() % 2 == 0) {
      EXPECT_TRUE(run.messages.empty()) << board;
    }
  }
  InputRun badHand("AhKx", "");
  EXPECT_FALSE(badHand.ok);
  EXPECT_TRUE(badHand.messages.empty());
}

TEST(ReadCardInputs, NormalisesBothTextsEvenWhenTheParseThenFails) {
  InputRun run("xhkd", "thkc4D");
  EXPECT_FALSE(run.ok);
  EXPECT_EQ(run.board, "ThKc4d");
  EXPECT_EQ(run.hand, "XhKd");
}

TEST(ReadCardInputs, EmptyHandSetsAllFourFieldsToMinusOne) {
  InputRun run("", "ThKc4d");
  EXPECT_TRUE(run.ok);
  EXPECT_EQ(run.handCards.rank1, -1);
  EXPECT_EQ(run.handCards.suit1, -1);
  EXPECT_EQ(run.handCards.rank2, -1);
  EXPECT_EQ(run.handCards.suit2, -1);
}

TEST(ReadCardInputs, OnAFlopCardsFourAndFiveTakeCardOnesRankWithNoSuit) {
  InputRun run("", "AhKd4c");
  ASSERT_TRUE(run.ok);
  EXPECT_EQ(run.street, kFlop);
  EXPECT_EQ(run.boardCards[3].rank, 14);
  EXPECT_EQ(run.boardCards[4].rank, 14);
  EXPECT_EQ(run.boardCards[3].suit, -1);
  EXPECT_EQ(run.boardCards[4].suit, -1);
}

TEST(ReadCardInputs, OnATurnOnlyCardFiveCopiesCardOnesRank) {
  InputRun run("", "AhKd4c2s");
  ASSERT_TRUE(run.ok);
  EXPECT_EQ(run.boardCards[3].rank, 2);
  EXPECT_EQ(run.boardCards[3].suit, 3);
  EXPECT_EQ(run.boardCards[4].rank, 14);
  EXPECT_EQ(run.boardCards[4].suit, -1);
}

TEST(ReadCardInputs, WithNoBoardEveryBoardFieldIsMinusOne) {
  InputRun run("AhKd", "");
  ASSERT_TRUE(run.ok);
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(run.boardCards[i].rank, -1);
    EXPECT_EQ(run.boardCards[i].suit, -1);
  }
}

TEST(ParseHandText, LetsAnUnknownSecondRankThroughWithRankTwoAtMinusOne) {
  HandCards hand;  // a fresh record
  EXPECT_TRUE(ParseHandText("AhXd", hand));
  EXPECT_EQ(hand.rank1, 14);
  EXPECT_EQ(hand.suit1, 2);
  EXPECT_EQ(hand.rank2, -1);
  EXPECT_EQ(hand.suit2, 1);
}

TEST(ParseHandText, FailsOnAReusedRecordWhoseOldRankTwoIsMinusOne) {
  HandCards hand;
  ASSERT_TRUE(ParseHandText("AhXd", hand));  // leaves rank 2 at -1
  EXPECT_FALSE(ParseHandText("AhKd", hand));
  // Fields are written as they are read: rank 1 and suit 1 were written before the test failed.
  EXPECT_EQ(hand.rank1, 14);
  EXPECT_EQ(hand.suit1, 2);
  EXPECT_EQ(hand.rank2, -1);
}

TEST(ParseHandText, TheSecondTestLooksAtSuitOneAfterRankTwoIsWritten) {
  HandCards hand;
  EXPECT_FALSE(ParseHandText("AxKd", hand));
  EXPECT_EQ(hand.suit1, -1);
  EXPECT_EQ(hand.rank2, 13);  // written before the suit-1 test failed
  EXPECT_EQ(hand.suit2, 0);   // never reached
}

TEST(ParseHandText, RefusesWrongLengthsAndBadCharacters) {
  HandCards hand;
  EXPECT_FALSE(ParseHandText("AhK", hand));
  EXPECT_FALSE(ParseHandText("AhKdQ", hand));
  EXPECT_FALSE(ParseHandText("1hKd", hand));
  EXPECT_FALSE(ParseHandText("AhKx", hand));
  HandCards blanks;
  EXPECT_TRUE(ParseHandText(" A h K d ", blanks));
}

TEST(HasNoDuplicateCards, SameHandCardTwiceWithNoBoardIsADuplicate) {
  InputRun run("AhAh", "");
  ASSERT_TRUE(run.ok);
  EXPECT_FALSE(HasNoDuplicateCards(run.handCards, run.boardCards, static_cast<Street>(run.street), run.hand));
}

TEST(HasNoDuplicateCards, EmptyHandWithNoBoardIsNoDuplicate) {
  InputRun run("", "");
  ASSERT_TRUE(run.ok);
  EXPECT_TRUE(HasNoDuplicateCards(run.handCards, run.boardCards, static_cast<Street>(run.street), run.hand));
}

TEST(HasNoDuplicateCards, EmptyHandAndARepeatedBoardCardIsADuplicate) {
  InputRun run("", "AhAh4c");
  ASSERT_TRUE(run.ok);
  EXPECT_FALSE(HasNoDuplicateCards(run.handCards, run.boardCards, static_cast<Street>(run.street), run.hand));
}

TEST(HasNoDuplicateCards, AHandCardOnTheBoardIsADuplicate) {
  InputRun run("AhKd", "QsAh4c");
  ASSERT_TRUE(run.ok);
  EXPECT_FALSE(HasNoDuplicateCards(run.handCards, run.boardCards, static_cast<Street>(run.street), run.hand));
}

TEST(HasNoDuplicateCards, DistinctCardsOnEveryStreetPass) {
  for (const char* board : {"QsJh4c", "QsJh4c2d", "QsJh4c2d9s"}) {
    InputRun run("AhKd", board);
    ASSERT_TRUE(run.ok);
    EXPECT_TRUE(HasNoDuplicateCards(run.handCards, run.boardCards, static_cast<Street>(run.street), run.hand))
        << board;
  }
}

TEST(HasNoDuplicateCards, LooksAtTheRiverOnlyOnTheRiver) {
  InputRun river("AhKd", "QsJh4c2dKd");
  ASSERT_TRUE(river.ok);
  EXPECT_FALSE(
      HasNoDuplicateCards(river.handCards, river.boardCards, static_cast<Street>(river.street), river.hand));
  InputRun turn("AhKd", "QsJh4c2d");
  ASSERT_TRUE(turn.ok);
  turn.boardCards[4] = Card{13, 1};  // a stale river field is not a card on the turn
  EXPECT_TRUE(
      HasNoDuplicateCards(turn.handCards, turn.boardCards, static_cast<Street>(turn.street), turn.hand));
}

}  // namespace
}  // namespace quillet
