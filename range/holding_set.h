// A set of two-card holdings: one bit for each of the 1,326 holdings, a small value type that the range
// notation reads into and prints from, and that a range layer turns into and back.
//
// Holdings are numbered as cards/holding.h numbers them.
#pragma once

#include <array>
#include <bit>
#include <cstdint>

#include "cards/card.h"
#include "cards/holding.h"
#include "range/block_record.h"

namespace quillet {

class HoldingSet {
 public:
  static constexpr int kWords = (kHoldingCount + 63) / 64;

  constexpr void insert(int number) { words_[number >> 6] |= uint64_t{1} << (number & 63); }
  constexpr void erase(int number) { words_[number >> 6] &= ~(uint64_t{1} << (number & 63)); }
  constexpr bool contains(int number) const { return (words_[number >> 6] >> (number & 63)) & 1; }
  void insert(Card a, Card b) { insert(HoldingNumber(a, b)); }
  bool contains(Card a, Card b) const { return contains(HoldingNumber(a, b)); }

  constexpr int size() const {
    int n = 0;
    for (uint64_t w : words_) n += std::popcount(w);
    return n;
  }
  constexpr bool empty() const { return size() == 0; }

  constexpr HoldingSet& operator|=(const HoldingSet& other) {
    for (int i = 0; i < kWords; ++i) words_[i] |= other.words_[i];
    return *this;
  }
  friend constexpr bool operator==(const HoldingSet&, const HoldingSet&) = default;

  // Every holding.
  static HoldingSet All();

 private:
  std::array<uint64_t, kWords> words_{};
};

// The holdings a layer's records stand for, read as the cook reads them: each suit pair in use gives the
// record's first rank in the first suit and its second rank in the second suit; a pair that is not two
// different real cards is passed over.
HoldingSet HoldingsOfLayer(const RangeLayer& layer);

// The holdings of one class, in the order SetBlockWhole lists them, each as the suit pair that the class's
// record holds it by (the first suit goes with the class's first rank).
struct ClassHolding {
  int number;
  int32_t suit1;
  int32_t suit2;
};
struct ClassHoldings {
  std::array<ClassHolding, 12> holdings;
  int count;  // 6 for a pair, 4 suited, 12 offsuit
};
const ClassHoldings& HoldingsOfClass(int classNumber);

// Makes the layer hold exactly the holdings of the set. A class the set holds whole is filled whole, as a
// click on its block fills it; a class it holds none of is cleared; any other class gets its holdings one
// suit pair at a time, as the suit matrix gives them.
void PutHoldingsInLayer(const HoldingSet& holdings, RangeLayer& layer);

}  // namespace quillet
