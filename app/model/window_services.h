// What the window model asks of the windowing system: message boxes, questions, the input box, the
// clipboard, the shell's "open", pop-up menus, focus and an immediate repaint. The Qt window implements
// it; tests and the CLI use RecordingServices.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace quillet {

enum class MessageIcon { None, Information, Warning };
enum class PopupMenuId { Options, Tree };
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

// Records every call and answers questions from queues (Yes and empty text when a queue is empty).
class RecordingServices : public WindowServices {
 public:
  struct Message {
    std::string text;
    MessageIcon icon;
  };
  struct Question {
    std::string title;
    std::string text;
    MessageIcon icon;
  };

  std::vector<Message> messages;
  std::vector<Question> questions;
  std::vector<std::string> prompts;
  std::vector<std::string> clipboard;  // every text put on the clipboard, in order
  std::vector<std::string> opened;
  std::vector<PopupMenuId> popups;
  std::vector<ControlId> focus;
  int repaints = 0;

  std::deque<bool> yesNoAnswers;
  std::deque<std::string> inputAnswers;

  void MsgBox(std::string_view text, MessageIcon icon) override { messages.push_back({std::string(text), icon}); }
  using WindowServices::MsgBox;
  bool AskYesNo(std::string_view title, std::string_view text, MessageIcon icon) override {
    questions.push_back({std::string(title), std::string(text), icon});
    if (yesNoAnswers.empty()) return true;
    const bool answer = yesNoAnswers.front();
    yesNoAnswers.pop_front();
    return answer;
  }
  std::string InputBox(std::string_view prompt, std::string_view) override {
    prompts.emplace_back(prompt);
    if (inputAnswers.empty()) return {};
    std::string answer = inputAnswers.front();
    inputAnswers.pop_front();
    return answer;
  }
  void SetClipboardText(std::string_view text) override { clipboard.emplace_back(text); }
  // The clipboard holds the last text put on it, as a real one does.
  std::string GetClipboardText() override { return clipboard.empty() ? std::string() : clipboard.back(); }
  void OpenInShell(std::string_view address) override { opened.emplace_back(address); }
  void PopUpMenu(PopupMenuId menu) override { popups.push_back(menu); }
  void SetFocus(ControlId control) override { focus.push_back(control); }
  void RepaintNow() override { ++repaints; }

  // The texts of the message boxes shown so far.
  std::vector<std::string> messageTexts() const {
    std::vector<std::string> out;
    for (const auto& m : messages) out.push_back(m.text);
    return out;
  }
};

}  // namespace quillet
