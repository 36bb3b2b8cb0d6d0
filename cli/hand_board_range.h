// The options the cook and equity commands share: --hand TEXT and --board TEXT (both required, either may be
// ""), the range as --range LIST or --top PCT (one of the two), and --seen LIST.
#pragma once

#include <ostream>
#include <string>

namespace quillet {
class Form1Model;
}

namespace quillet::cli {

class Args;

// Checks the shared options and sets `model` up as the window would stand before the command: one fresh
// "Generic" profile, current, holding the listed classes whole in its On and Seen layers (or, with --top,
// the range the range box gives for PCT), and the two card texts typed. On a refused option it writes
// "<command>: <why>" to `err` and returns false.
bool SetUpHandBoardRange(const Args& args, const std::string& command, Form1Model& model, std::ostream& err);

// --top: types `percent` into the range box and presses Enter, on the model's current profile (snapped to a
// step of the preflop order; at or above the last step the grid keeps what it had). Returns an error message
// when the box refuses the text (it would turn red and change nothing), empty otherwise.
std::string TypeTopPercent(Form1Model& model, const std::string& percent);

}  // namespace quillet::cli
