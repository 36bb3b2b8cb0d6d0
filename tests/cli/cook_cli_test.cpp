#include <gtest/gtest.h>

#include <string>

#include "tests/cli/cli_run.h"

namespace quillet::cli {
namespace {

int Occurrences(const std::string& text, const std::string& part) {
  int n = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++n;
  return n;
}

// A2s on 9h-T-K of hearts: Ah2h is a flush (also a flush draw); every holding has T-K-A, a backdoor
// straight draw; the other three are ace high, and the board's three hearts are their backdoor flush draw.
TEST(CookCli, PrintsTheCaptionLinesThenEachNonEmptyCategoryWithItsCount) {
  const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "9hThKh", "--range", "A2s"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out,
            "4 Hands in Opponent's Range\n4 Possible Hands\n4 Hands in categories\n"
            "A high: 3\nFlush draws: 1\nBackdoor Flush draw: 3\nBackdoor Straight draw: 4\nFlush: 1\n");
  EXPECT_TRUE(run.err.empty());
}

TEST(CookCli, JsonHoldsAllFiftyFiveEntriesWithTheirHoldingsAndMarks) {
  const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "9hThKh", "--range", "A2s", "--json"});
  ASSERT_EQ(run.status, 0) << run.err;
  const std::string& j = run.out;
  EXPECT_EQ(j.rfind("{\"range\":4,\"possible\":4,\"categorised\":4,\"categories\":[", 0), 0u) << j;
  EXPECT_EQ(Occurrences(j, "{\"index\":"), 55);
  EXPECT_NE(j.find("{\"index\":0,\"label\":\"*High cards\",\"count\":0,\"combos\":[]},"), std::string::npos);
  EXPECT_NE(
      j.find("{\"index\":1,\"label\":\">*A high\",\"count\":3,\"combos\":[\"Ac2c\",\"Ad2d\",\"As2s\"]}"),
      std::string::npos);
  EXPECT_NE(j.find("{\"index\":5,\"label\":\"*\",\"count\":0,\"combos\":[]}"), std::string::npos);
  EXPECT_NE(j.find("{\"index\":27,\"label\":\">*Flush draws\",\"count\":1,\"combos\":[\"Ah2h\"]}"),
            std::string::npos);
  EXPECT_NE(j.find("{\"index\":33,\"label\":\">*Backdoor Straight draw\",\"count\":4,"
                   "\"combos\":[\"Ac2c\",\"Ad2d\",\"Ah2h*\",\"As2s\"]}"),
            std::string::npos);
  EXPECT_NE(j.find("{\"index\":32,\"label\":\">*Backdoor Flush draw\",\"count\":3,"
                   "\"combos\":[\"Ac2c\",\"Ad2d\",\"As2s\"]}"),
            std::string::npos);
  EXPECT_NE(j.find("{\"index\":46,\"label\":\"*Flush\",\"count\":1,\"combos\":[\"Ah2h*\"]}"),
            std::string::npos);
  const std::string end = "{\"index\":54,\"label\":\"*Royal Flush\",\"count\":0,\"combos\":[]}]}\n";
  ASSERT_GE(j.size(), end.size());
  EXPECT_EQ(j.substr(j.size() - end.size()), end);
}

TEST(CookCli, BadInputPrintsTheWindowsMessagesOnStderrWithStatusTwo) {
  CliRun run = RunCommandLine({"cook", "--hand", "AhKd", "--board", "AhK", "--range", "AA"});
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(run.out.empty());
  EXPECT_EQ(run.err, "Board invalid. Valid Eg: ThKc4d\nBad Input\n");
  run = RunCommandLine({"cook", "--hand", "AhKd", "--board", "QsAh4c", "--range", "AA"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "Duplicate card exists\n");
}

TEST(CookCli, AnUnknownClassIsRefusedByName) {
  const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "", "--range", "AA,KQx,72"});
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(run.out.empty());
  EXPECT_NE(run.err.find("\"KQx\""), std::string::npos) << run.err;
  const CliRun seen = RunCommandLine({"cook", "--hand", "", "--board", "", "--range", "AA", "--seen", "AAo"});
  EXPECT_EQ(seen.status, 2);
  EXPECT_NE(seen.err.find("\"AAo\""), std::string::npos) << seen.err;
  EXPECT_NE(seen.err.find("--seen"), std::string::npos) << seen.err;
}

TEST(CookCli, AnOffsuitClassMayBeWrittenWithOrWithoutO) {
  const CliRun plain = RunCommandLine({"cook", "--hand", "", "--board", "", "--range", "AK"});
  const CliRun withO = RunCommandLine({"cook", "--hand", "", "--board", "", "--range", "AKo"});
  EXPECT_EQ(plain.status, 0);
  EXPECT_EQ(withO.status, 0);
  EXPECT_EQ(plain.out, withO.out);
  EXPECT_EQ(plain.out.rfind("12 Hands in Opponent's Range\n", 0), 0u) << plain.out;
}

TEST(CookCli, TheSeenListAddsItsClassesAndEachClassGoesInWhole) {
  const CliRun run =
      RunCommandLine({"cook", "--hand", "AhAd", "--board", "", "--range", "AA,AKs", "--seen", "AKs,22"});
  EXPECT_EQ(run.status, 0) << run.err;
  // AA 6 + AKs 4 (the Seen AKs adds nothing new) + 22 6; My Hand kills five aces and AhKh, AdKd.
  EXPECT_EQ(run.out.rfind("16 Hands in Opponent's Range\n9 Possible Hands\n9 Hands in categories\n", 0), 0u)
      << run.out;
}

TEST(CookCli, AnEmptyRangeIsNoError) {
  const CliRun run = RunCommandLine({"cook", "--hand", "AhAd", "--board", "Tc8h3s", "--range", ""});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "0 Hands in Opponent's Range\n0 Possible Hands\n0 Hands in categories\n");
}

TEST(CookCli, MissingOptionsAndStrayWordsAreRefused) {
  EXPECT_EQ(RunCommandLine({"cook", "--hand", "AhAd", "--range", "AA"}).status, 2);
  EXPECT_EQ(RunCommandLine({"cook", "--hand", "AhAd", "--board", ""}).status, 2);
  EXPECT_EQ(RunCommandLine({"cook", "--hand", "AhAd", "--board", "", "--range", "AA", "extra"}).status, 2);
  const CliRun run = RunCommandLine({"cook", "--hand", "AhAd", "--board", "", "--range"});
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find("--range"), std::string::npos);
}

TEST(CookCli, ClassNamesMayCarryBlanksAndLowerCase) {
  const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "", "--range", " aks , kk,"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out.rfind("10 Hands in Opponent's Range\n", 0), 0u) << run.out;
}

}  // namespace
}  // namespace quillet::cli
