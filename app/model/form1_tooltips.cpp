// The tooltips of the main window: the texts the window shows while the pointer rests on a grid block, a
// suit-matrix cell, a command label, an equity read-out or a category of the results tree.
#include <cstdio>
#include <string>
#include <string_view>

#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "categorise/category_meaning.h"
#include "range/grid_colours.h"
#include "range/holding_set.h"
#include "range/my_hand_range.h"
#include "range/range_notation.h"
#include "range/range_text.h"

namespace quillet {
namespace {

constexpr std::string_view kSuitNames[4] = {"clubs", "diamonds", "hearts", "spades"};

constexpr std::string_view kOwnRulesNote =
    "\nShowdown rules: this program's own. A flush needs exactly five cards of one suit, kickers come from "
    "the hole cards only, equal two pair goes to the higher hole card, tied showdowns count for neither "
    "side, "
    "and the river is not calculated.\nOptions > Operation > Standard Showdown Rules switches to the "
    "standard "
    "rules (best five of seven, ties split; My Hand then also takes a range).";

constexpr std::string_view kMyHandTip =
    "My two cards, typed as AhKd (rank, then suit); a click opens the card picker, Enter cooks. With "
    "Standard Showdown Rules ticked it may hold a range such as QQ+,AKs";
constexpr std::string_view kMyHandRangeNote =
    "This reads as a range (\"QQ+, AKs\"), which My Hand takes only under the standard showdown rules:\n"
    "Options > Operation > Standard Showdown Rules. Without them My Hand takes two cards (\"AhKd\").";

int HoldingsOfKind(int32_t kind) {
  switch (kind) {
    case kKindPair:
      return 6;
    case kKindSuited:
      return 4;
    default:
      return 12;
  }
}

// A category node's key is the entry's number and "k" ("7k"); holdings and groups carry a "-".
int CategoryOfNodeKey(std::string_view key) {
  if (key.size() < 2 || key.back() != 'k') return -1;
  int entry = 0;
  for (const char c : key.substr(0, key.size() - 1)) {
    if (c < '0' || c > '9') return -1;
    entry = entry * 10 + (c - '0');
  }
  return entry;
}

// " at 50 %" for the On-layer holdings of a block's record under `weights`: their mean weight, rounded to
// a tenth of a per cent, when it is below 1, with " on average" when they differ; empty when all are whole.
std::string BlockWeightText(const BlockRecord& record, int classNumber, const PartialWeights& weights) {
  BlockRecord probe = record;
  const ClassHoldings& holdings = HoldingsOfClass(classNumber);
  int64_t sum = 0;
  int count = 0;
  bool partial = false;
  bool mixed = false;
  int first = -1;
  for (int k = 0; k < holdings.count; ++k) {
    const ClassHolding& h = holdings.holdings[k];
    if (!SetBlockSuitPair(probe, h.suit1, h.suit2, true, true)) continue;
    const int w = OnHoldingWeight(weights, h.number);
    partial = partial || w < kFullWeight;
    mixed = mixed || (first >= 0 && w != first);
    if (first < 0) first = w;
    sum += w;
    ++count;
  }
  if (!partial || count == 0) return {};
  // Thousandths of a whole are tenths of a per cent.
  return " at " + FormatTenths((sum + count / 2) / count) + " %" + (mixed ? " on average" : "");
}

}  // namespace

std::string CommandLabelToolTip(CommandLabel label) {
  switch (label) {
    case CommandLabel::cmdAll:
      return "Put every hand into the range";
    case CommandLabel::cmdAnyPair:
      return "Add every pocket pair to the range";
    case CommandLabel::cmdAnySuited:
      return "Add every suited hand to the range";
    case CommandLabel::cmdAnyBroadway:
      return "Add every hand of two cards ten or higher to the range";
    case CommandLabel::cmdClearOnBlocks:
      return "Empty the range (the On layer); the Seen layer stays";
    case CommandLabel::cmdClearSeenBlocks:
      return "Empty the Seen layer; the range stays";
    case CommandLabel::cmdClearAllBlocks:
      return "Empty both the range and the Seen layer";
    case CommandLabel::cmdCheckPossibleHands:
      return "Cook: sort the opponent's range by what each hand makes on the board (Enter in My Hand or "
             "Board Cards)";
    case CommandLabel::cmdCalcEquity:
      return "Calculate My Hand's equity against the opponent's range (F9)";
    case CommandLabel::lblOptions:
      return "Display, appearance and operation options (F10)";
    case CommandLabel::lblHelp:
      return "Open the online guide in the browser";
    case CommandLabel::lblWebsite:
      return "Open Quillet's home page in the browser";
    case CommandLabel::lblSave:
      return "Save the name typed in the box as a new profile, which starts with a fresh, empty range (Enter "
             "in the box)";
    case CommandLabel::lblDelete:
      return "Delete the current profile (no question is asked)";
  }
  return {};
}

std::string Form1Model::BlockToolTip(int index) const {
  if (index < 0 || index >= kClassCount) return {};
  const HandClass& block = HandClasses()[static_cast<std::size_t>(index)];
  const int holdings = HoldingsOfKind(block.kind);
  const PlayerProfile* profile = currentProfile();
  const int on = profile != nullptr ? profile->rangeLayer[static_cast<std::size_t>(index)].count : 0;
  const int seen = profile != nullptr ? profile->seenLayer[static_cast<std::size_t>(index)].count : 0;
  std::string text =
      block.caption + ": " + std::to_string(on) + " of " + std::to_string(holdings) + " in range";
  if (on > 0)
    text += BlockWeightText(profile->rangeLayer[static_cast<std::size_t>(index)], index, profile->onWeights);
  if (seen > 0)
    text += "; " + std::to_string(seen) + " of " + std::to_string(holdings) + " in the Seen layer";
  if (heatMap && (*heatMap)[static_cast<std::size_t>(index)]) {
    const ClassEquity& heat = *(*heatMap)[static_cast<std::size_t>(index)];
    char equity[32];
    std::snprintf(equity, sizeof equity, "%.1f", heat.equity);
    text += "; my equity " + std::string(equity) + " % against its " + std::to_string(heat.holdings) +
            (heat.holdings == 1 ? " live holding" : " live holdings");
  }
  return text;
}

std::string Form1Model::SuitCellToolTip(int cell) const {
  if (cell < 0 || cell >= kSuitMatrixCells || !grid.matrixCellVisible[static_cast<std::size_t>(cell)])
    return {};
  const SuitMatrixCell& suits = SuitMatrixCells()[static_cast<std::size_t>(cell)];
  const std::string pair = suits.suit1 == suits.suit2
                               ? "Both " + std::string(kSuitNames[suits.suit1])
                               : "First card " + std::string(kSuitNames[suits.suit1]) + ", second " +
                                     std::string(kSuitNames[suits.suit2]);
  std::string layer = grid.editingOn ? "the range" : "the Seen layer";
  const int32_t weight = grid.matrixCellPartWeight[static_cast<std::size_t>(cell)];
  if (grid.editingOn && weight > 0 && grid.comboShown[static_cast<std::size_t>(cell)])
    layer += " at " + FormatTenths(weight) + " %";
  return grid.comboShown[static_cast<std::size_t>(cell)]
             ? pair + ": in " + layer + " for the selected blocks; a click takes these holdings out"
             : pair + ": out of " + layer + " for the selected blocks; a click puts these holdings back";
}

std::string Form1Model::EquityToolTip(bool mine) const {
  std::string text = mine ? "My Hand's equity against the opponent's range"
                          : "The opponent's range's equity against My Hand";
  const std::string& caption = mine ? lblMyEquity.caption : lbloppEquity.caption;
  if (caption.empty()) return text + " (Calc Equity shows it here)";
  if (equityOfMyRange) {
    text = mine ? "My Hand's range's equity against the opponent's range"
                : "The opponent's range's equity against My Hand's range";
  }
  char value[32];
  std::snprintf(value, sizeof value, "%.2f%%", mine ? myEquity : oppEquity);
  text += ": ";
  text += value;
  // Under the standard rules the read-out carries its tally: win and tie shares and the showdowns.
  const std::string& tally = mine ? lblMyEquity.toolTip : lbloppEquity.toolTip;
  if (!tally.empty()) return text + ", standard rules: " + tally;
  switch (equityStreet) {
    case kNoBoard:
      text += ", preflop, from the program's matchup tables";
      break;
    case kFlop:
      text += ", on the flop, every turn and river dealt out";
      break;
    case kTurn:
      text += ", on the turn, every river card dealt out";
      break;
    default:
      text += ", on the river, where no calculation runs";
      break;
  }
  // The program's own rules give values players do not expect (0.0% on the river, a nut flush far below
  // its due): the read-out names them and the option that changes them.
  return text + std::string(kOwnRulesNote);
}

std::string Form1Model::MyHandToolTip() const {
  const std::string tip(kMyHandTip);
  if (options.standardShowdownRules || txtMyHand.text.empty() || IsTwoCardText(txtMyHand.text)) return tip;
  if (!ParseRangeNotation(txtMyHand.text).ok()) return tip;
  // A range typed while the program's own rules are in force: the box says what would take it.
  return tip + "\n" + std::string(kMyHandRangeNote);
}

std::string Form1Model::TreeNodeToolTip(int node) const {
  if (node < 0 || node >= static_cast<int>(TV.nodes.size())) return {};
  return CategoryToolTip(CategoryOfNodeKey(TV.nodes[static_cast<std::size_t>(node)].key));
}

}  // namespace quillet
