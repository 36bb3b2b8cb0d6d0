// The file format of the preflop matchup tables (data/preflop_matchups.bin), all numbers little-endian:
//
//   offset 0   8 bytes   magic "QPREFLOP"
//   offset 8   uint32    format version (kTableFormatVersion)
//   offset 12  uint32    entry count N
//   offset 16  uint32    CRC-32 (IEEE, as zip and PNG use it) of the payload, the bytes from offset 20
//   offset 20  N int32   keys, ascending, no key twice
//   then       N float32 values, percent 0..100
//
// The file is exactly 20 + 8 N bytes long.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "equity/lookup_tables.h"
#include "equity/table_bytes.h"

namespace quillet {

inline constexpr std::string_view kTableMagic = "QPREFLOP";
inline constexpr uint32_t kTableFormatVersion = 1;
inline constexpr std::size_t kTableHeaderSize = 20;

// The file image of the tables (the caller keeps keys sorted and unique; ParseTables checks it).
std::vector<unsigned char> SerializeTables(const LookupTables& tables);

// Reads a file image, checking magic, version, size, checksum, key order and value range; the error
// names the first check that failed.
TablesOrError ParseTables(std::span<const unsigned char> bytes);
// The same image read in place (it must outlive the tables, 4-byte aligned): only the header is checked
// (magic, version, size); the checksum and the entries are ParseTables's to check.
TablesOrError ReadTablesInPlace(std::span<const unsigned char> bytes);

}  // namespace quillet
