// The "Boards Report" window (frmBoardsReport): what the report was run on, Run, Stop, a progress bar and
// a status line; the filter's check boxes; the table of rows (sorted by a click on a heading) beside the
// chart; the aggregate line; Copy and Export CSV. It draws the boards report model
// (app/model/boards_report_model.h) and forwards every event to its handlers; while the report runs a
// timer looks at it every kBoardsPollMs, so the worker threads never touch a widget.
#pragma once

#include <QAbstractTableModel>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QWidget>
#include <array>
#include <functional>

#include "app/gui/qt_services.h"
#include "app/model/boards_report_model.h"

namespace quillet::gui {

// The table's rows as the model shows them, read when painted (a report holds up to 22,100 rows).
class BoardsTableModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit BoardsTableModel(BoardsReportModel& model, QObject* parent)
      : QAbstractTableModel(parent), model_(model) {}
  int rowCount(const QModelIndex& parent) const override;
  int columnCount(const QModelIndex& parent) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  // The rows shown changed: the view reads them again.
  void Reset() {
    beginResetModel();
    endResetModel();
  }

 private:
  BoardsReportModel& model_;
};

// The chart: a histogram of my equity over the flops kept, or the 13 x 4 grid of turn or river cards
// coloured by my equity, each cell's value in its tooltip.
class BoardsChart : public QWidget {
  Q_OBJECT

 public:
  BoardsChart(BoardsReportModel& model, QWidget* parent);
  // The cell of the card grid under a point, -1 when none (cells counted as CardGrid gives them).
  int CellAt(QPoint point) const;
  QRect CellRect(int cell) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void PaintHistogram(class QPainter& painter);
  void PaintGrid(class QPainter& painter);
  BoardsReportModel& model_;
};

class BoardsReportWindow : public QWidget {
  Q_OBJECT

 public:
  // `mainWindow` is the window it opens beside (and its parent); `mainRefresh` shows the main window's
  // model again after a double click has cooked a board there.
  BoardsReportWindow(BoardsReportModel& model, QtWindowServices& services, QWidget* mainWindow,
                     std::function<void()> mainRefresh);

  void Act(const std::function<void()>& handler);
  void Refresh();
  // Shows the window the model has opened, beside the main window the first time, and brings it up.
  void Open();

  QPushButton* cmdRun() const { return run_; }
  QPushButton* cmdStop() const { return stop_; }
  QPushButton* cmdCopy() const { return copy_; }
  QPushButton* cmdExportCsv() const { return export_; }
  QCheckBox* chkFilter(BoardsCheck check) const { return checks_[static_cast<int>(check)]; }
  QComboBox* cmbHighCard() const { return highCard_; }
  QProgressBar* prgProgress() const { return progress_; }
  QLabel* lblStatus() const { return status_; }
  QLabel* lblAggregate() const { return aggregate_; }
  QTableView* grdRows() const { return table_; }
  BoardsChart* picChart() const { return chart_; }
  QTimer* tmrProgress() { return &timer_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void KeepPlace();

  BoardsReportModel& model_;
  QtWindowServices& services_;
  QWidget* mainWindow_;
  std::function<void()> mainRefresh_;
  QLabel* inputs_ = nullptr;
  QPushButton* run_ = nullptr;
  QPushButton* stop_ = nullptr;
  QPushButton* copy_ = nullptr;
  QPushButton* export_ = nullptr;
  std::array<QCheckBox*, kBoardsCheckCount> checks_{};
  QComboBox* highCard_ = nullptr;
  QProgressBar* progress_ = nullptr;
  QLabel* status_ = nullptr;
  QLabel* aggregate_ = nullptr;
  QTableView* table_ = nullptr;
  BoardsTableModel* rows_ = nullptr;
  BoardsChart* chart_ = nullptr;
  QTimer timer_;
  uint64_t shownVersion_ = ~uint64_t{0};
  bool placed_ = false;
};

}  // namespace quillet::gui
