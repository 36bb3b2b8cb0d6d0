#include <gtest/gtest.h>

#include <string>

#include "tests/cli/cli_run.h"

namespace quillet::cli {
namespace {

TEST(EquityCli, PrintsBothReadOutsAsTheWindowShowsThem) {
  // Six kings holdings each win 2 of 44 rivers: 95.45 and 4.55, shown 95.5% and 4.6%.
  const CliRun run = RunCommandLine({"equity", "--hand", "AhAd", "--board", "Tc8h3s2d", "--range", "KK"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "My Equity: 95.5%\nOpp Equity: 4.6%\n");
  EXPECT_EQ(run.err, "");
}

TEST(EquityCli, JsonGivesTheUnroundedValuesTheStreetAndTheColour) {
  const CliRun run =
      RunCommandLine({"equity", "--hand", "AhAd", "--board", "Tc8h3s2d", "--range", "KK", "--json"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "{\"my\":95.45,\"opp\":4.55,\"street\":2,\"colour\":\"#00FF00\"}\n");
}

TEST(EquityCli, TheSeenListAddsToTheRange) {
  const CliRun run = RunCommandLine(
      {"equity", "--hand", "AhKh", "--board", "9h5h2h", "--range", "", "--seen", "22", "--json"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "{\"my\":41.52,\"opp\":58.48,\"street\":1,\"colour\":\"#EAC42D\"}\n");
}

TEST(EquityCli, TheRiverShowsZeroOnBothSidesInRed) {
  const CliRun text = RunCommandLine({"equity", "--hand", "AhAd", "--board", "Tc8h3s2d5c", "--range", "KK"});
  EXPECT_EQ(text.out, "My Equity: 0.0%\nOpp Equity: 0.0%\n");
  const CliRun json =
      RunCommandLine({"equity", "--hand", "AhAd", "--board", "Tc8h3s2d5c", "--range", "KK", "--json"});
  EXPECT_EQ(json.out, "{\"my\":0,\"opp\":0,\"street\":3,\"colour\":\"#FF0000\"}\n");
}

TEST(EquityCli, AnEmptyRangeGivesMinusOne) {
  const CliRun run =
      RunCommandLine({"equity", "--hand", "AhAd", "--board", "Tc8h3s", "--range", "", "--json"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "{\"my\":-1,\"opp\":-1,\"street\":1,\"colour\":\"#FF0000\"}\n");
}

TEST(EquityCli, PreflopReadsTheTables) {
  const CliRun run = RunCommandLine({"equity", "--hand", "AhAd", "--board", "", "--range", "AA", "--json"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "{\"my\":50,\"opp\":50,\"street\":0,\"colour\":\"#EAC42D\"}\n");
}

TEST(EquityCli, BadCardTextIsRefusedWithTheWindowsMessages) {
  const CliRun bad = RunCommandLine({"equity", "--hand", "AhKd", "--board", "AxKd4c", "--range", "KK"});
  EXPECT_EQ(bad.status, 2);
  EXPECT_EQ(bad.out, "");
  EXPECT_EQ(bad.err, "Bad Input\n");
  const CliRun length = RunCommandLine({"equity", "--hand", "AhKd", "--board", "AhKd", "--range", "KK"});
  EXPECT_EQ(length.status, 2);
  EXPECT_EQ(length.err, "Board invalid. Valid Eg: ThKc4d\nBad Input\n");
  const CliRun duplicate = RunCommandLine({"equity", "--hand", "AhKd", "--board", "QsAh4c", "--range", "KK"});
  EXPECT_EQ(duplicate.status, 2);
  EXPECT_EQ(duplicate.err, "Duplicate card exists\n");
  const CliRun noSecondRank = RunCommandLine({"equity", "--hand", "AhXd", "--board", "", "--range", "KK"});
  EXPECT_EQ(noSecondRank.status, 2);
  EXPECT_EQ(noSecondRank.err, "Bad Input\n");
}

TEST(EquityCli, AnEmptyMyHandIsRefusedWithAReason) {
  const CliRun run = RunCommandLine({"equity", "--hand", "", "--board", "", "--range", "KK"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "");
  EXPECT_NE(run.err.find("My Hand is empty"), std::string::npos);
}

TEST(EquityCli, RefusesBadListsAndMissingOptionsAsCookDoes) {
  const CliRun list = RunCommandLine({"equity", "--hand", "AhAd", "--board", "", "--range", "AA,XYZ"});
  EXPECT_EQ(list.status, 2);
  EXPECT_EQ(list.err.rfind("equity: --range: ", 0), 0u) << list.err;
  const CliRun seen =
      RunCommandLine({"equity", "--hand", "AhAd", "--board", "", "--range", "AA", "--seen", "Q"});
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.err.rfind("equity: --seen: ", 0), 0u) << seen.err;
  const CliRun missing = RunCommandLine({"equity", "--hand", "AhAd", "--board", ""});
  EXPECT_EQ(missing.status, 2);
  EXPECT_NE(missing.err.find("missing --range"), std::string::npos);
  const CliRun unknown =
      RunCommandLine({"equity", "--hand", "AhAd", "--board", "", "--range", "AA", "--fast"});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_NE(unknown.err.find("--fast"), std::string::npos);
}

}  // namespace
}  // namespace quillet::cli
