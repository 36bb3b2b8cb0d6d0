// Exact preflop showdowns under standard rules, read from the matchup class table.
//
// Two holdings that meet before the flop see all C(48, 5) = 1,712,304 boards of the other cards. Their
// tally of wins, ties and losses (best five of seven, hand_evaluator.h) does not change when the four suits
// are renamed, and exchanging the two holdings exchanges wins and losses, so the 1,326 x 1,225 ordered
// matchups fall into 47,008 classes. The class table (data/preflop_classes.bin, built into the program; its
// format is in preflop_class_file.h) holds the exact tally of one matchup of each class, and every other
// matchup reads its class's tally, reversed when the class's matchup has the two holdings the other way
// round. Nothing is averaged: hand against hand and hand against any range are exact counts.
//
// A holding is numbered 0..1325 from the deck places (deck.h) of its two cards, high > low:
// high x (high - 1) / 2 + low. A class is named by its code, the smallest of the codes
//
//   bits 12-23  first holding  as high << 6 | low, the deck places after renaming the suits
//   bits  0-11  second holding the same
//
// over the 24 renamings of the suits and both orders of the two holdings.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "cards/card.h"
#include "cards/holding.h"
#include "equity/showdown_rules.h"

namespace quillet {

inline constexpr int32_t kMatchupClassCount = 47008;     // classes of the 1,326 x 1,225 ordered matchups
inline constexpr uint32_t kPreflopBoardCount = 1712304;  // C(48, 5): the boards of one matchup

// Whether two holdings share a card.
bool HoldingsOverlap(int32_t a, int32_t b);

// A matchup's class code, and whether the code's first holding is the matchup's second (the class's own
// matchup is this one reversed).
struct MatchupClassCode {
  uint32_t code = 0;
  bool reversed = false;
};
// The class of `holding` against `opponent` (two holdings without a common card).
MatchupClassCode ClassCodeOf(int32_t holding, int32_t opponent);
// The first and second holding of a class code.
std::array<int32_t, 2> ClassCodeHoldings(uint32_t code);
// Every class code, ascending (kMatchupClassCount of them).
std::vector<uint32_t> AllMatchupClassCodes();

// One class: its code and the exact tally of its matchup, from its first holding's side.
struct MatchupClassRecord {
  uint32_t code = 0;
  uint32_t wins = 0;
  uint32_t ties = 0;
  uint32_t losses = 0;

  friend constexpr bool operator==(const MatchupClassRecord&, const MatchupClassRecord&) = default;
};

struct PreflopClassTableOrError;

// The class table with its matchup map: for each ordered pair of holdings the counts it reads (7 MB; the
// counts themselves take 1.1 MB). The program's table reads its records and its map in place from the
// program's read-only data (the build makes the map, tools/preflop_class_map_generator.cpp); a table read
// from a file builds its map from each class's renamings.
class PreflopClassTable {
 public:
  using Counts = std::array<uint32_t, 3>;  // wins, ties, losses

  // Which class a matchup reads, as an index into Records().
  struct ClassRef {
    int32_t index = -1;     // -1 when the two holdings share a card
    bool reversed = false;  // the class's matchup is this one with the holdings exchanged
  };

  // A table from one record per class, codes ascending. Refused, with the reason, unless the codes are
  // exactly the class codes of all ordered matchups (each matchup finds its class, each class is some
  // matchup's) and every record's counts add up to kPreflopBoardCount.
  static PreflopClassTableOrError Build(std::vector<MatchupClassRecord> records);
  // A table over a matchup map made beforehand (ClassMapLayout in preflop_class_map.h), all read in place:
  // they must outlive the table. Only the sizes are checked, not the contents.
  static PreflopClassTableOrError InPlace(std::span<const MatchupClassRecord> records,
                                          std::span<const Counts> oriented, std::span<const uint32_t> refs);

  PreflopClassTable(PreflopClassTable&&) = default;
  PreflopClassTable& operator=(PreflopClassTable&&) = default;
  PreflopClassTable(const PreflopClassTable&) = delete;
  PreflopClassTable& operator=(const PreflopClassTable&) = delete;

  std::span<const MatchupClassRecord> Records() const { return records_; }
  // The matchup map: per class its counts as recorded (2 i) and reversed (2 i + 1), then one all-zero entry
  // for holdings that share a card; and for each ordered pair [holding x kHoldingCount + opponent] the entry
  // it reads.
  std::span<const Counts> OrientedCounts() const { return oriented_; }
  std::span<const uint32_t> MatchupRefs() const { return {refs_, kMatchupRefCount}; }
  ClassRef ClassOf(int32_t holding, int32_t opponent) const;

  // The exact tally of `holding` against `opponent` (both 0..1325) over every board, from the first
  // holding's side; an empty tally when they share a card. One read of the matchup map and one of the counts.
  ShowdownTally Matchup(int32_t holding, int32_t opponent) const {
    const Counts& c = oriented_.data()[refs_[static_cast<std::size_t>(holding) * kHoldingCount + opponent]];
    return {c[0], c[1], c[2]};
  }
  ShowdownTally Matchup(Card h1, Card h2, Card o1, Card o2) const;

  // The exact tally of the holding h1 h2 against every live holding of `holdings`: those whose flag is set,
  // whose cards are two different real cards, and that share no card with h1 h2. Each live holding meets
  // h1 h2 on all of its boards, so the showdowns number kPreflopBoardCount per live holding. Empty when
  // h1 h2 are not two different real cards. When a holding counted has a weight below whole each counts
  // its weight in thousandths (scale kFullWeight), else the counts are plain (scale 1).
  ShowdownTally TallyAgainst(Card h1, Card h2, std::span<const HandCombo> holdings) const;

 private:
  static constexpr std::size_t kMatchupRefCount = static_cast<std::size_t>(kHoldingCount) * kHoldingCount;

  PreflopClassTable() = default;

  // What a table built from records owns; the views below read either these or the program's data.
  std::vector<MatchupClassRecord> ownRecords_;
  std::vector<Counts> ownOriented_;
  std::vector<uint32_t> ownRefs_;

  std::span<const MatchupClassRecord> records_;
  std::span<const Counts> oriented_;
  const uint32_t* refs_ = nullptr;  // kMatchupRefCount entries
};

struct PreflopClassTableOrError {
  std::optional<PreflopClassTable> table;
  std::string error;  // empty when table holds a value

  bool ok() const { return table.has_value(); }
};

// Reads the class table built into the program, checking the file (preflop_class_file.h) and the classes.
PreflopClassTableOrError LoadPreflopClassTable();
// The program's class table, read in place on first use with the matchup map the build made: only the
// headers are checked here; the checksums and the costly checks of Build are for the tests and
// "quillet-cli tables info" (LoadPreflopClassTable, ClassMapIntact).
const PreflopClassTableOrError& ProgramPreflopClassTable();

// My Hand against the holdings under standard rules before the flop: TallyAgainst over the program's class
// table. An empty tally when the table failed to load (ProgramPreflopClassTable() says why) or My Hand is
// not two different real cards.
ShowdownTally StandardPreflopTally(const HandCards& hand, std::span<const HandCombo> holdings);

}  // namespace quillet
