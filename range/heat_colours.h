// The heat map's diverging scale: a block of the range coloured by my equity against it, red where I am
// far behind, pale yellow near 50 %, green where I am far ahead.
#pragma once

#include <algorithm>
#include <cmath>

#include "range/colour.h"

namespace quillet {

inline constexpr Colour kHeatBehindColour = Rgb(215, 48, 39);  // 0 %
inline constexpr Colour kHeatEvenColour = Rgb(255, 255, 153);  // 50 %
inline constexpr Colour kHeatAheadColour = Rgb(26, 152, 80);   // 100 %

// The colour of my equity in percent (clamped to 0..100): straight from the behind colour to the even
// colour up to 50 %, from there to the ahead colour; each channel rounded to the nearest step.
inline Colour HeatMapColour(double equity) {
  const double e = std::clamp(equity, 0.0, 100.0);
  const bool ahead = e >= 50.0;
  const Colour from = ahead ? kHeatEvenColour : kHeatBehindColour;
  const Colour to = ahead ? kHeatAheadColour : kHeatEvenColour;
  const double t = ahead ? (e - 50.0) / 50.0 : e / 50.0;
  const auto mix = [t](uint32_t a, uint32_t b) {
    return static_cast<uint32_t>(std::lround(a + (static_cast<double>(b) - a) * t));
  };
  return Rgb(mix(RedOf(from), RedOf(to)), mix(GreenOf(from), GreenOf(to)), mix(BlueOf(from), BlueOf(to)));
}

}  // namespace quillet
