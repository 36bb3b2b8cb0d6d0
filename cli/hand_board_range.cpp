#include "cli/hand_board_range.h"

#include "app/model/form1_model.h"
#include "cli/args.h"
#include "cli/range_list.h"
#include "range/player_profile.h"

namespace quillet::cli {

bool SetUpHandBoardRange(const Args& args, const std::string& command, Form1Model& model, std::ostream& err) {
  if (!args.error().empty()) {
    err << command << ": " << args.error() << "\n";
    return false;
  }
  if (!args.positional().empty()) {
    err << command << ": unexpected argument \"" << args.positional().front() << "\"\n";
    return false;
  }
  for (const char* required : {"--hand", "--board"}) {
    if (!args.has(required)) {
      err << command << ": missing " << required << " (an empty value is written \"\")\n";
      return false;
    }
  }
  const bool top = args.has("--top");
  if (top == args.has("--range")) {
    err << command << ": "
        << (top ? "give --range LIST or --top PCT, not both" : "missing --range LIST (or --top PCT)") << "\n";
    return false;
  }
  const RangeList onList = ParseRangeList(args.valueOr("--range", ""));
  if (!onList.ok()) {
    err << command << ": --range: " << onList.error << "\n";
    return false;
  }
  const RangeList seenList = ParseRangeList(args.valueOr("--seen", ""));
  if (!seenList.ok()) {
    err << command << ": --seen: " << seenList.error << "\n";
    return false;
  }

  PlayerProfile& profile = model.profiles.emplace_back();
  InitProfile(profile);
  profile.name = "Generic";
  model.currentProfileIndex = static_cast<int>(model.profiles.size()) - 1;
  PutClassesWhole(profile.rangeLayer, onList.classes);
  PutClassesWhole(profile.seenLayer, seenList.classes);
  if (top) {
    const std::string error = TypeTopPercent(model, *args.value("--top"));
    if (!error.empty()) {
      err << command << ": " << error << "\n";
      return false;
    }
  }
  model.txtMyHand.text = *args.value("--hand");
  model.txtBoard.text = *args.value("--board");
  return true;
}

std::string TypeTopPercent(Form1Model& model, const std::string& percent) {
  model.SetRangeText(percent);
  model.txtRange_KeyUp(kKeyEnter, 0);
  if (model.txtRange.foreColour == kRejectedTextColour) {
    return "--top: \"" + percent + "\" is not a percentage (digits with at most one \".\", \"-\" only first)";
  }
  return {};
}

}  // namespace quillet::cli
