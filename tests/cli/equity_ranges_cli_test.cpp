#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/cli/cli_run.h"

namespace quillet::cli {
namespace {

TEST(EquityRangesCli, JsonGivesMyRangesExactEquityAgainstTheOpponentsRange) {
  const CliRun run = RunCommandLine({"equity", "--hand-range", "22+,A2s+,K9s+,QTs+,JTs,ATo+,KJo+", "--range",
                                     "22+,A7s+,KTs+,QJs,AJo+,KQo", "--board", "Tc8h3s", "--json"});
  EXPECT_EQ(run.status, 0) << run.err;
  const auto my = run.out.find("{\"my\":47.4252");
  EXPECT_EQ(my, 0u) << run.out;
  EXPECT_NE(run.out.find("\"showdowns\":"), std::string::npos);
  EXPECT_NE(run.out.find("\"rules\":\"standard\""), std::string::npos);
}

TEST(EquityRangesCli, RandomAgainstRandomIsAnEvenMatch) {
  const CliRun run =
      RunCommandLine({"equity", "--hand-range", "random", "--range", "random", "--board", "Tc8h3s2d"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out.rfind("My Equity: 50.0%\nOpp Equity: 50.0%\n", 0), 0u) << run.out;
}

TEST(EquityRangesCli, ARangeWithAnErrorIsRefusedNamingTheToken) {
  const CliRun run =
      RunCommandLine({"equity", "--hand-range", "QQ+,AKx", "--range", "random", "--board", ""});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err.rfind("equity: --hand-range: ", 0), 0u) << run.err;
}

TEST(EquityRangesCli, WeightedRangesCountTheirShowdownsAsTheWeightedSum) {
  // AhAd against KsKc at a half, QsQc and JhTh at a quarter: 1.75 pairs, 990 boards each.
  const CliRun one = RunCommandLine({"equity", "--hand-range", "AhAd", "--range", "KsKc:0.5, QsQc, JhTh:0.25",
                                     "--board", "Tc8h3s", "--json"});
  EXPECT_EQ(one.status, 0) << one.err;
  const nlohmann::json json = nlohmann::json::parse(one.out);
  EXPECT_NEAR(json["my"].get<double>(), 88.311688, 1e-6);
  EXPECT_NE(one.out.find(",\"showdowns\":1732.5,"), std::string::npos) << one.out;
  // Both ranges weighted: 0.333 x 0.001 of a pair, 990 boards.
  const CliRun both = RunCommandLine(
      {"equity", "--hand-range", "AhAd:0.333", "--range", "KsKc:0.001", "--board", "Tc8h3s", "--json"});
  EXPECT_EQ(both.status, 0) << both.err;
  EXPECT_NE(both.out.find(",\"showdowns\":0.32967,"), std::string::npos) << both.out;
}

TEST(EquityRangesCli, OneWeightForEveryHoldingGivesTheWholeRangesShares) {
  const CliRun whole = RunCommandLine(
      {"equity", "--hand-range", "QQ+,AK", "--range", "22+,A2s+", "--board", "Jd9d2c", "--json"});
  const CliRun halved = RunCommandLine({"equity", "--hand-range", "[50]QQ+,AK[/50]", "--range",
                                        "22+:0.5,A2s+:0.5", "--board", "Jd9d2c", "--json"});
  ASSERT_EQ(whole.status, 0) << whole.err;
  ASSERT_EQ(halved.status, 0) << halved.err;
  const nlohmann::json a = nlohmann::json::parse(whole.out);
  const nlohmann::json b = nlohmann::json::parse(halved.out);
  EXPECT_EQ(a["my"], b["my"]);
  EXPECT_EQ(a["win"], b["win"]);
  EXPECT_EQ(a["tie"], b["tie"]);
  EXPECT_DOUBLE_EQ(b["showdowns"].get<double>(), a["showdowns"].get<double>() / 4);
}

TEST(EquityRangesCli, AWeightOfOneWritesWhatTheRangeWithoutWeightsWrites) {
  for (const bool json : {false, true}) {
    std::vector<std::string> plain = {"equity", "--hand-range", "QQ+,AK",  "--range",
                                      "random", "--board",      "Tc8h3s2d"};
    std::vector<std::string> ones = {"equity",  "--hand-range", "QQ+:1,AK", "--range", "[100]random[/100]",
                                     "--board", "Tc8h3s2d"};
    if (json) {
      plain.push_back("--json");
      ones.push_back("--json");
    }
    const CliRun a = RunCommandLine(plain);
    const CliRun b = RunCommandLine(ones);
    EXPECT_EQ(a.status, 0) << a.err;
    EXPECT_EQ(a.out, b.out);
  }
}

}  // namespace
}  // namespace quillet::cli
