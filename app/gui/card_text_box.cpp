#include "app/gui/card_text_box.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QTextCursor>

#include "app/gui/qt_convert.h"

namespace quillet::gui {

CardTextBox::CardTextBox(QWidget* parent) : QTextEdit(parent) {
  setAcceptRichText(false);
  setLineWrapMode(QTextEdit::NoWrap);
  setWordWrapMode(QTextOption::NoWrap);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTabChangesFocus(true);
  document()->setDocumentMargin(3);
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(15);
  font.setBold(true);
  setFont(font);
  connect(this, &QTextEdit::textChanged, this, [this] {
    if (showing_) return;
    shownText_ = Text();
    shownColours_ = CharColours();
    emit edited();
  });
  document()->clearUndoRedoStacks();  // setting the box up is no step the user can undo
}

void CardTextBox::ShowState(const RichTextState& state) {
  const int caret = std::clamp(state.selStart, 0, static_cast<int>(state.text.size()));
  if (state.text == shownText_ && state.charColours == shownColours_) return;
  showing_ = true;
  // One edit for the whole text, one insertion per run of a colour: the document lays its line out once
  // at the end of the edit. Inserting character by character laid the growing line out again each time,
  // which took minutes for a text of some thousand cards.
  QTextCursor cursor(document());
  cursor.beginEditBlock();
  cursor.select(QTextCursor::Document);
  cursor.removeSelectedText();
  // The text is card text, plain ASCII in practice; a character of several bytes takes its first byte's
  // colour.
  const QString text = ToQString(state.text);
  std::size_t byte = 0;
  qsizetype runStart = 0;
  Colour runColour = kWindowTextColour;
  const auto flush = [&](qsizetype end) {
    if (end == runStart) return;
    QTextCharFormat format;
    if (runColour != kWindowTextColour) format.setForeground(ToQColor(runColour, palette()));
    cursor.insertText(text.mid(runStart, end - runStart), format);
    runStart = end;
  };
  for (qsizetype i = 0; i < text.size(); ++i) {
    const Colour colour = byte < state.charColours.size() ? state.charColours[byte] : kWindowTextColour;
    if (colour != runColour) {
      flush(i);
      runColour = colour;
    }
    const char16_t unit = text[i].unicode();
    // UTF-8 length of this UTF-16 unit: a surrogate pair's four bytes are counted as two and two.
    byte += unit < 0x80 ? 1 : unit < 0x800 ? 2 : QChar::isSurrogate(unit) ? 2 : 3;
  }
  flush(text.size());
  cursor.endEditBlock();
  document()->clearUndoRedoStacks();  // the model's text is no step the user can undo
  cursor.setPosition(std::min(caret, static_cast<int>(document()->characterCount() - 1)));
  setTextCursor(cursor);
  shownText_ = state.text;
  shownColours_ = state.charColours;
  showing_ = false;
}

std::string CardTextBox::Text() const {
  return ToStdString(toPlainText());
}

std::vector<Colour> CardTextBox::CharColours() const {
  std::vector<Colour> colours;
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextFragment fragment = it.fragment();
      const QTextCharFormat format = fragment.charFormat();
      const Colour colour =
          format.hasProperty(QTextFormat::ForegroundBrush) && format.foreground().style() != Qt::NoBrush
              ? FromQColor(format.foreground().color())
              : kWindowTextColour;
      const std::size_t bytes = static_cast<std::size_t>(fragment.text().toUtf8().size());
      colours.insert(colours.end(), bytes, colour);
    }
  }
  return colours;
}

void CardTextBox::keyPressEvent(QKeyEvent* event) {
  emit keyDown(KeyCode(*event));
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    event->accept();
    return;
  }
  QTextEdit::keyPressEvent(event);
}

void CardTextBox::mouseReleaseEvent(QMouseEvent* event) {
  QTextEdit::mouseReleaseEvent(event);
  if (event->button() == Qt::LeftButton) emit clicked();
}

void CardTextBox::insertFromMimeData(const QMimeData* source) {
  // One line only: pasted line breaks are dropped.
  QString text = source->text();
  text.remove(QLatin1Char('\r'));
  text.remove(QLatin1Char('\n'));
  insertPlainText(text);
}

QSize CardTextBox::sizeHint() const {
  return QSize(100, 28);
}

}  // namespace quillet::gui
