#include <gtest/gtest.h>

#include "app/model/form1_model.h"
#include "app/model/web_addresses.h"
#include "storage/preferences_file.h"
#include "tests/storage/temp_folder.h"
#include "tests/support/model_in_folder.h"
#include "tests/support/recording_services.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;
using testing::ReadBytes;
using testing::WriteBytes;

bool SameOptions(const MenuOptions& a, const MenuOptions& b) {
  return a.hideEmptyCats == b.hideEmptyCats && a.simplifyOutput == b.simplifyOutput &&
         a.simplifyFurther == b.simplifyFurther && a.categoryIcons == b.categoryIcons &&
         a.winLoseIcons == b.winLoseIcons && a.calcEquityOnCook == b.calcEquityOnCook &&
         a.autoPFEquityCalc == b.autoPFEquityCalc;
}

class PreferencesModel : public testing::ModelInFolderTest {
 protected:
  void LoadFrom(const std::string& text) {
    WriteBytes(PrefsFile(), text);
    model.LoadPreferences();
  }
};

TEST_F(PreferencesModel, SavingWritesTheTwelveRecordsInOrderEachWithOneCrLf) {
  model.options.hideEmptyCats = false;
  model.options.simplifyFurther = true;
  model.options.autoPFEquityCalc = true;
  model.txtMyHand.text = "AhKd";
  model.txtBoard.text = "Tc8h3s";
  model.selCardsAutoCook = true;
  model.SavePreferences();
  EXPECT_EQ(ReadBytes(PrefsFile()),
            "mnuHideEmptyCats|False\r\n"
            "mnuSimplifyOutput|True\r\n"
            "mnuSimplifyFurther|True\r\n"
            "mnuCategoryIcons|False\r\n"
            "mnuWinLoseIcons|False\r\n"
            "mnuCalcEquityOnCook|False\r\n"
            "mnuAutoPFEquityCalc|True\r\n"
            "txtMyHand|AhKd\r\n"
            "txtBoard|Tc8h3s\r\n"
            "ColourSchemeDefault|True\r\n"
            "SelCardsAutoOK|False\r\n"
            "SelCardsAutoCook|True\r\n");
  EXPECT_TRUE(services.messages.empty());
}

TEST_F(PreferencesModel, AFileWithOnlyWinLoseIconsTrueSwitchesThatOnAndLeavesTheRestAtTheirDefaults) {
  LoadFrom("mnuWinLoseIcons|True\r\n");
  MenuOptions expected;
  expected.winLoseIcons = true;
  EXPECT_TRUE(SameOptions(model.options, expected));
  EXPECT_TRUE(model.options.hideEmptyCats);
  EXPECT_TRUE(model.options.simplifyOutput);
  EXPECT_EQ(model.txtMyHand.text, "");
  EXPECT_EQ(model.txtBoard.text, "");
  EXPECT_TRUE(model.colourSchemeDefault);
  EXPECT_FALSE(model.selCardsAutoOK);
  EXPECT_FALSE(model.selCardsAutoCook);
  EXPECT_TRUE(services.questions.empty());
  EXPECT_TRUE(services.messages.empty());
}

TEST_F(PreferencesModel, AMyHandTextHoldingABarIsCutAtItWhenReadBack) {
  model.txtMyHand.text = "Ah|Kd";
  model.SavePreferences();
  EXPECT_NE(ReadBytes(PrefsFile()).find("\r\ntxtMyHand|Ah|Kd\r\n"), std::string::npos);
  RecordingServices otherServices;
  Form1Model other(otherServices);
  other.ProfilePaths(dir.path());
  other.LoadPreferences();
  EXPECT_EQ(other.txtMyHand.text, "Ah");
}

TEST_F(PreferencesModel, KeysInAnyOrderAreAcceptedAndARepeatedKeyTakesItsLastValue) {
  LoadFrom(
      "txtBoard|Tc8h3s\r\nmnuCategoryIcons|True\r\nSelCardsAutoOK|True\r\ntxtMyHand|AhAd\r\n"
      "mnuCategoryIcons|False\r\nmnuSimplifyOutput|False\r\ntxtBoard|2c3c4c\r\nSelCardsAutoOK|False\r\n"
      "SelCardsAutoOK|True\r\n");
  EXPECT_FALSE(model.options.categoryIcons);
  EXPECT_FALSE(model.options.simplifyOutput);
  EXPECT_EQ(model.txtMyHand.text, "AhAd");
  EXPECT_EQ(model.txtBoard.text, "2c3c4c");
  EXPECT_TRUE(model.selCardsAutoOK);
}

TEST_F(PreferencesModel, UnknownKeysAreIgnoredAndKeysAreCaseSensitive) {
  LoadFrom("mnuwinloseicons|True\r\nSomethingElse|True\r\n|True\r\nmnuCalcEquityOnCook|True\r\n");
  MenuOptions expected;
  expected.calcEquityOnCook = true;
  EXPECT_TRUE(SameOptions(model.options, expected));
}

TEST_F(PreferencesModel, EmptyLinesAreSkippedAndOneOrTwoLineBreaksReadAlike) {
  LoadFrom("\r\n\r\nmnuWinLoseIcons|True\r\n\r\nmnuHideEmptyCats|False\n\nSelCardsAutoCook|True");
  EXPECT_TRUE(model.options.winLoseIcons);
  EXPECT_FALSE(model.options.hideEmptyCats);
  EXPECT_TRUE(model.selCardsAutoCook);
}

TEST_F(PreferencesModel, AFileStartingWithAByteOrderMarkKeepsItsFirstSetting) {
  LoadFrom("\xEF\xBB\xBFmnuHideEmptyCats|False\r\nmnuWinLoseIcons|True\r\n");
  EXPECT_FALSE(model.options.hideEmptyCats);
  EXPECT_TRUE(model.options.winLoseIcons);
}

TEST_F(PreferencesModel, ALineWithoutABarIsIgnored) {
  LoadFrom("mnuWinLoseIcons\r\ntxtMyHand\r\nmnuCategoryIcons|True\r\n");
  EXPECT_FALSE(model.options.winLoseIcons);
  EXPECT_EQ(model.txtMyHand.text, "");
  EXPECT_TRUE(model.options.categoryIcons);
  EXPECT_TRUE(services.messages.empty());
}

TEST_F(PreferencesModel, AValueThatIsNoBooleanForABooleanKeyIsIgnored) {
  LoadFrom(
      "mnuHideEmptyCats|maybe\r\nmnuWinLoseIcons|1\r\nSelCardsAutoOK|\r\nColourSchemeDefault|Nope\r\n"
      "mnuSimplifyOutput|false\r\n");
  EXPECT_TRUE(model.options.hideEmptyCats);
  EXPECT_FALSE(model.options.winLoseIcons);
  EXPECT_FALSE(model.selCardsAutoOK);
  EXPECT_TRUE(model.colourSchemeDefault);
  EXPECT_FALSE(model.options.simplifyOutput);  // the letter case of True and False does not matter
}

TEST_F(PreferencesModel, TheCardPickerSettingsAreRestored) {
  LoadFrom("SelCardsAutoOK|True\r\nSelCardsAutoCook|True\r\n");
  EXPECT_TRUE(model.selCardsAutoOK);
  EXPECT_TRUE(model.selCardsAutoCook);
}

TEST_F(PreferencesModel, ColourSchemeDefaultTrueLeavesTheDefaultScheme) {
  LoadFrom("ColourSchemeDefault|True\r\n");
  EXPECT_TRUE(model.colourSchemeDefault);
}

TEST_F(PreferencesModel, ColourSchemeDefaultFalseIsRestoredBySwitchingTheScheme) {
  LoadFrom("ColourSchemeDefault|False\r\n");
  EXPECT_FALSE(model.colourSchemeDefault);
}

TEST_F(PreferencesModel, ARepeatedColourSchemeDefaultTakesItsLastValue) {
  LoadFrom("ColourSchemeDefault|False\r\nColourSchemeDefault|False\r\n");
  EXPECT_FALSE(model.colourSchemeDefault);
  LoadFrom("ColourSchemeDefault|False\r\nColourSchemeDefault|True\r\n");
  EXPECT_TRUE(model.colourSchemeDefault);
}

TEST_F(PreferencesModel, TheColourSchemeSurvivesASaveAndALoad) {
  LoadFrom("ColourSchemeDefault|False\r\n");
  model.SavePreferences();
  EXPECT_NE(ReadBytes(PrefsFile()).find("\r\nColourSchemeDefault|False\r\n"), std::string::npos);
  RecordingServices otherServices;
  Form1Model other(otherServices);
  other.ProfilePaths(dir.path());
  other.LoadPreferences();
  EXPECT_FALSE(other.colourSchemeDefault);
}

TEST_F(PreferencesModel, EverySettingSurvivesASaveAndALoad) {
  model.options.hideEmptyCats = false;
  model.options.simplifyOutput = false;
  model.options.simplifyFurther = true;
  model.options.categoryIcons = true;
  model.options.winLoseIcons = true;
  model.options.calcEquityOnCook = true;
  model.options.autoPFEquityCalc = true;
  model.txtMyHand.text = "9s9c";
  model.txtBoard.text = "Ah7d2c5s";
  model.selCardsAutoOK = true;
  model.selCardsAutoCook = true;
  model.SavePreferences();
  RecordingServices otherServices;
  Form1Model other(otherServices);
  other.ProfilePaths(dir.path());
  other.LoadPreferences();
  EXPECT_TRUE(SameOptions(other.options, model.options));
  EXPECT_EQ(other.txtMyHand.text, "9s9c");
  EXPECT_EQ(other.txtBoard.text, "Ah7d2c5s");
  EXPECT_EQ(other.txtBoard.charColours.size(), 8u);
  EXPECT_TRUE(other.selCardsAutoOK);
  EXPECT_TRUE(other.selCardsAutoCook);
  EXPECT_TRUE(otherServices.questions.empty());
}

const char* const kWelcome =
    "Welcome to Poker Quillet Hand Range Analyzer and Odds Calculator!\r\n\r\n"
    "If you are not already familiar with Poker Quillet, we recommend you check out the Online Poker Quillet "
    "Guide."
    "\r\n\r\nWould you like to visit the Poker Quillet website now?";

TEST_F(PreferencesModel, AFirstRunAsksTheWelcomeQuestionAndYesOpensTheOnlineGuide) {
  services.yesNoAnswers = {true};
  model.LoadPreferences();
  ASSERT_EQ(services.questions.size(), 1u);
  EXPECT_EQ(services.questions[0].title, "Welcome to Poker Quillet!");
  EXPECT_EQ(services.questions[0].text, kWelcome);
  EXPECT_EQ(services.questions[0].icon, MessageIcon::Information);
  ASSERT_EQ(services.opened.size(), 1u);
  EXPECT_EQ(services.opened[0], kOnlineGuideAddress);
  const std::string guidePath = "/free_online_poker_quillet_guide.php";
  EXPECT_EQ(services.opened[0].substr(services.opened[0].size() - guidePath.size()), guidePath);
  EXPECT_EQ(services.opened[0].rfind(std::string(kMakerSiteAddress), 0), 0u);
}

TEST_F(PreferencesModel, AFirstRunAnsweredNoOpensNothingAndChangesNothing) {
  services.yesNoAnswers = {false};
  model.LoadPreferences();
  EXPECT_EQ(services.questions.size(), 1u);
  EXPECT_TRUE(services.opened.empty());
  EXPECT_TRUE(SameOptions(model.options, MenuOptions{}));
  EXPECT_FALSE(fs::exists(PrefsFile()));
}

TEST_F(PreferencesModel, AnExistingButEmptyFileIsNoFirstRun) {
  LoadFrom("");
  EXPECT_TRUE(services.questions.empty());
  EXPECT_TRUE(SameOptions(model.options, MenuOptions{}));
}

TEST_F(PreferencesModel, AFileThatCannotBeReadIsReportedOnceAndTheDefaultsStay) {
  fs::create_directory(PrefsFile());
  model.LoadPreferences();
  ASSERT_EQ(services.messages.size(), 1u);
  EXPECT_EQ(services.messages[0].text,
            "The preferences file \"" + PrefsFile().string() +
                "\" cannot be read: it is a folder, not a file. The options start at "
                "their usual settings.");
  EXPECT_TRUE(services.questions.empty());
  EXPECT_TRUE(SameOptions(model.options, MenuOptions{}));
}

TEST_F(PreferencesModel, AFailedSaveIsReportedInOneMessageAndTheOldFileStays) {
  fs::create_directory(PrefsFile());
  WriteBytes(PrefsFile() / "x", "in the way");
  model.SavePreferences();
  ASSERT_EQ(services.messages.size(), 1u);
  EXPECT_EQ(services.messages[0].text.rfind(
                "The preferences could not be saved to \"" + PrefsFile().string() + "\": ", 0),
            0u);
  EXPECT_EQ(ReadBytes(PrefsFile() / "x"), "in the way");
}

}  // namespace
}  // namespace quillet
