#include "storage/file_io.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstring>

namespace quillet {
namespace fs = std::filesystem;
namespace {

// How many symbolic links in a row are followed before the chain is taken for a circle.
constexpr int kMostLinksFollowed = 40;

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

// Reads up to `n` bytes at the descriptor's offset; fewer only at the file's end.
bool ReadUpTo(int fd, char* data, std::size_t n, std::size_t& got, int& error) {
  got = 0;
  while (got < n) {
    const ssize_t r = ::read(fd, data + got, n - got);
    if (r < 0) {
      if (errno == EINTR) continue;
      error = errno;
      return false;
    }
    if (r == 0) break;
    got += static_cast<std::size_t>(r);
  }
  return true;
}

// The temporary files of a target are named ".NAME.PID.N.TICK.tmp", and those of the copies kept aside
// beside it ".NAME.bad.PID.N.TICK.tmp" and ".NAME.bad.K.PID.N.TICK.tmp"; the process id of such a name, or 0.
pid_t TemporaryFileOwner(std::string_view name, std::string_view targetName) {
  constexpr std::string_view kSuffix = ".tmp";
  if (name.size() <= 1 + targetName.size() + 1 + kSuffix.size() || name[0] != '.' ||
      name.substr(1, targetName.size()) != targetName || name[1 + targetName.size()] != '.' ||
      name.substr(name.size() - kSuffix.size()) != kSuffix) {
    return 0;
  }
  std::string_view numbers = name.substr(2 + targetName.size());
  numbers.remove_suffix(kSuffix.size());
  constexpr std::string_view kAside = "bad.";
  const bool aside = numbers.substr(0, kAside.size()) == kAside;
  if (aside) numbers.remove_prefix(kAside.size());
  unsigned long long parts[4] = {};
  int count = 0;
  const char* p = numbers.data();
  const char* end = numbers.data() + numbers.size();
  for (; count < 4 && p != end; ++count) {
    if (count > 0) {
      if (*p != '.') return 0;
      ++p;
    }
    const auto [next, ec] = std::from_chars(p, end, parts[count]);
    if (ec != std::errc() || next == p) return 0;
    p = next;
  }
  if (p != end) return 0;
  // A copy's number K (".bad.K") comes before the three of the temporary file.
  const bool copyNumber = aside && count == 4;
  if (count != 3 && !copyNumber) return 0;
  if (copyNumber && (parts[0] < 2 || parts[0] > 99)) return 0;
  const unsigned long long pid = parts[copyNumber ? 1 : 0];
  if (pid == 0 || pid > 0x7FFFFFFF) return 0;
  return static_cast<pid_t>(pid);
}

bool ProcessIsGone(pid_t pid) {
  return ::kill(pid, 0) != 0 && errno == ESRCH;
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
  return ReadWholeFile(path, maxBytes, 0, nullptr);
}

FileRead ReadWholeFile(const fs::path& path, std::size_t maxBytes, std::size_t headBytes,
                       const HeadCheck& readOn) {
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
  result.size = static_cast<std::uint64_t>(st.st_size);
  // The head first, then, when it is judged worth it, the rest into the same buffer.
  std::string bytes(std::min<std::size_t>(headBytes, static_cast<std::size_t>(st.st_size)), '\0');
  std::size_t done = 0;
  int error = 0;
  if (!ReadUpTo(fd.get(), bytes.data(), bytes.size(), done, error)) {
    result.reason = ErrnoText(error);
    return result;
  }
  bytes.resize(done);
  const ReadAt readAt = [&](std::uint64_t offset, char* data, std::size_t n) -> std::size_t {
    std::size_t got = 0;
    while (got < n) {
      const ssize_t r = ::pread(fd.get(), data + got, n - got, static_cast<off_t>(offset + got));
      if (r < 0 && errno == EINTR) continue;
      if (r <= 0) break;
      got += static_cast<std::size_t>(r);
    }
    return got;
  };
  if (readOn && !readOn(bytes, result.size, readAt)) {
    result.status = FileRead::Status::Stopped;
    result.bytes = std::move(bytes);
    return result;
  }
  bytes.resize(std::max(bytes.size(), static_cast<std::size_t>(st.st_size)));
  char probe[4096];
  for (;;) {
    // Once the file's measured length is in, a small probe looks for more (the file may have grown since
    // it was measured): a file that did not grow costs one buffer of its own length.
    const bool probing = done == bytes.size();
    if (probing && bytes.size() > maxBytes) {
      result.reason = "it grew past " + std::to_string(maxBytes) + " bytes while being read";
      return result;
    }
    const ssize_t n = probing ? ::read(fd.get(), probe, sizeof probe)
                              : ::read(fd.get(), bytes.data() + done, bytes.size() - done);
    if (n < 0) {
      if (errno == EINTR) continue;
      result.reason = ErrnoText(errno);
      return result;
    }
    if (n == 0) break;
    if (probing) bytes.append(probe, static_cast<std::size_t>(n));
    done += static_cast<std::size_t>(n);
  }
  bytes.resize(done);
  result.status = FileRead::Status::Read;
  result.bytes = std::move(bytes);
  return result;
}

namespace {

// Writes a new file in `target`'s place through a temporary file (see WriteFileAtomically). `fill` writes
// the contents and returns the reason it failed. `mode`: the permissions the new file gets; none: the old
// file's, with read and write for the owner.
std::optional<std::string> ReplaceFile(const fs::path& path, std::optional<mode_t> mode,
                                       const std::function<std::optional<std::string>(int fd)>& fill) {
  // Through a symbolic link the file is written where the link leads, and the link stays: a link is never
  // replaced by a file.
  const fs::path target = FinalTarget(path);
  std::error_code ec;
  if (fs::is_symlink(fs::symlink_status(target, ec)))
    return "it is a symbolic link that leads round in a circle or through more than " +
           std::to_string(kMostLinksFollowed) + " links";
  if (target != path) {
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    if (!fs::is_directory(folder, ec))
      return "it is a symbolic link to \"" + target.string() + "\", and there is no folder \"" +
             folder.string() + "\" to hold that file";
  }
  RemoveStaleTemporaryFiles(target);
  if (target != path) RemoveStaleTemporaryFiles(path);  // a copy kept aside is made beside the link
  fs::path temporary;
  int error = 0;
  Descriptor fd(CreateTemporary(target, temporary, error));
  if (fd.get() < 0) return "the temporary file could not be created (" + ErrnoText(error) + ")";

  const auto fail = [&](const std::string& what) -> std::optional<std::string> {
    ::unlink(temporary.c_str());
    return what + " (" + ErrnoText(error) + ")";
  };
  struct stat old {};
  if (mode) {
    ::fchmod(fd.get(), *mode);
  } else if (::stat(target.c_str(), &old) == 0 && S_ISREG(old.st_mode)) {
    ::fchmod(fd.get(), (old.st_mode & 07777) | S_IRUSR | S_IWUSR);
  }
  if (auto failure = fill(fd.get())) {
    ::unlink(temporary.c_str());
    return failure;
  }
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

std::optional<std::string> WriteBytesTo(int fd, std::string_view bytes) {
  int error = 0;
  if (!WriteAll(fd, bytes, error)) return "writing failed (" + ErrnoText(error) + ")";
  return std::nullopt;
}

constexpr std::size_t kCopyPiece = std::size_t{1} << 16;

// Whether the regular file at `path` holds exactly the bytes `next` hands out, piece by piece; `next`
// fills a buffer and says how much it put there (0 at the end), or -1 when it failed.
bool FileHolds(const fs::path& path, std::uint64_t size,
               const std::function<long long(char* buffer, std::size_t room)>& next) {
  struct stat st {};
  if (::lstat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode) ||
      static_cast<std::uint64_t>(st.st_size) != size)
    return false;
  Descriptor fd(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (fd.get() < 0) return false;
  std::string mine(kCopyPiece, '\0');
  std::string theirs(kCopyPiece, '\0');
  for (;;) {
    const long long n = next(theirs.data(), theirs.size());
    if (n < 0) return false;
    std::size_t got = 0;
    int error = 0;
    if (!ReadUpTo(fd.get(), mine.data(), static_cast<std::size_t>(n == 0 ? 1 : n), got, error)) return false;
    if (n == 0) return got == 0;
    if (got != static_cast<std::size_t>(n) || std::memcmp(mine.data(), theirs.data(), got) != 0) return false;
  }
}

struct AsideName {
  fs::path path;  // where the copy goes, or where an identical one already is
  bool existing = false;
};

// The first ".bad" name that is free, or the name of an earlier copy that `isSame` finds identical.
std::optional<AsideName> ChooseAsideName(const fs::path& path,
                                         const std::function<bool(const fs::path&)>& isSame) {
  std::error_code ec;
  for (int k = 1; k <= 99; ++k) {
    fs::path candidate = path;
    candidate += k == 1 ? std::string(".bad") : ".bad." + std::to_string(k);
    if (!fs::exists(fs::symlink_status(candidate, ec))) return AsideName{candidate, false};
    if (isSame && isSame(candidate)) return AsideName{candidate, true};
  }
  return std::nullopt;
}

constexpr const char* kNoAsideName = "all the names from \".bad\" to \".bad.99\" are taken";

std::optional<mode_t> ModeOf(const fs::path& path) {
  struct stat st {};
  if (::stat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode)) return std::nullopt;
  return st.st_mode & 07777;
}

}  // namespace

fs::path FinalTarget(const fs::path& path) {
  fs::path current = path;
  for (int hop = 0; hop < kMostLinksFollowed; ++hop) {
    std::error_code ec;
    if (!fs::is_symlink(fs::symlink_status(current, ec))) return current;
    const fs::path next = fs::read_symlink(current, ec);
    if (ec) return current;
    // A relative link is read from the folder that holds it.
    current = next.is_absolute() ? next : current.parent_path() / next;
  }
  return current;
}

bool SomethingAt(const fs::path& path) {
  std::error_code ec;
  return fs::exists(fs::symlink_status(path, ec));
}

std::optional<std::string> CreateFolderFor(const fs::path& file) {
  if (!file.has_parent_path()) return std::nullopt;
  const fs::path folder = file.parent_path();
  std::error_code ec;
  if (fs::is_directory(folder, ec)) return std::nullopt;
  fs::create_directories(folder, ec);
  if (!ec) return std::nullopt;
  return "the folder \"" + folder.string() + "\" could not be created (" + ErrnoText(ec.value()) + ")";
}

int RemoveStaleTemporaryFiles(const fs::path& path) {
  const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
  const std::string targetName = path.filename().string();
  std::error_code ec;
  fs::directory_iterator it(folder, ec);
  if (ec) return 0;
  int removed = 0;
  for (const fs::directory_entry& entry : it) {
    const std::string name = entry.path().filename().string();
    const pid_t owner = TemporaryFileOwner(name, targetName);
    if (owner == 0 || owner == ::getpid() || !ProcessIsGone(owner)) continue;
    if (!entry.is_regular_file(ec)) continue;
    if (::unlink(entry.path().c_str()) == 0) ++removed;
  }
  return removed;
}

std::optional<std::string> WriteFileAtomically(const fs::path& path, std::string_view bytes) {
  return ReplaceFile(path, std::nullopt, [&](int fd) { return WriteBytesTo(fd, bytes); });
}

SetAside KeepFileAside(const fs::path& path, const std::string* bytes) {
  SetAside result;
  if (bytes == nullptr) {
    // The file itself moves, not a symbolic link to it: the link stays and the next save goes where it leads.
    const fs::path target = FinalTarget(path);
    const auto name = ChooseAsideName(target, nullptr);
    if (!name) {
      result.reason = kNoAsideName;
      return result;
    }
    if (::rename(target.c_str(), name->path.c_str()) != 0) {
      result.reason = ErrnoText(errno);
      return result;
    }
    result.copy = name->path;
    return result;
  }
  const auto same = [&](const fs::path& candidate) {
    std::size_t at = 0;
    return FileHolds(candidate, bytes->size(), [&](char* buffer, std::size_t room) {
      const std::size_t n = std::min(room, bytes->size() - at);
      std::memcpy(buffer, bytes->data() + at, n);
      at += n;
      return static_cast<long long>(n);
    });
  };
  const auto name = ChooseAsideName(path, same);
  if (!name) {
    result.reason = kNoAsideName;
    return result;
  }
  if (!name->existing) {
    const std::optional<mode_t> mode = ModeOf(path);
    if (auto failure = ReplaceFile(name->path, mode, [&](int fd) { return WriteBytesTo(fd, *bytes); })) {
      result.reason = *failure;
      return result;
    }
  }
  result.copy = name->path;
  return result;
}

SetAside CopyFileAside(const fs::path& path) {
  SetAside result;
  Descriptor source(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  struct stat st {};
  if (source.get() < 0 || ::fstat(source.get(), &st) != 0) {
    result.reason = ErrnoText(errno);
    return result;
  }
  if (!S_ISREG(st.st_mode)) {
    result.reason = "it is not a regular file";
    return result;
  }
  const auto size = static_cast<std::uint64_t>(st.st_size);
  int error = 0;
  // Reads the source from its start into `buffer`; 0 at its end, -1 when reading failed.
  const auto pieceOfSource = [&](char* buffer, std::size_t room) -> long long {
    std::size_t got = 0;
    if (!ReadUpTo(source.get(), buffer, room, got, error)) return -1;
    return static_cast<long long>(got);
  };
  const auto same = [&](const fs::path& candidate) {
    if (::lseek(source.get(), 0, SEEK_SET) != 0) return false;
    return FileHolds(candidate, size, pieceOfSource);
  };
  const auto name = ChooseAsideName(path, same);
  if (!name) {
    result.reason = kNoAsideName;
    return result;
  }
  if (!name->existing) {
    if (::lseek(source.get(), 0, SEEK_SET) != 0) {
      result.reason = ErrnoText(errno);
      return result;
    }
    const auto copy = [&](int fd) -> std::optional<std::string> {
      std::string buffer(kCopyPiece, '\0');
      for (;;) {
        const long long n = pieceOfSource(buffer.data(), buffer.size());
        if (n < 0) return "reading the file failed (" + ErrnoText(error) + ")";
        if (n == 0) return std::nullopt;
        if (auto failure = WriteBytesTo(fd, std::string_view(buffer.data(), static_cast<std::size_t>(n))))
          return failure;
      }
    };
    if (auto failure = ReplaceFile(name->path, static_cast<mode_t>(st.st_mode & 07777), copy)) {
      result.reason = *failure;
      return result;
    }
  }
  result.copy = name->path;
  return result;
}

}  // namespace quillet
