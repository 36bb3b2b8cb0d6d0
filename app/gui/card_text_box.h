// A one-line rich text box for card text (My Hand, Board): each character shows the colour the window
// model gives it. Typing is the user's; the model's text and colours come back as they are typed, and
// the box is rewritten only when the model's state differs from what it shows.
#pragma once

#include <QTextEdit>
#include <string>
#include <vector>

#include "app/model/form1_model.h"

namespace quillet::gui {

class CardTextBox : public QTextEdit {
  Q_OBJECT

 public:
  explicit CardTextBox(QWidget* parent);

  // Shows the model's box, unless it already does.
  void ShowState(const RichTextState& state);
  // The text and per-byte colours the box shows now.
  std::string Text() const;
  std::vector<Colour> CharColours() const;

 signals:
  // A key went down (its code as the model takes it); Enter is not typed into the box.
  void keyDown(int keyCode);
  // The user changed the text.
  void edited();
  // A click in the box.
  void clicked();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void insertFromMimeData(const QMimeData* source) override;
  QSize sizeHint() const override;

 private:
  bool showing_ = false;
  std::string shownText_;
  std::vector<Colour> shownColours_;
};

}  // namespace quillet::gui
