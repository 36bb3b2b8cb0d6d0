// Holdings of one category grouped by starting-hand class, for the simplified output: one group per pair
// of ranks (first card's rank first, as the holdings carry them), in order of first appearance, each
// group's holdings in their order, and the flags a range layer record would carry for the same holdings.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "cards/card.h"

namespace quillet {

struct ComboGroup {
  int32_t rank1 = 0;
  int32_t rank2 = 0;
  std::vector<HandCombo> combos;  // flags kept: a clear flag marks a copy that also stands in a draw entry
  bool suited = false;
  bool offsuit = false;
  bool whole = false;

  int32_t count() const { return static_cast<int32_t>(combos.size()); }
};

// The flags as a layer record derives them: a pair is whole with 6 holdings; a two-rank group of fewer
// than 5 holdings that are all suited is suited (whole at 4); of 5 to 12 that are all offsuit is offsuit
// (whole at 12); a two-rank group of 16 is whole. Since holdings are grouped by their ranks alone, the
// suited and offsuit holdings of one class share a group, which then carries neither mark.
void SetGroupFlags(ComboGroup& group);

std::vector<ComboGroup> GroupCombosByClass(std::span<const HandCombo> combos);

}  // namespace quillet
