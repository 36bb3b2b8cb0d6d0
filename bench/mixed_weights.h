// The weighted cases of the benchmarks, the same on every run: a full range at weights spread over 0.001 to
// 1, or a list of holdings given mixed weights (a quarter of them whole, the rest spread over 0.001 to
// 0.999).
#pragma once

#include <cstdint>
#include <vector>

#include "cards/card.h"
#include "cards/holding.h"
#include "range/weighted_holding_set.h"

namespace quillet::bench {

// Every holding at a weight from 0.001 to 1, a fifth of them whole. `salt` gives another spread of the same
// kind.
inline WeightedHoldingSet MixedWeights(int salt) {
  WeightedHoldingSet weights;
  for (int h = 0; h < kHoldingCount; ++h) {
    const int spread = (h * 7919 + salt * 104729) % kFullWeight + 1;
    weights.SetWeight(h, spread % 5 == 0 ? kFullWeight : spread);
  }
  return weights;
}

inline void GiveMixedWeights(std::vector<HandCombo>& range) {
  for (std::size_t k = 0; k < range.size(); ++k)
    range[k].weight = k % 4 == 0 ? kFullWeight : 1 + static_cast<int32_t>(k * 7919 % 999);
}

inline std::vector<HandCombo> WithMixedWeights(std::vector<HandCombo> range) {
  GiveMixedWeights(range);
  return range;
}

}  // namespace quillet::bench
