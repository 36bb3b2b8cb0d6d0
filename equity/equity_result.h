// The answer of an equity calculation: My Equity and Opp Equity in percent, both -1 when nothing could
// be counted.
#pragma once

namespace quillet {

struct EquityResult {
  double my = -1.0;
  double opp = -1.0;
};

}  // namespace quillet
