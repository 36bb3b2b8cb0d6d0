#include "app/gui/multiway_window.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include "app/gui/qt_convert.h"

namespace quillet::gui {
namespace {

// The window's first size, and the gap between it and the main window.
constexpr int kMultiwayFirstWidth = 620;
constexpr int kMultiwayFirstHeight = 560;
constexpr int kMultiwayGap = 8;

const char* const kTableColumns[] = {"Player", "Equity", "Win", "Tie", "Live combos", "Hand or range"};

QString MultiwayTip(const char* control) {
  return ToQString(MultiwayModel::ToolTip(control));
}

}  // namespace

MultiwayWindow::MultiwayWindow(MultiwayModel& model, QtWindowServices& services, QWidget* mainWindow)
    : QWidget(mainWindow, Qt::Window), model_(model), services_(services), mainWindow_(mainWindow) {
  setObjectName(QStringLiteral("frmMultiway"));
  setWindowTitle(QStringLiteral("Multiway Equity"));
  if (mainWindow != nullptr) setFont(mainWindow->font());
  resize(kMultiwayFirstWidth, kMultiwayFirstHeight);

  auto* layout = new QVBoxLayout(this);
  rowsLayout_ = new QGridLayout();
  rowsLayout_->setColumnStretch(1, 1);
  layout->addLayout(rowsLayout_);

  auto* rowButtons = new QHBoxLayout();
  addPlayer_ = new QPushButton(QStringLiteral("Add Player"), this);
  addPlayer_->setObjectName(QStringLiteral("cmdAddPlayer"));
  addPlayer_->setToolTip(MultiwayTip("cmdAddPlayer"));
  fromMain_ = new QPushButton(QStringLiteral("From Main Window"), this);
  fromMain_->setObjectName(QStringLiteral("cmdFromMainWindow"));
  fromMain_->setToolTip(MultiwayTip("cmdFromMainWindow"));
  rowButtons->addWidget(addPlayer_);
  rowButtons->addWidget(fromMain_);
  rowButtons->addStretch(1);
  layout->addLayout(rowButtons);

  auto* boardLine = new QHBoxLayout();
  auto* boardCaption = new QLabel(QStringLiteral("Board:"), this);
  board_ = new CardTextBox(this);
  board_->setObjectName(QStringLiteral("txtBoard"));
  board_->setToolTip(MultiwayTip("txtBoard"));
  board_->setFixedHeight(28);
  boardLine->addWidget(boardCaption);
  boardLine->addWidget(board_, 1);
  layout->addLayout(boardLine);

  auto* runLine = new QHBoxLayout();
  calculate_ = new QPushButton(QStringLiteral("Calculate"), this);
  calculate_->setObjectName(QStringLiteral("cmdCalculate"));
  calculate_->setToolTip(MultiwayTip("cmdCalculate"));
  stop_ = new QPushButton(QStringLiteral("Stop"), this);
  stop_->setObjectName(QStringLiteral("cmdStop"));
  stop_->setToolTip(MultiwayTip("cmdStop"));
  progress_ = new QProgressBar(this);
  progress_->setObjectName(QStringLiteral("prgProgress"));
  progress_->setToolTip(MultiwayTip("prgProgress"));
  progress_->setRange(0, kMultiwayProgressMax);
  progress_->setTextVisible(false);
  runLine->addWidget(calculate_);
  runLine->addWidget(stop_);
  runLine->addWidget(progress_, 1);
  layout->addLayout(runLine);

  status_ = new QLabel(this);
  status_->setObjectName(QStringLiteral("lblStatus"));
  status_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  layout->addWidget(status_);

  table_ = new QTableWidget(0, static_cast<int>(std::size(kTableColumns)), this);
  table_->setObjectName(QStringLiteral("grdResults"));
  table_->setToolTip(MultiwayTip("grdResults"));
  QStringList headings;
  for (const char* column : kTableColumns) headings << QString::fromLatin1(column);
  table_->setHorizontalHeaderLabels(headings);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->verticalHeader()->setVisible(false);
  table_->horizontalHeader()->setStretchLastSection(true);
  layout->addWidget(table_, 1);

  auto* copyLine = new QHBoxLayout();
  copy_ = new QPushButton(QStringLiteral("Copy"), this);
  copy_->setObjectName(QStringLiteral("cmdCopy"));
  copy_->setToolTip(MultiwayTip("cmdCopy"));
  copyLine->addStretch(1);
  copyLine->addWidget(copy_);
  layout->addLayout(copyLine);

  connect(addPlayer_, &QPushButton::clicked, this, [this] { Act([this] { model_.cmdAddPlayer_Click(); }); });
  connect(fromMain_, &QPushButton::clicked, this,
          [this] { Act([this] { model_.cmdFromMainWindow_Click(); }); });
  connect(calculate_, &QPushButton::clicked, this, [this] { Act([this] { model_.cmdCalculate_Click(); }); });
  connect(stop_, &QPushButton::clicked, this, [this] { Act([this] { model_.cmdStop_Click(); }); });
  connect(copy_, &QPushButton::clicked, this, [this] { Act([this] { model_.cmdCopy_Click(); }); });
  connect(board_, &CardTextBox::edited, this, [this] {
    if (showing_) return;
    model_.txtBoard.text = board_->Text();
    Act([this] { model_.txtBoard_Change(); });
  });
  connect(board_, &CardTextBox::keyDown, this, [this](int key) {
    if (key == kKeyEnter) Act([this] { model_.Form_KeyDown(kKeyEnter); });
  });

  auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  escape->setContext(Qt::WindowShortcut);
  connect(escape, &QShortcut::activated, this, &QWidget::close);

  timer_.setObjectName(QStringLiteral("tmrProgress"));
  timer_.setInterval(kMultiwayPollMs);
  connect(&timer_, &QTimer::timeout, this, [this] { Act([this] { model_.tmrProgress_Timer(); }); });
}

void MultiwayWindow::Act(const std::function<void()>& handler) {
  QWidget* before = services_.boxParent;
  services_.boxParent = this;
  handler();
  services_.boxParent = before;
  Refresh();
}

void MultiwayWindow::Open() {
  Refresh();
  if (!placed_) {
    placed_ = true;
    // The kept place, unless no screen shows its title bar now (a screen taken away since).
    const bool onScreen =
        model_.place && QGuiApplication::screenAt(QPoint(model_.place->left + model_.place->width / 2,
                                                         model_.place->top + 10)) != nullptr;
    if (model_.place) resize(model_.place->width, model_.place->height);
    if (onScreen) {
      move(model_.place->left, model_.place->top);
    } else {
      PlaceBesideMainWindow();
    }
  }
  show();
  raise();
  activateWindow();
  if (!rows_.empty()) rows_.front().box->setFocus();
  KeepPlace();
}

void MultiwayWindow::PlaceBesideMainWindow() {
  if (mainWindow_ == nullptr) return;
  const QRect main = mainWindow_->frameGeometry();
  QPoint spot(main.right() + 1 + kMultiwayGap, main.top());
  if (const QScreen* screen = mainWindow_->screen()) {
    const QRect room = screen->availableGeometry();
    // Beside the main window when it fits there, else as far right as the screen allows.
    spot.setX(std::max(room.left(), std::min(spot.x(), room.right() + 1 - width())));
    spot.setY(std::max(room.top(), std::min(spot.y(), room.bottom() + 1 - height())));
  }
  move(spot);
}

void MultiwayWindow::KeepPlace() {
  if (!isVisible()) return;
  model_.Form_Moved({x(), y(), width(), height()});
}

void MultiwayWindow::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  KeepPlace();
}

void MultiwayWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  KeepPlace();
}

void MultiwayWindow::closeEvent(QCloseEvent* event) {
  KeepPlace();
  Act([this] { model_.Form_Unload(); });
  event->accept();
}

void MultiwayWindow::keyPressEvent(QKeyEvent* event) {
  // Enter wherever the focus is (a box, a button, the table): Calculate.
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    Act([this] { model_.Form_KeyDown(kKeyEnter); });
    event->accept();
    return;
  }
  QWidget::keyPressEvent(event);
}

void MultiwayWindow::ShowBox(CardTextBox* box, const MultiwayBox& state) {
  RichTextState rich;
  rich.text = state.text;
  rich.charColours = state.charColours;
  // The caret stays where the user has it (the box is rewritten only when its text or colours differ).
  rich.selStart = box->textCursor().position();
  if (rich.selStart >= static_cast<int>(state.text.size()) || box->Text() != state.text) {
    rich.selStart = static_cast<int>(state.text.size());
  }
  box->ShowState(rich);
}

void MultiwayWindow::ShowRows() {
  const int wanted = static_cast<int>(model_.txtPlayer.size());
  bool changed = false;
  while (static_cast<int>(rows_.size()) < wanted) {
    const int r = static_cast<int>(rows_.size());
    Row row;
    row.caption = new QLabel(QStringLiteral("Player %1:").arg(r + 1), this);
    row.box = new CardTextBox(this);
    row.box->setObjectName(QStringLiteral("txtPlayer%1").arg(r + 1));
    row.box->setToolTip(MultiwayTip("txtPlayer"));
    row.box->setFixedHeight(28);
    row.remove = new QPushButton(QStringLiteral("Remove"), this);
    row.remove->setObjectName(QStringLiteral("cmdRemovePlayer%1").arg(r + 1));
    row.remove->setToolTip(MultiwayTip("cmdRemovePlayer"));
    rowsLayout_->addWidget(row.caption, r, 0);
    rowsLayout_->addWidget(row.box, r, 1);
    rowsLayout_->addWidget(row.remove, r, 2);
    connect(row.box, &CardTextBox::edited, this, [this, r] {
      if (showing_ || r >= static_cast<int>(model_.txtPlayer.size())) return;
      model_.txtPlayer[r].text = rows_[r].box->Text();
      Act([this, r] { model_.txtPlayer_Change(r); });
    });
    connect(row.box, &CardTextBox::keyDown, this, [this](int key) {
      if (key == kKeyEnter) Act([this] { model_.Form_KeyDown(kKeyEnter); });
    });
    connect(row.remove, &QPushButton::clicked, this,
            [this, r] { Act([this, r] { model_.cmdRemovePlayer_Click(r); }); });
    rows_.push_back(row);
    changed = true;
  }
  while (static_cast<int>(rows_.size()) > wanted) {
    Row row = rows_.back();
    rows_.pop_back();
    // A box that had the focus hands it on before it goes.
    if (row.box->hasFocus() || row.remove->hasFocus()) calculate_->setFocus();
    delete row.caption;
    delete row.box;
    delete row.remove;
    changed = true;
  }
  for (int r = 0; r < wanted; ++r) {
    ShowBox(rows_[r].box, model_.txtPlayer[r]);
    rows_[r].remove->setEnabled(wanted > kMultiwayFewestRows);
  }
  addPlayer_->setEnabled(wanted < kMultiwayMostRows);
  if (changed) SetTabOrder();
}

void MultiwayWindow::SetTabOrder() {
  std::vector<QWidget*> order;
  for (const Row& row : rows_) {
    order.push_back(row.box);
    order.push_back(row.remove);
  }
  for (QWidget* widget :
       std::initializer_list<QWidget*>{addPlayer_, fromMain_, board_, calculate_, stop_, table_, copy_}) {
    order.push_back(widget);
  }
  for (std::size_t i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

void MultiwayWindow::ShowTable() {
  if (model_.results == shownResults_) return;
  shownResults_ = model_.results;
  table_->setRowCount(static_cast<int>(shownResults_.size()));
  for (int r = 0; r < static_cast<int>(shownResults_.size()); ++r) {
    const MultiwayTableRow& row = shownResults_[r];
    const std::string* cells[] = {&row.player, &row.equity, &row.win, &row.tie, &row.liveCombos, &row.text};
    for (int c = 0; c < static_cast<int>(std::size(cells)); ++c) {
      auto* item = new QTableWidgetItem(ToQString(*cells[c]));
      if (c >= 1 && c <= 4) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      table_->setItem(r, c, item);
    }
  }
  table_->resizeColumnsToContents();
}

void MultiwayWindow::Refresh() {
  showing_ = true;
  ShowRows();
  ShowBox(board_, model_.txtBoard);
  showing_ = false;
  const bool running = model_.Running();
  calculate_->setEnabled(!running);
  stop_->setEnabled(running);
  // Nothing known yet of how far a run has come: the bar is busy.
  if (running && model_.progressValue == 0) {
    progress_->setRange(0, 0);
  } else {
    progress_->setRange(0, kMultiwayProgressMax);
    progress_->setValue(model_.progressValue);
  }
  status_->setText(ToQString(model_.lblStatus));
  ShowTable();
  copy_->setEnabled(!model_.results.empty());
  if (running || model_.RunsWindingDown() > 0) {
    if (!timer_.isActive()) timer_.start();
  } else {
    timer_.stop();
  }
  if (!model_.visible && isVisible()) hide();
}

}  // namespace quillet::gui
