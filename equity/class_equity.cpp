#include "equity/class_equity.h"

#include <vector>

#include "cards/holding.h"
#include "equity/class_board_counter.h"  // ClassOfRanks
#include "equity/engine.h"
#include "equity/enumeration.h"
#include "equity/preflop_classes.h"
#include "equity/preflop_equity.h"
#include "equity/range_equity.h"
#include "equity/standard_equity.h"
#include "range/holding_set.h"
#include "range/weighted_holding_set.h"

namespace quillet {
namespace {

// The live holdings (flag set after the dead ones are cleared) with their classes.
struct LiveHoldings {
  std::vector<HandCombo> combos;
  std::vector<int> classes;
};

LiveHoldings LiveOf(std::span<const HandCombo> range, const HandCards& hand, const BoardCards& board,
                    Street street) {
  std::vector<HandCombo> listed(range.begin(), range.end());
  RemoveDeadCombos(listed, hand, board, street);
  LiveHoldings live;
  live.combos.reserve(listed.size());
  live.classes.reserve(listed.size());
  for (const HandCombo& combo : listed) {
    if (!combo.flag || !IsHolding(combo.card1(), combo.card2())) continue;
    const int index = ClassOfCombo(combo);
    if (index < 0) continue;
    live.combos.push_back(combo);
    live.classes.push_back(index);
  }
  return live;
}

// Per class its tally and its equity by the standard rules' formula.
ClassEquities FromClassTallies(const std::array<int32_t, kClassCount>& holdings,
                               const std::array<ShowdownTally, kClassCount>& sums) {
  ClassEquities classes;
  for (int i = 0; i < kClassCount; ++i) {
    if (holdings[i] == 0 || sums[i].Showdowns() == 0) continue;
    classes[i] = ClassEquity{EquityFromTally(sums[i]).my, holdings[i], sums[i]};
  }
  return classes;
}

// Per class the sum of its holdings' tallies (all at one scale).
ClassEquities FromTallies(const LiveHoldings& live, std::span<const ShowdownTally> tallies) {
  std::array<ShowdownTally, kClassCount> sums{};
  std::array<int32_t, kClassCount> holdings{};
  if (!tallies.empty()) {
    for (ShowdownTally& sum : sums) sum.scale = tallies.front().scale;
  }
  for (std::size_t k = 0; k < live.combos.size(); ++k) {
    sums[live.classes[k]] += tallies[k];
    ++holdings[live.classes[k]];
  }
  return FromClassTallies(holdings, sums);
}

// Preflop under the program's own rules: per class the mean of the tables' values of its holdings.
std::optional<ClassEquities> QuilletPreflop(const HandCards& hand, const LiveHoldings& live) {
  if (!ProgramTables().ok()) return std::nullopt;
  std::array<std::vector<HandCombo>, kClassCount> byClass;
  for (std::size_t k = 0; k < live.combos.size(); ++k) byClass[live.classes[k]].push_back(live.combos[k]);
  ClassEquities classes;
  for (int i = 0; i < kClassCount; ++i) {
    if (byClass[i].empty()) continue;
    // A matchup missing from the tables is left out, as the read-outs leave it out (their message says so).
    const EquityResult values =
        PreflopEquity(hand, byClass[i], static_cast<int>(byClass[i].size()), MessageSink{});
    if (values.my < 0.0) continue;
    classes[i] = ClassEquity{values.my, static_cast<int32_t>(byClass[i].size()), std::nullopt};
  }
  return classes;
}

// The flop and the turn under the program's own rules: ties are left out and the share is rounded, as the
// read-outs have it.
// The live holdings of each class on the flop or the turn, read from the list as it stands (no copy: the
// counts by class leave the dead holdings out themselves).
std::array<int32_t, kClassCount> LiveHoldingsPerClass(const CardInputs& cards,
                                                      std::span<const HandCombo> range) {
  const uint64_t dead = KnownCardsWithHand(cards.hand, cards.board, cards.street).bits;
  std::array<int32_t, kClassCount> holdings{};
  for (const HandCombo& combo : range) {
    if (!IsLiveHolding(combo, dead)) continue;
    const int index = ClassOfCombo(combo);
    if (index >= 0) ++holdings[index];
  }
  return holdings;
}

ClassEquities QuilletOnBoard(const CardInputs& cards, std::span<const HandCombo> range) {
  std::array<ShowdownCounts, kClassCount> sums{};
  CountShowdownsByClass(cards.hand, cards.board, cards.street, range, sums);
  const std::array<int32_t, kClassCount> holdings = LiveHoldingsPerClass(cards, range);
  ClassEquities classes;
  for (int i = 0; i < kClassCount; ++i) {
    if (holdings[i] == 0 || sums[i].total == 0) continue;
    const ShowdownTally tally{static_cast<uint64_t>(sums[i].myWins), static_cast<uint64_t>(sums[i].ties),
                              static_cast<uint64_t>(sums[i].oppWins), static_cast<uint64_t>(sums[i].scale)};
    classes[i] = ClassEquity{EquityFromCounts(sums[i]).my, holdings[i], tally};
  }
  return classes;
}

// The holdings of a set, each once in holding-number order, flags set, whole.
std::vector<HandCombo> CombosOf(const HoldingSet& holdings) {
  return WeightedCombos(WeightedHoldingSet::FromHoldings(holdings));
}

}  // namespace

std::optional<ClassEquities> ClassEquitiesOfHand(const CardInputs& cards, std::span<const HandCombo> range,
                                                 ShowdownRules rules) {
  if (!cards.ok() || !cards.hasHand()) return std::nullopt;
  const bool enumerates = cards.street == kFlop || cards.street == kTurn;
  if (enumerates && rules == ShowdownRules::Quillet) return QuilletOnBoard(cards, range);
  if (enumerates) {
    // The classes counted by rank pair, in about the time of the whole range's count.
    std::array<ShowdownTally, kClassCount> sums{};
    StandardShowdownTallyByClass(cards.hand, cards.board, cards.street, range, sums);
    return FromClassTallies(LiveHoldingsPerClass(cards, range), sums);
  }
  const LiveHoldings live = LiveOf(range, cards.hand, cards.board, cards.street);
  if (rules == ShowdownRules::Standard) {
    if (cards.street == kNoBoard) {
      if (!ProgramPreflopClassTable().ok()) return QuilletPreflop(cards.hand, live);
      // Each holding's matchup read from the class table, weighed by its weight in thousandths when any
      // live holding has a weight below whole (the whole range's scale).
      const PreflopClassTable& table = *ProgramPreflopClassTable().table;
      const int32_t mine = HoldingNumber(cards.hand.card1(), cards.hand.card2());
      WeightUnits units;
      for (const HandCombo& combo : live.combos) units.Take(combo);
      std::vector<ShowdownTally> tallies(live.combos.size());
      for (std::size_t k = 0; k < live.combos.size(); ++k) {
        const HandCombo& combo = live.combos[k];
        const ShowdownTally one = table.Matchup(mine, HoldingNumber(combo.card1(), combo.card2()));
        const auto w = static_cast<uint64_t>(units.partial ? combo.weight : 1);
        tallies[k] = {one.wins * w, one.ties * w, one.losses * w, units.Scale()};
      }
      return FromTallies(live, tallies);
    }
    std::vector<ShowdownTally> tallies(live.combos.size());
    StandardShowdownTallyByHolding(cards.hand, cards.board, cards.street, live.combos, tallies);
    return FromTallies(live, tallies);
  }
  switch (cards.street) {
    case kNoBoard:
      return QuilletPreflop(cards.hand, live);
    default:  // the river: the read-outs show nothing
      return std::nullopt;
  }
}

RangeEquityResult RangeEquityWithClasses(std::span<const HandCombo> myRange,
                                         std::span<const HandCombo> oppRange, const BoardCards& board,
                                         Street street, std::optional<ClassEquities>& classes) {
  classes.reset();
  // Per holding of the opponent's range my tally against it, in the whole range's one enumeration.
  std::vector<ShowdownTally> against(kHoldingCount);
  RangeEquityResult result = StandardRangeEquityByHolding(myRange, oppRange, board, street, against);
  if (!result.ok()) return result;
  // Preflop the classes need the exact class table even when no pair of holdings meets.
  if (street == kNoBoard && !ProgramPreflopClassTable().ok()) return result;
  const uint64_t known = KnownBoardCards(board, street).bits;
  std::array<int32_t, kClassCount> holdings{};
  for (const HandCombo& combo : oppRange) {
    if (!IsLiveHolding(combo, known)) continue;
    const int index = ClassOfCombo(combo);
    if (index >= 0) ++holdings[index];
  }
  std::array<ShowdownTally, kClassCount> sums{};
  for (int32_t number = 0; number < kHoldingCount; ++number) {
    const std::array<Card, 2> cards = CardsOfHolding(number);
    sums[ClassOfRanks(cards[0].rank, cards[1].rank, cards[0].suit == cards[1].suit)] += against[number];
  }
  classes = FromClassTallies(holdings, sums);
  return result;
}

RangeEquityResult RangeEquityWithClasses(const HoldingSet& myRange, const HoldingSet& oppRange,
                                         const BoardCards& board, Street street,
                                         std::optional<ClassEquities>& classes) {
  return RangeEquityWithClasses(CombosOf(myRange), CombosOf(oppRange), board, street, classes);
}

std::optional<ClassEquities> ClassEquitiesOfRange(std::span<const HandCombo> myRange,
                                                  std::span<const HandCombo> oppRange,
                                                  const BoardCards& board, Street street) {
  std::optional<ClassEquities> classes;
  RangeEquityWithClasses(myRange, oppRange, board, street, classes);
  return classes;
}

std::optional<ClassEquities> ClassEquitiesOfRange(const HoldingSet& myRange, const HoldingSet& oppRange,
                                                  const BoardCards& board, Street street) {
  return ClassEquitiesOfRange(CombosOf(myRange), CombosOf(oppRange), board, street);
}

std::optional<double> HoldingWeightedMean(const ClassEquities& classes) {
  double sum = 0.0;
  int64_t holdings = 0;
  for (const std::optional<ClassEquity>& c : classes) {
    if (!c) continue;
    sum += c->equity * c->holdings;
    holdings += c->holdings;
  }
  if (holdings == 0) return std::nullopt;
  return sum / static_cast<double>(holdings);
}

}  // namespace quillet
