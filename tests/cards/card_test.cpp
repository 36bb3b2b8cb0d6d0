#include "cards/card.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(RankFromChar, ReadsUpperCaseRankCharacters) {
  EXPECT_EQ(RankFromChar("2"), 2);
  EXPECT_EQ(RankFromChar("9"), 9);
  EXPECT_EQ(RankFromChar("T"), 10);
  EXPECT_EQ(RankFromChar("J"), 11);
  EXPECT_EQ(RankFromChar("Q"), 12);
  EXPECT_EQ(RankFromChar("K"), 13);
  EXPECT_EQ(RankFromChar("A"), 14);
}

TEST(RankFromChar, IsCaseSensitiveAndKnowsNoRankOne) {
  EXPECT_EQ(RankFromChar("t"), -1);
  EXPECT_EQ(RankFromChar("a"), -1);
  EXPECT_EQ(RankFromChar("1"), -1);
  EXPECT_EQ(RankFromChar("_"), -1);
  EXPECT_EQ(RankFromChar("x"), -1);
  EXPECT_EQ(RankFromChar(""), -1);
}

TEST(SuitFromChar, ReadsLowerCaseSuitCharactersOnly) {
  EXPECT_EQ(SuitFromChar("c"), 0);
  EXPECT_EQ(SuitFromChar("d"), 1);
  EXPECT_EQ(SuitFromChar("h"), 2);
  EXPECT_EQ(SuitFromChar("s"), 3);
  EXPECT_EQ(SuitFromChar("H"), -1);
  EXPECT_EQ(SuitFromChar("x"), -1);
  EXPECT_EQ(SuitFromChar(""), -1);
}

TEST(CardToText, WritesRankThenSuit) {
  EXPECT_EQ(CardToText({14, 2}), "Ah");
  EXPECT_EQ(CardToText({10, 1}), "Td");
  EXPECT_EQ(CardToText({2, 0}), "2c");
  EXPECT_EQ(ComboToText(HandCombo{true, 14, 0, 13, 1}), "AcKd");
}

TEST(ComboKind, PairBeforeSuitedBeforeOffsuit) {
  EXPECT_EQ(ComboKind(HandCombo{true, 14, 0, 14, 1}), kKindPair);
  EXPECT_EQ(ComboKind(HandCombo{true, 14, 0, 13, 0}), kKindSuited);
  EXPECT_EQ(ComboKind(HandCombo{true, 14, 0, 13, 1}), kKindOffsuit);
  EXPECT_EQ(kKindPair, 22);
  EXPECT_EQ(kKindSuited, 11);
  EXPECT_EQ(kKindOffsuit, 12);
}

TEST(ComboSortKey, FollowsTheRankSumThenSuitedFirst) {
  EXPECT_EQ(ComboSortKey(HandCombo{true, 14, 0, 14, 1}), 4);   // AA: 284 - 280
  EXPECT_EQ(ComboSortKey(HandCombo{true, 14, 0, 13, 0}), 10);  // AKs clubs: 0 + 10 x 1
  EXPECT_EQ(ComboSortKey(HandCombo{true, 14, 3, 13, 3}), 13);  // AKs spades
  EXPECT_EQ(ComboSortKey(HandCombo{true, 14, 0, 13, 1}), 14);  // AKo
}

TEST(SortCombos, PutsAaBeforeSuitedAkBeforeOffsuitAk) {
  std::vector<HandCombo> list = {
      HandCombo{true, 14, 0, 13, 0},   // AKs clubs
      HandCombo{true, 14, 0, 13, 1},   // AKo
      HandCombo{false, 14, 0, 14, 1},  // AA, its flag moves with it
  };
  SortCombos(list);
  EXPECT_EQ(ComboToText(list[0]), "AcAd");
  EXPECT_FALSE(list[0].flag);
  EXPECT_EQ(ComboToText(list[1]), "AcKc");
  EXPECT_EQ(ComboToText(list[2]), "AcKd");
}

TEST(SortCombos, KeepsTheOrderOfEqualKeys) {
  std::vector<HandCombo> list = {
      HandCombo{true, 13, 1, 12, 0},  // KdQc, key 284 - 250 = 34
      HandCombo{true, 12, 2, 13, 3},  // QhKs, key 34
      HandCombo{true, 14, 3, 11, 2},  // AsJh, key 34
      HandCombo{true, 14, 2, 14, 3},  // AA, key 4
  };
  SortCombos(list);
  EXPECT_EQ(ComboToText(list[0]), "AhAs");
  EXPECT_EQ(ComboToText(list[1]), "KdQc");
  EXPECT_EQ(ComboToText(list[2]), "QhKs");
  EXPECT_EQ(ComboToText(list[3]), "AsJh");
}

TEST(SortCombos, SortsOnlyTheFirstCountEntries) {
  std::vector<HandCombo> list = {
      HandCombo{true, 2, 0, 3, 1}, HandCombo{true, 14, 0, 14, 1},
      HandCombo{true, 14, 2, 14, 3},  // outside the count: stays last although its key is low
  };
  list.insert(list.begin() + 2, HandCombo{true, 5, 0, 4, 1});
  SortCombos(list, 3);
  EXPECT_EQ(ComboToText(list[0]), "AcAd");
  EXPECT_EQ(ComboToText(list[1]), "5c4d");
  EXPECT_EQ(ComboToText(list[2]), "2c3d");
  EXPECT_EQ(ComboToText(list[3]), "AhAs");
}

}  // namespace
}  // namespace quillet
