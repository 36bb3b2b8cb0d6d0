#include <gtest/gtest.h>

#include <string>

#include "range/block_record.h"
#include "results/build_results_tree.h"
#include "tests/model_results/results_window.h"

namespace quillet {
namespace {

using testing::ResultsWindow;

constexpr Colour kUntouched = 0x123456;

// On K-9-4 with My Hand KcQs: KK leaves KdKs, a top set; QJs leaves QcJc, QdJd, QhJh, queen high with a
// gutshot, so their copies in "Q high" carry the mark. The Seen layer holds 22 (six low pairs): ten
// holdings in all.
struct AddWindow : ResultsWindow {
  explicit AddWindow(bool simplify) {
    PutOn("KK");
    PutOn("QJs");
    PutSeen("22");
    model.options.simplifyOutput = simplify;
    Cook("KcQs", "Kh9c4d");
    // Marks that show whether the add redrew anything, and a selection it must drop.
    model.grid().blockColour.fill(kUntouched);
    model.grid().txtRange.text = "untouched";
    model.grid().selectedOn[Block("AA")] = true;
    model.grid().selectedSeen[Block("22")] = true;
  }

  void AddNode(const std::string& text) {
    model.results().TV.selected = NodeWithText(text);
    model.mnuAdd2Range_Click();
  }

  void ExpectSelectionDropped() {
    for (int i = 0; i < kClassCount; ++i) {
      EXPECT_FALSE(model.grid().selectedOn[i]) << i;
      EXPECT_FALSE(model.grid().selectedSeen[i]) << i;
    }
    EXPECT_TRUE(model.grid().editingOn);
  }

  void ExpectRefreshed() {
    EXPECT_NE(model.grid().blockColour[Block("AA")], kUntouched);
    EXPECT_NE(model.grid().txtRange.text, "untouched");
    EXPECT_EQ(model.results().tvMousePointer, 0);
    EXPECT_FALSE(model.results().tmrTVError.enabled);
  }

  void ExpectErrorSignalledAndNothingRedrawn() {
    EXPECT_EQ(model.results().tvMousePointer, 99);
    EXPECT_TRUE(model.results().tmrTVError.enabled);
    for (int i = 0; i < kClassCount; ++i) EXPECT_EQ(model.grid().blockColour[i], kUntouched) << i;
    EXPECT_EQ(model.grid().txtRange.text, "untouched");
  }

  void ExpectSeenLayerKept() { EXPECT_EQ(profile().seenLayer[Block("22")].count, 6); }
};

TEST(AddToRange, ACombinationNodeWithItsMarkReplacesTheRangeByThatHolding) {
  AddWindow w(false);
  w.AddNode("Qd Jd *");
  EXPECT_EQ(w.OnPairs("QJs"), "dd");
  EXPECT_EQ(w.OnBlocks(), 1);  // KK is out of the On layer
  w.ExpectSeenLayerKept();
  w.ExpectSelectionDropped();
  w.ExpectRefreshed();
  // One On holding and six Seen: 7 of 1,326 holdings.
  EXPECT_EQ(w.model.grid().txtRange.text, "~0.5");
  EXPECT_EQ(w.model.grid().blockColour[ResultsWindow::Block("QJs")], w.model.scheme.onPart);
}

TEST(AddToRange, ASingleCombinationLineWithItsTwoLeadingBlanksWorks) {
  AddWindow w(true);
  w.AddNode("  Kd Ks");
  EXPECT_EQ(w.OnPairs("KK"), "ds");
  EXPECT_EQ(w.OnBlocks(), 1);
  w.ExpectSeenLayerKept();
  w.ExpectRefreshed();
}

TEST(AddToRange, AGroupNodeWithItsHoldingsUnderItTakesThoseHoldings) {
  AddWindow w(true);
  // The run after the group node is its three holdings.
  w.AddNode("~QJs (3) *");
  EXPECT_EQ(w.OnPairs("QJs"), "cc,dd,hh");
  EXPECT_EQ(w.OnBlocks(), 1);
  w.ExpectRefreshed();
}

TEST(AddToRange, ACategoryWhoseFirstChildIsAGroupSignalsTheErrorAndRedrawsNothing) {
  AddWindow w(true);
  w.AddNode("Q high (3) 30%");
  w.ExpectErrorSignalledAndNothingRedrawn();
  // The range was emptied before the group's text "QJs" failed to read as a holding.
  EXPECT_EQ(w.OnBlocks(), 0);
  w.ExpectSeenLayerKept();
  w.ExpectSelectionDropped();
}

TEST(AddToRange, ACategoryOfPlainHoldingsTakesThemAll) {
  AddWindow w(false);
  w.AddNode("Q high (3) 30%");
  EXPECT_EQ(w.OnPairs("QJs"), "cc,dd,hh");
  w.ExpectRefreshed();
}

TEST(AddToRange, ACategoryWithChildCategoriesFailsOnTheFirstOfThem) {
  AddWindow w(false);
  w.AddNode("High cards (3) 30%");
  w.ExpectErrorSignalledAndNothingRedrawn();
  EXPECT_EQ(w.OnBlocks(), 0);
}

TEST(AddToRange, HoldingsTakenBeforeAFailureStayInTheRange) {
  ResultsWindow w;
  // T pair on K-9-4: AcKc alone of AKs (a single line), then KQs as a group of three (KhQh is dead).
  SetBlockSuitPair(w.profile().rangeLayer[ResultsWindow::Block("AKs")], 0, 0, true, false);
  w.PutOn("KQs");
  w.Cook("", "Kh9c4d");
  w.model.grid().blockColour.fill(kUntouched);
  w.model.results().TV.selected = w.NodeWithText("T pair (4) 100%");
  ASSERT_EQ(w.model.results().TV.nodes[w.model.results().TV.selected + 1].text, "  Ac Kc");
  ASSERT_EQ(w.model.results().TV.nodes[w.model.results().TV.selected + 2].text, "~KQs (3)");
  w.model.mnuAdd2Range_Click();
  EXPECT_EQ(w.OnPairs("AKs"), "cc");
  EXPECT_EQ(w.OnBlocks(), 1);
  EXPECT_EQ(w.model.results().tvMousePointer, 99);
  EXPECT_EQ(w.model.grid().blockColour[ResultsWindow::Block("AKs")], kUntouched);
}

TEST(AddToRange, TheTimerEndsTheErrorSignal) {
  AddWindow w(true);
  w.AddNode("Q high (3) 30%");
  ASSERT_TRUE(w.model.results().tmrTVError.enabled);
  EXPECT_EQ(w.model.results().tmrTVError.intervalMs, 550);
  w.model.tmrTVError_Timer();
  EXPECT_FALSE(w.model.results().tmrTVError.enabled);
  EXPECT_EQ(w.model.results().tvMousePointer, 0);
}

TEST(AddToRange, FlashTreeErrorRestartsTheTimerEachTime) {
  ResultsWindow w;
  w.model.results().FlashTreeError();
  const uint64_t first = w.model.results().tmrTVError.armCount;
  w.model.results().FlashTreeError();
  EXPECT_EQ(w.model.results().tmrTVError.armCount, first + 1);
  EXPECT_EQ(w.model.results().tvMousePointer, 99);
}

TEST(AddToRange, WithNoNodeSelectedNothingHappens) {
  AddWindow w(false);
  w.model.results().TV.selected = -1;
  w.model.mnuAdd2Range_Click();
  EXPECT_EQ(w.OnBlocks(), 2);
  EXPECT_TRUE(w.model.grid().selectedOn[ResultsWindow::Block("AA")]);
  EXPECT_EQ(w.model.grid().txtRange.text, "untouched");
  EXPECT_EQ(w.model.results().tvMousePointer, 0);
}

TEST(AddToRange, AnEmptyTreeDoesNothing) {
  ResultsWindow w;
  w.PutOn("KK");
  w.model.grid().selectedOn[0] = true;
  w.model.mnuAdd2Range_Click();
  EXPECT_EQ(w.OnBlocks(), 1);
  EXPECT_TRUE(w.model.grid().selectedOn[0]);
  EXPECT_EQ(w.model.results().tvMousePointer, 0);
}

TEST(AddToRange, WithoutACurrentProfileNothingHappens) {
  AddWindow w(false);
  w.model.results().TV.selected = w.NodeWithText("Qd Jd *");
  w.model.profiles().currentIndex = -1;
  w.model.mnuAdd2Range_Click();
  w.model.profiles().currentIndex = 0;
  EXPECT_EQ(w.OnBlocks(), 2);
  EXPECT_EQ(w.model.results().tvMousePointer, 0);
}

TEST(AddToRange, AHoldingWhoseLowerCardComesFirstGoesToItsClassInTheRecordsOrder) {
  ResultsWindow w;
  // A tree node written by hand, low card first: it is still A-K offsuit, the ace of clubs with the king
  // of diamonds.
  std::string ignored;
  AddResultNode(w.model.results().TV, ignored, 0, "", kRootNode, "0k", "Kd Ac", "", true);
  w.model.results().TV.selected = 0;
  w.model.mnuAdd2Range_Click();
  EXPECT_EQ(w.OnPairs("AK"), "cd");
}

TEST(AddToRange, ANodeNamingTheSameCardTwiceOrAnUnknownRankIsRefused) {
  for (const std::string text : {"Ah Ah", "Ah Xd"}) {
    ResultsWindow w;
    std::string ignored;
    AddResultNode(w.model.results().TV, ignored, 0, "", kRootNode, "0k", text, "", true);
    w.model.results().TV.selected = 0;
    w.model.mnuAdd2Range_Click();
    EXPECT_EQ(w.OnBlocks(), 0) << text;
    EXPECT_EQ(w.model.results().tvMousePointer, 99) << text;
  }
}

}  // namespace
}  // namespace quillet
