#include "range/range_notation.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <random>
#include <string>

#include "cards/hand_class.h"
#include "cards/preflop_order.h"
#include "tests/support/card_text.h"
#include "tests/support/sanitizer.h"

namespace quillet {
namespace {

using testing::C;

HoldingSet Read(std::string_view text) {
  const ParsedRange parsed = ParseRangeNotation(text);
  EXPECT_TRUE(parsed.ok()) << "'" << text << "': " << (parsed.error ? parsed.error->message : "");
  return parsed.holdings;
}

int Count(std::string_view text) {
  return Read(text).size();
}

std::string ErrorOf(std::string_view text) {
  const ParsedRange parsed = ParseRangeNotation(text);
  EXPECT_FALSE(parsed.ok()) << "'" << text << "' was read";
  EXPECT_TRUE(parsed.holdings.empty());
  return parsed.error ? parsed.error->message : "";
}

std::string Reprinted(std::string_view text) {
  return PrintRangeNotation(Read(text));
}

bool HoldsClass(const HoldingSet& set, std::string_view className) {
  const ClassHoldings& own = HoldingsOfClass(FindClassByName(className));
  for (int i = 0; i < own.count; ++i) {
    if (!set.contains(own.holdings[i].number)) return false;
  }
  return true;
}

// ---- The counts players know ----

TEST(RangeNotationCounts, MatchTheKnownNumbersOfHoldings) {
  EXPECT_EQ(Count("QQ+,AKs"), 22);
  EXPECT_EQ(Count("22+"), 78);
  EXPECT_EQ(Count("A2s+"), 48);
  EXPECT_EQ(Count("KTo+"), 36);
  EXPECT_EQ(Count("T9s-54s"), 24);
  EXPECT_EQ(Count("AK"), 16);
  EXPECT_EQ(Count("random"), 1326);
  EXPECT_EQ(Count("AhKh,AhKh"), 1);
  EXPECT_EQ(Count("KK-QQ"), 12);
}

// ---- Pairs ----

TEST(RangeNotationPairs, APairIsItsSixHoldings) {
  const HoldingSet qq = Read("QQ");
  EXPECT_EQ(qq.size(), 6);
  EXPECT_TRUE(qq.contains(C("Qc"), C("Qd")));
  EXPECT_TRUE(qq.contains(C("Qs"), C("Qh")));
}

TEST(RangeNotationPairs, PlusTakesEveryHigherPair) {
  const HoldingSet set = Read("QQ+");
  EXPECT_EQ(set.size(), 18);
  EXPECT_TRUE(HoldsClass(set, "AA") && HoldsClass(set, "KK") && HoldsClass(set, "QQ"));
  EXPECT_FALSE(HoldsClass(set, "JJ"));
}

TEST(RangeNotationPairs, ARangeOfPairsReadsEitherWay) {
  EXPECT_EQ(Count("22-77"), 36);
  EXPECT_EQ(Read("22-77"), Read("77-22"));
  EXPECT_EQ(Read("22-77"), Read("22 - 77"));
  EXPECT_EQ(Read("77-77"), Read("77"));
  EXPECT_FALSE(HoldsClass(Read("22-77"), "88"));
}

// ---- Two ranks ----

TEST(RangeNotationTwoRanks, SuitedOffsuitAndBoth) {
  EXPECT_EQ(Count("AKs"), 4);
  EXPECT_EQ(Count("AKo"), 12);
  EXPECT_EQ(Read("AK"), Read("AKs,AKo"));
  EXPECT_TRUE(Read("AKs").contains(C("Ah"), C("Kh")));
  EXPECT_FALSE(Read("AKs").contains(C("Ah"), C("Kd")));
  EXPECT_TRUE(Read("AKo").contains(C("Ad"), C("Kh")));
}

TEST(RangeNotationTwoRanks, PlusRaisesTheKickerToOneBelowTheFirstRank) {
  const HoldingSet set = Read("KTo+");
  EXPECT_TRUE(HoldsClass(set, "KT") && HoldsClass(set, "KJ") && HoldsClass(set, "KQ"));
  EXPECT_FALSE(HoldsClass(set, "AK"));
  EXPECT_FALSE(HoldsClass(set, "K9"));
  EXPECT_EQ(Read("KT+"), Read("KTs+,KTo+"));
  EXPECT_EQ(Read("A2s+"), Read("A2s,A3s,A4s,A5s,A6s,A7s,A8s,A9s,ATs,AJs,AQs,AKs"));
}

TEST(RangeNotationTwoRanks, AKickerRunKeepsTheFirstRank) {
  const HoldingSet set = Read("A5s-A2s");
  EXPECT_EQ(set.size(), 16);
  EXPECT_EQ(set, Read("A2s-A5s"));
  EXPECT_TRUE(HoldsClass(set, "A5s") && HoldsClass(set, "A2s"));
  EXPECT_FALSE(HoldsClass(set, "A6s"));
  EXPECT_EQ(Count("K9o-K6o"), 48);
  EXPECT_EQ(Read("KT-K8"), Read("KTs,K9s,K8s,KTo,K9o,K8o"));
  EXPECT_EQ(Count("KT-K8"), 48);
}

TEST(RangeNotationTwoRanks, AConnectorRunSlidesBothRanks) {
  EXPECT_EQ(Read("T9s-54s"), Read("T9s,98s,87s,76s,65s,54s"));
  EXPECT_EQ(Read("54s-T9s"), Read("T9s-54s"));
  EXPECT_EQ(Read("J9o-75o"), Read("J9o,T8o,97o,86o,75o"));
  EXPECT_EQ(Read("QT-T8"), Read("QT,J9,T8"));
}

TEST(RangeNotationTwoRanks, RanksInEitherCaseAndSuffixInEitherCase) {
  EXPECT_EQ(Read("aks"), Read("AKs"));
  EXPECT_EQ(Read("AKS"), Read("AKs"));
  EXPECT_EQ(Read("kTO+"), Read("KTo+"));
  EXPECT_EQ(Read("qq+"), Read("QQ+"));
  EXPECT_EQ(Read("t9s-54S"), Read("T9s-54s"));
}

TEST(RangeNotationTwoRanks, TheLowRankMayComeFirst) {
  EXPECT_EQ(Read("KAs"), Read("AKs"));
  EXPECT_EQ(Read("TK+"), Read("KT+"));
}

// ---- Single holdings and everything ----

TEST(RangeNotationHoldings, ASingleHoldingIsOneHolding) {
  const HoldingSet set = Read("AhKh");
  EXPECT_EQ(set.size(), 1);
  EXPECT_TRUE(set.contains(C("Kh"), C("Ah")));
  EXPECT_EQ(Read("Td9d"), Read("9dTd"));
  EXPECT_EQ(ErrorOf("tD9d"), "unknown token 'tD9d' at column 1");  // suits are lower case only
}

TEST(RangeNotationHoldings, DuplicatesCollapse) {
  EXPECT_EQ(Count("AhKh,AhKh"), 1);
  EXPECT_EQ(Count("AKs,AhKh"), 4);
  EXPECT_EQ(Count("QQ+,KK,AA+"), 18);
}

TEST(RangeNotationHoldings, RandomAnyAndAllAreEveryHolding) {
  EXPECT_EQ(Read("random"), HoldingSet::All());
  EXPECT_EQ(Read("any"), HoldingSet::All());
  EXPECT_EQ(Read("All"), HoldingSet::All());
  EXPECT_EQ(Read("RANDOM, AA"), HoldingSet::All());
}

// ---- Percentages ----

TEST(RangeNotationPercent, FifteenPercentIsTheStepTheRangeBoxSnapsTo) {
  // 15 lies 0.1 from the step at 15.1 (row 23, "KT") and 0.8 from 14.2: the box takes rows 0 to 23.
  const HoldingSet set = Read("15%");
  EXPECT_TRUE(HoldsClass(set, "KT"));
  EXPECT_TRUE(HoldsClass(set, "A7s"));
  EXPECT_FALSE(HoldsClass(set, "Q9s"));  // row 24
  int expected = 0;
  for (int row = 0; row <= 23; ++row) {
    for (const std::string& name : SplitClassList(PreflopOrder()[row].classes)) {
      expected += HoldingsOfClass(FindClassByName(name)).count;
    }
  }
  EXPECT_EQ(set.size(), expected);
}

TEST(RangeNotationPercent, TheSmallestAndLargestValues) {
  EXPECT_EQ(Read("0.5%"), Read("AA"));
  EXPECT_EQ(Read("1.6%"), Read("QQ+"));  // halfway between 1.4 and 1.8: the lower step, as the box takes it
  EXPECT_EQ(Read("10%"), Read("88+, A9s+, KTs+, QTs+, AJo+, KQo"));
  EXPECT_EQ(Read("100%"), HoldingSet::All());
  EXPECT_EQ(Read("100.0%"), HoldingSet::All());
}

TEST(RangeNotationPercent, SeveralPercentagesAreTheLargestOfThem) {
  EXPECT_EQ(Read("5%, 15%, 2%"), Read("15%"));
  EXPECT_EQ(Read("15%, 5%, AKo"), Read("15%, AKo"));
  EXPECT_EQ(Read("99%, 0.5%, 99%"), Read("99%"));
  EXPECT_EQ(Read("KK, 0.5%, 10%"), Read("KK, 10%"));
}

// ---- Separators ----

TEST(RangeNotationSeparators, CommasAndBlanksInAnyMix) {
  const HoldingSet set = Read("QQ+,AKs");
  EXPECT_EQ(Read("QQ+ AKs"), set);
  EXPECT_EQ(Read("  QQ+ ,, AKs,\t\n"), set);
  EXPECT_EQ(Read("QQ+,\r\nAKs"), set);
}

TEST(RangeNotationSeparators, AnEmptyTextIsAnEmptyRange) {
  const ParsedRange parsed = ParseRangeNotation(" , ");
  EXPECT_TRUE(parsed.ok());
  EXPECT_TRUE(parsed.holdings.empty());
}

// ---- Errors ----

TEST(RangeNotationErrors, AnUnknownTokenIsNamedWithItsColumn) {
  const ParsedRange parsed = ParseRangeNotation("QQ+, AKs,  AKx");
  ASSERT_FALSE(parsed.ok());
  EXPECT_EQ(parsed.error->message, "unknown token 'AKx' at column 12");
  EXPECT_EQ(parsed.error->token, "AKx");
  EXPECT_EQ(parsed.error->column, 12);
  EXPECT_TRUE(parsed.holdings.empty());
}

TEST(RangeNotationErrors, ColumnsCountCharactersNotBytes) {
  EXPECT_EQ(ErrorOf("\xC3\xA9 AKx"), "unknown token '\xC3\xA9' at column 1");
  EXPECT_EQ(ErrorOf("AA \xC3\xA9\xC3\xA9 x"), "unknown token '\xC3\xA9\xC3\xA9' at column 4");
  EXPECT_EQ(ParseRangeNotation("AA,\xC3\xA9\xC3\xA9,Kx").error->column, 4);
  EXPECT_EQ(ParseRangeNotation("\xE2\x82\xAC ,Kx").error->column, 1);
}

TEST(RangeNotationErrors, TheFirstBadTokenIsTheOneNamed) {
  EXPECT_EQ(ErrorOf("AA, Kx, Qy"), "unknown token 'Kx' at column 5");
  EXPECT_EQ(ErrorOf("22 - 7x"), "unknown token '22-7x' at column 1");
}

TEST(RangeNotationErrors, WeightsAreRefusedAsNotSupportedYet) {
  EXPECT_EQ(ErrorOf("QQ+, AKs:0.5"), "weights are not supported yet: 'AKs:0.5' at column 6");
  EXPECT_EQ(ErrorOf("[50]AKs,AQs[/50]"), "weights are not supported yet: '[50]AKs' at column 1");
  EXPECT_EQ(ErrorOf("[50] AKs [/50]"), "weights are not supported yet: '[50]' at column 1");
}

TEST(RangeNotationErrors, ClassesThatDoNotExist) {
  EXPECT_EQ(ErrorOf("AAs"), "unknown token 'AAs' at column 1");
  EXPECT_EQ(ErrorOf("AAo"), "unknown token 'AAo' at column 1");
  EXPECT_EQ(ErrorOf("A1s"), "unknown token 'A1s' at column 1");
  EXPECT_EQ(ErrorOf("AKx"), "unknown token 'AKx' at column 1");
  EXPECT_EQ(ErrorOf("AKs++"), "unknown token 'AKs++' at column 1");
  EXPECT_EQ(ErrorOf("A"), "unknown token 'A' at column 1");
  EXPECT_EQ(ErrorOf("AKQ"), "unknown token 'AKQ' at column 1");
}

TEST(RangeNotationErrors, SingleHoldingsNeedTwoDifferentCardsWithLowerCaseSuits) {
  EXPECT_EQ(ErrorOf("AhAh"), "holding 'AhAh' at column 1 has the same card twice");
  EXPECT_EQ(ErrorOf("AHKH"), "unknown token 'AHKH' at column 1");
  EXPECT_EQ(ErrorOf("AhKx"), "unknown token 'AhKx' at column 1");
}

TEST(RangeNotationErrors, RangesWithEndsThatDoNotFit) {
  EXPECT_EQ(ErrorOf("AKs-QJo"), "range 'AKs-QJo' at column 1 has ends of different kinds");
  EXPECT_EQ(
      ErrorOf("AKs-QTs"),
      "range 'AKs-QTs' at column 1 needs ends with the same first rank or the same gap between the ranks");
  EXPECT_EQ(ErrorOf("QQ-AK"), "range 'QQ-AK' at column 1 has ends of different kinds");
  EXPECT_EQ(ErrorOf("QQ+-22"), "unknown token 'QQ+-22' at column 1");
  EXPECT_EQ(ErrorOf("AhKh-AhQh"), "unknown token 'AhKh-AhQh' at column 1");
  EXPECT_EQ(ErrorOf("22-33-44"), "unknown token '22-33-44' at column 1");
  EXPECT_EQ(ErrorOf("22-"), "unknown token '22-' at column 1");
  EXPECT_EQ(ErrorOf("AA, 22 -"), "unknown token '22-' at column 5");
  EXPECT_EQ(ErrorOf("AA, -22"), "unknown token '-22' at column 5");
}

TEST(RangeNotationErrors, PercentagesOutsideTheOrder) {
  EXPECT_EQ(ErrorOf("150%"), "percentage '150%' at column 1 is above 100");
  EXPECT_EQ(ErrorOf("-5%"), "unknown token '-5%' at column 1");
  EXPECT_EQ(ErrorOf("%"), "unknown token '%' at column 1");
  EXPECT_EQ(ErrorOf(".%"), "unknown token '.%' at column 1");
  EXPECT_EQ(ErrorOf("1x%"), "unknown token '1x%' at column 1");
}

TEST(RangeNotationErrors, ALongTokenIsQuotedByItsFirstFortyCharactersWithItsColumn) {
  const std::string token(10'000, 'x');
  const ParsedRange parsed = ParseRangeNotation("AA, " + token);
  ASSERT_FALSE(parsed.ok());
  EXPECT_EQ(parsed.error->message, "unknown token '" + std::string(40, 'x') + "...' at column 5");
  EXPECT_EQ(parsed.error->token, token);  // the token itself is kept whole for the caller
  EXPECT_EQ(parsed.error->column, 5);
  // Forty characters are quoted whole; a character is not cut in the middle of its bytes.
  EXPECT_EQ(ErrorOf(std::string(40, 'y')), "unknown token '" + std::string(40, 'y') + "' at column 1");
  std::string accents;
  for (int k = 0; k < 41; ++k) accents += "\xC3\xA9";
  EXPECT_EQ(ErrorOf(accents), "unknown token '" + accents.substr(0, 80) + "...' at column 1");
}

TEST(RangeNotationErrors, ControlCharactersInATokenAreQuotedAsEscapes) {
  EXPECT_EQ(ErrorOf("AK\x1B[31mRED\x1B[0m"), "unknown token 'AK\\x1B[31mRED\\x1B[0m' at column 1");
  EXPECT_EQ(ErrorOf("QQ+ A\x7FK"), "unknown token 'A\\x7FK' at column 5");
  EXPECT_EQ(ErrorOf("QQ+ AK\xC2\x9B"), "unknown token 'AK\\u009B' at column 5");
}

TEST(RangeNotationErrors, EscapeTextWithBracketsOrAColonIsNoWeight) {
  for (const char* text : {"AK\x1B[31mRED\x1B[0m", "\x1B]0;title\x07", "AKs:\x1B"}) {
    const ParsedRange parsed = ParseRangeNotation(text);
    ASSERT_FALSE(parsed.ok());
    EXPECT_EQ(parsed.error->kind, RangeNotationError::Kind::UnknownToken) << parsed.error->message;
  }
  EXPECT_EQ(ParseRangeNotation("AKs:0.5").error->kind, RangeNotationError::Kind::Weights);
}

TEST(RangeNotationErrors, ATextLongerThanTheLimitIsRefusedWholeBeforeItsTokensAreRead) {
  std::string text;
  while (text.size() <= kLongestRangeNotation) text += "99%,";
  const ParsedRange parsed = ParseRangeNotation(text);
  ASSERT_FALSE(parsed.ok());
  EXPECT_EQ(parsed.error->kind, RangeNotationError::Kind::TooLong);
  EXPECT_EQ(parsed.error->message, "the range is " + std::to_string(text.size()) +
                                       " bytes long, more than the " + std::to_string(kLongestRangeNotation) +
                                       " bytes a range may have");
  EXPECT_EQ(parsed.error->column, 0);
  EXPECT_TRUE(parsed.holdings.empty());
  // A bad token past the limit is not what is named: the length is.
  EXPECT_EQ(ParseRangeNotation(std::string(kLongestRangeNotation + 1, 'x')).error->kind,
            RangeNotationError::Kind::TooLong);
}

TEST(RangeNotationErrors, ATextOfTheLongestLengthIsRead) {
  std::string text = "AA";
  text.resize(kLongestRangeNotation, ' ');
  EXPECT_EQ(Read(text), Read("AA"));
}

TEST(RangeNotationErrors, EachErrorSaysWhatKindOfFaultItIs) {
  using Kind = RangeNotationError::Kind;
  const std::pair<const char*, Kind> faults[] = {
      {"AKx", Kind::UnknownToken},   {"AKs:0.5", Kind::Weights},      {"AKs-QJo", Kind::RangeEnds},
      {"AhAh", Kind::SameCardTwice}, {"101%", Kind::PercentAbove100},
  };
  for (const auto& [text, kind] : faults) {
    const ParsedRange parsed = ParseRangeNotation(text);
    ASSERT_FALSE(parsed.ok()) << text;
    EXPECT_EQ(parsed.error->kind, kind) << text;
  }
}

// ---- Printing ----

TEST(RangeNotationPrinting, TheUsualOrderAndMergedRuns) {
  EXPECT_EQ(Reprinted("22+, A2s+, KTs+, QJs, ATo+, KQo"), "22+, A2s+, KTs+, QJs, ATo+, KQo");
  EXPECT_EQ(Reprinted("KQo, AKs, QJs, 22"), "22, AKs, QJs, KQo");
  EXPECT_EQ(Reprinted("AKs, AA, KK, QQ, AKo"), "QQ+, AK");
  EXPECT_EQ(Reprinted("A6s, A7s, A8s, A9s"), "A9s-A6s");
  EXPECT_EQ(Reprinted("KJo KQo KTo"), "KTo+");
  EXPECT_EQ(Reprinted("KT-K8"), "KT-K8");
  EXPECT_EQ(Reprinted("KT+"), "KT+");
}

TEST(RangeNotationPrinting, PairRuns) {
  EXPECT_EQ(Reprinted("AA"), "AA");
  EXPECT_EQ(Reprinted("KK+"), "KK+");
  EXPECT_EQ(Reprinted("77-TT"), "TT-77");
  EXPECT_EQ(Reprinted("KK-QQ"), "KK-QQ");
  EXPECT_EQ(Reprinted("AA, TT, 99, 55"), "AA, TT-99, 55");
  EXPECT_EQ(Reprinted("22-AA"), "22+");
}

TEST(RangeNotationPrinting, HalvesThatDifferStayApart) {
  EXPECT_EQ(Reprinted("AKs, AQs, AKo"), "AQs+, AKo");
  EXPECT_EQ(Reprinted("ATs+, AQo+"), "ATs+, AQo+");
  EXPECT_EQ(Reprinted("AQ+, AJs"), "AJs+, AQo+");
  EXPECT_EQ(Reprinted("A9s, A7s"), "A9s, A7s");
  EXPECT_EQ(Reprinted("T9s-54s"), "T9s, 98s, 87s, 76s, 65s, 54s");
}

TEST(RangeNotationPrinting, PartOfAClassIsWrittenAsSingleHoldings) {
  EXPECT_EQ(Reprinted("KhAh"), "AhKh");
  EXPECT_EQ(Reprinted("9h9s, 9d9c"), "9c9d, 9h9s");
  EXPECT_EQ(Reprinted("AKs, AhKs, AcKd, KcAd"), "AKs, AcKd, AdKc, AhKs");
  EXPECT_EQ(Reprinted("QQ+, JcJd, TT, AKs, AhQh, AJs"), "QQ+, JcJd, TT, AKs, AhQh, AJs");
}

TEST(RangeNotationPrinting, EveryHoldingIsAllAndNoneIsEmpty) {
  EXPECT_EQ(PrintRangeNotation(HoldingSet::All()), "all");
  EXPECT_EQ(PrintRangeNotation(HoldingSet{}), "");
  EXPECT_EQ(Reprinted("22+, 32+, 42+, 52+, 62+, 72+, 82+, 92+, T2+, J2+, Q2+, K2+, A2+"), "all");
}

// ---- Round trip ----

uint32_t TestSeed() {
  if (const char* text = std::getenv("QUILLET_TEST_SEED"))
    return static_cast<uint32_t>(std::strtoul(text, nullptr, 10));
  return 20261123;
}

// Sets shaped like ranges (whole classes in runs, some classes in part) and sets of scattered holdings.
HoldingSet RandomSet(std::mt19937& random) {
  HoldingSet set;
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  if (random() % 4 == 0) {
    const double density = unit(random);
    for (int i = 0; i < kHoldingCount; ++i) {
      if (unit(random) < density) set.insert(i);
    }
    return set;
  }
  const double wholeShare = unit(random);
  const double partShare = unit(random) * 0.3;
  for (int c = 0; c < kClassCount; ++c) {
    const ClassHoldings& own = HoldingsOfClass(c);
    const double roll = unit(random);
    for (int i = 0; i < own.count; ++i) {
      if (roll < wholeShare || (roll < wholeShare + partShare && random() % 2 == 0)) {
        set.insert(own.holdings[i].number);
      }
    }
  }
  return set;
}

TEST(RangeNotationRoundTrip, ReadingThePrintedTextGivesTheSameHoldings) {
  const uint32_t seed = TestSeed();
  std::cout << "round-trip seed " << seed << " (set QUILLET_TEST_SEED to repeat another)\n";
  std::mt19937 random(seed);
  for (int n = 0; n < quillet::testing::SweepRounds(5000); ++n) {
    const HoldingSet set = RandomSet(random);
    const std::string text = PrintRangeNotation(set);
    const ParsedRange parsed = ParseRangeNotation(text);
    ASSERT_TRUE(parsed.ok()) << "seed " << seed << ", set " << n << ": " << text;
    ASSERT_EQ(parsed.holdings, set) << "seed " << seed << ", set " << n << ": " << text;
    ASSERT_EQ(PrintRangeNotation(parsed.holdings), text);
  }
}

TEST(RangeNotationRoundTrip, EveryPreflopStepPrintsToATextThatReadsBack) {
  HoldingSet set;  // the classes of the order's rows 0..k
  for (const PreflopRow& row : PreflopOrder()) {
    for (const std::string& name : SplitClassList(row.classes)) {
      for (const HandCombo& h : ExpandClassName(name)) set.insert(h.card1(), h.card2());
    }
    EXPECT_EQ(Read(PrintRangeNotation(set)), set) << row.classes;
  }
  EXPECT_EQ(set, HoldingSet::All());
}

TEST(HoldingSharePercentText, IsTheShareToOneDecimal) {
  EXPECT_EQ(HoldingSharePercentText(22), "1.7");
  EXPECT_EQ(HoldingSharePercentText(1326), "100");
  EXPECT_EQ(HoldingSharePercentText(0), "0");
}

}  // namespace
}  // namespace quillet
