// The fixed preflop order of the 169 classes, strongest first, with the cumulative share of all 1,326
// holdings that each row reaches, and for every row the ready-made list of all holdings up to it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cards/card.h"

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

// For each row k, every holding of the classes of rows 0..k, in row order and within a row in the order
// of the names; each class expanded by ExpandClassName.
std::vector<std::vector<HandCombo>> BuildPreflopRangeLists(const std::vector<PreflopRow>& order);
const std::vector<std::vector<HandCombo>>& PreflopRangeLists();

}  // namespace quillet
