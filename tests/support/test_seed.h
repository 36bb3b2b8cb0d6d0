// The seed of a random test: fixed by default, overridable with the environment variable QUILLET_TEST_SEED,
// and always printed, so a failure can be repeated exactly.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

namespace quillet::testing {

inline uint64_t TestSeed(uint64_t fixedSeed) {
  uint64_t seed = fixedSeed;
  if (const char* text = std::getenv("QUILLET_TEST_SEED"); text != nullptr && *text != '\0') {
    seed = std::strtoull(text, nullptr, 10);
  }
  std::cout << "random test seed " << seed << " (QUILLET_TEST_SEED=" << seed << " repeats it)\n";
  return seed;
}

}  // namespace quillet::testing
