// The published range-against-range equities, the ranges written in range notation.
#include <gtest/gtest.h>

#include <string>

#include "equity/range_equity.h"
#include "range/range_notation.h"
#include "tests/support/card_text.h"

namespace quillet {
namespace {

RangeEquityResult Equity(const std::string& mine, const std::string& theirs, const std::string& board) {
  const ParsedRange myRange = ParseRangeNotation(mine);
  const ParsedRange oppRange = ParseRangeNotation(theirs);
  EXPECT_TRUE(myRange.ok() && oppRange.ok());
  const Street street = board.empty() ? kNoBoard : static_cast<Street>(board.size() / 2 - 2);
  RangeEquityResult result =
      StandardRangeEquity(myRange.holdings, oppRange.holdings, testing::Board(board), street);
  EXPECT_TRUE(result.ok()) << result.error;
  return result;
}

TEST(RangeEquityAcceptance,
     QueensOrBetterAndAceKingAgainstRandomPreflopHaveSeventyFourPointSixTwoTwoFiveFiveOne) {
  const RangeEquityResult result = Equity("QQ+,AKs,AKo", "random", "");
  EXPECT_EQ(result.myHoldings, 34);
  EXPECT_EQ(result.oppHoldings, 1326);
  EXPECT_NEAR(result.MyEquity(), 74.622551, 1e-5);
}

TEST(RangeEquityAcceptance, AWideRangeAgainstATightOnePreflopHasFortySevenPointThreeZeroSevenEightTwoFour) {
  const RangeEquityResult result =
      Equity("22+,A2s+,K9s+,QTs+,JTs,ATo+,KJo+", "22+,A7s+,KTs+,QJs,AJo+,KQo", "");
  EXPECT_NEAR(result.MyEquity(), 47.307824, 1e-5);
  EXPECT_NEAR(Equity("22+,A7s+,KTs+,QJs,AJo+,KQo", "22+,A2s+,K9s+,QTs+,JTs,ATo+,KJo+", "").MyEquity(),
              100.0 - 47.307824, 1e-5);
}

TEST(RangeEquityAcceptance,
     TheWideRangeAgainstTheTightOneOnTenEightThreeRainbowHasFortySevenPointFourTwoFive) {
  const RangeEquityResult result =
      Equity("22+,A2s+,K9s+,QTs+,JTs,ATo+,KJo+", "22+,A7s+,KTs+,QJs,AJo+,KQo", "Tc8h3s");
  EXPECT_NEAR(result.MyEquity(), 47.425292, 1e-5);
}

}  // namespace
}  // namespace quillet
