#include "cli/top_range.h"

#include "app/model/form1_model.h"

namespace quillet::cli {

std::string TypeTopPercent(Form1Model& model, const std::string& percent) {
  model.SetRangeText(percent);
  model.txtRange_KeyUp(kKeyEnter, 0);
  if (model.txtRange.foreColour == kRejectedTextColour) {
    return "--top: \"" + percent + "\" is not a percentage (digits with at most one \".\", \"-\" only first)";
  }
  return {};
}

}  // namespace quillet::cli
