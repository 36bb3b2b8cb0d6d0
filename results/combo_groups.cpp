#include "results/combo_groups.h"

#include <algorithm>
#include <array>

namespace quillet {

void SetGroupFlags(ComboGroup& group) {
  group.suited = false;
  group.offsuit = false;
  group.whole = false;
  const int32_t count = group.count();
  auto isSuited = [](const HandCombo& c) { return c.suit1 == c.suit2; };
  if (group.rank1 == group.rank2) {
    group.whole = count == 6;
  } else if (count < 5) {
    if (std::all_of(group.combos.begin(), group.combos.end(), isSuited)) {
      group.suited = true;
      group.whole = count == 4;
    }
  } else if (count <= 12) {
    if (std::none_of(group.combos.begin(), group.combos.end(), isSuited)) {
      group.offsuit = true;
      group.whole = count == 12;
    }
  } else if (count == 16) {
    group.whole = true;
  }
}

std::vector<ComboGroup> GroupCombosByClass(std::span<const HandCombo> combos) {
  std::vector<ComboGroup> groups;
  // Group number by (rank 1, rank 2); holdings with ranks outside 0..14 are looked up among the groups.
  std::array<int, 15 * 15> byRanks;
  byRanks.fill(-1);
  auto inTable = [](int32_t r) { return r >= 0 && r <= 14; };
  for (const HandCombo& combo : combos) {
    int g = -1;
    const bool tabled = inTable(combo.rank1) && inTable(combo.rank2);
    if (tabled) {
      g = byRanks[combo.rank1 * 15 + combo.rank2];
    } else {
      const auto it = std::find_if(groups.begin(), groups.end(), [&](const ComboGroup& group) {
        return group.rank1 == combo.rank1 && group.rank2 == combo.rank2;
      });
      if (it != groups.end()) g = static_cast<int>(it - groups.begin());
    }
    if (g < 0) {
      g = static_cast<int>(groups.size());
      groups.push_back(ComboGroup{combo.rank1, combo.rank2, {}, false, false, false});
      if (tabled) byRanks[combo.rank1 * 15 + combo.rank2] = g;
    }
    groups[g].combos.push_back(combo);
  }
  for (ComboGroup& group : groups) SetGroupFlags(group);
  return groups;
}

}  // namespace quillet
