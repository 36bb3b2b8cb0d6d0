#include "app/model/form1_model.h"

#include "cards/card.h"
#include "cards/hand_class.h"
#include "cards/preflop_order.h"
#include "categorise/categories.h"
#include "equity/deck.h"
#include "equity/lookup_tables.h"
#include "storage/data_folder.h"
#include "storage/file_io.h"
#include "storage/preferences_file.h"
#include "storage/profile_file.h"

namespace quillet {

Form1Model::Form1Model(WindowServices& windowServices) : services(windowServices) {
  static constexpr const char* kCaptions[kCommandLabelCount] = {
      "All",  "Any Pair",    "Any Suited", "Any Broadway", "Clear On",      "Clear Seen", "Clear All",
      "Cook", "Calc Equity", "Options",    "Help",         "Visit Website", "Save",       "Delete"};
  for (int i = 0; i < kCommandLabelCount; ++i) commandLabels[i].caption = kCaptions[i];
  label(CommandLabel::lblSave).visible = false;
  label(CommandLabel::lblDelete).visible = false;
  grid_.InitHandGrid();
}

void Form1Model::ProfilePaths(const std::filesystem::path& programFolder) {
  const std::filesystem::path folder = ChooseDataFolder(programFolder);
  profiles_.path = folder / kProfileFileName;
  preferencesPath = folder / kPreferencesFileName;
}

bool Form1Model::Form_Load(const std::filesystem::path& programFolder) {
  ProfilePaths(programFolder);

  // The default scheme first: the grid's base colours are taken from it.
  colourSchemeDefault = true;
  scheme = kDefaultColourScheme;
  mnuSwitchColourSchemeCaption = "Switch to New Colour Scheme";

  // The shared tables are built on first use; asking for them here builds them in the order in which later
  // steps read them (the slider reads the preflop order).
  PreflopOrder();
  InitCategories(results_.categories);
  TheDeck();
  grid_.Slider1.max = static_cast<int>(PreflopOrder().size()) - 1;
  grid_.Slider1.value = 0;

  grid_.InitHandGrid();
  grid_.selectedOn.fill(false);
  grid_.selectedSeen.fill(false);
  grid_.comboShown.fill(false);

  if (!profiles_.LoadProfiles()) return false;  // the version question answered No: end now, writing nothing
  profiles_.currentIndex = profiles_.FirstProfileIndex();
  LoadPreferences();
  ShowCurrentProfile();

  ColourMyHand();
  ColourCodeRT(txtBoard);
  results_.ClearEquityDisplay();
  if (!LoadLookupTables()) return false;

  // Nothing is pending when the window first shows.
  tmrSliderMoving.Disable();
  tmrCalcEquity.Disable();
  results_.tmrTVError.Disable();
  StartRangeHistory();
  return true;
}

bool Form1Model::Form_QueryUnload() {
  // A save kept waiting by another program's lock may be cancelled: the window then stays open, changes and
  // all.
  if (!profiles_.SaveProfiles() || !SavePreferences()) return false;
  if (highlightedLabel) {
    label(*highlightedLabel).opaque = false;
    highlightedLabel.reset();
  }
  frmSelCards.visible = false;
  return true;
}

void Form1Model::ShowCurrentProfile() {
  PlayerProfile* profile = profiles_.currentProfile();
  const bool selected = profile != nullptr;
  label(CommandLabel::lblDelete).visible = selected;
  label(CommandLabel::lblSave).visible = false;
  profiles_.cmbPlayer.foreColour = kWindowTextColour;
  if (!selected) return;
  profiles_.RefillPlayerList(profile->name);
  grid_.SetRangeText(profile->rangeText);
  SetBlockColours();
}

bool Form1Model::LoadLookupTables() {
  const TablesOrError& tables = ProgramTables();
  if (tables.ok()) return true;
  services.MsgBox(tables.error + "\r\n\r\nQuillet cannot start without its preflop table.",
                  MessageIcon::Warning);
  return false;
}

}  // namespace quillet
