// What a save leaves behind when things go wrong around it: a killed save's temporary file, a file its
// owner could not read, copies of unreadable files, a folder that cannot be made, a huge file, and two
// writers at once.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

#include "storage/file_io.h"
#include "storage/file_lock.h"
#include "storage/profile_file.h"
#include "storage/terminal_text.h"
#include "tests/storage/temp_folder.h"
#include "tests/support/killed_save.h"
#include "tests/support/le_bytes.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;
using testing::KillASaveHalfway;
using testing::ReadBytes;
using testing::TempFolder;
using testing::WriteBytes;

unsigned ModeOf(const fs::path& path) {
  struct stat st {};
  EXPECT_EQ(::stat(path.c_str(), &st), 0) << path;
  return st.st_mode & 07777;
}

TEST(StaleTemporaryFiles, TheNextSaveRemovesTheTemporaryFileAKilledSaveLeft) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  WriteBytes(path, "old");
  const std::string fresh(1 << 20, 'n');
  KillASaveHalfway([&] { WriteFileAtomically(path, fresh); }, fresh.size() / 2);
  ASSERT_EQ(dir.Entries().size(), 2u) << "the killed save left its temporary file";
  ASSERT_FALSE(WriteFileAtomically(path, "new").has_value());
  EXPECT_EQ(dir.Entries(), std::vector<std::string>{"Player_Profiles.ini"});
  EXPECT_EQ(ReadBytes(path), "new");
}

TEST(StaleTemporaryFiles, ThoseOfRunningProcessesAndOfOtherFilesStay) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  const std::string mine = ".Player_Profiles.ini." + std::to_string(::getpid()) + ".1.2.tmp";
  const std::string parents = ".Player_Profiles.ini." + std::to_string(::getppid()) + ".1.2.tmp";
  const std::string otherFile = ".MyPrefs.ini.999999999.1.2.tmp";
  const std::string notOurs = ".Player_Profiles.ini.notes.tmp";
  for (const auto& name : {mine, parents, otherFile, notOurs}) WriteBytes(dir / name, "x");
  EXPECT_EQ(RemoveStaleTemporaryFiles(path), 0);
  ASSERT_FALSE(WriteFileAtomically(path, "new").has_value());
  EXPECT_EQ(dir.Entries().size(), 5u);
}

TEST(StaleTemporaryFiles, AnyNumberOfThemGoAtOnce) {
  TempFolder dir;
  const auto path = dir / "MyPrefs.ini";
  // A process that has ended, so that its id names no running process (until the system reuses it).
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) _exit(0);
  ASSERT_EQ(waitpid(child, nullptr, 0), child);
  for (int n = 1; n <= 20; ++n)
    WriteBytes(dir / (".MyPrefs.ini." + std::to_string(child) + "." + std::to_string(n) + ".77.tmp"), "x");
  EXPECT_EQ(RemoveStaleTemporaryFiles(path), 20);
  EXPECT_TRUE(dir.Entries().empty());
}

TEST(SavePermissions, AFileItsOwnerCouldNotReadIsSavedReadableAndWritableByTheOwner) {
  TempFolder dir;
  const auto path = dir / "MyPrefs.ini";
  WriteBytes(path, "old");
  ::chmod(path.c_str(), 0);
  ASSERT_FALSE(WriteFileAtomically(path, "new").has_value());
  EXPECT_EQ(ModeOf(path), 0600u);
}

TEST(SavePermissions, OtherBitsOfTheOldModeStay) {
  TempFolder dir;
  const auto path = dir / "MyPrefs.ini";
  WriteBytes(path, "old");
  ::chmod(path.c_str(), 0444);
  ASSERT_FALSE(WriteFileAtomically(path, "new").has_value());
  EXPECT_EQ(ModeOf(path), 0644u);
}

TEST(SavePermissions, ACopyKeptAsideHasTheFilesOwnMode) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  WriteBytes(path, "private");
  ::chmod(path.c_str(), 0600);
  const std::string bytes = "private";
  ASSERT_EQ(KeepFileAside(path, &bytes).copy, dir / "Player_Profiles.ini.bad");
  EXPECT_EQ(ModeOf(dir / "Player_Profiles.ini.bad"), 0600u);
  WriteBytes(path, "other version");
  ::chmod(path.c_str(), 0640);
  ASSERT_EQ(CopyFileAside(path).copy, dir / "Player_Profiles.ini.bad.2");
  EXPECT_EQ(ModeOf(dir / "Player_Profiles.ini.bad.2"), 0640u);
}

TEST(KeptCopies, AFileKeptTwiceIsCopiedOnce) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  const std::string bytes = "broken";
  WriteBytes(path, bytes);
  EXPECT_EQ(KeepFileAside(path, &bytes).copy, dir / "Player_Profiles.ini.bad");
  EXPECT_EQ(KeepFileAside(path, &bytes).copy, dir / "Player_Profiles.ini.bad");
  EXPECT_EQ(CopyFileAside(path).copy, dir / "Player_Profiles.ini.bad");
  EXPECT_EQ(dir.Entries(), (std::vector<std::string>{"Player_Profiles.ini", "Player_Profiles.ini.bad"}));
}

TEST(KeptCopies, AnIdenticalCopyUnderALaterNameIsFoundToo) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  WriteBytes(dir / "Player_Profiles.ini.bad", "last month");
  WriteBytes(dir / "Player_Profiles.ini.bad.2", "today");
  WriteBytes(path, "today");
  EXPECT_EQ(CopyFileAside(path).copy, dir / "Player_Profiles.ini.bad.2");
  EXPECT_EQ(dir.Entries().size(), 3u);
}

TEST(KeptCopies, AFileThatChangedIsCopiedAgain) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  WriteBytes(path, "first");
  EXPECT_EQ(CopyFileAside(path).copy, dir / "Player_Profiles.ini.bad");
  WriteBytes(path, "fives");  // the same length, other bytes
  EXPECT_EQ(CopyFileAside(path).copy, dir / "Player_Profiles.ini.bad.2");
  EXPECT_EQ(ReadBytes(dir / "Player_Profiles.ini.bad"), "first");
  EXPECT_EQ(ReadBytes(dir / "Player_Profiles.ini.bad.2"), "fives");
}

TEST(KeptCopies, ACopyOfALongFileIsByteForByteTheSame) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  std::string bytes;
  for (int i = 0; i < 300000; ++i) bytes.push_back(static_cast<char>(i * 31 + i / 7));
  WriteBytes(path, bytes);
  EXPECT_EQ(CopyFileAside(path).copy, dir / "Player_Profiles.ini.bad");
  EXPECT_EQ(ReadBytes(dir / "Player_Profiles.ini.bad"), bytes);
  EXPECT_EQ(CopyFileAside(path).copy, dir / "Player_Profiles.ini.bad");
}

TEST(SaveMessages, AFailedSaveWhereThereWasNoFileSaysSo) {
  TempFolder dir;
  const auto error = WriteProfileFile(dir / "missing" / "Player_Profiles.ini", {});
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->message, "The player profiles could not be saved to \"" +
                                (dir / "missing" / "Player_Profiles.ini").string() +
                                "\": the temporary file could not be created (No such file or directory). "
                                "There was no file there, and none was made.");
}

TEST(SaveMessages, AFolderThatCannotBeMadeIsNamedWithTheReason) {
  TempFolder dir;
  WriteBytes(dir / "home", "a file where a folder should be");
  const auto failure = CreateFolderFor(dir / "home" / "quillet" / "MyPrefs.ini");
  ASSERT_TRUE(failure.has_value());
  EXPECT_EQ(*failure, "the folder \"" + (dir / "home" / "quillet").string() +
                          "\" could not be created (Not a directory)");
  EXPECT_FALSE(CreateFolderFor(dir / "new" / "quillet" / "MyPrefs.ini").has_value());
  EXPECT_TRUE(fs::is_directory(dir / "new" / "quillet"));
}

// A file of `size` bytes that takes no room on the disk, starting with `head`.
void WriteSparseFile(const fs::path& path, const std::string& head, off_t size) {
  const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
  ASSERT_GE(fd, 0);
  ASSERT_EQ(::write(fd, head.data(), head.size()), static_cast<ssize_t>(head.size()));
  ASSERT_EQ(::ftruncate(fd, size), 0);
  ::close(fd);
}

using testing::Le32;

// Reads the file in a child allowed `memoryBytes` of address space; true when the child got through.
bool ReadsWithin(const fs::path& path, rlim_t memoryBytes, ProfileFileContents::Status expected) {
  const pid_t child = fork();
  if (child == 0) {
    rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    rlimit limit{memoryBytes, memoryBytes};
    setrlimit(RLIMIT_AS, &limit);
    try {
      const ProfileFileContents read = ReadProfileFile(path);
      _exit(read.status == expected && read.bytes.empty() ? 0 : 1);
    } catch (...) {
      _exit(1);  // out of memory
    }
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kUnderAddressSanitizer = true;
#else
constexpr bool kUnderAddressSanitizer = false;
#endif

TEST(HugeProfileFiles, ACountTheFileCannotHoldIsRefusedAtTheCostOfTheHead) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  const off_t size = off_t{1} << 30;
  WriteSparseFile(path, Le32(1) + Le32(0x7FFFFFFF), size);
  const ProfileFileContents read = ReadProfileFile(path);
  EXPECT_EQ(read.status, ProfileFileContents::Status::Faulty);
  ASSERT_TRUE(read.error.has_value());
  EXPECT_EQ(read.error->message,
            "The player profile file \"" + path.string() +
                "\" cannot be read: it says it holds 2147483647 profiles, but its 1073741824 bytes have room "
                "for at most " +
                std::to_string((size - 8) / kSmallestProfileBlockBytes) + ".");
  EXPECT_TRUE(read.bytes.empty());
  if (kUnderAddressSanitizer) GTEST_SKIP() << "the sanitizer reserves more address space than the limit";
  // Reading the gibibyte would need a gibibyte: 256 MiB of address space is plenty for the head alone.
  EXPECT_TRUE(ReadsWithin(path, rlim_t{256} << 20, ProfileFileContents::Status::Faulty));
}

TEST(HugeProfileFiles, AnotherVersionIsRecognisedAtTheCostOfTheHead) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  WriteSparseFile(path, Le32(2097153) + Le32(1), off_t{1} << 30);
  const ProfileFileContents read = ReadProfileFile(path);
  EXPECT_EQ(read.status, ProfileFileContents::Status::OtherVersion);
  EXPECT_EQ(read.version, 2097153);
  if (kUnderAddressSanitizer) GTEST_SKIP() << "the sanitizer reserves more address space than the limit";
  EXPECT_TRUE(ReadsWithin(path, rlim_t{256} << 20, ProfileFileContents::Status::OtherVersion));
}

TEST(HugeProfileFiles, ANegativeCountIsRefusedAtTheCostOfTheHead) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  WriteSparseFile(path, Le32(1) + Le32(-5), off_t{1} << 30);
  const ProfileFileContents read = ReadProfileFile(path);
  EXPECT_EQ(read.status, ProfileFileContents::Status::Faulty);
  EXPECT_NE(read.error->message.find("it says it holds -5 profiles."), std::string::npos);
}

TEST(WriteLockTest, ASecondWriterWaitsForTheFirstAndGivesUpWithAReason) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  {
    const WriteLock first(path);
    ASSERT_FALSE(first.failure().has_value());
    const WriteLock second(path, std::chrono::milliseconds(50));
    ASSERT_TRUE(second.failure().has_value());
    EXPECT_EQ(*second.failure(),
              "another program kept the folder \"" + dir.path().string() + "\" locked for 50 milliseconds");
  }
  const WriteLock third(path, std::chrono::milliseconds(50));
  EXPECT_FALSE(third.failure().has_value()) << "the first writer's lock ended with it";
}

TEST(WriteLockTest, AWriterInAnotherProcessWaitsUntilTheLockIsFree) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  int ready[2];
  ASSERT_EQ(::pipe(ready), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    const WriteLock lock(path);
    char c = 'x';
    (void)::write(ready[1], &c, 1);
    ::usleep(200 * 1000);
    WriteBytes(path, "child");
    _exit(0);
  }
  char c = 0;
  ASSERT_EQ(::read(ready[0], &c, 1), 1);
  {
    const WriteLock lock(path);
    ASSERT_FALSE(lock.failure().has_value());
    EXPECT_EQ(ReadBytes(path), "child") << "the lock was had before the other writer was done";
  }
  waitpid(child, nullptr, 0);
  ::close(ready[0]);
  ::close(ready[1]);
}

TEST(EscapeControlCharactersTest, AnEscapeSequenceIsShownNotObeyed) {
  EXPECT_EQ(EscapeControlCharacters("\x1b[2J\x1b[31mX"), "\\x1B[2J\\x1B[31mX");
}

TEST(EscapeControlCharactersTest, ALineBreakTabAndDeleteAreShownAsEscapes) {
  EXPECT_EQ(EscapeControlCharacters("Amy\nBob\r\t\x7f"), "Amy\\x0ABob\\x0D\\x09\\x7F");
}

TEST(EscapeControlCharactersTest, C1ControlsAreShownAsEscapes) {
  EXPECT_EQ(EscapeControlCharacters("a\xc2\x9b"
                                    "2J"),
            "a\\u009B2J");
}

TEST(EscapeControlCharactersTest, OrdinaryTextComesOutUnchanged) {
  for (const std::string text : {"Generic", "Fish 2", "caf\xc3\xa9 \xe2\x82\xac", "a\\b", "~0.8", ""})
    EXPECT_EQ(EscapeControlCharacters(text), text);
}

}  // namespace
}  // namespace quillet
