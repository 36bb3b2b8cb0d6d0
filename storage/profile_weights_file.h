// The weights file beside the profile file ("Player_Profiles.ini.weights"): the weights below 1 of the
// profiles' On layers, which the profile file has no room for. The profile file keeps its layout byte for
// byte, so that an older Quillet still reads it; the weights live here, where an older Quillet never looks.
//
// UTF-8 text, lines ended by LF (a CR before it is passed over when read):
//
//   Quillet profile weights 1
//   NAME<TAB>NOTATION
//   ...
//
// One line for each profile with a holding of weight below 1, in the profile file's order: the profile's
// name (as the profile file gives it back; a backslash, a tab, a CR and a LF in it written "\\", "\t", "\r",
// "\n") and its whole On layer in weighted range notation ("QQ+, AKs:0.5"), whole holdings included. A
// profile without such a holding has no line, and when no profile has one there is no file at all: a user
// who never gives a weight has exactly the files of old.
//
// A line goes with the first profile of its name that no earlier line went with. Its weights are given to
// the profile only when the line names exactly the holdings of the profile's On layer: a profile changed
// since by a program that knows nothing of weights (an older Quillet rewrites the profile file and leaves
// this one as it was) keeps its range and loses the weights of a range it no longer has. A line of a
// profile that is no longer there is passed over in the same way. A file that cannot be read as a whole
// (no such first line, a line without a tab, a bad escape, notation that does not read) gives no weights
// at all: every profile is then read without its weights, and the fault is reported.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "range/player_profile.h"
#include "storage/storage_error.h"

namespace quillet {

inline constexpr std::string_view kProfileWeightsSuffix = ".weights";
inline constexpr std::string_view kProfileWeightsHeader = "Quillet profile weights 1";

// The weights file of the profile file at `profileFile`: beside the file a chain of symbolic links leads
// to (where the profile file really is), its name with ".weights" appended.
std::filesystem::path ProfileWeightsPath(const std::filesystem::path& profileFile);

// The weights file for the named profiles in list order; empty when none of them has a weight below 1
// (then no file is to be there).
std::string EncodeProfileWeights(const std::vector<PlayerProfile>& profiles);

// Gives the profiles (as read from the profile file, in its order) the weights of `bytes`. On a fault no
// profile gets any weight and the error names the file as `fileLabel` and says what is wrong.
std::optional<StorageError> DecodeProfileWeights(std::string_view bytes, const std::string& fileLabel,
                                                 std::vector<PlayerProfile>& profiles);

struct ProfileWeightsRead {
  std::optional<StorageError> error;  // the file is there but could not be used
  std::string bytes;                  // a faulty file as read, so that it can be set aside unchanged
};

// Reads the weights file of `profileFile` and gives the profiles its weights. A missing file is no fault:
// the profiles stay as they are.
ProfileWeightsRead ReadProfileWeights(const std::filesystem::path& profileFile,
                                      std::vector<PlayerProfile>& profiles);

// Writes the weights file of `profileFile` safely (WriteFileAtomically), or removes it when no profile has
// a weight below 1. Returns why that failed.
std::optional<StorageError> WriteProfileWeights(const std::filesystem::path& profileFile,
                                                const std::vector<PlayerProfile>& profiles);

// The one-line message for a weights file that cannot be read:
// `The profile weights file "PATH" cannot be read: WHY.`
std::string ProfileWeightsFault(const std::string& fileLabel, const std::string& why);

}  // namespace quillet
