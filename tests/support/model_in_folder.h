// A window model whose profile and preferences files live in a fresh folder, and profiles to put there: for
// the tests of what the model reads and writes.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "tests/storage/temp_folder.h"
#include "tests/support/recording_services.h"

namespace quillet::testing {

// MyPrefs.ini as the model writes it with every option at its default: the twelve records.
constexpr std::string_view kTwelveDefaultRecords =
    "mnuHideEmptyCats|True\r\n"
    "mnuSimplifyOutput|True\r\n"
    "mnuSimplifyFurther|False\r\n"
    "mnuCategoryIcons|False\r\n"
    "mnuWinLoseIcons|False\r\n"
    "mnuCalcEquityOnCook|False\r\n"
    "mnuAutoPFEquityCalc|False\r\n"
    "txtMyHand|\r\n"
    "txtBoard|\r\n"
    "ColourSchemeDefault|True\r\n"
    "SelCardsAutoOK|False\r\n"
    "SelCardsAutoCook|False\r\n";

// A profile with the named classes whole in its On layer and the given range text.
inline PlayerProfile MakeProfile(const std::string& name, const std::vector<std::string>& onClasses,
                                 const std::string& rangeText) {
  PlayerProfile p;
  InitProfile(p);
  p.name = name;
  p.rangeText = rangeText;
  for (const std::string& cls : onClasses) {
    const int c = FindClassByName(cls);
    SetBlockWhole(p.rangeLayer[c], HandClasses()[c].kind == kKindSuited);
  }
  return p;
}

// A profile with one class whole (AA unless another is named) and the range text "0.5".
inline PlayerProfile Profile(const std::string& name, const std::string& cls = "AA") {
  return MakeProfile(name, {cls}, "0.5");
}

class ModelInFolderTest : public ::testing::Test {
 protected:
  ModelInFolderTest() : model(services) { model.ProfilePaths(dir.path()); }

  std::filesystem::path ProfileFile() const { return dir / "Player_Profiles.ini"; }
  std::filesystem::path PrefsFile() const { return dir / "MyPrefs.ini"; }

  TempFolder dir;
  RecordingServices services;
  Form1Model model;
};

}  // namespace quillet::testing
