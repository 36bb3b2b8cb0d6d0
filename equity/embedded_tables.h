// The bytes of data/preflop_matchups.bin as built into the program (empty when the build had no such file).
#pragma once

#include <span>

namespace quillet {

std::span<const unsigned char> EmbeddedTableBytes();

}  // namespace quillet
