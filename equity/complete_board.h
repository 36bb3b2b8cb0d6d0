// A complete board read once for the fast evaluator: the rank state of its cards, their counts by suit and
// the suit with three or more of them (-1 for none), so that each holding is then valued in two steps.
#pragma once

#include <bit>
#include <cstdint>

#include "equity/deck.h"
#include "equity/enumeration.h"
#include "equity/standard_evaluator.h"

namespace quillet {

struct CompleteBoard {
  RankState state = StandardEvaluator::kNoRanks;
  SuitCounts suits;
  int32_t flushSuit = -1;

  // Reads the board of these deck bits.
  void Set(uint64_t boardBits) {
    const StandardEvaluator& evaluator = StandardEvaluator::Get();
    state = StandardEvaluator::kNoRanks;
    suits = {};
    for (uint64_t bits = boardBits; bits != 0; bits &= bits - 1) {
      const Card card = DeckCard(std::countr_zero(bits));
      state = evaluator.AddRank(state, card.rank);
      suits.Add(card);
    }
    flushSuit = suits.FlushSuit();
  }
};

}  // namespace quillet
