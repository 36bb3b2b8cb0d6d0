#include "app/gui/grid_clipboard_keys.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include "app/gui/qt_convert.h"

namespace quillet::gui {

GridClipboardKeys::GridClipboardKeys(QWidget* grid, std::function<void(int, int)> keyDown, QObject* parent)
    : QObject(parent), grid_(grid), keyDown_(std::move(keyDown)) {
  QCoreApplication::instance()->installEventFilter(this);  // taken out again when this object goes
}

bool GridClipboardKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
  auto* key = static_cast<QKeyEvent*>(event);
  if (key->isAutoRepeat() || key->modifiers() != Qt::ControlModifier) return false;
  if (key->key() != Qt::Key_C && key->key() != Qt::Key_V) return false;
  // Only keys meant for the grid's own window, and only while the grid is the place the user works in.
  if (static_cast<QWidget*>(watched)->window() != grid_->window()) return false;
  if (!grid_->hasFocus() && !grid_->underMouse()) return false;
  keyDown_(KeyCode(*key), ShiftMask(key->modifiers()));
  return true;
}

}  // namespace quillet::gui
