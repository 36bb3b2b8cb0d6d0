// My Hand against a weighted range: each showdown counts the product of the two sides' weights, My Hand
// whole, so the opponent holding's weight in thousandths (a tally at scale 1000). Every path that counts a
// hand against a range (the whole range, holding by holding, class by class, the river, preflop, Calc
// Equity) is checked against a count written here one showdown at a time: every board dealt out, each
// board counting alike, each showdown decided by the comparison the win/tie/lose icons use, and weighted
// by the holding's weight.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "cards/card_input.h"
#include "cards/hand_class.h"
#include "cards/holding.h"
#include "cards/showdown_key.h"
#include "equity/calc_equity.h"
#include "equity/class_equity.h"
#include "equity/deck.h"
#include "equity/engine.h"
#include "equity/preflop_classes.h"
#include "equity/preflop_equity.h"
#include "equity/standard_equity.h"
#include "range/range_notation.h"
#include "tests/support/card_text.h"
#include "tests/support/sanitizer.h"
#include "tests/support/test_seed.h"

namespace quillet {
namespace {

using testing::Board;
using testing::Hand;
using testing::Holding;
using testing::LiveHoldings;

using quillet::testing::kUnderSanitizer;

const ShowdownRules kBothRules[] = {ShowdownRules::Quillet, ShowdownRules::Standard};

std::string RulesName(ShowdownRules rules) {
  return std::string(ShowdownRulesName(rules));
}

// ---- the count one showdown at a time ----

struct BoardCount {
  int64_t wins = 0;
  int64_t ties = 0;
  int64_t losses = 0;
};

// My Hand against one holding on every board the known cards leave to come (every five-card board
// preflop), each board once, decided by the comparison behind the win/tie/lose icons on the full board.
BoardCount DealtOut(const HandCards& hand, const BoardCards& board, Street street, const HandCombo& holding,
                    ShowdownRules rules) {
  const int known = BoardCardCount(street);
  std::vector<Card> rest;
  for (int i = 0; i < kDeckSize; ++i) {
    const Card c = DeckCard(i);
    bool used = c == hand.card1() || c == hand.card2() || c == holding.card1() || c == holding.card2();
    for (int k = 0; k < known; ++k) used = used || c == board[k];
    if (!used) rest.push_back(c);
  }
  BoardCount count;
  BoardCards full = board;
  const auto deal = [&](const auto& self, std::size_t from, int place) -> void {
    if (place == 5) {
      const ShowdownResult r = rules == ShowdownRules::Standard
                                   ? CompareStandardShowdown(hand, holding, full, kRiver)
                                   : ComparePartialBoardShowdown(hand, holding, full, kRiver);
      count.wins += r.myWin ? 1 : 0;
      count.losses += r.oppWin ? 1 : 0;
      count.ties += !r.myWin && !r.oppWin ? 1 : 0;
      return;
    }
    for (std::size_t i = from; i < rest.size(); ++i) {
      full[place] = rest[i];
      self(self, i + 1, place + 1);
    }
  };
  deal(deal, 0, known);
  return count;
}

// The same for each holding, in thousandths of a showdown: its boards times its weight.
ShowdownTally Weighed(const BoardCount& boards, int32_t weight) {
  return {static_cast<uint64_t>(boards.wins * weight), static_cast<uint64_t>(boards.ties * weight),
          static_cast<uint64_t>(boards.losses * weight), kFullWeight};
}

// The whole range's showdowns, each holding's boards weighted by its weight.
ShowdownTally WeighedDealtOut(const HandCards& hand, const BoardCards& board, Street street,
                              const std::vector<HandCombo>& range, ShowdownRules rules) {
  ShowdownTally tally{0, 0, 0, kFullWeight};
  for (const HandCombo& holding : range)
    tally += Weighed(DealtOut(hand, board, street, holding, rules), holding.weight);
  return tally;
}

// The same showdowns counted plainly (every holding once, whatever its weight).
ShowdownTally PlainDealtOut(const HandCards& hand, const BoardCards& board, Street street,
                            const std::vector<HandCombo>& range, ShowdownRules rules) {
  ShowdownTally tally;
  for (const HandCombo& holding : range) {
    const BoardCount c = DealtOut(hand, board, street, holding, rules);
    tally += {static_cast<uint64_t>(c.wins), static_cast<uint64_t>(c.ties), static_cast<uint64_t>(c.losses)};
  }
  return tally;
}

ShowdownTally TallyOf(const ShowdownCounts& counts) {
  return {static_cast<uint64_t>(counts.myWins), static_cast<uint64_t>(counts.ties),
          static_cast<uint64_t>(counts.oppWins), static_cast<uint64_t>(counts.scale)};
}

// The program's rules' whole-range count as a tally (wins, ties, losses and scale), its total checked.
ShowdownTally QuilletTally(const HandCards& hand, const BoardCards& board, Street street,
                           const std::vector<HandCombo>& range) {
  const ShowdownCounts counts = CountShowdowns(hand, board, street, range);
  EXPECT_EQ(counts.total, counts.myWins + counts.ties + counts.oppWins);
  return TallyOf(counts);
}

ShowdownTally RangeTally(const HandCards& hand, const BoardCards& board, Street street,
                         const std::vector<HandCombo>& range, ShowdownRules rules) {
  return rules == ShowdownRules::Standard ? StandardShowdownTally(hand, board, street, range)
                                          : QuilletTally(hand, board, street, range);
}

// ---- ranges ----

// Every live holding kept with chance `share`, each at a weight of 0.001 to 1 (a quarter of them whole).
std::vector<HandCombo> RandomWeightedRange(const HandCards& hand, const BoardCards& board, Street street,
                                           double share, std::mt19937_64& rng) {
  std::vector<HandCombo> range;
  std::uniform_real_distribution<double> keep(0.0, 1.0);
  std::uniform_int_distribution<int32_t> weight(1, kFullWeight);
  for (HandCombo holding : LiveHoldings(hand, board, street)) {
    if (keep(rng) >= share) continue;
    holding.weight = keep(rng) < 0.25 ? kFullWeight : weight(rng);
    range.push_back(holding);
  }
  if (!range.empty()) range.front().weight = 317;  // at least one below whole
  return range;
}

// A random My Hand and board of the street, all cards different.
struct RandomSpot {
  HandCards hand;
  BoardCards board;
};
RandomSpot MakeRandomSpot(Street street, std::mt19937_64& rng) {
  std::array<int, kDeckSize> places{};
  for (int i = 0; i < kDeckSize; ++i) places[i] = i;
  for (int i = 0; i < 7; ++i) std::swap(places[i], places[i + static_cast<int>(rng() % (kDeckSize - i))]);
  RandomSpot spot;
  const Card a = DeckCard(places[0]);
  const Card b = DeckCard(places[1]);
  spot.hand = HandCards{0, a.rank, a.suit, b.rank, b.suit};
  for (int i = 0; i < BoardCardCount(street); ++i) spot.board[i] = DeckCard(places[2 + i]);
  return spot;
}

std::vector<HandCombo> WithWeight(std::vector<HandCombo> range, int32_t weight) {
  for (HandCombo& holding : range) holding.weight = weight;
  return range;
}

// A range in notation with its weights, as a list of holdings.
std::vector<HandCombo> NotationRange(const std::string& text) {
  const ParsedWeightedRange parsed = ParseWeightedRangeNotation(text);
  EXPECT_TRUE(parsed.ok()) << text;
  std::vector<HandCombo> range;
  for (int32_t number = 0; number < kHoldingCount; ++number) {
    const int weight = parsed.weights.Weight(number);
    if (weight == 0) continue;
    const std::array<Card, 2> cards = CardsOfHolding(number);
    range.push_back(HandCombo{true, cards[0].rank, cards[0].suit, cards[1].rank, cards[1].suit, weight});
  }
  return range;
}

struct FixedSpot {
  const char* hand;
  const char* board;
};
// Boards with a flush open or made, so that the holdings read one by one are weighted too.
const FixedSpot kFlops[] = {{"AhKh", "Qh9h4c"}, {"AsKd", "9h5h2h"}, {"7c7d", "Tc8h3s"}};
const FixedSpot kTurns[] = {{"AhKd", "Th7h2h3c"}, {"QsQd", "Tc8h3s2d"}, {"9c8c", "Ac7c2d2c"}};
const FixedSpot kRivers[] = {{"AhKd", "Th7h2h3c9h"}, {"QsQd", "Tc8h3s2dKs"}, {"5c4d", "6h7h8d2c2s"}};

// ---- the whole range on the flop, the turn and the river ----

TEST(WeightedHandEquity, OnTheFlopEachShowdownCountsTheHoldingsWeightUnderBothRules) {
  std::mt19937_64 rng(testing::TestSeed(2201));
  for (const FixedSpot& spot : kFlops) {
    const HandCards hand = Hand(spot.hand);
    const BoardCards board = Board(spot.board);
    const std::vector<HandCombo> range = RandomWeightedRange(hand, board, kFlop, 0.2, rng);
    for (const ShowdownRules rules : kBothRules) {
      EXPECT_EQ(RangeTally(hand, board, kFlop, range, rules),
                WeighedDealtOut(hand, board, kFlop, range, rules))
          << spot.hand << " " << spot.board << " " << RulesName(rules);
    }
  }
}

TEST(WeightedHandEquity, OnTheTurnAndTheRiverEachShowdownCountsTheHoldingsWeightUnderBothRules) {
  std::mt19937_64 rng(testing::TestSeed(2202));
  for (const FixedSpot& spot : kTurns) {
    const HandCards hand = Hand(spot.hand);
    const BoardCards board = Board(spot.board);
    const std::vector<HandCombo> range = RandomWeightedRange(hand, board, kTurn, 0.7, rng);
    for (const ShowdownRules rules : kBothRules) {
      EXPECT_EQ(RangeTally(hand, board, kTurn, range, rules),
                WeighedDealtOut(hand, board, kTurn, range, rules))
          << spot.hand << " " << spot.board << " " << RulesName(rules);
    }
  }
  // The river under the standard rules (the program's rules show nothing there): the board as it stands.
  for (const FixedSpot& spot : kRivers) {
    const HandCards hand = Hand(spot.hand);
    const BoardCards board = Board(spot.board);
    const std::vector<HandCombo> range = RandomWeightedRange(hand, board, kRiver, 0.9, rng);
    EXPECT_EQ(StandardShowdownTally(hand, board, kRiver, range),
              WeighedDealtOut(hand, board, kRiver, range, ShowdownRules::Standard))
        << spot.hand << " " << spot.board;
  }
}

// Whole holdings are counted one each until the first live one below whole turns up; those counted
// before it must come out in thousandths like the rest.
TEST(WeightedHandEquity, AWeightBelowWholeOnlyLateInTheListWeighsTheWholeHoldingsBeforeItToo) {
  std::mt19937_64 rng(testing::TestSeed(2206));
  const FixedSpot spots[] = {kFlops[0], kFlops[1], kTurns[0], kTurns[1], kRivers[0], kRivers[1]};
  for (const FixedSpot& spot : spots) {
    const HandCards hand = Hand(spot.hand);
    const BoardCards board = Board(spot.board);
    const Street street = std::string_view(spot.board).size() == 6   ? kFlop
                          : std::string_view(spot.board).size() == 8 ? kTurn
                                                                     : kRiver;
    std::vector<HandCombo> range =
        WithWeight(RandomWeightedRange(hand, board, street, 0.3, rng), kFullWeight);
    ASSERT_GT(range.size(), 4U);
    range.back().weight = 317;
    range[range.size() / 2].weight = 640;
    for (const ShowdownRules rules : kBothRules) {
      if (rules == ShowdownRules::Quillet && street == kRiver) continue;
      const ShowdownTally tally = RangeTally(hand, board, street, range, rules);
      EXPECT_EQ(tally.scale, uint64_t{kFullWeight}) << spot.hand << " " << spot.board;
      EXPECT_EQ(tally, WeighedDealtOut(hand, board, street, range, rules))
          << spot.hand << " " << spot.board << " " << RulesName(rules);
    }
  }
}

// Under the standard rules only live holdings count: a weight below whole on a holding that shares a
// card with the board leaves the count whole, in plain showdowns. (The program's rules read such a
// holding card by card, so there it counts.)
TEST(WeightedHandEquity, AWeightBelowWholeOnADeadHoldingLeavesTheStandardCountWhole) {
  const FixedSpot spots[] = {kFlops[2], kTurns[1], kRivers[1]};
  for (const FixedSpot& spot : spots) {
    const HandCards hand = Hand(spot.hand);
    const BoardCards board = Board(spot.board);
    const Street street = std::string_view(spot.board).size() == 6   ? kFlop
                          : std::string_view(spot.board).size() == 8 ? kTurn
                                                                     : kRiver;
    const std::vector<HandCombo> live = LiveHoldings(hand, board, street);
    std::vector<HandCombo> range = live;
    HandCombo dead = live.front();
    dead.rank1 = board[0].rank;
    dead.suit1 = board[0].suit;
    if (dead.rank2 == dead.rank1 && dead.suit2 == dead.suit1) dead.suit2 = (dead.suit2 + 1) % 4;
    dead.weight = 317;
    range.insert(range.begin() + static_cast<std::ptrdiff_t>(range.size() / 2), dead);
    const ShowdownTally tally = StandardShowdownTally(hand, board, street, range);
    EXPECT_EQ(tally.scale, 1U) << spot.hand << " " << spot.board;
    EXPECT_EQ(tally, StandardShowdownTally(hand, board, street, live)) << spot.hand << " " << spot.board;
  }
}

TEST(WeightedHandEquity, RandomHandsBoardsAndWeightedRangesCountWhatTheDealtOutCountCounts) {
  std::mt19937_64 rng(testing::TestSeed(2203));
  for (int round = 0; round < 6; ++round) {
    const Street street = round % 3 == 0 ? kFlop : round % 3 == 1 ? kTurn : kRiver;
    const RandomSpot spot = MakeRandomSpot(street, rng);
    const std::vector<HandCombo> range =
        RandomWeightedRange(spot.hand, spot.board, street, street == kFlop ? 0.1 : 0.5, rng);
    for (const ShowdownRules rules : kBothRules) {
      if (rules == ShowdownRules::Quillet && street == kRiver) continue;
      EXPECT_EQ(RangeTally(spot.hand, spot.board, street, range, rules),
                WeighedDealtOut(spot.hand, spot.board, street, range, rules))
          << "round " << round << " " << RulesName(rules);
    }
  }
}

TEST(WeightedHandEquity, AFullRangeWithMixedWeightsOnAMonotoneFlopCountsWhatTheDealtOutCountCounts) {
  if (kUnderSanitizer) GTEST_SKIP() << "a million showdowns dealt out: too slow under the sanitizer";
  std::mt19937_64 rng(testing::TestSeed(2204));
  const HandCards hand = Hand("AsKd");
  const BoardCards board = Board("9h5h2h");
  const std::vector<HandCombo> range = RandomWeightedRange(hand, board, kFlop, 1.0, rng);
  for (const ShowdownRules rules : kBothRules) {
    EXPECT_EQ(RangeTally(hand, board, kFlop, range, rules), WeighedDealtOut(hand, board, kFlop, range, rules))
        << RulesName(rules);
  }
}

// ---- holding by holding and class by class ----

TEST(WeightedHandEquity, HoldingByHoldingEachGetsItsBoardsTimesItsWeightUnderBothRules) {
  std::mt19937_64 rng(testing::TestSeed(2205));
  const FixedSpot spots[] = {kFlops[0], kTurns[0], kRivers[0]};
  const Street streets[] = {kFlop, kTurn, kRiver};
  for (int s = 0; s < 3; ++s) {
    const HandCards hand = Hand(spots[s].hand);
    const BoardCards board = Board(spots[s].board);
    const std::vector<HandCombo> range = RandomWeightedRange(hand, board, streets[s], 0.1, rng);
    std::vector<ShowdownTally> standard(range.size());
    StandardShowdownTallyByHolding(hand, board, streets[s], range, standard);
    std::vector<ShowdownCounts> quillet(range.size());
    CountShowdownsByHolding(hand, board, streets[s], range, quillet);
    for (std::size_t k = 0; k < range.size(); ++k) {
      const HandCombo& h = range[k];
      EXPECT_EQ(standard[k], Weighed(DealtOut(hand, board, streets[s], h, ShowdownRules::Standard), h.weight))
          << ComboToText(h) << " on " << spots[s].board;
      EXPECT_EQ(TallyOf(quillet[k]),
                Weighed(DealtOut(hand, board, streets[s], h, ShowdownRules::Quillet), h.weight))
          << ComboToText(h) << " on " << spots[s].board;
      EXPECT_EQ(quillet[k].total, quillet[k].myWins + quillet[k].ties + quillet[k].oppWins);
    }
  }
}

TEST(WeightedHandEquity, ClassByClassEachClassSumsItsHoldingsWeightedBoardsUnderBothRules) {
  std::mt19937_64 rng(testing::TestSeed(2206));
  const FixedSpot spots[] = {kFlops[1], kTurns[2]};
  const Street streets[] = {kFlop, kTurn};
  for (int s = 0; s < 2; ++s) {
    const HandCards hand = Hand(spots[s].hand);
    const BoardCards board = Board(spots[s].board);
    const std::vector<HandCombo> range =
        RandomWeightedRange(hand, board, streets[s], streets[s] == kFlop ? 0.15 : 0.6, rng);
    for (const ShowdownRules rules : kBothRules) {
      std::array<ShowdownTally, kClassCount> expected{};
      for (ShowdownTally& t : expected) t.scale = kFullWeight;
      for (const HandCombo& h : range)
        expected[ClassOfCombo(h)] += Weighed(DealtOut(hand, board, streets[s], h, rules), h.weight);
      std::array<ShowdownTally, kClassCount> byClass{};
      if (rules == ShowdownRules::Standard) {
        StandardShowdownTallyByClass(hand, board, streets[s], range, byClass);
      } else {
        std::array<ShowdownCounts, kClassCount> counts{};
        CountShowdownsByClass(hand, board, streets[s], range, counts);
        for (int c = 0; c < kClassCount; ++c) byClass[c] = TallyOf(counts[c]);
      }
      for (int c = 0; c < kClassCount; ++c)
        EXPECT_EQ(byClass[c], expected[c]) << HandClasses()[c].name << " " << RulesName(rules);
    }
  }
}

// The equity the read-outs show for a tally under the rules.
double ReadOut(const ShowdownTally& tally, ShowdownRules rules) {
  if (rules == ShowdownRules::Standard) return EquityFromTally(tally).my;
  return EquityFromCounts({static_cast<int64_t>(tally.Showdowns()), static_cast<int64_t>(tally.wins),
                           static_cast<int64_t>(tally.losses), static_cast<int64_t>(tally.ties)})
      .my;
}

TEST(WeightedHandEquity, EachClassOfTheHeatMapIsMyHandAgainstItsWeightedHoldingsOnEveryStreet) {
  std::mt19937_64 rng(testing::TestSeed(2207));
  const FixedSpot spots[] = {{"AhKd", "Tc8h3s"}, {"AhKd", "Tc8h3s2d"}, {"AhKd", "Tc8h3s2dKs"}};
  for (const FixedSpot& spot : spots) {
    const CardInputs cards = CheckCardInputs(spot.hand, spot.board, CardsFor::Equity);
    ASSERT_TRUE(cards.ok());
    const std::vector<HandCombo> range =
        RandomWeightedRange(cards.hand, cards.board, cards.street, cards.street == kFlop ? 0.1 : 0.4, rng);
    for (const ShowdownRules rules : kBothRules) {
      const std::optional<ClassEquities> classes = ClassEquitiesOfHand(cards, range, rules);
      if (rules == ShowdownRules::Quillet && cards.street == kRiver) {
        EXPECT_FALSE(classes.has_value());
        continue;
      }
      ASSERT_TRUE(classes.has_value()) << spot.board << " " << RulesName(rules);
      std::array<ShowdownTally, kClassCount> expected{};
      std::array<int32_t, kClassCount> holdings{};
      for (ShowdownTally& t : expected) t.scale = kFullWeight;
      for (const HandCombo& h : range) {
        expected[ClassOfCombo(h)] +=
            Weighed(DealtOut(cards.hand, cards.board, cards.street, h, rules), h.weight);
        ++holdings[ClassOfCombo(h)];
      }
      for (int c = 0; c < kClassCount; ++c) {
        const std::optional<ClassEquity>& got = (*classes)[c];
        ASSERT_EQ(got.has_value(), holdings[c] > 0) << HandClasses()[c].name;
        if (!got) continue;
        EXPECT_EQ(got->holdings, holdings[c]);
        ASSERT_TRUE(got->tally.has_value());
        EXPECT_EQ(*got->tally, expected[c]) << HandClasses()[c].name << " " << RulesName(rules);
        EXPECT_DOUBLE_EQ(got->equity, ReadOut(expected[c], rules)) << HandClasses()[c].name;
      }
    }
  }
}

// ---- preflop ----

TEST(WeightedHandEquity, PreflopUnderTheStandardRulesAFewWeightedHoldingsCountEveryBoardDealtOut) {
  if (kUnderSanitizer) GTEST_SKIP() << "1.7 million boards a holding: too slow under the sanitizer";
  ASSERT_TRUE(ProgramPreflopClassTable().ok()) << ProgramPreflopClassTable().error;
  const HandCards hand = Hand("AhAd");
  std::vector<HandCombo> range = {Holding("KsKc"), Holding("7h6h"), Holding("AcKd")};
  range[0].weight = 500;
  range[2].weight = 125;
  const BoardCards none;
  const std::optional<ShowdownTally> tally = StandardEquityTally(hand, none, kNoBoard, range);
  ASSERT_TRUE(tally.has_value());
  EXPECT_EQ(*tally, WeighedDealtOut(hand, none, kNoBoard, range, ShowdownRules::Standard));
}

TEST(WeightedHandEquity, PreflopUnderTheStandardRulesAWeightedRangeWeighsEachMatchupOfTheClassTable) {
  ASSERT_TRUE(ProgramPreflopClassTable().ok()) << ProgramPreflopClassTable().error;
  const PreflopClassTable& table = *ProgramPreflopClassTable().table;
  std::mt19937_64 rng(testing::TestSeed(2208));
  const HandCards hand = Hand("QhJh");
  const std::vector<HandCombo> range = RandomWeightedRange(hand, BoardCards{}, kNoBoard, 0.3, rng);
  ShowdownTally expected{0, 0, 0, kFullWeight};
  const int32_t mine = HoldingNumber(hand.card1(), hand.card2());
  for (const HandCombo& h : range) {
    const ShowdownTally one = table.Matchup(mine, HoldingNumber(h.card1(), h.card2()));
    expected += {one.wins * h.weight, one.ties * h.weight, one.losses * h.weight, kFullWeight};
  }
  const std::optional<ShowdownTally> tally = StandardEquityTally(hand, BoardCards{}, kNoBoard, range);
  ASSERT_TRUE(tally.has_value());
  EXPECT_EQ(*tally, expected);
  EXPECT_EQ(tally->Showdowns(), [&] {
    uint64_t weights = 0;
    for (const HandCombo& h : range) weights += static_cast<uint64_t>(h.weight);
    return weights * kPreflopBoardCount;
  }());
}

TEST(WeightedHandEquity, PreflopUnderTheProgramsRulesTheTablesValuesMakeAWeightedMean) {
  const HandCards hand = Hand("AhKd");
  std::mt19937_64 rng(testing::TestSeed(2209));
  const std::vector<HandCombo> range = RandomWeightedRange(hand, BoardCards{}, kNoBoard, 0.2, rng);
  ASSERT_GT(range.size(), 10u);
  double sum = 0.0;
  double weights = 0.0;
  for (const HandCombo& h : range) {
    const EquityResult alone = PreflopEquity(hand, {Holding(ComboToText(h))}, 1, MessageSink{});
    ASSERT_GE(alone.my, 0.0) << ComboToText(h);
    sum += h.weight * alone.my;
    weights += h.weight;
  }
  const EquityResult weighted = PreflopEquity(hand, range, static_cast<int>(range.size()), MessageSink{});
  EXPECT_NEAR(weighted.my, sum / weights, 1e-9);
  EXPECT_NEAR(weighted.opp, 100.0 - sum / weights, 1e-9);
}

TEST(WeightedHandEquity, PreflopEachClassIsTheWeightedCountOfItsHoldingsUnderBothRules) {
  ASSERT_TRUE(ProgramPreflopClassTable().ok());
  const CardInputs cards = CheckCardInputs("AhKd", "", CardsFor::Equity);
  ASSERT_TRUE(cards.ok());
  std::mt19937_64 rng(testing::TestSeed(2210));
  const std::vector<HandCombo> range = RandomWeightedRange(cards.hand, BoardCards{}, kNoBoard, 0.15, rng);
  const PreflopClassTable& table = *ProgramPreflopClassTable().table;
  const int32_t mine = HoldingNumber(cards.hand.card1(), cards.hand.card2());
  std::array<ShowdownTally, kClassCount> expected{};
  std::array<double, kClassCount> meanSum{};
  std::array<double, kClassCount> meanWeight{};
  for (ShowdownTally& t : expected) t.scale = kFullWeight;
  for (const HandCombo& h : range) {
    const int c = ClassOfCombo(h);
    const ShowdownTally one = table.Matchup(mine, HoldingNumber(h.card1(), h.card2()));
    expected[c] += {one.wins * h.weight, one.ties * h.weight, one.losses * h.weight, kFullWeight};
    meanSum[c] += h.weight * PreflopEquity(cards.hand, {Holding(ComboToText(h))}, 1, MessageSink{}).my;
    meanWeight[c] += h.weight;
  }
  const std::optional<ClassEquities> standard = ClassEquitiesOfHand(cards, range, ShowdownRules::Standard);
  const std::optional<ClassEquities> quillet = ClassEquitiesOfHand(cards, range, ShowdownRules::Quillet);
  ASSERT_TRUE(standard.has_value());
  ASSERT_TRUE(quillet.has_value());
  for (int c = 0; c < kClassCount; ++c) {
    ASSERT_EQ((*standard)[c].has_value(), meanWeight[c] > 0) << HandClasses()[c].name;
    ASSERT_EQ((*quillet)[c].has_value(), meanWeight[c] > 0) << HandClasses()[c].name;
    if (meanWeight[c] == 0) continue;
    EXPECT_EQ(*(*standard)[c]->tally, expected[c]) << HandClasses()[c].name;
    EXPECT_NEAR((*quillet)[c]->equity, meanSum[c] / meanWeight[c], 1e-9) << HandClasses()[c].name;
  }
}

// ---- Calc Equity ----

TEST(WeightedHandEquity, CalcEquityShowsMyHandAgainstTheWeightedRangeWithAndWithoutThePerClassCount) {
  std::mt19937_64 rng(testing::TestSeed(2211));
  for (const char* boardText : {"Tc8h3s", "Tc8h3s2d"}) {
    EquityRequest request;
    request.cards = CheckCardInputs("AhKd", boardText, CardsFor::Equity);
    ASSERT_TRUE(request.cards.ok());
    const std::vector<HandCombo> live =
        RandomWeightedRange(request.cards.hand, request.cards.board, request.cards.street, 0.15, rng);
    request.range = live;
    // A holding that shares a card with My Hand is dropped, whatever its weight.
    HandCombo dead = Holding("AhQs");
    dead.weight = 250;
    request.range.push_back(dead);
    for (const ShowdownRules rules : kBothRules) {
      const ShowdownTally expected =
          WeighedDealtOut(request.cards.hand, request.cards.board, request.cards.street, live, rules);
      for (const bool perClass : {false, true}) {
        request.rules = rules;
        request.perClass = perClass;
        const EquityOutcome outcome = CalcEquity(request);
        ASSERT_EQ(outcome.status, EquityStatus::Calculated);
        const std::string what =
            std::string(boardText) + " " + RulesName(rules) + (perClass ? " per class" : "");
        if (rules == ShowdownRules::Standard) {
          ASSERT_TRUE(outcome.tally.has_value()) << what;
          EXPECT_EQ(*outcome.tally, expected) << what;
          EXPECT_DOUBLE_EQ(outcome.values.my, expected.EquityPercent()) << what;
        } else {
          EXPECT_EQ(outcome.values.my, ReadOut(expected, rules)) << what;
        }
      }
    }
  }
}

TEST(WeightedHandEquity, AcesAgainstHalfTheKingsTheQueensAndAQuarterOfJackTenOnTenEightThree) {
  EquityRequest request;
  request.cards = CheckCardInputs("AhAd", "Tc8h3s", CardsFor::Equity);
  request.range = NotationRange("KsKc:0.5, QsQc, JhTh:0.25");
  ASSERT_EQ(request.range.size(), 3u);
  request.rules = ShowdownRules::Standard;
  const EquityOutcome outcome = CalcEquity(request);
  ASSERT_TRUE(outcome.tally.has_value());
  EXPECT_NEAR(outcome.tally->EquityPercent(), 88.311688, 5e-7);
  EXPECT_EQ(outcome.tally->scale, uint64_t{kFullWeight});
  // 990 boards for each holding, weighed 0.5, 1 and 0.25.
  EXPECT_EQ(outcome.tally->Showdowns(), uint64_t{990 * (500 + 1000 + 250)});
}

// ---- whole weights, equal weights, half weights ----

TEST(WeightedHandEquity, WholeWeightsGiveThePlainCountsAtScaleOneOnEveryPath) {
  const HandCards hand = Hand("AhKh");
  const BoardCards board = Board("Qh9h4c");
  std::mt19937_64 rng(testing::TestSeed(2212));
  const std::vector<HandCombo> range =
      WithWeight(RandomWeightedRange(hand, board, kFlop, 0.1, rng), kFullWeight);
  for (const ShowdownRules rules : kBothRules) {
    const ShowdownTally plain = PlainDealtOut(hand, board, kFlop, range, rules);
    EXPECT_EQ(RangeTally(hand, board, kFlop, range, rules), plain) << RulesName(rules);
    EXPECT_EQ(plain.scale, 1u);
  }
  std::vector<ShowdownTally> byHolding(range.size());
  StandardShowdownTallyByHolding(hand, board, kFlop, range, byHolding);
  for (const ShowdownTally& t : byHolding) EXPECT_EQ(t.scale, 1u);
  std::array<ShowdownCounts, kClassCount> byClass{};
  CountShowdownsByClass(hand, board, kFlop, range, byClass);
  for (const ShowdownCounts& c : byClass) EXPECT_EQ(c.scale, 1);
  const std::optional<ShowdownTally> preflop = StandardEquityTally(hand, BoardCards{}, kNoBoard, range);
  ASSERT_TRUE(preflop.has_value());
  EXPECT_EQ(preflop->scale, 1u);
  EXPECT_EQ(preflop->Showdowns(), range.size() * kPreflopBoardCount);
}

TEST(WeightedHandEquity, EveryHoldingAtHalfGivesHalfTheCountsAndExactlyThePlainEquity) {
  const HandCards hand = Hand("AhKh");
  std::mt19937_64 rng(testing::TestSeed(2213));
  for (const char* boardText : {"Qh9h4c", "Qh9h4c2h", "Qh9h4c2h8s"}) {
    const BoardCards board = Board(boardText);
    const Street street = static_cast<Street>(std::string_view(boardText).size() / 2 - 2);
    const std::vector<HandCombo> whole =
        WithWeight(RandomWeightedRange(hand, board, street, street == kFlop ? 0.3 : 0.8, rng), kFullWeight);
    const std::vector<HandCombo> half = WithWeight(whole, 500);
    for (const ShowdownRules rules : kBothRules) {
      if (rules == ShowdownRules::Quillet && street == kRiver) continue;
      const ShowdownTally plain = RangeTally(hand, board, street, whole, rules);
      const ShowdownTally halved = RangeTally(hand, board, street, half, rules);
      EXPECT_EQ(halved, (ShowdownTally{plain.wins * 500, plain.ties * 500, plain.losses * 500, kFullWeight}))
          << boardText << " " << RulesName(rules);
      EXPECT_EQ(halved.EquityPercent(), plain.EquityPercent()) << boardText;
      EXPECT_EQ(ReadOut(halved, rules), ReadOut(plain, rules)) << boardText;
    }
  }
  // Preflop: the standard tally halves, the program's mean of the tables is the plain mean to the last bit.
  const std::vector<HandCombo> whole = WithWeight(LiveHoldings(hand, BoardCards{}, kNoBoard), kFullWeight);
  const std::vector<HandCombo> half = WithWeight(whole, 500);
  const std::optional<ShowdownTally> plain = StandardEquityTally(hand, BoardCards{}, kNoBoard, whole);
  const std::optional<ShowdownTally> halved = StandardEquityTally(hand, BoardCards{}, kNoBoard, half);
  ASSERT_TRUE(plain && halved);
  EXPECT_EQ(*halved, (ShowdownTally{plain->wins * 500, plain->ties * 500, plain->losses * 500, kFullWeight}));
  EXPECT_EQ(halved->EquityPercent(), plain->EquityPercent());
  const int n = static_cast<int>(whole.size());
  EXPECT_EQ(PreflopEquity(hand, half, n, MessageSink{}).my, PreflopEquity(hand, whole, n, MessageSink{}).my);
}

TEST(WeightedHandEquity, AHoldingAtHalfCountsAsHalfOfTheOthersListedTwice) {
  // {A at 0.5, B, C} counts, in thousandths, what {A, B, B, C, C} counts plainly times 500.
  const HandCards hand = Hand("9c8c");
  for (const char* boardText : {"Ac7c2d", "Ac7c2d2c"}) {
    const BoardCards board = Board(boardText);
    const Street street = static_cast<Street>(std::string_view(boardText).size() / 2 - 2);
    std::vector<HandCombo> weighted = {Holding("KcQc"), Holding("AhAs"), Holding("6c5d")};
    weighted[0].weight = 500;
    const std::vector<HandCombo> listed = {Holding("KcQc"), Holding("AhAs"), Holding("AhAs"), Holding("6c5d"),
                                           Holding("6c5d")};
    for (const ShowdownRules rules : kBothRules) {
      const ShowdownTally w = RangeTally(hand, board, street, weighted, rules);
      const ShowdownTally p = RangeTally(hand, board, street, listed, rules);
      EXPECT_EQ(w, (ShowdownTally{p.wins * 500, p.ties * 500, p.losses * 500, kFullWeight}))
          << boardText << " " << RulesName(rules);
    }
  }
}

TEST(WeightedHandEquity, AHoldingThatSharesACardWithTheBoardCountsItsWeightUnderTheProgramsRules) {
  // Such a holding is read card by card as it stands; it counts its weight like any other.
  const HandCards hand = Hand("AhKh");
  const BoardCards board = Board("Qh9h4c");
  const HandCombo live = Holding("Qs9s");  // no card of the board: counted by rank pair
  HandCombo onBoard = Holding("QhJd");     // shares the queen of hearts with the board
  onBoard.weight = 400;
  const ShowdownCounts both = CountShowdowns(hand, board, kFlop, std::vector<HandCombo>{live, onBoard});
  const ShowdownCounts first = CountShowdowns(hand, board, kFlop, std::vector<HandCombo>{Holding("Qs9s")});
  const ShowdownCounts second = CountShowdowns(hand, board, kFlop, std::vector<HandCombo>{Holding("QhJd")});
  EXPECT_GT(second.total, 0);
  EXPECT_EQ(both.scale, kFullWeight);
  EXPECT_EQ(both.total, 1000 * first.total + 400 * second.total);
  EXPECT_EQ(both.myWins, 1000 * first.myWins + 400 * second.myWins);
  EXPECT_EQ(both.ties, 1000 * first.ties + 400 * second.ties);
  EXPECT_EQ(both.oppWins, 1000 * first.oppWins + 400 * second.oppWins);
}

}  // namespace
}  // namespace quillet
