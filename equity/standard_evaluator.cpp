#include "equity/standard_evaluator.h"

#include <cassert>
#include <unordered_map>

namespace quillet {
namespace {

// A multiset of ranks as a base-5 number: digit r - 2 counts rank r (0..4). 5^13 fits in 32 bits.
constexpr std::array<uint32_t, 13> kDigit = [] {
  std::array<uint32_t, 13> digits{};
  uint32_t power = 1;
  for (auto& digit : digits) {
    digit = power;
    power *= 5;
  }
  return digits;
}();

std::array<uint8_t, 13> RankCounts(uint32_t code) {
  std::array<uint8_t, 13> counts{};
  for (int i = 0; i < 13; ++i) counts[i] = static_cast<uint8_t>(code / kDigit[i] % 5);
  return counts;
}

int RankCount(uint32_t code) {
  int total = 0;
  for (uint8_t count : RankCounts(code)) total += count;
  return total;
}

}  // namespace

StandardEvaluator::StandardEvaluator() {
  // States are numbered in the order they are first reached, fewer ranks first, so the states that need
  // steps (fewer than seven ranks, and the dead state) are exactly those before the first seven-rank one.
  std::vector<uint32_t> codes = {0, 0};  // the empty state, then the dead state (its code is never read)
  std::unordered_map<uint32_t, RankState> stateOf = {{0u, kNoRanks}};
  stateOf.reserve(80000);
  for (RankState state = 0; state < codes.size(); ++state) {
    if (state == kDeadRankState) {
      steps_.insert(steps_.end(), 13, kDeadRankState);
      continue;
    }
    const uint32_t code = codes[state];
    if (RankCount(code) == 7) break;
    for (int i = 0; i < 13; ++i) {
      if (code / kDigit[i] % 5 == 4) {
        steps_.push_back(kDeadRankState);
        continue;
      }
      const uint32_t next = code + kDigit[i];
      const auto [it, inserted] = stateOf.try_emplace(next, static_cast<RankState>(codes.size()));
      if (inserted) codes.push_back(next);
      steps_.push_back(it->second);
    }
  }
  values_.resize(codes.size());
  for (RankState state = 0; state < codes.size(); ++state) {
    values_[state] = state == kDeadRankState ? 0 : EvaluateRanks(RankCounts(codes[state]));
  }
  for (uint32_t mask = 0; mask < flushValues_.size(); ++mask) {
    if (std::popcount(mask) >= 5) flushValues_[mask] = EvaluateFlush(mask);
  }
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
