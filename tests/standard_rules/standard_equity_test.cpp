#include "equity/standard_equity.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "equity/deck.h"
#include "equity/hand_evaluator.h"
#include "tests/support/card_text.h"

namespace quillet {
namespace {

using testing::Board;
using testing::Hand;
using testing::Holding;
using testing::LiveHoldings;

Street StreetOf(const std::string& board) {
  return board.empty() ? kNoBoard : static_cast<Street>(board.size() / 2 - 2);
}

CardSet SetOf(std::initializer_list<Card> cards) {
  CardSet set = 0;
  for (Card card : cards) set |= CardSetBit(card);
  return set;
}

// The tally the long way: every completion of the board, every listed holding that shares no card with
// My Hand, the board or the completion, both hands valued by the reference evaluator.
ShowdownTally ReferenceTally(const HandCards& hand, const BoardCards& board, Street street,
                             const std::vector<HandCombo>& combos) {
  const int known = BoardCardCount(street);
  CardSet knownSet = SetOf({hand.card1(), hand.card2()});
  CardSet boardSet = 0;
  for (int i = 0; i < known; ++i) boardSet |= CardSetBit(board[i]);
  knownSet |= boardSet;
  std::vector<CardSet> rest;
  for (int i = 0; i < kDeckSize; ++i) {
    if ((knownSet & CardSetBit(DeckCard(i))) == 0) rest.push_back(CardSetBit(DeckCard(i)));
  }
  std::vector<CardSet> completions;
  if (known == 5) completions.push_back(0);
  if (known == 4) completions = rest;
  if (known == 3) {
    for (std::size_t i = 0; i < rest.size(); ++i)
      for (std::size_t j = i + 1; j < rest.size(); ++j) completions.push_back(rest[i] | rest[j]);
  }
  ShowdownTally tally;
  const CardSet mine = SetOf({hand.card1(), hand.card2()});
  for (CardSet coming : completions) {
    const CardSet full = boardSet | coming;
    const HandValue myValue = EvaluateCards(mine | full);
    for (const HandCombo& combo : combos) {
      const CardSet theirs = SetOf({combo.card1(), combo.card2()});
      if (!combo.flag || (theirs & (knownSet | coming)) != 0) continue;
      const HandValue theirValue = EvaluateCards(theirs | full);
      if (myValue > theirValue) ++tally.wins;
      if (myValue == theirValue) ++tally.ties;
      if (myValue < theirValue) ++tally.losses;
    }
  }
  return tally;
}

// `count` different random holdings of the deck (some of them dead for the hand and board).
std::vector<HandCombo> RandomRange(std::mt19937_64& rng, int count) {
  std::vector<HandCombo> all = LiveHoldings(Hand("2c3c"), Board(""), kNoBoard);
  all.push_back(Holding("3c2c"));
  std::shuffle(all.begin(), all.end(), rng);
  all.resize(count);
  return all;
}

ShowdownTally Tally(const std::string& hand, const std::string& board, const std::vector<HandCombo>& range) {
  return StandardShowdownTally(Hand(hand), Board(board), StreetOf(board), range);
}

TEST(StandardEquity, AcesAgainstTheFullRangeOnATenEightThreeFlopHaveTheirExactEquity) {
  const std::vector<HandCombo> range = LiveHoldings(Hand("AhAd"), Board("Tc8h3s"), kFlop);
  const ShowdownTally tally = Tally("AhAd", "Tc8h3s", range);
  EXPECT_EQ(tally.Showdowns(), range.size() * 990);
  EXPECT_NEAR(tally.EquityPercent(), 85.371289, 1e-6);
}

TEST(StandardEquity, AcesAgainstTheFullRangeOnATenEightThreeDeuceTurnHaveTheirExactEquity) {
  const std::vector<HandCombo> range = LiveHoldings(Hand("AhAd"), Board("Tc8h3s2d"), kTurn);
  const ShowdownTally tally = Tally("AhAd", "Tc8h3s2d", range);
  EXPECT_EQ(tally.Showdowns(), range.size() * 44);
  EXPECT_NEAR(tally.EquityPercent(), 88.146684, 1e-6);
}

TEST(StandardEquity, TheFlopAgainstTheFullRangeCountsExactlyWhatTheReferenceCounts) {
  for (const std::string board : {"Tc8h3s", "Qs7s2s", "9h9d4h"}) {
    SCOPED_TRACE(board);
    const std::vector<HandCombo> range = LiveHoldings(Hand("AsKs"), Board(board), kFlop);
    EXPECT_EQ(Tally("AsKs", board, range), ReferenceTally(Hand("AsKs"), Board(board), kFlop, range));
  }
}

TEST(StandardEquity, RandomHandsBoardsAndRangesOnEveryStreetCountExactlyWhatTheReferenceCounts) {
  std::mt19937_64 rng(1511);
  for (int sample = 0; sample < 60; ++sample) {
    // Seven different cards: My Hand and a board, the board's suits often alike to bring flushes.
    std::vector<Card> deck;
    for (int i = 0; i < kDeckSize; ++i) deck.push_back(DeckCard(i));
    std::shuffle(deck.begin(), deck.end(), rng);
    if (sample % 3 == 0) {
      std::stable_partition(deck.begin() + 2, deck.end(), [](Card card) { return card.suit == 3; });
    }
    const auto street = static_cast<Street>(kFlop + sample % 3);
    HandCards hand;
    hand.rank1 = deck[0].rank, hand.suit1 = deck[0].suit;
    hand.rank2 = deck[1].rank, hand.suit2 = deck[1].suit;
    BoardCards board;
    for (int i = 0; i < BoardCardCount(street); ++i) board[i] = deck[2 + i];
    const std::vector<HandCombo> range = RandomRange(rng, street == kFlop ? 60 : 400);
    SCOPED_TRACE("sample " + std::to_string(sample));
    EXPECT_EQ(StandardShowdownTally(hand, board, street, range), ReferenceTally(hand, board, street, range));
  }
}

TEST(StandardEquity, BoardsWithFourAndFiveCardsOfOneSuitCountExactlyWhatTheReferenceCounts) {
  const std::vector<HandCombo> range = RandomRange(*std::make_unique<std::mt19937_64>(7).get(), 700);
  for (const auto& [hand, board] : std::vector<std::pair<std::string, std::string>>{{"AsKs", "Qs7s2s5s"},
                                                                                    {"AsKs", "Qs7s2s5d"},
                                                                                    {"Ac2d", "Qs7s2s5s9s"},
                                                                                    {"5h4d", "Qs7s2s5s"},
                                                                                    {"AhKd", "Qs7s2s"},
                                                                                    {"Th9h", "8h7h6h"},
                                                                                    {"Th9h", "8h7h6h5h"}}) {
    SCOPED_TRACE(hand + " on " + board);
    EXPECT_EQ(Tally(hand, board, range), ReferenceTally(Hand(hand), Board(board), StreetOf(board), range));
  }
}

TEST(StandardEquity, TheRiverGivesTheRealResultOfEachShowdown) {
  const std::vector<HandCombo> range = {Holding("QcQd"), Holding("AcKd"), Holding("AdKc"), Holding("7c7d")};
  const ShowdownTally tally = Tally("AhKh", "Ks7s2d5c9h", range);
  EXPECT_EQ(tally, (ShowdownTally{1, 2, 1}));
  EXPECT_DOUBLE_EQ(tally.EquityPercent(), 50.0);
}

TEST(StandardEquity, HoldingsThatAreDeadFlaggedOffOrMalformedTakeNoPart) {
  const std::vector<HandCombo> live = {Holding("QcQd")};
  HandCombo flaggedOff = Holding("JcJd");
  flaggedOff.flag = false;
  const std::vector<HandCombo> range = {Holding("QcQd"), Holding("AhQh"), Holding("KsQs"),
                                        flaggedOff,      Holding("2c2c"), HandCombo{}};
  EXPECT_EQ(Tally("AhKh", "Ks7s2d", range), Tally("AhKh", "Ks7s2d", live));
}

TEST(StandardEquity, AHoldingListedTwiceCountsTwice) {
  const ShowdownTally once = Tally("AhKh", "Ks7s2d", {Holding("QcQd")});
  ShowdownTally twice = once;
  twice += once;
  EXPECT_EQ(Tally("AhKh", "Ks7s2d", {Holding("QcQd"), Holding("QdQc")}), twice);
}

TEST(StandardEquity, NothingIsCountedWithoutALiveHoldingOrWithACardGivenTwice) {
  EXPECT_EQ(Tally("AhKh", "Ks7s2d", {}), ShowdownTally{});
  EXPECT_EQ(Tally("AhKh", "Ks7s2d", {Holding("AhQd")}), ShowdownTally{});
  EXPECT_EQ(Tally("AhKh", "Ks7sKh", {Holding("QcQd")}), ShowdownTally{});
  EXPECT_EQ(StandardShowdownTally(Hand("AhKh"), Board(""), kNoBoard, {{Holding("QcQd")}}), ShowdownTally{});
}

TEST(StandardEquity, TheTallyOnAnyStreetTakesTheBoardsFromTheEnumeration) {
  const std::vector<HandCombo> range = {Holding("QcQd"), Holding("7c7d")};
  const auto onFlop = StandardEquityTally(Hand("AhKh"), Board("Ks7s2d"), kFlop, range);
  ASSERT_TRUE(onFlop.has_value());
  EXPECT_EQ(*onFlop, Tally("AhKh", "Ks7s2d", range));
}

TEST(StandardEquity, TheReadOutsSplitTiesHalfAndAddUpToOneHundred) {
  const EquityResult result = EquityFromTally({3, 2, 5});
  EXPECT_DOUBLE_EQ(result.my, 40.0);
  EXPECT_DOUBLE_EQ(result.opp, 60.0);
  const EquityResult none = EquityFromTally({});
  EXPECT_EQ(none.my, -1.0);
  EXPECT_EQ(none.opp, -1.0);
}

}  // namespace
}  // namespace quillet
