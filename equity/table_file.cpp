#include "equity/table_file.h"

#include <array>
#include <bit>
#include <cmath>
#include <optional>
#include <string>

namespace quillet {
namespace {

TablesOrError Fail(const std::string& why) {
  return {std::nullopt, "The preflop table is damaged: " + why};
}

}  // namespace

std::vector<unsigned char> SerializeTables(const LookupTables& tables) {
  const std::size_t n = tables.keys.size();
  std::vector<unsigned char> payload;
  payload.reserve(8 * n);
  for (int32_t key : tables.keys) WriteU32(payload, static_cast<uint32_t>(key));
  for (float value : tables.values) WriteU32(payload, std::bit_cast<uint32_t>(value));

  std::vector<unsigned char> out(kTableMagic.begin(), kTableMagic.end());
  WriteU32(out, kTableFormatVersion);
  WriteU32(out, static_cast<uint32_t>(n));
  WriteU32(out, Crc32(payload));
  out.insert(out.end(), payload.begin(), payload.end());
  return out;
}

namespace {

// The header's checks (size, magic, version, length): the reason the first one fails, or nothing.
std::optional<TablesOrError> CheckHeader(std::span<const unsigned char> bytes) {
  if (bytes.size() < kTableHeaderSize) {
    return Fail("it is " + std::to_string(bytes.size()) + " bytes long, shorter than its header");
  }
  if (std::string_view(reinterpret_cast<const char*>(bytes.data()), kTableMagic.size()) != kTableMagic) {
    return Fail("it does not start with \"QPREFLOP\"");
  }
  const uint32_t version = ReadU32(bytes.data() + 8);
  if (version != kTableFormatVersion) {
    return Fail("its format version is " + std::to_string(version) + ", this program reads version " +
                std::to_string(kTableFormatVersion));
  }
  const uint64_t count = ReadU32(bytes.data() + 12);
  const uint64_t expected = kTableHeaderSize + 8 * count;
  if (bytes.size() != expected) {
    return Fail("it holds " + std::to_string(bytes.size()) + " bytes where " + std::to_string(count) +
                " entries take " + std::to_string(expected));
  }
  return std::nullopt;
}

}  // namespace

TablesOrError ParseTables(std::span<const unsigned char> bytes) {
  if (std::optional<TablesOrError> failed = CheckHeader(bytes)) return std::move(*failed);
  const uint64_t count = ReadU32(bytes.data() + 12);
  const auto payload = bytes.subspan(kTableHeaderSize);
  if (Crc32(payload) != ReadU32(bytes.data() + 16)) return Fail("its checksum does not match its contents");

  std::vector<int32_t> keys(count);
  std::vector<float> values(count);
  for (std::size_t i = 0; i < count; ++i) {
    keys[i] = static_cast<int32_t>(ReadU32(payload.data() + 4 * i));
    values[i] = std::bit_cast<float>(ReadU32(payload.data() + 4 * (count + i)));
    if (i > 0 && keys[i] <= keys[i - 1]) {
      return Fail("its keys are not in ascending order at entry " + std::to_string(i));
    }
    if (!(values[i] >= 0.0f && values[i] <= 100.0f)) {
      return Fail("entry " + std::to_string(i) + " holds an equity outside 0..100");
    }
  }
  return {LookupTables(std::move(keys), std::move(values)), {}};
}

TablesOrError ReadTablesInPlace(std::span<const unsigned char> bytes) {
  static_assert(std::endian::native == std::endian::little, "the table's numbers are read in place");
  if (std::optional<TablesOrError> failed = CheckHeader(bytes)) return std::move(*failed);
  const std::size_t count = ReadU32(bytes.data() + 12);
  const auto* keys = reinterpret_cast<const int32_t*>(bytes.data() + kTableHeaderSize);
  const auto* values = reinterpret_cast<const float*>(bytes.data() + kTableHeaderSize + 4 * count);
  return {LookupTables::InPlace({keys, count}, {values, count}), {}};
}

}  // namespace quillet
