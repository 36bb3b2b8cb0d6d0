#include "storage/file_io.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>

namespace quillet {
namespace fs = std::filesystem;
namespace {

std::string ErrnoText(int error) {
  return std::strerror(error);
}

// Closes a descriptor on every path out of a function.
class Descriptor {
 public:
  explicit Descriptor(int fd) : fd_(fd) {}
  ~Descriptor() {
    if (fd_ >= 0) ::close(fd_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int get() const { return fd_; }
  // Closes now and reports the result (a delayed write error can surface here).
  int Close() {
    const int result = ::close(fd_);
    fd_ = -1;
    return result;
  }

 private:
  int fd_;
};

bool WriteAll(int fd, std::string_view bytes, int& error) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
    if (n < 0) {
      if (errno == EINTR) continue;
      error = errno;
      return false;
    }
    done += static_cast<std::size_t>(n);
  }
  return true;
}

// The file a path finally stands for: a symbolic link is followed, so that replacing the file keeps the link.
fs::path ResolveLinks(const fs::path& path) {
  std::error_code ec;
  if (!fs::is_symlink(fs::symlink_status(path, ec))) return path;
  fs::path target = fs::weakly_canonical(path, ec);
  return ec ? path : target;
}

// Opens a new, uniquely named temporary file beside `target`.
int CreateTemporary(const fs::path& target, fs::path& temporary, int& error) {
  const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
  static unsigned counter = 0;
  for (int attempt = 0; attempt < 100; ++attempt) {
    const auto tick =
        static_cast<unsigned long long>(std::chrono::steady_clock::now().time_since_epoch().count());
    std::string name(1, '.');
    name.append(target.filename().string());
    for (const unsigned long long part : {static_cast<unsigned long long>(::getpid()),
                                          static_cast<unsigned long long>(++counter), tick % 1000000}) {
      name.push_back('.');
      name.append(std::to_string(part));
    }
    name.append(".tmp");
    temporary = folder / name;
    const int fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd >= 0) return fd;
    if (errno != EEXIST) {
      error = errno;
      return -1;
    }
  }
  error = EEXIST;
  return -1;
}

void SyncFolder(const fs::path& file) {
  const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
  const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  ::fsync(fd);  // makes the rename itself durable; a folder that cannot be synced is no reason to fail
  ::close(fd);
}

}  // namespace

FileRead ReadWholeFile(const fs::path& path, std::size_t maxBytes) {
  FileRead result;
  Descriptor fd(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (fd.get() < 0) {
    if (errno == ENOENT || errno == ENOTDIR) return result;  // Missing
    result.status = FileRead::Status::Failed;
    result.reason = ErrnoText(errno);
    return result;
  }
  result.status = FileRead::Status::Failed;
  struct stat st {};
  if (::fstat(fd.get(), &st) != 0) {
    result.reason = ErrnoText(errno);
    return result;
  }
  if (S_ISDIR(st.st_mode)) {
    result.reason = "it is a folder, not a file";
    return result;
  }
  if (!S_ISREG(st.st_mode)) {
    result.reason = "it is not a regular file";
    return result;
  }
  if (static_cast<unsigned long long>(st.st_size) > maxBytes) {
    result.reason = "it is " + std::to_string(st.st_size) + " bytes long, more than the " +
                    std::to_string(maxBytes) + " bytes such a file can hold";
    return result;
  }
  std::string bytes(static_cast<std::size_t>(st.st_size), '\0');
  std::size_t done = 0;
  for (;;) {
    if (done == bytes.size()) {
      if (bytes.size() > maxBytes) {
        result.reason = "it grew past " + std::to_string(maxBytes) + " bytes while being read";
        return result;
      }
      bytes.resize(bytes.size() + 4096);  // the file may have grown since it was measured
    }
    const ssize_t n = ::read(fd.get(), bytes.data() + done, bytes.size() - done);
    if (n < 0) {
      if (errno == EINTR) continue;
      result.reason = ErrnoText(errno);
      return result;
    }
    if (n == 0) break;
    done += static_cast<std::size_t>(n);
  }
  bytes.resize(done);
  result.status = FileRead::Status::Read;
  result.bytes = std::move(bytes);
  return result;
}

std::optional<std::string> WriteFileAtomically(const fs::path& path, std::string_view bytes) {
  const fs::path target = ResolveLinks(path);
  fs::path temporary;
  int error = 0;
  Descriptor fd(CreateTemporary(target, temporary, error));
  if (fd.get() < 0) return "the temporary file could not be created (" + ErrnoText(error) + ")";

  const auto fail = [&](const std::string& what) -> std::optional<std::string> {
    ::unlink(temporary.c_str());
    return what + " (" + ErrnoText(error) + ")";
  };
  struct stat old {};
  if (::stat(target.c_str(), &old) == 0 && S_ISREG(old.st_mode)) ::fchmod(fd.get(), old.st_mode & 07777);
  if (!WriteAll(fd.get(), bytes, error)) return fail("writing failed");
  if (::fsync(fd.get()) != 0) {
    error = errno;
    return fail("flushing to the disk failed");
  }
  if (fd.Close() != 0) {
    error = errno;
    return fail("closing the file failed");
  }
  if (::rename(temporary.c_str(), target.c_str()) != 0) {
    error = errno;
    return fail("the new file could not take the old one's place");
  }
  SyncFolder(target);
  return std::nullopt;
}

SetAside KeepFileAside(const fs::path& path, const std::string* bytes) {
  SetAside result;
  std::error_code ec;
  fs::path aside;
  for (int k = 1; k <= 99; ++k) {
    fs::path candidate = path;
    candidate += k == 1 ? std::string(".bad") : ".bad." + std::to_string(k);
    if (!fs::exists(fs::symlink_status(candidate, ec))) {
      aside = candidate;
      break;
    }
  }
  if (aside.empty()) {
    result.reason = "all the names from \".bad\" to \".bad.99\" are taken";
    return result;
  }
  if (bytes != nullptr) {
    if (auto failure = WriteFileAtomically(aside, *bytes)) {
      result.reason = *failure;
      return result;
    }
  } else if (::rename(path.c_str(), aside.c_str()) != 0) {
    result.reason = ErrnoText(errno);
    return result;
  }
  result.copy = aside;
  return result;
}

}  // namespace quillet
