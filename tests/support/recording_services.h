// A WindowServices for tests and benchmarks: records every call of the window model and answers its
// questions from queues.
#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "app/model/window_services.h"

namespace quillet {

// Records every call and answers questions from queues (Yes, Cancel and empty text when a queue is empty).
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

  std::vector<Message> retryQuestions;
  std::deque<bool> retryAnswers;          // true for Retry; Cancel when none is left
  std::function<void()> onRetryQuestion;  // runs when such a question is asked, before it is answered
  std::vector<std::chrono::milliseconds> waits;
  std::vector<Question> saveQuestions;  // title, suggested name (as text) and no icon
  std::deque<std::string> saveAnswers;  // the paths chosen; cancelled when none is left

  void MsgBox(std::string_view text, MessageIcon icon) override {
    messages.push_back({std::string(text), icon});
  }
  using WindowServices::MsgBox;
  bool AskYesNo(std::string_view title, std::string_view text, MessageIcon icon) override {
    questions.push_back({std::string(title), std::string(text), icon});
    if (yesNoAnswers.empty()) return true;
    const bool answer = yesNoAnswers.front();
    yesNoAnswers.pop_front();
    return answer;
  }
  bool AskRetryCancel(std::string_view text, MessageIcon icon) override {
    retryQuestions.push_back({std::string(text), icon});
    if (onRetryQuestion) onRetryQuestion();
    if (retryAnswers.empty()) return false;
    const bool answer = retryAnswers.front();
    retryAnswers.pop_front();
    return answer;
  }
  void Wait(std::chrono::milliseconds step) override {
    waits.push_back(step);
    WindowServices::Wait(step);
  }
  std::string InputBox(std::string_view prompt, std::string_view) override {
    prompts.emplace_back(prompt);
    if (inputAnswers.empty()) return {};
    std::string answer = inputAnswers.front();
    inputAnswers.pop_front();
    return answer;
  }
  std::string AskSaveFileName(std::string_view title, std::string_view suggestedName,
                              std::string_view) override {
    saveQuestions.push_back({std::string(title), std::string(suggestedName), MessageIcon::None});
    if (saveAnswers.empty()) return {};
    std::string answer = saveAnswers.front();
    saveAnswers.pop_front();
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
