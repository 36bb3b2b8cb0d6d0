#include "equity/standard_evaluator.h"

#include <cassert>
#include <span>

#include "equity/embedded_tables.h"
#include "equity/table_bytes.h"

namespace quillet {
namespace {

std::span<const uint32_t> TableWords() {
  const std::span<const unsigned char> bytes = EmbeddedEvaluatorTableBytes();
  return {reinterpret_cast<const uint32_t*>(bytes.data()), bytes.size() / sizeof(uint32_t)};
}

}  // namespace

StandardEvaluator::StandardEvaluator() {
  // The build guarantees the tables (the library does not link without them); they are read in place.
  const std::span<const uint32_t> words = TableWords();
  stateCount_ = words[EvaluatorTableLayout::kStateCountWord];
  steps_ = words.data() + EvaluatorTableLayout::kHeaderWords;
  values_ = steps_ + words[EvaluatorTableLayout::kStepCountWord];
  flushValues_ = values_ + stateCount_;
}

bool StandardEvaluator::TablesIntact() {
  const std::span<const uint32_t> words = TableWords();
  if (words.size() < EvaluatorTableLayout::kHeaderWords) return false;
  if (words[EvaluatorTableLayout::kMagicWord] != EvaluatorTableLayout::kMagic) return false;
  const std::size_t expected =
      EvaluatorTableLayout::kHeaderWords + words[EvaluatorTableLayout::kStepCountWord] +
      words[EvaluatorTableLayout::kStateCountWord] + EvaluatorTableLayout::kFlushMasks;
  if (words.size() != expected) return false;
  const auto payload = std::as_bytes(words.subspan(EvaluatorTableLayout::kHeaderWords));
  return Crc32({reinterpret_cast<const unsigned char*>(payload.data()), payload.size()}) ==
         words[EvaluatorTableLayout::kCrcWord];
}

const StandardEvaluator& StandardEvaluator::Get() {
  static const StandardEvaluator evaluator;
  return evaluator;
}

HandValue StandardEvaluator::Evaluate(CardSet cards) const {
  assert(std::popcount(cards) >= 5 && std::popcount(cards) <= 7);
  for (int32_t suit = 0; suit < 4; ++suit) {
    const uint32_t suitRanks = CardSetSuitRanks(cards, suit);
    if (std::popcount(suitRanks) >= 5) return flushValues_[suitRanks];
  }
  RankState state = kNoRanks;
  for (int32_t suit = 0; suit < 4; ++suit) {
    for (uint32_t ranks = CardSetSuitRanks(cards, suit); ranks != 0; ranks &= ranks - 1) {
      state = AddRank(state, std::countr_zero(ranks) + 2);
    }
  }
  return values_[state];
}

}  // namespace quillet
