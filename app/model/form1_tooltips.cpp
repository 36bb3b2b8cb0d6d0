// The tooltips of the main window's own controls: the command labels and My Hand. The grid's blocks and
// suit cells, the equity read-outs and the results tree answer theirs in their sub-models.
#include <string>
#include <string_view>

#include "app/model/form1_model.h"
#include "cards/hand_class.h"
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

std::string Form1Model::MyHandToolTip() const {
  const std::string tip(kMyHandTip);
  if (options.standardShowdownRules || txtMyHand.text.empty() || IsTwoCardText(txtMyHand.text)) return tip;
  if (!ParseRangeNotation(txtMyHand.text).ok()) return tip;
  // A range typed while the program's own rules are in force: the box says what would take it.
  return tip + "\n" + std::string(kMyHandRangeNote);
}

}  // namespace quillet
