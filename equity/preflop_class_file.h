// The file format of the preflop class table (data/preflop_classes.bin), all numbers little-endian:
//
//   offset 0   8 bytes   magic "QPFCLASS"
//   offset 8   uint32    format version (kClassTableFormatVersion)
//   offset 12  uint32    class count N (47,008)
//   offset 16  uint32    CRC-32 (IEEE, as zip and PNG use it) of the payload, the bytes from offset 20
//   offset 20  N records of four uint32: class code, wins, ties, losses (preflop_classes.h), codes ascending
//
// The file is exactly 20 + 16 N bytes long (752,148 bytes).
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "equity/preflop_classes.h"

namespace quillet {

inline constexpr std::string_view kClassTableMagic = "QPFCLASS";
inline constexpr uint32_t kClassTableFormatVersion = 1;
inline constexpr std::size_t kClassTableHeaderSize = 20;
inline constexpr std::size_t kClassRecordSize = 16;

// The file image of one record per class (the caller keeps the codes ascending; ParseClassTable checks).
std::vector<unsigned char> SerializeClassTable(std::span<const MatchupClassRecord> records);

// Reads a file image, checking magic, version, size, checksum, code order, that each record's counts add
// up to every board, and that the codes are exactly the classes of all matchups; the error names the
// first check that failed.
PreflopClassTableOrError ParseClassTable(std::span<const unsigned char> bytes);

}  // namespace quillet
