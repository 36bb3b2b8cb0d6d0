// The hand grid (PFHand, 13 x 13 blocks) and the suit matrix (picSuit, 4 x 4 cells), drawn from the
// window model's grid state. Each reports its mouse events by block or cell index.
#pragma once

#include <QWidget>

#include "app/model/form1_model.h"

namespace quillet::gui {

class HandGridWidget : public QWidget {
  Q_OBJECT

 public:
  HandGridWidget(const Form1Model& model, QWidget* parent);

  QRect BlockRect(int index) const;
  // The block under `point`, or -1.
  int BlockAt(QPoint point) const;
  // The block the keyboard works on: framed while the grid has the focus (Tab reaches the grid).
  int FocusBlock() const { return focusBlock_; }

 signals:
  // The button was released after being pressed on block `index` (button 1 left, 2 right, 4 middle;
  // shift 1 Shift, 2 Ctrl, 4 Alt).
  void blockMouseUp(int index, int button, int shift);
  // Space (button 1, as a left click) or Shift+Space (button 2, as a right click) on the framed block.
  void blockKey(int index, int button);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  const Form1Model& model_;
  int pressedBlock_ = -1;
  int focusBlock_ = 0;
};

class SuitMatrixWidget : public QWidget {
  Q_OBJECT

 public:
  SuitMatrixWidget(const Form1Model& model, QWidget* parent);

  QRect CellRect(int index) const;
  // The cell under `point` that is shown, or -1.
  int CellAt(QPoint point) const;

 signals:
  void cellClicked(int index);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  const Form1Model& model_;
  int pressedCell_ = -1;
};

// The heat map's legend under the grid: the colour scale from 0 % (far behind) through 50 % to 100 % (far
// ahead). Shown only while "Equity Heat Map" is ticked.
class HeatLegendWidget : public QWidget {
  Q_OBJECT

 public:
  explicit HeatLegendWidget(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

// Shows `text` as the tooltip of `area` of `widget` for a tooltip event, or hides any tooltip when the
// text is empty. Always true: the event is taken.
bool ShowAreaToolTip(QWidget* widget, QEvent* event, const std::string& text, const QRect& area);

// The picture of a suit as text ("♣" ...) and its colour in card texts.
QString SuitSymbol(int suit);
QColor SuitSymbolColour(int suit);

}  // namespace quillet::gui
