// The window keeps its profiles' weights through the weights file beside the profile file: a save and a
// load give them back, another program's weights are merged like its profiles, and a weights file that
// cannot be read is reported once, kept aside, and costs the weights only.
#include <gtest/gtest.h>

#include "app/model/form1_model.h"
#include "range/range_notation.h"
#include "storage/profile_file.h"
#include "tests/support/le_bytes.h"
#include "tests/support/model_in_folder.h"
#include "tests/support/recording_services.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;
using testing::Profile;
using testing::ReadBytes;
using testing::WriteBytes;

using WeightsModel = testing::ModelInFolderTest;

PlayerProfile WithWeights(PlayerProfile p, const std::string& notation) {
  const ParsedWeightedRange parsed = ParseWeightedRangeNotation(notation);
  EXPECT_TRUE(parsed.ok()) << notation;
  SetOnLayerWeights(p, parsed.weights);
  return p;
}

fs::path SideFile(const fs::path& profileFile) {
  return fs::path(profileFile.string() + ".weights");
}

TEST_F(WeightsModel, WeightsSurviveClosingAndStartingAgain) {
  model.profiles().list = {WithWeights(Profile("Amy"), "KK:0.5, QQ"), Profile("Bob")};
  EXPECT_TRUE(model.profiles().SaveProfiles());
  EXPECT_TRUE(services.messages.empty());
  EXPECT_EQ(ReadBytes(SideFile(ProfileFile())), "Quillet profile weights 1\nAmy\tQQ, KK:0.5\n");

  RecordingServices otherServices;
  Form1Model other(otherServices);
  other.ProfilePaths(dir.path());
  EXPECT_TRUE(other.profiles().LoadProfiles());
  EXPECT_TRUE(otherServices.messages.empty());
  EXPECT_EQ(other.profiles().list, model.profiles().list);
}

TEST_F(WeightsModel, ASessionWithoutWeightsWritesNoWeightsFile) {
  model.profiles().list = {Profile("Amy"), Profile("Bob", "KK")};
  EXPECT_TRUE(model.profiles().SaveProfiles());
  EXPECT_EQ(dir.Entries(), std::vector<std::string>{"Player_Profiles.ini"});
}

TEST_F(WeightsModel, WeightsAnotherProgramGaveAProfileSinceTheLoadAreKept) {
  WriteBytes(ProfileFile(), EncodeProfileFile({Profile("Amy"), Profile("Bob", "KK")}));
  EXPECT_TRUE(model.profiles().LoadProfiles());
  // Another program (quillet-cli, a second window) weights Bob meanwhile; this session changes only Amy.
  ASSERT_FALSE(WriteProfileFile(ProfileFile(), {Profile("Amy"), WithWeights(Profile("Bob", "KK"), "KK:0.25")})
                   .has_value());
  model.profiles().list[0] = WithWeights(model.profiles().list[0], "AA:0.5");
  EXPECT_TRUE(model.profiles().SaveProfiles());
  const ProfileFileContents read = ReadProfileFile(ProfileFile());
  ASSERT_EQ(read.profiles.size(), 2u);
  EXPECT_EQ(PrintWeightedRangeNotation(OnLayerWeights(read.profiles[0])), "AA:0.5");
  EXPECT_EQ(PrintWeightedRangeNotation(OnLayerWeights(read.profiles[1])), "KK:0.25");
}

TEST_F(WeightsModel, ADamagedWeightsFileIsReportedOnceKeptAsideAndTheProfilesLoadUnweighted) {
  WriteBytes(ProfileFile(), EncodeProfileFile({Profile("Amy", "KK")}));
  const std::string damaged = "Quillet profile weights 1\nAmy\tKK:0.5 AKx\n";
  WriteBytes(SideFile(ProfileFile()), damaged);
  EXPECT_TRUE(model.profiles().LoadProfiles());
  ASSERT_EQ(services.messages.size(), 1u);
  EXPECT_EQ(services.messages[0].icon, MessageIcon::Warning);
  EXPECT_EQ(services.messages[0].text,
            "The profile weights file \"" + SideFile(ProfileFile()).string() +
                "\" cannot be read: line 2: unknown token 'AKx' at column 8.\r\n\r\nThe file was kept as \"" +
                SideFile(ProfileFile()).string() + ".bad\". The profiles were loaded without their weights.");
  EXPECT_EQ(ReadBytes(fs::path(SideFile(ProfileFile()).string() + ".bad")), damaged);
  ASSERT_EQ(model.profiles().list.size(), 1u);
  EXPECT_EQ(model.profiles().list[0], Profile("Amy", "KK"));
  EXPECT_EQ(model.profiles().cmbPlayer.items, std::vector<std::string>{"Amy"});
  // Closing writes the profile file as it was and no weights file; the copy stays.
  EXPECT_TRUE(model.profiles().SaveProfiles());
  EXPECT_EQ(ReadBytes(ProfileFile()), EncodeProfileFile({Profile("Amy", "KK")}));
  EXPECT_FALSE(fs::exists(SideFile(ProfileFile())));
  EXPECT_EQ(ReadBytes(fs::path(SideFile(ProfileFile()).string() + ".bad")), damaged);
  EXPECT_EQ(services.messages.size(), 1u);
}

TEST_F(WeightsModel, AFileOfANewerVersionIsKeptWithItsWeightsFileBeforeTheSessionOverwritesThem) {
  const std::string newer = testing::Le32(7) + EncodeProfileFile({Profile("Kept", "KK")}).substr(4);
  const std::string weights = "Quillet profile weights 1\nKept\tKK:0.5\n";
  WriteBytes(ProfileFile(), newer);
  WriteBytes(SideFile(ProfileFile()), weights);
  services.yesNoAnswers = {true};
  EXPECT_TRUE(model.profiles().LoadProfiles());
  EXPECT_TRUE(model.profiles().list.empty());
  model.profiles().currentIndex = model.profiles().FirstProfileIndex();
  EXPECT_TRUE(model.profiles().SaveProfiles());
  // Generic has no weights: the weights file goes, and the copies of both files stay.
  EXPECT_FALSE(fs::exists(SideFile(ProfileFile())));
  EXPECT_EQ(ReadBytes(dir / "Player_Profiles.ini.bad"), newer);
  EXPECT_EQ(ReadBytes(fs::path(SideFile(ProfileFile()).string() + ".bad")), weights);
}

}  // namespace
}  // namespace quillet
