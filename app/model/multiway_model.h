// The "Multiway Equity" window (frmMultiway) as a toolkit-free model: one text box per player (a hand or
// a range in notation, 2 to 10 players), the board, Calculate and Stop, a progress bar and a results
// table that can be copied as text. The calculation (MultiwayEquity) runs on a worker thread of the
// model's own; the window polls it with tmrProgress_Timer, so the window never waits for it and Stop is
// answered at once: the stopped run is left to end by itself and nothing of it is shown.
//
// The window keeps its place and last inputs in the preferences file as records of their own
// ("MultiwayWindow", "MultiwayPlayer1".."MultiwayPlayer10", "MultiwayBoard"), written only once the window
// has been opened (or when the file already held them), so that the file of a user who never opens it
// stays as it was.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/model/window_services.h"
#include "app/model/worker_runs.h"
#include "equity/multiway_equity.h"
#include "range/colour.h"

namespace quillet {

class Form1Model;
struct PreferenceRecord;  // storage/preferences_file.h

inline constexpr int kMultiwayStartPlayers = 3;
// The least and most rows (the core's limits).
inline constexpr int kMultiwayFewestRows = 2;
inline constexpr int kMultiwayMostRows = 10;
// The progress bar runs from 0 to this.
inline constexpr int kMultiwayProgressMax = 1000;
// Esc, as the window's handlers receive it (Enter is kKeyEnter).
inline constexpr int kKeyEscape = 27;
// How often the window looks at a running calculation, in milliseconds.
inline constexpr int kMultiwayPollMs = 50;

// One text box of the window: its text and a colour per byte (as the main window's card boxes).
struct MultiwayBox {
  std::string text;
  std::vector<Colour> charColours;
};

// One line of the results table, as it shows.
struct MultiwayTableRow {
  std::string player;      // "Player 1"
  std::string text;        // the player's hand or range as it was calculated
  std::string equity;      // "52.34% exact" or "52.34% ± 0.08"
  std::string win;         // "50.12%"
  std::string tie;         // "4.44%"
  std::string liveCombos;  // "1", "12.5"

  friend bool operator==(const MultiwayTableRow&, const MultiwayTableRow&) = default;
};

// Where the window is on the screen, in pixels: its frame's top left and its inside's size.
struct MultiwayPlace {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

class MultiwayModel {
 public:
  MultiwayModel(Form1Model* ownerForm, WindowServices& windowServices);
  // A run still going is stopped and waited for.
  ~MultiwayModel();
  MultiwayModel(const MultiwayModel&) = delete;
  MultiwayModel& operator=(const MultiwayModel&) = delete;

  // ---- the window ----
  // Opens the window (the main window's "Multiway Equity..." and Ctrl+M). The first opening of a session
  // shows the inputs the preferences kept, or, when they kept none, starts as cmdFromMainWindow_Click does
  // with kMultiwayStartPlayers rows. Opening it again shows it as it was left.
  void Form_Open();
  // The window closes (its close box, Esc): a run still going is stopped.
  void Form_Unload();
  // A key on the window: Enter calculates, Esc closes; other keys do nothing here.
  void Form_KeyDown(int keyCode);
  // The window moved or was resized.
  void Form_Moved(const MultiwayPlace& where);

  // ---- the rows ----
  // Row 1 takes My Hand, row 2 the opponent's range (the current profile's On layer in notation, with its
  // weights), the board the main window's Board; the other rows are left as they are.
  void cmdFromMainWindow_Click();
  // A new empty row at the end, up to kMultiwayMostRows.
  void cmdAddPlayer_Click();
  // Takes row `row` (from 0) away, down to kMultiwayFewestRows.
  void cmdRemovePlayer_Click(int row);
  // The user changed a box's text (`text` already holds it): it is coloured again.
  void txtPlayer_Change(int row);
  void txtBoard_Change();

  // ---- the calculation ----
  // Checks every box, the players first, then the board; the first fault is shown in a message box that
  // names it (the bad box's faulty token turns red) and nothing runs. Otherwise the results table is
  // cleared and the calculation starts (exact when it fits the core's budget, else Monte Carlo).
  void cmdCalculate_Click();
  // Stops the run at once: the progress bar empties, the status says so, no results are shown.
  void cmdStop_Click();
  // The results table as text to the clipboard (nothing while it is empty).
  void cmdCopy_Click();
  // Looks at the run: its progress, and when it has ended its results (or the core's refusal, in a message
  // box). The window calls it every kMultiwayPollMs while Running().
  void tmrProgress_Timer();
  bool Running() const { return runs_.Running(); }
  // Stopped runs whose threads have not ended yet (each tmrProgress_Timer forgets those that have).
  std::size_t RunsWindingDown() const { return runs_.WindingDown(); }

  // The results table as the clipboard gets it: a title line with the board, a heading, one line per
  // player, and a line on how it was counted; tab-separated, each line ending in CR LF. Empty while the
  // table is.
  std::string CopyText() const;

  // What a control shows while the pointer rests on it ("txtPlayer", "txtBoard", "cmdCalculate", ...).
  static std::string ToolTip(std::string_view control);

  // ---- preferences ----
  // The records the window keeps; none while it was never used.
  std::vector<PreferenceRecord> PreferenceRecords() const;
  // Takes a record of the window's (true), or says the key is not one (false).
  bool ApplyPreference(const std::string& key, const std::string& value);

  // ---- state ----
  Form1Model* owner;         // the main window the rows start from
  WindowServices* services;  // message boxes and the clipboard (the window may give its own)
  bool visible = false;
  bool used = false;          // opened this session, or its records were read: the records are written
  bool openedBefore = false;  // opened earlier in this session
  std::vector<MultiwayBox> txtPlayer;
  MultiwayBox txtBoard;
  int progressValue = 0;  // 0..kMultiwayProgressMax
  std::string lblStatus;
  std::vector<MultiwayTableRow> results;
  std::string resultsBoard;   // the board the results were counted on, as typed
  std::string resultsMethod;  // "Exact: 1070190 deals" or "Monte Carlo: ... standard error 0.08 points"
  std::optional<MultiwayPlace> place;
  // How the core counts: the automatic choice, its target error and time limit, every core.
  MultiwayOptions options;

  // The inputs the preferences kept, until the first opening shows them.
  std::vector<std::optional<std::string>> savedPlayers;
  std::optional<std::string> savedBoard;

  struct Run;  // a calculation on its worker thread

 private:
  void ColourPlayer(int row);
  void ColourBoard();
  // The run has ended: its results (or the core's refusal) are shown.
  void EndRun(const Run& run);

  WorkerRuns<Run> runs_;
};

}  // namespace quillet
