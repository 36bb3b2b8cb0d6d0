// The --top option of the cook and equity commands: the range the range box gives when PCT is typed into
// it and Enter pressed, on the model's current profile (snapped to a step of the preflop order; at or above
// the last step the grid keeps what it had).
#pragma once

#include <string>

namespace quillet {
class Form1Model;
}

namespace quillet::cli {

// Types `percent` into the range box and presses Enter. Returns an error message when the box refuses
// the text (it would turn red and change nothing), empty otherwise.
std::string TypeTopPercent(Form1Model& model, const std::string& percent);

}  // namespace quillet::cli
