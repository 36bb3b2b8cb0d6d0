// The window's profile file when something else touches it too: quillet-cli adding a profile while the
// window is open, a file of another version that the session will overwrite, a writer that holds the
// folder's lock, a folder that cannot be made.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <memory>

#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "storage/file_lock.h"
#include "storage/profile_file.h"
#include "storage/profile_list.h"
#include "tests/storage/temp_folder.h"
#include "tests/support/le_bytes.h"
#include "tests/support/model_in_folder.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;
using testing::Profile;
using testing::ReadBytes;
using testing::WriteBytes;

// The name the system gives this program (and a process forked from it).
std::string ProgramName() {
  const std::string comm = ReadBytes("/proc/self/comm");
  return comm.substr(0, comm.find('\n'));
}

std::vector<std::string> NamesInFile(const fs::path& file) {
  const ProfileFileContents read = ReadProfileFile(file);
  EXPECT_EQ(read.status, ProfileFileContents::Status::Read);
  std::vector<std::string> names;
  for (const PlayerProfile& p : read.profiles) names.push_back(p.name);
  return names;
}

class SharedProfileFile : public testing::ModelInFolderTest {
 protected:
  // The window as it starts: the file loaded, the first profile chosen.
  void Start() {
    ASSERT_TRUE(model.profiles().LoadProfiles());
    model.profiles().currentIndex = model.profiles().FirstProfileIndex();
  }
  // Another program (quillet-cli) changes the file while the window is open.
  void OtherWriterSaves(const std::vector<PlayerProfile>& profiles) {
    ASSERT_FALSE(WriteProfileFile(ProfileFile(), profiles).has_value());
  }
};

TEST_F(SharedProfileFile, AProfileAddedByAnotherProgramWhileTheWindowIsOpenSurvivesTheWindowsSave) {
  WriteBytes(ProfileFile(), EncodeProfileFile({Profile("Amy")}));
  Start();
  OtherWriterSaves({Profile("Amy"), Profile("Bob", "KK")});
  model.profiles().AddProfile("Cat");
  model.profiles().SaveProfiles();
  EXPECT_TRUE(services.messages.empty());
  EXPECT_EQ(NamesInFile(ProfileFile()), (std::vector<std::string>{"Amy", "Cat", "Bob"}));
  const ProfileFileContents read = ReadProfileFile(ProfileFile());
  EXPECT_EQ(read.profiles[2], Profile("Bob", "KK"));
}

TEST_F(SharedProfileFile, AProfileAddedToAFileThatDidNotExistAtStartUpSurvivesToo) {
  Start();  // no file: "Generic" is made in memory
  OtherWriterSaves({Profile("Bob")});
  model.profiles().SaveProfiles();
  EXPECT_EQ(NamesInFile(ProfileFile()), (std::vector<std::string>{"Generic", "Bob"}));
}

TEST_F(SharedProfileFile, AProfileTheWindowDeletedStaysDeleted) {
  WriteBytes(ProfileFile(), EncodeProfileFile({Profile("Amy"), Profile("Bob")}));
  Start();
  OtherWriterSaves({Profile("Amy"), Profile("Bob"), Profile("Cat")});
  model.profiles().currentIndex = 1;
  model.lblDelete_Click();
  model.profiles().SaveProfiles();
  EXPECT_EQ(NamesInFile(ProfileFile()), (std::vector<std::string>{"Amy", "Cat"}));
}

TEST_F(SharedProfileFile, TheWindowsOwnChangeToAProfileWins) {
  WriteBytes(ProfileFile(), EncodeProfileFile({Profile("Amy")}));
  Start();
  OtherWriterSaves({Profile("Amy", "KK")});
  model.profiles().list[0] = Profile("Amy", "QQ");
  model.profiles().SaveProfiles();
  EXPECT_EQ(ReadProfileFile(ProfileFile()).profiles, (std::vector<PlayerProfile>{Profile("Amy", "QQ")}));
}

TEST_F(SharedProfileFile, AChangeByAnotherProgramToAProfileTheWindowLeftAloneIsKept) {
  WriteBytes(ProfileFile(), EncodeProfileFile({Profile("Amy"), Profile("Bob")}));
  Start();
  OtherWriterSaves({Profile("Amy"), Profile("Bob", "KK")});
  model.profiles().SaveProfiles();
  EXPECT_EQ(ReadProfileFile(ProfileFile()).profiles,
            (std::vector<PlayerProfile>{Profile("Amy"), Profile("Bob", "KK")}));
}

TEST_F(SharedProfileFile, AProfileAnotherProgramDeletedIsNotBroughtBack) {
  WriteBytes(ProfileFile(), EncodeProfileFile({Profile("Amy"), Profile("Bob")}));
  Start();
  OtherWriterSaves({Profile("Amy")});
  model.profiles().SaveProfiles();
  EXPECT_EQ(NamesInFile(ProfileFile()), (std::vector<std::string>{"Amy"}));
}

TEST_F(SharedProfileFile, WithNothingChangedElsewhereTheSaveWritesTheSameBytesAsBefore) {
  const std::string bytes = EncodeProfileFile({Profile("Amy"), Profile("Bob")});
  WriteBytes(ProfileFile(), bytes);
  Start();
  model.profiles().SaveProfiles();
  EXPECT_EQ(ReadBytes(ProfileFile()), bytes);
}

TEST_F(SharedProfileFile, ASaveWhileAnotherWriterHoldsTheLockAsksRetryOrCancelAndCancelChangesNothing) {
  const std::string bytes = EncodeProfileFile({Profile("Amy")});
  WriteBytes(ProfileFile(), bytes);
  Start();
  model.profiles().AddProfile("Cat");
  model.profiles().writeLockWait = std::chrono::milliseconds(200);
  {
    const WriteLock other(ProfileFile());
    EXPECT_FALSE(model.profiles().SaveProfiles());
  }
  EXPECT_TRUE(services.messages.empty());
  ASSERT_EQ(services.retryQuestions.size(), 1u);
  EXPECT_EQ(
      services.retryQuestions[0].text,
      "The player profiles could not be saved to \"" + ProfileFile().string() +
          "\": another program kept the folder \"" + dir.path().string() +
          "\" locked for 200 milliseconds. The file there was left as it was.\r\n\r\nRetry waits for it "
          "again; Cancel keeps the window open with your changes, to be saved when it closes.");
  EXPECT_EQ(services.retryQuestions[0].icon, MessageIcon::Warning);
  EXPECT_EQ(ReadBytes(ProfileFile()), bytes);
}

TEST_F(SharedProfileFile, TheWaitForTheLockIsTakenInShortStepsThroughTheWindow) {
  Start();
  model.profiles().writeLockWait = std::chrono::milliseconds(200);
  {
    const WriteLock other(ProfileFile());
    model.profiles().SaveProfiles();
  }
  ASSERT_GE(services.waits.size(), 2u);
  for (const auto step : services.waits) EXPECT_LE(step.count(), 50);
}

TEST_F(SharedProfileFile, CancelAtCloseKeepsTheWindowOpenWithItsChangesAndALaterCloseSavesThem) {
  WriteBytes(ProfileFile(), EncodeProfileFile({Profile("Amy")}));
  Start();
  model.profiles().AddProfile("Cat");
  model.txtMyHand.text = "AhKd";
  model.frmSelCards.visible = true;
  model.profiles().writeLockWait = std::chrono::milliseconds(100);
  {
    const WriteLock other(ProfileFile());
    EXPECT_FALSE(model.Form_QueryUnload());
  }
  EXPECT_EQ(services.retryQuestions.size(), 1u) << "the preferences are not tried after a Cancel";
  EXPECT_TRUE(services.messages.empty());
  EXPECT_EQ(NamesInFile(ProfileFile()), std::vector<std::string>{"Amy"});
  EXPECT_FALSE(fs::exists(PrefsFile()));
  EXPECT_GE(FindProfileByName(model.profiles().list, "Cat"), 0);
  EXPECT_TRUE(model.frmSelCards.visible) << "the window is still open, its picker too";

  EXPECT_TRUE(model.Form_QueryUnload());
  EXPECT_EQ(NamesInFile(ProfileFile()), (std::vector<std::string>{"Amy", "Cat"}));
  EXPECT_NE(ReadBytes(PrefsFile()).find("\r\ntxtMyHand|AhKd\r\n"), std::string::npos);
}

TEST_F(SharedProfileFile, RetryAtCloseAfterTheOtherWriterIsDoneSavesBothFiles) {
  Start();
  model.profiles().AddProfile("Cat");
  model.profiles().writeLockWait = std::chrono::milliseconds(100);
  auto other = std::make_unique<WriteLock>(ProfileFile());
  services.retryAnswers = {true};
  services.onRetryQuestion = [&] { other.reset(); };  // the other writer finishes while the question is up
  EXPECT_TRUE(model.Form_QueryUnload());
  EXPECT_EQ(services.retryQuestions.size(), 1u);
  EXPECT_TRUE(services.messages.empty());
  EXPECT_EQ(NamesInFile(ProfileFile()), (std::vector<std::string>{"Generic", "Cat"}));
  EXPECT_EQ(ReadBytes(PrefsFile()), testing::kTwelveDefaultRecords);
}

TEST_F(SharedProfileFile, TheQuestionNamesTheProgramThatHoldsTheLock) {
  int ready[2];
  int done[2];
  ASSERT_EQ(::pipe(ready), 0);
  ASSERT_EQ(::pipe(done), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    const WriteLock lock(ProfileFile());
    char c = 'x';
    (void)::write(ready[1], &c, 1);
    (void)::read(done[0], &c, 1);
    _exit(0);
  }
  char c = 0;
  ASSERT_EQ(::read(ready[0], &c, 1), 1);
  Start();
  model.profiles().writeLockWait = std::chrono::milliseconds(100);
  const bool closed = model.Form_QueryUnload();
  (void)::write(done[1], &c, 1);
  waitpid(child, nullptr, 0);
  for (const int fd : {ready[0], ready[1], done[0], done[1]}) ::close(fd);
  EXPECT_FALSE(closed);
  ASSERT_EQ(services.retryQuestions.size(), 1u);
  EXPECT_NE(services.retryQuestions[0].text.find("another program, " + ProgramName() + " (process " +
                                                 std::to_string(child) + "), kept the folder"),
            std::string::npos)
      << services.retryQuestions[0].text;
}

using testing::Le32;

TEST_F(SharedProfileFile, AFileOfAnotherVersionIsKeptByteForByteAsBadBeforeItIsOverwritten) {
  // One flipped bit in the version of a real file.
  std::string bytes = EncodeProfileFile({Profile("Amy"), Profile("Bob")});
  bytes[2] = '\x20';
  ASSERT_EQ(bytes.substr(0, 4), Le32(2097153));
  WriteBytes(ProfileFile(), bytes);
  ::chmod(ProfileFile().c_str(), 0600);
  services.yesNoAnswers = {true};
  Start();
  ASSERT_EQ(services.questions.size(), 1u);
  EXPECT_EQ(ReadBytes(dir / "Player_Profiles.ini.bad"), bytes);
  struct stat st {};
  ASSERT_EQ(::stat((dir / "Player_Profiles.ini.bad").c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0600u);
  model.profiles().SaveProfiles();
  EXPECT_EQ(NamesInFile(ProfileFile()), std::vector<std::string>{"Generic"});
  EXPECT_EQ(ReadBytes(dir / "Player_Profiles.ini.bad"), bytes);
  EXPECT_EQ(dir.Entries(), (std::vector<std::string>{"Player_Profiles.ini", "Player_Profiles.ini.bad"}));
}

TEST_F(SharedProfileFile, StartingAgainAndAgainOnTheSameBadFileKeepsOneCopy) {
  std::string bytes = EncodeProfileFile({Profile("Amy")});
  bytes.resize(bytes.size() - 100);  // cut short
  for (int start = 0; start < 3; ++start) {
    WriteBytes(ProfileFile(), bytes);
    RecordingServices asked;
    Form1Model fresh(asked);
    fresh.ProfilePaths(dir.path());
    ASSERT_TRUE(fresh.profiles().LoadProfiles());  // and no normal close follows
  }
  EXPECT_EQ(dir.Entries(), (std::vector<std::string>{"Player_Profiles.ini", "Player_Profiles.ini.bad"}));
}

TEST_F(SharedProfileFile, ASaveThatCannotMakeItsFolderSaysSoAndDoesNotSpeakOfAnOldFile) {
  WriteBytes(dir / "data", "a file where the data folder should be");
  model.profiles().path = dir / "data" / "quillet" / "Player_Profiles.ini";
  model.preferencesPath = dir / "data" / "quillet" / "MyPrefs.ini";
  model.profiles().AddProfile("Generic");
  model.Form_QueryUnload();
  ASSERT_EQ(services.messages.size(), 2u);
  EXPECT_EQ(services.messages[0].text, "The player profiles could not be saved to \"" +
                                           model.profiles().path.string() + "\": the folder \"" +
                                           (dir / "data" / "quillet").string() +
                                           "\" could not be created (Not a directory). There was no file "
                                           "there, and none was made.");
  EXPECT_EQ(services.messages[1].text, "The preferences could not be saved to \"" +
                                           model.preferencesPath.string() + "\": the folder \"" +
                                           (dir / "data" / "quillet").string() +
                                           "\" could not be created (Not a directory). There was no file "
                                           "there, and none was made.");
}

TEST_F(SharedProfileFile, BothFilesSavedThroughLinksToFilesNotYetThereGoToTheTargetsAndTheLinksStay) {
  fs::create_directory(dir / "usb");
  fs::create_symlink(dir / "usb" / "Player_Profiles.ini", ProfileFile());
  fs::create_symlink(dir / "usb" / "MyPrefs.ini", PrefsFile());
  Start();
  model.Form_QueryUnload();
  EXPECT_TRUE(services.messages.empty());
  EXPECT_TRUE(fs::is_symlink(ProfileFile()));
  EXPECT_TRUE(fs::is_symlink(PrefsFile()));
  EXPECT_EQ(NamesInFile(dir / "usb" / "Player_Profiles.ini"), std::vector<std::string>{"Generic"});
  EXPECT_EQ(ReadBytes(dir / "usb" / "MyPrefs.ini"), testing::kTwelveDefaultRecords);
}

TEST_F(SharedProfileFile, ASaveThroughALinkToADriveNotMountedIsRefusedWithAMessageAndTheLinksStay) {
  const fs::path usb = dir / "usb";
  fs::create_symlink(usb / "Player_Profiles.ini", ProfileFile());
  fs::create_symlink(usb / "MyPrefs.ini", PrefsFile());
  Start();
  model.Form_QueryUnload();
  ASSERT_EQ(services.messages.size(), 2u);
  EXPECT_EQ(services.messages[0].text, "The player profiles could not be saved to \"" +
                                           ProfileFile().string() + "\": it is a symbolic link to \"" +
                                           (usb / "Player_Profiles.ini").string() +
                                           "\", and there is no folder \"" + usb.string() +
                                           "\" to hold that file. The file there was left as it was.");
  EXPECT_EQ(services.messages[1].text, "The preferences could not be saved to \"" + PrefsFile().string() +
                                           "\": it is a symbolic link to \"" +
                                           (usb / "MyPrefs.ini").string() + "\", and there is no folder \"" +
                                           usb.string() +
                                           "\" to hold that file. The file there was left as it was.");
  EXPECT_TRUE(fs::is_symlink(ProfileFile()));
  EXPECT_TRUE(fs::is_symlink(PrefsFile()));
  EXPECT_EQ(dir.Entries(), (std::vector<std::string>{"MyPrefs.ini", "Player_Profiles.ini"}));
}

}  // namespace
}  // namespace quillet
