// Where the two files live: the program's own folder, or, for an installed program or one that cannot
// write there, the user's data folder $XDG_DATA_HOME/quillet (by default ~/.local/share/quillet).
#pragma once

#include <filesystem>
#include <string>

namespace quillet {

struct DataFolderEnvironment {
  std::string xdgDataHome;  // $XDG_DATA_HOME; only an absolute path counts
  std::string home;         // $HOME, or the home folder of the account when it is unset
};

DataFolderEnvironment CurrentDataFolderEnvironment();

// Whether a file can be created in the folder (tried with a probe file that is removed at once).
bool IsWritableFolder(const std::filesystem::path& folder);

// $XDG_DATA_HOME/quillet, else HOME/.local/share/quillet; empty when neither is known.
std::filesystem::path UserDataFolder(const DataFolderEnvironment& env);

// Whether the program's folder is an installed program's bin folder: the bin folder this build installs
// into (installBinFolder), or a folder named "bin" whose install tree holds Quillet's menu entry
// (../share/applications/quillet.desktop, installed beside the programs by cmake --install and the
// package; a package may be built for another prefix than the one configured). A build folder is never one.
bool IsInstalledProgramFolder(const std::filesystem::path& programFolder,
                              const std::filesystem::path& installBinFolder, bool menuEntryInstalledBeside);
bool IsInstalledProgramFolder(const std::filesystem::path& programFolder);

// The program's folder when it can be written and is not an installed program's folder, else the user's
// data folder (the program's folder again when there is no user data folder either). The user's data
// folder is not created here.
std::filesystem::path ChooseDataFolder(const std::filesystem::path& programFolder, bool programFolderWritable,
                                       bool installedProgram, const DataFolderEnvironment& env);
std::filesystem::path ChooseDataFolder(const std::filesystem::path& programFolder);

// The folder of the running executable (empty when it cannot be found).
std::filesystem::path RunningProgramFolder();

// The window program's folder seen from quillet-cli's: the same folder once installed; in the build tree
// the window is app/gui/quillet beside cli/quillet-cli, and its folder is the one whose files count.
std::filesystem::path WindowProgramFolder(const std::filesystem::path& cliFolder);

}  // namespace quillet
