// The player profiles: the profile file read and written under the folder's lock, and the player box's list.
#include "app/model/profiles_model.h"

#include "categorise/cook.h"
#include "storage/file_io.h"
#include "storage/file_lock.h"
#include "storage/preferences_file.h"
#include "storage/profile_file.h"
#include "storage/profile_list.h"
#include "storage/profile_weights_file.h"

namespace quillet {
namespace {

// The question has no title of its own; it carries the program's name, as an untitled box does.
constexpr std::string_view kVersionQuestionTitle = "Poker Quillet";

std::string VersionQuestion(int32_t version) {
  return "Player Profile file version " + std::to_string(version) + " is " +
         (version < 1 ? "an old " : "a newer ") +
         "format.\r\n(it was made with a different version to the current version).\r\n(Not loaded)\r\n\r\n"
         "It will be overwritten at the end of your current session. Are you OK with that?";
}

std::string ProfilesCount(std::size_t n) {
  return n == 1 ? "1 profile" : std::to_string(n) + " profiles";
}

}  // namespace

std::string KeepUnreadableFileAside(const std::filesystem::path& path, const std::string* bytes) {
  const SetAside aside = KeepFileAside(path, bytes);
  if (!aside.copy.empty()) return "The file was kept as \"" + aside.copy.string() + "\".";
  return "The file could not be kept aside (" + aside.reason +
         ") and will be overwritten when Quillet closes.";
}

bool AskToRetryLockedSave(WindowServices& services, const std::string& fault) {
  return services.AskRetryCancel(
      fault +
          "\r\n\r\nRetry waits for it again; Cancel keeps the window open with your "
          "changes, to be saved when it closes.",
      MessageIcon::Warning);
}

PlayerProfile* ProfilesModel::currentProfile() {
  if (currentIndex < 0 || currentIndex >= static_cast<int>(list.size())) return nullptr;
  return &list[currentIndex];
}

const PlayerProfile* ProfilesModel::currentProfile() const {
  if (currentIndex < 0 || currentIndex >= static_cast<int>(list.size())) return nullptr;
  return &list[currentIndex];
}

std::vector<HandCombo> ProfilesModel::CurrentRangeCombos() const {
  const PlayerProfile* profile = currentProfile();
  if (profile == nullptr) return {};
  return CollectRangeCombos(profile->rangeLayer, profile->seenLayer, &profile->onWeights);
}

bool ProfilesModel::LoadProfiles() {
  ProfileFileContents file = ReadProfileFile(path);
  asLoaded.emplace();
  switch (file.status) {
    case ProfileFileContents::Status::Missing:
      return true;
    case ProfileFileContents::Status::OtherVersion:
      if (!services_.AskYesNo(kVersionQuestionTitle, VersionQuestion(file.version), MessageIcon::Warning))
        return false;
      // Yes: nothing loaded; the file is rewritten when the session ends, so a copy of it is kept first
      // (the question already says it is not loaded; the copy is the way back), and of its weights file.
      CopyFileAside(path);
      if (SomethingAt(ProfileWeightsPath(path))) CopyFileAside(ProfileWeightsPath(path));
      return true;
    case ProfileFileContents::Status::Faulty: {
      // Keep the unreadable file before anything can overwrite it, and carry on with what was read.
      std::string text = file.error->message + "\r\n\r\n" +
                         KeepUnreadableFileAside(path, file.bytes.empty() ? nullptr : &file.bytes) + " ";
      text += file.profiles.empty() ? std::string("No profiles could be loaded from it.")
                                    : "The " + ProfilesCount(file.profiles.size()) + " before the fault " +
                                          (file.profiles.size() == 1 ? "was" : "were") + " loaded.";
      services_.MsgBox(text, MessageIcon::Warning);
      list = std::move(file.profiles);
      asLoaded = list;
      break;
    }
    case ProfileFileContents::Status::Read:
      list = std::move(file.profiles);
      asLoaded = list;
      break;
  }
  if (file.weightsError) {
    // The weights file is kept before the session's save rewrites it; the profiles are there, unweighted.
    const std::filesystem::path side = ProfileWeightsPath(path);
    services_.MsgBox(
        file.weightsError->message + "\r\n\r\n" +
            KeepUnreadableFileAside(side, file.weightsBytes.empty() ? nullptr : &file.weightsBytes) +
            " The profiles were loaded without their weights.",
        MessageIcon::Warning);
  }
  RefillPlayerList("0");
  return true;
}

bool ProfilesModel::SaveProfiles() {
  if (auto failure = CreateFolderFor(path)) {
    services_.MsgBox(ProfileSaveFault(path, *failure, false), MessageIcon::Warning);
    return true;
  }
  for (;;) {
    const WriteLock lock(path, writeLockWait,
                         [this](std::chrono::milliseconds step) { services_.Wait(step); });
    if (!lock.failure()) {
      if (auto error = WriteProfileFile(path, ProfilesToSave()))
        services_.MsgBox(error->message, MessageIcon::Warning);
      return true;
    }
    if (!AskToRetryLockedSave(services_, ProfileSaveFault(path, *lock.failure(), SomethingAt(path))))
      return false;
  }
}

std::vector<PlayerProfile> ProfilesModel::ProfilesToSave() {
  // Nothing was loaded in this session: the list is the whole truth.
  if (!asLoaded) return list;
  ProfileFileContents now = ReadProfileFile(path);
  // A weights file that went bad since it was loaded is kept (none when an identical one is there) before
  // the save replaces it.
  if (now.weightsError)
    KeepFileAside(ProfileWeightsPath(path), now.weightsBytes.empty() ? nullptr : &now.weightsBytes);
  switch (now.status) {
    case ProfileFileContents::Status::Read:
      // Another program (quillet-cli, a second window) may have changed the file since it was loaded.
      return MergeProfileLists(*asLoaded, list, now.profiles);
    case ProfileFileContents::Status::Faulty:
      // The file went bad since it was loaded, or is the one that was kept at start-up: a copy is kept
      // (none when an identical one is there) before it is overwritten.
      KeepFileAside(path, now.bytes.empty() ? nullptr : &now.bytes);
      return list;
    case ProfileFileContents::Status::OtherVersion:
      CopyFileAside(path);
      if (SomethingAt(ProfileWeightsPath(path))) CopyFileAside(ProfileWeightsPath(path));
      return list;
    case ProfileFileContents::Status::Missing:
      return list;  // removed meanwhile: nothing to keep, and no sign of what to delete
  }
  return list;
}

int ProfilesModel::AddProfile(const std::string& name) {
  const int index = TakeProfileSlot(list, name);
  RefillPlayerList(name);
  return index;
}

int ProfilesModel::FirstProfileIndex() {
  const int index = FirstNamedProfile(list);
  return index >= 0 ? index : AddProfile("Generic");
}

void ProfilesModel::RefillPlayerList(const std::string& name) {
  cmbPlayer.items.clear();
  cmbPlayer.listIndex = -1;
  for (const PlayerProfile& p : list) {
    if (!p.isFree()) cmbPlayer.items.push_back(p.name);
  }
  if (cmbPlayer.items.empty()) {
    cmbPlayer.text.clear();
    return;
  }
  cmbPlayer.listIndex = 0;
  for (std::size_t i = 0; i < cmbPlayer.items.size(); ++i) {
    if (cmbPlayer.items[i] == name) {
      cmbPlayer.listIndex = static_cast<int>(i);
      break;
    }
  }
  cmbPlayer.text = cmbPlayer.items[cmbPlayer.listIndex];
}

}  // namespace quillet
