#include "equity/matchup_key.h"

#include <gtest/gtest.h>

#include "tests/support/card_text.h"

namespace quillet {
namespace {

using testing::C;

int32_t Key(const char* p1, const char* p2, const char* q1, const char* q2) {
  return BuildMatchupKey(C(p1), C(p2), C(q1), C(q2));
}

// The key written out field by field.
constexpr int32_t Fields(int32_t shapes, int32_t code, int32_t r1, int32_t r2, int32_t r3, int32_t r4) {
  return shapes + code * 64 + r1 * 2048 + r2 * 32768 + r3 * 524288 + r4 * 8388608;
}

TEST(MatchupKey, PacksShapesSuitCodeAndTheFourRanksInTheirBitFields) {
  // AhKd v QcJs: offsuit (4) v offsuit (32), no suit shared (code 0).
  EXPECT_EQ(Key("Ah", "Kd", "Qc", "Js"), Fields(36, 0, 14, 13, 12, 11));
  // 2c2d v 3h3s: pair (1) v pair (8).
  EXPECT_EQ(Key("2c", "2d", "3h", "3s"), Fields(9, 0, 2, 2, 3, 3));
  const int32_t key = Key("Ah", "Kd", "Qh", "Jd");
  EXPECT_EQ(KeyShapes(key), 36);
  EXPECT_EQ(KeySuitCode(key), 1);
  EXPECT_EQ(KeyRankP1(key), 14);
  EXPECT_EQ(KeyRankP2(key), 13);
  EXPECT_EQ(KeyRankQ1(key), 12);
  EXPECT_EQ(KeyRankQ2(key), 11);
  EXPECT_EQ(key & 0x600, 0);                        // bits 9-10
  EXPECT_EQ(static_cast<uint32_t>(key) >> 27, 0u);  // bits 27-31
}

TEST(MatchupKey, ShapesAreTakenFromRanksFirstThenSuits) {
  EXPECT_EQ(KeyShapes(Key("Ah", "Ad", "Kh", "Qh")), 1 | 16);
  EXPECT_EQ(KeyShapes(Key("Ah", "Kh", "Qc", "Qd")), 2 | 8);
  EXPECT_EQ(KeyShapes(Key("Ah", "Kd", "Qc", "Jd")), 4 | 32);
}

TEST(MatchupKey, PairAgainstPairCodes) {
  EXPECT_EQ(KeySuitCode(Key("Ah", "Ad", "Kh", "Kd")), 1);  // both suits shared, in order
  EXPECT_EQ(KeySuitCode(Key("Ah", "Ad", "Kd", "Kh")), 1);  // both shared, crosswise
  EXPECT_EQ(KeySuitCode(Key("Ah", "Ad", "Kh", "Kc")), 2);  // first card's suit shared with Q1
  EXPECT_EQ(KeySuitCode(Key("Ah", "Ad", "Kc", "Kh")), 2);  // first card's suit shared with Q2
  EXPECT_EQ(KeySuitCode(Key("Ah", "Ad", "Kd", "Kc")), 1);  // only the second card's suit shared
  EXPECT_EQ(KeySuitCode(Key("Ah", "Ad", "Kc", "Kd")), 1);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Ad", "Kc", "Ks")), 0);
}

TEST(MatchupKey, SuitedAgainstPairCodes) {
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kh", "Qh", "Qd")), 1);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kh", "Qd", "Qh")), 1);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kh", "Qc", "Qd")), 0);
}

TEST(MatchupKey, OffsuitAgainstPairCodes) {
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kd", "Qh", "Qd")), 1);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kd", "Qh", "Qc")), 2);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kd", "Qd", "Qh")), 1);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kd", "Qc", "Qh")), 2);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kd", "Qd", "Qc")), 3);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kd", "Qc", "Qd")), 3);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kd", "Qc", "Qs")), 0);
}

TEST(MatchupKey, PairAgainstSuitedCodes) {
  EXPECT_EQ(KeySuitCode(Key("Ah", "Ad", "Kh", "Qh")), 1);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Ad", "Kd", "Qd")), 1);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Ad", "Kc", "Qc")), 0);
}

TEST(MatchupKey, SuitedAgainstSuitedCodes) {
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kh", "Qh", "Jh")), 1);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kh", "Qd", "Jd")), 0);
}

TEST(MatchupKey, OffsuitAgainstSuitedCodes) {
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kd", "Qh", "Jh")), 1);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kd", "Qd", "Jd")), 2);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kd", "Qc", "Jc")), 0);
}

TEST(MatchupKey, PairAgainstOffsuitCodes) {
  EXPECT_EQ(KeySuitCode(Key("Ah", "Ad", "Kh", "Qd")), 1);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Ad", "Kh", "Qc")), 2);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Ad", "Kd", "Qh")), 1);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Ad", "Kc", "Qh")), 3);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Ad", "Kd", "Qc")), 2);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Ad", "Kc", "Qd")), 3);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Ad", "Kc", "Qs")), 0);
}

TEST(MatchupKey, SuitedAgainstOffsuitCodes) {
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kh", "Qh", "Jd")), 1);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kh", "Qd", "Jh")), 2);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kh", "Qd", "Jc")), 0);
}

TEST(MatchupKey, OffsuitAgainstOffsuitCodes) {
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kd", "Qh", "Jd")), 1);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kd", "Qh", "Jc")), 2);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kd", "Qd", "Jh")), 3);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kd", "Qc", "Jh")), 4);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kd", "Qd", "Jc")), 5);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kd", "Qc", "Jd")), 6);
  EXPECT_EQ(KeySuitCode(Key("Ah", "Kd", "Qc", "Js")), 0);
}

TEST(MatchupKey, SwappingTheFirstHandsCardsChangesTheRankFieldsAndInSomeRowsTheSuitCode) {
  const int32_t inOrder = Key("Ah", "Kd", "Qd", "Jc");
  const int32_t swapped = Key("Kd", "Ah", "Qd", "Jc");
  EXPECT_NE(inOrder, swapped);
  EXPECT_NE(inOrder & 0x7F800, swapped & 0x7F800);  // bits 11-18
  EXPECT_EQ(KeySuitCode(inOrder), 5);
  EXPECT_EQ(KeySuitCode(swapped), 2);
  // Suited against suited: only the rank fields move.
  const int32_t suited = Key("Ah", "Kh", "Qh", "Jh");
  const int32_t suitedSwapped = Key("Kh", "Ah", "Qh", "Jh");
  EXPECT_NE(suited, suitedSwapped);
  EXPECT_EQ(suited & ~0x7F800, suitedSwapped & ~0x7F800);
  // A pair: the rank fields stay, the code moves (first card shares a suit: 2; second card shares: 1).
  EXPECT_EQ(Key("Ah", "Ad", "Kh", "Kc"), Fields(9, 2, 14, 14, 13, 13));
  EXPECT_EQ(Key("Ad", "Ah", "Kh", "Kc"), Fields(9, 1, 14, 14, 13, 13));
}

TEST(MatchupKey, APairAgainstAPairOfTheSameRankIsALegalKeyWithEqualRankFields) {
  EXPECT_EQ(Key("Ah", "Ad", "Ac", "As"), Fields(9, 0, 14, 14, 14, 14));
  EXPECT_EQ(Key("2h", "2d", "2c", "2s"), Fields(9, 0, 2, 2, 2, 2));
}

}  // namespace
}  // namespace quillet
