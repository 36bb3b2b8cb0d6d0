#include "app/gui/qt_convert.h"

#include "app/model/form1_model.h"

namespace quillet::gui {

int ShiftMask(Qt::KeyboardModifiers modifiers) {
  int mask = 0;
  if (modifiers & Qt::ShiftModifier) mask |= kShiftMask;
  if (modifiers & Qt::ControlModifier) mask |= kCtrlMask;
  if (modifiers & Qt::AltModifier) mask |= kAltMask;
  return mask;
}

int ButtonNumber(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return kLeftButton;
    case Qt::RightButton:
      return kRightButton;
    case Qt::MiddleButton:
      return kMiddleButton;
    default:
      return 0;
  }
}

int KeyCode(const QKeyEvent& event) {
  const int key = event.key();
  if (key >= Qt::Key_A && key <= Qt::Key_Z) return 'A' + (key - Qt::Key_A);
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return '0' + (key - Qt::Key_0);
  if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return 112 + (key - Qt::Key_F1);  // F3 is 114
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return kKeyEnter;
    case Qt::Key_Shift:
      return kKeyShift;
    case Qt::Key_Control:
      return kKeyControl;
    case Qt::Key_Alt:
      return kKeyAlt;
    case Qt::Key_Left:
      return kKeyLeft;
    case Qt::Key_Up:
      return kKeyUp;
    case Qt::Key_Right:
      return kKeyRight;
    case Qt::Key_Down:
      return kKeyDown;
    case Qt::Key_Backspace:
      return 8;
    case Qt::Key_Tab:
      return 9;
    case Qt::Key_Escape:
      return 27;
    case Qt::Key_Space:
      return 32;
    case Qt::Key_PageUp:
      return 33;
    case Qt::Key_PageDown:
      return 34;
    case Qt::Key_End:
      return 35;
    case Qt::Key_Home:
      return 36;
    case Qt::Key_Insert:
      return 45;
    case Qt::Key_Delete:
      return 46;
    case Qt::Key_Comma:
      return 188;
    case Qt::Key_Minus:
      return 189;
    case Qt::Key_Period:
      return 190;
    default:
      return 0;
  }
}

QString ToWrappedToolTip(const std::string& text) {
  if (text.empty()) return QString();
  QString html = ToQString(text).toHtmlEscaped();
  html.replace(QLatin1Char('\n'), QStringLiteral("<br>"));
  return QStringLiteral("<p>") + html + QStringLiteral("</p>");
}

}  // namespace quillet::gui
