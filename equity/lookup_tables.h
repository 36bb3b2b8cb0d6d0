// The preflop matchup tables: a key table sorted ascending (matchup keys, see matchup_key.h) and a value
// table beside it holding, for entry i, the first player's equity in percent for the matchup key i names.
// They are built into the program (data/preflop_matchups.bin), loaded once and read-only afterwards.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quillet {

struct LookupTables {
  std::span<const int32_t> keys;  // ascending, no key twice
  std::span<const float> values;  // one per key, percent 0..100

  LookupTables() = default;
  // Tables that hold their own entries (built, or read from a file).
  LookupTables(std::vector<int32_t> ownKeys, std::vector<float> ownValues);
  // Tables read in place from memory that outlives them (the tables built into the program).
  static LookupTables InPlace(std::span<const int32_t> keys, std::span<const float> values);

  // A copy holds its own entries when the original did; a move keeps them where they are.
  LookupTables(const LookupTables& other);
  LookupTables& operator=(const LookupTables& other);
  LookupTables(LookupTables&&) noexcept = default;
  LookupTables& operator=(LookupTables&&) noexcept = default;

  int32_t size() const { return static_cast<int32_t>(keys.size()); }

 private:
  std::vector<int32_t> ownKeys_;
  std::vector<float> ownValues_;
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

// Reads the tables built into the program, checking the format's magic, version, size and checksum, the
// order of the keys and the range of the values ("quillet-cli tables info" and the tests run it).
TablesOrError LoadTables();
// The program's tables, read in place on first use: the header is checked (magic, version, size), the
// checksum and the entries are left to LoadTables, so nothing is copied or checked when a program starts.
const TablesOrError& ProgramTables();

}  // namespace quillet
