// The range options of quillet-cli (--range and --seen of cook and equity, --range and --seen of profiles
// add): a class list read by ParseClassList ("AA,KK,AKs,AK", "AKo"), or else range notation as players
// write it ("QQ+, A2s+, KTo+, AhKh, 15%"; see range/range_notation.h).
#pragma once

#include <string>
#include <string_view>

#include "range/block_record.h"

namespace quillet::cli {

// Puts the range of `text` into `layer` (a layer that holds nothing yet): a class list's classes whole, as
// a click on their blocks puts them, or the notation's holdings (whole classes whole, the rest one suit pair
// at a time). Returns the reason when the text is neither; the layer is then untouched. A text refused as a
// class list keeps the class list's message byte for byte when the notation stumbles on the same item with
// nothing more to say ("unknown starting-hand class ..."); the notation's own message is given when its
// first bad token is another one, or when it has something of its own to say (weights, a range whose ends
// do not fit, a holding with one card twice, a percentage above 100).
std::string PutRangeOption(std::string_view text, RangeLayer& layer);

}  // namespace quillet::cli
