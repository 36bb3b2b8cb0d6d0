// The range options of quillet-cli (--range and --seen of cook and equity, --range and --seen of profiles
// add): range notation as players write it ("QQ+, A2s+, KTo+, AhKh, 15%", "AK" both halves: 16 holdings;
// see range/range_notation.h), or with --classes the older reading: a class list first ("AA,KK,AKs,AK",
// where a bare "AK" is the offsuit class alone, 12 holdings), notation only where the text is no class list.
// --range takes weights ("AKs:0.5", "[50]AQs, AJs[/50]"); --seen, the Seen layer, has none.
#pragma once

#include <string>
#include <string_view>

#include "range/block_record.h"
#include "range/player_profile.h"

namespace quillet::cli {

enum class RangeReading {
  Notation,  // the text is range notation
  Classes    // --classes: a class list where the text is one, otherwise notation
};

// The help line of the --classes option.
inline constexpr const char* kClassesHelp =
    "read --range and --seen as class lists first, as older versions did: \"AA,AK\" is AA and the offsuit "
    "AK only (12 holdings, not 16); text that is no class list is read as notation";

// Puts the range of `text` into `layer` (a layer that holds nothing yet): the notation's holdings (whole
// classes whole, as a click on their blocks puts them, the rest one suit pair at a time), or with
// RangeReading::Classes a class list's classes whole. Returns the reason when the text is refused; the
// layer is then untouched. Where the text is no class list either, a refusal keeps the class list's message
// byte for byte when the notation stumbles on the same item with nothing more to say ("unknown
// starting-hand class ..."); the notation's own message is given when its first bad token is another one,
// or when it has something of its own to say (a range whose ends do not fit, a holding with one card twice,
// a percentage above 100). The layer takes no weights: a weight other than 1 is refused with "the Seen
// layer takes no weights: 'AKs:0.5' at column 1" (only the Seen layer is read this way).
std::string PutRangeOption(std::string_view text, RangeLayer& layer,
                           RangeReading reading = RangeReading::Notation);

// The same for the On layer of `profile` (one that holds nothing yet), with weights: the holdings go into
// the layer as PutRangeOption puts them, and their weights below 1 into the profile's On-layer weights. A
// class list has no weights. A refusal (a weight written wrong included) leaves the profile untouched.
std::string PutWeightedRangeOption(std::string_view text, PlayerProfile& profile,
                                   RangeReading reading = RangeReading::Notation);

}  // namespace quillet::cli
