// The card picker "Select Card" (frmSelCards): 52 card cells, "Auto: OK on final click", "Auto: Cook on
// OK", OK and Cancel. It opens beside the box it fills and does not block the main window.
#pragma once

#include <QCheckBox>
#include <QPushButton>
#include <QWidget>
#include <optional>

#include "app/model/form1_model.h"

namespace quillet::gui {

class CardCellsWidget : public QWidget {
  Q_OBJECT

 public:
  CardCellsWidget(const SelCardsModel& picker, QWidget* parent);
  QRect CellRect(int cell) const;
  int CellAt(QPoint point) const;

 signals:
  void cellMouseUp(int cell, int button);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  const SelCardsModel& picker_;
  int pressedCell_ = -1;
};

class SelCardsWindow : public QWidget {
  Q_OBJECT

 public:
  // `act` runs a picker handler and then refreshes both windows from the model.
  SelCardsWindow(SelCardsModel& picker, std::function<void(std::function<void()>)> act, QWidget* owner);

  // Shows the picker's state; `anchor` is the box it opens beside.
  void ShowState(const QWidget* anchor);

  CardCellsWidget* cells() const { return cells_; }
  QCheckBox* autoOK() const { return autoOK_; }
  QCheckBox* autoCook() const { return autoCook_; }
  QPushButton* okButton() const { return ok_; }
  QPushButton* cancelButton() const { return cancel_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void PlaceFrame();

  SelCardsModel& picker_;
  std::function<void(std::function<void()>)> act_;
  CardCellsWidget* cells_;
  QCheckBox* autoOK_;
  QCheckBox* autoCook_;
  QPushButton* ok_;
  QPushButton* cancel_;
  bool wasVisible_ = false;
  ControlId shownAnchor_ = ControlId::txtMyHand;
  // Where the window's frame should start, until the window manager has framed the window there.
  std::optional<QPoint> frameSpot_;
  int placeTries_ = 0;
};

}  // namespace quillet::gui
