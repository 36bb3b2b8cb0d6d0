// Card entry: the My Hand and Board boxes, the card picker opened beside them, and the suit-matrix clicks
// that take single holdings of the selected blocks in or out.
#include "app/model/form1_model.h"
#include "cards/card.h"
#include "cards/hand_class.h"
#include "range/card_text_colour.h"
#include "range/grid_colours.h"
#include "range/my_hand_range.h"
#include "range/range_notation.h"

namespace quillet {
namespace {

// The picker opens this far right of the box's right edge and this far below the box's top.
constexpr int kPickerGapX = 5;
constexpr int kPickerOffsetY = 24;

// Chooses the picker's cells from the box's text: two cards for My Hand, three to five for the Board.
void InitPickerFromBox(Form1Model& form, bool forMyHand) {
  SelCardsModel& picker = form.frmSelCards;
  if (forMyHand) {
    // A range's text names no cards to start from.
    picker.Init(2, 2, true,
                form.MyHandIsRange() ? std::string_view{} : std::string_view(form.txtMyHand.text));
  } else {
    picker.Init(3, 5, false, form.txtBoard.text);
  }
}

void OpenPicker(Form1Model& form, bool forMyHand) {
  SelCardsModel& picker = form.frmSelCards;
  picker.owner = &form;
  if (!picker.visible) picker.Form_Load();
  picker.visible = true;
  const RichTextState& box = forMyHand ? form.txtMyHand : form.txtBoard;
  picker.anchor = forMyHand ? ControlId::txtMyHand : ControlId::txtBoard;
  picker.offsetX = box.width + kPickerGapX;
  picker.offsetY = kPickerOffsetY;
  InitPickerFromBox(form, forMyHand);
}

// The picker, open for this box, takes the box's new text as its choice.
void PickerFollowsBox(Form1Model& form, bool forMyHand) {
  const SelCardsModel& picker = form.frmSelCards;
  if (!picker.visible || picker.targetMyHand != forMyHand) return;
  InitPickerFromBox(form, forMyHand);
}

// Whether any cell of the kinds now selected is still shown. With more than one kind every cell counts.
bool AnyCellOfThePresentKindsShown(const GridState& grid) {
  const int kinds = (grid.pairPresent ? 1 : 0) + (grid.suitedPresent ? 1 : 0) + (grid.offsuitPresent ? 1 : 0);
  const auto& cells = SuitMatrixCells();
  for (int k = 0; k < kSuitMatrixCells; ++k) {
    if (!grid.comboShown[k]) continue;
    if (kinds > 1) return true;
    if ((grid.pairPresent && cells[k].pair) || (grid.suitedPresent && cells[k].suited) ||
        (grid.offsuitPresent && cells[k].offsuit)) {
      return true;
    }
  }
  return false;
}

}  // namespace

void Form1Model::ColourCodeRT(RichTextState& box) {
  const size_t length = box.text.size();
  box.charColours.resize(length, kWindowTextColour);
  for (size_t card = 0; card < length / 2; ++card) {
    box.selStart = static_cast<int>(2 * card);
    box.selLength = 2;
    const Colour colour = SuitTextColour(SuitFromChar(std::string_view(box.text).substr(2 * card + 1, 1)));
    box.charColours[2 * card] = colour;
    box.charColours[2 * card + 1] = colour;
  }
  box.selStart = static_cast<int>(length);
  box.selLength = 0;
}

bool Form1Model::MyHandIsRange() const {
  return options.standardShowdownRules && !IsTwoCardText(txtMyHand.text);
}

void Form1Model::ColourMyHand() {
  if (!MyHandIsRange()) {
    ColourCodeRT(txtMyHand);
    return;
  }
  const ParsedRange parsed = ParseRangeNotation(txtMyHand.text);
  txtMyHand.charColours = RangeTextColours(txtMyHand.text, parsed.error ? &*parsed.error : nullptr);
  txtMyHand.selStart = static_cast<int>(txtMyHand.text.size());
  txtMyHand.selLength = 0;
}

void Form1Model::txtMyHand_KeyDown(int keyCode) {
  results_.ClearEquityDisplay();
  if (keyCode == kKeyEnter) cmdCheckPossibleHands_Click();
}

void Form1Model::txtBoard_KeyDown(int keyCode) {
  // A modifier pressed alone keeps the equity shown (in this box only).
  if (keyCode == kKeyShift || keyCode == kKeyControl || keyCode == kKeyAlt) return;
  results_.ClearEquityDisplay();
  if (keyCode == kKeyEnter) cmdCheckPossibleHands_Click();
}

void Form1Model::txtMyHand_Click() {
  if (MyHandIsRange()) return;
  OpenPicker(*this, true);
}

void Form1Model::lblMyHand_Click() {
  OpenPicker(*this, true);
}

void Form1Model::txtBoard_Click() {
  OpenPicker(*this, false);
}

void Form1Model::txtMyHand_Change() {
  PickerFollowsBox(*this, true);
}

void Form1Model::txtBoard_Change() {
  PickerFollowsBox(*this, false);
}

void Form1Model::WritePickedCards(bool targetMyHand, const std::string& text) {
  RichTextState& box = targetMyHand ? txtMyHand : txtBoard;
  box.text = text;
  box.charColours.assign(text.size(), kWindowTextColour);
  ColourCodeRT(box);
}

void Form1Model::picSuit_Click(int index) {
  const RangeStep rangeStep(*this);
  PlayerProfile* profile = profiles_.currentProfile();
  if (profile == nullptr || index < 0 || index >= kSuitMatrixCells) return;
  const bool shown = !grid_.comboShown[index];
  grid_.comboShown[index] = shown;
  grid_.matrixCellColour[index] =
      shown ? (grid_.editingOn ? scheme.matrixOn : scheme.seenSelection) : kMatrixCellOutColour;

  const SuitMatrixCell& cell = SuitMatrixCells()[index];
  const auto& classes = HandClasses();
  for (int i = 0; i < kClassCount; ++i) {
    if (!CellFitsKind(index, classes[i].kind)) continue;
    if (grid_.selectedOn[i]) {
      SetBlockSuitPair(profile->rangeLayer[i], cell.suit1, cell.suit2, shown, false);
      if (shown) grid_.PaintHoldingWeight(*profile, i, cell.suit1, cell.suit2);
    }
    if (grid_.selectedSeen[i]) SetBlockSuitPair(profile->seenLayer[i], cell.suit1, cell.suit2, shown, false);
  }

  if (!AnyCellOfThePresentKindsShown(grid_)) {
    // Every holding of the selection's kinds is out: the selection is over.
    grid_.DeselectAllBlocks();
    SetBlockColours();
    grid_.RefreshSuitMatrix(false);
  } else {
    SetBlockColours();
  }
  grid_.WriteRangePercent();
  // Without a board the preflop equity follows at once, whatever the options say.
  if (txtBoard.text.empty()) cmdCalcEquity_Click();
}

}  // namespace quillet
