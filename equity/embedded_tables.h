// The tables built into the program: the preflop tables (empty when the build had no such file), the bytes
// of data/preflop_matchups.bin and of data/preflop_classes.bin, the class table's matchup map
// (equity/preflop_class_map.h; empty without the class table) and the standard evaluator's tables; the build
// makes the last two.
#pragma once

#include <span>

namespace quillet {

std::span<const unsigned char> EmbeddedTableBytes();
std::span<const unsigned char> EmbeddedClassTableBytes();
std::span<const unsigned char> EmbeddedClassMapBytes();
std::span<const unsigned char> EmbeddedEvaluatorTableBytes();

}  // namespace quillet
