#include "range/holding_set.h"

#include <algorithm>

#include "cards/hand_class.h"

namespace quillet {
namespace {

std::array<ClassHoldings, kClassCount> BuildClassHoldings() {
  std::array<ClassHoldings, kClassCount> table{};
  const auto& classes = HandClasses();
  for (int c = 0; c < kClassCount; ++c) {
    BlockRecord record;
    record.rank1 = classes[c].rank1;
    record.rank2 = classes[c].rank2;
    SetBlockWhole(record, classes[c].kind == kKindSuited);
    ClassHoldings& entry = table[c];
    entry.count = record.count;
    for (int i = 0; i < record.count; ++i) {
      const SuitPairEntry& e = record.combos[i];
      entry.holdings[i] = {HoldingNumber({record.rank1, e.suit1}, {record.rank2, e.suit2}), e.suit1, e.suit2};
    }
  }
  return table;
}

void AddRecordHoldings(const BlockRecord& record, HoldingSet& set) {
  const int inUse = std::clamp(record.count, 0, kSuitPairSlots);
  for (int i = 0; i < inUse; ++i) {
    const Card a{record.rank1, record.combos[i].suit1};
    const Card b{record.rank2, record.combos[i].suit2};
    if (IsHolding(a, b)) set.insert(a, b);
  }
}

}  // namespace

HoldingSet HoldingSet::All() {
  static const HoldingSet all = [] {
    HoldingSet set;
    for (int i = 0; i < kHoldingCount; ++i) set.insert(i);
    return set;
  }();
  return all;
}

HoldingSet HoldingsOfLayer(const RangeLayer& layer) {
  HoldingSet set;
  for (const BlockRecord& record : layer) AddRecordHoldings(record, set);
  return set;
}

const ClassHoldings& HoldingsOfClass(int classNumber) {
  static const std::array<ClassHoldings, kClassCount> table = BuildClassHoldings();
  return table[classNumber];
}

void PutHoldingsInLayer(const HoldingSet& holdings, RangeLayer& layer) {
  const auto& classes = HandClasses();
  for (int c = 0; c < kClassCount; ++c) {
    const ClassHoldings& own = HoldingsOfClass(c);
    BlockRecord& record = layer[c];
    HoldingSet wanted;
    for (int i = 0; i < own.count; ++i) {
      if (holdings.contains(own.holdings[i].number)) wanted.insert(own.holdings[i].number);
    }
    HoldingSet current;
    AddRecordHoldings(record, current);
    // A record that already holds exactly these holdings is left as it stands, flags and all.
    if (current == wanted && record.rank1 == classes[c].rank1 && record.rank2 == classes[c].rank2) {
      continue;
    }
    record.rank1 = classes[c].rank1;
    record.rank2 = classes[c].rank2;
    ClearBlockRecord(record);
    const int held = wanted.size();
    if (held == own.count) {
      SetBlockWhole(record, classes[c].kind == kKindSuited);
    } else if (held > 0) {
      for (int i = 0; i < own.count; ++i) {
        const ClassHolding& h = own.holdings[i];
        if (wanted.contains(h.number)) SetBlockSuitPair(record, h.suit1, h.suit2, true, false);
      }
    }
  }
}

}  // namespace quillet
