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
  const PlayerProfile* profile = profiles_.currentProfile();
  const int on = profile != nullptr ? profile->rangeLayer[static_cast<std::size_t>(index)].count : 0;
  const int seen = profile != nullptr ? profile->seenLayer[static_cast<std::size_t>(index)].count : 0;
  std::string text =
      block.caption + ": " + std::to_string(on) + " of " + std::to_string(holdings) + " in range";
  if (on > 0)
    text += BlockWeightText(profile->rangeLayer[static_cast<std::size_t>(index)], index, profile->onWeights);
  if (seen > 0)
    text += "; " + std::to_string(seen) + " of " + std::to_string(holdings) + " in the Seen layer";
  if (results_.heatMap && (*results_.heatMap)[static_cast<std::size_t>(index)]) {
    const ClassEquity& heat = *(*results_.heatMap)[static_cast<std::size_t>(index)];
    char equity[32];
    std::snprintf(equity, sizeof equity, "%.1f", heat.equity);
    text += "; my equity " + std::string(equity) + " % against its " + std::to_string(heat.holdings) +
            (heat.holdings == 1 ? " live holding" : " live holdings");
  }
  return text;
}

std::string Form1Model::MyHandToolTip() const {
  const std::string tip(kMyHandTip);
  if (options.standardShowdownRules || txtMyHand.text.empty() || IsTwoCardText(txtMyHand.text)) return tip;
  if (!ParseRangeNotation(txtMyHand.text).ok()) return tip;
  // A range typed while the program's own rules are in force: the box says what would take it.
  return tip + "\n" + std::string(kMyHandRangeNote);
}

}  // namespace quillet
