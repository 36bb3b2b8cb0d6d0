// What the results tree's actions read from it: the holding a node's text names ("Add to Range"), the
// nodes the command takes, and the card search over the category table.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "categorise/category_node.h"
#include "range/holding_set.h"
#include "results/results_tree.h"

namespace quillet {

// The part of `text` in front of its first "(" (all of it when there is none), with every blank, "~",
// bullet (U+2022), "*" and lower-case "o" taken out: "Ah Kd *" gives "AhKd", "~AKs (4)" gives "AKs".
std::string CleanNodeText(std::string_view text);

// The flat indexes "Add to Range" reads for the selected node: with children, the run from the node's
// index + 1 over as many nodes as it has direct children (in a tree with grandchildren the run covers
// grandchildren and misses later children, and is kept so); without children, the node itself. Empty
// when no node is selected.
std::vector<int> AddToRangeNodeRun(const ResultsTree& tree);

// Whether the node can carry a check box ("Check Boxes"): a category node, or a group node (a class of
// several holdings with its holdings under it). A holding's own node, single-holding lines included, and a
// spacer's empty line cannot.
bool IsCheckableNode(const ResultsTree& tree, int node);

// The holdings under the given nodes, each holding once however many of the nodes hold it: a category node
// gives its own holdings and those of its sub-categories (the deeper categories that follow it), a group
// node the holdings of its class in its category. Nodes that cannot carry a check box add nothing.
HoldingSet HoldingsUnderNodes(const ResultsTree& tree, const Categories& categories,
                              std::span<const int> nodes);

inline constexpr std::string_view kCardSearchPrompt = "Enter Card you are looking for. E.G. Tc";

// The card search's answer to what the user typed: "Bad length." unless the trimmed answer has two
// characters, "Invalid Card" unless they are a rank and a suit (case counts: "tc" is no card), else
// "Found Tc in category >*T pair" for the first category (in table order, holdings in stored order)
// with a holding whose first card it is, or "Tc not found in categories.". Only first cards count.
std::string CardSearchMessage(std::string_view answer, const Categories& categories);

}  // namespace quillet
