// A window model over a fresh program folder, with helpers to put files into the folder before start-up.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "storage/profile_file.h"
#include "tests/storage/temp_folder.h"
#include "tests/support/model_in_folder.h"
#include "tests/support/recording_services.h"

namespace quillet::testing {

class WindowModelTest : public ModelInFolderTest {
 protected:
  void WriteProfiles(const std::vector<PlayerProfile>& profiles) {
    WriteBytes(ProfileFile(), EncodeProfileFile(profiles));
  }
  void WritePrefs(const std::string& text) { WriteBytes(PrefsFile(), text); }

  // Starts the window model on the folder; the first-run welcome, if asked, is answered No.
  bool Start() {
    services.yesNoAnswers.push_back(false);
    return model.Form_Load(dir.path());
  }

  // Types `text` into the player box and releases the last key.
  void TypePlayer(const std::string& text, int keyCode = 'A') {
    model.profiles().cmbPlayer.text = text;
    model.cmbPlayer_KeyUp(keyCode);
  }

  // Picks list entry `index` of the player box.
  void PickPlayer(int index) {
    model.profiles().cmbPlayer.listIndex = index;
    model.profiles().cmbPlayer.text = model.profiles().cmbPlayer.items[index];
    model.cmbPlayer_Click();
  }

  bool SaveVisible() const { return model.label(CommandLabel::lblSave).visible; }
  bool DeleteVisible() const { return model.label(CommandLabel::lblDelete).visible; }
};

}  // namespace quillet::testing
