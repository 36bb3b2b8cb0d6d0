#include "range/range_text.h"

#include <cmath>

#include "cards/blank_text.h"
#include "cards/holding.h"

namespace quillet {
namespace {

constexpr int64_t kClampWhole = 1'000'000;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

int64_t StepTenThousandths(const PreflopRow& row) {
  return std::llround(row.percent * 10.0) * 1000;
}

int ClampedCount(const BlockRecord& record) {
  return record.count < 0 ? 0 : (record.count > kSuitPairSlots ? kSuitPairSlots : record.count);
}

// Whether the record holds the suit pair; for a pocket pair the reversed order is the same holding.
bool HoldsSuitPair(const BlockRecord& record, int32_t suit1, int32_t suit2) {
  const int count = ClampedCount(record);
  for (int i = 0; i < count; ++i) {
    const SuitPairEntry& e = record.combos[i];
    if (e.suit1 == suit1 && e.suit2 == suit2) return true;
    if (record.isPair() && e.suit1 == suit2 && e.suit2 == suit1) return true;
  }
  return false;
}

}  // namespace

bool IsNumberText(std::string_view text, bool integerOnly, bool stripCommas, int minLength, int maxLength) {
  std::string s(TrimSpaces(text));
  if (stripCommas) {
    std::erase(s, ',');
    if (s.empty()) return false;
  }
  bool seenPoint = false;
  for (size_t i = 0; i < s.size(); ++i) {
    const char c = s[i];
    if (c == '-') {
      if (i != 0) return false;
    } else if (c == '.') {
      if (integerOnly || seenPoint) return false;
      seenPoint = true;
    } else if (!IsDigit(c)) {
      return false;
    }
  }
  const auto length = static_cast<int64_t>(s.size());
  return length >= minLength && length <= maxLength;
}

int64_t NumberTextToTenThousandths(std::string_view text) {
  std::string_view s = TrimSpaces(text);
  bool negative = false;
  if (!s.empty() && s.front() == '-') {
    negative = true;
    s.remove_prefix(1);
  }
  int64_t whole = 0;
  bool beyond = false;  // a non-zero digit past what the thousandths hold
  size_t i = 0;
  for (; i < s.size() && IsDigit(s[i]); ++i) {
    whole = whole * 10 + (s[i] - '0');
    if (whole > kClampWhole) {
      whole = kClampWhole;
      beyond = true;
    }
  }
  int64_t thousandths = 0;
  if (i < s.size() && s[i] == '.') {
    ++i;
    for (int place = 0; place < 3; ++place) {
      thousandths *= 10;
      if (i < s.size() && IsDigit(s[i])) thousandths += s[i++] - '0';
    }
    for (; i < s.size() && IsDigit(s[i]); ++i) beyond = beyond || s[i] != '0';
  }
  const int64_t magnitude = (whole * 1000 + thousandths) * 10 + (beyond ? 5 : 0);
  return negative ? -magnitude : magnitude;
}

PreflopStep NearestPreflopStep(int64_t value, const std::vector<PreflopRow>& order) {
  const int n = static_cast<int>(order.size());
  if (n == 0) return {0, false};
  if (value >= StepTenThousandths(order[n - 1])) return {n - 1, false};
  int64_t best = 100 * 10'000;
  for (int k = 0; k < n; ++k) {
    const int64_t distance = std::llabs(StepTenThousandths(order[k]) - value);
    if (distance >= best) return {k == 0 ? 0 : k - 1, true};
    best = distance;
  }
  return {n - 1, true};
}

std::string FormatTenths(int64_t tenths) {
  std::string text = tenths < 0 ? "-" : "";
  const int64_t magnitude = std::llabs(tenths);
  text += std::to_string(magnitude / 10);
  if (magnitude % 10 != 0) {
    text += '.';
    text += static_cast<char>('0' + magnitude % 10);
  }
  return text;
}

std::string PercentText(double percent) {
  return FormatTenths(std::llround(percent * 10.0));
}

int UnionHoldingCount(const RangeLayer& onLayer, const RangeLayer& seenLayer) {
  int total = 0;
  for (size_t i = 0; i < onLayer.size(); ++i) {
    const BlockRecord& on = onLayer[i];
    const BlockRecord& seen = seenLayer[i];
    total += ClampedCount(on);
    const int seenCount = ClampedCount(seen);
    for (int j = 0; j < seenCount; ++j) {
      if (!HoldsSuitPair(on, seen.combos[j].suit1, seen.combos[j].suit2)) ++total;
    }
  }
  return total;
}

std::string ComputedRangeText(int holdings) {
  // The nearest tenth of holdings / 1326 * 100, in integers. No count lies exactly halfway between two
  // tenths: that would need 1000 x holdings to be an odd multiple of 663.
  const int64_t tenths = (int64_t{holdings} * 2000 + kHoldingCount) / (2 * kHoldingCount);
  std::string text = "~";
  text += FormatTenths(tenths);
  return text;
}

}  // namespace quillet
