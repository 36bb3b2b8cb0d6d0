#include <gtest/gtest.h>

#include <sstream>

#include "cli/commands.h"
#include "cli/options.h"
#include "quillet/version.h"
#include "tests/cli/cli_run.h"

namespace quillet::cli {
namespace {

TEST(Cli, VersionPrintsMajorMinorRevisionFromTheBuild) {
  const CliRun run = RunCommandLine({"--version"});
  EXPECT_EQ(run.status, 0);
  const std::string expected = std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." +
                               std::to_string(kVersionRevision);
  EXPECT_EQ(run.out, "quillet-cli " + expected + "\n");
  EXPECT_EQ(std::string(kVersionText), expected);
}

TEST(Cli, HelpNamesTheProgramAndExitsWithZero) {
  const CliRun run = RunCommandLine({"--help"});
  EXPECT_EQ(run.status, 0);
  EXPECT_NE(run.out.find("Usage: quillet-cli COMMAND"), std::string::npos);
  for (const Command& c : Commands()) EXPECT_NE(run.out.find(c.name), std::string::npos) << c.name;
}

TEST(Cli, AnUnknownCommandIsRefusedWithStatusTwo) {
  const CliRun run = RunCommandLine({"frobnicate"});
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find("frobnicate"), std::string::npos);
}

TEST(Cli, NoArgumentsPrintsUsageOnStderrWithStatusTwo) {
  const CliRun run = RunCommandLine({});
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(run.out.empty());
  EXPECT_NE(run.err.find("Usage"), std::string::npos);
}

TEST(JsonString, EscapesQuotesBackslashesAndControlCharacters) {
  EXPECT_EQ(JsonString("a\"b\\c\r\n"), "\"a\\\"b\\\\c\\r\\n\"");
  EXPECT_EQ(JsonString(std::string("\x01", 1)), "\"\\u0001\"");
  EXPECT_EQ(JsonString("\xE2\x80\xA2"), "\"\xE2\x80\xA2\"");  // UTF-8 passes through
}

}  // namespace
}  // namespace quillet::cli
