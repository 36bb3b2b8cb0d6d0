#include "range/holding_set.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

#include "cards/hand_class.h"

namespace quillet {
namespace {

TEST(HoldingNumber, GivesEachOfThe1326HoldingsItsOwnNumberInEitherCardOrder) {
  std::set<int> seen;
  for (int a = 0; a < 52; ++a) {
    for (int b = 0; b < a; ++b) {
      const Card x = DeckCard(a);
      const Card y = DeckCard(b);
      const int n = HoldingNumber(x, y);
      EXPECT_EQ(n, HoldingNumber(y, x));
      EXPECT_GE(n, 0);
      EXPECT_LT(n, kHoldingCount);
      seen.insert(n);
      const auto cards = CardsOfHolding(n);
      EXPECT_EQ(cards[0], x);
      EXPECT_EQ(cards[1], y);
    }
  }
  EXPECT_EQ(seen.size(), 1326u);
}

TEST(HoldingSet, CountsInsertsAndErases) {
  HoldingSet set;
  EXPECT_TRUE(set.empty());
  set.insert(Card{14, 2}, Card{13, 2});
  set.insert(Card{13, 2}, Card{14, 2});
  set.insert(0);
  set.insert(kHoldingCount - 1);
  EXPECT_EQ(set.size(), 3);
  EXPECT_TRUE(set.contains(kHoldingCount - 1));
  set.erase(0);
  EXPECT_FALSE(set.contains(0));
  EXPECT_EQ(set.size(), 2);
  EXPECT_EQ(HoldingSet::All().size(), 1326);
}

TEST(HoldingsOfClass, ListsEachClasssHoldingsOnceAndCoverEveryHolding) {
  HoldingSet all;
  int total = 0;
  for (int c = 0; c < kClassCount; ++c) {
    const ClassHoldings& own = HoldingsOfClass(c);
    EXPECT_EQ(own.count, HandClasses()[c].kind == kKindPair     ? 6
                         : HandClasses()[c].kind == kKindSuited ? 4
                                                                : 12);
    for (int i = 0; i < own.count; ++i) all.insert(own.holdings[i].number);
    total += own.count;
  }
  EXPECT_EQ(total, 1326);
  EXPECT_EQ(all, HoldingSet::All());
}

TEST(PutHoldingsInLayer, AWholeClassLooksAsAClickOnItsBlockLeavesIt) {
  RangeLayer clicked = MakeEmptyLayer();
  for (const char* name : {"AA", "AKs", "AK"}) {
    const int c = FindClassByName(name);
    SetBlockWhole(clicked[c], HandClasses()[c].kind == kKindSuited);
  }
  RangeLayer layer = MakeEmptyLayer();
  PutHoldingsInLayer(HoldingsOfLayer(clicked), layer);
  EXPECT_EQ(layer, clicked);
}

TEST(PutHoldingsInLayer, ARecordThatAlreadyHoldsTheHoldingsIsLeftAlone) {
  RangeLayer layer = MakeEmptyLayer();
  const int ak = FindClassByName("AK");
  SetBlockWhole(layer[ak], false);
  SetBlockSuitPair(layer[ak], 0, 1, false, false);  // the suit matrix takes AcKd out
  UpdateBlockFlags(layer[FindClassByName("72")]);   // an empty record with its flags re-derived
  const RangeLayer before = layer;
  PutHoldingsInLayer(HoldingsOfLayer(layer), layer);
  EXPECT_EQ(layer, before);
}

TEST(PutHoldingsInLayer, TheLayerHoldsExactlyTheSetAfterwards) {
  std::mt19937 random(7);
  RangeLayer layer = MakeEmptyLayer();
  for (int n = 0; n < 200; ++n) {
    HoldingSet set;
    const int density = static_cast<int>(random() % 100);
    for (int i = 0; i < kHoldingCount; ++i) {
      if (static_cast<int>(random() % 100) < density) set.insert(i);
    }
    PutHoldingsInLayer(set, layer);
    ASSERT_EQ(HoldingsOfLayer(layer), set) << "set " << n;
  }
}

TEST(HoldingsOfLayer, PassesOverEntriesThatAreNotTwoDifferentCards) {
  RangeLayer layer = MakeEmptyLayer();
  BlockRecord& aa = layer[FindClassByName("AA")];
  aa.count = 2;
  aa.combos[0] = {kFalse16, 2, 2};  // the same ace twice
  aa.combos[1] = {kFalse16, 3, 1};
  const HoldingSet set = HoldingsOfLayer(layer);
  EXPECT_EQ(set.size(), 1);
  EXPECT_TRUE(set.contains(Card{14, 3}, Card{14, 1}));
}

}  // namespace
}  // namespace quillet
