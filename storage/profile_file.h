// The player profile file "Player_Profiles.ini": binary, little-endian, no padding anywhere.
//
//   version (int32, always 1), N (int32, the profiles with a name), then N profile blocks in list order.
//   Profile block: the name and the range text as counted strings (int32 byte count, then that many
//   Windows-1252 bytes, no terminator), then for each class 0..168 its On-layer record followed by its
//   Seen-layer record (the layers alternate class by class).
//   Record block, 188 bytes: rank1 (4), rank2 (4), the suit-pair list's array descriptor (10: dimensions
//   int16 = 1, elements int32 = 16, lower bound int32 = 0), 16 entries of 10 bytes (on 2, suit1 4, suit2
//   4), count (4), suited (2), offsuit (2), whole (2).
//
// All 16 entries are written as they stand in memory, also those past the record's count: a cleared
// record keeps its old entries and a removed entry leaves the shifted tail, and a profile read and written
// again comes out byte for byte the same.
//
// The weights below 1 of the On layers have no place here; they are kept beside the file, in its weights
// file (storage/profile_weights_file.h), which ReadProfileFile and WriteProfileFile read and write with it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "range/player_profile.h"
#include "storage/profile_list.h"
#include "storage/storage_error.h"

namespace quillet {

inline constexpr const char* kProfileFileName = "Player_Profiles.ini";
inline constexpr int32_t kProfileFileVersion = 1;
inline constexpr std::size_t kRecordBlockBytes = 188;
// A profile with an empty name and an empty range text: two lengths and 338 record blocks.
inline constexpr std::size_t kSmallestProfileBlockBytes = 4 + 4 + 2 * 169 * kRecordBlockBytes;
// The longest name and range text a profile keeps, in the file's bytes (one a character): a name has at most
// 15 characters (the window and quillet-cli take no longer one), a range text at most as many as the range
// box holds. A longer one in a file is a fault.
inline constexpr std::size_t kLongestStoredName = kLongestProfileName;
inline constexpr std::size_t kLongestStoredRangeText = 32767;
inline constexpr std::size_t kLargestProfileBlockBytes =
    kSmallestProfileBlockBytes + kLongestStoredName + kLongestStoredRangeText;
// The longest profile file read: 64 MiB, room for over 1,000 profiles (one takes 63,552 bytes and more),
// far more than anyone keeps in the window's list. A longer file is refused unread, and none is written.
inline constexpr std::size_t kLargestProfileFileBytes = std::size_t{64} << 20;

// The whole file for the named profiles in list order; free slots (empty names) are skipped.
std::string EncodeProfileFile(const std::vector<PlayerProfile>& profiles);

// One record block (188 bytes) appended to `out`.
void AppendRecordBlock(std::string& out, const BlockRecord& record);

struct ProfileFileContents {
  enum class Status {
    Missing,       // no file: not an error, the list stays empty
    Read,          // every profile read
    OtherVersion,  // the version is not 1: nothing read past it (see `version`)
    Faulty,        // the file could not be read whole: `error` says why, `profiles` holds those read before
  };
  Status status = Status::Missing;
  int32_t version = 0;
  std::vector<PlayerProfile> profiles;
  std::optional<StorageError> error;
  std::string bytes;  // a faulty file as read, so that it can be set aside unchanged
  // The weights file beside it could not be used: the profiles were read without their weights. The
  // file's bytes as read (empty when it could not be read at all), so that it can be set aside unchanged.
  std::optional<StorageError> weightsError;
  std::string weightsBytes;
};

// Reads a profile file's bytes. `fileLabel` names the file in the error message. Never reads outside
// `bytes`, and allocates no more than the bytes can actually hold, whatever the counts in them say. The
// file must end where its last profile ends: bytes after it are a fault.
ProfileFileContents DecodeProfileFile(std::string_view bytes, const std::string& fileLabel);

// Reads the file at `path`, into one buffer of its length. Before the rest is read, the version, the count
// and the lengths of each profile's name and range text (a few bytes at the head of each profile block)
// are checked against the file's length: a file of another version, with a count its length cannot hold,
// or longer than its profiles fill, costs only those few bytes (`bytes` is then empty, and no profile is
// read). A file shorter than its lengths say, or with a length out of bounds, is read (it is no longer than
// kLargestProfileFileBytes) so that the profiles before the fault are kept and the fault is named.
// The profiles read get their On-layer weights from the weights file beside it (ReadProfileWeights); a
// weights file that cannot be used leaves them unweighted and is reported in `weightsError`.
ProfileFileContents ReadProfileFile(const std::filesystem::path& path);

// Writes the file safely (see WriteFileAtomically); on failure the old file is unchanged and the error
// says so. A list the file could not hold as the reader takes it (a name or range text longer than kept,
// a file longer than kLargestProfileFileBytes) is not written. Once the file is written, its weights file
// is written the same way, or removed when no profile has a weight below 1 (WriteProfileWeights); a
// failure there is returned too. A writer holds the folder's WriteLock around both.
std::optional<StorageError> WriteProfileFile(const std::filesystem::path& path,
                                             const std::vector<PlayerProfile>& profiles);

// The one-line message for a save that failed: `The player profiles could not be saved to "PATH": WHY.`
// and what became of the file there (left as it was, or none was there).
std::string ProfileSaveFault(const std::filesystem::path& path, const std::string& why, bool fileWasThere);

// The one-line message for a file that cannot be read: `The player profile file "PATH" cannot be read: WHY.`
std::string ProfileFileFault(const std::string& fileLabel, const std::string& why);

}  // namespace quillet
