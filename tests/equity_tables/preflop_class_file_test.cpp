#include "equity/preflop_class_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "equity/embedded_tables.h"
#include "equity/table_file.h"
#include "tests/support/damaged_table.h"

namespace quillet {
namespace {

using Bytes = testing::TableBytes;
using testing::GetU32;
using testing::PutU32;
using testing::Reseal;

// The records of the built-in table: a valid file needs every class.
const std::vector<MatchupClassRecord>& BuiltIn() {
  static const std::vector<MatchupClassRecord> records = [] {
    const PreflopClassTableOrError& loaded = ProgramPreflopClassTable();
    EXPECT_TRUE(loaded.ok()) << loaded.error;
    if (!loaded.ok()) return std::vector<MatchupClassRecord>{};
    const auto records = loaded.table->Records();
    return std::vector<MatchupClassRecord>(records.begin(), records.end());
  }();
  return records;
}

std::size_t RecordAt(std::size_t i) {
  return kClassTableHeaderSize + kClassRecordSize * i;
}

const testing::TableLoader kLoader{[](const Bytes& b) {
                                     const PreflopClassTableOrError read = ParseClassTable(b);
                                     return testing::TableRead{read.ok(), read.table.has_value(), read.error};
                                   },
                                   "The preflop class table is damaged: "};

void ExpectRefused(const Bytes& b, const std::string& because) {
  testing::ExpectRefused(kLoader, b, because);
}

TEST(ClassTableFile, IsMagicVersionCountChecksumThenCodeWinsTiesLossesPerClassLittleEndian) {
  const std::vector<MatchupClassRecord> two = {{0x123456, 1000, 20, 1712304 - 1020}, {0x123457, 5, 6, 7}};
  const Bytes b = SerializeClassTable(two);
  ASSERT_EQ(b.size(), 20u + 16 * 2);
  EXPECT_EQ(std::string(b.begin(), b.begin() + 8), "QPFCLASS");
  EXPECT_EQ(GetU32(b, 8), 1u);
  EXPECT_EQ(GetU32(b, 12), 2u);
  EXPECT_EQ(GetU32(b, 16), Crc32(std::span(b).subspan(20)));
  EXPECT_EQ(b[20], 0x56);  // first code, low byte first
  EXPECT_EQ(GetU32(b, 24), 1000u);
  EXPECT_EQ(GetU32(b, 28), 20u);
  EXPECT_EQ(GetU32(b, 32), 1712304u - 1020);
  EXPECT_EQ(GetU32(b, 36), 0x123457u);
}

TEST(ClassTableFile, ReadsBackTheFullTableItWrote) {
  ASSERT_EQ(BuiltIn().size(), 47008u);
  const Bytes b = SerializeClassTable(BuiltIn());
  EXPECT_EQ(b.size(), 752148u);
  const PreflopClassTableOrError read = ParseClassTable(b);
  ASSERT_TRUE(read.ok()) << read.error;
  EXPECT_TRUE(std::ranges::equal(read.table->Records(), BuiltIn()));
}

TEST(ClassTableFile, RefusesDataShorterThanTheHeader) {
  testing::ExpectShortDataRefused(kLoader);
}

TEST(ClassTableFile, RefusesAWrongMagic) {
  Bytes b = SerializeClassTable(BuiltIn());
  b[2] = 'X';
  ExpectRefused(b, "does not start with \"QPFCLASS\"");
  // The other table's file is not a class table.
  ExpectRefused(Bytes(EmbeddedTableBytes().begin(), EmbeddedTableBytes().end()), "does not start with");
}

TEST(ClassTableFile, RefusesAnotherFormatVersion) {
  testing::ExpectOtherVersionRefused(kLoader, SerializeClassTable(BuiltIn()));
}

TEST(ClassTableFile, RefusesASizeThatDoesNotMatchTheCount) {
  testing::ExpectSizeMismatchRefused(
      kLoader, SerializeClassTable(BuiltIn()), "holds 752149 bytes where 47008 classes take 752148",
      "holds 752147 bytes where 47008 classes take 752148", "where 4294967295 classes take");
}

TEST(ClassTableFile, RefusesContentsThatDoNotMatchTheChecksum) {
  Bytes b = SerializeClassTable(BuiltIn());
  b[RecordAt(1000) + 5] ^= 0x01;
  ExpectRefused(b, "checksum does not match");
}

TEST(ClassTableFile, RefusesClassCodesOutOfOrderOrRepeated) {
  Bytes b = SerializeClassTable(BuiltIn());
  PutU32(b, RecordAt(7), GetU32(b, RecordAt(6)));  // class 7 repeats class 6's code
  Reseal(b);
  ExpectRefused(b, "not in ascending order at class 7");
}

TEST(ClassTableFile, RefusesAClassWhoseCountsAreNotOneForEachBoard) {
  Bytes b = SerializeClassTable(BuiltIn());
  PutU32(b, RecordAt(42) + 8, GetU32(b, RecordAt(42) + 8) + 1);  // one tie too many
  Reseal(b);
  ExpectRefused(b, "class 42 counts 1712305 showdowns, not one for each of the 1712304 boards");
}

TEST(ClassTableFile, RefusesATableThatLeavesAMatchupWithoutItsClass) {
  std::vector<MatchupClassRecord> fewer = BuiltIn();
  fewer.erase(fewer.begin() + 100);
  ExpectRefused(SerializeClassTable(fewer), "has no class for the matchup ");
}

TEST(ClassTableFile, RefusesAClassThatNoMatchupHas) {
  std::vector<MatchupClassRecord> more = BuiltIn();
  more.push_back({0xFFFFFFu, 0, kPreflopBoardCount, 0});  // a code above every real class
  ExpectRefused(SerializeClassTable(more), "its class 47008 names no matchup");
  std::vector<MatchupClassRecord> overlapping = BuiltIn();
  overlapping.back().code = 51u << 18 | 50u << 12 | 51u << 6 | 49u;  // AsKs v AsQs: the ace twice
  ExpectRefused(SerializeClassTable(overlapping), "its class 47007 names no matchup");
}

// The code a class's matchup has after renaming the suits by `perm`.
uint32_t RenamedCode(uint32_t code, const std::array<int32_t, 4>& perm) {
  uint32_t out = 0;
  for (int h = 0; h < 2; ++h) {
    const auto cards = CardsOfHolding(ClassCodeHoldings(code)[h]);
    const int32_t x = perm[cards[0].suit] * 13 + cards[0].rank - 2;
    const int32_t y = perm[cards[1].suit] * 13 + cards[1].rank - 2;
    out = out << 12 | static_cast<uint32_t>(x > y ? x << 6 | y : y << 6 | x);
  }
  return out;
}

TEST(ClassTableFile, RefusesAClassNamedByAnotherThanItsSmallestCode) {
  std::vector<MatchupClassRecord> renamed = BuiltIn();
  // The last class, its suits renamed: another code of the same matchups, larger, so the order still holds.
  MatchupClassRecord& last = renamed.back();
  std::array<int32_t, 4> perm = {0, 1, 2, 3};
  while (RenamedCode(last.code, perm) == last.code) std::next_permutation(perm.begin(), perm.end());
  last.code = RenamedCode(last.code, perm);
  ExpectRefused(SerializeClassTable(renamed),
                "its class 47007 is not named by the smallest code of its matchups");
}

TEST(EmbeddedClassTable, IsBuiltIntoTheProgramInTheCurrentFormat) {
  const auto bytes = EmbeddedClassTableBytes();
  ASSERT_EQ(bytes.size(), 752148u);
  EXPECT_EQ(std::string(bytes.begin(), bytes.begin() + 8), "QPFCLASS");
  const PreflopClassTableOrError read = ParseClassTable(bytes);
  EXPECT_TRUE(read.ok()) << read.error;
}

}  // namespace
}  // namespace quillet
