// Translations between the window model's values and Qt's: colours, key codes, mouse buttons and
// modifier masks, text.
#pragma once

#include <QColor>
#include <QKeyEvent>
#include <QPalette>
#include <QString>
#include <string>
#include <string_view>

#include "range/colour.h"

namespace quillet::gui {

// A model colour (0x00BBGGRR, or the window-text reference) as Qt draws it.
inline QColor ToQColor(Colour colour, const QPalette& palette) {
  if (colour == kWindowTextColour) return palette.color(QPalette::WindowText);
  return QColor(static_cast<int>(RedOf(colour)), static_cast<int>(GreenOf(colour)),
                static_cast<int>(BlueOf(colour)));
}

inline Colour FromQColor(const QColor& colour) {
  return Rgb(static_cast<uint32_t>(colour.red()), static_cast<uint32_t>(colour.green()),
             static_cast<uint32_t>(colour.blue()));
}

// Black or white, whichever reads better on `background`.
inline QColor ReadableTextOn(const QColor& background) {
  const double luminance =
      0.299 * background.redF() + 0.587 * background.greenF() + 0.114 * background.blueF();
  return luminance < 0.5 ? QColor(Qt::white) : QColor(Qt::black);
}

inline QString ToQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string ToStdString(const QString& text) {
  return text.toUtf8().toStdString();
}

// Message texts use CR LF line breaks; Qt's boxes want plain line feeds.
inline QString ToDisplayText(std::string_view text) {
  QString out = ToQString(text);
  out.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  return out;
}

// A long tooltip as a paragraph that Qt wraps to a readable width (a plain-text tooltip is one line,
// however long); line breaks in `text` stay.
QString ToWrappedToolTip(const std::string& text);

// The modifier mask the handlers take: 1 Shift, 2 Ctrl, 4 Alt.
int ShiftMask(Qt::KeyboardModifiers modifiers);
// The button number the handlers take: 1 left, 2 right, 4 middle; 0 for any other.
int ButtonNumber(Qt::MouseButton button);
// The key code the handlers take (13 Enter, 16 Shift, 37-40 arrows, 65-90 letters, 114 F3, ...); 0 for a
// key that has none.
int KeyCode(const QKeyEvent& event);

}  // namespace quillet::gui
