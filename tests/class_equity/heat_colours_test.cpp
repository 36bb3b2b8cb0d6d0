// The heat map's colour scale and the text colour on it (range/heat_colours.h).
#include "range/heat_colours.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(HeatColours, TheEndsAndTheMiddleAreRedYellowAndGreen) {
  EXPECT_EQ(HeatMapColour(0.0), Rgb(215, 48, 39));
  EXPECT_EQ(HeatMapColour(50.0), Rgb(255, 255, 153));
  EXPECT_EQ(HeatMapColour(100.0), Rgb(26, 152, 80));
  // Out of range values take the nearest end.
  EXPECT_EQ(HeatMapColour(-1.0), HeatMapColour(0.0));
  EXPECT_EQ(HeatMapColour(101.0), HeatMapColour(100.0));
}

TEST(HeatColours, BetweenThemEachChannelGoesStraight) {
  // A quarter of the way: halfway from red to yellow.
  EXPECT_EQ(HeatMapColour(25.0), Rgb(235, 152, 96));
  // Three quarters: halfway from yellow to green.
  EXPECT_EQ(HeatMapColour(75.0), Rgb(141, 204, 117));
}

TEST(HeatColours, FarBehindIsRedderAndFarAheadGreenerThanEven) {
  for (double e = 0.0; e < 50.0; e += 5.0) {
    EXPECT_GE(RedOf(HeatMapColour(e)), GreenOf(HeatMapColour(e))) << e;
    EXPECT_LE(GreenOf(HeatMapColour(e)), GreenOf(HeatMapColour(e + 5.0))) << e;
  }
  for (double e = 55.0; e <= 100.0; e += 5.0)
    EXPECT_GT(GreenOf(HeatMapColour(e)), RedOf(HeatMapColour(e))) << e;
}

}  // namespace
}  // namespace quillet
