// What the benchmarks set up alike: a range layer with every class whole, and the window model with one
// selected profile, "Generic", whose layers start empty (the one the window model's tests use).
#pragma once

#include "cards/hand_class.h"
#include "range/block_record.h"
#include "range/player_profile.h"
#include "tests/support/generic_window.h"

namespace quillet::bench {

// Every one of the 169 classes whole in the layer, as a click on each block leaves it.
inline void FillWholeGrid(RangeLayer& layer) {
  for (int c = 0; c < kClassCount; ++c) SetBlockWhole(layer[c], HandClasses()[c].kind == kKindSuited);
}

// The window model with one selected profile, "Generic", whose layers start empty.
using GenericWindow = testing::GenericWindow<>;

}  // namespace quillet::bench
