#include <gtest/gtest.h>

#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "storage/profile_file.h"
#include "tests/storage/file_size_limit.h"
#include "tests/storage/memory_budget.h"
#include "tests/storage/temp_folder.h"
#include "tests/support/le_bytes.h"
#include "tests/support/model_in_folder.h"
#include "tests/support/recording_services.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;
using testing::Profile;
using testing::ReadBytes;
using testing::WriteBytes;

using testing::Le32;

using ProfilesModel = testing::ModelInFolderTest;

TEST_F(ProfilesModel, BothFilesLiveInAWritableProgramFolder) {
  EXPECT_EQ(model.profiles().path, dir / "Player_Profiles.ini");
  EXPECT_EQ(model.preferencesPath, dir / "MyPrefs.ini");
}

TEST_F(ProfilesModel, NoFileLoadsNothingAndGenericIsThenCreated) {
  EXPECT_TRUE(model.profiles().LoadProfiles());
  EXPECT_TRUE(model.profiles().list.empty());
  EXPECT_TRUE(services.messages.empty());
  EXPECT_TRUE(services.questions.empty());
  EXPECT_EQ(model.profiles().FirstProfileIndex(), 0);
  ASSERT_EQ(model.profiles().list.size(), 1u);
  EXPECT_EQ(model.profiles().list[0].name, "Generic");
  EXPECT_EQ(model.profiles().cmbPlayer.items, std::vector<std::string>{"Generic"});
  EXPECT_EQ(model.profiles().cmbPlayer.listIndex, 0);
}

TEST_F(ProfilesModel, AFileWithNoProfilesLoadsAnEmptyListAndGenericIsThenCreated) {
  WriteBytes(ProfileFile(), Le32(1) + Le32(0));
  EXPECT_TRUE(model.profiles().LoadProfiles());
  EXPECT_TRUE(model.profiles().list.empty());
  EXPECT_TRUE(model.profiles().cmbPlayer.items.empty());
  EXPECT_EQ(model.profiles().cmbPlayer.listIndex, -1);
  EXPECT_EQ(model.profiles().FirstProfileIndex(), 0);
  EXPECT_EQ(model.profiles().list.at(0).name, "Generic");
  EXPECT_TRUE(services.messages.empty());
}

TEST_F(ProfilesModel, LoadingListsTheProfilesInFileOrderAndSelectsTheFirst) {
  WriteBytes(ProfileFile(), EncodeProfileFile({Profile("Zed"), Profile("Amy", "AKs")}));
  EXPECT_TRUE(model.profiles().LoadProfiles());
  ASSERT_EQ(model.profiles().list.size(), 2u);
  EXPECT_EQ(model.profiles().list[1], Profile("Amy", "AKs"));
  EXPECT_EQ(model.profiles().cmbPlayer.items, (std::vector<std::string>{"Zed", "Amy"}));
  EXPECT_EQ(model.profiles().cmbPlayer.listIndex, 0);
  EXPECT_EQ(model.profiles().cmbPlayer.text, "Zed");
  EXPECT_EQ(model.profiles().FirstProfileIndex(), 0);
}

TEST_F(ProfilesModel, TwoProfilesWithAFreeSlotBetweenSaveAsTwoAndReloadAdjacent) {
  model.profiles().list = {Profile("Amy"), Profile(""), Profile("Bob", "72")};
  model.profiles().list[1].name.clear();
  model.profiles().SaveProfiles();
  const std::string bytes = ReadBytes(ProfileFile());
  EXPECT_EQ(bytes.substr(0, 8), Le32(1) + Le32(2));
  RecordingServices otherServices;
  Form1Model other(otherServices);
  other.ProfilePaths(dir.path());
  EXPECT_TRUE(other.profiles().LoadProfiles());
  ASSERT_EQ(other.profiles().list.size(), 2u);
  EXPECT_EQ(other.profiles().list[0], model.profiles().list[0]);
  EXPECT_EQ(other.profiles().list[1], model.profiles().list[2]);
}

std::string VersionQuestion(const std::string& version, const std::string& age) {
  return "Player Profile file version " + version + " is " + age +
         "format.\r\n(it was made with a different version to the current version).\r\n(Not loaded)\r\n\r\n"
         "It will be overwritten at the end of your current session. Are you OK with that?";
}

TEST_F(ProfilesModel, AVersionOfZeroOrBelowIsCalledAnOldFormat) {
  for (const int32_t version : {0, -3}) {
    RecordingServices asked;
    Form1Model fresh(asked);
    fresh.ProfilePaths(dir.path());
    WriteBytes(ProfileFile(), Le32(version) + Le32(1));
    EXPECT_TRUE(fresh.profiles().LoadProfiles());
    ASSERT_EQ(asked.questions.size(), 1u);
    EXPECT_EQ(asked.questions[0].text, VersionQuestion(std::to_string(version), "an old "));
    EXPECT_EQ(asked.questions[0].icon, MessageIcon::Warning);
  }
}

TEST_F(ProfilesModel, AVersionOfTwoOrAboveIsCalledANewerFormat) {
  WriteBytes(ProfileFile(), Le32(2) + Le32(1));
  EXPECT_TRUE(model.profiles().LoadProfiles());
  ASSERT_EQ(services.questions.size(), 1u);
  EXPECT_EQ(services.questions[0].text, VersionQuestion("2", "a newer "));
  EXPECT_EQ(services.questions[0].icon, MessageIcon::Warning);
}

TEST_F(ProfilesModel, AnsweringYesToTheVersionQuestionLoadsNothingAndTheFileIsOverwrittenAtTheEnd) {
  const std::string newer = Le32(7) + EncodeProfileFile({Profile("Kept")}).substr(4);
  WriteBytes(ProfileFile(), newer);
  services.yesNoAnswers = {true};
  EXPECT_TRUE(model.profiles().LoadProfiles());
  EXPECT_TRUE(model.profiles().list.empty());
  EXPECT_TRUE(services.messages.empty());
  EXPECT_EQ(ReadBytes(ProfileFile()), newer);  // untouched until the session ends
  model.profiles().currentIndex = model.profiles().FirstProfileIndex();
  model.profiles().SaveProfiles();
  const std::string written = ReadBytes(ProfileFile());
  EXPECT_EQ(written.substr(0, 8), Le32(1) + Le32(1));
  EXPECT_EQ(written.substr(12, 7), "Generic");
}

TEST_F(ProfilesModel, AnsweringNoToTheVersionQuestionEndsTheProgramWithoutTouchingTheFile) {
  const std::string newer = Le32(3) + Le32(0);
  WriteBytes(ProfileFile(), newer);
  services.yesNoAnswers = {false};
  EXPECT_FALSE(model.profiles().LoadProfiles());
  EXPECT_TRUE(model.profiles().list.empty());
  EXPECT_EQ(ReadBytes(ProfileFile()), newer);
  EXPECT_EQ(dir.Entries(), std::vector<std::string>{"Player_Profiles.ini"});
}

TEST_F(ProfilesModel, ABadFileIsReportedOnceKeptAsideAndTheProfilesBeforeTheFaultAreLoaded) {
  const std::string whole = EncodeProfileFile({Profile("Amy"), Profile("Bob"), Profile("Cat")});
  const std::string cut = whole.substr(0, whole.size() - 5000);
  WriteBytes(ProfileFile(), cut);
  EXPECT_TRUE(model.profiles().LoadProfiles());
  ASSERT_EQ(services.messages.size(), 1u);
  const std::string& text = services.messages[0].text;
  EXPECT_EQ(services.messages[0].icon, MessageIcon::Warning);
  const std::string firstLine = "The player profile file \"" + ProfileFile().string() +
                                "\" cannot be read: it ends after " + std::to_string(cut.size()) +
                                " bytes, inside profile 3 of 3 (\"Cat\").";
  EXPECT_EQ(text.substr(0, text.find("\r\n")), firstLine);
  EXPECT_NE(text.find("kept as \"" + (dir / "Player_Profiles.ini.bad").string() + "\""), std::string::npos)
      << text;
  EXPECT_NE(text.find("The 2 profiles before the fault were loaded."), std::string::npos) << text;
  EXPECT_EQ(ReadBytes(dir / "Player_Profiles.ini.bad"), cut);
  EXPECT_EQ(model.profiles().cmbPlayer.items, (std::vector<std::string>{"Amy", "Bob"}));
  EXPECT_EQ(model.profiles().FirstProfileIndex(), 0);
  // The session goes on, and closing it writes the profiles that were read; the copy stays.
  model.profiles().SaveProfiles();
  EXPECT_EQ(ReadBytes(ProfileFile()), EncodeProfileFile({Profile("Amy"), Profile("Bob")}));
  EXPECT_EQ(ReadBytes(dir / "Player_Profiles.ini.bad"), cut);
}

TEST_F(ProfilesModel, ABadFileWithNoProfileBeforeTheFaultGoesOnWithGeneric) {
  std::string bytes = EncodeProfileFile({Profile("Amy")});
  bytes.replace(4, 4, Le32(-2));
  WriteBytes(ProfileFile(), bytes);
  EXPECT_TRUE(model.profiles().LoadProfiles());
  ASSERT_EQ(services.messages.size(), 1u);
  EXPECT_NE(services.messages[0].text.find("it says it holds -2 profiles."), std::string::npos);
  EXPECT_NE(services.messages[0].text.find("No profiles could be loaded from it."), std::string::npos);
  EXPECT_EQ(model.profiles().FirstProfileIndex(), 0);
  EXPECT_EQ(model.profiles().list.at(0).name, "Generic");
  EXPECT_EQ(ReadBytes(dir / "Player_Profiles.ini.bad"), bytes);
}

TEST_F(ProfilesModel, AFileThatCannotBeOpenedIsMovedAsideAndReported) {
  fs::create_directory(ProfileFile());
  EXPECT_TRUE(model.profiles().LoadProfiles());
  ASSERT_EQ(services.messages.size(), 1u);
  EXPECT_NE(services.messages[0].text.find("cannot be read: it is a folder, not a file."), std::string::npos);
  EXPECT_TRUE(fs::is_directory(dir / "Player_Profiles.ini.bad"));
  model.profiles().FirstProfileIndex();
  model.profiles().SaveProfiles();
  EXPECT_TRUE(fs::is_regular_file(ProfileFile()));
  EXPECT_EQ(services.messages.size(), 1u);
}

TEST_F(ProfilesModel, AFailedSaveIsReportedInOneMessageAndTheOldFileStays) {
  const std::string old = EncodeProfileFile({Profile("Amy")});
  WriteBytes(ProfileFile(), old);
  model.profiles().list = {Profile("Amy"), Profile("Bob"), Profile("Cat")};
  {
    testing::FileSizeLimit limit(old.size() + 1000);  // the disk fills up during the save
    model.profiles().SaveProfiles();
  }
  ASSERT_EQ(services.messages.size(), 1u);
  EXPECT_EQ(services.messages[0].text,
            "The player profiles could not be saved to \"" + ProfileFile().string() +
                "\": writing failed (File too large). The file there was left as it was.");
  EXPECT_EQ(services.messages[0].icon, MessageIcon::Warning);
  EXPECT_EQ(ReadBytes(ProfileFile()), old);
  EXPECT_EQ(dir.Entries(), std::vector<std::string>{"Player_Profiles.ini"});
}

TEST_F(ProfilesModel, AGibibyteFileClaimingOneProfileIsRefusedWithinFiftyMegabytesAndMovedAsideNotCopied) {
  const off_t size = off_t{1} << 30;
  testing::WriteSparseFile(ProfileFile(), Le32(1) + Le32(1), size);
  if (!testing::kUnderSanitizer) {
    EXPECT_TRUE(testing::RunsWithin(50 * 1000 * 1000, [&] {
      RecordingServices quiet;
      Form1Model other(quiet);
      other.ProfilePaths(dir.path());
      return other.profiles().LoadProfiles() && quiet.messages.size() == 1;
    }));
    // The child moved the file aside: put it back for the session proper.
    std::error_code ec;
    fs::rename(dir / "Player_Profiles.ini.bad", ProfileFile(), ec);
  }
  EXPECT_TRUE(model.profiles().LoadProfiles());
  ASSERT_EQ(services.messages.size(), 1u);
  EXPECT_EQ(
      services.messages[0].text,
      "The player profile file \"" + ProfileFile().string() +
          "\" cannot be read: it is 1073741824 bytes long, more than the 67108864 bytes such a file can "
          "hold.\r\n\r\nThe file was kept as \"" +
          ProfileFile().string() + ".bad\". No profiles could be loaded from it.");
  // Moved, not copied: the one file of a gibibyte is the original, and none is left in its place.
  EXPECT_EQ(dir.Entries(), std::vector<std::string>{"Player_Profiles.ini.bad"});
  EXPECT_EQ(fs::file_size(dir / "Player_Profiles.ini.bad"), static_cast<std::uintmax_t>(size));
  EXPECT_EQ(model.profiles().list.at(model.profiles().FirstProfileIndex()).name, "Generic");
  model.profiles().SaveProfiles();
  EXPECT_EQ(services.messages.size(), 1u);
  EXPECT_EQ(ReadProfileFile(ProfileFile()).status, ProfileFileContents::Status::Read);
  EXPECT_EQ(dir.Entries(), (std::vector<std::string>{"Player_Profiles.ini", "Player_Profiles.ini.bad"}));
}

TEST_F(ProfilesModel, AFileLongerThanItsProfilesFillIsRefusedUnreadAndMovedAside) {
  const std::string one = EncodeProfileFile({Profile("Amy", "AKs")});
  const off_t size = 8 << 20;
  testing::WriteSparseFile(ProfileFile(), one, size);
  EXPECT_TRUE(model.profiles().LoadProfiles());
  ASSERT_EQ(services.messages.size(), 1u);
  EXPECT_NE(
      services.messages[0].text.find("it is 8388608 bytes long, but the 1 profile it holds fills only " +
                                     std::to_string(one.size()) + "."),
      std::string::npos)
      << services.messages[0].text;
  EXPECT_TRUE(model.profiles().list.empty());
  EXPECT_EQ(dir.Entries(), std::vector<std::string>{"Player_Profiles.ini.bad"});
  EXPECT_EQ(fs::file_size(dir / "Player_Profiles.ini.bad"), static_cast<std::uintmax_t>(size));
}

TEST_F(ProfilesModel, SavingCreatesAMissingDataFolder) {
  model.profiles().path = dir / "share" / "quillet" / "Player_Profiles.ini";
  model.profiles().list = {Profile("Amy")};
  model.profiles().SaveProfiles();
  EXPECT_TRUE(services.messages.empty());
  EXPECT_EQ(ReadBytes(model.profiles().path), EncodeProfileFile(model.profiles().list));
}

TEST_F(ProfilesModel, AddProfileTakesTheFirstFreeSlotAndSelectsTheNewName) {
  model.profiles().list = {Profile("Amy"), Profile("Gone"), Profile("Cat")};
  model.profiles().list[1].name.clear();
  EXPECT_EQ(model.profiles().AddProfile("Dan"), 1);
  EXPECT_EQ(model.profiles().list.size(), 3u);
  EXPECT_EQ(model.profiles().list[1].rangeLayer[0].count, 0);  // a fresh profile, not the freed one's layers
  EXPECT_EQ(model.profiles().list[1].rangeText, "");
  EXPECT_EQ(model.profiles().cmbPlayer.items, (std::vector<std::string>{"Amy", "Dan", "Cat"}));
  EXPECT_EQ(model.profiles().cmbPlayer.listIndex, 1);
  EXPECT_EQ(model.profiles().cmbPlayer.text, "Dan");
}

TEST_F(ProfilesModel, AddProfileAppendsWhenNoSlotIsFree) {
  model.profiles().list = {Profile("Amy")};
  EXPECT_EQ(model.profiles().AddProfile("Bob"), 1);
  EXPECT_EQ(model.profiles().cmbPlayer.items, (std::vector<std::string>{"Amy", "Bob"}));
  EXPECT_EQ(model.profiles().cmbPlayer.listIndex, 1);
}

TEST_F(ProfilesModel, FirstProfileIndexSkipsFreeSlots) {
  model.profiles().list = {Profile(""), Profile("Bob")};
  model.profiles().list[0].name.clear();
  EXPECT_EQ(model.profiles().FirstProfileIndex(), 1);
  EXPECT_EQ(model.profiles().list.size(), 2u);
}

TEST_F(ProfilesModel, FirstProfileIndexCreatesGenericInAFreeSlotWhenNoNameIsLeft) {
  model.profiles().list = {Profile("")};
  model.profiles().list[0].name.clear();
  EXPECT_EQ(model.profiles().FirstProfileIndex(), 0);
  EXPECT_EQ(model.profiles().list.size(), 1u);
  EXPECT_EQ(model.profiles().list[0].name, "Generic");
}

TEST_F(ProfilesModel, RefillPlayerListSelectsTheNamedEntryOrElseTheFirst) {
  model.profiles().list = {Profile("Amy"), Profile(""), Profile("Bob")};
  model.profiles().list[1].name.clear();
  model.profiles().RefillPlayerList("Bob");
  EXPECT_EQ(model.profiles().cmbPlayer.items, (std::vector<std::string>{"Amy", "Bob"}));
  EXPECT_EQ(model.profiles().cmbPlayer.listIndex, 1);
  model.profiles().RefillPlayerList("bob");
  EXPECT_EQ(model.profiles().cmbPlayer.listIndex, 0);
  EXPECT_EQ(model.profiles().cmbPlayer.text, "Amy");
  model.profiles().list.clear();
  model.profiles().RefillPlayerList("Amy");
  EXPECT_TRUE(model.profiles().cmbPlayer.items.empty());
  EXPECT_EQ(model.profiles().cmbPlayer.listIndex, -1);
}

TEST_F(ProfilesModel, ProfilesSurviveASaveAndALoad) {
  model.profiles().list = {Profile("Amy", "AKs"), Profile("Bob", "T9")};
  SetBlockSuitPair(model.profiles().list[1].seenLayer[FindClassByName("22")], 3, 1, true, false);
  model.profiles().SaveProfiles();
  RecordingServices otherServices;
  Form1Model other(otherServices);
  other.ProfilePaths(dir.path());
  EXPECT_TRUE(other.profiles().LoadProfiles());
  EXPECT_EQ(other.profiles().list, model.profiles().list);
}

}  // namespace
}  // namespace quillet
