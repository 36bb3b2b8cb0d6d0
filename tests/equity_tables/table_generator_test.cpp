#include <gtest/gtest.h>

#include <array>

#include "equity/preflop_table_generator.h"
#include "tests/equity_tables/reference_equity.h"
#include "tests/support/card_text.h"

namespace quillet {
namespace {

using testing::C;

TEST(TableGenerator, ItsFastEnumerationCountsLikeThePlainOneWhereFlushesDecide) {
  // Four hearts between the two hands: flushes, straight flushes and split boards all matter.
  EXPECT_EQ(CountWinsTwice(C("Ah"), C("Kh"), C("Qh"), C("Jh")),
            testing::ReferenceWinsTwice(C("Ah"), C("Kh"), C("Qh"), C("Jh")));
}

TEST(TableGenerator, ItsFastEnumerationCountsLikeThePlainOneForAPairAgainstTwoLowCards) {
  EXPECT_EQ(CountWinsTwice(C("5c"), C("5d"), C("4h"), C("3s")),
            testing::ReferenceWinsTwice(C("5c"), C("5d"), C("4h"), C("3s")));
}

TEST(TableGenerator, ItsCountsOfWinsTiesAndLossesMatchThePlainOnesForEveryKindOfSuitSharing) {
  // Suited against suited in other suits (two flush suits), pair against suited sharing a suit, and two
  // wheel hands of one suit (straight flushes from the ace down).
  for (const auto& [a1, a2, b1, b2] : {std::array{"Ah", "Kh", "Qs", "Js"}, std::array{"9c", "9d", "8d", "7d"},
                                       std::array{"5h", "4h", "Ah", "2h"}}) {
    EXPECT_EQ(CountMatchupShowdowns(C(a1), C(a2), C(b1), C(b2)),
              testing::ReferenceTally(C(a1), C(a2), C(b1), C(b2)))
        << a1 << a2 << " v " << b1 << b2;
  }
}

TEST(TableGenerator, AMatchupAndItsReverseShareOutEveryBoardBetweenThem) {
  // A split counts one for each side, a win two for the winner: together twice the number of boards.
  EXPECT_EQ(
      CountWinsTwice(C("7h"), C("6h"), C("Ac"), C("Kd")) + CountWinsTwice(C("Ac"), C("Kd"), C("7h"), C("6h")),
      2 * kBoardCount);
}

TEST(TableGenerator, AMatchupThatIsItsOwnMirrorImageIsAnEvenSplit) {
  // Renaming clubs and hearts, diamonds and spades turns AcKd v AhKs into AhKs v AcKd.
  EXPECT_EQ(CountWinsTwice(C("Ac"), C("Kd"), C("Ah"), C("Ks")), kBoardCount);
  EXPECT_DOUBLE_EQ(EnumeratedEquity(C("Ac"), C("Kd"), C("Ah"), C("Ks")), 50.0);
}

}  // namespace
}  // namespace quillet
