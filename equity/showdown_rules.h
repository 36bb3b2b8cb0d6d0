// Which rules decide a showdown, and the tally of showdowns an exact calculation counts.
//
// Quillet's own rules are the default and deliberate (a flush needs exactly five cards of the board's flush
// suit, kickers come from the hole cards only, ties count for neither side). The standard rules are the ones
// every player knows: the best five of the seven cards, any five or more cards of a suit make a flush, all
// five cards count as kickers, and a tie splits the pot.
#pragma once

#include <cstdint>
#include <string_view>

namespace quillet {

enum class ShowdownRules : uint8_t {
  Quillet,   // the program's own rules (the default)
  Standard,  // the usual best-five-of-seven rules, ties split
};

// The rules' name in machine-readable output ("quillet" or "standard").
constexpr std::string_view ShowdownRulesName(ShowdownRules rules) {
  return rules == ShowdownRules::Standard ? "standard" : "quillet";
}

// Showdowns counted from the first player's side.
//
// Weighted ranges: a showdown counts the product of its holdings' weights, in units of which `scale` make
// one whole showdown. With every weight whole the scale is 1 and the fields are plain counts; a hand against
// a weighted range counts in thousandths (scale kFullWeight), a weighted range against a weighted range in
// millionths. The shares below do not depend on the scale; a tally shown as numbers of showdowns divides by
// it. Tallies are added only at the same scale.
struct ShowdownTally {
  uint64_t wins = 0;
  uint64_t ties = 0;
  uint64_t losses = 0;
  uint64_t scale = 1;

  constexpr uint64_t Showdowns() const { return wins + ties + losses; }
  // The first player's share in percent with ties split half; 0 when nothing was counted.
  constexpr double EquityPercent() const {
    const uint64_t total = Showdowns();
    return total == 0 ? 0.0
                      : 100.0 * (static_cast<double>(wins) + 0.5 * static_cast<double>(ties)) /
                            static_cast<double>(total);
  }
  constexpr double WinPercent() const { return Percent(wins); }
  constexpr double TiePercent() const { return Percent(ties); }
  constexpr double LossPercent() const { return Percent(losses); }
  // The same showdowns seen from the other player's side.
  constexpr ShowdownTally Reversed() const { return {losses, ties, wins, scale}; }

  constexpr ShowdownTally& operator+=(const ShowdownTally& other) {
    wins += other.wins;
    ties += other.ties;
    losses += other.losses;
    return *this;
  }
  friend constexpr bool operator==(const ShowdownTally&, const ShowdownTally&) = default;

 private:
  constexpr double Percent(uint64_t count) const {
    const uint64_t total = Showdowns();
    return total == 0 ? 0.0 : 100.0 * static_cast<double>(count) / static_cast<double>(total);
  }
};

}  // namespace quillet
