// What every command of quillet-cli shares: reading its words with CLI11 (so each command has --help), and
// writing JSON with nlohmann-json.
//
// The refusals keep the program's own wording: "<prefix>: unknown option --x", "<prefix>: missing value
// after --x". An option given twice keeps its last value. Words that are not options come back as the
// command's positional words, in order.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "range/colour.h"

// CLI11 is included only by the files that build or read a parser (<CLI/CLI.hpp>); the rest of the commands
// see its App by name.
namespace CLI {
class App;
}  // namespace CLI

namespace quillet::cli {

// Sets a command's CLI11 parser up (`CLI::App app(summary, "quillet-cli NAME")`): options given twice keep
// the last value; unknown words are kept for ParseCommandWords to judge.
void SetUpCommandParser(CLI::App& app);

// Parses `words`. Returns the command's positional words; or nullopt with `status` set, after printing
// --help's text to `out` (status 0) or "<prefix>: <why>" to `err` (status 2).
std::optional<std::vector<std::string>> ParseCommandWords(CLI::App& app,
                                                          const std::vector<std::string>& words,
                                                          const std::string& prefix, std::ostream& out,
                                                          std::ostream& err, int& status);

// Whether an option was given on the command line ("--board" given as "" counts).
bool Given(const CLI::App& app, const std::string& option);

// JSON values written in insertion order, keys as given.
using Json = nlohmann::ordered_json;

// The compact text of a JSON value, UTF-8 passed through ("\"a\\\"b\"" for a"b).
std::string JsonText(const Json& value);
// `text` as a JSON string literal, quotes included.
std::string JsonString(const std::string& text);
// A number as the shortest text that reads back as the same double: whole values without a decimal point
// ("-1", "50"), others as "57.25".
Json JsonNumber(double value);

// "#RRGGBB".
std::string HexColour(Colour colour);

}  // namespace quillet::cli
