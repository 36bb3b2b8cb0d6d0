#include "range/range_text.h"

#include <gtest/gtest.h>

#include "cards/hand_class.h"
#include "cards/preflop_order.h"

namespace quillet {
namespace {

// ---- IsNumberText ----

TEST(IsNumberText, AcceptsPlainAndDecimalNumbers) {
  EXPECT_TRUE(IsNumberText("10", false, false, 1, 99));
  EXPECT_TRUE(IsNumberText("16.4", false, false, 1, 99));
  EXPECT_TRUE(IsNumberText("-3.25", false, false, 1, 99));
  EXPECT_TRUE(IsNumberText(".5", false, false, 1, 99));
  EXPECT_TRUE(IsNumberText("5.", false, false, 1, 99));
}

TEST(IsNumberText, ALoneMinusOrPointPasses) {
  EXPECT_TRUE(IsNumberText("-", false, false, 1, 99));
  EXPECT_TRUE(IsNumberText(".", false, false, 1, 99));
  EXPECT_TRUE(IsNumberText("-.", false, false, 1, 99));
}

TEST(IsNumberText, RefusesLettersAndMisplacedSigns) {
  EXPECT_FALSE(IsNumberText("12a", false, false, 1, 99));
  EXPECT_FALSE(IsNumberText("1-", false, false, 1, 99));
  EXPECT_FALSE(IsNumberText("--1", false, false, 1, 99));
  EXPECT_FALSE(IsNumberText("1.2.3", false, false, 1, 99));
  EXPECT_FALSE(IsNumberText("+1", false, false, 1, 99));
  EXPECT_FALSE(IsNumberText("1e5", false, false, 1, 99));
  EXPECT_FALSE(IsNumberText("1 0", false, false, 1, 99));
  EXPECT_FALSE(IsNumberText("\xC2\xBD", false, false, 1, 99));
}

TEST(IsNumberText, IntegerOnlyRefusesAnyPoint) {
  EXPECT_TRUE(IsNumberText("15", true, false, 1, 99));
  EXPECT_FALSE(IsNumberText("1.5", true, false, 1, 99));
  EXPECT_FALSE(IsNumberText(".", true, false, 1, 99));
}

TEST(IsNumberText, CommasCountOnlyWhenStripped) {
  EXPECT_FALSE(IsNumberText("1,000", false, false, 1, 99));
  EXPECT_TRUE(IsNumberText("1,000", false, true, 1, 99));
  EXPECT_FALSE(IsNumberText(",,", false, true, 0, 99));  // nothing left after stripping
}

TEST(IsNumberText, LengthIsMeasuredAfterTrimmingSpaces) {
  EXPECT_TRUE(IsNumberText("  10  ", false, false, 1, 2));
  EXPECT_FALSE(IsNumberText("100", false, false, 1, 2));
  EXPECT_FALSE(IsNumberText("   ", false, false, 1, 99));
  EXPECT_TRUE(IsNumberText("", false, false, 0, 99));
  EXPECT_FALSE(IsNumberText("", false, false, 1, 99));
  EXPECT_FALSE(IsNumberText(std::string(100, '1'), false, false, 1, 99));
  EXPECT_TRUE(IsNumberText(std::string(99, '1'), false, false, 1, 99));
}

// ---- exact value of a typed number ----

TEST(NumberTextValue, IsExactInTenThousandths) {
  EXPECT_EQ(NumberTextToTenThousandths("10"), 100000);
  EXPECT_EQ(NumberTextToTenThousandths("1.6"), 16000);
  EXPECT_EQ(NumberTextToTenThousandths(" 16.4 "), 164000);
  EXPECT_EQ(NumberTextToTenThousandths("-100"), -1000000);
  EXPECT_EQ(NumberTextToTenThousandths("-.5"), -5000);
  EXPECT_EQ(NumberTextToTenThousandths("0.125"), 1250);
}

TEST(NumberTextValue, ALoneMinusOrPointIsZero) {
  EXPECT_EQ(NumberTextToTenThousandths("-"), 0);
  EXPECT_EQ(NumberTextToTenThousandths("."), 0);
}

TEST(NumberTextValue, DigitsBeyondTheThousandthsMoveItHalfATenThousandthOutward) {
  EXPECT_EQ(NumberTextToTenThousandths("1.60001"), 16005);
  EXPECT_EQ(NumberTextToTenThousandths("1.6000000"), 16000);
  EXPECT_EQ(NumberTextToTenThousandths("-1.60001"), -16005);
}

TEST(NumberTextValue, HugeNumbersAreClampedFarBeyondEveryStep) {
  const std::string huge(99, '9');
  EXPECT_GT(NumberTextToTenThousandths(huge), 1000 * 10000);
  EXPECT_LT(NumberTextToTenThousandths("-" + std::string(98, '9')), -1000 * 10000);
}

// ---- snapping to the preflop order ----

PreflopStep Snap(const std::string& text) {
  return NearestPreflopStep(NumberTextToTenThousandths(text), PreflopOrder());
}

TEST(NearestPreflopStep, TenSnapsToTheStepAtNinePointEight) {
  const PreflopStep step = Snap("10");
  EXPECT_EQ(step.entry, 14);  // 9.8 is 0.2 away, 10.3 is 0.3 away
  EXPECT_TRUE(step.apply);
}

TEST(NearestPreflopStep, AValueHalfwayBetweenTwoStepsTakesTheLowerOne) {
  // 1.6 is 0.2 from 1.4 (entry 1) and from 1.8 (entry 2); 2.2 is 0.4 from 1.8 and from 2.6 (entry 3).
  EXPECT_EQ(Snap("1.6").entry, 1);
  EXPECT_EQ(Snap("2.2").entry, 2);
  EXPECT_EQ(Snap("6.65").entry, 9);     // between 6.5 and 6.8
  EXPECT_EQ(Snap("99.55").entry, 145);  // between 99.1 and 100
}

TEST(NearestPreflopStep, JustPastHalfwayTakesTheUpperStep) {
  EXPECT_EQ(Snap("1.60001").entry, 2);
  EXPECT_EQ(Snap("1.59999").entry, 1);
  EXPECT_EQ(Snap("2.2000001").entry, 3);
}

TEST(NearestPreflopStep, AValueAtOrAboveTheLastStepTakesItWithoutApplying) {
  for (const char* text : {"100", "100.0", "150", "99999"}) {
    const PreflopStep step = Snap(text);
    EXPECT_EQ(step.entry, 146) << text;
    EXPECT_FALSE(step.apply) << text;
  }
}

TEST(NearestPreflopStep, AValueBelowOneHundredButNearestTheLastStepTakesAndAppliesIt) {
  const PreflopStep step = Snap("99.8");
  EXPECT_EQ(step.entry, 146);
  EXPECT_TRUE(step.apply);
}

TEST(NearestPreflopStep, AValueFarBelowTheFirstStepTakesTheFirstStep) {
  for (const char* text : {"-100", "-99.5", "-5000", "-99"}) {
    const PreflopStep step = Snap(text);
    EXPECT_EQ(step.entry, 0) << text;
    EXPECT_TRUE(step.apply) << text;
  }
  EXPECT_EQ(Snap("0").entry, 0);
  EXPECT_EQ(Snap("-").entry, 0);
}

TEST(NearestPreflopStep, EveryStepSnapsToItself) {
  const auto& order = PreflopOrder();
  for (int k = 0; k + 1 < static_cast<int>(order.size()); ++k) {
    EXPECT_EQ(Snap(PercentText(order[k].percent)).entry, k) << order[k].percent;
  }
}

TEST(NearestPreflopStep, AnEmptyOrderGivesEntryZeroWithoutApplying) {
  const PreflopStep step = NearestPreflopStep(50000, {});
  EXPECT_EQ(step.entry, 0);
  EXPECT_FALSE(step.apply);
}

// ---- text of a percentage ----

TEST(PercentText, ShowsOneDecimalOrAWholeNumber) {
  EXPECT_EQ(PercentText(16.4), "16.4");
  EXPECT_EQ(PercentText(9.8), "9.8");
  EXPECT_EQ(PercentText(0.5), "0.5");
  EXPECT_EQ(PercentText(100.0), "100");
  EXPECT_EQ(PercentText(3.0), "3");
  EXPECT_EQ(PercentText(48.1), "48.1");
  EXPECT_EQ(FormatTenths(0), "0");
  EXPECT_EQ(FormatTenths(-15), "-1.5");
}

// ---- union of the two layers ----

class UnionCount : public ::testing::Test {
 protected:
  RangeLayer on = MakeEmptyLayer();
  RangeLayer seen = MakeEmptyLayer();
  const int aa = FindClassByName("AA");
  const int aks = FindClassByName("AKs");
  const int ak = FindClassByName("AK");
};

TEST_F(UnionCount, EmptyLayersHoldNothing) {
  EXPECT_EQ(UnionHoldingCount(on, seen), 0);
}

TEST_F(UnionCount, ABlockWholeInBothLayersCountsOnce) {
  SetBlockWhole(on[aa], false);
  SetBlockWhole(seen[aa], false);
  EXPECT_EQ(UnionHoldingCount(on, seen), 6);
}

TEST_F(UnionCount, DifferentBlocksInTheTwoLayersAddUp) {
  SetBlockWhole(on[aks], true);
  SetBlockWhole(seen[ak], false);
  EXPECT_EQ(UnionHoldingCount(on, seen), 16);
}

TEST_F(UnionCount, APocketPairsReversedSuitsAreTheSameHolding) {
  on[aa].count = 1;
  on[aa].combos[0] = {kFalse16, 0, 1};
  seen[aa].count = 2;
  seen[aa].combos[0] = {kFalse16, 1, 0};  // the same two aces
  seen[aa].combos[1] = {kFalse16, 2, 3};
  EXPECT_EQ(UnionHoldingCount(on, seen), 2);
}

TEST_F(UnionCount, ForOtherClassesTheOrderOfTheSuitsMatters) {
  on[ak].count = 1;
  on[ak].combos[0] = {kFalse16, 0, 1};  // ace of clubs, king of diamonds
  seen[ak].count = 1;
  seen[ak].combos[0] = {kFalse16, 1, 0};  // ace of diamonds, king of clubs
  EXPECT_EQ(UnionHoldingCount(on, seen), 2);
}

TEST_F(UnionCount, PartOfABlockInTheSeenLayerAddsOnlyWhatTheOnLayerLacks) {
  SetBlockSuitPair(on[aks], 0, 0, true, false);
  SetBlockWhole(seen[aks], true);
  EXPECT_EQ(UnionHoldingCount(on, seen), 4);
}

TEST(ComputedRangeText, IsATildeAndTheShareRoundedToOneDecimal) {
  EXPECT_EQ(ComputedRangeText(6), "~0.5");     // 0.452
  EXPECT_EQ(ComputedRangeText(4), "~0.3");     // 0.302
  EXPECT_EQ(ComputedRangeText(12), "~0.9");    // 0.905
  EXPECT_EQ(ComputedRangeText(166), "~12.5");  // 12.519
  EXPECT_EQ(ComputedRangeText(5), "~0.4");     // 0.377
  EXPECT_EQ(ComputedRangeText(0), "~0");
  EXPECT_EQ(ComputedRangeText(1326), "~100");
  EXPECT_EQ(ComputedRangeText(663), "~50");
}

}  // namespace
}  // namespace quillet
