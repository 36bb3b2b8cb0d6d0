// What each entry of the category table means, in plain words. The labels are terse by design ("O pair",
// "~ set"); the results tree shows these meanings as tooltips on its category nodes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillet {

// The meaning of entry `entry` (0 to 54) of the category table; empty for the spacers and out of range.
std::string_view CategoryMeaning(int32_t entry);

// Whether the entry is a draw entry (the two draw groups and their children). A holding can stand in a
// made-hand entry, a straight-draw entry and a flush-draw entry at once, so the draw entries' counts add
// up to more than the holdings and their percentages can pass 100%.
bool IsDrawCategory(int32_t entry);

// The tooltip of a category node: its meaning, and for a draw entry why its percentage can pass 100%.
// Empty for the spacers.
std::string CategoryToolTip(int32_t entry);

}  // namespace quillet
