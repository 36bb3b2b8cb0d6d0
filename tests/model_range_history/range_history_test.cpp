// Undo and redo of the range on the window model: every kind of change of the On and Seen layers is one
// step, taken back and made again exactly, record for record.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "range/grid_colours.h"
#include "tests/storage/temp_folder.h"
#include "tests/support/recording_services.h"

namespace quillet {
namespace {

int Block(const char* name) {
  const int index = FindClassByName(name);
  EXPECT_GE(index, 0) << name;
  return index;
}

// What a step must bring back: every profile (both layers of each, record for record, and its range
// text), which one is current, and what the range boxes and the slider show.
struct RangeState {
  std::vector<PlayerProfile> profiles;
  int current = -1;
  std::string rangeText;
  std::string notation;
  int slider = 0;

  friend bool operator==(const RangeState&, const RangeState&) = default;
};

class RangeHistoryTest : public ::testing::Test {
 protected:
  RangeHistoryTest() {
    form.profiles().list.resize(2);
    for (PlayerProfile& p : form.profiles().list) InitProfile(p);
    form.profiles().list[0].name = "Generic";
    form.profiles().list[0].rangeText = "0.5";
    SetBlockWhole(form.profiles().list[0].rangeLayer[Block("AA")], false);
    form.profiles().list[1].name = "Villain";
    form.profiles().list[1].rangeText = "~1.4";
    SetBlockWhole(form.profiles().list[1].rangeLayer[Block("KQs")], true);
    SetBlockWhole(form.profiles().list[1].seenLayer[Block("22")], false);
    form.profiles().RefillPlayerList("Generic");
    form.profiles().currentIndex = 0;
    form.grid().Slider1.max = 146;
    form.grid().txtRange.text = "0.5";
    form.grid().WriteRangeNotation();
    form.StartRangeHistory();  // as at the end of start-up
  }

  RangeState State() const {
    return {form.profiles().list, form.profiles().currentIndex, form.grid().txtRange.text,
            form.grid().txtNotation.text, form.grid().Slider1.value};
  }

  // Every block shows the colour of its layers with nothing selected: the refresh chain ran after a step.
  void ExpectGridShowsTheLayers() {
    const PlayerProfile& p = *form.profiles().currentProfile();
    for (int i = 0; i < kClassCount; ++i) {
      EXPECT_FALSE(form.grid().selectedOn[i]) << i;
      EXPECT_FALSE(form.grid().selectedSeen[i]) << i;
      const BlockColourRule rule = ChooseBlockColourRule(false, false, p.rangeLayer[i], p.seenLayer[i]);
      EXPECT_EQ(form.grid().blockColour[i], BlockRuleColour(rule, form.scheme, form.grid().baseColour[i]))
          << i;
    }
  }

  void Click(const char* name, int button = kLeftButton, int shift = 0) {
    form.PFHand_MouseUp(Block(name), button, shift);
  }
  void Drag(std::initializer_list<int> positions) {
    for (const int p : positions) {
      form.grid().Slider1.value = p;
      form.Slider1_MouseMove(kLeftButton);
    }
    form.Slider1_MouseUp(kLeftButton, 0);
  }
  void TypePercent(const std::string& text) {
    form.grid().SetRangeText(text);
    form.txtRange_KeyUp(kKeyEnter);
  }
  void TypeNotation(const std::string& text) {
    form.grid().txtNotation.text = text;
    form.txtNotation_Change();
    form.txtNotation_KeyDown(kKeyEnter);
  }
  void PickProfile(const std::string& name) {
    form.profiles().cmbPlayer.text = name;
    form.cmbPlayer_Click();
  }
  void Cook(const std::string& hand, const std::string& board) {
    form.txtMyHand.text = hand;
    form.txtBoard.text = board;
    form.cmdCheckPossibleHands_Click();
  }
  int NodeStartingWith(const std::string& text) const {
    for (std::size_t i = 0; i < form.results().TV.nodes.size(); ++i) {
      if (form.results().TV.nodes[i].text.starts_with(text)) return static_cast<int>(i);
    }
    ADD_FAILURE() << "no node \"" << text << "\"";
    return -1;
  }

  RecordingServices services;
  Form1Model form{services};
};

TEST_F(RangeHistoryTest, TwentyMixedChangesAreUndoneOneByOneExactlyAndRedoneExactly) {
  const std::vector<std::pair<std::string, std::function<void()>>> changes = {
      {"left click", [&] { Click("AKs"); }},
      {"shift click", [&] { Click("QQ", kLeftButton, kShiftMask); }},
      {"right click", [&] { Click("72", kRightButton); }},
      {"ctrl click", [&] { Click("T9s", kLeftButton, kCtrlMask); }},
      {"alt click", [&] { Click("A5s", kLeftButton, kAltMask); }},
      {"slider drag",
       [&] {
         Drag({2, 5, 9, 14});
       }},
      {"suit cell", [&] { form.picSuit_Click(4); }},
      {"percentage", [&] { TypePercent("20"); }},
      {"any pair", [&] { form.cmdAnyPair_Click(); }},
      {"clear seen", [&] { form.cmdClearSeenBlocks_Click(); }},
      {"any suited", [&] { form.cmdAnySuited_Click(); }},
      {"clear on", [&] { form.cmdClearOnBlocks_Click(); }},
      {"notation", [&] { TypeNotation("QQ+, AKs, 76s, AhKd"); }},
      {"profile", [&] { PickProfile("Villain"); }},
      {"any broadway", [&] { form.cmdAnyBroadway_Click(); }},
      {"pasted notation",
       [&] {
         services.SetClipboardText("22-55, KQo");
         form.PFHand_KeyDown(kKeyV, kCtrlMask);
       }},
      {"add to range",
       [&] {
         Cook("AhKd", "Tc8h3s");
         form.results().TV.selected = NodeStartingWith("One pair");
         form.results().TV.selected = form.results().TV.nodes[form.results().TV.selected].children.front();
         const int group = form.results().TV.selected;
         form.results().TV.selected = form.results().TV.nodes[group].children.empty()
                                          ? group
                                          : form.results().TV.nodes[group].children.front();
         form.mnuAdd2Range_Click();
       }},
      {"all", [&] { form.cmdAll_Click(); }},
      {"keep only checked",
       [&] {
         form.options.checkBoxes = true;
         Cook("AhKd", "Tc8h3s");
         form.TV_NodeCheck(NodeStartingWith("Two pair"), true);
         form.mnuKeepOnlyChecked_Click();
       }},
      {"clear all", [&] { form.cmdClearAllBlocks_Click(); }},
  };
  ASSERT_EQ(changes.size(), 20u);

  std::vector<RangeState> states{State()};
  for (const auto& [what, change] : changes) {
    change();
    EXPECT_NE(State(), states.back()) << what << " changed nothing";
    states.push_back(State());
    EXPECT_EQ(form.rangeHistory.undoCount(), states.size() - 1) << what;
  }
  EXPECT_TRUE(services.messages.empty());

  for (std::size_t k = changes.size(); k-- > 0;) {
    form.grid().blockColour.fill(0x123456);
    ASSERT_TRUE(form.UndoRangeChange()) << "undo of " << changes[k].first;
    EXPECT_EQ(State(), states[k]) << "undo of " << changes[k].first;
    ExpectGridShowsTheLayers();
  }
  EXPECT_FALSE(form.UndoRangeChange());
  EXPECT_EQ(State(), states.front());

  for (std::size_t k = 0; k < changes.size(); ++k) {
    ASSERT_TRUE(form.RedoRangeChange()) << "redo of " << changes[k].first;
    EXPECT_EQ(State().profiles, states[k + 1].profiles) << "redo of " << changes[k].first;
    EXPECT_EQ(State().current, states[k + 1].current) << "redo of " << changes[k].first;
    EXPECT_EQ(State().notation, states[k + 1].notation) << "redo of " << changes[k].first;
  }
  EXPECT_FALSE(form.RedoRangeChange());
}

TEST_F(RangeHistoryTest, ASliderDragIsOneStepAndTheNextDragAnother) {
  const RangeState start = State();
  Drag({1, 2, 3, 4, 5, 6});
  const RangeState afterFirst = State();
  Drag({7, 8, 9});
  EXPECT_EQ(form.rangeHistory.undoCount(), 2u);
  ASSERT_TRUE(form.UndoRangeChange());
  EXPECT_EQ(State(), afterFirst);
  ASSERT_TRUE(form.UndoRangeChange());
  EXPECT_EQ(State(), start);
  EXPECT_EQ(form.grid().Slider1.value, 0);
}

TEST_F(RangeHistoryTest, AKeyHeldOnTheSliderIsOneStep) {
  const RangeState start = State();
  form.Slider1_KeyDown();
  for (int p = 1; p <= 5; ++p) {
    form.grid().Slider1.value = p;
    form.tmrSliderMoving_Timer();
  }
  form.Slider1_KeyUp();
  EXPECT_EQ(form.rangeHistory.undoCount(), 1u);
  ASSERT_TRUE(form.UndoRangeChange());
  EXPECT_EQ(State(), start);
}

TEST_F(RangeHistoryTest, ANewChangeDropsTheStepsThatCouldBeMadeAgain) {
  Click("AKs");
  Click("KK");
  ASSERT_TRUE(form.UndoRangeChange());
  EXPECT_EQ(form.rangeHistory.redoCount(), 1u);
  Click("QQ");
  EXPECT_EQ(form.rangeHistory.redoCount(), 0u);
  EXPECT_FALSE(form.RedoRangeChange());
  EXPECT_EQ(form.rangeHistory.undoCount(), 2u);
}

TEST_F(RangeHistoryTest, AHundredStepsCanBeUndoneAndTheOldestGoBeyondThat) {
  static_assert(kRangeHistoryDepth >= 50);
  std::vector<RangeState> states{State()};
  for (int k = 0; k < 130; ++k) {
    Click(HandClasses()[k].name.c_str());
    states.push_back(State());
  }
  for (std::size_t k = 0; k < kRangeHistoryDepth; ++k) {
    ASSERT_TRUE(form.UndoRangeChange()) << k;
    EXPECT_EQ(State().profiles, states[states.size() - 2 - k].profiles) << k;
  }
  EXPECT_FALSE(form.UndoRangeChange());
  EXPECT_EQ(State().profiles, states[130 - kRangeHistoryDepth].profiles);
}

TEST_F(RangeHistoryTest, WhatLeavesTheLayersAsTheyWereIsNoStep) {
  Click("AA", kLeftButton, kCtrlMask | kAltMask);  // just to see
  form.grid().SetRangeText("12");                  // typed, not entered
  form.txtRange_KeyUp('2');
  form.cmdClearSeenBlocks_Click();  // the Seen layer is empty already
  Cook("AhKd", "Tc8h3s");
  form.results().TV.selected = 0;
  form.mnuCopyToClipboard_Click();
  form.mnuSwitchColourScheme_Click();
  EXPECT_EQ(form.rangeHistory.undoCount(), 0u);
  EXPECT_FALSE(form.UndoRangeChange());
}

TEST_F(RangeHistoryTest, UndoingAProfileSelectionSelectsThePreviousProfileWithItsLayers) {
  Click("AKs");
  const RangeState generic = State();
  PickProfile("Villain");
  ASSERT_EQ(form.profiles().currentIndex, 1);
  const RangeState villain = State();
  ASSERT_TRUE(form.UndoRangeChange());
  EXPECT_EQ(State(), generic);
  EXPECT_EQ(form.profiles().cmbPlayer.text, "Generic");
  EXPECT_EQ(form.profiles().cmbPlayer.listIndex, 0);
  EXPECT_TRUE(form.label(CommandLabel::lblDelete).visible);
  EXPECT_FALSE(form.label(CommandLabel::lblSave).visible);
  ASSERT_TRUE(form.RedoRangeChange());
  EXPECT_EQ(State(), villain);
  EXPECT_EQ(form.profiles().cmbPlayer.text, "Villain");
}

TEST_F(RangeHistoryTest, ANameTypedOnTheWayToAnotherProfileIsNoStep) {
  const RangeState generic = State();
  for (const std::string typed : {"V", "Vi", "Villain"}) {
    form.profiles().cmbPlayer.text = typed;
    form.cmbPlayer_KeyUp(typed.back());
  }
  ASSERT_EQ(form.profiles().currentIndex, 1);
  EXPECT_EQ(form.rangeHistory.undoCount(), 1u);
  ASSERT_TRUE(form.UndoRangeChange());
  EXPECT_EQ(State(), generic);
}

TEST_F(RangeHistoryTest, SavingANewProfileIsAStepBackToThePreviousOne) {
  const RangeState generic = State();
  form.profiles().cmbPlayer.text = "Fish";
  form.cmbPlayer_KeyUp('h');
  form.cmbPlayer_KeyUp(kKeyEnter);  // saves "Fish" and makes it current
  ASSERT_EQ(form.profiles().currentProfile()->name, "Fish");
  ASSERT_TRUE(form.UndoRangeChange());
  EXPECT_EQ(form.profiles().currentIndex, 0);
  EXPECT_EQ(State().profiles[0], generic.profiles[0]);
  ASSERT_TRUE(form.RedoRangeChange());
  EXPECT_EQ(form.profiles().currentProfile()->name, "Fish");
}

TEST_F(RangeHistoryTest, DeletingAProfileStartsTheHistoryAnew) {
  Click("AKs");
  PickProfile("Villain");
  form.lblDelete_Click();
  EXPECT_EQ(form.profiles().currentProfile()->name, "Generic");
  EXPECT_FALSE(form.UndoRangeChange());
  Click("KK");
  ASSERT_TRUE(form.UndoRangeChange());
  EXPECT_EQ(form.profiles().currentProfile()->name, "Generic");
}

TEST_F(RangeHistoryTest, TheWindowKeysUndoAndRedo) {
  const RangeState start = State();
  Click("AKs");
  const RangeState clicked = State();
  form.Form_KeyDown(kKeyZ, 0);  // Z alone is no command
  EXPECT_EQ(State(), clicked);
  form.Form_KeyDown(kKeyZ, kCtrlMask);
  EXPECT_EQ(State(), start);
  form.Form_KeyDown(kKeyZ, kCtrlMask | kShiftMask);
  EXPECT_EQ(State().profiles, clicked.profiles);
  form.Form_KeyDown(kKeyZ, kCtrlMask);
  form.Form_KeyDown(kKeyY, kCtrlMask);
  EXPECT_EQ(State().profiles, clicked.profiles);
}

TEST_F(RangeHistoryTest, AStepBackRunsTheRefreshChainAndArmsThePreflopEquity) {
  form.options.autoPFEquityCalc = true;
  Click("AKs");
  Click("QQ", kLeftButton, kShiftMask);
  form.tmrCalcEquity.Disable();
  const uint64_t armed = form.tmrCalcEquity.armCount;
  form.grid().txtNotation.text = "stale";
  form.grid().blockColour.fill(0x123456);
  ASSERT_TRUE(form.UndoRangeChange());
  EXPECT_TRUE(form.tmrCalcEquity.enabled);
  EXPECT_GT(form.tmrCalcEquity.armCount, armed);
  EXPECT_EQ(form.grid().txtNotation.text, "AA, AKs");  // the aces of the start, and the first click
  ExpectGridShowsTheLayers();
  EXPECT_FALSE(form.grid().matrixCellVisible[0]);  // nothing selected: the suit matrix is hidden
}

TEST_F(RangeHistoryTest, WithNoProfileCurrentTheStepBackSelectsTheProfileOfTheStep) {
  Click("AKs");
  const RangeState clicked = State();
  form.profiles().cmbPlayer.text = "Nob";
  form.cmbPlayer_KeyUp('b');  // a new name: no profile current
  ASSERT_EQ(form.profiles().currentProfile(), nullptr);
  ASSERT_TRUE(form.UndoRangeChange());
  EXPECT_EQ(form.profiles().currentIndex, 0);
  EXPECT_EQ(form.profiles().cmbPlayer.text, "Generic");
  EXPECT_EQ(form.profiles().list[0].rangeLayer[Block("AKs")].count, 0);
  ASSERT_TRUE(form.RedoRangeChange());
  EXPECT_EQ(State().profiles, clicked.profiles);
}

TEST(RangeHistoryFile, ChangesUndoneLeaveTheProfileFileByteForByte) {
  testing::TempFolder dir;
  const auto run = [&](bool changeAndUndo) {
    RecordingServices services;
    Form1Model form(services);
    if (!form.Form_Load(dir.path())) return std::string("no start");
    if (changeAndUndo) {
      form.PFHand_MouseUp(Block("AKs"), kLeftButton, 0);
      form.PFHand_MouseUp(Block("72"), kRightButton, 0);
      form.cmdAnyPair_Click();
      form.grid().Slider1.value = 20;
      form.Slider1_MouseMove(kLeftButton);
      form.Slider1_MouseUp(kLeftButton, 0);
      while (form.UndoRangeChange()) {
      }
    }
    form.Form_QueryUnload();
    return testing::ReadBytes(dir / "Player_Profiles.ini");
  };
  const std::string first = run(false);  // the first start writes the file of a fresh profile
  const std::string untouched = run(false);
  const std::string undone = run(true);
  EXPECT_EQ(first, untouched);
  EXPECT_EQ(undone, untouched);
  EXPECT_FALSE(untouched.empty());
}

}  // namespace
}  // namespace quillet
