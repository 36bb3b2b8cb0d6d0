// The two files keep their text (profile names, range texts, card texts) in the single-byte Windows-1252
// code page; the program works in UTF-8. These convert between the two.
#pragma once

#include <string>
#include <string_view>

namespace quillet {

// Each character that Windows-1252 can hold becomes its byte; any other character, and each byte of
// malformed UTF-8, becomes "?". The result's length is the byte count the file stores.
std::string Utf8ToCp1252(std::string_view utf8);

// Every byte becomes its character. The five bytes the code page leaves unassigned (0x81, 0x8D, 0x8F,
// 0x90, 0x9D) become the control characters of the same number, so that they come back unchanged.
std::string Cp1252ToUtf8(std::string_view bytes);

// The number of characters in a UTF-8 text (each malformed byte counts as one).
std::size_t Utf8Length(std::string_view utf8);

// The first `n` characters of a UTF-8 text (counted as Utf8Length counts them); all of it when it is shorter.
std::string Utf8Prefix(std::string_view utf8, std::size_t n);

}  // namespace quillet
