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

}  // namespace
}  // namespace quillet
