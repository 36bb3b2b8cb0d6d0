#include "range/weighted_holding_set.h"

namespace quillet {

HoldingSet WeightedHoldingSet::Holdings() const {
  HoldingSet set;
  for (int h = 0; h < kHoldingCount; ++h) {
    if (weights_[h] > 0) set.insert(h);
  }
  return set;
}

HoldingSet WeightedHoldingSet::HoldingsOfWeight(int thousandths) const {
  HoldingSet set;
  for (int h = 0; h < kHoldingCount; ++h) {
    if (weights_[h] == thousandths) set.insert(h);
  }
  return set;
}

WeightedHoldingSet WeightedHoldingSet::FromHoldings(const HoldingSet& holdings) {
  WeightedHoldingSet set;
  for (int h = 0; h < kHoldingCount; ++h) {
    if (holdings.contains(h)) set.weights_[h] = kFullWeight;
  }
  return set;
}

}  // namespace quillet
