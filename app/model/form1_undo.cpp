// Undo and redo of the range: the steps every change of the On and Seen layers (and of the current
// profile) leaves, and the window's Ctrl+Z, Ctrl+Shift+Z and Ctrl+Y.
#include <utility>

#include "app/model/form1_model.h"
#include "range/holding_set.h"

namespace quillet {
namespace {

// A weight kept for a holding that has left the On layer would come back with it the next time a command
// that keeps the weights holdings had (Add to Range, Keep Only Checked) puts it in from the Seen layer:
// each change ends by forgetting it. Within one change it stays, so that a command that empties the layer
// and fills it again keeps the weights.
void ForgetWeightsOutOfLayer(PlayerProfile& profile) {
  if (!AnyWeightKept(profile.onWeights)) return;
  const HoldingSet holdings = HoldingsOfLayer(profile.rangeLayer);
  for (int number = 0; number < kHoldingCount; ++number) {
    if (!holdings.contains(number)) profile.onWeights[number] = 0;
  }
}

}  // namespace

Form1Model::RangeStep::RangeStep(Form1Model& form, bool sliderMove)
    : form_(form), outermost_(form.rangeHistory.openSteps == 0), sliderMove_(sliderMove) {
  ++form_.rangeHistory.openSteps;
  if (outermost_) before_ = form_.CurrentRangeSnapshot(true);
}

Form1Model::RangeStep::~RangeStep() {
  RangeHistory& history = form_.rangeHistory;
  --history.openSteps;
  if (!outermost_) return;
  PlayerProfile* profile = form_.profiles().currentProfile();
  if (profile == nullptr) {
    // No layers to compare (a name being typed that names no profile): the range stays as it was, and
    // the next change starts from it.
    if (before_ && before_->profileIndex >= 0) history.lastWithProfile = std::move(before_);
    history.sliderStepOpen = false;
    return;
  }
  ForgetWeightsOutOfLayer(*profile);
  std::optional<RangeSnapshot> after = form_.CurrentRangeSnapshot(false);
  const bool changed = before_ && !before_->SameRange(*after);
  if (changed) {
    if (!(sliderMove_ && history.sliderStepOpen)) history.Record(std::move(*before_));
  }
  // A drag's later moves join the step its first change made; anything else closes that step.
  history.sliderStepOpen = sliderMove_ && (history.sliderStepOpen || changed);
  history.lastWithProfile = std::move(after);
}

std::optional<RangeSnapshot> Form1Model::CurrentRangeSnapshot(bool asLastChangeLeftIt) const {
  const PlayerProfile* profile = profiles_.currentProfile();
  const std::optional<RangeSnapshot>& last = rangeHistory.lastWithProfile;
  if (profile == nullptr) return last;
  RangeSnapshot now{profiles_.currentIndex, profile->name,      profile->rangeLayer, profile->seenLayer,
                    profile->onWeights,     profile->rangeText, grid_.Slider1.value};
  if (asLastChangeLeftIt && last && last->SameRange(now)) {
    // A percentage typed but not yet entered, or a slider moved but not yet applied, is no range of its
    // own: the step keeps the text and place the range had.
    now.rangeText = last->rangeText;
    now.sliderValue = last->sliderValue;
  }
  return now;
}

bool Form1Model::RestoreRangeSnapshot(const RangeSnapshot& snapshot) {
  const int index = snapshot.profileIndex;
  if (index < 0 || index >= static_cast<int>(profiles_.list.size()) ||
      profiles_.list[index].name != snapshot.profileName) {
    rangeHistory.Clear();  // cannot happen while deleting a profile clears the history; kept as a guard
    return false;
  }
  const bool otherProfile = index != profiles_.currentIndex;
  profiles_.currentIndex = index;
  PlayerProfile& profile = profiles_.list[index];
  profile.rangeLayer = snapshot.rangeLayer;
  profile.seenLayer = snapshot.seenLayer;
  profile.onWeights = snapshot.onWeights;
  if (otherProfile || profiles_.cmbPlayer.text != profile.name) {
    // As a pick from the list shows it: the name, Delete shown, Save hidden.
    profiles_.RefillPlayerList(profile.name);
    profiles_.cmbPlayer.foreColour = kWindowTextColour;
    label(CommandLabel::lblDelete).visible = true;
    label(CommandLabel::lblSave).visible = false;
  }
  grid_.Slider1.value = snapshot.sliderValue;
  grid_.txtRange.foreColour = kWindowTextColour;
  grid_.SetRangeText(snapshot.rangeText);
  grid_.DeselectAllBlocks();
  SetBlockColours();
  grid_.RefreshSuitMatrix(true);
  return true;
}

void Form1Model::StartRangeHistory() {
  rangeHistory.Clear();
  rangeHistory.lastWithProfile = CurrentRangeSnapshot(false);
}

bool Form1Model::UndoRangeChange() {
  rangeHistory.sliderStepOpen = false;
  std::optional<RangeSnapshot> now = CurrentRangeSnapshot(true);
  if (!now || rangeHistory.undoCount() == 0) return false;
  const std::optional<RangeSnapshot> back = rangeHistory.Undo(std::move(*now));
  if (!RestoreRangeSnapshot(*back)) return false;
  rangeHistory.lastWithProfile = CurrentRangeSnapshot(false);
  return true;
}

bool Form1Model::RedoRangeChange() {
  rangeHistory.sliderStepOpen = false;
  std::optional<RangeSnapshot> now = CurrentRangeSnapshot(true);
  if (!now || rangeHistory.redoCount() == 0) return false;
  const std::optional<RangeSnapshot> forward = rangeHistory.Redo(std::move(*now));
  if (!RestoreRangeSnapshot(*forward)) return false;
  rangeHistory.lastWithProfile = CurrentRangeSnapshot(false);
  return true;
}

void Form1Model::Form_KeyDown(int keyCode, int shift) {
  if (keyCode == kKeyZ && shift == kCtrlMask) {
    UndoRangeChange();
  } else if ((keyCode == kKeyZ && shift == (kCtrlMask | kShiftMask)) ||
             (keyCode == kKeyY && shift == kCtrlMask)) {
    RedoRangeChange();
  }
}

void Form1Model::Slider1_MouseUp(int /*button*/, int /*shift*/) {
  rangeHistory.sliderStepOpen = false;
}

}  // namespace quillet
