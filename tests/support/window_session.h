// The real main window on a fresh program folder, for the window's Qt tests. Qt's services are used, except
// that message boxes, questions, input boxes and the browser are recorded and answered instead of shown.
#pragma once

#include <QColor>
#include <QImage>
#include <QTest>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/gui/form1.h"
#include "app/gui/qt_services.h"
#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "tests/storage/temp_folder.h"

namespace quillet::gui {

class TestServices : public QtWindowServices {
 public:
  std::vector<std::string> messages;
  std::vector<std::string> questions;  // every question is answered No
  std::vector<std::string> opened;
  std::vector<std::string> inputAnswers;  // taken in turn by the input boxes; none left gives ""

  void MsgBox(std::string_view text, MessageIcon) override { messages.emplace_back(text); }
  bool AskYesNo(std::string_view, std::string_view text, MessageIcon) override {
    questions.emplace_back(text);
    return false;
  }
  std::vector<std::string> retryQuestions;
  std::vector<bool> retryAnswers;         // taken in turn; none left gives Cancel
  std::function<void()> onRetryQuestion;  // runs when such a question is asked, before it is answered
  bool AskRetryCancel(std::string_view text, MessageIcon) override {
    retryQuestions.emplace_back(text);
    if (onRetryQuestion) onRetryQuestion();
    if (retryAnswers.empty()) return false;
    const bool answer = retryAnswers.front();
    retryAnswers.erase(retryAnswers.begin());
    return answer;
  }
  std::string InputBox(std::string_view, std::string_view) override {
    if (inputAnswers.empty()) return {};
    std::string answer = inputAnswers.front();
    inputAnswers.erase(inputAnswers.begin());
    return answer;
  }
  void OpenInShell(std::string_view address) override { opened.emplace_back(address); }
};

// One run of the program on a fresh program folder.
struct Session {
  quillet::testing::TempFolder dir;
  TestServices services;
  Form1Model model{services};
  std::unique_ptr<Form1> form;

  // Loads the program and shows its window; true once the window is on screen.
  bool Start() {
    if (!Show()) return false;
    return QTest::qWaitForWindowExposed(form.get());
  }
  // The same, with the window made the active one, so that keys reach the widget with the focus.
  bool StartActive() {
    if (!Show()) return false;
    form->activateWindow();
    return QTest::qWaitForWindowActive(form.get());
  }

 private:
  bool Show() {
    if (!model.Form_Load(dir.path())) return false;
    form = std::make_unique<Form1>(model, services);
    form->show();
    return true;
  }
};

inline QColor ModelColour(Colour c) {
  return QColor(static_cast<int>(c & 0xFF), static_cast<int>((c >> 8) & 0xFF),
                static_cast<int>((c >> 16) & 0xFF));
}

// The colour a block shows on screen, read a little inside its corner (away from the caption).
inline QColor BlockOnScreen(Form1& form, const char* name) {
  HandGridWidget* grid = form.PFHand();
  const QRect rect = grid->BlockRect(FindClassByName(name));
  return grid->grab().toImage().pixelColor(rect.topLeft() + QPoint(3, 3));
}

}  // namespace quillet::gui
