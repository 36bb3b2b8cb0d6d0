#include <system_error>

#include "app/model/form1_model.h"
#include "storage/data_folder.h"
#include "storage/file_io.h"
#include "storage/preferences_file.h"
#include "storage/profile_file.h"
#include "storage/profile_list.h"

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
  switch (file.status) {
    case ProfileFileContents::Status::Missing:
      return true;
    case ProfileFileContents::Status::OtherVersion:
      if (!services.AskYesNo(kVersionQuestionTitle, VersionQuestion(file.version), MessageIcon::Warning))
        return false;
      return true;  // Yes: nothing loaded; the file is rewritten when the session ends
    case ProfileFileContents::Status::Faulty: {
      // Keep the unreadable file before anything can overwrite it, and carry on with what was read.
      const SetAside aside = KeepFileAside(profilePath, file.bytes.empty() ? nullptr : &file.bytes);
      std::string text = file.error->message + "\r\n\r\n";
      if (!aside.copy.empty()) {
        text += "The file was kept as \"" + aside.copy.string() + "\". ";
      } else {
        text += "The file could not be kept aside (" + aside.reason +
                ") and will be overwritten when Quillet closes. ";
      }
      text += file.profiles.empty() ? std::string("No profiles could be loaded from it.")
                                    : "The " + ProfilesCount(file.profiles.size()) + " before the fault " +
                                          (file.profiles.size() == 1 ? "was" : "were") + " loaded.";
      services.MsgBox(text, MessageIcon::Warning);
      profiles = std::move(file.profiles);
      break;
    }
    case ProfileFileContents::Status::Read:
      profiles = std::move(file.profiles);
      break;
  }
  RefillPlayerList("0");
  return true;
}

void Form1Model::SaveProfiles() {
  std::error_code ec;
  if (profilePath.has_parent_path()) std::filesystem::create_directories(profilePath.parent_path(), ec);
  if (auto error = WriteProfileFile(profilePath, profiles))
    services.MsgBox(error->message, MessageIcon::Warning);
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
