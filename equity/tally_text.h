// How a tally of showdowns reads in the equity read-outs' tooltips under the standard rules.
#pragma once

#include <string>

#include "equity/showdown_rules.h"

namespace quillet {

// "Win 84.94%, tie 0.86%, 1,070,190 showdowns", from the first player's side (pass tally.Reversed() for
// the other player's); percentages to two decimals, the count grouped by thousands. A weighted tally gives
// its showdowns as the weighted sum, with the fraction it leaves ("1,070,190.5 showdowns"). With no
// showdown: "No showdowns".
std::string ShowdownTallyText(const ShowdownTally& tally);

}  // namespace quillet
