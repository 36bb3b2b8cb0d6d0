// quillet-cli boards: the JSON and CSV of the report, the aggregate against `equity`, and every option
// honoured or refused.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "tests/cli/cli_run.h"
#include "tests/support/sanitizer.h"

namespace quillet::cli {
namespace {

using quillet::testing::kUnderSanitizer;

nlohmann::json RunJson(const std::vector<std::string>& words) {
  const CliRun run = RunCommandLine(words);
  EXPECT_EQ(run.status, 0) << run.err;
  return nlohmann::json::parse(run.out);
}

TEST(BoardsCli, JsonHasARowPerTurnCardWithItsGroupsAndTheAggregate) {
  const nlohmann::json report = RunJson(
      {"boards", "--hand", "AhKd", "--range", "QQ+,AK", "--board", "Tc8h3s", "--standard-rules", "--json"});
  ASSERT_EQ(report["rows"].size(), 47u);
  const nlohmann::json& row = report["rows"][0];
  EXPECT_EQ(row["board"], "Tc8h3sAs");
  EXPECT_EQ(row["weight"], 1);
  for (const char* key : {"equity", "win", "tie", "showdowns", "holdings", "groups"})
    EXPECT_TRUE(row.contains(key)) << key;
  double shares = 0;
  for (const char* group : {"two pair or better", "one pair", "flush draw", "straight draw", "nothing"}) {
    ASSERT_TRUE(row["groups"].contains(group)) << group;
    shares += row["groups"][group].get<double>();
  }
  EXPECT_NEAR(shares, 100.0, 1e-9);
  EXPECT_EQ(report["aggregate"]["rows"], 47);
  // Every turn card: the flop's equity, and each showdown of the flop counted twice.
  const nlohmann::json flop = RunJson(
      {"equity", "--hand", "AhKd", "--range", "QQ+,AK", "--board", "Tc8h3s", "--standard-rules", "--json"});
  EXPECT_NEAR(report["aggregate"]["equity"].get<double>(), flop["my"].get<double>(), 1e-9);
  EXPECT_EQ(report["aggregate"]["showdowns"].get<double>(), 2 * flop["showdowns"].get<double>());
}

TEST(BoardsCli, AggregateOverEveryTurnCardIsTheFlopsEquityUnderTheProgramsRules) {
  const nlohmann::json report =
      RunJson({"boards", "--hand", "AhAd", "--range", "random", "--board", "Tc8h3s", "--json"});
  const nlohmann::json flop =
      RunJson({"equity", "--hand", "AhAd", "--range", "random", "--board", "Tc8h3s", "--json"});
  // The read-out is the same share rounded to two decimals.
  EXPECT_NEAR(report["aggregate"]["equity"].get<double>(), flop["my"].get<double>(), 0.005);
}

TEST(BoardsCli, AggregateOverEveryFlopOfAcesIsThePreflopEquity) {
  if (kUnderSanitizer) GTEST_SKIP() << "19,600 flops against every holding: too slow under the sanitizer";
  const nlohmann::json report =
      RunJson({"boards", "--hand", "AhAd", "--range", "random", "--standard-rules", "--json"});
  EXPECT_EQ(report["rows"].size(), 19600u);
  EXPECT_NEAR(report["aggregate"]["equity"].get<double>(), 85.203713, 1e-6);
}

TEST(BoardsCli, TwoSymmetricRangesGiveThe1755FlopsWithTheirWeights) {
  const nlohmann::json report = RunJson({"boards", "--hand-range", "AA", "--range", "KK", "--standard-rules",
                                         "--filter", "monotone", "--json"});
  ASSERT_EQ(report["rows"].size(), 286u);  // one monotone flop for each three ranks
  int64_t weights = 0;
  for (const auto& row : report["rows"]) weights += row["weight"].get<int64_t>();
  EXPECT_EQ(weights, 1144);  // four suits each
}

TEST(BoardsCli, CsvHasTheSameColumnsAndAnAggregateLine) {
  const CliRun run = RunCommandLine({"boards", "--hand", "AhKd", "--range", "QQ+,AK:0.5", "--board",
                                     "Tc8h3s2d", "--standard-rules", "--filter", "paired", "--csv"});
  ASSERT_EQ(run.status, 0) << run.err;
  std::istringstream lines(run.out);
  std::string line;
  std::getline(lines, line);
  EXPECT_EQ(line,
            "board,weight,equity,win,tie,showdowns,holdings,two pair or better,one pair,flush draw,straight "
            "draw,nothing");
  int rows = 0;
  std::string last;
  while (std::getline(lines, line)) {
    last = line;
    if (line.rfind("aggregate,", 0) != 0) ++rows;
  }
  EXPECT_EQ(rows, 12);  // the three cards left of each of the board's four ranks
  EXPECT_EQ(last.rfind("aggregate,12,", 0), 0u) << last;
}

TEST(BoardsCli, RefusesWhatItCannotHonour) {
  const auto refused = [](const std::vector<std::string>& words, const std::string& message) {
    const CliRun run = RunCommandLine(words);
    EXPECT_EQ(run.status, 2) << run.out;
    EXPECT_NE(run.err.find(message), std::string::npos) << run.err;
  };
  refused({"boards", "--range", "QQ+"}, "give --hand TEXT or --hand-range RANGE");
  refused({"boards", "--hand", "AhKd", "--hand-range", "QQ+", "--range", "QQ+"},
          "give --hand TEXT or --hand-range");
  refused({"boards", "--hand", "AhKd"}, "--range");
  refused({"boards", "--hand", "AhKd", "--range", "QQ+", "--json", "--csv"}, "not both");
  refused({"boards", "--hand-range", "QQ+", "--range", "JJ"}, "--standard-rules");
  refused({"boards", "--hand", "AhKd", "--range", "QQ+", "--filter", "wet"}, "unknown filter 'wet'");
  refused({"boards", "--hand", "AhKd", "--range", "QQ+", "--board", "Tc8h3s2d5d"}, "the board is complete");
  refused({"boards", "--hand", "AhKd", "--range", "QQ+", "--board", "AhTc3s"}, "Duplicate card exists");
  refused({"boards", "--hand", "AhKd", "--range", "QQx"}, "--range: unknown token 'QQx'");
  refused({"boards", "--hand", "AhKd", "--range", "QQ+", "--threads", "0"}, "--threads");
  refused({"boards", "--hand", "AhKd", "--range", "QQ+", "--top", "10"}, "unknown option --top");
  refused({"boards", "--hand", "AhKd", "--range", "QQ+", "stray"}, "unexpected argument");
}

}  // namespace
}  // namespace quillet::cli
