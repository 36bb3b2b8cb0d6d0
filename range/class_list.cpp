#include "range/class_list.h"

#include "cards/ascii_case.h"
#include "cards/blank_text.h"
#include "cards/card.h"
#include "cards/hand_class.h"
#include "cards/terminal_text.h"

namespace quillet {
namespace {

// The class number of one written name, or -1.
int ClassOfName(std::string_view written) {
  if (written.size() != 2 && written.size() != 3) return -1;
  std::string name{AsciiUpper(written[0]), AsciiUpper(written[1])};
  if (written.size() == 3) name.push_back(AsciiLower(written[2]));
  if (name.size() == 3 && name[2] == 'o') {
    const int offsuit = FindClassByName(name.substr(0, 2));
    return (offsuit >= 0 && HandClasses()[offsuit].kind == kKindOffsuit) ? offsuit : -1;
  }
  return FindClassByName(name);
}

}  // namespace

ClassList ParseClassList(std::string_view text) {
  ClassList result;
  while (true) {
    const auto comma = text.find(',');
    const std::string_view item = TrimSpacesAndTabs(text.substr(0, comma));
    if (!item.empty()) {
      const int c = ClassOfName(item);
      if (c < 0) {
        result.classes.clear();
        result.error = "unknown starting-hand class \"" + QuotedExcerpt(item) +
                       "\" (write classes as AA, AKs, AK or AKo, separated by commas)";
        return result;
      }
      result.classes.push_back(c);
    }
    if (comma == std::string_view::npos) break;
    text.remove_prefix(comma + 1);
  }
  return result;
}

void PutClassesWhole(RangeLayer& layer, const std::vector<int>& classes) {
  for (int c : classes) SetBlockWhole(layer[c], HandClasses()[c].kind == kKindSuited);
}

RangeLayer LayerOfClasses(const std::vector<int>& classes) {
  RangeLayer layer = MakeEmptyLayer();
  PutClassesWhole(layer, classes);
  return layer;
}

}  // namespace quillet
