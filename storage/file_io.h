// Reading and replacing whole files without ever leaving a half-written one behind.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quillet {

struct FileRead {
  enum class Status { Missing, Read, Failed };
  Status status = Status::Missing;
  std::string bytes;   // the whole file (Read)
  std::string reason;  // why it could not be read (Failed), a clause such as "it is a folder"
};

// Reads the whole file. Only a regular file is opened for reading (a pipe or a device could block or never
// end), and a file longer than `maxBytes` is refused without being read.
FileRead ReadWholeFile(const std::filesystem::path& path, std::size_t maxBytes);

// Replaces the file with `bytes`: writes a temporary file in the same folder, flushes it to the disk and
// renames it over the old one, so that a crash, a full disk or a failed write at any point leaves either
// the old file or the new one, whole. A symbolic link is followed and its target replaced. The new file
// keeps the old one's permissions. Returns the reason when the file could not be replaced; the old file
// is then unchanged and no temporary file is left.
std::optional<std::string> WriteFileAtomically(const std::filesystem::path& path, std::string_view bytes);

struct SetAside {
  std::filesystem::path copy;  // where the file was kept (empty when that failed)
  std::string reason;          // why it could not be kept
};

// Keeps a file that could not be read out of harm's way before anything overwrites it: as a copy with
// `bytes` when its contents are at hand, else by renaming it. The copy is named after the file with
// ".bad" appended (".bad.2", ".bad.3", ... when that name is taken).
SetAside KeepFileAside(const std::filesystem::path& path, const std::string* bytes);

}  // namespace quillet
