#include "cli/range_option.h"

#include "cards/blank_text.h"
#include "cards/terminal_text.h"
#include "range/class_list.h"
#include "range/holding_set.h"
#include "range/range_notation.h"

namespace quillet::cli {
namespace {

// The first comma-separated item of a refused class list that is not a class, as the list names it.
std::string FirstRefusedItem(std::string_view text) {
  while (true) {
    const auto comma = text.find(',');
    const std::string_view item = TrimSpacesAndTabs(text.substr(0, comma));
    if (!item.empty() && !ParseClassList(item).ok()) return std::string(item);
    if (comma == std::string_view::npos) return {};
    text.remove_prefix(comma + 1);
  }
}

// The message of a refused notation, or the class list's own when the notation stumbles on the same item
// with nothing more to say.
std::string RangeOptionFault(std::string_view text, const ClassList& list, const RangeNotationError& error) {
  if (!list.ok() && error.kind == RangeNotationError::Kind::UnknownToken &&
      error.token == FirstRefusedItem(text)) {
    return list.error;
  }
  return error.message;
}

}  // namespace

std::string PutRangeOption(std::string_view text, RangeLayer& layer, RangeReading reading) {
  const ClassList list = ParseClassList(text);
  if (list.ok() && reading == RangeReading::Classes) {
    PutClassesWhole(layer, list.classes);
    return {};
  }
  const ParsedRange parsed = ParseRangeNotation(text);
  if (parsed.ok()) {
    PutHoldingsInLayer(parsed.holdings, layer);
    return {};
  }
  const RangeNotationError& error = *parsed.error;
  if (error.kind == RangeNotationError::Kind::Weights) {
    std::string message = "the Seen layer takes no weights: '";
    message += QuotedExcerpt(error.token);
    message += "' at column ";
    message += std::to_string(error.column);
    return message;
  }
  return RangeOptionFault(text, list, error);
}

std::string PutWeightedRangeOption(std::string_view text, PlayerProfile& profile, RangeReading reading) {
  const ClassList list = ParseClassList(text);
  if (list.ok() && reading == RangeReading::Classes) {
    PutClassesWhole(profile.rangeLayer, list.classes);
    return {};
  }
  const ParsedWeightedRange parsed = ParseWeightedRangeNotation(text);
  if (parsed.ok()) {
    SetOnLayerWeights(profile, parsed.weights);
    return {};
  }
  return RangeOptionFault(text, list, *parsed.error);
}

}  // namespace quillet::cli
