#include "reports/range_groups.h"

#include "categorise/categories.h"

namespace quillet {
namespace {

bool IsStrongStraightDrawEntry(int32_t entry) {
  return entry == kEntryOpenEnded || entry == kEntryGutshotWithPair || entry == kEntryGutshotNoPair;
}

int32_t MadeGroupOf(int32_t madeEntry) {
  if (madeEntry >= kEntryOverPair && madeEntry <= kEntryLowPair) return kGroupOnePair;
  if (madeEntry >= kEntryTwoPair) return kGroupTwoPairOrBetter;
  return kGroupNothing;
}

}  // namespace

std::string_view RangeGroupName(int32_t group) {
  switch (group) {
    case kGroupTwoPairOrBetter:
      return "two pair or better";
    case kGroupOnePair:
      return "one pair";
    case kGroupFlushDraw:
      return "flush draw";
    case kGroupStraightDraw:
      return "straight draw";
    default:
      return "nothing";
  }
}

int32_t RangeGroupOf(const ComboClassification& c) {
  const int32_t made = MadeGroupOf(c.madeEntry);
  if (made != kGroupNothing) return made;
  if (c.flushEntry == kEntryFlushDraw) return kGroupFlushDraw;
  if (IsStrongStraightDrawEntry(c.straightEntry)) return kGroupStraightDraw;
  return kGroupNothing;
}

RankPairGroups GroupsByRanks(const BoardCards& board, Street street) {
  // The board's ranks in their places, its suits spread so that no suit has more than two of its cards:
  // with two hole cards of two other suits no flush and no flush draw can come about, and what the cook
  // finds is what the ranks make.
  BoardCards spread = board;
  for (int i = 0; i < BoardCardCount(street); ++i) spread[i].suit = i % 4;
  const BoardContext context = PrepareBoard(spread, street);
  RankPairGroups groups{};
  for (int32_t low = 2; low <= 14; ++low) {
    for (int32_t high = low; high <= 14; ++high) {
      // Hole suits 1 and 2 meet at most two spread board cards of their suit: no flush counts.
      const HandCombo holding{true, high, 1, low, 2};
      const ComboClassification c = ClassifyCombo(context, holding);
      int32_t group = MadeGroupOf(c.madeEntry);
      if (group == kGroupNothing && IsStrongStraightDrawEntry(c.straightEntry)) group = kGroupStraightDraw;
      groups[CanonicalPairIndex(low, high)] = static_cast<int8_t>(group);
    }
  }
  return groups;
}

RangeGroupReader::RangeGroupReader(const BoardCards& board, Street street)
    : RangeGroupReader(board, street, GroupsByRanks(board, street)) {}

RangeGroupReader::RangeGroupReader(const BoardCards& board, Street street, const RankPairGroups& byRanks)
    : byRanks_(byRanks), draws_(street == kFlop || street == kTurn) {
  for (int i = 0; i < BoardCardCount(street); ++i) ++boardSuitCounts_[board[i].suit];
}

int32_t RangeGroupReader::GroupOf(Card a, Card b) const {
  // The suit with the most cards, found as the hand reader finds it (cards/board_analysis.h): in suit
  // order, a later suit only when it has more, and no further once one has three.
  std::array<int32_t, 4> counts = {boardSuitCounts_[0], boardSuitCounts_[1], boardSuitCounts_[2],
                                   boardSuitCounts_[3]};
  ++counts[a.suit];
  ++counts[b.suit];
  int32_t best = 0;
  for (int32_t suit = 0; suit < 4 && best < 3; ++suit) {
    if (counts[suit] > best) best = counts[suit];
  }
  if (best == 5) return kGroupTwoPairOrBetter;  // a flush, or better
  const int32_t byRanks = byRanks_[CanonicalPairIndex(a.rank, b.rank)];
  if (byRanks != kGroupNothing && byRanks != kGroupStraightDraw) return byRanks;
  if (draws_ && best >= 4) return kGroupFlushDraw;
  return byRanks;
}

}  // namespace quillet
