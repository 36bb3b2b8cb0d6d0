#include "equity/lookup_tables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <vector>

#include "equity/deck.h"
#include "equity/embedded_tables.h"
#include "equity/matchup_key.h"
#include "equity/table_file.h"

namespace quillet {
namespace {

LookupTables SmallTable() {
  return {{-7, 3, 10, 250, 9000}, {1.0f, 2.0f, 3.0f, 4.0f, 5.0f}};
}

TEST(FindKey, FindsTheFirstAndTheLastStoredKeyAtIndexZeroAndNMinusOne) {
  const LookupTables t = SmallTable();
  const KeySearch first = FindKey(t, -7);
  EXPECT_TRUE(first.found);
  EXPECT_EQ(first.index, 0);
  const KeySearch last = FindKey(t, 9000);
  EXPECT_TRUE(last.found);
  EXPECT_EQ(last.index, 4);
}

TEST(FindKey, FindsEveryStoredKeyAtItsOwnIndex) {
  const LookupTables t = SmallTable();
  for (int32_t i = 0; i < t.size(); ++i) {
    const KeySearch s = FindKey(t, t.keys[i]);
    EXPECT_TRUE(s.found);
    EXPECT_EQ(s.index, i);
  }
}

TEST(FindKey, AKeyBelowTheFirstGivesIndexZeroNotFound) {
  const KeySearch s = FindKey(SmallTable(), -8);
  EXPECT_FALSE(s.found);
  EXPECT_EQ(s.index, 0);
}

TEST(FindKey, AKeyAboveTheLastIsNotFoundAndNothingPastTheEndIsRead) {
  // The keys sit in a vector of exactly five, so a read one past the end is caught by the sanitizer.
  const KeySearch s = FindKey(SmallTable(), 9001);
  EXPECT_FALSE(s.found);
  EXPECT_EQ(s.index, 5);
}

TEST(FindKey, AKeyBetweenTwoStoredKeysGivesTheIndexOfTheHigherNotFound) {
  const KeySearch s = FindKey(SmallTable(), 11);
  EXPECT_FALSE(s.found);
  EXPECT_EQ(s.index, 3);
}

TEST(FindKey, AnEmptyTableFindsNothing) {
  const KeySearch s = FindKey(LookupTables{}, 3);
  EXPECT_FALSE(s.found);
  EXPECT_EQ(s.index, 0);
}

TEST(FindKey, ComparesKeysAsSignedNumbers) {
  const LookupTables t{{INT32_MIN, -1, 0, INT32_MAX}, {0, 0, 0, 0}};
  EXPECT_EQ(FindKey(t, INT32_MIN).index, 0);
  EXPECT_EQ(FindKey(t, -1).index, 1);
  EXPECT_TRUE(FindKey(t, INT32_MAX).found);
  EXPECT_EQ(FindKey(t, INT32_MAX).index, 3);
}

TEST(ProgramTables, AreReadInPlaceAndTheFullCheckOfTheBuiltInTableFindsThemWhole) {
  // At start only the header is checked; LoadTables checks the checksum, the key order and the values.
  const TablesOrError checked = LoadTables();
  ASSERT_TRUE(checked.ok()) << checked.error;
  const LookupTables& inPlace = *ProgramTables().tables;
  EXPECT_EQ(static_cast<const void*>(inPlace.keys.data()),
            static_cast<const void*>(EmbeddedTableBytes().data() + kTableHeaderSize));
  ASSERT_EQ(inPlace.size(), checked.tables->size());
  EXPECT_TRUE(std::equal(inPlace.keys.begin(), inPlace.keys.end(), checked.tables->keys.begin()));
  EXPECT_TRUE(std::equal(inPlace.values.begin(), inPlace.values.end(), checked.tables->values.begin()));
}

TEST(LookupTables, ACopyHoldsItsOwnEntries) {
  LookupTables copy;
  {
    const LookupTables original = SmallTable();
    copy = original;
    EXPECT_NE(copy.keys.data(), original.keys.data());
  }
  EXPECT_EQ(FindKey(copy, 250).index, 3);
  EXPECT_EQ(copy.values[3], 4.0f);
}

TEST(ProgramTables, LoadWithoutErrorAndHoldAscendingKeys) {
  const TablesOrError& loaded = ProgramTables();
  ASSERT_TRUE(loaded.ok()) << loaded.error;
  const LookupTables& t = *loaded.tables;
  ASSERT_GT(t.size(), 0);
  EXPECT_EQ(t.keys.size(), t.values.size());
  for (int32_t i = 1; i < t.size(); ++i) ASSERT_LT(t.keys[i - 1], t.keys[i]) << "entry " << i;
  EXPECT_TRUE(FindKey(t, t.keys.front()).found);
  EXPECT_EQ(FindKey(t, t.keys.front()).index, 0);
  EXPECT_EQ(FindKey(t, t.keys.back()).index, t.size() - 1);
  EXPECT_FALSE(FindKey(t, t.keys.back() + 1).found);
  EXPECT_FALSE(FindKey(t, t.keys.front() - 1).found);
}

TEST(ProgramTables, HoldExactlyTheKeysOfEveryOrderOfEveryTwoDisjointHands) {
  const LookupTables& t = *ProgramTables().tables;
  std::vector<bool> used(t.keys.size(), false);
  int64_t missing = 0;
  for (int32_t p1 = 0; p1 < 52; ++p1)
    for (int32_t p2 = 0; p2 < 52; ++p2)
      for (int32_t q1 = 0; q1 < 52; ++q1)
        for (int32_t q2 = 0; q2 < 52; ++q2) {
          if (p1 == p2 || q1 == q2 || q1 == p1 || q1 == p2 || q2 == p1 || q2 == p2) continue;
          const KeySearch s =
              FindKey(t, BuildMatchupKey(DeckCard(p1), DeckCard(p2), DeckCard(q1), DeckCard(q2)));
          if (!s.found) {
            ++missing;
            continue;
          }
          used[s.index] = true;
        }
  EXPECT_EQ(missing, 0);
  EXPECT_EQ(std::count(used.begin(), used.end(), false), 0) << "stored keys that no matchup builds";
}

}  // namespace
}  // namespace quillet
