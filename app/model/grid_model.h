// The main window's hand grid: the 13x13 blocks and their selection in the On and Seen layers, the suit
// matrix beside them, the weight box, the range percentage box with the slider, and the range notation box.
// The layers themselves live in the current profile (ProfilesModel). The window model (Form1Model) owns one
// and runs the controls' handlers, which put together the changes made here with the refresh of the rest of
// the window (equity timer, read-outs, undo steps).
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "app/model/form1_controls.h"
#include "app/model/profiles_model.h"
#include "cards/hand_class.h"
#include "equity/class_equity.h"
#include "range/block_record.h"
#include "range/colour.h"
#include "range/colour_scheme.h"
#include "range/player_profile.h"

namespace quillet {

// The hand grid's display and selection state (the layers themselves live in the current profile).
struct GridState {
  std::array<Colour, 169> baseColour{};   // by kind, from the colour scheme (InitHandGrid)
  std::array<Colour, 169> blockColour{};  // what each block shows (SetBlockColours)
  std::array<bool, 169> selectedOn{};
  std::array<bool, 169> selectedSeen{};
  bool editingOn = true;  // true while the On layer is edited, false while the Seen layer is
  bool pairPresent = false;
  bool suitedPresent = false;
  bool offsuitPresent = false;
  std::array<bool, 16> comboShown{};          // which suit-matrix cells are shown
  std::array<bool, 16> matrixCellVisible{};   // which cells the last matrix refresh put on screen
  std::array<Colour, 16> matrixCellColour{};  // the suit-matrix cells' colours
  Colour matrixColour = 0xFFFFC0;             // the colour the last grid click chose for the matrix
  // The mean weight, in thousandths, of each block's On-layer holdings when it is below 1; 0 for a block
  // whose On holdings are all whole (or that has none), which is filled whole with its colour.
  std::array<int32_t, 169> blockPartWeight{};
  // Likewise for each suit-matrix cell: the mean weight of the On-layer holdings it stands for in the
  // blocks selected in the On layer, 0 when they are whole (or there are none).
  std::array<int32_t, 16> matrixCellPartWeight{};
};

// Whether any entry of `weights` is set (whatever the layer holds): one pass without early exit, which the
// compiler turns into a few wide instructions, so that a range without weights costs next to nothing.
inline bool AnyWeightKept(const PartialWeights& weights) {
  uint16_t any = 0;
  for (const uint16_t w : weights) any |= w;
  return any != 0;
}

// Whether `index` names a block of the grid, and the block's kind (kKindPair, kKindSuited, kKindOffsuit).
inline bool IsBlockIndex(int index) {
  return index >= 0 && index < kClassCount;
}
inline int32_t KindOfBlock(int index) {
  return HandClasses()[index].kind;
}

class GridModel : public GridState {
 public:
  // The grid edits the layers of `profiles`' current profile, takes its colours from `scheme` and shows
  // `heatMap` (the last Calc Equity's, kept with the results) over the blocks while it holds an equity.
  GridModel(ProfilesModel& profiles, const ColourScheme& scheme, const std::optional<ClassEquities>& heatMap)
      : profiles_(profiles), scheme_(scheme), heatMap_(heatMap) {}

  // ---- blocks and selection ----
  // Fills the base colours of the 169 blocks from the colour scheme.
  void InitHandGrid();
  // Drops the selection of both layers; the On layer is the one edited again.
  void DeselectAllBlocks();
  // Colours every block from its selection and its records in both layers; whether some block showed a
  // mixed colour (part of a block, or a block in both layers).
  bool PaintBlockColours();
  // Gives the On-layer holdings of block `index` the weight box's weight.
  void PaintBlockWeight(PlayerProfile& profile, int index);
  // Puts block `i` into the On selection and its On record in whole at the weight box's weight, as a left
  // click does.
  void SelectIntoOnLayer(PlayerProfile& profile, int i);
  // Gives one On-layer holding (by the block's suit pair) the weight box's weight.
  void PaintHoldingWeight(PlayerProfile& profile, int index, int32_t suit1, int32_t suit2);
  // Ctrl+click: the block's column and row into the On layer, the selection starting anew. Alt+click: the
  // block and the blocks above it of its kind (suited to the diagonal, offsuit up its column, every higher
  // pair). False, changing nothing, with no profile current or no such block.
  bool SelectCross(int index);
  bool SelectUpward(int index);
  // The slider's place: the On layer becomes the classes of the preflop order up to it, whole, selected.
  // False with no profile current.
  bool SelectTopOfOrder();
  // Empties the records of the On layer, the Seen layer or both, and drops the selection. False with no
  // profile current.
  bool ClearLayers(bool on, bool seen);
  // The mean weights the grid and the suit matrix show (blockPartWeight, matrixCellPartWeight).
  void RefreshShownWeights();
  // The suit matrix's cells from the kinds of the selected blocks (`scan`: look at the selection again).
  void RefreshSuitMatrix(bool scan);
  // What block `index` shows: its heat-map colour while the heat map has an equity for it, else its
  // block colour.
  Colour ShownBlockColour(int index) const;
  // A grid block: its class and how many of its holdings the On and Seen layers hold ("AKs: 4 of 4 in
  // range"), with the mean weight of the On holdings when it is below 1 ("AQs: 4 of 4 in range at 50 %";
  // "at 37.5 % on average" when their weights differ), and its heat-map equity while there is one.
  std::string BlockToolTip(int index) const;
  // A suit-matrix cell: its suit pair and what a click on it does to the selected blocks.
  std::string SuitCellToolTip(int cell) const;

  // ---- the range percentage box and the slider ----
  // The entry of the preflop order the slider stands at.
  int SliderEntry() const;
  // Sets the box's text (typed or from the program) and keeps it in the current profile.
  void SetRangeText(const std::string& text);
  // Keeps the box's text in the current profile.
  void StoreRangeText();
  // The "~" percentage of the holdings in either layer into the box.
  void WriteRangePercent();

  // ---- the range notation box ----
  // The On layer as players write ranges: with its weights when some holding of it has one below 1, else
  // exactly as a range without weights is written (empty with no profile current).
  std::string OnLayerNotation() const;
  // The On layer's notation into the box, in the normal colour.
  void WriteRangeNotation();

  // ---- state ----
  // The weight box ("Weight:" beside the Range box), in thousandths: 1..kFullWeight, whole at start.
  int32_t txtWeight = kFullWeight;
  TextBoxState txtRange;
  TextBoxState txtNotation;
  std::string notationErrorShownFor;  // the refused text whose error was shown last (shown once)
  SliderState Slider1;
  bool lblSeenVisible = false;

 private:
  ProfilesModel& profiles_;
  const ColourScheme& scheme_;
  const std::optional<ClassEquities>& heatMap_;
};

}  // namespace quillet
