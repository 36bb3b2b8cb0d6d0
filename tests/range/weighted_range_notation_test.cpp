// Weights in range notation: "AKs:0.5", "QQ+:75%", "[50]AQs, AJs[/50]"; the weighted set they are read into;
// the canonical text they print as; and the unweighted reading that still refuses them.
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <random>
#include <string>

#include "cards/hand_class.h"
#include "range/range_notation.h"
#include "range/weighted_holding_set.h"
#include "tests/support/card_text.h"
#include "tests/support/sanitizer.h"
#include "tests/support/test_seed.h"

namespace quillet {
namespace {

using testing::C;

WeightedHoldingSet Weights(std::string_view text) {
  const ParsedWeightedRange parsed = ParseWeightedRangeNotation(text);
  EXPECT_TRUE(parsed.ok()) << "'" << text << "': " << (parsed.error ? parsed.error->message : "");
  return parsed.weights;
}

// The set read from an unweighted text, every holding at `thousandths`.
WeightedHoldingSet AtWeight(std::string_view text, int thousandths) {
  const ParsedRange parsed = ParseRangeNotation(text);
  EXPECT_TRUE(parsed.ok()) << text;
  WeightedHoldingSet set;
  for (int h = 0; h < kHoldingCount; ++h) {
    if (parsed.holdings.contains(h)) set.SetWeight(h, thousandths);
  }
  return set;
}

// Each holding of `b` given its weight in `a` too (b's weights win).
WeightedHoldingSet Over(WeightedHoldingSet a, const WeightedHoldingSet& b) {
  for (int h = 0; h < kHoldingCount; ++h) {
    if (b.Weight(h) > 0) a.SetWeight(h, b.Weight(h));
  }
  return a;
}

// ---- The weighted set ----

TEST(WeightedHoldingSet, CountsHoldingsAboveZeroAndSumsTheirWeights) {
  WeightedHoldingSet set;
  EXPECT_TRUE(set.Empty());
  EXPECT_TRUE(set.IsUnweighted());
  set.SetWeight(C("Ah"), C("Kh"), 500);
  set.SetWeight(C("As"), C("Ks"), kFullWeight);
  set.SetWeight(C("Ad"), C("Kd"), 1);
  set.SetWeight(C("Ac"), C("Kc"), 0);
  EXPECT_EQ(set.Count(), 3);
  EXPECT_EQ(set.WeightSum(), 1501);
  EXPECT_DOUBLE_EQ(set.Combos(), 1.501);
  EXPECT_FALSE(set.IsUnweighted());
  EXPECT_EQ(set.Weight(C("Kh"), C("Ah")), 500);  // either order of the two cards
  EXPECT_EQ(set.Holdings().size(), 3);
  EXPECT_EQ(set.HoldingsOfWeight(500).size(), 1);
}

TEST(WeightedHoldingSet, FromHoldingsAndBackIsTheSameSetAtWeightOne) {
  const HoldingSet holdings = ParseRangeNotation("QQ+, AKs, AhQd").holdings;
  const WeightedHoldingSet set = WeightedHoldingSet::FromHoldings(holdings);
  EXPECT_TRUE(set.IsUnweighted());
  EXPECT_EQ(set.Count(), holdings.size());
  EXPECT_EQ(set.WeightSum(), int64_t{holdings.size()} * kFullWeight);
  EXPECT_EQ(set.Holdings(), holdings);
  EXPECT_EQ(set.HoldingsOfWeight(kFullWeight), holdings);
}

// ---- Reading ----

TEST(WeightedRangeNotation, AColonGivesTheTokenItsWeightAsAFractionOrAPercentage) {
  EXPECT_EQ(Weights("AKs:0.5"), AtWeight("AKs", 500));
  EXPECT_EQ(Weights("AKs:50%"), AtWeight("AKs", 500));
  EXPECT_EQ(Weights("AKs:.5"), AtWeight("AKs", 500));
  EXPECT_EQ(Weights("AKs:0.500"), AtWeight("AKs", 500));
  EXPECT_EQ(Weights("QQ+:0.75"), AtWeight("QQ+", 750));
  EXPECT_EQ(Weights("AhKh:0.25"), AtWeight("AhKh", 250));
  EXPECT_EQ(Weights("AKs:12.5%"), AtWeight("AKs", 125));
  EXPECT_EQ(Weights("AKs:0.001"), AtWeight("AKs", 1));
  EXPECT_EQ(Weights("22-55:1"), AtWeight("22-55", kFullWeight));
  EXPECT_EQ(Weights("T9s-54s:0.3, 10%:0.2"), Over(AtWeight("T9s-54s", 300), AtWeight("10%", 200)));
  EXPECT_EQ(Weights("AA:1,KK:0.5"), Over(AtWeight("AA", kFullWeight), AtWeight("KK", 500)));
  EXPECT_TRUE(Weights("AKs:0").Empty());
}

TEST(WeightedRangeNotation, ABlockGivesEveryTokenInsideItsPercentage) {
  EXPECT_EQ(Weights("[50]AQs, AJs[/50]"), AtWeight("AQs, AJs", 500));
  EXPECT_EQ(Weights("[50] AQs AJs [/50]"), AtWeight("AQs, AJs", 500));
  EXPECT_EQ(Weights("QQ+, [12.5]AQs[/12.5], KK"), Over(AtWeight("QQ+", kFullWeight), AtWeight("AQs", 125)));
  // A token's own weight wins inside a block.
  EXPECT_EQ(Weights("[50]AQs, AJs:0.2[/50]"), Over(AtWeight("AQs", 500), AtWeight("AJs", 200)));
  EXPECT_EQ(Weights("[100]AQs[/100]"), AtWeight("AQs", kFullWeight));
}

TEST(WeightedRangeNotation, ALaterTokensWeightReplacesAnEarlierOne) {
  EXPECT_EQ(Weights("AK:0.5, AKs"), Over(AtWeight("AKo", 500), AtWeight("AKs", kFullWeight)));
  EXPECT_EQ(Weights("AKs, AK:0.5"), AtWeight("AK", 500));
  EXPECT_EQ(Weights("AKs:0.5, AKs:0"), WeightedHoldingSet{});
  // Percentages too, however the earlier tokens walked the preflop order.
  EXPECT_EQ(Weights("15%:0.5, 20%"), AtWeight("20%", kFullWeight));
  EXPECT_EQ(Weights("15%, AA:0.5, 20%"), AtWeight("20%", kFullWeight));
  EXPECT_EQ(Weights("20%, 15%:0.5"), Over(AtWeight("20%", kFullWeight), AtWeight("15%", 500)));
  EXPECT_EQ(Weights("15%:0.5, AA:0.5, 20%:0.5"), AtWeight("20%", 500));
}

TEST(WeightedRangeNotation, ABadWeightIsRefusedWithTheTokenAndItsColumn) {
  const std::pair<const char*, const char*> refused[] = {
      {"QQ+, AKs:1.5", "AKs:1.5"},       {"QQ+, AKs:-1", "AKs:-1"},
      {"QQ+, AKs:x", "AKs:x"},           {"QQ+, AKs:", "AKs:"},
      {"QQ+, AKs:0.0005", "AKs:0.0005"}, {"QQ+, AKs:101%", "AKs:101%"},
      {"QQ+, AKs:5.05%", "AKs:5.05%"},   {"QQ+, [150]AKs[/150]", "[150]AKs[/150]"},
      {"QQ+, [50AKs", "[50AKs"},         {"QQ+, A[K]s", "A[K]s"},
  };
  for (const auto& [text, token] : refused) {
    const ParsedWeightedRange parsed = ParseWeightedRangeNotation(text);
    ASSERT_FALSE(parsed.ok()) << text;
    EXPECT_EQ(parsed.error->kind, RangeNotationError::Kind::BadWeight) << text;
    EXPECT_EQ(parsed.error->token, token) << text;
    EXPECT_EQ(parsed.error->column, 6) << text;
    EXPECT_EQ(parsed.error->message.rfind("bad weight '" + std::string(token) + "' at column 6 (", 0), 0u)
        << parsed.error->message;
    EXPECT_TRUE(parsed.weights.Empty());
  }
}

TEST(WeightedRangeNotation, ABlockNeverClosedClosedUnopenedNestedOrClosedWithAnotherNumberIsRefused) {
  const std::pair<const char*, const char*> refused[] = {
      {"QQ+, [50]AQs, AJs", "bracket '[50]AQs' at column 6 is never closed"},
      {"QQ+, [50]", "bracket '[50]' at column 6 is never closed"},
      {"QQ+, AJs[/50]", "bracket 'AJs[/50]' at column 6 closes no block"},
      {"[50]AQs, [40]AJs", "bracket '[40]AJs' at column 10 opens a block inside another"},
      {"[50]AQs, AJs[/40]", "bracket 'AJs[/40]' at column 10 closes a block of another weight"},
  };
  for (const auto& [text, message] : refused) {
    const ParsedWeightedRange parsed = ParseWeightedRangeNotation(text);
    ASSERT_FALSE(parsed.ok()) << text;
    EXPECT_EQ(parsed.error->kind, RangeNotationError::Kind::Bracket) << text;
    EXPECT_EQ(parsed.error->message, message);
  }
}

TEST(WeightedRangeNotation, ABadTokenInsideAWeightIsNamedWhole) {
  const ParsedWeightedRange parsed = ParseWeightedRangeNotation("QQ+, [50]AKx[/50]");
  ASSERT_FALSE(parsed.ok());
  EXPECT_EQ(parsed.error->message, "unknown token '[50]AKx[/50]' at column 6");
  EXPECT_EQ(ParseWeightedRangeNotation("AhAh:0.5").error->kind, RangeNotationError::Kind::SameCardTwice);
  EXPECT_EQ(ParseWeightedRangeNotation(":0.5").error->kind, RangeNotationError::Kind::UnknownToken);
}

// ---- The unweighted reading ----

TEST(UnweightedRangeNotation, TakesAWeightOfOneAndRefusesAnyOtherWithTheOldMessage) {
  EXPECT_EQ(ParseRangeNotation("QQ+, AKs:1, [100]AQs, AJs[/100], KQs:100%").holdings,
            ParseRangeNotation("QQ+, AKs, AQs, AJs, KQs").holdings);
  const std::pair<const char*, const char*> refused[] = {
      {"QQ+, AKs:0.5", "weights are not supported yet: 'AKs:0.5' at column 6"},
      {"QQ+, AKs:0", "weights are not supported yet: 'AKs:0' at column 6"},
      {"QQ+, [50]AQs, AJs[/50]", "weights are not supported yet: '[50]AQs' at column 6"},
      {"QQ+, [100]AQs, AJs[/50]", "weights are not supported yet: 'AJs[/50]' at column 16"},
      {"QQ+, [100]AQs", "weights are not supported yet: '[100]AQs' at column 6"},
      {"QQ+, AKs:1.5", "weights are not supported yet: 'AKs:1.5' at column 6"},
      {"QQ+, AKs:x", "weights are not supported yet: 'AKs:x' at column 6"},
      {"QQ+, AKx:0.5", "weights are not supported yet: 'AKx:0.5' at column 6"},
  };
  for (const auto& [text, message] : refused) {
    const ParsedRange parsed = ParseRangeNotation(text);
    ASSERT_FALSE(parsed.ok()) << text;
    EXPECT_EQ(parsed.error->kind, RangeNotationError::Kind::Weights) << text;
    EXPECT_EQ(parsed.error->message, message);
    EXPECT_TRUE(parsed.holdings.empty());
  }
}

// ---- Printing ----

std::string WeightedReprinted(std::string_view text) {
  return PrintWeightedRangeNotation(Weights(text));
}

TEST(WeightedRangeNotationPrinting, UnweightedPartsAsBeforeThenEachWeightHighestFirst) {
  EXPECT_EQ(WeightedReprinted("ATs:0.5, QQ+, AQs:0.5, AKs"), "QQ+, AKs, AQs:0.5, ATs:0.5");
  EXPECT_EQ(WeightedReprinted("AKs:0.25, AQs:0.75"), "AQs:0.75, AKs:0.25");
  EXPECT_EQ(WeightedReprinted("AA:1,KK:0.5"), "AA, KK:0.5");
  EXPECT_EQ(WeightedReprinted("AK:0.5, AKs"), "AKs, AKo:0.5");
  EXPECT_EQ(WeightedReprinted("AhKh:0.125"), "AhKh:0.125");
  EXPECT_EQ(WeightedReprinted("all:0.5"), "all:0.5");
  EXPECT_EQ(WeightedReprinted("QQ+:0.001"), "QQ+:0.001");
  // A run merges within one weight.
  EXPECT_EQ(WeightedReprinted("[50]AQs, AJs[/50]"), "AQs-AJs:0.5");
  EXPECT_EQ(WeightedReprinted("AJs:0.5, QQ+, AQs:0.5, AKs"), "QQ+, AKs, AQs-AJs:0.5");
}

TEST(WeightedRangeNotationPrinting, AGroupIsABlockWhereThatIsShorter) {
  // Three tokens: "[50]" and "[/50]" cost 9 characters, three ":0.5" cost 12.
  EXPECT_EQ(WeightedReprinted("QQ:0.5, AKs:0.5, AhQd:0.5"), "[50]QQ, AKs, AhQd[/50]");
  EXPECT_EQ(WeightedReprinted("JJ+, QQ:0.5, AKs:0.5, AhQd:0.5"), "KK+, JJ, [50]QQ, AKs, AhQd[/50]");
  // Two tokens: 8 characters of colons against 9 of brackets.
  EXPECT_EQ(WeightedReprinted("QQ:0.5, AKs:0.5"), "QQ:0.5, AKs:0.5");
  // A weight with a tenth of a percent writes the block's number with its decimal.
  EXPECT_EQ(WeightedReprinted("QQ:0.125, AKs:0.125, AhQd:0.125"), "[12.5]QQ, AKs, AhQd[/12.5]");
}

TEST(WeightedRangeNotationPrinting, AnUnweightedSetPrintsAsTheUnweightedPrinterDoes) {
  for (const char* text : {"", "all", "QQ+, AKs, AhQd", "22+, A2s+, KTs+, QJs, ATo+, KQo", "15%"}) {
    const HoldingSet holdings = ParseRangeNotation(text).holdings;
    EXPECT_EQ(PrintWeightedRangeNotation(WeightedHoldingSet::FromHoldings(holdings)),
              PrintRangeNotation(holdings))
        << text;
  }
}

uint32_t WeightsSeed() {
  return static_cast<uint32_t>(testing::TestSeed(20261125));
}

// A random weighted set: whole classes, parts of classes and single holdings at a few weights (so groups
// merge into runs and blocks), or every holding at a weight of its own.
WeightedHoldingSet RandomWeights(std::mt19937& random) {
  std::uniform_int_distribution<int> anyWeight(0, kFullWeight);
  WeightedHoldingSet set;
  if (random() % 8 == 0) {
    for (int h = 0; h < kHoldingCount; ++h) set.SetWeight(h, random() % 3 == 0 ? 0 : anyWeight(random));
    return set;
  }
  int palette[4];
  for (int& w : palette) w = random() % 3 == 0 ? kFullWeight : anyWeight(random);
  const int share = static_cast<int>(random() % 100);
  for (int c = 0; c < kClassCount; ++c) {
    if (static_cast<int>(random() % 100) >= share) continue;
    const ClassHoldings& own = HoldingsOfClass(c);
    const int weight = palette[random() % 4];
    const bool whole = random() % 4 != 0;
    for (int i = 0; i < own.count; ++i) {
      if (whole || random() % 2 == 0) set.SetWeight(own.holdings[i].number, weight);
    }
  }
  return set;
}

TEST(WeightedRangeNotationRoundTrip, ReadingThePrintedTextGivesTheSameWeights) {
  const uint32_t seed = WeightsSeed();
  std::cout << "weighted round-trip seed " << seed << " (set QUILLET_TEST_SEED to repeat another)\n";
  std::mt19937 random(seed);
  for (int n = 0; n < quillet::testing::SweepRounds(1500); ++n) {
    const WeightedHoldingSet set = RandomWeights(random);
    const std::string text = PrintWeightedRangeNotation(set);
    ASSERT_LE(text.size(), kLongestRangeNotation) << "seed " << seed << ", set " << n;
    const ParsedWeightedRange parsed = ParseWeightedRangeNotation(text);
    ASSERT_TRUE(parsed.ok()) << "seed " << seed << ", set " << n << ": " << parsed.error->message;
    ASSERT_EQ(parsed.weights, set) << "seed " << seed << ", set " << n << ": " << text;
    ASSERT_EQ(PrintWeightedRangeNotation(parsed.weights), text);
  }
}

TEST(WeightedRangeNotationRoundTrip, AnyTextOfWeightCharactersIsReadOrRefusedWithAColumnInsideIt) {
  const std::string alphabet = "AKQT92sohd:[]/%.0155 ,-+x";
  std::mt19937 random(WeightsSeed());
  for (int n = 0; n < 20000; ++n) {
    std::string text;
    const int length = static_cast<int>(random() % 24);
    for (int k = 0; k < length; ++k) text += alphabet[random() % alphabet.size()];
    const ParsedWeightedRange weighted = ParseWeightedRangeNotation(text);
    const ParsedRange plain = ParseRangeNotation(text);
    if (!weighted.ok()) {
      EXPECT_GE(weighted.error->column, 1) << text;
      EXPECT_LE(weighted.error->column, length) << text;
      EXPECT_FALSE(weighted.error->token.empty()) << text;
      EXPECT_FALSE(plain.ok()) << text;  // what the weighted reading refuses, the plain one refuses too
    } else {
      // What the plain reading takes, it reads as the weighted one does; a weight between 0 and 1 it refuses.
      if (plain.ok()) {
        EXPECT_EQ(plain.holdings, weighted.weights.Holdings()) << text;
      }
      if (!weighted.weights.IsUnweighted()) {
        EXPECT_FALSE(plain.ok()) << text;
      }
      EXPECT_EQ(ParseWeightedRangeNotation(PrintWeightedRangeNotation(weighted.weights)).weights,
                weighted.weights)
          << text;
    }
  }
}

TEST(WeightSharePercentText, IsTheSumOfTheWeightsOverAllHoldingsToOneDecimal) {
  for (int holdings : {0, 1, 22, 663, 1000, 1326}) {
    EXPECT_EQ(WeightSharePercentText(int64_t{holdings} * kFullWeight), HoldingSharePercentText(holdings));
  }
  EXPECT_EQ(WeightSharePercentText(2000 + 6000), "0.6");  // 8 combos of 1,326: 0.603%
  EXPECT_EQ(CombosText(8000), "8");
  EXPECT_EQ(CombosText(5500), "5.5");
  EXPECT_EQ(CombosText(1), "0.001");
  EXPECT_EQ(CombosText(1326000), "1326");
}

}  // namespace
}  // namespace quillet
