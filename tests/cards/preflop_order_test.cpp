#include "cards/preflop_order.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "cards/hand_class.h"

namespace quillet {
namespace {

int ClassSize(const std::string& name) {
  if (name.size() == 3) return 4;
  return name[0] == name[1] ? 6 : 12;
}

TEST(PreflopOrder, Has147RowsFromAaToThirtyTwoOffsuit) {
  const auto& order = PreflopOrder();
  ASSERT_EQ(order.size(), 147u);
  EXPECT_EQ(order[0].classes, "AA");
  EXPECT_DOUBLE_EQ(order[0].percent, 0.5);
  EXPECT_EQ(order[1].classes, "KK,QQ");
  EXPECT_EQ(order[146].classes, "32");
  EXPECT_DOUBLE_EQ(order[146].percent, 100.0);
}

TEST(PreflopOrder, EveryClassOccursInExactlyOneRow) {
  std::map<std::string, int> seen;
  for (const auto& row : PreflopOrder()) {
    for (const auto& name : SplitClassList(row.classes)) ++seen[name];
  }
  EXPECT_EQ(seen.size(), 169u);
  for (const auto& c : HandClasses()) EXPECT_EQ(seen[c.name], 1) << c.name;
}

TEST(PreflopOrder, EveryRowButRow75CarriesItsCumulativeShareRoundedToOneDecimal) {
  const auto& order = PreflopOrder();
  int cumulative = 0;
  for (std::size_t k = 0; k < order.size(); ++k) {
    for (const auto& name : SplitClassList(order[k].classes)) cumulative += ClassSize(name);
    // Tenths of a percent, rounded half up, in integers: (cumulative x 1000 / 1326) + 0.5.
    const int tenths = (cumulative * 2000 + 1326) / (2 * 1326);
    const int stored = static_cast<int>(std::lround(order[k].percent * 10));
    if (k == 75) {
      EXPECT_EQ(order[k].classes, "33,J4s");
      EXPECT_EQ(stored, 481);  // kept as listed
      EXPECT_EQ(tenths, 486);
    } else {
      EXPECT_EQ(stored, tenths) << "row " << k << " " << order[k].classes;
    }
  }
  EXPECT_EQ(cumulative, 1326);
}

TEST(PreflopOrder, PercentagesNeverFall) {
  const auto& order = PreflopOrder();
  for (std::size_t k = 1; k < order.size(); ++k) EXPECT_GE(order[k].percent, order[k - 1].percent) << k;
}

TEST(PreflopOrder, RowValuesAreUsedAsStoredAround48Percent) {
  // A slider at 48.3 percent meets row 75 at its stored 48.1, not the 48.6 its classes would make.
  const auto& order = PreflopOrder();
  EXPECT_DOUBLE_EQ(order[74].percent, 47.8);
  EXPECT_DOUBLE_EQ(order[75].percent, 48.1);
  EXPECT_DOUBLE_EQ(order[76].percent, 48.9);
  EXPECT_LT(std::abs(order[75].percent - 48.3), std::abs(order[76].percent - 48.3));
}

}  // namespace
}  // namespace quillet
