// Preflop equity of My Hand against a list of opponent holdings, read from the matchup tables.
#pragma once

#include <string_view>
#include <vector>

#include "cards/card.h"
#include "cards/card_input.h"
#include "equity/equity_result.h"
#include "equity/lookup_tables.h"

namespace quillet {

inline constexpr std::string_view kPreflopLookupError = "Error calculating equity GS0";

// For each of the first `count` holdings whose flag is set: the key (My Hand card 1, card 2, holding
// card 1, card 2) gives the value; else the swapped key (holding, My Hand) gives 100 - value; else
// "Error calculating equity GS0" goes to `message` (once for that holding) and it is left out. My equity
// is the mean of the values found weighted by the holdings' weights (the plain mean when they are all
// whole, or all equal), unrounded, opp equity 100 minus it; -1 / -1 when none was found (or every weight
// found is 0). The list is taken as the caller built it (no check against My Hand).
EquityResult PreflopEquity(const LookupTables& tables, const HandCards& hand,
                           const std::vector<HandCombo>& combos, int count, const MessageSink& message);

// The same over loaded tables; when they failed to load, their error goes to `message` once and the
// result is -1 / -1.
EquityResult PreflopEquity(const TablesOrError& loaded, const HandCards& hand,
                           const std::vector<HandCombo>& combos, int count, const MessageSink& message);

// The same over the program's tables (ProgramTables()).
EquityResult PreflopEquity(const HandCards& hand, const std::vector<HandCombo>& combos, int count,
                           const MessageSink& message);

}  // namespace quillet
