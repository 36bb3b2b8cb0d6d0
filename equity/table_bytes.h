// The bytes of the table files: little-endian numbers, and CRC-32 (IEEE, as zip and PNG use it), the
// checksum of every table file and of the tables built into the program.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace quillet {

namespace detail {
inline constexpr std::array<uint32_t, 256> kCrcTable = [] {
  std::array<uint32_t, 256> table{};
  for (uint32_t n = 0; n < 256; ++n) {
    uint32_t c = n;
    for (int k = 0; k < 8; ++k) c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
    table[n] = c;
  }
  return table;
}();
}  // namespace detail

constexpr uint32_t Crc32(std::span<const unsigned char> bytes) {
  uint32_t c = 0xFFFFFFFFu;
  for (unsigned char b : bytes) c = detail::kCrcTable[(c ^ b) & 0xFF] ^ (c >> 8);
  return c ^ 0xFFFFFFFFu;
}

// A little-endian 32-bit number at `p`, and appended to `out`.
constexpr uint32_t ReadU32(const unsigned char* p) {
  return uint32_t{p[0]} | uint32_t{p[1]} << 8 | uint32_t{p[2]} << 16 | uint32_t{p[3]} << 24;
}
inline void WriteU32(std::vector<unsigned char>& out, uint32_t v) {
  for (int shift = 0; shift < 32; shift += 8) out.push_back(static_cast<unsigned char>(v >> shift));
}

}  // namespace quillet
