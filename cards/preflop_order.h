// The fixed preflop order of the 169 classes, strongest first, with the cumulative share of all 1,326
// holdings that each row reaches.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillet {

struct PreflopRow {
  double percent = 0.0;  // cumulative percentage, one decimal, as listed (row 75 deliberately reads 48.1)
  std::string classes;   // class names joined by "," ("KK,QQ")
};

inline constexpr int kPreflopRowCount = 147;

std::vector<PreflopRow> InitPreflopOrder();
const std::vector<PreflopRow>& PreflopOrder();

// Splits a comma-joined class list ("KK,QQ") into its names.
std::vector<std::string> SplitClassList(std::string_view text);

}  // namespace quillet
