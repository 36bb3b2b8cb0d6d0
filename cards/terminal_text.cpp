#include "cards/terminal_text.h"

namespace quillet {
namespace {

constexpr char kHex[] = "0123456789ABCDEF";

}  // namespace

std::string EscapeControlCharacters(std::string_view utf8) {
  std::string out;
  out.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const auto b = static_cast<unsigned char>(utf8[i]);
    if (b < 0x20 || b == 0x7F) {
      out += "\\x";
      out.push_back(kHex[b >> 4]);
      out.push_back(kHex[b & 0xF]);
    } else if (b == 0xC2 && i + 1 < utf8.size() && static_cast<unsigned char>(utf8[i + 1]) >= 0x80 &&
               static_cast<unsigned char>(utf8[i + 1]) <= 0x9F) {
      const auto c = static_cast<unsigned char>(utf8[++i]);  // U+0080 to U+009F
      out += "\\u00";
      out.push_back(kHex[c >> 4]);
      out.push_back(kHex[c & 0xF]);
    } else {
      out.push_back(static_cast<char>(b));
    }
  }
  return out;
}

std::string QuotedExcerpt(std::string_view utf8) {
  std::size_t characters = 0;
  std::size_t cut = 0;
  for (; cut < utf8.size(); ++cut) {
    // A character starts at each byte that is not a UTF-8 continuation byte.
    const bool starts = (static_cast<unsigned char>(utf8[cut]) & 0xC0) != 0x80;
    if (starts && characters++ == kLongestQuotedText) break;
  }
  std::string shown = EscapeControlCharacters(utf8.substr(0, cut));
  if (cut < utf8.size()) shown += "...";
  return shown;
}

}  // namespace quillet
