#include <gtest/gtest.h>

#include <string>

#include "cards/showdown_key.h"
#include "tests/support/card_text.h"

namespace quillet {
namespace {

using testing::Hand;
using testing::Holding;
using testing::WindowBoard;

constexpr ShowdownResult kWin{true, false};
constexpr ShowdownResult kLose{false, true};
constexpr ShowdownResult kTie{false, false};

ShowdownResult Showdown(const std::string& mine, const std::string& theirs, const std::string& board) {
  const testing::TestBoard b = WindowBoard(board);
  return ComparePartialBoardShowdown(Hand(mine), Holding(theirs), b.cards, b.street);
}

int32_t CategoryOf(const std::string& holding, const std::string& board) {
  const testing::TestBoard b = WindowBoard(board);
  return KeyCategory(StreetShowdownKey(Holding(holding), b.cards, b.street));
}

TEST(PartialBoardShowdown, AHigherPairWinsOnTheFlop) {
  EXPECT_EQ(Showdown("AhAd", "KcKd", "Tc8h3s"), kWin);
  EXPECT_EQ(Showdown("KcKd", "AhAd", "Tc8h3s"), kLose);
}

TEST(PartialBoardShowdown, ReadsOnlyTheCardsOfTheStreet) {
  // The absent turn and river fields carry card 1's rank; they must not pair anything.
  EXPECT_EQ(CategoryOf("Ad2c", "Ah8c3s"), kMadePair);
  EXPECT_EQ(CategoryOf("Kd2c", "Ah8c3s"), kMadeHighCard);
  EXPECT_EQ(CategoryOf("Kd2c", "Ah8c3sKs"), kMadePair);
}

TEST(PartialBoardShowdown, ThreeCardsOfASuitOnTheFlopWithTwoInTheHandAreAFlush) {
  EXPECT_EQ(CategoryOf("Ah2h", "Kh8h3h"), kMadeFlush);
  // The flush beats the set at once.
  EXPECT_EQ(Showdown("Ah2h", "8c8d", "Kh8h3h"), kWin);
}

TEST(PartialBoardShowdown, SixCardsOfTheSuitAreNoFlush) {
  // Four hearts on the turn: two more in the hand make six, one more makes exactly five.
  EXPECT_EQ(CategoryOf("Ah2h", "Kh8h3h5h"), kMadeHighCard);
  EXPECT_EQ(CategoryOf("Qh2c", "Kh8h3h5h"), kMadeFlush);
  EXPECT_EQ(Showdown("Ah2h", "Qh2c", "Kh8h3h5h"), kLose);
}

TEST(PartialBoardShowdown, AFullHouseIsNotCaughtByTheEarlyFlushDecision) {
  // 3c3d with 8h8d3hQh: a full house, threes over eights, against five hearts.
  EXPECT_EQ(CategoryOf("3c3d", "8h8d3hQh"), kMadeFullHouse);
  EXPECT_EQ(CategoryOf("AhKh", "8h8d3hQh"), kMadeFlush);
  EXPECT_EQ(Showdown("AhKh", "3c3d", "8h8d3hQh"), kLose);
}

TEST(PartialBoardShowdown, TheEarlyFlushDecisionBeatsAStraightMadeWithoutAFlush) {
  // My flush in hearts against a straight: the opponent's pair-type category is below five.
  EXPECT_EQ(CategoryOf("JcTd", "9h8h7h2s"), kMadeStraight);
  EXPECT_EQ(Showdown("Ah3h", "JcTd", "9h8h7h2s"), kWin);
}

TEST(PartialBoardShowdown, KickersComeFromTheHoleCardsEvenWhenTheBoardPlays) {
  // A-K-Q-J-9 on the river: both play the board, yet the higher hole card decides.
  EXPECT_EQ(Showdown("2c3d", "4c5d", "AsKsQdJh9c"), kLose);
  EXPECT_EQ(Showdown("2c5h", "4c5d", "AsKsQdJh9c"), kLose);  // equal higher hole rank: the lower one decides
  EXPECT_EQ(Showdown("2c5h", "2d5d", "AsKsQdJh9c"), kTie);
}

TEST(PartialBoardShowdown, EqualTwoPairIsDecidedByTheHigherHoleRankAlone) {
  // Kings and sevens on the turn for both; the aces tie although the deuce and the trey differ.
  EXPECT_EQ(CategoryOf("Ac2d", "KsKd7c7h"), kMadeTwoPair);
  EXPECT_EQ(Showdown("Ac2d", "Ad3c", "KsKd7c7h"), kTie);
  EXPECT_EQ(Showdown("Ac2d", "Qd3c", "KsKd7c7h"), kWin);
  // A higher second pair wins before any hole card is looked at.
  EXPECT_EQ(Showdown("8c2d", "Ad7d", "KsKd7c8h"), kWin);
}

TEST(PartialBoardShowdown, OnePairTripsAndQuadsGoByTheirRankThenTheKicker) {
  EXPECT_EQ(Showdown("7hAc", "7sKc", "7c7d2h"), kWin);
  EXPECT_EQ(Showdown("QcJd", "QdTc", "Qh7c2d"), kWin);
  EXPECT_EQ(Showdown("Ac3d", "Kc3h", "9c9d9h9s2c"), kWin);
  EXPECT_EQ(Showdown("Ac3d", "Ad3h", "9c9d9h9s2c"), kTie);
}

TEST(PartialBoardShowdown, AFullHouseGoesByItsTripsThenItsPairThenTies) {
  EXPECT_EQ(Showdown("2c3d", "4c6d", "KcKdKh5c5d"), kTie);
  EXPECT_EQ(Showdown("5h2c", "4c6d", "KcKdKh5c5d"), kTie);   // K full of 5 either way
  EXPECT_EQ(Showdown("5h5s", "KsQd", "KcKd2h5c2d"), kLose);  // fives full of kings against kings full
}

TEST(PartialBoardShowdown, StraightsGoByTheirHighRank) {
  EXPECT_EQ(Showdown("Tc6d", "JcTd", "9c8d7h2s"), kLose);
  // The wheel is five high.
  EXPECT_EQ(CategoryOf("Ac5d", "2c3d4h9s"), kMadeStraight);
  EXPECT_EQ(Showdown("Ac5d", "5c6d", "2c3d4h9s"), kLose);
  EXPECT_EQ(Showdown("Ac5d", "As5h", "2c3d4h9s"), kTie);
}

TEST(PartialBoardShowdown, FlushesGoByTheHighestHoleCardOfTheSuit) {
  EXPECT_EQ(Showdown("Ah3c", "Kh3d", "2h7h9hJh4c"), kWin);
  // Five hearts on the board and none in either hand: both flush with rank 0, a tie.
  EXPECT_EQ(Showdown("AcKc", "QcJd", "2h5h7h9hJh"), kTie);
}

TEST(PartialBoardShowdown, StraightFlushesAndTheRoyalFlush) {
  EXPECT_EQ(CategoryOf("ThJh", "9h8h7h"), kMadeStraightFlush);
  EXPECT_EQ(Showdown("ThJh", "6h5h", "9h8h7h"), kWin);
  EXPECT_EQ(CategoryOf("2c3d", "AhKhQhJhTh"), kMadeRoyalFlush);
  EXPECT_EQ(Showdown("2c3d", "4c5d", "AhKhQhJhTh"), kTie);
  // A sixth heart spoils the flush, so this hand has only the ace-high straight.
  EXPECT_EQ(CategoryOf("2h3d", "AhKhQhJhTh"), kMadeStraight);
  EXPECT_EQ(Showdown("2h3d", "4c5d", "AhKhQhJhTh"), kLose);
}

TEST(PartialBoardShowdown, WithoutABoardTheHoleCardsAloneAreCompared) {
  const BoardCards none{};
  EXPECT_EQ(ComparePartialBoardShowdown(Hand("AhAd"), Holding("KcKd"), none, kNoBoard), kWin);
  EXPECT_EQ(ComparePartialBoardShowdown(Hand("AhKd"), Holding("AcKs"), none, kNoBoard), kTie);
}

}  // namespace
}  // namespace quillet
