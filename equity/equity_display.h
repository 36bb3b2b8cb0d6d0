// How the equity read-outs show a result: the text "57.3%" and the background colour of My Equity.
#pragma once

#include <cstdint>
#include <string>

#include "range/colour.h"

namespace quillet {

// The read-out text: the value to one decimal ("0.0" format) followed by "%". The shown decimal is
// rounded half away from zero as the value reads in decimal, so 57.25 shows "57.3%" and 57.15 shows
// "57.2%" although the nearest double to 57.15 lies just below it; -1 shows "-1.0%".
std::string FormatEquityReadOut(double value);

// The value as a 32-bit integer, rounded half to even (60.5 gives 60, 61.5 gives 62).
int32_t EquityToInteger(double value);

// The background of My Equity for an integer value; the first band that matches wins, so 11..20 gets a
// lighter red than the band below it, on purpose.
Colour EquityColour(int32_t value);

inline constexpr Colour kEquityAbove70 = Rgb(0, 255, 0);
inline constexpr Colour kEquityAbove60 = Rgb(163, 217, 62);
inline constexpr Colour kEquityAbove50 = Rgb(255, 255, 0);
inline constexpr Colour kEquityAbove40 = Rgb(234, 196, 45);
inline constexpr Colour kEquityAbove30 = Rgb(255, 128, 0);
inline constexpr Colour kEquityAbove20 = Rgb(236, 91, 43);
inline constexpr Colour kEquityBelow11 = Rgb(255, 0, 0);
inline constexpr Colour kEquity11To20 = Rgb(255, 128, 128);

}  // namespace quillet
