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
// A class may be written low rank first ("KAs" is "AKs"). Duplicates collapse. Weights ("AKs:0.5",
// "[50]AKs[/50]") are refused: they are not supported yet. A text longer than kLongestRangeNotation bytes
// is refused whole, before any token is read.
//
// A message quotes a token as QuotedExcerpt does (at most 40 characters, then "...", control characters
// written as escapes), so that it stays one short, harmless line on a terminal or in a message box.
//
// Printing gives the shortest text in the usual order: pairs from the top down, then suited classes, then
// offsuit ones, each by high card and then by kicker; runs of whole classes with the same first rank are
// merged ("QQ+", "A9s-A6s", "KTo+"); a run that is whole in both halves is written once without suffix
// ("AK", "KT+"); a class held only in part is written as its single holdings ("AhKh"). Every holding is
// "all". Tokens are joined by ", ". Reading the printed text gives back exactly the same holdings.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "range/holding_set.h"

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
    TooLong           // the whole text is longer than kLongestRangeNotation (no token, column 0)
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

ParsedRange ParseRangeNotation(std::string_view text);

std::string PrintRangeNotation(const HoldingSet& holdings);

// The share of all 1,326 holdings, rounded to one decimal, as the range box writes a share ("1.7", "100").
std::string HoldingSharePercentText(int holdings);

}  // namespace quillet
