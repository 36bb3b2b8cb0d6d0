#include "cards/board_analysis.h"

#include <bit>

namespace quillet {
namespace {

constexpr bool ValidRank(int32_t rank) {
  return rank >= 2 && rank <= 14;
}
constexpr bool ValidSuit(int32_t suit) {
  return suit >= 0 && suit <= 3;
}

// The number of board cards that exist on a street, kept within the five fields.
constexpr int ExistingBoardCards(Street street) {
  const int count = BoardCardCount(street);
  return count < 0 ? 0 : (count > 5 ? 5 : count);
}

}  // namespace

PlayedCards HoldingWithBoard(const HandCombo& holding, const BoardCards& board, Street street) {
  PlayedCards played;
  played.cards[0] = holding.card1();
  played.cards[1] = holding.card2();
  played.holdingCount = 2;
  const int boardCount = ExistingBoardCards(street);
  for (int i = 0; i < boardCount; ++i) played.cards[2 + i] = board[i];
  played.count = 2 + boardCount;
  return played;
}

PlayedCards BoardAlone(const BoardCards& board, Street street) {
  PlayedCards played;
  const int boardCount = ExistingBoardCards(street);
  for (int i = 0; i < boardCount; ++i) played.cards[i] = board[i];
  played.count = boardCount;
  return played;
}

RankSet RankSetOf(const PlayedCards& played) {
  const auto& bits = StraightTables().rankBit;
  RankSet set = 0;
  for (int i = 0; i < played.count; ++i) {
    const int32_t rank = played.cards[i].rank;
    if (ValidRank(rank)) set |= bits[rank];
  }
  if (set & bits[14]) set |= bits[1];
  return set;
}

RankMultiset RankMultisetOf(const PlayedCards& played) {
  RankMultiset ranks;
  for (int i = 0; i < played.count; ++i) {
    const int32_t rank = played.cards[i].rank;
    if (ValidRank(rank)) ranks.Add(rank);
  }
  return ranks;
}

Multiplicity AnalyseMultiplicity(const PlayedCards& played) {
  return MultiplicityOf(RankMultisetOf(played));
}

bool SameGroupRanks(const Multiplicity& a, const Multiplicity& b) {
  if (a.code != b.code) return false;
  switch (a.code) {
    case kMadePair:
      return a.highPair == b.highPair;
    case kMadeThreeOfAKind:
      return a.trips == b.trips;
    case kMadeFourOfAKind:
      return a.quads == b.quads;
    case kMadeTwoPair:
      return a.highPair == b.highPair && a.lowPair == b.lowPair;
    case kMadeFullHouse:
      return a.trips == b.trips && a.highPair == b.highPair;
    default:
      return false;
  }
}

FlushAnalysis AnalyseFlush(const PlayedCards& played) {
  std::array<int32_t, 4> counts{};
  for (int i = 0; i < played.count; ++i) {
    const int32_t suit = played.cards[i].suit;
    if (ValidSuit(suit)) ++counts[suit];
  }
  FlushAnalysis result;
  int32_t best = 0;
  for (int32_t suit = 0; suit < 4 && best < 3; ++suit) {
    if (counts[suit] <= best) continue;
    best = counts[suit];
    result.suit = suit;
    result.topRank = 0;
    for (int i = 0; i < played.holdingCount; ++i) {
      const Card& card = played.cards[i];
      if (card.suit == suit && card.rank > result.topRank) result.topRank = card.rank;
    }
  }
  result.cardsNeeded = kFlushCards - best;
  result.flush = MakesFlush(best);
  return result;
}

StraightAnalysis AnalyseStraight(const PlayedCards& played, const FlushAnalysis& flush) {
  StraightAnalysis result;
  const int32_t high = StraightHighOf(CompactRanks(RankSetOf(played)));
  if (high == 0) return result;
  result.straight = true;
  result.highRank = high;
  if (flush.flush) {
    uint32_t suitRanks = 0;
    for (int i = 0; i < played.count; ++i) {
      const Card& card = played.cards[i];
      if (card.suit == flush.suit && ValidRank(card.rank)) suitRanks |= RankMaskBit(card.rank);
    }
    if (const int32_t flushHigh = StraightHighOf(suitRanks); flushHigh != 0) {
      result.straightFlush = true;
      result.highRank = flushHigh;
    }
  }
  return result;
}

StraightDrawAnalysis AnalyseStraightDraw(RankSet ranks) {
  const auto& tables = StraightTables();
  StraightDrawAnalysis best;
  int bestCount = -1;
  for (const StraightSpan& span : tables.spans) {
    const int count = std::popcount(ranks & span.mask);
    bool gutshot = true;
    if (count == 5) {
      gutshot = false;
    } else if (count == 4) {
      const RankSet missing = span.mask & ~ranks;
      const RankSet lowBit = tables.rankBit[span.low];
      const RankSet highBit = tables.rankBit[span.high];
      if (missing == lowBit && span.high != 14) {
        gutshot = false;
      } else if ((ranks & highBit) != 0 || span.low == 1) {
        gutshot = true;
      } else {
        gutshot = false;  // the high end is missing: one more rank on top completes it, one below as well
      }
    }
    if (count > bestCount || (count == bestCount && (best.gutshot || !gutshot))) {
      bestCount = count;
      best = StraightDrawAnalysis{5 - count, span.high, gutshot};
    }
  }
  return best;
}

BoardRanks TopMiddleBottom(const BoardCards& board, Street street) {
  const int count = ExistingBoardCards(street);
  if (count == 0) return {};
  BoardRanks r;
  r.top = board[0].rank;
  r.bottom = board[0].rank;
  for (int i = 1; i < count; ++i) {
    if (board[i].rank > r.top) r.top = board[i].rank;
    if (board[i].rank < r.bottom) r.bottom = board[i].rank;
  }
  r.middle = r.bottom;
  for (int i = 1; i < count; ++i) {
    const int32_t rank = board[i].rank;
    if (rank < r.top && rank > r.middle) r.middle = rank;
  }
  return r;
}

}  // namespace quillet
