#include "range/top_of_order.h"

#include <algorithm>
#include <string>

#include "cards/hand_class.h"
#include "cards/preflop_order.h"

namespace quillet {

std::optional<PreflopStep> TopOfOrderStep(std::string_view percentText) {
  if (!IsNumberText(percentText, false, false, 1, 99)) return std::nullopt;
  return NearestPreflopStep(NumberTextToTenThousandths(percentText), PreflopOrder());
}

std::string TopOfOrderText(int entry) {
  const auto& order = PreflopOrder();
  return PercentText(order[std::clamp(entry, 0, static_cast<int>(order.size()) - 1)].percent);
}

std::vector<int> ApplyTopOfOrder(RangeLayer& onLayer, int entry) {
  for (BlockRecord& record : onLayer) ClearBlockRecord(record);
  const auto& order = PreflopOrder();
  const int last = std::clamp(entry, 0, static_cast<int>(order.size()) - 1);
  std::vector<int> applied;
  for (int j = 0; j <= last; ++j) {
    for (const std::string& name : SplitClassList(order[j].classes)) {
      const int c = FindClassByName(name);
      if (c < 0) continue;
      SetBlockWhole(onLayer[c], HandClasses()[c].kind == kKindSuited);
      applied.push_back(c);
    }
  }
  return applied;
}

}  // namespace quillet
