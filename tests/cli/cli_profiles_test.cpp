#include <gtest/gtest.h>

#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "storage/profile_file.h"
#include "tests/cli/cli_run.h"
#include "tests/storage/memory_budget.h"
#include "tests/storage/temp_folder.h"
#include "tests/support/recording_services.h"

namespace quillet::cli {
namespace {

using quillet::testing::ReadBytes;
using quillet::testing::WriteBytes;

using ProfilesCommand = ProfilesCommandTest;

TEST_F(ProfilesCommand, AddCreatesTheFileWithTheClassesWholeInTheirLayers) {
  const CliRun run = Run({"add", "Villain", "--range", "AKs", "--seen", "22", "--range-text", "~0.8"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_TRUE(run.err.empty());
  PlayerProfile expected;
  InitProfile(expected);
  expected.name = "Villain";
  expected.rangeText = "~0.8";
  SetBlockWhole(expected.rangeLayer[FindClassByName("AKs")], true);
  SetBlockWhole(expected.seenLayer[FindClassByName("22")], false);
  EXPECT_EQ(ReadBytes(File()), EncodeProfileFile({expected}));
}

TEST_F(ProfilesCommand, AddWithoutARangeTextStoresTheTextAGridClickWouldShow) {
  // AKs (4) and 22 (6) are 10 of 1,326 holdings. An empty text would turn the range into AA when the
  // profile is picked in the window.
  ASSERT_EQ(Run({"add", "Villain", "--range", "AKs", "--seen", "22"}).status, 0);
  ASSERT_EQ(Run({"add", "Nobody", "--range", ""}).status, 0);
  const ProfileFileContents read = ReadProfileFile(File());
  ASSERT_EQ(read.status, ProfileFileContents::Status::Read);
  const std::vector<PlayerProfile>& profiles = read.profiles;
  ASSERT_EQ(profiles.size(), 2u);
  EXPECT_EQ(profiles[0].rangeText, "~0.8");
  EXPECT_EQ(profiles[1].rangeText, "~0");
}

TEST_F(ProfilesCommand, ListPrintsTheNamesInFileOrder) {
  ASSERT_EQ(Run({"add", "Zed", "--range", "AA"}).status, 0);
  ASSERT_EQ(Run({"add", "Amy", "--range", ""}).status, 0);
  const CliRun run = Run({"list"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "Zed\nAmy\n");
}

TEST_F(ProfilesCommand, ListOfAMissingFileIsEmpty) {
  const CliRun run = Run({"list"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "");
}

TEST_F(ProfilesCommand, ShowPrintsTheRangeTextAndEachHeldClassWithItsCountAndWholeFlag) {
  ASSERT_EQ(Run({"add", "Villain", "--range", "AKs,QQ", "--seen", "AKo", "--range-text", "12.5"}).status, 0);
  const CliRun run = Run({"show", "Villain"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out,
            "Profile: Villain\n"
            "Range text: 12.5\n"
            "On layer (2 classes)\n"
            "  AKs  4 holdings, whole\n"
            "  QQ  6 holdings, whole\n"
            "Seen layer (1 class)\n"
            "  AKo  12 holdings, whole\n");
}

TEST_F(ProfilesCommand, ShowAsJsonGivesOneObject) {
  ASSERT_EQ(Run({"add", "Villain", "--range", "AKs", "--seen", "22", "--range-text", "~0.8"}).status, 0);
  const CliRun run = Run({"show", "Villain", "--json"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(
      run.out,
      "{\"name\":\"Villain\",\"rangeText\":\"~0.8\",\"on\":[{\"class\":\"AKs\",\"count\":4,\"whole\":true}],"
      "\"seen\":[{\"class\":\"22\",\"count\":6,\"whole\":true}]}\n");
}

TEST_F(ProfilesCommand, ShowReportsAPartBlockWithoutTheWholeFlag) {
  PlayerProfile p;
  InitProfile(p);
  p.name = "Part";
  BlockRecord& ak = p.rangeLayer[FindClassByName("AK")];
  SetBlockWhole(ak, false);
  SetBlockSuitPair(ak, 1, 0, false, false);
  WriteBytes(File(), EncodeProfileFile({p}));
  EXPECT_EQ(Run({"show", "Part", "--json"}).out,
            "{\"name\":\"Part\",\"rangeText\":\"\",\"on\":[{\"class\":\"AKo\",\"count\":11,\"whole\":false}],"
            "\"seen\":[]}\n");
  EXPECT_NE(Run({"show", "Part"}).out.find("  AKo  11 holdings\n"), std::string::npos);
}

TEST_F(ProfilesCommand, AKIsBothHalvesAKoTheOffsuitClassAndWithClassesAKIsOffsuit) {
  ASSERT_EQ(Run({"add", "A", "--range", "AK"}).status, 0);
  ASSERT_EQ(Run({"add", "B", "--range", "AKo"}).status, 0);
  ASSERT_EQ(Run({"add", "C", "--range", "AK", "--classes"}).status, 0);
  const auto read = ReadProfileFile(File());
  ASSERT_EQ(read.profiles.size(), 3u);
  const int offsuit = FindClassByName("AK");
  const int suited = FindClassByName("AKs");
  EXPECT_EQ(read.profiles[0].rangeLayer[offsuit].count, 12);
  EXPECT_EQ(read.profiles[0].rangeLayer[suited].count, 4);
  EXPECT_EQ(read.profiles[1].rangeLayer[offsuit].count, 12);
  EXPECT_EQ(read.profiles[1].rangeLayer[suited].count, 0);
  EXPECT_EQ(read.profiles[2].rangeLayer, read.profiles[1].rangeLayer);
}

TEST_F(ProfilesCommand, ClassesIsRefusedWhereNoRangeIsRead) {
  ASSERT_EQ(Run({"add", "A", "--range", "AK"}).status, 0);
  const CliRun list = Run({"list", "--classes"});
  EXPECT_EQ(list.status, 2);
  EXPECT_EQ(list.err, "quillet-cli profiles list: --classes does not apply here\n");
  const CliRun show = Run({"show", "A", "--classes"});
  EXPECT_EQ(show.status, 2);
  EXPECT_EQ(show.err, "quillet-cli profiles show: --classes does not apply here\n");
}

TEST_F(ProfilesCommand, AddKeepsTheProfilesAlreadyThere) {
  ASSERT_EQ(Run({"add", "Amy", "--range", "AA,KK"}).status, 0);
  const std::string before = ReadBytes(File());
  ASSERT_EQ(Run({"add", "Bob", "--range", "72"}).status, 0);
  const std::string after = ReadBytes(File());
  EXPECT_EQ(after.substr(8, before.size() - 8), before.substr(8));
  EXPECT_EQ(after.substr(4, 1), "\x02");
}

TEST_F(ProfilesCommand, AnUnknownClassIsRefusedByNameAndNothingIsWritten) {
  const CliRun run = Run({"add", "Amy", "--range", "AA,AKx"});
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find("unknown starting-hand class \"AKx\""), std::string::npos);
  EXPECT_TRUE(dir.Entries().empty());
  EXPECT_EQ(Run({"add", "Amy", "--range", "AA", "--seen", "AAo"}).status, 2);  // a pair has no offsuit form
}

TEST_F(ProfilesCommand, EmptyItemsOfAClassListAreSkipped) {
  EXPECT_EQ(Run({"add", "Amy", "--range", "AA,,KK,"}).status, 0);
  const CliRun show = Run({"show", "Amy"});
  EXPECT_NE(show.out.find("AA"), std::string::npos);
  EXPECT_NE(show.out.find("KK"), std::string::npos);
}

TEST_F(ProfilesCommand, ANameThatExistsIsRefused) {
  ASSERT_EQ(Run({"add", "Amy", "--range", "AA"}).status, 0);
  const CliRun run = Run({"add", "Amy", "--range", "KK"});
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find("already exists"), std::string::npos);
}

TEST_F(ProfilesCommand, ANameHasOneToFifteenCharactersAfterTrimming) {
  EXPECT_EQ(Run({"add", "123456789012345", "--range", "AA"}).status, 0);
  EXPECT_EQ(Run({"add", "1234567890123456", "--range", "AA"}).status, 2);
  EXPECT_EQ(Run({"add", "   ", "--range", "AA"}).status, 2);
  EXPECT_EQ(Run({"add", "  Pad  ", "--range", "AA"}).status, 0);
  EXPECT_EQ(Run({"list"}).out, "123456789012345\nPad\n");
}

TEST_F(ProfilesCommand, ANameTheFileCannotHoldIsRefused) {
  const CliRun refused = Run({"add", "\xD0\x98van", "--range", "AA"});
  EXPECT_EQ(refused.status, 2);
  EXPECT_EQ(refused.err,
            "quillet-cli profiles add: \"\xD0\x98van\" has characters the profile file cannot hold\n");
  EXPECT_EQ(Run({"add", "Jos\xC3\xA9", "--range", "AA"}).status, 0);
  EXPECT_EQ(Run({"list"}).out, "Jos\xC3\xA9\n");
}

TEST_F(ProfilesCommand, ARangeTextLongerThanAProfileKeepsIsRefusedAndNothingIsWritten) {
  const CliRun run = Run({"add", "Amy", "--range", "AA", "--range-text", std::string(32768, '1')});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err,
            "quillet-cli profiles add: the range text is 32768 bytes long, more than the 32767 bytes a "
            "range text may have\n");
  EXPECT_FALSE(std::filesystem::exists(File()));
  EXPECT_EQ(Run({"add", "Amy", "--range", "AA", "--range-text", std::string(32767, '1')}).status, 0);
  EXPECT_EQ(ReadProfileFile(File()).profiles.at(0).rangeText.size(), 32767u);
}

TEST_F(ProfilesCommand, AGibibyteFileClaimingOneProfileIsRefusedWithinFiftyMegabytes) {
  std::string head;
  for (const int32_t v : {1, 1}) {
    for (int k = 0; k < 4; ++k)
      head.push_back(static_cast<char>((static_cast<uint32_t>(v) >> (8 * k)) & 0xFF));
  }
  quillet::testing::WriteSparseFile(File(), head, off_t{1} << 30);
  const CliRun run = Run({"list"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err,
            "The player profile file \"" + File() +
                "\" cannot be read: it is 1073741824 bytes long, more than the 67108864 bytes such a "
                "file can hold.\n");
  if (quillet::testing::kUnderSanitizer)
    GTEST_SKIP() << "the sanitizer reserves more address space than the limit";
  EXPECT_TRUE(quillet::testing::RunsWithin(50 * 1000 * 1000, [&] { return Run({"list"}).status == 2; }));
  EXPECT_EQ(std::filesystem::file_size(File()), std::uintmax_t{1} << 30);  // left alone
}

TEST_F(ProfilesCommand, AddNeedsARange) {
  const CliRun run = Run({"add", "Amy"});
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find("--range"), std::string::npos);
}

TEST_F(ProfilesCommand, ShowOfAnUnknownNameIsRefused) {
  ASSERT_EQ(Run({"add", "Amy", "--range", "AA"}).status, 0);
  EXPECT_EQ(Run({"show", "amy"}).status, 2);
}

TEST_F(ProfilesCommand, ABadFileGivesTheWindowsMessageOnStderrWithStatusTwoAndIsLeftAlone) {
  ASSERT_EQ(Run({"add", "Amy", "--range", "AA"}).status, 0);
  ASSERT_EQ(Run({"add", "Bob", "--range", "KK"}).status, 0);
  const std::string cut = ReadBytes(File()).substr(0, 70000);
  WriteBytes(File(), cut);

  RecordingServices services;
  Form1Model window(services);
  window.profiles().path = dir / "copy" / "Player_Profiles.ini";
  std::filesystem::create_directories(window.profiles().path.parent_path());
  WriteBytes(window.profiles().path, cut);
  window.profiles().LoadProfiles();
  ASSERT_EQ(services.messages.size(), 1u);
  std::string windowLine = services.messages[0].text.substr(0, services.messages[0].text.find("\r\n"));
  windowLine.replace(windowLine.find(window.profiles().path.string()), window.profiles().path.string().size(),
                     File());

  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"list"}, {"show", "Amy"}, {"add", "Cat", "--range", "AA"}}) {
    const CliRun run = Run(words);
    EXPECT_EQ(run.status, 2) << words[0];
    EXPECT_EQ(run.err, windowLine + "\n");
    EXPECT_EQ(run.out, "");
  }
  EXPECT_EQ(ReadBytes(File()), cut);
  EXPECT_EQ(dir.Entries(), (std::vector<std::string>{"Player_Profiles.ini", "copy"}));
}

TEST_F(ProfilesCommand, AFileOfAnotherVersionIsRefusedWithStatusTwo) {
  WriteBytes(File(), std::string("\x02\x00\x00\x00\x00\x00\x00\x00", 8));
  const CliRun run = Run({"add", "Amy", "--range", "AA"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "The player profile file \"" + File() +
                         "\" is version 2, a newer format; this program reads version 1.\n");
  EXPECT_EQ(ReadBytes(File()).size(), 8u);
}

TEST_F(ProfilesCommand, AFailedSaveIsReportedAndTheOldFileStays) {
  const std::string missingFolder = (dir / "nowhere" / "Player_Profiles.ini").string();
  const CliRun run = RunCommandLine({"profiles", "add", "Amy", "--range", "AA", "--file", missingFolder});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err.rfind("The player profiles could not be saved to \"" + missingFolder + "\"", 0), 0u);
}

TEST_F(ProfilesCommand, AddThroughALinkToADriveNotMountedIsRefusedAndTheLinkStays) {
  const auto usb = dir / "usb" / "Player_Profiles.ini";
  std::filesystem::create_symlink(usb, File());
  const CliRun run = Run({"add", "T2", "--range", "AA"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "The player profiles could not be saved to \"" + File() +
                         "\": it is a symbolic link to \"" + usb.string() + "\", and there is no folder \"" +
                         (dir / "usb").string() +
                         "\" to hold that file. The file there was left as it was.\n");
  EXPECT_TRUE(std::filesystem::is_symlink(File()));
  EXPECT_EQ(std::filesystem::read_symlink(File()), usb);
}

TEST_F(ProfilesCommand, AddThroughALinkWhoseFileIsNotThereYetWritesTheLinksTarget) {
  std::filesystem::create_directory(dir / "usb");
  const auto usb = dir / "usb" / "Player_Profiles.ini";
  std::filesystem::create_symlink(usb, File());
  ASSERT_EQ(Run({"add", "T2", "--range", "AA"}).status, kExitOk);
  ASSERT_EQ(Run({"add", "T3", "--range", "KK"}).status, kExitOk);
  EXPECT_TRUE(std::filesystem::is_symlink(File()));
  EXPECT_EQ(Run({"list"}).out, RunCommandLine({"profiles", "list", "--file", usb.string()}).out);
  const ProfileFileContents read = ReadProfileFile(usb);
  ASSERT_EQ(read.status, ProfileFileContents::Status::Read);
  ASSERT_EQ(read.profiles.size(), 2u);
  EXPECT_EQ(read.profiles[0].name, "T2");
  EXPECT_EQ(read.profiles[1].name, "T3");
}

TEST_F(ProfilesCommand, UnknownSubcommandsAndMisplacedOptionsAreRefused) {
  EXPECT_EQ(RunCommandLine({"profiles"}).status, 2);
  EXPECT_EQ(RunCommandLine({"profiles", "remove", "Amy"}).status, 2);
  EXPECT_EQ(Run({"list", "--json"}).status, 2);
  EXPECT_EQ(Run({"show", "Amy", "--range", "AA"}).status, 2);
  EXPECT_EQ(Run({"add", "Amy", "--range", "AA", "--json"}).status, 2);
  EXPECT_EQ(Run({"list", "extra"}).status, 2);
}

}  // namespace
}  // namespace quillet::cli
