// The texture of a board, the filter read from words, and the 1,755 flops that differ by more than a
// change of suits counted by texture.
#include "reports/board_texture.h"

#include <gtest/gtest.h>

#include "reports/boards_report.h"
#include "tests/support/card_text.h"

namespace quillet {
namespace {

using quillet::testing::Cards;

BoardTexture Texture(std::string_view text) {
  const std::vector<Card> cards = Cards(text);
  return TextureOf(cards);
}

TEST(BoardTexture, SuitsCountTheDifferentSuitsOnTheBoard) {
  EXPECT_EQ(Texture("AsKsQs").suits, SuitPattern::Monotone);
  EXPECT_EQ(Texture("AsKsQh").suits, SuitPattern::TwoTone);
  EXPECT_EQ(Texture("AsKhQd").suits, SuitPattern::Rainbow);
  EXPECT_EQ(Texture("AsKsQs2s").suits, SuitPattern::Monotone);
  EXPECT_EQ(Texture("AsKsQh2h").suits, SuitPattern::TwoTone);
  EXPECT_EQ(Texture("AsKsQh2d").suits, SuitPattern::Rainbow);
}

TEST(BoardTexture, PairingReadsTheMostCardsOfOneRank) {
  EXPECT_EQ(Texture("AsKsQs").pairing, Pairing::Unpaired);
  EXPECT_EQ(Texture("AsAdQs").pairing, Pairing::Paired);
  EXPECT_EQ(Texture("AsAdQsQd").pairing, Pairing::Paired);
  EXPECT_EQ(Texture("7s7d7h").pairing, Pairing::Trips);
  EXPECT_EQ(Texture("7s7d7h7c2d").pairing, Pairing::Trips);
}

TEST(BoardTexture, ConnectedWhenFiveRanksInARowHoldThreeOfTheBoard) {
  EXPECT_FALSE(Texture("Tc8h3s").connected);
  EXPECT_TRUE(Texture("Tc8h6s").connected);   // 6 to T
  EXPECT_TRUE(Texture("As2h3d").connected);   // the wheel: the ace plays low
  EXPECT_TRUE(Texture("AsKhTd").connected);   // T to A
  EXPECT_FALSE(Texture("AsKh9d").connected);  // 9 to K is too wide
  EXPECT_FALSE(Texture("5s5h5d").connected);  // one rank
  EXPECT_FALSE(Texture("As6h2d").connected);
  EXPECT_TRUE(Texture("As6h2d5c").connected);  // the turn brings A-2-5 inside A to 5
}

TEST(BoardTexture, HighRankIsTheBoardsHighestRank) {
  EXPECT_EQ(Texture("Tc8h3s").highRank, 10);
  EXPECT_EQ(Texture("2c3h4s5d").highRank, 5);
  EXPECT_EQ(Texture("2cAh4s").highRank, 14);
}

TEST(BoardFilter, WordsOfOnePropertyAddUpAndPropertiesCombine) {
  const ParsedBoardFilter parsed = ParseBoardFilter("monotone, two-tone,paired,high=A");
  ASSERT_TRUE(parsed.ok()) << parsed.error;
  const BoardFilter& f = parsed.filter;
  EXPECT_TRUE(f.Keeps(Texture("AsAhKh")));   // two-tone, paired, ace high
  EXPECT_FALSE(f.Keeps(Texture("AsKhQd")));  // rainbow
  EXPECT_FALSE(f.Keeps(Texture("AsKsQs")));  // unpaired
  EXPECT_FALSE(f.Keeps(Texture("KsKhQh")));  // king high
}

TEST(BoardFilter, HighRanksTakeARangeInEitherOrderAndCase) {
  const ParsedBoardFilter parsed = ParseBoardFilter("high=k-t");
  ASSERT_TRUE(parsed.ok()) << parsed.error;
  EXPECT_TRUE(parsed.filter.Keeps(Texture("Kc8h3s")));
  EXPECT_TRUE(parsed.filter.Keeps(Texture("Tc8h3s")));
  EXPECT_FALSE(parsed.filter.Keeps(Texture("Ac8h3s")));
  EXPECT_FALSE(parsed.filter.Keeps(Texture("9c8h3s")));
  EXPECT_EQ(BoardFilterText(parsed.filter), "high=T-K");
}

TEST(BoardFilter, ConnectedAndUnconnected) {
  const BoardFilter connected = ParseBoardFilter("connected").filter;
  const BoardFilter unconnected = ParseBoardFilter("unconnected").filter;
  EXPECT_TRUE(connected.Keeps(Texture("Tc9h8s")));
  EXPECT_FALSE(connected.Keeps(Texture("Tc8h3s")));
  EXPECT_TRUE(unconnected.Keeps(Texture("Tc8h3s")));
  EXPECT_FALSE(unconnected.Keeps(Texture("Tc9h8s")));
}

TEST(BoardFilter, AnEmptyTextKeepsEveryBoardAndAnUnknownWordIsNamed) {
  EXPECT_TRUE(ParseBoardFilter("").filter.KeepsAll());
  EXPECT_TRUE(ParseBoardFilter("  ").ok());
  const ParsedBoardFilter bad = ParseBoardFilter("monotone,flushy");
  EXPECT_FALSE(bad.ok());
  EXPECT_EQ(bad.error.rfind("unknown filter 'flushy' (word 2)", 0), 0u) << bad.error;
  EXPECT_FALSE(ParseBoardFilter("high=X").ok());
  EXPECT_FALSE(ParseBoardFilter("monotone,,paired").ok());
}

TEST(BoardFilter, TextReadsBackToTheSameFilter) {
  for (const char* text : {"monotone,rainbow", "paired,trips,connected", "unconnected,high=A,high=9-J",
                           "two-tone,unpaired,high=2"}) {
    const ParsedBoardFilter parsed = ParseBoardFilter(text);
    ASSERT_TRUE(parsed.ok()) << text;
    const ParsedBoardFilter again = ParseBoardFilter(BoardFilterText(parsed.filter));
    ASSERT_TRUE(again.ok()) << BoardFilterText(parsed.filter);
    EXPECT_EQ(again.filter, parsed.filter) << text;
  }
}

TEST(SuitDistinctFlops, The1755FlopsByTextureAndTheirWeights) {
  const std::vector<FlopFamily> flops = SuitDistinctFlops();
  ASSERT_EQ(flops.size(), 1755u);
  int monotone = 0, twoTone = 0, rainbow = 0, unpaired = 0, paired = 0, trips = 0;
  int64_t monotoneWeight = 0, twoToneWeight = 0, rainbowWeight = 0, weight = 0;
  for (const FlopFamily& flop : flops) {
    const BoardTexture t = TextureOf(flop.cards);
    weight += flop.weight;
    switch (t.suits) {
      case SuitPattern::Monotone:
        ++monotone;
        monotoneWeight += flop.weight;
        break;
      case SuitPattern::TwoTone:
        ++twoTone;
        twoToneWeight += flop.weight;
        break;
      case SuitPattern::Rainbow:
        ++rainbow;
        rainbowWeight += flop.weight;
        break;
    }
    unpaired += t.pairing == Pairing::Unpaired;
    paired += t.pairing == Pairing::Paired;
    trips += t.pairing == Pairing::Trips;
  }
  EXPECT_EQ(monotone, 286);
  EXPECT_EQ(twoTone, 1014);
  EXPECT_EQ(rainbow, 455);
  EXPECT_EQ(unpaired, 1430);
  EXPECT_EQ(paired, 312);
  EXPECT_EQ(trips, 13);
  EXPECT_EQ(monotoneWeight, 1144);
  EXPECT_EQ(twoToneWeight, 12168);
  EXPECT_EQ(rainbowWeight, 8788);
  EXPECT_EQ(weight, 22100);
}

TEST(SuitDistinctFlops, EachFamilyIsNamedByItsFirstFlopInTheReportsOrder) {
  const std::vector<FlopFamily> flops = SuitDistinctFlops();
  EXPECT_EQ(BoardText(flops.front().cards), "AsAhAd");
  EXPECT_EQ(flops.front().weight, 4);
  EXPECT_EQ(BoardText(flops[1].cards), "AsAhKs");
  EXPECT_EQ(flops[1].weight, 12);
  EXPECT_EQ(BoardText(flops.back().cards), "2s2h2d");
  EXPECT_EQ(flops.back().weight, 4);
}

}  // namespace
}  // namespace quillet
