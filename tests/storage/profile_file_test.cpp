#include "storage/profile_file.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>

#include "cards/hand_class.h"
#include "storage/profile_list.h"
#include "tests/storage/temp_folder.h"

namespace quillet {
namespace {

// ---- bytes written by hand, independently of the writer ----

void Le(std::string& out, uint32_t v, int width) {
  for (int k = 0; k < width; ++k) out.push_back(static_cast<char>((v >> (8 * k)) & 0xFF));
}
void I32(std::string& out, int32_t v) {
  Le(out, static_cast<uint32_t>(v), 4);
}
void I16(std::string& out, int16_t v) {
  Le(out, static_cast<uint16_t>(v), 2);
}
void Counted(std::string& out, const std::string& bytes) {
  I32(out, static_cast<int32_t>(bytes.size()));
  out += bytes;
}

struct Pair {
  int32_t a, b;
};

// One record block: ranks, the descriptor (1, 16, 0), 16 entries (the first ones from `pairs`, the rest
// zero), the count and the three flags.
std::string RecordBytes(int32_t rank1, int32_t rank2, const std::vector<Pair>& pairs, int16_t suited,
                        int16_t offsuit, int16_t whole) {
  std::string out;
  I32(out, rank1);
  I32(out, rank2);
  I16(out, 1);
  I32(out, 16);
  I32(out, 0);
  for (int k = 0; k < 16; ++k) {
    I16(out, 0);
    I32(out, k < static_cast<int>(pairs.size()) ? pairs[k].a : 0);
    I32(out, k < static_cast<int>(pairs.size()) ? pairs[k].b : 0);
  }
  I32(out, static_cast<int32_t>(pairs.size()));
  I16(out, suited);
  I16(out, offsuit);
  I16(out, whole);
  return out;
}

// The two ranks of each grid cell, worked out from the grid's rule: rows and columns run A down to 2, the
// pair on the diagonal, suited to the right of it (row rank first), offsuit to the left (column rank first).
std::vector<Pair> GridRanks() {
  std::vector<Pair> ranks;
  for (int row = 0; row < 13; ++row) {
    for (int column = 0; column < 13; ++column) {
      const int32_t r = 14 - row, c = 14 - column;
      ranks.push_back(column >= row ? Pair{r, c} : Pair{c, r});
    }
  }
  return ranks;
}

std::string VillainBytes(const std::string& rangeText) {
  const auto ranks = GridRanks();
  std::string out;
  I32(out, 1);  // version
  I32(out, 1);  // one profile
  Counted(out, "Villain");
  Counted(out, rangeText);
  for (int cell = 0; cell < 169; ++cell) {
    const bool aks = cell == 1;       // row A, column K
    const bool deuces = cell == 168;  // row 2, column 2
    out += aks ? RecordBytes(14, 13, {{0, 0}, {1, 1}, {2, 2}, {3, 3}}, -1, 0, -1)
               : RecordBytes(ranks[cell].a, ranks[cell].b, {}, 0, 0, 0);
    out += deuces ? RecordBytes(2, 2, {{0, 1}, {0, 2}, {0, 3}, {1, 2}, {1, 3}, {2, 3}}, 0, 0, -1)
                  : RecordBytes(ranks[cell].a, ranks[cell].b, {}, 0, 0, 0);
  }
  return out;
}

PlayerProfile Villain(const std::string& rangeText) {
  PlayerProfile p;
  InitProfile(p);
  p.name = "Villain";
  p.rangeText = rangeText;
  const int aks = FindClassByName("AKs");
  const int deuces = FindClassByName("22");
  SetBlockWhole(p.rangeLayer[aks], HandClasses()[aks].kind == kKindSuited);       // a left click on AKs
  SetBlockWhole(p.seenLayer[deuces], HandClasses()[deuces].kind == kKindSuited);  // a right click on 22
  return p;
}

std::vector<PlayerProfile> Named(std::initializer_list<std::string> names) {
  std::vector<PlayerProfile> list;
  for (const auto& n : names) {
    list.emplace_back();
    InitProfile(list.back());
    list.back().name = n;
  }
  return list;
}

int32_t I32At(const std::string& bytes, std::size_t at) {
  uint32_t v = 0;
  for (int k = 0; k < 4; ++k)
    v |= static_cast<uint32_t>(static_cast<unsigned char>(bytes[at + k])) << (8 * k);
  return static_cast<int32_t>(v);
}
void PutI32(std::string& bytes, std::size_t at, int32_t v) {
  for (int k = 0; k < 4; ++k) bytes[at + k] = static_cast<char>((static_cast<uint32_t>(v) >> (8 * k)) & 0xFF);
}

// Offsets in a file of one profile whose name and range text are `nameLength` and `textLength` bytes.
std::size_t RecordOffset(std::size_t nameLength, std::size_t textLength, int cls, bool seen) {
  return 8 + 4 + nameLength + 4 + textLength + (2 * cls + (seen ? 1 : 0)) * 188;
}

// ---- the format ----

TEST(ProfileFile, VillainWithAksOnAndDeucesSeenIsWrittenByteForByte) {
  const std::string expected = VillainBytes("~0.8");
  ASSERT_EQ(expected.size(), 8u + 4 + 7 + 4 + 4 + 338 * 188);
  const std::string written = EncodeProfileFile({Villain("~0.8")});
  ASSERT_EQ(written.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i)
    ASSERT_EQ(written[i], expected[i]) << "first difference at byte " << i;
}

TEST(ProfileFile, VillainReadsBackEqualToWhatWasWritten) {
  const ProfileFileContents read = DecodeProfileFile(VillainBytes("~0.8"), "f");
  ASSERT_EQ(read.status, ProfileFileContents::Status::Read);
  EXPECT_EQ(read.version, 1);
  ASSERT_EQ(read.profiles.size(), 1u);
  EXPECT_EQ(read.profiles[0], Villain("~0.8"));
}

TEST(ProfileFile, ARecordBlockIs188BytesWithTheDescriptorAfterTheRanks) {
  BlockRecord r = MakeEmptyLayer()[FindClassByName("AK")];
  SetBlockWhole(r, false);
  std::string bytes;
  AppendRecordBlock(bytes, r);
  ASSERT_EQ(bytes.size(), 188u);
  EXPECT_EQ(I32At(bytes, 0), 14);
  EXPECT_EQ(I32At(bytes, 4), 13);
  EXPECT_EQ(bytes.substr(8, 10), std::string("\x01\x00\x10\x00\x00\x00\x00\x00\x00\x00", 10));
  EXPECT_EQ(I32At(bytes, 18 + 160), 12);                                     // the count after the 16 entries
  EXPECT_EQ(bytes.substr(182), std::string("\x00\x00\xFF\xFF\xFF\xFF", 6));  // suited, offsuit, whole
}

TEST(ProfileFile, AProfileWithAnEmptyRangeTextHasACountedStringOfLengthZero) {
  const std::string bytes = EncodeProfileFile({Villain("")});
  EXPECT_EQ(I32At(bytes, 8), 7);
  EXPECT_EQ(bytes.substr(12, 7), "Villain");
  EXPECT_EQ(I32At(bytes, 19), 0);
  EXPECT_EQ(I32At(bytes, 23), 14);  // the first record follows at once
  EXPECT_EQ(bytes, VillainBytes(""));
}

TEST(ProfileFile, AFileWithNoProfilesLoadsAnEmptyList) {
  std::string bytes;
  I32(bytes, 1);
  I32(bytes, 0);
  const ProfileFileContents read = DecodeProfileFile(bytes, "f");
  EXPECT_EQ(read.status, ProfileFileContents::Status::Read);
  EXPECT_TRUE(read.profiles.empty());
  EXPECT_EQ(EncodeProfileFile({}), bytes);
}

TEST(ProfileFile, TwoProfilesWithAFreeSlotBetweenSaveAsTwoAndReloadAdjacent) {
  std::vector<PlayerProfile> list = Named({"Alice", "", "Bob"});
  SetBlockWhole(list[2].rangeLayer[0], false);
  const std::string bytes = EncodeProfileFile(list);
  EXPECT_EQ(I32At(bytes, 4), 2);
  EXPECT_EQ(bytes.size(), 8 + 2 * (8 + 5 + 338 * 188) - 2u);  // "Alice" and "Bob", nothing of the free slot
  EXPECT_EQ(bytes.find("Bob"), 8 + 4 + 5 + 4 + 338 * 188 + 4u);
  const ProfileFileContents read = DecodeProfileFile(bytes, "f");
  ASSERT_EQ(read.profiles.size(), 2u);
  EXPECT_EQ(read.profiles[0], list[0]);
  EXPECT_EQ(read.profiles[1], list[2]);
}

TEST(ProfileFile, EntriesPastTheCountAreWrittenAsTheyStandInMemory) {
  PlayerProfile p = Villain("");
  const int aks = FindClassByName("AKs");
  ClearBlockRecord(p.rangeLayer[aks]);  // the count drops to 0; the four suited entries stay
  const int deuces = FindClassByName("22");
  SetBlockSuitPair(p.seenLayer[deuces], 0, 2, false, false);  // later entries move down; the last slot stays
  const std::string bytes = EncodeProfileFile({p});
  const std::size_t on = RecordOffset(7, 0, aks, false);
  EXPECT_EQ(I32At(bytes, on + 18 + 10 * 3 + 2), 3);  // entry 4 still (3, 3)
  EXPECT_EQ(I32At(bytes, on + 178), 0);              // count 0
  const std::size_t seen = RecordOffset(7, 0, deuces, true);
  EXPECT_EQ(I32At(bytes, seen + 178), 5);
  // Entries 5 and 6: (2, 3) moved down into slot 5, and slot 6 still holds (2, 3).
  EXPECT_EQ(I32At(bytes, seen + 18 + 10 * 4 + 2), 2);
  EXPECT_EQ(I32At(bytes, seen + 18 + 10 * 4 + 6), 3);
  EXPECT_EQ(I32At(bytes, seen + 18 + 10 * 5 + 2), 2);
  EXPECT_EQ(I32At(bytes, seen + 18 + 10 * 5 + 6), 3);
  const ProfileFileContents read = DecodeProfileFile(bytes, "f");
  ASSERT_EQ(read.profiles.size(), 1u);
  EXPECT_EQ(read.profiles[0], p);
  EXPECT_EQ(EncodeProfileFile(read.profiles), bytes);
}

TEST(ProfileFile, BooleansKeepWhateverValueWasRead) {
  std::string bytes = VillainBytes("");
  const std::size_t at = RecordOffset(7, 0, 5, false);
  bytes[at + 18] = 0x01;   // entry 1's on flag: 1, not the usual -1
  bytes[at + 182] = 0x05;  // suited flag: 5
  const ProfileFileContents read = DecodeProfileFile(bytes, "f");
  ASSERT_EQ(read.status, ProfileFileContents::Status::Read);
  EXPECT_EQ(read.profiles[0].rangeLayer[5].combos[0].on, 1);
  EXPECT_EQ(read.profiles[0].rangeLayer[5].suited, 5);
  EXPECT_EQ(EncodeProfileFile(read.profiles), bytes);
}

TEST(ProfileFile, NamesAreStoredInWindows1252WithTheByteCountAsLength) {
  PlayerProfile p = Villain("");
  p.name = "Jos\xC3\xA9 \xE2\x82\xAC";  // "José €": é is 0xE9, € is 0x80
  const std::string bytes = EncodeProfileFile({p});
  EXPECT_EQ(I32At(bytes, 8), 6);
  EXPECT_EQ(bytes.substr(12, 6), "Jos\xE9 \x80");
  const ProfileFileContents read = DecodeProfileFile(bytes, "f");
  EXPECT_EQ(read.profiles.at(0).name, p.name);
}

TEST(ProfileFile, ACharacterTheCodePageCannotHoldIsWrittenAsAQuestionMark) {
  PlayerProfile p = Villain("");
  p.name = "\xD0\x98van \xF0\x9F\x98\x80";  // "Иvan 😀"
  const std::string bytes = EncodeProfileFile({p});
  EXPECT_EQ(I32At(bytes, 8), 6);
  EXPECT_EQ(bytes.substr(12, 6), "?van ?");
}

TEST(ProfileFile, FiftyRandomProfilesAreIdenticalAfterSaveAndLoad) {
  std::mt19937 rng(20240607);
  const auto pick = [&](int n) { return static_cast<int>(rng() % static_cast<unsigned>(n)); };
  const std::vector<std::string> letters = {"a", "b", "Z", "9", " ", "\xC3\xA9", "\xC3\x9F", "\xE2\x82\xAC",
                                            "~", "."};
  std::vector<PlayerProfile> list(50);
  for (PlayerProfile& p : list) {
    InitProfile(p);
    for (int k = 1 + pick(15); k > 0; --k) p.name += letters[pick(static_cast<int>(letters.size()))];
    for (int k = pick(6); k > 0; --k) p.rangeText += letters[pick(static_cast<int>(letters.size()))];
    for (RangeLayer* layer : {&p.rangeLayer, &p.seenLayer}) {
      for (int c = 0; c < kClassCount; ++c) {
        BlockRecord& r = (*layer)[c];
        switch (pick(5)) {
          case 0:
            break;
          case 1:
            SetBlockWhole(r, HandClasses()[c].kind == kKindSuited);
            break;
          case 2:
            SetBlockWhole(r, HandClasses()[c].kind == kKindSuited);
            ClearBlockRecord(r);
            break;
          default:
            for (int k = pick(12); k > 0; --k) SetBlockSuitPair(r, pick(4), pick(4), pick(3) != 0, false);
        }
        r.combos[pick(16)].on = static_cast<Bool16>(pick(3) - 1);
        r.combos[15].suit1 = pick(1000) - 500;  // the last slot past the count holds anything
        if (r.count == 16) r.combos[15].suit1 = 3;
      }
    }
  }
  const std::string bytes = EncodeProfileFile(list);
  const ProfileFileContents read = DecodeProfileFile(bytes, "f");
  ASSERT_EQ(read.status, ProfileFileContents::Status::Read) << (read.error ? read.error->message : "");
  ASSERT_EQ(read.profiles.size(), 50u);
  for (int i = 0; i < 50; ++i) EXPECT_EQ(read.profiles[i], list[i]) << "profile " << i;
  EXPECT_EQ(EncodeProfileFile(read.profiles), bytes);
}

TEST(ProfileFile, ProfilesSurviveAWriteToDiskAndARead) {
  testing::TempFolder dir;
  const auto path = dir / kProfileFileName;
  const std::vector<PlayerProfile> list = {Villain("12.5"), Villain("")};
  ASSERT_FALSE(WriteProfileFile(path, list).has_value());
  EXPECT_EQ(testing::ReadBytes(path), EncodeProfileFile(list));
  const ProfileFileContents read = ReadProfileFile(path);
  EXPECT_EQ(read.status, ProfileFileContents::Status::Read);
  EXPECT_EQ(read.profiles, list);
}

TEST(ProfileFile, AMissingFileIsNoError) {
  testing::TempFolder dir;
  const ProfileFileContents read = ReadProfileFile(dir / kProfileFileName);
  EXPECT_EQ(read.status, ProfileFileContents::Status::Missing);
  EXPECT_FALSE(read.error.has_value());
}

TEST(ProfileFile, AnotherVersionIsReportedAndNothingPastItIsRead) {
  for (const int32_t version : {0, -1, 2, 1000}) {
    std::string bytes = VillainBytes("");
    PutI32(bytes, 0, version);
    const ProfileFileContents read = DecodeProfileFile(bytes, "f");
    EXPECT_EQ(read.status, ProfileFileContents::Status::OtherVersion);
    EXPECT_EQ(read.version, version);
    EXPECT_TRUE(read.profiles.empty());
  }
}

// ---- faults ----

ProfileFileContents Decode(const std::string& bytes) {
  return DecodeProfileFile(bytes, "/data/Player_Profiles.ini");
}

void ExpectFault(const ProfileFileContents& read, const std::string& why) {
  ASSERT_EQ(read.status, ProfileFileContents::Status::Faulty);
  ASSERT_TRUE(read.error.has_value());
  EXPECT_EQ(read.error->message,
            "The player profile file \"/data/Player_Profiles.ini\" cannot be read: " + why + ".");
}

TEST(ProfileFileFaults, AnEmptyFileIsAFault) {
  ExpectFault(Decode(""), "it is empty");
}

TEST(ProfileFileFaults, AFileTooShortForTheVersionIsAFault) {
  ExpectFault(Decode(std::string("\x01\x00", 2)), "it is only 2 bytes long, too short for the file version");
}

TEST(ProfileFileFaults, AFileEndingInTheCountIsAFault) {
  ExpectFault(Decode(std::string("\x01\x00\x00\x00\x01", 5)),
              "it ends after 5 bytes, inside the profile count");
}

TEST(ProfileFileFaults, ANegativeProfileCountIsAFault) {
  std::string bytes = VillainBytes("");
  PutI32(bytes, 4, -1);
  ExpectFault(Decode(bytes), "it says it holds -1 profiles");
}

TEST(ProfileFileFaults, AProfileCountBeyondTheFilesRoomIsAFaultAndTheProfilesThereAreKept) {
  std::string bytes = EncodeProfileFile({Villain("a"), Villain("b")});
  PutI32(bytes, 4, 0x7FFFFFFF);
  const ProfileFileContents read = Decode(bytes);
  ExpectFault(read, "it says it holds 2147483647 profiles, but its " + std::to_string(bytes.size()) +
                        " bytes have room for at most 2");
  ASSERT_EQ(read.profiles.size(), 2u);
  EXPECT_EQ(read.profiles[1], Villain("b"));
}

TEST(ProfileFileFaults, AFileCutShortKeepsTheProfilesBeforeTheCut) {
  const std::string whole = EncodeProfileFile({Villain("a"), Villain("b"), Villain("c")});
  const std::size_t block = (whole.size() - 8) / 3;
  const std::string cut = whole.substr(0, 8 + 2 * block + 100);
  const ProfileFileContents read = Decode(cut);
  ExpectFault(read,
              "it ends after " + std::to_string(cut.size()) + " bytes, inside profile 3 of 3 (\"Villain\")");
  ASSERT_EQ(read.profiles.size(), 2u);
  EXPECT_EQ(read.profiles[0].rangeText, "a");
  EXPECT_EQ(read.profiles[1].rangeText, "b");
}

TEST(ProfileFileFaults, EveryCutOfAFileIsAFaultThatNamesIt) {
  const std::string whole = EncodeProfileFile({Villain("~0.8")});
  for (std::size_t length = 0; length < whole.size(); ++length) {
    const ProfileFileContents read = Decode(whole.substr(0, length));
    ASSERT_EQ(read.status, ProfileFileContents::Status::Faulty) << length;
    ASSERT_NE(read.error->message.find("\"/data/Player_Profiles.ini\""), std::string::npos);
    ASSERT_TRUE(read.profiles.empty());
    if (length > 400) length += 97;  // every byte of the head, then a sample of the records
  }
}

TEST(ProfileFileFaults, ANegativeNameLengthIsAFault) {
  std::string bytes = VillainBytes("");
  PutI32(bytes, 8, -7);
  ExpectFault(Decode(bytes), "the name of profile 1 of 1 has a length of -7");
}

TEST(ProfileFileFaults, ANameLongerThanTheRestOfTheFileIsAFault) {
  std::string bytes = VillainBytes("");
  PutI32(bytes, 8, 0x7FFFFFFF);
  ExpectFault(Decode(bytes), "the name of profile 1 of 1 is said to be 2147483647 bytes long, but only " +
                                 std::to_string(bytes.size() - 12) + " bytes follow");
}

TEST(ProfileFileFaults, ARangeTextLongerThanTheRestOfTheFileIsAFault) {
  std::string bytes = VillainBytes("");
  PutI32(bytes, 19, 100000000);
  ExpectFault(Decode(bytes),
              "the range text of profile 1 of 1 (\"Villain\") is said to be 100000000 bytes long, "
              "but only " +
                  std::to_string(bytes.size() - 23) + " bytes follow");
}

TEST(ProfileFileFaults, ADescriptorOtherThanOneSixteenZeroIsAFault) {
  const std::size_t at = RecordOffset(7, 0, 1, false);  // AKs, On layer
  const struct {
    std::size_t offset;
    int width;
    int32_t value;
    const char* shown;
  } cases[] = {{8, 2, 2, "(2, 16, 0)"}, {10, 4, 17, "(1, 17, 0)"}, {14, 4, 1, "(1, 16, 1)"}};
  for (const auto& c : cases) {
    std::string bytes = VillainBytes("");
    for (int k = 0; k < c.width; ++k)
      bytes[at + c.offset + k] = static_cast<char>((c.value >> (8 * k)) & 0xFF);
    ExpectFault(Decode(bytes),
                std::string("profile 1 of 1 (\"Villain\"), AKs in the On layer, describes its suit-pair "
                            "list as ") +
                    c.shown + " instead of (1, 16, 0)");
  }
}

TEST(ProfileFileFaults, ARecordCountOutsideZeroToSixteenIsAFault) {
  for (const int32_t count : {-1, 17, 0x7FFFFFFF}) {
    std::string bytes = VillainBytes("");
    PutI32(bytes, RecordOffset(7, 0, 168, true) + 178, count);
    ExpectFault(Decode(bytes), "profile 1 of 1 (\"Villain\"), 22 in the Seen layer, holds " +
                                   std::to_string(count) + " suit pairs (0 to 16 are possible)");
  }
}

TEST(ProfileFileFaults, ARecordWithAnotherClasssRanksIsAFault) {
  std::string bytes = VillainBytes("");
  PutI32(bytes, RecordOffset(7, 0, 13, false), 3);  // AKo's first rank
  ExpectFault(
      Decode(bytes),
      "profile 1 of 1 (\"Villain\"), AKo in the On layer, has the ranks 3 and 13 instead of 14 and 13");
}

TEST(ProfileFileFaults, ASuitOutsideZeroToThreeInAnEntryInUseIsAFault) {
  std::string bytes = VillainBytes("");
  PutI32(bytes, RecordOffset(7, 0, 1, false) + 18 + 10 * 2 + 6, 9);  // AKs entry 3, second suit
  ExpectFault(Decode(bytes),
              "profile 1 of 1 (\"Villain\"), AKs in the On layer, suit pair 3 has the suits 2 and 9 "
              "(0 to 3 are possible)");
}

TEST(ProfileFileFaults, ANameWithControlCharactersIsShownWithoutThemInTheMessage) {
  PlayerProfile p = Villain("");
  p.name = "Bad\nName\r";
  std::string bytes = EncodeProfileFile({p});
  PutI32(bytes, RecordOffset(9, 0, 0, false) + 178, 99);  // AA's count in the On layer
  const ProfileFileContents read = Decode(bytes);
  ExpectFault(
      read, "profile 1 of 1 (\"Bad?Name?\"), AA in the On layer, holds 99 suit pairs (0 to 16 are possible)");
  EXPECT_EQ(read.error->message.find('\n'), std::string::npos);
}

TEST(ProfileFileFaults, BytesAfterTheLastProfileAreAFault) {
  const std::string whole = VillainBytes("");
  const std::string bytes = whole + "trailing";
  const ProfileFileContents read = Decode(bytes);
  ExpectFault(read, "it is " + std::to_string(bytes.size()) +
                        " bytes long, but the 1 profile it holds fills only " + std::to_string(whole.size()));
  EXPECT_EQ(read.profiles.size(), 1u);  // the profile before the fault is kept
  const std::string two = EncodeProfileFile({Villain("a"), Villain("b")}) + "x";
  ExpectFault(Decode(two), "it is " + std::to_string(two.size()) +
                               " bytes long, but the 2 profiles it holds fill only " +
                               std::to_string(two.size() - 1));
}

TEST(ProfileFileFaults, BytesAfterTheLastProfileOnDiskAreRefusedUnread) {
  testing::TempFolder dir;
  const auto path = dir / kProfileFileName;
  const std::string bytes = EncodeProfileFile({Villain("a"), Villain("b")}) + "trailing";
  testing::WriteBytes(path, bytes);
  const ProfileFileContents read = ReadProfileFile(path);
  ASSERT_EQ(read.status, ProfileFileContents::Status::Faulty);
  EXPECT_EQ(read.error->message, "The player profile file \"" + path.string() + "\" cannot be read: it is " +
                                     std::to_string(bytes.size()) +
                                     " bytes long, but the 2 profiles it holds fill only " +
                                     std::to_string(bytes.size() - 8) + ".");
  EXPECT_TRUE(read.profiles.empty());
  EXPECT_TRUE(read.bytes.empty());
}

TEST(ProfileFileFaults, ANameOrRangeTextLongerThanAProfileKeepsIsAFault) {
  PlayerProfile p = Villain(std::string(32767, '1'));
  p.name = std::string(15, 'N');
  const std::string longest = EncodeProfileFile({p});
  EXPECT_EQ(Decode(longest).status, ProfileFileContents::Status::Read);
  p.name = std::string(16, 'N');
  ExpectFault(Decode(EncodeProfileFile({p})),
              "the name of profile 1 of 1 is 16 bytes long, more than the 15 bytes a name may have");
  p.name = "Amy";
  p.rangeText += "1";
  ExpectFault(
      Decode(EncodeProfileFile({p})),
      "the range text of profile 1 of 1 (\"Amy\") is 32768 bytes long, more than the 32767 bytes a range "
      "text may have");
}

TEST(ProfileFileFaults, NoFileIsWrittenThatTheReaderWouldRefuse) {
  testing::TempFolder dir;
  const auto path = dir / kProfileFileName;
  ASSERT_FALSE(WriteProfileFile(path, {Villain("12.5")}).has_value());
  const std::string before = testing::ReadBytes(path);
  PlayerProfile tooLong = Villain(std::string(32768, '1'));
  tooLong.name = "Amy";
  const auto error = WriteProfileFile(path, {Villain("12.5"), tooLong});
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->message,
            "The player profiles could not be saved to \"" + path.string() +
                "\": the range text of the profile \"Amy\" is 32768 bytes long, more than the "
                "32767 bytes a range text may have. The file there was left as it was.");
  EXPECT_EQ(testing::ReadBytes(path), before);
}

TEST(ProfileFileFaults, AFileLargerThanAnyProfileFileIsRefusedWithoutReadingIt) {
  testing::TempFolder dir;
  const auto path = dir / kProfileFileName;
  testing::WriteBytes(path, "");
  std::filesystem::resize_file(path, kLargestProfileFileBytes + 1);  // sparse: no disk space used
  const ProfileFileContents read = ReadProfileFile(path);
  ASSERT_EQ(read.status, ProfileFileContents::Status::Faulty);
  EXPECT_NE(read.error->message.find("more than the 67108864 bytes such a file can hold"), std::string::npos);
  EXPECT_TRUE(read.bytes.empty());
}

TEST(ProfileFileFaults, AFaultyFileHandsBackItsBytesSoThatItCanBeKeptAside) {
  testing::TempFolder dir;
  const auto path = dir / kProfileFileName;
  const std::string cut = VillainBytes("").substr(0, 1000);
  testing::WriteBytes(path, cut);
  const ProfileFileContents read = ReadProfileFile(path);
  EXPECT_EQ(read.status, ProfileFileContents::Status::Faulty);
  EXPECT_EQ(read.bytes, cut);
}

// ---- the list ----

TEST(ProfileList, ANewProfileTakesTheFirstFreeSlot) {
  std::vector<PlayerProfile> list = Named({"A", "", "C", ""});
  SetBlockWhole(list[1].rangeLayer[0], false);  // a deleted profile leaves its layers behind
  EXPECT_EQ(TakeProfileSlot(list, "New"), 1);
  EXPECT_EQ(list.size(), 4u);
  EXPECT_EQ(list[1].name, "New");
  EXPECT_EQ(list[1].rangeLayer[0].count, 0);  // a fresh profile
}

TEST(ProfileList, ANewProfileIsAppendedWhenNoSlotIsFree) {
  std::vector<PlayerProfile> list = Named({"A", "B"});
  EXPECT_EQ(TakeProfileSlot(list, "New"), 2);
  EXPECT_EQ(list.size(), 3u);
  EXPECT_EQ(list[2].rangeLayer[FindClassByName("AKs")].rank2, 13);
}

TEST(ProfileList, FindsNamesExactlyAndTheFirstNamedSlot) {
  const std::vector<PlayerProfile> list = Named({"", "Bob", "bob"});
  EXPECT_EQ(FindProfileByName(list, "bob"), 2);
  EXPECT_EQ(FindProfileByName(list, "BOB"), -1);
  EXPECT_EQ(FindProfileByName(list, ""), -1);
  EXPECT_EQ(FirstNamedProfile(list), 1);
  EXPECT_EQ(FirstNamedProfile(Named({"", ""})), -1);
}

}  // namespace
}  // namespace quillet
