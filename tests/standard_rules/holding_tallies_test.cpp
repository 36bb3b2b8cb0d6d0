// The standard rules' showdowns counted for each holding apart, in one enumeration: each holding's tally
// is its own, and summed they are the tally of the whole range.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cards/holding.h"
#include "equity/standard_equity.h"
#include "tests/support/card_text.h"

namespace quillet {
namespace {

using testing::AllHoldings;
using testing::Board;
using testing::Hand;
using testing::Holding;
using testing::Spot;

std::vector<ShowdownTally> ByHolding(const HandCards& hand, const BoardCards& board, Street street,
                                     const std::vector<HandCombo>& combos) {
  std::vector<ShowdownTally> tallies(combos.size());
  StandardShowdownTallyByHolding(hand, board, street, combos, tallies);
  return tallies;
}

// Rainbow, two-suited and monotone flops, a four-flush turn, a paired turn, a five-flush and a plain river.
const Spot kSpots[] = {{"AhKd", "Tc8h3s", kFlop},     {"AhAd", "9h8h2c", kFlop},
                       {"7s6s", "Ks9s2s", kFlop},     {"AhKd", "2h5h9hJh", kTurn},
                       {"QcJc", "Tc8h3s3d", kTurn},   {"Ad2c", "Kd9d5d4d3d", kRiver},
                       {"AhKd", "Tc8h3s2d4c", kRiver}};

TEST(StandardTallyByHolding, SummedOverTheFullRangeItIsTheTallyOfTheWholeRange) {
  const std::vector<HandCombo> all = AllHoldings();
  for (const Spot& spot : kSpots) {
    const HandCards hand = Hand(spot.hand);
    const BoardCards board = Board(spot.board);
    ShowdownTally sum;
    for (const ShowdownTally& t : ByHolding(hand, board, spot.street, all)) sum += t;
    const ShowdownTally whole = StandardShowdownTally(hand, board, spot.street, all);
    EXPECT_GT(whole.Showdowns(), 0u);
    EXPECT_EQ(sum, whole) << spot.hand << " " << spot.board;
  }
}

TEST(StandardTallyByHolding, EachHoldingGetsExactlyTheTallyOfThatHoldingAlone) {
  const std::vector<HandCombo> holdings{Holding("KcKs"), Holding("Ts9s"), Holding("8c8d"),
                                        Holding("AsKs"), Holding("Ah2c"), Holding("7d6d"),
                                        Holding("QhJh"), Holding("6h4h"), Holding("Jd8d")};
  for (const Spot& spot : kSpots) {
    const HandCards hand = Hand(spot.hand);
    const BoardCards board = Board(spot.board);
    const std::vector<ShowdownTally> tallies = ByHolding(hand, board, spot.street, holdings);
    for (std::size_t k = 0; k < holdings.size(); ++k) {
      const std::vector<HandCombo> alone{holdings[k]};
      EXPECT_EQ(tallies[k], StandardShowdownTally(hand, board, spot.street, alone))
          << spot.hand << " " << spot.board << " holding " << k;
    }
  }
}

TEST(StandardTallyByHolding, DeadFlaggedOffAndMalformedHoldingsGetZero) {
  HandCombo flaggedOff = Holding("KcKs");
  flaggedOff.flag = false;
  const std::vector<HandCombo> holdings{flaggedOff, Holding("AhQc"), Holding("TcJc"),
                                        HandCombo{true, 9, 1, 9, 1}, Holding("QcQd")};
  const std::vector<ShowdownTally> tallies = ByHolding(Hand("AhKd"), Board("Tc8h3s"), kFlop, holdings);
  for (int k = 0; k < 4; ++k) EXPECT_EQ(tallies[k], ShowdownTally{}) << k;
  EXPECT_EQ(tallies[4].Showdowns(), 990u);
  // No board, or a card given twice: nothing.
  EXPECT_EQ(ByHolding(Hand("AhKd"), Board(""), kNoBoard, holdings)[4], ShowdownTally{});
  EXPECT_EQ(ByHolding(Hand("AhKd"), Board("Ah8h3s"), kFlop, holdings)[4], ShowdownTally{});
}

}  // namespace
}  // namespace quillet
