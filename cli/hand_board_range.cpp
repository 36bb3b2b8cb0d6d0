#include "cli/hand_board_range.h"

#include <CLI/CLI.hpp>

#include "cards/terminal_text.h"
#include "cli/range_option.h"
#include "range/top_of_order.h"

namespace quillet::cli {

void AddHandBoardRangeOptions(CLI::App& app, HandBoardRangeOptions& options) {
  app.add_option("--hand", options.hand, "My Hand, two cards (\"AhKd\"; \"\" for none)");
  app.add_option("--board", options.board,
                 "the board: none, three, four or five cards (\"Tc8h3s\"; \"\" for none)");
  app.add_option("--range", options.range,
                 "the range in range notation (\"QQ+, AKs, AhKh\", \"AA,KK,AK\": AK is both halves, 16 "
                 "holdings; weights \"AKs:0.5\", \"[50]AQs, AJs[/50]\")");
  app.add_option("--top", options.top, "the range as the top percent of the preflop order (10 gives 9.8)");
  app.add_option("--seen", options.seen,
                 "the Seen layer's range, written as for --range but without weights");
  app.add_flag("--classes", options.classes, kClassesHelp);
}

std::optional<HandBoardRange> ReadHandBoardRange(const CLI::App& app, const HandBoardRangeOptions& options,
                                                 const std::vector<std::string>& positional,
                                                 const std::string& command, std::ostream& err) {
  if (!positional.empty()) {
    err << command << ": unexpected argument \"" << EscapeControlCharacters(positional.front()) << "\"\n";
    return std::nullopt;
  }
  for (const char* required : {"--hand", "--board"}) {
    if (!Given(app, required)) {
      err << command << ": missing " << required << " (an empty value is written \"\")\n";
      return std::nullopt;
    }
  }
  const bool top = Given(app, "--top");
  if (top == Given(app, "--range")) {
    err << command << ": "
        << (top ? "give --range LIST or --top PCT, not both" : "missing --range LIST (or --top PCT)") << "\n";
    return std::nullopt;
  }
  if (options.classes && !Given(app, "--range") && !Given(app, "--seen")) {
    err << command << ": --classes applies to --range and --seen, and neither is given\n";
    return std::nullopt;
  }
  const RangeReading reading = options.classes ? RangeReading::Classes : RangeReading::Notation;
  HandBoardRange read;
  InitProfile(read.profile);
  read.profile.name = "Generic";
  if (const std::string error = PutWeightedRangeOption(options.range, read.profile, reading);
      !error.empty()) {
    err << command << ": --range: " << error << "\n";
    return std::nullopt;
  }
  if (const std::string error = PutRangeOption(options.seen, read.profile.seenLayer, reading);
      !error.empty()) {
    err << command << ": --seen: " << error << "\n";
    return std::nullopt;
  }
  read.top = top;
  if (top) {
    const auto step = TopOfOrderStep(options.top);
    if (!step) {
      err << command << ": --top: \"" << EscapeControlCharacters(options.top)
          << "\" is not a percentage (digits with at most one \".\", \"-\" only first)\n";
      return std::nullopt;
    }
    read.profile.rangeText = TopOfOrderText(step->entry);
    if (step->apply) {
      ApplyTopOfOrder(read.profile.rangeLayer, step->entry);
    } else {
      // The range box moves the slider to its end and leaves the grid as it was; the command follows it, so
      // it says so rather than let an empty range pass for the whole order.
      err << command << ": --top " << options.top << " is at or above the last step of the preflop order ("
          << read.profile.rangeText
          << "): as in the range box, the range was left as it was (empty); --range 100% takes every "
             "holding\n";
    }
  }
  read.handText = options.hand;
  read.boardText = options.board;
  return read;
}

}  // namespace quillet::cli
