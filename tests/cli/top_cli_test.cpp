// The --top option: the range as the range box gives it when the percentage is typed and Enter pressed.
#include <gtest/gtest.h>

#include <string>

#include "tests/cli/cli_run.h"

namespace quillet::cli {
namespace {

std::string FirstLine(const std::string& text) {
  return text.substr(0, text.find('\n'));
}

TEST(CookTop, TenTakesTheTopClassesUpToNinePointEight) {
  // Rows 0-14: 7 pairs (42), 10 suited (40) and AK, AQ, AJ, KQ offsuit (48) = 130 holdings.
  const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "", "--top", "10"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(FirstLine(run.out), "130 Hands in Opponent's Range");
}

TEST(CookTop, JsonReportsTheRangeBoxText) {
  const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "", "--top", "10", "--json"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out.rfind("{\"range\":130,", 0), 0u);
  const std::string tail = ",\"rangeText\":\"9.8\"}\n";
  ASSERT_GE(run.out.size(), tail.size());
  EXPECT_EQ(run.out.substr(run.out.size() - tail.size()), tail);
}

TEST(CookTop, JsonWithoutTopCarriesNoRangeText) {
  const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "", "--range", "AA", "--json"});
  EXPECT_EQ(run.out.find("rangeText"), std::string::npos);
}

TEST(CookTop, AValueHalfwayBetweenTwoStepsTakesTheLowerOne) {
  const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "", "--top", "1.6", "--json"});
  EXPECT_EQ(run.out.rfind("{\"range\":18,", 0), 0u) << run.out;  // AA, KK, QQ
  EXPECT_NE(run.out.find("\"rangeText\":\"1.4\""), std::string::npos);
}

TEST(CookTop, OneHundredOrMoreLeavesTheFreshGridEmpty) {
  const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "", "--top", "100", "--json"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out.rfind("{\"range\":0,", 0), 0u) << run.out;
  EXPECT_NE(run.out.find("\"rangeText\":\"100\""), std::string::npos);
}

TEST(CookTop, JustBelowOneHundredTakesEveryClass) {
  const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "", "--top", "99.8", "--json"});
  EXPECT_EQ(run.out.rfind("{\"range\":1326,", 0), 0u) << run.out;
}

TEST(CookTop, TheSeenLayerStaysBesideTheTopRange) {
  const CliRun run =
      RunCommandLine({"cook", "--hand", "", "--board", "", "--top", "0", "--seen", "72", "--json"});
  EXPECT_EQ(run.out.rfind("{\"range\":18,", 0), 0u) << run.out;  // AA and the twelve 72 offsuit
  EXPECT_NE(run.out.find("\"rangeText\":\"0.5\""), std::string::npos);
}

TEST(CookTop, ATextTheRangeBoxRefusesIsRefusedWithStatusTwo) {
  const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "", "--top", "12a"});
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(run.out.empty());
  EXPECT_NE(run.err.find("12a"), std::string::npos);
}

TEST(CookTop, TopAndRangeTogetherOrNeitherAreRefused) {
  const CliRun both = RunCommandLine({"cook", "--hand", "", "--board", "", "--top", "5", "--range", "AA"});
  EXPECT_EQ(both.status, 2);
  EXPECT_NE(both.err.find("not both"), std::string::npos);
  const CliRun neither = RunCommandLine({"cook", "--hand", "", "--board", ""});
  EXPECT_EQ(neither.status, 2);
  EXPECT_NE(neither.err.find("--top"), std::string::npos);
}

}  // namespace
}  // namespace quillet::cli
