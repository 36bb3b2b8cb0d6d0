#include "equity/table_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "equity/embedded_tables.h"
#include "tests/support/damaged_table.h"

namespace quillet {
namespace {

using Bytes = testing::TableBytes;
using testing::PutU32;
using testing::Reseal;

std::span<const unsigned char> AsSpan(const Bytes& b) {
  return {b.data(), b.size()};
}
std::span<const unsigned char> AsSpan(std::string_view s) {
  return {reinterpret_cast<const unsigned char*>(s.data()), s.size()};
}

LookupTables Sample() {
  return {{5, 17, 4000}, {12.5f, 50.0f, 99.25f}};
}

TEST(Crc32, GivesTheStandardCheckValueForTheDigitsOneToNine) {
  EXPECT_EQ(Crc32(AsSpan(std::string_view("123456789"))), 0xCBF43926u);
  EXPECT_EQ(Crc32({}), 0u);
}

TEST(TableFile, IsMagicVersionCountChecksumThenKeysThenValuesLittleEndian) {
  const Bytes b = SerializeTables(Sample());
  ASSERT_EQ(b.size(), 20u + 8 * 3);
  EXPECT_EQ(std::string(b.begin(), b.begin() + 8), "QPREFLOP");
  EXPECT_EQ(b[8], 1);   // version 1
  EXPECT_EQ(b[12], 3);  // three entries
  EXPECT_EQ(b[20], 5);  // first key, low byte first
  EXPECT_EQ(b[24], 17);
  EXPECT_EQ(b[28], 4000 & 0xFF);
  EXPECT_EQ(b[29], 4000 >> 8);
  float first;
  std::memcpy(&first, &b[32], 4);
  EXPECT_EQ(first, 12.5f);
}

TEST(TableFile, ReadsBackWhatItWrote) {
  const Bytes b = SerializeTables(Sample());
  const TablesOrError read = ParseTables(AsSpan(b));
  ASSERT_TRUE(read.ok()) << read.error;
  const LookupTables sample = Sample();
  EXPECT_TRUE(std::ranges::equal(read.tables->keys, sample.keys));
  EXPECT_TRUE(std::ranges::equal(read.tables->values, sample.values));
}

TEST(TableFile, AnEmptyTableIsWellFormed) {
  const TablesOrError read = ParseTables(AsSpan(SerializeTables({})));
  ASSERT_TRUE(read.ok()) << read.error;
  EXPECT_EQ(read.tables->size(), 0);
}

const testing::TableLoader kLoader{
    [](const Bytes& b) {
      const TablesOrError read = ParseTables(AsSpan(b));
      return testing::TableRead{read.ok(), read.tables.has_value(), read.error};
    },
    "The preflop table is damaged"};

void ExpectRefused(const Bytes& b, const std::string& because) {
  testing::ExpectRefused(kLoader, b, because);
}

TEST(TableFile, RefusesDataShorterThanTheHeader) {
  testing::ExpectShortDataRefused(kLoader);
}

TEST(TableFile, RefusesAWrongMagic) {
  Bytes b = SerializeTables(Sample());
  b[0] = 'X';
  ExpectRefused(b, "does not start with \"QPREFLOP\"");
}

TEST(TableFile, RefusesAnotherFormatVersion) {
  testing::ExpectOtherVersionRefused(kLoader, SerializeTables(Sample()));
}

TEST(TableFile, RefusesASizeThatDoesNotMatchTheCount) {
  testing::ExpectSizeMismatchRefused(
      kLoader, SerializeTables(Sample()), "holds 45 bytes where 3 entries take 44",
      "holds 43 bytes where 3 entries take 44", "where 4294967295 entries take");
}

TEST(TableFile, RefusesContentsThatDoNotMatchTheChecksum) {
  Bytes b = SerializeTables(Sample());
  b[30] ^= 0x01;
  ExpectRefused(b, "checksum does not match");
}

TEST(TableFile, RefusesKeysOutOfOrderOrRepeated) {
  Bytes b = SerializeTables(Sample());
  PutU32(b, 24, 5);  // second key equal to the first
  Reseal(b);
  ExpectRefused(b, "not in ascending order at entry 1");
}

TEST(TableFile, RefusesAnEquityOutsideZeroToHundred) {
  Bytes b = SerializeTables({{1, 2}, {50.0f, 100.5f}});
  Reseal(b);
  ExpectRefused(b, "entry 1 holds an equity outside 0..100");
}

TEST(EmbeddedTable, IsBuiltIntoTheProgramInTheCurrentFormat) {
  const auto bytes = EmbeddedTableBytes();
  ASSERT_GE(bytes.size(), kTableHeaderSize);
  EXPECT_EQ(std::string(bytes.begin(), bytes.begin() + 8), "QPREFLOP");
  const TablesOrError read = ParseTables(bytes);
  EXPECT_TRUE(read.ok()) << read.error;
}

}  // namespace
}  // namespace quillet
