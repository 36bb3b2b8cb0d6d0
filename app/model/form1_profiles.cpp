#include "app/model/form1_model.h"
#include "storage/data_folder.h"
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

void Form1Model::ProfilePaths(const std::filesystem::path& programFolder) {
  const std::filesystem::path folder = ChooseDataFolder(programFolder);
  profilePath = folder / kProfileFileName;
  preferencesPath = folder / kPreferencesFileName;
}

bool Form1Model::LoadProfiles() {
  ProfileFileContents file = ReadProfileFile(profilePath);
  profilesAsLoaded.emplace();
  switch (file.status) {
    case ProfileFileContents::Status::Missing:
      return true;
    case ProfileFileContents::Status::OtherVersion:
      if (!services.AskYesNo(kVersionQuestionTitle, VersionQuestion(file.version), MessageIcon::Warning))
        return false;
      // Yes: nothing loaded; the file is rewritten when the session ends, so a copy of it is kept first
      // (the question already says it is not loaded; the copy is the way back), and of its weights file.
      CopyFileAside(profilePath);
      if (SomethingAt(ProfileWeightsPath(profilePath))) CopyFileAside(ProfileWeightsPath(profilePath));
      return true;
    case ProfileFileContents::Status::Faulty: {
      // Keep the unreadable file before anything can overwrite it, and carry on with what was read.
      std::string text = file.error->message + "\r\n\r\n" +
                         KeepUnreadableFileAside(profilePath, file.bytes.empty() ? nullptr : &file.bytes) +
                         " ";
      text += file.profiles.empty() ? std::string("No profiles could be loaded from it.")
                                    : "The " + ProfilesCount(file.profiles.size()) + " before the fault " +
                                          (file.profiles.size() == 1 ? "was" : "were") + " loaded.";
      services.MsgBox(text, MessageIcon::Warning);
      profiles = std::move(file.profiles);
      profilesAsLoaded = profiles;
      break;
    }
    case ProfileFileContents::Status::Read:
      profiles = std::move(file.profiles);
      profilesAsLoaded = profiles;
      break;
  }
  if (file.weightsError) {
    // The weights file is kept before the session's save rewrites it; the profiles are there, unweighted.
    const std::filesystem::path side = ProfileWeightsPath(profilePath);
    services.MsgBox(
        file.weightsError->message + "\r\n\r\n" +
            KeepUnreadableFileAside(side, file.weightsBytes.empty() ? nullptr : &file.weightsBytes) +
            " The profiles were loaded without their weights.",
        MessageIcon::Warning);
  }
  RefillPlayerList("0");
  return true;
}

bool Form1Model::SaveProfiles() {
  if (auto failure = CreateFolderFor(profilePath)) {
    services.MsgBox(ProfileSaveFault(profilePath, *failure, false), MessageIcon::Warning);
    return true;
  }
  for (;;) {
    const WriteLock lock(profilePath, writeLockWait,
                         [this](std::chrono::milliseconds step) { services.Wait(step); });
    if (!lock.failure()) {
      if (auto error = WriteProfileFile(profilePath, ProfilesToSave()))
        services.MsgBox(error->message, MessageIcon::Warning);
      return true;
    }
    if (!AskToRetryLockedSave(ProfileSaveFault(profilePath, *lock.failure(), SomethingAt(profilePath))))
      return false;
  }
}

std::vector<PlayerProfile> Form1Model::ProfilesToSave() {
  // Nothing was loaded in this session: the list is the whole truth.
  if (!profilesAsLoaded) return profiles;
  ProfileFileContents now = ReadProfileFile(profilePath);
  // A weights file that went bad since it was loaded is kept (none when an identical one is there) before
  // the save replaces it.
  if (now.weightsError)
    KeepFileAside(ProfileWeightsPath(profilePath), now.weightsBytes.empty() ? nullptr : &now.weightsBytes);
  switch (now.status) {
    case ProfileFileContents::Status::Read:
      // Another program (quillet-cli, a second window) may have changed the file since it was loaded.
      return MergeProfileLists(*profilesAsLoaded, profiles, now.profiles);
    case ProfileFileContents::Status::Faulty:
      // The file went bad since it was loaded, or is the one that was kept at start-up: a copy is kept
      // (none when an identical one is there) before it is overwritten.
      KeepFileAside(profilePath, now.bytes.empty() ? nullptr : &now.bytes);
      return profiles;
    case ProfileFileContents::Status::OtherVersion:
      CopyFileAside(profilePath);
      if (SomethingAt(ProfileWeightsPath(profilePath))) CopyFileAside(ProfileWeightsPath(profilePath));
      return profiles;
    case ProfileFileContents::Status::Missing:
      return profiles;  // removed meanwhile: nothing to keep, and no sign of what to delete
  }
  return profiles;
}

int Form1Model::AddProfile(const std::string& name) {
  const int index = TakeProfileSlot(profiles, name);
  RefillPlayerList(name);
  return index;
}

int Form1Model::FirstProfileIndex() {
  const int index = FirstNamedProfile(profiles);
  return index >= 0 ? index : AddProfile("Generic");
}

void Form1Model::RefillPlayerList(const std::string& name) {
  cmbPlayer.items.clear();
  cmbPlayer.listIndex = -1;
  for (const PlayerProfile& p : profiles) {
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
