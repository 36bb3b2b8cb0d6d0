// The boards report's rows as comma-separated values, and the number texts its writers share: one writer
// for quillet-cli boards --csv and the Boards Report window's export.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "reports/boards_report.h"

namespace quillet {

// The shortest text that reads back as the same double ("57.25", "4").
std::string BoardsNumberText(double value);

// Showdowns counted in units of `scale`: a whole number as it is, else its decimals.
std::string BoardsShowdownsText(uint64_t units, uint64_t scale);

// The share of the row's live opponent holdings in group `group`, in percent (0 when none is live).
double BoardsGroupShare(const BoardsReportRow& row, int group);

// A heading, one line per row in the order given, and the aggregate line (its weight is the boards the
// rows stand for, its group cells empty); each line ends in "\n".
std::string BoardsReportCsv(std::span<const BoardsReportRow> rows, ShowdownRules rules,
                            const BoardsAggregate& aggregate);

}  // namespace quillet
