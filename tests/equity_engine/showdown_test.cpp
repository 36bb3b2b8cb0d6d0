// The showdown rules case by case. Every case is decided twice, by the reference comparator (test code,
// step by step) and by the seven-card keys the program uses, and both must give the expected outcome.
#include <gtest/gtest.h>

#include <string>

#include "cards/showdown_key.h"
#include "tests/support/card_text.h"
#include "tests/support/reference_showdown.h"

namespace quillet {
namespace {

using testing::Cards;
using testing::EvaluatePairType;
using testing::EvaluateShowdownHand;
using testing::Hand;
using testing::Holding;
using testing::PairType;
using testing::Record;
using testing::SevenCards;

enum class Outcome { Win, Lose, Tie };

std::string Name(Outcome o) {
  return o == Outcome::Win ? "I win" : (o == Outcome::Lose ? "I lose" : "tie");
}

Outcome ByReference(const char* mine, const char* theirs, const char* board) {
  const ShowdownResult r = testing::CompareShowdown(Hand(mine), Holding(theirs), Record(board));
  EXPECT_FALSE(r.myWin && r.oppWin);
  return r.myWin ? Outcome::Win : (r.oppWin ? Outcome::Lose : Outcome::Tie);
}

Outcome ByKeys(const char* mine, const char* theirs, const char* board) {
  const auto b = Cards(board);
  const std::array<Card, 5> five{b[0], b[1], b[2], b[3], b[4]};
  const auto m = Cards(mine);
  const auto t = Cards(theirs);
  const ShowdownKey my = ShowdownKeyOf(m[0], m[1], five);
  const ShowdownKey their = ShowdownKeyOf(t[0], t[1], five);
  return my > their ? Outcome::Win : (my < their ? Outcome::Lose : Outcome::Tie);
}

// Both comparators, one expected outcome.
void ExpectShowdown(const char* mine, const char* theirs, const char* board, Outcome expected) {
  SCOPED_TRACE(std::string(mine) + " against " + theirs + " on " + board);
  EXPECT_EQ(Name(ByReference(mine, theirs, board)), Name(expected)) << "step-by-step comparator";
  EXPECT_EQ(Name(ByKeys(mine, theirs, board)), Name(expected)) << "seven-card keys";
  // The same showdown seen from the other side.
  const Outcome mirrored =
      expected == Outcome::Win ? Outcome::Lose : (expected == Outcome::Lose ? Outcome::Win : Outcome::Tie);
  EXPECT_EQ(Name(ByReference(theirs, mine, board)), Name(mirrored))
      << "step-by-step comparator, sides swapped";
}

// The category by the reference comparator; the key of the program must carry the same.
int32_t Category(const char* hole, const char* board) {
  const auto h = Cards(hole);
  const auto b = Cards(board);
  const int32_t category = EvaluateShowdownHand(h[0], h[1], Record(board)).category;
  EXPECT_EQ(KeyCategory(ShowdownKeyOf(h[0], h[1], {b[0], b[1], b[2], b[3], b[4]})), category)
      << hole << " on " << board;
  return category;
}

// ---- categories ----

SevenCards Seven(const char* text) {
  const auto c = Cards(text);
  SevenCards seven;
  for (int i = 0; i < 7; ++i) seven.cards[i] = c[i];
  seven.count = 7;
  return seven;
}

// The program's reading of the same seven cards.
Multiplicity Groups(const char* text) {
  const auto c = Cards(text);
  PlayedCards played;
  for (int i = 0; i < 7; ++i) played.cards[i] = c[i];
  played.count = 7;
  played.holdingCount = 2;
  return AnalyseMultiplicity(played);
}

TEST(ShowdownCategory, EachCategoryIsRecognisedFromSevenCards) {
  EXPECT_EQ(Category("3h2d", "AcKd9h7s5c"), kMadeHighCard);
  EXPECT_EQ(Category("Ah2d", "AcKd9h7s5c"), kMadePair);
  EXPECT_EQ(Category("Ah9d", "AcKd9h7s5c"), kMadeTwoPair);
  EXPECT_EQ(Category("AhAd", "AcKd9h7s5c"), kMadeThreeOfAKind);
  EXPECT_EQ(Category("8h6d", "AcKd9h7s5c"), kMadeStraight);
  EXPECT_EQ(Category("Qc2c", "AcKd9c7s5c"), kMadeFlush);
  EXPECT_EQ(Category("AhAd", "AcKd9h7sKc"), kMadeFullHouse);
  EXPECT_EQ(Category("AhAd", "AcKd9h7sAs"), kMadeFourOfAKind);
  EXPECT_EQ(Category("8c6c", "AdKd9c7c5c"), kMadeStraightFlush);
  EXPECT_EQ(Category("AcTc", "KcQcJc7s5d"), kMadeRoyalFlush);
}

TEST(PairType, KeepsTheTopTwoOfThreePairs) {
  const PairType t = EvaluatePairType(Seven("KcKd9h9s4c4d2h"));
  EXPECT_EQ(t.category, kMadeTwoPair);
  EXPECT_EQ(t.primary, 13);
  EXPECT_EQ(t.secondary, 9);
  const Multiplicity m = Groups("KcKd9h9s4c4d2h");
  EXPECT_EQ(m.code, kMadeTwoPair);
  EXPECT_EQ(m.highPair, 13);
  EXPECT_EQ(m.lowPair, 9);
}

TEST(PairType, TwoTripsMakeAFullHouseOfTheHigherWithTheLowerAsPair) {
  for (const char* order : {"3c3d3hKsKcKd2h", "KsKcKd3c3d3h2h", "3cKs3dKc3hKd2h"}) {
    const PairType t = EvaluatePairType(Seven(order));
    EXPECT_EQ(t.category, kMadeFullHouse) << order;
    EXPECT_EQ(t.primary, 13) << order;
    EXPECT_EQ(t.secondary, 3) << order;
    const Multiplicity m = Groups(order);
    EXPECT_EQ(m.code, kMadeFullHouse) << order;
    EXPECT_EQ(m.trips, 13) << order;
    EXPECT_EQ(m.highPair, 3) << order;
  }
}

TEST(PairType, TripsWithTwoPairsTakeTheHigherPair) {
  const PairType t = EvaluatePairType(Seven("5c5d9h9s3c3d3h"));
  EXPECT_EQ(t.category, kMadeFullHouse);
  EXPECT_EQ(t.primary, 3);
  EXPECT_EQ(t.secondary, 9);
  const Multiplicity m = Groups("5c5d9h9s3c3d3h");
  EXPECT_EQ(m.code, kMadeFullHouse);
  EXPECT_EQ(m.trips, 3);
  EXPECT_EQ(m.highPair, 9);
  EXPECT_EQ(m.lowPair, 5);
}

TEST(PairType, QuadsBeatTheTripsBesideThem) {
  const PairType t = EvaluatePairType(Seven("9c9d9h9sKcKdKh"));
  EXPECT_EQ(t.category, kMadeFourOfAKind);
  EXPECT_EQ(t.primary, 9);
  const Multiplicity m = Groups("9c9d9h9sKcKdKh");
  EXPECT_EQ(m.code, kMadeFourOfAKind);
  EXPECT_EQ(m.quads, 9);
}

TEST(PairType, ASingleTripsIsCategoryThree) {
  const PairType t = EvaluatePairType(Seven("7c7d7hKs9c4d2h"));
  EXPECT_EQ(t.category, kMadeThreeOfAKind);
  EXPECT_EQ(t.primary, 7);
}

// ---- category 0 ----

TEST(ShowdownNoPair, TheBetterHigherHoleCardWinsEvenWhenTheBoardPlays) {
  // A K Q 9 7 is the best five for both; the hole cards still decide: 5 beats 3.
  ExpectShowdown("3d2h", "5d4h", "AcKdQh9s7c", Outcome::Lose);
}

TEST(ShowdownNoPair, EqualHigherHoleCardsGoToTheLowerOnes) {
  ExpectShowdown("Jd3h", "Js2h", "AcKd8h6s4c", Outcome::Win);
}

TEST(ShowdownNoPair, EqualHoleRanksTie) {
  ExpectShowdown("Jd3h", "Js3c", "AcKd8h6s4c", Outcome::Tie);
}

// ---- category 1 ----

TEST(ShowdownOnePair, APairOfTwosWithAnAceKickerLosesToAPairOfKings) {
  // The kicker is worked out first but never decides before the pair: A > K does not help twos.
  ExpectShowdown("Ah2d", "Kd3h", "2c9d7h4sKc", Outcome::Lose);
}

TEST(ShowdownOnePair, APairOfTwosWithAnAceKickerLosesToAPairOfAces) {
  ExpectShowdown("Ah2d", "AsAc", "Kc9d7h4s2c", Outcome::Lose);
}

TEST(ShowdownOnePair, AnEqualPairGoesToTheHoleKicker) {
  ExpectShowdown("KhQd", "KsJd", "Kc9d7h4s2c", Outcome::Win);
}

TEST(ShowdownOnePair, TheHoleKickerDecidesWhenTheBoardPlays) {
  // A A K Q J plays for both; the better higher hole card (4 against 3) wins all the same.
  ExpectShowdown("3h2d", "4h2s", "AcAdKhQsJc", Outcome::Lose);
}

TEST(ShowdownOnePair, EqualPairAndEqualHoleRanksTie) {
  ExpectShowdown("Qh2d", "Qs2h", "KcKd9h7s4c", Outcome::Tie);
}

// ---- category 2 ----

TEST(ShowdownTwoPair, SameTwoPairWithAxAgainstAyTies) {
  // K K 9 9 on the board: the higher hole ranks are equal and the lower ones (3, 2) are not consulted.
  ExpectShowdown("Ah3d", "As2h", "KcKd9h9s4c", Outcome::Tie);
}

TEST(ShowdownTwoPair, SameTwoPairGoesToTheHigherHoleRank) {
  ExpectShowdown("Ah3d", "Qs2h", "KcKd9h9s4c", Outcome::Win);
}

TEST(ShowdownTwoPair, TheTopPairDecidesFirst) {
  ExpectShowdown("Kh9d", "9s7d", "KcQd9h7s2c", Outcome::Win);
}

TEST(ShowdownTwoPair, TheSecondPairDecidesBeforeAnyKicker) {
  // K K 9 9 against K K 5 5: the ace of the second player does not matter.
  ExpectShowdown("9d3h", "5dAh", "KcKd9h5s2c", Outcome::Win);
}

TEST(ShowdownTwoPair, AThirdPairDoesNotCountOnlyTheHigherHoleRank) {
  // K K 9 9 (with 4 4 beside) against K K 9 9: queen beats four.
  ExpectShowdown("4d2h", "Qh3d", "KcKd9h9s4c", Outcome::Lose);
}

// ---- category 3 ----

TEST(ShowdownTrips, HigherTripsWin) {
  ExpectShowdown("9h9d", "4d4s", "9cKd4h2s7c", Outcome::Win);
}

TEST(ShowdownTrips, EqualTripsGoToTheHoleKicker) {
  ExpectShowdown("Ah3d", "QdJh", "7c7d7hKs2c", Outcome::Win);
}

// ---- category 4 ----

TEST(ShowdownStraight, TheHigherStraightWins) {
  ExpectShowdown("JhTd", "Ts6d", "9c8d7h2s2c", Outcome::Win);
}

TEST(ShowdownStraight, EqualStraightsTieWhateverTheKickers) {
  ExpectShowdown("Th2d", "TsAh", "9c8d7h6s2c", Outcome::Tie);
}

TEST(ShowdownStraight, TheWheelIsFiveHigh) {
  ExpectShowdown("Ah2d", "6h7d", "3c4d5hKs9c", Outcome::Lose);
  ExpectShowdown("Ah2d", "KhQd", "3c4d5hKs9c", Outcome::Win);
}

TEST(ShowdownStraight, AStraightBeatsTrips) {
  ExpectShowdown("8h6d", "KhKd", "9c7d5hKs2c", Outcome::Win);
}

// ---- category 5 ----

TEST(ShowdownFlush, SixCardsOfTheSuitAreNoFlush) {
  // Four hearts on the board and two in the hand: six, so no flush; one heart in the other hand: five.
  ExpectShowdown("QhJh", "Th3c", "AhKh9h5h2c", Outcome::Lose);
}

TEST(ShowdownFlush, OneHoleCardOfTheSuitOnAFiveCardFlushBoardIsNoFlush) {
  ExpectShowdown("Qh2c", "Tc4d", "AhKh9h5h2h", Outcome::Lose);
}

TEST(ShowdownFlush, FlushesRankByTheHighestHoleCardOfTheSuit) {
  ExpectShowdown("Qh3d", "Jh3c", "AhKh9h5h2c", Outcome::Win);
}

TEST(ShowdownFlush, TwoFlushesGoToTheFlushRankNotToEitherSide) {
  ExpectShowdown("Ah4h", "Qh5h", "2h7h9hKc3d", Outcome::Win);
  ExpectShowdown("Jh4h", "Qh5h", "2h7h9hKc3d", Outcome::Lose);
}

TEST(ShowdownFlush, FlushesWithoutAHoleCardOfTheSuitTie) {
  ExpectShowdown("QcJd", "Tc4d", "AhKh9h5h2h", Outcome::Tie);
}

TEST(ShowdownFlush, AFlushBeatsAStraight) {
  ExpectShowdown("Qh3h", "JdTc", "9h8h7c2h4d", Outcome::Win);
}

TEST(ShowdownFlush, TheEarlyDecisionGivesTheOpponentsFlushTheWinOverMyTrips) {
  ExpectShowdown("KdKs", "Ah4h", "2h7h9hKc3d", Outcome::Lose);
}

TEST(ShowdownFlush, AFullHouseBeatsAFlush) {
  ExpectShowdown("7s7c", "Ah9h", "KhKd7h4h2c", Outcome::Win);
}

TEST(ShowdownFlush, QuadsBeatAFlush) {
  ExpectShowdown("KsKc", "Ah9h", "KhKd7h4h2c", Outcome::Win);
}

// ---- category 6 ----

TEST(ShowdownFullHouse, TheHigherTripsWin) {
  ExpectShowdown("Kh3d", "7dAh", "KcKd7h7s2c", Outcome::Win);
}

TEST(ShowdownFullHouse, EqualTripsGoToThePair) {
  ExpectShowdown("7d3h", "2d2h", "KcKdKh7s2c", Outcome::Win);
}

TEST(ShowdownFullHouse, EqualFullHousesTieWhateverTheKickers) {
  ExpectShowdown("7d3h", "7hAd", "KcKdKh7s2c", Outcome::Tie);
}

// ---- category 7 ----

TEST(ShowdownQuads, HigherQuadsWin) {
  ExpectShowdown("KhKs", "7h7s", "KcKd7c7d2c", Outcome::Win);
}

TEST(ShowdownQuads, EqualQuadsGoToTheHoleKicker) {
  ExpectShowdown("Ah3d", "KhQd", "9c9d9h9s2c", Outcome::Win);
}

TEST(ShowdownQuads, TheHoleKickerDecidesEvenWithAnAceOnTheBoard) {
  ExpectShowdown("3h2d", "4h2s", "9c9d9h9sAc", Outcome::Lose);
}

TEST(ShowdownQuads, QuadsBeatAFullHouse) {
  ExpectShowdown("2d2h", "KhKs", "2c2sKc7d9h", Outcome::Win);
  ExpectShowdown("KhKs", "2d7c", "2c2sKc7d2h", Outcome::Lose);
}

// ---- categories 8 and 9 ----

TEST(ShowdownStraightFlush, TheHigherStraightFlushWins) {
  ExpectShowdown("JhTh", "6h5h", "9h8h7h2c2d", Outcome::Win);
}

TEST(ShowdownStraightFlush, ALaterPlainStraightDoesNotRaiseTheStraightFlush) {
  // 4-8 of hearts is a straight flush; 5-9 is only a plain straight, so the hand stays eight-high and
  // loses to 5-9 of hearts.
  ExpectShowdown("4h3c", "9hTc", "5h6h7h8h9c", Outcome::Lose);
}

TEST(ShowdownStraightFlush, ARoyalFlushBeatsAKingHighStraightFlush) {
  EXPECT_EQ(Category("Ah2c", "KhQhJhTh3d"), kMadeRoyalFlush);
  EXPECT_EQ(Category("9h2d", "KhQhJhTh3d"), kMadeStraightFlush);
  ExpectShowdown("Ah2c", "9h2d", "KhQhJhTh3d", Outcome::Win);
}

TEST(ShowdownStraightFlush, RoyalFlushesTie) {
  ExpectShowdown("2c3d", "4c5d", "AhKhQhJhTh", Outcome::Tie);
}

TEST(ShowdownStraightFlush, ASixthCardOfTheSuitSpoilsARoyalFlushOnTheBoard) {
  ExpectShowdown("9h3d", "4c5d", "AhKhQhJhTh", Outcome::Lose);
}

TEST(ShowdownStraightFlush, AStraightFlushBeatsQuads) {
  ExpectShowdown("6h5h", "9c9d", "9h8h7h9s2d", Outcome::Win);
}

}  // namespace
}  // namespace quillet
