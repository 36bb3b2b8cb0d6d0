// A weighted set of two-card holdings: each of the 1,326 holdings carries a weight from 0 to 1 in steps of
// 0.001, kept as a whole number of thousandths (0 to kFullWeight) so that equality and a round trip through
// text are exact. A weight of 0 means the holding is out of the range. The range notation reads into it and
// prints from it; the cook and the equity engines are to take it as their range.
//
// Holdings are numbered as cards/holding.h numbers them.
#pragma once

#include <array>
#include <cstdint>

#include "cards/card.h"
#include "cards/holding.h"
#include "range/holding_set.h"

namespace quillet {

class WeightedHoldingSet {
 public:
  // The weight of a holding, in thousandths (0..kFullWeight).
  constexpr int Weight(int number) const { return weights_[number]; }
  int Weight(Card a, Card b) const { return Weight(HoldingNumber(a, b)); }
  // Sets a holding's weight; `thousandths` must be 0..kFullWeight.
  constexpr void SetWeight(int number, int thousandths) {
    weights_[number] = static_cast<uint16_t>(thousandths);
  }
  void SetWeight(Card a, Card b, int thousandths) { SetWeight(HoldingNumber(a, b), thousandths); }

  // The holdings with a weight above 0.
  constexpr int Count() const {
    int n = 0;
    for (uint16_t w : weights_) n += w > 0;
    return n;
  }
  constexpr bool Empty() const { return Count() == 0; }
  // The sum of the weights in thousandths: the combos the range stands for, times 1000.
  constexpr int64_t WeightSum() const {
    int64_t sum = 0;
    for (uint16_t w : weights_) sum += w;
    return sum;
  }
  // The sum of the weights: the number of combos, a whole holding counting 1.
  constexpr double Combos() const { return static_cast<double>(WeightSum()) / kFullWeight; }
  // Whether every weight is 0 or whole: the set says no more than a HoldingSet.
  constexpr bool IsUnweighted() const {
    for (uint16_t w : weights_) {
      if (w != 0 && w != kFullWeight) return false;
    }
    return true;
  }

  // The holdings with a weight above 0, whatever their weight.
  HoldingSet Holdings() const;
  // The holdings with exactly this weight (in thousandths, above 0).
  HoldingSet HoldingsOfWeight(int thousandths) const;
  // Each holding of the set at weight 1, every other at 0.
  static WeightedHoldingSet FromHoldings(const HoldingSet& holdings);

  friend constexpr bool operator==(const WeightedHoldingSet&, const WeightedHoldingSet&) = default;

 private:
  std::array<uint16_t, kHoldingCount> weights_{};
};

}  // namespace quillet
