// The texture of a board: how its cards share suits, whether its ranks pair, whether a straight is
// possible with it, and its highest rank; and the filter of the boards report that picks boards by it.
//
// The texture is read from the whole board (three, four or five cards):
// - suits: monotone when every card has one suit, two-tone with exactly two suits, rainbow with three or
//   more (on a flop: three different suits);
// - pairing: trips when a rank is there three or more times, paired when some rank is there twice (two
//   pair too), unpaired when every rank is different;
// - connected: some five ranks in a row (the ace also low, A-2-3-4-5) hold three or more of the board's
//   ranks, so two hole cards can complete a straight;
// - high rank: the board's highest rank (2 to 14).
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "cards/card.h"

namespace quillet {

enum class SuitPattern : uint8_t { Monotone, TwoTone, Rainbow };
enum class Pairing : uint8_t { Unpaired, Paired, Trips };

struct BoardTexture {
  SuitPattern suits = SuitPattern::Rainbow;
  Pairing pairing = Pairing::Unpaired;
  bool connected = false;
  int32_t highRank = 0;

  friend constexpr bool operator==(const BoardTexture&, const BoardTexture&) = default;
};

// The texture of the cards given (three to five cards of the deck).
BoardTexture TextureOf(std::span<const Card> board);

// The words the filter takes and the report writes: "monotone", "two-tone", "rainbow"; "unpaired",
// "paired", "trips".
std::string_view SuitPatternName(SuitPattern pattern);
std::string_view PairingName(Pairing pairing);

// Which boards a report keeps. Within one property the values given are alternatives (monotone or
// two-tone); the properties combine (monotone and paired). A property not named keeps every board.
struct BoardFilter {
  static constexpr uint8_t kAllSuitPatterns = 0b111;  // bit SuitPattern
  static constexpr uint8_t kAllPairings = 0b111;      // bit Pairing
  static constexpr uint8_t kAllConnections = 0b11;    // bit 0 not connected, bit 1 connected
  static constexpr uint16_t kAllHighRanks = 0x1FFF;   // bit rank - 2

  uint8_t suitPatterns = kAllSuitPatterns;
  uint8_t pairings = kAllPairings;
  uint8_t connections = kAllConnections;
  uint16_t highRanks = kAllHighRanks;

  bool Keeps(const BoardTexture& texture) const;
  // Whether every board is kept.
  bool KeepsAll() const;

  friend constexpr bool operator==(const BoardFilter&, const BoardFilter&) = default;
};

struct ParsedBoardFilter {
  BoardFilter filter;
  std::string error;  // "" when the text was read

  bool ok() const { return error.empty(); }
};

// Reads a filter from words separated by commas (blanks around them are passed over): "monotone",
// "two-tone", "rainbow", "unpaired", "paired", "trips", "connected", "unconnected", and "high=A" (the
// highest rank is an ace) or "high=T-K" (ten to king, either order); ranks in either case. Words of one
// property add up ("monotone,two-tone"); an empty text keeps every board. A word it does not know is
// refused, named with its place: "unknown filter 'x' (word 2)".
ParsedBoardFilter ParseBoardFilter(std::string_view text);

// The filter written back as ParseBoardFilter reads it ("" for the filter that keeps every board).
std::string BoardFilterText(const BoardFilter& filter);

}  // namespace quillet
