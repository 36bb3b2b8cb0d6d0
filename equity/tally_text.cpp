#include "equity/tally_text.h"

#include <cstdio>

namespace quillet {
namespace {

std::string Percent(double value) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%.2f%%", value);
  return buffer;
}

// 1070190 -> "1,070,190"; a count in units of which `scale` (a power of ten) make one, as a weighted
// tally keeps it, with its fraction after the point without trailing zeros: 1070190500 at scale 1000 ->
// "1,070,190.5".
std::string Grouped(uint64_t count, uint64_t scale) {
  const std::string digits = std::to_string(count / scale);
  std::string text;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) text += ',';
    text += digits[i];
  }
  uint64_t rest = count % scale;
  if (rest != 0) text += '.';
  for (uint64_t unit = scale / 10; unit > 0 && rest != 0; unit /= 10) {
    text += static_cast<char>('0' + rest / unit);
    rest %= unit;
  }
  return text;
}

}  // namespace

std::string ShowdownTallyText(const ShowdownTally& tally) {
  if (tally.Showdowns() == 0) return "No showdowns";
  const uint64_t showdowns = tally.Showdowns();
  const uint64_t scale = tally.scale == 0 ? 1 : tally.scale;
  return "Win " + Percent(tally.WinPercent()) + ", tie " + Percent(tally.TiePercent()) + ", " +
         Grouped(showdowns, scale) + (showdowns == scale ? " showdown" : " showdowns");
}

}  // namespace quillet
