// The main window's player profiles: the list loaded from the profile file and saved back to it under the
// folder's write lock, the current profile, and the player box (cmbPlayer) that lists their names. The
// window model (Form1Model) owns one and runs the box's handlers; this class keeps the state and does the
// work that concerns the profiles alone.
#pragma once

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "app/model/form1_controls.h"
#include "app/model/window_services.h"
#include "cards/card.h"
#include "range/player_profile.h"

namespace quillet {

// Keeps a file that cannot be read as ".bad" (see KeepFileAside) before the session's save can overwrite
// it; the sentence for the message that reports the fault: where the file was kept, or why it could not be.
std::string KeepUnreadableFileAside(const std::filesystem::path& path, const std::string* bytes);
// Asks whether a save that another program's lock kept waiting is to be tried again (`fault` says why it
// failed and who holds the lock when that is known); true for Retry.
bool AskToRetryLockedSave(WindowServices& services, const std::string& fault);

class ProfilesModel {
 public:
  explicit ProfilesModel(WindowServices& services) : services_(services) {}

  // The current profile, or nullptr when none is selected.
  PlayerProfile* currentProfile();
  const PlayerProfile* currentProfile() const;
  // The holdings of the current profile's range (empty with no profile selected, which is no error).
  std::vector<HandCombo> CurrentRangeCombos() const;

  // Reads the profile file at `path`. False when the version question was answered No (end the program at
  // once).
  bool LoadProfiles();
  // Writes the profiles under the folder's lock, waiting with the window alive (services.Wait); false when
  // the lock could not be had and the user chose Cancel. Other failures are reported and give true.
  bool SaveProfiles();
  // Takes a slot for a new profile named `name` and lists it; its index.
  int AddProfile(const std::string& name);
  // The first named profile, or a new "Generic" one when there is none.
  int FirstProfileIndex();
  // Lists the named profiles in the player box, `name` selected (the first one when none has that name).
  void RefillPlayerList(const std::string& name);

  // ---- state ----
  std::vector<PlayerProfile> list;
  int currentIndex = -1;
  // The profiles as LoadProfiles read them (empty when there was no file or nothing could be read); none
  // before the file is loaded. The save compares with it what another program changed in the file meanwhile.
  std::optional<std::vector<PlayerProfile>> asLoaded;
  std::filesystem::path path;
  // How long a save waits for another program that is writing in the same folder before it gives up.
  std::chrono::milliseconds writeLockWait{10000};
  ComboBoxState cmbPlayer;

 private:
  // The list SaveProfiles writes: this session's profiles, with what another program changed in the file
  // since it was loaded (see MergeProfileLists).
  std::vector<PlayerProfile> ProfilesToSave();

  WindowServices& services_;
};

}  // namespace quillet
