// quillet-cli equity and cook with --standard-rules.
#include <gtest/gtest.h>

#include <string>

#include "tests/cli/cli_run.h"

namespace quillet::cli {
namespace {

TEST(StandardRulesCli, EquityPrintsTheReadOutsAndTheTally) {
  // Six kings holdings each win 2 of 44 rivers and tie none: 252 of 264 showdowns are mine.
  const CliRun run = RunCommandLine(
      {"equity", "--hand", "AhAd", "--board", "Tc8h3s2d", "--range", "KK", "--standard-rules"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "My Equity: 95.5%\nOpp Equity: 4.5%\nWin 95.45%, tie 0.00%, 264 showdowns\n");
}

TEST(StandardRulesCli, JsonAddsWinTieLoseShowdownsAndTheRules) {
  const CliRun run = RunCommandLine({"equity", "--hand", "AhKh", "--board", "Ks7s2d5c9h", "--range",
                                     "QQ,AK,AKs", "--standard-rules", "--json"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out,
            "{\"my\":75,\"opp\":25,\"street\":3,\"colour\":\"#00FF00\",\"win\":50,\"tie\":50,\"lose\":0,"
            "\"showdowns\":12,\"rules\":\"standard\"}\n");
}

TEST(StandardRulesCli, WithoutTheFlagTheJsonHasNoNewField) {
  const CliRun run =
      RunCommandLine({"equity", "--hand", "AhKh", "--board", "Ks7s2d5c9h", "--range", "QQ,AK,AKs", "--json"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "{\"my\":0,\"opp\":0,\"street\":3,\"colour\":\"#FF0000\"}\n");
}

TEST(StandardRulesCli, PreflopReadsTheExactClassTable) {
  const CliRun run = RunCommandLine(
      {"equity", "--hand", "AhAd", "--board", "", "--range", "KK", "--standard-rules", "--json"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("\"showdowns\":10273824,"), std::string::npos) << run.out;  // 6 x 1,712,304
}

TEST(StandardRulesCli, CookMarksTheIconsByTheStandardRules) {
  const std::vector<std::string> words = {
      "cook", "--hand", "AsKs", "--board", "Qs7s2s5s", "--range", "JT", "--win-lose-icons", "--no-simplify"};
  const CliRun own = RunCommandLine(words);
  std::vector<std::string> standardWords = words;
  standardWords.push_back("--standard-rules");
  const CliRun standard = RunCommandLine(standardWords);
  EXPECT_NE(own.out.find("Js Tc [lose]"), std::string::npos) << own.out;
  EXPECT_NE(standard.out.find("Js Tc [win]"), std::string::npos) << standard.out;
}

}  // namespace
}  // namespace quillet::cli
