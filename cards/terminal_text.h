// Text from a file or a command line made safe to print on a terminal: a control character in a profile
// name (an escape sequence that clears the screen, a line break that makes one name look like two) is
// shown as an escape instead of being obeyed.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillet {

// UTF-8 text with each control character written as an escape: C0 controls and DEL as "\xHH" (ESC is
// "\x1B"), C1 controls (U+0080 to U+009F) as "\uHHHH". Everything else, the backslash included, is left
// as it is, so text without control characters comes out unchanged.
std::string EscapeControlCharacters(std::string_view utf8);

// How much of a user's text a one-line message quotes.
inline constexpr std::size_t kLongestQuotedText = 40;

// A user's text as a message quotes it: its first kLongestQuotedText characters, then "..." when there
// are more, with control characters escaped as above. A short text without control characters comes out
// unchanged.
std::string QuotedExcerpt(std::string_view utf8);

}  // namespace quillet
