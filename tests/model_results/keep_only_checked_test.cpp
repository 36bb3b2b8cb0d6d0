// "Check Boxes" and "Keep Only Checked" on the window model: the results tree's category and group nodes
// carry check boxes, and the On layer can be narrowed to the holdings under the checked ones.
#include <gtest/gtest.h>

#include <charconv>
#include <string>

#include "cards/card_input.h"
#include "range/holding_set.h"
#include "range/range_notation.h"
#include "results/tree_actions.h"
#include "tests/model_results/results_window.h"
#include "tests/storage/temp_folder.h"

namespace quillet {
namespace {

using testing::ResultsWindow;

struct CheckWindow : ResultsWindow {
  CheckWindow() { model.options.checkBoxes = true; }

  void TypeRange(const std::string& percent) {
    model.grid().SetRangeText(percent);
    model.txtRange_KeyUp(kKeyEnter);
  }

  int NodeStartingWith(const std::string& text) const {
    for (std::size_t i = 0; i < model.results().TV.nodes.size(); ++i) {
      if (model.results().TV.nodes[i].text.starts_with(text)) return static_cast<int>(i);
    }
    ADD_FAILURE() << "no node \"" << text << "\"";
    return -1;
  }

  // The count a category node shows: "One pair (112) 41%" gives 112.
  int ShownCount(int node) const {
    const std::string& text = model.results().TV.nodes[node].text;
    const auto open = text.find('(');
    int count = -1;
    std::from_chars(text.data() + open + 1, text.data() + text.size(), count);
    return count;
  }

  // Read from the tree's own lines, not from the table: every holding line below the node, and how many
  // lines there are (a holding in two sub-categories has a line in each).
  HoldingSet HoldingLinesUnder(int node, int* lines = nullptr) const {
    HoldingSet set;
    for (const int child : model.results().TV.nodes[node].children) {
      if (!model.results().TV.nodes[child].children.empty()) {
        set |= HoldingLinesUnder(child, lines);
        continue;
      }
      HandCards hand{};
      if (ParseHandText(CleanNodeText(model.results().TV.nodes[child].text), hand)) {
        set.insert(Card{hand.rank1, hand.suit1}, Card{hand.rank2, hand.suit2});
        if (lines != nullptr) ++*lines;
      }
    }
    return set;
  }

  HoldingSet OnHoldings() { return HoldingsOfLayer(profile().rangeLayer); }
};

// The acceptance case: My Hand AhKd on Tc8h3s against the top 20 % of the order.
TEST(KeepOnlyChecked, OnePairAndGutshotAndBackdoorDrawsLeaveExactlyTheUnionOfTheirHoldings) {
  CheckWindow w;
  w.TypeRange("20");
  ASSERT_EQ(w.model.grid().txtRange.text, "20.4");

  // What the two categories hold, read from a plain listing of the same cook.
  w.model.options.simplifyOutput = false;
  w.Cook("AhKd", "Tc8h3s");
  const int pairNode = w.NodeStartingWith("One pair (");
  const int drawNode = w.NodeStartingWith("Gutshot and backdoor draws (");
  int pairLines = 0;
  int drawLines = 0;
  const HoldingSet onePair = w.HoldingLinesUnder(pairNode, &pairLines);
  const HoldingSet draws = w.HoldingLinesUnder(drawNode, &drawLines);
  EXPECT_EQ(pairLines, w.ShownCount(pairNode));
  EXPECT_EQ(drawLines, w.ShownCount(drawNode));
  EXPECT_EQ(onePair.size(), pairLines);  // each holding makes one pair at most
  EXPECT_LT(draws.size(), drawLines);    // a backdoor flush draw can be a gutshot too
  HoldingSet both = onePair;
  both |= draws;
  const int overlap = onePair.size() + draws.size() - both.size();
  EXPECT_GT(overlap, 0) << "no pair that is also a draw: the case would not show a holding counted once";
  EXPECT_LT(both.size(), w.OnHoldings().size());

  // The grouped tree (the default) with the two categories checked.
  w.model.options.simplifyOutput = true;
  w.Cook("AhKd", "Tc8h3s");
  w.model.TV_NodeCheck(w.NodeStartingWith("One pair ("), true);
  w.model.TV_NodeCheck(w.NodeStartingWith("Gutshot and backdoor draws ("), true);
  w.model.mnuKeepOnlyChecked_Click();

  EXPECT_TRUE(w.services.messages.empty());
  EXPECT_EQ(w.OnHoldings(), both);
  EXPECT_EQ(w.OnHoldings().size(), onePair.size() + draws.size() - overlap);
  // The cook ran again on the narrowed range: every holding is live, and the two categories kept theirs.
  EXPECT_EQ(w.model.results().cookRangeCount, both.size());
  EXPECT_EQ(w.model.results().cookLiveCount, both.size());
  EXPECT_EQ(w.ShownCount(w.NodeStartingWith("One pair (")), pairLines);
  EXPECT_EQ(w.ShownCount(w.NodeStartingWith("Gutshot and backdoor draws (")), drawLines);
  // The rebuilt tree starts with nothing checked.
  EXPECT_EQ(w.model.results().tvChecked, std::vector<bool>(w.model.results().TV.nodes.size(), false));
}

TEST(KeepOnlyChecked, ACheckedGroupKeepsItsClassOfItsCategoryOnly) {
  CheckWindow w;
  w.PutOn("AK");
  w.PutOn("KQs");
  w.Cook("", "Kh9c4d");  // AK and KQ both pair the king: "T pair" holds both classes
  const int group = w.NodeStartingWith("~AKo (9)");
  ASSERT_GE(group, 0);
  ASSERT_TRUE(w.model.results().NodeCheckable(group));
  w.model.TV_NodeCheck(group, true);
  w.model.mnuKeepOnlyChecked_Click();
  EXPECT_EQ(w.OnHoldings(), w.HoldingLinesUnder(group));
  EXPECT_EQ(w.OnHoldings().size(), 9);  // AK less the king of hearts on the board
  EXPECT_EQ(w.profile().rangeLayer[ResultsWindow::Block("KQs")].count, 0);
}

TEST(KeepOnlyChecked, KeepsTheSeenLayerDropsTheSelectionAndRefreshesTheGrid) {
  CheckWindow w;
  w.PutOn("AK");
  w.PutOn("QJs");
  w.PutSeen("22");
  w.Cook("", "Kh9c4d");
  w.model.grid().selectedOn[ResultsWindow::Block("AA")] = true;
  w.model.grid().blockColour.fill(0x123456);
  w.model.grid().txtRange.text = "untouched";
  w.model.TV_NodeCheck(w.NodeStartingWith("One pair ("), true);
  w.model.mnuKeepOnlyChecked_Click();
  EXPECT_EQ(w.profile().seenLayer[ResultsWindow::Block("22")].count, 6);
  EXPECT_FALSE(w.model.grid().selectedOn[ResultsWindow::Block("AA")]);
  EXPECT_EQ(w.model.grid().blockColour[ResultsWindow::Block("AK")], w.model.scheme.onPart);
  EXPECT_EQ(w.model.grid().blockColour[ResultsWindow::Block("QJs")],
            w.model.grid().baseColour[ResultsWindow::Block("QJs")]);
  EXPECT_TRUE(w.model.grid().txtRange.text.starts_with("~"));
  EXPECT_EQ(w.model.grid().txtNotation.text, PrintRangeNotation(w.OnHoldings()));
}

TEST(KeepOnlyChecked, WithNothingCheckedItSaysSoAndChangesNothing) {
  CheckWindow w;
  w.PutOn("AK");
  w.Cook("", "Kh9c4d");
  const PlayerProfile before = w.profile();
  const int node = w.NodeStartingWith("One pair (");
  w.model.TV_NodeCheck(node, true);
  w.model.TV_NodeCheck(node, false);
  w.model.mnuKeepOnlyChecked_Click();
  ASSERT_EQ(w.services.messages.size(), 1u);
  EXPECT_EQ(
      w.services.messages[0].text,
      "Nothing is checked. Check the categories or groups to keep, then choose Keep Only Checked again.");
  EXPECT_EQ(w.profile(), before);
  EXPECT_EQ(w.model.rangeHistory.undoCount(), 0u);
}

TEST(KeepOnlyChecked, HoldingNodesCarryNoBoxAndTheirChecksAreIgnored) {
  CheckWindow w;
  w.PutOn("AK");
  w.PutOn("KQs");
  w.model.options.simplifyOutput = false;
  w.Cook("", "Kh9c4d");
  const int holding = w.NodeStartingWith("Ac Kd");
  EXPECT_FALSE(w.model.results().NodeCheckable(holding));
  w.model.TV_NodeCheck(holding, true);
  EXPECT_FALSE(w.model.results().tvChecked[holding]);
  w.model.mnuKeepOnlyChecked_Click();
  EXPECT_EQ(w.services.messages.size(), 1u);  // nothing checked
}

TEST(KeepOnlyChecked, WithTheOptionUntickedThereAreNoBoxesAndTheCommandDoesNothing) {
  CheckWindow w;
  w.model.options.checkBoxes = false;
  w.PutOn("AK");
  w.Cook("", "Kh9c4d");
  const int node = w.NodeStartingWith("One pair (");
  EXPECT_FALSE(w.model.results().NodeCheckable(node));
  w.model.TV_NodeCheck(node, true);
  const PlayerProfile before = w.profile();
  w.model.mnuKeepOnlyChecked_Click();
  EXPECT_EQ(w.profile(), before);
  EXPECT_TRUE(w.services.messages.empty());
}

TEST(KeepOnlyChecked, UntickingTheOptionOrCookingAgainClearsEveryCheck) {
  CheckWindow w;
  w.PutOn("AK");
  w.Cook("", "Kh9c4d");
  const int node = w.NodeStartingWith("One pair (");
  w.model.TV_NodeCheck(node, true);
  EXPECT_TRUE(w.model.results().tvChecked[node]);
  w.model.cmdCheckPossibleHands_Click();
  EXPECT_FALSE(w.model.results().tvChecked[node]);
  w.model.TV_NodeCheck(node, true);
  w.model.mnuCheckBoxes_Click();
  EXPECT_FALSE(w.model.options.checkBoxes);
  w.model.mnuCheckBoxes_Click();
  EXPECT_TRUE(w.model.options.checkBoxes);
  EXPECT_FALSE(w.model.results().tvChecked[node]);
}

TEST(KeepOnlyChecked, IsOneStepThatUndoTakesBack) {
  CheckWindow w;
  w.PutOn("AK");
  w.PutOn("QJs");
  w.Cook("", "Kh9c4d");
  const PlayerProfile before = w.profile();
  w.model.TV_NodeCheck(w.NodeStartingWith("One pair ("), true);
  w.model.mnuKeepOnlyChecked_Click();
  ASSERT_NE(w.profile(), before);
  ASSERT_TRUE(w.model.UndoRangeChange());
  EXPECT_EQ(w.profile().rangeLayer, before.rangeLayer);
  EXPECT_EQ(w.profile().seenLayer, before.seenLayer);
}

TEST(KeepOnlyChecked, AddToRangeIsAsItWasWithTheBoxesShown) {
  CheckWindow w;
  w.PutOn("KK");
  w.PutOn("QJs");
  w.Cook("KcQs", "Kh9c4d");
  w.model.TV_NodeCheck(w.NodeStartingWith("High cards ("), true);
  w.model.results().TV.selected = w.NodeWithText("~QJs (3) *");
  w.model.mnuAdd2Range_Click();
  EXPECT_EQ(w.OnPairs("QJs"), "cc,dd,hh");
  EXPECT_EQ(w.OnBlocks(), 1);
}

// The tick in MyPrefs.ini: written after the twelve records only while ticked.
TEST(CheckBoxesPreference, IsUntickedAtFirstStartAndWrittenOnlyWhileTicked) {
  testing::TempFolder dir;
  RecordingServices services;
  Form1Model model(services);
  model.ProfilePaths(dir.path());
  EXPECT_FALSE(model.options.checkBoxes);
  model.SavePreferences();
  const std::string untouched = testing::ReadBytes(dir / "MyPrefs.ini");
  EXPECT_EQ(untouched.find("mnuCheckBoxes"), std::string::npos);
  EXPECT_TRUE(untouched.ends_with("SelCardsAutoCook|False\r\n"));

  model.mnuCheckBoxes_Click();
  model.SavePreferences();
  EXPECT_EQ(testing::ReadBytes(dir / "MyPrefs.ini"), untouched + "mnuCheckBoxes|True\r\n");

  RecordingServices otherServices;
  Form1Model restarted(otherServices);
  restarted.ProfilePaths(dir.path());
  restarted.LoadPreferences();
  EXPECT_TRUE(restarted.options.checkBoxes);

  model.mnuCheckBoxes_Click();
  model.SavePreferences();
  EXPECT_EQ(testing::ReadBytes(dir / "MyPrefs.ini"), untouched);
}

}  // namespace
}  // namespace quillet
