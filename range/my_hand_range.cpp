#include "range/my_hand_range.h"

#include "cards/ascii_case.h"
#include "cards/blank_text.h"
#include "cards/card.h"
#include "range/card_text_colour.h"

namespace quillet {
namespace {

bool IsRank(char c) {
  const char r = AsciiUpper(c);
  return RankFromChar(std::string_view(&r, 1)) != kNoCard;
}
int32_t SuitOf(char c, bool eitherCase) {
  const char s = eitherCase ? AsciiLower(c) : c;
  return SuitFromChar(std::string_view(&s, 1));
}

// Four characters rank, suit, rank, suit; ranks in either case, suits in lower case unless `eitherCase`.
bool IsTwoCards(std::string_view text, bool eitherCase) {
  return text.size() == 4 && IsRank(text[0]) && SuitOf(text[1], eitherCase) != kNoCard && IsRank(text[2]) &&
         SuitOf(text[3], eitherCase) != kNoCard;
}

// The byte where the character of a column (counted from 1) starts; the text's size past its end.
size_t ByteOfColumn(std::string_view text, int column) {
  int at = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    if ((static_cast<unsigned char>(text[i]) & 0xC0) == 0x80) continue;  // a UTF-8 continuation byte
    if (++at == column) return i;
  }
  return text.size();
}

}  // namespace

bool IsTwoCardText(std::string_view text) {
  std::string clean;
  for (const char c : text) {
    if (c != ' ') clean.push_back(c);
  }
  return clean.empty() || IsTwoCards(clean, /*eitherCase=*/true);
}

std::string MyHandRangeMessage(const RangeNotationError& error) {
  return "My hand is invalid: " + error.message + ". Valid Eg: AhAd or QQ+, AKs";
}

std::vector<Colour> RangeTextColours(std::string_view text, const RangeNotationError* error) {
  std::vector<Colour> colours(text.size(), kWindowTextColour);
  if (error != nullptr) {
    // The token as the error gives it leaves out the blanks around a range's "-": they are passed over.
    size_t matched = 0;
    for (size_t i = ByteOfColumn(text, error->column); i < text.size() && matched < error->token.size();
         ++i) {
      if (text[i] == error->token[matched]) {
        colours[i] = kRejectedTextColour;
        ++matched;
      } else if (!IsRangeSeparator(text[i]) || text[i] == ',') {
        break;
      }
    }
    return colours;
  }
  size_t i = 0;
  while (i < text.size()) {
    if (IsRangeSeparator(text[i])) {
      ++i;
      continue;
    }
    size_t end = i;
    while (end < text.size() && !IsRangeSeparator(text[end])) ++end;
    // The notation takes a holding's suits in lower case only.
    if (IsTwoCards(text.substr(i, end - i), /*eitherCase=*/false)) {
      colours[i] = colours[i + 1] = SuitTextColour(SuitOf(text[i + 1], false));
      colours[i + 2] = colours[i + 3] = SuitTextColour(SuitOf(text[i + 3], false));
    }
    i = end;
  }
  return colours;
}

}  // namespace quillet
