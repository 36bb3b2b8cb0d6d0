#include "equity/matchup_key.h"

namespace quillet {
namespace {

// Suit-relation code for suits a, b (first hand) and c, d (second hand), chosen by the two shapes. The
// rows are not symmetric in the card order on purpose: the stored tables were built with these rules.
int32_t SuitCode(int32_t shapes, int32_t a, int32_t b, int32_t c, int32_t d) {
  switch (shapes) {
    case kFirstPair | kSecondPair:
      if (a == c) return b == d ? 1 : 2;
      if (a == d) return b == c ? 1 : 2;
      return (b == c || b == d) ? 1 : 0;
    case kFirstSuited | kSecondPair:
      return (a == c || a == d) ? 1 : 0;
    case kFirstOffsuit | kSecondPair:
      if (a == c) return b == d ? 1 : 2;
      if (a == d) return b == c ? 1 : 2;
      return (b == c || b == d) ? 3 : 0;
    case kFirstPair | kSecondSuited:
      return (a == c || b == c) ? 1 : 0;
    case kFirstSuited | kSecondSuited:
      return a == c ? 1 : 0;
    case kFirstOffsuit | kSecondSuited:
      if (a == c) return 1;
      return b == c ? 2 : 0;
    case kFirstPair | kSecondOffsuit:
      if (a == c) return b == d ? 1 : 2;
      if (a == d) return b == c ? 1 : 3;
      if (b == c) return 2;
      return b == d ? 3 : 0;
    case kFirstSuited | kSecondOffsuit:
      if (a == c) return 1;
      return a == d ? 2 : 0;
    case kFirstOffsuit | kSecondOffsuit:
      if (a == c) return b == d ? 1 : 2;
      if (a == d) return b == c ? 3 : 4;
      if (b == c) return 5;
      return b == d ? 6 : 0;
  }
  return 0;
}

}  // namespace

int32_t BuildMatchupKey(Card p1, Card p2, Card q1, Card q2) {
  const int32_t first = p1.rank == p2.rank ? kFirstPair : p1.suit == p2.suit ? kFirstSuited : kFirstOffsuit;
  const int32_t second = q1.rank == q2.rank   ? kSecondPair
                         : q1.suit == q2.suit ? kSecondSuited
                                              : kSecondOffsuit;
  const int32_t shapes = first | second;
  const int32_t code = SuitCode(shapes, p1.suit, p2.suit, q1.suit, q2.suit);
  return shapes | code << 6 | p1.rank << 11 | p2.rank << 15 | q1.rank << 19 | q2.rank << 23;
}

}  // namespace quillet
