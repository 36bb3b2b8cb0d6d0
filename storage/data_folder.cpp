#include "storage/data_folder.h"

#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace quillet {
namespace fs = std::filesystem;

DataFolderEnvironment CurrentDataFolderEnvironment() {
  DataFolderEnvironment env;
  if (const char* xdg = std::getenv("XDG_DATA_HOME")) env.xdgDataHome = xdg;
  if (const char* home = std::getenv("HOME")) env.home = home;
  if (env.home.empty()) {
    if (const passwd* account = ::getpwuid(::getuid()); account != nullptr && account->pw_dir != nullptr) {
      env.home = account->pw_dir;
    }
  }
  return env;
}

bool IsWritableFolder(const fs::path& folder) {
  const fs::path probe = folder / (".quillet-write-test-" + std::to_string(::getpid()));
  const int fd = ::open(probe.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (fd < 0) return false;
  ::close(fd);
  ::unlink(probe.c_str());
  return true;
}

fs::path UserDataFolder(const DataFolderEnvironment& env) {
  if (!env.xdgDataHome.empty() && fs::path(env.xdgDataHome).is_absolute())
    return fs::path(env.xdgDataHome) / "quillet";
  if (!env.home.empty()) return fs::path(env.home) / ".local" / "share" / "quillet";
  return {};
}

#ifndef QUILLET_INSTALL_BINDIR
#define QUILLET_INSTALL_BINDIR ""
#endif

bool IsInstalledProgramFolder(const fs::path& programFolder, const fs::path& installBinFolder,
                              bool menuEntryInstalledBeside) {
  if (programFolder.empty()) return false;
  const auto normal = [](const fs::path& p) {
    fs::path n = p.lexically_normal();
    return n.has_filename() || n == n.root_path() ? n : n.parent_path();  // "/usr/bin/" reads as "/usr/bin"
  };
  const fs::path folder = normal(programFolder);
  if (!installBinFolder.empty() && folder == normal(installBinFolder)) return true;
  return folder.filename() == "bin" && menuEntryInstalledBeside;
}

bool IsInstalledProgramFolder(const fs::path& programFolder) {
  std::error_code ec;
  const bool menuEntry =
      fs::is_regular_file(programFolder.parent_path() / "share" / "applications" / "quillet.desktop", ec);
  return IsInstalledProgramFolder(programFolder, QUILLET_INSTALL_BINDIR, menuEntry);
}

fs::path ChooseDataFolder(const fs::path& programFolder, bool programFolderWritable, bool installedProgram,
                          const DataFolderEnvironment& env) {
  if (programFolderWritable && !installedProgram) return programFolder;
  fs::path user = UserDataFolder(env);
  return user.empty() ? programFolder : user;
}

fs::path ChooseDataFolder(const fs::path& programFolder) {
  const bool installed = IsInstalledProgramFolder(programFolder);
  // An installed program is not probed: nothing is created in its folder, even for a moment.
  const bool writable = !installed && IsWritableFolder(programFolder);
  return ChooseDataFolder(programFolder, writable, installed, CurrentDataFolderEnvironment());
}

fs::path RunningProgramFolder() {
  std::error_code ec;
  const fs::path exe = fs::read_symlink("/proc/self/exe", ec);
  return ec ? fs::path() : exe.parent_path();
}

fs::path WindowProgramFolder(const fs::path& cliFolder) {
  std::error_code ec;
  if (cliFolder.filename() == "cli") {
    const fs::path window = cliFolder.parent_path() / "app" / "gui";
    if (fs::is_directory(window, ec)) return window;
  }
  return cliFolder;
}

}  // namespace quillet
