#include "storage/profile_list.h"

#include <map>
#include <utility>

#include "cards/terminal_text.h"
#include "storage/code_page.h"

namespace quillet {
namespace {

// Each named profile of a list by its name and, for a name that occurs more than once, its occurrence.
using ProfileKey = std::pair<std::string, int>;
std::map<ProfileKey, const PlayerProfile*> ByName(const std::vector<PlayerProfile>& profiles) {
  std::map<ProfileKey, const PlayerProfile*> byName;
  std::map<std::string, int> seen;
  for (const PlayerProfile& p : profiles) {
    if (!p.isFree()) byName[{p.name, seen[p.name]++}] = &p;
  }
  return byName;
}

const PlayerProfile* Find(const std::map<ProfileKey, const PlayerProfile*>& byName, const ProfileKey& key) {
  const auto it = byName.find(key);
  return it == byName.end() ? nullptr : it->second;
}

}  // namespace

std::string ProfileNameCodePageFault(std::string_view name) {
  if (Cp1252ToUtf8(Utf8ToCp1252(name)) == name) return {};
  std::string message = "\"";  // built by appending: GCC 12 warns falsely (-Wrestrict) on operator+ chains
  message += EscapeControlCharacters(name);
  message += "\" has characters the profile file cannot hold";
  return message;
}

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

std::vector<PlayerProfile> MergeProfileLists(const std::vector<PlayerProfile>& loaded,
                                             const std::vector<PlayerProfile>& mine,
                                             const std::vector<PlayerProfile>& onDisk) {
  const auto base = ByName(loaded);
  const auto theirs = ByName(onDisk);
  std::vector<PlayerProfile> merged;
  std::map<std::string, int> seen;
  for (const PlayerProfile& p : mine) {
    if (p.isFree()) continue;
    const ProfileKey key{p.name, seen[p.name]++};
    const PlayerProfile* before = Find(base, key);
    const PlayerProfile* other = Find(theirs, key);
    if (before == nullptr || *before != p) {
      merged.push_back(p);  // new or changed here: mine
    } else if (other != nullptr) {
      merged.push_back(*other);  // unchanged here: the file's copy, changed or not
    }
    // else: unchanged here and deleted by the other program
  }
  std::map<std::string, int> seenOnDisk;
  std::map<std::string, int> mineCount;
  for (const PlayerProfile& p : mine) {
    if (!p.isFree()) ++mineCount[p.name];
  }
  for (const PlayerProfile& p : onDisk) {
    if (p.isFree()) continue;
    const ProfileKey key{p.name, seenOnDisk[p.name]++};
    const bool mineHasIt = key.second < mineCount[p.name];
    if (!mineHasIt && Find(base, key) == nullptr) merged.push_back(p);  // added by the other program
  }
  return merged;
}

}  // namespace quillet
