#include "equity/engine.h"

#include <algorithm>
#include <array>
#include <vector>

#include "cards/showdown_key.h"
#include "equity/class_board_counter.h"
#include "equity/enumeration.h"
#include "equity/hand_against_range.h"
#include "equity/rank_pair.h"

namespace quillet {
namespace {

// The program's rules for the shared counter (hand_against_range.h): a hand's value is its showdown key,
// the larger of its rank part (a function of the seven ranks and the two hole ranks) and its flush part
// (a function of its ranks in the board's flush suit, which needs exactly five of them).
class ProgramRules {
 public:
  ProgramRules(const BoardCards& board, Street street) {
    for (int i = 0; i < BoardCardCount(street); ++i) knownRanks_.Add(board[i].rank);
  }

  void Fill(std::span<const Card> coming, ShowdownKey* table) const {
    RankMultiset boardRanks = knownRanks_;
    for (const Card& card : coming) boardRanks.Add(card.rank);
    for (int32_t low = 2; low <= 14; ++low) {
      RankMultiset withLow = boardRanks;
      withLow.Add(low);
      for (int32_t high = low; high <= 14; ++high) {
        RankMultiset ranks = withLow;
        ranks.Add(high);
        const ShowdownKey key = RankPartKey(ranks, high, low);
        table[RankPairIndex(low, high)] = key;
        table[RankPairIndex(high, low)] = key;
      }
    }
  }
  static ShowdownKey FlushValue(uint32_t suitRanks, uint32_t holeSuitRanks) {
    return FlushPartKey(suitRanks, holeSuitRanks);
  }

 private:
  RankMultiset knownRanks_;
};

// The holdings the shared counter cannot take, each read card by card on every board: those that share a
// card with My Hand or the board, or whose two cards are one, and all of them when My Hand and the board
// share a card.
class ReaderHoldings {
 public:
  ReaderHoldings(const HandCards& myHand, const BoardCards& board, Street street)
      : board_(board),
        known_(BoardCardCount(street)),
        mine_{true, myHand.rank1, myHand.suit1, myHand.rank2, myHand.suit2} {}

  void Add(const HandCombo& combo, uint32_t origin, int32_t weight) {
    holdings_.push_back(combo);
    origin_.push_back(origin);
    weight_.push_back(weight);
  }
  bool empty() const { return holdings_.empty(); }

  // record(origin, weight, myKey, key) for each holding that meets the board completed by `coming`.
  template <class Record>
  void Count(std::span<const Card> coming, Record&& record) const {
    BoardCards cards = board_;
    for (std::size_t i = 0; i < coming.size(); ++i) cards[known_ + static_cast<int>(i)] = coming[i];
    const ShowdownKey myKey = StreetShowdownKey(mine_, cards, kRiver);
    for (std::size_t r = 0; r < holdings_.size(); ++r) {
      const HandCombo& combo = holdings_[r];
      bool uses = false;
      for (const Card& card : coming) uses = uses || SharesCard(combo, card);
      if (uses) continue;
      record(origin_[r], weight_[r], myKey, StreetShowdownKey(combo, cards, kRiver));
    }
  }

 private:
  BoardCards board_;
  int known_;
  HandCombo mine_;
  std::vector<HandCombo> holdings_;
  std::vector<uint32_t> origin_;
  std::vector<int32_t> weight_;
};

// The holdings that take part at all: flag set, both cards of the deck.
bool TakesPart(const HandCombo& combo) {
  return combo.flag && IsDeckCard(combo.card1()) && IsDeckCard(combo.card2());
}

}  // namespace

ShowdownCounts CountShowdowns(const HandCards& myHand, const BoardCards& board, Street street,
                              std::span<const HandCombo> combos) {
  ShowdownCounts counts;
  if (street != kFlop && street != kTurn) return counts;
  const KnownCards known = KnownCardsWithHand(myHand, board, street);
  if (!known.inDeck) return counts;
  // A My Hand or board with a card given twice is left to the hand reader, card by card, as is any
  // holding that shares a card with them.
  const auto byKey = [&](const HandCombo& combo) {
    return known.distinct && IsLiveHolding(combo, known.bits);
  };
  // Every showdown counts its holding's weight in thousandths until the end (WeightUnits).
  WeightUnits units;
  ReaderHoldings reader(myHand, board, street);
  for (std::size_t k = 0; k < combos.size(); ++k) {
    if (TakesPart(combos[k]) && !byKey(combos[k]))
      reader.Add(combos[k], static_cast<uint32_t>(k), units.Take(combos[k]));
  }
  const LiveRange live(combos, board, street, byKey, units);
  const ProgramRules rules(board, street);
  RangeBoardCounter<ProgramRules> counter(rules, myHand, board, street, live);
  int64_t wins = 0;
  int64_t ties = 0;
  int64_t met = 0;
  // The counter's counts are in the live range's units, the reader's in thousandths.
  int64_t liveWins = 0;
  int64_t liveTies = 0;
  int64_t liveMet = 0;
  ForEachComingBoard(known.bits, street, [&](std::span<const Card> coming) {
    if (live.total != 0) counter.Count(coming, liveWins, liveTies, liveMet);
    reader.Count(coming, [&](uint32_t, int32_t weight, ShowdownKey myKey, ShowdownKey key) {
      met += weight;
      wins += myKey > key ? weight : 0;
      ties += myKey == key ? weight : 0;
    });
  });
  wins += liveWins * live.Unit();
  ties += liveTies * live.Unit();
  met += liveMet * live.Unit();
  counts.scale = static_cast<int64_t>(units.Scale());
  counts.total = units.Out(met);
  counts.myWins = units.Out(wins);
  counts.ties = units.Out(ties);
  counts.oppWins = counts.total - counts.myWins - counts.ties;
  return counts;
}

void CountShowdownsByHolding(const HandCards& myHand, const BoardCards& board, Street street,
                             std::span<const HandCombo> combos, std::span<ShowdownCounts> counts) {
  std::fill(counts.begin(), counts.end(), ShowdownCounts{});
  if (counts.size() < combos.size()) return;
  if (street != kFlop && street != kTurn && street != kRiver) return;
  const KnownCards known = KnownCardsWithHand(myHand, board, street);
  if (!known.inDeck) return;
  const ProgramRules rules(board, street);
  HoldingBoardCounter<ProgramRules> byKey(rules, myHand, board, street);
  std::vector<uint32_t> keyOrigin;
  std::vector<int32_t> keyWeight;
  ReaderHoldings reader(myHand, board, street);
  // Every showdown counts its holding's weight in thousandths until the end (WeightUnits).
  WeightUnits units;
  for (std::size_t k = 0; k < combos.size(); ++k) {
    const HandCombo& combo = combos[k];
    if (!TakesPart(combo)) continue;
    if (known.distinct && IsLiveHolding(combo, known.bits)) {
      byKey.Add(combo);
      keyOrigin.push_back(static_cast<uint32_t>(k));
      keyWeight.push_back(units.Take(combo));
    } else {
      reader.Add(combo, static_cast<uint32_t>(k), units.Take(combo));
    }
  }
  byKey.Start();
  const int remaining = ForEachComingBoard(known.bits, street, [&](std::span<const Card> coming) {
    if (byKey.size() != 0) byKey.Count(coming);
    reader.Count(coming, [&](uint32_t origin, int32_t weight, ShowdownKey myKey, ShowdownKey key) {
      ShowdownCounts& c = counts[origin];
      c.total += weight;
      c.myWins += myKey > key ? weight : 0;
      c.oppWins += myKey < key ? weight : 0;
      c.ties += myKey == key ? weight : 0;
    });
  });
  // A key-path holding meets every board that leaves out its two cards (both among the remaining ones),
  // each counting its weight.
  const int64_t meets = BoardsMet(street, remaining);
  for (std::size_t i = 0; i < keyOrigin.size(); ++i) {
    ShowdownCounts& c = counts[keyOrigin[i]];
    const int64_t w = keyWeight[i];
    c.total = meets * w;
    c.myWins = byKey.tally().First(i) * w;
    c.ties = byKey.tally().Second(i) * w;
    c.oppWins = c.total - c.myWins - c.ties;
  }
  for (ShowdownCounts& c : counts) {
    c.total = units.Out(c.total);
    c.myWins = units.Out(c.myWins);
    c.ties = units.Out(c.ties);
    c.oppWins = units.Out(c.oppWins);
    c.scale = static_cast<int64_t>(units.Scale());
  }
}

void CountShowdownsByClass(const HandCards& myHand, const BoardCards& board, Street street,
                           std::span<const HandCombo> combos, std::span<ShowdownCounts> counts) {
  std::fill(counts.begin(), counts.end(), ShowdownCounts{});
  if (counts.size() < static_cast<std::size_t>(kClassCount)) return;
  ClassWinsAndTies c;
  int64_t meets = 0;
  if (!CountByClass<ProgramRules>(myHand, board, street, combos, c, meets)) return;
  for (int cls = 0; cls < kClassCount; ++cls) {
    ShowdownCounts& out = counts[cls];
    out.scale = static_cast<int64_t>(c.scale);
    out.total = c.holdings[cls] * meets;
    out.myWins = c.wins[cls];
    out.ties = c.ties[cls];
    out.oppWins = out.total - out.myWins - out.ties;
  }
}

namespace {

// wins / decided x 100 rounded half to even to two decimals, from the exact fraction.
double RoundedShare(int64_t wins, int64_t decided) {
  const int64_t numerator = wins * 10000;
  int64_t hundredths = numerator / decided;
  const int64_t twiceRemainder = 2 * (numerator % decided);
  if (twiceRemainder > decided || (twiceRemainder == decided && hundredths % 2 != 0)) ++hundredths;
  return static_cast<double>(hundredths) / 100.0;
}

EquityResult RunPath(const HandCards& myHand, const BoardCards& board, Street street,
                     std::span<const HandCombo> combos, const CaptionSink& caption) {
  if (caption) caption(kCalculatingCaption);
  const ShowdownCounts counts = CountShowdowns(myHand, board, street, combos);
  if (caption) caption(kCalcEquityCaption);
  return EquityFromCounts(counts);
}

}  // namespace

EquityResult EquityFromCounts(const ShowdownCounts& counts) {
  const int64_t decided = counts.total - counts.ties;
  if (decided != 0) return {RoundedShare(counts.myWins, decided), RoundedShare(counts.oppWins, decided)};
  if (counts.ties > 0) return {50.0, 50.0};
  return {};
}

EquityResult FlopEquity(const HandCards& myHand, const BoardCards& board, std::span<const HandCombo> combos,
                        const CaptionSink& caption) {
  return RunPath(myHand, board, kFlop, combos, caption);
}

EquityResult TurnEquity(const HandCards& myHand, const BoardCards& board, std::span<const HandCombo> combos,
                        const CaptionSink& caption) {
  return RunPath(myHand, board, kTurn, combos, caption);
}

}  // namespace quillet
