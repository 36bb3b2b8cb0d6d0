// What the window model asks of the windowing system: message boxes, questions, the input box, the
// clipboard, the shell's "open", pop-up menus, focus and an immediate repaint. The Qt window implements
// it; the tests use RecordingServices (tests/support/recording_services.h).
#pragma once

#include <string>
#include <string_view>

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
  // Paints the window now; called before a long calculation so its "busy" look shows during the run.
  virtual void RepaintNow() = 0;
};

}  // namespace quillet
