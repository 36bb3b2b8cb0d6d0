#include "equity/engine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "equity/board_record.h"
#include "tests/support/card_text.h"
#include "tests/support/reference_showdown.h"
#include "tests/support/sanitizer.h"
#include "tests/support/test_seed.h"

namespace quillet {
namespace {

using testing::AllHoldings;
using testing::Board;
using testing::C;
using testing::Hand;
using testing::Holding;
using testing::LiveHoldings;

// The same count by the reference comparator (test code): every completion of the board from the cards
// left beside My Hand and the known board, each holding that uses none of its cards compared by the
// written rules.
ShowdownCounts ReferenceCounts(const HandCards& hand, const BoardCards& board, Street street,
                               const std::vector<HandCombo>& combos) {
  const int known = BoardCardCount(street);
  const RemainingCardList remaining = RemainingCards(hand, board, street);
  ShowdownCounts counts;
  auto meet = [&](const std::array<Card, 5>& five) {
    const testing::BoardRecord record = testing::MakeBoardRecord(five);
    for (const HandCombo& combo : combos) {
      if (!combo.flag) continue;
      bool uses = false;
      for (int i = known; i < 5; ++i) uses = uses || combo.card1() == five[i] || combo.card2() == five[i];
      if (uses) continue;
      const ShowdownResult result = testing::CompareShowdown(hand, combo, record);
      ++counts.total;
      counts.myWins += result.myWin ? 1 : 0;
      counts.oppWins += result.oppWin ? 1 : 0;
    }
  };
  std::array<Card, 5> five{};
  for (int i = 0; i < known; ++i) five[i] = board[i];
  for (int i = 0; i < remaining.count; ++i) {
    five[known] = remaining.cards[i];
    if (known == 4) {
      meet(five);
      continue;
    }
    for (int j = i + 1; j < remaining.count; ++j) {
      five[4] = remaining.cards[j];
      meet(five);
    }
  }
  counts.ties = counts.total - counts.myWins - counts.oppWins;
  return counts;
}

// ---- the enumeration ----

TEST(FlopEnumeration, EachHoldingMeetsNineHundredNinetyCompletions) {
  const std::vector<HandCombo> one{Holding("KcKs")};
  EXPECT_EQ(CountShowdowns(Hand("AhAd"), Board("Tc8h3s"), kFlop, one).total, 990);
}

TEST(FlopEnumeration, AHoldingThatSharesACardWithACompletionIsSkippedForThatCompletionOnly) {
  // 47 cards give 1,081 completions; 91 of them use the king of clubs or the king of spades.
  const std::vector<HandCombo> one{Holding("KcKs")};
  const ShowdownCounts counts = CountShowdowns(Hand("AhAd"), Board("Tc8h3s"), kFlop, one);
  EXPECT_EQ(counts.total, 1081 - 91);
  EXPECT_EQ(counts.total, counts.myWins + counts.oppWins + counts.ties);
  // Two holdings with no card in common double the count; sharing the king of clubs changes nothing.
  const std::vector<HandCombo> two{Holding("KcKs"), Holding("KcQd")};
  EXPECT_EQ(CountShowdowns(Hand("AhAd"), Board("Tc8h3s"), kFlop, two).total, 2 * 990);
}

TEST(TurnEnumeration, EachHoldingMeetsFortyFourRiverCards) {
  const std::vector<HandCombo> one{Holding("KcKs")};
  EXPECT_EQ(CountShowdowns(Hand("AhAd"), Board("Tc8h3s2d"), kTurn, one).total, 44);
}

TEST(TurnEnumeration, AcesAgainstKingsWinUnlessAKingComes) {
  // The two remaining kings give the kings a set; no river gives anyone a flush or a straight.
  const std::vector<HandCombo> one{Holding("KcKs")};
  const ShowdownCounts counts = CountShowdowns(Hand("AhAd"), Board("Tc8h3s2d"), kTurn, one);
  EXPECT_EQ(counts.myWins, 42);
  EXPECT_EQ(counts.oppWins, 2);
  EXPECT_EQ(counts.ties, 0);
  const EquityResult shares = TurnEquity(Hand("AhAd"), Board("Tc8h3s2d"), one);
  EXPECT_DOUBLE_EQ(shares.my, 95.45);  // 42 / 44 = 95.4545...
  EXPECT_DOUBLE_EQ(shares.opp, 4.55);  // 2 / 44 = 4.5454...
}

TEST(TurnEnumeration, ASixthCardOfTheSuitTakesMyFlushAway) {
  // Ah Kh with three hearts on the board is a flush; a heart on the river makes six hearts and no flush,
  // so the set of jacks wins. Non-heart rivers: the set wins only with Jd, a seven, a three or a two
  // (9 cards); the flush wins the other 27. The 8 heart rivers all go to the set.
  const std::vector<HandCombo> one{Holding("JcJs")};
  const ShowdownCounts counts = CountShowdowns(Hand("AhKh"), Board("Jh7h3h2c"), kTurn, one);
  EXPECT_EQ(counts.total, 44);
  EXPECT_EQ(counts.myWins, 27);
  EXPECT_EQ(counts.oppWins, 17);
  EXPECT_EQ(counts.ties, 0);
}

TEST(FlopEnumeration, FourBoardCardsOfASuitAndTwoInTheHandGiveThatPlayerNoFlush) {
  // Ah Kh on 9h 5h 2h is a flush; the set of twos (2c 2d) meets 990 completions of 45 cards, 8 of them
  // hearts. Worked out by hand:
  // - no heart coming (666): my flush wins unless the set fills up: the 2s (36 completions), a nine or a
  //   five (195 more), or a pair coming (30 more): 405 mine, 261 theirs;
  // - one heart coming (296): six hearts are no flush for me and four none for them; only 3h with a
  //   four or 4h with a three (6) give me the wheel over the set: 6 mine, 290 theirs;
  // - two hearts coming (28): seven hearts for me, exactly five for them: 28 theirs.
  const std::vector<HandCombo> one{Holding("2c2d")};
  const ShowdownCounts counts = CountShowdowns(Hand("AhKh"), Board("9h5h2h"), kFlop, one);
  EXPECT_EQ(counts.total, 990);
  EXPECT_EQ(counts.myWins, 411);
  EXPECT_EQ(counts.oppWins, 579);
  EXPECT_EQ(counts.ties, 0);
  EXPECT_EQ(counts, ReferenceCounts(Hand("AhKh"), Board("9h5h2h"), kFlop, one));
  const EquityResult shares = FlopEquity(Hand("AhKh"), Board("9h5h2h"), one);
  EXPECT_DOUBLE_EQ(shares.my, 41.52);   // 411 / 990 = 41.5151...
  EXPECT_DOUBLE_EQ(shares.opp, 58.48);  // 579 / 990 = 58.4848...
}

TEST(FlopEnumeration, EveryShowdownTiedGivesFiftyFifty) {
  // The same ranks on both sides and no card of the flop's only possible flush suit: every one of the
  // 990 showdowns ties.
  const std::vector<HandCombo> one{Holding("2d3c")};
  const ShowdownCounts counts = CountShowdowns(Hand("2c3d"), Board("AhKhQh"), kFlop, one);
  EXPECT_EQ(counts.ties, 990);
  const EquityResult shares = FlopEquity(Hand("2c3d"), Board("AhKhQh"), one);
  EXPECT_EQ(shares.my, 50.0);
  EXPECT_EQ(shares.opp, 50.0);
}

TEST(TurnEnumeration, EveryShowdownTiedGivesFiftyFifty) {
  const std::vector<HandCombo> one{Holding("2d3c")};
  const EquityResult shares = TurnEquity(Hand("2c3d"), Board("AhKhQhJh"), one);
  EXPECT_EQ(shares.my, 50.0);
  EXPECT_EQ(shares.opp, 50.0);
}

TEST(FlopEnumeration, NoLiveHoldingGivesMinusOneOnBothSides) {
  const EquityResult empty = FlopEquity(Hand("AhAd"), Board("Tc8h3s"), {});
  EXPECT_EQ(empty.my, -1.0);
  EXPECT_EQ(empty.opp, -1.0);
  HandCombo dead = Holding("KcKs");
  dead.flag = false;
  const std::vector<HandCombo> flaggedOff{dead};
  const EquityResult none = TurnEquity(Hand("AhAd"), Board("Tc8h3s2d"), flaggedOff);
  EXPECT_EQ(none.my, -1.0);
  EXPECT_EQ(none.opp, -1.0);
}

TEST(FlopEnumeration, HoldingsWithTheFlagClearedTakeNoPart) {
  std::vector<HandCombo> combos{Holding("KcKs"), Holding("QcQs")};
  combos[1].flag = false;
  EXPECT_EQ(CountShowdowns(Hand("AhAd"), Board("Tc8h3s"), kFlop, combos).total, 990);
}

TEST(FlopEnumeration, TheKeyPathCountsExactlyWhatTheReferenceComparatorCountsForTheFullRange) {
  // My Hand is chosen for each flop so that it shares no card with it.
  // Under the sanitizer the first two: a plain flop and a flush-deciding one.
  const std::pair<const char*, const char*> cases[] = {
      {"Tc8h3s", "AhAd"}, {"AhKhQh", "AsAd"}, {"7c7d2h", "AhAd"}, {"5s4s3d", "AhAd"}, {"KdKcKh", "AhAd"}};
  const std::size_t caseCount = quillet::testing::kUnderSanitizer ? 2 : std::size(cases);
  for (std::size_t c = 0; c < caseCount; ++c) {
    const auto& [flop, mine] = cases[c];
    SCOPED_TRACE(std::string(mine) + " on " + flop);
    const HandCards hand = Hand(mine);
    const BoardCards board = Board(flop);
    const std::vector<HandCombo> range = LiveHoldings(hand, board, kFlop);
    const ShowdownCounts fast = CountShowdowns(hand, board, kFlop, range);
    EXPECT_EQ(fast, ReferenceCounts(hand, board, kFlop, range));
    EXPECT_EQ(fast.total, static_cast<int64_t>(range.size()) * 990);
  }
}

TEST(TurnEnumeration, TheKeyPathCountsExactlyWhatTheReferenceComparatorCountsForTheFullRange) {
  for (const char* turn : {"Tc8h3s2d", "9h8h7h2h", "KcKdKh2s", "Ac2c3c4d", "JsTs9d8c"}) {
    for (const char* mine : {"AhAd", "6h5h", "QsJs", "2d2s"}) {
      SCOPED_TRACE(std::string(mine) + " on " + turn);
      const HandCards hand = Hand(mine);
      const BoardCards board = Board(turn);
      bool clash = false;
      for (int i = 0; i < 4; ++i) clash = clash || board[i] == hand.card1() || board[i] == hand.card2();
      if (clash) continue;
      const std::vector<HandCombo> range = LiveHoldings(hand, board, kTurn);
      EXPECT_EQ(CountShowdowns(hand, board, kTurn, range), ReferenceCounts(hand, board, kTurn, range));
    }
  }
}

TEST(Enumeration, RandomHandsBoardsAndRangesCountExactlyWhatTheReferenceComparatorCounts) {
  // Random My Hands, flops and turns (a third of them with three or more cards of one suit) and random
  // ranges, some holdings listed twice or with the flag cleared; each holding counted by rank pattern and
  // flush correction must meet the same showdowns the written rules decide.
  std::mt19937_64 rng(testing::TestSeed(2811));
  for (int round = 0; round < quillet::testing::SweepRounds(24, 4); ++round) {
    std::vector<Card> deck;
    for (int32_t index = 0; index < 52; ++index) deck.push_back(DeckCard(index));
    std::shuffle(deck.begin(), deck.end(), rng);
    if (round % 3 == 0) {
      // Move cards of one suit to the board's places.
      const int32_t suit = static_cast<int32_t>(rng() % 4);
      std::stable_partition(deck.begin() + 2, deck.end(), [&](Card card) { return card.suit == suit; });
    }
    const Street street = round % 2 == 0 ? kFlop : kTurn;
    const HandCards hand{1, deck[0].rank, deck[0].suit, deck[1].rank, deck[1].suit};
    BoardCards board;
    for (int i = 0; i < 5; ++i) board[i] = i < BoardCardCount(street) ? deck[2 + i] : Card{};
    std::vector<HandCombo> range;
    for (const HandCombo& combo : LiveHoldings(hand, board, street)) {
      const uint64_t draw = rng() % 16;
      if (draw < 2) range.push_back(combo);
      if (draw == 2) {
        range.push_back(combo);
        range.push_back(combo);
      }
      if (draw == 3) {
        HandCombo off = combo;
        off.flag = false;
        range.push_back(off);
      }
    }
    SCOPED_TRACE("round " + std::to_string(round));
    const ShowdownCounts counts = CountShowdowns(hand, board, street, range);
    EXPECT_EQ(counts, ReferenceCounts(hand, board, street, range));
    std::vector<ShowdownCounts> byHolding(range.size());
    CountShowdownsByHolding(hand, board, street, range, byHolding);
    ShowdownCounts sum;
    for (const ShowdownCounts& c : byHolding) {
      sum.total += c.total;
      sum.myWins += c.myWins;
      sum.oppWins += c.oppWins;
      sum.ties += c.ties;
    }
    EXPECT_EQ(sum, counts);
  }
}

TEST(FlopEnumeration, HoldingsThatShareACardWithMyHandOrTheFlopAreComparedAsTheyStand) {
  // The caller normally removes them; if it does not, they are still compared by the written rules.
  const std::vector<HandCombo> range = AllHoldings();
  const ShowdownCounts fast = CountShowdowns(Hand("AhKh"), Board("Qh9h4c"), kFlop, range);
  EXPECT_EQ(fast, ReferenceCounts(Hand("AhKh"), Board("Qh9h4c"), kFlop, range));
  // A holding with the ace of hearts meets each completion that uses neither of its cards.
  const std::vector<HandCombo> shared{Holding("AhQd")};
  EXPECT_EQ(CountShowdowns(Hand("AhKh"), Board("Qh9h4c"), kFlop, shared).total, 1081 - 46);
}

TEST(FlopEnumeration, AMyHandWithoutASecondCardCountsNothing) {
  HandCards hand = Hand("AhKd");
  hand.rank2 = -1;
  const std::vector<HandCombo> one{Holding("QcQs")};
  EXPECT_EQ(CountShowdowns(hand, Board("Tc8h3s"), kFlop, one).total, 0);
}

TEST(Enumeration, RunsOnlyOnTheFlopAndTheTurn) {
  const std::vector<HandCombo> one{Holding("QcQs")};
  EXPECT_EQ(CountShowdowns(Hand("AhKd"), Board(""), kNoBoard, one).total, 0);
  EXPECT_EQ(CountShowdowns(Hand("AhKd"), Board("Tc8h3s2d5c"), kRiver, one).total, 0);
}

// ---- the caption ----

TEST(EquityCaption, ShowsCalculatingDuringTheRunAndCalcEquityAfterIt) {
  std::vector<std::string> captions;
  const std::vector<HandCombo> one{Holding("KcKs")};
  FlopEquity(Hand("AhAd"), Board("Tc8h3s"), one, [&](std::string_view c) { captions.emplace_back(c); });
  TurnEquity(Hand("AhAd"), Board("Tc8h3s2d"), one, [&](std::string_view c) { captions.emplace_back(c); });
  EXPECT_EQ(captions, (std::vector<std::string>{"Calculating", "Calc Equity", "Calculating", "Calc Equity"}));
}

// ---- result R ----

TEST(ResultR, LeavesTiesOutOfTheDenominator) {
  const EquityResult shares = EquityFromCounts({100, 1, 1, 98});
  EXPECT_EQ(shares.my, 50.0);
  EXPECT_EQ(shares.opp, 50.0);
}

TEST(ResultR, RoundsHalfToEvenFromTheExactFraction) {
  // 3 / 20000 is exactly 0.015 percent, 19997 / 20000 exactly 99.985: both halves go to the even digit.
  const EquityResult up = EquityFromCounts({20000, 3, 19997, 0});
  EXPECT_DOUBLE_EQ(up.my, 0.02);
  EXPECT_DOUBLE_EQ(up.opp, 99.98);
  // 1 / 20000 is 0.005 percent, 19999 / 20000 is 99.995.
  const EquityResult down = EquityFromCounts({20000, 1, 19999, 0});
  EXPECT_DOUBLE_EQ(down.my, 0.00);
  EXPECT_DOUBLE_EQ(down.opp, 100.00);
}

TEST(ResultR, RoundsOtherFractionsToTheNearestHundredth) {
  const EquityResult shares = EquityFromCounts({3, 1, 2, 0});  // 33.333... and 66.666...
  EXPECT_DOUBLE_EQ(shares.my, 33.33);
  EXPECT_DOUBLE_EQ(shares.opp, 66.67);
}

TEST(ResultR, GivesFiftyFiftyWhenEveryShowdownTiedAndMinusOneWithoutShowdowns) {
  const EquityResult tied = EquityFromCounts({7, 0, 0, 7});
  EXPECT_EQ(tied.my, 50.0);
  EXPECT_EQ(tied.opp, 50.0);
  const EquityResult none = EquityFromCounts({});
  EXPECT_EQ(none.my, -1.0);
  EXPECT_EQ(none.opp, -1.0);
}

}  // namespace
}  // namespace quillet
