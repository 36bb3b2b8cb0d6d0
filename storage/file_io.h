// Reading and replacing whole files without ever leaving a half-written one behind.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillet {

struct FileRead {
  enum class Status {
    Missing,
    Read,
    Failed,
    Stopped,  // the head was read and judged enough (see below)
  };
  Status status = Status::Missing;
  std::string bytes;       // the whole file (Read); its head (Stopped)
  std::string reason;      // why it could not be read (Failed), a clause such as "it is a folder"
  std::uint64_t size = 0;  // the file's length when it was opened (Read, Stopped)
};

// Reads the whole file into one buffer of its length. Only a regular file is opened for reading (a pipe or
// a device could block or never end), and a file longer than `maxBytes` is refused without being read.
FileRead ReadWholeFile(const std::filesystem::path& path, std::size_t maxBytes);

// The same, but first the file's first `headBytes` bytes (fewer when it is shorter) and its length are
// handed to `readOn`; when that returns false the rest is not read and the result is Stopped. A file whose
// head already shows it is of no use is so judged at the cost of its head, however long it is. `readAt`
// lets the check look further, a few bytes at a time: it reads up to `n` bytes at `offset` into `data`
// and returns how many it read (fewer at the file's end, 0 when reading failed).
using ReadAt = std::function<std::size_t(std::uint64_t offset, char* data, std::size_t n)>;
using HeadCheck = std::function<bool(std::string_view head, std::uint64_t size, const ReadAt& readAt)>;
FileRead ReadWholeFile(const std::filesystem::path& path, std::size_t maxBytes, std::size_t headBytes,
                       const HeadCheck& readOn);

// Replaces the file with `bytes`: writes a temporary file in the same folder, flushes it to the disk and
// renames it over the old one, so that a crash, a full disk or a failed write at any point leaves either
// the old file or the new one, whole. A symbolic link is followed (a chain of them to its end) and its
// target replaced or, when it is not there yet, created; the link itself is never replaced. A link whose
// target's folder is missing (a drive that is not mounted) or that leads round in a circle is refused. The
// new file keeps the old one's permissions, and its owner may always read and write it (a file the owner
// could not read would lose every later save). Temporary files that dead processes left beside the file (a
// save that was killed) are removed first. Returns the reason when the file could not be replaced; the old
// file is then unchanged and no temporary file is left.
std::optional<std::string> WriteFileAtomically(const std::filesystem::path& path, std::string_view bytes);

// Removes the temporary files of `path` (".NAME.PID.N.TICK.tmp") and of the copies kept aside beside it
// (".NAME.bad.PID.N.TICK.tmp", ".NAME.bad.K.PID.N.TICK.tmp") whose process is no longer running; returns
// how many were removed. Those of running processes, this one included, stay.
int RemoveStaleTemporaryFiles(const std::filesystem::path& path);

// The file a path finally stands for, whether or not it is there: a chain of symbolic links is followed
// (40 at most), so that replacing the file keeps the links.
std::filesystem::path FinalTarget(const std::filesystem::path& path);

// Creates the folder that is to hold `file` when it is missing; returns why it could not be created, as a
// clause: `the folder "F" could not be created (Read-only file system)`.
std::optional<std::string> CreateFolderFor(const std::filesystem::path& file);

// Whether anything (a file, a folder, a dangling link) stands at `path`.
bool SomethingAt(const std::filesystem::path& path);

struct SetAside {
  std::filesystem::path copy;  // where the file was kept (empty when that failed)
  std::string reason;          // why it could not be kept
};

// Keeps a file that could not be read out of harm's way before anything overwrites it: as a copy with
// `bytes` when its contents are at hand, else by renaming it (the file a symbolic link leads to, beside
// itself; the link stays). The copy is named after the file with ".bad" appended (".bad.2", ".bad.3", ...
// when that name is taken); a copy with the same contents that is already there is kept instead of a second
// one. A copy gets the file's own permissions.
SetAside KeepFileAside(const std::filesystem::path& path, const std::string* bytes);

// The same for a file that is to stay where it is until it is overwritten: copied from the disk a piece at
// a time (never whole in memory), under the same names and rules.
SetAside CopyFileAside(const std::filesystem::path& path);

}  // namespace quillet
