// Ranges written as players write them, "22+, A2s+, KTs+, QJs, ATo+, KQo", read into a set of holdings and
// printed back.
//
// Grammar. Tokens are separated by commas and/or blanks (spaces, tabs, line breaks); a range's "-" may have
// blanks around it ("22 - 77"). Rank letters may be in either case, "s" and "o" too; suits are lower case.
//   QQ          one pair                    QQ+        QQ and every higher pair
//   22-77       the pairs from 22 to 77, the ends in either order
//   AKs  AKo    the suited or the offsuit class; AK both
//   A2s+        the kicker rising to one below the first rank: A2s, A3s ... AKs (also KTo+, KT+)
//   A5s-A2s     the kicker from one end to the other, the first rank the same (also K9o-K6o, KT-K8)
//   T9s-54s     both ranks sliding with the gap kept (also T9o-54o, T9-54)
//   AhKh        one holding
//   random, any, all   every holding
//   15%         the top of the preflop order, exactly as the range percentage box takes it: the step
//               nearest to 15 and every step before it (a value at or above the last step is every class)
// A class may be written low rank first ("KAs" is "AKs"). Duplicates collapse. A text longer than
// kLongestRangeNotation bytes is refused whole, before any token is read.
//
// Weights. Each holding carries a weight from 0 to 1 in steps of 0.001 (0: out of the range); a token
// without one gives its holdings weight 1.
//   AKs:0.5  QQ+:0.75  AhKh:0.25  AKs:50%   a token's own weight: a fraction, or a percentage in steps of 0.1
//   [50]AQs, AJs[/50]                       a block: every token inside at the bracket's percentage (a
//                                           token's own weight wins inside it); blocks do not nest, and the
//                                           closing bracket repeats the opening one's number
// A later token's weight replaces an earlier one for the holdings it names ("AK:0.5, AKs" leaves AKs at 1
// and AKo at 0.5). ParseWeightedRangeNotation reads weights; ParseRangeNotation, which the window, the cook,
// equity and profiles use, takes a weight of exactly 1 ("AKs:1", "[100]AKs[/100]") and refuses any other,
// and any weight written wrong, with "weights are not supported yet: 'TOKEN' at column N".
//
// A message quotes a token as QuotedExcerpt does (at most 40 characters, then "...", control characters
// written as escapes), so that it stays one short, harmless line on a terminal or in a message box.
//
// Printing gives the shortest text in the usual order: pairs from the top down, then suited classes, then
// offsuit ones, each by high card and then by kicker; runs of whole classes with the same first rank are
// merged ("QQ+", "A9s-A6s", "KTo+"); a run that is whole in both halves is written once without suffix
// ("AK", "KT+"); a class held only in part is written as its single holdings ("AhKh"). Every holding is
// "all". Tokens are joined by ", ". Reading the printed text gives back exactly the same holdings.
//
// A weighted set prints its holdings of weight 1 as above, then the holdings of each lower weight, the
// highest weight first, each group printed as above with every token given the weight ("AQs:0.5, AJs:0.5")
// or, where that is shorter, as one block ("[50]AQs, AJs, ATs[/50]"; a tie goes to the colons). A fraction
// is written without trailing zeros ("0.5", "0.125"), a bracket's percentage likewise ("50", "12.5").
// Reading the printed text gives back exactly the same weights.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "range/holding_set.h"
#include "range/weighted_holding_set.h"

namespace quillet {

// The longest range text read, in bytes: as much as the notation box holds, and some four times the text
// that names every one of the 1,326 holdings singly ("AhKh, AsKs, ...").
inline constexpr std::size_t kLongestRangeNotation = 32767;

struct RangeNotationError {
  enum class Kind {
    UnknownToken,     // not a token of the notation
    Weights,          // "AKs:0.5", "[50]": not supported yet
    RangeEnds,        // the two ends of a range do not fit together
    SameCardTwice,    // "AhAh"
    PercentAbove100,  // "150%"
    TooLong,          // the whole text is longer than kLongestRangeNotation (no token, column 0)
    BadWeight,        // "AKs:1.5", "AKs:-1", "AKs:x", "[150]AKs": a weight that is not 0 to 1 in steps
    Bracket  // a block never closed, closed without being opened, nested, or closed with another number
  };
  Kind kind = Kind::UnknownToken;
  std::string token;    // the token as written (blanks around a range's "-" left out)
  int column = 0;       // where the token starts, in characters counted from 1
  std::string message;  // the whole message, e.g. "unknown token 'AKx' at column 12"
};

struct ParsedRange {
  HoldingSet holdings;  // empty when there is an error
  std::optional<RangeNotationError> error;
  bool ok() const { return !error.has_value(); }
};

struct ParsedWeightedRange {
  WeightedHoldingSet weights;  // empty when there is an error
  std::optional<RangeNotationError> error;
  bool ok() const { return !error.has_value(); }
};

// The holdings of the text; a weight other than 1 is refused (Kind::Weights).
ParsedRange ParseRangeNotation(std::string_view text);
// The weights of the text.
ParsedWeightedRange ParseWeightedRangeNotation(std::string_view text);

std::string PrintRangeNotation(const HoldingSet& holdings);
std::string PrintWeightedRangeNotation(const WeightedHoldingSet& weights);

// The share of all 1,326 holdings, rounded to one decimal, as the range box writes a share ("1.7", "100").
std::string HoldingSharePercentText(int holdings);
// The share of all 1,326 holdings that a sum of weights (in thousandths) makes, written alike; for whole
// weights the same text as HoldingSharePercentText.
std::string WeightSharePercentText(int64_t weightSum);
// A sum of weights in thousandths as a number of combos, without trailing zeros ("12", "12.5", "0.001").
std::string CombosText(int64_t weightSum);

}  // namespace quillet
