// The weights file beside the profile file: the On layers' weights below 1 survive a save and a load, the
// profile file itself stays byte for byte what it was without weights, and a weights file that cannot be
// used costs the weights only.
#include "storage/profile_weights_file.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "cards/hand_class.h"
#include "range/range_notation.h"
#include "storage/file_io.h"
#include "storage/profile_file.h"
#include "tests/storage/temp_folder.h"
#include "tests/support/killed_save.h"
#include "tests/support/test_seed.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

// A profile whose On layer is `notation` read with its weights, and whose Seen layer holds 22.
PlayerProfile Weighted(const std::string& name, const std::string& notation) {
  PlayerProfile p;
  InitProfile(p);
  p.name = name;
  p.rangeText = "~1.5";
  const ParsedWeightedRange parsed = ParseWeightedRangeNotation(notation);
  EXPECT_TRUE(parsed.ok()) << notation;
  SetOnLayerWeights(p, parsed.weights);
  PutHoldingsInLayer(ParseRangeNotation("22").holdings, p.seenLayer);
  return p;
}

// The same profile without its weights: what a program that knows nothing of weights would hold.
PlayerProfile Unweighted(PlayerProfile p) {
  p.onWeights.fill(0);
  return p;
}

std::string ReadAll(const fs::path& path) {
  const FileRead read = ReadWholeFile(path, std::size_t{1} << 26);
  EXPECT_EQ(read.status, FileRead::Status::Read) << path;
  return read.bytes;
}

void WriteAll(const fs::path& path, const std::string& bytes) {
  ASSERT_FALSE(WriteFileAtomically(path, bytes).has_value());
}

class ProfileWeightsFile : public ::testing::Test {
 protected:
  fs::path File() const { return dir / "Player_Profiles.ini"; }
  fs::path Side() const { return dir / "Player_Profiles.ini.weights"; }

  testing::TempFolder dir;
};

TEST_F(ProfileWeightsFile, WeightsSurviveASaveAndALoad) {
  const std::vector<PlayerProfile> profiles = {Weighted("Amy", "QQ+, AKs:0.5, JhTh:0.25"),
                                               Weighted("Bob", "AA"), Weighted("Cy", "[33.3]KQ[/33.3]")};
  ASSERT_FALSE(WriteProfileFile(File(), profiles).has_value());
  const ProfileFileContents read = ReadProfileFile(File());
  ASSERT_EQ(read.status, ProfileFileContents::Status::Read);
  EXPECT_FALSE(read.weightsError.has_value());
  EXPECT_EQ(read.profiles, profiles);
  EXPECT_EQ(PrintWeightedRangeNotation(OnLayerWeights(read.profiles[0])), "QQ+, AKs:0.5, JhTh:0.25");
}

TEST_F(ProfileWeightsFile, TheProfileFileIsByteForByteTheOneWrittenWithoutWeights) {
  const std::vector<PlayerProfile> profiles = {Weighted("Amy", "QQ+, AKs:0.5"), Weighted("Bob", "KK:0.1")};
  ASSERT_FALSE(WriteProfileFile(File(), profiles).has_value());
  const std::vector<PlayerProfile> plain = {Unweighted(profiles[0]), Unweighted(profiles[1])};
  EXPECT_EQ(ReadAll(File()), EncodeProfileFile(plain));
  // And an older reader, which knows only the profile file, reads the same ranges, unweighted.
  const ProfileFileContents old = DecodeProfileFile(ReadAll(File()), "old");
  ASSERT_EQ(old.status, ProfileFileContents::Status::Read);
  EXPECT_EQ(old.profiles, plain);
}

TEST_F(ProfileWeightsFile, TheWeightsFileHasOneLinePerWeightedProfileWithItsWholeOnLayer) {
  ASSERT_FALSE(WriteProfileFile(File(), {Weighted("Amy", "QQ+, AKs:0.5"), Weighted("Bob", "AA"),
                                         Weighted("Cy", "KK:0.25")})
                   .has_value());
  EXPECT_EQ(ReadAll(Side()), "Quillet profile weights 1\nAmy\tQQ+, AKs:0.5\nCy\tKK:0.25\n");
}

TEST_F(ProfileWeightsFile, WithoutAWeightBelowOneThereIsNoWeightsFile) {
  ASSERT_FALSE(WriteProfileFile(File(), {Weighted("Amy", "QQ+, AKs"), Weighted("Bob", "AA:1")}).has_value());
  EXPECT_EQ(dir.Entries(), std::vector<std::string>{"Player_Profiles.ini"});
}

TEST_F(ProfileWeightsFile, ASaveWithoutWeightsRemovesTheWeightsFileOfAnEarlierOne) {
  ASSERT_FALSE(WriteProfileFile(File(), {Weighted("Amy", "QQ+, AKs:0.5")}).has_value());
  ASSERT_TRUE(fs::exists(Side()));
  ASSERT_FALSE(WriteProfileFile(File(), {Weighted("Amy", "QQ+, AKs")}).has_value());
  EXPECT_EQ(dir.Entries(), std::vector<std::string>{"Player_Profiles.ini"});
  // The weights do not come back: AKs is whole again.
  const ProfileFileContents read = ReadProfileFile(File());
  ASSERT_EQ(read.profiles.size(), 1u);
  EXPECT_FALSE(HasPartialWeights(read.profiles[0]));
}

TEST_F(ProfileWeightsFile, NamesWithTabsBackslashesAndLineBreaksAndNamesTakenTwiceKeepTheirWeights) {
  const std::vector<PlayerProfile> profiles = {Weighted("a\tb\\n", "AKs:0.5"), Weighted("x\r\ny", "QQ:0.75"),
                                               Weighted("Twin", "JJ:0.5"), Weighted("Twin", "TT:0.25")};
  ASSERT_FALSE(WriteProfileFile(File(), profiles).has_value());
  EXPECT_EQ(
      ReadAll(Side()),
      "Quillet profile weights 1\na\\tb\\\\n\tAKs:0.5\nx\\r\\ny\tQQ:0.75\nTwin\tJJ:0.5\nTwin\tTT:0.25\n");
  const ProfileFileContents read = ReadProfileFile(File());
  EXPECT_FALSE(read.weightsError.has_value());
  EXPECT_EQ(read.profiles, profiles);
}

TEST_F(ProfileWeightsFile, RandomWeightedProfilesAreIdenticalAfterSaveAndLoad) {
  std::mt19937_64 random(testing::TestSeed(2206));
  std::vector<PlayerProfile> profiles;
  for (int i = 0; i < 12; ++i) {
    WeightedHoldingSet weights;
    std::uniform_int_distribution<int> weight(0, kFullWeight);
    std::bernoulli_distribution held(0.2);
    for (int h = 0; h < kHoldingCount; ++h) {
      if (held(random)) weights.SetWeight(h, weight(random));
    }
    PlayerProfile p;
    InitProfile(p);
    p.name = "P" + std::to_string(i % 5);  // some names taken twice or three times
    SetOnLayerWeights(p, weights);
    profiles.push_back(p);
  }
  ASSERT_FALSE(WriteProfileFile(File(), profiles).has_value());
  const ProfileFileContents read = ReadProfileFile(File());
  EXPECT_FALSE(read.weightsError.has_value());
  ASSERT_EQ(read.profiles.size(), profiles.size());
  for (std::size_t i = 0; i < profiles.size(); ++i) {
    EXPECT_EQ(OnLayerWeights(read.profiles[i]), OnLayerWeights(profiles[i])) << i;
    EXPECT_EQ(read.profiles[i], profiles[i]) << i;
  }
}

// An older Quillet rewrites the profile file and leaves the weights file as it was.
TEST_F(ProfileWeightsFile, AProfileWhoseRangeChangedWithoutTheWeightsFileLosesOnlyItsWeights) {
  const std::vector<PlayerProfile> profiles = {Weighted("Amy", "QQ+, AKs:0.5"), Weighted("Bob", "KK:0.25"),
                                               Weighted("Cy", "AA:0.5")};
  ASSERT_FALSE(WriteProfileFile(File(), profiles).has_value());
  // Amy gets AQs too, Bob keeps his range (whole, as the old program holds it), Cy is deleted.
  PlayerProfile amy = Unweighted(profiles[0]);
  PutHoldingsInLayer(ParseRangeNotation("QQ+, AKs, AQs").holdings, amy.rangeLayer);
  WriteAll(File(), EncodeProfileFile({amy, Unweighted(profiles[1])}));
  const ProfileFileContents read = ReadProfileFile(File());
  EXPECT_FALSE(read.weightsError.has_value());
  ASSERT_EQ(read.profiles.size(), 2u);
  EXPECT_EQ(read.profiles[0], amy);
  EXPECT_EQ(read.profiles[1], profiles[1]);
}

TEST_F(ProfileWeightsFile, AWeightsFileWithoutAProfileFileGivesNothing) {
  WriteAll(Side(), "Quillet profile weights 1\nAmy\tAKs:0.5\n");
  const ProfileFileContents read = ReadProfileFile(File());
  EXPECT_EQ(read.status, ProfileFileContents::Status::Missing);
  EXPECT_TRUE(read.profiles.empty());
  EXPECT_FALSE(read.weightsError.has_value());
}

TEST_F(ProfileWeightsFile, CarriageReturnsAndEmptyLinesAreTakenAsAnEditorLeavesThem) {
  const PlayerProfile amy = Weighted("Amy", "QQ+, AKs:0.5");
  WriteAll(File(), EncodeProfileFile({Unweighted(amy)}));
  WriteAll(Side(), "Quillet profile weights 1\r\n\r\nAmy\tQQ+, AKs:0.5\r\n");
  const ProfileFileContents read = ReadProfileFile(File());
  EXPECT_FALSE(read.weightsError.has_value());
  ASSERT_EQ(read.profiles.size(), 1u);
  EXPECT_EQ(read.profiles[0], amy);
}

TEST_F(ProfileWeightsFile, ADamagedWeightsFileLeavesEveryProfileUnweightedAndSaysWhy) {
  const PlayerProfile amy = Weighted("Amy", "QQ+, AKs:0.5");
  const PlayerProfile bob = Weighted("Bob", "KK:0.25");
  const std::string label = (dir / "Player_Profiles.ini.weights").string();
  const std::pair<std::string, std::string> damaged[] = {
      {"", "it is empty"},
      {"Quillet profile weights 2\nAmy\tQQ+, AKs:0.5\n",
       "its first line is not \"Quillet profile weights 1\" (a file of another program, or of a newer "
       "Quillet)"},
      {"Quillet profile weights 1\nAmy\tQQ+, AKs:0.5\nBob KK:0.25\n",
       "line 3 has no tab between the name and the weights"},
      {"Quillet profile weights 1\nAmy\tQQ+, AKs:0.5\nB\\ob\tKK:0.25\n",
       "line 3 has a backslash in its name that starts no escape"},
      {"Quillet profile weights 1\nAmy\tQQ+, AKs:0.5\nBob\tKK:1.25\n",
       "line 3: bad weight 'KK:1.25' at column 1 (a weight is 0 to 1 in steps of 0.001 after a colon, "
       "\"AKs:0.5\", or a percentage in steps of 0.1, \"AKs:50%\", \"[50]AKs, AQs[/50]\")"},
  };
  for (const auto& [bytes, why] : damaged) {
    SCOPED_TRACE(why);
    WriteAll(File(), EncodeProfileFile({Unweighted(amy), Unweighted(bob)}));
    WriteAll(Side(), bytes);
    const ProfileFileContents read = ReadProfileFile(File());
    EXPECT_EQ(read.status, ProfileFileContents::Status::Read);
    ASSERT_TRUE(read.weightsError.has_value());
    EXPECT_EQ(read.weightsError->message,
              "The profile weights file \"" + label + "\" cannot be read: " + why + ".");
    EXPECT_EQ(read.weightsBytes, bytes);
    // Amy's line was good, but a damaged file gives no weights at all.
    EXPECT_EQ(read.profiles, (std::vector<PlayerProfile>{Unweighted(amy), Unweighted(bob)}));
  }
}

TEST_F(ProfileWeightsFile, AWeightsFileThatIsAFolderIsReportedAndTheProfilesAreRead) {
  const PlayerProfile amy = Weighted("Amy", "QQ+, AKs:0.5");
  WriteAll(File(), EncodeProfileFile({Unweighted(amy)}));
  fs::create_directory(Side());
  const ProfileFileContents read = ReadProfileFile(File());
  ASSERT_EQ(read.status, ProfileFileContents::Status::Read);
  ASSERT_TRUE(read.weightsError.has_value());
  EXPECT_TRUE(read.weightsBytes.empty());
  EXPECT_EQ(read.profiles, std::vector<PlayerProfile>{Unweighted(amy)});
  // Saving then writes the profile file and says that the weights could not be kept.
  const auto error = WriteProfileFile(File(), {amy});
  ASSERT_TRUE(error.has_value());
  EXPECT_NE(error->message.find("The profile weights could not be saved to \"" + Side().string() + "\""),
            std::string::npos)
      << error->message;
  EXPECT_EQ(ReadAll(File()), EncodeProfileFile({Unweighted(amy)}));
}

TEST_F(ProfileWeightsFile, AWeightsSaveKilledHalfwayLeavesTheOldWeightsFileWhole) {
  const std::vector<PlayerProfile> before = {Weighted("Amy", "QQ+, AKs:0.5")};
  ASSERT_FALSE(WriteProfileFile(File(), before).has_value());
  const std::string old = ReadAll(Side());
  // Many weights: a weights file far longer than the old one, killed at 64 bytes.
  std::vector<PlayerProfile> after;
  for (int i = 0; i < 20; ++i)
    after.push_back(Weighted("P" + std::to_string(i), "[12.5]22+, A2+, K2+, Q2+[/12.5]"));
  testing::KillASaveHalfway([&] { WriteProfileWeights(File(), after); }, 64);
  EXPECT_EQ(ReadAll(Side()), old);
  const ProfileFileContents read = ReadProfileFile(File());
  EXPECT_FALSE(read.weightsError.has_value());
  EXPECT_EQ(read.profiles, before);
  RemoveStaleTemporaryFiles(Side());
}

TEST_F(ProfileWeightsFile, TheWeightsFileLiesBesideTheFileALinkLeadsTo) {
  testing::TempFolder elsewhere;
  const fs::path real = elsewhere / "profiles.ini";
  fs::create_symlink(real, File());
  ASSERT_FALSE(WriteProfileFile(File(), {Weighted("Amy", "AKs:0.5")}).has_value());
  EXPECT_EQ(ProfileWeightsPath(File()), elsewhere / "profiles.ini.weights");
  EXPECT_TRUE(fs::exists(elsewhere / "profiles.ini.weights"));
  EXPECT_FALSE(fs::exists(Side()));
  const ProfileFileContents read = ReadProfileFile(File());
  ASSERT_EQ(read.profiles.size(), 1u);
  EXPECT_TRUE(HasPartialWeights(read.profiles[0]));
}

}  // namespace
}  // namespace quillet
