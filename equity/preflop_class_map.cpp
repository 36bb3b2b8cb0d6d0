#include "equity/preflop_class_map.h"

#include <bit>
#include <string>

#include "equity/preflop_class_file.h"
#include "equity/table_bytes.h"

namespace quillet {
namespace {

uint32_t ClassMapPayloadCrc(std::span<const uint32_t> words) {
  const auto payload = std::as_bytes(words.subspan(ClassMapLayout::kHeaderWords));
  return Crc32({reinterpret_cast<const unsigned char*>(payload.data()), payload.size()});
}

PreflopClassTableOrError ClassMapFailure(const std::string& why) {
  return {std::nullopt, "The preflop class table is damaged: " + why};
}

}  // namespace

std::vector<uint32_t> ClassMapImage(const PreflopClassTable& table) {
  std::vector<uint32_t> words(ClassMapLayout::kHeaderWords, 0);
  words[ClassMapLayout::kMagicWord] = ClassMapLayout::kMagic;
  words[ClassMapLayout::kVersionWord] = ClassMapLayout::kFormatVersion;
  words[ClassMapLayout::kClassCountWord] = static_cast<uint32_t>(table.Records().size());
  words.reserve(ClassMapLayout::ImageWords(table.Records().size()));
  for (const PreflopClassTable::Counts& c : table.OrientedCounts())
    words.insert(words.end(), c.begin(), c.end());
  const std::span<const uint32_t> refs = table.MatchupRefs();
  words.insert(words.end(), refs.begin(), refs.end());
  words[ClassMapLayout::kCrcWord] = ClassMapPayloadCrc(words);
  return words;
}

bool ClassMapIntact(std::span<const uint32_t> words, std::size_t classCount) {
  return words.size() == ClassMapLayout::ImageWords(classCount) &&
         words[ClassMapLayout::kMagicWord] == ClassMapLayout::kMagic &&
         words[ClassMapLayout::kVersionWord] == ClassMapLayout::kFormatVersion &&
         words[ClassMapLayout::kClassCountWord] == classCount &&
         words[ClassMapLayout::kCrcWord] == ClassMapPayloadCrc(words);
}

PreflopClassTableOrError ReadClassTableInPlace(std::span<const unsigned char> classBytes,
                                               std::span<const uint32_t> mapWords) {
  static_assert(sizeof(MatchupClassRecord) == kClassRecordSize);
  static_assert(sizeof(PreflopClassTable::Counts) == 3 * sizeof(uint32_t));
  // The class file is little-endian; elsewhere its records are read one number at a time, with the map made
  // from them.
  if constexpr (std::endian::native != std::endian::little) return ParseClassTable(classBytes);
  if (classBytes.size() < kClassTableHeaderSize ||
      std::string_view(reinterpret_cast<const char*>(classBytes.data()), kClassTableMagic.size()) !=
          kClassTableMagic ||
      ReadU32(classBytes.data() + 8) != kClassTableFormatVersion) {
    return ParseClassTable(classBytes);  // says which
  }
  const std::size_t count = ReadU32(classBytes.data() + 12);
  if (classBytes.size() != kClassTableHeaderSize + kClassRecordSize * count)
    return ParseClassTable(classBytes);
  if (mapWords.size() != ClassMapLayout::ImageWords(count) ||
      mapWords[ClassMapLayout::kMagicWord] != ClassMapLayout::kMagic ||
      mapWords[ClassMapLayout::kVersionWord] != ClassMapLayout::kFormatVersion ||
      mapWords[ClassMapLayout::kClassCountWord] != count) {
    return ClassMapFailure("its matchup map was not made for it");
  }
  const auto* records =
      reinterpret_cast<const MatchupClassRecord*>(classBytes.data() + kClassTableHeaderSize);
  const auto* oriented =
      reinterpret_cast<const PreflopClassTable::Counts*>(mapWords.data() + ClassMapLayout::kHeaderWords);
  const std::size_t orientedCount = 2 * count + 1;
  const std::span<const uint32_t> refs =
      mapWords.subspan(ClassMapLayout::kHeaderWords + 3 * orientedCount, ClassMapLayout::kRefWords);
  PreflopClassTableOrError table =
      PreflopClassTable::InPlace({records, count}, {oriented, orientedCount}, refs);
  if (!table.ok()) return ClassMapFailure(table.error);
  return table;
}

}  // namespace quillet
