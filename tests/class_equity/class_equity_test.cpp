// My equity against each class of the opponent's range (equity/class_equity.h): each class against an
// enumeration of My Hand against that class alone, the classes together against the whole range.
#include "equity/class_equity.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cards/card_input.h"
#include "cards/hand_class.h"
#include "cards/holding.h"
#include "equity/calc_equity.h"
#include "equity/engine.h"
#include "equity/enumeration.h"
#include "equity/hand_evaluator.h"
#include "equity/range_equity.h"
#include "equity/standard_equity.h"
#include "range/class_list.h"

namespace quillet {
namespace {

CardInputs Cards(const std::string& hand, const std::string& board) {
  return CheckCardInputs(hand, board, CardsFor::Equity);
}

std::vector<HandCombo> RangeOf(const std::string& classes) {
  std::vector<HandCombo> range;
  for (const int index : ParseClassList(classes).classes) {
    for (const HandCombo& combo : ExpandClassName(HandClasses()[index].name)) range.push_back(combo);
  }
  return range;
}

// My Hand against the holdings, every board dealt out and each showdown decided by the best five of the
// seven cards (the standard evaluator, card by card): wins plus half the ties over all showdowns.
double BruteForceStandardEquity(const CardInputs& cards, const std::vector<HandCombo>& holdings) {
  const uint64_t dead = KnownCardsWithHand(cards.hand, cards.board, cards.street).bits;
  const int known = BoardCardCount(cards.street);
  double wins = 0.0;
  double ties = 0.0;
  double showdowns = 0.0;
  for (const HandCombo& holding : holdings) {
    if (!IsLiveHolding(holding, dead)) continue;
    const uint64_t used = dead | DeckBits(holding.card1(), holding.card2());
    std::vector<Card> rest;
    for (int i = 0; i < kDeckSize; ++i) {
      if ((used >> i & 1) == 0) rest.push_back(DeckCard(i));
    }
    std::vector<Card> board;
    for (int i = 0; i < known; ++i) board.push_back(cards.board[i]);
    const auto showdown = [&](const std::vector<Card>& five) {
      CardSet common = 0;
      for (const Card& c : five) common |= CardSetBit(c);
      const HandValue mine =
          EvaluateCards(common | CardSetBit(cards.hand.card1()) | CardSetBit(cards.hand.card2()));
      const HandValue theirs =
          EvaluateCards(common | CardSetBit(holding.card1()) | CardSetBit(holding.card2()));
      wins += mine > theirs;
      ties += mine == theirs;
      showdowns += 1;
    };
    if (known == 5) {
      showdown(board);
    } else if (known == 4) {
      for (const Card& river : rest) {
        board.push_back(river);
        showdown(board);
        board.pop_back();
      }
    } else {
      for (std::size_t i = 0; i < rest.size(); ++i) {
        for (std::size_t j = i + 1; j < rest.size(); ++j) {
          board.push_back(rest[i]);
          board.push_back(rest[j]);
          showdown(board);
          board.resize(3);
        }
      }
    }
  }
  return showdowns == 0 ? -1.0 : 100.0 * (wins + 0.5 * ties) / showdowns;
}

// Calc Equity against the one class alone, as the read-outs show it.
double CalcEquityAgainstClass(const CardInputs& cards, int index, ShowdownRules rules) {
  EquityRequest request;
  request.cards = cards;
  request.range = ExpandClassName(HandClasses()[index].name);
  request.rules = rules;
  return CalcEquity(request).values.my;
}

int LiveHoldingsOf(const CardInputs& cards, int index) {
  std::vector<HandCombo> holdings = ExpandClassName(HandClasses()[index].name);
  return RemoveDeadCombos(holdings, cards.hand, cards.board, cards.street);
}

const char* const kRange = "AA,KK,QQ,JJ,TT,99,88,33,22,AKs,AQs,AJs,T9s,98s,87s,65s,AK,AQ,KQ,T9,87,32";

struct Spot {
  const char* hand;
  const char* board;
};
const Spot kSpots[] = {{"AhKd", "Tc8h3s"}, {"9h8h", "Th7h2c"}, {"QsQc", "Ah9d5c4h"}, {"AhKd", "Tc8h3s2d9c"}};

TEST(ClassEquity, UnderTheStandardRulesEachClassIsMyHandAgainstThatClassAloneDealtOut) {
  for (const Spot& spot : kSpots) {
    const CardInputs cards = Cards(spot.hand, spot.board);
    const auto classes = ClassEquitiesOfHand(cards, RangeOf(kRange), ShowdownRules::Standard);
    ASSERT_TRUE(classes.has_value()) << spot.board;
    for (const int index : ParseClassList(kRange).classes) {
      const auto& c = (*classes)[index];
      const std::vector<HandCombo> alone = ExpandClassName(HandClasses()[index].name);
      if (LiveHoldingsOf(cards, index) == 0) {
        EXPECT_FALSE(c.has_value()) << HandClasses()[index].caption;
        continue;
      }
      ASSERT_TRUE(c.has_value()) << spot.board << " " << HandClasses()[index].caption;
      EXPECT_NEAR(c->equity, BruteForceStandardEquity(cards, alone), 1e-6)
          << spot.board << " " << HandClasses()[index].caption;
      EXPECT_EQ(c->holdings, LiveHoldingsOf(cards, index));
    }
  }
}

TEST(ClassEquity, TheExampleOfAceKingOnTenEightThreeAgainstAnIndependentCount) {
  const CardInputs cards = Cards("AhKd", "Tc8h3s");
  const auto classes = ClassEquitiesOfHand(cards, RangeOf("QQ,AA,T9s"), ShowdownRules::Standard);
  ASSERT_TRUE(classes.has_value());
  for (const char* name : {"QQ", "AA", "T9s"}) {
    const int index = FindClassByName(name);
    ASSERT_TRUE((*classes)[index].has_value()) << name;
    EXPECT_NEAR((*classes)[index]->equity, BruteForceStandardEquity(cards, ExpandClassName(name)), 1e-6)
        << name;
  }
  // Classes out of the range have none.
  EXPECT_FALSE((*classes)[FindClassByName("KK")].has_value());
}

TEST(ClassEquity, UnderTheProgramsRulesEachClassIsWhatCalcEquityShowsAgainstItAlone) {
  for (const Spot& spot : {kSpots[0], kSpots[1], kSpots[2]}) {
    const CardInputs cards = Cards(spot.hand, spot.board);
    const auto classes = ClassEquitiesOfHand(cards, RangeOf(kRange), ShowdownRules::Quillet);
    ASSERT_TRUE(classes.has_value()) << spot.board;
    for (const int index : ParseClassList(kRange).classes) {
      const double expected = CalcEquityAgainstClass(cards, index, ShowdownRules::Quillet);
      const auto& c = (*classes)[index];
      if (expected < 0.0) {
        EXPECT_FALSE(c.has_value()) << HandClasses()[index].caption;
        continue;
      }
      ASSERT_TRUE(c.has_value()) << spot.board << " " << HandClasses()[index].caption;
      EXPECT_DOUBLE_EQ(c->equity, expected) << spot.board << " " << HandClasses()[index].caption;
    }
  }
}

TEST(ClassEquity, PreflopEachClassIsWhatCalcEquityShowsAgainstItAloneUnderBothRules) {
  const CardInputs cards = Cards("AhKd", "");
  for (const ShowdownRules rules : {ShowdownRules::Quillet, ShowdownRules::Standard}) {
    const auto classes = ClassEquitiesOfHand(cards, RangeOf(kRange), rules);
    ASSERT_TRUE(classes.has_value());
    for (const int index : ParseClassList(kRange).classes) {
      const auto& c = (*classes)[index];
      ASSERT_TRUE(c.has_value()) << HandClasses()[index].caption;
      EXPECT_NEAR(c->equity, CalcEquityAgainstClass(cards, index, rules), 1e-9)
          << HandClasses()[index].caption;
      EXPECT_EQ(c->holdings, LiveHoldingsOf(cards, index));
    }
  }
}

TEST(ClassEquity, TheHoldingWeightedMeanIsTheWholeRangesEquityUnderTheStandardRules) {
  for (const Spot& spot : {kSpots[0], kSpots[1], kSpots[2], kSpots[3], Spot{"AhKd", ""}}) {
    const CardInputs cards = Cards(spot.hand, spot.board);
    EquityRequest request;
    request.cards = cards;
    request.range = RangeOf(kRange);
    request.rules = ShowdownRules::Standard;
    const double whole = CalcEquity(request).values.my;
    const auto classes = ClassEquitiesOfHand(cards, request.range, ShowdownRules::Standard);
    ASSERT_TRUE(classes.has_value());
    const auto mean = HoldingWeightedMean(*classes);
    ASSERT_TRUE(mean.has_value());
    EXPECT_NEAR(*mean, whole, 1e-9) << spot.board;
  }
}

TEST(ClassEquity, OnTheRiverTheProgramsRulesGiveNoneAsTheReadOutsShowNothing) {
  const CardInputs cards = Cards("AhKd", "Tc8h3s2d9c");
  EXPECT_FALSE(ClassEquitiesOfHand(cards, RangeOf(kRange), ShowdownRules::Quillet).has_value());
  EXPECT_TRUE(ClassEquitiesOfHand(cards, RangeOf(kRange), ShowdownRules::Standard).has_value());
}

TEST(ClassEquity, WithoutMyHandOrWithRefusedCardsThereIsNone) {
  EXPECT_FALSE(ClassEquitiesOfHand(Cards("", "Tc8h3s"), RangeOf(kRange), ShowdownRules::Standard));
  EXPECT_FALSE(ClassEquitiesOfHand(Cards("AhAh", "Tc8h3s"), RangeOf(kRange), ShowdownRules::Standard));
}

TEST(ClassEquity, AClassWhoseHoldingsAllShareACardWithMyHandOrTheBoardHasNone) {
  // My Hand and the board hold all four aces.
  const CardInputs cards = Cards("AhAd", "AcAs2d");
  const auto classes = ClassEquitiesOfHand(cards, RangeOf("AA,KK"), ShowdownRules::Standard);
  ASSERT_TRUE(classes.has_value());
  EXPECT_FALSE((*classes)[FindClassByName("AA")].has_value());
  ASSERT_TRUE((*classes)[FindClassByName("KK")].has_value());
  EXPECT_EQ((*classes)[FindClassByName("KK")]->holdings, 6);
}

TEST(ClassEquity, MyRangeAgainstEachClassAddsUpToTheRangeAgainstRangeTally) {
  const std::vector<HandCombo> mine = RangeOf("AK,QQ,76s");
  const std::vector<HandCombo> theirs = RangeOf(kRange);
  for (const char* board : {"Tc8h3s", "Tc8h3s2d", "Tc8h3s2d9c", ""}) {
    const CardInputs cards = Cards("", board);
    const auto classes = ClassEquitiesOfRange(mine, theirs, cards.board, cards.street);
    ASSERT_TRUE(classes.has_value()) << board;
    ShowdownTally sum;
    for (const int index : ParseClassList(kRange).classes) {
      const auto& c = (*classes)[index];
      ASSERT_TRUE(c.has_value() && c->tally.has_value()) << HandClasses()[index].caption;
      sum += *c->tally;
      // Each class against the range-against-range count of my range and that class alone.
      const RangeEquityResult alone =
          StandardRangeEquity(mine, ExpandClassName(HandClasses()[index].name), cards.board, cards.street);
      EXPECT_EQ(*c->tally, alone.tally) << board << " " << HandClasses()[index].caption;
      EXPECT_NEAR(c->equity, alone.MyEquity(), 1e-9);
    }
    EXPECT_EQ(sum, StandardRangeEquity(mine, theirs, cards.board, cards.street).tally) << board;
  }
}

}  // namespace
}  // namespace quillet

namespace quillet {
namespace {

// Every holding of the deck, flags set.
std::vector<HandCombo> FullRange() {
  std::vector<HandCombo> range;
  for (int32_t number = 0; number < kHoldingCount; ++number) {
    const auto cards = CardsOfHolding(number);
    range.push_back(HandCombo{true, cards[0].rank, cards[0].suit, cards[1].rank, cards[1].suit});
  }
  return range;
}

// Flush draws, monotone, paired and four-flush boards, where the holdings are read one by one.
const Spot kFlushSpots[] = {{"AhKd", "Th7h2h"},   {"9s8s", "Ts7s2c"}, {"QcQd", "QhQs5c"},
                            {"As5d", "Kd9d4d2d"}, {"7c7h", "7d8c9c"}, {"2c3d", "AhKh3h6h"}};

TEST(ClassEquity, ByClassTheTalliesAreTheSumsOfTheHoldingsOwnCountsUnderBothRules) {
  const std::vector<HandCombo> range = FullRange();
  for (const Spot& spot : kFlushSpots) {
    const CardInputs cards = Cards(spot.hand, spot.board);
    std::vector<HandCombo> live = range;
    RemoveDeadCombos(live, cards.hand, cards.board, cards.street);
    std::vector<ShowdownTally> standard(live.size());
    StandardShowdownTallyByHolding(cards.hand, cards.board, cards.street, live, standard);
    std::vector<ShowdownCounts> program(live.size());
    CountShowdownsByHolding(cards.hand, cards.board, cards.street, live, program);
    std::array<ShowdownTally, kClassCount> expectedStandard{};
    std::array<ShowdownTally, kClassCount> expectedProgram{};
    for (std::size_t k = 0; k < live.size(); ++k) {
      if (!live[k].flag) continue;
      const int index = ClassOfCombo(live[k]);
      expectedStandard[index] += standard[k];
      expectedProgram[index] +=
          ShowdownTally{static_cast<uint64_t>(program[k].myWins), static_cast<uint64_t>(program[k].ties),
                        static_cast<uint64_t>(program[k].oppWins)};
    }
    const auto byStandard = ClassEquitiesOfHand(cards, range, ShowdownRules::Standard);
    const auto byProgram = ClassEquitiesOfHand(cards, range, ShowdownRules::Quillet);
    ASSERT_TRUE(byStandard && byProgram) << spot.board;
    for (int i = 0; i < kClassCount; ++i) {
      const std::optional<ClassEquity>& s = (*byStandard)[i];
      const std::optional<ClassEquity>& p = (*byProgram)[i];
      ASSERT_EQ(s.has_value(), expectedStandard[i].Showdowns() != 0) << spot.board << " " << i;
      if (s) {
        EXPECT_EQ(*s->tally, expectedStandard[i]) << spot.board << " " << HandClasses()[i].caption;
      }
      ASSERT_EQ(p.has_value(), expectedProgram[i].Showdowns() != 0) << spot.board << " " << i;
      if (p) {
        EXPECT_EQ(*p->tally, expectedProgram[i]) << spot.board << " " << HandClasses()[i].caption;
      }
    }
  }
}

TEST(ClassEquity, WithThePerClassCountCalcEquityShowsTheSameReadOutsAsWithout) {
  for (const Spot& spot : kFlushSpots) {
    for (const ShowdownRules rules : {ShowdownRules::Quillet, ShowdownRules::Standard}) {
      EquityRequest request;
      request.cards = Cards(spot.hand, spot.board);
      request.range = RangeOf(kRange);
      request.rules = rules;
      const EquityOutcome plain = CalcEquity(request);
      request.perClass = true;
      const EquityOutcome withClasses = CalcEquity(request);
      EXPECT_FALSE(plain.classes.has_value());
      ASSERT_TRUE(withClasses.classes.has_value());
      EXPECT_EQ(withClasses.values.my, plain.values.my) << spot.board;
      EXPECT_EQ(withClasses.values.opp, plain.values.opp) << spot.board;
      EXPECT_EQ(withClasses.tally, plain.tally) << spot.board;
    }
  }
}

}  // namespace
}  // namespace quillet
