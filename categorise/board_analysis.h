// What two hole cards make with a board, piece by piece: the rank multiplicity (pairs up to quads), the
// flush count, straights and straight flushes over the ten spans of five ranks, the best straight-draw
// span, and the board's top, middle and bottom ranks. Small value types over a list of at most seven
// cards; the only tables are the rank bits and the spans, built once.
//
// The cook's classification is built from these, and they are meant to be reused wherever a hand must be
// read on a board the same way (for instance a showdown comparison that has to agree with the cook).
#pragma once

#include <array>
#include <cstdint>

#include "cards/card.h"

namespace quillet {

// Made-hand codes, weakest first.
enum MadeCode : int32_t {
  kMadeHighCard = 0,
  kMadePair = 1,
  kMadeTwoPair = 2,
  kMadeThreeOfAKind = 3,
  kMadeStraight = 4,
  kMadeFlush = 5,
  kMadeFullHouse = 6,
  kMadeFourOfAKind = 7,
  kMadeStraightFlush = 8,
  kMadeRoyalFlush = 9,
};

// A set of ranks as bits: bit r for rank r. An ace sets bit 14 and, for straights, bit 1 as well.
using RankSet = uint32_t;

struct StraightSpan {
  int32_t low = 0;   // 1 (the ace, for the wheel) to 10
  int32_t high = 0;  // low + 4
  RankSet mask = 0;  // the five rank bits
};

struct StraightTableSet {
  std::array<RankSet, 15> rankBit{};     // indexed 1..14: 2 to the power of the rank; entry 0 is 0
  std::array<StraightSpan, 10> spans{};  // span k runs from rank k + 1 to k + 5; span 0 is the wheel
};

// Builds the rank bits and the ten spans; StraightTables() holds the program's one filled copy.
StraightTableSet InitStraightTables();
const StraightTableSet& StraightTables();

// The cards one hand plays with: the holding's two cards first (when there is a holding), then the board
// cards that exist on the street, in board order. The analyses visit the cards in this order.
struct PlayedCards {
  std::array<Card, 7> cards{};
  int count = 0;
  int holdingCount = 0;  // 2 with a holding, 0 for the board alone
};

PlayedCards HoldingWithBoard(const HandCombo& holding, const BoardCards& board, int32_t street);
PlayedCards BoardAlone(const BoardCards& board, int32_t street);

// The ranks of the cards as bits, with the ace also counted low. Cards without a rank add nothing.
RankSet RankSetOf(const PlayedCards& played);

// Rank multiplicity: the largest four-of-a-kind and three-of-a-kind ranks, the two highest pair ranks
// (a second three of a kind counts as the high pair), whether a full house was seen, and the code that
// follows from them: 7, 6, 3, 2, 1 or 0. Ranks are 0 where there is none.
struct Multiplicity {
  int32_t code = kMadeHighCard;
  int32_t quads = 0;
  int32_t trips = 0;
  int32_t highPair = 0;
  int32_t lowPair = 0;
  bool fullHouse = false;
};
Multiplicity AnalyseMultiplicity(const PlayedCards& played);

// Whether two analyses show the same group for the same code: the one rank of a pair, a three of a kind
// or a four of a kind, both ranks of two pair or a full house. Other codes never match.
bool SameGroupRanks(const Multiplicity& a, const Multiplicity& b);

// The suit with the most cards, looked for in the order clubs, diamonds, hearts, spades, where a suit
// must have more cards than the best so far and the search ends once the best has three or more. A flush
// needs exactly five cards of the suit: six or seven are not a flush by this count.
struct FlushAnalysis {
  bool flush = false;
  int32_t cardsNeeded = 5;  // 5 - the best suit's count; 0 or less once five or more are there
  int32_t topRank = 0;      // the holding's higher rank in the best suit, 0 when it has none
  int32_t suit = kNoCard;   // the best suit, -1 when there are no cards
};
FlushAnalysis AnalyseFlush(const PlayedCards& played);

// Straights over the spans, lowest first. A straight flush needs every rank of a straight span in the
// flush suit, which the flush analysis only names when that suit has exactly five cards. The high rank
// is that of the highest straight-flush span when there is one, else that of the highest straight span.
struct StraightAnalysis {
  bool straight = false;
  bool straightFlush = false;
  int32_t highRank = 0;
};
StraightAnalysis AnalyseStraight(const PlayedCards& played, const FlushAnalysis& flush);

// The span with the most ranks present. On a tie a higher span replaces the best unless the best is a
// true draw (open-ended or made) and the higher one is a gutshot. With four ranks present, a missing low
// end below an ace-high span is open-ended, a hole with the high end present (or any four of the wheel)
// is a gutshot, and a missing high end elsewhere is open-ended.
struct StraightDrawAnalysis {
  int32_t cardsNeeded = 5;
  int32_t highRank = 0;
  bool gutshot = true;
};
StraightDrawAnalysis AnalyseStraightDraw(RankSet ranks);

// Top and bottom are the highest and lowest rank on the board. The middle starts at the bottom and is
// raised by board cards 2, 3, 4, 5 (as far as the street goes) that lie below the top and above the
// middle so far; card 1 is never looked at, so Q-K-5 has the middle 5. All 0 without a board.
struct BoardRanks {
  int32_t top = 0;
  int32_t middle = 0;
  int32_t bottom = 0;
};
BoardRanks TopMiddleBottom(const BoardCards& board, int32_t street);

}  // namespace quillet
