#include "categorise/categories.h"

#include <gtest/gtest.h>

#include <set>

namespace quillet {
namespace {

struct Expected {
  int index;
  const char* label;
  const char* key;
};

// The table as the tree shows it, entry by entry.
constexpr Expected kTable[] = {
    {0, "*High cards", "highcard"},
    {1, ">*A high", ""},
    {2, ">*K high", ""},
    {3, ">*Q high", ""},
    {4, ">*etc high", ""},
    {5, "*", ""},
    {6, "*One pair", "pairm"},
    {7, ">*O pair", "pairo"},
    {8, ">*T pair", "pairt"},
    {9, ">*~ pair", "pairt-m"},
    {10, ">*M pair", "pairm"},
    {11, ">*~ pair", "pairm-b"},
    {12, ">*B pair", "pairb"},
    {13, ">*L pair", "pairl"},
    {14, "*", ""},
    {15, "*Two pair", "2pt-m"},
    {16, ">*TM own 2pair", "own2pt-m"},
    {17, ">*TB own 2pair", "own2pt-b"},
    {18, ">*MB own 2pair", "own2pm-b"},
    {19, ">*OT 2pair (>TC)", "2po-t"},
    {20, ">*OT 2pair (=TC)", "2po-teqt"},
    {21, ">*OT 2pair", "2po-tnormal"},
    {22, ">*TM 2pair", "2pt-m"},
    {23, ">*TB 2pair", "2pt-b"},
    {24, "*", ""},
    {25, "*8 out or better draw", "draw8"},
    {26, ">*Open ended straight draws", "drawoes"},
    {27, ">*Flush draws", "drawflush"},
    {28, "*", ""},
    {29, "*Gutshot and backdoor draws", "draw"},
    {30, ">*Gutshot Straight draw w pair", "drawgsswp"},
    {31, ">*Gutshot Straight draw no pair", "drawgss"},
    {32, ">*Backdoor Flush draw", "drawbdf"},
    {33, ">*Backdoor Straight draw", "drawbds"},
    {34, "*", ""},
    {35, "*Trips", "trips"},
    {36, "*", ""},
    {37, "*Sets", "setm"},
    {38, ">*T set", "sett"},
    {39, ">*~ set", "sett-m"},
    {40, ">*M set", "setm"},
    {41, ">*~ set", "setm-b"},
    {42, ">*B set", "setb"},
    {43, "*", ""},
    {44, "*Straight", "straight"},
    {45, "*", ""},
    {46, "*Flush", "flush"},
    {47, "*", ""},
    {48, "*Full House", "fullhouse"},
    {49, "*", ""},
    {50, "*Quad", "quad"},
    {51, "*", ""},
    {52, "*Straight Flush", "straightflush"},
    {53, "*", ""},
    {54, "*Royal Flush", "royalflush"},
};

TEST(Categories, TheTableHasFiftyFiveEntriesWithTheirLabelsAndKeysInOrder) {
  Categories categories;
  InitCategories(categories);
  ASSERT_EQ(categories.nodes.size(), 55u);
  for (const Expected& e : kTable) {
    EXPECT_EQ(categories.nodes[e.index].label, e.label) << e.index;
    EXPECT_EQ(categories.nodes[e.index].iconKey, e.key) << e.index;
  }
}

TEST(Categories, TwelveEntriesAreSpacersAndTheTableEndsWithRoyalFlushWithoutOne) {
  Categories categories;
  InitCategories(categories);
  const std::set<int> spacers = {5, 14, 24, 28, 34, 36, 43, 45, 47, 49, 51, 53};
  for (int i = 0; i < kCategoryCount; ++i) {
    EXPECT_EQ(IsSpacerCategory(categories.nodes[i].label), spacers.count(i) == 1) << i;
    if (spacers.count(i)) {
      EXPECT_TRUE(categories.nodes[i].iconKey.empty()) << i;
    }
  }
  EXPECT_EQ(categories.nodes.back().label, "*Royal Flush");
  EXPECT_FALSE(IsSpacerCategory(categories.nodes[54].label));
}

TEST(Categories, TheHighCardChildrenHaveNoKeysWhileTheirGroupHasOne) {
  Categories categories;
  InitCategories(categories);
  EXPECT_EQ(categories.nodes[0].iconKey, "highcard");
  for (int i = 1; i <= 4; ++i) {
    EXPECT_TRUE(categories.nodes[i].iconKey.empty()) << i;
    EXPECT_TRUE(IsChildCategory(categories.nodes[i].label)) << i;
  }
}

TEST(Categories, IconKeysRepeatWhereTwoEntriesShareAnIcon) {
  Categories categories;
  InitCategories(categories);
  EXPECT_EQ(categories.nodes[6].iconKey, categories.nodes[10].iconKey);   // "One pair" and "M pair"
  EXPECT_EQ(categories.nodes[15].iconKey, categories.nodes[22].iconKey);  // "Two pair" and "TM 2pair"
}

TEST(Categories, InitialisingSetsTheFlagAndLeavesEveryEntryEmpty) {
  Categories categories;
  categories.categorisedCount = 17;
  InitCategories(categories);
  for (const CategoryNode& node : categories.nodes) {
    EXPECT_TRUE(node.nonEmpty);
    EXPECT_EQ(node.count, 0);
    EXPECT_TRUE(node.combos.empty());
  }
  EXPECT_EQ(categories.categorisedCount, 0);
}

TEST(Categories, AddingAHoldingAppendsACopyAndRaisesOnlyThatEntrysCount) {
  Categories categories;
  InitCategories(categories);
  const HandCombo first{true, 14, 2, 13, 1};
  HandCombo second{false, 9, 0, 8, 0};
  AddToCategory(categories, 27, first);
  AddToCategory(categories, 27, second);
  second.rank1 = 2;  // the entry holds its own copy
  ASSERT_EQ(categories.nodes[27].count, 2);
  ASSERT_EQ(categories.nodes[27].combos.size(), 2u);
  EXPECT_EQ(categories.nodes[27].combos[0], first);
  EXPECT_EQ(categories.nodes[27].combos[1], (HandCombo{false, 9, 0, 8, 0}));
  for (int i = 0; i < kCategoryCount; ++i) {
    if (i != 27) {
      EXPECT_EQ(categories.nodes[i].count, 0) << i;
    }
  }
  EXPECT_EQ(categories.categorisedCount, 0);  // counted once per holding by the classification
}

TEST(Categories, TheShownTextIsWhatFollowsTheLevelMarks) {
  EXPECT_EQ(CategoryText("*High cards"), "High cards");
  EXPECT_EQ(CategoryText(">*T pair"), "T pair");
  EXPECT_EQ(CategoryText("*"), "");
  EXPECT_TRUE(IsChildCategory(">*T pair"));
  EXPECT_FALSE(IsChildCategory("*One pair"));
  EXPECT_FALSE(IsSpacerCategory("*One pair"));
}

}  // namespace
}  // namespace quillet
