#include "categorise/classify.h"

#include "cards/showdown_key.h"
#include "categorise/categories.h"

namespace quillet {
namespace {

// A rank against the board's top, middle and bottom, tested in this order so that, with the middle equal
// to the bottom, the bottom rank counts as the middle.
enum class RankPlace { AboveTop, Top, TopToMiddle, Middle, MiddleToBottom, Bottom, BelowBottom };

RankPlace PlaceOf(int32_t rank, const BoardRanks& r) {
  if (rank > r.top) return RankPlace::AboveTop;
  if (rank == r.top) return RankPlace::Top;
  if (rank > r.middle) return RankPlace::TopToMiddle;
  if (rank == r.middle) return RankPlace::Middle;
  if (rank > r.bottom) return RankPlace::MiddleToBottom;
  if (rank == r.bottom) return RankPlace::Bottom;
  return RankPlace::BelowBottom;
}

int32_t HighCardEntry(int32_t firstRank) {
  switch (firstRank) {
    case 14:
      return kEntryAceHigh;
    case 13:
      return kEntryKingHigh;
    case 12:
      return kEntryQueenHigh;
    default:
      return kEntryOtherHigh;
  }
}

int32_t PairEntry(int32_t pairRank, const BoardRanks& r) {
  switch (PlaceOf(pairRank, r)) {
    case RankPlace::AboveTop:
      return kEntryOverPair;
    case RankPlace::Top:
      return kEntryTopPair;
    case RankPlace::TopToMiddle:
      return kEntryTopMiddlePair;
    case RankPlace::Middle:
      return kEntryMiddlePair;
    case RankPlace::MiddleToBottom:
      return kEntryMiddleBottomPair;
    case RankPlace::Bottom:
      return kEntryBottomPair;
    case RankPlace::BelowBottom:
      return kEntryLowPair;
  }
  return kEntryLowPair;
}

int32_t TwoPairEntry(const Multiplicity& hand, const BoardContext& b) {
  const int32_t p = hand.highPair;
  const int32_t q = hand.lowPair;
  const BoardRanks& r = b.ranks;
  // With two pairs on the board, "the board's pair" is the higher one.
  const int32_t boardPair = b.own.highPair;
  const int32_t otherBoardPair = b.own.lowPair;
  const bool boardPaired = boardPair != 0;
  auto isBoardPair = [&](int32_t rank) { return rank != 0 && (rank == boardPair || rank == otherBoardPair); };

  if (boardPaired && (isBoardPair(p) || isBoardPair(q))) {
    if (p > boardPair) {
      if (p > r.top) return kEntryOverTwoPairAboveTop;
      if (p == r.top) return kEntryOverTwoPairEqualTop;
      return kEntryOverTwoPair;
    }
    if (otherBoardPair != 0 && p == boardPair) {
      return q > otherBoardPair ? kEntryTopMiddleTwoPair : kEntryTopBottomTwoPair;
    }
    return p < r.middle ? kEntryTopBottomTwoPair : kEntryTopMiddleTwoPair;
  }
  // Both pairs made with the board's ranks (also on a paired board whose pair the holding outranks twice).
  if (p == r.top) return q == r.middle ? kEntryOwnTopMiddle : kEntryOwnTopBottom;
  return kEntryOwnMiddleBottom;
}

int32_t ThreeOfAKindEntry(const Multiplicity& hand, const BoardContext& b) {
  const int32_t t = hand.trips;
  const Multiplicity& own = b.own;
  const bool boardGroup = own.code == kMadePair || own.code == kMadeTwoPair || own.code == kMadeThreeOfAKind;
  if (boardGroup && (t == own.highPair || t == own.lowPair || t == own.trips)) return kEntryTrips;
  switch (PlaceOf(t, b.ranks)) {
    case RankPlace::Top:
      return kEntryTopSet;
    case RankPlace::TopToMiddle:
      return kEntryTopMiddleSet;
    case RankPlace::Middle:
      return kEntryMiddleSet;
    case RankPlace::MiddleToBottom:
      return kEntryMiddleBottomSet;
    default:
      return kEntryBottomSet;  // a set always lies on a board rank; the others cannot happen
  }
}

int32_t MadeEntry(int32_t code, const HandCombo& holding, const Multiplicity& hand, const BoardContext& b) {
  switch (code) {
    case kMadeHighCard:
      return HighCardEntry(holding.rank1);
    case kMadePair:
      return PairEntry(hand.highPair, b.ranks);
    case kMadeTwoPair:
      return TwoPairEntry(hand, b);
    case kMadeThreeOfAKind:
      return ThreeOfAKindEntry(hand, b);
    case kMadeStraight:
      return kEntryStraight;
    case kMadeFlush:
      return kEntryFlush;
    case kMadeFullHouse:
      return kEntryFullHouse;
    case kMadeFourOfAKind:
      return kEntryQuad;
    case kMadeStraightFlush:
      return kEntryStraightFlush;
    default:
      return kEntryRoyalFlush;
  }
}

bool IsStrongStraightDraw(int32_t entry) {
  return entry == kEntryOpenEnded || entry == kEntryGutshotWithPair || entry == kEntryGutshotNoPair;
}

}  // namespace

BoardContext PrepareBoard(const BoardCards& board, Street street) {
  BoardContext b;
  b.board = board;
  b.street = street;
  b.cards = BoardAlone(board, street);
  b.own = AnalyseMultiplicity(b.cards);
  b.ranks = TopMiddleBottom(board, street);
  return b;
}

ComboClassification ClassifyCombo(const BoardContext& b, const HandCombo& holding) {
  PlayedCards played;
  played.cards[0] = holding.card1();
  played.cards[1] = holding.card2();
  played.holdingCount = 2;
  for (int i = 0; i < b.cards.count; ++i) played.cards[2 + i] = b.cards.cards[i];
  played.count = 2 + b.cards.count;

  const Multiplicity hand = AnalyseMultiplicity(played);
  const FlushAnalysis flush = AnalyseFlush(played);
  const StraightAnalysis straight = AnalyseStraight(played, flush);

  ComboClassification c;
  // The category the showdown reads: the best of the rank groups, a straight and a flush.
  int32_t code = KeyCategory(ShowdownKeyOf(hand, flush, straight, 0, 0));

  bool straightDraw = false;
  bool openEnded = false;
  bool backdoorStraight = false;
  bool flushDraw = false;
  bool backdoorFlush = false;
  if (b.street < kRiver) {
    if (!straight.straight) {
      const StraightDrawAnalysis draw = AnalyseStraightDraw(RankSetOf(played));
      straightDraw = draw.cardsNeeded == 1;
      openEnded = straightDraw && !draw.gutshot;
      backdoorStraight = b.street == kFlop && draw.cardsNeeded == 2;
    }
    // At most one card short: a made flush, and six cards of a suit, count as a flush draw as well.
    flushDraw = flush.cardsNeeded <= 1;
    backdoorFlush = b.street == kFlop && flush.cardsNeeded == 2;
  }

  // A hand whose whole group lies on the board plays the board: it is no better than its high card.
  // (The board's code is multiplicity alone, so only an un-upgraded code can equal it.)
  if (code == b.own.code && SameGroupRanks(hand, b.own)) code = kMadeHighCard;

  c.code = code;
  c.madeEntry = MadeEntry(code, holding, hand, b);

  if (straightDraw) {
    if (openEnded) {
      c.straightEntry = kEntryOpenEnded;
    } else {
      c.straightEntry =
          (code == kMadePair && b.own.code != kMadePair) ? kEntryGutshotWithPair : kEntryGutshotNoPair;
    }
  } else if (backdoorStraight) {
    c.straightEntry = kEntryBackdoorStraight;
  }
  if (flushDraw) {
    c.flushEntry = kEntryFlushDraw;
  } else if (backdoorFlush) {
    c.flushEntry = kEntryBackdoorFlush;
  }

  const bool strongStraight = IsStrongStraightDraw(c.straightEntry);
  const bool strongFlush = c.flushEntry == kEntryFlushDraw;
  c.madeFlag = !(strongStraight || strongFlush);
  c.straightFlag = !strongFlush;
  c.flushFlag = !(strongFlush && strongStraight);
  return c;
}

void AddClassifiedCombo(Categories& categories, const HandCombo& holding, const ComboClassification& c) {
  HandCombo copy = holding;
  copy.flag = c.madeFlag;
  AddToCategory(categories, c.madeEntry, copy);
  if (c.straightEntry != kNoEntry) {
    copy.flag = c.straightFlag;
    AddToCategory(categories, c.straightEntry, copy);
  }
  if (c.flushEntry != kNoEntry) {
    copy.flag = c.flushFlag;
    AddToCategory(categories, c.flushEntry, copy);
  }
}

}  // namespace quillet
