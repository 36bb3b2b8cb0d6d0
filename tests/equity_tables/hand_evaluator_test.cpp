#include "equity/hand_evaluator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <vector>

#include "equity/deck.h"
#include "tests/support/card_text.h"
#include "tests/support/sanitizer.h"
#include "tests/support/test_seed.h"

namespace quillet {
namespace {

using testing::C;

HandValue Eval(std::initializer_list<const char*> texts) {
  std::vector<Card> cards;
  for (const char* t : texts) cards.push_back(C(t));
  return EvaluateCards(cards);
}

// A five-card hand worked out the long way: sort the ranks into groups (larger groups first, then higher
// ranks), name the category from the group sizes, flush and straight, and list the group ranks in order.
HandValue PlainFiveCardValue(const std::array<Card, 5>& hand) {
  std::array<int, 15> count{};
  for (const Card& c : hand) ++count[c.rank];
  // (size, rank) of each group, larger groups first, then higher ranks.
  std::array<std::pair<int, int>, 5> groups{};
  int n = 0;
  for (int size = 4; size >= 1; --size)
    for (int r = 14; r >= 2; --r)
      if (count[r] == size) groups[n++] = {size, r};

  bool flush = true;
  for (const Card& c : hand) flush = flush && c.suit == hand[0].suit;
  int straightHigh = 0;
  if (n == 5) {
    if (groups[0].second - groups[4].second == 4) straightHigh = groups[0].second;
    if (groups[0].second == 14 && groups[1].second == 5) straightHigh = 5;  // A-5-4-3-2
  }
  std::array<int, 5> ranks{};
  int ranksUsed = n;
  for (int i = 0; i < n; ++i) ranks[i] = groups[i].second;
  uint32_t category;
  if (straightHigh && flush) {
    category = 8, ranks = {straightHigh}, ranksUsed = 1;
  } else if (groups[0].first == 4) {
    category = 7;
  } else if (groups[0].first == 3 && groups[1].first == 2) {
    category = 6;
  } else if (flush) {
    category = 5;
  } else if (straightHigh) {
    category = 4, ranks = {straightHigh}, ranksUsed = 1;
  } else if (groups[0].first == 3) {
    category = 3;
  } else if (groups[0].first == 2 && groups[1].first == 2) {
    category = 2;
  } else if (groups[0].first == 2) {
    category = 1;
  } else {
    category = 0;
  }
  HandValue v = category;
  for (int i = 0; i < 5; ++i) v = v << 4 | (i < ranksUsed ? ranks[i] : 0);
  return v;
}

HandValue BestOfTwentyOne(const std::array<Card, 7>& cards) {
  HandValue best = 0;
  for (int skip1 = 0; skip1 < 7; ++skip1)
    for (int skip2 = skip1 + 1; skip2 < 7; ++skip2) {
      std::array<Card, 5> five;
      int n = 0;
      for (int i = 0; i < 7; ++i)
        if (i != skip1 && i != skip2) five[n++] = cards[i];
      best = std::max(best, PlainFiveCardValue(five));
    }
  return best;
}

TEST(HandEvaluator, EveryFiveCardHandFallsIntoTheKnownCountOfEachOfTheTenCategories) {
  std::array<int64_t, 10> counts{};  // the nine categories, royal flushes apart in the tenth
  std::vector<bool> seen(1u << 24, false);
  int64_t distinct = 0;
  int64_t disagreements = 0;
  for (int a = 0; a < 52; ++a)
    for (int b = a + 1; b < 52; ++b)
      for (int c = b + 1; c < 52; ++c)
        for (int d = c + 1; d < 52; ++d)
          for (int e = d + 1; e < 52; ++e) {
            const std::array<Card, 5> hand = {DeckCard(a), DeckCard(b), DeckCard(c), DeckCard(d),
                                              DeckCard(e)};
            const HandValue v = EvaluateCards(hand);
            const bool royal = HandCategoryOf(v) == kMadeStraightFlush && HandTopRank(v) == 14;
            ++counts[royal ? 9 : static_cast<int>(HandCategoryOf(v))];
            if (!seen[v]) seen[v] = true, ++distinct;
            if (v != PlainFiveCardValue(hand)) ++disagreements;
          }
  EXPECT_EQ(counts[9], 4);
  EXPECT_EQ(counts[8], 36);
  EXPECT_EQ(counts[7], 624);
  EXPECT_EQ(counts[6], 3744);
  EXPECT_EQ(counts[5], 5108);
  EXPECT_EQ(counts[4], 10200);
  EXPECT_EQ(counts[3], 54912);
  EXPECT_EQ(counts[2], 123552);
  EXPECT_EQ(counts[1], 1098240);
  EXPECT_EQ(counts[0], 1302540);
  // 7,462 different five-card hands: every one told apart, no two equal hands valued differently.
  EXPECT_EQ(distinct, 7462);
  EXPECT_EQ(disagreements, 0) << "five-card hands valued unlike the long way";
}

TEST(HandEvaluator, SevenCardHandsAreValuedAsTheBestOfTheirTwentyOneFiveCardHands) {
  const uint64_t seed = quillet::testing::TestSeed(20261123);
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937_64 rng(seed);
  std::array<int32_t, 52> places;
  for (int i = 0; i < 52; ++i) places[i] = i;
  for (int sample = 0; sample < quillet::testing::SweepRounds(100000); ++sample) {
    // A partial shuffle draws seven different cards.
    std::array<Card, 7> cards;
    for (int i = 0; i < 7; ++i) {
      std::swap(places[i], places[i + rng() % (52 - i)]);
      cards[i] = DeckCard(places[i]);
    }
    const HandValue expected = BestOfTwentyOne(cards);
    ASSERT_EQ(EvaluateCards(cards), expected) << "sample " << sample;
  }
}

TEST(HandEvaluator, TheAcePlaysLowOnlyInTheFiveHighStraight) {
  EXPECT_EQ(HandCategoryOf(Eval({"Ah", "2c", "3d", "4s", "5h"})), kMadeStraight);
  EXPECT_EQ(HandTopRank(Eval({"Ah", "2c", "3d", "4s", "5h"})), 5);
  EXPECT_LT(Eval({"Ah", "2c", "3d", "4s", "5h"}), Eval({"6h", "2c", "3d", "4s", "5h"}));
  EXPECT_EQ(HandCategoryOf(Eval({"Qh", "Kc", "Ad", "2s", "3h"})), kMadeHighCard);  // no wrap-around
}

TEST(HandEvaluator, AnySixOrSevenCardsOfOneSuitMakeAFlushOfTheBestFive) {
  const HandValue six = Eval({"Ah", "Jh", "9h", "7h", "4h", "2h", "Kc"});
  EXPECT_EQ(HandCategoryOf(six), kMadeFlush);
  EXPECT_EQ(six, Eval({"Ah", "Jh", "9h", "7h", "4h"}));
  EXPECT_EQ(HandCategoryOf(Eval({"Ah", "Jh", "9h", "7h", "4h", "2h", "3h"})), kMadeFlush);
}

TEST(HandEvaluator, KickersComeFromAllSevenCards) {
  // Same two pair on the board; the ace kicker in one hand beats the king in the other.
  EXPECT_GT(Eval({"Ac", "3d", "Qh", "Qs", "8c", "8d", "2h"}),
            Eval({"Kc", "3h", "Qh", "Qs", "8c", "8d", "2h"}));
  // The board plays for both: a split.
  EXPECT_EQ(Eval({"2c", "3d", "Ah", "Ks", "Qc", "Jd", "9h"}),
            Eval({"2h", "4d", "Ah", "Ks", "Qc", "Jd", "9h"}));
  // A third pair's rank can be the two-pair kicker.
  EXPECT_EQ(Eval({"Ac", "Ad", "Kh", "Ks", "Qc", "Qd", "2h"}), Eval({"Ac", "Ad", "Kh", "Ks", "Qc"}));
}

TEST(HandEvaluator, TwoTripsMakeAFullHouseOfTheHigherTripsOverThePairOfTheLower) {
  const HandValue v = Eval({"9c", "9d", "9h", "5s", "5c", "5d", "Ah"});
  EXPECT_EQ(HandCategoryOf(v), kMadeFullHouse);
  EXPECT_EQ(v, Eval({"9c", "9d", "9h", "5s", "5c"}));
}

TEST(HandEvaluator, QuadsTakeTheHighestOtherCardAsKicker) {
  EXPECT_EQ(Eval({"7c", "7d", "7h", "7s", "Kc", "Kd", "Kh"}), Eval({"7c", "7d", "7h", "7s", "Kc"}));
}

TEST(HandEvaluator, AStraightFlushBeatsQuadsAndTheRoyalIsTheBestHand) {
  const HandValue royal = Eval({"Ts", "Js", "Qs", "Ks", "As", "2c", "2d"});
  const HandValue wheelFlush = Eval({"As", "2s", "3s", "4s", "5s", "Ac", "Ad"});
  EXPECT_EQ(HandCategoryOf(wheelFlush), kMadeStraightFlush);
  EXPECT_EQ(HandTopRank(wheelFlush), 5);
  EXPECT_GT(wheelFlush, Eval({"Ac", "Ad", "Ah", "As", "Kc"}));
  EXPECT_GT(royal, Eval({"9s", "Ts", "Js", "Qs", "Ks"}));
}

TEST(HandEvaluator, EvaluateRanksValuesTheRanksAsTheyWouldBeWithoutAFlush) {
  std::array<uint8_t, 13> counts{};
  for (int32_t r : {14, 14, 13, 13, 13, 4, 2}) ++counts[r - 2];
  EXPECT_EQ(EvaluateRanks(counts), Eval({"Ac", "Ad", "Kc", "Kd", "Kh", "4s", "2s"}));
}

TEST(StraightHighRank, FindsTheBestRunOfFiveAmongManyRanks) {
  const auto mask = [](std::initializer_list<int> ranks) {
    uint32_t m = 0;
    for (int r : ranks) m |= 1u << (r - 2);
    return m;
  };
  EXPECT_EQ(StraightHighRank(mask({2, 3, 4, 5, 6, 7, 8})), 8);
  EXPECT_EQ(StraightHighRank(mask({14, 2, 3, 4, 5})), 5);
  EXPECT_EQ(StraightHighRank(mask({10, 11, 12, 13, 14})), 14);
  EXPECT_EQ(StraightHighRank(mask({2, 3, 4, 5, 7, 8, 9})), 0);
}

}  // namespace
}  // namespace quillet
