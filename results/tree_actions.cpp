#include "results/tree_actions.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "cards/blank_text.h"
#include "cards/card.h"
#include "results/build_results_tree.h"
#include "results/combo_groups.h"

namespace quillet {
namespace {

// Where a checkable node's holdings come from: its category and, for a group, the group's place among the
// category's class groups.
struct NodeSource {
  int category = -1;
  int group = -1;  // -1: the category node itself
};

// A decimal number at the front of `text`, which it leaves behind it.
std::optional<int> TakeNumber(std::string_view& text) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end == text.data()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return value;
}

// A category node's key is "3k"; a group's (like a holding's under its category) "0-3k".
std::optional<NodeSource> SourceOfNode(const ResultsTree& tree, int node) {
  if (node < 0 || node >= static_cast<int>(tree.nodes.size())) return std::nullopt;
  std::string_view key = tree.nodes[node].key;
  const std::optional<int> first = TakeNumber(key);
  if (!first) return std::nullopt;
  // A spacer (a category with nothing after its "*") shows an empty line and takes no box.
  if (key == "k") return tree.nodes[node].text.empty() ? std::nullopt : std::optional(NodeSource{*first, -1});
  if (!key.starts_with('-') || tree.nodes[node].children.empty()) return std::nullopt;
  key.remove_prefix(1);
  const std::optional<int> category = TakeNumber(key);
  if (!category || key != "k") return std::nullopt;
  return NodeSource{*category, *first};
}

std::span<const HandCombo> OwnCombos(const CategoryNode& node) {
  const auto own = std::clamp<int32_t>(node.count, 0, static_cast<int32_t>(node.combos.size()));
  return {node.combos.data(), static_cast<std::size_t>(own)};
}

void InsertHoldings(HoldingSet& set, std::span<const HandCombo> combos) {
  for (const HandCombo& combo : combos) {
    if (IsHolding(combo.card1(), combo.card2())) set.insert(combo.card1(), combo.card2());
  }
}

}  // namespace

bool IsCheckableNode(const ResultsTree& tree, int node) {
  return SourceOfNode(tree, node).has_value();
}

HoldingSet HoldingsUnderNodes(const ResultsTree& tree, const Categories& categories,
                              std::span<const int> nodes) {
  HoldingSet holdings;
  const int count = static_cast<int>(categories.nodes.size());
  for (const int node : nodes) {
    const std::optional<NodeSource> source = SourceOfNode(tree, node);
    if (!source || source->category < 0 || source->category >= count) continue;
    const CategoryNode& category = categories.nodes[source->category];
    if (source->group >= 0) {
      const std::vector<ComboGroup> groups = GroupCombosByClass(OwnCombos(category));
      if (source->group < static_cast<int>(groups.size()))
        InsertHoldings(holdings, groups[source->group].combos);
      continue;
    }
    InsertHoldings(holdings, OwnCombos(category));
    const int depth = CategoryDepth(category.label);
    for (int j = source->category + 1; j < count && CategoryDepth(categories.nodes[j].label) > depth; ++j) {
      InsertHoldings(holdings, OwnCombos(categories.nodes[j]));
    }
  }
  return holdings;
}

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
  const std::string_view card = TrimSpaces(answer);
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
