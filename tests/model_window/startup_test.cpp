#include <gtest/gtest.h>

#include "app/model/form1_model.h"
#include "app/model/web_addresses.h"
#include "cards/hand_class.h"
#include "tests/model_window/window_test_fixture.h"
#include "tests/support/recording_services.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;
using testing::MakeProfile;
using testing::ReadBytes;
using testing::WriteBytes;

class StartUp : public testing::WindowModelTest {};

// The default scheme's three base colours, by kind.
Colour DefaultBase(int32_t kind) {
  switch (kind) {
    case kKindPair:
      return 0xC0FFC0;
    case kKindSuited:
      return 0x8080FF;
    default:
      return 0xD5DBA8;
  }
}

TEST_F(StartUp, AFirstStartWithNoFilesComesUpWithTheDefaultSchemeGenericEmptyBoxesAndAnEmptyGrid) {
  ASSERT_TRUE(Start());
  EXPECT_TRUE(model.colourSchemeDefault);
  EXPECT_EQ(model.mnuSwitchColourSchemeCaption, "Switch to New Colour Scheme");
  ASSERT_NE(model.profiles().currentProfile(), nullptr);
  EXPECT_EQ(model.profiles().currentProfile()->name, "Generic");
  EXPECT_EQ(model.profiles().cmbPlayer.text, "Generic");
  EXPECT_EQ(model.profiles().cmbPlayer.items, std::vector<std::string>{"Generic"});
  EXPECT_TRUE(DeleteVisible());
  EXPECT_FALSE(SaveVisible());
  EXPECT_EQ(model.txtMyHand.text, "");
  EXPECT_EQ(model.txtBoard.text, "");
  EXPECT_EQ(model.grid().txtRange.text, "");
  for (int i = 0; i < kClassCount; ++i) {
    EXPECT_EQ(model.grid().blockColour[i], DefaultBase(HandClasses()[i].kind)) << HandClasses()[i].name;
    EXPECT_FALSE(model.grid().selectedOn[i]);
    EXPECT_FALSE(model.grid().selectedSeen[i]);
    EXPECT_EQ(model.profiles().currentProfile()->rangeLayer[i].count, 0);
    EXPECT_EQ(model.profiles().currentProfile()->seenLayer[i].count, 0);
  }
}

TEST_F(StartUp, AFirstStartAsksTheWelcomeQuestionAndYesOpensTheGuide) {
  services.yesNoAnswers.push_back(true);
  ASSERT_TRUE(model.Form_Load(dir.path()));
  ASSERT_EQ(services.questions.size(), 1u);
  EXPECT_EQ(services.questions[0].title, "Welcome to Poker Quillet!");
  EXPECT_EQ(services.opened, std::vector<std::string>{std::string(kOnlineGuideAddress)});
}

TEST_F(StartUp, TheSliderEndsAtTheLastStepOfTheOrder) {
  ASSERT_TRUE(Start());
  EXPECT_EQ(model.grid().Slider1.max, 146);
  EXPECT_EQ(model.grid().Slider1.value, 0);
}

TEST_F(StartUp, TheFirstNamedProfileIsShownWithItsStoredRangeText) {
  WriteProfiles({MakeProfile("Villain", {"AA", "AKs"}, "~0.8"), MakeProfile("Fish", {"22"}, "0.5")});
  ASSERT_TRUE(Start());
  ASSERT_NE(model.profiles().currentProfile(), nullptr);
  EXPECT_EQ(model.profiles().currentProfile()->name, "Villain");
  EXPECT_EQ(model.profiles().cmbPlayer.text, "Villain");
  EXPECT_EQ(model.profiles().cmbPlayer.listIndex, 0);
  EXPECT_EQ(model.grid().txtRange.text, "~0.8");
  // The On layer shows whole blocks in the On-layer colour; nothing is selected.
  EXPECT_EQ(model.grid().blockColour[FindClassByName("AA")], 0x00FFFFu);
  EXPECT_EQ(model.grid().blockColour[FindClassByName("AKs")], 0x00FFFFu);
  EXPECT_EQ(model.grid().blockColour[FindClassByName("KK")], 0xC0FFC0u);
  EXPECT_EQ(model.grid().blockColour[FindClassByName("22")], 0xC0FFC0u);
}

TEST_F(StartUp, AStoredEmptyRangeTextIsShownEmptyWithoutPuttingAaIntoTheRange) {
  WriteProfiles({MakeProfile("Villain", {}, "")});
  ASSERT_TRUE(Start());
  EXPECT_EQ(model.grid().txtRange.text, "");
  EXPECT_EQ(model.profiles().currentProfile()->rangeLayer[FindClassByName("AA")].count, 0);
  EXPECT_FALSE(model.grid().selectedOn[FindClassByName("AA")]);
}

TEST_F(StartUp, TheCardTextsOfThePreferencesAreColouredBySuit) {
  WritePrefs("txtMyHand|AhKd\r\ntxtBoard|Tc8s3h\r\n");
  ASSERT_TRUE(Start());
  EXPECT_EQ(model.txtMyHand.text, "AhKd");
  EXPECT_EQ(model.txtMyHand.charColours, (std::vector<Colour>{0x0000FF, 0x0000FF, 0xFF0000, 0xFF0000}));
  EXPECT_EQ(model.txtBoard.charColours, (std::vector<Colour>{0x00C000, 0x00C000, kWindowTextColour,
                                                             kWindowTextColour, 0x0000FF, 0x0000FF}));
}

TEST_F(StartUp, ASavedNewSchemeIsRestoredOnTheGridAndTheMenuCaption) {
  WritePrefs("ColourSchemeDefault|False\r\n");
  ASSERT_TRUE(Start());
  EXPECT_FALSE(model.colourSchemeDefault);
  EXPECT_EQ(model.mnuSwitchColourSchemeCaption, "Switch to Default Colour Scheme");
  EXPECT_EQ(model.grid().blockColour[FindClassByName("AA")], 0xC0C0C0u);
  EXPECT_EQ(model.grid().blockColour[FindClassByName("AKs")], 0xA2A2A2u);
  EXPECT_EQ(model.grid().blockColour[FindClassByName("AK")], 0x808080u);
}

TEST_F(StartUp, TheEquityReadOutsAreBlankAndNoTimerRunsAfterStartUp) {
  WritePrefs("mnuAutoPFEquityCalc|True\r\ntxtMyHand|AhAd\r\n");
  WriteProfiles({MakeProfile("Villain", {"KK"}, "0.9")});
  ASSERT_TRUE(Start());
  EXPECT_EQ(model.results().lblMyEquity.caption, "");
  EXPECT_FALSE(model.results().lblMyEquity.opaque);
  EXPECT_EQ(model.results().lbloppEquity.caption, "");
  EXPECT_FALSE(model.tmrCalcEquity.enabled);
  EXPECT_FALSE(model.tmrSliderMoving.enabled);
  EXPECT_FALSE(model.results().tmrTVError.enabled);
}

TEST_F(StartUp, AnsweringNoToTheVersionQuestionEndsTheStartWritingNothing) {
  WriteBytes(ProfileFile(), std::string("\x02\x00\x00\x00\x00\x00\x00\x00", 8));
  services.yesNoAnswers.push_back(false);
  EXPECT_FALSE(model.Form_Load(dir.path()));
  ASSERT_EQ(services.questions.size(), 1u);
  EXPECT_NE(services.questions[0].text.find("a newer format."), std::string::npos);
  EXPECT_EQ(ReadBytes(ProfileFile()), std::string("\x02\x00\x00\x00\x00\x00\x00\x00", 8));
  EXPECT_FALSE(fs::exists(PrefsFile()));
}

TEST_F(StartUp, AnsweringYesToTheVersionQuestionStartsWithGeneric) {
  WriteBytes(ProfileFile(), std::string("\x00\x00\x00\x00\x00\x00\x00\x00", 8));
  services.yesNoAnswers.push_back(true);
  ASSERT_TRUE(Start());
  ASSERT_NE(model.profiles().currentProfile(), nullptr);
  EXPECT_EQ(model.profiles().currentProfile()->name, "Generic");
}

class ShutDown : public testing::WindowModelTest {};

TEST_F(ShutDown, ClosingRewritesBothFilesAlsoWhenNothingChanged) {
  WriteProfiles({MakeProfile("Villain", {"AA"}, "0.5")});
  WritePrefs("txtMyHand|AhKd\r\n");
  ASSERT_TRUE(Start());
  // Whatever is on the disk now, closing writes the session's state.
  WriteBytes(ProfileFile(), "stale");
  WriteBytes(PrefsFile(), "stale");
  model.Form_QueryUnload();
  EXPECT_EQ(ReadBytes(ProfileFile()), EncodeProfileFile(model.profiles().list));
  const std::string prefs = ReadBytes(PrefsFile());
  EXPECT_EQ(prefs.rfind("mnuHideEmptyCats|True\r\n", 0), 0u);
  EXPECT_NE(prefs.find("\r\ntxtMyHand|AhKd\r\n"), std::string::npos);
}

TEST_F(ShutDown, ClosingAFirstStartWritesGenericAndTheDefaultPreferences) {
  ASSERT_TRUE(Start());
  model.Form_QueryUnload();
  ASSERT_TRUE(fs::exists(ProfileFile()));
  ASSERT_TRUE(fs::exists(PrefsFile()));
  const std::string bytes = ReadBytes(ProfileFile());
  // Version 1, one profile, named "Generic" (a counted string of 7).
  EXPECT_EQ(bytes.substr(0, 19), std::string("\x01\x00\x00\x00\x01\x00\x00\x00\x07\x00\x00\x00Generic", 19));
  EXPECT_EQ(ReadBytes(PrefsFile()),
            "mnuHideEmptyCats|True\r\nmnuSimplifyOutput|True\r\nmnuSimplifyFurther|False\r\n"
            "mnuCategoryIcons|False\r\nmnuWinLoseIcons|False\r\nmnuCalcEquityOnCook|False\r\n"
            "mnuAutoPFEquityCalc|False\r\ntxtMyHand|\r\ntxtBoard|\r\nColourSchemeDefault|True\r\n"
            "SelCardsAutoOK|False\r\nSelCardsAutoCook|False\r\n");
}

TEST_F(ShutDown, ClosingForgetsTheHighlightedLabelAndClosesThePicker) {
  ASSERT_TRUE(Start());
  model.HighlightLabel(CommandLabel::cmdAll);
  model.frmSelCards.visible = true;
  model.Form_QueryUnload();
  EXPECT_FALSE(model.highlightedLabel.has_value());
  EXPECT_FALSE(model.label(CommandLabel::cmdAll).opaque);
  EXPECT_FALSE(model.frmSelCards.visible);
}

TEST_F(ShutDown, AStartAfterAClosingComesBackWithTheSameProfilesAndOptions) {
  ASSERT_TRUE(Start());
  model.options.winLoseIcons = true;
  model.txtBoard.text = "Tc8h3s";
  TypePlayer("Villain", kKeyEnter);
  model.Form_QueryUnload();

  RecordingServices again;
  Form1Model next(again);
  ASSERT_TRUE(next.Form_Load(dir.path()));
  EXPECT_TRUE(again.questions.empty());
  EXPECT_EQ(next.profiles().cmbPlayer.items, (std::vector<std::string>{"Generic", "Villain"}));
  EXPECT_TRUE(next.options.winLoseIcons);
  EXPECT_EQ(next.txtBoard.text, "Tc8h3s");
}

}  // namespace
}  // namespace quillet
