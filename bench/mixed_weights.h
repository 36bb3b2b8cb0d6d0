// A full range at weights spread over 0.001 to 1, the same on every run: what the benchmarks of weighted
// ranges count. `salt` gives another spread of the same kind.
#pragma once

#include "cards/card.h"
#include "range/weighted_holding_set.h"

namespace quillet::bench {

// Every holding at a weight from 0.001 to 1, a fifth of them whole.
inline WeightedHoldingSet MixedWeights(int salt) {
  WeightedHoldingSet weights;
  for (int h = 0; h < kHoldingCount; ++h) {
    const int spread = (h * 7919 + salt * 104729) % kFullWeight + 1;
    weights.SetWeight(h, spread % 5 == 0 ? kFullWeight : spread);
  }
  return weights;
}

}  // namespace quillet::bench
