#include "storage/code_page.h"

#include <array>
#include <cstdint>

namespace quillet {
namespace {

// Characters of the bytes 0x80 to 0x9F; the unassigned five map to the control character of their number.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char32_t kMalformed = 0xFFFFFFFF;

// Decodes one character at `i` and moves past it; a malformed sequence yields kMalformed and moves one byte.
char32_t NextChar(std::string_view s, std::size_t& i) {
  const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(s[k]); };
  const unsigned char lead = byte(i);
  if (lead < 0x80) {
    ++i;
    return lead;
  }
  int extra = 0;
  char32_t cp = 0;
  char32_t smallest = 0;
  if (lead >= 0xC2 && lead <= 0xDF) {
    extra = 1, cp = lead & 0x1F, smallest = 0x80;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    extra = 2, cp = lead & 0x0F, smallest = 0x800;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    extra = 3, cp = lead & 0x07, smallest = 0x10000;
  } else {
    ++i;
    return kMalformed;
  }
  if (s.size() - i <= static_cast<std::size_t>(extra)) {
    ++i;
    return kMalformed;
  }
  for (int k = 1; k <= extra; ++k) {
    const unsigned char next = byte(i + k);
    if ((next & 0xC0) != 0x80) {
      ++i;
      return kMalformed;
    }
    cp = (cp << 6) | (next & 0x3F);
  }
  if (cp < smallest || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
    ++i;
    return kMalformed;
  }
  i += extra + 1;
  return cp;
}

void AppendUtf8(std::string& out, char32_t cp) {
  if (cp < 0x80) {
    out.push_back(static_cast<char>(cp));
  } else if (cp < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  } else {
    out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
    out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  }
}

int Cp1252Byte(char32_t cp) {
  if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<int>(cp);
  for (int k = 0; k < 32; ++k) {
    if (kHighControls[k] == cp) return 0x80 + k;
  }
  return -1;
}

}  // namespace

std::string Utf8ToCp1252(std::string_view utf8) {
  std::string out;
  out.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size();) {
    const char32_t cp = NextChar(utf8, i);
    const int b = cp == kMalformed ? -1 : Cp1252Byte(cp);
    out.push_back(b < 0 ? '?' : static_cast<char>(b));
  }
  return out;
}

std::string Cp1252ToUtf8(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size());
  for (const char c : bytes) {
    const auto b = static_cast<unsigned char>(c);
    AppendUtf8(out, b >= 0x80 && b < 0xA0 ? kHighControls[b - 0x80] : static_cast<char32_t>(b));
  }
  return out;
}

std::size_t Utf8Length(std::string_view utf8) {
  std::size_t n = 0;
  for (std::size_t i = 0; i < utf8.size(); ++n) NextChar(utf8, i);
  return n;
}

std::string Utf8Prefix(std::string_view utf8, std::size_t n) {
  std::size_t i = 0;
  for (std::size_t taken = 0; taken < n && i < utf8.size(); ++taken) NextChar(utf8, i);
  return std::string(utf8.substr(0, i));
}

}  // namespace quillet
