// Blanks cut off the ends of typed text, and the characters that separate the tokens of a range.
#pragma once

#include <string_view>

namespace quillet {

// `text` without the spaces at its ends (tabs and line breaks stay).
constexpr std::string_view TrimSpaces(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

// `text` without the spaces and tabs at its ends.
constexpr std::string_view TrimSpacesAndTabs(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  return text;
}

// A blank between the tokens of a range: a space, a tab or a line break.
constexpr bool IsRangeBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// What separates the tokens of a range: a comma or a blank.
constexpr bool IsRangeSeparator(char c) {
  return c == ',' || IsRangeBlank(c);
}

}  // namespace quillet
