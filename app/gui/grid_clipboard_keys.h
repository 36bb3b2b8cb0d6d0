// Ctrl+C and Ctrl+V on the hand grid. A click on the grid hands the keyboard focus to the Board box, so the
// two keys are taken from whichever control of the window has the focus, while the pointer is over the
// grid (or the grid itself has the focus); anywhere else they keep their usual meaning.
#pragma once

#include <QObject>
#include <QWidget>
#include <functional>

namespace quillet::gui {

class GridClipboardKeys : public QObject {
  Q_OBJECT

 public:
  // Watches the application's key presses. `keyDown` receives the model's key code ('C' or 'V') and
  // modifier mask (Ctrl is 2).
  GridClipboardKeys(QWidget* grid, std::function<void(int keyCode, int shift)> keyDown, QObject* parent);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* grid_;
  std::function<void(int, int)> keyDown_;
};

}  // namespace quillet::gui
