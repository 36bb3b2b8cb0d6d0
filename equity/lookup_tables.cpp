#include "equity/lookup_tables.h"

#include <span>

#include "equity/embedded_tables.h"
#include "equity/table_file.h"

namespace quillet {

LookupTables::LookupTables(std::vector<int32_t> ownKeys, std::vector<float> ownValues)
    : keys(ownKeys), values(ownValues), ownKeys_(std::move(ownKeys)), ownValues_(std::move(ownValues)) {}

LookupTables LookupTables::InPlace(std::span<const int32_t> keys, std::span<const float> values) {
  LookupTables tables;
  tables.keys = keys;
  tables.values = values;
  return tables;
}

LookupTables::LookupTables(const LookupTables& other) {
  *this = other;
}

LookupTables& LookupTables::operator=(const LookupTables& other) {
  if (this == &other) return *this;
  ownKeys_ = other.ownKeys_;
  ownValues_ = other.ownValues_;
  const bool owned = other.keys.data() == other.ownKeys_.data() && !other.ownKeys_.empty();
  keys = owned ? std::span<const int32_t>(ownKeys_) : other.keys;
  values = owned ? std::span<const float>(ownValues_) : other.values;
  return *this;
}

KeySearch FindKey(const LookupTables& tables, int32_t key) {
  const int32_t* keys = tables.keys.data();
  int32_t lo = 0;
  int32_t hi = tables.size();
  while (lo < hi) {
    const int32_t mid = lo + (hi - lo) / 2;
    if (keys[mid] < key) {
      lo = mid + 1;
    } else {
      hi = mid;
    }
  }
  // lo == size() when the key is above every stored key: there is no entry there to compare.
  return {lo, lo < tables.size() && keys[lo] == key};
}

TablesOrError LoadTables() {
  const std::span<const unsigned char> bytes = EmbeddedTableBytes();
  if (bytes.empty()) return {std::nullopt, "The preflop table was not built into this program."};
  return ParseTables(bytes);
}

const TablesOrError& ProgramTables() {
  static const TablesOrError tables = [] {
    const std::span<const unsigned char> bytes = EmbeddedTableBytes();
    if (bytes.empty())
      return TablesOrError{std::nullopt, "The preflop table was not built into this program."};
    return ReadTablesInPlace(bytes);
  }();
  return tables;
}

}  // namespace quillet
