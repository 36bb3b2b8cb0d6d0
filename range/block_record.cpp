#include "range/block_record.h"

#include "cards/card.h"
#include "cards/hand_class.h"

namespace quillet {
namespace {

void WriteEntries(BlockRecord& record, std::initializer_list<std::array<int32_t, 2>> pairs) {
  int i = 0;
  for (const auto& p : pairs) {
    record.combos[i].suit1 = p[0];
    record.combos[i].suit2 = p[1];
    ++i;
  }
  record.count = i;
}

int FindEntry(const BlockRecord& record, int32_t suit1, int32_t suit2) {
  const int count = record.count < 0 ? 0 : (record.count > kSuitPairSlots ? kSuitPairSlots : record.count);
  for (int i = 0; i < count; ++i) {
    if (record.combos[i].suit1 == suit1 && record.combos[i].suit2 == suit2) return i;
  }
  return -1;
}

}  // namespace

void SetBlockWhole(BlockRecord& record, bool suited) {
  record.whole = kTrue16;
  record.suited = suited ? kTrue16 : kFalse16;
  record.offsuit = kFalse16;
  if (record.rank1 == record.rank2) {
    WriteEntries(record, {{0, 1}, {0, 2}, {0, 3}, {1, 2}, {1, 3}, {2, 3}});
  } else if (!suited) {
    record.offsuit = kTrue16;
    WriteEntries(
        record,
        {{0, 1}, {0, 2}, {0, 3}, {1, 0}, {1, 2}, {1, 3}, {2, 0}, {2, 1}, {2, 3}, {3, 0}, {3, 1}, {3, 2}});
  } else {
    WriteEntries(record, {{0, 0}, {1, 1}, {2, 2}, {3, 3}});
  }
}

void ClearBlockRecord(BlockRecord& record) {
  record.count = 0;
  record.suited = kFalse16;
  record.offsuit = kFalse16;
  record.whole = kFalse16;
}

void UpdateBlockFlags(BlockRecord& record) {
  record.suited = kFalse16;
  record.offsuit = kFalse16;
  record.whole = kFalse16;
  const int count = record.count;
  if (record.isPair()) {
    if (count == 6) record.whole = kTrue16;
  } else if (count < 5) {
    bool allSuited = true;
    for (int i = 0; i < count; ++i) allSuited = allSuited && record.combos[i].suit1 == record.combos[i].suit2;
    if (allSuited) {
      record.suited = kTrue16;
      if (count == 4) record.whole = kTrue16;
    }
  } else if (count <= 12) {
    bool noneSuited = true;
    for (int i = 0; i < count; ++i)
      noneSuited = noneSuited && record.combos[i].suit1 != record.combos[i].suit2;
    if (noneSuited) {
      record.offsuit = kTrue16;
      if (count == 12) record.whole = kTrue16;
    }
  } else if (count == 16) {
    record.whole = kTrue16;
  }
}

bool SetBlockSuitPair(BlockRecord& record, int32_t suit1, int32_t suit2, bool wanted, bool testOnly) {
  int found = FindEntry(record, suit1, suit2);
  if (found < 0 && record.isPair()) found = FindEntry(record, suit2, suit1);
  const bool isIn = found >= 0;
  if (testOnly || isIn == wanted) return isIn;
  if (!wanted) {
    for (int i = found; i + 1 < record.count; ++i) record.combos[i] = record.combos[i + 1];
    --record.count;
  } else {
    if (record.count < 0 || record.count >= kSuitPairSlots) return false;
    record.combos[record.count].suit1 = suit1;
    record.combos[record.count].suit2 = suit2;
    ++record.count;
  }
  UpdateBlockFlags(record);
  return wanted;
}

RangeLayer MakeEmptyLayer() {
  RangeLayer layer{};
  const auto& classes = HandClasses();
  for (int c = 0; c < kClassCount; ++c) {
    layer[c].rank1 = RankFromChar(std::string_view(classes[c].name).substr(0, 1));
    layer[c].rank2 = RankFromChar(std::string_view(classes[c].name).substr(1, 1));
  }
  return layer;
}

}  // namespace quillet
