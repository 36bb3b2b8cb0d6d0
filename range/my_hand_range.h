// My Hand as a range: with the standard showdown rules the My Hand box takes either two cards, as it always
// has, or my range written in range notation ("QQ+, AKs"); Calc Equity then gives my range against the
// opponent's. This header says which reading a text gets, words the refusal of a range, and colours a
// range's text in the box.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "range/colour.h"
#include "range/range_notation.h"

namespace quillet {

// True when the text, blanks removed, is empty or names two cards as the hand reading takes them: four
// characters, rank, suit, rank, suit, ranks and suits in either case ("AhKd", "ah kd", "AhAh"). Such a
// text is always read as a hand, with the hand's own messages; any other text is read as a range.
bool IsTwoCardText(std::string_view text);

// The message of a My Hand text that is neither two cards nor a range, naming the notation's error:
// "My hand is invalid: unknown token 'AKx' at column 6. Valid Eg: AhAd or QQ+, AKs".
std::string MyHandRangeMessage(const RangeNotationError& error);

// The colour of each byte of a range's text in the My Hand box. A token that is one holding ("AhKh") has
// its two cards coloured by suit as the card boxes colour cards; everything else is in the window-text
// colour. With an error, only the refused token is coloured, in the rejected-text colour.
std::vector<Colour> RangeTextColours(std::string_view text, const RangeNotationError* error);

}  // namespace quillet
