// The case of a letter changed, locale-free: only 'a'..'z' and 'A'..'Z' change. Card, class and range text
// are read in either case with these.
#pragma once

namespace quillet {

constexpr char AsciiUpper(char c) {
  return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
}
constexpr char AsciiLower(char c) {
  return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace quillet
