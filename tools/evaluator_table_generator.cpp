// Run by the build: writes the standard evaluator's tables (equity/standard_evaluator.h), which the
// library then carries in its read-only data, so no program builds them when it starts. The values come
// from the evaluator's own rule functions (EvaluateRanks, EvaluateFlush in equity/hand_evaluator.h).
//
//   evaluator_table_generator FILE
#include <array>
#include <bit>
#include <cstdio>
#include <cstring>
#include <map>
#include <vector>

#include "equity/hand_evaluator.h"
#include "equity/standard_evaluator.h"
#include "equity/table_bytes.h"

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

// The words of the table image (EvaluatorTableLayout in standard_evaluator.h).
std::vector<uint32_t> BuildTables() {
  // States are numbered in the order they are first reached, fewer ranks first, so the states that need
  // steps (fewer than seven ranks, and the dead state) are exactly those before the first seven-rank one.
  std::vector<uint32_t> codes = {0, 0};  // the empty state, then the dead state (its code is never read)
  std::map<uint32_t, RankState> stateOf = {{0u, StandardEvaluator::kNoRanks}};
  std::vector<RankState> steps;
  for (RankState state = 0; state < codes.size(); ++state) {
    if (state == StandardEvaluator::kDeadRankState) {
      steps.insert(steps.end(), 13, StandardEvaluator::kDeadRankState);
      continue;
    }
    const uint32_t code = codes[state];
    if (RankCount(code) == 7) break;
    for (int i = 0; i < 13; ++i) {
      if (code / kDigit[i] % 5 == 4) {
        steps.push_back(StandardEvaluator::kDeadRankState);
        continue;
      }
      const uint32_t next = code + kDigit[i];
      const auto [it, inserted] = stateOf.try_emplace(next, static_cast<RankState>(codes.size()));
      if (inserted) codes.push_back(next);
      steps.push_back(it->second);
    }
  }
  std::vector<uint32_t> words(EvaluatorTableLayout::kHeaderWords, 0);
  words[EvaluatorTableLayout::kMagicWord] = EvaluatorTableLayout::kMagic;
  words[EvaluatorTableLayout::kStateCountWord] = static_cast<uint32_t>(codes.size());
  words[EvaluatorTableLayout::kStepCountWord] = static_cast<uint32_t>(steps.size());
  words.insert(words.end(), steps.begin(), steps.end());
  for (RankState state = 0; state < codes.size(); ++state) {
    words.push_back(state == StandardEvaluator::kDeadRankState ? 0 : EvaluateRanks(RankCounts(codes[state])));
  }
  for (uint32_t mask = 0; mask < EvaluatorTableLayout::kFlushMasks; ++mask)
    words.push_back(std::popcount(mask) >= 5 ? EvaluateFlush(mask) : 0);
  const auto payload = std::span(reinterpret_cast<const unsigned char*>(words.data()), words.size() * 4)
                           .subspan(EvaluatorTableLayout::kHeaderWords * 4);
  words[EvaluatorTableLayout::kCrcWord] = Crc32(payload);
  return words;
}

}  // namespace
}  // namespace quillet

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: evaluator_table_generator FILE\n");
    return 2;
  }
  const std::vector<uint32_t> words = quillet::BuildTables();
  std::FILE* file = std::fopen(argv[1], "wb");
  if (file == nullptr || std::fwrite(words.data(), 4, words.size(), file) != words.size() ||
      std::fclose(file) != 0) {
    std::fprintf(stderr, "evaluator_table_generator: cannot write %s\n", argv[1]);
    return 1;
  }
  return 0;
}
