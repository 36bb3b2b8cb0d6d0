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

struct SelCardsModel {
  bool visible = false;
  std::array<Colour, 52> cellColour{};  // a chosen cell is yellow (0x00FFFF): the colour is the record
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
};

}  // namespace quillet
