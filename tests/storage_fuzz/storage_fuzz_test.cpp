// Mutated, truncated and random profile files and preferences files, loaded under the sanitizers: none may
// crash, hang, read out of bounds or allocate beyond what its bytes can hold, and every fault must come back
// as a one-line message naming the file.
#include <gtest/gtest.h>

#include <climits>
#include <random>

#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "storage/preferences_file.h"
#include "storage/profile_file.h"
#include "tests/storage/temp_folder.h"
#include "tests/support/recording_services.h"

namespace quillet {
namespace {

class Mutator {
 public:
  explicit Mutator(uint64_t seed) : rng_(seed) {}

  std::size_t Below(std::size_t n) { return n == 0 ? 0 : static_cast<std::size_t>(rng_() % n); }

  std::string Mutate(std::string bytes, const std::vector<std::size_t>& fieldOffsets) {
    const int rounds = 1 + static_cast<int>(Below(3));
    for (int r = 0; r < rounds; ++r) {
      switch (Below(7)) {
        case 0:
          bytes.resize(Below(bytes.size() + 1));
          break;  // cut short
        case 1:
          for (int k = 1 + static_cast<int>(Below(8)); k > 0 && !bytes.empty(); --k) {
            bytes[Below(bytes.size())] ^= static_cast<char>(1 + Below(255));
          }
          break;
        case 2: {  // a count, length or descriptor field set to a value at an edge
          static constexpr int32_t kEdges[] = {0,  1,   -1,    2,       15,      16,
                                               17, 188, 63552, INT_MAX, INT_MIN, 1 << 30};
          if (fieldOffsets.empty()) break;
          const std::size_t at = fieldOffsets[Below(fieldOffsets.size())];
          const int32_t v = kEdges[Below(std::size(kEdges))];
          for (int k = 0; k < 4 && at + k < bytes.size(); ++k)
            bytes[at + k] = static_cast<char>((static_cast<uint32_t>(v) >> (8 * k)) & 0xFF);
          break;
        }
        case 3:
          bytes.insert(Below(bytes.size() + 1), Random(1 + Below(16)));
          break;
        case 4: {
          const std::size_t at = Below(bytes.size() + 1);
          bytes.erase(at, Below(64));
          break;
        }
        case 5:
          bytes = Random(Below(64));
          break;
        default: {
          const std::size_t at = Below(bytes.size() + 1);
          bytes.insert(at, bytes.substr(Below(bytes.size() + 1), Below(40)));  // a repeated stretch
        }
      }
    }
    return bytes;
  }

  std::string Random(std::size_t n) {
    std::string s(n, '\0');
    for (char& c : s) c = static_cast<char>(rng_());
    return s;
  }

 private:
  std::mt19937_64 rng_;
};

PlayerProfile SampleProfile(const std::string& name, int seed) {
  PlayerProfile p;
  InitProfile(p);
  p.name = name;
  p.rangeText = "~";
  p.rangeText += std::to_string(seed);
  for (int c = seed % 7; c < kClassCount; c += 7)
    SetBlockWhole(p.rangeLayer[c], HandClasses()[c].kind == kKindSuited);
  for (int c = seed % 5; c < kClassCount; c += 11) SetBlockSuitPair(p.seenLayer[c], 1, 2, true, false);
  return p;
}

// The offsets of the fields whose values steer the reader: header, string lengths, descriptors, counts.
std::vector<std::size_t> FieldOffsets(const std::vector<PlayerProfile>& profiles) {
  std::vector<std::size_t> at = {0, 4};
  std::size_t pos = 8;
  for (const PlayerProfile& p : profiles) {
    at.push_back(pos);
    pos += 4 + p.name.size();
    at.push_back(pos);
    pos += 4 + p.rangeText.size();
    for (int r = 0; r < 2 * kClassCount; r += 13) {
      const std::size_t record = pos + r * kRecordBlockBytes;
      for (const std::size_t field : {0, 4, 8, 10, 14, 178}) at.push_back(record + field);
    }
    pos += 2 * kClassCount * kRecordBlockBytes;
  }
  return at;
}

// What every result must satisfy, whatever the bytes were.
void CheckProfileResult(const ProfileFileContents& read, const std::string& bytes) {
  using Status = ProfileFileContents::Status;
  if (read.status == Status::Faulty) {
    ASSERT_TRUE(read.error.has_value());
    ASSERT_EQ(read.error->message.rfind("The player profile file \"fuzz\" cannot be read: ", 0), 0u);
    ASSERT_EQ(read.error->message.find_first_of("\r\n"), std::string::npos);
  } else {
    ASSERT_FALSE(read.error.has_value());
  }
  if (read.status == Status::OtherVersion) {
    ASSERT_TRUE(read.profiles.empty());
  }
  ASSERT_LE(read.profiles.size() * kSmallestProfileBlockBytes, bytes.size());
  for (const PlayerProfile& p : read.profiles) {
    for (const RangeLayer* layer : {&p.rangeLayer, &p.seenLayer}) {
      for (const BlockRecord& r : *layer) {
        ASSERT_GE(r.count, 0);
        ASSERT_LE(r.count, kSuitPairSlots);
        for (int k = 0; k < r.count; ++k) {
          ASSERT_TRUE(r.combos[k].suit1 >= 0 && r.combos[k].suit1 <= 3 && r.combos[k].suit2 >= 0 &&
                      r.combos[k].suit2 <= 3);
        }
      }
    }
  }
  // A file read whole is written back byte for byte (unless it named a free slot, which is not written).
  if (read.status == Status::Read) {
    bool anyFree = false;
    for (const PlayerProfile& p : read.profiles) anyFree = anyFree || p.isFree();
    if (!anyFree) {
      const std::string again = EncodeProfileFile(read.profiles);
      ASSERT_EQ(again, bytes);  // nothing may follow the last profile
    }
  }
}

TEST(StorageFuzz, TenThousandMutatedProfileFilesAreReadWithoutHarm) {
  Mutator mutate(0x51A7E5EEDULL);
  const std::vector<std::vector<PlayerProfile>> bases = {
      {}, {SampleProfile("Villain", 1)}, {SampleProfile("A", 2), SampleProfile("Jos\xC3\xA9", 3)}};
  std::vector<std::string> encoded;
  std::vector<std::vector<std::size_t>> offsets;
  for (const auto& b : bases) {
    encoded.push_back(EncodeProfileFile(b));
    offsets.push_back(FieldOffsets(b));
  }
  int faulty = 0, whole = 0;
  for (int i = 0; i < 10000; ++i) {
    // The two-profile file is the slowest to read; it gets a smaller share.
    const std::size_t which = i % 8 == 7 ? 2 : (i % 8 < 2 ? 0 : 1);
    const std::string bytes = mutate.Mutate(encoded[which], offsets[which]);
    const ProfileFileContents read = DecodeProfileFile(bytes, "fuzz");
    ASSERT_NO_FATAL_FAILURE(CheckProfileResult(read, bytes)) << "case " << i;
    faulty += read.status == ProfileFileContents::Status::Faulty;
    whole += read.status == ProfileFileContents::Status::Read;
  }
  // Both outcomes occur often enough for the run to have exercised the reader's paths.
  EXPECT_GT(faulty, 1000);
  EXPECT_GT(whole, 250);
}

TEST(StorageFuzz, MutatedProfileFilesOnDiskLeaveTheWindowWorking) {
  Mutator mutate(7);
  testing::TempFolder dir;
  const std::vector<PlayerProfile> base = {SampleProfile("Amy", 4), SampleProfile("Bob", 5)};
  const std::string encoded = EncodeProfileFile(base);
  const std::vector<std::size_t> offsets = FieldOffsets(base);
  for (int i = 0; i < 150; ++i) {
    const std::string bytes = mutate.Mutate(encoded, offsets);
    testing::WriteBytes(dir / kProfileFileName, bytes);
    RecordingServices services;
    Form1Model model(services);
    model.ProfilePaths(dir.path());
    services.yesNoAnswers = {i % 2 == 0};
    const bool goOn = model.profiles().LoadProfiles();
    ASSERT_LE(services.messages.size() + services.questions.size(), 1u);
    if (!goOn) continue;
    const int current = model.profiles().FirstProfileIndex();
    ASSERT_GE(current, 0);
    ASSERT_FALSE(model.profiles().list.at(current).isFree());
    if (!services.messages.empty()) {
      ASSERT_EQ(testing::ReadBytes(dir / "Player_Profiles.ini.bad"), bytes);
    }
    const std::size_t messagesBefore = services.messages.size();
    model.profiles().SaveProfiles();
    ASSERT_EQ(services.messages.size(), messagesBefore);
    // What was saved reads back whole.
    ASSERT_EQ(ReadProfileFile(dir / kProfileFileName).status, ProfileFileContents::Status::Read);
    std::filesystem::remove(dir / "Player_Profiles.ini.bad");
  }
}

TEST(StorageFuzz, TenThousandMutatedPreferencesFilesAreAppliedWithoutHarm) {
  Mutator mutate(0xC0FFEEULL);
  const std::string base =
      "mnuHideEmptyCats|True\r\nmnuSimplifyOutput|True\r\nmnuSimplifyFurther|False\r\nmnuCategoryIcons|"
      "False\r\n"
      "mnuWinLoseIcons|False\r\nmnuCalcEquityOnCook|False\r\nmnuAutoPFEquityCalc|False\r\ntxtMyHand|AhKd\r\n"
      "txtBoard|Tc8h3s\r\nColourSchemeDefault|True\r\nSelCardsAutoOK|False\r\nSelCardsAutoCook|False\r\n";
  std::vector<std::size_t> barOffsets;
  for (std::size_t i = 0; i < base.size(); ++i) {
    if (base[i] == '|' || base[i] == '\r') barOffsets.push_back(i);
  }
  RecordingServices services;
  Form1Model model(services);
  for (int i = 0; i < 10000; ++i) {
    const std::string bytes = mutate.Mutate(base, barOffsets);
    const std::vector<PreferenceLine> lines = ParsePreferences(bytes);
    for (const PreferenceLine& line : lines) {
      ASSERT_FALSE(line.key.empty() && !line.value.has_value());  // empty lines never come back
      ASSERT_EQ(line.key.find_first_of("\r\n|"), std::string::npos);
      if (line.value) {
        ASSERT_EQ(line.value->find_first_of("\r\n|"), std::string::npos);
      }
    }
    model.ApplyPreferences(lines);
    ASSERT_EQ(model.txtMyHand.charColours.size(), model.txtMyHand.text.size());
    ASSERT_EQ(model.txtBoard.charColours.size(), model.txtBoard.text.size());
  }
  EXPECT_TRUE(services.messages.empty());
}

TEST(StorageFuzz, MutatedPreferencesFilesOnDiskAreReadWithoutHarm) {
  Mutator mutate(99);
  testing::TempFolder dir;
  const std::string base = "mnuWinLoseIcons|True\r\ntxtMyHand|AhKd\r\nSelCardsAutoOK|True\r\n";
  for (int i = 0; i < 150; ++i) {
    testing::WriteBytes(dir / kPreferencesFileName, mutate.Mutate(base, {15, 20, 36}));
    RecordingServices services;
    Form1Model model(services);
    model.ProfilePaths(dir.path());
    model.LoadPreferences();
    ASSERT_TRUE(services.messages.empty());
    ASSERT_TRUE(services.questions.empty());
    model.SavePreferences();
    ASSERT_TRUE(services.messages.empty());
  }
}

}  // namespace
}  // namespace quillet
