// The preferences file "MyPrefs.ini": text in the Windows-1252 code page, one record a line, each line the
// key, "|", and the value, followed by CR LF. Booleans are the words True and False.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "storage/storage_error.h"

namespace quillet {

inline constexpr const char* kPreferencesFileName = "MyPrefs.ini";
// The program writes a few hundred bytes; a file beyond this is not a preferences file and is not read.
inline constexpr std::size_t kLargestPreferencesFileBytes = std::size_t{1} << 20;
// The longest My Hand and Board texts the file keeps, in characters (a byte each in the file). A hand or a
// board is a few dozen characters at most; My Hand in range notation a few thousand. Longer texts are cut
// to these when they are saved and when they are read, so that the largest file the window writes (some
// 8.5 KB) is far inside what is read, and no paste can slow the start-up.
inline constexpr std::size_t kLongestMyHandText = 8000;
inline constexpr std::size_t kLongestBoardText = 100;

struct PreferenceRecord {
  std::string key;
  std::string value;  // UTF-8
};

// "key|value" CR LF for each record, in order, converted to the code page.
std::string FormatPreferences(const std::vector<PreferenceRecord>& records);

struct PreferenceLine {
  std::string key;
  std::optional<std::string> value;  // none when the line has no "|"
};

// The file's lines in order, empty lines skipped; a UTF-8 byte-order mark at the very start is skipped. A
// line ends at CR LF, LF or CR. Each line is split at
// "|": the key is the first piece and the value the second, so a value is cut at a second "|".
std::vector<PreferenceLine> ParsePreferences(std::string_view bytes);

// "True" and "False" in any letter case, spaces around them allowed; anything else is no Boolean.
std::optional<bool> ParseBooleanText(std::string_view text);
inline const char* BooleanText(bool value) {
  return value ? "True" : "False";
}

struct PreferencesFileContents {
  enum class Status { Missing, Read, Faulty };
  Status status = Status::Missing;
  std::vector<PreferenceLine> lines;
  std::optional<StorageError> error;
};

PreferencesFileContents ReadPreferencesFile(const std::filesystem::path& path);

// The one-line message for a save that failed: `The preferences could not be saved to "PATH": WHY.` and
// what became of the file there (left as it was, or none was there).
std::string PreferencesSaveFault(const std::filesystem::path& path, const std::string& why,
                                 bool fileWasThere);

// Writes the file safely (see WriteFileAtomically); on failure the old file is unchanged and the error
// says so.
std::optional<StorageError> WritePreferencesFile(const std::filesystem::path& path,
                                                 const std::vector<PreferenceRecord>& records);

}  // namespace quillet
