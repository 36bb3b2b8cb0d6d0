// quillet-cli cook: the window's cook on a range given as class lists, with a fresh "Generic" profile.
#include <ostream>
#include <string>
#include <string_view>

#include "app/model/form1_model.h"
#include "app/model/window_services.h"
#include "categorise/categories.h"
#include "cli/args.h"
#include "cli/commands.h"
#include "cli/range_list.h"
#include "cli/top_range.h"
#include "range/player_profile.h"

namespace quillet::cli {
namespace {

// The caption's lines, "\r\n" between them, one per output line.
void WriteCaptionLines(const std::string& caption, std::ostream& out) {
  std::string_view rest = caption;
  while (true) {
    const auto end = rest.find("\r\n");
    out << rest.substr(0, end) << "\n";
    if (end == std::string_view::npos) break;
    rest.remove_prefix(end + 2);
  }
}

void WriteText(const Form1Model& model, std::ostream& out) {
  WriteCaptionLines(model.lblCheckPossibleHands, out);
  for (const CategoryNode& node : model.categories.nodes) {
    if (node.count != 0) out << CategoryText(node.label) << ": " << node.count << "\n";
  }
}

void WriteJson(const Form1Model& model, bool withRangeText, std::ostream& out) {
  out << "{\"range\":" << model.cookRangeCount << ",\"possible\":" << model.cookLiveCount
      << ",\"categorised\":" << model.categories.categorisedCount << ",\"categories\":[";
  const auto& nodes = model.categories.nodes;
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    const CategoryNode& node = nodes[i];
    if (i != 0) out << ",";
    out << "{\"index\":" << i << ",\"label\":" << JsonString(node.label) << ",\"count\":" << node.count
        << ",\"combos\":[";
    for (int32_t k = 0; k < node.count; ++k) {
      const HandCombo& combo = node.combos[k];
      if (k != 0) out << ",";
      out << JsonString(ComboToText(combo) + (combo.flag ? "" : "*"));
    }
    out << "]}";
  }
  out << "]";
  if (withRangeText) out << ",\"rangeText\":" << JsonString(model.txtRange.text);
  out << "}\n";
}

int RunCook(const std::vector<std::string>& words, std::ostream& out, std::ostream& err) {
  const Args args(words, {"--hand", "--board", "--range", "--top", "--seen"}, {"--json"});
  if (!args.error().empty()) {
    err << "cook: " << args.error() << "\n";
    return kExitBadInput;
  }
  if (!args.positional().empty()) {
    err << "cook: unexpected argument \"" << args.positional().front() << "\"\n";
    return kExitBadInput;
  }
  for (const char* required : {"--hand", "--board"}) {
    if (!args.has(required)) {
      err << "cook: missing " << required << " (an empty value is written \"\")\n";
      return kExitBadInput;
    }
  }
  const bool top = args.has("--top");
  if (top == args.has("--range")) {
    err << "cook: give the range as --range LIST or as --top PCT" << (top ? ", not both" : "") << "\n";
    return kExitBadInput;
  }
  const RangeList onList = ParseRangeList(args.valueOr("--range", ""));
  if (!onList.ok()) {
    err << "cook: --range: " << onList.error << "\n";
    return kExitBadInput;
  }
  const RangeList seenList = ParseRangeList(args.valueOr("--seen", ""));
  if (!seenList.ok()) {
    err << "cook: --seen: " << seenList.error << "\n";
    return kExitBadInput;
  }

  RecordingServices services;
  Form1Model model(services);
  PlayerProfile& profile = model.profiles.emplace_back();
  InitProfile(profile);
  profile.name = "Generic";
  model.currentProfileIndex = 0;
  PutClassesWhole(profile.rangeLayer, onList.classes);
  PutClassesWhole(profile.seenLayer, seenList.classes);
  if (top) {
    const std::string error = TypeTopPercent(model, *args.value("--top"));
    if (!error.empty()) {
      err << "cook: " << error << "\n";
      return kExitBadInput;
    }
  }

  model.txtMyHand.text = *args.value("--hand");
  model.txtBoard.text = *args.value("--board");
  model.cmdCheckPossibleHands_Click();
  // The cook only speaks when it refuses the input; the window would show these as message boxes.
  if (!services.messages.empty()) {
    for (const auto& message : services.messages) err << message.text << "\n";
    return kExitBadInput;
  }

  if (args.has("--json")) {
    WriteJson(model, top, out);
  } else {
    WriteText(model, out);
  }
  return kExitOk;
}

const CommandRegistrar kRegisterCook{Command{
    "cook", "--hand TEXT --board TEXT (--range LIST | --top PCT) [--seen LIST] [--json]",
    "sort every live holding of the range into its made-hand and draw categories on the board; LIST is "
    "class names separated by commas (\"AA,KK,AKs,AK\", \"AKo\" also for offsuit), PCT the top percent of "
    "the preflop order as the range box takes it (10 gives 9.8), TEXT may be \"\"",
    10, RunCook}};

}  // namespace
}  // namespace quillet::cli
