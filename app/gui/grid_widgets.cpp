#include "app/gui/grid_widgets.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "app/gui/qt_convert.h"
#include "cards/hand_class.h"
#include "range/grid_colours.h"
#include "range/heat_colours.h"

namespace quillet::gui {
namespace {

constexpr int kSide = 13;
constexpr int kMatrixSide = 4;

// The lower part of `cell` that a weight (thousandths, below 1) fills: at least a pixel, never all of it.
QRect WeightBar(const QRect& cell, int32_t thousandths) {
  const int h = std::clamp(
      static_cast<int>((static_cast<int64_t>(cell.height()) * thousandths + kFullWeight / 2) / kFullWeight),
      1, std::max(1, cell.height() - 1));
  return QRect(cell.left(), cell.bottom() - h + 1, cell.width(), h);
}

}  // namespace

QString SuitSymbol(int suit) {
  static const QString kSymbols[4] = {QStringLiteral("\u2663"), QStringLiteral("\u2666"),
                                      QStringLiteral("\u2665"), QStringLiteral("\u2660")};
  return (suit >= 0 && suit < 4) ? kSymbols[suit] : QString();
}

QColor SuitSymbolColour(int suit) {
  switch (suit) {
    case 0:
      return QColor(0, 150, 0);
    case 1:
      return QColor(0, 0, 230);
    case 2:
      return QColor(220, 0, 0);
    default:
      return QColor(0, 0, 0);
  }
}

bool ShowAreaToolTip(QWidget* widget, QEvent* event, const std::string& text, const QRect& area) {
  const auto* help = static_cast<QHelpEvent*>(event);
  if (text.empty()) {
    QToolTip::hideText();
    event->ignore();
  } else {
    QToolTip::showText(help->globalPos(), ToQString(text), widget, area);
  }
  return true;
}

HandGridWidget::HandGridWidget(const Form1Model& model, QWidget* parent) : QWidget(parent), model_(model) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setCursor(Qt::PointingHandCursor);
  // Tab reaches the grid; a click does not take the focus (the click's handler hands it to the Board box).
  setFocusPolicy(Qt::TabFocus);
}

QRect HandGridWidget::BlockRect(int index) const {
  const int row = index / kSide;
  const int column = index % kSide;
  const int x0 = column * width() / kSide;
  const int x1 = (column + 1) * width() / kSide;
  const int y0 = row * height() / kSide;
  const int y1 = (row + 1) * height() / kSide;
  return QRect(x0, y0, x1 - x0, y1 - y0);
}

int HandGridWidget::BlockAt(QPoint point) const {
  if (!rect().contains(point)) return -1;
  const int column = point.x() * kSide / width();
  const int row = point.y() * kSide / height();
  if (row < 0 || row >= kSide || column < 0 || column >= kSide) return -1;
  return row * kSide + column;
}

bool HandGridWidget::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const int block = BlockAt(static_cast<QHelpEvent*>(event)->pos());
  return ShowAreaToolTip(this, event, model_.grid().BlockToolTip(block), BlockRect(block));
}

void HandGridWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(96, 96, 96));
  QFont font = this->font();
  font.setPixelSize(11);
  painter.setFont(font);
  const auto& classes = HandClasses();
  for (int i = 0; i < kClassCount; ++i) {
    const QRect cell = BlockRect(i).adjusted(0, 0, -1, -1);
    const QColor fill = ToQColor(model_.grid().ShownBlockColour(i), palette());
    const int32_t partWeight = model_.grid().blockPartWeight[i];
    QColor text = fill;
    if (partWeight == 0) {
      painter.fillRect(cell, fill);
    } else {
      // A weighted block: its colour fills it from the bottom up to its mean weight, its base colour above.
      const QColor base = ToQColor(model_.grid().baseColour[i], palette());
      painter.fillRect(cell, base);
      painter.fillRect(WeightBar(cell, partWeight), fill);
      if (partWeight < kFullWeight / 2) text = base;
    }
    painter.setPen(ReadableTextOn(text));
    painter.drawText(cell, Qt::AlignCenter, QString::fromLatin1(classes[i].caption.c_str()));
  }
  if (hasFocus()) {
    // The keyboard's block: a dark frame of two pixels inside a light one, that reads on every block colour.
    const QRect cell = BlockRect(focusBlock_).adjusted(0, 0, -1, -1);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0, 0, 0), 1));
    painter.drawRect(cell.adjusted(1, 1, -2, -2));
    painter.drawRect(cell.adjusted(2, 2, -3, -3));
    painter.setPen(QPen(QColor(255, 255, 255), 1));
    painter.drawRect(cell.adjusted(0, 0, -1, -1));
  }
}

HeatLegendWidget::HeatLegendWidget(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setToolTip(
      QStringLiteral("Equity Heat Map: my equity against each block of the range, red where I am far "
                     "behind, yellow near 50 %, green where I am far ahead"));
}

void HeatLegendWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const int w = width();
  for (int x = 0; x < w; ++x) {
    const double equity = w > 1 ? 100.0 * x / (w - 1) : 50.0;
    painter.fillRect(QRect(x, 0, 1, height()), ToQColor(HeatMapColour(equity), palette()));
  }
  QFont font = this->font();
  font.setPixelSize(10);
  painter.setFont(font);
  const QRect text = rect().adjusted(3, 0, -3, 0);
  painter.setPen(ReadableTextOn(ToQColor(HeatMapColour(0.0), palette())));
  painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("0 % behind"));
  painter.setPen(ReadableTextOn(ToQColor(HeatMapColour(50.0), palette())));
  painter.drawText(text, Qt::AlignHCenter | Qt::AlignVCenter, QStringLiteral("50 %"));
  painter.setPen(ReadableTextOn(ToQColor(HeatMapColour(100.0), palette())));
  painter.drawText(text, Qt::AlignRight | Qt::AlignVCenter, QStringLiteral("ahead 100 %"));
}

void HandGridWidget::keyPressEvent(QKeyEvent* event) {
  int row = focusBlock_ / kSide;
  int column = focusBlock_ % kSide;
  const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
  switch (event->key()) {
    case Qt::Key_Left:
      column = std::max(0, column - 1);
      break;
    case Qt::Key_Right:
      column = std::min(kSide - 1, column + 1);
      break;
    case Qt::Key_Up:
      row = std::max(0, row - 1);
      break;
    case Qt::Key_Down:
      row = std::min(kSide - 1, row + 1);
      break;
    case Qt::Key_Space:
      if (modifiers == Qt::NoModifier || modifiers == Qt::ShiftModifier) {
        if (!event->isAutoRepeat()) emit blockKey(focusBlock_, modifiers == Qt::ShiftModifier ? 2 : 1);
        event->accept();
        return;
      }
      QWidget::keyPressEvent(event);
      return;
    default:
      QWidget::keyPressEvent(event);
      return;
  }
  if (modifiers != Qt::NoModifier) {
    QWidget::keyPressEvent(event);
    return;
  }
  event->accept();
  const int block = row * kSide + column;
  if (block == focusBlock_) return;
  update(BlockRect(focusBlock_));
  focusBlock_ = block;
  update(BlockRect(focusBlock_));
}

void HandGridWidget::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void HandGridWidget::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}

void HandGridWidget::mousePressEvent(QMouseEvent* event) {
  pressedBlock_ = BlockAt(event->position().toPoint());
  event->accept();
}

void HandGridWidget::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
  const int block = pressedBlock_;
  if (event->buttons() == Qt::NoButton) pressedBlock_ = -1;
  if (block < 0) return;
  emit blockMouseUp(block, ButtonNumber(event->button()), ShiftMask(event->modifiers()));
}

SuitMatrixWidget::SuitMatrixWidget(const Form1Model& model, QWidget* parent)
    : QWidget(parent), model_(model) {}

QRect SuitMatrixWidget::CellRect(int index) const {
  const int row = index / kMatrixSide;
  const int column = index % kMatrixSide;
  const int x0 = column * width() / kMatrixSide;
  const int x1 = (column + 1) * width() / kMatrixSide;
  const int y0 = row * height() / kMatrixSide;
  const int y1 = (row + 1) * height() / kMatrixSide;
  return QRect(x0, y0, x1 - x0, y1 - y0);
}

int SuitMatrixWidget::CellAt(QPoint point) const {
  if (!rect().contains(point)) return -1;
  const int column = point.x() * kMatrixSide / width();
  const int row = point.y() * kMatrixSide / height();
  if (row < 0 || row >= kMatrixSide || column < 0 || column >= kMatrixSide) return -1;
  const int cell = row * kMatrixSide + column;
  return model_.grid().matrixCellVisible[cell] ? cell : -1;
}

bool SuitMatrixWidget::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const int cell = CellAt(static_cast<QHelpEvent*>(event)->pos());
  return ShowAreaToolTip(this, event, model_.grid().SuitCellToolTip(cell), CellRect(cell));
}

void SuitMatrixWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QFont font = this->font();
  font.setPixelSize(13);
  painter.setFont(font);
  for (int k = 0; k < kMatrixSide * kMatrixSide; ++k) {
    if (!model_.grid().matrixCellVisible[k]) continue;
    const QRect cell = CellRect(k).adjusted(1, 1, -1, -1);
    const QColor fill = ToQColor(model_.grid().matrixCellColour[k], palette());
    painter.fillRect(cell, fill);
    painter.setPen(QColor(80, 80, 80));
    painter.drawRect(cell.adjusted(0, 0, -1, -1));
    const int32_t partWeight = model_.grid().comboShown[k] ? model_.grid().matrixCellPartWeight[k] : 0;
    if (partWeight != 0) {
      // A weighted holding: the cell shows as it does from the bottom up to the weight, and in the colour
      // of a holding out of the layer above.
      const QRect inside = cell.adjusted(1, 1, -1, -1);
      const QRect bar = WeightBar(inside, partWeight);
      painter.fillRect(QRect(inside.left(), inside.top(), inside.width(), bar.top() - inside.top()),
                       ToQColor(kMatrixCellOutColour, palette()));
    }
    // The cell's suit pair: first suit on the left, second on the right, each on a white disc so that
    // its colour reads on any cell colour.
    const int suit1 = k / kMatrixSide;
    const int suit2 = k % kMatrixSide;
    const QRect left(cell.left() + 1, cell.top() + 1, cell.width() / 2 - 1, cell.height() - 2);
    const QRect right(cell.left() + cell.width() / 2, cell.top() + 1, cell.width() / 2 - 1,
                      cell.height() - 2);
    for (const auto& [box, suit] : {std::pair{left, suit1}, std::pair{right, suit2}}) {
      const int d = std::min(box.width(), box.height()) - 1;
      const QRect disc(box.center().x() - d / 2, box.center().y() - d / 2, d, d);
      painter.setPen(Qt::NoPen);
      painter.setBrush(QColor(255, 255, 255, 230));
      painter.drawEllipse(disc);
      painter.setPen(SuitSymbolColour(suit));
      painter.drawText(disc, Qt::AlignCenter, SuitSymbol(suit));
    }
  }
}

void SuitMatrixWidget::mousePressEvent(QMouseEvent* event) {
  pressedCell_ = event->button() == Qt::LeftButton ? CellAt(event->position().toPoint()) : -1;
  event->accept();
}

void SuitMatrixWidget::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
  if (event->button() != Qt::LeftButton) return;
  const int cell = pressedCell_;
  pressedCell_ = -1;
  if (cell >= 0 && cell == CellAt(event->position().toPoint())) emit cellClicked(cell);
}

}  // namespace quillet::gui
