// quillet-cli range: reads a range written as players write it and prints it back in its shortest form,
// with the number of holdings and their share of all 1,326.
#include <CLI/CLI.hpp>
#include <ostream>
#include <string>

#include "cli/commands.h"
#include "cli/options.h"
#include "range/holding_set.h"
#include "range/range_notation.h"

namespace quillet::cli {
namespace {

constexpr const char* kRangeUsage = "TEXT [--json]";
constexpr const char* kRangeSummary =
    "reads range notation (\"22+, A2s+, KTs+, QJs, ATo+, KQo\", \"A5s-A2s\", \"T9s-54s\", \"AhKh\", "
    "\"random\", \"15%\", weights \"AKs:0.5\", \"[50]AQs, AJs[/50]\") and prints it in its shortest form, "
    "the number of holdings, with weights the combos (the sum of the weights), and their share of all "
    "1,326 (one decimal); cook, equity and profiles add take the same notation in --range, weights "
    "included, and in --seen, without weights";

int RunRange(const std::vector<std::string>& words, std::ostream& out, std::ostream& err) {
  CLI::App app(kRangeSummary, "quillet-cli range");
  SetUpCommandParser(app);
  bool json = false;
  app.add_flag("--json", json, "the text, the count and the share as JSON");
  int status = kExitOk;
  const auto positional = ParseCommandWords(app, words, "quillet-cli range", out, err, status);
  if (!positional) return status;
  if (positional->empty()) {
    err << "quillet-cli range: give the range as one argument (\"QQ+, AKs\")\n";
    return kExitBadInput;
  }
  // Words split by the shell are one text again: blanks separate tokens anyway.
  std::string text;
  for (const std::string& word : *positional) text += (text.empty() ? "" : " ") + word;

  const ParsedWeightedRange parsed = ParseWeightedRangeNotation(text);
  if (!parsed.ok()) {
    err << "quillet-cli range: " << parsed.error->message << "\n";
    return kExitBadInput;
  }
  const WeightedHoldingSet& weights = parsed.weights;
  const std::string printed = PrintWeightedRangeNotation(weights);
  const int count = weights.Count();
  // With weights below 1 the share is the sum of the weights over 1,326 and the combos are said too; with
  // none the output is the unweighted one.
  const bool weighted = !weights.IsUnweighted();
  const std::string percent = WeightSharePercentText(weights.WeightSum());
  const std::string combos = CombosText(weights.WeightSum());
  if (json) {
    Json result{{"range", printed}, {"holdings", count}};
    if (weighted) result["combos"] = JsonNumber(std::stod(combos));
    result["percent"] = JsonNumber(std::stod(percent));
    // A weighted range names its canonical text "text" as well, beside "range" (which a whole range's
    // output has always carried alone).
    if (weighted) result["text"] = printed;
    out << JsonText(result) << "\n";
  } else {
    out << "Range: " << printed << "\nHoldings: " << count << "\n";
    if (weighted) out << "Combos: " << combos << "\n";
    out << "Percent: " << percent << "\n";
  }
  return kExitOk;
}

const CommandRegistrar kRegisterRange{Command{"range", kRangeUsage, kRangeSummary, 30, RunRange}};

}  // namespace
}  // namespace quillet::cli
