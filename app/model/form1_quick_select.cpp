// The quick-select and clear commands beside the grid, and the hover highlight of the command labels.
#include "app/model/form1_model.h"
#include "cards/hand_class.h"

namespace quillet {
namespace {

enum class Layers { On, Seen, Both };

// Adds every block that `inGroup` accepts to the On selection and, whole at the weight box's weight, to the
// On layer. Nothing is deselected first: the group joins what the On layer already holds.
template <typename Group>
void AddGroup(Form1Model& form, Group inGroup) {
  const Form1Model::RangeStep rangeStep(form);
  PlayerProfile* profile = form.profiles().currentProfile();
  if (profile == nullptr) return;
  const auto& classes = HandClasses();
  for (int i = 0; i < kClassCount; ++i) {
    if (inGroup(classes[i])) form.grid().SelectIntoOnLayer(*profile, i);
  }
  form.SetBlockColours();
  form.grid().RefreshSuitMatrix(true);
  form.grid().WriteRangePercent();
}

void ClearLayers(Form1Model& form, Layers layers) {
  const Form1Model::RangeStep rangeStep(form);
  if (!form.grid().ClearLayers(layers != Layers::Seen, layers != Layers::On)) return;
  form.grid().RefreshSuitMatrix(false);
  form.SetBlockColours();
}

}  // namespace

void Form1Model::cmdAll_Click() {
  AddGroup(*this, [](const HandClass&) { return true; });
}

void Form1Model::cmdAnyPair_Click() {
  AddGroup(*this, [](const HandClass& c) { return c.kind == kKindPair; });
}

void Form1Model::cmdAnySuited_Click() {
  AddGroup(*this, [](const HandClass& c) { return c.kind == kKindSuited; });
}

void Form1Model::cmdAnyBroadway_Click() {
  // Rows and columns 0-4 are A, K, Q, J, T.
  AddGroup(*this, [](const HandClass& c) { return c.row < 5 && c.column < 5; });
}

void Form1Model::cmdClearOnBlocks_Click() {
  ClearLayers(*this, Layers::On);
}

void Form1Model::cmdClearSeenBlocks_Click() {
  ClearLayers(*this, Layers::Seen);
}

void Form1Model::cmdClearAllBlocks_Click() {
  ClearLayers(*this, Layers::Both);
}

void Form1Model::HighlightLabel(CommandLabel which) {
  if (highlightedLabel == which) return;
  if (highlightedLabel) label(*highlightedLabel).opaque = false;
  highlightedLabel = which;
  label(which).opaque = true;
}

void Form1Model::Form_MouseMove() {
  if (!highlightedLabel) return;
  label(*highlightedLabel).opaque = false;
  highlightedLabel.reset();
}

}  // namespace quillet
