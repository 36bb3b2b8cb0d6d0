// A weighted range through the cook and back: the cook is given the On layer's weights, and "Add to Range"
// and "Keep Only Checked" keep the weights the holdings had.
#include <gtest/gtest.h>

#include <string>

#include "cards/holding.h"
#include "range/holding_set.h"
#include "range/player_profile.h"
#include "range/range_notation.h"
#include "tests/model_results/results_window.h"

namespace quillet {
namespace {

using testing::ResultsWindow;

// On K-9-4 with My Hand KcQs, against KK at 50 %, QJs at 25 % and AKs whole, with 22 in the Seen layer.
struct WeightedWindow : ResultsWindow {
  static constexpr const char* kRange = "KK:0.5, QJs:0.25, AKs";

  explicit WeightedWindow(bool simplify = true) {
    PutSeen("22");
    model.grid().txtNotation.text = kRange;
    model.txtNotation_KeyDown(kKeyEnter);
    model.options.simplifyOutput = simplify;
    Cook("KcQs", "Kh9c4d");
  }

  static WeightedHoldingSet Typed() { return ParseWeightedRangeNotation(kRange).weights; }
  WeightedHoldingSet OnWeights() { return OnLayerWeights(profile()); }

  int NodeStartingWith(const std::string& text) const {
    for (std::size_t i = 0; i < model.results().TV.nodes.size(); ++i) {
      if (model.results().TV.nodes[i].text.starts_with(text)) return static_cast<int>(i);
    }
    ADD_FAILURE() << "no node \"" << text << "\"";
    return -1;
  }
};

TEST(WeightedRangeInTheCook, EveryHoldingTheCookSortsCarriesItsWeight) {
  WeightedWindow w;
  const WeightedHoldingSet typed = WeightedWindow::Typed();
  int seen = 0;
  int weighted = 0;
  for (const CategoryNode& node : w.model.results().categories.nodes) {
    for (const HandCombo& combo : node.combos) {
      const int number = HoldingNumber(combo.card1(), combo.card2());
      // The Seen layer's 22 is whole; every On holding has the weight the Range box gave it.
      const int expected = combo.rank1 == 2 && combo.rank2 == 2 ? kFullWeight : typed.Weight(number);
      EXPECT_EQ(combo.weight, expected) << ComboToText(combo);
      seen += combo.rank1 == 2 ? 1 : 0;
      weighted += combo.weight < kFullWeight ? 1 : 0;
    }
  }
  EXPECT_GT(seen, 0);
  EXPECT_GT(weighted, 0);
}

TEST(WeightedRangeInTheTree, AddToRangeKeepsTheWeightOfTheHoldingsItTakes) {
  WeightedWindow w(false);
  w.model.results().TV.selected = w.NodeStartingWith("Qd Jd");
  w.model.mnuAdd2Range_Click();
  WeightedHoldingSet wanted;
  wanted.SetWeight(Card{12, 1}, Card{11, 1}, 250);
  EXPECT_EQ(w.OnWeights(), wanted);
  EXPECT_EQ(w.model.grid().txtNotation.text, "QdJd:0.25");
  EXPECT_EQ(w.model.grid().blockPartWeight[ResultsWindow::Block("QJs")], 250);
}

TEST(WeightedRangeInTheTree, AddToRangeOfAGroupKeepsEachHoldingsWeight) {
  WeightedWindow w(true);
  w.model.results().TV.selected = w.NodeStartingWith("~QJs");
  w.model.mnuAdd2Range_Click();
  // QJs's three live holdings (QsJs is dead), each at 25 %.
  WeightedHoldingSet wanted;
  for (const int suit : {0, 1, 2}) wanted.SetWeight(Card{12, suit}, Card{11, suit}, 250);
  EXPECT_EQ(w.OnWeights(), wanted);
}

TEST(WeightedRangeInTheTree, AddToRangeOfAnotherWeightKeepsThatWeight) {
  WeightedWindow w(false);
  w.model.results().TV.selected = w.NodeStartingWith("Kd Ks");
  w.model.mnuAdd2Range_Click();
  WeightedHoldingSet wanted;
  wanted.SetWeight(Card{13, 1}, Card{13, 3}, 500);
  EXPECT_EQ(w.OnWeights(), wanted);
}

TEST(WeightedRangeInTheTree, AddingAHoldingOfTheSeenLayerMakesItWhole) {
  WeightedWindow w(false);
  w.model.results().TV.selected = w.NodeStartingWith("2c 2d");
  ASSERT_GE(w.model.results().TV.selected, 0);
  w.model.mnuAdd2Range_Click();
  EXPECT_EQ(w.OnWeights().Count(), 1);
  EXPECT_FALSE(HasPartialWeights(w.profile()));
}

TEST(WeightedRangeInTheTree, KeepOnlyCheckedKeepsTheWeightsTheHoldingsHad) {
  WeightedWindow w;
  w.model.options.checkBoxes = true;
  w.model.results().tvChecked.assign(w.model.results().TV.nodes.size(), false);
  const WeightedHoldingSet before = w.OnWeights();
  int checked = 0;
  for (std::size_t i = 0; i < w.model.results().TV.nodes.size(); ++i) {
    if (w.model.results().NodeCheckable(static_cast<int>(i))) {
      w.model.TV_NodeCheck(static_cast<int>(i), true);
      ++checked;
    }
  }
  ASSERT_GT(checked, 0);
  w.model.mnuKeepOnlyChecked_Click();
  const WeightedHoldingSet after = w.OnWeights();
  // The live holdings stay (the dead ones and the Seen layer's go or stay out), each at its weight.
  EXPECT_GT(after.Count(), 0);
  EXPECT_FALSE(after.IsUnweighted());
  for (int number = 0; number < kHoldingCount; ++number) {
    if (after.Weight(number) == 0) continue;
    const bool seenPair = CardsOfHolding(number)[0].rank == 2 && CardsOfHolding(number)[1].rank == 2;
    EXPECT_EQ(after.Weight(number), seenPair ? kFullWeight : before.Weight(number)) << number;
  }
}

TEST(WeightedRangeInTheTree, AHoldingClearedFromTheRangeComesBackWholeFromTheSeenLayer) {
  WeightedWindow w(false);
  w.model.cmdClearOnBlocks_Click();  // QJs at 25 % goes out of the range
  w.model.PFHand_MouseUp(ResultsWindow::Block("QJs"), kRightButton, 0);
  w.Cook("KcQs", "Kh9c4d");
  w.model.results().TV.selected = w.NodeStartingWith("Qd Jd");
  w.model.mnuAdd2Range_Click();
  EXPECT_EQ(w.OnWeights().Count(), 1);
  EXPECT_FALSE(HasPartialWeights(w.profile()));
  EXPECT_EQ(w.model.grid().txtNotation.text, "QdJd");
}

}  // namespace
}  // namespace quillet
