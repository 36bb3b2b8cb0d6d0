#include "app/gui/boards_report_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>

#include "app/gui/qt_convert.h"

namespace quillet::gui {
namespace {

constexpr int kBoardsFirstWidth = 780;
constexpr int kBoardsFirstHeight = 600;
constexpr int kBoardsGap = 8;
constexpr int kGridRanks = 13;
constexpr int kGridSuits = 4;

QString BoardsTip(const char* control) {
  return ToQString(BoardsReportModel::ToolTip(control));
}

QColor PlainQColor(Colour colour) {
  return QColor(static_cast<int>(RedOf(colour)), static_cast<int>(GreenOf(colour)),
                static_cast<int>(BlueOf(colour)));
}

}  // namespace

// ---- the table ----

int BoardsTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(model_.ShownRows().size());
}

int BoardsTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kBoardsColumnCount;
}

QVariant BoardsTableModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (role == Qt::DisplayRole) return ToQString(model_.CellText(index.row(), index.column()));
  if (role == Qt::TextAlignmentRole && index.column() != static_cast<int>(BoardsColumn::Board)) {
    return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
  }
  return {};
}

QVariant BoardsTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Horizontal && role == Qt::DisplayRole) {
    return ToQString(BoardsReportModel::ColumnTitle(section));
  }
  return QAbstractTableModel::headerData(section, orientation, role);
}

// ---- the chart ----

BoardsChart::BoardsChart(BoardsReportModel& model, QWidget* parent) : QWidget(parent), model_(model) {
  setObjectName(QStringLiteral("picChart"));
  setMinimumSize(260, 260);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

QRect BoardsChart::CellRect(int cell) const {
  const int side = std::max(4, std::min((width() - 20) / kGridSuits, (height() - 20) / kGridRanks));
  const int left = (width() - side * kGridSuits) / 2;
  const int top = (height() - side * kGridRanks) / 2;
  return QRect(left + (cell % kGridSuits) * side, top + (cell / kGridSuits) * side, side, side);
}

int BoardsChart::CellAt(QPoint point) const {
  if (model_.ChartKind() != BoardsChartKind::CardGrid) return -1;
  for (int cell = 0; cell < kGridRanks * kGridSuits; ++cell) {
    if (CellRect(cell).contains(point)) return cell;
  }
  return -1;
}

bool BoardsChart::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    auto* help = static_cast<QHelpEvent*>(event);
    const int cell = CellAt(help->pos());
    if (cell >= 0) {
      const std::vector<BoardsGridCell> cells = model_.CardGrid();
      QToolTip::showText(help->globalPos(), ToQString(cells[static_cast<std::size_t>(cell)].toolTip), this,
                         CellRect(cell));
    } else {
      QToolTip::showText(help->globalPos(), BoardsTip("picChart"), this);
    }
    return true;
  }
  return QWidget::event(event);
}

void BoardsChart::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().base());
  switch (model_.ChartKind()) {
    case BoardsChartKind::Histogram:
      PaintHistogram(painter);
      break;
    case BoardsChartKind::CardGrid:
      PaintGrid(painter);
      break;
    case BoardsChartKind::None:
      break;
  }
}

void BoardsChart::PaintHistogram(QPainter& painter) {
  const auto bins = model_.Histogram();
  const double most = *std::max_element(bins.begin(), bins.end());
  const QRect area = rect().adjusted(24, 24, -24, -30);
  const double midpoint = model_.MidpointEquity().value_or(50.0);
  painter.setPen(palette().text().color());
  painter.drawText(QRect(0, 2, width(), 20), Qt::AlignCenter, QStringLiteral("Flops by my equity"));
  const double barWidth = static_cast<double>(area.width()) / kBoardsHistogramBins;
  for (int b = 0; b < kBoardsHistogramBins; ++b) {
    if (most <= 0) break;
    const int barHeight = static_cast<int>(area.height() * bins[static_cast<std::size_t>(b)] / most + 0.5);
    const double centre = (b + 0.5) * 100.0 / kBoardsHistogramBins;
    const QRectF bar(area.left() + b * barWidth + 1, area.bottom() - barHeight + 1, barWidth - 2, barHeight);
    painter.fillRect(bar, PlainQColor(BoardsReportModel::EquityColour(centre, midpoint)));
    painter.setPen(palette().mid().color());
    painter.drawRect(bar);
  }
  painter.setPen(palette().text().color());
  painter.drawLine(area.bottomLeft(), area.bottomRight());
  for (int tick = 0; tick <= 100; tick += 25) {
    const int x = area.left() + static_cast<int>(area.width() * tick / 100.0);
    painter.drawLine(x, area.bottom(), x, area.bottom() + 4);
    painter.drawText(QRect(x - 20, area.bottom() + 6, 40, 18), Qt::AlignCenter,
                     QStringLiteral("%1%").arg(tick));
  }
  // The current equity, dashed.
  const int x = area.left() + static_cast<int>(area.width() * midpoint / 100.0);
  painter.setPen(QPen(palette().text().color(), 1, Qt::DashLine));
  painter.drawLine(x, area.top(), x, area.bottom());
}

void BoardsChart::PaintGrid(QPainter& painter) {
  const std::vector<BoardsGridCell> cells = model_.CardGrid();
  painter.setPen(palette().mid().color());
  for (int cell = 0; cell < static_cast<int>(cells.size()); ++cell) {
    const QRect box = CellRect(cell);
    painter.fillRect(box, PlainQColor(cells[static_cast<std::size_t>(cell)].colour));
    painter.setPen(palette().mid().color());
    painter.drawRect(box.adjusted(0, 0, -1, -1));
    painter.setPen(Qt::black);
    painter.drawText(box, Qt::AlignCenter, ToQString(CardToText(cells[static_cast<std::size_t>(cell)].card)));
  }
}

// ---- the window ----

BoardsReportWindow::BoardsReportWindow(BoardsReportModel& model, QtWindowServices& services,
                                       QWidget* mainWindow, std::function<void()> mainRefresh)
    : QWidget(mainWindow, Qt::Window),
      model_(model),
      services_(services),
      mainWindow_(mainWindow),
      mainRefresh_(std::move(mainRefresh)) {
  setObjectName(QStringLiteral("frmBoardsReport"));
  setWindowTitle(QStringLiteral("Boards Report"));
  if (mainWindow != nullptr) setFont(mainWindow->font());
  resize(kBoardsFirstWidth, kBoardsFirstHeight);

  auto* layout = new QVBoxLayout(this);
  inputs_ = new QLabel(this);
  inputs_->setObjectName(QStringLiteral("lblInputs"));
  inputs_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  layout->addWidget(inputs_);

  // "High card": any, then the ranks from the ace down (item i is rank 15 - i).
  auto* highCaption = new QLabel(QStringLiteral("High card:"), this);
  highCard_ = new QComboBox(this);
  highCard_->setObjectName(QStringLiteral("cmbHighCard"));
  highCard_->setToolTip(BoardsTip("cmbHighCard"));
  highCard_->addItem(QStringLiteral("Any"));
  for (int rank = 14; rank >= 2; --rank) highCard_->addItem(QString(QChar::fromLatin1(kRankText[rank - 1])));
  connect(highCard_, &QComboBox::activated, this,
          [this](int item) { Act([this, item] { model_.cmbHighCard_Click(item == 0 ? 0 : 15 - item); }); });
  auto* runLine = new QHBoxLayout();
  run_ = new QPushButton(QStringLiteral("Run"), this);
  run_->setObjectName(QStringLiteral("cmdRun"));
  run_->setToolTip(BoardsTip("cmdRun"));
  stop_ = new QPushButton(QStringLiteral("Stop"), this);
  stop_->setObjectName(QStringLiteral("cmdStop"));
  stop_->setToolTip(BoardsTip("cmdStop"));
  progress_ = new QProgressBar(this);
  progress_->setObjectName(QStringLiteral("prgProgress"));
  progress_->setToolTip(BoardsTip("prgProgress"));
  progress_->setRange(0, kBoardsProgressMax);
  progress_->setTextVisible(false);
  status_ = new QLabel(this);
  status_->setObjectName(QStringLiteral("lblStatus"));
  runLine->addWidget(run_);
  runLine->addWidget(stop_);
  runLine->addSpacing(8);
  runLine->addWidget(highCaption);
  runLine->addWidget(highCard_);
  runLine->addWidget(progress_, 1);
  runLine->addWidget(status_, 1);
  layout->addLayout(runLine);

  auto* checkLine = new QHBoxLayout();
  static constexpr const char* kCheckNames[kBoardsCheckCount] = {
      "chkMonotone", "chkTwoTone", "chkRainbow",   "chkUnpaired",
      "chkPaired",   "chkTrips",   "chkConnected", "chkUnconnected"};
  for (int c = 0; c < kBoardsCheckCount; ++c) {
    const auto check = static_cast<BoardsCheck>(c);
    auto* box = new QCheckBox(ToQString(std::string(BoardsReportModel::CheckCaption(check))), this);
    box->setObjectName(QString::fromLatin1(kCheckNames[c]));
    box->setToolTip(BoardsTip("chkFilter"));
    connect(box, &QCheckBox::clicked, this,
            [this, check] { Act([this, check] { model_.chkFilter_Click(check); }); });
    checks_[static_cast<std::size_t>(c)] = box;
    checkLine->addWidget(box);
  }
  checkLine->addStretch(1);
  layout->addLayout(checkLine);

  auto* splitter = new QSplitter(Qt::Horizontal, this);
  table_ = new QTableView(splitter);
  table_->setObjectName(QStringLiteral("grdRows"));
  table_->setToolTip(BoardsTip("grdRows"));
  rows_ = new BoardsTableModel(model_, this);
  table_->setModel(rows_);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->verticalHeader()->setVisible(false);
  table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + 6);
  table_->horizontalHeader()->setSectionsClickable(true);
  table_->horizontalHeader()->setSortIndicatorShown(true);
  table_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  chart_ = new BoardsChart(model_, splitter);
  splitter->addWidget(table_);
  splitter->addWidget(chart_);
  splitter->setStretchFactor(0, 3);
  splitter->setStretchFactor(1, 2);
  layout->addWidget(splitter, 1);

  aggregate_ = new QLabel(this);
  aggregate_->setObjectName(QStringLiteral("lblAggregate"));
  aggregate_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  layout->addWidget(aggregate_);

  auto* copyLine = new QHBoxLayout();
  copy_ = new QPushButton(QStringLiteral("Copy"), this);
  copy_->setObjectName(QStringLiteral("cmdCopy"));
  copy_->setToolTip(BoardsTip("cmdCopy"));
  export_ = new QPushButton(QStringLiteral("Export CSV..."), this);
  export_->setObjectName(QStringLiteral("cmdExportCsv"));
  export_->setToolTip(BoardsTip("cmdExportCsv"));
  copyLine->addStretch(1);
  copyLine->addWidget(copy_);
  copyLine->addWidget(export_);
  layout->addLayout(copyLine);

  connect(run_, &QPushButton::clicked, this, [this] { Act([this] { model_.cmdRun_Click(); }); });
  connect(stop_, &QPushButton::clicked, this, [this] { Act([this] { model_.cmdStop_Click(); }); });
  connect(copy_, &QPushButton::clicked, this, [this] { Act([this] { model_.cmdCopy_Click(); }); });
  connect(export_, &QPushButton::clicked, this, [this] { Act([this] { model_.cmdExportCsv_Click(); }); });
  connect(table_->horizontalHeader(), &QHeaderView::sectionClicked, this,
          [this](int column) { Act([this, column] { model_.grdRows_HeaderClick(column); }); });
  connect(table_, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
    Act([this, row = index.row()] { model_.grdRows_DblClick(row); });
    if (mainRefresh_) mainRefresh_();
  });

  auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  escape->setContext(Qt::WindowShortcut);
  connect(escape, &QShortcut::activated, this, &QWidget::close);

  timer_.setObjectName(QStringLiteral("tmrProgress"));
  timer_.setInterval(kBoardsPollMs);
  connect(&timer_, &QTimer::timeout, this, [this] { Act([this] { model_.tmrProgress_Timer(); }); });
}

void BoardsReportWindow::Act(const std::function<void()>& handler) {
  QWidget* before = services_.boxParent;
  services_.boxParent = this;
  handler();
  services_.boxParent = before;
  Refresh();
}

void BoardsReportWindow::Open() {
  Refresh();
  if (!placed_) {
    placed_ = true;
    // The kept place, unless no screen shows its title bar now (a screen taken away since).
    const auto& kept = model_.place;
    if (kept) resize(kept->width, kept->height);
    if (kept && QGuiApplication::screenAt(QPoint(kept->left + kept->width / 2, kept->top + 10)) != nullptr) {
      move(kept->left, kept->top);
    } else if (mainWindow_ != nullptr) {
      const QRect main = mainWindow_->frameGeometry();
      QPoint spot(main.right() + 1 + kBoardsGap, main.top());
      if (const QScreen* screen = mainWindow_->screen()) {
        const QRect room = screen->availableGeometry();
        spot.setX(std::max(room.left(), std::min(spot.x(), room.right() + 1 - width())));
        spot.setY(std::max(room.top(), std::min(spot.y(), room.bottom() + 1 - height())));
      }
      move(spot);
    }
  }
  show();
  raise();
  activateWindow();
  KeepPlace();
}

void BoardsReportWindow::KeepPlace() {
  if (!isVisible()) return;
  model_.Form_Moved({x(), y(), width(), height()});
}

void BoardsReportWindow::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  KeepPlace();
}

void BoardsReportWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  KeepPlace();
}

void BoardsReportWindow::closeEvent(QCloseEvent* event) {
  KeepPlace();
  Act([this] { model_.Form_Unload(); });
  event->accept();
}

void BoardsReportWindow::Refresh() {
  inputs_->setText(ToQString(model_.lblInputs));
  const bool running = model_.Running();
  run_->setEnabled(!running);
  stop_->setEnabled(running);
  if (running && model_.progressValue == 0) {
    progress_->setRange(0, 0);
  } else {
    progress_->setRange(0, kBoardsProgressMax);
    progress_->setValue(model_.progressValue);
  }
  status_->setText(ToQString(model_.lblStatus));
  for (int c = 0; c < kBoardsCheckCount; ++c) {
    checks_[static_cast<std::size_t>(c)]->setChecked(model_.chkFilter[static_cast<std::size_t>(c)]);
  }
  highCard_->setCurrentIndex(model_.cmbHighCard == 0 ? 0 : 15 - model_.cmbHighCard);
  if (shownVersion_ != model_.tableVersion) {
    shownVersion_ = model_.tableVersion;
    rows_->Reset();
    aggregate_->setText(ToQString(model_.AggregateText()));
    chart_->update();
  }
  QHeaderView* header = table_->horizontalHeader();
  if (model_.sortColumn < 0) {
    header->setSortIndicator(-1, Qt::DescendingOrder);
  } else {
    header->setSortIndicator(model_.sortColumn,
                             model_.sortDescending ? Qt::DescendingOrder : Qt::AscendingOrder);
  }
  const bool rows = !model_.ShownRows().empty();
  copy_->setEnabled(rows);
  export_->setEnabled(rows);
  if (running) {
    if (!timer_.isActive()) timer_.start();
  } else {
    timer_.stop();
  }
  if (!model_.visible && isVisible()) hide();
}

}  // namespace quillet::gui
