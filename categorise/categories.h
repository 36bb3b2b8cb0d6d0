// The fixed, ordered table of 55 categories that a cook sorts holdings into, and the numbers of its
// entries. A label carries its level marks: "*" starts a top-level entry, ">*" a child of the nearest
// top-level entry above it, and "*" alone is a spacer that never receives holdings.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "cards/card.h"
#include "categorise/category_node.h"

namespace quillet {

// Entry numbers the classification adds holdings to.
enum CategoryEntry : int32_t {
  kEntryHighCards = 0,
  kEntryAceHigh = 1,
  kEntryKingHigh = 2,
  kEntryQueenHigh = 3,
  kEntryOtherHigh = 4,
  kEntryOnePair = 6,   // without a board every pair goes here
  kEntryOverPair = 7,  // a pocket pair above the top board rank
  kEntryTopPair = 8,
  kEntryTopMiddlePair = 9,  // between the top and the middle rank
  kEntryMiddlePair = 10,
  kEntryMiddleBottomPair = 11,  // between the middle and the bottom rank
  kEntryBottomPair = 12,
  kEntryLowPair = 13,  // below the bottom rank
  kEntryTwoPair = 15,
  kEntryOwnTopMiddle = 16,
  kEntryOwnTopBottom = 17,
  kEntryOwnMiddleBottom = 18,
  kEntryOverTwoPairAboveTop = 19,
  kEntryOverTwoPairEqualTop = 20,
  kEntryOverTwoPair = 21,
  kEntryTopMiddleTwoPair = 22,
  kEntryTopBottomTwoPair = 23,
  kEntryStrongDraws = 25,
  kEntryOpenEnded = 26,
  kEntryFlushDraw = 27,
  kEntryWeakDraws = 29,
  kEntryGutshotWithPair = 30,
  kEntryGutshotNoPair = 31,
  kEntryBackdoorFlush = 32,
  kEntryBackdoorStraight = 33,
  kEntryTrips = 35,
  kEntrySets = 37,
  kEntryTopSet = 38,
  kEntryTopMiddleSet = 39,
  kEntryMiddleSet = 40,
  kEntryMiddleBottomSet = 41,
  kEntryBottomSet = 42,
  kEntryStraight = 44,
  kEntryFlush = 46,
  kEntryFullHouse = 48,
  kEntryQuad = 50,
  kEntryStraightFlush = 52,
  kEntryRoyalFlush = 54,
};

struct CategoryDefinition {
  std::string_view label;
  std::string_view iconKey;
};

// The 55 labels and icon keys, in table order.
const std::array<CategoryDefinition, kCategoryCount>& CategoryDefinitions();

// Builds the table: 55 entries with their labels and keys, both flags set, no holdings, count 0.
void InitCategories(Categories& categories);

// Appends a copy of `combo` to entry `n` and raises that entry's count by one and its weight by the
// holding's weight. The categorised count and weight are the classification's business (once per holding,
// however many entries the holding lands in).
void AddToCategory(Categories& categories, int32_t n, const HandCombo& combo);

// The text a label shows: what follows its level marks ("T pair" for ">*T pair", "" for a spacer).
std::string_view CategoryText(std::string_view label);
// Whether a label marks a child entry (">*") rather than a top-level one.
bool IsChildCategory(std::string_view label);
// Whether a label is a spacer ("*" alone).
bool IsSpacerCategory(std::string_view label);

}  // namespace quillet
