// Range against range for holding sets. Kept apart from range_equity.cpp, which reads holdings by the
// numbers of the matchup class table.
#include <vector>

#include "equity/range_equity.h"
#include "range/holding_set.h"

namespace quillet {
namespace {

std::vector<HandCombo> CombosOf(const HoldingSet& holdings) {
  std::vector<HandCombo> combos;
  combos.reserve(static_cast<std::size_t>(holdings.size()));
  for (int number = 0; number < kHoldingCount; ++number) {
    if (!holdings.contains(number)) continue;
    const HoldingCards cards = CardsOfHolding(number);
    combos.push_back(HandCombo{true, cards.high.rank, cards.high.suit, cards.low.rank, cards.low.suit});
  }
  return combos;
}

}  // namespace

RangeEquityResult StandardRangeEquity(const HoldingSet& myRange, const HoldingSet& oppRange,
                                      const BoardCards& board, int32_t street,
                                      const RangeEquityProgress& progress) {
  const std::vector<HandCombo> mine = CombosOf(myRange);
  const std::vector<HandCombo> theirs = CombosOf(oppRange);
  return StandardRangeEquity(mine, theirs, board, street, progress);
}

}  // namespace quillet
