// The states of the main window's controls (labels, text boxes, the player box, the slider, the timers) and
// the ticks of its options menu, shared by the window model (Form1Model) and the sub-models it owns.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "range/colour.h"

namespace quillet {

// The resting background of the command labels (and of cmdCalcEquity between calculations).
inline constexpr Colour kOptionsBackColour = Rgb(0xD8, 0xE4, 0xF0);
// cmdCalcEquity's background while a calculation runs.
inline constexpr Colour kCalculatingBackColour = Rgb(255, 234, 168);

struct LabelState {
  std::string caption;
  Colour backColour = kOptionsBackColour;
  bool opaque = false;  // back style 1: the background colour shows
  bool visible = true;
  std::string toolTip;  // empty: none
};

// A rich text box: its text and a colour for each character (bytes of the text, which is plain ASCII card
// text in practice; other bytes are coloured like their neighbours).
struct RichTextState {
  std::string text;
  std::vector<Colour> charColours;
  int selStart = 0;
  int selLength = 0;
  int width = 0;  // pixels, as the window lays the box out (the card picker opens just right of it)
};

struct TextBoxState {
  std::string text;
  Colour foreColour = kWindowTextColour;
  int selStart = 0;
  int selLength = 0;
};

struct ComboBoxState {
  std::vector<std::string> items;
  int listIndex = -1;  // selected list entry, -1 for none
  std::string text;
  Colour foreColour = kWindowTextColour;
};

struct SliderState {
  int value = 0;
  int max = 0;
};

// A timer of the window. The window's own timer follows `enabled`, and starts its delay again whenever
// `armCount` changes (a disable followed by an enable restarts the delay).
struct TimerState {
  int intervalMs = 0;
  bool enabled = false;
  uint64_t armCount = 0;

  void Enable() {
    enabled = true;
    ++armCount;
  }
  void Disable() { enabled = false; }
};

// The tick marks of the options menu (first-start values).
struct MenuOptions {
  bool hideEmptyCats = true;      // mnuHideEmptyCats, "Hide Empty Categories"
  bool simplifyOutput = true;     // mnuSimplifyOutput, "Simplify Output"
  bool simplifyFurther = false;   // mnuSimplifyFurther, "Simplify Further for Clipboard Export"
  bool categoryIcons = false;     // mnuCategoryIcons, "Category Icons"
  bool winLoseIcons = false;      // mnuWinLoseIcons, "Win Lose Icons"
  bool calcEquityOnCook = false;  // mnuCalcEquityOnCook, "Auto Calc Equity on Cook"
  bool autoPFEquityCalc = false;  // mnuAutoPFEquityCalc, "Auto Calc Equity Preflop on Range Change"
  // mnuStandardShowdownRules, "Standard Showdown Rules": equity and the win/tie/lose icons by the standard
  // rules instead of the program's own.
  bool standardShowdownRules = false;
  // mnuCheckBoxes, "Check Boxes" (in "Display Options"): check boxes on the results tree's category and
  // group nodes, and "Keep Only Checked" in the tree's pop-up menu.
  bool checkBoxes = false;
  // mnuEquityPerCategory, "Equity per Category": every category and group node of the results tree ends
  // with My Hand's equity against the holdings under it.
  bool equityPerCategory = false;
  // mnuEquityHeatMap, "Equity Heat Map": after each Calc Equity every block of the range is coloured by My
  // Hand's equity against its live holdings.
  bool equityHeatMap = false;
};

}  // namespace quillet
