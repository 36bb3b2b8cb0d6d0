// The results tree as data: the nodes a tree view shows, in the order they were added (their flat index).
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "range/colour.h"

namespace quillet {

struct ResultNode {
  std::string key;        // "3k", "0-3k", "1-0-3k"
  std::string parentKey;  // empty for a root node
  std::string text;
  std::string image;      // image-list key; empty: no image
  std::optional<Colour> foreColour;  // none: the tree's default text colour
  int level = 0;          // depth in the tree
  int parent = -1;        // flat index of the parent, -1 for a root node
  std::vector<int> children;  // flat indexes of the direct children, in order
};

struct ResultsTree {
  std::vector<ResultNode> nodes;  // flat index order
  int selected = -1;              // flat index of the selected node, -1 for none

  bool empty() const { return nodes.empty(); }
  void clear() {
    nodes.clear();
    selected = -1;
  }
};

}  // namespace quillet
