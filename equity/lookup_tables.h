// The preflop matchup tables: a key table sorted ascending (matchup keys, see matchup_key.h) and a value
// table beside it holding, for entry i, the first player's equity in percent for the matchup key i names.
// They are built into the program (data/preflop_matchups.bin), loaded once and read-only afterwards.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillet {

struct LookupTables {
  std::vector<int32_t> keys;  // ascending, no key twice
  std::vector<float> values;  // one per key, percent 0..100

  int32_t size() const { return static_cast<int32_t>(keys.size()); }
};

struct KeySearch {
  int32_t index = 0;   // the first entry whose key is not below the key searched (size() when none)
  bool found = false;  // that entry's key equals the key searched
};

// Lower-bound binary search. A key above every stored key gives index size(), not found; an empty table
// finds nothing.
KeySearch FindKey(const LookupTables& tables, int32_t key);

// Tables, or why there are none.
struct TablesOrError {
  std::optional<LookupTables> tables;
  std::string error;  // empty when tables holds a value

  bool ok() const { return tables.has_value(); }
};

// Reads the tables built into the program, checking the format's magic, version, size and checksum.
TablesOrError LoadTables();
// The program's tables: LoadTables() run once, on first use.
const TablesOrError& ProgramTables();

}  // namespace quillet
