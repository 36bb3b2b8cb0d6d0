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

fs::path ChooseDataFolder(const fs::path& programFolder, bool programFolderWritable,
                          const DataFolderEnvironment& env) {
  if (programFolderWritable) return programFolder;
  fs::path user = UserDataFolder(env);
  return user.empty() ? programFolder : user;
}

fs::path ChooseDataFolder(const fs::path& programFolder) {
  return ChooseDataFolder(programFolder, IsWritableFolder(programFolder), CurrentDataFolderEnvironment());
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
