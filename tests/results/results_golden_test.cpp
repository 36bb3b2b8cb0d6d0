// Whole cooks turned into export texts under the three settings of the simplified output: a 10 % range on
// a turn and a mixed range with Seen extras on a river, checked line by line against texts worked out by
// hand, and the full range on a flop with My Hand, checked against what must hold of any export text.
#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "cards/card_input.h"
#include "cards/hand_class.h"
#include "cards/preflop_order.h"
#include "categorise/categories.h"
#include "categorise/cook.h"
#include "results/build_results_tree.h"
#include "tests/results/results_table.h"

namespace quillet {
namespace {

using testing::ExportFromNodes;
using testing::ExportLines;
using testing::Options;
using Lines = std::vector<std::string>;

void PutWhole(RangeLayer& layer, const std::string& className) {
  const int c = FindClassByName(className);
  ASSERT_GE(c, 0) << className;
  SetBlockWhole(layer[c], HandClasses()[c].kind == kKindSuited);
}

// One holding of a class into a layer, as a click on its suit-matrix cell does.
void PutSuitPair(RangeLayer& layer, const std::string& className, int32_t suit1, int32_t suit2) {
  const int c = FindClassByName(className);
  ASSERT_GE(c, 0) << className;
  SetBlockSuitPair(layer[c], suit1, suit2, true, false);
}

struct CookRun {
  Categories categories;
  ResultsCards cards;
  int32_t rangeCount = 0;
  int32_t liveCount = 0;
};

CookRun Cook(const std::string& hand, const std::string& board, const RangeLayer& on,
             const RangeLayer& seen) {
  CookRun run;
  run.cards.myHandText = hand;
  run.cards.boardText = board;
  HandCards handCards{};
  EXPECT_TRUE(ReadCardInputs(run.cards.myHandText, run.cards.boardText, nullptr, handCards, run.cards.board,
                             run.cards.street));
  run.cards.hand = handCards;
  std::vector<HandCombo> list = CollectRangeCombos(on, seen);
  run.rangeCount = static_cast<int32_t>(list.size());
  run.liveCount = RemoveDeadCombos(list, run.cards.hand, run.cards.board, run.cards.OnStreet());
  InitCategories(run.categories);
  ClassifyRange(run.categories, list, run.cards.board, run.cards.OnStreet());
  return run;
}

Lines ExportOf(const CookRun& run, bool simplify, bool further) {
  const ResultsBuild build =
      BuildResultsTree(run.categories, Options(true, simplify, further), run.cards, nullptr);
  EXPECT_EQ(build.exportText,
            ExportHeader(run.cards.myHandText, run.cards.boardText) + ExportFromNodes(build.tree));
  return ExportLines(build, run.cards);
}

void ExpectLines(const Lines& actual, const Lines& expected) {
  for (std::size_t i = 0; i < std::max(actual.size(), expected.size()); ++i) {
    const std::string a = i < actual.size() ? actual[i] : "<none>";
    const std::string e = i < expected.size() ? expected[i] : "<none>";
    EXPECT_EQ(a, e) << "line " << i + 1;
  }
}

// Lines of combination texts with the given indentation ("Ac Qc" -> "    Ac Qc").
Lines Indented(int blanks, const Lines& texts) {
  Lines out;
  for (const std::string& t : texts) out.push_back(std::string(blanks, ' ') + t);
  return out;
}

Lines Join(std::initializer_list<Lines> parts) {
  Lines out;
  for (const Lines& p : parts) out.insert(out.end(), p.begin(), p.end());
  return out;
}

// ---- a 10 % range on a turn ----
//
// Typed "10" the range box takes the nearest step of the preflop order, 9.8 % (rows 0 to 14): 21 classes,
// 130 holdings. My Hand Ah9h and the board Kh9c4d2s leave 95 of them. On K-9-4-2 (top K, middle 9,
// bottom 2) aces are an over pair, kings a top set, nines a middle set, QQ/JJ/TT lie between top and
// middle, 88 between middle and bottom; A-K and K-x pair the top; A9s pairs the middle; AQ, AJ, AT are ace
// high; QJs and QTs are queen high with a gutshot (9-T-J-Q-K needs the one card inside), so their copies in
// "Q high" carry the mark. No flush draw: a suited holding adds two to the one board card of its suit.
class TenPercentOnTheTurn : public ::testing::Test {
 protected:
  void SetUp() override {
    RangeLayer on = MakeEmptyLayer();
    const RangeLayer seen = MakeEmptyLayer();
    const Lines classes = {"AA",  "KK", "QQ", "JJ",  "TT",  "AKs", "99", "AQs", "AK",  "KQs", "AJs",
                           "ATs", "88", "AQ", "KJs", "QJs", "KTs", "AJ", "KQ",  "QTs", "A9s"};
    // The same classes as the first fifteen rows of the preflop order.
    Lines rows;
    for (int k = 0; k <= 14; ++k) {
      for (const std::string& name : SplitClassList(PreflopOrder()[k].classes)) rows.push_back(name);
    }
    ASSERT_EQ(rows, classes);
    EXPECT_DOUBLE_EQ(PreflopOrder()[14].percent, 9.8);
    for (const std::string& name : classes) PutWhole(on, name);
    run = Cook("Ah9h", "Kh9c4d2s", on, seen);
    ASSERT_EQ(run.rangeCount, 130);
    ASSERT_EQ(run.liveCount, 95);
    ASSERT_EQ(run.categories.categorisedCount, 95);
  }

  CookRun run;
};

// Display order: the higher rank sum first; within a sum suited clubs to spades, then offsuit and pairs.
TEST_F(TenPercentOnTheTurn, PlainOutputListsEveryHoldingInDisplayOrder) {
  const Lines aceHigh = {"Ac Qc", "Ad Qd", "As Qs", "Ac Qd", "Ac Qh", "Ac Qs", "Ad Qc", "Ad Qh", "Ad Qs",
                         "As Qc", "As Qd", "As Qh", "Ac Jc", "Ad Jd", "As Js", "Ac Jd", "Ac Jh", "Ac Js",
                         "Ad Jc", "Ad Jh", "Ad Js", "As Jc", "As Jd", "As Jh", "Ac Tc", "Ad Td", "As Ts"};
  const Lines queenHigh = {"Qc Jc *", "Qd Jd *", "Qh Jh *", "Qs Js *",
                           "Qc Tc *", "Qd Td *", "Qh Th *", "Qs Ts *"};
  const Lines topPair = {"Ac Kc", "Ad Kd", "As Ks", "Ac Kd", "Ac Ks", "Ad Kc", "Ad Ks", "As Kc", "As Kd",
                         "Kc Qc", "Kd Qd", "Ks Qs", "Kc Qd", "Kc Qh", "Kc Qs", "Kd Qc", "Kd Qh", "Kd Qs",
                         "Ks Qc", "Ks Qd", "Ks Qh", "Kc Jc", "Kd Jd", "Ks Js", "Kc Tc", "Kd Td", "Ks Ts"};
  const Lines betweenTopAndMiddle = {"Qc Qd", "Qc Qh", "Qc Qs", "Qd Qh", "Qd Qs", "Qh Qs",
                                     "Jc Jd", "Jc Jh", "Jc Js", "Jd Jh", "Jd Js", "Jh Js",
                                     "Tc Td", "Tc Th", "Tc Ts", "Td Th", "Td Ts", "Th Ts"};
  const Lines eights = {"8c 8d", "8c 8h", "8c 8s", "8d 8h", "8d 8s", "8h 8s"};
  const Lines gutshots = {"Qc Jc", "Qd Jd", "Qh Jh", "Qs Js", "Qc Tc", "Qd Td", "Qh Th", "Qs Ts"};
  ExpectLines(ExportOf(run, false, false),
              Join({{"High cards (35) 36%", "  A high (27) 28%"},
                    Indented(4, aceHigh),
                    {"  Q high (8) 8%"},
                    Indented(4, queenHigh),
                    {"", "One pair (56) 58%", "  O pair (3) 3%", "    Ac Ad", "    Ac As", "    Ad As",
                     "  T pair (27) 28%"},
                    Indented(4, topPair),
                    {"  ~ pair (18) 18%"},
                    Indented(4, betweenTopAndMiddle),
                    {"  M pair (2) 2%", "    Ad 9d", "    As 9s", "  ~ pair (6) 6%"},
                    Indented(4, eights),
                    {"", "Gutshot and backdoor draws (8) 8%", "  Gutshot Straight draw no pair (8) 8%"},
                    Indented(4, gutshots),
                    {"", "Sets (4) 4%", "  T set (3) 3%", "    Kc Kd", "    Kc Ks", "    Kd Ks",
                     "  M set (1) 1%", "    9d 9s"}}));
}

// Groups in the order the cook met them (grid order), each with its holdings in stored order. A group is
// one pair of ranks, so the suited and offsuit holdings of A-Q share one, marked neither "s" nor "o".
Lines TenPercentSimplified(bool withHoldings) {
  auto group = [&](const std::string& line, const Lines& holdings) {
    Lines out = {"    " + line};
    if (withHoldings) {
      for (const std::string& h : holdings) out.push_back("      " + h);
    }
    return out;
  };
  const std::string bullet = "\xE2\x80\xA2";
  return Join(
      {{"High cards (35) 36%", "  A high (27) 28%"},
       group("~AQ  (12)", {"Ac Qc", "Ad Qd", "As Qs", "Ac Qd", "Ac Qh", "Ac Qs", "Ad Qc", "Ad Qh", "Ad Qs",
                           "As Qc", "As Qd", "As Qh"}),
       group("~AJ  (12)", {"Ac Jc", "Ad Jd", "As Js", "Ac Jd", "Ac Jh", "Ac Js", "Ad Jc", "Ad Jh", "Ad Js",
                           "As Jc", "As Jd", "As Jh"}),
       group("~ATs (3)", {"Ac Tc", "Ad Td", "As Ts"}),
       {"  Q high (8) 8%"},
       group(bullet + "QJs (4) *", {"Qc Jc *", "Qd Jd *", "Qh Jh *", "Qs Js *"}),
       group(bullet + "QTs (4) *", {"Qc Tc *", "Qd Td *", "Qh Th *", "Qs Ts *"}),
       {"", "One pair (56) 58%", "  O pair (3) 3%"},
       group("~AA  (3)", {"Ac Ad", "Ac As", "Ad As"}),
       {"  T pair (27) 28%"},
       group("~AK  (9)", {"Ac Kc", "Ad Kd", "As Ks", "Ac Kd", "Ac Ks", "Ad Kc", "Ad Ks", "As Kc", "As Kd"}),
       group("~KQ  (12)", {"Kc Qc", "Kd Qd", "Ks Qs", "Kc Qd", "Kc Qh", "Kc Qs", "Kd Qc", "Kd Qh", "Kd Qs",
                           "Ks Qc", "Ks Qd", "Ks Qh"}),
       group("~KJs (3)", {"Kc Jc", "Kd Jd", "Ks Js"}),
       group("~KTs (3)", {"Kc Tc", "Kd Td", "Ks Ts"}),
       {"  ~ pair (18) 18%"},
       group(bullet + "QQ  (6)", {"Qc Qd", "Qc Qh", "Qc Qs", "Qd Qh", "Qd Qs", "Qh Qs"}),
       group(bullet + "JJ  (6)", {"Jc Jd", "Jc Jh", "Jc Js", "Jd Jh", "Jd Js", "Jh Js"}),
       group(bullet + "TT  (6)", {"Tc Td", "Tc Th", "Tc Ts", "Td Th", "Td Ts", "Th Ts"}),
       {"  M pair (2) 2%"},
       group("~A9s (2)", {"Ad 9d", "As 9s"}),
       {"  ~ pair (6) 6%"},
       group(bullet + "88  (6)", {"8c 8d", "8c 8h", "8c 8s", "8d 8h", "8d 8s", "8h 8s"}),
       {"", "Gutshot and backdoor draws (8) 8%", "  Gutshot Straight draw no pair (8) 8%"},
       group(bullet + "QJs (4)", {"Qc Jc", "Qd Jd", "Qh Jh", "Qs Js"}),
       group(bullet + "QTs (4)", {"Qc Tc", "Qd Td", "Qh Th", "Qs Ts"}),
       {"", "Sets (4) 4%", "  T set (3) 3%"},
       group("~KK  (3)", {"Kc Kd", "Kc Ks", "Kd Ks"}),
       {"  M set (1) 1%", "      9d 9s"}});
}

TEST_F(TenPercentOnTheTurn, SimplifiedOutputGroupsEachClass) {
  ExpectLines(ExportOf(run, true, false), TenPercentSimplified(true));
}

TEST_F(TenPercentOnTheTurn, SimplifyFurtherLeavesOutTheHoldingsUnderTheGroups) {
  ExpectLines(ExportOf(run, true, true), TenPercentSimplified(false));
}

// ---- a mixed range with Seen extras on a river ----
//
// On layer: AA whole, KhQh and KsQs of KQs, 76s whole. Seen layer: AA (adds nothing), KQs whole (adds KcQc
// and KdQd), JTs whole, 55 whole: 24 holdings. My Hand AhKd and the board Jh Th 7c 5d 2h leave 15. On
// J-T-7-5-2 (top J, middle T, bottom 2, three hearts) aces are an over pair, J-T two pair of the top and the
// middle rank, 7-6 a pair between middle and bottom, 5-5 a set between middle and bottom, KsQs and KcQc king
// high, and KhQh and 7h6h flushes. No draws on a river, so nothing carries the mark.
class MixedRangeOnTheRiver : public ::testing::Test {
 protected:
  void SetUp() override {
    RangeLayer on = MakeEmptyLayer();
    RangeLayer seen = MakeEmptyLayer();
    PutWhole(on, "AA");
    PutSuitPair(on, "KQs", 2, 2);
    PutSuitPair(on, "KQs", 3, 3);
    PutWhole(on, "76s");
    PutWhole(seen, "AA");
    PutWhole(seen, "KQs");
    PutWhole(seen, "JTs");
    PutWhole(seen, "55");
    run = Cook("AhKd", "JhTh7c5d2h", on, seen);
    ASSERT_EQ(run.rangeCount, 24);
    ASSERT_EQ(run.liveCount, 15);
    ASSERT_EQ(run.categories.categorisedCount, 15);
  }

  CookRun run;
};

TEST_F(MixedRangeOnTheRiver, PlainOutputListsEveryHoldingInDisplayOrder) {
  ExpectLines(ExportOf(run, false, false), {"High cards (2) 13%",
                                            "  K high (2) 13%",
                                            "    Kc Qc",
                                            "    Ks Qs",
                                            "",
                                            "One pair (5) 33%",
                                            "  O pair (3) 20%",
                                            "    Ac Ad",
                                            "    Ac As",
                                            "    Ad As",
                                            "  ~ pair (2) 13%",
                                            "    7d 6d",
                                            "    7s 6s",
                                            "",
                                            "Two pair (3) 20%",
                                            "  TM own 2pair (3) 20%",
                                            "    Jc Tc",
                                            "    Jd Td",
                                            "    Js Ts",
                                            "",
                                            "Sets (3) 20%",
                                            "  ~ set (3) 20%",
                                            "    5c 5h",
                                            "    5c 5s",
                                            "    5h 5s",
                                            "",
                                            "Flush (2) 13%",
                                            "  Kh Qh",
                                            "  7h 6h"});
}

TEST_F(MixedRangeOnTheRiver, SimplifiedOutputGroupsEachClassInTheOrderTheCookMetIt) {
  // KsQs (On) comes before KcQc (a Seen extra) within KQs.
  ExpectLines(ExportOf(run, true, false), {"High cards (2) 13%",
                                           "  K high (2) 13%",
                                           "    ~KQs (2)",
                                           "      Ks Qs",
                                           "      Kc Qc",
                                           "",
                                           "One pair (5) 33%",
                                           "  O pair (3) 20%",
                                           "    ~AA  (3)",
                                           "      Ac Ad",
                                           "      Ac As",
                                           "      Ad As",
                                           "  ~ pair (2) 13%",
                                           "    ~76s (2)",
                                           "      7d 6d",
                                           "      7s 6s",
                                           "",
                                           "Two pair (3) 20%",
                                           "  TM own 2pair (3) 20%",
                                           "    ~JTs (3)",
                                           "      Jc Tc",
                                           "      Jd Td",
                                           "      Js Ts",
                                           "",
                                           "Sets (3) 20%",
                                           "  ~ set (3) 20%",
                                           "    ~55  (3)",
                                           "      5c 5h",
                                           "      5c 5s",
                                           "      5h 5s",
                                           "",
                                           "Flush (2) 13%",
                                           "    Kh Qh",
                                           "    7h 6h"});
}

TEST_F(MixedRangeOnTheRiver, SimplifyFurtherKeepsTheGroupAndSingleLinesOnly) {
  ExpectLines(ExportOf(run, true, true), {"High cards (2) 13%", "  K high (2) 13%",
                                          "    ~KQs (2)",       "",
                                          "One pair (5) 33%",   "  O pair (3) 20%",
                                          "    ~AA  (3)",       "  ~ pair (2) 13%",
                                          "    ~76s (2)",       "",
                                          "Two pair (3) 20%",   "  TM own 2pair (3) 20%",
                                          "    ~JTs (3)",       "",
                                          "Sets (3) 20%",       "  ~ set (3) 20%",
                                          "    ~55  (3)",       "",
                                          "Flush (2) 13%",      "    Kh Qh",
                                          "    7h 6h"});
}

TEST_F(MixedRangeOnTheRiver, WinLoseIconsMarkTheKingHighHoldingsAsBeatenByMyAceHigh) {
  ResultsOptions options = Options(true, false);
  options.winLoseIcons = true;
  const ResultsBuild build = BuildResultsTree(run.categories, options, run.cards, nullptr);
  int wins = 0;
  int losses = 0;
  for (const ResultNode& node : build.tree.nodes) {
    if (node.image == "win") {
      ++wins;
      EXPECT_TRUE(node.text == "Kc Qc" || node.text == "Ks Qs") << node.text;
    }
    if (node.image == "lose") ++losses;
    EXPECT_NE(node.image, "tie") << node.text;
  }
  EXPECT_EQ(wins, 2);
  EXPECT_EQ(losses, 13);
}

// ---- the full range on a flop with My Hand ----

struct ParsedLine {
  enum Kind { Spacer, Category, Group, Holding } kind = Spacer;
  int indent = 0;
  int count = 0;    // a category's or a group's count
  int percent = 0;  // a category's percentage
  std::string text;
};

ParsedLine Parse(const std::string& line) {
  static const std::regex category(R"(^( *)(\S.*) \((\d+)\) (\d+)%$)");
  static const std::regex group(R"(^( *)(~|\xE2\x80\xA2)(\S\S)(s |o |  )\((\d+)\)( \*)?$)");
  static const std::regex holding(R"(^( *)[2-9TJQKA][cdhs] [2-9TJQKA][cdhs]( \*)?$)");
  ParsedLine p;
  p.text = line;
  std::smatch m;
  if (line.empty()) return p;
  if (std::regex_match(line, m, category)) {
    p.kind = ParsedLine::Category;
    p.indent = static_cast<int>(m[1].length());
    p.count = std::stoi(m[3]);
    p.percent = std::stoi(m[4]);
  } else if (std::regex_match(line, m, group)) {
    p.kind = ParsedLine::Group;
    p.indent = static_cast<int>(m[1].length());
    p.count = std::stoi(m[5]);
  } else {
    EXPECT_TRUE(std::regex_match(line, m, holding)) << "unexpected line: [" << line << "]";
    p.kind = ParsedLine::Holding;
    p.indent = static_cast<int>(m[1].length());
  }
  return p;
}

class FullRangeOnTheFlop : public ::testing::Test {
 protected:
  void SetUp() override {
    RangeLayer on = MakeEmptyLayer();
    for (int c = 0; c < kClassCount; ++c) SetBlockWhole(on[c], HandClasses()[c].kind == kKindSuited);
    run = Cook("AhAd", "Tc8h3s", on, MakeEmptyLayer());
    // Five cards in use leave 47, so 47 x 46 / 2 = 1,081 holdings.
    ASSERT_EQ(run.rangeCount, 1326);
    ASSERT_EQ(run.liveCount, 1081);
    ASSERT_EQ(run.categories.categorisedCount, 1081);
  }

  // Checks every invariant of one export text and returns its parsed lines.
  std::vector<ParsedLine> CheckInvariants(bool simplify, bool further) {
    const Lines lines = ExportOf(run, simplify, further);
    std::vector<ParsedLine> parsed;
    for (const std::string& line : lines) parsed.push_back(Parse(line));
    bool someShareWouldRoundUp = false;
    for (std::size_t i = 0; i < parsed.size(); ++i) {
      const ParsedLine& p = parsed[i];
      if (p.kind == ParsedLine::Spacer) {
        // A spacer stands only in front of a shown top-level category.
        EXPECT_TRUE(i + 1 < parsed.size() && parsed[i + 1].kind == ParsedLine::Category &&
                    parsed[i + 1].indent == 0)
            << "spacer at line " << i + 1;
        EXPECT_NE(i, 0u) << "the first line is a spacer";
        continue;
      }
      if (p.kind == ParsedLine::Category) {
        EXPECT_GT(p.count, 0) << p.text;  // empty categories are hidden
        EXPECT_EQ(p.percent, p.count * 100 / 1081) << p.text;
        someShareWouldRoundUp = someShareWouldRoundUp || (p.count * 100 % 1081) * 2 >= 1081;
        // The holdings beneath the line: each group's count, and the holding lines that are not a group's
        // own (a group of n is followed by its n holdings unless Simplify Further leaves them out).
        int beneath = 0;
        int groupHoldingsLeft = 0;
        for (std::size_t j = i + 1; j < parsed.size(); ++j) {
          const ParsedLine& q = parsed[j];
          if (q.kind == ParsedLine::Spacer || (q.kind == ParsedLine::Category && q.indent <= p.indent)) break;
          if (q.kind == ParsedLine::Group) {
            beneath += q.count;
            groupHoldingsLeft = further ? 0 : q.count;
          } else if (q.kind == ParsedLine::Holding && groupHoldingsLeft > 0) {
            --groupHoldingsLeft;
          } else if (q.kind == ParsedLine::Holding) {
            beneath += 1;
          }
        }
        EXPECT_EQ(p.count, beneath) << p.text;
      }
      if (p.kind == ParsedLine::Group) {
        EXPECT_GE(p.count, 2) << p.text;
        if (!further) {
          for (int k = 1; k <= p.count; ++k) {
            if (i + k >= parsed.size()) {
              ADD_FAILURE() << "a group runs past the end: " << p.text;
              break;
            }
            EXPECT_EQ(parsed[i + k].kind, ParsedLine::Holding) << p.text;
            EXPECT_EQ(parsed[i + k].indent, p.indent + 2) << p.text;
          }
        }
      }
    }
    EXPECT_TRUE(someShareWouldRoundUp) << "no line tells truncating from rounding";
    return parsed;
  }

  // The made-hand groups: every holding is in exactly one of them.
  static int MadeHandTotal(const std::vector<ParsedLine>& parsed) {
    int total = 0;
    for (const ParsedLine& p : parsed) {
      if (p.kind != ParsedLine::Category || p.indent != 0) continue;
      if (p.text.starts_with("8 out or better draw") || p.text.starts_with("Gutshot and backdoor draws"))
        continue;
      total += p.count;
    }
    return total;
  }

  CookRun run;
};

TEST_F(FullRangeOnTheFlop, PlainOutputHoldsEveryInvariant) {
  const std::vector<ParsedLine> parsed = CheckInvariants(false, false);
  EXPECT_EQ(MadeHandTotal(parsed), 1081);
  int holdingLines = 0;
  for (const ParsedLine& p : parsed) holdingLines += p.kind == ParsedLine::Holding ? 1 : 0;
  int categoryHoldings = 0;
  for (const CategoryNode& node : run.categories.nodes) categoryHoldings += node.count;
  EXPECT_EQ(holdingLines, categoryHoldings);
}

TEST_F(FullRangeOnTheFlop, SimplifiedOutputHoldsEveryInvariant) {
  EXPECT_EQ(MadeHandTotal(CheckInvariants(true, false)), 1081);
}

TEST_F(FullRangeOnTheFlop, SimplifyFurtherOutputHoldsEveryInvariant) {
  EXPECT_EQ(MadeHandTotal(CheckInvariants(true, true)), 1081);
}

TEST_F(FullRangeOnTheFlop, PocketPairsAboveTheTenAreOverPairsOfWhichMyHandLeavesOneAceCombination) {
  // JJ, QQ, KK (six each) and AcAs: 19 over pairs.
  const Lines lines = ExportOf(run, true, true);
  const auto at = std::find(lines.begin(), lines.end(), "  O pair (19) 1%");
  ASSERT_NE(at, lines.end());
  const std::string bullet = "\xE2\x80\xA2";
  EXPECT_EQ(*(at + 1), "      Ac As");
  EXPECT_EQ(*(at + 2), "    " + bullet + "KK  (6)");
  EXPECT_EQ(*(at + 3), "    " + bullet + "QQ  (6)");
  EXPECT_EQ(*(at + 4), "    " + bullet + "JJ  (6)");
}

}  // namespace
}  // namespace quillet
