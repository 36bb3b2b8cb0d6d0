// My hand against a range under the standard rules on every flop at once: the showdowns of each flop
// (every turn and river after it) without counting any board twice over.
//
// Each five-card board holds ten flops, and each flop's showdowns are those of the boards that hold it.
// So every board of five of the cards left is counted once (2,118,760 boards beside a hand) and its wins,
// ties and live holdings are added to its ten flops. A board is counted as the engines count one
// (equity/hand_against_range.h): the values of the rank pairs on the board's five ranks, read from a
// table made once per set of five ranks (6,175 of them), weighed by the holdings of each rank pair with
// those holding a board card taken off (inclusion and exclusion), and only the holdings that a flush
// suit of the board can change read one by one. The per-flop count of StandardShowdownTally makes the
// tables of 91 patterns again for each flop; here they are made once for the whole sweep.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "cards/card.h"
#include "equity/showdown_rules.h"

namespace quillet {

// The flop of three different deck places a < b < c as a number 0..22,099.
constexpr int32_t FlopNumber(int32_t a, int32_t b, int32_t c) {
  return c * (c - 1) * (c - 2) / 6 + b * (b - 1) / 2 + a;
}
inline constexpr int32_t kFlopCount = 22100;

// A change of suits: suit s becomes change[s].
using SuitChange = std::array<int32_t, 4>;

// The tally of every flop by FlopNumber of its deck places (flops with a card of my hand stay empty),
// each as StandardShowdownTally gives it on that flop: scale 1 when every live holding is whole, else
// the weights in thousandths (scale kFullWeight). `boardsDone` is told the boards counted so far (of
// 2,118,760) now and then, on the calling thread; `stop` returning true ends the sweep (the result is
// then empty). `threads` workers (at least one). `suitChanges` (the unchanged suits among them) are changes
// of suits that leave my hand and the range as they are: a board and the boards they make of it have the
// same showdowns, so the board is counted once for all of them.
std::vector<ShowdownTally> StandardTallyOfEveryFlop(const HandCards& hand, std::span<const HandCombo> range,
                                                    std::span<const SuitChange> suitChanges, int threads,
                                                    const std::function<void(int64_t)>& boardsDone,
                                                    const std::function<bool()>& stop);

}  // namespace quillet
