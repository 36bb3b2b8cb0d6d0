// The keys against the reference comparator (test code, step by step): on millions of random showdowns,
// and on every pair of holdings on a few boards chosen for their traps. Both ways of making a key are
// checked: the hand reader's, card by card (the icons, and the engine for a holding that shares a card),
// and the engine's rank part and flush part from tables.
#include "cards/showdown_key.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <vector>

#include "tests/support/card_text.h"
#include "tests/support/reference_showdown.h"
#include "tests/support/sanitizer.h"
#include "tests/support/test_seed.h"

namespace quillet {
namespace {

using testing::BoardRecord;
using testing::Cards;
using testing::CompareShowdown;
using testing::CompareShowdownHands;
using testing::EvaluateShowdownHand;
using testing::MakeBoardRecord;
using testing::Record;
using testing::ShowdownHand;

ShowdownResult ByKeys(ShowdownKey mine, ShowdownKey theirs) {
  return {mine > theirs, mine < theirs};
}

// The key as the engine makes it: the rank part from the seven ranks and the hole ranks, the flush part
// from the player's ranks in the board's flush suit (the suit of three or more board cards), the larger
// of the two.
ShowdownKey TableKeyOf(Card hole1, Card hole2, const std::array<Card, 5>& board) {
  std::array<int, 4> suitCounts{};
  for (const Card& card : board) ++suitCounts[card.suit];
  int32_t flushSuit = -1;
  for (int suit = 0; suit < 4; ++suit) {
    if (suitCounts[suit] > 2) flushSuit = suit;
  }
  RankMultiset ranks;
  uint32_t boardSuitRanks = 0;
  for (const Card& card : board) {
    ranks.Add(card.rank);
    if (card.suit == flushSuit) boardSuitRanks |= RankMaskBit(card.rank);
  }
  ranks.Add(hole1.rank);
  ranks.Add(hole2.rank);
  uint32_t holeSuitRanks = 0;
  if (hole1.suit == flushSuit) holeSuitRanks |= RankMaskBit(hole1.rank);
  if (hole2.suit == flushSuit) holeSuitRanks |= RankMaskBit(hole2.rank);
  const ShowdownKey rankPart =
      RankPartKey(ranks, std::max(hole1.rank, hole2.rank), std::min(hole1.rank, hole2.rank));
  return std::max(rankPart, FlushPartKey(boardSuitRanks | holeSuitRanks, holeSuitRanks));
}

std::string Describe(const std::array<Card, 9>& cards) {
  std::string text;
  for (int i = 0; i < 9; ++i) text += CardToText(cards[i]) + (i == 1 || i == 3 ? " | " : "");
  return text;
}

std::vector<Card> Deck() {
  std::vector<Card> deck;
  for (int i = 0; i < 52; ++i) deck.push_back(DeckCard(i));
  return deck;
}

// Cards to deal from, without allocating per showdown.
struct CardPool {
  std::array<Card, 52> cards{};
  std::size_t size = 0;
  void Add(Card card) { cards[size++] = card; }
};

// Deals nine different cards from `pool`: My Hand, the opponent, the board.
std::array<Card, 9> Deal(CardPool& pool, std::mt19937_64& random) {
  for (std::size_t i = 0; i < 9; ++i) {
    std::uniform_int_distribution<std::size_t> pick(i, pool.size - 1);
    std::swap(pool.cards[i], pool.cards[pick(random)]);
  }
  std::array<Card, 9> cards{};
  std::copy_n(pool.cards.begin(), 9, cards.begin());
  return cards;
}

// Pools that make the rare categories common: two suits only (flushes, six of a suit, straight flushes),
// four ranks (full houses, quads), and five consecutive ranks and one more (straights).
CardPool Pool(int kind, std::mt19937_64& random) {
  CardPool pool;
  if (kind == 0) {
    for (int i = 0; i < 52; ++i) pool.Add(DeckCard(i));
  } else if (kind == 1) {
    const int32_t a = static_cast<int32_t>(random() % 4);
    const int32_t b = (a + 1 + static_cast<int32_t>(random() % 3)) % 4;
    for (int32_t rank = 2; rank <= 14; ++rank) {
      pool.Add(Card{rank, a});
      pool.Add(Card{rank, b});
    }
  } else if (kind == 2) {
    std::array<int32_t, 13> ranks{2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14};
    std::shuffle(ranks.begin(), ranks.end(), random);
    for (int i = 0; i < 4; ++i) {
      for (int32_t suit = 0; suit < 4; ++suit) pool.Add(Card{ranks[static_cast<std::size_t>(i)], suit});
    }
  } else {
    const int32_t low = 1 + static_cast<int32_t>(random() % 10);  // 1: the wheel, with the ace
    for (int32_t r = low; r < low + 5; ++r) {
      for (int32_t suit = 0; suit < 4; ++suit) pool.Add(Card{r == 1 ? 14 : r, suit});
    }
    for (int32_t suit = 0; suit < 4; ++suit) pool.Add(Card{low + 6 > 14 ? 2 : low + 6, suit});
  }
  return pool;
}

// A few hundred pools of each kind, dealt from over and over.
std::vector<CardPool> Pools(std::mt19937_64& random) {
  std::vector<CardPool> pools;
  for (int n = 0; n < 400; ++n) pools.push_back(Pool(n % 4, random));
  return pools;
}

TEST(ShowdownKeys, AgreeWithTheStepByStepComparatorOnMillionsOfRandomShowdowns) {
  std::mt19937_64 random(quillet::testing::TestSeed(20240611));
  std::vector<CardPool> pools = Pools(random);
  constexpr int kShowdowns = quillet::testing::SweepRounds(2'000'000);
  std::array<int, 10> categoriesSeen{};
  int disagreements = 0;
  for (int n = 0; n < kShowdowns && disagreements < 10; ++n) {
    const std::array<Card, 9> c = Deal(pools[static_cast<std::size_t>(n) % pools.size()], random);
    const std::array<Card, 5> board{c[4], c[5], c[6], c[7], c[8]};
    const BoardRecord record = MakeBoardRecord(board);
    HandCards mine;
    mine.rank1 = c[0].rank, mine.suit1 = c[0].suit, mine.rank2 = c[1].rank, mine.suit2 = c[1].suit;
    const HandCombo theirs{true, c[2].rank, c[2].suit, c[3].rank, c[3].suit};
    const ShowdownResult expected = CompareShowdown(mine, theirs, record);
    const ShowdownKey myKey = ShowdownKeyOf(c[0], c[1], board);
    const ShowdownKey theirKey = ShowdownKeyOf(c[2], c[3], board);
    ++categoriesSeen[static_cast<std::size_t>(KeyCategory(myKey))];
    if (!(ByKeys(myKey, theirKey) == expected)) {
      ++disagreements;
      ADD_FAILURE() << Describe(c) << ": comparator " << expected.myWin << expected.oppWin << ", keys "
                    << std::hex << myKey << " " << theirKey;
    }
    // The engine's tables give every player the very same key.
    if (TableKeyOf(c[0], c[1], board) != myKey || TableKeyOf(c[2], c[3], board) != theirKey) {
      ++disagreements;
      ADD_FAILURE() << Describe(c) << ": the table keys differ from the hand reader's";
    }
  }
  // The pools reach every category, so the agreement covers them all.
  for (int category = 0; category < 10; ++category)
    EXPECT_GT(categoriesSeen[static_cast<std::size_t>(category)], 0) << category;
}

TEST(ShowdownKeys, GiveEveryPlayerTheCategoryTheComparatorGives) {
  std::mt19937_64 random(7);
  std::vector<CardPool> pools = Pools(random);
  for (int n = 0; n < quillet::testing::SweepRounds(400'000); ++n) {
    const std::array<Card, 9> c = Deal(pools[static_cast<std::size_t>(n) % pools.size()], random);
    const std::array<Card, 5> board{c[4], c[5], c[6], c[7], c[8]};
    const ShowdownHand hand = EvaluateShowdownHand(c[0], c[1], MakeBoardRecord(board));
    ASSERT_EQ(KeyCategory(ShowdownKeyOf(c[0], c[1], board)), hand.category) << Describe(c);
  }
}

// A holding that shares a card with the board (the engine reads such a holding card by card when its
// caller leaves it in): a card given twice counts twice, in the ranks and in the suit, as the written
// rules count it.
TEST(ShowdownKeys, AgreeWithTheReferenceWhenTheOpponentHoldsACardOfTheBoard) {
  std::mt19937_64 random(quillet::testing::TestSeed(20240615));
  std::vector<CardPool> pools = Pools(random);
  constexpr int kShowdowns = quillet::testing::SweepRounds(1'000'000);
  int disagreements = 0;
  int twiceCounted = 0;
  for (int n = 0; n < kShowdowns && disagreements < 10; ++n) {
    std::array<Card, 9> c = Deal(pools[static_cast<std::size_t>(n) % pools.size()], random);
    // One or both of the opponent's cards repeat a board card.
    c[2] = c[4 + static_cast<int>(random() % 5)];
    if (random() % 4 == 0) c[3] = c[4 + static_cast<int>(random() % 5)];
    const std::array<Card, 5> board{c[4], c[5], c[6], c[7], c[8]};
    HandCards mine;
    mine.rank1 = c[0].rank, mine.suit1 = c[0].suit, mine.rank2 = c[1].rank, mine.suit2 = c[1].suit;
    const HandCombo theirs{true, c[2].rank, c[2].suit, c[3].rank, c[3].suit};
    const ShowdownResult expected = CompareShowdown(mine, theirs, MakeBoardRecord(board));
    const ShowdownKey theirKey = ShowdownKeyOf(c[2], c[3], board);
    if (KeyCategory(theirKey) != EvaluateShowdownHand(c[2], c[3], MakeBoardRecord(board)).category) {
      ++disagreements;
      ADD_FAILURE() << Describe(c) << ": category";
    }
    if (!(ByKeys(ShowdownKeyOf(c[0], c[1], board), theirKey) == expected)) {
      ++disagreements;
      ADD_FAILURE() << Describe(c) << ": comparator " << expected.myWin << expected.oppWin;
    }
    twiceCounted += KeyCategory(theirKey) >= kMadePair ? 1 : 0;
  }
  EXPECT_EQ(disagreements, 0);
  EXPECT_GT(twiceCounted, 0);
}

// Every pair of different holdings from the cards left beside the board: about 1.07 million showdowns.
void ExpectAgreementOnEveryPairOfHoldings(const char* boardText) {
  SCOPED_TRACE(boardText);
  const auto b = Cards(boardText);
  const std::array<Card, 5> board{b[0], b[1], b[2], b[3], b[4]};
  const BoardRecord record = MakeBoardRecord(board);
  std::vector<Card> rest;
  for (const Card& card : Deck()) {
    if (std::find(board.begin(), board.end(), card) == board.end()) rest.push_back(card);
  }
  struct Holding {
    Card a, b;
    ShowdownHand hand;
    ShowdownKey key;
  };
  std::vector<Holding> holdings;
  for (std::size_t i = 0; i < rest.size(); ++i) {
    for (std::size_t j = i + 1; j < rest.size(); ++j) {
      holdings.push_back({rest[i], rest[j], EvaluateShowdownHand(rest[i], rest[j], record),
                          ShowdownKeyOf(rest[i], rest[j], board)});
      ASSERT_EQ(holdings.back().key, TableKeyOf(rest[i], rest[j], board));
    }
  }
  ASSERT_EQ(holdings.size(), 1081u);
  int64_t compared = 0;
  int failures = 0;
  for (const Holding& mine : holdings) {
    for (const Holding& theirs : holdings) {
      if (mine.a == theirs.a || mine.a == theirs.b || mine.b == theirs.a || mine.b == theirs.b) continue;
      ++compared;
      const ShowdownResult expected = CompareShowdownHands(mine.hand, theirs.hand);
      if (!(ByKeys(mine.key, theirs.key) == expected) && ++failures <= 10) {
        ADD_FAILURE() << CardToText(mine.a) << CardToText(mine.b) << " against " << CardToText(theirs.a)
                      << CardToText(theirs.b);
      }
    }
  }
  EXPECT_EQ(compared, 1081 * 990);
  EXPECT_EQ(failures, 0);
}

TEST(ShowdownKeys, AgreeOnEveryShowdownOfARoyalFlushBoard) {
  ExpectAgreementOnEveryPairOfHoldings("AhKhQhJhTh");
}
TEST(ShowdownKeys, AgreeOnEveryShowdownOfAFourFlushStraightBoard) {
  ExpectAgreementOnEveryPairOfHoldings("9h8h7h6h2c");
}
TEST(ShowdownKeys, AgreeOnEveryShowdownOfATwoPairBoard) {
  ExpectAgreementOnEveryPairOfHoldings("KcKd7h7s2c");
}
TEST(ShowdownKeys, AgreeOnEveryShowdownOfAQuadsBoard) {
  ExpectAgreementOnEveryPairOfHoldings("9c9d9h9sAc");
}
TEST(ShowdownKeys, AgreeOnEveryShowdownOfAWheelFlushBoard) {
  ExpectAgreementOnEveryPairOfHoldings("Ac2c3c8d8s");
}

TEST(ShowdownKeys, AFlushPartIsZeroUnlessExactlyFiveCardsOfTheSuit) {
  const uint32_t four = RankMaskBit(14) | RankMaskBit(13) | RankMaskBit(9) | RankMaskBit(5);
  EXPECT_EQ(FlushPartKey(four, 0), 0u);
  EXPECT_EQ(FlushPartKey(four | RankMaskBit(12) | RankMaskBit(11), RankMaskBit(12) | RankMaskBit(11)), 0u);
  EXPECT_EQ(FlushPartKey(four | RankMaskBit(12), RankMaskBit(12)), MakeShowdownKey(kMadeFlush, 12));
}

}  // namespace
}  // namespace quillet
