#include "equity/equity_display.h"

#include <cmath>
#include <cstdlib>

namespace quillet {

std::string FormatEquityReadOut(double value) {
  if (!std::isfinite(value)) return "0.0%";
  // The decimal the value stands for, to nine places, takes out the binary representation's error
  // before the half-away-from-zero rounding of the shown decimal.
  const long long billionths = std::llround(value * 1e9);
  const long long tenths = (std::llabs(billionths) + 50'000'000) / 100'000'000;
  std::string text = (billionths < 0 && tenths != 0) ? "-" : "";
  text += std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + "%";
  return text;
}

int32_t EquityToInteger(double value) {
  if (!std::isfinite(value)) return 0;
  const double floor = std::floor(value);
  const double fraction = value - floor;
  double rounded = floor;
  if (fraction > 0.5 || (fraction == 0.5 && std::fmod(floor, 2.0) != 0.0)) rounded = floor + 1.0;
  return static_cast<int32_t>(std::fmax(-2147483648.0, std::fmin(2147483647.0, rounded)));
}

Colour EquityColour(int32_t value) {
  if (value > 70) return kEquityAbove70;
  if (value > 60) return kEquityAbove60;
  if (value > 50) return kEquityAbove50;
  if (value > 40) return kEquityAbove40;
  if (value > 30) return kEquityAbove30;
  if (value > 20) return kEquityAbove20;
  if (value < 11) return kEquityBelow11;
  return kEquity11To20;
}

}  // namespace quillet
