// Range against range for holding sets: each set becomes its list of holdings with their weights (a plain
// set's all whole), which the list form reads.
#include <vector>

#include "equity/range_equity.h"
#include "range/holding_set.h"
#include "range/weighted_holding_set.h"

namespace quillet {
namespace {

// The holdings of weight above 0, in holding-number order, flags set; `weightOf(number)` in thousandths.
template <class WeightOf>
std::vector<HandCombo> HoldingList(int count, WeightOf weightOf) {
  std::vector<HandCombo> combos;
  combos.reserve(static_cast<std::size_t>(count));
  for (int number = 0; number < kHoldingCount; ++number) {
    const int weight = weightOf(number);
    if (weight <= 0) continue;
    const auto cards = CardsOfHolding(number);
    combos.push_back(HandCombo{true, cards[0].rank, cards[0].suit, cards[1].rank, cards[1].suit, weight});
  }
  return combos;
}

}  // namespace

std::vector<HandCombo> WeightedCombos(const WeightedHoldingSet& weights) {
  return HoldingList(weights.Count(), [&](int number) { return weights.Weight(number); });
}

RangeEquityResult StandardRangeEquity(const HoldingSet& myRange, const HoldingSet& oppRange,
                                      const BoardCards& board, Street street,
                                      const RangeEquityProgress& progress) {
  const auto whole = [](const HoldingSet& set) {
    return HoldingList(set.size(), [&](int number) { return set.contains(number) ? kFullWeight : 0; });
  };
  return StandardRangeEquity(whole(myRange), whole(oppRange), board, street, progress);
}

RangeEquityResult StandardRangeEquity(const WeightedHoldingSet& myRange, const WeightedHoldingSet& oppRange,
                                      const BoardCards& board, Street street,
                                      const RangeEquityProgress& progress) {
  const std::vector<HandCombo> mine = WeightedCombos(myRange);
  const std::vector<HandCombo> theirs = WeightedCombos(oppRange);
  return StandardRangeEquity(mine, theirs, board, street, progress);
}

}  // namespace quillet
