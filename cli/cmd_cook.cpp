// quillet-cli cook: the window's cook on a range given as class lists, with a fresh "Generic" profile.
#include <CLI/CLI.hpp>
#include <ostream>
#include <string>
#include <string_view>

#include "cards/card_input.h"
#include "categorise/cook.h"
#include "cli/commands.h"
#include "cli/hand_board_range.h"
#include "cli/options.h"
#include "range/colour.h"
#include "results/build_results_tree.h"
#include "results/results_tree.h"

namespace quillet::cli {
namespace {

constexpr const char* kCookUsage =
    "--hand TEXT --board TEXT (--range LIST | --top PCT) [--seen LIST] [--no-simplify] [--simplify-further] "
    "[--show-empty] [--win-lose-icons] [--category-equity] [--standard-rules] [--category-icons] [--json]";
constexpr const char* kCookSummary =
    "sort every live holding of the range into its made-hand and draw categories on the board and print the "
    "results as \"Copy Results to Clipboard\" gives them (CR LF line ends; --win-lose-icons adds \" [win]\", "
    "\" [tie]\" or \" [lose]\" to a line); LIST is a range in range notation (\"QQ+, AKs, AhKh\"; \"AK\" is "
    "both halves; weights \"AKs:0.5\" for --range only; read as class names first with --classes), PCT the "
    "top "
    "percent of the preflop order as the range box takes it (10 gives 9.8), TEXT may be \"\"";

// The export text, line for line, with the win/tie/lose icon of a line written after it as " [win]",
// " [tie]" or " [lose]" (the window draws it as a picture instead). Without icons it is the export text as
// "Copy Results to Clipboard" gives it, CR LF line ends included.
void WriteText(const CardInputs& cards, const ResultsTree& tree, std::ostream& out) {
  out << ExportHeader(cards.myHandText, cards.boardText);
  for (const ResultNode& node : tree.nodes) {
    if (!node.exportLine) continue;
    if (node.parent >= 0) out << std::string(2 * static_cast<std::size_t>(node.level), ' ');
    out << node.text;
    if (node.image == kWinImage || node.image == kTieImage || node.image == kLoseImage) {
      out << " [" << node.image << "]";
    }
    out << "\r\n";
  }
}

// The spades' window-text colour is written as black.
Json NodeColour(const std::optional<Colour>& colour) {
  if (!colour) return nullptr;
  return HexColour(*colour == kWindowTextColour ? Rgb(0, 0, 0) : *colour);
}

Json TreeJson(const ResultsTree& tree) {
  Json nodes = Json::array();
  for (const ResultNode& node : tree.nodes) {
    nodes.push_back(Json{{"key", node.key},
                         {"parent", node.parentKey},
                         {"text", node.text},
                         {"image", node.image},
                         {"colour", NodeColour(node.foreColour)},
                         {"level", node.level}});
  }
  return nodes;
}

// A sum of weights in thousandths as the combinations it makes ("12.5").
Json WeightJson(int64_t weight) {
  return JsonNumber(static_cast<double>(weight) / kFullWeight);
}

// With --category-equity each category carries "equity": My Hand's equity against the holdings under it,
// null for a spacer, an empty category and one without a showdown. With a weight below 1 in the range,
// each count has the combinations its holdings make beside it ("weightedCount" beside a category's
// "count", "weightedRange" beside "range" ...); "combos" already names a category's holdings.
void WriteJson(const CookResult& cooked, const ResultsBuild& built, const HandBoardRange& input,
               bool categoryEquity, std::ostream& out) {
  const bool weighted = cooked.weighted();
  Json categories = Json::array();
  const auto& nodes = cooked.categories.nodes;
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    const CategoryNode& node = nodes[i];
    Json combos = Json::array();
    for (int32_t k = 0; k < node.count; ++k) {
      const HandCombo& combo = node.combos[k];
      combos.push_back(ComboToText(combo) + (combo.flag ? "" : "*"));
    }
    Json category{{"index", i}, {"label", node.label}, {"count", node.count}};
    if (weighted) category["weightedCount"] = WeightJson(node.weight);
    category["combos"] = std::move(combos);
    if (categoryEquity) {
      const bool known = i < built.categoryEquities.size() && built.categoryEquities[i].has_value();
      category["equity"] = known ? Json(*built.categoryEquities[i]) : Json(nullptr);
    }
    categories.push_back(std::move(category));
  }
  Json json{{"range", cooked.rangeCount}};
  if (weighted) json["weightedRange"] = WeightJson(cooked.rangeWeight);
  json["possible"] = cooked.liveCount;
  if (weighted) json["weightedPossible"] = WeightJson(cooked.liveWeight);
  json["categorised"] = cooked.categories.categorisedCount;
  if (weighted) json["weightedCategorised"] = WeightJson(cooked.categories.categorisedWeight);
  json["categories"] = std::move(categories);
  if (input.top) json["rangeText"] = input.profile.rangeText;
  json["tree"] = TreeJson(built.tree);
  json["export"] = built.exportText;
  out << JsonText(json) << "\n";
}

// Why a switch given would change nothing whatever the cards and the range, or nullptr when each counts:
// such a switch is refused rather than passed over.
const char* UnusedSwitch(const CLI::App& app) {
  if (Given(app, "--simplify-further") && Given(app, "--no-simplify")) {
    return "--simplify-further does not apply with --no-simplify (it leaves out the holdings under each "
           "group, and --no-simplify makes no groups)";
  }
  if (Given(app, "--category-icons") && !Given(app, "--json")) {
    return "--category-icons shows only in --json's tree (\"image\"): the text carries no pictures";
  }
  if (Given(app, "--standard-rules") && !Given(app, "--win-lose-icons") && !Given(app, "--category-equity")) {
    return "--standard-rules changes only the win/tie/lose icons and the equities per category (the "
           "categories are the same under both rules): give it with --win-lose-icons or --category-equity";
  }
  return nullptr;
}

int RunCook(const std::vector<std::string>& words, std::ostream& out, std::ostream& err) {
  CLI::App app(kCookSummary, "quillet-cli cook");
  SetUpCommandParser(app);
  HandBoardRangeOptions options;
  AddHandBoardRangeOptions(app, options);
  // The output options are the window's menu ticks, from their first-start values.
  bool noSimplify = false;
  app.add_flag("--no-simplify", noSimplify, "one line per holding (\"Simplify Output\" off)");
  bool simplifyFurther = false;
  app.add_flag("--simplify-further", simplifyFurther, "\"Simplify Further for Clipboard Export\"");
  bool showEmpty = false;
  app.add_flag("--show-empty", showEmpty, "list empty categories too (\"Hide Empty Categories\" off)");
  bool winLoseIcons = false;
  app.add_flag("--win-lose-icons", winLoseIcons, "mark each holding [win], [tie] or [lose]");
  bool categoryEquity = false;
  app.add_flag("--category-equity", categoryEquity,
               "end every category and group line with My Hand's equity against its holdings, \" eq 63.2%\" "
               "(\"Equity per Category\"; needs My Hand and a board)");
  bool standardRules = false;
  app.add_flag("--standard-rules", standardRules,
               "the win/tie/lose icons and the equities per category by the standard showdown rules "
               "(\"Standard Showdown Rules\")");
  bool categoryIcons = false;
  app.add_flag("--category-icons", categoryIcons, "\"Category Icons\"");
  bool json = false;
  app.add_flag("--json", json, "the counts, categories, tree and export text as JSON");

  int status = kExitOk;
  const auto positional = ParseCommandWords(app, words, "cook", out, err, status);
  if (!positional) return status;
  if (const char* why = UnusedSwitch(app)) {
    err << "cook: " << why << "\n";
    return kExitBadInput;
  }
  const auto input = ReadHandBoardRange(app, options, *positional, "cook", err);
  if (!input) return kExitBadInput;

  // The cook only speaks when it refuses the input; the window would show these as message boxes.
  const CardInputs cards = CheckCardInputs(input->handText, input->boardText, CardsFor::Cook);
  if (!cards.ok()) {
    for (const std::string& message : cards.messages) err << message << "\n";
    return kExitBadInput;
  }
  const CookResult cooked = Cook(
      cards,
      CollectRangeCombos(input->profile.rangeLayer, input->profile.seenLayer, &input->profile.onWeights));

  ResultsOptions resultsOptions;
  resultsOptions.simplifyOutput = !noSimplify;
  resultsOptions.simplifyFurther = simplifyFurther;
  resultsOptions.hideEmptyCats = !showEmpty;
  resultsOptions.winLoseIcons = winLoseIcons;
  resultsOptions.categoryIcons = categoryIcons;
  resultsOptions.showdownRules = standardRules ? ShowdownRules::Standard : ShowdownRules::Quillet;
  resultsOptions.categoryEquity = categoryEquity;
  ResultsCards resultsCards;
  resultsCards.myHandText = cards.myHandText;
  resultsCards.boardText = cards.boardText;
  if (resultsOptions.winLoseIcons || resultsOptions.categoryEquity) {
    resultsCards.hand = cards.hand;
    resultsCards.board = cards.board;
    resultsCards.street = cards.street;
  }
  std::vector<std::string> messages;
  const MessageSink collect = [&messages](std::string_view text) { messages.emplace_back(text); };
  const ResultsBuild built = BuildResultsTree(cooked.categories, resultsOptions, resultsCards, collect);
  if (!messages.empty()) {
    for (const std::string& message : messages) err << message << "\n";
    return kExitBadInput;
  }

  if (json) {
    WriteJson(cooked, built, *input, categoryEquity, out);
  } else {
    WriteText(cards, built.tree, out);
  }
  return kExitOk;
}

const CommandRegistrar kRegisterCook{Command{"cook", kCookUsage, kCookSummary, 10, RunCook}};

}  // namespace
}  // namespace quillet::cli
