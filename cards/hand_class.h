// The 169 starting-hand classes, their places on the 13 x 13 grid, the suit-pair table and the expansion
// of a class name into its two-card holdings.
//
// Grid: rows and columns run A, K, Q, ... 2. The class in row rank R and column rank C has number
// 13 x (14 - R) + (14 - C): the pair on the diagonal, the suited class of R and C right of it (C < R),
// the offsuit class of C and R left of it (C > R). So 0 is "AA", 1 "AKs", 12 "A2s", 13 "AK", 168 "22".
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "cards/card.h"

namespace quillet {

inline constexpr int kClassCount = 169;

struct HandClass {
  std::string name;     // "AA", "AKs", "AK" (offsuit names carry no "o")
  std::string caption;  // the name, with "o" appended for offsuit classes ("AKo")
  int32_t kind = 0;     // kKindPair, kKindSuited or kKindOffsuit
  int32_t rank1 = 0;    // rank of the name's first character (the higher rank)
  int32_t rank2 = 0;    // rank of the name's second character
  int row = 0;          // 0..12, ace row first
  int column = 0;       // 0..12, ace column first
};

// Class number of row rank R and column rank C (both 2..14).
constexpr int ClassIndex(int32_t rowRank, int32_t columnRank) {
  return 13 * (14 - rowRank) + (14 - columnRank);
}

const std::array<HandClass, kClassCount>& HandClasses();
// Class number whose name equals `name` exactly, or -1.
int FindClassByName(std::string_view name);
// Class number of a holding (by its ranks and kind), or -1 when a rank is out of range.
int ClassOfCombo(const HandCombo& combo);

// The holdings of a class name, flags set, rank 1 from the first character and rank 2 from the second.
// The test is on the length alone: any name that is not two characters long gives the 4 suited holdings
// (so "AKo" expands as suited), a two-character name with different ranks the 12 offsuit holdings, a pair
// its 6 holdings.
std::vector<HandCombo> ExpandClassName(std::string_view name);

}  // namespace quillet
