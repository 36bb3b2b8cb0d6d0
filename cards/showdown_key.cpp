#include "cards/showdown_key.h"

#include <algorithm>

namespace quillet {
namespace {

constexpr bool IsRank(int32_t rank) {
  return rank >= 2 && rank <= 14;
}

}  // namespace

ShowdownKey ShowdownKeyOf(const Multiplicity& m, const FlushAnalysis& flush, const StraightAnalysis& straight,
                          int32_t highHole, int32_t lowHole) {
  const ShowdownKey flushKey =
      flush.flush ? MadeFlushKey(straight.straightFlush ? straight.highRank : 0, flush.topRank) : 0;
  return ShowdownKeyOf(m, straight.straight ? straight.highRank : 0, flushKey, highHole, lowHole);
}

ShowdownKey ShowdownKeyOf(const PlayedCards& played) {
  const FlushAnalysis flush = AnalyseFlush(played);
  int32_t highHole = 0;
  int32_t lowHole = 0;
  if (played.holdingCount == 2) {
    // A hole card without a rank adds no kicker.
    const int32_t a = IsRank(played.cards[0].rank) ? played.cards[0].rank : 0;
    const int32_t b = IsRank(played.cards[1].rank) ? played.cards[1].rank : 0;
    highHole = std::max(a, b);
    lowHole = std::min(a, b);
  }
  return ShowdownKeyOf(AnalyseMultiplicity(played), flush, AnalyseStraight(played, flush), highHole, lowHole);
}

ShowdownKey ShowdownKeyOf(Card hole1, Card hole2, const std::array<Card, 5>& board) {
  return ShowdownKeyOf(HoldingWithBoard(HandCombo{true, hole1.rank, hole1.suit, hole2.rank, hole2.suit},
                                        BoardCards{board}, kRiver));
}

ShowdownKey StreetShowdownKey(const HandCombo& holding, const BoardCards& board, Street street) {
  return ShowdownKeyOf(HoldingWithBoard(holding, board, street));
}

ShowdownResult ComparePartialBoardShowdown(const HandCards& myHand, const HandCombo& opponent,
                                           const BoardCards& board, Street street) {
  const HandCombo mine{true, myHand.rank1, myHand.suit1, myHand.rank2, myHand.suit2};
  return CompareShowdownKeys(StreetShowdownKey(mine, board, street),
                             StreetShowdownKey(opponent, board, street));
}

}  // namespace quillet
