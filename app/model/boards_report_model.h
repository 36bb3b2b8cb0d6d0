// The "Boards Report" window (frmBoardsReport) as a toolkit-free model: my hand (or my range) against the
// opponent's range on every board the next street can bring (reports/boards_report.h), one table row per
// board, sortable by each column; check boxes for the texture filter's words; the aggregate of the rows
// kept; a chart of the rows kept (a histogram of my equity over the flops, or for turn and river cards a
// 13 x 4 grid of the cards coloured by my equity); Copy (tab-separated) and Export CSV (the columns of
// quillet-cli boards --csv). A double click on a row puts its board in the main window's Board Cards and
// cooks. The report runs on a worker thread of the model's own; the window polls it with
// tmrProgress_Timer, so it stays responsive and Stop is answered at once.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/model/window_services.h"
#include "app/model/worker_runs.h"
#include "range/colour.h"
#include "reports/boards_report.h"

namespace quillet {

class Form1Model;
struct PreferenceRecord;  // storage/preferences_file.h

// The progress bar runs from 0 to this.
inline constexpr int kBoardsProgressMax = 1000;
// How often the window looks at a running report, in milliseconds.
inline constexpr int kBoardsPollMs = 50;
// The histogram's bars: my equity from 0 to 100 in steps of 100 / kBoardsHistogramBins.
inline constexpr int kBoardsHistogramBins = 20;

// The table's columns, in order.
enum class BoardsColumn { Board, Weight, Equity, Win, Tie, Showdowns, Holdings, FirstGroup };
inline constexpr int kBoardsColumnCount = static_cast<int>(BoardsColumn::FirstGroup) + kRangeGroupCount;

// The filter's check boxes, in the order the window shows them.
enum class BoardsCheck { Monotone, TwoTone, Rainbow, Unpaired, Paired, Trips, Connected, Unconnected };
inline constexpr int kBoardsCheckCount = 8;

// The chart the rows kept give.
enum class BoardsChartKind { None, Histogram, CardGrid };

// One cell of the card grid: a card of the row street, its equity when a row kept holds it.
struct BoardsGridCell {
  Card card{};
  std::optional<double> equity;
  Colour colour = 0;
  std::string toolTip;  // "Qh: 63.41%", or "Qh: no row" when no row kept holds it
};

// Where the window is on the screen, in pixels: its frame's top left and its inside's size.
struct BoardsReportPlace {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

class BoardsReportModel {
 public:
  BoardsReportModel(Form1Model* ownerForm, WindowServices& windowServices);
  // A report still running is stopped and waited for.
  ~BoardsReportModel();
  BoardsReportModel(const BoardsReportModel&) = delete;
  BoardsReportModel& operator=(const BoardsReportModel&) = delete;

  // ---- the window ----
  // Opens the window (the main window's "Boards Report..." and Ctrl+B) and runs the report from the main
  // window as cmdRun_Click does; opened again while it shows, it only comes to the front.
  void Form_Open();
  // The window closes (its close box, Esc): a report still running is stopped.
  void Form_Unload();
  // The window moved or was resized.
  void Form_Moved(const BoardsReportPlace& where) { place = where; }

  // ---- the report ----
  // Takes My Hand (two cards, or my range in notation), the current profile's range (with its weights) and
  // the Board Cards from the main window and starts the report. A fault (no hand, a bad board, a complete
  // board, no range) is shown in a message box and nothing runs.
  void cmdRun_Click();
  // Stops the report at once: the progress bar empties, the status says so, the table is left empty.
  void cmdStop_Click();
  // Looks at the report: its progress, and once it has ended its rows. Called every kBoardsPollMs.
  void tmrProgress_Timer();
  bool Running() const { return runs_.Running(); }

  // ---- the filter, the table and the chart ----
  // A filter check box was clicked: its word is added to the filter or taken out of it.
  void chkFilter_Click(BoardsCheck check);
  void chkMonotone_Click() { chkFilter_Click(BoardsCheck::Monotone); }
  void chkTwoTone_Click() { chkFilter_Click(BoardsCheck::TwoTone); }
  void chkRainbow_Click() { chkFilter_Click(BoardsCheck::Rainbow); }
  void chkUnpaired_Click() { chkFilter_Click(BoardsCheck::Unpaired); }
  void chkPaired_Click() { chkFilter_Click(BoardsCheck::Paired); }
  void chkTrips_Click() { chkFilter_Click(BoardsCheck::Trips); }
  void chkConnected_Click() { chkFilter_Click(BoardsCheck::Connected); }
  void chkUnconnected_Click() { chkFilter_Click(BoardsCheck::Unconnected); }
  // The "High card" box: keep the boards whose highest rank is `rank` (2 to 14), or every board (0).
  void cmbHighCard_Click(int rank);
  // A column heading was clicked: the table is sorted by it, highest first for the numbers and in the
  // report's order for the board; the same heading again turns the order round.
  void grdRows_HeaderClick(int column);
  // A row of the table (counted as the table shows them) was double-clicked: its board goes into the main
  // window's Board Cards and the main window cooks.
  void grdRows_DblClick(int shownRow);
  // The table as tab-separated text to the clipboard (nothing while it is empty).
  void cmdCopy_Click();
  // Asks where to save, then writes the rows kept, in the table's order, as CSV.
  void cmdExportCsv_Click();

  // The rows kept by the filter, as indices into report.rows, in the table's order.
  const std::vector<int32_t>& ShownRows() const { return shown_; }
  // The text of a cell of a shown row (column as BoardsColumn, the groups after it).
  std::string CellText(int shownRow, int column) const;
  static std::string ColumnTitle(int column);
  // "Aggregate: 57.123456% over 123 rows (4,512 flops), ..."; empty while there is no report.
  std::string AggregateText() const;
  // The aggregate of the rows kept.
  BoardsAggregate Aggregate() const;
  // The current equity: the chart's midpoint (the board so far, or the aggregate of every row).
  std::optional<double> MidpointEquity() const;
  BoardsChartKind ChartKind() const;
  // The histogram: the boards (rows' weights) kept whose equity falls in each bar (100% in the last).
  std::array<double, kBoardsHistogramBins> Histogram() const;
  // The card grid: 13 rows of ranks (ace first) by 4 suits (spades, hearts, diamonds, clubs).
  std::vector<BoardsGridCell> CardGrid() const;
  // The colour of an equity against the midpoint: red at 0, white-ish yellow at the midpoint, green at 100.
  static Colour EquityColour(double equity, double midpoint);

  // The table as the clipboard gets it: a heading line and one line per shown row, tab-separated, then the
  // aggregate line; each line ending in CR LF. Empty while the table is.
  std::string CopyText() const;
  // The CSV the export writes (the same as quillet-cli boards --csv for the same rows).
  std::string CsvText() const;

  // ---- preferences ----
  // The window's place as a record of its own ("BoardsReportWindow"), only once the window has been opened
  // (or the file already held it), so that the file of a user who never opens it stays as it was.
  std::vector<PreferenceRecord> PreferenceRecords() const;
  // Takes a record of the window's (true), or says the key is not one (false).
  bool ApplyPreference(const std::string& key, const std::string& value);

  // What a control shows while the pointer rests on it.
  static std::string ToolTip(std::string_view control);
  static std::string_view CheckCaption(BoardsCheck check);

  // ---- state ----
  Form1Model* owner;
  WindowServices* services;
  bool visible = false;
  bool used = false;  // opened this session, or its record was read: the record is written
  std::optional<BoardsReportPlace> place;
  std::array<bool, kBoardsCheckCount> chkFilter{};  // ticked check boxes
  int cmbHighCard = 0;                              // the highest rank kept, 0: any
  int sortColumn = -1;                              // -1: the report's order
  bool sortDescending = true;
  int progressValue = 0;  // 0..kBoardsProgressMax
  std::string lblStatus;
  std::string lblInputs;  // "AhKd v QQ+, AKs on Tc8h3s", what the report was run on
  std::optional<BoardsReport> report;
  uint64_t tableVersion = 0;  // counts every change of the rows shown or their order

  struct Run;

 private:
  BoardFilter Filter() const;
  void Reshow();
  // The run has ended: its report (or the core's refusal) is shown.
  void EndRun(Run& run);

  std::vector<int32_t> shown_;
  WorkerRuns<Run> runs_;
};

}  // namespace quillet
