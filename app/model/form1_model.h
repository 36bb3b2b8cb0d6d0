// The main window as a toolkit-free model.
//
// Everything the main window keeps (the card boxes, the grid's selection, the profiles, the menu ticks,
// the equity read-outs, the results tree and the export text) lives here, and every event handler of the
// window is a member function named after its control and event (cmdCheckPossibleHands_Click,
// PFHand_MouseUp, txtRange_KeyUp, ...). The Qt window only draws this state and forwards events to these
// functions, so the whole program can be driven and checked without a screen. Message boxes, questions,
// the input box, the clipboard and the shell's "open" go through WindowServices.
//
// The handlers are implemented by subsystem, one file each: form1_model.cpp (start-up, shutdown, shared
// helpers), form1_cook.cpp, form1_equity.cpp, form1_grid.cpp, form1_range_text.cpp, form1_slider.cpp,
// form1_range_notation.cpp, form1_quick_select.cpp, form1_card_entry.cpp, form1_results.cpp,
// form1_profiles.cpp, form1_preferences.cpp, form1_window.cpp, form1_tooltips.cpp, form1_undo.cpp.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "app/model/boards_report_model.h"
#include "app/model/multiway_model.h"
#include "app/model/range_history.h"
#include "app/model/sel_cards_model.h"
#include "app/model/window_services.h"
#include "cards/card.h"
#include "cards/card_input.h"
#include "categorise/category_node.h"
#include "equity/class_equity.h"
#include "range/block_record.h"
#include "range/colour.h"
#include "range/colour_scheme.h"
#include "range/player_profile.h"
#include "results/results_tree.h"

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

// The resting background of the command labels (and of cmdCalcEquity between calculations).
inline constexpr Colour kOptionsBackColour = Rgb(0xD8, 0xE4, 0xF0);
// cmdCalcEquity's background while a calculation runs.
inline constexpr Colour kCalculatingBackColour = Rgb(255, 234, 168);

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
  // whose On holdings are all whole (or that has none), which shows exactly as a block did before weights.
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

  // ---- start-up and shutdown (form1_model.cpp) ----
  // Composes the file paths from `programFolder` and runs the start-up sequence. Returns false when the
  // program must end at once (the profile file's version question answered No): nothing is then saved.
  bool Form_Load(const std::filesystem::path& programFolder);
  // Saves profiles then preferences, forgets the highlighted label, closes the card picker. A save that
  // another program's lock keeps waiting asks Retry or Cancel; false when Cancel was chosen: the window must
  // then stay open, its changes kept (nothing after the cancelled save is done).
  bool Form_QueryUnload();
  // Fills names, captions, kinds and base colours of the 169 blocks from the current colour scheme.
  void InitHandGrid();
  // Shows the current profile: its name in cmbPlayer, its stored range text in txtRange, its layers on the
  // grid (SetBlockColours), lblDelete shown and lblSave hidden. An empty range text stays empty. With no
  // profile current only the two labels follow.
  void ShowCurrentProfile();
  // The current profile, or nullptr when none is selected.
  PlayerProfile* currentProfile();
  const PlayerProfile* currentProfile() const;

  // ---- cook (form1_cook.cpp) ----
  void cmdCheckPossibleHands_Click();

 private:
  // The preflop matchup tables; false (after telling the user why) when they cannot be loaded.
  bool LoadLookupTables();
  // Empties the two equity read-outs (captions, tooltips, colour) and forgets the heat map.
  void ClearEquityDisplay();
  // The window's reading of My Hand and the Board: the card layer's check and parse run on the two text
  // boxes, their messages shown as message boxes. The results tree's icons read the cards with this.
  bool ReadCardInputs(HandCards& hand, BoardCards& board, int32_t& street);
  // The cook's and the equity command's reading: the core's CheckCardInputs on the two boxes, which get
  // their normalised texts back (coloured by suit again once they parsed); every message of a refusal is
  // shown as a message box.
  CardInputs ReadCardBoxes(CardsFor use);
  // The holdings of the current profile's range (empty with no profile selected, which is no error).
  std::vector<HandCombo> CurrentRangeCombos() const;
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
  void DeselectAllBlocks();
  void SetBlockColours();
  void PFHand_MouseUp(int index, int button, int shift);
  void SelectCross(int index);
  void SelectUpward(int index);
  void RefreshSuitMatrix(bool scan);
  // The weight box ("Weight:") took a new value, in thousandths: the weight that grid clicks, suit-cell
  // clicks, the quick-select commands and notation pasted without weights give the holdings they put into
  // the On layer. A value outside 1..kFullWeight is brought inside (the box cannot hold 0: taking a
  // holding out is what a second click does). The Seen layer is unweighted: the box leaves it alone.
  void txtWeight_Change(int32_t thousandths);
  // Gives the On-layer holdings of block `index` the weight box's weight.
  void PaintBlockWeight(PlayerProfile& profile, int index);
  // Puts block `i` into the On selection and its On record in whole at the weight box's weight, as a left
  // click does.
  void SelectIntoOnLayer(PlayerProfile& profile, int i);
  // Gives one On-layer holding (by the block's suit pair) the weight box's weight.
  void PaintHoldingWeight(PlayerProfile& profile, int index, int32_t suit1, int32_t suit2);
  // The mean weights the grid and the suit matrix show (blockPartWeight, matrixCellPartWeight).
  void RefreshShownWeights();

  // ---- range text box (form1_range_text.cpp) ----
  void txtRange_KeyUp(int keyCode);
  // Sets the box's text (typed or from the program) and runs txtRange_Change.
  void SetRangeText(const std::string& text);
  void txtRange_Change();
  void txtRange_Click();
  void WriteRangePercent();

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
  // The On layer's notation into the box, in the normal colour (empty with no profile current).
  void WriteRangeNotation();
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
  void BuildResultsTree();
  void mnuCopyToClipboard_Click();
  void TV_MouseUp(int button);
  void TV_KeyUp(int keyCode);
  void mnuAdd2Range_Click();
  void FlashTreeError();
  void tmrTVError_Timer();
  // "Check Boxes": toggles the tick; every check goes with it.
  void mnuCheckBoxes_Click();
  // Whether the node shows a check box: "Check Boxes" ticked, and a category or group node.
  bool TVNodeCheckable(int node) const;
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
  // ---- profiles (form1_profiles.cpp) ----
  void ProfilePaths(const std::filesystem::path& programFolder);
  // False when the version question was answered No (end the program at once).
  bool LoadProfiles();
  // Writes the profiles under the folder's lock, waiting with the window alive (services.Wait); false when
  // the lock could not be had and the user chose Cancel. Other failures are reported and give true.
  bool SaveProfiles();
  int AddProfile(const std::string& name);
  int FirstProfileIndex();
  void RefillPlayerList(const std::string& name);

 private:
  // The list SaveProfiles writes: this session's profiles, with what another program changed in the file
  // since it was loaded (see MergeProfileLists).
  std::vector<PlayerProfile> ProfilesToSave();
  // Keeps a file that cannot be read as ".bad" (see KeepFileAside) before the session's save can overwrite
  // it; the sentence for the message that reports the fault: where the file was kept, or why it could not be.
  std::string KeepUnreadableFileAside(const std::filesystem::path& path, const std::string* bytes);
  // Asks whether a save that another program's lock kept waiting is to be tried again (`fault` says why it
  // failed and who holds the lock when that is known); true for Retry.
  bool AskToRetryLockedSave(const std::string& fault);
  // The text SavePreferences keeps of a card box: all of it, or its first `longest` characters and a word
  // to the user (`box` names it: "My Hand", "The Board").
  std::string SavedCardText(const std::string& text, std::size_t longest, std::string_view box);
  // Makes the profile that cmbPlayer's text names (exactly) the current one and shows its range, with Save
  // or Delete to match; false when no profile has that name.
  bool SelectProfileByName();

 public:
  // ---- preferences (form1_preferences.cpp) ----
  // Writes the records; a My Hand or Board text longer than the file keeps is cut, and the user is told.
  // Waits for the folder's lock as SaveProfiles does; false when the user chose Cancel.
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
  // A grid block: its class and how many of its holdings the On and Seen layers hold ("AKs: 4 of 4 in
  // range"), with the mean weight of the On holdings when it is below 1 ("AQs: 4 of 4 in range at 50 %";
  // "at 37.5 % on average" when their weights differ).
  std::string BlockToolTip(int index) const;
  // What block `index` shows: its heat-map colour while the heat map has an equity for it, else its
  // block colour (form1_grid.cpp).
  Colour ShownBlockColour(int index) const;
  // A suit-matrix cell: its suit pair and what a click on it does to the selected blocks.
  std::string SuitCellToolTip(int cell) const;
  // An equity read-out (My Equity when `mine`, else Opp Equity): what it measures and, after a
  // calculation, the unrounded value and how it was found; under this program's own showdown rules also
  // those rules and where the standard ones are ticked.
  std::string EquityToolTip(bool mine) const;
  // My Hand: empty, except while its text would be read as a range if "Standard Showdown Rules" were
  // ticked (it is not): then it says so.
  std::string MyHandToolTip() const;
  // A node of the results tree: for a category node the category's meaning in plain words; empty for the
  // holdings and groups, whose captions say all.
  std::string TreeNodeToolTip(int node) const;

  // ---- state ----
  WindowServices& services;

  RichTextState txtMyHand;
  RichTextState txtBoard;
  TextBoxState txtRange;
  TextBoxState txtNotation;
  // The weight box ("Weight:" beside the Range box), in thousandths: 1..kFullWeight, whole at start.
  int32_t txtWeight = kFullWeight;
  std::string notationErrorShownFor;  // the refused text whose error was shown last (shown once)
  SliderState Slider1;
  ComboBoxState cmbPlayer;

  std::array<LabelState, kCommandLabelCount> commandLabels{};
  LabelState& label(CommandLabel which) { return commandLabels[static_cast<int>(which)]; }
  const LabelState& label(CommandLabel which) const { return commandLabels[static_cast<int>(which)]; }
  std::optional<CommandLabel> highlightedLabel;

  LabelState lblMyEquity;  // caption "57.3%", opaque and coloured after a calculation
  LabelState lbloppEquity;
  // ---- equity state (form1_equity.cpp): the unrounded values behind the last read-outs ----
  double myEquity = 0.0;
  double oppEquity = 0.0;
  int32_t equityStreet = kNoBoard;
  bool equityOfMyRange = false;  // the read-outs give my range's equity (a range in My Hand)
  // The heat map: My Hand's equity against each class of the range from the last Calc Equity while
  // "Equity Heat Map" was ticked; cleared with the read-outs and by unticking.
  std::optional<ClassEquities> heatMap;
  bool equityMenuOfMine = true;       // the read-out menu was opened on My Equity (else Opp Equity)
  std::string lblCheckPossibleHands;  // the cook's three-line caption
  bool lblSeenVisible = false;

  GridState grid;
  ColourScheme scheme = kDefaultColourScheme;
  bool colourSchemeDefault = true;
  std::string mnuSwitchColourSchemeCaption = "Switch to New Colour Scheme";
  MenuOptions options;

  std::vector<PlayerProfile> profiles;
  int currentProfileIndex = -1;
  // The profiles as LoadProfiles read them (empty when there was no file or nothing could be read); none
  // before the file is loaded. The save compares with it what another program changed in the file meanwhile.
  std::optional<std::vector<PlayerProfile>> profilesAsLoaded;

  Categories categories;  // the last cook's result
  // ---- cook state (form1_cook.cpp): the last cook's counts, set with the caption ----
  int32_t cookRangeCount = 0;  // holdings taken from the grid
  int32_t cookLiveCount = 0;   // of those, the ones that use no card of My Hand or the Board
  ResultsTree TV;
  // Which nodes of TV are checked (by flat index), while "Check Boxes" is ticked; every rebuild of the
  // tree clears them.
  std::vector<bool> tvChecked;
  int tvMousePointer = 0;  // 0 default, 99 the custom "error" pointer
  std::string exportText;

  TimerState tmrSliderMoving{10};
  TimerState tmrCalcEquity{1};
  TimerState tmrTVError{550};

  SelCardsModel frmSelCards{this};
  bool selCardsAutoOK = false;    // application-wide "Auto: OK on final click"
  bool selCardsAutoCook = false;  // application-wide "Auto: Cook on OK"

  MultiwayModel frmMultiway{this, services};
  BoardsReportModel frmBoardsReport{this, services};

  WindowGeometry geometry;

  RangeHistory rangeHistory;

  std::filesystem::path profilePath;
  std::filesystem::path preferencesPath;
  // How long a save waits for another program that is writing in the same folder before it gives up.
  std::chrono::milliseconds writeLockWait{10000};
};

}  // namespace quillet
