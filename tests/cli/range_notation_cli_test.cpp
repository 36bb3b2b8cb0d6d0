// Range notation in quillet-cli: the range command, --range and --seen of cook, equity and profiles add,
// and profiles show --notation.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "cards/hand_class.h"
#include "cli/range_option.h"
#include "range/class_list.h"
#include "range/holding_set.h"
#include "range/range_notation.h"
#include "storage/profile_file.h"
#include "tests/cli/cli_run.h"

namespace quillet::cli {
namespace {

// ---- quillet-cli range ----

TEST(RangeCommand, PrintsTheShortestTextTheCountAndTheShare) {
  const CliRun run = RunCommandLine({"range", "AKs, AA, KK, QQ"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "Range: QQ+, AKs\nHoldings: 22\nPercent: 1.7\n");
  EXPECT_EQ(run.err, "");
}

TEST(RangeCommand, JsonGivesTheSameThreeValues) {
  EXPECT_EQ(RunCommandLine({"range", "QQ+,AKs", "--json"}).out,
            "{\"range\":\"QQ+, AKs\",\"holdings\":22,\"percent\":1.7}\n");
  EXPECT_EQ(RunCommandLine({"range", "random", "--json"}).out,
            "{\"range\":\"all\",\"holdings\":1326,\"percent\":100}\n");
}

TEST(RangeCommand, CountsTheKnownRanges) {
  const std::pair<const char*, const char*> known[] = {
      {"QQ+,AKs", "22"}, {"22+", "78"},      {"A2s+", "48"},     {"KTo+", "36"},  {"T9s-54s", "24"},
      {"AK", "16"},      {"random", "1326"}, {"AhKh,AhKh", "1"}, {"KK-QQ", "12"},
  };
  for (const auto& [text, count] : known) {
    const CliRun run = RunCommandLine({"range", text});
    EXPECT_EQ(run.status, 0) << text;
    EXPECT_NE(run.out.find(std::string("\nHoldings: ") + count + "\n"), std::string::npos) << text << run.out;
  }
}

TEST(RangeCommand, WordsSplitByTheShellAreOneText) {
  EXPECT_EQ(RunCommandLine({"range", "QQ+,", "AKs"}).out, RunCommandLine({"range", "QQ+, AKs"}).out);
}

TEST(RangeCommand, WeightsAreReadAndTheCombosAreTheirSum) {
  // QQ: 6 holdings at 1; AKs: 4 at 0.5, 2 combos. 8 of 1,326 is 0.603%.
  const CliRun run = RunCommandLine({"range", "AKs:0.5, QQ"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "Range: QQ, AKs:0.5\nHoldings: 10\nCombos: 8\nPercent: 0.6\n");
  EXPECT_EQ(RunCommandLine({"range", "--json", "[50]AQs, AJs[/50], QQ:25%"}).out,
            "{\"range\":\"AQs-AJs:0.5, QQ:0.25\",\"holdings\":14,\"combos\":5.5,\"percent\":0.4,"
            "\"text\":\"AQs-AJs:0.5, QQ:0.25\"}\n");
}

TEST(RangeCommand, WithoutWeightsBelowOneTheOutputIsTheUnweightedOne) {
  // No combos line or field: the combos are the holdings.
  EXPECT_EQ(RunCommandLine({"range", "QQ+, AKs:1"}).out, "Range: QQ+, AKs\nHoldings: 22\nPercent: 1.7\n");
  EXPECT_EQ(RunCommandLine({"range", "--json", "[100]QQ+[/100]"}).out,
            "{\"range\":\"QQ+\",\"holdings\":18,\"percent\":1.4}\n");
}

TEST(RangeCommand, ABadTextExitsWithTwoAndSaysWhyOnStderrOnly) {
  const CliRun run = RunCommandLine({"range", "QQ+, AKx"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "quillet-cli range: unknown token 'AKx' at column 6\n");
  EXPECT_EQ(
      RunCommandLine({"range", "QQ+ AKs:1.5"}).err,
      "quillet-cli range: bad weight 'AKs:1.5' at column 5 (a weight is 0 to 1 in steps of 0.001 after a "
      "colon, \"AKs:0.5\", or a percentage in steps of 0.1, \"AKs:50%\", \"[50]AKs, AQs[/50]\")\n");
  EXPECT_EQ(RunCommandLine({"range", "QQ+, [50]AKs"}).err,
            "quillet-cli range: bracket '[50]AKs' at column 6 is never closed\n");
  EXPECT_EQ(RunCommandLine({"range"}).status, 2);
}

TEST(RangeCommand, EscapeSequencesInABadTextAreShownNotObeyed) {
  const CliRun run = RunCommandLine({"range", "AK\x1B[31mRED\x1B[0m"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "quillet-cli range: unknown token 'AK\\x1B[31mRED\\x1B[0m' at column 1\n");
}

TEST(RangeCommand, AHugeBadTokenIsQuotedShortAndAHugeTextIsRefusedAtOnce) {
  const CliRun token = RunCommandLine({"range", std::string(20'000, 'Z')});
  EXPECT_EQ(token.err, "quillet-cli range: unknown token '" + std::string(40, 'Z') + "...' at column 1\n");
  const CliRun text = RunCommandLine({"range", std::string(1 << 20, 'Z')});
  EXPECT_EQ(text.status, 2);
  EXPECT_EQ(
      text.err,
      "quillet-cli range: the range is 1048576 bytes long, more than the 32767 bytes a range may have\n");
}

TEST(RangeOption, EscapeSequencesInABadClassListAreShownNotObeyed) {
  quillet::testing::TempFolder dir;
  const CliRun run = RunCommandLine({"profiles", "add", "Amy", "--range", "AA, K\x1B[2J", "--file",
                                     (dir / "Player_Profiles.ini").string()});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err.find('\x1B'), std::string::npos) << run.err;
  EXPECT_NE(run.err.find("K\\x1B[2J"), std::string::npos) << run.err;
}

TEST(CliWords, ControlCharactersInAnUnknownCommandOrWordAreShownAsEscapes) {
  EXPECT_EQ(RunCommandLine({"x\x1B[2J"}).err,
            "quillet-cli: unknown command \"x\\x1B[2J\" (see quillet-cli --help)\n");
}

// ---- class lists are part of the notation ----

// A class list as users write them: names in either case, blanks and empty items here and there; offsuit
// classes with or without "o" (always with it when `offsuitWithO`).
std::string RandomClassList(std::mt19937& random, bool offsuitWithO) {
  std::string text;
  const int count = static_cast<int>(random() % 12);
  for (int n = 0; n < count; ++n) {
    const HandClass& c = HandClasses()[random() % kClassCount];
    std::string name = c.name;
    if (c.kind == kKindOffsuit && (offsuitWithO || random() % 2 == 0)) name += random() % 2 ? "o" : "O";
    for (char& ch : name) {
      if (random() % 3 == 0 && ch >= 'A' && ch <= 'Z') ch = static_cast<char>(ch - 'A' + 'a');
    }
    text += (random() % 3 == 0 ? " " : "") + name + (random() % 3 == 0 ? " ," : ",");
    if (random() % 5 == 0) text += ",";
  }
  return text;
}

TEST(RangeOption, WithClassesEveryClassListGivesTheLayerItGaveBefore) {
  std::mt19937 random(1326);
  for (int n = 0; n < 2000; ++n) {
    const std::string text = RandomClassList(random, false);
    const ClassList list = ParseClassList(text);
    ASSERT_TRUE(list.ok()) << text;
    RangeLayer layer = MakeEmptyLayer();
    EXPECT_EQ(PutRangeOption(text, layer, RangeReading::Classes), "");
    EXPECT_EQ(layer, LayerOfClasses(list.classes)) << text;  // record for record
  }
}

TEST(RangeOption, AClassListWithItsOffsuitClassesWrittenWithOGivesTheLayerItGaveBefore) {
  std::mt19937 random(1328);
  for (int n = 0; n < 2000; ++n) {
    const std::string text = RandomClassList(random, true);
    const ClassList list = ParseClassList(text);
    ASSERT_TRUE(list.ok()) << text;
    RangeLayer layer = MakeEmptyLayer();
    EXPECT_EQ(PutRangeOption(text, layer), "");
    EXPECT_EQ(layer, LayerOfClasses(list.classes)) << text;  // record for record
  }
}

TEST(RangeOption, ClassListsWithTheirOffsuitClassesWrittenWithOReadAlikeAsNotation) {
  std::mt19937 random(1327);
  for (int n = 0; n < 2000; ++n) {
    const std::string text = RandomClassList(random, true);
    const ParsedRange notation = ParseRangeNotation(text);
    ASSERT_TRUE(notation.ok()) << text;
    EXPECT_EQ(notation.holdings, HoldingsOfLayer(LayerOfClasses(ParseClassList(text).classes))) << text;
  }
}

TEST(RangeOption, ABareOffsuitNameIsBothHalvesAndOffsuitOnlyWithClasses) {
  // The one word the two readings take differently: a class list names the offsuit class "AK" (as the
  // preflop order does), players' notation means AKs and AKo. Every text is notation, class list or not;
  // RangeReading::Classes (--classes) reads a text that is a class list as one.
  RangeLayer notation = MakeEmptyLayer();
  ASSERT_EQ(PutRangeOption("AA,AK", notation), "");
  EXPECT_EQ(HoldingsOfLayer(notation).size(), 6 + 16);
  RangeLayer spaced = MakeEmptyLayer();
  ASSERT_EQ(PutRangeOption("AA+, AK", spaced), "");
  EXPECT_EQ(spaced, notation);
  RangeLayer list = MakeEmptyLayer();
  ASSERT_EQ(PutRangeOption("AA,AK", list, RangeReading::Classes), "");
  EXPECT_EQ(HoldingsOfLayer(list).size(), 6 + 12);
  RangeLayer notList = MakeEmptyLayer();
  ASSERT_EQ(PutRangeOption("AA+, AK", notList, RangeReading::Classes), "");
  EXPECT_EQ(notList, notation);
}

TEST(RangeOption, AKIsSixteenHoldingsInCookRangeAndEquityRange) {
  const auto cook = [](std::vector<std::string> extra) {
    std::vector<std::string> words = {"cook", "--hand", "", "--board", "", "--json"};
    words.insert(words.end(), extra.begin(), extra.end());
    return RunCommandLine(words);
  };
  EXPECT_EQ(cook({"--range", "AK"}).out.rfind("{\"range\":16,", 0), 0u);
  EXPECT_EQ(cook({"--range", "AK, QQ"}).out.rfind("{\"range\":22,", 0), 0u);
  EXPECT_EQ(cook({"--range", "AK,QQ+"}).out.rfind("{\"range\":34,", 0), 0u);
  EXPECT_EQ(cook({"--range", "QQ", "--seen", "AK"}).out.rfind("{\"range\":22,", 0), 0u);
  const auto equity = [](const std::string& range, std::vector<std::string> extra = {}) {
    std::vector<std::string> words = {"equity", "--hand", "QhQd", "--board", "", "--range", range, "--json"};
    words.insert(words.end(), extra.begin(), extra.end());
    return RunCommandLine(words);
  };
  const CliRun ak = equity("AK");
  ASSERT_EQ(ak.status, 0) << ak.err;
  EXPECT_EQ(ak.out, equity("AKs, AKo").out);
  EXPECT_NE(ak.out, equity("AKo").out);
}

TEST(RangeOption, ClassesGivesTheOldReadingOfTwelve) {
  const CliRun cook =
      RunCommandLine({"cook", "--hand", "", "--board", "", "--range", "AK", "--classes", "--json"});
  EXPECT_EQ(cook.out.rfind("{\"range\":12,", 0), 0u) << cook.out;
  const CliRun seen = RunCommandLine(
      {"cook", "--hand", "", "--board", "", "--range", "QQ", "--seen", "AK", "--classes", "--json"});
  EXPECT_EQ(seen.out.rfind("{\"range\":18,", 0), 0u) << seen.out;
  const CliRun equity =
      RunCommandLine({"equity", "--hand", "QhQd", "--board", "", "--range", "AK", "--classes", "--json"});
  ASSERT_EQ(equity.status, 0) << equity.err;
  EXPECT_EQ(equity.out,
            RunCommandLine({"equity", "--hand", "QhQd", "--board", "", "--range", "AKo", "--json"}).out);
  // A text that is no class list reads as notation with --classes too.
  const CliRun notation =
      RunCommandLine({"cook", "--hand", "", "--board", "", "--range", "AK,QQ+", "--classes", "--json"});
  EXPECT_EQ(notation.out.rfind("{\"range\":34,", 0), 0u) << notation.out;
}

TEST(RangeOption, ClassesIsRefusedWhereThereIsNoClassListToRead) {
  const CliRun top = RunCommandLine({"cook", "--hand", "", "--board", "", "--top", "10", "--classes"});
  EXPECT_EQ(top.status, 2);
  EXPECT_EQ(top.out, "");
  EXPECT_EQ(top.err, "cook: --classes applies to --range and --seen, and neither is given\n");
  const CliRun ranges =
      RunCommandLine({"equity", "--hand-range", "QQ+", "--range", "AK", "--board", "", "--classes"});
  EXPECT_EQ(ranges.status, 2);
  EXPECT_EQ(ranges.err,
            "equity: --classes does not apply with --hand-range: both ranges are read as notation\n");
  EXPECT_NE(RunCommandLine({"range", "AK", "--classes"}).status, 0);
}

TEST(RangeOption, TheSeenLayerTakesAWeightOfOneAndRefusesAnyOther) {
  RangeLayer one = MakeEmptyLayer();
  ASSERT_EQ(PutRangeOption("QQ+, AKs:1, [100]AQs[/100]", one), "");
  RangeLayer plain = MakeEmptyLayer();
  ASSERT_EQ(PutRangeOption("QQ+, AKs, AQs", plain), "");
  EXPECT_EQ(one, plain);
  RangeLayer half = MakeEmptyLayer();
  EXPECT_EQ(PutRangeOption("QQ+, [50]AQs, AJs[/50]", half),
            "the Seen layer takes no weights: '[50]AQs' at column 6");
  EXPECT_EQ(half, MakeEmptyLayer());
  const CliRun seen = RunCommandLine(
      {"cook", "--hand", "", "--board", "", "--range", "AA", "--seen", "QQ+, [50]AQs, AJs[/50]"});
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.err, "cook: --seen: the Seen layer takes no weights: '[50]AQs' at column 6\n");
}

TEST(RangeOption, ABadListKeepsItsMessageWhenTheNotationStumblesOnTheSameItem) {
  for (const char* text : {"AA,AKx", "AAo", "AA, KK, 1x ,QQ", "AA,??,KK"}) {
    RangeLayer layer = MakeEmptyLayer();
    EXPECT_EQ(PutRangeOption(text, layer), ParseClassList(text).error) << text;
  }
}

TEST(RangeOption, OtherwiseTheNotationSaysWhatIsWrong) {
  const std::pair<const char*, const char*> refused[] = {
      {"QQ+, AKx", "unknown token 'AKx' at column 6"},  // the list would name QQ+, which notation reads
      {"AA, A K", "unknown token 'A' at column 5"},
      {"AhAd,AKx", "unknown token 'AKx' at column 6"},  // the list would have named AhAd
      {"AKs:0.5", "the Seen layer takes no weights: 'AKs:0.5' at column 1"},
      {"AKs-QJo", "range 'AKs-QJo' at column 1 has ends of different kinds"},
      {"AhAh", "holding 'AhAh' at column 1 has the same card twice"},
  };
  for (const auto& [text, message] : refused) {
    RangeLayer layer = MakeEmptyLayer();
    const RangeLayer before = layer;
    EXPECT_EQ(PutRangeOption(text, layer), message) << text;
    EXPECT_EQ(layer, before) << text;
  }
}

// ---- cook and equity ----

TEST(RangeNotationInCommands, EquityOnNotationEqualsEquityOnTheClasses) {
  const CliRun classes =
      RunCommandLine({"equity", "--hand", "AhKd", "--board", "", "--range", "AA,KK,QQ,AKs", "--json"});
  const CliRun notation =
      RunCommandLine({"equity", "--hand", "AhKd", "--board", "", "--range", "QQ+, AKs", "--json"});
  EXPECT_EQ(classes.status, 0) << classes.err;
  EXPECT_EQ(notation.out, classes.out);
  const CliRun seen = RunCommandLine(
      {"equity", "--hand", "AhKd", "--board", "Tc8h3s", "--range", "", "--seen", "T9s-54s, QhJh", "--json"});
  const CliRun seenClasses = RunCommandLine({"equity", "--hand", "AhKd", "--board", "Tc8h3s", "--range", "",
                                             "--seen", "T9s,98s,87s,76s,65s,54s", "--json"});
  EXPECT_NE(seen.out, seenClasses.out);  // QhJh counts
  EXPECT_EQ(seen.status, 0) << seen.err;
}

TEST(RangeNotationInCommands, APercentageIsTheRangeTopGives) {
  const CliRun top = RunCommandLine({"equity", "--hand", "AhKd", "--board", "Tc8h3s", "--top", "15"});
  const CliRun notation = RunCommandLine({"equity", "--hand", "AhKd", "--board", "Tc8h3s", "--range", "15%"});
  EXPECT_EQ(top.status, 0) << top.err;
  EXPECT_EQ(notation.out, top.out);
}

TEST(RangeNotationInCommands, CookNamesTheBadTokenAndExitsWithTwo) {
  const CliRun run = RunCommandLine({"cook", "--hand", "AhKd", "--board", "Tc8h3s", "--range", "QQ+ AKx"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "cook: --range: unknown token 'AKx' at column 5\n");
  const CliRun seen =
      RunCommandLine({"cook", "--hand", "AhKd", "--board", "Tc8h3s", "--range", "QQ+", "--seen", "[50]AK"});
  EXPECT_EQ(seen.err, "cook: --seen: the Seen layer takes no weights: '[50]AK' at column 1\n");
}

// ---- profiles ----

using ProfilesNotation = ProfilesCommandTest;

TEST_F(ProfilesNotation, AddTakesNotationAndShowPrintsItBackOnRequest) {
  ASSERT_EQ(Run({"add", "Amy", "--range", "QQ+, AKs, AhQh", "--seen", "T9s-87s"}).status, 0);
  const ProfileFileContents read = ReadProfileFile(File());
  ASSERT_EQ(read.profiles.size(), 1u);
  const PlayerProfile& amy = read.profiles[0];
  EXPECT_EQ(PrintRangeNotation(HoldingsOfLayer(amy.rangeLayer)), "QQ+, AKs, AhQh");
  EXPECT_EQ(amy.rangeLayer[FindClassByName("AQs")].count, 1);
  EXPECT_EQ(amy.rangeLayer[FindClassByName("QQ")].whole, kTrue16);
  EXPECT_EQ(amy.rangeText, "~2.6");  // 23 + 12 of 1,326

  const CliRun show = Run({"show", "Amy", "--notation"});
  EXPECT_EQ(show.status, 0) << show.err;
  EXPECT_NE(show.out.find("\nOn layer notation: QQ+, AKs, AhQh\nSeen layer notation: T9s, 98s, 87s\n"),
            std::string::npos)
      << show.out;
  const CliRun json = Run({"show", "Amy", "--json", "--notation"});
  EXPECT_NE(json.out.find(",\"onNotation\":\"QQ+, AKs, AhQh\",\"seenNotation\":\"T9s, 98s, 87s\"}"),
            std::string::npos)
      << json.out;
}

TEST_F(ProfilesNotation, ShowWithoutTheOptionIsAsBefore) {
  ASSERT_EQ(Run({"add", "Amy", "--range", "AA"}).status, 0);
  EXPECT_EQ(Run({"show", "Amy"}).out,
            "Profile: Amy\nRange text: ~0.5\nOn layer (1 class)\n  AA  6 holdings, whole\nSeen layer (0 "
            "classes)\n");
  EXPECT_EQ(Run({"show", "Amy", "--json"}).out.find("Notation"), std::string::npos);
}

TEST_F(ProfilesNotation, ABadTextWritesNothing) {
  const CliRun run = Run({"add", "Amy", "--range", "QQ+, AKx"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "quillet-cli profiles add: unknown token 'AKx' at column 6\n");
  EXPECT_TRUE(dir.Entries().empty());
}

TEST_F(ProfilesNotation, NotationIsAnOptionOfShowOnly) {
  EXPECT_EQ(Run({"list", "--notation"}).status, 2);
  const CliRun add = Run({"add", "Amy", "--range", "AA", "--notation"});
  EXPECT_EQ(add.status, 2);
  EXPECT_EQ(add.err, "quillet-cli profiles add: --notation does not apply here\n");
}

}  // namespace
}  // namespace quillet::cli
