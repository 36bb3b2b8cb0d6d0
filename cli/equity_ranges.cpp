#include "cli/equity_ranges.h"

#include <charconv>
#include <ostream>
#include <string>
#include <vector>

#include "cards/card_input.h"
#include "cli/commands.h"
#include "cli/per_class.h"
#include "equity/class_equity.h"
#include "equity/equity_display.h"
#include "equity/range_equity.h"
#include "equity/tally_text.h"
#include "range/range_notation.h"

namespace quillet::cli {
namespace {

// The shortest text that reads back as the same double ("57.25", "-1", "50"), as std::to_chars writes it.
// This command's JSON lines are written by hand with this; JsonNumber (cli/options.h) builds nlohmann values,
// which write a very small or very large value differently ("0.0001" here is "1e-04"), so the two stay apart.
std::string ShortestNumberText(double value) {
  char buffer[32];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  return std::string(buffer, result.ptr);
}

// A tally's showdowns as a number: a count of whole ranges as it is, a weighted one (in units of which the
// tally's scale, a power of ten, make one showdown) to its last nonzero decimal ("1732.5", "0.32967").
std::string ShowdownsText(const ShowdownTally& tally) {
  const uint64_t scale = tally.scale == 0 ? 1 : tally.scale;
  std::string text = std::to_string(tally.Showdowns() / scale);
  uint64_t rest = tally.Showdowns() % scale;
  if (rest != 0) text += '.';
  for (uint64_t unit = scale / 10; unit > 0 && rest != 0; unit /= 10) {
    text += static_cast<char>('0' + rest / unit);
    rest %= unit;
  }
  return text;
}

// The board as the Board box reads it, with the window's messages when it is refused.
bool ReadBoard(const std::string& text, BoardCards& board, Street& street, std::ostream& err) {
  std::string handText;
  std::string boardText = text;
  HandCards hand;
  const MessageSink message = [&](std::string_view line) { err << line << "\n"; };
  if (!ReadCardInputs(handText, boardText, message, hand, board, street)) {
    err << "Bad Input\n";
    return false;
  }
  if (!HasNoDuplicateCards(hand, board, street, handText)) {
    err << "Duplicate card exists\n";
    return false;
  }
  return true;
}

}  // namespace

int RunEquityRanges(const EquityRangesRequest& request, std::ostream& out, std::ostream& err) {
  const ParsedWeightedRange mine = ParseWeightedRangeNotation(request.handRange);
  if (!mine.ok()) {
    err << "equity: --hand-range: " << mine.error->message << "\n";
    return kExitBadInput;
  }
  const ParsedWeightedRange theirs = ParseWeightedRangeNotation(request.range);
  if (!theirs.ok()) {
    err << "equity: --range: " << theirs.error->message << "\n";
    return kExitBadInput;
  }
  BoardCards board;
  Street street = kNoBoard;
  if (!ReadBoard(request.board, board, street, err)) return kExitBadInput;

  std::optional<ClassEquities> classes;
  const std::vector<HandCombo> myCombos = WeightedCombos(mine.weights);
  const std::vector<HandCombo> theirCombos = WeightedCombos(theirs.weights);
  const RangeEquityResult result = request.perClass
                                       ? RangeEquityWithClasses(myCombos, theirCombos, board, street, classes)
                                       : StandardRangeEquity(myCombos, theirCombos, board, street);
  if (!result.ok()) {
    err << "equity: " << result.error << "\n";
    return kExitFailure;
  }
  const ShowdownTally& tally = result.tally;
  const bool counted = tally.Showdowns() > 0;
  const double my = counted ? tally.EquityPercent() : -1.0;
  const double opp = counted ? tally.Reversed().EquityPercent() : -1.0;
  if (request.json) {
    out << "{\"my\":" << ShortestNumberText(my) << ",\"opp\":" << ShortestNumberText(opp)
        << ",\"win\":" << ShortestNumberText(tally.WinPercent())
        << ",\"tie\":" << ShortestNumberText(tally.TiePercent())
        << ",\"lose\":" << ShortestNumberText(tally.LossPercent())
        << ",\"showdowns\":" << ShowdownsText(tally) << ",\"street\":" << street << ",\"rules\":\""
        << ShowdownRulesName(ShowdownRules::Standard) << "\"";
    if (request.perClass)
      out << ",\"classes\":" << (classes ? ClassEquitiesJson(*classes).dump() : std::string("null"));
    out << "}\n";
  } else {
    out << "My Equity: " << FormatEquityReadOut(my) << "\n"
        << "Opp Equity: " << FormatEquityReadOut(opp) << "\n"
        << ShowdownTallyText(tally) << "\n";
    if (classes) out << "My equity per class (%):\n" << ClassEquitiesTable(*classes);
  }
  return kExitOk;
}

}  // namespace quillet::cli
