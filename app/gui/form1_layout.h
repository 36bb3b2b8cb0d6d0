// Where the main window's fixed controls stand, in pixels: one row per control, named by its object name
// (a caption, which has none, by its text). The results tree and the cook's caption below it are laid out
// as the window's height changes (Form1::LayOutTree); only their column is fixed here.
#pragma once

#include <QRect>
#include <string_view>

namespace quillet::gui {

// The results tree's column: its left edge and the tree's top edge.
inline constexpr int kRightX = 470;
inline constexpr int kTreeTop = 66;

// The hand grid: 13 columns of 34 pixels and 13 rows of 20 (rows of 20 leave room for the notation box),
// with a pixel for the closing line.
inline constexpr int kGridLeft = 8, kGridTop = 144, kGridColumn = 34, kGridRow = 20;

struct ControlPlace {
  std::string_view name;
  int x, y, width, height;
};

inline constexpr ControlPlace kControlPlaces[] = {
    // The player-profile box with its Save and Delete labels; the options and the two web pages.
    {"Player Profile:", 8, 7, 96, 26},
    {"cmbPlayer", 104, 7, 206, 26},
    {"lblSave", 316, 9, 48, 22},
    {"lblDelete", 368, 9, 60, 22},
    {"lblOptions", 632, 9, 78, 22},
    {"lblHelp", 714, 9, 58, 22},
    {"lblWebsite", 776, 9, 118, 22},
    // The card boxes.
    {"lblMyHand", 8, 46, 62, 22},
    {"txtMyHand", 70, 42, 96, 30},
    {"lblBoardCards", 180, 46, 84, 22},
    {"txtBoard", 264, 42, 150, 30},
    // Cook, Calc Equity and the two read-outs.
    {"cmdCheckPossibleHands", 8, 80, 60, 24},
    {"cmdCalcEquity", 72, 80, 104, 24},
    {"My Equity:", 182, 80, 76, 24},
    {"lblMyEquity", 262, 80, 64, 24},
    {"Opp Equity:", 330, 80, 78, 24},
    {"lbloppEquity", 410, 80, 56, 24},
    // The grid with its hint, the suit matrix, the range text and slider, the quick-select commands.
    {"hint", 8, 110, 452, 32},
    {"PFHand", kGridLeft, kGridTop, 13 * kGridColumn + 1, 13 * kGridRow + 1},
    // While "Equity Heat Map" is ticked the rows are one pixel lower and its legend takes the room freed.
    {"HeatLegend", kGridLeft, kGridTop + 13 * (kGridRow - 1) + 2, 13 * kGridColumn + 1, 13},
    {"txtRange", 8, 438, 58, 24},
    {"%", 68, 438, 14, 24},
    {"Slider1", 84, 438, 258, 24},
    {"cmdAll", 8, 468, 40, 22},
    {"cmdAnyPair", 52, 468, 74, 22},
    {"cmdAnySuited", 130, 468, 86, 22},
    {"cmdAnyBroadway", 220, 468, 116, 22},
    {"cmdClearOnBlocks", 8, 496, 74, 22},
    {"cmdClearSeenBlocks", 86, 496, 86, 22},
    {"cmdClearAllBlocks", 176, 496, 76, 22},
    {"lblSeen", 270, 496, 62, 22},
    {"picSuit", 352, 436, 108, 90},
    // The caption above the results tree.
    {"Opponent Range:", kRightX, 44, 200, 20},
};

// The place of the control named; a name with no row does not compile.
consteval QRect PlaceOf(std::string_view name) {
  for (const ControlPlace& place : kControlPlaces) {
    if (place.name == name) return QRect(place.x, place.y, place.width, place.height);
  }
  throw "no place for this control";
}

}  // namespace quillet::gui
