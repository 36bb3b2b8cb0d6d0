#include "app/gui/sel_cards_window.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include "app/gui/grid_widgets.h"
#include "app/gui/qt_convert.h"

namespace quillet::gui {
namespace {

constexpr int kColumns = 13;
constexpr int kRows = 4;
constexpr int kCellWidth = 32;
constexpr int kCellHeight = 34;

}  // namespace

CardCellsWidget::CardCellsWidget(const SelCardsModel& picker, QWidget* parent)
    : QWidget(parent), picker_(picker) {
  setFixedSize(kColumns * kCellWidth + 1, kRows * kCellHeight + 1);
  setCursor(Qt::PointingHandCursor);
}

QRect CardCellsWidget::CellRect(int cell) const {
  // One row per suit (clubs, diamonds, hearts, spades), the ranks from A down to 2.
  return QRect((cell % kColumns) * kCellWidth, (cell / kColumns) * kCellHeight, kCellWidth, kCellHeight);
}

int CardCellsWidget::CellAt(QPoint point) const {
  if (!rect().contains(point)) return -1;
  const int column = point.x() / kCellWidth;
  const int row = point.y() / kCellHeight;
  if (column >= kColumns || row >= kRows) return -1;
  return row * kColumns + column;
}

void CardCellsWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QFont rankFont(QStringLiteral("DejaVu Sans"));
  rankFont.setPixelSize(13);
  rankFont.setBold(true);
  QFont suitFont(QStringLiteral("DejaVu Sans"));
  suitFont.setPixelSize(13);
  for (int cell = 0; cell < kPickerCells; ++cell) {
    const QRectF box = QRectF(CellRect(cell)).adjusted(1.5, 1.5, -1.5, -1.5);
    const QColor fill = ToQColor(picker_.cellColour[cell], palette());
    const bool chosen = picker_.IsChosen(cell);
    painter.setPen(QPen(chosen ? QColor(160, 120, 0) : QColor(90, 90, 90), chosen ? 2.0 : 1.0));
    painter.setBrush(fill);
    painter.drawRoundedRect(box, 3, 3);
    const std::string& caption = picker_.captions[cell];
    const int suit = cell / kColumns;
    const QRectF top(box.left(), box.top() + 1, box.width(), box.height() / 2);
    const QRectF bottom(box.left(), box.center().y() - 1, box.width(), box.height() / 2);
    painter.setFont(rankFont);
    painter.setPen(QColor(20, 20, 20));
    painter.drawText(top, Qt::AlignCenter, ToQString(caption.substr(0, 1)));
    painter.setFont(suitFont);
    painter.setPen(SuitSymbolColour(suit));
    painter.drawText(bottom, Qt::AlignCenter, SuitSymbol(suit));
  }
}

void CardCellsWidget::mousePressEvent(QMouseEvent* event) {
  pressedCell_ = CellAt(event->position().toPoint());
  event->accept();
}

void CardCellsWidget::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
  const int cell = pressedCell_;
  if (event->buttons() == Qt::NoButton) pressedCell_ = -1;
  if (cell >= 0) emit cellMouseUp(cell, ButtonNumber(event->button()));
}

SelCardsWindow::SelCardsWindow(SelCardsModel& picker, std::function<void(std::function<void()>)> act,
                               QWidget* owner)
    : QWidget(owner, Qt::Tool), picker_(picker), act_(std::move(act)) {
  setWindowTitle(QStringLiteral("Select Card"));
  setObjectName(QStringLiteral("frmSelCards"));
  // It opens beside the box without taking the keyboard from it: the user may still type the cards.
  setAttribute(Qt::WA_ShowWithoutActivating);

  cells_ = new CardCellsWidget(picker_, this);
  autoOK_ = new QCheckBox(QStringLiteral("Auto: OK on final click"), this);
  autoOK_->setObjectName(QStringLiteral("chkAutoOK"));
  autoCook_ = new QCheckBox(QStringLiteral("Auto: Cook on OK"), this);
  autoCook_->setObjectName(QStringLiteral("chkAutoCook"));
  ok_ = new QPushButton(QStringLiteral("OK"), this);
  ok_->setObjectName(QStringLiteral("cmdOK"));
  cancel_ = new QPushButton(QStringLiteral("Cancel"), this);
  cancel_->setObjectName(QStringLiteral("cmdCancel"));
  ok_->setFocusPolicy(Qt::NoFocus);
  cancel_->setFocusPolicy(Qt::NoFocus);

  auto* options = new QVBoxLayout;
  options->setSpacing(2);
  options->addWidget(autoOK_);
  options->addWidget(autoCook_);
  auto* bottom = new QHBoxLayout;
  bottom->addLayout(options);
  bottom->addStretch(1);
  bottom->addWidget(ok_);
  bottom->addWidget(cancel_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(6, 6, 6, 6);
  layout->setSpacing(6);
  layout->addWidget(cells_);
  layout->addLayout(bottom);
  layout->setSizeConstraint(QLayout::SetFixedSize);

  connect(cells_, &CardCellsWidget::cellMouseUp, this, [this](int cell, int button) {
    act_([this, cell, button] { picker_.Card_MouseUp(cell, button); });
  });
  connect(autoOK_, &QCheckBox::clicked, this,
          [this](bool on) { act_([this, on] { picker_.chkAutoOK = on; }); });
  connect(autoCook_, &QCheckBox::clicked, this,
          [this](bool on) { act_([this, on] { picker_.chkAutoCook = on; }); });
  connect(ok_, &QPushButton::clicked, this, [this] { act_([this] { picker_.cmdOK_Click(); }); });
  connect(cancel_, &QPushButton::clicked, this, [this] { act_([this] { picker_.cmdCancel_Click(); }); });
}

void SelCardsWindow::ShowState(const QWidget* anchor) {
  if (autoOK_->isChecked() != picker_.chkAutoOK) autoOK_->setChecked(picker_.chkAutoOK);
  if (autoCook_->isChecked() != picker_.chkAutoCook) autoCook_->setChecked(picker_.chkAutoCook);
  cells_->update();
  if (!picker_.visible) {
    if (isVisible()) hide();
    wasVisible_ = false;
    return;
  }
  const bool reopened = !wasVisible_ || shownAnchor_ != picker_.anchor;
  wasVisible_ = true;
  shownAnchor_ = picker_.anchor;
  if (reopened && anchor != nullptr) {
    // Just right of the box it fills: the box's right edge and 5 pixels, 24 pixels below its top.
    // The spot is where the frame starts, title bar and all.
    frameSpot_ = anchor->mapToGlobal(QPoint(picker_.offsetX, picker_.offsetY));
    placeTries_ = 0;
    if (testAttribute(Qt::WA_WState_Created)) {
      move(*frameSpot_);
    } else {
      // Never shown yet, the window has no frame, and a move places its inside: the inside goes where a
      // frame like the owner's leaves it, so that the title bar does not cover the Board box.
      const QWindow* owner = anchor->window()->windowHandle();
      const QMargins frame = owner != nullptr ? owner->frameMargins() : QMargins();
      move(*frameSpot_ + QPoint(frame.left(), frame.top()));
    }
  }
  if (!isVisible()) show();
  if (reopened) raise();
  if (frameSpot_) QTimer::singleShot(0, this, [this] { PlaceFrame(); });
}

void SelCardsWindow::paintEvent(QPaintEvent* event) {
  QWidget::paintEvent(event);
  // A thin edge, so that the picker stands apart from the main window it overlaps.
  QPainter painter(this);
  painter.setPen(QColor(120, 120, 120));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void SelCardsWindow::PlaceFrame() {
  // The frame was only guessed: once the window manager has framed the window (in its own time; the
  // window looks every 50 ms, for two seconds at most), a frame of another size moves the window to the
  // spot. The platform window is asked, as the widget's own record of its frame can be older.
  QWindow* window = windowHandle();
  if (!frameSpot_ || !isVisible() || window == nullptr) return;
  const QMargins frame = window->frameMargins();
  if (frame.isNull()) {
    if (++placeTries_ < 40) QTimer::singleShot(50, this, [this] { PlaceFrame(); });
    return;
  }
  const QPoint spot = *frameSpot_;
  frameSpot_.reset();
  if (window->framePosition() != spot) window->setFramePosition(spot);
}

void SelCardsWindow::closeEvent(QCloseEvent* event) {
  // Closing the window is its Cancel; hiding it from the model's state needs nothing more.
  if (picker_.visible) {
    event->ignore();
    act_([this] { picker_.cmdCancel_Click(); });
    return;
  }
  QWidget::closeEvent(event);
}

}  // namespace quillet::gui
