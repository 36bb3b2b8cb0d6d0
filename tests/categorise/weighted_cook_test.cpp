// The cook of a weighted range: each holding counts its weight, in every entry it stands in, in the
// categorised total once, and in the range and live totals.
#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <vector>

#include "cards/card_input.h"
#include "cards/hand_class.h"
#include "cards/holding.h"
#include "categorise/categories.h"
#include "categorise/cook.h"
#include "range/player_profile.h"
#include "range/range_notation.h"
#include "tests/support/test_seed.h"

namespace quillet {
namespace {

PlayerProfile WeightedProfile(const std::string& notation) {
  PlayerProfile profile;
  InitProfile(profile);
  const ParsedWeightedRange parsed = ParseWeightedRangeNotation(notation);
  EXPECT_TRUE(parsed.ok()) << notation;
  SetOnLayerWeights(profile, parsed.weights);
  return profile;
}

CookResult CookProfile(const PlayerProfile& profile, const std::string& hand, const std::string& board,
                       bool withWeights = true) {
  const CardInputs cards = CheckCardInputs(hand, board, CardsFor::Cook);
  EXPECT_TRUE(cards.ok()) << hand << " " << board;
  return Cook(cards, CollectRangeCombos(profile.rangeLayer, profile.seenLayer,
                                        withWeights ? &profile.onWeights : nullptr));
}

// KK at 0.5 (6 holdings, 3 combinations), QQ whole (6), AKs at 0.25 (4 holdings, two of them dead beside
// AhAd: 0.5 left) and 72o at 0.1 (12 holdings, 1.2), with My Hand AhAd and no board: the pairs go to
// "One pair" (9), AKs to "A high" (0.5), 72o to "etc high" (1.2).
TEST(WeightedCook, ASmallRangeAddsUpAsCountedByHand) {
  const CookResult cooked = CookProfile(WeightedProfile("KK:0.5, QQ, AKs:0.25, 72o:0.1"), "AhAd", "");
  EXPECT_EQ(cooked.rangeCount, 28);
  EXPECT_EQ(cooked.liveCount, 26);
  EXPECT_EQ(cooked.categories.categorisedCount, 26);
  EXPECT_EQ(cooked.rangeWeight, 11200);  // 3 + 6 + 1 + 1.2
  EXPECT_EQ(cooked.liveWeight, 10700);   // less AhKh and AdKd at 0.25 each
  EXPECT_EQ(cooked.categories.categorisedWeight, 10700);
  EXPECT_TRUE(cooked.weighted());
  const auto& nodes = cooked.categories.nodes;
  EXPECT_EQ(nodes[kEntryOnePair].count, 12);
  EXPECT_EQ(nodes[kEntryOnePair].weight, 9000);
  EXPECT_EQ(nodes[kEntryAceHigh].count, 2);
  EXPECT_EQ(nodes[kEntryAceHigh].weight, 500);
  EXPECT_EQ(nodes[kEntryOtherHigh].count, 12);
  EXPECT_EQ(nodes[kEntryOtherHigh].weight, 1200);
  EXPECT_EQ(nodes[kEntryKingHigh].weight, 0);
  EXPECT_EQ(nodes[kEntryQueenHigh].weight, 0);
}

TEST(WeightedCook, WholeWeightsMakeEveryWeightTheCountTimesOneThousand) {
  const CookResult cooked = CookProfile(WeightedProfile("QQ+, AKs, 72o"), "AhKd", "Tc8h3s");
  EXPECT_FALSE(cooked.weighted());
  EXPECT_EQ(cooked.rangeWeight, int64_t{cooked.rangeCount} * kFullWeight);
  EXPECT_EQ(cooked.liveWeight, int64_t{cooked.liveCount} * kFullWeight);
  EXPECT_EQ(cooked.categories.categorisedWeight, int64_t{cooked.categories.categorisedCount} * kFullWeight);
  for (const CategoryNode& node : cooked.categories.nodes)
    EXPECT_EQ(node.weight, int64_t{node.count} * kFullWeight);
}

TEST(WeightedCook, AHoldingInAMadeHandAndADrawEntryCountsItsWeightInBothAndOnceInTheTotal) {
  // Ah2h on 9h Th Kh is a flush and stands in the flush draws too; at 0.25 it adds 0.25 to both.
  const CookResult cooked = CookProfile(WeightedProfile("Ah2h:0.25"), "", "9hThKh");
  EXPECT_EQ(cooked.categories.categorisedCount, 1);
  EXPECT_EQ(cooked.categories.categorisedWeight, 250);
  int entries = 0;
  for (const CategoryNode& node : cooked.categories.nodes) {
    if (node.count == 0) continue;
    ++entries;
    EXPECT_EQ(node.weight, 250) << node.label;
  }
  EXPECT_GE(entries, 2);
}

TEST(WeightedCook, ASeenHoldingIsWholeBesideAWeightedOnLayer) {
  PlayerProfile profile = WeightedProfile("AKs:0.5");
  const ParsedRange seen = ParseRangeNotation("AKs, QQ");
  ASSERT_TRUE(seen.ok());
  PutHoldingsInLayer(seen.holdings, profile.seenLayer);
  const CookResult cooked = CookProfile(profile, "", "");
  EXPECT_EQ(cooked.rangeCount, 10);            // AKs once, QQ from the Seen layer
  EXPECT_EQ(cooked.rangeWeight, 2000 + 6000);  // AKs at 0.5 (On), QQ whole (Seen)
}

// Every holding at a random weight, on boards of every street with and without My Hand: each entry holds
// the same holdings as the unweighted cook of the same layer, and its weight is the sum of their weights as
// the test gave them; the totals are the sums over the holdings that use no card in play, worked out here.
TEST(WeightedCook, RandomWeightsAddUpEntryByEntryOnEveryStreet) {
  std::mt19937_64 random(testing::TestSeed(2211));
  const std::vector<std::pair<std::string, std::string>> inputs = {
      {"", ""},           {"AhAd", ""},        {"AhKd", "Tc8h3s"}, {"", "9hThKh"}, {"7c7d", "Tc8h3s9h"},
      {"", "2c2d5h5s9c"}, {"QsJs", "Ts9s2d3c"}};
  for (const auto& [hand, board] : inputs) {
    SCOPED_TRACE(hand + " " + board);
    WeightedHoldingSet weights;
    std::uniform_int_distribution<int> weight(1, kFullWeight);
    std::bernoulli_distribution whole(0.3);
    for (int h = 0; h < kHoldingCount; ++h)
      weights.SetWeight(h, whole(random) ? kFullWeight : weight(random));
    PlayerProfile profile;
    InitProfile(profile);
    SetOnLayerWeights(profile, weights);

    const CookResult weighted = CookProfile(profile, hand, board);
    const CookResult plain = CookProfile(profile, hand, board, false);
    ASSERT_EQ(weighted.categories.nodes.size(), plain.categories.nodes.size());
    for (std::size_t i = 0; i < plain.categories.nodes.size(); ++i) {
      const CategoryNode& p = plain.categories.nodes[i];
      const CategoryNode& w = weighted.categories.nodes[i];
      ASSERT_EQ(w.count, p.count) << i;
      int64_t expected = 0;
      for (int32_t k = 0; k < p.count; ++k) {
        const HandCombo& holding = p.combos[k];
        EXPECT_EQ(ComboToText(w.combos[k]), ComboToText(holding));
        expected += weights.Weight(holding.card1(), holding.card2());
      }
      EXPECT_EQ(w.weight, expected) << i << " " << w.label;
    }

    // The cards in play, read from the texts here.
    const std::string inPlay = hand + board;
    const auto usesCardInPlay = [&](int h) {
      for (std::size_t at = 0; at < inPlay.size(); at += 2) {
        const Card c{RankFromChar(inPlay.substr(at, 1)), SuitFromChar(inPlay.substr(at + 1, 1))};
        const std::array<Card, 2> cards = CardsOfHolding(h);
        if (cards[0] == c || cards[1] == c) return true;
      }
      return false;
    };
    int64_t all = 0;
    int64_t live = 0;
    for (int h = 0; h < kHoldingCount; ++h) {
      all += weights.Weight(h);
      if (!usesCardInPlay(h)) live += weights.Weight(h);
    }
    EXPECT_EQ(weighted.rangeWeight, all);
    EXPECT_EQ(weighted.liveWeight, live);
    EXPECT_EQ(weighted.categories.categorisedWeight, live);
    EXPECT_TRUE(weighted.weighted());
  }
}

}  // namespace
}  // namespace quillet
