// Multiway equity against a brute force over every board and every deal with the step-by-step evaluator,
// and its symmetries, card removal, ties, Monte Carlo and the heads-up range equity.
#include "equity/multiway_equity.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "cards/holding.h"
#include "equity/board_symmetry.h"
#include "equity/hand_evaluator.h"
#include "equity/range_equity.h"
#include "range/range_notation.h"
#include "tests/support/card_text.h"
#include "tests/support/sanitizer.h"

namespace quillet {
namespace {

using quillet::testing::Cards;
using quillet::testing::kUnderSanitizer;

WeightedHoldingSet MultiwayRange(const std::string& text) {
  const ParsedWeightedRange parsed = ParseWeightedRangeNotation(text);
  EXPECT_TRUE(parsed.ok()) << text;
  return parsed.weights;
}

std::vector<WeightedHoldingSet> MultiwayRanges(const std::vector<std::string>& texts) {
  std::vector<WeightedHoldingSet> ranges;
  for (const std::string& text : texts) ranges.push_back(MultiwayRange(text));
  return ranges;
}

struct BruteShares {
  std::vector<double> equity, win, tie;
};

// Every board completion, every deal of holdings sharing no card, each settled by EvaluateCards and
// counted with the product of the players' weights.
BruteShares MultiwayBruteForce(const std::vector<WeightedHoldingSet>& ranges, const std::vector<Card>& board,
                               const std::vector<Card>& dead) {
  const std::size_t n = ranges.size();
  std::vector<double> equity(n), win(n), tie(n);
  double deals = 0;
  std::vector<std::vector<std::pair<std::array<Card, 2>, double>>> holdings(n);
  for (std::size_t p = 0; p < n; ++p) {
    for (int number = 0; number < kHoldingCount; ++number) {
      const int weight = ranges[p].Weight(number);
      if (weight > 0) holdings[p].push_back({CardsOfHolding(number), weight / 1000.0});
    }
  }
  std::vector<Card> known = board;
  known.insert(known.end(), dead.begin(), dead.end());
  const auto isKnown = [&](Card c, const std::vector<Card>& more) {
    return std::find(known.begin(), known.end(), c) != known.end() ||
           std::find(more.begin(), more.end(), c) != more.end();
  };
  std::vector<Card> chosen;  // the players' cards, two each
  std::vector<Card> full = board;
  double weight = 1;  // the product of the chosen holdings' weights
  const auto settle = [&] {
    std::vector<HandValue> values(n);
    for (std::size_t p = 0; p < n; ++p) {
      std::vector<Card> seven = full;
      seven.push_back(chosen[2 * p]);
      seven.push_back(chosen[2 * p + 1]);
      values[p] = EvaluateCards(std::span<const Card>(seven));
    }
    const HandValue best = *std::max_element(values.begin(), values.end());
    const auto winners = static_cast<double>(std::count(values.begin(), values.end(), best));
    for (std::size_t p = 0; p < n; ++p) {
      if (values[p] != best) continue;
      equity[p] += weight / winners;
      (winners == 1 ? win[p] : tie[p]) += weight;
    }
    deals += weight;
  };
  std::function<void(std::size_t)> deal = [&](std::size_t p) {
    if (p == n) {
      settle();
      return;
    }
    for (const auto& [h, w] : holdings[p]) {
      const auto taken = [&](Card c) {
        return isKnown(c, chosen) || std::find(full.begin(), full.end(), c) != full.end();
      };
      if (taken(h[0]) || taken(h[1])) continue;
      chosen.push_back(h[0]);
      chosen.push_back(h[1]);
      const double before = weight;
      weight *= w;
      deal(p + 1);
      weight = before;
      chosen.resize(chosen.size() - 2);
    }
  };
  std::function<void(int)> complete = [&](int from) {
    if (full.size() == 5) {
      deal(0);
      return;
    }
    for (int index = from; index < 52; ++index) {
      const Card c = DeckCard(index);
      if (isKnown(c, full)) continue;
      full.push_back(c);
      complete(index + 1);
      full.pop_back();
    }
  };
  complete(0);
  for (std::size_t p = 0; p < n; ++p) {
    equity[p] *= 100.0 / deals;
    win[p] *= 100.0 / deals;
    tie[p] *= 100.0 / deals;
  }
  return {equity, win, tie};
}

MultiwayResult MultiwayExact(const std::vector<WeightedHoldingSet>& ranges, const std::vector<Card>& board,
                             const std::vector<Card>& dead = {}, int threads = 2) {
  MultiwayOptions options;
  options.method = MultiwayMethod::Exact;
  options.threads = threads;
  return MultiwayEquity(ranges, board, dead, options);
}

// Monte Carlo on two threads until the largest standard error is at most `targetError` points.
MultiwayResult MultiwaySampled(const std::vector<WeightedHoldingSet>& ranges, const std::string& board,
                               double targetError, uint64_t seed) {
  MultiwayOptions options;
  options.method = MultiwayMethod::MonteCarlo;
  options.targetError = targetError;
  options.seed = seed;
  options.threads = 2;
  return MultiwayEquity(ranges, Cards(board), {}, options);
}

void ExpectMatchesBruteForce(const std::vector<std::string>& texts, const std::string& board,
                             const std::string& dead) {
  // The flop and preflop cases walk thousands of boards step by step: too slow under the sanitizer, which
  // still checks the turn and the river.
  if (kUnderSanitizer && Cards(board).size() < 4) return;
  const auto ranges = MultiwayRanges(texts);
  const MultiwayResult result = MultiwayExact(ranges, Cards(board), Cards(dead));
  ASSERT_TRUE(result.ok()) << result.error;
  EXPECT_TRUE(result.exact);
  const BruteShares brute = MultiwayBruteForce(ranges, Cards(board), Cards(dead));
  for (std::size_t p = 0; p < texts.size(); ++p) {
    EXPECT_NEAR(result.players[p].equity, brute.equity[p], 1e-9) << texts[p] << " on '" << board << "'";
    EXPECT_NEAR(result.players[p].win, brute.win[p], 1e-9) << texts[p];
    EXPECT_NEAR(result.players[p].tie, brute.tie[p], 1e-9) << texts[p];
  }
}

// Dead cards keep the preflop deck small enough for the brute force.
constexpr const char* kManyDead = "2c2d2h2s3c3d3h3s4c4d4h4s5c5d5h5s6c6d6h6s7c7d7h";

TEST(MultiwayEquity, ThreePlayersMatchTheBruteForceOnEveryStreet) {
  const std::vector<std::string> players = {"AhKh,QQ", "JTs,9c9d", "AcQd,KdQs,8s8h"};
  ExpectMatchesBruteForce(players, "Th9h2c", "");
  ExpectMatchesBruteForce(players, "Th9h2c4h", "");
  ExpectMatchesBruteForce(players, "Th9h2c4h8c", "");
  ExpectMatchesBruteForce({"AhKh,QQ", "JTs,9c9d", "AcQd,KdQs,8s8h"}, "", kManyDead);
}

void ExpectRangesMatchBruteForce(const std::vector<WeightedHoldingSet>& ranges, const std::string& board,
                                 const std::string& dead) {
  const MultiwayResult result = MultiwayExact(ranges, Cards(board), Cards(dead));
  ASSERT_TRUE(result.ok()) << result.error;
  const BruteShares brute = MultiwayBruteForce(ranges, Cards(board), Cards(dead));
  for (std::size_t p = 0; p < ranges.size(); ++p) {
    EXPECT_NEAR(result.players[p].equity, brute.equity[p], 1e-9) << "player " << p << " on '" << board << "'";
    EXPECT_NEAR(result.players[p].win, brute.win[p], 1e-9) << "player " << p;
    EXPECT_NEAR(result.players[p].tie, brute.tie[p], 1e-9) << "player " << p;
  }
}

// `size` holdings of the cards not in `out`, drawn at random, at random weights.
WeightedHoldingSet RandomWeightedRange(std::mt19937& random, int size, const std::string& out) {
  std::vector<int> numbers;
  for (int number = 0; number < kHoldingCount; ++number) {
    const auto cards = CardsOfHolding(number);
    const auto taken = Cards(out);
    if (std::find(taken.begin(), taken.end(), cards[0]) == taken.end() &&
        std::find(taken.begin(), taken.end(), cards[1]) == taken.end())
      numbers.push_back(number);
  }
  std::shuffle(numbers.begin(), numbers.end(), random);
  WeightedHoldingSet range;
  for (int i = 0; i < size; ++i) range.SetWeight(numbers[static_cast<std::size_t>(i)], 1 + random() % 1000);
  return range;
}

TEST(MultiwayEquity, ThreeRandomWeightedRangesWithDeadCardsMatchTheBruteForceOnEveryStreet) {
  std::mt19937 random(2323);
  const std::vector<std::pair<std::string, std::string>> streets = {
      {"", kManyDead}, {"Kd9s4h", "2c7h"}, {"Kd9s4hJc", "Qh"}, {"Kd9s4hJc4d", "2s3s"}};
  for (const auto& [board, dead] : streets) {
    // Every board but the river's walked step by step: too slow under the sanitizer, which checks the
    // river.
    if (kUnderSanitizer && board.size() < 10) continue;
    // Preflop and on the flop the brute force walks many boards: fewer holdings there.
    const int wide = board.empty() ? 4 : board.size() == 6 ? 10 : 60;
    const int narrow = board.empty() ? 3 : 6;
    std::vector<WeightedHoldingSet> ranges = {RandomWeightedRange(random, wide, board + dead),
                                              RandomWeightedRange(random, narrow, board + dead),
                                              RandomWeightedRange(random, wide, board + dead)};
    SCOPED_TRACE(board);
    ExpectRangesMatchBruteForce(ranges, board, dead);
    // The same set for two players: they share their counts.
    ranges[1] = ranges[0];
    ExpectRangesMatchBruteForce(ranges, board, dead);
  }
}

TEST(MultiwayEquity, BoardsCountedOncePerSuitSymmetricClassGiveThePlainEnumerationsValues) {
  // Every suit of ranks 2 to 9 dead: the boards of the 20 cards left are few enough for the brute force.
  if (kUnderSanitizer) GTEST_SKIP() << "thousands of boards walked step by step";
  const std::string dead = "2c2d2h2s3c3d3h3s4c4d4h4s5c5d5h5s6c6d6h6s7c7d7h7s8c8d8h8s9c9d9h9s";
  const std::vector<std::vector<std::string>> cases = {
      {"AA,KQs", "KK,QQ", "AKo"},         // every suit permutation
      {"AhAd,KQs", "KK", "QQ,JTs"},       // hearts and diamonds swap, spades and clubs swap
      {"AA,KQs", "KK,QQ", "AKo", "JJ"}};  // four players, walked
  for (const auto& texts : cases) {
    const auto ranges = MultiwayRanges(texts);
    ASSERT_GT(SuitSymmetries(ranges, 0, 0).size(), 1u);
    SCOPED_TRACE(texts[0]);
    ExpectRangesMatchBruteForce(ranges, "", dead);
    // A weight that breaks the symmetry.
    auto broken = ranges;
    broken[1].SetWeight(Cards("KhKs")[0], Cards("KhKs")[1], 300);
    ExpectRangesMatchBruteForce(broken, "", dead);
  }
}

TEST(MultiwayEquity, FourPlayersMatchTheBruteForceOnEveryStreet) {
  const std::vector<std::string> players = {"AsAd", "KK", "QhJh,Tc9c", "8d8c,AcKc"};
  ExpectMatchesBruteForce(players, "2h7s9d", "");
  ExpectMatchesBruteForce(players, "2h7s9d3c", "");
  ExpectMatchesBruteForce(players, "2h7s9d3cJd", "5s");
  ExpectMatchesBruteForce(players, "", kManyDead);
}

TEST(MultiwayEquity, AWideRangeAnywhereAmongThePlayersMatchesTheBruteForce) {
  // The widest player (78 holdings) has its holdings counted from running totals rather than walked; it is
  // placed first, in the middle and last.
  ExpectMatchesBruteForce({"22+", "AhKh,QQ", "AcQd,KdQs,8s8h"}, "Th9h2c4h", "");
  ExpectMatchesBruteForce({"AhKh,QQ", "22+", "AcQd,KdQs,8s8h"}, "Th9h2c4h8c", "");
  ExpectMatchesBruteForce({"AhKh,QQ", "JTs,9c9d", "AcQd,KdQs,8s8h", "22+,AK"}, "Th9h2c4h8c", "");
  ExpectMatchesBruteForce({"Js9s", "22+,KQs,JTs", "AsKd"}, "",
                          "2c2d2h2s3c3d3h3s4c4d4h4s5c5d5h5s6c6d6h6s7c7d");
}

TEST(MultiwayEquity, WeightedPlayersMatchTheBruteForceOnEveryStreet) {
  // Each deal counts the product of its holdings' weights; a player at one weight throughout, players with
  // mixed weights, and a wide player counted from running totals.
  const std::vector<std::string> players = {"AhKh:0.5,QQ", "JTs:0.25,9c9d:0.8", "AcQd,KdQs:0.125,8s8h:0.6"};
  ExpectMatchesBruteForce(players, "Th9h2c", "");
  ExpectMatchesBruteForce(players, "Th9h2c4h", "");
  ExpectMatchesBruteForce(players, "Th9h2c4h8c", "");
  ExpectMatchesBruteForce(players, "", kManyDead);
  ExpectMatchesBruteForce({"22+:0.3,AA,KK:0.9", "AhKh,QQ:0.4", "AcQd,KdQs:0.75,8s8h"}, "Th9h2c4h", "");
  ExpectMatchesBruteForce({"AhKh:0.2,QQ", "[40]22+[/40],AK:0.65,KQs", "AcQd,KdQs,8s8h:0.1"}, "Th9h2c4h8c",
                          "");
  ExpectMatchesBruteForce({"Js9s:0.5", "22+:0.7,KQs:0.2,JTs", "AsKd"}, "", kManyDead);
}

TEST(MultiwayEquity, OneWeightForEveryHoldingOfAPlayerChangesNothing) {
  const MultiwayResult whole =
      MultiwayExact(MultiwayRanges({"QQ+,AK", "random", "JJ-99,AQs"}), Cards("9h7c2s"));
  const MultiwayResult scaled =
      MultiwayExact(MultiwayRanges({"[25]QQ+,AK[/25]", "random:0.5", "JJ-99,AQs"}), Cards("9h7c2s"));
  ASSERT_TRUE(whole.ok() && scaled.ok()) << whole.error << scaled.error;
  for (std::size_t p = 0; p < 3; ++p) {
    EXPECT_NEAR(scaled.players[p].equity, whole.players[p].equity, 1e-9);
    EXPECT_NEAR(scaled.players[p].win, whole.players[p].win, 1e-9);
  }
  EXPECT_EQ(scaled.deals, whole.deals);
}

TEST(MultiwayEquity, HeadsUpWithWeightsEqualsTheWeightedRangeEquity) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"AA:0.5,KQs,T9s:0.25", "JJ+:0.75,AK,76s:0.1"}, {"random:0.3,AA", "QQ:0.5"}};
  for (const std::string board : {"Ts8h3s", "Ts8h3s4c", "Ts8h3s4cKd"}) {
    for (const auto& [mine, theirs] : cases) {
      const MultiwayResult multi = MultiwayExact(MultiwayRanges({mine, theirs}), Cards(board));
      const RangeEquityResult heads =
          StandardRangeEquity(MultiwayRange(mine), MultiwayRange(theirs), quillet::testing::Board(board),
                              static_cast<Street>(board.size() / 2 - 2));
      ASSERT_TRUE(multi.ok() && heads.ok()) << multi.error << heads.error;
      EXPECT_NEAR(multi.players[0].equity, heads.MyEquity(), 1e-9) << mine << " v " << theirs << " " << board;
      EXPECT_NEAR(multi.players[0].win, heads.tally.WinPercent(), 1e-9);
      EXPECT_NEAR(multi.players[0].tie, heads.tally.TiePercent(), 1e-9);
    }
  }
}

TEST(MultiwayEquity, MonteCarloDrawsWeightedHoldingsInProportionToTheirWeights) {
  // A player at mixed weights beside a player who may hold anything at one weight.
  const auto ranges = MultiwayRanges({"AA:0.2,KK,72o:0.05", "random:0.5", "QJs:0.9,T9s:0.1,55"});
  const MultiwayResult exact = MultiwayExact(ranges, Cards("Tc8h3s2d"));
  const MultiwayResult sampled = MultiwaySampled(ranges, "Tc8h3s2d", 0.25, 5);
  ASSERT_TRUE(exact.ok() && sampled.ok()) << exact.error << sampled.error;
  // Drawn as if whole, AA and 72o would be far more common and player 1's equity far from the exact one.
  const MultiwayResult unweighted =
      MultiwayExact(MultiwayRanges({"AA,KK,72o", "random", "QJs,T9s,55"}), Cards("Tc8h3s2d"));
  EXPECT_GT(std::abs(unweighted.players[0].equity - exact.players[0].equity), 8 * sampled.standardError);
  for (std::size_t p = 0; p < 3; ++p) {
    EXPECT_NEAR(sampled.players[p].equity, exact.players[p].equity, 4 * sampled.standardError) << p;
  }
}

TEST(MultiwayEquity, SamplingGivesUpWhereTheWeightsMakeEveryDealAllButImpossible) {
  // Five players who nearly always hold AhAd: a deal needs four of them on their one-in-a-thousand pair, so
  // sampling would wait for ever. A round gives up, and the run ends with its reason instead of spinning.
  if (kUnderSanitizer) GTEST_SKIP() << "a whole round of draws is too slow under the sanitizer";
  const auto ranges = MultiwayRanges(
      {"AhAd, KsKc:0.001", "AhAd, QsQc:0.001", "AhAd, JsJc:0.001", "AhAd, TsTc:0.001", "AhAd, 9s9c:0.001"});
  const MultiwayResult sampled = MultiwaySampled(ranges, "2d3d4h", 0.1, 7);
  EXPECT_FALSE(sampled.ok());
  EXPECT_EQ(sampled.error,
            "sampling found no deal: the players' holdings all but always share a card (an exact count can "
            "answer)");
  // A deal exists, and the exact count finds every one.
  const MultiwayResult exact = MultiwayExact(ranges, Cards("2d3d4h"));
  EXPECT_TRUE(exact.ok()) << exact.error;
}

TEST(MultiwayEquity, EqualRangesGetEqualEquity) {
  const MultiwayResult result =
      MultiwayExact(MultiwayRanges({"QQ+,AK", "QQ+,AK", "QQ+,AK"}), Cards("7c5d2h"));
  ASSERT_TRUE(result.ok()) << result.error;
  EXPECT_NEAR(result.players[0].equity, 100.0 / 3, 1e-9);
  EXPECT_NEAR(result.players[1].equity, result.players[0].equity, 1e-9);
  EXPECT_NEAR(result.players[2].equity, result.players[0].equity, 1e-9);
}

TEST(MultiwayEquity, APermutationOfPlayersPermutesTheResults) {
  const std::vector<std::string> texts = {"AhKh", "TT,99", "QJs", "7c6c,5d5s"};
  const MultiwayResult forward = MultiwayExact(MultiwayRanges(texts), Cards("Ts8h6d"));
  const std::vector<std::size_t> order = {2, 0, 3, 1};
  std::vector<std::string> shuffled;
  for (std::size_t i : order) shuffled.push_back(texts[i]);
  const MultiwayResult permuted = MultiwayExact(MultiwayRanges(shuffled), Cards("Ts8h6d"));
  ASSERT_TRUE(forward.ok() && permuted.ok());
  for (std::size_t i = 0; i < order.size(); ++i) {
    EXPECT_NEAR(permuted.players[i].equity, forward.players[order[i]].equity, 1e-9);
    EXPECT_NEAR(permuted.players[i].win, forward.players[order[i]].win, 1e-9);
    EXPECT_NEAR(permuted.players[i].tie, forward.players[order[i]].tie, 1e-9);
  }
}

TEST(MultiwayEquity, AHoldingThatSharesACardWithAnotherPlayerIsNotDealt) {
  // Player 1 holds AhAd: against "AA" player 2 can hold only AcAs, so the two have equal equity; a card
  // removal that failed would give player 2 the holdings with Ah or Ad too.
  const MultiwayResult result = MultiwayExact(MultiwayRanges({"AhAd", "AA", "7c2d"}), Cards("Kc8s3h"));
  ASSERT_TRUE(result.ok()) << result.error;
  EXPECT_EQ(result.players[1].liveHoldings, 6);
  EXPECT_NEAR(result.players[0].equity, result.players[1].equity, 1e-9);
  EXPECT_NEAR(result.players[0].tie, result.players[1].tie, 1e-9);
  // Only AcAs is dealt: 990 boards less the boards that hold 7c or 2d... every deal has both aces.
  const MultiwayResult dead =
      MultiwayExact(MultiwayRanges({"AhAd", "AA", "7c2d"}), Cards("Kc8s3h"), Cards("Ac"));
  EXPECT_FALSE(dead.ok());
  EXPECT_NE(dead.error.find("no deal"), std::string::npos) << dead.error;
}

TEST(MultiwayEquity, ThreePlayersWithTheSameHandOnTheBoardShareThePotInThree) {
  // The board is a royal flush: every deal is a three-way tie.
  const MultiwayResult result = MultiwayExact(MultiwayRanges({"2c3d", "4c5d", "6c7d"}), Cards("AsKsQsJsTs"));
  ASSERT_TRUE(result.ok()) << result.error;
  for (const MultiwayPlayerResult& player : result.players) {
    EXPECT_NEAR(player.equity, 100.0 / 3, 1e-9);
    EXPECT_EQ(player.win, 0.0);
    EXPECT_EQ(player.tie, 100.0);
  }
  // Two of three tie on a board of their straight, the third is beaten: 50 / 50 / 0.
  const MultiwayResult two = MultiwayExact(MultiwayRanges({"Kh2c", "Kd3c", "Ah4c"}), Cards("QsJdTh9c2h"));
  ASSERT_TRUE(two.ok());
  EXPECT_NEAR(two.players[0].equity, 50.0, 1e-9);
  EXPECT_NEAR(two.players[1].equity, 50.0, 1e-9);
  EXPECT_NEAR(two.players[2].equity, 0.0, 1e-9);
}

TEST(MultiwayEquity, ExactResultsDoNotDependOnTheThreadCount) {
  const auto ranges = MultiwayRanges({"QQ+,AK", "JJ-99,AQs", "KQs,KJs,76s"});
  const MultiwayResult one = MultiwayExact(ranges, Cards("9h7c2s"), {}, 1);
  const MultiwayResult three = MultiwayExact(ranges, Cards("9h7c2s"), {}, 3);
  for (std::size_t p = 0; p < 3; ++p) {
    EXPECT_EQ(one.players[p].equity, three.players[p].equity);
    EXPECT_EQ(one.players[p].win, three.players[p].win);
  }
  EXPECT_EQ(one.deals, three.deals);
}

TEST(MultiwayEquity, MonteCarloLiesWithinFourStandardErrorsOfTheExactValue) {
  const auto ranges = MultiwayRanges({"TT+,AQ+", "KhQh,JJ", "99-66,A5s"});
  const MultiwayResult exact = MultiwayExact(ranges, Cards("Ts8h3s"));
  const MultiwayResult sampled = MultiwaySampled(ranges, "Ts8h3s", 0.3, 7);
  ASSERT_TRUE(exact.ok() && sampled.ok());
  EXPECT_FALSE(sampled.exact);
  EXPECT_GT(sampled.standardError, 0.0);
  EXPECT_LE(sampled.standardError, 0.3);
  for (std::size_t p = 0; p < 3; ++p) {
    EXPECT_NEAR(sampled.players[p].equity, exact.players[p].equity, 4 * sampled.standardError) << p;
  }
  // The same seed and thread count repeat the same run.
  const MultiwayResult again = MultiwaySampled(ranges, "Ts8h3s", 0.3, 7);
  EXPECT_EQ(again.players[0].equity, sampled.players[0].equity);
  EXPECT_EQ(again.deals, sampled.deals);
}

TEST(MultiwayEquity, MonteCarloWithPlayersWhoMayHoldAnythingLiesWithinFourStandardErrors) {
  // "random" players are dealt straight from the cards left; the deal must stay fair beside a range.
  const auto ranges = MultiwayRanges({"AhAd", "random", "KK,QJs", "random"});
  const MultiwayResult exact = MultiwayExact(ranges, Cards("Tc8h3s2d"));
  const MultiwayResult sampled = MultiwaySampled(ranges, "Tc8h3s2d", 0.25, 11);
  ASSERT_TRUE(exact.ok() && sampled.ok()) << exact.error << sampled.error;
  for (std::size_t p = 0; p < 4; ++p) {
    EXPECT_NEAR(sampled.players[p].equity, exact.players[p].equity, 4 * sampled.standardError) << p;
  }
}

// Monte Carlo on `threads` threads until the largest standard error is at most `targetError` points.
MultiwayResult MultiwaySampledOn(const std::vector<WeightedHoldingSet>& ranges, const std::string& board,
                                 double targetError, uint64_t seed, int threads) {
  MultiwayOptions options;
  options.method = MultiwayMethod::MonteCarlo;
  options.targetError = targetError;
  options.seed = seed;
  options.threads = threads;
  options.seconds = 0;
  return MultiwayEquity(ranges, Cards(board), {}, options);
}

void ExpectSampledWithinFourStandardErrors(const std::vector<std::string>& texts, const std::string& board,
                                           double targetError, uint64_t seed) {
  // Under the sanitizer a target four times looser: a sixteenth of the deals, still held to four errors.
  if (kUnderSanitizer) targetError *= 4;
  const auto ranges = MultiwayRanges(texts);
  const MultiwayResult exact = MultiwayExact(ranges, Cards(board));
  const MultiwayResult sampled = MultiwaySampled(ranges, board, targetError, seed);
  ASSERT_TRUE(exact.ok() && sampled.ok()) << exact.error << sampled.error;
  EXPECT_FALSE(sampled.exact);
  EXPECT_GT(sampled.standardError, 0.0);
  EXPECT_LE(sampled.standardError, targetError);
  for (std::size_t p = 0; p < texts.size(); ++p) {
    EXPECT_NEAR(sampled.players[p].equity, exact.players[p].equity, 4 * sampled.standardError)
        << texts[p] << " on '" << board << "'";
  }
}

TEST(MultiwayEquity, MonteCarloWithTwoPlayersOfOneRangeLiesWithinFourStandardErrors) {
  ExpectSampledWithinFourStandardErrors({"QQ+,AK,T9s", "QQ+,AK,T9s", "random:0.4,KQs"}, "Ts8h3s", 0.2, 3);
}

TEST(MultiwayEquity, MonteCarloWithRangesThatShareNoHoldingLiesWithinFourStandardErrors) {
  // No holding is in two ranges: every player keeps its own share.
  ExpectSampledWithinFourStandardErrors({"AA,KQs", "KK:0.3,T9s", "QQ,JJ:0.6,76s"}, "Td8h3s", 0.2, 4);
}

TEST(MultiwayEquity, MonteCarloWithEightAndTenPlayersLiesWithinFourStandardErrors) {
  // Each player's range shares a holding with the next one's.
  ExpectSampledWithinFourStandardErrors({"AhAd,KhKd", "KhKd,QhQd:0.5", "QhQd,JhJd", "JhJd,ThTd",
                                         "ThTd,9h9d:0.3", "9h9d,8h8d", "8h8d,7h7d", "7h7d,AhAd,6c6s"},
                                        "2c3s4cJs", 0.25, 5);
  ExpectSampledWithinFourStandardErrors(
      {"AhAd,KhKd", "KhKd,QhQd", "QhQd,JhJd:0.5", "JhJd,ThTd", "ThTd,9h9d", "9h9d,8h8d", "8h8d,7h7d:0.2",
       "7h7d,6h6d", "6h6d,5h5d", "5h5d,AhAd,4c4s"},
      "2c3s7c", 0.25, 6);
}

TEST(MultiwayEquity, MonteCarloGivesPlayersOfOneRangeEqualResults) {
  // Players 1 and 3 hold one range, player 4 the same at half the weights (the same range in the same
  // proportion); player 2 differs.
  const auto ranges =
      MultiwayRanges({"JJ+,AKs,KQ:0.5", "random", "JJ+,AKs,KQ:0.5", "JJ+:0.5,AKs:0.5,KQ:0.25"});
  const MultiwayResult sampled = MultiwaySampled(ranges, "9c7d2h", 0.3, 9);
  ASSERT_TRUE(sampled.ok()) << sampled.error;
  for (const std::size_t p : {2u, 3u}) {
    EXPECT_EQ(sampled.players[p].equity, sampled.players[0].equity) << p;
    EXPECT_EQ(sampled.players[p].win, sampled.players[0].win) << p;
    EXPECT_EQ(sampled.players[p].tie, sampled.players[0].tie) << p;
  }
  EXPECT_NE(sampled.players[1].equity, sampled.players[0].equity);
}

TEST(MultiwayEquity, MonteCarloGivesPlayersWhoAllHoldOneRangeTheirEqualShareWithNoError) {
  for (const std::string text : {"random", "random:0.5,AA", "88+,A9s+,KTs+"}) {
    const MultiwayResult sampled =
        MultiwaySampled(std::vector<WeightedHoldingSet>(6, MultiwayRange(text)), "", 0.01, 2);
    ASSERT_TRUE(sampled.ok()) << sampled.error;
    EXPECT_LT(sampled.standardError, 1e-6) << text;
    double win = 0;
    double tie = 0;
    for (const MultiwayPlayerResult& player : sampled.players) {
      EXPECT_NEAR(player.equity, 100.0 / 6, 1e-9) << text;
      EXPECT_EQ(player.win, sampled.players[0].win) << text;
      EXPECT_EQ(player.tie, sampled.players[0].tie) << text;
      win += player.win;
      tie += player.tie;
    }
    // Win and tie are still estimates: every deal has one winner or a tie among two or more.
    EXPECT_GT(win, 80.0) << text;
    EXPECT_GT(tie, 0.0) << text;
    EXPECT_NEAR(win + tie / 2, 100.0, 50.0) << text;
  }
}

TEST(MultiwayEquity, MonteCarloStandardErrorsMatchTheSpreadOfManyRuns) {
  // A hundred seeds of one small case, each stopped after its first round. The reported standard error is
  // the largest of the players': for the player it belongs to, the spread of the estimates over the seeds
  // (their root mean square distance from the exact value) matches the mean reported error, and no
  // player's spread is larger. A standard error that left out part of the spread, or counted it twice,
  // would be off by a factor near 1.4. The bounds are loose; the runs are the same on every machine.
  if (kUnderSanitizer) GTEST_SKIP() << "a hundred runs are too slow under the sanitizer";
  const std::vector<std::vector<std::string>> cases = {
      {"AA,KK:0.5,AKs", "QQ+,AJs:0.4,KQ", "JJ-99,AK:0.7"},  // ranges that share holdings, weighted
      {"AA", "KK", "QQ"},                                   // ranges that share none
  };
  constexpr int kSeeds = 100;
  for (const auto& texts : cases) {
    const auto ranges = MultiwayRanges(texts);
    const MultiwayResult exact = MultiwayExact(ranges, Cards("Ts8h3s"));
    ASSERT_TRUE(exact.ok()) << exact.error;
    std::vector<double> squares(texts.size());
    double reported = 0;
    int within = 0;
    for (uint64_t seed = 1; seed <= kSeeds; ++seed) {
      const MultiwayResult sampled = MultiwaySampledOn(ranges, "Ts8h3s", 5.0, seed, 1);
      ASSERT_TRUE(sampled.ok()) << sampled.error;
      reported += sampled.standardError / kSeeds;
      for (std::size_t p = 0; p < texts.size(); ++p) {
        const double distance = sampled.players[p].equity - exact.players[p].equity;
        squares[p] += distance * distance / kSeeds;
        within += std::abs(distance) <= 2 * sampled.standardError ? 1 : 0;
      }
    }
    const double spread = std::sqrt(*std::max_element(squares.begin(), squares.end()));
    EXPECT_GT(spread / reported, 0.75) << texts[0] << ": spread " << spread << ", reported " << reported;
    EXPECT_LT(spread / reported, 1.3) << texts[0] << ": spread " << spread << ", reported " << reported;
    // Within two standard errors about 95 times in 100 (more for the players whose error is smaller).
    EXPECT_GE(within, kSeeds * static_cast<int>(texts.size()) * 88 / 100) << texts[0];
  }
}

TEST(MultiwayEquity, MonteCarloRepeatsItselfForOneSeedAndThreadCount) {
  const auto ranges = MultiwayRanges({"AA,KK:0.5,AKs", "random:0.3,QQ+", "JJ-99,AK:0.7", "random"});
  for (const int threads : {1, 3}) {
    const MultiwayResult first = MultiwaySampledOn(ranges, "Ts8h3s", 0.3, 21, threads);
    const MultiwayResult again = MultiwaySampledOn(ranges, "Ts8h3s", 0.3, 21, threads);
    ASSERT_TRUE(first.ok() && again.ok());
    EXPECT_EQ(again.deals, first.deals);
    EXPECT_EQ(again.standardError, first.standardError);
    for (std::size_t p = 0; p < 4; ++p) {
      EXPECT_EQ(again.players[p].equity, first.players[p].equity);
      EXPECT_EQ(again.players[p].win, first.players[p].win);
      EXPECT_EQ(again.players[p].tie, first.players[p].tie);
    }
    // Another seed draws other deals.
    const MultiwayResult other = MultiwaySampledOn(ranges, "Ts8h3s", 0.3, 22, threads);
    EXPECT_NE(other.players[0].equity, first.players[0].equity);
  }
}

TEST(MultiwayEquity, HeadsUpEqualsTheRangeEquity) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"AA,KQs,T9s", "JJ+,AK,76s"}, {"random", "QQ"}, {"AhKh,22", "TT-88"}};
  for (const std::string board : {"Ts8h3s", "Ts8h3s4c", "Ts8h3s4cKd"}) {
    for (const auto& [mine, theirs] : cases) {
      const MultiwayResult multi = MultiwayExact(MultiwayRanges({mine, theirs}), Cards(board));
      const RangeEquityResult heads =
          StandardRangeEquity(ParseRangeNotation(mine).holdings, ParseRangeNotation(theirs).holdings,
                              quillet::testing::Board(board), static_cast<Street>(board.size() / 2 - 2));
      ASSERT_TRUE(multi.ok() && heads.ok()) << multi.error << heads.error;
      EXPECT_DOUBLE_EQ(multi.players[0].equity, heads.MyEquity()) << mine << " v " << theirs << " " << board;
      EXPECT_DOUBLE_EQ(multi.players[0].win, heads.tally.WinPercent());
      EXPECT_DOUBLE_EQ(multi.players[0].tie, heads.tally.TiePercent());
      EXPECT_EQ(multi.deals, heads.tally.Showdowns());
    }
  }
}

TEST(MultiwayEquity, SixHandsPreflopGiveTheKnownExactValues) {
  if (kUnderSanitizer) GTEST_SKIP() << "1.7 million boards: too slow under the sanitizer";
  const MultiwayResult result =
      MultiwayExact(MultiwayRanges({"AhAd", "KsKc", "QsQc", "JhTh", "9s9c", "8d7d"}), {});
  ASSERT_TRUE(result.ok()) << result.error;
  const std::vector<double> expected = {34.784810, 15.964066, 11.933112, 12.613955, 9.157462, 15.546594};
  for (std::size_t p = 0; p < expected.size(); ++p) EXPECT_NEAR(result.players[p].equity, expected[p], 1e-6);
}

TEST(MultiwayEquity, RefusesTooFewOrTooManyPlayersAndBadBoards) {
  EXPECT_FALSE(MultiwayExact(MultiwayRanges({"AA"}), {}).ok());
  EXPECT_FALSE(MultiwayExact(std::vector<WeightedHoldingSet>(11, MultiwayRange("random")), {}).ok());
  EXPECT_FALSE(MultiwayExact(MultiwayRanges({"AA", "KK"}), Cards("2c3c")).ok());
  EXPECT_FALSE(MultiwayExact(MultiwayRanges({"AA", "KK"}), Cards("2c3c4c"), Cards("2c")).ok());
  // A player whose every holding is on the board.
  EXPECT_FALSE(MultiwayExact(MultiwayRanges({"AhAd", "KK"}), Cards("Ah7c2d")).ok());
}

TEST(MultiwayEquity, TheAutomaticChoiceCountsSmallCasesExactlyAndSamplesLargeOnes) {
  MultiwayOptions options;
  options.threads = 2;
  options.targetError = 1.0;
  const MultiwayResult small =
      MultiwayEquity(MultiwayRanges({"AA", "KK", "QQ"}), Cards("2c3d9h"), {}, options);
  EXPECT_TRUE(small.exact);
  const MultiwayResult large =
      MultiwayEquity(MultiwayRanges({"random", "random", "random", "random"}), {}, {}, options);
  EXPECT_FALSE(large.exact);
  EXPECT_GT(large.costEstimate, kMultiwayExactBudget);
  EXPECT_LE(large.standardError, 1.0);
}

TEST(MultiwayEquity, ProgressReportsTheDealsAndTheStandardError) {
  std::vector<std::pair<uint64_t, double>> reports;
  MultiwayCallbacks callbacks;
  callbacks.progress = [&](uint64_t deals, double error) { reports.emplace_back(deals, error); };
  MultiwayOptions options;
  options.method = MultiwayMethod::MonteCarlo;
  options.targetError = 0.5;
  options.threads = 2;
  const MultiwayResult sampled =
      MultiwayEquity(MultiwayRanges({"AA", "KK", "random"}), Cards("2c7d9h"), {}, options, callbacks);
  ASSERT_FALSE(reports.empty());
  EXPECT_EQ(reports.back().first, sampled.deals);
  EXPECT_EQ(reports.back().second, sampled.standardError);
  for (std::size_t i = 1; i < reports.size(); ++i) EXPECT_GT(reports[i].first, reports[i - 1].first);
  reports.clear();
  const MultiwayResult exact = MultiwayExact(MultiwayRanges({"AA", "KK", "random"}), Cards("2c7d9h"));
  MultiwayOptions exactOptions;
  exactOptions.method = MultiwayMethod::Exact;
  const MultiwayResult counted =
      MultiwayEquity(MultiwayRanges({"AA", "KK", "random"}), Cards("2c7d9h"), {}, exactOptions, callbacks);
  ASSERT_FALSE(reports.empty());
  EXPECT_EQ(reports.back().first, exact.deals);
  EXPECT_EQ(reports.back().second, 0.0);
  EXPECT_EQ(counted.deals, exact.deals);
}

TEST(MultiwayEquity, CancelStopsTheCount) {
  MultiwayCallbacks callbacks;
  callbacks.cancel = [] { return true; };
  MultiwayOptions options;
  options.method = MultiwayMethod::MonteCarlo;
  options.targetError = 0.0001;
  // Not all of one range: three players of one range have equal equity with no error at all, and the run
  // would end after its first round.
  const MultiwayResult result =
      MultiwayEquity(MultiwayRanges({"random", "random", "QQ+,AK"}), {}, {}, options, callbacks);
  EXPECT_TRUE(result.cancelled);
}

}  // namespace
}  // namespace quillet
