// Every option of quillet-cli is either honoured or refused: each command, in each of its modes, is run with
// every option of the program that it does not take there, and must refuse it with status 2, a line on
// stderr that names the option and nothing on stdout; the options it does take still work.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/cli/cli_run.h"
#include "tests/storage/temp_folder.h"

namespace quillet::cli {
namespace {

class OptionsTaken : public ::testing::Test {
 protected:
  std::string Path(const char* name) const { return (dir / name).string(); }

  // Every option any command has, with a value for those that take one (one a command would accept).
  std::vector<std::vector<std::string>> EveryOption() const {
    return {{"--hand", "AhKd"},
            {"--board", "Tc8h3s"},
            {"--range", "AA"},
            {"--top", "10"},
            {"--seen", "KK"},
            {"--hand-range", "QQ"},
            {"--json"},
            {"--standard-rules"},
            {"--no-simplify"},
            {"--simplify-further"},
            {"--show-empty"},
            {"--win-lose-icons"},
            {"--category-equity"},
            {"--category-icons"},
            {"--file", Path("profiles.ini")},
            {"--range-text", "5"},
            {"--notation"},
            {"--out", Path("keys.bin")},
            {"--classes-out", Path("classes.bin")},
            {"--threads", "1"},
            {"--per-class"},
            {"--classes"},
            {"--player", "KK"},
            {"--dead", "2c"},
            {"--exact"},
            {"--monte-carlo"},
            {"--error", "1"},
            {"--seconds", "5"},
            {"--seed", "3"}};
  }

  // Runs `base` with each option outside `taken` added and expects each refused.
  void ExpectEveryOtherOptionRefused(const std::vector<std::string>& base,
                                     const std::vector<std::string>& taken) {
    for (const std::vector<std::string>& option : EveryOption()) {
      if (std::find(taken.begin(), taken.end(), option.front()) != taken.end()) continue;
      std::vector<std::string> words = base;
      words.insert(words.end(), option.begin(), option.end());
      const CliRun run = RunCommandLine(words);
      const std::string line = ::testing::PrintToString(words);
      EXPECT_EQ(run.status, 2) << line << "\n" << run.out;
      EXPECT_TRUE(run.out.empty()) << line << "\n" << run.out;
      EXPECT_NE(run.err.find(option.front()), std::string::npos) << line << "\n" << run.err;
    }
    // Nothing was written by a refused command.
    EXPECT_TRUE(dir.Entries().empty());
  }

  quillet::testing::TempFolder dir;
};

TEST_F(OptionsTaken, CookRefusesEveryOptionItDoesNotTake) {
  ExpectEveryOtherOptionRefused({"cook", "--hand", "AhKd", "--board", "Tc8h3s", "--range", "AA"},
                                {"--hand", "--board", "--range", "--top", "--seen", "--json",
                                 "--standard-rules", "--no-simplify", "--simplify-further", "--show-empty",
                                 "--win-lose-icons", "--category-equity", "--category-icons", "--classes"});
}

TEST_F(OptionsTaken, EquityWithAHandRefusesEveryOptionItDoesNotTake) {
  ExpectEveryOtherOptionRefused({"equity", "--hand", "AhKd", "--board", "Tc8h3s", "--range", "AA"},
                                {"--hand", "--board", "--range", "--top", "--seen", "--json",
                                 "--standard-rules", "--per-class", "--classes"});
}

TEST_F(OptionsTaken, EquityWithAHandRangeRefusesTheHandTheTopAndTheSeenLayer) {
  // My side is a range and the opponent's is --range in notation: --hand, --top and --seen would be
  // passed over (with --top 10 the answer would be "No showdowns").
  ExpectEveryOtherOptionRefused(
      {"equity", "--hand-range", "QQ", "--range", "AA", "--board", "Tc8h3s"},
      {"--hand-range", "--range", "--board", "--json", "--standard-rules", "--per-class"});
  const CliRun stray = RunCommandLine({"equity", "--hand-range", "QQ", "--range", "AA", "extra"});
  EXPECT_EQ(stray.status, 2);
  EXPECT_TRUE(stray.out.empty());
  EXPECT_NE(stray.err.find("\"extra\""), std::string::npos) << stray.err;
}

TEST_F(OptionsTaken, RangeRefusesEveryOptionItDoesNotTake) {
  ExpectEveryOtherOptionRefused({"range", "QQ+"}, {"--json"});
}

TEST_F(OptionsTaken, MultiwayRefusesEveryOptionItDoesNotTake) {
  ExpectEveryOtherOptionRefused({"multiway", "--player", "AhAd", "--player", "QQ", "--board", "Tc8h3s"},
                                {"--player", "--board", "--dead", "--exact", "--monte-carlo", "--error",
                                 "--seconds", "--seed", "--threads", "--json"});
}

TEST_F(OptionsTaken, EachProfilesActionRefusesEveryOptionItDoesNotTake) {
  ExpectEveryOtherOptionRefused({"profiles", "list"}, {"--file"});
  ExpectEveryOtherOptionRefused({"profiles", "show", "Villain"}, {"--file", "--json", "--notation"});
  ExpectEveryOtherOptionRefused({"profiles", "add", "Villain", "--range", "AA"},
                                {"--file", "--range", "--seen", "--range-text", "--classes"});
}

TEST_F(OptionsTaken, EachTablesActionRefusesEveryOptionItDoesNotTake) {
  ExpectEveryOtherOptionRefused({"tables", "info"}, {});
  // Refused before any work: generate would take minutes.
  ExpectEveryOtherOptionRefused({"tables", "generate"}, {"--out", "--classes-out", "--threads"});
}

TEST_F(OptionsTaken, CookRefusesASwitchThatChangesNothingBesideTheOthersGiven) {
  const std::vector<std::string> base = {"cook", "--hand", "AhKd", "--board", "Tc8h3s", "--range", "AA,AKs"};
  const auto with = [&](std::vector<std::string> extra) {
    std::vector<std::string> words = base;
    words.insert(words.end(), extra.begin(), extra.end());
    return RunCommandLine(words);
  };
  // Each pair: the switches given, and the one refused.
  const std::vector<std::pair<std::vector<std::string>, std::string>> refused = {
      {{"--no-simplify", "--simplify-further"}, "--simplify-further"},  // no groups to leave the holdings of
      {{"--category-icons"}, "--category-icons"},                       // the text carries no pictures
      {{"--standard-rules"}, "--standard-rules"},                       // the categories follow no rules
      {{"--standard-rules", "--show-empty", "--json"}, "--standard-rules"}};
  for (const auto& [switches, named] : refused) {
    const CliRun run = with(switches);
    EXPECT_EQ(run.status, 2) << named;
    EXPECT_TRUE(run.out.empty()) << named;
    EXPECT_EQ(run.err.rfind("cook: " + named + " ", 0), 0u) << run.err;
  }
  // Beside the switch they need, the same switches act.
  const CliRun json = with({"--json"});
  const CliRun icons = with({"--json", "--category-icons"});
  EXPECT_EQ(icons.status, 0) << icons.err;
  EXPECT_NE(icons.out, json.out);
  const CliRun further = with({"--simplify-further"});
  EXPECT_EQ(further.status, 0) << further.err;
  EXPECT_NE(further.out, with({}).out);
  for (const char* needed : {"--win-lose-icons", "--category-equity"}) {
    const CliRun standard = with({needed, "--standard-rules"});
    EXPECT_EQ(standard.status, 0) << needed << standard.err;
    EXPECT_TRUE(standard.err.empty()) << standard.err;
  }
}

TEST_F(OptionsTaken, TheOptionsEachModeTakesStillAct) {
  // My range against the opponent's: the board and --json act, --standard-rules names the rules it uses.
  const std::vector<std::string> ranges = {"equity", "--hand-range", "QQ", "--range", "AA,KK"};
  const CliRun preflop = RunCommandLine(ranges);
  EXPECT_EQ(preflop.status, 0) << preflop.err;
  std::vector<std::string> onFlop = ranges;
  onFlop.insert(onFlop.end(), {"--board", "Kc8h3s", "--json"});
  const CliRun flop = RunCommandLine(onFlop);
  EXPECT_EQ(flop.status, 0) << flop.err;
  EXPECT_NE(flop.out.find("\"street\":1"), std::string::npos) << flop.out;
  onFlop.push_back("--standard-rules");
  EXPECT_EQ(RunCommandLine(onFlop).out, flop.out);
  // With a hand: --seen adds its holdings to the range, --top stands in for --range.
  const CliRun aces = RunCommandLine({"equity", "--hand", "KhKd", "--board", "", "--range", "AA"});
  const CliRun seen =
      RunCommandLine({"equity", "--hand", "KhKd", "--board", "", "--range", "AA", "--seen", "72"});
  EXPECT_EQ(seen.status, 0) << seen.err;
  EXPECT_NE(seen.out, aces.out);
  EXPECT_EQ(RunCommandLine({"equity", "--hand", "KhKd", "--board", "", "--top", "0.5"}).out, aces.out);
}

}  // namespace
}  // namespace quillet::cli
