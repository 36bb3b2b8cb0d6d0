#include "equity/tally_text.h"

#include <cstdio>

namespace quillet {
namespace {

std::string Percent(double value) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%.2f%%", value);
  return buffer;
}

// 1070190 -> "1,070,190".
std::string Grouped(uint64_t count) {
  const std::string digits = std::to_string(count);
  std::string text;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) text += ',';
    text += digits[i];
  }
  return text;
}

}  // namespace

std::string ShowdownTallyText(const ShowdownTally& tally) {
  if (tally.Showdowns() == 0) return "No showdowns";
  const uint64_t showdowns = tally.Showdowns();
  return "Win " + Percent(tally.WinPercent()) + ", tie " + Percent(tally.TiePercent()) + ", " +
         Grouped(showdowns) + (showdowns == 1 ? " showdown" : " showdowns");
}

}  // namespace quillet
