#include "equity/lookup_tables.h"

#include <span>

#include "equity/embedded_tables.h"
#include "equity/table_file.h"

namespace quillet {

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
  static const TablesOrError tables = LoadTables();
  return tables;
}

}  // namespace quillet
