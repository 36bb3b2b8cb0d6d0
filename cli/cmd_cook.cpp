// quillet-cli cook: the window's cook on a range given as class lists, with a fresh "Generic" profile.
#include <cstdio>
#include <ostream>
#include <string>
#include <string_view>

#include "app/model/form1_model.h"
#include "app/model/window_services.h"
#include "categorise/categories.h"
#include "cli/args.h"
#include "cli/commands.h"
#include "cli/hand_board_range.h"
#include "range/colour.h"
#include "results/build_results_tree.h"
#include "results/results_tree.h"

namespace quillet::cli {
namespace {

// The export text, line for line, with the win/tie/lose icon of a line written after it as " [win]",
// " [tie]" or " [lose]" (the window draws it as a picture instead). Without icons it is the export text as
// "Copy Results to Clipboard" gives it, CR LF line ends included.
void WriteText(const Form1Model& model, std::ostream& out) {
  out << ExportHeader(model.txtMyHand.text, model.txtBoard.text);
  for (const ResultNode& node : model.TV.nodes) {
    if (!node.exportLine) continue;
    if (node.parent >= 0) out << std::string(2 * static_cast<std::size_t>(node.level), ' ');
    out << node.text;
    if (node.image == kWinImage || node.image == kTieImage || node.image == kLoseImage) {
      out << " [" << node.image << "]";
    }
    out << "\r\n";
  }
}

// "#RRGGBB"; the window-text colour of spades as black.
std::string ColourText(Colour colour) {
  if (colour == kWindowTextColour) colour = Rgb(0, 0, 0);
  char text[8];
  std::snprintf(text, sizeof text, "#%02X%02X%02X", RedOf(colour), GreenOf(colour), BlueOf(colour));
  return text;
}

void WriteTreeJson(const ResultsTree& tree, std::ostream& out) {
  out << "[";
  for (std::size_t i = 0; i < tree.nodes.size(); ++i) {
    const ResultNode& node = tree.nodes[i];
    if (i != 0) out << ",";
    out << "{\"key\":" << JsonString(node.key) << ",\"parent\":" << JsonString(node.parentKey)
        << ",\"text\":" << JsonString(node.text) << ",\"image\":" << JsonString(node.image) << ",\"colour\":"
        << (node.foreColour ? JsonString(ColourText(*node.foreColour)) : std::string("null"))
        << ",\"level\":" << node.level << "}";
  }
  out << "]";
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
  out << ",\"tree\":";
  WriteTreeJson(model.TV, out);
  out << ",\"export\":" << JsonString(model.exportText) << "}\n";
}

int RunCook(const std::vector<std::string>& words, std::ostream& out, std::ostream& err) {
  const Args args(words, {"--hand", "--board", "--range", "--top", "--seen"},
                  {"--json", "--no-simplify", "--simplify-further", "--show-empty", "--win-lose-icons",
                   "--category-icons"});
  RecordingServices services;
  Form1Model model(services);
  if (!SetUpHandBoardRange(args, "cook", model, err)) return kExitBadInput;
  const bool top = args.has("--top");

  // The output options are the window's menu ticks, from their first-start values.
  model.options.simplifyOutput = !args.has("--no-simplify");
  model.options.simplifyFurther = args.has("--simplify-further");
  model.options.hideEmptyCats = !args.has("--show-empty");
  model.options.winLoseIcons = args.has("--win-lose-icons");
  model.options.categoryIcons = args.has("--category-icons");

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
    "cook",
    "--hand TEXT --board TEXT (--range LIST | --top PCT) [--seen LIST] [--no-simplify] [--simplify-further] "
    "[--show-empty] [--win-lose-icons] [--category-icons] [--json]",
    "sort every live holding of the range into its made-hand and draw categories on the board and print the "
    "results as \"Copy Results to Clipboard\" gives them (CR LF line ends; --win-lose-icons adds \" [win]\", "
    "\" [tie]\" or \" [lose]\" to a line); LIST is class names separated by commas (\"AA,KK,AKs,AK\", "
    "\"AKo\" "
    "also for offsuit), PCT the top percent of the preflop order as the range box takes it (10 gives 9.8), "
    "TEXT may be \"\"",
    10, RunCook}};

}  // namespace
}  // namespace quillet::cli
