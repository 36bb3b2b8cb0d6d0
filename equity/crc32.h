// CRC-32 (IEEE, as zip and PNG use it): the checksum of every table file and of the tables built into the
// program.
#pragma once

#include <array>
#include <cstdint>
#include <span>

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

}  // namespace quillet
