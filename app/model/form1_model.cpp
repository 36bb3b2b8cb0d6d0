#include "app/model/form1_model.h"

#include "cards/hand_class.h"
#include "categorise/categories.h"

namespace quillet {

Form1Model::Form1Model(WindowServices& windowServices) : services(windowServices) {
  static constexpr const char* kCaptions[kCommandLabelCount] = {
      "All",  "Any Pair",    "Any Suited", "Any Broadway", "Clear On", "Clear Seen", "Clear All",
      "Cook", "Calc Equity", "Options",    "Help",         "Visit Website", "Save", "Delete"};
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
      case kKindPair: grid.baseColour[i] = scheme.pairBase; break;
      case kKindSuited: grid.baseColour[i] = scheme.suitedBase; break;
      default: grid.baseColour[i] = scheme.offsuitBase; break;
    }
  }
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
