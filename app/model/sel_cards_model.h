// The card picker "Select Card" (frmSelCards) as a toolkit-free model: 52 cells, two check boxes, OK and
// Cancel. It writes the chosen cards into My Hand or the Board of its owner, the main window model.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "app/model/window_services.h"
#include "range/colour.h"

namespace quillet {

class Form1Model;

// Cell i shows rank 14 - (i mod 13) of suit i div 13: Ac, Kc, ... 2c, then the diamonds, hearts, spades.
inline constexpr int kPickerCells = 52;
// A chosen cell is yellow; the colour is the only record of the choice.
inline constexpr Colour kChosenCellColour = 0x00FFFF;
// The unchosen colour of a cell, by its suit.
Colour PickerCellColour(int cell);
// "Ac", "Kc", ... "2s".
std::string PickerCellCaption(int cell);

inline constexpr std::string_view kNotEnoughCardsMessage = "You have not selected enough cards";

struct SelCardsModel {
  explicit SelCardsModel(Form1Model* ownerForm = nullptr);

  Form1Model* owner;  // the main window the chosen cards go to
  bool visible = false;
  std::array<Colour, 52> cellColour{};   // a chosen cell is yellow (0x00FFFF): the colour is the record
  std::array<std::string, 52> captions;  // "Ac", "Kc", ... "2s"
  int minimum = 0;
  int maximum = 0;
  bool targetMyHand = true;
  bool chkAutoOK = false;    // "Auto: OK on final click"
  bool chkAutoCook = false;  // "Auto: Cook on OK"
  // Where the window opens: beside this box, `offsetX` pixels right of the box's left edge and `offsetY`
  // pixels below its top, in the main window's client coordinates.
  ControlId anchor = ControlId::txtMyHand;
  int offsetX = 0;
  int offsetY = 0;

  // The window is loaded: the check boxes take the application-wide choices, the cells their captions.
  void Form_Load();
  // Paints every cell its suit colour, then yellow each cell whose caption equals a two-character piece of
  // `text` exactly (case counts).
  void Init(int minimumCards, int maximumCards, bool forMyHand, std::string_view text);
  // Left: choose or unchoose the cell (never beyond the maximum), with auto-OK on the final card.
  // Right: clear the choice. Other buttons: nothing.
  void Card_MouseUp(int index, int button);
  // Writes the chosen cards in cell order into the target box, or shows kNotEnoughCardsMessage when their
  // number lies outside minimum..maximum and stays open.
  void cmdOK_Click();
  void cmdCancel_Click();

  // The number of chosen cells; with `cap`, counting stops once it reaches the maximum.
  int ChosenCount(bool cap) const;
  bool IsChosen(int cell) const { return cellColour[cell] == kChosenCellColour; }
};

}  // namespace quillet
