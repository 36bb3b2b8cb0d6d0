// Finding nodes of a results tree by their text.
#pragma once

#include <string>

#include "results/results_tree.h"

namespace quillet::testing {

// The first node whose text starts with `text`: one holding in a cook's tree without Simplify Output
// ("Td Th", maybe with " *"). None when there is no such node.
inline const ResultNode* HoldingNode(const ResultsTree& tree, const std::string& text) {
  for (const ResultNode& node : tree.nodes) {
    if (node.text.rfind(text, 0) == 0) return &node;
  }
  return nullptr;
}

}  // namespace quillet::testing
