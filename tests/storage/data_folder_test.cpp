#include "storage/data_folder.h"

#include <gtest/gtest.h>

#include "tests/storage/temp_folder.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

TEST(DataFolder, AWritableProgramFolderHoldsTheFiles) {
  EXPECT_EQ(ChooseDataFolder("/opt/quillet", true, false, {"/home/u/.data", "/home/u"}),
            fs::path("/opt/quillet"));
}

TEST(DataFolder, AProgramFolderThatCannotBeWrittenGivesXdgDataHomeQuillet) {
  EXPECT_EQ(ChooseDataFolder("/usr/bin", false, false, {"/home/u/.data", "/home/u"}),
            fs::path("/home/u/.data/quillet"));
}

TEST(DataFolder, WithoutXdgDataHomeTheDataFolderIsInTheHomeFolder) {
  EXPECT_EQ(ChooseDataFolder("/usr/bin", false, false, {"", "/home/u"}),
            fs::path("/home/u/.local/share/quillet"));
}

TEST(DataFolder, ARelativeXdgDataHomeIsIgnored) {
  EXPECT_EQ(ChooseDataFolder("/usr/bin", false, false, {"data", "/home/u"}),
            fs::path("/home/u/.local/share/quillet"));
}

TEST(DataFolder, WithNoHomeAtAllTheProgramFolderIsKept) {
  EXPECT_EQ(ChooseDataFolder("/usr/bin", false, false, {"", ""}), fs::path("/usr/bin"));
}

TEST(DataFolder, AnInstalledProgramUsesXdgDataHomeQuilletEvenWhenItsFolderIsWritable) {
  EXPECT_EQ(ChooseDataFolder("/usr/bin", true, true, {"/home/u/.data", "/home/u"}),
            fs::path("/home/u/.data/quillet"));
  EXPECT_EQ(ChooseDataFolder("/usr/bin", true, true, {"", "/root"}), fs::path("/root/.local/share/quillet"));
}

TEST(DataFolder, TheInstallBinFolderIsAnInstalledProgramFolder) {
  EXPECT_TRUE(IsInstalledProgramFolder("/usr/local/bin", "/usr/local/bin", false));
  EXPECT_TRUE(IsInstalledProgramFolder("/usr/local/bin/", "/usr/local/bin", false));
}

TEST(DataFolder, ABinFolderWithTheMenuEntryBesideIsAnInstalledProgramFolder) {
  EXPECT_TRUE(IsInstalledProgramFolder("/usr/bin", "/usr/local/bin", true));
  EXPECT_TRUE(IsInstalledProgramFolder("/home/u/apps/bin", "/usr/local/bin", true));
  EXPECT_FALSE(IsInstalledProgramFolder("/usr/bin", "/usr/local/bin", false));
}

TEST(DataFolder, BuildAndOtherFoldersAreNotInstalledProgramFolders) {
  EXPECT_FALSE(IsInstalledProgramFolder("/work/q/build/release/app/gui", "/usr/local/bin", false));
  EXPECT_FALSE(IsInstalledProgramFolder("/work/q/build/release/cli", "/usr/local/bin", true));
  EXPECT_FALSE(IsInstalledProgramFolder("/opt/quillet", "/usr/local/bin", true));
  EXPECT_FALSE(IsInstalledProgramFolder("", "/usr/local/bin", true));
}

TEST(DataFolder, AFolderIsWritableWhenAFileCanBeCreatedThereAndNoProbeIsLeft) {
  testing::TempFolder dir;
  EXPECT_TRUE(IsWritableFolder(dir.path()));
  EXPECT_TRUE(dir.Entries().empty());
  EXPECT_FALSE(IsWritableFolder(dir / "missing"));
  testing::WriteBytes(dir / "file", "x");
  EXPECT_FALSE(IsWritableFolder(dir / "file"));
}

TEST(DataFolder, TheRealChoiceUsesAWritableProgramFolder) {
  testing::TempFolder dir;
  EXPECT_EQ(ChooseDataFolder(dir.path()), dir.path());
}

TEST(DataFolder, TheCliFindsTheWindowsFolderInTheBuildTree) {
  testing::TempFolder dir;
  fs::create_directories(dir / "cli");
  EXPECT_EQ(WindowProgramFolder(dir / "cli"), dir / "cli");  // no window built
  fs::create_directories(dir / "app" / "gui");
  EXPECT_EQ(WindowProgramFolder(dir / "cli"), dir / "app" / "gui");
  EXPECT_EQ(WindowProgramFolder("/usr/bin"), fs::path("/usr/bin"));  // installed side by side
}

TEST(DataFolder, TheRunningProgramsFolderHoldsThisTest) {
  const fs::path folder = RunningProgramFolder();
  ASSERT_FALSE(folder.empty());
  EXPECT_TRUE(fs::exists(folder / "storage_tests"));
}

}  // namespace
}  // namespace quillet
