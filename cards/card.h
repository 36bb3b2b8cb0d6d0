// Cards, ranks, suits and their two-character text ("Ah", "Td", "2c").
//
// A card is a pair of small integers: rank 2..14 (ace 14, there is no rank 1) and suit 0..3 in the order
// clubs, diamonds, hearts, spades. -1 in either field means "no card". Every subsystem speaks of cards in
// this encoding.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillet {

inline constexpr int32_t kNoCard = -1;

// Rank character at position = rank (the leading "_" fills position 1 so no character yields rank 1).
inline constexpr std::string_view kRankText = "_23456789TJQKA";
// Suit character at position suit + 1 (counted from 1).
inline constexpr std::string_view kSuitText = "cdhs";

struct Card {
  int32_t rank = kNoCard;
  int32_t suit = kNoCard;

  friend constexpr bool operator==(const Card&, const Card&) = default;
};

// My Hand: a flag word and two cards; all four fields are -1 when My Hand is empty. A fresh record is
// zero-filled, as a newly declared record is; ParseHandText relies on that (see there).
struct HandCards {
  int16_t flag = 0;
  int32_t rank1 = 0;
  int32_t suit1 = 0;
  int32_t rank2 = 0;
  int32_t suit2 = 0;

  constexpr Card card1() const { return {rank1, suit1}; }
  constexpr Card card2() const { return {rank2, suit2}; }
};

// The board stage: how many community cards are known.
enum Street : int32_t { kNoBoard = 0, kFlop = 1, kTurn = 2, kRiver = 3 };

// The street after `street` (one past kRiver after the river).
constexpr Street NextStreet(Street street) {
  return static_cast<Street>(street + 1);
}

// Board cards 1..5 (index 0..4). Absent cards are -1, except that after reading the board the ranks of
// absent cards 4 and 5 copy card 1's rank: code that walks the board decides which cards exist from the
// street, never from the fields.
struct BoardCards {
  std::array<Card, 5> cards{};

  constexpr const Card& operator[](int i) const { return cards[i]; }
  constexpr Card& operator[](int i) { return cards[i]; }
};

// A card of the deck: rank 2..14 and suit 0..3. The one check of a card wherever one is read.
constexpr bool IsDeckCard(Card card) {
  return card.rank >= 2 && card.rank <= 14 && card.suit >= 0 && card.suit <= 3;
}

// Number of board cards that exist on a street (0, 3, 4 or 5).
constexpr int BoardCardCount(Street street) {
  return street == kNoBoard ? 0 : street + 2;
}

// One two-card holding. The flag is set when the holding is put in a list; the cook clears it for dead
// holdings and the categories use it to mark copies that also stand in a draw entry.
// A whole weight (1) in thousandths: a holding's weight in a range runs from 0 (out) to kFullWeight.
inline constexpr int32_t kFullWeight = 1000;

struct HandCombo {
  bool flag = true;
  int32_t rank1 = kNoCard;
  int32_t suit1 = kNoCard;
  int32_t rank2 = kNoCard;
  int32_t suit2 = kNoCard;
  // The holding's weight in its range, in thousandths (1..kFullWeight). Every holding of a range typed
  // without weights is whole; the cook counts a holding as this share of a combination and every equity
  // weighs a showdown by the product of the weights of the holdings in it.
  int32_t weight = kFullWeight;

  constexpr Card card1() const { return {rank1, suit1}; }
  constexpr Card card2() const { return {rank2, suit2}; }
  friend constexpr bool operator==(const HandCombo&, const HandCombo&) = default;
};

// Kind codes shared by holdings, starting-hand classes and grid blocks.
inline constexpr int32_t kKindPair = 22;
inline constexpr int32_t kKindSuited = 11;
inline constexpr int32_t kKindOffsuit = 12;

// Rank of a rank character ("A" -> 14, "T" -> 10), searched case-sensitively from position 2 of the rank
// text; -1 when not found ("t" is not a rank, and neither is "_"). An empty text is not found.
int32_t RankFromChar(std::string_view text);
// Suit of a suit character ("c" -> 0 ... "s" -> 3), case-sensitive; -1 when not found ("H" is not a suit).
int32_t SuitFromChar(std::string_view text);

// "Ah", "Td": rank character then suit character. A missing rank or suit gives "?" in its place.
std::string CardToText(Card card);
// The two cards of a holding run together ("AcKd").
std::string ComboToText(const HandCombo& combo);

// 22 when the ranks are equal (pair), else 11 when the suits are equal (suited), else 12 (offsuit).
int32_t ComboKind(const HandCombo& combo);
// Display order key: higher rank sums first; within a sum suited (clubs..spades), then offsuit and pairs.
int32_t ComboSortKey(const HandCombo& combo);
// Stable bubble sort ascending by ComboSortKey over the first `count` holdings of the list.
void SortCombos(std::vector<HandCombo>& list, int count);
inline void SortCombos(std::vector<HandCombo>& list) {
  SortCombos(list, static_cast<int>(list.size()));
}

}  // namespace quillet
