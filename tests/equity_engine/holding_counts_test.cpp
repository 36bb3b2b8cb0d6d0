// The enumeration's showdowns counted for each holding apart: each holding's counts are its own showdowns,
// and summed they are the counts of the whole range.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cards/holding.h"
#include "equity/board_record.h"
#include "equity/engine.h"
#include "tests/support/card_text.h"
#include "tests/support/reference_showdown.h"

namespace quillet {
namespace {

using testing::AllHoldings;
using testing::Board;
using testing::Hand;
using testing::Holding;
using testing::Spot;

ShowdownCounts Sum(const std::vector<ShowdownCounts>& counts) {
  ShowdownCounts sum;
  for (const ShowdownCounts& c : counts) {
    sum.total += c.total;
    sum.myWins += c.myWins;
    sum.oppWins += c.oppWins;
    sum.ties += c.ties;
  }
  return sum;
}

std::vector<ShowdownCounts> ByHolding(const HandCards& hand, const BoardCards& board, Street street,
                                      const std::vector<HandCombo>& combos) {
  std::vector<ShowdownCounts> counts(combos.size());
  CountShowdownsByHolding(hand, board, street, combos, counts);
  return counts;
}

// The flop and turn spots: a rainbow flop, a two-suited and a monotone one, a paired turn, a four-flush turn.
const Spot kSpots[] = {{"AhKd", "Tc8h3s", kFlop},
                       {"AhAd", "9h8h2c", kFlop},
                       {"7s6s", "Ks9s2s", kFlop},
                       {"QcJc", "Tc8h3s3d", kTurn},
                       {"AhKd", "2h5h9hJh", kTurn}};

// The holdings that share no card with My Hand or the board (what the equity command passes), then a few
// that do (the fast path leaves those to the hand reader, card by card).
std::vector<HandCombo> LiveAndSomeDead(const HandCards& hand, const BoardCards& board, Street street) {
  std::vector<HandCombo> live;
  std::vector<HandCombo> dead;
  for (const HandCombo& combo : AllHoldings()) {
    bool shares = false;
    for (Card card : {hand.card1(), hand.card2()})
      shares = shares || combo.card1() == card || combo.card2() == card;
    for (int i = 0; i < BoardCardCount(street); ++i)
      shares = shares || combo.card1() == board[i] || combo.card2() == board[i];
    (shares ? dead : live).push_back(combo);
  }
  for (std::size_t k = 0; k < dead.size(); k += 25) live.push_back(dead[k]);
  return live;
}

TEST(CountShowdownsByHolding, SummedOverTheFullRangeTheyAreTheCountsOfTheWholeRange) {
  for (const Spot& spot : kSpots) {
    const HandCards hand = Hand(spot.hand);
    const BoardCards board = Board(spot.board);
    const std::vector<HandCombo> range = LiveAndSomeDead(hand, board, spot.street);
    const ShowdownCounts whole = CountShowdowns(hand, board, spot.street, range);
    EXPECT_GT(whole.total, 0);
    EXPECT_EQ(Sum(ByHolding(hand, board, spot.street, range)), whole) << spot.hand << " " << spot.board;
  }
}

TEST(CountShowdownsByHolding, EachHoldingGetsExactlyTheShowdownsOfThatHoldingAlone) {
  const std::vector<HandCombo> holdings{Holding("KcKs"), Holding("Ts9s"), Holding("8c8d"), Holding("AsKs"),
                                        Holding("Ah2c"), Holding("7d6d"), Holding("QhJh")};
  for (const Spot& spot : kSpots) {
    const HandCards hand = Hand(spot.hand);
    const BoardCards board = Board(spot.board);
    const std::vector<ShowdownCounts> counts = ByHolding(hand, board, spot.street, holdings);
    for (std::size_t k = 0; k < holdings.size(); ++k) {
      const std::vector<HandCombo> alone{holdings[k]};
      EXPECT_EQ(counts[k], CountShowdowns(hand, board, spot.street, alone))
          << spot.hand << " " << spot.board << " holding " << k;
    }
  }
}

TEST(CountShowdownsByHolding, AFlopHoldingMeetsNineHundredNinetyCompletionsAndTheReferenceDecidesThem) {
  // Counted by hand on the completed boards with the step-by-step comparator.
  const HandCards hand = Hand("AhKd");
  const BoardCards board = Board("Tc8h3s");
  const HandCombo holding = Holding("Ts9s");
  ShowdownCounts expected;
  const RemainingCardList remaining = RemainingCards(hand, board, kFlop);
  for (int i = 0; i < remaining.count; ++i) {
    for (int j = i + 1; j < remaining.count; ++j) {
      const Card turn = remaining.cards[i];
      const Card river = remaining.cards[j];
      if (turn == holding.card1() || turn == holding.card2() || river == holding.card1() ||
          river == holding.card2())
        continue;
      const ShowdownResult result = testing::CompareShowdown(
          hand, holding, testing::MakeBoardRecord({board[0], board[1], board[2], turn, river}));
      ++expected.total;
      expected.myWins += result.myWin;
      expected.oppWins += result.oppWin;
      expected.ties += !result.myWin && !result.oppWin;
    }
  }
  const std::vector<HandCombo> one{holding};
  const std::vector<ShowdownCounts> counts = ByHolding(hand, board, kFlop, one);
  EXPECT_EQ(counts[0].total, 990);
  EXPECT_EQ(counts[0], expected);
}

TEST(CountShowdownsByHolding, HoldingsThatTakeNoPartGetZeroAndPreflopCountsNothing) {
  HandCombo flaggedOff = Holding("KcKs");
  flaggedOff.flag = false;
  const std::vector<HandCombo> holdings{flaggedOff, HandCombo{true, 15, 0, 2, 1}, Holding("QcQd")};
  const std::vector<ShowdownCounts> counts = ByHolding(Hand("AhKd"), Board("Tc8h3s"), kFlop, holdings);
  EXPECT_EQ(counts[0], ShowdownCounts{});
  EXPECT_EQ(counts[1], ShowdownCounts{});
  EXPECT_EQ(counts[2].total, 990);
  const std::vector<ShowdownCounts> none = ByHolding(Hand("AhKd"), Board("Tc8h3s2d4c"), kNoBoard, holdings);
  EXPECT_EQ(Sum(none), ShowdownCounts{});
}

TEST(CountShowdownsByHolding, OnTheRiverEachLiveHoldingMeetsTheBoardOnceAndTheReferenceDecidesIt) {
  for (const auto& [handText, boardText] :
       {std::pair{"AhKd", "Tc8h3s2d4c"}, std::pair{"7s6s", "Ks9s2s5s4h"}, std::pair{"QcJc", "Tc9c3c3d3h"},
        std::pair{"AhKd", "2h5h9hJhQh"}}) {
    const HandCards hand = Hand(handText);
    const BoardCards board = Board(boardText);
    const std::vector<HandCombo> range = LiveAndSomeDead(hand, board, kRiver);
    const std::vector<ShowdownCounts> counts = ByHolding(hand, board, kRiver, range);
    const std::size_t live = kHoldingCount - 7 * 51 + 21;  // the holdings without a card of the seven
    for (std::size_t k = 0; k < live; ++k) {
      const ShowdownResult result =
          testing::CompareShowdown(hand, range[k], testing::MakeBoardRecord(board, kRiver));
      const ShowdownCounts expected{1, result.myWin ? 1 : 0, result.oppWin ? 1 : 0,
                                    !result.myWin && !result.oppWin ? 1 : 0};
      EXPECT_EQ(counts[k], expected) << handText << " " << boardText << " holding " << k;
    }
  }
}

TEST(CountShowdownsByHolding, AnOutputShorterThanTheHoldingsIsOnlyCleared) {
  const std::vector<HandCombo> holdings{Holding("KcKs"), Holding("QcQd")};
  std::vector<ShowdownCounts> counts(1, ShowdownCounts{5, 1, 2, 2});
  CountShowdownsByHolding(Hand("AhKd"), Board("Tc8h3s"), kFlop, holdings, counts);
  EXPECT_EQ(counts[0], ShowdownCounts{});
}

}  // namespace
}  // namespace quillet
