#include "equity/preflop_equity.h"

#include <numeric>

#include "equity/enumeration.h"
#include "equity/matchup_key.h"

namespace quillet {
namespace {

// What each holding's value counts with in the mean: its weight divided by the greatest common divisor of
// the weights of the holdings taking part, so that equal weights (every holding whole among them) give
// each value 1 and the plain mean, to the last bit.
int64_t CommonWeightDivisor(const std::vector<HandCombo>& combos, int count) {
  int32_t divisor = 0;
  for (int i = 0; i < count; ++i) {
    if (combos[i].flag) divisor = std::gcd(divisor, CountedWeight(combos[i], true));
  }
  return divisor == 0 ? 1 : divisor;
}

}  // namespace

EquityResult PreflopEquity(const LookupTables& tables, const HandCards& hand,
                           const std::vector<HandCombo>& combos, int count, const MessageSink& message) {
  const Card my1 = hand.card1();
  const Card my2 = hand.card2();
  const int64_t divisor = CommonWeightDivisor(combos, count);
  double sum = 0.0;
  int64_t found = 0;
  for (int i = 0; i < count; ++i) {
    const HandCombo& c = combos[i];
    if (!c.flag) continue;
    const int64_t weight = CountedWeight(c, true) / divisor;
    const KeySearch direct = FindKey(tables, BuildMatchupKey(my1, my2, c.card1(), c.card2()));
    if (direct.found) {
      sum += static_cast<double>(weight) * tables.values[direct.index];
    } else {
      const KeySearch swapped = FindKey(tables, BuildMatchupKey(c.card1(), c.card2(), my1, my2));
      if (!swapped.found) {
        if (message) message(kPreflopLookupError);
        continue;
      }
      sum += static_cast<double>(weight) * (100.0 - tables.values[swapped.index]);
    }
    found += weight;
  }
  if (found == 0) return {};
  const double my = sum / static_cast<double>(found);
  return {my, 100.0 - my};
}

EquityResult PreflopEquity(const TablesOrError& loaded, const HandCards& hand,
                           const std::vector<HandCombo>& combos, int count, const MessageSink& message) {
  if (!loaded.ok()) {
    if (message) message(loaded.error);
    return {};
  }
  return PreflopEquity(*loaded.tables, hand, combos, count, message);
}

EquityResult PreflopEquity(const HandCards& hand, const std::vector<HandCombo>& combos, int count,
                           const MessageSink& message) {
  return PreflopEquity(ProgramTables(), hand, combos, count, message);
}

}  // namespace quillet
