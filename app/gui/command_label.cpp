#include "app/gui/command_label.h"

#include <QFontDatabase>
#include <QMouseEvent>

#include "app/gui/qt_convert.h"

namespace quillet::gui {

QFont CommandLabelFont() {
  QFont font;
  font.setFamilies(
      {QStringLiteral("Verdana"), QStringLiteral("DejaVu Sans"), QStringLiteral("Liberation Sans")});
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(12);
  return font;
}

void ShowLabelBackground(QLabel& label, bool opaque, Colour backColour) {
  QPalette palette = label.palette();
  const QColor colour = ToQColor(backColour, palette);
  if (label.autoFillBackground() == opaque && (!opaque || palette.color(QPalette::Window) == colour)) return;
  if (opaque) palette.setColor(QPalette::Window, colour);
  label.setPalette(palette);
  label.setAutoFillBackground(opaque);
}

CommandLabelWidget::CommandLabelWidget(CommandLabel id, QWidget* parent) : QLabel(parent), id_(id) {
  setFont(CommandLabelFont());
  setAlignment(Qt::AlignCenter);
  setMouseTracking(true);
  setCursor(Qt::PointingHandCursor);
  setToolTip(ToQString(CommandLabelToolTip(id)));
  // A button's look without a button's frame: dark blue text, the background only under the pointer.
  QPalette palette = this->palette();
  palette.setColor(QPalette::WindowText, QColor(0x1A, 0x3A, 0x7A));
  setPalette(palette);
}

void CommandLabelWidget::ShowState(const LabelState& state) {
  const QString caption = ToQString(state.caption);
  if (text() != caption) setText(caption);
  if (isVisibleTo(parentWidget()) != state.visible) setVisible(state.visible);
  ShowLabelBackground(*this, state.opaque, state.backColour);
}

void CommandLabelWidget::enterEvent(QEnterEvent* event) {
  QLabel::enterEvent(event);
  emit hovered(id_);
}

void CommandLabelWidget::mouseMoveEvent(QMouseEvent* event) {
  // Taken here: passed on, the move would reach the window beneath as a move over the bare window.
  event->accept();
  emit hovered(id_);
}

void CommandLabelWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) pressed_ = true;
  event->accept();
}

void CommandLabelWidget::mouseReleaseEvent(QMouseEvent* event) {
  const bool click =
      pressed_ && event->button() == Qt::LeftButton && rect().contains(event->position().toPoint());
  if (event->button() == Qt::LeftButton) pressed_ = false;
  event->accept();
  if (click) emit clicked(id_);
}

CaptionLabel::CaptionLabel(const QString& text, QWidget* parent) : QLabel(text, parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

ClickableLabel::ClickableLabel(const QString& text, QWidget* parent) : QLabel(text, parent) {
  setCursor(Qt::PointingHandCursor);
}

void ClickableLabel::mouseReleaseEvent(QMouseEvent* event) {
  QLabel::mouseReleaseEvent(event);
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) emit clicked();
}

}  // namespace quillet::gui
