// The window model's services on Qt: message boxes, the input box, the clipboard, the shell's "open"
// (QDesktopServices) and, through the main window, pop-up menus, focus and an immediate repaint.
#pragma once

#include <QWidget>

#include "app/model/window_services.h"

namespace quillet::gui {

class Form1;

class QtWindowServices : public WindowServices {
 public:
  // The main window that pop-up menus, focus and repaints go to, and that boxes are centred on.
  void Attach(Form1* form) { form_ = form; }

  void MsgBox(std::string_view text, MessageIcon icon) override;
  using WindowServices::MsgBox;
  bool AskYesNo(std::string_view title, std::string_view text, MessageIcon icon) override;
  bool AskRetryCancel(std::string_view text, MessageIcon icon) override;
  // Runs the event loop for `step`, user input left waiting: the window paints and answers the desktop.
  void Wait(std::chrono::milliseconds step) override;
  std::string InputBox(std::string_view prompt, std::string_view defaultText) override;
  std::string AskSaveFileName(std::string_view title, std::string_view suggestedName,
                              std::string_view filter) override;
  void SetClipboardText(std::string_view text) override;
  std::string GetClipboardText() override;
  void OpenInShell(std::string_view address) override;
  void PopUpMenu(PopupMenuId menu) override;
  void SetFocus(ControlId control) override;
  void RepaintNow() override;

  // Where the boxes open while another window of the program acts (the multiway window); none: over the
  // main window.
  QWidget* boxParent = nullptr;

  // Whether a modal box is open (the window's timers wait while one is).
  bool InModalBox() const { return modalDepth_ > 0; }
  // The display is gone: a message goes to the standard error stream, a question is answered No.
  void LoseScreen() { screenGone_ = true; }

 protected:
  QWidget* DialogParent() const;
  Form1* form() const { return form_; }

  // Counts an open modal box for as long as it lives.
  class ModalScope {
   public:
    explicit ModalScope(QtWindowServices& services) : services_(services) { ++services_.modalDepth_; }
    ~ModalScope() { --services_.modalDepth_; }
    ModalScope(const ModalScope&) = delete;
    ModalScope& operator=(const ModalScope&) = delete;

   private:
    QtWindowServices& services_;
  };

 private:
  Form1* form_ = nullptr;
  int modalDepth_ = 0;
  bool screenGone_ = false;
};

// The title of the program's message boxes and input box.
inline constexpr const char* kBoxTitle = "Poker Quillet";

}  // namespace quillet::gui
