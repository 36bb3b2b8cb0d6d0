#include <gtest/gtest.h>

#include "app/model/form1_model.h"
#include "app/model/web_addresses.h"
#include "cards/hand_class.h"
#include "storage/profile_file.h"
#include "tests/model_window/window_test_fixture.h"

namespace quillet {
namespace {

using testing::MakeProfile;
using testing::ReadBytes;

class ProfileBox : public testing::WindowModelTest {};

TEST_F(ProfileBox, TypingAFifteenCharacterNewNameShowsSaveAndASixteenthCharacterHidesIt) {
  ASSERT_TRUE(Start());
  TypePlayer("ABCDEFGHIJKLMNO");
  EXPECT_TRUE(SaveVisible());
  EXPECT_FALSE(DeleteVisible());
  EXPECT_EQ(model.profiles().cmbPlayer.foreColour, 0x0000FFu);
  TypePlayer("ABCDEFGHIJKLMNOP");
  EXPECT_FALSE(SaveVisible());
  EXPECT_FALSE(DeleteVisible());
  EXPECT_EQ(model.profiles().currentProfile(), nullptr);
  EXPECT_EQ(model.profiles().cmbPlayer.foreColour, 0x0000FFu);
}

TEST_F(ProfileBox, ANameIsCountedInCharactersNotBytes) {
  ASSERT_TRUE(Start());
  TypePlayer(
      "\xC3\xA9"
      "BCDEFGHIJKLMNO");  // 15 characters, 16 bytes
  EXPECT_TRUE(SaveVisible());
}

TEST_F(ProfileBox, ASixteenCharacterNameCannotBeSavedWithEnter) {
  ASSERT_TRUE(Start());
  TypePlayer("ABCDEFGHIJKLMNOP", kKeyEnter);
  EXPECT_EQ(model.profiles().cmbPlayer.items, std::vector<std::string>{"Generic"});
  EXPECT_EQ(model.profiles().currentProfile(), nullptr);
}

TEST_F(ProfileBox, AnEmptyBoxSelectsNoProfileAndHidesBothLabels) {
  ASSERT_TRUE(Start());
  TypePlayer("");
  EXPECT_EQ(model.profiles().currentProfile(), nullptr);
  EXPECT_FALSE(SaveVisible());
  EXPECT_FALSE(DeleteVisible());
}

TEST_F(ProfileBox, TypingAnExistingNameExactlySelectsItInTheWindowTextColour) {
  WriteProfiles({MakeProfile("Villain", {"AA"}, "0.5"), MakeProfile("Fish", {"KK"}, "~0.5")});
  ASSERT_TRUE(Start());
  TypePlayer("Fis");
  EXPECT_EQ(model.profiles().currentProfile(), nullptr);
  EXPECT_EQ(model.profiles().cmbPlayer.foreColour, 0x0000FFu);
  TypePlayer("Fish");
  ASSERT_NE(model.profiles().currentProfile(), nullptr);
  EXPECT_EQ(model.profiles().currentProfile()->name, "Fish");
  EXPECT_EQ(model.profiles().cmbPlayer.foreColour, kWindowTextColour);
  EXPECT_TRUE(DeleteVisible());
  EXPECT_FALSE(SaveVisible());
  EXPECT_EQ(model.grid().txtRange.text, "~0.5");
  EXPECT_EQ(model.grid().blockColour[FindClassByName("KK")], 0x00FFFFu);
}

TEST_F(ProfileBox, CaseCountsInAProfileName) {
  ASSERT_TRUE(Start());
  TypePlayer("generic");
  EXPECT_EQ(model.profiles().currentProfile(), nullptr);
  EXPECT_TRUE(SaveVisible());
}

TEST_F(ProfileBox, EnterOnANewNameSavesItAsAFreshProfileAndMakesItCurrent) {
  WriteProfiles({MakeProfile("Villain", {"AA"}, "0.5")});
  ASSERT_TRUE(Start());
  model.PFHand_MouseUp(FindClassByName("KK"), kLeftButton, 0);
  TypePlayer("Reg", kKeyEnter);
  ASSERT_NE(model.profiles().currentProfile(), nullptr);
  EXPECT_EQ(model.profiles().currentProfile()->name, "Reg");
  EXPECT_EQ(model.profiles().cmbPlayer.items, (std::vector<std::string>{"Villain", "Reg"}));
  EXPECT_EQ(model.profiles().cmbPlayer.text, "Reg");
  EXPECT_EQ(model.profiles().cmbPlayer.foreColour, kWindowTextColour);
  EXPECT_TRUE(DeleteVisible());
  EXPECT_FALSE(SaveVisible());
  // A fresh profile: nothing in its layers, its empty range text shown as it is, nothing selected.
  EXPECT_EQ(model.grid().txtRange.text, "");
  for (int i = 0; i < kClassCount; ++i) {
    EXPECT_EQ(model.profiles().currentProfile()->rangeLayer[i].count, 0);
    EXPECT_FALSE(model.grid().selectedOn[i]);
    EXPECT_EQ(model.grid().blockColour[i], model.grid().baseColour[i]);
  }
  // The profile it came from is untouched.
  EXPECT_EQ(model.profiles().list[0].rangeLayer[FindClassByName("KK")].count, 6);
}

TEST_F(ProfileBox, EnterOnAnExistingNameAddsNoProfile) {
  ASSERT_TRUE(Start());
  TypePlayer("Generic", kKeyEnter);
  EXPECT_EQ(model.profiles().cmbPlayer.items, std::vector<std::string>{"Generic"});
  EXPECT_EQ(model.profiles().list.size(), 1u);
}

TEST_F(ProfileBox, SaveTrimsTheNameAndTakesAnExistingProfileRatherThanDoublingIt) {
  ASSERT_TRUE(Start());
  TypePlayer("  Reg ");
  EXPECT_TRUE(SaveVisible());
  model.lblSave_Click();
  EXPECT_EQ(model.profiles().cmbPlayer.items, (std::vector<std::string>{"Generic", "Reg"}));
  EXPECT_EQ(model.profiles().currentProfile()->name, "Reg");
  TypePlayer("Generic ");
  EXPECT_TRUE(SaveVisible());
  model.lblSave_Click();
  EXPECT_EQ(model.profiles().cmbPlayer.items, (std::vector<std::string>{"Generic", "Reg"}));
  EXPECT_EQ(model.profiles().currentProfile()->name, "Generic");
  EXPECT_EQ(model.profiles().cmbPlayer.text, "Generic");
}

TEST_F(ProfileBox, ASavedProfileTakesTheFirstFreeSlotAndIsWrittenAtClosing) {
  WriteProfiles({MakeProfile("A", {}, ""), MakeProfile("B", {}, "")});
  ASSERT_TRUE(Start());
  model.lblDelete_Click();  // "A" goes: its slot is free
  TypePlayer("C", kKeyEnter);
  EXPECT_EQ(model.profiles().list[0].name, "C");
  EXPECT_EQ(model.profiles().cmbPlayer.items, (std::vector<std::string>{"C", "B"}));
  model.Form_QueryUnload();
  EXPECT_EQ(ReadBytes(ProfileFile()),
            EncodeProfileFile({MakeProfile("C", {}, ""), MakeProfile("B", {}, "")}));
}

TEST_F(ProfileBox, ANameTheFileCannotHoldIsRefusedWithQuilletClisMessageAndNothingIsSaved) {
  ASSERT_TRUE(Start());
  // Both would be written as "A?": the second would be unreachable after a restart.
  for (const std::string name : {"A\xE4\xB8\xAD", "A\xE6\x96\x87"}) {
    TypePlayer(name, kKeyEnter);
    ASSERT_EQ(services.messages.size(), 1u) << name;
    EXPECT_EQ(services.messages[0].text, "\"" + name + "\" has characters the profile file cannot hold");
    services.messages.clear();
    EXPECT_EQ(model.profiles().cmbPlayer.items, std::vector<std::string>{"Generic"});
    EXPECT_EQ(model.profiles().currentProfile(), nullptr);
    EXPECT_TRUE(SaveVisible());  // the name stays in the box, in red, to be changed
  }
  model.Form_QueryUnload();
  const ProfileFileContents saved = ReadProfileFile(ProfileFile());
  ASSERT_EQ(saved.profiles.size(), 1u);
  EXPECT_EQ(saved.profiles[0].name, "Generic");
}

TEST_F(ProfileBox, ANameOfCodePageCharactersOtherThanAsciiIsSaved) {
  ASSERT_TRUE(Start());
  TypePlayer("Jos\xC3\xA9 \xE2\x82\xAC", kKeyEnter);  // "José €": both are in the file's code page
  EXPECT_TRUE(services.messages.empty());
  EXPECT_EQ(model.profiles().cmbPlayer.items,
            (std::vector<std::string>{"Generic", "Jos\xC3\xA9 \xE2\x82\xAC"}));
}

TEST_F(ProfileBox, PickingAProfileWhoseStoredRangeTextIsEmptySetsTheRangeToAaAndTheTextToHalfAPercent) {
  WriteProfiles({MakeProfile("Villain", {"KK"}, "0.9"), MakeProfile("Fish", {}, "")});
  ASSERT_TRUE(Start());
  PickPlayer(1);
  ASSERT_NE(model.profiles().currentProfile(), nullptr);
  EXPECT_EQ(model.profiles().currentProfile()->name, "Fish");
  EXPECT_EQ(model.grid().txtRange.text, "0.5");
  EXPECT_EQ(model.profiles().currentProfile()->rangeText, "0.5");
  EXPECT_EQ(model.grid().Slider1.value, 0);
  const int aa = FindClassByName("AA");
  for (int i = 0; i < kClassCount; ++i) {
    EXPECT_EQ(model.profiles().currentProfile()->rangeLayer[i].count, i == aa ? 6 : 0)
        << HandClasses()[i].name;
    EXPECT_EQ(model.grid().selectedOn[i], i == aa);
  }
}

TEST_F(ProfileBox, PickingAProfileWithAStoredRangeTextShowsItAndKeepsItsLayers) {
  WriteProfiles({MakeProfile("Villain", {"KK"}, "0.9"), MakeProfile("Fish", {"QQ", "JJ"}, "~0.9")});
  ASSERT_TRUE(Start());
  model.PFHand_MouseUp(FindClassByName("AKs"), kLeftButton, 0);
  PickPlayer(1);
  EXPECT_EQ(model.grid().txtRange.text, "~0.9");
  EXPECT_EQ(model.profiles().currentProfile()->rangeLayer[FindClassByName("QQ")].count, 6);
  EXPECT_EQ(model.profiles().currentProfile()->rangeLayer[FindClassByName("AA")].count, 0);
  // The selection made on the other profile is dropped.
  EXPECT_FALSE(model.grid().selectedOn[FindClassByName("AKs")]);
  EXPECT_EQ(model.grid().blockColour[FindClassByName("AKs")], 0x8080FFu);
}

TEST_F(ProfileBox, AClickWithAnUnknownNameShowsThePromptAndSelectsNothing) {
  ASSERT_TRUE(Start());
  model.profiles().cmbPlayer.listIndex = -1;
  model.profiles().cmbPlayer.text = "Nobody";
  model.cmbPlayer_Click();
  EXPECT_EQ(model.profiles().cmbPlayer.text, "Type new player name / Select existing player");
  EXPECT_EQ(model.profiles().cmbPlayer.listIndex, -1);
  EXPECT_EQ(model.profiles().currentProfile(), nullptr);
}

TEST_F(ProfileBox, DeletingTheOnlyProfileLeavesGenericSelected) {
  WriteProfiles({MakeProfile("Villain", {"AA"}, "0.5")});
  ASSERT_TRUE(Start());
  model.lblDelete_Click();
  ASSERT_NE(model.profiles().currentProfile(), nullptr);
  EXPECT_EQ(model.profiles().currentProfile()->name, "Generic");
  EXPECT_EQ(model.profiles().cmbPlayer.items, std::vector<std::string>{"Generic"});
  EXPECT_EQ(model.profiles().cmbPlayer.text, "Generic");
  EXPECT_TRUE(DeleteVisible());
  EXPECT_EQ(model.profiles().currentProfile()->rangeLayer[FindClassByName("AA")].count, 0);
  EXPECT_EQ(model.grid().txtRange.text, "");
}

TEST_F(ProfileBox, DeletingGenericWhenItIsTheOnlyProfileGivesAFreshGeneric) {
  ASSERT_TRUE(Start());
  model.PFHand_MouseUp(FindClassByName("AA"), kLeftButton, 0);
  model.lblDelete_Click();
  ASSERT_NE(model.profiles().currentProfile(), nullptr);
  EXPECT_EQ(model.profiles().currentProfile()->name, "Generic");
  EXPECT_EQ(model.profiles().currentProfile()->rangeLayer[FindClassByName("AA")].count, 0);
  EXPECT_EQ(model.grid().blockColour[FindClassByName("AA")], 0xC0FFC0u);
}

TEST_F(ProfileBox, DeletingOneOfTwoProfilesShowsTheFirstRemainingOneWithoutAQuestion) {
  WriteProfiles({MakeProfile("Villain", {"AA"}, "0.5"), MakeProfile("Fish", {"KK"}, "~0.5")});
  ASSERT_TRUE(Start());
  model.lblDelete_Click();
  EXPECT_EQ(services.questions.size(), 1u);  // the first-run welcome only
  ASSERT_NE(model.profiles().currentProfile(), nullptr);
  EXPECT_EQ(model.profiles().currentProfile()->name, "Fish");
  EXPECT_EQ(model.profiles().cmbPlayer.items, std::vector<std::string>{"Fish"});
  EXPECT_EQ(model.grid().txtRange.text, "~0.5");
  EXPECT_EQ(model.grid().blockColour[FindClassByName("KK")], 0x00FFFFu);
  EXPECT_EQ(model.grid().blockColour[FindClassByName("AA")], 0xC0FFC0u);
}

TEST_F(ProfileBox, WithNoProfileCurrentTheGridTheSliderAndTheCommandsChangeNothingAndCookSeesAnEmptyRange) {
  WriteProfiles({MakeProfile("Villain", {"AA"}, "0.5")});
  ASSERT_TRUE(Start());
  TypePlayer("Nobody");
  ASSERT_EQ(model.profiles().currentProfile(), nullptr);
  const auto before = model.grid().blockColour;
  model.PFHand_MouseUp(FindClassByName("KK"), kLeftButton, 0);
  model.cmdAll_Click();
  model.cmdClearAllBlocks_Click();
  model.grid().Slider1.value = 10;
  model.Slider1_MouseMove(kLeftButton);
  EXPECT_EQ(model.grid().blockColour, before);
  EXPECT_EQ(model.profiles().list[0].rangeLayer[FindClassByName("AA")].count, 6);
  EXPECT_EQ(model.profiles().list[0].rangeLayer[FindClassByName("KK")].count, 0);
  model.cmdCheckPossibleHands_Click();
  EXPECT_EQ(model.results().lblCheckPossibleHands.substr(0, 28), "0 Hands in Opponent's Range\r");
}

class WindowLabels : public testing::WindowModelTest {};

TEST_F(WindowLabels, OptionsPopsUpTheOptionsMenu) {
  ASSERT_TRUE(Start());
  model.lblOptions_Click();
  EXPECT_EQ(services.popups, std::vector<PopupMenuId>{PopupMenuId::Options});
}

TEST_F(WindowLabels, HelpOpensTheOnlineGuideAndVisitWebsiteTheHomePage) {
  ASSERT_TRUE(Start());
  services.opened.clear();
  model.lblHelp_Click();
  model.lblWebsite_Click();
  ASSERT_EQ(services.opened.size(), 2u);
  EXPECT_TRUE(services.opened[0].ends_with("/free_online_poker_quillet_guide.php"));
  EXPECT_EQ(services.opened[1], std::string(kHomePageAddress));
  EXPECT_NE(services.opened[0], services.opened[1]);
}

TEST_F(WindowLabels, TheCommandLabelsCarryTheirCaptions) {
  EXPECT_EQ(model.label(CommandLabel::cmdCheckPossibleHands).caption, "Cook");
  EXPECT_EQ(model.label(CommandLabel::cmdCalcEquity).caption, "Calc Equity");
  EXPECT_EQ(model.label(CommandLabel::lblOptions).caption, "Options");
  EXPECT_EQ(model.label(CommandLabel::lblHelp).caption, "Help");
  EXPECT_EQ(model.label(CommandLabel::lblWebsite).caption, "Visit Website");
  EXPECT_EQ(model.label(CommandLabel::lblSave).caption, "Save");
  EXPECT_EQ(model.label(CommandLabel::lblDelete).caption, "Delete");
}

class WindowSize : public testing::WindowModelTest {
 protected:
  void ResizeTo(int width, int height) {
    model.geometry.width = width;
    model.geometry.height = height;
    model.Form_Resize();
  }
};

TEST_F(WindowSize, AWiderWindowSnapsBackToTheFixedWidth) {
  model.geometry.treeTop = 2000;
  ResizeTo(20000, 9000);
  EXPECT_EQ(model.geometry.width, 13545);
  EXPECT_EQ(model.geometry.height, 9000);
  ResizeTo(10000, 9000);
  EXPECT_EQ(model.geometry.width, 13545);
}

TEST_F(WindowSize, TheHeightGrowsFreelyButNotBelowTheMinimum) {
  model.geometry.treeTop = 2000;
  ResizeTo(13545, 15000);
  EXPECT_EQ(model.geometry.height, 15000);
  ResizeTo(13545, 8009);
  EXPECT_EQ(model.geometry.height, 8010);
  ResizeTo(13545, 100);
  EXPECT_EQ(model.geometry.height, 8010);
}

TEST_F(WindowSize, TheTreeFillsTheWindowDownwards) {
  model.geometry.treeTop = 2000;
  ResizeTo(13545, 15000);
  EXPECT_EQ(model.geometry.treeHeight, 15000 - 2000 - 777);
  ResizeTo(13545, 5000);
  EXPECT_EQ(model.geometry.treeHeight, 8010 - 2000 - 777);
}

TEST_F(WindowSize, AMinimisedOrMaximisedWindowIsLeftAsItIs) {
  model.geometry.treeTop = 2000;
  model.geometry.treeHeight = 123;
  model.geometry.normalState = false;
  ResizeTo(30000, 100);
  EXPECT_EQ(model.geometry.width, 30000);
  EXPECT_EQ(model.geometry.height, 100);
  EXPECT_EQ(model.geometry.treeHeight, 123);
}

class OptionsMenu : public testing::WindowModelTest {};

TEST_F(OptionsMenu, EachDisplayOptionFlipsItsTickAndBackAgain) {
  ASSERT_TRUE(Start());
  const MenuOptions first;
  model.mnuSimplifyOutput_Click();
  model.mnuHideEmptyCats_Click();
  model.mnuCategoryIcons_Click();
  model.mnuWinLoseIcons_Click();
  EXPECT_EQ(model.options.simplifyOutput, !first.simplifyOutput);
  EXPECT_EQ(model.options.hideEmptyCats, !first.hideEmptyCats);
  EXPECT_EQ(model.options.categoryIcons, !first.categoryIcons);
  EXPECT_EQ(model.options.winLoseIcons, !first.winLoseIcons);
  model.mnuSimplifyOutput_Click();
  model.mnuHideEmptyCats_Click();
  model.mnuCategoryIcons_Click();
  model.mnuWinLoseIcons_Click();
  EXPECT_EQ(model.options.simplifyOutput, first.simplifyOutput);
  EXPECT_EQ(model.options.hideEmptyCats, first.hideEmptyCats);
  EXPECT_EQ(model.options.categoryIcons, first.categoryIcons);
  EXPECT_EQ(model.options.winLoseIcons, first.winLoseIcons);
}

TEST_F(OptionsMenu, TheFirstStartTicksAreSimplifyOutputAndHideEmptyCategoriesOnly) {
  ASSERT_TRUE(Start());
  EXPECT_TRUE(model.options.simplifyOutput);
  EXPECT_TRUE(model.options.hideEmptyCats);
  EXPECT_FALSE(model.options.simplifyFurther);
  EXPECT_FALSE(model.options.categoryIcons);
  EXPECT_FALSE(model.options.winLoseIcons);
  EXPECT_FALSE(model.options.calcEquityOnCook);
  EXPECT_FALSE(model.options.autoPFEquityCalc);
}

TEST_F(OptionsMenu, SimplifyFurtherFlipsItsTickAndCooksAgain) {
  ASSERT_TRUE(Start());
  model.txtBoard.text = "Tc8h3s";
  model.PFHand_MouseUp(FindClassByName("AA"), kLeftButton, 0);
  EXPECT_EQ(model.results().lblCheckPossibleHands, "");
  model.mnuSimplifyFurther_Click();
  EXPECT_TRUE(model.options.simplifyFurther);
  EXPECT_EQ(model.results().lblCheckPossibleHands,
            "6 Hands in Opponent's Range\r\n6 Possible Hands\r\n6 Hands in categories");
}

TEST_F(OptionsMenu, TheSchemeSwitchCaptionNamesTheOtherScheme) {
  ASSERT_TRUE(Start());
  model.mnuSwitchColourScheme_Click();
  EXPECT_EQ(model.mnuSwitchColourSchemeCaption, "Switch to Default Colour Scheme");
  model.mnuSwitchColourScheme_Click();
  EXPECT_EQ(model.mnuSwitchColourSchemeCaption, "Switch to New Colour Scheme");
}

TEST(ToggleMenuCheck, FlipsTheTick) {
  bool tick = false;
  Form1Model::ToggleMenuCheck(tick);
  EXPECT_TRUE(tick);
  Form1Model::ToggleMenuCheck(tick);
  EXPECT_FALSE(tick);
}

}  // namespace
}  // namespace quillet
