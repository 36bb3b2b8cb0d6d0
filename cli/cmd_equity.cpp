// quillet-cli equity: the window's Calc Equity on a range given as class lists, with a fresh "Generic"
// profile.
#include <charconv>
#include <cstdio>
#include <ostream>
#include <string>

#include "app/model/form1_model.h"
#include "app/model/window_services.h"
#include "cli/args.h"
#include "cli/commands.h"
#include "cli/hand_board_range.h"
#include "range/colour.h"

namespace quillet::cli {
namespace {

// The shortest text that reads back as the same double ("57.25", "-1", "50").
std::string JsonNumber(double value) {
  char buffer[32];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  return std::string(buffer, result.ptr);
}

std::string HexColour(Colour colour) {
  char buffer[8];
  std::snprintf(buffer, sizeof buffer, "#%02X%02X%02X", RedOf(colour), GreenOf(colour), BlueOf(colour));
  return buffer;
}

int RunEquity(const std::vector<std::string>& words, std::ostream& out, std::ostream& err) {
  const Args args(words, {"--hand", "--board", "--range", "--top", "--seen"}, {"--json"});
  RecordingServices services;
  Form1Model model(services);
  if (!SetUpHandBoardRange(args, "equity", model, err)) return kExitBadInput;
  const bool top = args.has("--top");

  model.cmdCalcEquity_Click();

  // Blank read-outs mean the command stopped before calculating: refused input (its messages say why)
  // or no My Hand, which the window passes over in silence.
  if (model.lblMyEquity.caption.empty()) {
    for (const auto& message : services.messages) err << message.text << "\n";
    if (services.messages.empty()) err << "equity: My Hand is empty: there is nothing to calculate\n";
    return kExitBadInput;
  }
  // A preflop matchup missing from the tables is reported per holding; the result of the rest stands.
  for (const auto& message : services.messages) err << message.text << "\n";
  const int status = services.messages.empty() ? kExitOk : kExitFailure;

  if (args.has("--json")) {
    out << "{\"my\":" << JsonNumber(model.myEquity) << ",\"opp\":" << JsonNumber(model.oppEquity)
        << ",\"street\":" << model.equityStreet << ",\"colour\":\"" << HexColour(model.lblMyEquity.backColour)
        << "\"";
    if (top) out << ",\"rangeText\":" << JsonString(model.txtRange.text);
    out << "}\n";
  } else {
    out << "My Equity: " << model.lblMyEquity.caption << "\n"
        << "Opp Equity: " << model.lbloppEquity.caption << "\n";
  }
  return status;
}

const CommandRegistrar kRegisterEquity{Command{
    "equity", "--hand TEXT --board TEXT (--range LIST | --top PCT) [--seen LIST] [--json]",
    "My Hand's equity against every live holding of the range: the preflop tables without a board, every "
    "completion on the flop and the turn (the river shows 0.0%); LIST and PCT as for cook; --json gives the "
    "unrounded values, the street (0-3) and My Equity's colour",
    20, RunEquity}};

}  // namespace
}  // namespace quillet::cli
