// The boards report: its rows are every board of the next street with the engines' showdowns on it (and a
// brute force's), the aggregate over every row is the equity of the board so far, the boards counted once
// per change of suits give the same rows as every board counted, the filter and the groups.
#include "reports/boards_report.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <random>
#include <set>

#include "cards/holding.h"
#include "categorise/classify.h"
#include "equity/engine.h"
#include "equity/hand_evaluator.h"
#include "equity/range_equity.h"
#include "equity/standard_equity.h"
#include "range/range_notation.h"
#include "tests/support/card_text.h"
#include "tests/support/reference_showdown.h"
#include "tests/support/sanitizer.h"
#include "tests/support/test_seed.h"

namespace quillet {
namespace {

using quillet::testing::Board;
using quillet::testing::Hand;

using quillet::testing::kUnderSanitizer;

std::vector<HandCombo> RangeCombos(const std::string& text) {
  const ParsedWeightedRange parsed = ParseWeightedRangeNotation(text);
  EXPECT_TRUE(parsed.ok()) << text;
  std::vector<HandCombo> combos;
  for (int32_t number = 0; number < kHoldingCount; ++number) {
    const int weight = parsed.weights.Weight(number);
    if (weight == 0) continue;
    const auto cards = CardsOfHolding(number);
    combos.push_back(HandCombo{true, cards[0].rank, cards[0].suit, cards[1].rank, cards[1].suit, weight});
  }
  return combos;
}

// The board as the card boxes read it: absent cards 4 and 5 take card 1's rank, their suits none.
BoardCards BoardSoFar(std::string_view text) {
  BoardCards board = Board(text);
  const int count = static_cast<int>(text.size() / 2);
  for (int i = count; i < 5; ++i) board[i] = Card{count > 0 ? board[0].rank : kNoCard, kNoCard};
  return board;
}

Street StreetOf(std::string_view text) {
  return text.empty() ? kNoBoard : static_cast<Street>(text.size() / 2 - 2);
}

BoardsReportRequest HandRequest(std::string_view hand, const std::string& range, std::string_view board,
                                ShowdownRules rules) {
  BoardsReportRequest request;
  request.hand = Hand(hand);
  request.oppRange = RangeCombos(range);
  request.board = BoardSoFar(board);
  request.street = StreetOf(board);
  request.rules = rules;
  return request;
}

BoardsReportRequest RangeRequest(const std::string& mine, const std::string& theirs, std::string_view board) {
  BoardsReportRequest request;
  request.myRange = RangeCombos(mine);
  request.oppRange = RangeCombos(theirs);
  request.board = BoardSoFar(board);
  request.street = StreetOf(board);
  request.rules = ShowdownRules::Standard;
  return request;
}

BoardCards RowBoard(const BoardsReportRow& row) {
  BoardCards board;
  for (int i = 0; i < row.cardCount; ++i) board[i] = row.cards[i];
  for (int i = row.cardCount; i < 5; ++i) board[i] = Card{row.cards[0].rank, kNoCard};
  return board;
}

double Share(const ShowdownTally& t, ShowdownRules rules) {
  return EquityOfTally(t, rules).value_or(-1.0);
}

void ExpectAggregateIsTheBoardSoFar(const BoardsReport& report) {
  ASSERT_TRUE(report.ok()) << report.error;
  ASSERT_TRUE(report.boardSoFar.has_value());
  const BoardsAggregate aggregate = AggregateRows(report.rows);
  const std::optional<double> all = EquityOfAggregate(aggregate, report.rules);
  ASSERT_TRUE(all.has_value());
  EXPECT_NEAR(*all, Share(*report.boardSoFar, report.rules), 1e-9);
  // Every completion of the board so far counted the same number of times: ten flops in a board of five,
  // two orders of a turn and a river, one river.
  const double times = report.rowStreet == kFlop ? 10.0 : report.rowStreet == kTurn ? 2.0 : 1.0;
  EXPECT_DOUBLE_EQ(aggregate.Showdowns(), times * static_cast<double>(report.boardSoFar->Showdowns()) /
                                              static_cast<double>(report.boardSoFar->scale));
}

// ---- Independent counts: every completion and every holding, card by card ----

struct Counted {
  double wins = 0, ties = 0, losses = 0;
};

// My hand against every live holding on every completion of the board, the showdown decided by the
// step-by-step evaluator (standard) or the reference comparator (the program's own rules); each showdown
// weighs its holding's weight.
Counted BruteForceHand(const HandCards& hand, std::span<const HandCombo> range, const BoardCards& board,
                       Street street, ShowdownRules rules) {
  Counted counted;
  const int known = BoardCardCount(street);
  uint64_t used = (uint64_t{1} << DeckIndex(hand.card1())) | (uint64_t{1} << DeckIndex(hand.card2()));
  for (int i = 0; i < known; ++i) used |= uint64_t{1} << DeckIndex(board[i]);
  for (const HandCombo& h : range) {
    const uint64_t cards = (uint64_t{1} << DeckIndex(h.card1())) | (uint64_t{1} << DeckIndex(h.card2()));
    if ((cards & used) != 0) continue;
    std::vector<Card> left;
    for (int32_t d = 0; d < kDeckSize; ++d) {
      if (((used | cards) >> d & 1) == 0) left.push_back(DeckCard(d));
    }
    const auto count = [&](std::array<Card, 5> five) {
      int order = 0;
      if (rules == ShowdownRules::Standard) {
        const std::array<Card, 7> mine = {hand.card1(), hand.card2(), five[0], five[1],
                                          five[2],      five[3],      five[4]};
        const std::array<Card, 7> theirs = {h.card1(), h.card2(), five[0], five[1],
                                            five[2],   five[3],   five[4]};
        const HandValue a = EvaluateCards(mine);
        const HandValue b = EvaluateCards(theirs);
        order = a > b ? 1 : a < b ? -1 : 0;
      } else {
        const ShowdownResult r =
            quillet::testing::CompareShowdown(hand, h, quillet::testing::MakeBoardRecord(five));
        order = r.myWin ? 1 : r.oppWin ? -1 : 0;
      }
      (order > 0 ? counted.wins : order < 0 ? counted.losses : counted.ties) += h.weight;
    };
    std::array<Card, 5> five{};
    for (int i = 0; i < known; ++i) five[i] = board[i];
    if (known == 5) {
      count(five);
    } else if (known == 4) {
      for (const Card& r : left) {
        five[4] = r;
        count(five);
      }
    } else {
      for (std::size_t i = 0; i < left.size(); ++i) {
        for (std::size_t j = i + 1; j < left.size(); ++j) {
          five[3] = left[i];
          five[4] = left[j];
          count(five);
        }
      }
    }
  }
  return counted;
}

// My range against the opponent's on the river board: pairs weighted by the product of their weights.
Counted BruteForceRangesOnRiver(std::span<const HandCombo> mine, std::span<const HandCombo> theirs,
                                const BoardCards& board) {
  Counted counted;
  uint64_t used = 0;
  for (int i = 0; i < 5; ++i) used |= uint64_t{1} << DeckIndex(board[i]);
  const auto bits = [](const HandCombo& h) {
    return (uint64_t{1} << DeckIndex(h.card1())) | (uint64_t{1} << DeckIndex(h.card2()));
  };
  for (const HandCombo& m : mine) {
    if ((bits(m) & used) != 0) continue;
    const std::array<Card, 7> a = {m.card1(), m.card2(), board[0], board[1], board[2], board[3], board[4]};
    const HandValue va = EvaluateCards(a);
    for (const HandCombo& t : theirs) {
      if ((bits(t) & (used | bits(m))) != 0) continue;
      const std::array<Card, 7> b = {t.card1(), t.card2(), board[0], board[1], board[2], board[3], board[4]};
      const HandValue vb = EvaluateCards(b);
      const double w = static_cast<double>(m.weight) * t.weight;
      (va > vb ? counted.wins : va < vb ? counted.losses : counted.ties) += w;
    }
  }
  return counted;
}

double BruteEquity(const Counted& c, ShowdownRules rules) {
  return EquityOfShowdowns(c.wins, c.ties, c.losses, rules).value_or(-1.0);
}

// Whether the engines weigh holdings yet: a holding of weight one half against my hand.
bool EnginesWeighHoldings() {
  HandCombo half = quillet::testing::Holding("KsKc");
  half.weight = kFullWeight / 2;
  const std::array<HandCombo, 1> range = {half};
  return StandardShowdownTally(Hand("AhAd"), BoardSoFar("Tc8h3s"), kFlop, range).scale != 1;
}

// ---- The rows ----

TEST(BoardsReport, RowsAreEveryLiveTurnCardAfterTheBoardSoFar) {
  const BoardsReport report =
      MakeBoardsReport(HandRequest("AhKd", "QQ+,AK", "Tc8h3s", ShowdownRules::Standard));
  ASSERT_TRUE(report.ok()) << report.error;
  EXPECT_EQ(report.rowStreet, kTurn);
  EXPECT_FALSE(report.suitClasses);
  ASSERT_EQ(report.rows.size(), 47u);
  std::set<std::string> seen;
  for (const BoardsReportRow& row : report.rows) {
    ASSERT_EQ(row.cardCount, 4);
    EXPECT_EQ(BoardText(row.Board()).substr(0, 6), "Tc8h3s");
    EXPECT_EQ(row.weight, 1);
    const Card turn = row.cards[3];
    EXPECT_NE(turn, quillet::testing::C("Ah"));
    EXPECT_NE(turn, quillet::testing::C("Kd"));
    seen.insert(CardToText(turn));
  }
  EXPECT_EQ(seen.size(), 47u);
  EXPECT_EQ(BoardText(report.rows.front().Board()), "Tc8h3sAs");  // the report's order: aces, spades first
}

TEST(BoardsReport, EveryLiveFlopForAHandAndEveryRiverCardFromATurn) {
  const BoardsReport flops = MakeBoardsReport(HandRequest("AhKd", "AA", "", ShowdownRules::Standard));
  ASSERT_TRUE(flops.ok()) << flops.error;
  EXPECT_FALSE(flops.suitClasses);
  EXPECT_EQ(flops.rows.size(), 19600u);   // C(50, 3)
  EXPECT_LT(flops.countedBoards, 19600);  // the clubs and spades swapped give the same rows
  const BoardsReport rivers = MakeBoardsReport(HandRequest("AhKd", "AA", "Tc8h3s2d", ShowdownRules::Quillet));
  ASSERT_TRUE(rivers.ok()) << rivers.error;
  EXPECT_EQ(rivers.rowStreet, kRiver);
  EXPECT_EQ(rivers.rows.size(), 46u);
}

TEST(BoardsReport, RowsAreTheEnginesCountOnTheirBoard) {
  for (ShowdownRules rules : {ShowdownRules::Standard, ShowdownRules::Quillet}) {
    for (const char* board : {"Tc8h3s", "9s8s2s", "Tc8h3s2d"}) {
      const BoardsReportRequest request = HandRequest("AhKd", "QQ+,AK,T9s,87s,22", board, rules);
      const BoardsReport report = MakeBoardsReport(request);
      ASSERT_TRUE(report.ok()) << report.error;
      for (std::size_t r = 0; r < report.rows.size(); r += 5) {
        const BoardsReportRow& row = report.rows[r];
        const BoardCards rowBoard = RowBoard(row);
        std::vector<HandCombo> live = request.oppRange;
        RemoveDeadCombos(live, *request.hand, rowBoard, report.rowStreet);
        if (rules == ShowdownRules::Standard) {
          EXPECT_EQ(row.tally, StandardShowdownTally(*request.hand, rowBoard, report.rowStreet, live))
              << BoardText(row.Board());
        } else if (report.rowStreet == kTurn) {
          const ShowdownCounts counts = CountShowdowns(*request.hand, rowBoard, kTurn, live);
          EXPECT_EQ(row.tally.wins, static_cast<uint64_t>(counts.myWins)) << BoardText(row.Board());
          EXPECT_EQ(row.tally.ties, static_cast<uint64_t>(counts.ties));
          EXPECT_EQ(row.tally.losses, static_cast<uint64_t>(counts.oppWins));
        }
      }
    }
  }
}

TEST(BoardsReport, EveryFlopCountedAtOnceIsTheEnginesCountOnEachFlop) {
  // My hand on every flop under the standard rules is counted in one sweep of the five-card boards.
  const std::vector<const char*> hands =
      kUnderSanitizer ? std::vector<const char*>{"9s8s"} : std::vector<const char*>{"9s8s", "AhKd", "2c2d"};
  for (const char* hand : hands) {
    const BoardsReportRequest request = HandRequest(hand, "random", "", ShowdownRules::Standard);
    const BoardsReport report = MakeBoardsReport(request);
    ASSERT_TRUE(report.ok()) << report.error;
    ASSERT_EQ(report.rows.size(), 19600u);
    const std::size_t step = kUnderSanitizer ? 997 : 97;
    for (std::size_t r = 0; r < report.rows.size(); r += step) {
      const BoardsReportRow& row = report.rows[r];
      EXPECT_EQ(row.tally, StandardShowdownTally(*request.hand, RowBoard(row), kFlop, request.oppRange))
          << hand << " on " << BoardText(row.Board());
    }
    // Monotone flops, where flushes decide most.
    for (const BoardsReportRow& row : report.rows) {
      if (row.texture.suits != SuitPattern::Monotone || row.cards[0].rank % (kUnderSanitizer ? 13 : 3) != 0)
        continue;
      EXPECT_EQ(row.tally, StandardShowdownTally(*request.hand, RowBoard(row), kFlop, request.oppRange))
          << hand << " on " << BoardText(row.Board());
    }
  }
}

TEST(BoardsReport, ShowdownsUnderTheProgramsRulesAreWholeShowdownsOrWeightedOnes) {
  // 44 river cards after the turn for each live holding: weighted, the showdowns are the live holdings'
  // weights (in combos) times the boards, once the engines weigh holdings; before, whole holdings.
  const BoardsReportRequest request =
      HandRequest("AhKd", "QQ+,AK:0.5,T9s:0.25", "Tc8h3s", ShowdownRules::Quillet);
  const BoardsReport report = MakeBoardsReport(request);
  ASSERT_TRUE(report.ok()) << report.error;
  for (const BoardsReportRow& row : report.rows) {
    int64_t holdings = 0;
    for (const HandCombo& h : request.oppRange) {
      bool dead = SharesCard(h, request.hand->card1()) || SharesCard(h, request.hand->card2());
      for (int i = 0; i < 4; ++i) dead = dead || SharesCard(h, row.cards[i]);
      holdings += dead ? 0 : 1;
    }
    const double showdowns =
        static_cast<double>(row.tally.Showdowns()) / static_cast<double>(row.tally.scale);
    const double expected = EnginesWeighHoldings() ? 44.0 * static_cast<double>(row.oppCombos) / kFullWeight
                                                   : 44.0 * static_cast<double>(holdings);
    EXPECT_DOUBLE_EQ(showdowns, expected) << BoardText(row.Board());
  }
}

TEST(BoardsReport, RowsOfMyRangeAreTheRangeEquityOnTheirBoard) {
  const BoardsReportRequest request = RangeRequest("JJ+,AKs,T9s", "QQ+,AK,98s,55", "Tc8h3s");
  const BoardsReport report = MakeBoardsReport(request);
  ASSERT_TRUE(report.ok()) << report.error;
  ASSERT_EQ(report.rows.size(), 49u);
  for (std::size_t r = 0; r < report.rows.size(); r += 7) {
    const BoardsReportRow& row = report.rows[r];
    EXPECT_EQ(row.tally, StandardRangeEquity(request.myRange, request.oppRange, RowBoard(row), kTurn).tally)
        << BoardText(row.Board());
  }
}

TEST(BoardsReport, RowsMatchABruteForceOnEveryStreet) {
  const std::string range = "QQ+,AKs,T9s,76s,22";
  for (ShowdownRules rules : {ShowdownRules::Standard, ShowdownRules::Quillet}) {
    for (const char* board : {"Tc8h3s", "Tc8h3s7d"}) {
      const BoardsReportRequest request = HandRequest("AhKd", range, board, rules);
      const BoardsReport report = MakeBoardsReport(request);
      ASSERT_TRUE(report.ok()) << report.error;
      for (std::size_t r = 0; r < report.rows.size(); r += 11) {
        const BoardsReportRow& row = report.rows[r];
        const Counted brute =
            BruteForceHand(*request.hand, request.oppRange, RowBoard(row), report.rowStreet, rules);
        EXPECT_NEAR(Share(row.tally, rules), BruteEquity(brute, rules), 1e-9) << BoardText(row.Board());
        EXPECT_DOUBLE_EQ(static_cast<double>(row.tally.wins), brute.wins / kFullWeight);
      }
    }
  }
  if (kUnderSanitizer) return;
  // Every flop: a few rows of the preflop report, the range weighted (every flop is counted at once, by
  // the report itself).
  const BoardsReportRequest request = HandRequest("7s6s", "AA:0.3,KQs,98s:0.75", "", ShowdownRules::Standard);
  const BoardsReport report = MakeBoardsReport(request);
  ASSERT_TRUE(report.ok()) << report.error;
  for (std::size_t r = 0; r < report.rows.size(); r += 1999) {
    const BoardsReportRow& row = report.rows[r];
    const Counted brute =
        BruteForceHand(*request.hand, request.oppRange, RowBoard(row), kFlop, ShowdownRules::Standard);
    EXPECT_NEAR(Share(row.tally, ShowdownRules::Standard), BruteEquity(brute, ShowdownRules::Standard), 1e-9)
        << BoardText(row.Board());
  }
}

TEST(BoardsReport, WeightedRowsMatchABruteForce) {
  if (!EnginesWeighHoldings()) GTEST_SKIP() << "the equity engines do not weigh holdings yet";
  std::mt19937_64 random(quillet::testing::TestSeed(2424));
  std::uniform_int_distribution<int> weight(1, kFullWeight);
  std::vector<HandCombo> range = RangeCombos("QQ+,AK,T9s,76s,22,KJo");
  for (HandCombo& h : range) h.weight = weight(random);
  for (ShowdownRules rules : {ShowdownRules::Standard, ShowdownRules::Quillet}) {
    for (const char* board : {"Tc8h3s", "Tc8h3s7d"}) {
      BoardsReportRequest request = HandRequest("AhKd", "AA", board, rules);
      request.oppRange = range;
      const BoardsReport report = MakeBoardsReport(request);
      ASSERT_TRUE(report.ok()) << report.error;
      for (std::size_t r = 0; r < report.rows.size(); r += 9) {
        const BoardsReportRow& row = report.rows[r];
        const Counted brute = BruteForceHand(*request.hand, range, RowBoard(row), report.rowStreet, rules);
        EXPECT_NEAR(Share(row.tally, rules), BruteEquity(brute, rules), 1e-9) << BoardText(row.Board());
      }
    }
  }
  // Range against range on the river, both weighted.
  std::vector<HandCombo> mine = RangeCombos("JJ+,AKs,T9s");
  for (HandCombo& h : mine) h.weight = weight(random);
  BoardsReportRequest request = RangeRequest("AA", "AA", "Tc8h3s7d");
  request.myRange = mine;
  request.oppRange = range;
  const BoardsReport report = MakeBoardsReport(request);
  ASSERT_TRUE(report.ok()) << report.error;
  for (std::size_t r = 0; r < report.rows.size(); r += 5) {
    const BoardsReportRow& row = report.rows[r];
    const Counted brute = BruteForceRangesOnRiver(mine, range, RowBoard(row));
    EXPECT_NEAR(Share(row.tally, ShowdownRules::Standard), BruteEquity(brute, ShowdownRules::Standard), 1e-9)
        << BoardText(row.Board());
  }
}

TEST(BoardsReport, RangeRowsOnTheRiverMatchABruteForce) {
  const std::vector<HandCombo> mine = RangeCombos("JJ+,AKs,T9s");
  const std::vector<HandCombo> theirs = RangeCombos("QQ+,AK,98s,55");
  BoardsReportRequest request = RangeRequest("JJ+,AKs,T9s", "QQ+,AK,98s,55", "Tc8h3s7d");
  const BoardsReport report = MakeBoardsReport(request);
  ASSERT_TRUE(report.ok()) << report.error;
  for (const BoardsReportRow& row : report.rows) {
    const Counted brute = BruteForceRangesOnRiver(mine, theirs, RowBoard(row));
    EXPECT_NEAR(Share(row.tally, ShowdownRules::Standard), BruteEquity(brute, ShowdownRules::Standard), 1e-9)
        << BoardText(row.Board());
  }
}

// ---- The aggregate ----

TEST(BoardsReport, AggregateOverEveryTurnOrRiverCardIsTheEquityOfTheBoardSoFar) {
  for (ShowdownRules rules : {ShowdownRules::Standard, ShowdownRules::Quillet}) {
    for (const char* hand : {"AhKd", "7s6s", "2c2h"}) {
      for (const char* board : {"Tc8h3s", "9s8s2s", "Tc8h3s2d", "As9s5d5s"}) {
        SCOPED_TRACE(std::string(hand) + " on " + board);
        ExpectAggregateIsTheBoardSoFar(
            MakeBoardsReport(HandRequest(hand, "QQ+,AK,T9s,87s:0.5,22,A5s", board, rules)));
        ExpectAggregateIsTheBoardSoFar(MakeBoardsReport(HandRequest(hand, "random", board, rules)));
      }
    }
  }
  for (const char* board : {"Tc8h3s", "Tc8h3s2d"}) {
    ExpectAggregateIsTheBoardSoFar(
        MakeBoardsReport(RangeRequest("JJ+,AKs,T9s", "QQ+,AK,98s:0.25,55", board)));
  }
}

TEST(BoardsReport, AggregateOverEveryFlopIsThePreflopEquity) {
  ExpectAggregateIsTheBoardSoFar(
      MakeBoardsReport(HandRequest("7s6s", "QQ+,AKs,T9s", "", ShowdownRules::Standard)));
  ExpectAggregateIsTheBoardSoFar(MakeBoardsReport(RangeRequest("JJ+", "TT+,AKs", "")));
}

TEST(BoardsReport, AggregateOverEveryFlopOfAcesAgainstEveryHoldingIsThePreflopEquity) {
  if (kUnderSanitizer) GTEST_SKIP() << "19,600 flops against every holding: too slow under the sanitizer";
  const BoardsReport report = MakeBoardsReport(HandRequest("AhAd", "random", "", ShowdownRules::Standard));
  ExpectAggregateIsTheBoardSoFar(report);
  EXPECT_NEAR(*EquityOfAggregate(AggregateRows(report.rows), ShowdownRules::Standard), 85.203713, 1e-6);
}

TEST(BoardsReport, AggregateFollowsTheFilter) {
  const BoardsReport report =
      MakeBoardsReport(HandRequest("AhKd", "QQ+,AK,T9s", "Tc8h3s", ShowdownRules::Standard));
  ASSERT_TRUE(report.ok()) << report.error;
  const BoardFilter filter = ParseBoardFilter("connected,high=J-A").filter;
  double wins = 0, ties = 0, losses = 0;
  int rows = 0;
  for (const BoardsReportRow& row : report.rows) {
    const BoardTexture t = TextureOf(row.Board());
    if (!t.connected || t.highRank < 11) continue;
    ++rows;
    wins += static_cast<double>(row.tally.wins);
    ties += static_cast<double>(row.tally.ties);
    losses += static_cast<double>(row.tally.losses);
  }
  const BoardsAggregate aggregate = AggregateRows(report.rows, filter);
  EXPECT_EQ(aggregate.rows, rows);
  EXPECT_EQ(rows, 8);  // a jack or a queen: J-T-8 and Q-T-8 make a straight possible, K-T-8 and A-T-8 not
  EXPECT_DOUBLE_EQ(aggregate.wins, wins);
  EXPECT_DOUBLE_EQ(aggregate.ties, ties);
  EXPECT_DOUBLE_EQ(aggregate.losses, losses);

  // Asked for in the request, the boards the filter drops are not counted at all.
  BoardsReportRequest request = HandRequest("AhKd", "QQ+,AK,T9s", "Tc8h3s", ShowdownRules::Standard);
  request.filter = filter;
  const BoardsReport filtered = MakeBoardsReport(request);
  ASSERT_TRUE(filtered.ok()) << filtered.error;
  EXPECT_EQ(filtered.rows.size(), 8u);
  const BoardsAggregate again = AggregateRows(filtered.rows);
  EXPECT_DOUBLE_EQ(again.wins, wins);
}

TEST(BoardsReport, AggregateAddsRowsCountedInDifferentUnitsInTheFinest) {
  std::array<BoardsReportRow, 2> rows;
  rows[0].tally = ShowdownTally{3, 1, 2, 1};          // whole showdowns
  rows[1].tally = ShowdownTally{1500, 0, 500, 1000};  // thousandths: 1.5 wins, 0.5 losses
  rows[1].weight = 2;
  const BoardsAggregate a = AggregateRows(rows);
  EXPECT_EQ(a.scale, 1000u);
  EXPECT_EQ(a.rows, 2);
  EXPECT_EQ(a.boards, 3);
  EXPECT_DOUBLE_EQ(a.wins, 3000 + 2 * 1500);
  EXPECT_DOUBLE_EQ(a.ties, 1000);
  EXPECT_DOUBLE_EQ(a.losses, 2000 + 2 * 500);
  EXPECT_DOUBLE_EQ(a.Showdowns(), 6 + 2 * 2);
}

// ---- Counting once per change of suits ----

void ExpectSameRows(const BoardsReport& a, const BoardsReport& b) {
  ASSERT_TRUE(a.ok() && b.ok());
  ASSERT_EQ(a.rows.size(), b.rows.size());
  for (std::size_t r = 0; r < a.rows.size(); ++r) {
    EXPECT_EQ(BoardText(a.rows[r].Board()), BoardText(b.rows[r].Board()));
    EXPECT_EQ(a.rows[r].tally, b.rows[r].tally) << BoardText(a.rows[r].Board());
    EXPECT_EQ(a.rows[r].oppCombos, b.rows[r].oppCombos);
    EXPECT_EQ(a.rows[r].groups, b.rows[r].groups) << BoardText(a.rows[r].Board());
  }
}

TEST(BoardsReport, BoardsCountedOncePerChangeOfSuitsGiveTheRowsOfEveryBoardCounted) {
  for (ShowdownRules rules : {ShowdownRules::Standard, ShowdownRules::Quillet}) {
    BoardsReportRequest request = HandRequest("AhAd", "KK,QJs,T9s,54s", "", rules);
    // Fewer flops, every kind of suits.
    request.filter = ParseBoardFilter(kUnderSanitizer ? "high=6" : "high=9").filter;
    const BoardsReport grouped = MakeBoardsReport(request);
    EXPECT_LT(grouped.countedBoards * 3, static_cast<int32_t>(grouped.rows.size()));
    request.groupBySuits = false;
    ExpectSameRows(grouped, MakeBoardsReport(request));
  }
  BoardsReportRequest turns = HandRequest("AhAd", "random", "Ks9c9s", ShowdownRules::Standard);
  const BoardsReport grouped = MakeBoardsReport(turns);
  EXPECT_LT(grouped.countedBoards, 49);  // the board's clubs and spades swap, as do hearts and diamonds
  turns.groupBySuits = false;
  ExpectSameRows(grouped, MakeBoardsReport(turns));
}

TEST(BoardsReport, The1755FlopsOfTwoRangesGiveTheAggregateOfEveryFlop) {
  if (kUnderSanitizer) GTEST_SKIP() << "22,100 flops counted one by one: too slow under the sanitizer";
  BoardsReportRequest request = RangeRequest("AA,KQs", "KK,T9s,76s", "");
  const BoardsReport grouped = MakeBoardsReport(request);
  ASSERT_TRUE(grouped.ok()) << grouped.error;
  EXPECT_TRUE(grouped.suitClasses);
  ASSERT_EQ(grouped.rows.size(), 1755u);
  request.groupBySuits = false;
  const BoardsReport every = MakeBoardsReport(request);
  ASSERT_TRUE(every.ok()) << every.error;
  EXPECT_FALSE(every.suitClasses);
  EXPECT_EQ(every.rows.size(), 22100u);
  const BoardsAggregate a = AggregateRows(grouped.rows);
  const BoardsAggregate b = AggregateRows(every.rows);
  EXPECT_EQ(a.boards, 22100);
  EXPECT_DOUBLE_EQ(a.wins, b.wins);
  EXPECT_DOUBLE_EQ(a.ties, b.ties);
  EXPECT_DOUBLE_EQ(a.losses, b.losses);
  // And filtered alike.
  const BoardFilter monotone = ParseBoardFilter("monotone").filter;
  EXPECT_DOUBLE_EQ(AggregateRows(grouped.rows, monotone).wins, AggregateRows(every.rows, monotone).wins);
  EXPECT_EQ(AggregateRows(grouped.rows, monotone).boards, 1144);
}

TEST(BoardsReport, ARangeThatASuitChangeAltersIsNotGroupedIntoThe1755) {
  BoardsReportRequest request = RangeRequest("AhKh", "QQ", "");
  request.filter = ParseBoardFilter("high=4").filter;
  const BoardsReport report = MakeBoardsReport(request);
  ASSERT_TRUE(report.ok()) << report.error;
  EXPECT_FALSE(report.suitClasses);
  EXPECT_EQ(report.rows.size(),
            164u);  // every flop of deuces, treys and fours with a four: C(12, 3) - C(8, 3)
  for (const BoardsReportRow& row : report.rows) EXPECT_EQ(row.weight, 1);
}

// ---- The groups ----

TEST(BoardsReport, GroupsSplitTheLiveHoldingsAsTheCookClassifiesThem) {
  const BoardsReportRequest request =
      HandRequest("AhKd", "QQ+,AK:0.5,T9s,87s,65s:0.25,22", "9s8s2d", ShowdownRules::Standard);
  const BoardsReport report = MakeBoardsReport(request);
  ASSERT_TRUE(report.ok()) << report.error;
  for (const BoardsReportRow& row : report.rows) {
    const BoardCards board = RowBoard(row);
    const BoardContext context = PrepareBoard(board, kTurn);
    std::array<int64_t, kRangeGroupCount> groups{};
    int64_t live = 0;
    for (const HandCombo& h : request.oppRange) {
      bool dead = SharesCard(h, request.hand->card1()) || SharesCard(h, request.hand->card2());
      for (int i = 0; i < 4; ++i) dead = dead || SharesCard(h, board[i]);
      if (dead) continue;
      live += h.weight;
      groups[RangeGroupOf(ClassifyCombo(context, h))] += h.weight;
    }
    EXPECT_EQ(row.oppCombos, live) << BoardText(row.Board());
    EXPECT_EQ(row.groups, groups) << BoardText(row.Board());
  }
}

// ---- Progress, stop and refusals ----

TEST(BoardsReport, ProgressCountsTheBoardsAndAStopEndsTheReport) {
  std::vector<std::pair<int32_t, int32_t>> calls;
  BoardsReportCallbacks callbacks;
  callbacks.progress = [&](int32_t done, int32_t total) { calls.emplace_back(done, total); };
  const BoardsReport report =
      MakeBoardsReport(HandRequest("AhKd", "QQ+,AK", "Tc8h3s", ShowdownRules::Standard), callbacks);
  ASSERT_TRUE(report.ok());
  ASSERT_FALSE(calls.empty());
  EXPECT_EQ(calls.back(), std::make_pair(report.countedBoards, report.countedBoards));
  for (std::size_t i = 0; i < calls.size(); ++i) {
    EXPECT_LE(calls[i].first, calls[i].second);
    if (i > 0) {
      EXPECT_GE(calls[i].first, calls[i - 1].first);
    }
  }
  // Every flop for my hand under the standard rules: the sweep, then the rows, never going back.
  calls.clear();
  ASSERT_TRUE(MakeBoardsReport(HandRequest("AhKd", "QQ+", "", ShowdownRules::Standard), callbacks).ok());
  ASSERT_FALSE(calls.empty());
  EXPECT_EQ(calls.back().first, calls.back().second);
  for (std::size_t i = 1; i < calls.size(); ++i) {
    EXPECT_GE(calls[i].first, calls[i - 1].first);
  }

  std::atomic<int> asked{0};
  BoardsReportCallbacks stop;
  stop.cancel = [&] {
    ++asked;
    return true;
  };
  for (ShowdownRules rules : {ShowdownRules::Quillet, ShowdownRules::Standard}) {
    asked = 0;
    const BoardsReport stopped = MakeBoardsReport(HandRequest("AhKd", "random", "", rules), stop);
    EXPECT_TRUE(stopped.cancelled);
    EXPECT_FALSE(stopped.ok());
    EXPECT_GE(asked.load(), 1);
  }
}

TEST(BoardsReport, RefusesWhatItCannotCount) {
  BoardsReportRequest range = RangeRequest("QQ+", "JJ+", "Tc8h3s");
  range.rules = ShowdownRules::Quillet;
  EXPECT_EQ(MakeBoardsReport(range).error, "a range of mine is counted under the standard rules only");
  EXPECT_FALSE(MakeBoardsReport(HandRequest("AhKd", "QQ+", "AhKd3s", ShowdownRules::Standard)).ok());
  EXPECT_FALSE(MakeBoardsReport(HandRequest("AhKd", "QQ+", "Tc8h3s2d5d", ShowdownRules::Standard)).ok());
  EXPECT_FALSE(MakeBoardsReport(HandRequest("AhKd", "QQ+", "TcTc3s", ShowdownRules::Standard)).ok());
}

}  // namespace
}  // namespace quillet
