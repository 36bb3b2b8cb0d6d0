// The class table's matchup map that the build makes and builds into the program: the map a full check of
// the class table makes, read in place, and a checksum that finds a changed word.
#include "equity/preflop_class_map.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <span>
#include <vector>

#include "equity/embedded_tables.h"
#include "equity/preflop_class_file.h"
#include "equity/preflop_classes.h"

namespace quillet {
namespace {

std::span<const uint32_t> ProgramMapWords() {
  const std::span<const unsigned char> bytes = EmbeddedClassMapBytes();
  return {reinterpret_cast<const uint32_t*>(bytes.data()), bytes.size() / sizeof(uint32_t)};
}

// The map made at run time from the fully checked class table built into the program.
const std::vector<uint32_t>& CheckedImage() {
  static const std::vector<uint32_t> image = [] {
    const PreflopClassTableOrError checked = LoadPreflopClassTable();
    EXPECT_TRUE(checked.ok()) << checked.error;
    return checked.ok() ? ClassMapImage(*checked.table) : std::vector<uint32_t>{};
  }();
  return image;
}

TEST(ProgramClassMap, IsTheMapTheFullyCheckedClassTableMakesWordForWord) {
  ASSERT_FALSE(CheckedImage().empty());
  EXPECT_EQ(CheckedImage().size(), ClassMapLayout::ImageWords(47008));
  const std::span<const uint32_t> program = ProgramMapWords();
  ASSERT_EQ(program.size(), CheckedImage().size());
  EXPECT_TRUE(std::ranges::equal(program, CheckedImage()));
}

TEST(ProgramClassMap, ItsChecksumAndHeaderAreWhole) {
  EXPECT_TRUE(ProgramClassMapIntact());
  EXPECT_TRUE(ClassMapIntact(ProgramMapWords(), 47008));
}

TEST(ProgramClassMap, TheProgramsTableReadsItsRecordsAndItsMapInPlace) {
  const PreflopClassTableOrError& program = ProgramPreflopClassTable();
  ASSERT_TRUE(program.ok()) << program.error;
  const std::span<const unsigned char> classBytes = EmbeddedClassTableBytes();
  EXPECT_EQ(static_cast<const void*>(program.table->Records().data()),
            static_cast<const void*>(classBytes.data() + kClassTableHeaderSize));
  EXPECT_EQ(program.table->Records().size(), 47008u);
  const std::span<const uint32_t> map = ProgramMapWords();
  EXPECT_EQ(static_cast<const void*>(program.table->OrientedCounts().data()),
            static_cast<const void*>(map.data() + ClassMapLayout::kHeaderWords));
  EXPECT_EQ(program.table->MatchupRefs().data(), map.data() + map.size() - ClassMapLayout::kRefWords);
}

TEST(ClassMapIntact, FindsAChangedWordAWordMissingAndAMapMadeForAnotherClassCount) {
  ASSERT_FALSE(CheckedImage().empty());
  EXPECT_TRUE(ClassMapIntact(CheckedImage(), 47008));

  std::vector<uint32_t> changed = CheckedImage();
  changed[changed.size() / 2] ^= 1;
  EXPECT_FALSE(ClassMapIntact(changed, 47008));

  std::vector<uint32_t> shorter = CheckedImage();
  shorter.pop_back();
  EXPECT_FALSE(ClassMapIntact(shorter, 47008));

  EXPECT_FALSE(ClassMapIntact(CheckedImage(), 47007));

  std::vector<uint32_t> otherMagic = CheckedImage();
  otherMagic[ClassMapLayout::kMagicWord] ^= 0x100;
  EXPECT_FALSE(ClassMapIntact(otherMagic, 47008));
}

TEST(ReadClassTableInPlace, RefusesAMapThatWasNotMadeForTheClassTable) {
  ASSERT_FALSE(CheckedImage().empty());
  const std::span<const unsigned char> classBytes = EmbeddedClassTableBytes();
  std::vector<uint32_t> otherCount = CheckedImage();
  otherCount[ClassMapLayout::kClassCountWord] = 47007;
  const PreflopClassTableOrError read = ReadClassTableInPlace(classBytes, otherCount);
  EXPECT_FALSE(read.ok());
  EXPECT_EQ(read.error, "The preflop class table is damaged: its matchup map was not made for it");

  const PreflopClassTableOrError whole = ReadClassTableInPlace(classBytes, CheckedImage());
  ASSERT_TRUE(whole.ok()) << whole.error;
  EXPECT_EQ(whole.table->Matchup(5, 900), LoadPreflopClassTable().table->Matchup(5, 900));
}

TEST(ReadClassTableInPlace, SaysWhatIsWrongWithADamagedClassTableHeader) {
  std::vector<unsigned char> bytes(EmbeddedClassTableBytes().begin(), EmbeddedClassTableBytes().end());
  bytes[0] = 'X';
  const PreflopClassTableOrError read = ReadClassTableInPlace(bytes, CheckedImage());
  EXPECT_FALSE(read.ok());
  EXPECT_EQ(read.error, "The preflop class table is damaged: it does not start with \"QPFCLASS\"");
}

}  // namespace
}  // namespace quillet
