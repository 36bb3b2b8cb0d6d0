#include "equity/standard_evaluator.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <random>
#include <span>
#include <vector>

#include "equity/deck.h"
#include "equity/embedded_tables.h"
#include "equity/hand_evaluator.h"
#include "equity/table_bytes.h"

namespace quillet {
namespace {

CardSet DeckCardSet(int index) {
  return CardSetBit(DeckCard(index));
}

// The category as counted for seven-card hands, royal flushes apart in the tenth.
int CountedCategory(HandValue value) {
  const bool royal = HandCategoryOf(value) == kMadeStraightFlush && HandTopRank(value) == 14;
  return royal ? 9 : static_cast<int>(HandCategoryOf(value));
}

TEST(StandardEvaluator, TheRankGraphHoldsEveryMultisetOfUpToSevenRanksOnceAndTheDeadState) {
  // Multisets of n ranks out of 13 with at most four of each, for n = 0..7:
  // 1 + 13 + 91 + 455 + 1820 + 6175 + 18395 + 49205.
  EXPECT_EQ(StandardEvaluator::Get().StateCount(), 1u + 13 + 91 + 455 + 1820 + 6175 + 18395 + 49205 + 1);
}

TEST(StandardEvaluator, TheBuiltInTablesAreWholeAndTheirChecksumMatches) {
  EXPECT_TRUE(StandardEvaluator::TablesIntact());
  const std::span<const unsigned char> bytes = EmbeddedEvaluatorTableBytes();
  ASSERT_GT(bytes.size(), EvaluatorTableLayout::kHeaderWords * 4);
  // The checksum covers every table word: a table image with one byte changed no longer matches it.
  std::vector<unsigned char> copy(bytes.begin(), bytes.end());
  const uint32_t stored = Crc32(std::span(copy).subspan(EvaluatorTableLayout::kHeaderWords * 4));
  copy[copy.size() / 2] ^= 1;
  EXPECT_NE(Crc32(std::span(copy).subspan(EvaluatorTableLayout::kHeaderWords * 4)), stored);
}

TEST(StandardEvaluator, AFifthCardOfOneRankLeadsToTheDeadStateAndStaysThere) {
  const StandardEvaluator& evaluator = StandardEvaluator::Get();
  RankState state = StandardEvaluator::kNoRanks;
  for (int i = 0; i < 4; ++i) state = evaluator.AddRank(state, 9);
  EXPECT_NE(state, StandardEvaluator::kDeadRankState);
  state = evaluator.AddRank(state, 9);
  EXPECT_EQ(state, StandardEvaluator::kDeadRankState);
  EXPECT_EQ(evaluator.AddRank(state, 2), StandardEvaluator::kDeadRankState);
  EXPECT_EQ(evaluator.RankValue(state), 0u);
}

TEST(StandardEvaluator, TheOrderInWhichRanksAreAddedDoesNotMatter) {
  const StandardEvaluator& evaluator = StandardEvaluator::Get();
  RankState up = StandardEvaluator::kNoRanks;
  RankState down = StandardEvaluator::kNoRanks;
  for (int32_t rank : {2, 5, 5, 9, 14, 14, 13}) up = evaluator.AddRank(up, rank);
  for (int32_t rank : {13, 14, 9, 5, 14, 2, 5}) down = evaluator.AddRank(down, rank);
  EXPECT_EQ(up, down);
}

TEST(StandardEvaluator, EveryFiveCardHandIsValuedExactlyAsTheReferenceEvaluatorValuesIt) {
  const StandardEvaluator& evaluator = StandardEvaluator::Get();
  int64_t hands = 0;
  int64_t disagreements = 0;
  for (int a = 0; a < 52; ++a)
    for (int b = a + 1; b < 52; ++b)
      for (int c = b + 1; c < 52; ++c)
        for (int d = c + 1; d < 52; ++d)
          for (int e = d + 1; e < 52; ++e) {
            const CardSet cards =
                DeckCardSet(a) | DeckCardSet(b) | DeckCardSet(c) | DeckCardSet(d) | DeckCardSet(e);
            disagreements += evaluator.Evaluate(cards) != EvaluateCards(cards);
            ++hands;
          }
  EXPECT_EQ(hands, 2598960);
  EXPECT_EQ(disagreements, 0);
}

TEST(StandardEvaluator, RandomSixAndSevenCardHandsAreValuedExactlyAsTheReferenceEvaluatorValuesThem) {
#ifdef NDEBUG
  constexpr int kSamples = 5'000'000;
#else
  constexpr int kSamples = 1'000'000;  // the sanitizer build reads fewer
#endif
  const StandardEvaluator& evaluator = StandardEvaluator::Get();
  std::mt19937_64 rng(20261123);
  std::array<int, 52> places;
  for (int i = 0; i < 52; ++i) places[i] = i;
  int64_t disagreements = 0;
  for (int sample = 0; sample < kSamples; ++sample) {
    // A partial shuffle draws seven different cards; every eighth hand keeps six.
    const int count = sample % 8 == 0 ? 6 : 7;
    CardSet cards = 0;
    for (int i = 0; i < count; ++i) {
      std::swap(places[i], places[i + static_cast<int>(rng() % (52 - i))]);
      cards |= DeckCardSet(places[i]);
    }
    if (evaluator.Evaluate(cards) != EvaluateCards(cards)) {
      if (++disagreements <= 5) ADD_FAILURE() << "sample " << sample << ": cards " << std::hex << cards;
    }
  }
  EXPECT_EQ(disagreements, 0);
}

// All 133,784,560 hands of seven cards, read incrementally as a board reads its holdings: the ranks of
// six cards are stepped once per seventh card.
TEST(StandardEvaluator, EverySevenCardHandFallsIntoTheKnownCountOfEachCategory) {
#ifndef NDEBUG
  GTEST_SKIP() << "all seven-card hands are read in the Release build only";
#endif
  const StandardEvaluator& evaluator = StandardEvaluator::Get();
  std::array<int64_t, 10> counts{};
  std::vector<bool> seen(1u << 24, false);
  int64_t distinct = 0;
  std::array<RankState, 8> ranks{};  // the state after the first k cards
  std::array<std::array<int, 4>, 8> suits{};
  std::array<CardSet, 8> sets{};
  std::array<int, 7> at{};
  // Walks the cards in deck order as nested loops, one level per card.
  auto descend = [&](auto& self, int level, int from) -> void {
    for (int index = from; index <= 52 - (7 - level); ++index) {
      const Card card = DeckCard(index);
      ranks[level + 1] = evaluator.AddRank(ranks[level], card.rank);
      suits[level + 1] = suits[level];
      ++suits[level + 1][card.suit];
      sets[level + 1] = sets[level] | CardSetBit(card);
      at[level] = index;
      if (level < 6) {
        self(self, level + 1, index + 1);
        continue;
      }
      HandValue value = evaluator.RankValue(ranks[7]);
      for (int32_t suit = 0; suit < 4; ++suit) {
        if (suits[7][suit] >= 5) value = evaluator.FlushValue(CardSetSuitRanks(sets[7], suit));
      }
      ++counts[CountedCategory(value)];
      if (!seen[value]) seen[value] = true, ++distinct;
    }
  };
  descend(descend, 0, 0);
  EXPECT_EQ(counts[9], 4324);
  EXPECT_EQ(counts[8], 37260);
  EXPECT_EQ(counts[7], 224848);
  EXPECT_EQ(counts[6], 3473184);
  EXPECT_EQ(counts[5], 4047644);
  EXPECT_EQ(counts[4], 6180020);
  EXPECT_EQ(counts[3], 6461620);
  EXPECT_EQ(counts[2], 31433400);
  EXPECT_EQ(counts[1], 58627800);
  EXPECT_EQ(counts[0], 23294460);
  // Seven cards make 4,824 of the 7,462 different five-card hands.
  EXPECT_EQ(distinct, 4824);
}

TEST(StandardEvaluator, FlushValuesNeedFiveCardsOfTheSuit) {
  const StandardEvaluator& evaluator = StandardEvaluator::Get();
  EXPECT_EQ(evaluator.FlushValue(0b1011001000000), 0u);  // four cards
  EXPECT_EQ(HandCategoryOf(evaluator.FlushValue(0b1011001000001)), kMadeFlush);
  EXPECT_EQ(HandCategoryOf(evaluator.FlushValue(0b1000000001111)), kMadeStraightFlush);  // A2345
}

}  // namespace
}  // namespace quillet
