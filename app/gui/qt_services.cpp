#include "app/gui/qt_services.h"

#include <QAction>
#include <QClipboard>
#include <QDesktopServices>
#include <QEventLoop>
#include <QFileDialog>
#include <QGuiApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QTimer>
#include <QUrl>
#include <cstdio>

#include "app/gui/form1.h"
#include "app/gui/qt_convert.h"

namespace quillet::gui {
namespace {

QMessageBox::Icon ToQtIcon(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Information:
      return QMessageBox::Information;
    case MessageIcon::Warning:
      return QMessageBox::Warning;
    case MessageIcon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

// Ctrl+C copies a message box's text to the clipboard, as it does in a message box on Windows.
void LetCtrlCCopy(QMessageBox& box) {
  auto* copy = new QAction(&box);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WindowShortcut);
  QObject::connect(copy, &QAction::triggered, &box,
                   [&box] { QGuiApplication::clipboard()->setText(box.text()); });
  box.addAction(copy);
}

}  // namespace

QWidget* QtWindowServices::DialogParent() const {
  if (boxParent != nullptr && boxParent->isVisible()) return boxParent;
  return (form_ != nullptr && form_->isVisible()) ? form_ : nullptr;
}

void QtWindowServices::MsgBox(std::string_view text, MessageIcon icon) {
  if (screenGone_) {
    std::fprintf(stderr, "%.*s\n", static_cast<int>(text.size()), text.data());
    return;
  }
  QMessageBox box(ToQtIcon(icon), QString::fromLatin1(kBoxTitle), ToDisplayText(text), QMessageBox::Ok,
                  DialogParent());
  LetCtrlCCopy(box);
  ModalScope scope(*this);
  box.exec();
}

bool QtWindowServices::AskYesNo(std::string_view title, std::string_view text, MessageIcon icon) {
  if (screenGone_) return false;
  QMessageBox box(ToQtIcon(icon), ToQString(title), ToDisplayText(text), QMessageBox::Yes | QMessageBox::No,
                  DialogParent());
  box.setDefaultButton(QMessageBox::Yes);
  LetCtrlCCopy(box);
  ModalScope scope(*this);
  return box.exec() == QMessageBox::Yes;
}

bool QtWindowServices::AskRetryCancel(std::string_view text, MessageIcon icon) {
  QMessageBox box(ToQtIcon(icon), QString::fromLatin1(kBoxTitle), ToDisplayText(text),
                  QMessageBox::Retry | QMessageBox::Cancel, DialogParent());
  box.setDefaultButton(QMessageBox::Retry);
  box.setEscapeButton(QMessageBox::Cancel);
  LetCtrlCCopy(box);
  ModalScope scope(*this);
  return box.exec() == QMessageBox::Retry;
}

void QtWindowServices::Wait(std::chrono::milliseconds step) {
  QEventLoop loop;
  QTimer::singleShot(step, &loop, &QEventLoop::quit);
  loop.exec(QEventLoop::ExcludeUserInputEvents);
}

std::string QtWindowServices::InputBox(std::string_view prompt, std::string_view defaultText) {
  if (screenGone_) return {};
  bool ok = false;
  ModalScope scope(*this);
  const QString answer =
      QInputDialog::getText(DialogParent(), QString::fromLatin1(kBoxTitle), ToDisplayText(prompt),
                            QLineEdit::Normal, ToQString(defaultText), &ok);
  return ok ? ToStdString(answer) : std::string();
}

std::string QtWindowServices::AskSaveFileName(std::string_view title, std::string_view suggestedName,
                                              std::string_view filter) {
  if (screenGone_) return {};
  ModalScope scope(*this);
  const QString path = QFileDialog::getSaveFileName(DialogParent(), ToQString(title),
                                                    ToQString(suggestedName), ToQString(filter));
  return path.isEmpty() ? std::string() : path.toStdString();
}

void QtWindowServices::SetClipboardText(std::string_view text) {
  QClipboard* clipboard = QGuiApplication::clipboard();
  clipboard->clear();
  clipboard->setText(ToQString(text));
}

std::string QtWindowServices::GetClipboardText() {
  return ToStdString(QGuiApplication::clipboard()->text());
}

void QtWindowServices::OpenInShell(std::string_view address) {
  // The result is not checked: when no browser opens, nothing is reported.
  QDesktopServices::openUrl(QUrl(ToQString(address)));
}

void QtWindowServices::PopUpMenu(PopupMenuId menu) {
  if (form_ != nullptr) form_->PopUpMenu(menu);
}

void QtWindowServices::SetFocus(ControlId control) {
  if (form_ != nullptr) form_->FocusControl(control);
}

void QtWindowServices::RepaintNow() {
  if (form_ != nullptr) form_->RepaintNow();
}

}  // namespace quillet::gui
