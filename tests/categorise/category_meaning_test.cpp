#include "categorise/category_meaning.h"

#include <gtest/gtest.h>

#include "categorise/categories.h"

namespace quillet {
namespace {

TEST(CategoryMeaning, EveryEntryWithTextHasAMeaningAndNoSpacerHasOne) {
  const auto& table = CategoryDefinitions();
  for (int32_t i = 0; i < kCategoryCount; ++i) {
    const bool spacer = IsSpacerCategory(table[static_cast<std::size_t>(i)].label);
    EXPECT_EQ(CategoryMeaning(i).empty(), spacer) << "entry " << i;
    EXPECT_EQ(CategoryToolTip(i).empty(), spacer) << "entry " << i;
  }
}

TEST(CategoryMeaning, TheTwoTildeEntriesOfEachKindSayBetweenWhichRanksTheyLie) {
  EXPECT_EQ(CategoryMeaning(9), "A pair ranking between the highest and the middle board ranks");
  EXPECT_EQ(CategoryMeaning(11), "A pair ranking between the middle and the lowest board ranks");
  EXPECT_EQ(CategoryMeaning(39), "A set of a board rank between the highest and the middle ones");
  EXPECT_EQ(CategoryMeaning(41), "A set of a board rank between the middle and the lowest ones");
}

TEST(CategoryMeaning, AnOverpairIsAPocketPairAboveEveryBoardCard) {
  EXPECT_EQ(CategoryToolTip(7), "Overpair: a pocket pair above every board card.");
}

TEST(CategoryMeaning, OnlyTheDrawEntriesSayTheirPercentageCanPassAHundred) {
  for (int32_t i = 0; i < kCategoryCount; ++i) {
    const bool notes = CategoryToolTip(i).find("can pass 100%") != std::string::npos;
    EXPECT_EQ(notes, IsDrawCategory(i)) << "entry " << i;
  }
  for (const int32_t draw : {25, 26, 27, 29, 30, 31, 32, 33}) EXPECT_TRUE(IsDrawCategory(draw)) << draw;
  EXPECT_FALSE(IsDrawCategory(28));  // the spacer between the two draw groups
}

TEST(CategoryMeaning, EntriesOutsideTheTableHaveNoMeaning) {
  EXPECT_EQ(CategoryMeaning(-1), "");
  EXPECT_EQ(CategoryMeaning(kCategoryCount), "");
  EXPECT_EQ(CategoryToolTip(kCategoryCount), "");
}

}  // namespace
}  // namespace quillet
