// Weights in quillet-cli's range options: cook counts weighted combinations, equity's holdings carry their
// weights, profiles add keeps them (in the weights file beside the profile file) and profiles show says
// them; --seen takes none.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <array>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "cards/holding.h"
#include "categorise/cook.h"
#include "cli/hand_board_range.h"
#include "range/range_notation.h"
#include "storage/file_io.h"
#include "storage/profile_file.h"
#include "tests/cli/cli_run.h"
#include "tests/support/test_seed.h"

namespace quillet::cli {
namespace {

namespace fs = std::filesystem;

std::string WeightedLines(const std::vector<std::string>& lines) {
  std::string out;
  for (const std::string& line : lines) out += line + "\r\n";
  return out;
}

const std::string kWholeClassMark = "\xE2\x80\xA2";

// KK at 0.5 (3 combinations), QQ whole (6), AKs at 0.25 with two of its four holdings dead beside AhAd
// (0.5 left): 9.5 combinations in categories, 9 of them (94 %) pairs and 0.5 (5 %) ace high.
TEST(WeightedCookCli, CountsAndPercentagesAreThoseOfTheWeightedCombinations) {
  const CliRun run =
      RunCommandLine({"cook", "--hand", "AhAd", "--board", "", "--range", "KK:0.5, QQ, AKs:0.25"});
  EXPECT_EQ(run.status, 0) << run.err;
  const std::string header = run.out.substr(0, run.out.find("\r\n\r\n") + 4);
  EXPECT_EQ(run.out.substr(header.size()), WeightedLines({"High cards (0.5) 5%",
                                                          "  A high (0.5) 5%",
                                                          "    ~AKs (0.5)",
                                                          "      Ac Kc",
                                                          "      As Ks",
                                                          "",
                                                          "One pair (9) 94%",
                                                          "  " + kWholeClassMark + "KK  (3)",
                                                          "    Kc Kd",
                                                          "    Kc Kh",
                                                          "    Kc Ks",
                                                          "    Kd Kh",
                                                          "    Kd Ks",
                                                          "    Kh Ks",
                                                          "  " + kWholeClassMark + "QQ  (6)",
                                                          "    Qc Qd",
                                                          "    Qc Qh",
                                                          "    Qc Qs",
                                                          "    Qd Qh",
                                                          "    Qd Qs",
                                                          "    Qh Qs"}));
}

TEST(WeightedCookCli, JsonPutsTheCombinationsBesideEveryCount) {
  const CliRun run =
      RunCommandLine({"cook", "--hand", "AhAd", "--board", "", "--range", "KK:0.5, QQ, AKs:0.25", "--json"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out.rfind("{\"range\":16,\"weightedRange\":10,\"possible\":14,\"weightedPossible\":9.5,"
                          "\"categorised\":14,\"weightedCategorised\":9.5,\"categories\":[",
                          0),
            0u)
      << run.out;
  EXPECT_NE(run.out.find("{\"index\":1,\"label\":\">*A high\",\"count\":2,\"weightedCount\":0.5,\"combos\":["
                         "\"AcKc\",\"AsKs\"]}"),
            std::string::npos)
      << run.out;
  EXPECT_NE(run.out.find("{\"index\":6,\"label\":\"*One pair\",\"count\":12,\"weightedCount\":9,"),
            std::string::npos);
}

// Random weights on a random third of all holdings, cooked on every street: each category's combinations
// are the weights of the holdings it lists, and the three totals those of the range, of the holdings that
// use no card in play, and of the live ones again, all summed here from the weights the test gave.
TEST(WeightedCookCli, RandomWeightsAddUpInTheJsonOnEveryStreet) {
  std::mt19937_64 random(testing::TestSeed(2207));
  const std::pair<const char*, const char*> inputs[] = {
      {"", ""},       {"AhKd", ""},         {"AhKd", "Tc8h3s"},
      {"", "9h6h2h"}, {"7c7d", "Tc8h3s9h"}, {"QsJs", "Ts9s2d3c5h"}};
  for (const auto& [hand, board] : inputs) {
    SCOPED_TRACE(std::string(hand) + " " + board);
    WeightedHoldingSet weights;
    std::bernoulli_distribution held(0.33);
    std::uniform_int_distribution<int> weight(1, kFullWeight);
    for (int h = 0; h < kHoldingCount; ++h) {
      if (held(random)) weights.SetWeight(h, weight(random));
    }
    const CliRun run = RunCommandLine(
        {"cook", "--hand", hand, "--board", board, "--range", PrintWeightedRangeNotation(weights), "--json"});
    ASSERT_EQ(run.status, 0) << run.err;
    const Json json = Json::parse(run.out);
    const auto weightOf = [&](const std::string& text) {
      const std::string cards = text.substr(0, 4);  // a marked copy ends with "*"
      const Card a{RankFromChar(cards.substr(0, 1)), SuitFromChar(cards.substr(1, 1))};
      const Card b{RankFromChar(cards.substr(2, 1)), SuitFromChar(cards.substr(3, 1))};
      return weights.Weight(a, b);
    };
    for (const Json& category : json["categories"]) {
      int64_t sum = 0;
      for (const Json& combo : category["combos"]) sum += weightOf(combo.get<std::string>());
      EXPECT_DOUBLE_EQ(category["weightedCount"].get<double>(), static_cast<double>(sum) / kFullWeight)
          << category["label"];
    }
    const std::string inPlay = std::string(hand) + board;
    int64_t all = 0;
    int64_t live = 0;
    for (int h = 0; h < kHoldingCount; ++h) {
      const std::array<Card, 2> cards = CardsOfHolding(h);
      bool dead = false;
      for (std::size_t at = 0; at < inPlay.size(); at += 2) {
        const Card c{RankFromChar(inPlay.substr(at, 1)), SuitFromChar(inPlay.substr(at + 1, 1))};
        dead = dead || cards[0] == c || cards[1] == c;
      }
      all += weights.Weight(h);
      if (!dead) live += weights.Weight(h);
    }
    EXPECT_DOUBLE_EQ(json["weightedRange"].get<double>(), static_cast<double>(all) / kFullWeight);
    EXPECT_DOUBLE_EQ(json["weightedPossible"].get<double>(), static_cast<double>(live) / kFullWeight);
    EXPECT_DOUBLE_EQ(json["weightedCategorised"].get<double>(), static_cast<double>(live) / kFullWeight);
  }
}

TEST(WeightedCookCli, WholeWeightsGiveTheOutputOfARangeWithoutWeights) {
  for (const bool json : {false, true}) {
    std::vector<std::string> weighted = {
        "cook", "--hand", "AhKd", "--board", "Tc8h3s", "--range", "KK:1, [100]QQ[/100], AKs"};
    std::vector<std::string> plain = {"cook",   "--hand",  "AhKd",       "--board",
                                      "Tc8h3s", "--range", "KK, QQ, AKs"};
    if (json) {
      weighted.push_back("--json");
      plain.push_back("--json");
    }
    const CliRun a = RunCommandLine(weighted);
    const CliRun b = RunCommandLine(plain);
    EXPECT_EQ(a.status, 0) << a.err;
    EXPECT_EQ(a.out, b.out);
    EXPECT_EQ(a.out.find("weighted"), std::string::npos);
  }
}

TEST(WeightedCookCli, ABadWeightInTheRangeIsRefusedWithItsColumn) {
  const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "", "--range", "QQ+, AKs:1.5"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err.rfind("cook: --range: bad weight 'AKs:1.5' at column 6 (", 0), 0u) << run.err;
}

TEST(WeightedCookCli, TheSeenLayerRefusesWeightsInCookEquityAndProfilesAdd) {
  for (const char* command : {"cook", "equity"}) {
    const CliRun run =
        RunCommandLine({command, "--hand", "AhKd", "--board", "", "--range", "QQ", "--seen", "AKs:0.5"});
    EXPECT_EQ(run.status, 2) << command;
    EXPECT_EQ(run.err,
              std::string(command) + ": --seen: the Seen layer takes no weights: 'AKs:0.5' at column 1\n");
  }
}

// The options cook and equity share hand --range's weights on: equity's holdings are collected from the
// same profile, with its On-layer weights.
TEST(WeightedRangeOptions, TheHoldingsOfTheRangeCarryTheirWeights) {
  CLI::App app("test", "test");
  SetUpCommandParser(app);
  HandBoardRangeOptions options;
  AddHandBoardRangeOptions(app, options);
  std::ostringstream out, err;
  int status = 0;
  const auto positional = ParseCommandWords(
      app, {"--hand", "AhAd", "--board", "Tc8h3s", "--range", "KsKc:0.5, QsQc, JhTh:0.25", "--seen", "22"},
      "test", out, err, status);
  ASSERT_TRUE(positional.has_value()) << err.str();
  const auto read = ReadHandBoardRange(app, options, *positional, "test", err);
  ASSERT_TRUE(read.has_value()) << err.str();
  const std::vector<HandCombo> combos =
      CollectRangeCombos(read->profile.rangeLayer, read->profile.seenLayer, &read->profile.onWeights);
  ASSERT_EQ(combos.size(), 3u + 6u);
  int64_t sum = 0;
  for (const HandCombo& combo : combos) {
    const std::string text = ComboToText(combo);
    const int32_t expected = text == "KsKc" || text == "KcKs"   ? 500
                             : text == "JhTh" || text == "ThJh" ? 250
                                                                : kFullWeight;  // QsQc and the Seen 22s
    EXPECT_EQ(combo.weight, expected) << text;
    sum += combo.weight;
  }
  EXPECT_EQ(sum, 500 + 1000 + 250 + 6000);
}

// ---- profiles ----

class WeightedProfiles : public ProfilesCommandTest {
 protected:
  fs::path Side() const { return fs::path(File() + ".weights"); }
};

std::string FileBytes(const fs::path& path) {
  return ReadWholeFile(path, std::size_t{1} << 26).bytes;
}

TEST_F(WeightedProfiles, AddKeepsTheWeightsAndShowSaysThem) {
  const CliRun add = Run({"add", "Amy", "--range", "KK:0.5, QQ, AhKh:0.25", "--range-text", "x"});
  ASSERT_EQ(add.status, 0) << add.err;
  const CliRun show = Run({"show", "Amy"});
  EXPECT_EQ(show.status, 0) << show.err;
  EXPECT_EQ(show.out,
            "Profile: Amy\nRange text: x\nOn layer (3 classes)\n  AKs  1 holding, 0.25 combos\n"
            "  KK  6 holdings, whole, 3 combos\n  QQ  6 holdings, whole\nSeen layer (0 classes)\n"
            "On layer weights: QQ, KK:0.5, AhKh:0.25\nOn layer combos: 9.25\n");
  const CliRun json = Run({"show", "Amy", "--json", "--notation"});
  EXPECT_EQ(
      json.out,
      "{\"name\":\"Amy\",\"rangeText\":\"x\",\"on\":[{\"class\":\"AKs\",\"count\":1,\"whole\":false,"
      "\"weightedCount\":0.25},{\"class\":\"KK\",\"count\":6,\"whole\":true,\"weightedCount\":3},"
      "{\"class\":\"QQ\",\"count\":6,\"whole\":true}],\"seen\":[],\"onWeights\":\"QQ, KK:0.5, AhKh:0.25\","
      "\"onCombos\":9.25,\"onNotation\":\"QQ, KK:0.5, AhKh:0.25\",\"seenNotation\":\"\"}\n");
  EXPECT_EQ(Run({"list"}).out, "Amy\n");
}

TEST_F(WeightedProfiles, TheProfileFileIsTheOneAnUnweightedAddWrites) {
  ASSERT_EQ(Run({"add", "Amy", "--range", "KK:0.5, QQ, AhKh:0.25", "--range-text", "x"}).status, 0);
  const std::string weighted = FileBytes(File());
  ASSERT_FALSE(weighted.empty());
  EXPECT_EQ(FileBytes(Side()), "Quillet profile weights 1\nAmy\tQQ, KK:0.5, AhKh:0.25\n");
  fs::remove(File());
  fs::remove(Side());
  ASSERT_EQ(Run({"add", "Amy", "--range", "KK, QQ, AhKh", "--range-text", "x"}).status, 0);
  EXPECT_EQ(FileBytes(File()), weighted);
  EXPECT_EQ(dir.Entries(), std::vector<std::string>{"Player_Profiles.ini"});
}

TEST_F(WeightedProfiles, AnotherAddKeepsTheWeightsOfTheProfilesThere) {
  ASSERT_EQ(Run({"add", "Amy", "--range", "KK:0.5"}).status, 0);
  ASSERT_EQ(Run({"add", "Bob", "--range", "AA"}).status, 0);
  ASSERT_EQ(Run({"add", "Cy", "--range", "[25]JJ, TT[/25]"}).status, 0);
  EXPECT_EQ(FileBytes(Side()), "Quillet profile weights 1\nAmy\tKK:0.5\nCy\tJJ-TT:0.25\n");
  const ProfileFileContents read = ReadProfileFile(File());
  ASSERT_EQ(read.profiles.size(), 3u);
  EXPECT_EQ(PrintWeightedRangeNotation(OnLayerWeights(read.profiles[0])), "KK:0.5");
  EXPECT_FALSE(HasPartialWeights(read.profiles[1]));
}

TEST_F(WeightedProfiles, WeightsInSeenAreRefusedAndNothingIsWritten) {
  const CliRun run = Run({"add", "Amy", "--range", "AA", "--seen", "KK:0.5"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "quillet-cli profiles add: the Seen layer takes no weights: 'KK:0.5' at column 1\n");
  EXPECT_TRUE(dir.Entries().empty());
}

TEST_F(WeightedProfiles, ADamagedWeightsFileIsReportedTheProfilesReadUnweightedAndAddKeepsItAside) {
  ASSERT_EQ(Run({"add", "Amy", "--range", "KK:0.5"}).status, 0);
  const std::string damaged = "Quillet profile weights 1\nAmy KK:0.5\n";
  ASSERT_FALSE(WriteFileAtomically(Side(), damaged).has_value());
  const std::string fault = "The profile weights file \"" + Side().string() +
                            "\" cannot be read: line 2 has no tab between the name and the weights.";

  const CliRun list = Run({"list"});
  EXPECT_EQ(list.status, 0);
  EXPECT_EQ(list.out, "Amy\n");
  EXPECT_EQ(list.err, fault + " The profiles were read without their weights.\n");
  const CliRun show = Run({"show", "Amy"});
  EXPECT_EQ(show.status, 0);
  EXPECT_EQ(show.out.find("weights"), std::string::npos);
  EXPECT_EQ(FileBytes(Side()), damaged);  // reading changes nothing

  const CliRun add = Run({"add", "Bob", "--range", "AA:0.5"});
  EXPECT_EQ(add.status, 0) << add.err;
  EXPECT_EQ(add.err, fault + " It was kept as \"" + Side().string() +
                         ".bad\". The profiles were read without their weights.\n");
  EXPECT_EQ(FileBytes(fs::path(Side().string() + ".bad")), damaged);
  EXPECT_EQ(FileBytes(Side()), "Quillet profile weights 1\nBob\tAA:0.5\n");
}

// Two quillet-cli adding weighted profiles at once: each reads, changes and writes both files under the
// folder's lock, so neither loses the other's profile or weights.
TEST_F(WeightedProfiles, TwoAddsAtOnceKeepEveryProfileWithItsWeights) {
  const auto start = [&](std::vector<std::string> words) {
    const pid_t child = fork();
    if (child == 0) _exit(Run(std::move(words)).status);
    return child;
  };
  const auto exitStatus = [](pid_t child) {
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  };
  for (int round = 1; round <= 15; ++round) {
    const pid_t a = start({"add", "A" + std::to_string(round), "--range", "AA:0.5"});
    const pid_t b = start({"add", "B" + std::to_string(round), "--range", "KK:0.25"});
    ASSERT_GT(a, 0);
    ASSERT_GT(b, 0);
    ASSERT_EQ(exitStatus(a), kExitOk) << round;
    ASSERT_EQ(exitStatus(b), kExitOk) << round;
  }
  const ProfileFileContents read = ReadProfileFile(File());
  EXPECT_FALSE(read.weightsError.has_value());
  ASSERT_EQ(read.profiles.size(), 30u);
  for (const PlayerProfile& p : read.profiles) {
    EXPECT_EQ(PrintWeightedRangeNotation(OnLayerWeights(p)), p.name[0] == 'A' ? "AA:0.5" : "KK:0.25")
        << p.name;
  }
}

}  // namespace
}  // namespace quillet::cli
