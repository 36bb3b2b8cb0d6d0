#include "results/tree_actions.h"

#include <algorithm>

#include "cards/card.h"
#include "results/build_results_tree.h"

namespace quillet {
namespace {

// Blanks only, at both ends.
std::string_view TrimBlanks(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  const auto last = text.find_last_not_of(' ');
  return text.substr(first, last - first + 1);
}

}  // namespace

std::string CleanNodeText(std::string_view text) {
  std::string_view name = text.substr(0, text.find('('));
  std::string out;
  while (!name.empty()) {
    if (name.starts_with(kWholeGroupMark)) {
      name.remove_prefix(kWholeGroupMark.size());
      continue;
    }
    const char c = name.front();
    if (c != ' ' && c != '~' && c != '*' && c != 'o') out.push_back(c);
    name.remove_prefix(1);
  }
  return out;
}

std::vector<int> AddToRangeNodeRun(const ResultsTree& tree) {
  const int selected = tree.selected;
  const int size = static_cast<int>(tree.nodes.size());
  if (selected < 0 || selected >= size) return {};
  const int children = static_cast<int>(tree.nodes[selected].children.size());
  if (children == 0) return {selected};
  std::vector<int> run;
  for (int index = selected + 1; index <= selected + children && index < size; ++index) run.push_back(index);
  return run;
}

std::string CardSearchMessage(std::string_view answer, const Categories& categories) {
  const std::string_view card = TrimBlanks(answer);
  if (card.size() != 2) return "Bad length.";
  const int32_t rank = RankFromChar(card.substr(0, 1));
  const int32_t suit = SuitFromChar(card.substr(1, 1));
  if (rank == kNoCard || suit == kNoCard) return "Invalid Card";
  for (const CategoryNode& node : categories.nodes) {
    const auto own =
        std::min<std::size_t>(static_cast<std::size_t>(std::max(node.count, 0)), node.combos.size());
    for (std::size_t k = 0; k < own; ++k) {
      if (node.combos[k].rank1 == rank && node.combos[k].suit1 == suit) {
        return "Found " + std::string(card) + " in category " + node.label;
      }
    }
  }
  return std::string(card) + " not found in categories.";
}

}  // namespace quillet
