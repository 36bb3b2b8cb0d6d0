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

constexpr int kDefaultPointer = 0;
constexpr int kErrorPointer = 99;

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
  ResultsBuild built = quillet::BuildResultsTree(categories, resultsOptions, cards, showMessage);
  TV = std::move(built.tree);
  exportText = std::move(built.exportText);
  tvChecked.assign(TV.nodes.size(), false);  // checks belong to the nodes of one build
}

void Form1Model::mnuCopyToClipboard_Click() {
  services.SetClipboardText(exportText);
}

void Form1Model::TV_MouseUp(int button) {
  if (button == kRightButton && !TV.empty()) services.PopUpMenu(PopupMenuId::Tree);
}

void Form1Model::TV_KeyUp(int keyCode) {
  if (keyCode != kKeyF3) return;
  const std::string answer = services.InputBox(kCardSearchPrompt, "");
  services.MsgBox(CardSearchMessage(answer, categories));
}

void Form1Model::mnuAdd2Range_Click() {
  PlayerProfile* profile = currentProfile();
  if (TV.empty() || profile == nullptr) return;
  const std::vector<int> run = AddToRangeNodeRun(TV);
  if (run.empty()) return;  // no node selected
  const RangeStep rangeStep(*this);

  // The command replaces the range: the On layer is emptied first, the Seen layer stays.
  DeselectAllBlocks();
  for (BlockRecord& record : profile->rangeLayer) ClearBlockRecord(record);

  for (const int index : run) {
    HandCombo holding;
    if (!ParseNodeHolding(TV.nodes[index].text, holding)) {
      // The holdings switched on so far stay in the layer; the grid is not redrawn.
      FlashTreeError();
      return;
    }
    SwitchHoldingOn(profile->rangeLayer, holding);
  }

  SetBlockColours();
  RefreshSuitMatrix(true);
  WriteRangePercent();
}

void Form1Model::mnuCheckBoxes_Click() {
  ToggleMenuCheck(options.checkBoxes);
  tvChecked.assign(TV.nodes.size(), false);
}

bool Form1Model::TVNodeCheckable(int node) const {
  return options.checkBoxes && IsCheckableNode(TV, node);
}

void Form1Model::TV_NodeCheck(int node, bool checked) {
  if (!TVNodeCheckable(node)) return;
  tvChecked.resize(TV.nodes.size(), false);
  tvChecked[static_cast<std::size_t>(node)] = checked;
}

void Form1Model::mnuKeepOnlyChecked_Click() {
  PlayerProfile* profile = currentProfile();
  if (!options.checkBoxes || TV.empty() || profile == nullptr) return;
  std::vector<int> checked;
  for (std::size_t i = 0; i < tvChecked.size() && i < TV.nodes.size(); ++i) {
    if (tvChecked[i] && TVNodeCheckable(static_cast<int>(i))) checked.push_back(static_cast<int>(i));
  }
  if (checked.empty()) {
    services.MsgBox(kNothingChecked);
    return;
  }
  const RangeStep rangeStep(*this);
  PutHoldingsInLayer(HoldingsUnderNodes(TV, categories, checked), profile->rangeLayer);
  DeselectAllBlocks();
  SetBlockColours();
  RefreshSuitMatrix(true);
  WriteRangePercent();
  cmdCheckPossibleHands_Click();
}

void Form1Model::FlashTreeError() {
  tvMousePointer = kErrorPointer;
  tmrTVError.Enable();
}

void Form1Model::tmrTVError_Timer() {
  tmrTVError.Disable();
  tvMousePointer = kDefaultPointer;
}

}  // namespace quillet
