#include "equity/tally_text.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(ShowdownTallyText, GivesWinAndTiePercentagesToTwoDecimalsAndTheShowdownsGroupedByThousands) {
  const ShowdownTally tally{900000, 9190, 161000};
  EXPECT_EQ(ShowdownTallyText(tally), "Win 84.10%, tie 0.86%, 1,070,190 showdowns");
  EXPECT_EQ(ShowdownTallyText(tally.Reversed()), "Win 15.04%, tie 0.86%, 1,070,190 showdowns");
}

TEST(ShowdownTallyText, CountsOneShowdownInTheSingularAndNoneAsNoShowdowns) {
  EXPECT_EQ(ShowdownTallyText({0, 1, 0}), "Win 0.00%, tie 100.00%, 1 showdown");
  EXPECT_EQ(ShowdownTallyText({3, 0, 1}), "Win 75.00%, tie 0.00%, 4 showdowns");
  EXPECT_EQ(ShowdownTallyText({}), "No showdowns");
}

TEST(ShowdownTallyText, AWeightedTallyGivesItsShowdownsAsTheWeightedSumWithTheFractionItLeaves) {
  // Thousandths of a showdown (a hand against a weighted range): 1,070,190.5 showdowns.
  const ShowdownTally tally{900000000, 9190500, 161000000, 1000};
  EXPECT_EQ(ShowdownTallyText(tally), "Win 84.10%, tie 0.86%, 1,070,190.5 showdowns");
  EXPECT_EQ(ShowdownTallyText({1, 0, 0, 1000}), "Win 100.00%, tie 0.00%, 0.001 showdowns");
  EXPECT_EQ(ShowdownTallyText({250, 750, 0, 1000}), "Win 25.00%, tie 75.00%, 1 showdown");
  EXPECT_EQ(ShowdownTallyText({1990, 0, 10, 1000}), "Win 99.50%, tie 0.00%, 2 showdowns");
  // Millionths (a weighted range against a weighted range).
  EXPECT_EQ(ShowdownTallyText({1234567, 0, 1000000, 1000000}), "Win 55.25%, tie 0.00%, 2.234567 showdowns");
}

}  // namespace
}  // namespace quillet
