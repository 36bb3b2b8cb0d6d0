#include <gtest/gtest.h>

#include "categorise/categories.h"
#include "categorise/cook.h"
#include "equity/calc_equity.h"
#include "range/class_list.h"

namespace quillet {
namespace {

std::vector<HandCombo> Range(const std::string& classes) {
  return CollectRangeCombos(LayerOfClasses(ParseClassList(classes).classes), MakeEmptyLayer());
}

TEST(Cook, CountsTheRangeTheLiveHoldingsAndFillsTheCategories) {
  const CardInputs cards = CheckCardInputs("AhKd", "Ac8h3s", CardsFor::Cook);
  const CookResult cooked = Cook(cards, Range("AA,KK"));
  EXPECT_EQ(cooked.rangeCount, 12);
  EXPECT_EQ(cooked.liveCount, 1 + 3);  // AsAd is the one pair of aces left; Kd is in play
  EXPECT_EQ(cooked.categories.categorisedCount, 4);
  EXPECT_EQ(cooked.categories.nodes[kEntryTopSet].count, 1);
  const HandCombo& set = cooked.categories.nodes[kEntryTopSet].combos[0];
  EXPECT_EQ(set.rank1 + set.rank2, 28);
  EXPECT_EQ(set.suit1 + set.suit2, SuitFromChar("s") + SuitFromChar("d"));
}

TEST(Cook, RefusedCardsGiveAnEmptyResult) {
  const CookResult cooked = Cook(CheckCardInputs("AhAh", "", CardsFor::Cook), Range("AA"));
  EXPECT_EQ(cooked.rangeCount, 0);
  EXPECT_EQ(cooked.categories.categorisedCount, 0);
  EXPECT_EQ(cooked.categories.nodes.size(), static_cast<std::size_t>(kCategoryCount));
}

EquityOutcome Equity(const std::string& hand, const std::string& board, const std::string& range) {
  EquityRequest request;
  request.cards = CheckCardInputs(hand, board, CardsFor::Equity);
  request.range = Range(range);
  return CalcEquity(request);
}

TEST(CalcEquity, RefusedCardsComeBackWithTheirMessages) {
  const EquityOutcome outcome = Equity("AhKd", "Ah8h3s", "QQ");
  EXPECT_EQ(outcome.status, EquityStatus::Refused);
  EXPECT_EQ(outcome.messages, (std::vector<std::string>{"Duplicate card exists"}));
}

TEST(CalcEquity, AnEmptyHandCalculatesNothing) {
  EXPECT_EQ(Equity("", "Tc8h3s", "QQ").status, EquityStatus::NoHand);
}

TEST(CalcEquity, OnTheFlopAHandThatCannotLoseHasAllTheEquity) {
  // Quads of aces against kings: the kings can make no straight flush on this board.
  const EquityOutcome outcome = Equity("AhAd", "AcAs2d", "KK");
  ASSERT_EQ(outcome.status, EquityStatus::Calculated);
  EXPECT_EQ(outcome.street, kFlop);
  EXPECT_EQ(outcome.values.my, 100.0);
  EXPECT_EQ(outcome.values.opp, 0.0);
}

TEST(CalcEquity, ARangeWithNoLiveHoldingHasNoShowdownAndReadsMinusOne) {
  const EquityOutcome outcome = Equity("AhAd", "AcAs2d", "");
  ASSERT_EQ(outcome.status, EquityStatus::Calculated);
  EXPECT_EQ(outcome.values.my, -1.0);
  EXPECT_EQ(outcome.values.opp, -1.0);
}

TEST(CalcEquity, OnTheRiverNoPathRunsAndBothReadZero) {
  const EquityOutcome outcome = Equity("AhAd", "AcAs2d7h9c", "KK");
  ASSERT_EQ(outcome.status, EquityStatus::Calculated);
  EXPECT_EQ(outcome.street, kRiver);
  EXPECT_EQ(outcome.values.my, 0.0);
  EXPECT_EQ(outcome.values.opp, 0.0);
}

TEST(CalcEquity, TheSameHoldingsOnBothSidesPreflopShareTheTablesMean) {
  const EquityOutcome outcome = Equity("AhKd", "", "AKs");
  ASSERT_EQ(outcome.status, EquityStatus::Calculated);
  EXPECT_TRUE(outcome.messages.empty());
  EXPECT_GT(outcome.values.my, 0.0);
  EXPECT_DOUBLE_EQ(outcome.values.my + outcome.values.opp, 100.0);
}

}  // namespace
}  // namespace quillet
