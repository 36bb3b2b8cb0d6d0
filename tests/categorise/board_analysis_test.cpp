#include "cards/board_analysis.h"

#include <gtest/gtest.h>

#include <initializer_list>

#include "tests/support/card_text.h"

namespace quillet {
namespace {

using testing::Holding;
using testing::WindowBoard;

RankSet Ranks(std::initializer_list<int> ranks) {
  RankSet set = 0;
  for (int r : ranks) set |= RankSet{1} << r;
  if (set & (RankSet{1} << 14)) set |= RankSet{1} << 1;
  return set;
}

PlayedCards Played(const std::string& holding, const std::string& board) {
  const auto b = WindowBoard(board);
  return HoldingWithBoard(Holding(holding), b.cards, b.street);
}

TEST(StraightTables, RankBitsArePowersOfTwoAndTheSpansRunFromTheWheelToTheAce) {
  const StraightTableSet t = InitStraightTables();
  EXPECT_EQ(t.rankBit[1], 2u);
  EXPECT_EQ(t.rankBit[2], 4u);
  EXPECT_EQ(t.rankBit[14], 16384u);
  EXPECT_EQ(t.spans[0].low, 1);
  EXPECT_EQ(t.spans[0].high, 5);
  EXPECT_EQ(t.spans[0].mask, 62u);  // ranks 1 to 5
  EXPECT_EQ(t.spans[9].low, 10);
  EXPECT_EQ(t.spans[9].high, 14);
  EXPECT_EQ(t.spans[9].mask, 62u << 9);
  EXPECT_EQ(t.spans[9].mask, (1u << 10) | (1u << 11) | (1u << 12) | (1u << 13) | (1u << 14));
}

TEST(StraightHighOf, IsTheHighRankOfTheBestRunOfFiveRanks) {
  auto mask = [](std::initializer_list<int> ranks) {
    uint32_t m = 0;
    for (int r : ranks) m |= RankMaskBit(r);
    return m;
  };
  EXPECT_EQ(StraightHighOf(mask({14, 2, 3, 4, 5})), 5);  // the wheel, the ace low
  EXPECT_EQ(StraightHighOf(mask({14, 2, 3, 4, 5, 6})), 6);
  EXPECT_EQ(StraightHighOf(mask({10, 11, 12, 13, 14})), 14);
  EXPECT_EQ(StraightHighOf(mask({13, 14, 2, 3, 4})), 0);  // no run goes round the corner
  EXPECT_EQ(StraightHighOf(mask({9, 10, 11, 12, 2, 3})), 0);
  EXPECT_EQ(StraightHighOf(mask({5, 6, 7, 8, 9, 10, 11})), 11);
  EXPECT_EQ(StraightHighOf(0), 0);
}

TEST(RankSetOf, AnAceCountsHighAndLowAndAbsentBoardCardsAddNothing) {
  const auto b = WindowBoard("AhKd4c");  // cards 4 and 5 carry the ace's rank without a suit
  const RankSet set = RankSetOf(HoldingWithBoard(Holding("9c8d"), b.cards, b.street));
  EXPECT_EQ(set, Ranks({14, 13, 4, 9, 8}));
  EXPECT_TRUE(set & 2u);
}

TEST(HoldingWithBoard, TakesTheHoldingFirstAndOnlyTheBoardCardsOfTheStreet) {
  const auto b = WindowBoard("AhKd4c");
  const PlayedCards p = HoldingWithBoard(Holding("9c8d"), b.cards, b.street);
  ASSERT_EQ(p.count, 5);
  EXPECT_EQ(p.holdingCount, 2);
  EXPECT_EQ(p.cards[0], (Card{9, 0}));
  EXPECT_EQ(p.cards[2], (Card{14, 2}));
  EXPECT_EQ(p.cards[4], (Card{4, 0}));
  EXPECT_EQ(BoardAlone(b.cards, b.street).count, 3);
  EXPECT_EQ(BoardAlone(WindowBoard("AhKd4c2s9h").cards, kRiver).count, 5);
}

// ---- straight draws ----

TEST(StraightDraw, FourInARowWithRoomAtBothEndsIsOpenEnded) {
  // 9-8 with 7-6: 5 or T completes it.
  const StraightDrawAnalysis d = AnalyseStraightDraw(Ranks({9, 8, 7, 6, 2}));
  EXPECT_EQ(d.cardsNeeded, 1);
  EXPECT_FALSE(d.gutshot);
  EXPECT_EQ(d.highRank, 10);  // the 6-T span, open as well, ties and replaces the 5-9 span
}

TEST(StraightDraw, JackQueenKingAceIsAGutshot) {
  const StraightDrawAnalysis d = AnalyseStraightDraw(Ranks({14, 2, 11, 12, 13}));
  EXPECT_EQ(d.cardsNeeded, 1);
  EXPECT_TRUE(d.gutshot);
  EXPECT_EQ(d.highRank, 14);
}

TEST(StraightDraw, AceTwoThreeFourIsAGutshot) {
  const StraightDrawAnalysis d = AnalyseStraightDraw(Ranks({14, 2, 3, 4, 9}));
  EXPECT_EQ(d.cardsNeeded, 1);
  EXPECT_TRUE(d.gutshot);
  EXPECT_EQ(d.highRank, 5);
}

TEST(StraightDraw, TwoThreeFourFiveIsOpenEnded) {
  const StraightDrawAnalysis d = AnalyseStraightDraw(Ranks({2, 3, 4, 5, 13}));
  EXPECT_EQ(d.cardsNeeded, 1);
  EXPECT_FALSE(d.gutshot);
}

TEST(StraightDraw, AHoleInTheMiddleIsAGutshot) {
  const StraightDrawAnalysis d = AnalyseStraightDraw(Ranks({5, 6, 8, 9, 13}));
  EXPECT_EQ(d.cardsNeeded, 1);
  EXPECT_TRUE(d.gutshot);
  EXPECT_EQ(d.highRank, 9);
}

TEST(StraightDraw, OnATieAnOpenSpanIsNotReplacedByAHigherGutshot) {
  // 3-7 (open, the 3 missing), 4-8 (open, the 8 missing) and 5-9 (gutshot, the 8 missing) all hold four.
  const StraightDrawAnalysis d = AnalyseStraightDraw(Ranks({4, 5, 6, 7, 9}));
  EXPECT_EQ(d.cardsNeeded, 1);
  EXPECT_FALSE(d.gutshot);
  EXPECT_EQ(d.highRank, 8);
}

TEST(StraightDraw, OnATieAGutshotIsReplacedByAHigherOpenSpan) {
  // The wheel span (A-3-4-5, the 2 missing) is a gutshot; 2-6 and 3-7 hold 3-4-5-6 open.
  const StraightDrawAnalysis d = AnalyseStraightDraw(Ranks({14, 3, 4, 5, 6}));
  EXPECT_EQ(d.cardsNeeded, 1);
  EXPECT_FALSE(d.gutshot);
  EXPECT_EQ(d.highRank, 7);
}

TEST(StraightDraw, OnATieBetweenGutshotsTheHigherSpanWins) {
  // 2-6 (2,3,5,6) and 5-9 (5,6,8,9) are both gutshots.
  const StraightDrawAnalysis d = AnalyseStraightDraw(Ranks({2, 3, 5, 6, 8, 9}));
  EXPECT_TRUE(d.gutshot);
  EXPECT_EQ(d.highRank, 9);
}

TEST(StraightDraw, ThreeOfASpanNeedTwoCardsAndTheHighestSuchSpanWins) {
  // 7-8-9 lies in 5-9, 6-T and 7-J.
  const StraightDrawAnalysis d = AnalyseStraightDraw(Ranks({9, 8, 7, 13, 2}));
  EXPECT_EQ(d.cardsNeeded, 2);
  EXPECT_EQ(d.highRank, 11);
}

// ---- flushes ----

TEST(FlushAnalysis, FiveOfASuitIsAFlushAndTheHoldingsTopRankInItIsKept) {
  const FlushAnalysis f = AnalyseFlush(Played("Ah2h", "Kh9h5h3c8d"));
  EXPECT_TRUE(f.flush);
  EXPECT_EQ(f.cardsNeeded, 0);
  EXPECT_EQ(f.suit, 2);
  EXPECT_EQ(f.topRank, 14);
}

TEST(FlushAnalysis, SixCardsOfASuitAreNotAFlush) {
  const FlushAnalysis f = AnalyseFlush(Played("Ah3h", "Kh9h5h2h"));
  EXPECT_FALSE(f.flush);
  EXPECT_EQ(f.cardsNeeded, -1);
  EXPECT_EQ(f.suit, 2);
}

TEST(FlushAnalysis, TheBoardsOwnFlushCountsForAHoldingWithoutTheSuit) {
  const FlushAnalysis f = AnalyseFlush(Played("AcKd", "2h5h9hJhQh"));
  EXPECT_TRUE(f.flush);
  EXPECT_EQ(f.topRank, 0);
}

TEST(FlushAnalysis, TheSearchStopsAtTheFirstSuitWithThreeCards) {
  // Three clubs come before four hearts in the suit order.
  const FlushAnalysis f = AnalyseFlush(Played("AhKh", "2c3c4c5h6h"));
  EXPECT_EQ(f.suit, 0);
  EXPECT_EQ(f.cardsNeeded, 2);
  EXPECT_EQ(f.topRank, 0);
}

TEST(FlushAnalysis, ALaterSuitMustHaveMoreCardsThanTheBestSoFar) {
  // Two clubs and two hearts: clubs come first and hearts do not beat them.
  const FlushAnalysis f = AnalyseFlush(Played("Kh9c", "Qc7d2h4s"));
  EXPECT_EQ(f.suit, 0);
  EXPECT_EQ(f.cardsNeeded, 3);
  EXPECT_EQ(f.topRank, 9);
}

TEST(FlushRule, ExactlyFiveCardsOfASuitMakeAFlush) {
  EXPECT_FALSE(MakesFlush(4));
  EXPECT_TRUE(MakesFlush(5));
  EXPECT_FALSE(MakesFlush(6));
  EXPECT_FALSE(MakesFlush(7));
}

// ---- multiplicity ----

TEST(Multiplicity, NoRepeatedRankIsCodeZero) {
  const Multiplicity m = AnalyseMultiplicity(Played("AsKd", "7c4h2d"));
  EXPECT_EQ(m.code, kMadeHighCard);
}

TEST(Multiplicity, OnePairNamesItsRank) {
  const Multiplicity m = AnalyseMultiplicity(Played("Kc2c", "Kh9s5d"));
  EXPECT_EQ(m.code, kMadePair);
  EXPECT_EQ(m.highPair, 13);
}

TEST(Multiplicity, OfThreePairsTheTwoHighestCount) {
  const Multiplicity m = AnalyseMultiplicity(Played("7c9d", "8h7h9s8d2c"));
  EXPECT_EQ(m.code, kMadeTwoPair);
  EXPECT_EQ(m.highPair, 9);
  EXPECT_EQ(m.lowPair, 8);
}

TEST(Multiplicity, ThreeOfAKindAlone) {
  const Multiplicity m = AnalyseMultiplicity(Played("8c6d", "8h8sKd"));
  EXPECT_EQ(m.code, kMadeThreeOfAKind);
  EXPECT_EQ(m.trips, 8);
}

TEST(Multiplicity, ThreeOfAKindWithAPairIsAFullHouseWhicheverComesFirst) {
  Multiplicity m = AnalyseMultiplicity(Played("8c8d", "8hKsKc"));
  EXPECT_EQ(m.code, kMadeFullHouse);
  EXPECT_EQ(m.trips, 8);
  EXPECT_EQ(m.highPair, 13);
  m = AnalyseMultiplicity(Played("KcKd", "8h8s8d"));
  EXPECT_EQ(m.code, kMadeFullHouse);
  EXPECT_EQ(m.trips, 8);
  EXPECT_EQ(m.highPair, 13);
}

TEST(Multiplicity, TwoThreesOfAKindMakeAFullHouseWithTheLowerAsThePair) {
  Multiplicity m = AnalyseMultiplicity(Played("8c9c", "8h8s9d9h2c"));
  EXPECT_EQ(m.code, kMadeFullHouse);
  EXPECT_EQ(m.trips, 9);
  EXPECT_EQ(m.highPair, 8);
  m = AnalyseMultiplicity(Played("9c8c", "9h9s8d8h2c"));
  EXPECT_EQ(m.trips, 9);
  EXPECT_EQ(m.highPair, 8);
}

TEST(Multiplicity, FourOfAKindWins) {
  const Multiplicity m = AnalyseMultiplicity(Played("8c8d", "8h8sKc"));
  EXPECT_EQ(m.code, kMadeFourOfAKind);
  EXPECT_EQ(m.quads, 8);
}

TEST(Multiplicity, ARankHeldFiveTimesMakesNoGroup) {
  // Only a card given twice can do it: the holding's ace of hearts is also on the board.
  const Multiplicity m = AnalyseMultiplicity(Played("AhAd", "AhAcAsKd9c"));
  EXPECT_EQ(m.code, kMadeHighCard);
  EXPECT_EQ(m.quads, 0);
  EXPECT_EQ(AnalyseMultiplicity(Played("AhAd", "AcAsKdKc9c")).code, kMadeFourOfAKind);
}

TEST(Multiplicity, TheBoardAloneHasItsOwnCode) {
  const auto b = WindowBoard("KhKs8d8c2h");
  const Multiplicity m = AnalyseMultiplicity(BoardAlone(b.cards, b.street));
  EXPECT_EQ(m.code, kMadeTwoPair);
  EXPECT_EQ(m.highPair, 13);
  EXPECT_EQ(m.lowPair, 8);
  const auto flop = WindowBoard("9h9s9d");
  EXPECT_EQ(AnalyseMultiplicity(BoardAlone(flop.cards, flop.street)).code, kMadeThreeOfAKind);
}

TEST(SameGroupRanks, ComparesTheRanksThatMatterForEachCode) {
  Multiplicity pair{kMadePair, 0, 0, 8, 0, false};
  Multiplicity otherPair{kMadePair, 0, 0, 9, 0, false};
  EXPECT_TRUE(SameGroupRanks(pair, pair));
  EXPECT_FALSE(SameGroupRanks(pair, otherPair));
  Multiplicity fullA{kMadeFullHouse, 0, 13, 8, 0, true};
  Multiplicity fullB{kMadeFullHouse, 0, 13, 12, 8, true};
  EXPECT_FALSE(SameGroupRanks(fullA, fullB));
  EXPECT_FALSE(SameGroupRanks(Multiplicity{}, Multiplicity{}));  // high card never plays a group
}

// ---- straights ----

TEST(Straight, TheWheelHasHighRankFive) {
  const PlayedCards p = Played("Ad2h", "3c4d5s");
  const StraightAnalysis s = AnalyseStraight(p, AnalyseFlush(p));
  EXPECT_TRUE(s.straight);
  EXPECT_FALSE(s.straightFlush);
  EXPECT_EQ(s.highRank, 5);
}

TEST(Straight, TheHighestStraightSpanGivesTheHighRank) {
  const PlayedCards p = Played("9c8d", "7h6s5cTd4h");
  const StraightAnalysis s = AnalyseStraight(p, AnalyseFlush(p));
  EXPECT_TRUE(s.straight);
  EXPECT_EQ(s.highRank, 10);
}

TEST(Straight, AStraightFlushKeepsItsHighRankAgainstAHigherPlainStraight) {
  const PlayedCards p = Played("9h8h", "7h6h5hTc2d");
  const StraightAnalysis s = AnalyseStraight(p, AnalyseFlush(p));
  EXPECT_TRUE(s.straight);
  EXPECT_TRUE(s.straightFlush);
  EXPECT_EQ(s.highRank, 9);
}

TEST(Straight, SixCardsOfTheSuitInARowAreNoStraightFlush) {
  const PlayedCards p = Played("9h8h", "7h6h5h2h");
  const StraightAnalysis s = AnalyseStraight(p, AnalyseFlush(p));
  EXPECT_TRUE(s.straight);
  EXPECT_FALSE(s.straightFlush);
}

TEST(Straight, AFlushAndAStraightOfDifferentCardsAreNoStraightFlush) {
  // Hearts 9-8-7-6-2 and the straight 5-9 with the 5 of clubs.
  const PlayedCards p = Played("9h8h", "7h6h2h5c3d");
  const FlushAnalysis f = AnalyseFlush(p);
  ASSERT_TRUE(f.flush);
  const StraightAnalysis s = AnalyseStraight(p, f);
  EXPECT_TRUE(s.straight);
  EXPECT_FALSE(s.straightFlush);
}

// ---- top, middle, bottom ----

TEST(TopMiddleBottom, CardOneIsNeverTheMiddle) {
  const auto b = WindowBoard("QhKs5d");
  const BoardRanks r = TopMiddleBottom(b.cards, b.street);
  EXPECT_EQ(r.top, 13);
  EXPECT_EQ(r.middle, 5);
  EXPECT_EQ(r.bottom, 5);
}

TEST(TopMiddleBottom, TheHighestRankBelowTheTopAmongCardsTwoOnIsTheMiddle) {
  auto b = WindowBoard("KhQs5d");
  EXPECT_EQ(TopMiddleBottom(b.cards, b.street).middle, 12);
  b = WindowBoard("Kh9s2c5d");  // the 5 on the turn does not beat the 9
  const BoardRanks r = TopMiddleBottom(b.cards, b.street);
  EXPECT_EQ(r.top, 13);
  EXPECT_EQ(r.middle, 9);
  EXPECT_EQ(r.bottom, 2);
  b = WindowBoard("5h2sKc3d9c");  // on the river card 5 counts too
  EXPECT_EQ(TopMiddleBottom(b.cards, b.street).middle, 9);
}

TEST(TopMiddleBottom, AbsentTurnAndRiverRanksAreNotLookedAt) {
  // Cards 4 and 5 carry the ace's rank on the flop; the middle must still come from cards 2 and 3.
  const auto b = WindowBoard("AhQs5d");
  const BoardRanks r = TopMiddleBottom(b.cards, b.street);
  EXPECT_EQ(r.top, 14);
  EXPECT_EQ(r.middle, 12);
  EXPECT_EQ(r.bottom, 5);
}

}  // namespace
}  // namespace quillet
