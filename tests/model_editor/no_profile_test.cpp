// With no profile current the range editor has nothing to work on: every handler leaves the layers and
// the grid's display as they were, and none fails.
#include <functional>

#include "tests/model_editor/editor_fixture.h"

namespace quillet {
namespace {

class NoProfile : public EditorTest {
 protected:
  NoProfile() {
    // A profile with a range and a visible grid, then none current (a typed name that matches no profile).
    form.PFHand_MouseUp(Block("AKs"), kLeftButton, 0);
    form.PFHand_MouseUp(Block("72"), kRightButton, 0);
    form.results().lblMyEquity.caption = "57.3%";
    form.results().lblMyEquity.opaque = true;
    form.profiles().currentIndex = -1;
    before = form.profiles().list;
    grid = form.grid();
    text = form.grid().txtRange.text;
    seenVisible = form.grid().lblSeenVisible;
  }

  void ExpectNothingChanged(const char* what) {
    EXPECT_EQ(form.profiles().list, before) << what;
    EXPECT_EQ(form.grid().blockColour, grid.blockColour) << what;
    EXPECT_EQ(form.grid().selectedOn, grid.selectedOn) << what;
    EXPECT_EQ(form.grid().selectedSeen, grid.selectedSeen) << what;
    EXPECT_EQ(form.grid().comboShown, grid.comboShown) << what;
    EXPECT_EQ(form.grid().matrixCellColour, grid.matrixCellColour) << what;
    EXPECT_EQ(form.grid().editingOn, grid.editingOn) << what;
    EXPECT_EQ(form.grid().lblSeenVisible, seenVisible) << what;
    EXPECT_EQ(form.results().lblMyEquity.caption, "57.3%") << what;
    EXPECT_FALSE(form.tmrCalcEquity.enabled) << what;
  }

  std::vector<PlayerProfile> before;
  GridState grid;
  std::string text;
  bool seenVisible = false;
};

TEST_F(NoProfile, GridClicksWithEveryButtonAndModifierChangeNothing) {
  for (int button : {kLeftButton, kRightButton, kMiddleButton}) {
    for (int shift : {0, 1, 2, 3, 4, 5, 6, 7}) {
      form.PFHand_MouseUp(Block("QQ"), button, shift);
      ExpectNothingChanged("click");
      EXPECT_EQ(form.grid().txtRange.text, text);
    }
  }
  form.grid().SelectCross(Block("QQ"));
  form.grid().SelectUpward(Block("QQ"));
  ExpectNothingChanged("cross and upward");
  EXPECT_EQ(form.grid().txtRange.text, text);
  EXPECT_TRUE(services.messages.empty());
}

TEST_F(NoProfile, TheCommandsDoNothingAndDoNotFail) {
  const std::vector<std::pair<const char*, std::function<void()>>> commands = {
      {"All", [&] { form.cmdAll_Click(); }},
      {"Any Pair", [&] { form.cmdAnyPair_Click(); }},
      {"Any Suited", [&] { form.cmdAnySuited_Click(); }},
      {"Any Broadway", [&] { form.cmdAnyBroadway_Click(); }},
      {"Clear On", [&] { form.cmdClearOnBlocks_Click(); }},
      {"Clear Seen", [&] { form.cmdClearSeenBlocks_Click(); }},
      {"Clear All", [&] { form.cmdClearAllBlocks_Click(); }},
  };
  for (const auto& [name, run] : commands) {
    run();
    ExpectNothingChanged(name);
    EXPECT_EQ(form.grid().txtRange.text, text) << name;
  }
}

TEST_F(NoProfile, TheRangeWriterLeavesTheTextAlone) {
  form.grid().WriteRangePercent();
  EXPECT_EQ(form.grid().txtRange.text, text);
}

TEST_F(NoProfile, ATypedPercentMovesTheSliderButNotTheGrid) {
  TypeRange("10");
  EXPECT_EQ(form.grid().Slider1.value, 14);
  EXPECT_EQ(form.grid().txtRange.text, "9.8");
  ExpectNothingChanged("typed percent");
}

TEST_F(NoProfile, TheSliderChangesNoLayer) {
  form.grid().Slider1.value = 30;
  form.Slider1_MouseMove(kLeftButton);
  form.Slider1_KeyDown();
  form.tmrSliderMoving_Timer();
  form.Slider1_KeyUp();
  ExpectNothingChanged("slider");
}

TEST_F(NoProfile, AnOutOfRangeProfileIndexCountsAsNone) {
  form.profiles().currentIndex = 7;
  form.cmdAll_Click();
  form.PFHand_MouseUp(Block("QQ"), kLeftButton, 0);
  ExpectNothingChanged("stale index");
}

}  // namespace
}  // namespace quillet
