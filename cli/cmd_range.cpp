// quillet-cli range: reads a range written as players write it and prints it back in its shortest form,
// with the number of holdings and their share of all 1,326.
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
    "\"random\", \"15%\") and prints it in its shortest form, the number of holdings and their share of all "
    "1,326 (one decimal); cook, equity and profiles add take the same notation in --range and --seen";

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

  const ParsedRange parsed = ParseRangeNotation(text);
  if (!parsed.ok()) {
    err << "quillet-cli range: " << parsed.error->message << "\n";
    return kExitBadInput;
  }
  const std::string printed = PrintRangeNotation(parsed.holdings);
  const int count = parsed.holdings.size();
  const std::string percent = HoldingSharePercentText(count);
  if (json) {
    const Json result{{"range", printed}, {"holdings", count}, {"percent", JsonNumber(std::stod(percent))}};
    out << JsonText(result) << "\n";
  } else {
    out << "Range: " << printed << "\nHoldings: " << count << "\nPercent: " << percent << "\n";
  }
  return kExitOk;
}

const CommandRegistrar kRegisterRange{Command{"range", kRangeUsage, kRangeSummary, 30, RunRange}};

}  // namespace
}  // namespace quillet::cli
