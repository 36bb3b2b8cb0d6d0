// The preflop tables as built into the program (empty when the build had no such file): the bytes of
// data/preflop_matchups.bin and of data/preflop_classes.bin.
#pragma once

#include <span>

namespace quillet {

std::span<const unsigned char> EmbeddedTableBytes();
std::span<const unsigned char> EmbeddedClassTableBytes();

}  // namespace quillet
