// The fast reader of hands under the standard rules: the same HandValue as EvaluateCards
// (hand_evaluator.h) for any five to seven cards, read from tables made from that evaluator's own rule
// functions, so the rule lives in one place and EvaluateCards stays as the step-by-step reference. The
// build makes the tables (tools/evaluator_table_generator.cpp) and the library carries them in its
// read-only data; they are read in place, nothing is built or copied when a program starts.
//
// A hand splits into its ranks and its suits:
// - Without a flush the value depends only on the multiset of ranks. The multisets of up to seven ranks
//   (each rank at most four times) form a graph: a state is one multiset, and adding a rank leads to the
//   state with that rank once more. Each state holds the value of its ranks (EvaluateRanks). A board
//   reads its state once; each holding then costs two steps and one value read.
// - With five or more cards of one suit the hand is a flush or a straight flush, whatever its other cards
//   (seven cards cannot hold a flush and a full house or quads at once), and its value depends only on
//   the ranks of that suit: one read from a table of the 8,192 rank masks (EvaluateFlush).
//
//   RankState     index into the graph; states of fewer than seven ranks come first and have steps
//   kDeadRankState  a state no real hand reaches (a fifth card of one rank, an eighth card); its value is
//                 0 and every step from it leads back to it
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>

#include "cards/card.h"
#include "equity/hand_evaluator.h"

namespace quillet {

using RankState = uint32_t;

// The table image, 32-bit words in the build machine's byte order: a header of four words (magic "QEVL",
// the number of states, the number of step entries, the CRC-32 of the rest), then the steps
// ([state x 13 + rank - 2] for the states of fewer than seven ranks), the values by state and the flush
// values by 13-bit rank mask.
struct EvaluatorTableLayout {
  static constexpr uint32_t kMagic = 0x4C564551;  // "QEVL"
  static constexpr std::size_t kMagicWord = 0;
  static constexpr std::size_t kStateCountWord = 1;
  static constexpr std::size_t kStepCountWord = 2;
  static constexpr std::size_t kCrcWord = 3;
  static constexpr std::size_t kHeaderWords = 4;
  static constexpr std::size_t kFlushMasks = 8192;
};

class StandardEvaluator {
 public:
  // The program's one evaluator, over the tables built into it (about 1.7 MB).
  static const StandardEvaluator& Get();

  // Whether the built-in tables are whole: their header fits their size and the CRC-32 of their words
  // matches the header's. Checked by the tests and by "quillet-cli tables info", not at every start.
  static bool TablesIntact();

  // The state of no cards.
  static constexpr RankState kNoRanks = 0;
  static constexpr RankState kDeadRankState = 1;

  // The state with one more card of `rank` (2..14). From a seven-rank state the step is not defined.
  RankState AddRank(RankState state, int32_t rank) const {
    return steps_[static_cast<std::size_t>(state) * 13 + static_cast<std::size_t>(rank - 2)];
  }
  // The best hand the state's five to seven ranks make when they hold no flush.
  HandValue RankValue(RankState state) const { return values_[state]; }
  // The best hand five or more cards of one suit make; bit r - 2 of `suitRanks` stands for rank r. 0 for
  // fewer than five cards.
  HandValue FlushValue(uint32_t suitRanks) const { return flushValues_[suitRanks & 0x1FFF]; }

  // The value of five to seven different cards, equal to EvaluateCards(cards).
  HandValue Evaluate(CardSet cards) const;

  // How many states the graph has (every multiset of up to seven ranks, plus the dead state).
  std::size_t StateCount() const { return stateCount_; }

 private:
  StandardEvaluator();

  const RankState* steps_ = nullptr;   // [state x 13 + rank - 2], for the states of fewer than seven ranks
  const HandValue* values_ = nullptr;  // [state]
  const HandValue* flushValues_ = nullptr;  // [13-bit rank mask]
  std::size_t stateCount_ = 0;
};

// EvaluateCards through the fast reader.
inline HandValue StandardHandValue(CardSet cards) {
  return StandardEvaluator::Get().Evaluate(cards);
}

}  // namespace quillet
