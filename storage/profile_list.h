// The profile list: a 0-based list of profiles in which an empty name marks a free slot.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "range/player_profile.h"

namespace quillet {

// Profile names have at most this many characters; a longer name can be neither selected nor saved.
inline constexpr std::size_t kLongestProfileName = 15;

// Empty when the profile file can hold `name` as it is; otherwise the message that refuses it, the same in
// the window and in quillet-cli: `"A中" has characters the profile file cannot hold` (the file keeps names
// in its single-byte code page, where "A中" and "A文" would both become "A?"). Control characters in the
// name are shown as escapes.
std::string ProfileNameCodePageFault(std::string_view name);

// The index of the profile named exactly `name` (case counts), or -1. An empty name finds nothing.
int FindProfileByName(const std::vector<PlayerProfile>& profiles, std::string_view name);

// The index of the first slot with a name, or -1.
int FirstNamedProfile(const std::vector<PlayerProfile>& profiles);

// Takes the first free slot, or appends one when there is none, gives it a fresh profile (InitProfile)
// named `name` and returns its index.
int TakeProfileSlot(std::vector<PlayerProfile>& profiles, const std::string& name);

// The profiles to write back when another program may have changed the file since it was read: `loaded`
// is the list as read then, `mine` the list now, `onDisk` the file's list now. Profiles are matched by name.
// - mine holds it: mine is kept, unless mine is unchanged since it was loaded and the file's copy changed
//   (the other program's change is then kept);
// - only the file holds it: it was added by the other program and is kept, unless it was loaded and then
//   deleted here (the deletion stands);
// - the other program deleted one that is unchanged here: it stays deleted.
// Mine come first in their order, then the other program's new ones in the file's order. Free slots are
// left out.
std::vector<PlayerProfile> MergeProfileLists(const std::vector<PlayerProfile>& loaded,
                                             const std::vector<PlayerProfile>& mine,
                                             const std::vector<PlayerProfile>& onDisk);

}  // namespace quillet
