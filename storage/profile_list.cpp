#include "storage/profile_list.h"

namespace quillet {

int FindProfileByName(const std::vector<PlayerProfile>& profiles, std::string_view name) {
  if (name.empty()) return -1;
  for (std::size_t i = 0; i < profiles.size(); ++i) {
    if (profiles[i].name == name) return static_cast<int>(i);
  }
  return -1;
}

int FirstNamedProfile(const std::vector<PlayerProfile>& profiles) {
  for (std::size_t i = 0; i < profiles.size(); ++i) {
    if (!profiles[i].isFree()) return static_cast<int>(i);
  }
  return -1;
}

int TakeProfileSlot(std::vector<PlayerProfile>& profiles, const std::string& name) {
  std::size_t slot = 0;
  while (slot < profiles.size() && !profiles[slot].isFree()) ++slot;
  if (slot == profiles.size()) profiles.emplace_back();
  InitProfile(profiles[slot]);
  profiles[slot].name = name;
  return static_cast<int>(slot);
}

}  // namespace quillet
