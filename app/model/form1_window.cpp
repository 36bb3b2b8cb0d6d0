// The main window's own controls: the player-profile box with Save and Delete, the options menu and its
// ticks, the help and website labels, and the sizing rule.
#include <algorithm>

#include "app/model/form1_model.h"
#include "app/model/web_addresses.h"
#include "cards/blank_text.h"
#include "storage/code_page.h"
#include "storage/profile_list.h"

namespace quillet {
namespace {

constexpr std::string_view kPlayerPrompt = "Type new player name / Select existing player";

// The tree keeps this margin (twips) to the window's bottom edge.
constexpr int kTreeBottomMargin = 777;

}  // namespace

bool Form1Model::SelectProfileByName() {
  const RangeStep rangeStep(*this);
  LabelState& save = label(CommandLabel::lblSave);
  LabelState& remove = label(CommandLabel::lblDelete);
  const std::string& name = profiles_.cmbPlayer.text;
  if (name.empty() || Utf8Length(name) > kLongestProfileName) {
    remove.visible = false;
    save.visible = false;
    profiles_.currentIndex = -1;
    return false;
  }
  const int k = FindProfileByName(profiles_.list, name);
  if (k < 0) {
    profiles_.currentIndex = -1;
    remove.visible = false;
    save.visible = true;
    return false;
  }
  profiles_.currentIndex = k;
  remove.visible = true;
  save.visible = false;
  grid_.SetRangeText(profiles_.list[k].rangeText);
  SetBlockColours();
  if (profiles_.list[k].rangeText.empty()) {
    // A profile without a stored range starts with the first step of the order, as a drag to 0 gives.
    grid_.Slider1.value = 0;
    Slider1_MouseMove(kLeftButton);
  }
  return true;
}

void Form1Model::cmbPlayer_Click() {
  const RangeStep rangeStep(*this);
  grid_.DeselectAllBlocks();
  if (!SelectProfileByName()) {
    profiles_.cmbPlayer.listIndex = -1;
    profiles_.cmbPlayer.text = std::string(kPlayerPrompt);
  }
}

void Form1Model::cmbPlayer_KeyUp(int keyCode) {
  const RangeStep rangeStep(*this);
  const bool exists = SelectProfileByName();
  profiles_.cmbPlayer.foreColour = exists ? kWindowTextColour : kRejectedTextColour;
  if (keyCode == kKeyEnter && label(CommandLabel::lblSave).visible) lblSave_Click();
}

void Form1Model::lblSave_Click() {
  const std::string name(TrimSpaces(profiles_.cmbPlayer.text));
  if (name.empty() || Utf8Length(name) > kLongestProfileName) return;
  // A name the file cannot hold would be saved with "?" in place of its other characters (two names could
  // become one): it is refused, as quillet-cli refuses it, before anything is added.
  if (const std::string fault = ProfileNameCodePageFault(name); !fault.empty()) {
    services.MsgBox(fault);
    return;
  }
  const RangeStep rangeStep(*this);
  grid_.DeselectAllBlocks();
  // Trimming can turn a new name into an existing one: that profile is selected rather than doubled.
  const int existing = FindProfileByName(profiles_.list, name);
  profiles_.currentIndex = existing >= 0 ? existing : profiles_.AddProfile(name);
  ShowCurrentProfile();
}

void Form1Model::lblDelete_Click() {
  PlayerProfile* profile = profiles_.currentProfile();
  if (profile == nullptr) return;
  profile->name.clear();  // the slot is free: neither listed nor saved
  grid_.DeselectAllBlocks();
  profiles_.currentIndex = profiles_.FirstProfileIndex();
  ShowCurrentProfile();
  // The steps may name the deleted profile; a deletion cannot be taken back, so the history starts anew.
  StartRangeHistory();
}

void Form1Model::lblOptions_Click() {
  services.PopUpMenu(PopupMenuId::Options);
}

void Form1Model::lblHelp_Click() {
  services.OpenInShell(kOnlineGuideAddress);
}

void Form1Model::lblWebsite_Click() {
  services.OpenInShell(kHomePageAddress);
}

void Form1Model::Form_Resize() {
  if (!geometry.normalState) return;
  if (geometry.width != kWindowWidth) geometry.width = kWindowWidth;
  if (geometry.height < kWindowMinHeight) geometry.height = kWindowMinHeight;
  geometry.treeHeight = std::max(0, geometry.height - geometry.treeTop - kTreeBottomMargin);
}

void Form1Model::mnuSimplifyOutput_Click() {
  ToggleMenuCheck(options.simplifyOutput);
}

void Form1Model::mnuSimplifyFurther_Click() {
  ToggleMenuCheck(options.simplifyFurther);
  // The export text is built by the cook, so it runs again to follow the new tick.
  cmdCheckPossibleHands_Click();
}

void Form1Model::mnuHideEmptyCats_Click() {
  ToggleMenuCheck(options.hideEmptyCats);
}

void Form1Model::mnuEquityPerCategory_Click() {
  ToggleMenuCheck(options.equityPerCategory);
  // The equities are counted on the cook's holdings when the tree is built, so the cook runs again.
  cmdCheckPossibleHands_Click();
}

void Form1Model::mnuEquityHeatMap_Click() {
  ToggleMenuCheck(options.equityHeatMap);
  // The colours come with the next Calc Equity; unticked, every block shows its own colour again.
  if (!options.equityHeatMap) results_.heatMap.reset();
}

void Form1Model::mnuCategoryIcons_Click() {
  ToggleMenuCheck(options.categoryIcons);
}

void Form1Model::mnuWinLoseIcons_Click() {
  ToggleMenuCheck(options.winLoseIcons);
}

}  // namespace quillet
