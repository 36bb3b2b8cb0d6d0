// The profile list: a 0-based list of profiles in which an empty name marks a free slot.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "range/player_profile.h"

namespace quillet {

// The index of the profile named exactly `name` (case counts), or -1. An empty name finds nothing.
int FindProfileByName(const std::vector<PlayerProfile>& profiles, std::string_view name);

// The index of the first slot with a name, or -1.
int FirstNamedProfile(const std::vector<PlayerProfile>& profiles);

// Takes the first free slot, or appends one when there is none, gives it a fresh profile (InitProfile)
// named `name` and returns its index.
int TakeProfileSlot(std::vector<PlayerProfile>& profiles, const std::string& name);

}  // namespace quillet
