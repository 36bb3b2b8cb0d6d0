// What the window model asks of the windowing system: message boxes, questions, the input box, the
// clipboard, the shell's "open", pop-up menus, focus, an immediate repaint and a wait that keeps the window
// alive. The Qt window implements it; the tests use RecordingServices (tests/support/recording_services.h).
#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <thread>

namespace quillet {

enum class MessageIcon { None, Information, Warning };
enum class PopupMenuId { Options, Tree, EquityReadOut };
enum class ControlId { txtMyHand, txtBoard, txtRange, cmbPlayer, Slider1, TV };

class WindowServices {
 public:
  virtual ~WindowServices() = default;
  // A modal message box with an OK button only.
  virtual void MsgBox(std::string_view text, MessageIcon icon) = 0;
  void MsgBox(std::string_view text) { MsgBox(text, MessageIcon::None); }
  // A modal Yes/No question; true for Yes.
  virtual bool AskYesNo(std::string_view title, std::string_view text, MessageIcon icon) = 0;
  // A modal question with the buttons Retry and Cancel; true for Retry.
  virtual bool AskRetryCancel(std::string_view text, MessageIcon icon) = 0;
  // Waits a moment while the window stays alive: it keeps painting and answering the desktop, though
  // clicks and keys wait until the window's handler is done. Used while a save waits for another program.
  virtual void Wait(std::chrono::milliseconds step) { std::this_thread::sleep_for(step); }
  // A modal input box; the text entered, empty when cancelled.
  virtual std::string InputBox(std::string_view prompt, std::string_view defaultText) = 0;
  // Clears the clipboard and puts `text` on it.
  virtual void SetClipboardText(std::string_view text) = 0;
  // The text on the clipboard, empty when it holds none.
  virtual std::string GetClipboardText() { return {}; }
  // Hands an address to the shell's "open" (a normal window); the result is not checked.
  virtual void OpenInShell(std::string_view address) = 0;
  // Pops up a menu under the pointer.
  virtual void PopUpMenu(PopupMenuId menu) = 0;
  // Moves the keyboard focus.
  virtual void SetFocus(ControlId control) = 0;
  // A modal "Save As" question: the path chosen, empty when cancelled. `suggestedName` is the file name it
  // starts with; `filter` the kinds of file offered ("CSV files (*.csv)").
  virtual std::string AskSaveFileName(std::string_view title, std::string_view suggestedName,
                                      std::string_view filter) {
    (void)title;
    (void)suggestedName;
    (void)filter;
    return {};
  }
  // Paints the window now; called before a long calculation so its "busy" look shows during the run.
  virtual void RepaintNow() = 0;
};

}  // namespace quillet
