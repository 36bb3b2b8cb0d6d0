// The "Multiway Equity" window (frmMultiway): a text box per player with its remove button, Add Player,
// From Main Window, the board, Calculate, Stop, a progress bar, a status line, the results table and Copy.
// It draws the multiway model (app/model/multiway_model.h) and forwards every event to its handlers; while a
// calculation runs a timer looks at it every kMultiwayPollMs, so the worker thread never touches a widget.
#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <vector>

#include "app/gui/card_text_box.h"
#include "app/gui/qt_services.h"
#include "app/model/multiway_model.h"

class QGridLayout;

namespace quillet::gui {

class MultiwayWindow : public QWidget {
  Q_OBJECT

 public:
  // `mainWindow` is the window it opens beside (and its parent: it closes with it).
  MultiwayWindow(MultiwayModel& model, QtWindowServices& services, QWidget* mainWindow);

  // Runs a handler of the model, then shows the model's state. Message boxes open over this window.
  void Act(const std::function<void()>& handler);
  // Shows the model's state in every control, and starts or stops the progress timer.
  void Refresh();
  // Shows the window the model has opened (the main window's menu entry and Ctrl+M) and brings it to the
  // front: beside the main window the first time, or where the preferences kept it.
  void Open();

  // The controls, by their names.
  CardTextBox* txtPlayer(int row) const { return rows_[static_cast<std::size_t>(row)].box; }
  QPushButton* cmdRemovePlayer(int row) const { return rows_[static_cast<std::size_t>(row)].remove; }
  int rowCount() const { return static_cast<int>(rows_.size()); }
  CardTextBox* txtBoard() const { return board_; }
  QPushButton* cmdAddPlayer() const { return addPlayer_; }
  QPushButton* cmdFromMainWindow() const { return fromMain_; }
  QPushButton* cmdCalculate() const { return calculate_; }
  QPushButton* cmdStop() const { return stop_; }
  QPushButton* cmdCopy() const { return copy_; }
  QProgressBar* prgProgress() const { return progress_; }
  QLabel* lblStatus() const { return status_; }
  QTableWidget* grdResults() const { return table_; }
  QTimer* tmrProgress() { return &timer_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Row {
    QLabel* caption;
    CardTextBox* box;
    QPushButton* remove;
  };
  void ShowRows();
  void ShowTable();
  void ShowBox(CardTextBox* box, const MultiwayBox& state);
  void KeepPlace();
  void PlaceBesideMainWindow();
  void SetTabOrder();

  MultiwayModel& model_;
  QtWindowServices& services_;
  QWidget* mainWindow_;
  QGridLayout* rowsLayout_ = nullptr;
  std::vector<Row> rows_;
  CardTextBox* board_ = nullptr;
  QPushButton* addPlayer_ = nullptr;
  QPushButton* fromMain_ = nullptr;
  QPushButton* calculate_ = nullptr;
  QPushButton* stop_ = nullptr;
  QPushButton* copy_ = nullptr;
  QProgressBar* progress_ = nullptr;
  QLabel* status_ = nullptr;
  QTableWidget* table_ = nullptr;
  QTimer timer_;
  std::vector<MultiwayTableRow> shownResults_;
  bool placed_ = false;   // shown once in this session: it stays where the user left it
  bool showing_ = false;  // the window is writing its controls: their signals are not the user's
};

}  // namespace quillet::gui
