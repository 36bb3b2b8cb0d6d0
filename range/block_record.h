// The per-class record of a range layer and its operations.
//
// A player profile keeps two layers of 169 records, the On layer (the range) and the Seen layer (the
// semi-permanent definitions). A record lists the suit pairs of the class that are in the layer. Its field
// order and widths are those of the profile file, and its 16-bit Booleans hold whatever value was read
// (True is -1), so a profile written back is byte for byte what was read.
#pragma once

#include <array>
#include <cstdint>

namespace quillet {

using Bool16 = int16_t;
inline constexpr Bool16 kTrue16 = -1;
inline constexpr Bool16 kFalse16 = 0;

struct SuitPairEntry {
  Bool16 on = kFalse16;  // kept with the record and written to the file; the editor leaves it alone
  int32_t suit1 = 0;
  int32_t suit2 = 0;

  friend bool operator==(const SuitPairEntry&, const SuitPairEntry&) = default;
};

inline constexpr int kSuitPairSlots = 16;

struct BlockRecord {
  int32_t rank1 = 0;
  int32_t rank2 = 0;
  std::array<SuitPairEntry, kSuitPairSlots> combos{};  // the first `count` entries are in use
  int32_t count = 0;                                   // 0: the block is out of the layer
  Bool16 suited = kFalse16;
  Bool16 offsuit = kFalse16;
  Bool16 whole = kFalse16;  // the block was put into the layer whole

  bool isPair() const { return rank1 == rank2; }
  friend bool operator==(const BlockRecord&, const BlockRecord&) = default;
};

// Fills the record with every suit pair of its class: 6 for a pair, 12 offsuit when `suited` is false,
// else 4 suited. Whole-block flag True, suited flag as given, offsuit flag True only for the offsuit fill.
// The on flags of the entries are left as they were.
void SetBlockWhole(BlockRecord& record, bool suited);

// Takes the block out of the layer: count and the three flags to zero; ranks and the list stay.
void ClearBlockRecord(BlockRecord& record);

// Re-derives the suited, offsuit and whole-block flags from the entries in use. An empty non-pair record
// comes out flagged suited (every one of its zero entries has equal suits); that is kept.
void UpdateBlockFlags(BlockRecord& record);

// Looks for the suit pair (suit1, suit2) among the entries in use; for a pocket pair (b, a) is the same
// holding as (a, b). With `testOnly` nothing changes. Otherwise, when the found state differs from
// `wanted`, the entry is appended (count + 1, on flag left as it was) or taken out (later entries move
// down one place, the stale last slot stays in memory) and the flags are brought up to date. An append to a
// record whose 16 slots are all in use is refused. Returns whether the pair is in the record afterwards.
bool SetBlockSuitPair(BlockRecord& record, int32_t suit1, int32_t suit2, bool wanted, bool testOnly);

// A layer: one record per class, indexed like the grid blocks.
using RangeLayer = std::array<BlockRecord, 169>;

// A layer whose records carry their class's ranks (from the class name) and nothing else.
RangeLayer MakeEmptyLayer();

}  // namespace quillet
