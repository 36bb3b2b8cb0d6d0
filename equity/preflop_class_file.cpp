#include "equity/preflop_class_file.h"

#include <string>

#include "equity/table_file.h"

namespace quillet {
namespace {

PreflopClassTableOrError Fail(const std::string& why) {
  return {std::nullopt, "The preflop class table is damaged: " + why};
}

}  // namespace

std::vector<unsigned char> SerializeClassTable(std::span<const MatchupClassRecord> records) {
  std::vector<unsigned char> payload;
  payload.reserve(kClassRecordSize * records.size());
  for (const MatchupClassRecord& r : records) {
    for (uint32_t v : {r.code, r.wins, r.ties, r.losses}) WriteU32(payload, v);
  }
  std::vector<unsigned char> out(kClassTableMagic.begin(), kClassTableMagic.end());
  WriteU32(out, kClassTableFormatVersion);
  WriteU32(out, static_cast<uint32_t>(records.size()));
  WriteU32(out, Crc32(payload));
  out.insert(out.end(), payload.begin(), payload.end());
  return out;
}

PreflopClassTableOrError ParseClassTable(std::span<const unsigned char> bytes) {
  if (bytes.size() < kClassTableHeaderSize) {
    return Fail("it is " + std::to_string(bytes.size()) + " bytes long, shorter than its header");
  }
  if (std::string_view(reinterpret_cast<const char*>(bytes.data()), kClassTableMagic.size()) !=
      kClassTableMagic) {
    return Fail("it does not start with \"QPFCLASS\"");
  }
  const uint32_t version = ReadU32(bytes.data() + 8);
  if (version != kClassTableFormatVersion) {
    return Fail("its format version is " + std::to_string(version) + ", this program reads version " +
                std::to_string(kClassTableFormatVersion));
  }
  const uint64_t count = ReadU32(bytes.data() + 12);
  const uint64_t expected = kClassTableHeaderSize + kClassRecordSize * count;
  if (bytes.size() != expected) {
    return Fail("it holds " + std::to_string(bytes.size()) + " bytes where " + std::to_string(count) +
                " classes take " + std::to_string(expected));
  }
  const auto payload = bytes.subspan(kClassTableHeaderSize);
  if (Crc32(payload) != ReadU32(bytes.data() + 16)) return Fail("its checksum does not match its contents");

  std::vector<MatchupClassRecord> records(count);
  for (std::size_t i = 0; i < count; ++i) {
    const unsigned char* p = payload.data() + kClassRecordSize * i;
    records[i] = {ReadU32(p), ReadU32(p + 4), ReadU32(p + 8), ReadU32(p + 12)};
  }
  PreflopClassTableOrError built = PreflopClassTable::Build(std::move(records));
  if (!built.ok()) return Fail(built.error);
  return built;
}

}  // namespace quillet
