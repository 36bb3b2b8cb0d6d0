// quillet-cli multiway: the JSON it gives, and the inputs it refuses with status 2.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/cli/cli_run.h"

namespace quillet::cli {
namespace {

TEST(MultiwayCli, JsonGivesEachPlayerAndHowTheCountWasMade) {
  const CliRun run = RunCommandLine({"multiway", "--player", "AhAd", "--player", "KK", "--player", "7c6c",
                                     "--board", "Kd8s2c", "--threads", "2", "--json"});
  ASSERT_EQ(run.status, 0) << run.err;
  const nlohmann::json json = nlohmann::json::parse(run.out);
  ASSERT_EQ(json["players"].size(), 3u);
  EXPECT_EQ(json["players"][0]["text"], "AhAd");
  EXPECT_EQ(json["players"][2]["text"], "7c6c");
  double total = 0;
  for (const auto& player : json["players"]) {
    total += player["equity"].get<double>();
    EXPECT_GE(player["equity"].get<double>(), player["win"].get<double>());
  }
  EXPECT_NEAR(total, 100.0, 1e-9);
  EXPECT_EQ(json["exact"], true);
  EXPECT_EQ(json["standard_error"], 0);
  EXPECT_EQ(json["threads"], 2);
  // KK has three live holdings (Kd is on the board); with any of them, AhAd and 7c6c dealt, 43 cards are
  // left for the turn and the river: C(43, 2) = 903 boards each.
  EXPECT_EQ(json["deals"], 3 * 903);
}

TEST(MultiwayCli, PlayersTakeWeights) {
  const auto equities = [](const std::vector<std::string>& players) {
    std::vector<std::string> words = {"multiway", "--board", "Kd8s2c", "--threads", "2", "--json"};
    for (const std::string& player : players) {
      words.push_back("--player");
      words.push_back(player);
    }
    const CliRun run = RunCommandLine(words);
    EXPECT_EQ(run.status, 0) << run.err;
    std::vector<double> out;
    if (run.status != 0) return out;
    const nlohmann::json json = nlohmann::json::parse(run.out);
    for (const auto& player : json["players"]) out.push_back(player["equity"]);
    return out;
  };
  // One weight for every holding of a player is no weight at all; weights that differ change the shares.
  const std::vector<double> whole = equities({"AhAd", "KK,QQ", "7c6c"});
  const std::vector<double> even = equities({"AhAd", "KK:0.5,QQ:0.5", "7c6c"});
  const std::vector<double> uneven = equities({"AhAd", "KK:0.1,QQ", "7c6c"});
  ASSERT_EQ(whole.size(), 3u);
  ASSERT_EQ(even.size(), 3u);
  ASSERT_EQ(uneven.size(), 3u);
  for (std::size_t p = 0; p < 3; ++p) EXPECT_NEAR(even[p], whole[p], 1e-9);
  // With fewer of its holdings kings, the second player beats the aces' pairs less often.
  EXPECT_LT(uneven[1], whole[1]);
}

TEST(MultiwayCli, MonteCarloReportsTheStandardErrorItReached) {
  const CliRun run = RunCommandLine({"multiway", "--player", "AhAd", "--player", "random", "--player",
                                     "random", "--monte-carlo", "--error", "0.5", "--seed", "4", "--json"});
  ASSERT_EQ(run.status, 0) << run.err;
  const nlohmann::json json = nlohmann::json::parse(run.out);
  EXPECT_EQ(json["exact"], false);
  EXPECT_GT(json["standard_error"].get<double>(), 0.0);
  EXPECT_LE(json["standard_error"].get<double>(), 0.5);
  EXPECT_GT(json["deals"].get<uint64_t>(), 0u);
}

TEST(MultiwayCli, RefusesBadPlayersTooFewOrTooManyAndNoDealWithStatusTwo) {
  const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
      {{"multiway", "--player", "AhAd", "--player", "AKx"}, "'AKx'"},
      {{"multiway", "--player", "AhAd"}, "2 to 10 players"},
      {{"multiway", "--player", "AhAd", "--player", "Ah2c"}, "no deal"},
      {{"multiway", "--player", "AA", "--player", "KK", "--board", "Tc8h"}, "0, 3, 4 or 5"},
      {{"multiway", "--player", "AA", "--player", "KK", "--board", "Tc8hXx"}, "--board"},
      {{"multiway", "--player", "AA", "--player", "KK", "--exact", "--monte-carlo"}, "not both"}};
  for (const auto& [words, named] : cases) {
    const CliRun run = RunCommandLine(words);
    EXPECT_EQ(run.status, 2) << named;
    EXPECT_TRUE(run.out.empty()) << named;
    EXPECT_NE(run.err.find(named), std::string::npos) << run.err;
  }
  std::vector<std::string> eleven = {"multiway"};
  for (int i = 0; i < 11; ++i) eleven.insert(eleven.end(), {"--player", "random"});
  const CliRun many = RunCommandLine(eleven);
  EXPECT_EQ(many.status, 2);
  EXPECT_NE(many.err.find("not 11"), std::string::npos) << many.err;
}

}  // namespace
}  // namespace quillet::cli
