// The range percentage as text: the numeric-text check of the range box, the snapping of a typed value to a
// step of the preflop order, and the "~" percentage that the grid's two layers cover together.
//
// Typed values are compared exactly, never in binary floating point: a text such as "1.6" lies exactly
// halfway between the steps 1.4 and 1.8, and the lower step must win that tie.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "cards/preflop_order.h"
#include "range/block_record.h"

namespace quillet {

// The numeric-text check. Spaces at both ends are ignored; with `stripCommas` every "," is removed first
// and an empty result fails. "-" may only come first, "." at most once (never with `integerOnly`), and
// anything else must be a digit 0-9. The text then passes when its length lies between `minLength` and
// `maxLength`, both included. A lone "-" or "." passes (its value is 0).
bool IsNumberText(std::string_view text, bool integerOnly, bool stripCommas, int minLength, int maxLength);

// The value of a text that passed IsNumberText (commas not stripped) in ten-thousandths: its thousandths,
// cut off after the third decimal, times ten, moved 5 further from zero when a later digit is not 0. That
// lies strictly between the same two whole thousandths as the true value, so every comparison with a whole
// number of thousandths (the steps and the midpoints between them) comes out as it would exactly.
// Magnitudes beyond a million are clamped, far past any step of the order.
int64_t NumberTextToTenThousandths(std::string_view text);

// Where a typed value lands in the preflop order.
struct PreflopStep {
  int entry = 0;       // the step to show and move the slider to
  bool apply = false;  // whether the step's classes go into the On layer
};

// The step nearest to the value: the entries are walked from the first while the distance keeps falling,
// so of two equally near steps the lower one wins. A value at or above the last step's percentage takes the
// last step without applying it. A value so far below the first step that its distance reaches 100 takes
// the first step; one whose distance still falls at the last entry takes the last step and applies it.
PreflopStep NearestPreflopStep(int64_t valueTenThousandths, const std::vector<PreflopRow>& order);

// A percentage with at most one decimal as the box shows it: "16.4", "0.5", whole numbers without a
// decimal ("100", "0").
std::string FormatTenths(int64_t tenths);
std::string PercentText(double percent);

// The number of holdings in the union of the two layers: every On holding, plus each Seen holding that the
// On record of the same block does not hold. A pocket pair's (a, b) and (b, a) are one holding.
int UnionHoldingCount(const RangeLayer& onLayer, const RangeLayer& seenLayer);

// "~" and the share of all 1,326 holdings, rounded to one decimal ("~12.5", "~0").
std::string ComputedRangeText(int holdings);

}  // namespace quillet
