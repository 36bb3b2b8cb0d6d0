// The main window's keys for undo and redo of the range.
//
// Ctrl+Z, Ctrl+Shift+Z and Ctrl+Y are shortcuts of the whole window. A text box keeps a key for its own
// undo or redo while it has an edit of its own to take back or make again; a box with nothing to undo
// passes the key on to the window. (A click on the grid hands the focus to the Board box, so without that
// the range could not be undone right after a click.)
#include <QKeyEvent>
#include <QShortcut>
#include <QTextDocument>

#include "app/gui/form1.h"

namespace quillet::gui {
namespace {

// Whether a text box would use the key itself: its own undo or redo, with something there to undo or redo.
bool BoxTakesKey(QObject* box, const QKeyEvent& key) {
  const bool undo = key.matches(QKeySequence::Undo);
  const bool redo = key.matches(QKeySequence::Redo);
  if (!undo && !redo) return true;  // not a key of ours: the box's usual handling
  if (auto* combo = qobject_cast<QComboBox*>(box)) box = combo->lineEdit();
  if (auto* line = qobject_cast<QLineEdit*>(box)) {
    return line->isReadOnly() ? false : undo ? line->isUndoAvailable() : line->isRedoAvailable();
  }
  if (auto* edit = qobject_cast<QTextEdit*>(box)) {
    const QTextDocument* document = edit->document();
    return edit->isReadOnly() ? false : undo ? document->isUndoAvailable() : document->isRedoAvailable();
  }
  return true;
}

// Hands the window's undo keys to the window when the focused text box has nothing of its own to undo.
class OwnUndoFilter : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::ShortcutOverride) return false;
    auto* key = static_cast<QKeyEvent*>(event);
    if (BoxTakesKey(watched, *key)) return false;
    key->ignore();  // the box does not claim the key: the window's shortcut takes it
    return true;
  }
};

}  // namespace

void Form1::BuildRangeHistoryKeys() {
  const auto shortcut = [this](QKeySequence keys, int keyCode, int shift) {
    auto* s = new QShortcut(keys, this);
    s->setContext(Qt::WindowShortcut);
    connect(s, &QShortcut::activated, this,
            [this, keyCode, shift] { Act([this, keyCode, shift] { model_.Form_KeyDown(keyCode, shift); }); });
  };
  shortcut(QKeySequence(Qt::CTRL | Qt::Key_Z), kKeyZ, kCtrlMask);
  shortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), kKeyZ, kCtrlMask | kShiftMask);
  shortcut(QKeySequence(Qt::CTRL | Qt::Key_Y), kKeyY, kCtrlMask);

  auto* filter = new OwnUndoFilter(this);
  for (QWidget* box :
       std::initializer_list<QWidget*>{cmbPlayer_, txtMyHand_, txtBoard_, txtRange_, txtNotation_}) {
    box->installEventFilter(filter);
  }
}

}  // namespace quillet::gui
