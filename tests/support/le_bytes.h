// Bytes of the program's little-endian files, written out by hand for the tests.
#pragma once

#include <cstdint>
#include <string>

namespace quillet::testing {

// The four bytes of `v`, lowest first.
inline std::string Le32(int32_t v) {
  std::string out;
  for (int k = 0; k < 4; ++k) out.push_back(static_cast<char>((static_cast<uint32_t>(v) >> (8 * k)) & 0xFF));
  return out;
}

}  // namespace quillet::testing
