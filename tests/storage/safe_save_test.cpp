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
#include <thread>

#include "cards/terminal_text.h"
#include "storage/file_io.h"
#include "storage/file_lock.h"
#include "storage/profile_file.h"
#include "tests/storage/memory_budget.h"
#include "tests/storage/temp_folder.h"
#include "tests/support/killed_save.h"
#include "tests/support/le_bytes.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;
using testing::KillASaveHalfway;
using testing::kUnderSanitizer;
using testing::ReadBytes;
using testing::RunsWithin;
using testing::TempFolder;
using testing::WriteBytes;
using testing::WriteSparseFile;

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

TEST(StaleTemporaryFiles, TheNextSaveRemovesTheTemporaryFilesOfKilledCopiesKeptAside) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  const std::string faulty(1 << 20, 'f');
  WriteBytes(path, faulty);
  // Killed while the copy ".bad" was written, then, with a ".bad" there already, while ".bad.2" was.
  KillASaveHalfway([&] { KeepFileAside(path, &faulty); }, faulty.size() / 2);
  WriteBytes(dir / "Player_Profiles.ini.bad", "an older faulty file");
  KillASaveHalfway([&] { CopyFileAside(path); }, faulty.size() / 2);
  ASSERT_EQ(dir.Entries().size(), 4u) << "the killed copies left their temporary files";
  ASSERT_FALSE(WriteFileAtomically(path, "new").has_value());
  EXPECT_EQ(dir.Entries(), (std::vector<std::string>{"Player_Profiles.ini", "Player_Profiles.ini.bad"}));
}

TEST(StaleTemporaryFiles, ThoseOfCopiesOfOtherFilesStay) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  const std::string otherFile = ".MyPrefs.ini.bad.999999999.1.2.tmp";
  const std::string noCopyNumber = ".Player_Profiles.ini.bad.x.999999999.1.2.tmp";
  const std::string tooManyNumbers = ".Player_Profiles.ini.bad.2.3.999999999.1.2.tmp";
  for (const auto& name : {otherFile, noCopyNumber, tooManyNumbers}) WriteBytes(dir / name, "x");
  EXPECT_EQ(RemoveStaleTemporaryFiles(path), 0);
  EXPECT_EQ(dir.Entries().size(), 3u);
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

using testing::Le32;

// Reads the file in a child whose address space may grow by `budgetBytes`; true when the child got through
// and the file came back as `expected`, unread.
bool ReadsWithin(const fs::path& path, std::size_t budgetBytes, ProfileFileContents::Status expected) {
  return RunsWithin(budgetBytes, [&] {
    const ProfileFileContents read = ReadProfileFile(path);
    return read.status == expected && read.bytes.empty();
  });
}

constexpr std::size_t kMiB = std::size_t{1} << 20;
// The longest file that is read at all: a file of that length makes reading it whole cost that much.
const auto kLongestReadFile = static_cast<off_t>(kLargestProfileFileBytes);

TEST(HugeProfileFiles, ACountTheFileCannotHoldIsRefusedAtTheCostOfTheHead) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  const off_t size = kLongestReadFile;
  WriteSparseFile(path, Le32(1) + Le32(0x7FFFFFFF), size);
  const ProfileFileContents read = ReadProfileFile(path);
  EXPECT_EQ(read.status, ProfileFileContents::Status::Faulty);
  ASSERT_TRUE(read.error.has_value());
  EXPECT_EQ(read.error->message,
            "The player profile file \"" + path.string() + "\" cannot be read: it says it holds 2147483647 " +
                "profiles, but its " + std::to_string(size) + " bytes have room for at most " +
                std::to_string((size - 8) / kSmallestProfileBlockBytes) + ".");
  EXPECT_TRUE(read.bytes.empty());
  if (kUnderSanitizer) GTEST_SKIP() << "the sanitizer reserves more address space than the limit";
  // Reading the file would need all of its 64 MiB: 16 MiB more address space is plenty for the head alone.
  EXPECT_TRUE(ReadsWithin(path, 16 * kMiB, ProfileFileContents::Status::Faulty));
}

TEST(HugeProfileFiles, AnotherVersionIsRecognisedAtTheCostOfTheHead) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  WriteSparseFile(path, Le32(2097153) + Le32(1), kLongestReadFile);
  const ProfileFileContents read = ReadProfileFile(path);
  EXPECT_EQ(read.status, ProfileFileContents::Status::OtherVersion);
  EXPECT_EQ(read.version, 2097153);
  if (kUnderSanitizer) GTEST_SKIP() << "the sanitizer reserves more address space than the limit";
  EXPECT_TRUE(ReadsWithin(path, 16 * kMiB, ProfileFileContents::Status::OtherVersion));
}

TEST(HugeProfileFiles, ANegativeCountIsRefusedAtTheCostOfTheHead) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  WriteSparseFile(path, Le32(1) + Le32(-5), kLongestReadFile);
  const ProfileFileContents read = ReadProfileFile(path);
  EXPECT_EQ(read.status, ProfileFileContents::Status::Faulty);
  EXPECT_NE(read.error->message.find("it says it holds -5 profiles."), std::string::npos);
}

TEST(HugeProfileFiles, AGibibyteFileClaimingOneProfileIsRefusedWithinFiftyMegabytes) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  const off_t size = off_t{1} << 30;
  WriteSparseFile(path, Le32(1) + Le32(1), size);
  const ProfileFileContents read = ReadProfileFile(path);
  EXPECT_EQ(read.status, ProfileFileContents::Status::Faulty);
  ASSERT_TRUE(read.error.has_value());
  EXPECT_EQ(read.error->message, "The player profile file \"" + path.string() +
                                     "\" cannot be read: it is 1073741824 bytes long, more than the 67108864 "
                                     "bytes such a file can hold.");
  EXPECT_TRUE(read.bytes.empty());
  if (kUnderSanitizer) GTEST_SKIP() << "the sanitizer reserves more address space than the limit";
  EXPECT_TRUE(ReadsWithin(path, 50 * 1000 * 1000, ProfileFileContents::Status::Faulty));
}

// The head of a one-profile file: the version, the count, an empty name and a range text of `textBytes`.
std::string OneProfileHead(int32_t textBytes) {
  return Le32(1) + Le32(1) + Le32(0) + Le32(textBytes) +
         std::string(static_cast<std::size_t>(textBytes), '5');
}

TEST(HugeProfileFiles, AFileLongerThanItsProfilesFillIsRefusedAtTheCostOfTheirLengths) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  // One profile with a range text of 3 bytes fills 8 + 4 + 4 + 3 + 338 * 188 = 63,563 bytes.
  WriteSparseFile(path, OneProfileHead(3), kLongestReadFile);
  const ProfileFileContents read = ReadProfileFile(path);
  EXPECT_EQ(read.status, ProfileFileContents::Status::Faulty);
  ASSERT_TRUE(read.error.has_value());
  EXPECT_EQ(read.error->message, "The player profile file \"" + path.string() + "\" cannot be read: it is " +
                                     std::to_string(kLongestReadFile) +
                                     " bytes long, but the 1 profile it holds fills only 63563.");
  EXPECT_TRUE(read.bytes.empty());
  EXPECT_TRUE(read.profiles.empty());
  if (kUnderSanitizer) GTEST_SKIP() << "the sanitizer reserves more address space than the limit";
  EXPECT_TRUE(ReadsWithin(path, 16 * kMiB, ProfileFileContents::Status::Faulty));
}

TEST(HugeProfileFiles, AFileShorterThanItsProfilesFillIsReadToNameItsFault) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  WriteSparseFile(path, OneProfileHead(3), 50000);
  const ProfileFileContents read = ReadProfileFile(path);
  EXPECT_EQ(read.status, ProfileFileContents::Status::Faulty);
  ASSERT_TRUE(read.error.has_value());
  // Read and named by its first fault (its records are zeros), and handed back to be kept aside.
  EXPECT_NE(read.error->message.find("profile 1 of 1"), std::string::npos) << read.error->message;
  EXPECT_EQ(read.bytes.size(), 50000u);
}

TEST(HugeProfileFiles, AFileIsReadIntoOneBufferOfItsLength) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  // As many profiles as the file has room for and one more: too short for them, so it is read whole, and
  // as a faulty file its bytes come back as read.
  const off_t size = 10 * static_cast<off_t>(kMiB);
  const auto count = static_cast<int32_t>((size - 8) / kSmallestProfileBlockBytes + 1);
  WriteSparseFile(path, Le32(1) + Le32(count), size);
  const ProfileFileContents read = ReadProfileFile(path);
  ASSERT_EQ(read.status, ProfileFileContents::Status::Faulty);
  ASSERT_EQ(read.bytes.size(), static_cast<std::size_t>(size));
  // A buffer grown past the file's length to look for more would have doubled.
  EXPECT_LT(read.bytes.capacity(), read.bytes.size() + read.bytes.size() / 2);
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

TEST(WriteLockTest, AWriterThatGivesUpNamesTheProcessThatHoldsTheLock) {
  TempFolder dir;
  const auto path = dir / "Player_Profiles.ini";
  int ready[2];
  int done[2];
  ASSERT_EQ(::pipe(ready), 0);
  ASSERT_EQ(::pipe(done), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    const WriteLock lock(path);
    char c = 'x';
    (void)::write(ready[1], &c, 1);
    (void)::read(done[0], &c, 1);
    _exit(0);
  }
  char c = 0;
  ASSERT_EQ(::read(ready[0], &c, 1), 1);
  const std::optional<std::string> holder = WriteLockHolder(path);
  std::optional<std::string> failure;
  {
    const WriteLock lock(path, std::chrono::milliseconds(50));
    failure = lock.failure();
  }
  (void)::write(done[1], &c, 1);
  waitpid(child, nullptr, 0);
  for (const int fd : {ready[0], ready[1], done[0], done[1]}) ::close(fd);
  const std::string name = ReadBytes("/proc/self/comm").substr(0, ReadBytes("/proc/self/comm").find('\n'));
  const std::string who = name + " (process " + std::to_string(child) + ")";
  EXPECT_EQ(holder, who);
  ASSERT_TRUE(failure.has_value());
  EXPECT_EQ(*failure, "another program, " + who + ", kept the folder \"" + dir.path().string() +
                          "\" locked for 50 milliseconds");
  EXPECT_EQ(WriteLockHolder(path), std::nullopt) << "the lock ended with its process";
}

TEST(WriteLockTest, TheWaitIsTakenInShortStepsByTheStepGiven) {
  TempFolder dir;
  const auto path = dir / "MyPrefs.ini";
  const WriteLock first(path);
  std::vector<std::chrono::milliseconds> steps;
  const WriteLock second(path, std::chrono::milliseconds(300), [&](std::chrono::milliseconds step) {
    steps.push_back(step);
    std::this_thread::sleep_for(step);
  });
  EXPECT_TRUE(second.failure().has_value());
  ASSERT_GE(steps.size(), 2u);
  for (const auto step : steps) EXPECT_LE(step.count(), 50);
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
