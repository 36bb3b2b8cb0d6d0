#include "equity/board_symmetry.h"

#include <algorithm>
#include <bit>
#include <numeric>

#include "cards/holding.h"

namespace quillet {
namespace {

constexpr uint64_t kSuitRanks = 0x1FFF;  // one suit's thirteen cards in a deck mask
constexpr int kSuitShift = 13;

// The cards of `take` more of the deck places [from, end) of `places`, each set added to `partial`.
template <class Visit>
void ForEachSet(const std::vector<int>& places, std::size_t from, int take, uint64_t partial, Visit&& visit) {
  if (take == 0) {
    visit(partial);
    return;
  }
  for (std::size_t i = from; i + static_cast<std::size_t>(take) <= places.size(); ++i) {
    ForEachSet(places, i + 1, take - 1, partial | uint64_t{1} << places[i], visit);
  }
}

}  // namespace

uint64_t PermuteDeckBits(uint64_t bits, const SuitPermutation& permutation) {
  uint64_t out = 0;
  for (int s = 0; s < 4; ++s) {
    out |= (bits >> (kSuitShift * s) & kSuitRanks) << (kSuitShift * permutation[s]);
  }
  return out;
}

std::vector<SuitPermutation> SuitSymmetries(std::span<const WeightedHoldingSet> players, uint64_t boardBits,
                                            uint64_t deadBits) {
  std::vector<SuitPermutation> symmetries;
  SuitPermutation permutation = {0, 1, 2, 3};
  do {
    if (PermuteDeckBits(boardBits, permutation) != boardBits ||
        PermuteDeckBits(deadBits, permutation) != deadBits)
      continue;
    // Each holding's image under the permutation, by number.
    bool keeps = true;
    for (int number = 0; number < kHoldingCount && keeps; ++number) {
      const auto cards = CardsOfHolding(number);
      const Card a{cards[0].rank, permutation[static_cast<std::size_t>(cards[0].suit)]};
      const Card b{cards[1].rank, permutation[static_cast<std::size_t>(cards[1].suit)]};
      const int image = HoldingNumber(a, b);
      for (const WeightedHoldingSet& player : players) {
        if (player.Weight(number) != player.Weight(image)) {
          keeps = false;
          break;
        }
      }
    }
    if (keeps) symmetries.push_back(permutation);
  } while (std::next_permutation(permutation.begin(), permutation.end()));
  return symmetries;
}

void ListSymmetricBoards(uint64_t deck, int take, uint64_t partial,
                         std::span<const SuitPermutation> symmetries, std::vector<uint64_t>& boards,
                         std::vector<uint32_t>& counts) {
  std::vector<int> places;
  for (uint64_t bits = deck; bits != 0; bits &= bits - 1) places.push_back(std::countr_zero(bits));
  if (symmetries.size() <= 1) {
    ForEachSet(places, 0, take, 0, [&](uint64_t set) {
      boards.push_back(set | partial);
      counts.push_back(1);
    });
    return;
  }
  // For each symmetry but the identity, the suit whose cards land in suit t, from the highest suit down:
  // the image's bits compared with the set's a suit at a time, the highest first.
  std::vector<std::array<int, 4>> from;
  for (std::size_t g = 1; g < symmetries.size(); ++g) {
    std::array<int, 4> inverse{};
    for (int s = 0; s < 4; ++s) inverse[static_cast<std::size_t>(symmetries[g][s])] = s;
    from.push_back(inverse);
  }
  const auto group = static_cast<uint32_t>(symmetries.size());
  ForEachSet(places, 0, take, 0, [&](uint64_t set) {
    std::array<uint64_t, 4> suits{};
    for (int s = 0; s < 4; ++s) suits[static_cast<std::size_t>(s)] = set >> (kSuitShift * s) & kSuitRanks;
    uint32_t fixed = 1;  // the identity
    for (const auto& inverse : from) {
      int order = 0;  // the image against the set: -1 less, 0 equal, 1 more
      for (int t = 3; t >= 0 && order == 0; --t) {
        const uint64_t image = suits[static_cast<std::size_t>(inverse[static_cast<std::size_t>(t)])];
        const uint64_t own = suits[static_cast<std::size_t>(t)];
        order = image < own ? -1 : image > own ? 1 : 0;
      }
      if (order < 0) return;  // another set of the class is less: that one is listed
      fixed += order == 0;
    }
    boards.push_back(set | partial);
    counts.push_back(group / fixed);
  });
}

}  // namespace quillet
