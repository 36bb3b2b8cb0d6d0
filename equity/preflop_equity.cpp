#include "equity/preflop_equity.h"

#include "equity/matchup_key.h"

namespace quillet {

EquityResult PreflopEquity(const LookupTables& tables, const HandCards& hand,
                           const std::vector<HandCombo>& combos, int count, const MessageSink& message) {
  const Card my1 = hand.card1();
  const Card my2 = hand.card2();
  double sum = 0.0;
  int found = 0;
  for (int i = 0; i < count; ++i) {
    const HandCombo& c = combos[i];
    if (!c.flag) continue;
    const KeySearch direct = FindKey(tables, BuildMatchupKey(my1, my2, c.card1(), c.card2()));
    if (direct.found) {
      sum += tables.values[direct.index];
    } else {
      const KeySearch swapped = FindKey(tables, BuildMatchupKey(c.card1(), c.card2(), my1, my2));
      if (!swapped.found) {
        if (message) message(kPreflopLookupError);
        continue;
      }
      sum += 100.0 - tables.values[swapped.index];
    }
    ++found;
  }
  if (found == 0) return {};
  const double my = sum / found;
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
