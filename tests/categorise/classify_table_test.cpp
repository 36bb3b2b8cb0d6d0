// One holding on one board at a time, each expected entry worked out by hand from the rules of the
// classification. Notation in the reasons: T/M/B are the board's top, middle and bottom ranks; "span
// a-b: n" counts the ranks of that five-rank span among holding and board; suit counts are listed
// clubs, diamonds, hearts, spades (c1 d2 h1 s1); "bd" is a backdoor draw (two cards short, flop only).
#include <gtest/gtest.h>

#include <ostream>
#include <set>
#include <string>
#include <tuple>

#include "categorise/categories.h"
#include "categorise/classify.h"
#include "tests/support/card_text.h"

namespace quillet {
namespace {

constexpr int kNone = kNoEntry;
constexpr bool T = true;
constexpr bool F = false;

struct Case {
  const char* holding;
  const char* board;
  int made;
  int straight;  // 26, 30, 31, 33 or kNone
  int flush;     // 27, 32 or kNone
  bool madeFlag;
  bool straightFlag;  // ignored without a straight-draw entry
  bool flushFlag;     // ignored without a flush-draw entry
  const char* why;
};

const Case kCases[] = {
    // ---- high cards ----
    {"As9d", "Kc7d2h4s", 1, kNone, kNone, T, T, T,
     "no pair; best span A-5 holds A,2,4 (3): two short, and the turn has no backdoor draws; c1 d2 h1 s2"},
    {"Kh9d", "Qc7d2h4s", 2, kNone, kNone, T, T, T,
     "no pair, first rank K; span 9-K holds 9,Q,K (3); d2 comes before h2, three short"},
    {"QdTc", "Ks8h5c3d2s", 3, kNone, kNone, T, T, T,
     "river: no pair, no five in a span, c2 d2 h1 s2; first rank Q"},
    {"9c6d", "Ks8h5c3d2s", 4, kNone, kNone, T, T, T,
     "river: 5-6-8-9 and 2-3-5-6 are four, no straight; no pair; first rank 9"},
    {"AsKd", "7c4h2d", 1, 33, kNone, T, T, T,
     "flop: span A-5 holds A,2,4 (3) = backdoor straight; d2 is three short; A high, flags untouched by bd"},
    {"Kh2h", "7h9c4d", 2, kNone, 32, T, T, T,
     "flop: no span holds more than two; c1 d1 then h3 = backdoor flush; K high"},

    // ---- one pair on K-9-5 (T=K, M=9 from card 2, B=5) and Q-K-5 (T=K, M=B=5) ----
    {"AcAd", "Kh9s5d", 7, kNone, kNone, T, T, T,
     "pocket aces above T=K; spans hold at most two (A,5 / K,A / 9,K); c1 d2"},
    {"Kc2c", "Kh9s5d", 8, kNone, kNone, T, T, T, "pair of kings = T; spans hold at most two; c2 first"},
    {"JcJd", "Kh9s5d", 9, 33, kNone, T, T, T,
     "jacks between T=K and M=9; span 9-K holds 9,J,K (3) = bd straight; c1 d2"},
    {"Qc8d", "QhKs5d", 9, kNone, kNone, T, T, T,
     "card 1 (Q) is never the middle: M=B=5, so Q lies between T and M; spans hold two at most"},
    {"9c4c", "Kh9s5d", 10, kNone, kNone, T, T, T, "pair of nines = M; spans hold two at most; c2"},
    {"5c2c", "QhKs5d", 10, kNone, kNone, T, T, T,
     "M equals B (5): the middle is tested first, so a pair of fives is an M pair"},
    {"7c7d", "Kh9s5d", 11, 33, kNone, T, T, T,
     "sevens between M=9 and B=5; span 5-9 holds 5,7,9 (3) = bd straight; c1 d2"},
    {"5c2c", "Kh9s5d", 12, kNone, kNone, T, T, T, "pair of fives = B; spans A-5/2-6 hold 2,5 only"},
    {"3c3d", "Kh9s5d", 13, kNone, kNone, T, T, T, "threes below B=5; spans hold 3,5 at most; c1 d2"},
    {"Kc7d", "Kh9s5d2c", 8, kNone, kNone, T, T, T, "turn: pair of kings = T; no draws counted"},

    // ---- two pair, unpaired board ----
    {"Kc9c", "Kh9s5d", 16, kNone, kNone, T, T, T, "pairs K=T and 9=M"},
    {"Kc5c", "Kh9s5d", 17, kNone, kNone, T, T, T, "pairs K=T and 5, which is not the middle"},
    {"9c5c", "Kh9s5d", 18, kNone, kNone, T, T, T, "pairs 9 and 5, the higher not the top"},
    {"KhQs", "8h8dKsQc", 16, kNone, kNone, T, T, T,
     "turn: pairs K, Q, 8 -> the two highest K and Q, neither the board's pair 8, so the unpaired rule: "
     "K=T and Q=M (card 4 is above B=8)"},
    {"AcKd", "Ah8s8dKh", 16, kNone, kNone, T, T, T,
     "turn: pairs A, K (8 is third); neither is the board pair; A=T, K=M (card 4)"},

    // ---- two pair, paired board ----
    {"AcAd", "Kh5s5d", 19, kNone, kNone, T, T, T,
     "pairs A and the board's 5; A above the board pair and above T=K"},
    {"Kc7c", "Kh5s5d", 20, kNone, kNone, T, T, T, "pairs K and 5; K above the board pair and equal to T"},
    {"QcQd", "Kh5s5d", 21, kNone, kNone, T, T, T, "pairs Q and 5; Q above the board pair, below T=K"},
    {"4c4d", "Kh5s5d", 22, kNone, kNone, T, T, T,
     "pairs 5 (board) and 4; 5 not above the board pair; one board pair, 5 not below M (M=B=5)"},
    {"3c3d", "KcQd4h4s", 23, kNone, kNone, T, T, T,
     "turn: pairs 4 (board) and 3; one board pair, 4 below M=Q"},
    {"QcQd", "KhKs8d8c2h", 22, kNone, kNone, T, T, T,
     "river: pairs K, Q, 8 -> K and Q; two board pairs, K is the higher, Q above the other board pair 8"},
    {"7c6d", "KhKs8d8c2h", 4, kNone, kNone, T, T, T,
     "river: two pair K and 8 are the board's own two pair: playing the board, 7 high"},

    // ---- trips and sets ----
    {"8c6d", "8h8sKd", 35, kNone, kNone, T, T, T, "three eights using the board's pair of eights"},
    {"KcKd", "Kh9s5d", 38, kNone, kNone, T, T, T, "set of kings, board unpaired, K=T"},
    {"QcQd", "QhKs5d", 39, kNone, kNone, T, T, T,
     "set of queens between T=K and M=5 (card 1 not the middle)"},
    {"9c9d", "Kh9s5d", 40, kNone, kNone, T, T, T, "set of nines = M"},
    {"5c5s", "QhKs5d", 40, kNone, kNone, T, T, T, "set of fives: M equals B and the middle is tested first"},
    {"5c5h", "Kh9s2c5d", 41, kNone, kNone, T, T, T,
     "turn: T=K, M=9 (card 4's 5 is not above 9), B=2; fives between M and B"},
    {"5c5s", "Kh9s5d", 42, kNone, kNone, T, T, T, "set of fives = B, below M=9"},
    {"Ac2d", "9h9s9d5c", 1, kNone, kNone, T, T, T,
     "turn: three nines all on the board: playing the board, A high; span A-5 holds A,2,5 only"},

    // ---- straights, flushes and better ----
    {"9c8d", "7h6s5c", 44, kNone, kNone, T, T, T,
     "5-9 made: no straight draw is looked for; c2 d1 h1 s1 is three short"},
    {"Ad2h", "5c6d7h8s9c", 44, kNone, kNone, T, T, T,
     "river: the straight lies on the board; the board's own code is multiplicity only (0)"},
    {"9h8h", "7h6h5c", 44, kNone, 27, F, T, T, "straight 5-9 made; h4 is one short = flush draw"},
    {"9h8h", "7h6h5h2h", 44, kNone, 27, F, T, T,
     "turn: six hearts are no flush, so no straight flush; straight 5-9; h6 is at most one short"},
    {"Ah2h", "Kh9h5h3c8d", 46, kNone, kNone, T, T, T, "river: five hearts; A,2,3,5 is four, no wheel"},
    {"AcKd", "2h5h9hJhQh", 46, kNone, kNone, T, T, T, "river: the board's five hearts, none in the holding"},
    {"AhKd", "2h5h9hJhQh", 1, kNone, kNone, T, T, T,
     "river: six hearts are no flush; J-Q-K-A is four; A high"},
    {"Ah2h", "9hThKh", 46, 33, 27, F, F, T,
     "flop: five hearts; span T-A holds T,K,A (3, ties 9-K and wins) = bd straight; a flush needs 0 cards, "
     "which is at most one: flush draw too"},
    {"8c8d", "8hKsKc", 48, kNone, kNone, T, T, T, "three eights and the board's kings"},
    {"QcQd", "KhKsKd8c8h", 48, kNone, kNone, T, T, T,
     "river: kings full of queens beats the board's kings full of eights"},
    {"Qc2d", "KhKsKd8c8h", 3, kNone, kNone, T, T, T, "river: the board's own full house: Q high"},
    {"8c2d", "8h8sKdKc", 48, kNone, kNone, T, T, T, "turn: three eights with the board's kings"},
    {"8c8d", "8h8sKc", 50, kNone, kNone, T, T, T, "four eights"},
    {"Ac2d", "9h9s9d9c5c", 1, kNone, kNone, T, T, T, "river: the board's four nines: A high (c3 only)"},
    {"9h8h", "7h6h5h", 52, kNone, 27, F, T, T,
     "straight flush 5-9 (five hearts); a made flush counts as a draw"},
    {"9h8h", "7h6h5h2c3d", 52, kNone, kNone, T, T, T, "river: straight flush 5-9"},
    {"AhKh", "QhJhTh2c3d", 54, kNone, kNone, T, T, T, "river: straight flush T-A"},
    {"AhKh", "QhJhTh", 54, kNone, 27, F, T, T, "flop: royal flush; five hearts is at most one short"},

    // ---- straight draws ----
    {"9c8d", "7h6s2c", 4, 26, kNone, F, T, T,
     "spans 5-9 (5 missing low) and 6-T (T missing high) both open; c2 three short; 9 high"},
    {"Tc9d", "9h8s7c", 8, 26, kNone, F, T, T, "pair of nines = T; 7-8-9-T open both ways; c2"},
    {"5c4d", "3h2sKc", 4, 26, kNone, F, T, T,
     "2-3-4-5: the wheel span misses its low end (the ace) and its high is 5, so open"},
    {"9c6d", "9h8s5c", 8, 30, kNone, F, T, T,
     "span 5-9 misses the 7 with its high present: gutshot; one pair (nines = T), board unpaired: w pair"},
    {"Ac2d", "JhQsKc", 1, 31, kNone, F, T, T,
     "J-Q-K-A misses the T with the ace-high span: gutshot; no pair"},
    {"Ac4d", "3h2s9c", 1, 31, kNone, F, T, T, "A-2-3-4 is a wheel-span gutshot; no pair; c2"},
    {"Jc7d", "9h8s8c2d", 4, 31, kNone, F, T, T,
     "turn: 7-8-9-_-J gutshot; the pair of eights is the board's own (playing the board), so no pair"},

    // ---- flush draws and their combinations ----
    {"Kh3h", "9h6hQc2d", 2, kNone, 27, F, T, T,
     "turn: h4 one short; span 9-K holds 9,Q,K (3) but the turn has no backdoor draws"},
    {"AcQd", "Kh9h5h2h", 1, kNone, 27, F, T, T,
     "turn: four hearts on the board give a flush draw without a heart"},
    {"9h8h", "7h6c2h", 4, 26, 27, F, F, F, "open-ended and h4: all three copies marked"},
    {"9h6h", "9c8h5h", 8, 30, 27, F, F, F, "gutshot (7 missing) with the nines as top pair, and h4"},
    {"Jh9h", "KhQh3h9s", 46, 31, 27, F, F, F,
     "turn: five hearts (flush), the pair of nines upgraded, so the gutshot (T missing) is no-pair; h5 <= 1"},
    {"Ah3h", "Kh9h5h2h", 1, 31, 27, F, F, F,
     "turn: six hearts are no flush but at most one short; A-2-3-5 wheel gutshot; no pair"},
    {"QhJh", "9c8h2s", 3, 31, 32, F, T, T,
     "span 8-Q misses the T with Q present: gutshot, no pair; h3 = bd flush, which marks nothing"},
    {"Ah5h", "Kh9h2c", 1, 33, 27, F, F, T,
     "span A-5 holds A,2,5 (3) = bd straight; h4 = flush draw, which marks the made and the bd straight "
     "copy"},
    {"JhTh", "8h4c2s", 4, 33, 32, T, T, T,
     "spans 7-J and 8-Q hold 8,T,J (3) = bd straight; c1 then h3 = bd flush; backdoors mark no copy; J high"},
    {"9h8h", "7h6c2hKd3s", 4, kNone, kNone, T, T, T,
     "river: 6-7-8-9 without a 5 or T; h3; no draws on the river"},
};

void PrintTo(const Case& k, std::ostream* os) {
  *os << k.holding << " on " << k.board;
}

class ClassifyTable : public ::testing::TestWithParam<Case> {};

TEST_P(ClassifyTable, TheHoldingLandsInItsWorkedOutEntriesWithItsFlags) {
  const Case& k = GetParam();
  const auto board = testing::WindowBoard(k.board);
  const ComboClassification c =
      ClassifyCombo(PrepareBoard(board.cards, board.street), testing::Holding(k.holding));
  SCOPED_TRACE(std::string(k.holding) + " on " + k.board + ": " + k.why);
  EXPECT_EQ(c.madeEntry, k.made);
  EXPECT_EQ(c.straightEntry, k.straight);
  EXPECT_EQ(c.flushEntry, k.flush);
  EXPECT_EQ(c.madeFlag, k.madeFlag);
  if (k.straight != kNone) {
    EXPECT_EQ(c.straightFlag, k.straightFlag);
  }
  if (k.flush != kNone) {
    EXPECT_EQ(c.flushFlag, k.flushFlag);
  }
}

std::string CaseName(const ::testing::TestParamInfo<Case>& info) {
  return std::string(info.param.holding) + "_on_" + info.param.board;
}

INSTANTIATE_TEST_SUITE_P(WorkedByHand, ClassifyTable, ::testing::ValuesIn(kCases), CaseName);

TEST(ClassifyTableCoverage, TheCasesReachEveryEntryAndEveryCombinationOfCopyFlags) {
  EXPECT_GE(std::size(kCases), 60u);
  std::set<int> made;
  std::set<int> draws;
  // (made flag, straight copy: 0 none 1 true 2 false, flush copy likewise)
  std::set<std::tuple<bool, int, int>> flags;
  for (const Case& k : kCases) {
    made.insert(k.made);
    if (k.straight != kNone) draws.insert(k.straight);
    if (k.flush != kNone) draws.insert(k.flush);
    const int s = k.straight == kNone ? 0 : (k.straightFlag ? 1 : 2);
    const int f = k.flush == kNone ? 0 : (k.flushFlag ? 1 : 2);
    flags.insert({k.madeFlag, s, f});
  }
  for (int e : {1,  2,  3,  4,  7,  8,  9,  10, 11, 12, 13, 16, 17, 18, 19, 20,
                21, 22, 23, 35, 38, 39, 40, 41, 42, 44, 46, 48, 50, 52, 54}) {
    EXPECT_TRUE(made.count(e)) << "made-hand entry " << e;
  }
  for (int e : {26, 27, 30, 31, 32, 33}) EXPECT_TRUE(draws.count(e)) << "draw entry " << e;
  // Every combination the flag rules allow: no draw; a strong straight draw; a backdoor straight; a flush
  // draw; a backdoor flush; strong straight with flush draw; strong straight with backdoor flush; backdoor
  // straight with flush draw; both backdoors.
  const std::set<std::tuple<bool, int, int>> all = {{T, 0, 0}, {F, 1, 0}, {T, 1, 0}, {F, 0, 1}, {T, 0, 1},
                                                    {F, 2, 2}, {F, 1, 1}, {F, 2, 1}, {T, 1, 1}};
  for (const auto& combination : all) {
    EXPECT_TRUE(flags.count(combination))
        << std::get<0>(combination) << " " << std::get<1>(combination) << " " << std::get<2>(combination);
  }
}

}  // namespace
}  // namespace quillet
