// One entry of the category table the cook fills: a label with its level marks, an icon key, a flag, and
// the holdings classified into it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "cards/card.h"

namespace quillet {

inline constexpr int kCategoryCount = 55;

struct CategoryNode {
  std::string label;              // "*One pair" (top level), ">*T pair" (child), "*" alone (a spacer)
  std::string iconKey;            // key of the entry's icon in the tree's image list; may be empty
  bool nonEmpty = true;           // after a classification: whether the entry holds any holding
  std::vector<HandCombo> combos;  // the holdings, in the order they were added
  int32_t count = 0;              // number of holdings in `combos`
  int64_t weight = 0;             // the sum of their weights in thousandths: the combinations they make
                                  // (count x kFullWeight when every holding is whole)
};

// The table of 55 entries and the count of holdings classified in the last run (each holding once, however
// many entries it stands in), with the sum of their weights in thousandths: the total every share of the
// results is taken of.
struct Categories {
  std::vector<CategoryNode> nodes;
  int32_t categorisedCount = 0;
  int64_t categorisedWeight = 0;
};

}  // namespace quillet
