// Whether the test program runs under AddressSanitizer, and how long its random sweeps are there.
//
// The sanitizer build runs every test, but a sweep of hundreds of thousands of random cases or an exhaustive
// count over every flop costs it many times what it costs the Release build. Such a test runs a smaller case
// under the sanitizer (fewer rounds, fewer flops): the sanitizer checks the memory of every path the smaller
// case takes, and the Release build runs the whole case.
#pragma once

namespace quillet::testing {

// GCC says so with __SANITIZE_ADDRESS__, Clang with __has_feature(address_sanitizer).
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool kUnderSanitizer = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
inline constexpr bool kUnderSanitizer = true;
#else
inline constexpr bool kUnderSanitizer = false;
#endif
#else
inline constexpr bool kUnderSanitizer = false;
#endif

// The rounds of a random sweep: all of them in the Release build, one in `divisor` under the sanitizer.
constexpr int SweepRounds(int rounds, int divisor = 10) {
  return kUnderSanitizer ? (rounds + divisor - 1) / divisor : rounds;
}

}  // namespace quillet::testing
