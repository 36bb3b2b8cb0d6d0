#include "cards/hand_class.h"

namespace quillet {
namespace {

std::array<HandClass, kClassCount> BuildHandClasses() {
  std::array<HandClass, kClassCount> classes;
  for (int32_t rowRank = 14; rowRank >= 2; --rowRank) {
    for (int32_t columnRank = 14; columnRank >= 2; --columnRank) {
      HandClass& c = classes[ClassIndex(rowRank, columnRank)];
      c.row = 14 - rowRank;
      c.column = 14 - columnRank;
      const char rowChar = kRankText[rowRank - 1];
      const char columnChar = kRankText[columnRank - 1];
      if (columnRank == rowRank) {
        c.name = {rowChar, rowChar};
        c.caption = c.name;
        c.kind = kKindPair;
        c.rank1 = c.rank2 = rowRank;
      } else if (columnRank < rowRank) {
        c.name = {rowChar, columnChar, 's'};
        c.caption = c.name;
        c.kind = kKindSuited;
        c.rank1 = rowRank;
        c.rank2 = columnRank;
      } else {
        c.name = {columnChar, rowChar};
        c.caption = c.name + "o";
        c.kind = kKindOffsuit;
        c.rank1 = columnRank;
        c.rank2 = rowRank;
      }
    }
  }
  return classes;
}

}  // namespace

const std::array<HandClass, kClassCount>& HandClasses() {
  static const std::array<HandClass, kClassCount> classes = BuildHandClasses();
  return classes;
}

int FindClassByName(std::string_view name) {
  const auto& classes = HandClasses();
  for (int i = 0; i < kClassCount; ++i) {
    if (classes[i].name == name) return i;
  }
  return -1;
}

int ClassOfCombo(const HandCombo& combo) {
  const int32_t a = combo.rank1;
  const int32_t b = combo.rank2;
  if (a < 2 || a > 14 || b < 2 || b > 14) return -1;
  const int32_t high = a > b ? a : b;
  const int32_t low = a > b ? b : a;
  switch (ComboKind(combo)) {
    case kKindPair:
      return ClassIndex(a, a);
    case kKindSuited:
      return ClassIndex(high, low);
    default:
      return ClassIndex(low, high);
  }
}

std::vector<HandCombo> ExpandClassName(std::string_view name) {
  static constexpr int32_t kPairSuits[6][2] = {{0, 1}, {0, 2}, {0, 3}, {1, 2}, {1, 3}, {2, 3}};
  const int32_t rank1 = RankFromChar(name.substr(0, 1));
  const int32_t rank2 = RankFromChar(name.size() > 1 ? name.substr(1, 1) : std::string_view{});
  std::vector<HandCombo> combos;
  auto add = [&](int32_t s1, int32_t s2) { combos.push_back(HandCombo{true, rank1, s1, rank2, s2}); };
  if (name.size() != 2) {
    for (int32_t s = 0; s < 4; ++s) add(s, s);
  } else if (rank1 != rank2) {
    for (int32_t s1 = 0; s1 < 4; ++s1) {
      for (int32_t s2 = 0; s2 < 4; ++s2) {
        if (s1 != s2) add(s1, s2);
      }
    }
  } else {
    for (const auto& p : kPairSuits) add(p[0], p[1]);
  }
  return combos;
}

}  // namespace quillet
