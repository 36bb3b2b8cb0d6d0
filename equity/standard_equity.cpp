#include "equity/standard_equity.h"

#include <algorithm>
#include <array>
#include <bit>
#include <vector>

#include "equity/class_board_counter.h"
#include "equity/enumeration.h"
#include "equity/hand_against_range.h"
#include "equity/hand_evaluator.h"
#include "equity/preflop_classes.h"
#include "equity/rank_pair.h"
#include "equity/standard_evaluator.h"

namespace quillet {
namespace {

// The values without a flush of every pair of hole ranks added to the ranks of a board.
void FillRankValues(const StandardEvaluator& evaluator, RankState boardRanks, HandValue* table) {
  for (int32_t low = 2; low <= 14; ++low) {
    const RankState withLow = evaluator.AddRank(boardRanks, low);
    for (int32_t high = low; high <= 14; ++high) {
      const HandValue value = evaluator.RankValue(evaluator.AddRank(withLow, high));
      table[RankPairIndex(low, high)] = value;
      table[RankPairIndex(high, low)] = value;
    }
  }
}

// The standard rules for the shared counter (hand_against_range.h): a hand's value is the best five of
// its cards, the larger of what its ranks make and the flush (any five or more cards of the suit).
class StandardRules {
 public:
  StandardRules(const BoardCards& board, Street street) : evaluator_(StandardEvaluator::Get()) {
    for (int i = 0; i < BoardCardCount(street); ++i)
      knownRanks_ = evaluator_.AddRank(knownRanks_, board[i].rank);
  }

  void Fill(std::span<const Card> coming, HandValue* table) const {
    RankState boardRanks = knownRanks_;
    for (const Card& card : coming) boardRanks = evaluator_.AddRank(boardRanks, card.rank);
    FillRankValues(evaluator_, boardRanks, table);
  }
  HandValue FlushValue(uint32_t suitRanks, uint32_t /*holeSuitRanks*/) const {
    return evaluator_.FlushValue(suitRanks);
  }

 private:
  const StandardEvaluator& evaluator_;
  RankState knownRanks_ = StandardEvaluator::kNoRanks;
};

bool IsStreetWithBoard(Street street) {
  return street == kFlop || street == kTurn || street == kRiver;
}

}  // namespace

ShowdownTally StandardShowdownTally(const HandCards& myHand, const BoardCards& board, Street street,
                                    std::span<const HandCombo> combos) {
  ShowdownTally tally;
  if (!IsStreetWithBoard(street)) return tally;
  const KnownCards known = KnownCardsWithHand(myHand, board, street);
  if (!known.valid()) return tally;
  const auto take = [&](const HandCombo& combo) { return IsLiveHolding(combo, known.bits); };
  const StandardRules rules(board, street);
  // Every showdown counts its holding's weight in thousandths until the end (WeightUnits).
  WeightUnits units;
  int64_t wins = 0;
  int64_t ties = 0;
  int64_t met = 0;
  if (street == kRiver) {
    CountOneBoard(rules, myHand, board, combos, take, units, wins, ties, met);
  } else {
    const LiveRange live(combos, board, street, take, units);
    if (live.total == 0) return tally;
    RangeBoardCounter<StandardRules> counter(rules, myHand, board, street, live);
    counter.CountAll(known.bits, street, wins, ties, met);
    wins *= live.Unit();
    ties *= live.Unit();
    met *= live.Unit();
  }
  tally.scale = units.Scale();
  tally.wins = static_cast<uint64_t>(units.Out(wins));
  tally.ties = static_cast<uint64_t>(units.Out(ties));
  tally.losses = static_cast<uint64_t>(units.Out(met - wins - ties));
  return tally;
}

void StandardShowdownTallyByHolding(const HandCards& myHand, const BoardCards& board, Street street,
                                    std::span<const HandCombo> combos, std::span<ShowdownTally> tallies) {
  std::fill(tallies.begin(), tallies.end(), ShowdownTally{});
  if (tallies.size() < combos.size()) return;
  if (!IsStreetWithBoard(street)) return;
  const KnownCards known = KnownCardsWithHand(myHand, board, street);
  if (!known.valid()) return;

  const StandardRules rules(board, street);
  HoldingBoardCounter<StandardRules> counter(rules, myHand, board, street);
  WeightUnits units;
  std::vector<uint32_t> origin;
  std::vector<int32_t> weight;
  for (std::size_t k = 0; k < combos.size(); ++k) {
    if (!IsLiveHolding(combos[k], known.bits)) continue;
    origin.push_back(static_cast<uint32_t>(k));
    weight.push_back(units.Take(combos[k]));
    counter.Add(combos[k]);
  }
  if (origin.empty()) return;
  for (ShowdownTally& tally : tallies) tally.scale = units.Scale();
  counter.Start();
  const int remaining =
      ForEachComingBoard(known.bits, street, [&](std::span<const Card> coming) { counter.Count(coming); });

  // Every live holding meets each board that leaves out its two cards, which are among the remaining ones;
  // each counts its weight.
  const int64_t meets = BoardsMet(street, remaining);
  for (std::size_t i = 0; i < origin.size(); ++i) {
    ShowdownTally& tally = tallies[origin[i]];
    const int64_t w = weight[i];
    tally.wins = static_cast<uint64_t>(units.Out(counter.tally().First(i) * w));
    tally.ties = static_cast<uint64_t>(units.Out(counter.tally().Second(i) * w));
    tally.losses = static_cast<uint64_t>(units.Out(meets * w)) - tally.wins - tally.ties;
  }
}

void StandardShowdownTallyByClass(const HandCards& myHand, const BoardCards& board, Street street,
                                  std::span<const HandCombo> combos, std::span<ShowdownTally> tallies) {
  std::fill(tallies.begin(), tallies.end(), ShowdownTally{});
  if (tallies.size() < static_cast<std::size_t>(kClassCount)) return;
  ClassWinsAndTies c;
  int64_t meets = 0;
  if (!CountByClass<StandardRules>(myHand, board, street, combos, c, meets)) return;
  for (int cls = 0; cls < kClassCount; ++cls) {
    ShowdownTally& out = tallies[cls];
    out.scale = c.scale;
    out.wins = static_cast<uint64_t>(c.wins[cls]);
    out.ties = static_cast<uint64_t>(c.ties[cls]);
    out.losses = static_cast<uint64_t>(c.holdings[cls] * meets - c.wins[cls] - c.ties[cls]);
  }
}

std::optional<ShowdownTally> PreflopTallyForStandardRules(const HandCards& myHand,
                                                          std::span<const HandCombo> combos) {
  // The exact preflop table of matchup classes; without it (it failed to load) there is no tally.
  if (!ProgramPreflopClassTable().ok()) return std::nullopt;
  return StandardPreflopTally(myHand, combos);
}

std::optional<ShowdownTally> StandardEquityTally(const HandCards& myHand, const BoardCards& board,
                                                 Street street, std::span<const HandCombo> combos) {
  if (street == kNoBoard) return PreflopTallyForStandardRules(myHand, combos);
  return StandardShowdownTally(myHand, board, street, combos);
}

EquityResult EquityFromTally(const ShowdownTally& tally) {
  if (tally.Showdowns() == 0) return {};
  const double my = tally.EquityPercent();
  return {my, 100.0 - my};
}

ShowdownResult CompareStandardShowdown(const HandCards& myHand, const HandCombo& opponent,
                                       const BoardCards& board, Street street) {
  const int known = BoardCardCount(street);
  if (known < 3 || known > 5 || !KnownCardsWithHand(myHand, board, street).valid()) return {};
  const Card a = opponent.card1();
  const Card b = opponent.card2();
  if (!IsDeckCard(a) || !IsDeckCard(b) || a == b) return {};
  CardSet boardSet = 0;
  for (int i = 0; i < known; ++i) boardSet |= CardSetBit(board[i]);
  const CardSet mine = boardSet | CardSetBit(myHand.card1()) | CardSetBit(myHand.card2());
  const CardSet theirs = boardSet | CardSetBit(a) | CardSetBit(b);
  if (std::popcount(theirs) != known + 2 || (theirs & mine) != boardSet) return {};
  const StandardEvaluator& evaluator = StandardEvaluator::Get();
  const HandValue myValue = evaluator.Evaluate(mine);
  const HandValue theirValue = evaluator.Evaluate(theirs);
  return {myValue > theirValue, theirValue > myValue};
}

}  // namespace quillet
