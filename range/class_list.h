// A range built from class lists: starting-hand classes as the preflop order writes them, separated by
// commas ("AA,KK,AKs,AK"). An offsuit class may also be written with "o" ("AKo"); blanks around a name and
// empty items are ignored, and rank letters may be in either case ("aks" is "AKs").
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "range/block_record.h"

namespace quillet {

struct ClassList {
  std::vector<int> classes;  // class numbers (0 to 168) in the order written
  std::string error;         // empty when every name was understood; otherwise names the first that was not
  bool ok() const { return error.empty(); }
};

// The classes of a list, or an error naming the first name that is not a class.
ClassList ParseClassList(std::string_view text);

// Puts each class whole into the layer, as a click on its block does (a suited class as its 4 suited
// holdings, an offsuit class as its 12, a pair as its 6).
void PutClassesWhole(RangeLayer& layer, const std::vector<int>& classes);

// A fresh layer (MakeEmptyLayer) holding the classes whole.
RangeLayer LayerOfClasses(const std::vector<int>& classes);

}  // namespace quillet
