// The class table built into the program, with the matchup map the build made for it.
#include <span>

#include "equity/embedded_tables.h"
#include "equity/preflop_class_file.h"
#include "equity/preflop_class_map.h"
#include "equity/preflop_classes.h"
#include "equity/table_bytes.h"

namespace quillet {
namespace {

constexpr const char* kNoClassTable = "The preflop class table was not built into this program.";

std::span<const uint32_t> EmbeddedClassMapWords() {
  const std::span<const unsigned char> bytes = EmbeddedClassMapBytes();
  return {reinterpret_cast<const uint32_t*>(bytes.data()), bytes.size() / sizeof(uint32_t)};
}

}  // namespace

PreflopClassTableOrError LoadPreflopClassTable() {
  const std::span<const unsigned char> bytes = EmbeddedClassTableBytes();
  if (bytes.empty()) return {std::nullopt, kNoClassTable};
  return ParseClassTable(bytes);
}

const PreflopClassTableOrError& ProgramPreflopClassTable() {
  static const PreflopClassTableOrError table = [] {
    const std::span<const unsigned char> bytes = EmbeddedClassTableBytes();
    if (bytes.empty()) return PreflopClassTableOrError{std::nullopt, kNoClassTable};
    return ReadClassTableInPlace(bytes, EmbeddedClassMapWords());
  }();
  return table;
}

bool ProgramClassMapIntact() {
  const std::span<const unsigned char> bytes = EmbeddedClassTableBytes();
  if (bytes.empty()) return true;
  if (bytes.size() < kClassTableHeaderSize) return false;
  return ClassMapIntact(EmbeddedClassMapWords(), ReadU32(bytes.data() + 12));
}

ShowdownTally StandardPreflopTally(const HandCards& hand, std::span<const HandCombo> holdings) {
  const PreflopClassTableOrError& loaded = ProgramPreflopClassTable();
  if (!loaded.ok()) return {};
  return loaded.table->TallyAgainst(hand.card1(), hand.card2(), holdings);
}

}  // namespace quillet
