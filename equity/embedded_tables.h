// The tables built into the program: the preflop tables (empty when the build had no such file), the bytes
// of data/preflop_matchups.bin and of data/preflop_classes.bin, and the standard evaluator's tables, which
// the build makes (equity/standard_evaluator.h).
#pragma once

#include <span>

namespace quillet {

std::span<const unsigned char> EmbeddedTableBytes();
std::span<const unsigned char> EmbeddedClassTableBytes();
std::span<const unsigned char> EmbeddedEvaluatorTableBytes();

}  // namespace quillet
