// Class lists on the command line: class names separated by commas, as the preflop order writes them
// ("AA,KK,AKs,AK"); an offsuit class may also be written with its "o" ("AKo"). Spaces around a name are
// allowed; an empty list is an empty range.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cards/hand_class.h"
#include "range/block_record.h"

namespace quillet::cli {

struct RangeList {
  std::vector<int> classes;  // class numbers in the order written
  std::string error;         // empty when every name was known
};

inline RangeList ParseRangeList(std::string_view list) {
  RangeList result;
  const auto trim = [](std::string_view s) {
    while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
    while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
    return s;
  };
  if (trim(list).empty()) return result;
  std::size_t start = 0;
  for (;;) {
    const std::size_t comma = list.find(',', start);
    const std::string_view name =
        trim(list.substr(start, comma == std::string_view::npos ? list.npos : comma - start));
    int index = FindClassByName(name);
    if (index < 0 && name.size() == 3 && name[2] == 'o') {
      index = FindClassByName(name.substr(0, 2));
      if (index >= 0 && HandClasses()[index].kind != kKindOffsuit) index = -1;
    }
    if (index < 0) {
      result.error = name.empty() ? "an empty class name in the list \"" + std::string(list) + "\""
                                  : "unknown hand class \"" + std::string(name) + "\"";
      result.classes.clear();
      return result;
    }
    result.classes.push_back(index);
    if (comma == std::string_view::npos) return result;
    start = comma + 1;
  }
}

// Puts each class whole into the layer, as a click on its block does.
inline void PutClassesWhole(const std::vector<int>& classes, RangeLayer& layer) {
  for (const int c : classes) SetBlockWhole(layer[c], HandClasses()[c].kind == kKindSuited);
}

}  // namespace quillet::cli
