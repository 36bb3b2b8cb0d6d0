// The results tree as data: the nodes a tree view shows, in the order they were added (their flat index).
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "range/colour.h"

namespace quillet {

struct ResultNode {
  std::string key;        // "3k", "0-3k", "1-0-3k"
  std::string parentKey;  // empty for a root node
  std::string text;
  std::string image;                 // image-list key; empty: no image
  std::optional<Colour> foreColour;  // none: the tree's default text colour
  int level = 0;                     // depth in the tree
  int parent = -1;                   // flat index of the parent, -1 for a root node
  std::vector<int> children;         // flat indexes of the direct children, in order
  bool exportLine = false;           // whether the node gave a line of the export text
};

struct ResultsTree {
  std::vector<ResultNode> nodes;   // flat index order
  int selected = -1;               // flat index of the selected node, -1 for none
  bool imageListAttached = false;  // whether the tree shows images at all (either icon option on)

  bool empty() const { return nodes.empty(); }
  void clear() {
    nodes.clear();
    byKey.clear();
    selected = -1;
    imageListAttached = false;
  }
  // Flat index of the node with `key`, -1 when there is none.
  int find(std::string_view key) const {
    const auto it = byKey.find(std::string(key));
    return it == byKey.end() ? -1 : it->second;
  }

  std::unordered_map<std::string, int> byKey;  // key -> flat index, kept by AddResultNode
};

}  // namespace quillet
