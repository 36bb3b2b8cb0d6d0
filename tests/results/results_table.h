// A category table filled by hand, as a cook would leave it, and the export text split into lines, for
// the results tests.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "categorise/categories.h"
#include "results/build_results_tree.h"
#include "tests/support/card_text.h"

namespace quillet::testing {

struct ResultsTable {
  Categories categories;

  ResultsTable() { InitCategories(categories); }

  // A table of the given labels instead of the program's 55 entries.
  explicit ResultsTable(const std::vector<std::string>& labels) {
    for (const std::string& label : labels) {
      CategoryNode node;
      node.label = label;
      categories.nodes.push_back(node);
    }
  }

  ResultsTable& AddHolding(int entry, const HandCombo& combo) {
    AddToCategory(categories, entry, combo);
    return *this;
  }
  ResultsTable& Add(int entry, const std::vector<std::string>& holdings) {
    for (const std::string& h : holdings) AddHolding(entry, Holding(h));
    return *this;
  }

  // What the end of a classification leaves: each entry's first flag tells whether it holds anything.
  // The categorised holdings are whole unless `categorisedWeight` (thousandths) says otherwise.
  ResultsTable& Finish(int32_t categorised, int64_t categorisedWeight = -1) {
    categories.categorisedCount = categorised;
    categories.categorisedWeight =
        categorisedWeight >= 0 ? categorisedWeight : int64_t{categorised} * kFullWeight;
    for (CategoryNode& node : categories.nodes) node.nonEmpty = node.count != 0;
    return *this;
  }
};

inline ResultsOptions Options(bool hideEmpty, bool simplify, bool further = false) {
  ResultsOptions o;
  o.hideEmptyCats = hideEmpty;
  o.simplifyOutput = simplify;
  o.simplifyFurther = further;
  o.categoryIcons = false;
  o.winLoseIcons = false;
  return o;
}

inline ResultsCards Cards(const std::string& hand, const std::string& board) {
  ResultsCards c;
  c.myHandText = hand;
  c.boardText = board;
  if (!hand.empty()) c.hand = Hand(hand);
  if (!board.empty()) {
    const TestBoard b = WindowBoard(board);
    c.board = b.cards;
    c.street = b.street;
  }
  return c;
}

// The lines of the export text after its header, without their CR LF. Fails the test when the text does
// not start with the header of `cards` or does not end with CR LF.
inline std::vector<std::string> ExportLines(const ResultsBuild& build, const ResultsCards& cards) {
  const std::string header = ExportHeader(cards.myHandText, cards.boardText);
  const std::string& text = build.exportText;
  EXPECT_EQ(text.substr(0, header.size()), header);
  std::vector<std::string> lines;
  std::string_view rest = std::string_view(text).substr(std::min(header.size(), text.size()));
  while (!rest.empty()) {
    const auto end = rest.find("\r\n");
    EXPECT_NE(end, std::string_view::npos) << "a line without CR LF: " << rest;
    if (end == std::string_view::npos) break;
    lines.emplace_back(rest.substr(0, end));
    rest.remove_prefix(end + 2);
  }
  return lines;
}

// The export text put together again from the nodes that gave a line, in flat index order.
inline std::string ExportFromNodes(const ResultsTree& tree) {
  std::string out;
  for (const ResultNode& node : tree.nodes) {
    if (!node.exportLine) continue;
    if (node.parent >= 0) out += std::string(2 * node.level, ' ');
    out += node.text + "\r\n";
  }
  return out;
}

}  // namespace quillet::testing
