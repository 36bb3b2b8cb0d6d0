// quillet-cli's profile commands beside other writers of the same file, and names that hold control
// characters.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "cards/hand_class.h"
#include "storage/profile_file.h"
#include "tests/cli/cli_run.h"
#include "tests/support/sanitizer.h"

namespace quillet::cli {
namespace {

class ProfilesBesideOtherWriters : public ProfilesCommandTest {
 protected:
  // Runs the command in a process of its own, as a second quillet-cli would; returns the process.
  pid_t Start(std::vector<std::string> words) {
    const pid_t child = fork();
    if (child == 0) _exit(Run(std::move(words)).status);
    return child;
  }
};

// "A1", "B17", ...
std::string Name(char side, int round) {
  std::string name(1, side);
  name += std::to_string(round);
  return name;
}

int ExitStatus(pid_t child) {
  int status = 0;
  if (waitpid(child, &status, 0) != child || !WIFEXITED(status)) return -1;
  return WEXITSTATUS(status);
}

TEST_F(ProfilesBesideOtherWriters, ManyRoundsOfTwoAddsAtOnceKeepAllTheProfiles) {
  // Fifty rounds; ten under the sanitizer, whose processes start slowly.
  const int rounds = quillet::testing::SweepRounds(50, 5);
  ASSERT_EQ(Run({"add", "Generic", "--range", "AA"}).status, kExitOk);
  for (int round = 1; round <= rounds; ++round) {
    const pid_t a = Start({"add", Name('A', round), "--range", "AA"});
    const pid_t b = Start({"add", Name('B', round), "--range", "KK"});
    ASSERT_GT(a, 0);
    ASSERT_GT(b, 0);
    ASSERT_EQ(ExitStatus(a), kExitOk) << "round " << round;
    ASSERT_EQ(ExitStatus(b), kExitOk) << "round " << round;
  }
  const ProfileFileContents read = ReadProfileFile(File());
  ASSERT_EQ(read.status, ProfileFileContents::Status::Read);
  EXPECT_EQ(read.profiles.size(), static_cast<std::size_t>(2 * rounds + 1));
  for (int round = 1; round <= rounds; ++round) {
    for (const char side : {'A', 'B'}) {
      const std::string name = Name(side, round);
      bool found = false;
      for (const PlayerProfile& p : read.profiles) found = found || p.name == name;
      EXPECT_TRUE(found) << name << " was lost";
    }
  }
}

TEST_F(ProfilesBesideOtherWriters, ListShowsAControlCharacterInANameAsAnEscape) {
  ASSERT_EQ(Run({"add", "\x1b[2J\x1b[31mX", "--range", "AA"}).status, kExitOk);
  ASSERT_EQ(Run({"add", "Amy\nBob", "--range", "KK"}).status, kExitOk);
  const CliRun list = Run({"list"});
  EXPECT_EQ(list.status, kExitOk);
  EXPECT_EQ(list.out, "\\x1B[2J\\x1B[31mX\nAmy\\x0ABob\n");
}

TEST_F(ProfilesBesideOtherWriters, ShowAndAddEscapeTheNameAndTheRangeText) {
  const CliRun add = Run({"add", "Amy\x1b", "--range", "AA", "--range-text", "0.5\x07"});
  EXPECT_EQ(add.status, kExitOk);
  EXPECT_EQ(add.out, "Added the profile \"Amy\\x1B\" to \"" + File() + "\".\n");
  const CliRun show = Run({"show", "Amy\x1b"});
  EXPECT_EQ(show.status, kExitOk);
  EXPECT_EQ(show.out.substr(0, show.out.find("On layer")), "Profile: Amy\\x1B\nRange text: 0.5\\x07\n");
  const CliRun json = Run({"show", "Amy\x1b", "--json"});
  EXPECT_EQ(json.out.rfind("{\"name\":\"Amy\\u001b\"", 0), 0u) << json.out;
}

}  // namespace
}  // namespace quillet::cli
