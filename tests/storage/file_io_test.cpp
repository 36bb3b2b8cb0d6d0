#include "storage/file_io.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/storage/file_size_limit.h"
#include "tests/storage/temp_folder.h"
#include "tests/support/killed_save.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;
using testing::FileSizeLimit;
using testing::KillASaveHalfway;
using testing::ReadBytes;
using testing::TempFolder;
using testing::WriteBytes;

TEST(WriteFileAtomically, ReplacesTheFileAndLeavesNothingElseBehind) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  WriteBytes(path, "old contents");
  ASSERT_FALSE(WriteFileAtomically(path, std::string("new\0contents", 12)).has_value());
  EXPECT_EQ(ReadBytes(path), std::string("new\0contents", 12));
  EXPECT_EQ(dir.Entries(), std::vector<std::string>{"Player_Profiles.ini"});
}

TEST(WriteFileAtomically, CreatesAFileThatDidNotExist) {
  TempFolder dir;
  ASSERT_FALSE(WriteFileAtomically(dir / "MyPrefs.ini", "x|y\r\n").has_value());
  EXPECT_EQ(ReadBytes(dir / "MyPrefs.ini"), "x|y\r\n");
}

TEST(WriteFileAtomically, KeepsTheOldFilesPermissions) {
  TempFolder dir;
  const auto path = dir / "MyPrefs.ini";
  WriteBytes(path, "old");
  ::chmod(path.c_str(), 0640);
  ASSERT_FALSE(WriteFileAtomically(path, "new").has_value());
  struct stat st {};
  ASSERT_EQ(::stat(path.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0640u);
}

TEST(WriteFileAtomically, ReplacesTheTargetOfASymbolicLinkAndKeepsTheLink) {
  TempFolder dir;
  fs::create_directory(dir / "elsewhere");
  const auto target = dir / "elsewhere" / "Player_Profiles.ini";
  WriteBytes(target, "old");
  fs::create_symlink(target, dir / "Player_Profiles.ini");
  ASSERT_FALSE(WriteFileAtomically(dir / "Player_Profiles.ini", "new").has_value());
  EXPECT_TRUE(fs::is_symlink(dir / "Player_Profiles.ini"));
  EXPECT_EQ(ReadBytes(target), "new");
}

TEST(WriteFileAtomically, ALinkToAFileNotYetThereCreatesItAndKeepsTheLink) {
  TempFolder dir;
  fs::create_directory(dir / "usb");
  const auto target = dir / "usb" / "Player_Profiles.ini";
  fs::create_symlink(target, dir / "Player_Profiles.ini");
  ASSERT_FALSE(WriteFileAtomically(dir / "Player_Profiles.ini", "new").has_value());
  EXPECT_TRUE(fs::is_symlink(dir / "Player_Profiles.ini"));
  EXPECT_EQ(fs::read_symlink(dir / "Player_Profiles.ini"), target);
  EXPECT_EQ(ReadBytes(target), "new");
  EXPECT_EQ(dir.Entries(), (std::vector<std::string>{"Player_Profiles.ini", "usb"}));
}

TEST(WriteFileAtomically, ALinkToAFolderThatIsNotThereIsRefusedAndStays) {
  TempFolder dir;
  const auto target = dir / "usb" / "Player_Profiles.ini";  // a drive that is not mounted
  fs::create_symlink(target, dir / "Player_Profiles.ini");
  const auto failure = WriteFileAtomically(dir / "Player_Profiles.ini", "new");
  ASSERT_TRUE(failure.has_value());
  EXPECT_EQ(*failure, "it is a symbolic link to \"" + target.string() + "\", and there is no folder \"" +
                          (dir / "usb").string() + "\" to hold that file");
  EXPECT_TRUE(fs::is_symlink(dir / "Player_Profiles.ini"));
  EXPECT_EQ(fs::read_symlink(dir / "Player_Profiles.ini"), target);
  EXPECT_EQ(dir.Entries(), std::vector<std::string>{"Player_Profiles.ini"});
}

TEST(WriteFileAtomically, AChainOfLinksIsFollowedToItsEndRelativeLinksFromTheirOwnFolder) {
  TempFolder dir;
  fs::create_directories(dir / "a");
  fs::create_directories(dir / "b");
  fs::create_symlink("../b/MyPrefs.ini", dir / "a" / "MyPrefs.ini");  // relative to the folder "a"
  fs::create_symlink(dir / "a" / "MyPrefs.ini", dir / "MyPrefs.ini");
  ASSERT_FALSE(WriteFileAtomically(dir / "MyPrefs.ini", "x|y\r\n").has_value());
  EXPECT_TRUE(fs::is_symlink(dir / "MyPrefs.ini"));
  EXPECT_TRUE(fs::is_symlink(dir / "a" / "MyPrefs.ini"));
  EXPECT_EQ(ReadBytes(dir / "b" / "MyPrefs.ini"), "x|y\r\n");
}

TEST(WriteFileAtomically, LinksThatGoRoundInACircleAreRefusedAndStay) {
  TempFolder dir;
  fs::create_symlink(dir / "two", dir / "MyPrefs.ini");
  fs::create_symlink(dir / "MyPrefs.ini", dir / "two");
  const auto failure = WriteFileAtomically(dir / "MyPrefs.ini", "new");
  ASSERT_TRUE(failure.has_value());
  EXPECT_TRUE(fs::is_symlink(dir / "MyPrefs.ini"));
  EXPECT_TRUE(fs::is_symlink(dir / "two"));
  EXPECT_EQ(dir.Entries(), (std::vector<std::string>{"MyPrefs.ini", "two"}));
}

TEST(WriteFileAtomically, ASaveKilledHalfwayLeavesTheOldFileUnchanged) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  const std::string old = "the profiles of months of play";
  WriteBytes(path, old);
  const std::string fresh(1 << 20, 'n');
  const rlim_t half = fresh.size() / 2;
  // The kernel kills the saving child as soon as the file reaches half its size: a crash mid-write.
  ASSERT_NO_FATAL_FAILURE(KillASaveHalfway([&] { WriteFileAtomically(path, fresh); }, half));
  EXPECT_EQ(ReadBytes(path), old);
  // The half-written temporary file is what the crash left; the old file was never touched.
  std::size_t halfWritten = 0;
  for (const auto& name : dir.Entries()) {
    if (name != "Player_Profiles.ini" && fs::file_size(dir / name) == half) ++halfWritten;
  }
  EXPECT_EQ(halfWritten, 1u);
}

TEST(WriteFileAtomically, AWriteThatFailsLeavesTheOldFileAndNoTemporaryFile) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  WriteBytes(path, "old");
  std::optional<std::string> failure;
  {
    FileSizeLimit limit(4096);
    failure = WriteFileAtomically(path, std::string(100000, 'n'));
  }
  ASSERT_TRUE(failure.has_value());
  EXPECT_EQ(*failure, "writing failed (File too large)");
  EXPECT_EQ(ReadBytes(path), "old");
  EXPECT_EQ(dir.Entries(), std::vector<std::string>{"Player_Profiles.ini"});
}

TEST(WriteFileAtomically, ARenameThatFailsLeavesTheOldEntryAndNoTemporaryFile) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  fs::create_directory(path);  // a folder in the file's place, not empty: nothing can be renamed over it
  WriteBytes(path / "inside", "kept");
  const auto failure = WriteFileAtomically(path, "new");
  ASSERT_TRUE(failure.has_value());
  EXPECT_EQ(failure->rfind("the new file could not take the old one's place (", 0), 0u) << *failure;
  EXPECT_EQ(ReadBytes(path / "inside"), "kept");
  EXPECT_EQ(dir.Entries(), std::vector<std::string>{"Player_Profiles.ini"});
}

TEST(WriteFileAtomically, AMissingFolderIsReported) {
  TempFolder dir;
  const auto failure = WriteFileAtomically(dir / "no" / "such" / "MyPrefs.ini", "x");
  ASSERT_TRUE(failure.has_value());
  EXPECT_EQ(*failure, "the temporary file could not be created (No such file or directory)");
}

TEST(ReadWholeFile, ReadsEveryByte) {
  TempFolder dir;
  std::string bytes;
  for (int i = 0; i < 100000; ++i) bytes.push_back(static_cast<char>(i * 7));
  WriteBytes(dir / "f", bytes);
  const FileRead read = ReadWholeFile(dir / "f", 1 << 20);
  EXPECT_EQ(read.status, FileRead::Status::Read);
  EXPECT_EQ(read.bytes, bytes);
}

TEST(ReadWholeFile, AMissingFileIsMissing) {
  TempFolder dir;
  EXPECT_EQ(ReadWholeFile(dir / "nothing", 100).status, FileRead::Status::Missing);
}

TEST(ReadWholeFile, AFolderIsRefused) {
  TempFolder dir;
  const FileRead read = ReadWholeFile(dir.path(), 100);
  EXPECT_EQ(read.status, FileRead::Status::Failed);
  EXPECT_EQ(read.reason, "it is a folder, not a file");
}

TEST(ReadWholeFile, APipeIsRefusedAtOnceInsteadOfWaitingForAWriter) {
  TempFolder dir;
  ASSERT_EQ(::mkfifo((dir / "pipe").c_str(), 0600), 0);
  const FileRead read = ReadWholeFile(dir / "pipe", 100);
  EXPECT_EQ(read.status, FileRead::Status::Failed);
  EXPECT_EQ(read.reason, "it is not a regular file");
}

TEST(ReadWholeFile, ADeviceThatNeverEndsIsRefused) {
  const FileRead read = ReadWholeFile("/dev/zero", 100);
  EXPECT_EQ(read.status, FileRead::Status::Failed);
}

TEST(ReadWholeFile, AFileLongerThanTheLimitIsRefusedUnread) {
  TempFolder dir;
  WriteBytes(dir / "f", std::string(101, 'x'));
  const FileRead read = ReadWholeFile(dir / "f", 100);
  EXPECT_EQ(read.status, FileRead::Status::Failed);
  EXPECT_EQ(read.reason, "it is 101 bytes long, more than the 100 bytes such a file can hold");
  EXPECT_TRUE(read.bytes.empty());
}

TEST(KeepFileAside, KeepsACopyNamedBadBesideTheFile) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  WriteBytes(path, "broken");
  const std::string bytes = "broken";
  const SetAside aside = KeepFileAside(path, &bytes);
  EXPECT_EQ(aside.copy, dir / "Player_Profiles.ini.bad");
  EXPECT_EQ(ReadBytes(dir / "Player_Profiles.ini.bad"), "broken");
  EXPECT_EQ(ReadBytes(path), "broken");  // the original stays until the next save replaces it
}

TEST(KeepFileAside, AnEarlierCopyIsNotOverwritten) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  WriteBytes(dir / "Player_Profiles.ini.bad", "last month");
  const std::string today = "today";
  const std::string tomorrow = "tomorrow";
  EXPECT_EQ(KeepFileAside(path, &today).copy, dir / "Player_Profiles.ini.bad.2");
  EXPECT_EQ(KeepFileAside(path, &tomorrow).copy, dir / "Player_Profiles.ini.bad.3");
  EXPECT_EQ(ReadBytes(dir / "Player_Profiles.ini.bad"), "last month");
  EXPECT_EQ(ReadBytes(dir / "Player_Profiles.ini.bad.2"), "today");
  EXPECT_EQ(ReadBytes(dir / "Player_Profiles.ini.bad.3"), "tomorrow");
}

TEST(KeepFileAside, AFileWhoseBytesAreNotAtHandIsRenamed) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  fs::create_directory(path);
  const SetAside aside = KeepFileAside(path, nullptr);
  EXPECT_EQ(aside.copy, dir / "Player_Profiles.ini.bad");
  EXPECT_FALSE(fs::exists(path));
  EXPECT_TRUE(fs::is_directory(dir / "Player_Profiles.ini.bad"));
}

TEST(KeepFileAside, AFileBehindALinkIsRenamedBesideItselfAndTheLinkStays) {
  TempFolder dir;
  fs::create_directory(dir / "usb");
  WriteBytes(dir / "usb" / "MyPrefs.ini", "unreadable");
  fs::create_symlink(dir / "usb" / "MyPrefs.ini", dir / "MyPrefs.ini");
  const SetAside aside = KeepFileAside(dir / "MyPrefs.ini", nullptr);
  EXPECT_EQ(aside.copy, dir / "usb" / "MyPrefs.ini.bad");
  EXPECT_EQ(ReadBytes(dir / "usb" / "MyPrefs.ini.bad"), "unreadable");
  EXPECT_TRUE(fs::is_symlink(dir / "MyPrefs.ini"));
}

}  // namespace
}  // namespace quillet
