// The results tree after a cook, the export text and its copy to the clipboard, and the tree's actions:
// the pop-up menu, "Add to Range", the tree's error signal and the F3 card search; the check boxes of
// "Check Boxes" and "Keep Only Checked".
#include "app/model/form1_model.h"
#include "cards/card.h"
#include "cards/card_input.h"
#include "cards/hand_class.h"
#include "range/holding_set.h"
#include "results/build_results_tree.h"
#include "results/tree_actions.h"

namespace quillet {
namespace {

constexpr std::string_view kNothingChecked =
    "Nothing is checked. Check the categories or groups to keep, then choose Keep Only Checked again.";

// Switches one holding on in the On layer: the suit pair of its two suits in its class's record, the
// card of the record's first rank first.
void SwitchHoldingOn(RangeLayer& layer, const HandCombo& holding) {
  const int block = ClassOfCombo(holding);
  if (block < 0) return;
  BlockRecord& record = layer[block];
  const bool reversed = holding.rank1 != record.rank1;
  SetBlockSuitPair(record, reversed ? holding.suit2 : holding.suit1, reversed ? holding.suit1 : holding.suit2,
                   true, false);
}

// A node's text as one holding: its cleaned text must parse as four characters, rank, suit, rank, suit,
// and (beyond what the parse checks) name two real, different cards.
bool ParseNodeHolding(const std::string& text, HandCombo& holding) {
  HandCards parsed{};  // fresh: the parse tests rank2 before it sets it
  if (!ParseHandText(CleanNodeText(text), parsed)) return false;
  holding = HandCombo{true, parsed.rank1, parsed.suit1, parsed.rank2, parsed.suit2};
  return IsDeckCard(holding.card1()) && IsDeckCard(holding.card2()) && holding.card1() != holding.card2();
}

}  // namespace

void Form1Model::BuildResultsTree() {
  ResultsOptions resultsOptions;
  resultsOptions.hideEmptyCats = options.hideEmptyCats;
  resultsOptions.simplifyOutput = options.simplifyOutput;
  resultsOptions.categoryIcons = options.categoryIcons;
  resultsOptions.winLoseIcons = options.winLoseIcons;
  resultsOptions.simplifyFurther = options.simplifyFurther;
  resultsOptions.showdownRules =
      options.standardShowdownRules ? ShowdownRules::Standard : ShowdownRules::Quillet;
  resultsOptions.categoryEquity = options.equityPerCategory;

  ResultsCards cards;
  // A range in My Hand is no hand to compare with: no win/tie/lose icons and no equity per category.
  if ((options.winLoseIcons || options.equityPerCategory) && !MyHandIsRange()) {
    HandCards hand{};
    BoardCards board{};
    int32_t street = kNoBoard;
    if (ReadCardInputs(hand, board, street)) {
      cards.hand = hand;
      cards.board = board;
      cards.street = street;
    }
  }
  // Read after the parse, which gives the boxes back their normalised text.
  cards.myHandText = txtMyHand.text;
  cards.boardText = txtBoard.text;

  const MessageSink showMessage = [this](std::string_view text) { services.MsgBox(text); };
  results_.BuildTree(resultsOptions, cards, showMessage);
}

void Form1Model::mnuCopyToClipboard_Click() {
  services.SetClipboardText(results_.exportText);
}

void Form1Model::TV_MouseUp(int button) {
  if (button == kRightButton && !results_.TV.empty()) services.PopUpMenu(PopupMenuId::Tree);
}

void Form1Model::TV_KeyUp(int keyCode) {
  if (keyCode != kKeyF3) return;
  const std::string answer = services.InputBox(kCardSearchPrompt, "");
  services.MsgBox(CardSearchMessage(answer, results_.categories));
}

void Form1Model::mnuAdd2Range_Click() {
  PlayerProfile* profile = profiles_.currentProfile();
  if (results_.TV.empty() || profile == nullptr) return;
  const std::vector<int> run = AddToRangeNodeRun(results_.TV);
  if (run.empty()) return;  // no node selected
  const RangeStep rangeStep(*this);

  // The command replaces the range: the On layer is emptied first, the Seen layer stays.
  grid_.DeselectAllBlocks();
  for (BlockRecord& record : profile->rangeLayer) ClearBlockRecord(record);

  for (const int index : run) {
    HandCombo holding;
    if (!ParseNodeHolding(results_.TV.nodes[index].text, holding)) {
      // The holdings switched on so far stay in the layer; the grid is not redrawn.
      results_.FlashTreeError();
      return;
    }
    SwitchHoldingOn(profile->rangeLayer, holding);
  }

  SetBlockColours();
  grid_.RefreshSuitMatrix(true);
  grid_.WriteRangePercent();
}

void Form1Model::mnuCheckBoxes_Click() {
  ToggleMenuCheck(options.checkBoxes);
  results_.ClearChecks();
}

void Form1Model::TV_NodeCheck(int node, bool checked) {
  results_.CheckNode(node, checked);
}

void Form1Model::mnuKeepOnlyChecked_Click() {
  PlayerProfile* profile = profiles_.currentProfile();
  if (!options.checkBoxes || results_.TV.empty() || profile == nullptr) return;
  const std::vector<int> checked = results_.CheckedNodes();
  if (checked.empty()) {
    services.MsgBox(kNothingChecked);
    return;
  }
  const RangeStep rangeStep(*this);
  PutHoldingsInLayer(HoldingsUnderNodes(results_.TV, results_.categories, checked), profile->rangeLayer);
  grid_.DeselectAllBlocks();
  SetBlockColours();
  grid_.RefreshSuitMatrix(true);
  grid_.WriteRangePercent();
  cmdCheckPossibleHands_Click();
}

void Form1Model::tmrTVError_Timer() {
  results_.EndTreeError();
}

}  // namespace quillet
