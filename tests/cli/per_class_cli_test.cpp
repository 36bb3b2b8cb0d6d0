// quillet-cli equity --per-class: my equity against each class of the range, as JSON and as a table laid
// out like the grid.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "cards/card_input.h"
#include "cards/hand_class.h"
#include "cli/options.h"
#include "equity/calc_equity.h"
#include "equity/range_equity.h"
#include "tests/cli/cli_run.h"

namespace quillet::cli {
namespace {

const std::vector<std::string> kAceKing = {"equity", "--hand",  "AhKd",          "--board",
                                           "Tc8h3s", "--range", "QQ,AA,T9s,72o", "--per-class"};

std::vector<std::string> With(std::vector<std::string> words, std::initializer_list<std::string> more) {
  words.insert(words.end(), more);
  return words;
}

// Calc Equity against one class alone.
double AgainstClassAlone(const char* name, ShowdownRules rules) {
  EquityRequest request;
  request.cards = CheckCardInputs("AhKd", "Tc8h3s", CardsFor::Equity);
  request.range = ExpandClassName(name);
  request.rules = rules;
  return CalcEquity(request).values.my;
}

TEST(PerClassCli, JsonListsEachClassWithALiveHoldingAndItsEquity) {
  for (const bool standard : {false, true}) {
    std::vector<std::string> words = With(kAceKing, {"--json"});
    if (standard) words.push_back("--standard-rules");
    const CliRun run = RunCommandLine(words);
    ASSERT_EQ(run.status, 0) << run.err;
    const Json json = Json::parse(run.out);
    const Json& classes = json.at("classes");
    ASSERT_EQ(classes.size(), 4u);
    const ShowdownRules rules = standard ? ShowdownRules::Standard : ShowdownRules::Quillet;
    // In grid order: AA, QQ, T9s, 72o.
    const std::vector<std::pair<const char*, int>> expected = {{"AA", 3}, {"QQ", 6}, {"T9s", 3}, {"72", 12}};
    for (std::size_t i = 0; i < expected.size(); ++i) {
      EXPECT_EQ(classes[i].at("class"), HandClasses()[FindClassByName(expected[i].first)].caption);
      EXPECT_EQ(classes[i].at("holdings"), expected[i].second);
      EXPECT_NEAR(classes[i].at("equity").get<double>(), AgainstClassAlone(expected[i].first, rules), 1e-9);
    }
    // The read-outs are those without the flag.
    words.erase(std::find(words.begin(), words.end(), "--per-class"));
    const Json plain = Json::parse(RunCommandLine(words).out);
    EXPECT_EQ(json.at("my"), plain.at("my"));
    EXPECT_FALSE(plain.contains("classes"));
  }
}

TEST(PerClassCli, TheTextIsAThirteenByThirteenTableOfRoundedEquities) {
  const CliRun run = RunCommandLine(With(kAceKing, {"--standard-rules"}));
  ASSERT_EQ(run.status, 0) << run.err;
  std::istringstream lines(run.out);
  std::string line;
  std::vector<std::string> all;
  while (std::getline(lines, line)) all.push_back(line);
  // My Equity, Opp Equity, the tally, the heading, the ranks' line and 13 rows.
  ASSERT_EQ(all.size(), 18u) << run.out;
  EXPECT_EQ(all[3], "My equity per class (%):");
  EXPECT_EQ(all[4], "    A   K   Q   J   T   9   8   7   6   5   4   3   2");
  const auto cell = [&](int row, int column) { return all[5 + row].substr(1 + 4 * column, 4); };
  char expected[8];
  std::snprintf(expected, sizeof expected, "%4.0f",
                std::nearbyint(AgainstClassAlone("QQ", ShowdownRules::Standard)));
  EXPECT_EQ(cell(2, 2), expected);
  EXPECT_EQ(cell(0, 0), "   2");  // 1.9 % against the aces
  EXPECT_EQ(cell(1, 1), "   .");  // no kings in the range
  EXPECT_EQ(all[5 + 12][0], '2');
}

TEST(PerClassCli, OnTheRiverUnderTheProgramsRulesTheClassesAreNull) {
  const CliRun run = RunCommandLine(
      {"equity", "--hand", "AhKd", "--board", "Tc8h3s2d9c", "--range", "QQ", "--per-class", "--json"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_TRUE(Json::parse(run.out).at("classes").is_null());
}

TEST(PerClassCli, WithMyRangeEachClassIsMyRangeAgainstThatClassAlone) {
  const CliRun run = RunCommandLine({"equity", "--hand-range", "QQ+,AK", "--board", "Tc8h3s", "--range",
                                     "AA,T9s,76s", "--per-class", "--json"});
  ASSERT_EQ(run.status, 0) << run.err;
  const Json json = Json::parse(run.out);
  const Json& classes = json.at("classes");
  ASSERT_EQ(classes.size(), 3u);
  const CardInputs board = CheckCardInputs("", "Tc8h3s", CardsFor::Equity);
  const std::vector<HandCombo> mine = [] {
    std::vector<HandCombo> combos;
    for (const char* name : {"AA", "KK", "QQ", "AKs", "AK"}) {
      for (const HandCombo& c : ExpandClassName(name)) combos.push_back(c);
    }
    return combos;
  }();
  for (const Json& entry : classes) {
    const std::string name = entry.at("class").get<std::string>();
    const RangeEquityResult alone =
        StandardRangeEquity(mine, ExpandClassName(name), board.board, board.street);
    EXPECT_NEAR(entry.at("equity").get<double>(), alone.MyEquity(), 1e-9) << name;
  }
}

}  // namespace
}  // namespace quillet::cli
