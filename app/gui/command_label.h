// A label that acts as a button: a click runs its command, the pointer over it reports a hover (the
// window model decides which label shows the highlight), and its background shows only while the model
// makes it opaque.
#pragma once

#include <QLabel>

#include "app/model/form1_model.h"

namespace quillet::gui {

// Verdana where it is installed, a clean sans-serif otherwise.
QFont CommandLabelFont();

// Shows or hides a label's background colour (the model's back style: opaque or transparent).
void ShowLabelBackground(QLabel& label, bool opaque, Colour backColour);

class CommandLabelWidget : public QLabel {
  Q_OBJECT

 public:
  CommandLabelWidget(CommandLabel id, QWidget* parent);
  CommandLabel id() const { return id_; }
  void ShowState(const LabelState& state);

 signals:
  void hovered(quillet::CommandLabel id);
  void clicked(quillet::CommandLabel id);

 protected:
  void enterEvent(QEnterEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  CommandLabel id_;
  bool pressed_ = false;
};

// A caption label that only shows text: the pointer passes through it to the window beneath, so that
// moving over it counts as moving over the bare window.
class CaptionLabel : public QLabel {
  Q_OBJECT

 public:
  CaptionLabel(const QString& text, QWidget* parent);
};

// A caption label that can be clicked ("My Hand", "Board Cards").
class ClickableLabel : public QLabel {
  Q_OBJECT

 public:
  ClickableLabel(const QString& text, QWidget* parent);

 signals:
  void clicked();

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
};

}  // namespace quillet::gui
