// The standard comparator hand by hand: the best five of the seven cards decide, all five count.
#include <gtest/gtest.h>

#include <string_view>

#include "equity/standard_equity.h"
#include "tests/support/card_text.h"

namespace quillet {
namespace {

using testing::Board;
using testing::Hand;
using testing::Holding;

enum class Outcome { Win, Tie, Lose };

// My Hand against the holding on a board of three to five cards.
Outcome Showdown(std::string_view mine, std::string_view theirs, std::string_view board) {
  const auto street = static_cast<Street>(board.size() / 2 - 2);
  const ShowdownResult result = CompareStandardShowdown(Hand(mine), Holding(theirs), Board(board), street);
  EXPECT_FALSE(result.myWin && result.oppWin);
  return result.myWin ? Outcome::Win : result.oppWin ? Outcome::Lose : Outcome::Tie;
}

TEST(StandardShowdown, SixCardsOfOneSuitMakeAFlushThatBeatsAStraight) {
  // Four hearts on the board and two in the hand: the hearts flush, not the six-high straight.
  EXPECT_EQ(Showdown("Ah3h", "6c3d", "Kh9h5h4h2c"), Outcome::Win);
}

TEST(StandardShowdown, SevenCardsOfOneSuitMakeAFlushOfTheBestFive) {
  // Five hearts on the board: the ace of hearts improves it, the deuce of hearts does not play.
  EXPECT_EQ(Showdown("Ah2h", "Qh3h", "Kh9h7h5h4h"), Outcome::Win);
  EXPECT_EQ(Showdown("3h2h", "Jc3c", "Kh9h7h5h4h"), Outcome::Tie);  // the board's flush plays for both
}

TEST(StandardShowdown, TheHigherFlushCardDecidesAndASingleSuitedCardIsEnoughWithFourOnTheBoard) {
  EXPECT_EQ(Showdown("AsKs", "Js3s", "Qs7s2s5s"), Outcome::Win);
  EXPECT_EQ(Showdown("Jc4s", "As3d", "Qs7s2s5s9h"), Outcome::Lose);
  EXPECT_EQ(Showdown("Js2c", "9c9d", "Qs7s2s5s9h"), Outcome::Win);  // the J-high flush beats trips
}

TEST(StandardShowdown, TheWheelIsAStraightThatLosesToTheSixHighStraight) {
  EXPECT_EQ(Showdown("Ah2c", "KdKc", "3d4s5hJcKs"), Outcome::Win);   // the wheel beats trips...
  EXPECT_EQ(Showdown("Ah2c", "6d2d", "3d4s5hJc9s"), Outcome::Lose);  // ...and loses to 2-6
  EXPECT_EQ(Showdown("Ah2c", "AdKc", "3d4s5hJc9s"), Outcome::Win);
}

TEST(StandardShowdown, AStraightFlushBeatsQuadsAndTheSteelWheelIsTheLowestOne) {
  EXPECT_EQ(Showdown("Ah2h", "8c8d", "3h4h5h8h8s"), Outcome::Win);
  EXPECT_EQ(Showdown("Ah2h", "6h7h", "3h4h5h8d8s"), Outcome::Lose);
}

TEST(StandardShowdown, ALowPairCounterfeitedByTwoBoardPairsSplitsWithAnyHandBelowTheKicker) {
  // Board two pair with an ace: 33 plays KK88A like everyone without a king, an eight or an ace.
  EXPECT_EQ(Showdown("3c3d", "2c2d", "KsKh8c8dAc"), Outcome::Tie);
  EXPECT_EQ(Showdown("3c3d", "QcJd", "KsKh8c8dAc"), Outcome::Tie);
  EXPECT_EQ(Showdown("3c3d", "8s2h", "KsKh8c8dAc"), Outcome::Lose);  // a full house
}

TEST(StandardShowdown, TheFifthCardOfTwoPairCanComeFromTheBoard) {
  EXPECT_EQ(Showdown("Ac2d", "Qc3d", "8s8h5c5dKc"), Outcome::Win);  // A kicker against the board's K
  EXPECT_EQ(Showdown("Jc2d", "Qc3d", "8s8h5c5dKc"), Outcome::Tie);  // the board's K plays for both
}

TEST(StandardShowdown, KickersBeyondTheHoleCardsCountAndUnusedHoleCardsDoNot) {
  // Pair of nines with A K 7 from the board: the 3 and the 4 do not play.
  EXPECT_EQ(Showdown("9d3c", "9h4c", "AhKd9c7s6h"), Outcome::Tie);
  // The third kicker is the hole card: Q against J.
  EXPECT_EQ(Showdown("Qc9d", "Jc9h", "AhKd9c5s2h"), Outcome::Win);
}

TEST(StandardShowdown, WhenTheBoardPlaysBothPlayersSplit) {
  EXPECT_EQ(Showdown("2c3d", "4h2s", "TsJhQcKdAh"), Outcome::Tie);
  EXPECT_EQ(Showdown("2c3d", "4h2s", "AsAhAcAdKh"), Outcome::Tie);  // quads with the king kicker
}

TEST(StandardShowdown, TwoTripsMakeAFullHouseAndTheHigherTripsLeads) {
  EXPECT_EQ(Showdown("9c9d", "KdKh", "9h5c5d5sKc"), Outcome::Lose);  // KKK55 over 99955
  EXPECT_EQ(Showdown("AcKd", "9s9d", "KcKh9h2c2s"), Outcome::Win);   // KKK22 over 999KK
}

TEST(StandardShowdown, OnTheFlopAndTurnOnlyTheKnownCardsCount) {
  EXPECT_EQ(Showdown("AsKs", "QcQd", "Qs7s2d"), Outcome::Lose);
  EXPECT_EQ(Showdown("AsKs", "QcQd", "Qs7s2d5s"), Outcome::Win);
  EXPECT_EQ(Showdown("AsKs", "QcQd", "Qs7s2d5s7c"), Outcome::Lose);
}

TEST(StandardShowdown, WithoutABoardOrWithACardTwiceNothingIsDecided) {
  EXPECT_EQ(CompareStandardShowdown(Hand("AsKs"), Holding("QcQd"), Board(""), kNoBoard), ShowdownResult{});
  EXPECT_EQ(CompareStandardShowdown(Hand("AsKs"), Holding("AsQd"), Board("Qs7s2d"), kFlop), ShowdownResult{});
  EXPECT_EQ(CompareStandardShowdown(Hand("AsKs"), Holding("QcQd"), Board("Qs7sAs"), kFlop), ShowdownResult{});
}

}  // namespace
}  // namespace quillet
