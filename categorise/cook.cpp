#include "categorise/cook.h"

#include <algorithm>

#include "cards/hand_class.h"
#include "cards/holding.h"
#include "categorise/categories.h"
#include "categorise/classify.h"

namespace quillet {
namespace {

int EntriesInUse(const BlockRecord& record) {
  return std::clamp(record.count, 0, kSuitPairSlots);
}

bool HoldsSuitPair(const BlockRecord& record, int32_t suit1, int32_t suit2) {
  const int inUse = EntriesInUse(record);
  for (int i = 0; i < inUse; ++i) {
    const SuitPairEntry& e = record.combos[i];
    if (e.suit1 == suit1 && e.suit2 == suit2) return true;
    if (record.isPair() && e.suit1 == suit2 && e.suit2 == suit1) return true;
  }
  return false;
}

bool IsRealHolding(const HandCombo& c) {
  return IsHolding(c.card1(), c.card2());
}

void AppendHolding(std::vector<HandCombo>& list, const BlockRecord& record, const SuitPairEntry& entry,
                   const PartialWeights* weights) {
  HandCombo holding{true, record.rank1, entry.suit1, record.rank2, entry.suit2};
  if (!IsRealHolding(holding)) return;
  if (weights != nullptr)
    holding.weight = OnHoldingWeight(*weights, HoldingNumber(holding.card1(), holding.card2()));
  list.push_back(holding);
}

}  // namespace

std::vector<HandCombo> CollectRangeCombos(const RangeLayer& onLayer, const RangeLayer& seenLayer,
                                          const PartialWeights* onWeights) {
  std::vector<HandCombo> list;
  list.reserve(1326);
  for (int c = 0; c < kClassCount; ++c) {
    const BlockRecord& on = onLayer[c];
    const BlockRecord& seen = seenLayer[c];
    const int onCount = EntriesInUse(on);
    for (int i = 0; i < onCount; ++i) AppendHolding(list, on, on.combos[i], onWeights);
    const int seenCount = EntriesInUse(seen);
    for (int i = 0; i < seenCount; ++i) {
      const SuitPairEntry& e = seen.combos[i];
      if (!HoldsSuitPair(on, e.suit1, e.suit2)) AppendHolding(list, seen, e, nullptr);
    }
  }
  return list;
}

void ClassifyRange(Categories& categories, const std::vector<HandCombo>& list, int32_t count,
                   const BoardCards& board, Street street) {
  if (static_cast<int>(categories.nodes.size()) != kCategoryCount) InitCategories(categories);
  for (CategoryNode& node : categories.nodes) {
    node.count = 0;
    node.weight = 0;
    node.combos.clear();  // keeps the memory for the next run
    node.nonEmpty = true;
  }
  categories.categorisedCount = 0;
  categories.categorisedWeight = 0;

  count = std::clamp(count, 0, static_cast<int32_t>(list.size()));
  if (street >= kFlop && street <= kRiver) {
    const BoardContext context = PrepareBoard(board, street);
    for (int32_t i = 0; i < count; ++i) {
      const HandCombo& holding = list[i];
      if (!holding.flag) continue;
      AddClassifiedCombo(categories, holding, ClassifyCombo(context, holding));
      ++categories.categorisedCount;
      categories.categorisedWeight += holding.weight;
    }
  } else {
    for (int32_t i = 0; i < count; ++i) {
      const HandCombo& holding = list[i];
      if (!holding.flag) continue;
      int32_t entry = kEntryOtherHigh;
      if (holding.rank1 == holding.rank2) {
        entry = kEntryOnePair;
      } else if (holding.rank1 == 14) {
        entry = kEntryAceHigh;
      } else if (holding.rank1 == 13) {
        entry = kEntryKingHigh;
      } else if (holding.rank1 == 12) {
        entry = kEntryQueenHigh;
      }
      AddToCategory(categories, entry, holding);
      ++categories.categorisedCount;
      categories.categorisedWeight += holding.weight;
    }
  }

  for (CategoryNode& node : categories.nodes) node.nonEmpty = node.count != 0;
}

CookResult Cook(const CardInputs& cards, std::vector<HandCombo> range) {
  CookResult result;
  InitCategories(result.categories);
  if (!cards.ok()) return result;
  result.rangeCount = static_cast<int32_t>(range.size());
  result.liveCount = RemoveDeadCombos(range, result.rangeCount, cards.hand, cards.board, cards.street);
  for (const HandCombo& holding : range) {
    result.rangeWeight += holding.weight;
    if (holding.flag) result.liveWeight += holding.weight;
  }
  ClassifyRange(result.categories, range, result.rangeCount, cards.board, cards.street);
  return result;
}

}  // namespace quillet
