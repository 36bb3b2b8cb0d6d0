#include "app/model/form1_model.h"

#include "cards/card.h"
#include "cards/hand_class.h"
#include "cards/preflop_order.h"
#include "categorise/categories.h"
#include "equity/deck.h"
#include "equity/lookup_tables.h"
#include "storage/file_io.h"

namespace quillet {

Form1Model::Form1Model(WindowServices& windowServices) : services(windowServices) {
  static constexpr const char* kCaptions[kCommandLabelCount] = {
      "All",  "Any Pair",    "Any Suited", "Any Broadway", "Clear On",      "Clear Seen", "Clear All",
      "Cook", "Calc Equity", "Options",    "Help",         "Visit Website", "Save",       "Delete"};
  for (int i = 0; i < kCommandLabelCount; ++i) commandLabels[i].caption = kCaptions[i];
  label(CommandLabel::lblSave).visible = false;
  label(CommandLabel::lblDelete).visible = false;
  lblMyEquity.caption = "100%";
  lbloppEquity.caption.clear();
  InitHandGrid();
  InitCategories(categories);
}

void Form1Model::InitHandGrid() {
  const auto& classes = HandClasses();
  for (int i = 0; i < kClassCount; ++i) {
    switch (classes[i].kind) {
      case kKindPair:
        grid.baseColour[i] = scheme.pairBase;
        break;
      case kKindSuited:
        grid.baseColour[i] = scheme.suitedBase;
        break;
      default:
        grid.baseColour[i] = scheme.offsuitBase;
        break;
    }
  }
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
  InitCategories(categories);
  TheDeck();
  Slider1.max = static_cast<int>(PreflopOrder().size()) - 1;
  Slider1.value = 0;

  InitHandGrid();
  grid.selectedOn.fill(false);
  grid.selectedSeen.fill(false);
  grid.comboShown.fill(false);

  if (!LoadProfiles()) return false;  // the version question answered No: end now, writing nothing
  currentProfileIndex = FirstProfileIndex();
  LoadPreferences();
  ShowCurrentProfile();

  ColourMyHand();
  ColourCodeRT(txtBoard);
  ClearEquityDisplay();
  if (!LoadLookupTables()) return false;

  // Nothing is pending when the window first shows.
  tmrSliderMoving.Disable();
  tmrCalcEquity.Disable();
  tmrTVError.Disable();
  StartRangeHistory();
  return true;
}

std::string Form1Model::KeepUnreadableFileAside(const std::filesystem::path& path, const std::string* bytes) {
  const SetAside aside = KeepFileAside(path, bytes);
  if (!aside.copy.empty()) return "The file was kept as \"" + aside.copy.string() + "\".";
  return "The file could not be kept aside (" + aside.reason +
         ") and will be overwritten when Quillet closes.";
}

bool Form1Model::AskToRetryLockedSave(const std::string& fault) {
  return services.AskRetryCancel(
      fault +
          "\r\n\r\nRetry waits for it again; Cancel keeps the window open with your "
          "changes, to be saved when it closes.",
      MessageIcon::Warning);
}

bool Form1Model::Form_QueryUnload() {
  // A save kept waiting by another program's lock may be cancelled: the window then stays open, changes and
  // all.
  if (!SaveProfiles() || !SavePreferences()) return false;
  if (highlightedLabel) {
    label(*highlightedLabel).opaque = false;
    highlightedLabel.reset();
  }
  frmSelCards.visible = false;
  return true;
}

void Form1Model::ShowCurrentProfile() {
  PlayerProfile* profile = currentProfile();
  const bool selected = profile != nullptr;
  label(CommandLabel::lblDelete).visible = selected;
  label(CommandLabel::lblSave).visible = false;
  cmbPlayer.foreColour = kWindowTextColour;
  if (!selected) return;
  RefillPlayerList(profile->name);
  SetRangeText(profile->rangeText);
  SetBlockColours();
}

bool Form1Model::LoadLookupTables() {
  const TablesOrError& tables = ProgramTables();
  if (tables.ok()) return true;
  services.MsgBox(tables.error + "\r\n\r\nQuillet cannot start without its preflop table.",
                  MessageIcon::Warning);
  return false;
}

PlayerProfile* Form1Model::currentProfile() {
  if (currentProfileIndex < 0 || currentProfileIndex >= static_cast<int>(profiles.size())) return nullptr;
  return &profiles[currentProfileIndex];
}

const PlayerProfile* Form1Model::currentProfile() const {
  if (currentProfileIndex < 0 || currentProfileIndex >= static_cast<int>(profiles.size())) return nullptr;
  return &profiles[currentProfileIndex];
}

}  // namespace quillet
