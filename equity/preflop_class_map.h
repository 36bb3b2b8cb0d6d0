// The matchup map of the preflop class table (PreflopClassTable::OrientedCounts and MatchupRefs). The build
// makes it from data/preflop_classes.bin (tools/preflop_class_map_generator.cpp) and builds it into the
// program, so no program makes it when it starts. The image is 32-bit words in the machine's own order:
//
//   word 0   magic kMagic
//   word 1   format version (kFormatVersion)
//   word 2   class count N, the class table's
//   word 3   CRC-32 (table_bytes.h) of the payload, the bytes from word 4 on
//   word 4   (2 N + 1) x 3 words: the oriented counts, wins, ties, losses each
//   then     1,326 x 1,326 words: for each ordered pair of holdings the oriented counts it reads
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "cards/holding.h"
#include "equity/preflop_classes.h"

namespace quillet {

struct ClassMapLayout {
  static constexpr uint32_t kMagic = 0x4D435051;  // "QPCM" read as a little-endian word
  static constexpr uint32_t kFormatVersion = 1;
  static constexpr std::size_t kMagicWord = 0;
  static constexpr std::size_t kVersionWord = 1;
  static constexpr std::size_t kClassCountWord = 2;
  static constexpr std::size_t kCrcWord = 3;
  static constexpr std::size_t kHeaderWords = 4;
  static constexpr std::size_t kRefWords = static_cast<std::size_t>(kHoldingCount) * kHoldingCount;

  // The words of an image of `classCount` classes.
  static constexpr std::size_t ImageWords(std::size_t classCount) {
    return kHeaderWords + 3 * (2 * classCount + 1) + kRefWords;
  }
};

// The image of a table's matchup map, checksum included.
std::vector<uint32_t> ClassMapImage(const PreflopClassTable& table);

// Whether `words` is a whole map image for `classCount` classes: magic, version, class count, size and
// checksum.
bool ClassMapIntact(std::span<const uint32_t> words, std::size_t classCount);

// The class table file image `classBytes` (preflop_class_file.h) with the map image `mapWords`, both read in
// place (they must outlive the table; the records 4-byte aligned). Only the headers and sizes are checked;
// the checksums and the contents are ParseClassTable's and ClassMapIntact's to check.
PreflopClassTableOrError ReadClassTableInPlace(std::span<const unsigned char> classBytes,
                                               std::span<const uint32_t> mapWords);

// Whether the map built into the program is whole and made for the class table built into it (true when the
// program has no class table, and so no map).
bool ProgramClassMapIntact();

}  // namespace quillet
