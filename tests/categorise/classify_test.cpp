#include "categorise/classify.h"

#include <gtest/gtest.h>

#include "cards/showdown_key.h"
#include "categorise/categories.h"
#include "categorise/cook.h"
#include "tests/support/card_text.h"

namespace quillet {
namespace {

using testing::AllHoldingsBeside;
using testing::Holding;
using testing::WindowBoard;

ComboClassification Classify(const std::string& holding, const std::string& board) {
  const auto b = WindowBoard(board);
  return ClassifyCombo(PrepareBoard(b.cards, b.street), Holding(holding));
}

bool IsDrawEntry(int i) {
  return i == 26 || i == 27 || i == 30 || i == 31 || i == 32 || i == 33;
}

TEST(Classify, OnTheTurnABoardOfFourHeartsGivesEveryHoldingAFlushDraw) {
  const auto b = WindowBoard("Kh9h5h2h");
  const BoardContext context = PrepareBoard(b.cards, b.street);
  const auto holdings = AllHoldingsBeside(b);
  ASSERT_EQ(holdings.size(), 1128u);  // 48 cards left, 48 x 47 / 2 holdings
  int withoutHeart = 0;
  for (const HandCombo& h : holdings) {
    EXPECT_EQ(ClassifyCombo(context, h).flushEntry, kEntryFlushDraw) << ComboToText(h);
    if (h.suit1 != 2 && h.suit2 != 2) ++withoutHeart;
  }
  EXPECT_EQ(withoutHeart, 741);  // 39 cards that are not hearts: 39 x 38 / 2 holdings among them
}

TEST(Classify, TwoHeartsOnABoardOfFourHeartsAreNotAFlush) {
  const ComboClassification c = Classify("Ah3h", "Kh9h5h2h");
  EXPECT_NE(c.code, kMadeFlush);
  EXPECT_NE(c.madeEntry, kEntryFlush);
  EXPECT_EQ(c.madeEntry, kEntryAceHigh);
}

TEST(Classify, OneHeartBesideFiveHeartsOnTheRiverIsNotAFlushButNoHeartIs) {
  EXPECT_EQ(Classify("AhKd", "2h5h9hJhQh").madeEntry, kEntryAceHigh);  // six hearts
  EXPECT_EQ(Classify("AcKd", "2h5h9hJhQh").madeEntry, kEntryFlush);    // the board's five
}

TEST(Classify, OnTheRiverNoDrawEntriesAreUsed) {
  // A river full of draws for a turn or flop reader: three hearts, 8-9-T and connected cards.
  const auto b = WindowBoard("Th9h8h2c3d");
  Categories categories;
  InitCategories(categories);
  ClassifyRange(categories, AllHoldingsBeside(b), b.cards, b.street);
  EXPECT_EQ(categories.categorisedCount, 1081);
  for (int i = 0; i < kCategoryCount; ++i) {
    if (IsDrawEntry(i)) {
      EXPECT_EQ(categories.nodes[i].count, 0) << i;
    }
  }
  int total = 0;
  for (const CategoryNode& node : categories.nodes) total += node.count;
  EXPECT_EQ(total, 1081);  // one entry each
}

TEST(Classify, OnQueenKingFiveAPairOfQueensLiesBetweenTopAndMiddle) {
  // Card 1 is never the middle, so the middle is the 5 and the queen is no "M pair".
  const ComboClassification c = Classify("Qc8d", "QhKs5d");
  EXPECT_EQ(c.madeEntry, kEntryTopMiddlePair);
  EXPECT_NE(c.madeEntry, kEntryMiddlePair);
}

TEST(Classify, NineEightOnSevenSixTwoIsOpenEnded) {
  const ComboClassification c = Classify("9c8d", "7h6s2c");
  EXPECT_EQ(c.straightEntry, kEntryOpenEnded);
}

TEST(Classify, AnAceOnJackQueenKingIsAGutshot) {
  const ComboClassification c = Classify("Ac2d", "JhQsKc");
  EXPECT_EQ(c.straightEntry, kEntryGutshotNoPair);
  const ComboClassification paired = Classify("AcJd", "JhQsKc");
  EXPECT_EQ(paired.straightEntry, kEntryGutshotWithPair);
}

TEST(Classify, AGutshotWithAPairMadeIntoAFlushIsAGutshotWithoutPair) {
  // The pair of nines is a flush by then; "w pair" asks for a one-pair hand.
  const ComboClassification c = Classify("Jh9h", "KhQh3h9s");
  EXPECT_EQ(c.code, kMadeFlush);
  EXPECT_EQ(c.madeEntry, kEntryFlush);
  EXPECT_EQ(c.straightEntry, kEntryGutshotNoPair);
  EXPECT_EQ(c.flushEntry, kEntryFlushDraw);
}

TEST(Classify, AStraightLyingOnTheBoardIsNotPlayingTheBoard) {
  const ComboClassification c = Classify("Ad2h", "5c6d7h8s9c");
  EXPECT_EQ(c.code, kMadeStraight);
  EXPECT_EQ(c.madeEntry, kEntryStraight);
}

TEST(Classify, AMadeFlushOnTheFlopAlsoStandsInTheFlushDraws) {
  const ComboClassification c = Classify("Ah2h", "9hThKh");
  EXPECT_EQ(c.madeEntry, kEntryFlush);
  EXPECT_FALSE(c.madeFlag);
  EXPECT_EQ(c.straightEntry, kEntryBackdoorStraight);
  EXPECT_FALSE(c.straightFlag);
  EXPECT_EQ(c.flushEntry, kEntryFlushDraw);
  EXPECT_TRUE(c.flushFlag);
}

TEST(Classify, PlayingTheBoardFallsBackToTheHighCardOfTheHolding) {
  EXPECT_EQ(Classify("Ac2d", "KhKs9d5c3h").madeEntry, kEntryAceHigh);    // the board's pair
  EXPECT_EQ(Classify("Ac2d", "9h9s9d5c").madeEntry, kEntryAceHigh);      // the board's three of a kind
  EXPECT_EQ(Classify("Ac2d", "9h9s9d9c5c").madeEntry, kEntryAceHigh);    // the board's four of a kind
  EXPECT_EQ(Classify("7c6d", "KhKs8d8c2h").madeEntry, kEntryOtherHigh);  // the board's two pair
  EXPECT_EQ(Classify("Qc2d", "KhKsKd8c8h").madeEntry, kEntryQueenHigh);  // the board's full house
  EXPECT_EQ(Classify("QcQd", "KhKsKd8c8h").madeEntry, kEntryFullHouse);  // a better full house
}

TEST(Classify, TheMadeHandCodeIsTheCategoryOfTheShowdownKeyUnlessTheHandPlaysTheBoard) {
  // The cook and the showdown read a hand the same way: every holding on boards of each street.
  for (const char* text : {"Tc8h3s", "9h8h7h", "KcKd7h", "Kh9h5h2h", "5s4s3d2c", "9c9d9hAc", "AhKhQhJhTh",
                           "KcKd7h7s2c", "Ac2c3c8d8s", "9h8h7h6h2c"}) {
    SCOPED_TRACE(text);
    const auto b = WindowBoard(text);
    const BoardContext context = PrepareBoard(b.cards, b.street);
    int playsTheBoard = 0;
    for (const HandCombo& h : AllHoldingsBeside(b)) {
      const int32_t category = KeyCategory(StreetShowdownKey(h, b.cards, b.street));
      const int32_t code = ClassifyCombo(context, h).code;
      if (code != category) {
        // Playing the board: the hand's whole group lies on the board, it counts as its high card.
        EXPECT_EQ(code, kMadeHighCard) << ComboToText(h);
        EXPECT_EQ(category, context.own.code) << ComboToText(h);
        ++playsTheBoard;
      }
    }
    if (context.own.code == kMadeHighCard) {
      EXPECT_EQ(playsTheBoard, 0);
    }
  }
}

TEST(Classify, AddingAHoldingPutsItsCopiesInOrderWithTheirFlags) {
  Categories categories;
  InitCategories(categories);
  const HandCombo holding = Holding("9h8h");
  const auto b = WindowBoard("7h6c2h");
  const ComboClassification c = ClassifyCombo(PrepareBoard(b.cards, b.street), holding);
  AddClassifiedCombo(categories, holding, c);
  ASSERT_EQ(categories.nodes[kEntryOtherHigh].count, 1);
  ASSERT_EQ(categories.nodes[kEntryOpenEnded].count, 1);
  ASSERT_EQ(categories.nodes[kEntryFlushDraw].count, 1);
  EXPECT_FALSE(categories.nodes[kEntryOtherHigh].combos[0].flag);
  EXPECT_FALSE(categories.nodes[kEntryOpenEnded].combos[0].flag);
  EXPECT_FALSE(categories.nodes[kEntryFlushDraw].combos[0].flag);
  EXPECT_EQ(categories.nodes[kEntryFlushDraw].combos[0].rank1, 9);
}

}  // namespace
}  // namespace quillet
