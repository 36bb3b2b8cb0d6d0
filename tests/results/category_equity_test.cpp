// "Equity per Category": My Hand's equity against the holdings under each category and group node, counted
// in one enumeration, checked against a count of every board with the step-by-step comparators.
#include "results/category_equity.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "cards/card_input.h"
#include "cards/hand_class.h"
#include "cards/holding.h"
#include "categorise/categories.h"
#include "categorise/cook.h"
#include "equity/board_record.h"
#include "equity/calc_equity.h"
#include "equity/engine.h"
#include "equity/equity_display.h"
#include "equity/hand_evaluator.h"
#include "equity/standard_equity.h"
#include "range/block_record.h"
#include "range/top_of_order.h"
#include "results/build_results_tree.h"
#include "tests/support/reference_showdown.h"
#include "tests/support/test_seed.h"

namespace quillet {
namespace {

const ShowdownRules kBothRules[] = {ShowdownRules::Quillet, ShowdownRules::Standard};

// The range the slider gives at 20 %: the top of the preflop order, the step nearest 20.
std::vector<HandCombo> TwentyPercentRange() {
  const auto step = TopOfOrderStep("20");
  EXPECT_TRUE(step && step->apply);
  RangeLayer on = MakeEmptyLayer();
  ApplyTopOfOrder(on, step->entry);
  return CollectRangeCombos(on, MakeEmptyLayer());
}

struct Spot {
  CardInputs cards;
  CookResult cooked;
};

Spot CookSpot(const std::string& hand, const std::string& board, std::vector<HandCombo> range) {
  Spot spot;
  spot.cards = CheckCardInputs(hand, board, CardsFor::Cook);
  EXPECT_TRUE(spot.cards.ok()) << hand << " " << board;
  spot.cooked = Cook(spot.cards, std::move(range));
  return spot;
}

ResultsBuild Build(const Spot& spot, bool categoryEquity, ShowdownRules rules, bool simplify = true,
                   bool hideEmpty = true) {
  ResultsOptions options;
  options.categoryEquity = categoryEquity;
  options.showdownRules = rules;
  options.simplifyOutput = simplify;
  options.hideEmptyCats = hideEmpty;
  ResultsCards cards;
  cards.myHandText = spot.cards.myHandText;
  cards.boardText = spot.cards.boardText;
  cards.hand = spot.cards.hand;
  cards.board = spot.cards.board;
  cards.street = spot.cards.street;
  return BuildResultsTree(spot.cooked.categories, options, cards, nullptr);
}

// ---- the count of every board, holding by holding ----

CardSet SetOf(std::initializer_list<Card> cards) {
  CardSet set = 0;
  for (Card card : cards) set |= CardSetBit(card);
  return set;
}

// My Hand against one holding on every completion of the board that uses none of the holding's cards, by
// the program's comparator (every showdown on a completed board) or the standard reference evaluator.
ShowdownTally BruteForce(const CardInputs& cards, const HandCombo& holding, ShowdownRules rules) {
  const int known = BoardCardCount(cards.street);
  CardSet used = SetOf({cards.hand.card1(), cards.hand.card2(), holding.card1(), holding.card2()});
  for (int i = 0; i < known; ++i) used |= CardSetBit(cards.board[i]);
  std::vector<Card> rest;
  for (int i = 0; i < 52; ++i) {
    if ((used & CardSetBit(DeckCard(i))) == 0) rest.push_back(DeckCard(i));
  }
  std::vector<std::vector<Card>> completions;
  if (known == 5) completions.push_back({});
  if (known == 4)
    for (Card c : rest) completions.push_back({c});
  if (known == 3)
    for (std::size_t i = 0; i < rest.size(); ++i)
      for (std::size_t j = i + 1; j < rest.size(); ++j) completions.push_back({rest[i], rest[j]});

  ShowdownTally tally;
  for (const std::vector<Card>& coming : completions) {
    std::array<Card, 5> five{};
    for (int i = 0; i < known; ++i) five[i] = cards.board[i];
    for (std::size_t i = 0; i < coming.size(); ++i) five[known + i] = coming[i];
    bool myWin = false;
    bool oppWin = false;
    if (rules == ShowdownRules::Quillet) {
      const ShowdownResult result =
          testing::CompareShowdown(cards.hand, holding, testing::MakeBoardRecord(five));
      myWin = result.myWin;
      oppWin = result.oppWin;
    } else {
      CardSet board = 0;
      for (Card c : five) board |= CardSetBit(c);
      const HandValue mine = EvaluateCards(board | SetOf({cards.hand.card1(), cards.hand.card2()}));
      const HandValue theirs = EvaluateCards(board | SetOf({holding.card1(), holding.card2()}));
      myWin = mine > theirs;
      oppWin = theirs > mine;
    }
    tally.wins += myWin;
    tally.losses += oppWin;
    tally.ties += !myWin && !oppWin;
  }
  return tally;
}

// The holdings under a category, each once: its own and those of the deeper categories that follow it.
std::set<int32_t> HoldingNumbersUnder(const Categories& categories, std::size_t index) {
  auto depth = [&](std::size_t i) { return categories.nodes[i].label.find('*'); };
  std::set<int32_t> numbers;
  for (std::size_t j = index; j < categories.nodes.size(); ++j) {
    if (j > index && depth(j) <= depth(index)) break;
    const CategoryNode& node = categories.nodes[j];
    for (int32_t k = 0; k < node.count; ++k)
      numbers.insert(HoldingNumber(node.combos[k].card1(), node.combos[k].card2()));
  }
  return numbers;
}

HandCombo HoldingOfNumber(int32_t number) {
  const auto cards = CardsOfHolding(number);
  return HandCombo{true, cards[0].rank, cards[0].suit, cards[1].rank, cards[1].suit};
}

// The equity command's formula: the program's rules leave ties out and round to two decimals; the
// standard rules split them.
double Formula(const ShowdownTally& tally, ShowdownRules rules) {
  if (rules == ShowdownRules::Standard) return EquityFromTally(tally).my;
  return EquityFromCounts({static_cast<int64_t>(tally.Showdowns()), static_cast<int64_t>(tally.wins),
                           static_cast<int64_t>(tally.losses), static_cast<int64_t>(tally.ties)})
      .my;
}

// The top-level categories of made hands: every live holding stands in exactly one of them (the two draw
// groups are left out).
bool IsMadeHandRoot(const std::string& label) {
  return label.starts_with("*") && label != "*" && label != "*8 out or better draw" &&
         label != "*Gutshot and backdoor draws";
}

class TwentyPercentOnTheFlop : public ::testing::TestWithParam<ShowdownRules> {
 protected:
  Spot spot = CookSpot("AhKd", "Tc8h3s", TwentyPercentRange());
};

TEST_P(TwentyPercentOnTheFlop, EachCategorysEquityAgreesWithACountOfEveryBoardOverItsHoldings) {
  const ShowdownRules rules = GetParam();
  const ResultsBuild built = Build(spot, true, rules);
  const Categories& categories = spot.cooked.categories;
  ASSERT_EQ(built.categoryEquities.size(), categories.nodes.size());
  std::vector<ShowdownTally> byNumber(kHoldingCount);
  std::vector<bool> counted(kHoldingCount, false);
  int withEquity = 0;
  for (std::size_t i = 0; i < categories.nodes.size(); ++i) {
    const std::set<int32_t> numbers = HoldingNumbersUnder(categories, i);
    const bool spacer = categories.nodes[i].label.ends_with("*");
    if (spacer || numbers.empty()) {
      EXPECT_FALSE(built.categoryEquities[i].has_value()) << categories.nodes[i].label;
      continue;
    }
    ShowdownTally tally;
    for (int32_t n : numbers) {
      if (!counted[n]) byNumber[n] = BruteForce(spot.cards, HoldingOfNumber(n), rules);
      counted[n] = true;
      EXPECT_EQ(byNumber[n].Showdowns(), 990u);
      tally += byNumber[n];
    }
    ASSERT_TRUE(built.categoryEquities[i].has_value()) << categories.nodes[i].label;
    EXPECT_DOUBLE_EQ(*built.categoryEquities[i], Formula(tally, rules)) << categories.nodes[i].label;
    ++withEquity;
  }
  EXPECT_GE(withEquity, 10);
}

TEST_P(TwentyPercentOnTheFlop, TheWeightedMeanOfTheCategoryEquitiesIsTheWholeRangesEquity) {
  const ShowdownRules rules = GetParam();
  const ResultsBuild built = Build(spot, true, rules);
  const Categories& categories = spot.cooked.categories;
  const HoldingShowdowns showdowns(spot.cards.hand, spot.cards.board, spot.cards.street,
                                   CategorisedHoldings(categories), rules);

  EquityRequest request;
  request.cards = CheckCardInputs("AhKd", "Tc8h3s", CardsFor::Equity);
  request.range = TwentyPercentRange();
  request.rules = rules;
  const EquityOutcome whole = CalcEquity(request);
  ASSERT_EQ(whole.status, EquityStatus::Calculated);

  // The made-hand categories split the live holdings: each stands in exactly one.
  std::set<int32_t> seen;
  int32_t holdings = 0;
  double weighted = 0.0;
  double weights = 0.0;
  for (std::size_t i = 0; i < categories.nodes.size(); ++i) {
    if (!IsMadeHandRoot(categories.nodes[i].label)) continue;
    const std::set<int32_t> numbers = HoldingNumbersUnder(categories, i);
    if (numbers.empty()) continue;
    for (int32_t n : numbers) EXPECT_TRUE(seen.insert(n).second) << "holding " << n << " twice";
    holdings += static_cast<int32_t>(numbers.size());
    ASSERT_TRUE(built.categoryEquities[i].has_value());
    // The standard rules weigh every showdown alike and every holding meets 990 boards, so each category
    // weighs its holdings; the program's rules leave ties out, so each weighs its decided showdowns.
    double weight = static_cast<double>(numbers.size());
    if (rules == ShowdownRules::Quillet) {
      ShowdownSum sum(showdowns);
      for (int32_t n : numbers) sum.Add(std::vector<HandCombo>{HoldingOfNumber(n)});
      weight = static_cast<double>(sum.tally().wins + sum.tally().losses);
    }
    weighted += weight * *built.categoryEquities[i];
    weights += weight;
  }
  EXPECT_EQ(holdings, spot.cooked.liveCount);
  const double mean = weighted / weights;
  if (rules == ShowdownRules::Standard) {
    EXPECT_NEAR(mean, whole.values.my, 1e-9);
  } else {
    // Each share and the whole are rounded to two decimals by the formula.
    EXPECT_NEAR(mean, whole.values.my, 0.01);
  }
  // The whole range, summed from the holdings, is exactly what Calc Equity shows.
  ShowdownSum all(showdowns);
  all.Add(CategorisedHoldings(categories));
  ASSERT_TRUE(all.Equity().has_value());
  EXPECT_DOUBLE_EQ(*all.Equity(), whole.values.my);
}

TEST_P(TwentyPercentOnTheFlop, CategoryAndGroupNodesEndWithTheirEquityAndTheExportTextCarriesIt) {
  const ShowdownRules rules = GetParam();
  const ResultsBuild plain = Build(spot, false, rules);
  const ResultsBuild built = Build(spot, true, rules);
  const HoldingShowdowns showdowns(spot.cards.hand, spot.cards.board, spot.cards.street,
                                   CategorisedHoldings(spot.cooked.categories), rules);
  ASSERT_EQ(built.tree.nodes.size(), plain.tree.nodes.size());
  std::string expectedExport = ExportHeader("AhKd", "Tc8h3s");
  int groups = 0;
  for (std::size_t k = 0; k < built.tree.nodes.size(); ++k) {
    const ResultNode& node = built.tree.nodes[k];
    const ResultNode& before = plain.tree.nodes[k];
    ASSERT_EQ(node.key, before.key);
    std::string expected = before.text;
    const bool isCategory = node.key.find('-') == std::string::npos;
    if (isCategory && !before.text.empty()) {
      const int index = std::stoi(node.key);
      expected += " eq " + FormatEquityReadOut(*built.categoryEquities[static_cast<std::size_t>(index)]);
    } else if (!isCategory && !node.children.empty()) {
      // A group of several holdings: the equity against those holdings.
      ShowdownSum sum(showdowns);
      for (int child : node.children) {
        const ResultNode& c = built.tree.nodes[static_cast<std::size_t>(child)];
        const HandCombo holding{true, RankFromChar(c.text.substr(0, 1)), SuitFromChar(c.text.substr(1, 1)),
                                RankFromChar(c.text.substr(3, 1)), SuitFromChar(c.text.substr(4, 1))};
        sum.Add(std::vector<HandCombo>{holding});
      }
      expected += " eq " + FormatEquityReadOut(*sum.Equity());
      ++groups;
    }
    EXPECT_EQ(node.text, expected) << node.key;
    if (node.exportLine) {
      if (node.parent >= 0) expectedExport += std::string(2 * static_cast<std::size_t>(node.level), ' ');
      expectedExport += expected + "\r\n";
    }
  }
  EXPECT_GT(groups, 5);
  EXPECT_EQ(built.exportText, expectedExport);
}

INSTANTIATE_TEST_SUITE_P(BothRules, TwentyPercentOnTheFlop, ::testing::ValuesIn(kBothRules),
                         [](const auto& info) { return std::string(ShowdownRulesName(info.param)); });

TEST(CategoryEquity, TheTextIsTheReadOutsOneDecimalAfterEq) {
  EXPECT_EQ(EquitySuffix(63.249), " eq 63.2%");
  EXPECT_EQ(EquitySuffix(63.25), " eq 63.3%");
  EXPECT_EQ(EquitySuffix(100.0), " eq 100.0%");
  EXPECT_EQ(EquitySuffix(0.0), " eq 0.0%");
  EXPECT_EQ(EquitySuffix(std::nullopt), "");
}

TEST(CategoryEquity, AKnownTreeReadsAsExpected) {
  // AhKd on Tc8h3s against the six queens: an over pair with a backdoor straight draw. Each category,
  // its parent and the whole group hold all six, so each shows the equity against all six; the spacer
  // lines and the holdings show none.
  const Spot spot = CookSpot("AhKd", "Tc8h3s", [] {
    RangeLayer on = MakeEmptyLayer();
    SetBlockWhole(on[static_cast<std::size_t>(FindClassByName("QQ"))], false);
    return CollectRangeCombos(on, MakeEmptyLayer());
  }());
  const ResultsBuild built = Build(spot, true, ShowdownRules::Quillet);
  const HoldingShowdowns showdowns(spot.cards.hand, spot.cards.board, spot.cards.street,
                                   CategorisedHoldings(spot.cooked.categories), ShowdownRules::Quillet);
  ShowdownSum sum(showdowns);
  sum.Add(CategorisedHoldings(spot.cooked.categories));
  ASSERT_TRUE(sum.Equity().has_value());
  const std::string eq = " eq " + FormatEquityReadOut(*sum.Equity());
  const std::string queens =
      "    \xE2\x80\xA2QQ  (6)" + eq +
      "\r\n      Qc Qd\r\n      Qc Qh\r\n      Qc Qs\r\n      Qd Qh\r\n      Qd Qs\r\n      Qh Qs\r\n";
  EXPECT_EQ(built.exportText, ExportHeader("AhKd", "Tc8h3s") + "\r\nOne pair (6) 100%" + eq +
                                  "\r\n  O pair (6) 100%" + eq + "\r\n" + queens +
                                  "\r\nGutshot and backdoor draws (6) 100%" + eq +
                                  "\r\n  Backdoor Straight draw (6) 100%" + eq + "\r\n" + queens);
  // Queens against ace-king: My Hand wins about a quarter of the decided showdowns.
  EXPECT_GT(*sum.Equity(), 20.0);
  EXPECT_LT(*sum.Equity(), 30.0);
}

TEST(CategoryEquity, EmptyCategoriesAndSpacersGetNoEquity) {
  const Spot spot = CookSpot("AhKd", "Tc8h3s", TwentyPercentRange());
  const ResultsBuild built = Build(spot, true, ShowdownRules::Quillet, true, false);
  bool sawEmpty = false;
  for (const ResultNode& node : built.tree.nodes) {
    if (node.text == "Royal Flush (0) 0%") sawEmpty = true;
    if (node.text.empty()) {
      EXPECT_TRUE(node.children.empty());
    }
    if (node.text.find("(0) 0%") != std::string::npos) {
      EXPECT_TRUE(node.text.ends_with("(0) 0%")) << node.text;
    }
  }
  EXPECT_TRUE(sawEmpty);
}

TEST(CategoryEquity, WithoutMyHandOrABoardTheTreeIsAsWithoutTheOption) {
  for (const auto& [hand, board] :
       std::vector<std::pair<std::string, std::string>>{{"", "Tc8h3s"}, {"AhKd", ""}}) {
    const Spot spot = CookSpot(hand, board, TwentyPercentRange());
    const ResultsBuild built = Build(spot, true, ShowdownRules::Quillet);
    EXPECT_EQ(built.exportText, Build(spot, false, ShowdownRules::Quillet).exportText)
        << hand << "/" << board;
    EXPECT_TRUE(built.categoryEquities.empty());
  }
}

TEST(CategoryEquity, OffTheTreeAndTheExportAreAsBefore) {
  const Spot spot = CookSpot("AhKd", "Tc8h3s", TwentyPercentRange());
  const ResultsBuild built = Build(spot, false, ShowdownRules::Quillet);
  EXPECT_EQ(built.exportText.find(" eq "), std::string::npos);
  EXPECT_TRUE(built.categoryEquities.empty());
}

TEST(CategoryEquity, OnTheTurnAndTheRiverEachCategoryAgreesWithACountOfEveryBoard) {
  for (const std::string board : {"Tc8h3s9h", "Tc8h3s9h2d"}) {
    const Spot spot = CookSpot("AhKd", board, TwentyPercentRange());
    for (ShowdownRules rules : kBothRules) {
      const ResultsBuild built = Build(spot, true, rules);
      const Categories& categories = spot.cooked.categories;
      for (std::size_t i = 0; i < categories.nodes.size(); ++i) {
        const std::set<int32_t> numbers = HoldingNumbersUnder(categories, i);
        if (categories.nodes[i].label.ends_with("*") || numbers.empty()) continue;
        ShowdownTally tally;
        for (int32_t n : numbers) tally += BruteForce(spot.cards, HoldingOfNumber(n), rules);
        ASSERT_TRUE(built.categoryEquities[i].has_value()) << board << " " << categories.nodes[i].label;
        EXPECT_DOUBLE_EQ(*built.categoryEquities[i], Formula(tally, rules))
            << board << " " << ShowdownRulesName(rules) << " " << categories.nodes[i].label;
      }
    }
  }
}

// A weighted range: each showdown counts the holding's weight, so a category's equity is the weighted
// count of every board over its holdings.
TEST(CategoryEquity, WithAWeightedRangeEachCategoryAgreesWithTheWeightedCountOfEveryBoard) {
  std::mt19937_64 rng(testing::TestSeed(2220));
  std::uniform_int_distribution<int32_t> weight(1, kFullWeight);
  std::vector<HandCombo> range = TwentyPercentRange();
  std::vector<int32_t> weightOf(kHoldingCount, kFullWeight);
  for (HandCombo& holding : range) {
    if (rng() % 4 != 0) holding.weight = weight(rng);
    weightOf[HoldingNumber(holding.card1(), holding.card2())] = holding.weight;
  }
  for (const std::string board : {"Tc8h3s", "Tc8h3s9h", "Tc8h3s9h2d"}) {
    const Spot spot = CookSpot("AhKd", board, range);
    for (ShowdownRules rules : kBothRules) {
      const ResultsBuild built = Build(spot, true, rules);
      const Categories& categories = spot.cooked.categories;
      const HoldingShowdowns showdowns(spot.cards.hand, spot.cards.board, spot.cards.street,
                                       CategorisedHoldings(categories), rules);
      EXPECT_EQ(showdowns.scale(), uint64_t{kFullWeight});
      std::vector<std::optional<ShowdownTally>> byNumber(kHoldingCount);
      int checked = 0;
      for (std::size_t i = 0; i < categories.nodes.size(); ++i) {
        const std::set<int32_t> numbers = HoldingNumbersUnder(categories, i);
        if (categories.nodes[i].label.ends_with("*") || numbers.empty()) continue;
        ShowdownTally tally{0, 0, 0, kFullWeight};
        ShowdownSum sum(showdowns);
        for (int32_t n : numbers) {
          if (!byNumber[n]) {
            const ShowdownTally boards = BruteForce(spot.cards, HoldingOfNumber(n), rules);
            const auto w = static_cast<uint64_t>(weightOf[n]);
            byNumber[n] = ShowdownTally{boards.wins * w, boards.ties * w, boards.losses * w, kFullWeight};
          }
          tally += *byNumber[n];
          sum.Add(std::vector<HandCombo>{HoldingOfNumber(n)});
        }
        EXPECT_EQ(sum.tally(), tally) << board << " " << categories.nodes[i].label;
        ASSERT_TRUE(built.categoryEquities[i].has_value()) << board << " " << categories.nodes[i].label;
        EXPECT_DOUBLE_EQ(*built.categoryEquities[i], Formula(tally, rules))
            << board << " " << ShowdownRulesName(rules) << " " << categories.nodes[i].label;
        ++checked;
      }
      EXPECT_GE(checked, 5) << board;
    }
  }
}

TEST(HoldingShowdowns, AHoldingListedTwiceOrDeadCountsOnceOrNotAtAll) {
  const CardInputs cards = CheckCardInputs("AhKd", "Tc8h3s", CardsFor::Cook);
  HandCombo queens{false, 12, 0, 12, 1};     // the flag is not read
  const HandCombo dead{true, 14, 2, 12, 3};  // the ace of hearts is My Hand's
  const std::vector<HandCombo> holdings{queens, queens, dead};
  const HoldingShowdowns showdowns(cards.hand, cards.board, cards.street, holdings, ShowdownRules::Quillet);
  EXPECT_EQ(showdowns.Of(queens).Showdowns(), 990u);
  EXPECT_EQ(showdowns.Of(dead).Showdowns(), 0u);
  ShowdownSum sum(showdowns);
  sum.Add(holdings);
  sum.Add(holdings);
  EXPECT_EQ(sum.tally(), showdowns.Of(queens));
}

}  // namespace
}  // namespace quillet
