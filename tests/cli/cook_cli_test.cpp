#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "quillet/version.h"
#include "tests/cli/cli_run.h"

namespace quillet::cli {
namespace {

int Occurrences(const std::string& text, const std::string& part) {
  int n = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++n;
  return n;
}

std::string Header(const std::string& hand, const std::string& board) {
  return std::string("Poker Quillet V") + kVersionText + " Clipboard Export\r\nMy Hand: " + hand +
         "   Board: " + board + "\r\n\r\n";
}

// The lines joined with CR LF, each ending with it.
std::string CrLf(const std::vector<std::string>& lines) {
  std::string out;
  for (const std::string& line : lines) out += line + "\r\n";
  return out;
}

const std::string kBullet = "\xE2\x80\xA2";

// A2s on 9h-T-K of hearts: Ah2h is a flush (also a flush draw); every holding has T-K-A, a backdoor
// straight draw; the other three are ace high, and the board's three hearts are their backdoor flush draw.
// Four holdings in categories, so the draw group of seven shows 175 per cent.
TEST(CookCli, PrintsTheExportTextOfTheSimplifiedTree) {
  const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "9hThKh", "--range", "A2s"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, Header("", "9hThKh") + CrLf({"High cards (3) 75%",
                                                  "  A high (3) 75%",
                                                  "    ~A2s (3)",
                                                  "      Ac 2c",
                                                  "      Ad 2d",
                                                  "      As 2s",
                                                  "",
                                                  "8 out or better draw (1) 25%",
                                                  "  Flush draws (1) 25%",
                                                  "      Ah 2h",
                                                  "",
                                                  "Gutshot and backdoor draws (7) 175%",
                                                  "  Backdoor Flush draw (3) 75%",
                                                  "    ~A2s (3)",
                                                  "      Ac 2c",
                                                  "      Ad 2d",
                                                  "      As 2s",
                                                  "  Backdoor Straight draw (4) 100%",
                                                  "    " + kBullet + "A2s (4) *",
                                                  "      Ac 2c",
                                                  "      Ad 2d",
                                                  "      Ah 2h *",
                                                  "      As 2s",
                                                  "",
                                                  "Flush (1) 25%",
                                                  "    Ah 2h"}));
  EXPECT_TRUE(run.err.empty());
}

TEST(CookCli, NoSimplifyListsEveryHoldingAndWinLoseIconsMarkTheLines) {
  // My Hand AhKd is ace high on J-T-7-5-2 with three hearts: it beats KcQc and KsQs, loses to the aces and
  // to KhQh, a flush. KdQd is dead.
  const CliRun run = RunCommandLine({"cook", "--hand", "ahkd", "--board", "JhTh7c5d2h", "--range", "KQs,AA",
                                     "--no-simplify", "--win-lose-icons"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out,
            Header("AhKd", "JhTh7c5d2h") +
                CrLf({"High cards (2) 33%", "  K high (2) 33%", "    Kc Qc [win]", "    Ks Qs [win]", "",
                      "One pair (3) 50%", "  O pair (3) 50%", "    Ac Ad [lose]", "    Ac As [lose]",
                      "    Ad As [lose]", "", "Flush (1) 16%", "  Kh Qh [lose]"}));
}

TEST(CookCli, SimplifyFurtherLeavesOutTheHoldingsOfTheGroups) {
  const CliRun further =
      RunCommandLine({"cook", "--hand", "", "--board", "", "--range", "AKs,QQ", "--simplify-further"});
  EXPECT_EQ(further.status, 0) << further.err;
  EXPECT_EQ(further.out,
            Header("", "") + CrLf({"High cards (4) 40%", "  A high (4) 40%", "    " + kBullet + "AKs (4)", "",
                                   "One pair (6) 60%", "  " + kBullet + "QQ  (6)"}));
  const CliRun plain = RunCommandLine({"cook", "--hand", "", "--board", "", "--range", "AKs,QQ"});
  EXPECT_EQ(plain.out,
            Header("", "") + CrLf({"High cards (4) 40%", "  A high (4) 40%", "    " + kBullet + "AKs (4)",
                                   "      Ac Kc", "      Ad Kd", "      Ah Kh", "      As Ks", "",
                                   "One pair (6) 60%", "  " + kBullet + "QQ  (6)", "    Qc Qd", "    Qc Qh",
                                   "    Qc Qs", "    Qd Qh", "    Qd Qs", "    Qh Qs"}));
}

TEST(CookCli, ShowEmptyListsEveryCategory) {
  const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "", "--range", "", "--show-empty"});
  EXPECT_EQ(run.status, 0) << run.err;
  // Header (3 lines) and the 55 categories, each at 0 per cent; the spacers are empty lines.
  EXPECT_EQ(Occurrences(run.out, "\r\n"), 3 + 55);
  EXPECT_EQ(Occurrences(run.out, " (0) 0%\r\n"), 43);
  EXPECT_NE(run.out.find("\r\n  TM own 2pair (0) 0%\r\n"), std::string::npos);
}

TEST(CookCli, WinLoseIconsWithoutABoardMarkNothing) {
  const CliRun run =
      RunCommandLine({"cook", "--hand", "AhAd", "--board", "", "--range", "KK", "--win-lose-icons"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out.find("["), std::string::npos) << run.out;
}

TEST(CookCli, JsonAddsTheTreeAndTheExportText) {
  const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "", "--range", "AKs,QQ", "--json"});
  ASSERT_EQ(run.status, 0) << run.err;
  const std::string& j = run.out;
  EXPECT_NE(
      j.find("],\"tree\":[{\"key\":\"0k\",\"parent\":\"\",\"text\":\"High cards (4) 40%\",\"image\":\"\","
             "\"colour\":null,\"level\":0},{\"key\":\"1k\",\"parent\":\"0k\",\"text\":\"A high (4) 40%\","),
      std::string::npos)
      << j;
  EXPECT_NE(j.find("{\"key\":\"0-1k\",\"parent\":\"1k\",\"text\":\"" + kBullet +
                   "AKs (4)\",\"image\":\"\",\"colour\":null,\"level\":2}"),
            std::string::npos);
  EXPECT_NE(
      j.find(
          "{\"key\":\"0-0-1k\",\"parent\":\"0-1k\",\"text\":\"Ac Kc\",\"image\":\"\",\"colour\":\"#00C000\","
          "\"level\":3}"),
      std::string::npos);
  EXPECT_NE(j.find("\"text\":\"Ad Kd\",\"image\":\"\",\"colour\":\"#0000FF\""), std::string::npos);
  EXPECT_NE(j.find("\"text\":\"Ah Kh\",\"image\":\"\",\"colour\":\"#FF0000\""), std::string::npos);
  EXPECT_NE(j.find("\"text\":\"As Ks\",\"image\":\"\",\"colour\":\"#000000\""), std::string::npos);
  EXPECT_NE(
      j.find(
          "{\"key\":\"0-0-6k\",\"parent\":\"0-6k\",\"text\":\"Qc Qd\",\"image\":\"\",\"colour\":\"#804000\","
          "\"level\":2}"),
      std::string::npos);
  const std::string exportText =
      "\"export\":\"Poker Quillet V" + std::string(kVersionText) +
      " Clipboard Export\\r\\nMy Hand:    Board: \\r\\n\\r\\nHigh cards (4) 40%\\r\\n";
  EXPECT_NE(j.find(exportText), std::string::npos) << j;
  EXPECT_TRUE(j.ends_with("\\r\\n    Qh Qs\\r\\n\"}\n")) << j;
}

TEST(CookCli, CategoryIconsNameTheIconOfEachCategory) {
  const CliRun run =
      RunCommandLine({"cook", "--hand", "", "--board", "", "--range", "QQ", "--json", "--category-icons"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(
      run.out.find("{\"key\":\"6k\",\"parent\":\"\",\"text\":\"One pair (6) 100%\",\"image\":\"pairm\""),
      std::string::npos)
      << run.out;
}

TEST(CookCli, JsonHoldsAllFiftyFiveEntriesWithTheirHoldingsAndMarks) {
  const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "9hThKh", "--range", "A2s", "--json"});
  ASSERT_EQ(run.status, 0) << run.err;
  const std::string& j = run.out;
  EXPECT_EQ(j.rfind("{\"range\":4,\"possible\":4,\"categorised\":4,\"categories\":[", 0), 0u) << j;
  EXPECT_EQ(Occurrences(j, "{\"index\":"), 55);
  EXPECT_NE(j.find("{\"index\":0,\"label\":\"*High cards\",\"count\":0,\"combos\":[]},"), std::string::npos);
  EXPECT_NE(
      j.find("{\"index\":1,\"label\":\">*A high\",\"count\":3,\"combos\":[\"Ac2c\",\"Ad2d\",\"As2s\"]}"),
      std::string::npos);
  EXPECT_NE(j.find("{\"index\":5,\"label\":\"*\",\"count\":0,\"combos\":[]}"), std::string::npos);
  EXPECT_NE(j.find("{\"index\":27,\"label\":\">*Flush draws\",\"count\":1,\"combos\":[\"Ah2h\"]}"),
            std::string::npos);
  EXPECT_NE(j.find("{\"index\":33,\"label\":\">*Backdoor Straight draw\",\"count\":4,"
                   "\"combos\":[\"Ac2c\",\"Ad2d\",\"Ah2h*\",\"As2s\"]}"),
            std::string::npos);
  EXPECT_NE(j.find("{\"index\":32,\"label\":\">*Backdoor Flush draw\",\"count\":3,"
                   "\"combos\":[\"Ac2c\",\"Ad2d\",\"As2s\"]}"),
            std::string::npos);
  EXPECT_NE(j.find("{\"index\":46,\"label\":\"*Flush\",\"count\":1,\"combos\":[\"Ah2h*\"]}"),
            std::string::npos);
  EXPECT_NE(j.find("{\"index\":54,\"label\":\"*Royal Flush\",\"count\":0,\"combos\":[]}],\"tree\":["),
            std::string::npos);
}

TEST(CookCli, BadInputPrintsTheWindowsMessagesOnStderrWithStatusTwo) {
  CliRun run = RunCommandLine({"cook", "--hand", "AhKd", "--board", "AhK", "--range", "AA"});
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(run.out.empty());
  EXPECT_EQ(run.err, "Board invalid. Valid Eg: ThKc4d\nBad Input\n");
  run = RunCommandLine({"cook", "--hand", "AhKd", "--board", "QsAh4c", "--range", "AA"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "Duplicate card exists\n");
}

TEST(CookCli, AnUnknownClassIsRefusedByName) {
  const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "", "--range", "AA,KQx,72"});
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(run.out.empty());
  EXPECT_NE(run.err.find("\"KQx\""), std::string::npos) << run.err;
  const CliRun seen = RunCommandLine({"cook", "--hand", "", "--board", "", "--range", "AA", "--seen", "AAo"});
  EXPECT_EQ(seen.status, 2);
  EXPECT_NE(seen.err.find("\"AAo\""), std::string::npos) << seen.err;
  EXPECT_NE(seen.err.find("--seen"), std::string::npos) << seen.err;
}

TEST(CookCli, AKIsBothHalvesAndAKoTheOffsuitClassAlone) {
  // --range reads the notation: "AK" is AKs and AKo, 16 holdings; "AKo" the offsuit twelve.
  const CliRun plain = RunCommandLine({"cook", "--hand", "", "--board", "", "--range", "AK"});
  const CliRun withO = RunCommandLine({"cook", "--hand", "", "--board", "", "--range", "AKo"});
  EXPECT_EQ(plain.status, 0);
  EXPECT_EQ(withO.status, 0);
  EXPECT_NE(plain.out.find("  A high (16) 100%\r\n"), std::string::npos) << plain.out;
  EXPECT_NE(withO.out.find("    " + kBullet + "AKo (12)\r\n"), std::string::npos) << withO.out;
  // With --classes a bare "AK" is the offsuit class, as class lists always named it.
  const CliRun classes = RunCommandLine({"cook", "--hand", "", "--board", "", "--range", "AK", "--classes"});
  EXPECT_EQ(classes.status, 0);
  EXPECT_EQ(classes.out, withO.out);
}

TEST(CookCli, TheSeenListAddsItsClassesAndEachClassGoesInWhole) {
  const CliRun run = RunCommandLine(
      {"cook", "--hand", "AhAd", "--board", "", "--range", "AA,AKs", "--seen", "AKs,22", "--json"});
  EXPECT_EQ(run.status, 0) << run.err;
  // AA 6 + AKs 4 (the Seen AKs adds nothing new) + 22 6; My Hand kills five aces and AhKh, AdKd.
  EXPECT_EQ(run.out.rfind("{\"range\":16,\"possible\":9,\"categorised\":9,", 0), 0u) << run.out;
}

TEST(CookCli, AnEmptyRangeIsNoError) {
  const CliRun run = RunCommandLine({"cook", "--hand", "AhAd", "--board", "Tc8h3s", "--range", ""});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, Header("AhAd", "Tc8h3s"));
  const CliRun json =
      RunCommandLine({"cook", "--hand", "AhAd", "--board", "Tc8h3s", "--range", "", "--json"});
  EXPECT_EQ(json.out.rfind("{\"range\":0,\"possible\":0,\"categorised\":0,", 0), 0u) << json.out;
}

TEST(CookCli, MissingOptionsAndStrayWordsAreRefused) {
  EXPECT_EQ(RunCommandLine({"cook", "--hand", "AhAd", "--range", "AA"}).status, 2);
  EXPECT_EQ(RunCommandLine({"cook", "--hand", "AhAd", "--board", ""}).status, 2);
  EXPECT_EQ(RunCommandLine({"cook", "--hand", "AhAd", "--board", "", "--range", "AA", "extra"}).status, 2);
  const CliRun run = RunCommandLine({"cook", "--hand", "AhAd", "--board", "", "--range"});
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find("--range"), std::string::npos);
}

TEST(CookCli, ClassNamesMayCarryBlanksAndLowerCase) {
  const CliRun run = RunCommandLine({"cook", "--hand", "", "--board", "", "--range", " aks , kk,", "--json"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out.rfind("{\"range\":10,", 0), 0u) << run.out;
}

}  // namespace
}  // namespace quillet::cli
