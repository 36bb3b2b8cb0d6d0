// The options the cook and equity commands share: --hand TEXT and --board TEXT (both required, either may be
// ""), the range as --range LIST or --top PCT (one of the two), and --seen LIST.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "cli/options.h"
#include "range/player_profile.h"

namespace quillet::cli {

// The option values as read.
struct HandBoardRangeOptions {
  std::string hand;
  std::string board;
  std::string range;
  std::string top;
  std::string seen;
  bool classes = false;  // --classes: --range and --seen read as class lists first
};

// Adds the five options and --classes to a command's parser.
void AddHandBoardRangeOptions(CLI::App& app, HandBoardRangeOptions& options);

// The two card texts and the range, as the window would stand before the command: one fresh "Generic"
// profile holding the ranges of --range and --seen (notation, or with --classes class lists first) in its
// On and Seen layers, --range's weights below 1 in its On-layer weights, or with --top the range the range
// box gives for PCT (snapped to a step of the preflop order; at or above the last step the On layer stays
// empty, and a line on `err` says so). Its range text is the box's text after --top.
struct HandBoardRange {
  std::string handText;
  std::string boardText;
  PlayerProfile profile;
  bool top = false;
};

// Checks the shared options (in this order: stray words, --hand and --board present, one of --range and
// --top, --classes given with --range or --seen, the two ranges, the percentage) and builds the range. On a
// refusal it writes
// "<command>: <why>" to `err` and returns nullopt.
std::optional<HandBoardRange> ReadHandBoardRange(const CLI::App& app, const HandBoardRangeOptions& options,
                                                 const std::vector<std::string>& positional,
                                                 const std::string& command, std::ostream& err);

}  // namespace quillet::cli
