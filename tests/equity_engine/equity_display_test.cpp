#include "equity/equity_display.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(EquityReadOut, ShowsOneDecimalAndAPercentSign) {
  EXPECT_EQ(FormatEquityReadOut(95.45), "95.5%");
  EXPECT_EQ(FormatEquityReadOut(4.55), "4.6%");
  EXPECT_EQ(FormatEquityReadOut(100.0), "100.0%");
  EXPECT_EQ(FormatEquityReadOut(0.0), "0.0%");
  EXPECT_EQ(FormatEquityReadOut(50.0), "50.0%");
  EXPECT_EQ(FormatEquityReadOut(33.33), "33.3%");
}

TEST(EquityReadOut, RoundsTheShownDecimalHalfAwayFromZero) {
  EXPECT_EQ(FormatEquityReadOut(57.25), "57.3%");
  EXPECT_EQ(FormatEquityReadOut(57.15), "57.2%");  // the double lies just below 57.15
  EXPECT_EQ(FormatEquityReadOut(0.05), "0.1%");
  EXPECT_EQ(FormatEquityReadOut(57.2499), "57.2%");
  EXPECT_EQ(FormatEquityReadOut(82.17647), "82.2%");
}

TEST(EquityReadOut, ShowsMinusOneAsMinusOnePointZero) {
  EXPECT_EQ(FormatEquityReadOut(-1.0), "-1.0%");
}

TEST(EquityToInteger, RoundsHalfToEven) {
  EXPECT_EQ(EquityToInteger(60.5), 60);
  EXPECT_EQ(EquityToInteger(61.5), 62);
  EXPECT_EQ(EquityToInteger(70.5), 70);
  EXPECT_EQ(EquityToInteger(10.5), 10);
  EXPECT_EQ(EquityToInteger(60.51), 61);
  EXPECT_EQ(EquityToInteger(60.49), 60);
  EXPECT_EQ(EquityToInteger(-1.0), -1);
  EXPECT_EQ(EquityToInteger(-0.5), 0);
  EXPECT_EQ(EquityToInteger(-1.5), -2);
}

TEST(EquityColour, GoesThroughTheBandsInTheirOrder) {
  EXPECT_EQ(EquityColour(100), Rgb(0, 255, 0));
  EXPECT_EQ(EquityColour(71), Rgb(0, 255, 0));
  EXPECT_EQ(EquityColour(61), Rgb(163, 217, 62));
  EXPECT_EQ(EquityColour(60), Rgb(255, 255, 0));
  EXPECT_EQ(EquityColour(51), Rgb(255, 255, 0));
  EXPECT_EQ(EquityColour(50), Rgb(234, 196, 45));
  EXPECT_EQ(EquityColour(41), Rgb(234, 196, 45));
  EXPECT_EQ(EquityColour(40), Rgb(255, 128, 0));
  EXPECT_EQ(EquityColour(31), Rgb(255, 128, 0));
  EXPECT_EQ(EquityColour(30), Rgb(236, 91, 43));
  EXPECT_EQ(EquityColour(21), Rgb(236, 91, 43));
  EXPECT_EQ(EquityColour(11), Rgb(255, 128, 128));
  EXPECT_EQ(EquityColour(0), Rgb(255, 0, 0));
  EXPECT_EQ(EquityColour(-1), Rgb(255, 0, 0));
}

TEST(EquityColour, ExactlySeventyIsTheBandBelowSeventy) {
  EXPECT_EQ(EquityColour(70), Rgb(163, 217, 62));
}

TEST(EquityColour, ExactlyTwentyIsTheLightRedOfElevenToTwenty) {
  EXPECT_EQ(EquityColour(20), Rgb(255, 128, 128));
}

TEST(EquityColour, ExactlyTenIsRed) {
  EXPECT_EQ(EquityColour(10), Rgb(255, 0, 0));
}

}  // namespace
}  // namespace quillet
