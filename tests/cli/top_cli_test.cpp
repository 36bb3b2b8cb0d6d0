// The --top option: the range as the range box gives it when the percentage is typed and Enter pressed.
#include <gtest/gtest.h>

#include <string>

#include "tests/cli/cli_run.h"

namespace quillet::cli {
namespace {

TEST(CookTop, TenTakesTheTopClassesUpToNinePointEight) {
  // Rows 0-14: 7 pairs (42), 10 suited (40) and AK, AQ, AJ, KQ offsuit (48) = 130 holdings.
  const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "", "--top", "10", "--json"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out.rfind("{\"range\":130,", 0), 0u) << run.out;
}

TEST(CookTop, JsonReportsTheRangeBoxText) {
  const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "", "--top", "10", "--json"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out.rfind("{\"range\":130,", 0), 0u);
  // After the categories, before the tree.
  EXPECT_NE(run.out.find("],\"rangeText\":\"9.8\",\"tree\":["), std::string::npos) << run.out;
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

TEST(CookTop, AtOrAboveTheLastStepStderrSaysTheRangeWasLeftAsItWas) {
  // The range box moves the slider to its end and leaves the grid alone there; the command does the same
  // and says so, while the output is that of the range it was left with (empty).
  const CliRun empty = RunCommandLine({"cook", "--hand", "", "--board", "", "--range", ""});
  for (const char* percent : {"100", "150"}) {
    const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "", "--top", percent});
    EXPECT_EQ(run.status, 0) << percent;
    EXPECT_EQ(run.out, empty.out) << percent;
    EXPECT_EQ(run.err, "cook: --top " + std::string(percent) +
                           " is at or above the last step of the preflop order (100): as in the range box, "
                           "the range was left as it was (empty); --range 100% takes every holding\n");
  }
  // Below the last step the range is taken and nothing is said.
  const CliRun below = RunCommandLine({"cook", "--hand", "", "--board", "", "--top", "99.8", "--json"});
  EXPECT_EQ(below.status, 0);
  EXPECT_TRUE(below.err.empty()) << below.err;
  // Notation's 100% is the whole order.
  const CliRun whole = RunCommandLine({"cook", "--hand", "", "--board", "", "--range", "100%", "--json"});
  EXPECT_EQ(whole.out.rfind("{\"range\":1326,", 0), 0u) << whole.out;
  EXPECT_TRUE(whole.err.empty()) << whole.err;
}

TEST(EquityTop, AtOrAboveTheLastStepStderrSaysTheRangeWasLeftAsItWas) {
  const CliRun empty = RunCommandLine({"equity", "--hand", "AhAd", "--board", "", "--range", "", "--json"});
  const CliRun run = RunCommandLine({"equity", "--hand", "AhAd", "--board", "", "--top", "100", "--json"});
  EXPECT_EQ(run.status, 0);
  ASSERT_FALSE(empty.out.empty());
  EXPECT_EQ(run.out, empty.out.substr(0, empty.out.size() - 2) + ",\"rangeText\":\"100\"}\n");
  EXPECT_EQ(run.err.rfind("equity: --top 100 is at or above the last step", 0), 0u) << run.err;
}

TEST(CookTop, JustBelowOneHundredTakesEveryClass) {
  const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "", "--top", "99.8", "--json"});
  EXPECT_EQ(run.out.rfind("{\"range\":1326,", 0), 0u) << run.out;
}

TEST(CookTop, TheSeenLayerStaysBesideTheTopRange) {
  const CliRun run =
      RunCommandLine({"cook", "--hand", "", "--board", "", "--top", "0", "--seen", "72", "--json"});
  // AA and the sixteen 72 ("72" in --seen is both halves, as notation reads it).
  EXPECT_EQ(run.out.rfind("{\"range\":22,", 0), 0u) << run.out;
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

// The classes of the preflop order's rows 0-14, which --top 10 takes.
constexpr const char* kTopTenClasses =
    "AA,KK,QQ,JJ,TT,AKs,99,AQs,AK,KQs,AJs,ATs,88,AQ,KJs,QJs,KTs,AJ,KQ,QTs,A9s";

TEST(EquityTop, TenGivesTheSameEquityAsItsClassesWritten) {
  for (const char* board : {"", "Tc8h3s2d"}) {
    const CliRun top =
        RunCommandLine({"equity", "--hand", "7h6h", "--board", board, "--top", "10", "--json"});
    const CliRun listed =
        RunCommandLine({"equity", "--hand", "7h6h", "--board", board, "--range", kTopTenClasses, "--json"});
    EXPECT_EQ(top.status, listed.status) << board;
    ASSERT_FALSE(listed.out.empty()) << board;
    const std::string withoutBrace = listed.out.substr(0, listed.out.size() - 2);  // drop "}\n"
    EXPECT_EQ(top.out, withoutBrace + ",\"rangeText\":\"9.8\"}\n") << board;
  }
}

TEST(EquityTop, TheTextReadOutsMatchTheListedRange) {
  const CliRun top = RunCommandLine({"equity", "--hand", "AhAd", "--board", "Tc8h3s2d", "--top", "0.5"});
  const CliRun listed = RunCommandLine({"equity", "--hand", "AhAd", "--board", "Tc8h3s2d", "--range", "AA"});
  EXPECT_EQ(top.status, 0) << top.err;
  EXPECT_EQ(top.out, listed.out);
}

TEST(EquityTop, ARefusedTextOrBothRangeOptionsAreRefused) {
  EXPECT_EQ(RunCommandLine({"equity", "--hand", "AhAd", "--board", "", "--top", "1..2"}).status, 2);
  const CliRun both =
      RunCommandLine({"equity", "--hand", "AhAd", "--board", "", "--top", "5", "--range", "AA"});
  EXPECT_EQ(both.status, 2);
  EXPECT_NE(both.err.find("not both"), std::string::npos);
}

}  // namespace
}  // namespace quillet::cli
