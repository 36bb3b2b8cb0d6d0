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

TEST_F(PreferencesModel, AFileThatCannotBeReadIsReportedOnceKeptAsideAndTheDefaultsStay) {
  fs::create_directory(PrefsFile());
  model.LoadPreferences();
  ASSERT_EQ(services.messages.size(), 1u);
  EXPECT_EQ(services.messages[0].text,
            "The preferences file \"" + PrefsFile().string() +
                "\" cannot be read: it is a folder, not a file. The options start at "
                "their usual settings.\r\n\r\nThe file was kept as \"" +
                PrefsFile().string() + ".bad\".");
  EXPECT_TRUE(fs::is_directory(dir / "MyPrefs.ini.bad"));
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

// Every option away from its default, and My Hand and the Board far longer than anything meaningful (a paste
// of 1.1 MB): the largest preferences the window can save.
void SetEverySettingAwayFromItsDefault(Form1Model& model, const std::string& myHand,
                                       const std::string& board) {
  model.options.hideEmptyCats = false;
  model.options.simplifyOutput = false;
  model.options.simplifyFurther = true;
  model.options.categoryIcons = true;
  model.options.winLoseIcons = true;
  model.options.calcEquityOnCook = true;
  model.options.autoPFEquityCalc = true;
  model.options.standardShowdownRules = !MenuOptions{}.standardShowdownRules;
  model.options.checkBoxes = !MenuOptions{}.checkBoxes;
  model.options.equityPerCategory = !MenuOptions{}.equityPerCategory;
  model.txtMyHand.text = myHand;
  model.txtBoard.text = board;
  model.mnuSwitchColourScheme_Click();
  model.selCardsAutoOK = true;
  model.selCardsAutoCook = true;
}

// A text of `n` characters, "é" among them (two bytes in the window, one in the file).
std::string LongText(std::size_t n) {
  std::string text;
  for (std::size_t i = 0; i < n; ++i) text += i % 3 == 0 ? "\xC3\xA9" : "A";
  return text;
}

TEST_F(PreferencesModel, TheLargestPreferencesTheWindowCanSaveAreReadBackWithEverySetting) {
  const std::string myHand = LongText(1100000);
  const std::string board = LongText(1100000);
  SetEverySettingAwayFromItsDefault(model, myHand, board);
  model.SavePreferences();
  const PreferencesFileContents read = ReadPreferencesFile(PrefsFile());
  ASSERT_EQ(read.status, PreferencesFileContents::Status::Read) << read.error->message;

  RecordingServices again;
  Form1Model next(again);
  next.ProfilePaths(dir.path());
  next.LoadPreferences();
  EXPECT_TRUE(again.messages.empty());
  EXPECT_TRUE(SameOptions(next.options, model.options));
  EXPECT_EQ(next.options.standardShowdownRules, model.options.standardShowdownRules);
  EXPECT_EQ(next.options.checkBoxes, model.options.checkBoxes);
  EXPECT_EQ(next.options.equityPerCategory, model.options.equityPerCategory);
  EXPECT_FALSE(next.colourSchemeDefault);
  EXPECT_TRUE(next.selCardsAutoOK);
  EXPECT_TRUE(next.selCardsAutoCook);
  EXPECT_TRUE(next.txtMyHand.text == LongText(kLongestMyHandText));
  EXPECT_EQ(next.txtBoard.text, LongText(kLongestBoardText));
}

TEST_F(PreferencesModel, ACardTextCutWhenSavedIsSaidSo) {
  model.txtMyHand.text = LongText(kLongestMyHandText + 1);
  model.txtBoard.text = LongText(kLongestBoardText + 1);
  model.SavePreferences();
  EXPECT_EQ(services.messageTexts(),
            (std::vector<std::string>{"My Hand holds " + std::to_string(kLongestMyHandText + 1) +
                                          " characters; the preferences keep "
                                          "its first " +
                                          std::to_string(kLongestMyHandText) + ".",
                                      "The Board holds " + std::to_string(kLongestBoardText + 1) +
                                          " characters; the preferences "
                                          "keep its first " +
                                          std::to_string(kLongestBoardText) + "."}));
}

TEST_F(PreferencesModel, CardTextsAsLongAsTheBoundsAreSavedWholeWithoutAWord) {
  model.txtMyHand.text = LongText(kLongestMyHandText);
  model.txtBoard.text = LongText(kLongestBoardText);
  model.SavePreferences();
  EXPECT_TRUE(services.messages.empty());
  model.txtMyHand.text.clear();
  model.txtBoard.text.clear();
  model.LoadPreferences();
  EXPECT_TRUE(model.txtMyHand.text == LongText(kLongestMyHandText));
  EXPECT_EQ(model.txtBoard.text, LongText(kLongestBoardText));
}

TEST_F(PreferencesModel, AMegabyteOfCardTextInTheFileIsCutWhenReadAndTheSettingsAfterItStillCount) {
  LoadFrom("txtMyHand|" + std::string(1000000, 'A') + "\r\ntxtBoard|" + std::string(40000, 'K') +
           "\r\nmnuWinLoseIcons|True\r\n");
  EXPECT_EQ(model.txtMyHand.text.size(), kLongestMyHandText);
  EXPECT_TRUE(model.txtMyHand.text == std::string(kLongestMyHandText, 'A'));
  EXPECT_EQ(model.txtMyHand.charColours.size(), kLongestMyHandText);
  EXPECT_EQ(model.txtBoard.text, std::string(kLongestBoardText, 'K'));
  EXPECT_TRUE(model.options.winLoseIcons);
  EXPECT_TRUE(services.messages.empty());
}

TEST_F(PreferencesModel, ARefusedFileIsKeptAsBadAndTheCloseWritesANewOneBesideIt) {
  std::string bytes = "mnuWinLoseIcons|True\r\ntxtMyHand|" + std::string(kLargestPreferencesFileBytes, 'A');
  WriteBytes(PrefsFile(), bytes);
  model.LoadPreferences();
  ASSERT_EQ(services.messages.size(), 1u);
  EXPECT_EQ(services.messages[0].text,
            "The preferences file \"" + PrefsFile().string() + "\" cannot be read: it is " +
                std::to_string(bytes.size()) + " bytes long, more than the " +
                std::to_string(kLargestPreferencesFileBytes) +
                " bytes such a file can hold. The options start at their usual settings.\r\n\r\nThe file was "
                "kept as \"" +
                PrefsFile().string() + ".bad\".");
  EXPECT_TRUE(services.questions.empty());  // no first-run welcome
  model.SavePreferences();
  EXPECT_EQ(ReadBytes(PrefsFile()), testing::kTwelveDefaultRecords);
  EXPECT_TRUE(ReadBytes(dir / "MyPrefs.ini.bad") == bytes);
}

}  // namespace
}  // namespace quillet
