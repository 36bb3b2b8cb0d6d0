// The main window as a toolkit-free model.
//
// Everything the main window keeps lives here: the card boxes, the menu ticks and the command labels in
// this class, and three parts in sub-models of their own that it owns: the hand grid with its range boxes
// (GridModel, grid()), the player profiles (ProfilesModel, profiles()) and the results of the cook and of
// Calc Equity (ResultsModel, results()). Every event handler of the window is a member function of this
// class named after its control and event (cmdCheckPossibleHands_Click,
// PFHand_MouseUp, txtRange_KeyUp, ...). The Qt window only draws this state and forwards events to these
// functions, so the whole program can be driven and checked without a screen. Message boxes, questions,
// the input box, the clipboard and the shell's "open" go through WindowServices.
//
// The handlers are implemented by subsystem, one file each: form1_model.cpp (start-up, shutdown, shared
// helpers), form1_cook.cpp, form1_equity.cpp, form1_grid.cpp, form1_range_text.cpp, form1_slider.cpp,
// form1_range_notation.cpp, form1_quick_select.cpp, form1_card_entry.cpp, form1_results.cpp,
// form1_preferences.cpp, form1_window.cpp, form1_tooltips.cpp, form1_undo.cpp; the sub-models in
// grid_model.cpp, profiles_model.cpp and results_model.cpp.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "app/model/boards_report_model.h"
#include "app/model/form1_controls.h"
#include "app/model/grid_model.h"
#include "app/model/multiway_model.h"
#include "app/model/profiles_model.h"
#include "app/model/range_history.h"
#include "app/model/results_model.h"
#include "app/model/sel_cards_model.h"
#include "app/model/window_services.h"
#include "cards/card.h"
#include "cards/card_input.h"
#include "range/colour.h"
#include "range/colour_scheme.h"
#include "range/player_profile.h"

namespace quillet {

struct PreferenceLine;  // storage/preferences_file.h
class HoldingSet;       // range/holding_set.h

// Mouse buttons and modifier masks as the handlers receive them.
inline constexpr int kLeftButton = 1;
inline constexpr int kRightButton = 2;
inline constexpr int kMiddleButton = 4;
inline constexpr int kShiftMask = 1;
inline constexpr int kCtrlMask = 2;
inline constexpr int kAltMask = 4;

// Key codes as the handlers receive them (the window maps its toolkit's keys to these).
inline constexpr int kKeyEnter = 13;
inline constexpr int kKeyShift = 16;
inline constexpr int kKeyControl = 17;
inline constexpr int kKeyAlt = 18;
inline constexpr int kKeyLeft = 37;
inline constexpr int kKeyUp = 38;
inline constexpr int kKeyRight = 39;
inline constexpr int kKeyDown = 40;
inline constexpr int kKeyF3 = 114;
inline constexpr int kKeyC = 'C';
inline constexpr int kKeyV = 'V';
inline constexpr int kKeyY = 'Y';
inline constexpr int kKeyZ = 'Z';

// The command labels: labels that act as buttons and share the hover highlight.
enum class CommandLabel {
  cmdAll,
  cmdAnyPair,
  cmdAnySuited,
  cmdAnyBroadway,
  cmdClearOnBlocks,
  cmdClearSeenBlocks,
  cmdClearAllBlocks,
  cmdCheckPossibleHands,
  cmdCalcEquity,
  lblOptions,
  lblHelp,
  lblWebsite,
  lblSave,
  lblDelete,
};
inline constexpr int kCommandLabelCount = 14;

// What a command label does, with its key where it has one (form1_tooltips.cpp).
std::string CommandLabelToolTip(CommandLabel label);

// The window's width is fixed and its height has a floor (twips, 15 to a pixel).
inline constexpr int kWindowWidth = 13545;
inline constexpr int kWindowMinHeight = 8010;

// The window's size in twips and the results tree's place in it.
struct WindowGeometry {
  int width = kWindowWidth;
  int height = kWindowMinHeight;
  bool normalState = true;  // neither minimised nor maximised
  int treeTop = 0;
  int treeHeight = 0;
};

class Form1Model {
 public:
  explicit Form1Model(WindowServices& services);
  // The sub-models and the other windows' models hold on to this one's members: it is never copied.
  Form1Model(const Form1Model&) = delete;
  Form1Model& operator=(const Form1Model&) = delete;

  // ---- start-up and shutdown (form1_model.cpp) ----
  // Composes the file paths from `programFolder` and runs the start-up sequence. Returns false when the
  // program must end at once (the profile file's version question answered No): nothing is then saved.
  bool Form_Load(const std::filesystem::path& programFolder);
  // Saves profiles then preferences, forgets the highlighted label, closes the card picker. A save that
  // another program's lock keeps waiting asks Retry or Cancel; false when Cancel was chosen: the window must
  // then stay open, its changes kept (nothing after the cancelled save is done).
  bool Form_QueryUnload();
  // Shows the current profile: its name in cmbPlayer, its stored range text in txtRange, its layers on the
  // grid (SetBlockColours), lblDelete shown and lblSave hidden. An empty range text stays empty. With no
  // profile current only the two labels follow.
  void ShowCurrentProfile();

  // The sub-models.
  GridModel& grid() { return grid_; }
  const GridModel& grid() const { return grid_; }
  ProfilesModel& profiles() { return profiles_; }
  const ProfilesModel& profiles() const { return profiles_; }
  ResultsModel& results() { return results_; }
  const ResultsModel& results() const { return results_; }

  // ---- cook (form1_cook.cpp) ----
  void cmdCheckPossibleHands_Click();

 private:
  // The preflop matchup tables; false (after telling the user why) when they cannot be loaded.
  bool LoadLookupTables();
  // The window's reading of My Hand and the Board: the card layer's check and parse run on the two text
  // boxes, their messages shown as message boxes. The results tree's icons read the cards with this.
  bool ReadCardInputs(HandCards& hand, BoardCards& board, int32_t& street);
  // The cook's and the equity command's reading: the core's CheckCardInputs on the two boxes, which get
  // their normalised texts back (coloured by suit again once they parsed); every message of a refusal is
  // shown as a message box.
  CardInputs ReadCardBoxes(CardsFor use);
  // With a range in My Hand, the cook's and the equity command's reading: the Board as CheckCardInputs
  // reads it with My Hand left empty (its messages and normalised text as with a hand), then My Hand as
  // range notation, its text coloured by RangeTextColours. A range that cannot be read shows
  // MyHandRangeMessage. False when either was refused.
  bool ReadMyRangeBoxes(CardInputs& cards, HoldingSet& myRange);
  // Calc Equity with a range in My Hand: my range against the opponent's (the current profile's holdings)
  // under the standard rules, exactly, on the board as it stands.
  void CalcMyRangeEquity();

 public:
  // ---- equity (form1_equity.cpp) ----
  void cmdCalcEquity_Click();
  void tmrCalcEquity_Timer();
  void mnuCalcEquityOnCook_Click();
  void mnuAutoPFEquityCalc_Click();
  void mnuStandardShowdownRules_Click();
  // A right click on a read-out (My Equity when `mine`) pops up its menu ("Copy") while it shows a value.
  void lblMyEquity_MouseUp(int button);
  void lbloppEquity_MouseUp(int button);
  // The read-out menu's "Copy": the read-out the menu was opened on, as it shows ("57.3%"), to the clipboard.
  void mnuCopyEquity_Click();

  // ---- hand grid (form1_grid.cpp) ----
  // The grid's refresh after a change of the layers or the selection: the block colours, the "~"
  // percentage when part of a block shows, the preflop equity timer or blank read-outs, the shown weights
  // and the notation box.
  void SetBlockColours();
  void PFHand_MouseUp(int index, int button, int shift);
  // The weight box ("Weight:") took a new value, in thousandths: the weight that grid clicks, suit-cell
  // clicks, the quick-select commands and notation pasted without weights give the holdings they put into
  // the On layer. A value outside 1..kFullWeight is brought inside (the box cannot hold 0: taking a
  // holding out is what a second click does). The Seen layer is unweighted: the box leaves it alone.
  void txtWeight_Change(int32_t thousandths);

  // ---- range text box (form1_range_text.cpp) ----
  void txtRange_KeyUp(int keyCode);
  void txtRange_Change();
  void txtRange_Click();

  // ---- range notation box and the grid's clipboard keys (form1_range_notation.cpp) ----
  // txtNotation, captioned "Range:", shows the On layer as players write ranges ("QQ+, AK") after every
  // range change (SetBlockColours ends with WriteRangeNotation), and takes typed or pasted notation on
  // Enter: the On layer becomes exactly that range. A text that cannot be read turns red, its error is
  // shown once in a message box, and nothing else changes.
  // The user edited the text: it is red until Enter accepts it.
  void txtNotation_Change();
  // Enter (key code 13) applies the text; other keys do nothing here.
  void txtNotation_KeyDown(int keyCode);
  // Ctrl+C puts the On layer's notation on the clipboard; Ctrl+V puts the clipboard's text in the box and
  // applies it as Enter does.
  void PFHand_KeyDown(int keyCode, int shift);
  // Reads the box's text and makes the On layer exactly that range, then runs the grid's refresh chain
  // (colours and equity timer, suit matrix, percentage text). False when the text is refused. The weights
  // are those the text writes; with `paintUnweighted` a text that writes no weight at all (no ":" and no
  // "[") gives every holding the weight box's weight instead, as a paste onto the grid does.
  bool ApplyRangeNotation(bool paintUnweighted = false);

  // ---- slider (form1_slider.cpp) ----
  void Slider1_MouseMove(int button);
  void Slider1_KeyDown();
  void Slider1_KeyUp();
  void tmrSliderMoving_Timer();
  void ApplySliderRange();

  // ---- quick-select and clear commands, hover highlight (form1_quick_select.cpp) ----
  void cmdAll_Click();
  void cmdAnyPair_Click();
  void cmdAnySuited_Click();
  void cmdAnyBroadway_Click();
  void cmdClearOnBlocks_Click();
  void cmdClearSeenBlocks_Click();
  void cmdClearAllBlocks_Click();
  void HighlightLabel(CommandLabel label);
  void Form_MouseMove();

  // ---- card entry, card picker and suit matrix (form1_card_entry.cpp) ----
  void ColourCodeRT(RichTextState& box);
  // My Hand holds a range rather than a hand: "Standard Showdown Rules" is ticked and the box's text is
  // neither empty nor two cards (IsTwoCardText). The cook, Calc Equity, the icons and the picker follow.
  bool MyHandIsRange() const;
  // Colours My Hand as it is read: a range by RangeTextColours (its error, if any, in the rejected colour),
  // anything else by suit as ColourCodeRT does.
  void ColourMyHand();
  void txtMyHand_KeyDown(int keyCode);
  void txtBoard_KeyDown(int keyCode);
  // A click in the box opens the picker for My Hand, except while the box holds a range (the user is
  // editing its text then).
  void txtMyHand_Click();
  // The label always opens the picker for My Hand; with a range in the box it starts with no card chosen,
  // and its OK puts the two cards picked in place of the range.
  void lblMyHand_Click();
  void txtBoard_Click();  // also lblBoardCards_Click: opens the picker for the Board
  // The user changed the box's text (`text` and `charColours` already hold it). While the picker is open
  // for that box it follows the text: its chosen cells become the box's cards, so that its OK writes what
  // was typed last rather than what the box held when the picker opened.
  void txtMyHand_Change();
  void txtBoard_Change();
  // The picker's OK wrote its text: put it into the target box and colour it (called by SelCardsModel).
  void WritePickedCards(bool targetMyHand, const std::string& text);
  void picSuit_Click(int index);

  // ---- results tree, export, tree actions (form1_results.cpp) ----
  // Builds the results tree from the last cook with the menu's options and the cards as they read now.
  void BuildResultsTree();
  void mnuCopyToClipboard_Click();
  void TV_MouseUp(int button);
  void TV_KeyUp(int keyCode);
  void mnuAdd2Range_Click();
  void tmrTVError_Timer();
  // "Check Boxes": toggles the tick; every check goes with it.
  void mnuCheckBoxes_Click();
  // The user checked or unchecked a node's box (nothing for a node without one).
  void TV_NodeCheck(int node, bool checked);
  // "Keep Only Checked": the On layer becomes exactly the holdings under the checked nodes (a checked
  // category takes its sub-categories' holdings too, and a holding under two checked nodes counts once);
  // the Seen layer stays. The grid is refreshed as "Add to Range" refreshes it, and the cook runs again.
  // With nothing checked it says so and changes nothing.
  void mnuKeepOnlyChecked_Click();

  // ---- undo and redo of the range (form1_undo.cpp) ----
  // Every change of the On or Seen layer, and every change of the current profile, is a step that Ctrl+Z
  // takes back and Ctrl+Shift+Z (or Ctrl+Y) makes again, up to kRangeHistoryDepth steps back. Taking a step
  // back restores both layers record for record, with the range text and the slider of that moment, drops
  // the selection and runs the grid's refresh chain; a step back over a profile selection selects the
  // profile that was current before, with its layers as they were. A new change drops the steps that could
  // be made again. Deleting a profile starts the history anew.
  // The window's keys: Ctrl+Z undoes, Ctrl+Shift+Z and Ctrl+Y redo; other keys do nothing here.
  void Form_KeyDown(int keyCode, int shift);
  // False when there was nothing to take back (or make again).
  bool UndoRangeChange();
  bool RedoRangeChange();
  // The mouse let go of the slider: a drag is one step, the next move starts another.
  void Slider1_MouseUp(int button, int shift);
  // No steps, and the range as it is now is where the next change starts from (its range text and slider
  // place are what a step back to it restores): after start-up and after a profile is deleted.
  void StartRangeHistory();

  // Opened at the start of every handler that can change a layer or the current profile. When the
  // outermost one closes and the range is not what it was when it opened, the range as it was becomes an
  // undo step. A slider move (`sliderMove`) adds to the step of the drag it belongs to.
  class RangeStep {
   public:
    explicit RangeStep(Form1Model& form, bool sliderMove = false);
    ~RangeStep();
    RangeStep(const RangeStep&) = delete;
    RangeStep& operator=(const RangeStep&) = delete;

   private:
    Form1Model& form_;
    bool outermost_;
    bool sliderMove_;
    std::optional<RangeSnapshot> before_;
  };

 private:
  // The range now: the current profile's layers, or the last state with one while none is current. With
  // `asLastChangeLeftIt`, the range text and slider place are those the last change left while the layers
  // are still its own (not a percentage typed since but not entered).
  std::optional<RangeSnapshot> CurrentRangeSnapshot(bool asLastChangeLeftIt) const;
  // Puts a step's range back and refreshes the grid; false when its profile is no longer there.
  bool RestoreRangeSnapshot(const RangeSnapshot& snapshot);

 public:
  // ---- profiles (form1_model.cpp) ----
  // Composes the profile and preferences paths from the program's folder.
  void ProfilePaths(const std::filesystem::path& programFolder);

 private:
  // The text SavePreferences keeps of a card box: all of it, or its first `longest` characters and a word
  // to the user (`box` names it: "My Hand", "The Board").
  std::string SavedCardText(const std::string& text, std::size_t longest, std::string_view box);
  // Makes the profile that cmbPlayer's text names (exactly) the current one and shows its range, with Save
  // or Delete to match; false when no profile has that name.
  bool SelectProfileByName();

 public:
  // ---- preferences (form1_preferences.cpp) ----
  // Writes the records; a My Hand or Board text longer than the file keeps is cut, and the user is told.
  // Waits for the folder's lock as the profiles' save does; false when the user chose Cancel.
  bool SavePreferences();
  void LoadPreferences();
  // The part of LoadPreferences after the file is read: applies its lines in order.
  void ApplyPreferences(const std::vector<PreferenceLine>& lines);

  // ---- main window, menus and options (form1_window.cpp) ----
  static void ToggleMenuCheck(bool& tick) { tick = !tick; }
  void cmbPlayer_Click();
  void cmbPlayer_KeyUp(int keyCode);
  void lblSave_Click();
  void lblDelete_Click();
  void lblOptions_Click();
  void lblHelp_Click();
  void lblWebsite_Click();
  void Form_Resize();
  void mnuSwitchColourScheme_Click();
  void mnuSimplifyOutput_Click();
  void mnuSimplifyFurther_Click();
  void mnuHideEmptyCats_Click();
  void mnuEquityPerCategory_Click();
  void mnuEquityHeatMap_Click();
  void mnuCategoryIcons_Click();
  void mnuWinLoseIcons_Click();
  // "Multiway Equity..." (and Ctrl+M): opens the multiway window (multiway_model.cpp).
  void mnuMultiwayEquity_Click();
  // "Boards Report..." (and Ctrl+B): opens the boards report window (boards_report_model.cpp).
  void mnuBoardsReport_Click();

  // ---- tooltips (form1_tooltips.cpp): what the window shows while the pointer rests on a control ----
  // My Hand: empty, except while its text would be read as a range if "Standard Showdown Rules" were
  // ticked (it is not): then it says so.
  std::string MyHandToolTip() const;

  // ---- state ----
  WindowServices& services;

  RichTextState txtMyHand;
  RichTextState txtBoard;

  std::array<LabelState, kCommandLabelCount> commandLabels{};
  LabelState& label(CommandLabel which) { return commandLabels[static_cast<int>(which)]; }
  const LabelState& label(CommandLabel which) const { return commandLabels[static_cast<int>(which)]; }
  std::optional<CommandLabel> highlightedLabel;

  ColourScheme scheme = kDefaultColourScheme;
  bool colourSchemeDefault = true;
  std::string mnuSwitchColourSchemeCaption = "Switch to New Colour Scheme";
  MenuOptions options;

  TimerState tmrSliderMoving{10};
  TimerState tmrCalcEquity{1};

  SelCardsModel frmSelCards{this};
  bool selCardsAutoOK = false;    // application-wide "Auto: OK on final click"
  bool selCardsAutoCook = false;  // application-wide "Auto: Cook on OK"

  MultiwayModel frmMultiway{this, services};
  BoardsReportModel frmBoardsReport{this, services};

  WindowGeometry geometry;

  RangeHistory rangeHistory;

  std::filesystem::path preferencesPath;

 private:
  ProfilesModel profiles_{services};
  ResultsModel results_{options};
  GridModel grid_{profiles_, scheme, results_.heatMap};
};

}  // namespace quillet
