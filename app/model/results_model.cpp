// The results: the tree built from the last cook with its checks and error signal, and the equity
// read-outs with what their tooltips say.
#include "app/model/results_model.h"

#include <cstdio>
#include <string_view>
#include <utility>

#include "categorise/categories.h"
#include "categorise/category_meaning.h"
#include "equity/equity_display.h"
#include "results/tree_actions.h"

namespace quillet {
namespace {

constexpr int kDefaultPointer = 0;
constexpr int kErrorPointer = 99;

constexpr std::string_view kOwnRulesNote =
    "\nShowdown rules: this program's own. A flush needs exactly five cards of one suit, kickers come from "
    "the hole cards only, equal two pair goes to the higher hole card, tied showdowns count for neither "
    "side, "
    "and the river is not calculated.\nOptions > Operation > Standard Showdown Rules switches to the "
    "standard "
    "rules (best five of seven, ties split; My Hand then also takes a range).";

// A category node's key is the entry's number and "k" ("7k"); holdings and groups carry a "-".
int CategoryOfNodeKey(std::string_view key) {
  if (key.size() < 2 || key.back() != 'k') return -1;
  int entry = 0;
  for (const char c : key.substr(0, key.size() - 1)) {
    if (c < '0' || c > '9') return -1;
    entry = entry * 10 + (c - '0');
  }
  return entry;
}

}  // namespace

ResultsModel::ResultsModel(const MenuOptions& options) : options_(options) {
  lblMyEquity.caption = "100%";
  lbloppEquity.caption.clear();
  InitCategories(categories);
}

void ResultsModel::BuildTree(const ResultsOptions& resultsOptions, const ResultsCards& cards,
                             const MessageSink& showMessage) {
  ResultsBuild built = BuildResultsTree(categories, resultsOptions, cards, showMessage);
  TV = std::move(built.tree);
  exportText = std::move(built.exportText);
  ClearChecks();  // checks belong to the nodes of one build
}

void ResultsModel::ClearChecks() {
  tvChecked.assign(TV.nodes.size(), false);
}

bool ResultsModel::NodeCheckable(int node) const {
  return options_.checkBoxes && IsCheckableNode(TV, node);
}

void ResultsModel::CheckNode(int node, bool checked) {
  if (!NodeCheckable(node)) return;
  tvChecked.resize(TV.nodes.size(), false);
  tvChecked[static_cast<std::size_t>(node)] = checked;
}

std::vector<int> ResultsModel::CheckedNodes() const {
  std::vector<int> checked;
  for (std::size_t i = 0; i < tvChecked.size() && i < TV.nodes.size(); ++i) {
    if (tvChecked[i] && NodeCheckable(static_cast<int>(i))) checked.push_back(static_cast<int>(i));
  }
  return checked;
}

void ResultsModel::FlashTreeError() {
  tvMousePointer = kErrorPointer;
  tmrTVError.Enable();
}

void ResultsModel::EndTreeError() {
  tmrTVError.Disable();
  tvMousePointer = kDefaultPointer;
}

std::string ResultsModel::TreeNodeToolTip(int node) const {
  if (node < 0 || node >= static_cast<int>(TV.nodes.size())) return {};
  return CategoryToolTip(CategoryOfNodeKey(TV.nodes[static_cast<std::size_t>(node)].key));
}

void ResultsModel::ClearEquityDisplay() {
  lblMyEquity.opaque = false;
  lblMyEquity.caption.clear();
  lbloppEquity.caption.clear();
  lblMyEquity.toolTip.clear();
  lbloppEquity.toolTip.clear();
  heatMap.reset();
}

void ResultsModel::ShowEquityReadOuts(const EquityResult& values, int32_t street, bool ofMyRange) {
  myEquity = values.my;
  oppEquity = values.opp;
  equityStreet = street;
  equityOfMyRange = ofMyRange;
  lblMyEquity.caption = FormatEquityReadOut(myEquity);
  lbloppEquity.caption = FormatEquityReadOut(oppEquity);
  lblMyEquity.opaque = true;
  lblMyEquity.backColour = EquityColour(EquityToInteger(myEquity));
}

std::string ResultsModel::EquityToolTip(bool mine) const {
  std::string text = mine ? "My Hand's equity against the opponent's range"
                          : "The opponent's range's equity against My Hand";
  const std::string& caption = mine ? lblMyEquity.caption : lbloppEquity.caption;
  if (caption.empty()) return text + " (Calc Equity shows it here)";
  if (equityOfMyRange) {
    text = mine ? "My Hand's range's equity against the opponent's range"
                : "The opponent's range's equity against My Hand's range";
  }
  char value[32];
  std::snprintf(value, sizeof value, "%.2f%%", mine ? myEquity : oppEquity);
  text += ": ";
  text += value;
  // Under the standard rules the read-out carries its tally: win and tie shares and the showdowns.
  const std::string& tally = mine ? lblMyEquity.toolTip : lbloppEquity.toolTip;
  if (!tally.empty()) return text + ", standard rules: " + tally;
  switch (equityStreet) {
    case kNoBoard:
      text += ", preflop, from the program's matchup tables";
      break;
    case kFlop:
      text += ", on the flop, every turn and river dealt out";
      break;
    case kTurn:
      text += ", on the turn, every river card dealt out";
      break;
    default:
      text += ", on the river, where no calculation runs";
      break;
  }
  // The program's own rules give values players do not expect (0.0% on the river, a nut flush far below
  // its due): the read-out names them and the option that changes them.
  return text + std::string(kOwnRulesNote);
}

}  // namespace quillet
