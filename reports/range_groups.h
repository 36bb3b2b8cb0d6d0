// The opponent's range on one board in a few groups read from the cook's categories
// (categorise/classify.h), each holding in exactly one, the first that fits:
//   0 "two pair or better"  made two pair, trips, a set, a straight, a flush, a full house, quads, a
//                           straight flush (the cook's entries 16 to 23, 35, 38 to 42, 44 to 54);
//   1 "one pair"            any pair the holding makes (entries 7 to 13);
//   2 "flush draw"          no pair, and the cook's flush draw (entry 27: four cards of a suit);
//   3 "straight draw"       no pair, no flush draw, and an open-ended straight draw or a gutshot
//                           (entries 26, 30, 31);
//   4 "nothing"             high cards, backdoor draws only (entries 1 to 4, 32, 33).
// A hand that plays the board is no better than its high card, as the cook has it. Draws are looked for
// on the flop and the turn only, so on the river every holding is in group 0, 1 or 4.
//
// RangeGroupReader gives the same group as ClassifyCombo's entries, faster: a holding's pair, two pair or
// better and straight draw follow from the ranks alone unless it makes a flush, so they are classified
// once per pair of ranks on each board, and only the suits are counted holding by holding.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "cards/card.h"
#include "categorise/classify.h"
#include "equity/rank_pair.h"

namespace quillet {

inline constexpr int kRangeGroupCount = 5;
enum RangeGroup : int32_t {
  kGroupTwoPairOrBetter = 0,
  kGroupOnePair = 1,
  kGroupFlushDraw = 2,
  kGroupStraightDraw = 3,
  kGroupNothing = 4,
};

// "two pair or better", "one pair", "flush draw", "straight draw", "nothing".
std::string_view RangeGroupName(int32_t group);

// The group of a holding from the cook's classification of it.
int32_t RangeGroupOf(const ComboClassification& classification);

// Per rank pair (CanonicalPairIndex): the group a holding of those ranks is in when no flush counts. It
// depends on the board's ranks in their places alone.
using RankPairGroups = std::array<int8_t, kRankPairCount>;
RankPairGroups GroupsByRanks(const BoardCards& board, Street street);

// The groups of holdings on one board (three to five cards).
class RangeGroupReader {
 public:
  RangeGroupReader(const BoardCards& board, Street street);
  // With the board's GroupsByRanks worked out already (for another board of the same ranks in the same
  // places).
  RangeGroupReader(const BoardCards& board, Street street, const RankPairGroups& byRanks);

  // The group of a holding that shares no card with the board.
  int32_t GroupOf(Card a, Card b) const;

 private:
  // Per rank pair (canonical index): the group from the ranks alone, with no flush.
  RankPairGroups byRanks_{};
  std::array<int8_t, 4> boardSuitCounts_{};
  bool draws_ = false;  // the flop or the turn
};

}  // namespace quillet
