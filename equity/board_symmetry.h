// Suit symmetry of an exact count: the permutations of the four suits that map every player's weighted set,
// the board and the dead cards onto themselves. Two boards to come that such a permutation maps onto each
// other give every player the same counts (the deals of one are the deals of the other, renamed), so only
// one board of each class is counted, times the size of its class.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "range/weighted_holding_set.h"

namespace quillet {

// A permutation of the suits: suit s becomes suit [s].
using SuitPermutation = std::array<int8_t, 4>;

// The deck bits `bits` with every card's suit renamed by `permutation`.
uint64_t PermuteDeckBits(uint64_t bits, const SuitPermutation& permutation);

// The suit permutations (the identity first) that keep each player's weights, the board and the dead
// cards (deck bits) as they are.
std::vector<SuitPermutation> SuitSymmetries(std::span<const WeightedHoldingSet> players, uint64_t boardBits,
                                            uint64_t deadBits);

// Every set of `take` cards of `deck` (deck bits), one of each class that `symmetries` map onto each other
// (the set whose bits are the least number), each with `partial` added, in rising order of the set, into
// `boards`, and the size of its class into `counts`. With the identity alone every set is listed, counted
// once. `deck` must be mapped onto itself by every symmetry.
void ListSymmetricBoards(uint64_t deck, int take, uint64_t partial,
                         std::span<const SuitPermutation> symmetries, std::vector<uint64_t>& boards,
                         std::vector<uint32_t>& counts);

}  // namespace quillet
