#include <gtest/gtest.h>

#include "cards/hand_class.h"
#include "categorise/cook.h"
#include "range/class_list.h"
#include "range/top_of_order.h"

namespace quillet {
namespace {

TEST(ParseClassList, ReadsPairsSuitedAndOffsuitClassesInEitherCase) {
  const ClassList list = ParseClassList(" aa, AKs,AKo ,,kq");
  ASSERT_TRUE(list.ok()) << list.error;
  EXPECT_EQ(list.classes, (std::vector<int>{FindClassByName("AA"), FindClassByName("AKs"),
                                            FindClassByName("AK"), FindClassByName("KQ")}));
}

TEST(ParseClassList, NamesTheFirstNameThatIsNoClass) {
  const ClassList list = ParseClassList("AA,AAo,KQx");
  EXPECT_FALSE(list.ok());
  EXPECT_TRUE(list.classes.empty());
  EXPECT_NE(list.error.find("\"AAo\""), std::string::npos) << list.error;
}

TEST(LayerOfClasses, HoldsEachClassWhole) {
  const RangeLayer layer = LayerOfClasses(ParseClassList("AA,AKs,AK").classes);
  EXPECT_EQ(CollectRangeCombos(layer, MakeEmptyLayer()).size(), 6u + 4u + 12u);
}

TEST(TopOfOrder, RefusesTextThatIsNoNumber) {
  EXPECT_FALSE(TopOfOrderStep("12a"));
  EXPECT_FALSE(TopOfOrderStep(""));
}

TEST(TopOfOrder, TenPercentSnapsToTheStepAtNinePointEight) {
  const auto step = TopOfOrderStep("10");
  ASSERT_TRUE(step);
  EXPECT_TRUE(step->apply);
  EXPECT_EQ(TopOfOrderText(step->entry), "9.8");
}

TEST(TopOfOrder, AppliesTheClassesOfEveryEntryUpToTheStepAndNothingElse) {
  RangeLayer on = LayerOfClasses(ParseClassList("72").classes);
  const std::vector<int> applied = ApplyTopOfOrder(on, 0);
  const std::vector<std::string> first = SplitClassList(PreflopOrder()[0].classes);
  ASSERT_EQ(applied.size(), first.size());
  for (std::size_t i = 0; i < first.size(); ++i) EXPECT_EQ(HandClasses()[applied[i]].name, first[i]);
  EXPECT_EQ(on[FindClassByName("72")].count, 0);
  EXPECT_GT(on[applied.front()].count, 0);
}

}  // namespace
}  // namespace quillet
