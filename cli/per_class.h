// quillet-cli equity --per-class: my equity against each class of the opponent's range, as JSON or as a
// 13 x 13 table laid out like the grid.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "equity/class_equity.h"

namespace quillet::cli {

// One entry per class with an equity, in grid order: {"class": name, "equity": unrounded percent,
// "holdings": live holdings}.
nlohmann::ordered_json ClassEquitiesJson(const ClassEquities& classes);

// The grid's 13 rows of 13 blocks, each block's equity rounded to a whole percent ("." for a block with
// none), under a heading of the column ranks; every line ends with "\n".
std::string ClassEquitiesTable(const ClassEquities& classes);

}  // namespace quillet::cli
