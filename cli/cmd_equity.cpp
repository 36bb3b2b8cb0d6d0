// quillet-cli equity: the window's Calc Equity on a range given as class lists, with a fresh "Generic"
// profile.
#include <CLI/CLI.hpp>
#include <ostream>
#include <string>

#include "categorise/cook.h"
#include "cli/commands.h"
#include "cli/equity_ranges.h"
#include "cli/hand_board_range.h"
#include "cli/options.h"
#include "cli/per_class.h"
#include "equity/calc_equity.h"
#include "equity/class_equity.h"
#include "equity/equity_display.h"
#include "equity/tally_text.h"

namespace quillet::cli {
namespace {

constexpr const char* kEquityUsage =
    "--hand TEXT --board TEXT (--range LIST | --top PCT) [--seen LIST] [--standard-rules] [--per-class] "
    "[--json]";
constexpr const char* kEquitySummary =
    "My Hand's equity against every live holding of the range: the preflop tables without a board, every "
    "completion on the flop and the turn (the river shows 0.0%); LIST and PCT as for cook; --json gives the "
    "unrounded values, the street (0-3) and My Equity's colour";

// With --hand-range my side is a range and the opponent's is --range in notation: --hand, --top and --seen
// have nothing to act on there and are refused rather than passed over. Returns false after saying why.
bool RefuseWithHandRange(const CLI::App& app, const std::vector<std::string>& positional, std::ostream& err) {
  if (!positional.empty()) {
    err << "equity: unexpected argument \"" << positional.front() << "\"\n";
    return false;
  }
  if (Given(app, "--hand")) {
    err << "equity: give --hand TEXT or --hand-range RANGE, not both\n";
    return false;
  }
  if (Given(app, "--top")) {
    err << "equity: --top does not apply with --hand-range: write the opponent's range in --range (\"10%\" "
           "there is the top of the preflop order)\n";
    return false;
  }
  if (Given(app, "--seen")) {
    err << "equity: --seen does not apply with --hand-range: write those holdings into --range too\n";
    return false;
  }
  if (Given(app, "--classes")) {
    err << "equity: --classes does not apply with --hand-range: both ranges are read as notation\n";
    return false;
  }
  return true;
}

int RunEquity(const std::vector<std::string>& words, std::ostream& out, std::ostream& err) {
  CLI::App app(kEquitySummary, "quillet-cli equity");
  SetUpCommandParser(app);
  HandBoardRangeOptions options;
  AddHandBoardRangeOptions(app, options);
  bool json = false;
  app.add_flag("--json", json, "the unrounded values, the street and My Equity's colour as JSON");
  bool standardRules = false;
  app.add_flag("--standard-rules", standardRules,
               "the standard showdown rules (\"Standard Showdown Rules\"): best five of seven, ties split; "
               "--json adds win, tie, lose, showdowns and rules");

  bool perClass = false;
  app.add_flag(
      "--per-class", perClass,
      "my equity against each class of the range: --json adds \"classes\" (class, equity, holdings), "
      "the text a 13 x 13 table of rounded equities laid out like the grid");

  std::string handRange;
  app.add_option("--hand-range", handRange,
                 "my range in range notation in place of --hand: my range against --range (notation) under "
                 "the standard rules; --json gives my, opp, win, tie, lose and showdowns");

  int status = kExitOk;
  const auto positional = ParseCommandWords(app, words, "equity", out, err, status);
  if (!positional) return status;
  if (Given(app, "--hand-range")) {
    if (!RefuseWithHandRange(app, *positional, err)) return kExitBadInput;
    return RunEquityRanges({handRange, options.range, options.board, json, perClass}, out, err);
  }
  const auto input = ReadHandBoardRange(app, options, *positional, "equity", err);
  if (!input) return kExitBadInput;

  EquityRequest request;
  request.cards = CheckCardInputs(input->handText, input->boardText, CardsFor::Equity);
  request.range =
      CollectRangeCombos(input->profile.rangeLayer, input->profile.seenLayer, &input->profile.onWeights);
  request.rules = standardRules ? ShowdownRules::Standard : ShowdownRules::Quillet;
  request.perClass = perClass;
  const EquityOutcome outcome = CalcEquity(request);
  const std::optional<ClassEquities>& classes = outcome.classes;

  // Nothing calculated: refused input (its messages say why) or no My Hand, which the window passes over
  // in silence.
  if (outcome.status == EquityStatus::NoHand) {
    err << "equity: My Hand is empty: there is nothing to calculate\n";
    return kExitBadInput;
  }
  for (const std::string& message : outcome.messages) err << message << "\n";
  if (outcome.status == EquityStatus::Refused) return kExitBadInput;
  // A preflop matchup missing from the tables is reported per holding; the result of the rest stands.
  status = outcome.messages.empty() ? kExitOk : kExitFailure;

  const double my = outcome.values.my;
  const double opp = outcome.values.opp;
  if (json) {
    Json result{{"my", JsonNumber(my)},
                {"opp", JsonNumber(opp)},
                {"street", outcome.street},
                {"colour", HexColour(EquityColour(EquityToInteger(my)))}};
    if (input->top) result["rangeText"] = input->profile.rangeText;
    // Only asked for: without --standard-rules the output stays as it always was.
    if (standardRules) {
      if (const auto& tally = outcome.tally) {
        result["win"] = JsonNumber(tally->WinPercent());
        result["tie"] = JsonNumber(tally->TiePercent());
        result["lose"] = JsonNumber(tally->LossPercent());
        // A weighted range's showdowns are their weighted sum, fractions as they fall ("12345.5").
        result["showdowns"] = JsonNumber(static_cast<double>(tally->Showdowns()) /
                                         static_cast<double>(tally->scale == 0 ? 1 : tally->scale));
      }
      result["rules"] = std::string(ShowdownRulesName(request.rules));
    }
    // null where the read-outs have nothing to split (the river under the program's own rules).
    if (perClass) result["classes"] = classes ? ClassEquitiesJson(*classes) : Json(nullptr);
    out << JsonText(result) << "\n";
  } else {
    out << "My Equity: " << FormatEquityReadOut(my) << "\n"
        << "Opp Equity: " << FormatEquityReadOut(opp) << "\n";
    if (outcome.tally) out << ShowdownTallyText(*outcome.tally) << "\n";
    if (perClass) {
      if (classes) {
        out << "My equity per class (%):\n" << ClassEquitiesTable(*classes);
      } else {
        out << "My equity per class: none on this street under these rules\n";
      }
    }
  }
  return status;
}

const CommandRegistrar kRegisterEquity{Command{"equity", kEquityUsage, kEquitySummary, 20, RunEquity}};

}  // namespace
}  // namespace quillet::cli
