// The main window's results: the last cook's categories and counts, the results tree (TV) with its check
// boxes and error signal, the export text, and the equity read-outs with the heat map of the last Calc
// Equity. The window model (Form1Model) owns one and runs the cook, the equity command and the tree's
// handlers; this class keeps what they show and answers what the tree and the read-outs are asked.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/model/form1_controls.h"
#include "cards/card.h"
#include "cards/card_input.h"
#include "categorise/category_node.h"
#include "equity/class_equity.h"
#include "equity/equity_result.h"
#include "results/build_results_tree.h"
#include "results/results_tree.h"

namespace quillet {

class ResultsModel {
 public:
  // `options` are the window's menu ticks ("Check Boxes" decides which nodes take a check).
  explicit ResultsModel(const MenuOptions& options);

  // ---- the tree ----
  // Builds the tree and the export text from `categories`, and clears every check.
  void BuildTree(const ResultsOptions& resultsOptions, const ResultsCards& cards,
                 const MessageSink& showMessage);
  // Unchecks every node of the tree.
  void ClearChecks();
  // Whether the node shows a check box: "Check Boxes" ticked, and a category or group node.
  bool NodeCheckable(int node) const;
  // Checks or unchecks a node's box (nothing for a node without one).
  void CheckNode(int node, bool checked);
  // The checked nodes that show a check box, in tree order.
  std::vector<int> CheckedNodes() const;
  // The tree's error signal: the "error" pointer for a moment (tmrTVError ends it).
  void FlashTreeError();
  void EndTreeError();
  // A node of the tree: for a category node the category's meaning in plain words; empty for the holdings
  // and groups, whose captions say all.
  std::string TreeNodeToolTip(int node) const;

  // ---- the equity read-outs ----
  // Empties the two read-outs (captions, tooltips, colour) and forgets the heat map.
  void ClearEquityDisplay();
  // The two read-outs (captions, my read-out's colour) and the values behind them; the tooltips are the
  // caller's.
  void ShowEquityReadOuts(const EquityResult& values, int32_t street, bool ofMyRange);
  // An equity read-out (My Equity when `mine`, else Opp Equity): what it measures and, after a
  // calculation, the unrounded value and how it was found; under this program's own showdown rules also
  // those rules and where the standard ones are ticked.
  std::string EquityToolTip(bool mine) const;

  // ---- state ----
  Categories categories;  // the last cook's result
  // The last cook's counts, set with the caption.
  int32_t cookRangeCount = 0;         // holdings taken from the grid
  int32_t cookLiveCount = 0;          // of those, the ones that use no card of My Hand or the Board
  std::string lblCheckPossibleHands;  // the cook's three-line caption
  ResultsTree TV;
  // Which nodes of TV are checked (by flat index), while "Check Boxes" is ticked; every rebuild of the
  // tree clears them.
  std::vector<bool> tvChecked;
  int tvMousePointer = 0;  // 0 default, 99 the custom "error" pointer
  std::string exportText;
  TimerState tmrTVError{550};

  LabelState lblMyEquity;  // caption "57.3%", opaque and coloured after a calculation
  LabelState lbloppEquity;
  // The unrounded values behind the last read-outs.
  double myEquity = 0.0;
  double oppEquity = 0.0;
  int32_t equityStreet = kNoBoard;
  bool equityOfMyRange = false;  // the read-outs give my range's equity (a range in My Hand)
  // The heat map: My Hand's equity against each class of the range from the last Calc Equity while
  // "Equity Heat Map" was ticked; cleared with the read-outs and by unticking.
  std::optional<ClassEquities> heatMap;
  bool equityMenuOfMine = true;  // the read-out menu was opened on My Equity (else Opp Equity)

 private:
  const MenuOptions& options_;
};

}  // namespace quillet
