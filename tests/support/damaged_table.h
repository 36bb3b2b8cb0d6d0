// Damaged copies of the two preflop table files, and the checks that a loader refuses them. Both files start
// with the same header: eight magic bytes, the format version, the count and the CRC-32 of what follows, each
// a 32-bit little-endian word.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "equity/table_file.h"

namespace quillet::testing {

using TableBytes = std::vector<unsigned char>;

inline constexpr std::size_t kTableVersionAt = 8;
inline constexpr std::size_t kTableCountAt = 12;
inline constexpr std::size_t kTableChecksumAt = 16;
inline constexpr std::size_t kTableHeaderBytes = 20;

inline uint32_t GetU32(const TableBytes& b, std::size_t at) {
  return uint32_t{b[at]} | uint32_t{b[at + 1]} << 8 | uint32_t{b[at + 2]} << 16 | uint32_t{b[at + 3]} << 24;
}

inline void PutU32(TableBytes& b, std::size_t at, uint32_t v) {
  for (int i = 0; i < 4; ++i) b[at + i] = static_cast<unsigned char>(v >> (8 * i));
}

// Recomputes the checksum after a deliberate change to the payload, so that a later check is reached.
inline void Reseal(TableBytes& b) {
  PutU32(b, kTableChecksumAt, Crc32(std::span(b).subspan(kTableHeaderBytes)));
}

// What a loader made of some bytes.
struct TableRead {
  bool ok = false;
  bool hasTable = false;
  std::string error;
};

// A loader under test: its reading of bytes, and the start of every refusal it gives.
struct TableLoader {
  std::function<TableRead(const TableBytes&)> read;
  std::string damaged;  // "The preflop table is damaged"
};

// The loader refuses `b` as damaged, `because` in its message, and gives no table.
inline void ExpectRefused(const TableLoader& loader, const TableBytes& b, const std::string& because) {
  const TableRead read = loader.read(b);
  EXPECT_FALSE(read.ok);
  EXPECT_FALSE(read.hasTable);
  EXPECT_NE(read.error.find(loader.damaged), std::string::npos) << read.error;
  EXPECT_NE(read.error.find(because), std::string::npos) << read.error;
}

inline void ExpectShortDataRefused(const TableLoader& loader) {
  ExpectRefused(loader, TableBytes(kTableHeaderBytes - 1, 0), "shorter than its header");
  ExpectRefused(loader, TableBytes{}, "shorter than its header");
}

// `valid` with format version 2.
inline void ExpectOtherVersionRefused(const TableLoader& loader, TableBytes valid) {
  PutU32(valid, kTableVersionAt, 2);
  ExpectRefused(loader, valid, "format version is 2, this program reads version 1");
}

// `valid` one byte longer, one byte shorter, and with a count whose size would overflow 32 bits; each
// refusal names the sizes.
inline void ExpectSizeMismatchRefused(const TableLoader& loader, const TableBytes& valid,
                                      const std::string& longerBecause, const std::string& shorterBecause,
                                      const std::string& hugeCountBecause) {
  TableBytes longer = valid;
  longer.push_back(0);
  ExpectRefused(loader, longer, longerBecause);
  TableBytes shorter = valid;
  shorter.pop_back();
  ExpectRefused(loader, shorter, shorterBecause);
  TableBytes huge = valid;
  PutU32(huge, kTableCountAt, 0xFFFFFFFFu);
  ExpectRefused(loader, huge, hugeCountBecause);
}

}  // namespace quillet::testing
