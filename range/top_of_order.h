// The top of the preflop order: a typed percentage snapped to a step of the order, and the range that puts
// the classes of the order's entries 0..k whole into the On layer (the slider and the range box).
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "range/block_record.h"
#include "range/range_text.h"

namespace quillet {

// Where the range box's text lands when Enter accepts it: nullopt when the box refuses the text (not a
// number of 1 to 99 characters); otherwise the nearest step (NearestPreflopStep).
std::optional<PreflopStep> TopOfOrderStep(std::string_view percentText);

// The text the box shows for a step: its cumulative percentage ("9.8").
std::string TopOfOrderText(int entry);

// Empties every record of `onLayer`, then puts in whole the classes of the preflop order's entries 0..entry
// (entry clamped to the order). Returns the class numbers put in, in order.
std::vector<int> ApplyTopOfOrder(RangeLayer& onLayer, int entry);

}  // namespace quillet
