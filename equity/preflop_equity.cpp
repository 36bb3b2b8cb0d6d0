#include "equity/preflop_equity.h"

#include "equity/matchup_key.h"

namespace quillet {

namespace {

// The mean of the tables' values for the holdings. With kAnyPartial (a weight below whole in the list) the
// plain sum and the weighted one are kept side by side: while every weight found is the same the mean is
// the plain one (to the last bit), else the weighted one.
template <bool kAnyPartial>
EquityResult MeanOfTableValues(const LookupTables& tables, const HandCards& hand,
                               const std::vector<HandCombo>& combos, int count, const MessageSink& message) {
  const Card my1 = hand.card1();
  const Card my2 = hand.card2();
  double sum = 0.0;
  int found = 0;
  double weightedSum = 0.0;
  int64_t weights = 0;
  int32_t firstWeight = -1;
  bool equalWeights = true;
  for (int i = 0; i < count; ++i) {
    const HandCombo& c = combos[i];
    if (!c.flag) continue;
    double value = 0.0;
    const KeySearch direct = FindKey(tables, BuildMatchupKey(my1, my2, c.card1(), c.card2()));
    if (direct.found) {
      value = tables.values[direct.index];
    } else {
      const KeySearch swapped = FindKey(tables, BuildMatchupKey(c.card1(), c.card2(), my1, my2));
      if (!swapped.found) {
        if (message) message(kPreflopLookupError);
        continue;
      }
      value = 100.0 - tables.values[swapped.index];
    }
    sum += value;
    ++found;
    if constexpr (kAnyPartial) {
      if (firstWeight < 0) firstWeight = c.weight;
      equalWeights = equalWeights && c.weight == firstWeight;
      weightedSum += c.weight * value;
      weights += c.weight;
    }
  }
  if (found == 0 || (kAnyPartial && weights == 0)) return {};
  const double my = !kAnyPartial || equalWeights ? sum / found : weightedSum / static_cast<double>(weights);
  return {my, 100.0 - my};
}

}  // namespace

EquityResult PreflopEquity(const LookupTables& tables, const HandCards& hand,
                           const std::vector<HandCombo>& combos, int count, const MessageSink& message) {
  for (int i = 0; i < count; ++i) {
    if (combos[i].weight != kFullWeight) return MeanOfTableValues<true>(tables, hand, combos, count, message);
  }
  return MeanOfTableValues<false>(tables, hand, combos, count, message);
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
