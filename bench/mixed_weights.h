// The weighted cases of the benchmarks: a range's holdings at mixed weights, a quarter of them whole and
// the rest spread over 0.001 to 0.999, the same every run.
#pragma once

#include <cstdint>
#include <vector>

#include "cards/card.h"

namespace quillet::bench {

inline void GiveMixedWeights(std::vector<HandCombo>& range) {
  for (std::size_t k = 0; k < range.size(); ++k)
    range[k].weight = k % 4 == 0 ? kFullWeight : 1 + static_cast<int32_t>(k * 7919 % 999);
}

inline std::vector<HandCombo> WithMixedWeights(std::vector<HandCombo> range) {
  GiveMixedWeights(range);
  return range;
}

}  // namespace quillet::bench
