// What reading range notation costs, counted in memory allocations rather than time: a percentage token
// may not walk the preflop order again when an earlier one walked it.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>
#include <string>

#include "range/range_notation.h"

namespace {

std::atomic<long long> allocations{0};

}  // namespace

// Every allocation of this test program is counted (and otherwise made as usual).
void* operator new(std::size_t size) {
  allocations.fetch_add(1, std::memory_order_relaxed);
  if (void* p = std::malloc(size == 0 ? 1 : size)) return p;
  throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
  return operator new(size);
}
void operator delete(void* p) noexcept {
  std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
  std::free(p);
}
void operator delete[](void* p) noexcept {
  std::free(p);
}
void operator delete[](void* p, std::size_t) noexcept {
  std::free(p);
}

namespace quillet {
namespace {

long long AllocationsToRead(const std::string& text) {
  const long long before = allocations.load();
  const ParsedRange parsed = ParseRangeNotation(text);
  EXPECT_TRUE(parsed.ok()) << parsed.error->message;
  return allocations.load() - before;
}

std::string Repeated(const std::string& token, int times) {
  std::string text;
  for (int k = 0; k < times; ++k) text += token;
  return text;
}

TEST(RangeNotationCost, APercentageAfterTheFirstDoesNotWalkThePreflopOrderAgain) {
  // One walk of the order to 99% allocates for each of its classes (well over a hundred times); a
  // thousand more tokens may each cost a few allocations of their own, not another walk.
  const long long one = AllocationsToRead("99%");
  ASSERT_GT(one, 100);
  const long long thousand = AllocationsToRead(Repeated("99%,", 1000));
  EXPECT_LT(thousand - one, 1000 * 8) << "one: " << one << ", a thousand: " << thousand;
  // Rising percentages walk on from where the last one stopped: together no more than the largest alone.
  const long long rising = AllocationsToRead(Repeated("5%,15%,40%,99%,", 1));
  EXPECT_LT(rising - one, 4 * 8 + 8) << "rising: " << rising << ", one: " << one;
}

}  // namespace
}  // namespace quillet
