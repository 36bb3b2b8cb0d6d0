#include "equity/engine.h"

#include <algorithm>
#include <array>
#include <vector>

#include "cards/showdown_key.h"
#include "equity/board_record.h"
#include "equity/rank_pair.h"

namespace quillet {
namespace {

constexpr uint64_t CardBit(Card card) {
  return uint64_t{1} << DeckIndex(card);
}

// The holdings the key path takes, as parallel arrays so the inner loop reads only what it needs.
struct FastHoldings {
  std::vector<uint64_t> cardBits;
  std::vector<uint16_t> rankPair;
  // Per suit: the hole cards' ranks in that suit (13-bit mask) and the flush-rank field of the key.
  std::array<std::vector<uint16_t>, 4> suitRanks;
  std::array<std::vector<uint16_t>, 4> flushRankField;

  void Reserve(std::size_t count) {
    cardBits.reserve(count);
    rankPair.reserve(count);
    for (int suit = 0; suit < 4; ++suit) {
      suitRanks[suit].reserve(count);
      flushRankField[suit].reserve(count);
    }
  }

  void Add(const HandCombo& combo) {
    cardBits.push_back(CardBit(combo.card1()) | CardBit(combo.card2()));
    rankPair.push_back(static_cast<uint16_t>(RankPairIndex(combo.rank1, combo.rank2)));
    for (int suit = 0; suit < 4; ++suit) {
      uint32_t ranks = 0;
      if (combo.suit1 == suit) ranks |= RankMaskBit(combo.rank1);
      if (combo.suit2 == suit) ranks |= RankMaskBit(combo.rank2);
      suitRanks[suit].push_back(static_cast<uint16_t>(ranks));
      flushRankField[suit].push_back(static_cast<uint16_t>(TopRankOf(ranks) << 12));
    }
  }
  std::size_t size() const { return cardBits.size(); }
};

struct Tally {
  int64_t live = 0;
  int64_t myWins = 0;
  int64_t oppWins = 0;
};

// Per key-path holding, parallel to FastHoldings: My Hand's wins against it in the low 16 bits and its
// wins in the high 16 bits (a holding meets at most 990 completions). Its showdowns need no count: a
// key-path holding shares no card with My Hand or the board, so it meets every completion that leaves
// out its two cards.
struct HoldingTallies {
  std::vector<uint32_t> wins;
};
constexpr int kOppWinShift = 16;

// One completion against every key-path holding. Holdings that use a card of the completion are left
// out without a branch; `rankKeys` is the completion's table of rank-part keys by hole ranks. With
// kByHolding each holding's showdown goes to its own entry of `byHolding`, else to `tally`.
template <bool kBoardHasFlushSuit, bool kByHolding>
void CountCompletion(const FastHoldings& holdings, const ShowdownKey* rankKeys, ShowdownKey myKey,
                     uint64_t comingBits, int32_t flushSuit, uint32_t boardSuitRanks, Tally& tally,
                     HoldingTallies* byHolding) {
  const std::size_t count = holdings.size();
  const uint64_t* cardBits = holdings.cardBits.data();
  const uint16_t* rankPair = holdings.rankPair.data();
  const uint16_t* suitRanks = kBoardHasFlushSuit ? holdings.suitRanks[flushSuit].data() : nullptr;
  const uint16_t* flushField = kBoardHasFlushSuit ? holdings.flushRankField[flushSuit].data() : nullptr;
  uint32_t* holdingWins = kByHolding ? byHolding->wins.data() : nullptr;
  int32_t live = 0;
  int32_t myWins = 0;
  int32_t oppWins = 0;
  for (std::size_t i = 0; i < count; ++i) {
    ShowdownKey key = rankKeys[rankPair[i]];
    if constexpr (kBoardHasFlushSuit) {
      // FlushPartKey with the hole cards' flush-rank field read from the table.
      const uint32_t entry = detail::kFlushEntry[boardSuitRanks | suitRanks[i]];
      const uint32_t flushKey = (entry & ~detail::kFlushRankFlag) | (flushField[i] & (0u - (entry >> 31)));
      key = std::max(key, flushKey);
    }
    const int32_t isLive = (cardBits[i] & comingBits) == 0;
    if constexpr (kByHolding) {
      holdingWins[i] += static_cast<uint32_t>(isLive & static_cast<int32_t>(myKey > key)) |
                        static_cast<uint32_t>(isLive & static_cast<int32_t>(myKey < key)) << kOppWinShift;
    } else {
      live += isLive;
      myWins += isLive & static_cast<int32_t>(myKey > key);
      oppWins += isLive & static_cast<int32_t>(myKey < key);
    }
  }
  tally.live += live;
  tally.myWins += myWins;
  tally.oppWins += oppWins;
}

// Rank-part keys for every pair of hole ranks on one board, one table per multiset of the coming ranks
// (91 on the flop, 13 on the turn), each filled the first time a completion needs it.
class RankKeyTables {
 public:
  RankKeyTables(const BoardCards& board, int known) {
    for (int i = 0; i < known; ++i) knownRanks_.Add(board[i].rank);
    slotOf_.fill(-1);
    keys_.reserve(91 * kRankPairCount);  // the most a flop needs
  }

  const ShowdownKey* For(const std::array<Card, 2>& coming, int comingCount) {
    int32_t low = coming[0].rank;
    int32_t high = comingCount == 2 ? coming[1].rank : 2;
    if (comingCount == 2 && high < low) std::swap(low, high);
    const int classIndex = RankPairIndex(low, high);
    if (slotOf_[classIndex] < 0) {
      slotOf_[classIndex] = static_cast<int>(keys_.size() / kRankPairCount);
      keys_.resize(keys_.size() + kRankPairCount);
      RankMultiset ranks = knownRanks_;
      for (int i = 0; i < comingCount; ++i) ranks.Add(coming[i].rank);
      Fill(ranks, keys_.data() + keys_.size() - kRankPairCount);
    }
    return keys_.data() + static_cast<std::size_t>(slotOf_[classIndex]) * kRankPairCount;
  }

 private:
  static void Fill(const RankMultiset& boardRanks, ShowdownKey* table) {
    for (int32_t low = 2; low <= 14; ++low) {
      for (int32_t high = low; high <= 14; ++high) {
        RankMultiset ranks = boardRanks;
        ranks.Add(low);
        ranks.Add(high);
        const ShowdownKey key = RankPartKey(ranks, high, low);
        table[RankPairIndex(low, high)] = key;
        table[RankPairIndex(high, low)] = key;
      }
    }
  }

  RankMultiset knownRanks_;
  std::array<int, kRankPairCount> slotOf_{};
  std::vector<ShowdownKey> keys_;
};

bool SharesCard(const HandCombo& combo, Card card) {
  return combo.card1() == card || combo.card2() == card;
}

// A holding the key path can take: two different cards, neither in My Hand nor on the known board.
bool IsCleanHolding(const HandCombo& combo, const HandCards& myHand, const BoardCards& board, int known) {
  if (combo.card1() == combo.card2()) return false;
  if (SharesCard(combo, myHand.card1()) || SharesCard(combo, myHand.card2())) return false;
  for (int i = 0; i < known; ++i) {
    if (SharesCard(combo, board[i])) return false;
  }
  return true;
}

// My Hand and the known board cards are all different.
bool KnownCardsAreDistinct(const HandCards& myHand, const BoardCards& board, int known) {
  std::array<Card, 7> cards{myHand.card1(), myHand.card2()};
  for (int i = 0; i < known; ++i) cards[2 + i] = board[i];
  for (int i = 0; i < known + 2; ++i) {
    for (int j = i + 1; j < known + 2; ++j) {
      if (cards[i] == cards[j]) return false;
    }
  }
  return true;
}

// Every showdown of the flop or the turn, counted in `tally`, or with kByHolding per holding into
// `byHolding` (one entry per entry of `combos`, zero for those that take no part).
template <bool kByHolding>
void Enumerate(const HandCards& myHand, const BoardCards& board, int32_t street,
               std::span<const HandCombo> combos, Tally& tally, std::span<ShowdownCounts> byHolding) {
  if (street != kFlop && street != kTurn) return;
  const int known = BoardCardCount(street);
  const int comingCount = 5 - known;
  if (!IsDeckCard(myHand.card1()) || !IsDeckCard(myHand.card2())) return;
  for (int i = 0; i < known; ++i) {
    if (!IsDeckCard(board[i])) return;
  }

  // A My Hand or board with a card given twice is left to the hand reader, card by card, as is any
  // holding that shares a card with them.
  const bool keyPath = KnownCardsAreDistinct(myHand, board, known);
  FastHoldings fast;
  if (keyPath) fast.Reserve(combos.size());
  std::vector<HandCombo> byReader;
  // Per holding: where each key-path and card-by-card holding stands in `combos`.
  std::vector<uint32_t> fastOrigin;
  std::vector<uint32_t> readerOrigin;
  for (std::size_t k = 0; k < combos.size(); ++k) {
    const HandCombo& combo = combos[k];
    if (!combo.flag || !IsDeckCard(combo.card1()) || !IsDeckCard(combo.card2())) continue;
    if (keyPath && IsCleanHolding(combo, myHand, board, known)) {
      fast.Add(combo);
      if constexpr (kByHolding) fastOrigin.push_back(static_cast<uint32_t>(k));
    } else {
      byReader.push_back(combo);
      if constexpr (kByHolding) readerOrigin.push_back(static_cast<uint32_t>(k));
    }
  }
  HoldingTallies fastTallies;
  if constexpr (kByHolding) fastTallies.wins.assign(fast.size(), 0);

  std::array<int, 4> knownSuitCounts{};
  std::array<uint32_t, 4> knownSuitRanks{};
  for (int i = 0; i < known; ++i) {
    ++knownSuitCounts[board[i].suit];
    knownSuitRanks[board[i].suit] |= RankMaskBit(board[i].rank);
  }
  RankKeyTables rankKeys(board, known);
  const int myRankPair = RankPairIndex(myHand.rank1, myHand.rank2);
  std::array<uint32_t, 4> mySuitRanks{};
  if (keyPath) {
    mySuitRanks[myHand.suit1] |= RankMaskBit(myHand.rank1);
    mySuitRanks[myHand.suit2] |= RankMaskBit(myHand.rank2);
  }

  const RemainingCardList remaining = RemainingCards(myHand, board, street);
  std::array<Card, 2> coming{};

  auto countCompletion = [&]() {
    if (!fast.cardBits.empty()) {
      std::array<int, 4> suitCounts = knownSuitCounts;
      std::array<uint32_t, 4> suitRanks = knownSuitRanks;
      uint64_t comingBits = 0;
      for (int i = 0; i < comingCount; ++i) {
        ++suitCounts[coming[i].suit];
        suitRanks[coming[i].suit] |= RankMaskBit(coming[i].rank);
        comingBits |= CardBit(coming[i]);
      }
      int32_t flushSuit = -1;
      for (int suit = 0; suit < 4; ++suit) {
        if (suitCounts[suit] > 2) flushSuit = suit;
      }
      const ShowdownKey* keys = rankKeys.For(coming, comingCount);
      ShowdownKey myKey = keys[myRankPair];
      if (flushSuit >= 0) {
        const uint32_t mine = mySuitRanks[flushSuit];
        myKey = std::max(myKey, FlushPartKey(suitRanks[flushSuit] | mine, mine));
        CountCompletion<true, kByHolding>(fast, keys, myKey, comingBits, flushSuit, suitRanks[flushSuit],
                                          tally, &fastTallies);
      } else {
        CountCompletion<false, kByHolding>(fast, keys, myKey, comingBits, -1, 0, tally, &fastTallies);
      }
    }
    if (!byReader.empty()) {
      BoardCards cards = board;
      for (int i = 0; i < comingCount; ++i) cards[known + i] = coming[i];
      const HandCombo mine{true, myHand.rank1, myHand.suit1, myHand.rank2, myHand.suit2};
      const ShowdownKey myKey = StreetShowdownKey(mine, cards, kRiver);
      for (std::size_t r = 0; r < byReader.size(); ++r) {
        const HandCombo& combo = byReader[r];
        bool uses = false;
        for (int i = 0; i < comingCount; ++i) uses = uses || SharesCard(combo, coming[i]);
        if (uses) continue;
        const ShowdownKey key = StreetShowdownKey(combo, cards, kRiver);
        if constexpr (kByHolding) {
          ShowdownCounts& counts = byHolding[readerOrigin[r]];
          ++counts.total;
          counts.myWins += myKey > key ? 1 : 0;
          counts.oppWins += myKey < key ? 1 : 0;
          counts.ties += myKey == key ? 1 : 0;
        } else {
          ++tally.live;
          tally.myWins += myKey > key ? 1 : 0;
          tally.oppWins += myKey < key ? 1 : 0;
        }
      }
    }
  };

  if (comingCount == 2) {
    for (int i = 0; i < remaining.count; ++i) {
      for (int j = i + 1; j < remaining.count; ++j) {
        coming = {remaining.cards[i], remaining.cards[j]};
        countCompletion();
      }
    }
  } else {
    for (int k = 0; k < remaining.count; ++k) {
      coming = {remaining.cards[k], Card{}};
      countCompletion();
    }
  }

  if constexpr (kByHolding) {
    // The completions that leave out both cards of a key-path holding (both are among the remaining cards).
    const int64_t rest = remaining.count - 2;
    const int64_t meets = comingCount == 2 ? rest * (rest - 1) / 2 : rest;
    for (std::size_t i = 0; i < fast.size(); ++i) {
      ShowdownCounts& counts = byHolding[fastOrigin[i]];
      counts.total = meets;
      counts.myWins = fastTallies.wins[i] & 0xFFFF;
      counts.oppWins = fastTallies.wins[i] >> kOppWinShift;
      counts.ties = counts.total - counts.myWins - counts.oppWins;
    }
  }
}

}  // namespace

ShowdownCounts CountShowdowns(const HandCards& myHand, const BoardCards& board, int32_t street,
                              std::span<const HandCombo> combos) {
  Tally tally;
  Enumerate<false>(myHand, board, street, combos, tally, {});
  ShowdownCounts counts;
  counts.total = tally.live;
  counts.myWins = tally.myWins;
  counts.oppWins = tally.oppWins;
  counts.ties = tally.live - tally.myWins - tally.oppWins;
  return counts;
}

void CountShowdownsByHolding(const HandCards& myHand, const BoardCards& board, int32_t street,
                             std::span<const HandCombo> combos, std::span<ShowdownCounts> counts) {
  std::fill(counts.begin(), counts.end(), ShowdownCounts{});
  if (counts.size() < combos.size()) return;
  Tally unused;
  Enumerate<true>(myHand, board, street, combos, unused, counts);
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

EquityResult RunPath(const HandCards& myHand, const BoardCards& board, int32_t street,
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
