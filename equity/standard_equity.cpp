#include "equity/standard_equity.h"

#include <algorithm>
#include <array>
#include <bit>
#include <vector>

#include "cards/board_analysis.h"  // RankMaskBit
#include "equity/board_record.h"
#include "equity/deck.h"
#include "equity/hand_evaluator.h"
#include "equity/preflop_classes.h"
#include "equity/rank_pair.h"
#include "equity/standard_evaluator.h"

namespace quillet {
namespace {

constexpr uint64_t DeckBit(Card card) {
  return uint64_t{1} << DeckIndex(card);
}

// A holding that can make a flush with three or more board cards of one suit, read one by one.
struct FlushCandidate {
  uint64_t cards = 0;
  uint16_t rankPair = 0;   // canonical index
  uint16_t suitRanks = 0;  // the hole cards' ranks in the suit
};

// Wins and ties from My Hand's side; losses follow from the number of live holdings.
struct WinsAndTies {
  int64_t wins = 0;
  int64_t ties = 0;

  // `weight` holdings whose hand is worth `theirs`.
  void Add(HandValue mine, HandValue theirs, int64_t weight) {
    wins += weight * static_cast<int64_t>(mine > theirs);
    ties += weight * static_cast<int64_t>(mine == theirs);
  }
};

// The live holdings, counted every way the completions need them.
struct LiveRange {
  int64_t total = 0;
  // Holdings per canonical rank pair, listed compactly for the loop over pairs.
  std::vector<uint16_t> pairs;
  std::vector<int32_t> pairCounts;
  // [card][rank - 2]: holdings holding the card whose other card has the rank.
  std::array<std::array<int32_t, 13>, 52> withCard{};
  std::array<int32_t, 52> cardCount{};  // holdings holding the card
  // [card1 x 52 + card2]: holdings of exactly these two cards; kept only when two cards are to come.
  std::vector<int32_t> exactCount;
  // Per suit: the holdings suited in it, and those with at least one card of it.
  std::array<std::vector<FlushCandidate>, 4> suited;
  std::array<std::vector<FlushCandidate>, 4> touching;
};

// `flushSuits`: the suits that can still end with three or more board cards; the flush candidates are
// collected for those only.
LiveRange CollectLiveRange(std::span<const HandCombo> combos, uint64_t deadCards, int comingCount,
                           const std::array<bool, 4>& flushSuits) {
  LiveRange live;
  if (comingCount == 2) live.exactCount.assign(52 * 52, 0);
  for (int32_t suit = 0; suit < 4; ++suit) {
    if (!flushSuits[suit]) continue;
    live.suited[suit].reserve(combos.size() / 4);
    live.touching[suit].reserve(combos.size() / 2);
  }
  std::array<int32_t, kRankPairCount> perPair{};
  for (const HandCombo& combo : combos) {
    const Card a = combo.card1();
    const Card b = combo.card2();
    if (!combo.flag || !IsDeckCard(a) || !IsDeckCard(b) || a == b) continue;
    const uint64_t cards = DeckBit(a) | DeckBit(b);
    if ((cards & deadCards) != 0) continue;
    const int ia = DeckIndex(a);
    const int ib = DeckIndex(b);
    const auto pair = static_cast<uint16_t>(CanonicalPairIndex(a.rank, b.rank));
    ++live.total;
    ++perPair[pair];
    ++live.withCard[ia][b.rank - 2];
    ++live.withCard[ib][a.rank - 2];
    ++live.cardCount[ia];
    ++live.cardCount[ib];
    if (!live.exactCount.empty()) {
      ++live.exactCount[ia * 52 + ib];
      ++live.exactCount[ib * 52 + ia];
    }
    if (a.suit == b.suit) {
      if (flushSuits[a.suit]) {
        const auto suitRanks = static_cast<uint16_t>(RankMaskBit(a.rank) | RankMaskBit(b.rank));
        live.touching[a.suit].push_back({cards, pair, suitRanks});
        live.suited[a.suit].push_back({cards, pair, suitRanks});
      }
    } else {
      if (flushSuits[a.suit])
        live.touching[a.suit].push_back({cards, pair, static_cast<uint16_t>(RankMaskBit(a.rank))});
      if (flushSuits[b.suit])
        live.touching[b.suit].push_back({cards, pair, static_cast<uint16_t>(RankMaskBit(b.rank))});
    }
  }
  for (int pair = 0; pair < kRankPairCount; ++pair) {
    if (perPair[pair] == 0) continue;
    live.pairs.push_back(static_cast<uint16_t>(pair));
    live.pairCounts.push_back(perPair[pair]);
  }
  return live;
}

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

// Values without a flush of every pair of hole ranks on one board, one table per rank pattern of the
// coming cards (91 patterns on the flop, 13 on the turn, 1 on the river), each filled when first needed.
class RankValueTables {
 public:
  RankValueTables(const BoardCards& board, int known, int comingCount)
      : evaluator_(StandardEvaluator::Get()),
        tables_(static_cast<std::size_t>(SlotCount(comingCount)) * kRankPairCount),
        filled_(SlotCount(comingCount), false) {
    for (int i = 0; i < known; ++i) knownRanks_ = evaluator_.AddRank(knownRanks_, board[i].rank);
  }

  // `coming` holds the ranks of the coming cards (none, one, or two with either order).
  const HandValue* For(std::span<const int32_t> coming) {
    int slot = 0;
    if (coming.size() == 1) slot = coming[0] - 2;
    if (coming.size() == 2) slot = CanonicalPairIndex(coming[0], coming[1]);
    HandValue* table = tables_.data() + static_cast<std::size_t>(slot) * kRankPairCount;
    if (!filled_[slot]) {
      RankState boardRanks = knownRanks_;
      for (int32_t rank : coming) boardRanks = evaluator_.AddRank(boardRanks, rank);
      FillRankValues(evaluator_, boardRanks, table);
      filled_[slot] = true;
    }
    return table;
  }

 private:
  static int SlotCount(int comingCount) {
    return comingCount == 2 ? kRankPairCount : comingCount == 1 ? 13 : 1;
  }

  const StandardEvaluator& evaluator_;
  RankState knownRanks_ = StandardEvaluator::kNoRanks;
  std::vector<HandValue> tables_;
  std::vector<bool> filled_;
};

// My Hand and the known board: different cards of the deck.
bool KnownCardsAreValid(const HandCards& myHand, const BoardCards& board, int known, uint64_t& cards) {
  cards = 0;
  std::array<Card, 7> known7{myHand.card1(), myHand.card2()};
  for (int i = 0; i < known; ++i) known7[2 + i] = board[i];
  for (int i = 0; i < known + 2; ++i) {
    if (!IsDeckCard(known7[i])) return false;
    cards |= DeckBit(known7[i]);
  }
  return std::popcount(cards) == known + 2;
}

// Counts the showdowns of one completion of the board.
class CompletionCounter {
 public:
  CompletionCounter(const HandCards& myHand, const BoardCards& board, int known, const LiveRange& live)
      : evaluator_(StandardEvaluator::Get()),
        live_(live),
        rankValues_(board, known, 5 - known),
        myPair_(RankPairIndex(myHand.rank1, myHand.rank2)) {
    for (int i = 0; i < known; ++i) {
      ++knownSuitCounts_[board[i].suit];
      knownSuitRanks_[board[i].suit] |= RankMaskBit(board[i].rank);
    }
    mySuitRanks_[myHand.suit1] |= RankMaskBit(myHand.rank1);
    mySuitRanks_[myHand.suit2] |= RankMaskBit(myHand.rank2);
  }

  void CountBoard(std::span<const Card> coming, ShowdownTally& tally) {
    std::array<int, 4> suitCounts = knownSuitCounts_;
    std::array<uint32_t, 4> suitRanks = knownSuitRanks_;
    std::array<int32_t, 2> comingRanks{};
    uint64_t comingCards = 0;
    int64_t liveCount = live_.total;
    for (std::size_t i = 0; i < coming.size(); ++i) {
      ++suitCounts[coming[i].suit];
      suitRanks[coming[i].suit] |= RankMaskBit(coming[i].rank);
      comingRanks[i] = coming[i].rank;
      comingCards |= DeckBit(coming[i]);
      liveCount -= live_.cardCount[DeckIndex(coming[i])];
    }
    int32_t exact = 0;  // holdings of exactly the two coming cards, taken off twice above
    if (coming.size() == 2) exact = live_.exactCount[DeckIndex(coming[0]) * 52 + DeckIndex(coming[1])];
    liveCount += exact;

    const HandValue* values = rankValues_.For(std::span(comingRanks.data(), coming.size()));
    int32_t flushSuit = -1;
    for (int32_t suit = 0; suit < 4; ++suit) {
      if (suitCounts[suit] >= 3) flushSuit = suit;
    }
    HandValue mine = values[myPair_];
    if (flushSuit >= 0)
      mine = std::max(mine, evaluator_.FlushValue(suitRanks[flushSuit] | mySuitRanks_[flushSuit]));

    WinsAndTies count;
    if (flushSuit >= 0 && suitCounts[flushSuit] == 5) {
      CountFiveSuitedBoard(mine, suitRanks[flushSuit], live_.touching[flushSuit], comingCards, liveCount,
                           count);
    } else {
      CountByRankPair(mine, values, coming, exact, count);
      if (flushSuit >= 0) {
        const auto& candidates =
            suitCounts[flushSuit] == 3 ? live_.suited[flushSuit] : live_.touching[flushSuit];
        CorrectForFlushes(mine, values, suitRanks[flushSuit], candidates, comingCards, count);
      }
    }
    tally.wins += static_cast<uint64_t>(count.wins);
    tally.ties += static_cast<uint64_t>(count.ties);
    tally.losses += static_cast<uint64_t>(liveCount - count.wins - count.ties);
  }

 private:
  // Every live holding valued by its rank pair alone.
  void CountByRankPair(HandValue mine, const HandValue* values, std::span<const Card> coming, int32_t exact,
                       WinsAndTies& count) const {
    const std::size_t pairCount = live_.pairs.size();
    for (std::size_t i = 0; i < pairCount; ++i) count.Add(mine, values[live_.pairs[i]], live_.pairCounts[i]);
    // Holdings with a coming card are dead on this board: per coming card, one row of rank pairs.
    for (const Card& card : coming) {
      const std::array<int32_t, 13>& withCard = live_.withCard[DeckIndex(card)];
      const HandValue* row = values + RankPairIndex(card.rank, 2);
      for (int other = 0; other < 13; ++other) count.Add(mine, row[other], -withCard[other]);
    }
    if (exact != 0) count.Add(mine, values[RankPairIndex(coming[0].rank, coming[1].rank)], exact);
  }

  // The live holdings that make a flush: their rank-pair answer is replaced by the flush's.
  void CorrectForFlushes(HandValue mine, const HandValue* values, uint32_t boardSuitRanks,
                         const std::vector<FlushCandidate>& candidates, uint64_t comingCards,
                         WinsAndTies& count) const {
    for (const FlushCandidate& candidate : candidates) {
      if ((candidate.cards & comingCards) != 0) continue;
      const HandValue ranksOnly = values[candidate.rankPair];
      const HandValue best = std::max(ranksOnly, evaluator_.FlushValue(boardSuitRanks | candidate.suitRanks));
      count.Add(mine, best, 1);
      count.Add(mine, ranksOnly, -1);
    }
  }

  // Five board cards of one suit: everyone has at least the board's flush, and only the holdings with a
  // card of the suit can better it.
  void CountFiveSuitedBoard(HandValue mine, uint32_t boardSuitRanks,
                            const std::vector<FlushCandidate>& touching, uint64_t comingCards,
                            int64_t liveCount, WinsAndTies& count) const {
    int64_t liveTouching = 0;
    for (const FlushCandidate& candidate : touching) {
      if ((candidate.cards & comingCards) != 0) continue;
      ++liveTouching;
      count.Add(mine, evaluator_.FlushValue(boardSuitRanks | candidate.suitRanks), 1);
    }
    count.Add(mine, evaluator_.FlushValue(boardSuitRanks), liveCount - liveTouching);
  }

  const StandardEvaluator& evaluator_;
  const LiveRange& live_;
  RankValueTables rankValues_;
  int myPair_;
  std::array<int, 4> knownSuitCounts_{};
  std::array<uint32_t, 4> knownSuitRanks_{};
  std::array<uint32_t, 4> mySuitRanks_{};
};

// The river: one board, so each live holding is simply valued and compared.
ShowdownTally CountRiver(const HandCards& myHand, const BoardCards& board, uint64_t deadCards,
                         std::span<const HandCombo> combos) {
  const StandardEvaluator& evaluator = StandardEvaluator::Get();
  RankState boardRanks = StandardEvaluator::kNoRanks;
  std::array<int, 4> suitCounts{};
  std::array<uint32_t, 4> suitRanks{};
  for (const Card& card : board.cards) {
    boardRanks = evaluator.AddRank(boardRanks, card.rank);
    ++suitCounts[card.suit];
    suitRanks[card.suit] |= RankMaskBit(card.rank);
  }
  std::array<HandValue, kRankPairCount> values;
  FillRankValues(evaluator, boardRanks, values.data());
  int32_t flushSuit = -1;
  for (int32_t suit = 0; suit < 4; ++suit) {
    if (suitCounts[suit] >= 3) flushSuit = suit;
  }
  // A holding's value: its rank pair's, or the flush its cards of the flush suit make with the board's.
  const auto valueOf = [&](Card a, Card b) {
    HandValue value = values[RankPairIndex(a.rank, b.rank)];
    if (flushSuit >= 0) {
      const uint32_t hole =
          (a.suit == flushSuit ? RankMaskBit(a.rank) : 0u) | (b.suit == flushSuit ? RankMaskBit(b.rank) : 0u);
      value = std::max(value, evaluator.FlushValue(suitRanks[flushSuit] | hole));
    }
    return value;
  };
  const HandValue mine = valueOf(myHand.card1(), myHand.card2());
  ShowdownTally tally;
  for (const HandCombo& combo : combos) {
    const Card a = combo.card1();
    const Card b = combo.card2();
    if (!combo.flag || !IsDeckCard(a) || !IsDeckCard(b) || a == b) continue;
    if (((DeckBit(a) | DeckBit(b)) & deadCards) != 0) continue;
    const HandValue theirs = valueOf(a, b);
    tally.wins += mine > theirs;
    tally.ties += mine == theirs;
    tally.losses += mine < theirs;
  }
  return tally;
}

// The live holdings counted one by one, as parallel arrays for the loop over them.
struct HoldingsApart {
  std::vector<uint32_t> origin;  // index in the caller's list
  std::vector<uint64_t> cards;
  std::vector<uint16_t> rankPair;
  // Per suit: the hole cards' ranks in that suit.
  std::array<std::vector<uint16_t>, 4> suitRanks;
  // Per holding: My Hand's wins in the low 16 bits and ties in the high 16 bits (a holding meets at most
  // 990 boards); the losses follow from the boards it meets.
  std::vector<uint32_t> winsAndTies;
};
constexpr int kTieShift = 16;

// One board against every holding of `holdings`; kFlushSuit: the board has three or more cards of one
// suit, whose ranks are `boardSuitRanks` and whose hole ranks `holeSuitRanks` holds.
template <bool kFlushSuit>
void CountHoldingsApart(const StandardEvaluator& evaluator, HandValue mine, const HandValue* values,
                        uint64_t comingCards, uint32_t boardSuitRanks, const uint16_t* holeSuitRanks,
                        HoldingsApart& holdings) {
  const std::size_t count = holdings.cards.size();
  const uint64_t* cards = holdings.cards.data();
  const uint16_t* rankPair = holdings.rankPair.data();
  uint32_t* winsAndTies = holdings.winsAndTies.data();
  for (std::size_t i = 0; i < count; ++i) {
    HandValue theirs = values[rankPair[i]];
    if constexpr (kFlushSuit)
      theirs = std::max(theirs, evaluator.FlushValue(boardSuitRanks | holeSuitRanks[i]));
    const int32_t live = (cards[i] & comingCards) == 0;
    winsAndTies[i] += static_cast<uint32_t>(live & static_cast<int32_t>(mine > theirs)) |
                      static_cast<uint32_t>(live & static_cast<int32_t>(mine == theirs)) << kTieShift;
  }
}

// Hands each board that can still come (two cards on the flop, one on the turn, none on the river), drawn
// from the cards not in deadCards, to countBoard; returns how many cards are left in the deck.
template <class CountBoard>
int ForEachComingBoard(uint64_t deadCards, int32_t street, CountBoard&& countBoard) {
  std::array<Card, 52> remaining{};
  int remainingCount = 0;
  for (int index = 0; index < kDeckSize; ++index) {
    if ((deadCards >> index & 1) == 0) remaining[remainingCount++] = DeckCard(index);
  }
  if (street == kFlop) {
    for (int i = 0; i < remainingCount; ++i) {
      for (int j = i + 1; j < remainingCount; ++j) {
        const std::array<Card, 2> coming = {remaining[i], remaining[j]};
        countBoard(std::span<const Card>(coming));
      }
    }
  } else if (street == kTurn) {
    for (int i = 0; i < remainingCount; ++i) countBoard(std::span<const Card>(&remaining[i], 1));
  } else {
    countBoard(std::span<const Card>());
  }
  return remainingCount;
}

}  // namespace

ShowdownTally StandardShowdownTally(const HandCards& myHand, const BoardCards& board, int32_t street,
                                    std::span<const HandCombo> combos) {
  ShowdownTally tally;
  if (street != kFlop && street != kTurn && street != kRiver) return tally;
  const int known = BoardCardCount(street);
  uint64_t deadCards = 0;
  if (!KnownCardsAreValid(myHand, board, known, deadCards)) return tally;
  if (street == kRiver) return CountRiver(myHand, board, deadCards, combos);
  std::array<bool, 4> flushSuits{};
  std::array<int, 4> knownSuitCounts{};
  for (int i = 0; i < known; ++i) ++knownSuitCounts[board[i].suit];
  for (int32_t suit = 0; suit < 4; ++suit) flushSuits[suit] = knownSuitCounts[suit] + 5 - known >= 3;
  const LiveRange live = CollectLiveRange(combos, deadCards, 5 - known, flushSuits);
  if (live.total == 0) return tally;

  CompletionCounter counter(myHand, board, known, live);
  ForEachComingBoard(deadCards, street,
                     [&](std::span<const Card> coming) { counter.CountBoard(coming, tally); });
  return tally;
}

void StandardShowdownTallyByHolding(const HandCards& myHand, const BoardCards& board, int32_t street,
                                    std::span<const HandCombo> combos, std::span<ShowdownTally> tallies) {
  std::fill(tallies.begin(), tallies.end(), ShowdownTally{});
  if (tallies.size() < combos.size()) return;
  if (street != kFlop && street != kTurn && street != kRiver) return;
  const int known = BoardCardCount(street);
  const int comingCount = 5 - known;
  uint64_t deadCards = 0;
  if (!KnownCardsAreValid(myHand, board, known, deadCards)) return;

  HoldingsApart holdings;
  for (std::size_t k = 0; k < combos.size(); ++k) {
    const HandCombo& combo = combos[k];
    const Card a = combo.card1();
    const Card b = combo.card2();
    if (!combo.flag || !IsDeckCard(a) || !IsDeckCard(b) || a == b) continue;
    const uint64_t cards = DeckBit(a) | DeckBit(b);
    if ((cards & deadCards) != 0) continue;
    holdings.origin.push_back(static_cast<uint32_t>(k));
    holdings.cards.push_back(cards);
    holdings.rankPair.push_back(static_cast<uint16_t>(RankPairIndex(a.rank, b.rank)));
    for (int32_t suit = 0; suit < 4; ++suit) {
      const uint32_t ranks =
          (a.suit == suit ? RankMaskBit(a.rank) : 0u) | (b.suit == suit ? RankMaskBit(b.rank) : 0u);
      holdings.suitRanks[suit].push_back(static_cast<uint16_t>(ranks));
    }
  }
  const std::size_t count = holdings.cards.size();
  if (count == 0) return;
  holdings.winsAndTies.assign(count, 0);

  const StandardEvaluator& evaluator = StandardEvaluator::Get();
  RankValueTables rankValues(board, known, comingCount);
  std::array<int, 4> knownSuitCounts{};
  std::array<uint32_t, 4> knownSuitRanks{};
  for (int i = 0; i < known; ++i) {
    ++knownSuitCounts[board[i].suit];
    knownSuitRanks[board[i].suit] |= RankMaskBit(board[i].rank);
  }
  std::array<uint32_t, 4> mySuitRanks{};
  mySuitRanks[myHand.suit1] |= RankMaskBit(myHand.rank1);
  mySuitRanks[myHand.suit2] |= RankMaskBit(myHand.rank2);
  const int myPair = RankPairIndex(myHand.rank1, myHand.rank2);

  const auto countBoard = [&](std::span<const Card> coming) {
    std::array<int, 4> suitCounts = knownSuitCounts;
    std::array<uint32_t, 4> suitRanks = knownSuitRanks;
    std::array<int32_t, 2> comingRanks{};
    uint64_t comingCards = 0;
    for (std::size_t i = 0; i < coming.size(); ++i) {
      ++suitCounts[coming[i].suit];
      suitRanks[coming[i].suit] |= RankMaskBit(coming[i].rank);
      comingRanks[i] = coming[i].rank;
      comingCards |= DeckBit(coming[i]);
    }
    const HandValue* values = rankValues.For(std::span(comingRanks.data(), coming.size()));
    int32_t flushSuit = -1;
    for (int32_t suit = 0; suit < 4; ++suit) {
      if (suitCounts[suit] >= 3) flushSuit = suit;
    }
    HandValue mine = values[myPair];
    if (flushSuit < 0) {
      CountHoldingsApart<false>(evaluator, mine, values, comingCards, 0, nullptr, holdings);
      return;
    }
    mine = std::max(mine, evaluator.FlushValue(suitRanks[flushSuit] | mySuitRanks[flushSuit]));
    CountHoldingsApart<true>(evaluator, mine, values, comingCards, suitRanks[flushSuit],
                             holdings.suitRanks[flushSuit].data(), holdings);
  };

  const int remainingCount = ForEachComingBoard(deadCards, street, countBoard);

  // Every live holding meets each board that leaves out its two cards, which are among the remaining ones.
  const uint64_t rest = static_cast<uint64_t>(remainingCount - 2);
  const uint64_t meets = street == kFlop ? rest * (rest - 1) / 2 : street == kTurn ? rest : 1;
  for (std::size_t i = 0; i < count; ++i) {
    ShowdownTally& tally = tallies[holdings.origin[i]];
    tally.wins = holdings.winsAndTies[i] & 0xFFFF;
    tally.ties = holdings.winsAndTies[i] >> kTieShift;
    tally.losses = meets - tally.wins - tally.ties;
  }
}

std::optional<ShowdownTally> PreflopTallyForStandardRules(const HandCards& myHand,
                                                          std::span<const HandCombo> combos) {
  // The exact preflop table of matchup classes; without it (it failed to load) there is no tally.
  if (!ProgramPreflopClassTable().ok()) return std::nullopt;
  return StandardPreflopTally(myHand, combos);
}

std::optional<ShowdownTally> StandardEquityTally(const HandCards& myHand, const BoardCards& board,
                                                 int32_t street, std::span<const HandCombo> combos) {
  if (street == kNoBoard) return PreflopTallyForStandardRules(myHand, combos);
  return StandardShowdownTally(myHand, board, street, combos);
}

EquityResult EquityFromTally(const ShowdownTally& tally) {
  if (tally.Showdowns() == 0) return {};
  const double my = tally.EquityPercent();
  return {my, 100.0 - my};
}

ShowdownResult CompareStandardShowdown(const HandCards& myHand, const HandCombo& opponent,
                                       const BoardCards& board, int32_t street) {
  const int known = BoardCardCount(street);
  uint64_t boardAndMine = 0;
  if (known < 3 || known > 5 || !KnownCardsAreValid(myHand, board, known, boardAndMine)) return {};
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
